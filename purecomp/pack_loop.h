// The loops over blocks of temperatures. A source that is compiled for one kind of processor
// includes this and calls ComputeBlock; see pack.h.
#pragma once

#include <cstdint>
#include <cstring>

#include "purecomp/pack.h"
#include "purecomp/pack_block.h"

namespace zel {
namespace {  // NOLINT(google-build-namespaces): see pack.h

template <int W>
void Finish(LoopInputs const& in, Pack<W>& value, Pack<W>& slope) noexcept {
  Mask<W> const isLow = value < in.rules.lowest;
  value = Select(isLow, Pack<W>(in.rules.lowest), value);
  slope = Select(isLow, Pack<W>(), slope);
  Mask<W> const isHigh = value > in.rules.highest;
  value = Select(isHigh, Pack<W>(in.rules.highest), value);
  slope = Select(isHigh, Pack<W>(), slope);
  if (!in.isWeight) return;
  value = in.rules.isDensity ? value / in.molecularWeight : value * in.molecularWeight;
  Mask<W> const isZero(slope.v == Pack<W>().v);  // stays, whatever the molecular weight is
  slope = Select(isZero, slope,
                 in.rules.isDensity ? slope / in.molecularWeight : slope * in.molecularWeight);
}

// Flattened, so that no part of a loop is in functions that other sources share.
template <int W, bool kHasSlopes, typename Form>
[[ZEL_FLATTEN, gnu::noinline]] bool ComputeForm(Form const& form, LoopInputs const& in,
                                                Block& block) {
  using Jets = Jet<1, Pack<W>>;
  Mask<W> all(Pack<W>() <= 0.0);
  for (std::int64_t i = 0; i < kBlock; i += W) {
    Pack<W> const T = Pack<W>::Load(block.temperatures + i);
    typename Symbols<Jets, double>::Result const result(form(in.At(Jets::Variable(T))));
    Pack<W> value = (*result).d[0] * in.call.factor + in.call.offset;
    Pack<W> slope = (*result).d[1] * in.call.factor;
    Finish(in, value, slope);
    // The difference of a number and itself is 0 unless it is infinite or NaN.
    Mask<W> isDone = (T >= in.lowest) & (T <= in.highest) & (value - value <= 0.0);
    if constexpr (kHasSlopes) isDone = isDone & (slope - slope <= 0.0);
    value.Store(block.values + i);
    if constexpr (kHasSlopes) slope.Store(block.slopes + i);
    std::memcpy(block.isDone + i, &isDone.m, sizeof isDone.m);
    all = all & isDone;
  }
  std::int64_t lanes[W];
  std::memcpy(lanes, &all.m, sizeof lanes);
  for (std::int64_t const lane : lanes) {
    if (lane == 0) return false;
  }
  return true;
}

template <int W>
bool ComputeBlock(LoopInputs const& in, bool hasSlopes, Block& block) {
  return WithForm(in.call.equation, [&](auto number, auto const& form) {
    if constexpr (SuitsPacks(decltype(number)::value)) {
      return hasSlopes ? ComputeForm<W, true>(form, in, block)
                       : ComputeForm<W, false>(form, in, block);
    } else {
      return false;
    }
  });
}

}  // namespace
}  // namespace zel
