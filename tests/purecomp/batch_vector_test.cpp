// Vector batches: values within 1e-12 of the exact ones, the same status and result, on every kind
// of processor the same bits.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "purecomp/pack_block.h"
#include "tests/purecomp/batch_compare.h"
#include "tests/purecomp/evaluate_fixture.h"
#include "tests/purecomp/published_records.h"

namespace zel::test {
namespace {

constexpr double kRelative = 1e-12;
constexpr double kSlopeRelative = 1e-11;

// Compares a vector batch with single evaluations. Returns how many values differ in their bits.
int CompareVector(IZelPureComp& component, std::uint32_t index,
                  std::vector<double> const& temperatures, std::string const& name) {
  Results const exact = Singly(component, index, temperatures, 1);
  Results vector(temperatures.size());
  ZelBatch batch = vector.Batch(temperatures, 1);
  batch.mode = batchVector;
  EXPECT_EQ(EvaluateComponentBatch(&component, index, batch), exact.total) << name;
  EXPECT_EQ(vector.statuses, exact.statuses) << name;
  EXPECT_EQ(vector.results, exact.results) << name;
  int different = 0;
  for (std::size_t i = 0; i < temperatures.size(); ++i) {
    if (SameBits(vector.values[i], exact.values[i]) &&
        SameBits(vector.derivatives[i], exact.derivatives[i])) {
      continue;
    }
    ++different;
    double const value = std::fabs(exact.values[i]);
    double const slope = std::fabs(exact.derivatives[i]);
    EXPECT_LE(std::fabs(vector.values[i] - exact.values[i]), kRelative * value)
        << name << " at " << temperatures[i] << ": " << exact.values[i];
    EXPECT_LE(std::fabs(vector.derivatives[i] - exact.derivatives[i]),
              kSlopeRelative * (slope + value / std::fabs(temperatures[i])))
        << name << " at " << temperatures[i] << ": " << exact.derivatives[i];
  }
  return different;
}

// Across the range and beyond, with the points where forms end, 300 of them: more than a block.
std::vector<double> Across(double low, double high, double Tc) {
  std::vector<double> all = {low,
                             high,
                             Tc,
                             Tc * 0.99995,
                             Tc * 0.9999,
                             0.0,
                             -1.0,
                             std::nextafter(high, 1e9),
                             std::nextafter(low, 0.0)};
  double const first = 0.8 * low;
  double const last = 1.2 * high;
  for (int k = 0; k <= 290; ++k) all.push_back(first + (last - first) * k / 290);
  return all;
}

class PublishedVectors : public ::testing::TestWithParam<char const*> {};

TEST_P(PublishedVectors, AreCloseToSingleEvaluations) {
  PublishedRecords records(ZEL_DATA, GetParam());
  int different = 0;
  records.Each([&](PublishedRecord const& record) {
    if (::testing::Test::HasFailure() || !SuitsPacks(record.equation)) return;
    double const low = gen_IsUndefDouble(record.tMin) ? 250.0 : record.tMin;
    double const high = gen_IsUndefDouble(record.tMax) ? 1000.0 : record.tMax;
    different += CompareVector(records.Component(), record.index, Across(low, high, record.Tc),
                               record.name + " eq " + std::to_string(record.equation));
  });
  EXPECT_GT(different, 100) << "vector instructions were used";
}

INSTANTIATE_TEST_SUITE_P(Published, PublishedVectors,
                         ::testing::Values("chemsep", "crc", "perry", "vdi"),
                         [](auto const& source) { return std::string(source.param); });

struct Sample {
  std::uint32_t index;
  std::int32_t equation;
  std::vector<double> c;
};
Sample const kSamples[] = {
    {correlationLiquidCp, 1, {75.1, -0.215, 1.2e-3, -1.1e-6, 3.5e-10}},
    {correlationLatentHeat, 15, {52390.0, 0.3682, 0.1, -0.05}},
    {correlationLiquidDensity, 16, {2.288, 0.2685, 512.5, 0.2453}},
    {correlationVaporViscosity, 19, {3.0663e-4, 0.69655, 205.0, 100.0}},
    {correlationVaporPressure, 20, {82.718, -6904.5, -8.8622, 7.4664e-6, 2.0, 1e-9, 1e-19}},
    {correlationVaporPressure, 21, {16.57, -3626.55, -34.29, 1e-4, 1e-8, 0.1}},
    {correlationVaporPressure, 47, {-8.54796, 0.76982, -3.1085, 1.54481}},
    {correlationVaporPressure, 48, {-8.54796, 0.76982, -3.1085, 1.54481}},
};

// All bases, logarithms, counts of coefficients, and open ranges.
TEST(VectorBatches, AreCloseToSingleEvaluationsForVariedRecords) {
  std::mt19937_64 engine(20240608);
  auto const between = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(engine);
  };
  std::vector<double> const temperatures = Across(175.0, 512.0, 512.5);
  for (Sample const& sample : kSamples) {
    int different = 0;
    for (int round = 0; round < 60; ++round) {
      ComponentBank bank;
      bank->SetProperty(propertyTC, 512.5 * between(0.9, 1.1));
      bank->SetProperty(propertyPC, 8084.0);
      bank->SetProperty(propertyMW, between(10.0, 90.0));
      std::vector<double> c = sample.c;
      for (double& x : c) x *= between(0.9, 1.1);
      if (round % 4 == 1) c.pop_back();
      if (round % 10 == 9) c.resize(2);
      double const none = gen_GetUndefDouble();
      ASSERT_EQ(bank->SetCorrelation(
                    sample.index, sample.equation, 10, round % 3 == 0 ? 4012 : 0,
                    round % 5 == 4 ? 2 : 1, round % 3, static_cast<std::int32_t>(c.size()),
                    round % 7 == 6 ? none : 175.0, round % 7 == 5 ? none : 512.0, c.data()),
                kStatusOk);
      different += CompareVector(
          *bank.operator->(), sample.index, temperatures,
          "eq " + std::to_string(sample.equation) + " round " + std::to_string(round));
    }
    if (sample.equation == 1) {
      EXPECT_EQ(different, 0) << "sums and products have the same bits";
    } else {
      EXPECT_GT(different, 100) << sample.equation;
    }
  }
}

TEST(VectorBatches, OtherEquationsAndOrdersAreExact) {
  ComponentBank bank;
  bank->SetProperty(propertyTC, 512.5);
  SetCorrelation(bank, correlationLiquidViscosity, 13, {0.5, 0.3, 512.0, 50.0, 1e-4});
  SetCorrelation(bank, correlationVaporPressure, 20, kSamples[4].c);
  std::vector<double> const temperatures = Across(200.0, 400.0, 512.5);
  EXPECT_EQ(CompareVector(*bank.operator->(), correlationLiquidViscosity, temperatures, "13"), 0);
  for (std::int32_t const order : {2, 3, 11}) {
    Results const exact = Singly(*bank.operator->(), correlationVaporPressure, temperatures, order);
    Results vector(temperatures.size());
    ZelBatch batch = vector.Batch(temperatures, order);
    batch.mode = batchVector;
    vector.total = EvaluateComponentBatch(bank.operator->(), correlationVaporPressure, batch);
    EXPECT_TRUE(Same(vector, exact)) << order;
  }
}

// A slope of 0, as at a limit, keeps its sign with a molecular weight that is not set.
TEST(VectorBatches, ASlopeOf0StaysAsItIs) {
  ComponentBank bank;
  SetCorrelation(bank, correlationLiquidDensity, 1, {-1.0}, 200.0, 400.0, 0, 2);
  EXPECT_EQ(CompareVector(*bank.operator->(), correlationLiquidDensity, {210.0, 220.0}, "limit"),
            0);
}

TEST(VectorBatches, StridesAndMissingSlopesMakeNoDifference) {
  ComponentBank bank;
  SetCorrelation(bank, correlationVaporPressure, 20, kSamples[4].c);
  std::vector<double> const temperatures = Across(200.0, 400.0, 512.5);
  std::size_t const count = temperatures.size();
  Results plain(count);
  ZelBatch batch = plain.Batch(temperatures, 1);
  batch.mode = batchVector;
  EvaluateComponentBatch(bank.operator->(), correlationVaporPressure, batch);
  std::vector<double> spread(3 * count, -7.0), values(2 * count, -7.0);
  for (std::size_t i = 0; i < count; ++i) spread[3 * i] = temperatures[i];
  batch.temperatures = spread.data();
  batch.temperatureStride = 3;
  batch.values = values.data();
  batch.valueStride = 2;
  batch.derivatives = nullptr;
  batch.statuses = nullptr;
  batch.results = nullptr;
  EXPECT_EQ(EvaluateComponentBatch(bank.operator->(), correlationVaporPressure, batch),
            kStatusNothingNew);
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_TRUE(SameBits(values[2 * i], plain.values[i])) << temperatures[i];
    EXPECT_EQ(values[2 * i + 1], -7.0);
  }
}

