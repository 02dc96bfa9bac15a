// Memory of a POSIX system.
#include <sys/mman.h>

#include <new>

#include "frame/platform/large_memory.h"

namespace zel::platform {

namespace {
constexpr std::align_val_t kAlignment{LargeMemory::kPage};
bool IsPages(std::size_t bytes) noexcept { return bytes % LargeMemory::kPage == 0; }
}  // namespace

LargeMemory::LargeMemory(std::size_t bytes)
    : data_(static_cast<std::byte*>(IsPages(bytes) ? ::operator new(bytes, kAlignment)
                                                   : ::operator new(bytes)),
            Free{bytes}) {
#ifdef MADV_HUGEPAGE
  if (IsPages(bytes)) ::madvise(data_.get(), bytes, MADV_HUGEPAGE);
#endif
}

void LargeMemory::Free::operator()(std::byte* data) const noexcept {
  // Not one conditional expression: clang 14 calls both.
  if (IsPages(bytes)) return ::operator delete(data, kAlignment);
  ::operator delete(data);
}

}  // namespace zel::platform
