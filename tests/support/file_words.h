// Words as files have them: the lowest byte is the first on every machine.
#pragma once

#include <cstdint>

namespace zel::test {

inline std::int32_t FileWord(void const* at) noexcept {
  auto const* const bytes = static_cast<unsigned char const*>(at);
  std::uint32_t word = 0;
  for (int i = 3; i >= 0; --i) word = word << 8 | bytes[i];
  return static_cast<std::int32_t>(word);
}

inline void PutFileWord(void* at, std::int32_t word) noexcept {
  auto* const bytes = static_cast<unsigned char*>(at);
  for (int i = 0; i < 4; ++i)
    bytes[i] = static_cast<unsigned char>(static_cast<std::uint32_t>(word) >> 8 * i);
}

}  // namespace zel::test
