// One row of scripts/make_equation_rows.py, and the evaluation that it describes.
#pragma once

#include <cmath>

#include "purecomp/equations.h"

namespace zel::test {

struct Row {
  int equation, N, logBasis;
  double T;
  double c[15];
  bool written;
  double value;
  double derivatives[3];
  double weights[15];
};

// The correlations that forms 38 and 54 call: polynomials, as in the script that made the rows.
class Caller final : public CorrelationCaller {
 public:
  CalledCorrelation Call(std::uint32_t index, double T, int highest) override {
    asked_ = highest;
    ++calls_;
    double const p[3][3] = {{9, -0.0078125, std::ldexp(1.0, -20)},
                            {5, 0.25, std::ldexp(1.0, -10)},
                            {100, 30, std::ldexp(1.0, -6)}};
    double const* k = index == correlationLiquidDensity   ? p[0]
                      : index == correlationVaporPressure ? p[1]
                                                          : p[2];
    return {{k[0] + k[1] * T + k[2] * T * T, k[1] + 2 * k[2] * T, 2 * k[2], 0.0}};
  }
  int asked_ = -1;
  int calls_ = 0;
};

inline Caller caller;

inline EquationCall CallOf(Row const& row) {
  EquationCall call;
  call.caller = &caller;
  call.equation = row.equation;
  call.coefficientCount = row.N;
  call.coefficients = row.c;
  call.temperature = row.T;
  call.tMin = -1e35;
  call.tMax = -1e35;
  if (row.equation == 2 || row.equation == 22) {
    call.tMin = 175.5;
    call.tMax = 520.0;
  }
  call.Tc = 512.5;
  call.Pc = 8100.0;
  call.Tb = 337.75;
  call.logBasis = row.logBasis;
  return call;
}

}  // namespace zel::test