// As with the temperatures above, but each block is computed as a whole.
TEST(VectorBatches, WholeBlocksReachElementsOfAnyStride) {
  ComponentBank bank;
  SetCorrelation(bank, correlationVaporPressure, 20, kSamples[4].c);
  std::size_t const count = 300;
  std::vector<double> temperatures;
  for (std::size_t i = 0; i < count; ++i) temperatures.push_back(220.0 + 0.5 * double(i));
  Results plain(count);
  ZelBatch batch = plain.Batch(temperatures, 1);
  batch.mode = batchVector;
  ASSERT_EQ(EvaluateComponentBatch(bank.operator->(), correlationVaporPressure, batch), kStatusOk);
  std::vector<double> values(2 * count, -7.0), slopes(3 * count, -7.0);
  std::vector<std::int32_t> statuses(2 * count, -7);
  std::vector<ZelStatus> results(2 * count, ZelStatus{77});
  batch.values = values.data();
  batch.valueStride = 2;
  batch.derivatives = slopes.data();
  batch.derivativeStride = 3;
  batch.statuses = statuses.data();
  batch.statusStride = 2;
  batch.results = results.data();
  batch.resultStride = 2;
  ASSERT_EQ(EvaluateComponentBatch(bank.operator->(), correlationVaporPressure, batch), kStatusOk);
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_TRUE(SameBits(values[2 * i], plain.values[i])) << temperatures[i];
    EXPECT_TRUE(SameBits(slopes[3 * i], plain.derivatives[i])) << temperatures[i];
    EXPECT_EQ(statuses[2 * i], plain.statuses[i]) << temperatures[i];
    EXPECT_EQ(results[2 * i], kStatusOk) << temperatures[i];
    EXPECT_EQ(values[2 * i + 1], -7.0);
    EXPECT_EQ(slopes[3 * i + 1], -7.0);
    EXPECT_EQ(slopes[3 * i + 2], -7.0);
    EXPECT_EQ(statuses[2 * i + 1], -7);
    EXPECT_EQ(results[2 * i + 1], ZelStatus{77});
  }
}

