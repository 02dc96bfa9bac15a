// One correlation of a component, set and evaluated.
#pragma once

#include <cstdint>
#include <vector>

#include "tests/purecomp/record_fixture.h"

namespace zel::test {

inline constexpr double kUntouchedValue = 4.75;
inline constexpr double kUntouchedDerivative = 5.25;

struct Evaluated {
  ZelStatus result = kStatusFailed;
  double value = kUntouchedValue;
  double derivative = kUntouchedDerivative;
  double weights[15] = {};
  std::int32_t status = 99;
};

inline Evaluated Evaluate(ComponentBank const& bank, std::uint32_t index, double T,
                          std::int32_t order = 1) {
  Evaluated r;
  r.result =
      bank->EvaluateCorrelation(index, T, order, &r.value, &r.derivative, r.weights, &r.status);
  return r;
}

// In internal units, between 200 and 400 by default.
inline void SetCorrelation(ComponentBank const& bank, std::uint32_t index, std::int32_t equation,
                           std::vector<double> const& c, double tMin = 200.0, double tMax = 400.0,
                           std::int32_t unit = 0, std::int32_t basis = 1) {
  ASSERT_EQ(bank->SetCorrelation(index, equation, 10, unit, 1, basis,
                                 static_cast<std::int32_t>(c.size()), tMin, tMax, c.data()),
            kStatusOk);
}

}  // namespace zel::test
