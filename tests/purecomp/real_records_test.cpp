// Every correlation of the published data, evaluated inside its range, at its ends and far outside:
// a successful result is a number.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "tests/purecomp/published_records.h"
#include "tests/purecomp/sound_evaluation.h"

namespace zel::test {
namespace {

class RealRecords : public ::testing::TestWithParam<char const*> {
 protected:
  // Checks the results of all orders at a temperature.
  void Check(PublishedRecord const& record, double T) {
    for (std::int32_t const order : {0, 1, 2, 3, 11}) {
      Evaluation const found = Evaluate(records_.Component(), record.index, T, order);
      if (found.result == kStatusFailed) continue;
      ++evaluated_;
      EXPECT_EQ(WhatIsUnsound(records_.Component(), record.index, found), "")
          << record.name << " eq " << record.equation << " order " << order << " at " << T << ": "
          << found.value << " " << found.derivative << ", status " << found.status;
    }
  }

  PublishedRecords records_{ZEL_DATA, GetParam()};
  long evaluated_ = 0;
};

bool IsDefined(double x) { return !gen_IsUndefDouble(x); }

// At the ends of the range, the critical point, the temperatures among the coefficients, and one
// rounding step away from each.
TEST_P(RealRecords, GiveNumbersWhereTheyEnd) {
  records_.Each([&](PublishedRecord const& record) {
    std::vector<double> ends = {record.tMin, record.tMax, record.Tc};
    for (double const c : record.coefficients) {
      if (c > 10.0 && c < 3000.0) ends.push_back(c);
    }
    for (double const T : ends) {
      if (!IsDefined(T)) continue;
      for (double const beside : {T, std::nextafter(T, 0.0), std::nextafter(T, 1e9), T * 0.9999,
                                  T * 1.0001, T * 0.5, T * 2.0}) {
        Check(record, beside);
      }
    }
    Check(record, 0.0);
  });
  EXPECT_GT(evaluated_, 10000);
}

// From a fifth of the lower limit to three times the upper one, in steps of one degree: every
// twentieth record, and all records of forms that end steeply in steps of 25.
TEST_P(RealRecords, GiveNumbersAtAnyTemperature) {
  int count = 0;
  records_.Each([&](PublishedRecord const& record) {
    bool const steep = record.equation == 13 || record.equation == 16 || record.equation == 47;
    if (++count % 20 != 0 && !steep) return;
    double const first = 0.2 * (IsDefined(record.tMin) ? record.tMin : 250.0);
    double const last = 3.0 * (IsDefined(record.tMax) ? record.tMax : 1000.0);
    double const step = count % 20 == 0 ? 1.0 : 25.0;
    for (double T = std::floor(first); T <= last; T += step) Check(record, T);
  });
  EXPECT_GT(evaluated_, 10000);
}

INSTANTIATE_TEST_SUITE_P(Published, RealRecords, ::testing::ValuesIn(kPublishedSources),
                         [](auto const& source) { return std::string(source.param); });

}  // namespace
}  // namespace zel::test
