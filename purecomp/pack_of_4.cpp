// Packs of four, for processors with AVX2.
#include "purecomp/pack_loop.h"

namespace zel {

bool ComputeBlockOf4(LoopInputs const& in, bool hasSlopes, Block& block) {
  return ComputeBlock<4>(in, hasSlopes, block);
}

}  // namespace zel
