// Vector batches. Temperatures are computed in packs, block by block; the elements outside the
// range, and those that a pack cannot do, are then evaluated one by one.
#include <algorithm>

#include "purecomp/pack_block.h"

namespace zel {
namespace {

// The widest vectors that this processor has and that the library was compiled for.
BlockFunction Widest() noexcept {
#ifdef ZEL_WIDE_PACKS
  if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq")) {
    return ComputeBlockOf8;
  }
  if (__builtin_cpu_supports("avx2")) return ComputeBlockOf4;
#endif
  return ComputeBlockOf2;
}

// The elements of a block from and to the arrays of the batch.
void Gather(BatchRun const& run, std::int64_t from, std::int64_t count, Block& block) noexcept {
  auto const T = run.temperatures;
  if (T.stride == 1) {
    std::copy_n(T.first + from, count, block.temperatures);
  } else {
    for (std::int64_t k = 0; k < count; ++k) block.temperatures[k] = T[from + k];
  }
  std::fill(block.temperatures + count, block.temperatures + kBlock, block.temperatures[count - 1]);
}

template <typename T>
void Put(Strided<T> const& to, std::int64_t from, std::int64_t count, T const* block) noexcept {
  if (to.stride == 1) {
    std::copy_n(block, count, to.first + from);
  } else {
    for (std::int64_t k = 0; k < count; ++k) to[from + k] = block[k];
  }
}
template <typename T>
void PutAll(Strided<T> const& to, std::int64_t from, std::int64_t count, T what) noexcept {
  if (to.stride == 1) {
    std::fill_n(to.first + from, count, what);
  } else if (to.stride == 0) {
    to.first[0] = what;
  } else {
    for (std::int64_t k = 0; k < count; ++k) to[from + k] = what;
  }
}

void Scatter(BatchRun& run, std::int64_t from, std::int64_t count, bool hasSlopes, bool allDone,
             Block const& block) {
  if (allDone) {
    Put(run.values, from, count, block.values);
    if (hasSlopes) Put(run.derivatives, from, count, block.slopes);
    PutAll(run.statuses, from, count, std::int32_t{kInRange});
    PutAll(run.results, from, count, kStatusOk);
    return;
  }
  for (std::int64_t k = 0; k < count; ++k) {
    std::int64_t const i = from + k;
    if (block.isDone[k] == 0) {
      run.One(i);
      continue;
    }
    run.values[i] = block.values[k];
    if (hasSlopes) run.derivatives[i] = block.slopes[k];
    run.statuses[i] = kInRange;
    run.results[i] = kStatusOk;
  }
}

}  // namespace

bool RunVector(BatchRun& run, ZelBatch const& batch) {
  bool const suits = SuitsPacks(run.OwnCurve().call.equation) && batch.order <= kFirstDerivative &&
                     run.OwnCurve().end.rules->extrapolation != Extrapolation::kFails;
  if (!suits) return false;
  static BlockFunction const compute = Widest();
  LoopInputs const in(run.OwnCurve());
  bool const hasSlopes = batch.derivatives != nullptr;
  Block block;
  for (std::int64_t from = 0; from < batch.count; from += kBlock) {
    std::int64_t const count = std::min(kBlock, batch.count - from);
    Gather(run, from, count, block);
    bool const allDone = compute(in, hasSlopes, block);
    Scatter(run, from, count, hasSlopes, allDone, block);
  }
  return true;
}

}  // namespace zel
