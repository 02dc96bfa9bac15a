// A block of temperatures that vector instructions evaluate, for several kinds of processors.
#pragma once

#include <cstdint>

#include "purecomp/batch_loop.h"

namespace zel {

constexpr std::int64_t kBlock = 256;

// The forms whose guards packs can do.
constexpr bool SuitsPacks(int equation) noexcept {
  return equation == 1 || equation == 15 || equation == 16 || equation == 19 || equation == 20 ||
         equation == 21 || equation == 47 || equation == 48;
}

struct Block {
  alignas(64) double temperatures[kBlock];
  alignas(64) double values[kBlock];
  alignas(64) double slopes[kBlock];
  alignas(64) std::int64_t isDone[kBlock];  // all bits or none
};

// Computes a block of an equation that suits packs: values, slopes if they are wanted, and which
// elements are done. Returns whether all are. One function for each width of vectors, which may use
// the instructions of processors that have them; all compute the same bits.
using BlockFunction = bool (*)(LoopInputs const& in, bool hasSlopes, Block& block);
bool ComputeBlockOf2(LoopInputs const& in, bool hasSlopes, Block& block);
bool ComputeBlockOf4(LoopInputs const& in, bool hasSlopes, Block& block);
bool ComputeBlockOf8(LoopInputs const& in, bool hasSlopes, Block& block);

}  // namespace zel
