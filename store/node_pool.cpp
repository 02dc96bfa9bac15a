#include "store/node_pool.h"

#include <algorithm>

namespace zel {

// Slabs double, so that a few nodes take little memory.
void NodeSlabs::AddSlab() {
  constexpr std::size_t kLeast = std::size_t{64} << 10;
  std::size_t const bytes =
      slabs_.empty() ? kLeast : std::min(2 * slabs_.back().Bytes(), platform::LargeMemory::kPage);
  slabs_.emplace_back(bytes);
  next_ = reinterpret_cast<std::int32_t*>(slabs_.back().Data());
  left_ = bytes / sizeof(std::int32_t);
}

}  // namespace zel
