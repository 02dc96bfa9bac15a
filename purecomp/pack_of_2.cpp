// Packs of two, for any processor.
#include "purecomp/pack_loop.h"

namespace zel {

bool ComputeBlockOf2(LoopInputs const& in, bool hasSlopes, Block& block) {
  return ComputeBlock<2>(in, hasSlopes, block);
}

}  // namespace zel
