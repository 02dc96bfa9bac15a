// Evaluates every correlation of the published data in all orders, in steps of 1 K from a fifth of
// its lower limit to three times the upper one, at both limits and at the critical point, and
// checks each result against the values that a sound record can have. Takes a minute.
//   sweep_records [<folder of the documents>]
#include <cmath>
#include <cstdio>
#include <exception>
#include <map>
#include <utility>
#include <vector>

#include "tests/purecomp/published_records.h"
#include "tests/purecomp/sound_evaluation.h"

namespace zel::test {
namespace {

struct Counts {
  long long records = 0;
  long long evaluated = 0;
  long long refused = 0;
  long long unsound = 0;
  std::map<std::pair<std::int32_t, std::int32_t>, long> infinite;  // by equation and order
};

std::vector<double> Temperatures(PublishedRecord const& record) {
  constexpr double kLow = 250.0;  // K, for a record without a limit
  constexpr double kHigh = 1000.0;
  double const low = gen_IsUndefDouble(record.tMin) ? kLow : record.tMin;
  double const high = gen_IsUndefDouble(record.tMax) ? kHigh : record.tMax;
  std::vector<double> temperatures = {low, high};
  if (!gen_IsUndefDouble(record.Tc)) temperatures.push_back(record.Tc);
  for (double T = std::floor(0.2 * low); T <= 3.0 * high; T += 1.0) temperatures.push_back(T);
  return temperatures;
}

void Sweep(IZelPureComp& component, PublishedRecord const& record, Counts& counts) {
  ++counts.records;
  for (double const T : Temperatures(record)) {
    for (std::int32_t const order : {0, 1, 2, 3, 11}) {
      Evaluation const found = Evaluate(component, record.index, T, order);
      if (found.result == kStatusFailed) {
        ++counts.refused;
        continue;
      }
      ++counts.evaluated;
      if (std::isinf(found.derivative)) ++counts.infinite[{record.equation, order}];
      std::string const wrong = WhatIsUnsound(component, record.index, found);
      if (wrong.empty()) continue;
      constexpr int kShown = 50;
      if (++counts.unsound <= kShown) {
        std::printf("%s equation %d order %d at %.17g: %s (%g, %g, status %d)\n",
                    record.name.c_str(), record.equation, order, T, wrong.c_str(), found.value,
                    found.derivative, found.status);
      }
    }
  }
}

int Run(char const* documents) {
  Counts counts;
  for (char const* const source : kPublishedSources) {
    PublishedRecords records(documents, source);
    records.Each(
        [&](PublishedRecord const& record) { Sweep(records.Component(), record, counts); });
  }
  std::printf("%lld records, %lld evaluations, %lld refused, %lld unsound\n", counts.records,
              counts.evaluated, counts.refused, counts.unsound);
  for (auto const& [place, count] : counts.infinite) {
    std::printf("equation %d order %d: %ld infinite derivatives\n", place.first, place.second,
                count);
  }
  return counts.records > 0 && counts.unsound == 0 ? 0 : 1;
}

}  // namespace
}  // namespace zel::test

int main(int count, char** words) {
  try {
    return zel::test::Run(count > 1 ? words[1] : ZEL_DATA);
  } catch (std::exception const& error) {
    std::printf("%s\n", error.what());
    return 2;
  }
}
