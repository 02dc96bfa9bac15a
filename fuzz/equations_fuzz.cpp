// Equations: any number, count, order and arguments. The input is 8 bytes - equation (2), count
// (2), order, log basis - and then doubles: temperature, limits, factor, Tc, Pc, Tb, coefficients.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "purecomp/equations.h"

namespace {

void Require(bool holds, char const* what) {
  if (holds) return;
  std::fprintf(stderr, "equations_fuzz: not so: %s\n", what);
  std::abort();
}

class Caller final : public zel::CorrelationCaller {
 public:
  zel::CalledCorrelation Call(std::uint32_t index, double T, int) override {
    return {{T + index, 1.0, 0.5, 0.25}};
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  constexpr std::size_t kHead = 8;
  constexpr std::size_t kReals = 22;
  std::int16_t head[kHead / 2] = {};
  double reals[kReals] = {};
  if (size != 0) std::memcpy(head, data, size < kHead ? size : kHead);
  if (size > kHead) {
    std::size_t const rest = size - kHead;
    std::memcpy(reals, data + kHead, rest < sizeof reals ? rest : sizeof reals);
  }
  Caller caller;
  zel::EquationCall call;
  call.caller = &caller;
  call.equation = head[0];
  call.coefficientCount = head[1];
  call.order = head[2];
  call.logBasis = head[3];
  call.temperature = reals[0];
  call.tMin = reals[1];
  call.tMax = reals[2];
  call.factor = reals[3];
  call.Tc = reals[4];
  call.Pc = reals[5];
  call.Tb = reals[6];
  call.coefficients = reals + 7;
  double value = 1.0;
  double derivative = 2.0;
  double weights[17];
  for (double& w : weights) w = 3.0;
  zel::RangeStatus const status = EvaluateEquation(call, value, derivative, weights + 1);
  Require(status >= -1 && status <= 1, "the status is one of three");
  Require(weights[0] == 3.0 && weights[16] == 3.0, "nothing is written beside the sensitivities");
  Require(status == zel::kInRange || (value == 1.0 && derivative == 2.0),
          "outside the range nothing is computed");
  return 0;
}
