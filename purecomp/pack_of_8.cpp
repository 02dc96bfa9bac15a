// Packs of eight, for processors with AVX-512.
#include "purecomp/pack_loop.h"

namespace zel {

bool ComputeBlockOf8(LoopInputs const& in, bool hasSlopes, Block& block) {
  return ComputeBlock<8>(in, hasSlopes, block);
}

}  // namespace zel
