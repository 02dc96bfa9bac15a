// Memory of Windows, where large pages need a privilege that programs seldom have.
#include <new>

#include "frame/platform/large_memory.h"

namespace zel::platform {

LargeMemory::LargeMemory(std::size_t bytes)
    : data_(static_cast<std::byte*>(::operator new(bytes)), Free{bytes}) {}

void LargeMemory::Free::operator()(std::byte* data) const noexcept { ::operator delete(data); }

}  // namespace zel::platform
