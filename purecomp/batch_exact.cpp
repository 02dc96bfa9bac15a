// The loops of exact batches: one for each form, with and without its first derivative. They
// evaluate the temperatures inside the range; all others are evaluated one by one.
#include <cmath>

#include "purecomp/batch_loop.h"
#include "purecomp/equation_kernel.h"

namespace zel {
namespace {

// One element inside the range; false where a single evaluation does more than the form.
template <int Equation, int Order, typename Form>
bool Inside(Form const& form, LoopInputs const& in, double temperature, double& value,
            double& derivative) {
  if constexpr (Order == 0) {
    auto const result = ResultOf(form, in.At(temperature));
    if (result) value = *result;
    value = value * in.call.factor + in.call.offset;
  } else {
    ValueAndDerivative<Equation, Order>(form, in.At(Jet<Order>::Variable(temperature)), value,
                                        derivative);
    if (std::isnan(derivative)) [[unlikely]]
      return false;
    value = value * in.call.factor + in.call.offset;
    derivative *= in.call.factor;
  }
  in.Finish(value, derivative);
  return true;
}

template <int Equation, int Order, typename Form>
[[ZEL_FLATTEN, gnu::noinline]] void Loop(Form const& form, BatchRun& run) {
  LoopInputs const in(run.OwnCurve());
  auto const temperatures = run.temperatures;
  auto const values = run.values;
  auto const derivatives = run.derivatives;
  auto const statuses = run.statuses;
  auto const results = run.results;
  std::int64_t const count = run.Count();
  for (std::int64_t i = 0; i < count; ++i) {
    double const T = temperatures[i];
    double value = values[i];
    double derivative = 0.0;
    bool const isInside = T >= in.lowest && T <= in.highest;
    if (!isInside || !Inside<Equation, Order>(form, in, T, value, derivative)) [[unlikely]] {
      run.One(i);
      continue;
    }
    values[i] = value;
    if constexpr (Order != 0) derivatives[i] = derivative;
    statuses[i] = kInRange;
    results[i] = kStatusOk;
  }
}

}  // namespace

void RunExact(BatchRun& run, ZelBatch const& batch) {
  EquationCall const& call = run.OwnCurve().call;
  bool const inLoop = batch.order <= kFirstDerivative && !EvaluatesOthers(call.equation) &&
                      run.OwnCurve().end.rules->extrapolation != Extrapolation::kFails;
  bool const done = inLoop && WithForm(call.equation, [&](auto number, auto const& form) {
                      constexpr int kEquation = decltype(number)::value;
                      if constexpr (!EvaluatesOthers(kEquation)) {
                        batch.derivatives != nullptr ? Loop<kEquation, 1>(form, run)
                                                     : Loop<kEquation, 0>(form, run);
                      }
                      return true;
                    });
  if (done) return;
  for (std::int64_t i = 0; i < batch.count; ++i) run.One(i);
}

}  // namespace zel