// The loops for the other widths, which this processor would not choose.
TEST(VectorBatches, HaveTheSameBitsWithVectorsOfAnyWidth) {
  std::vector<BlockFunction> functions = {ComputeBlockOf2};
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx2")) functions.push_back(ComputeBlockOf4);
  if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq")) {
    functions.push_back(ComputeBlockOf8);
  }
#endif
  for (Sample const& sample : kSamples) {
    Curve curve;
    curve.call.equation = sample.equation;
    curve.call.coefficients = sample.c.data();
    curve.call.coefficientCount = static_cast<std::int32_t>(sample.c.size());
    curve.call.tMin = 200.0;
    curve.call.tMax = 500.0;
    curve.call.Tc = 512.5;
    curve.call.Pc = 8084.0;
    curve.end.rules = &kCurveRules[sample.index];
    LoopInputs const in(curve);
    std::vector<Block> blocks(functions.size());
    for (std::size_t f = 0; f < functions.size(); ++f) {
      for (int k = 0; k < kBlock; ++k) blocks[f].temperatures[k] = 150.0 + 1.5 * k;
      EXPECT_FALSE(functions[f](in, true, blocks[f])) << "some are outside";
      for (std::size_t k = 0; k < kBlock; ++k) {
        ASSERT_EQ(blocks[f].isDone[k], blocks[0].isDone[k]) << sample.equation << " " << k;
        if (blocks[0].isDone[k] == 0) continue;
        ASSERT_TRUE(SameBits(blocks[f].values[k], blocks[0].values[k])) << sample.equation;
        ASSERT_TRUE(SameBits(blocks[f].slopes[k], blocks[0].slopes[k])) << sample.equation;
      }
    }
    EXPECT_NE(blocks[0].isDone[100], 0) << sample.equation;
  }
}

}  // namespace
}  // namespace zel::test
