// Batches compared with single evaluations.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "zelaccess/Batch.h"

namespace zel::test {

// What arrays hold before they are used: forms without a value leave it.
inline constexpr double kBefore = 4.75;
inline constexpr double kSlopeBefore = 5.25;

// The results of the elements of a batch.
struct Results {
  explicit Results(std::size_t count)
      : values(count, kBefore),
        derivatives(count, kSlopeBefore),
        weights(15 * count, 6.5),
        statuses(count, 99),
        results(count, 77) {}

  std::vector<double> values, derivatives, weights;
  std::vector<std::int32_t> statuses;
  std::vector<ZelStatus> results;
  ZelStatus total = kStatusOk;

  ZelBatch Batch(std::vector<double> const& temperatures, std::int32_t order) {
    ZelBatch batch;
    batch.count = static_cast<std::int64_t>(values.size());
    batch.temperatures = temperatures.data();
    batch.order = order;
    batch.values = values.data();
    batch.derivatives = derivatives.data();
    batch.weights = weights.data();
    batch.statuses = statuses.data();
    batch.results = results.data();
    return batch;
  }
  void Add(std::size_t i, ZelStatus result) {
    results[i] = result;
    if (result == kStatusFailed) total = kStatusFailed;
    if (result == kStatusNothingNew && total == kStatusOk) total = kStatusNothingNew;
  }
};

inline bool SameBits(double a, double b) {
  return (std::isnan(a) && std::isnan(b)) ||
         std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}
inline bool SameBits(std::vector<double> const& a, std::vector<double> const& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!SameBits(a[i], b[i])) return false;
  }
  return a.size() == b.size();
}

inline std::string Shown(Results const& r) {
  std::string text;
  for (std::size_t i = 0; i < r.values.size(); ++i) {
    char line[120];
    std::snprintf(line, sizeof line, "%zu: %.17g %.17g %d %x\n", i, r.values[i], r.derivatives[i],
                  r.statuses[i], r.results[i]);
    text += line;
  }
  return text;
}

inline bool Same(Results const& a, Results const& b) {
  return SameBits(a.values, b.values) && SameBits(a.derivatives, b.derivatives) &&
         SameBits(a.weights, b.weights) && a.statuses == b.statuses && a.results == b.results &&
         a.total == b.total;
}

// One by one, through the component.
inline Results Singly(IZelPureComp& component, std::uint32_t index,
                      std::vector<double> const& temperatures, std::int32_t order) {
  Results r(temperatures.size());
  for (std::size_t i = 0; i < temperatures.size(); ++i) {
    r.Add(i, component.EvaluateCorrelation(index, temperatures[i], order, &r.values[i],
                                           &r.derivatives[i], &r.weights[15 * i], &r.statuses[i]));
  }
  return r;
}

// Compares all ways of evaluating one correlation of a component.
inline void CompareAll(IZelPureComp& component, std::uint32_t index,
                       std::vector<double> const& temperatures, std::string const& name) {
  ZelCorrelation taken;
  bool const isTaken = TakeCorrelation(&component, index, taken) == kStatusOk;
  for (std::int32_t const order : {0, 1, 2, 3, 11}) {
    Results const expected = Singly(component, index, temperatures, order);
    Results batch(temperatures.size());
    batch.total = EvaluateComponentBatch(&component, index, batch.Batch(temperatures, order));
    ASSERT_TRUE(Same(batch, expected)) << name << " order " << order << "\n"
                                       << Shown(batch) << "single\n"
                                       << Shown(expected);
    if (isTaken) {
      Results one(temperatures.size());
      for (std::size_t i = 0; i < temperatures.size(); ++i) {
        one.Add(i, EvaluateOne(taken, temperatures[i], order, &one.values[i], &one.derivatives[i],
                               &one.weights[15 * i], &one.statuses[i]));
      }
      ASSERT_TRUE(Same(one, expected)) << name << " taken, order " << order;
      Results taking(temperatures.size());
      taking.total = EvaluateBatch(taken, taking.Batch(temperatures, order));
      ASSERT_TRUE(Same(taking, expected)) << name << " batch of a taken one, order " << order;
    }
    Results values(temperatures.size());
    ZelBatch onlyValues = values.Batch(temperatures, order);
    onlyValues.derivatives = onlyValues.weights = nullptr;
    onlyValues.statuses = nullptr;
    onlyValues.results = nullptr;
    EXPECT_EQ(EvaluateComponentBatch(&component, index, onlyValues), expected.total);
    std::vector<double> singly(temperatures.size(), kBefore);
    for (std::size_t i = 0; i < temperatures.size(); ++i) {
      component.EvaluateCorrelation(index, temperatures[i], order, &singly[i], nullptr, nullptr,
                                    nullptr);
    }
    ASSERT_TRUE(SameBits(values.values, singly)) << name << " values, order " << order;
  }
}

}  // namespace zel::test
