// A short text that distinguishes findings.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace zel {

// 16 hexadecimal digits: FNV-1a of the bytes, 64 bits.
inline std::string Fingerprint(std::string_view text) {
  std::uint64_t hash = 0xcbf29ce484222325U;
  for (char const c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
  char digits[17];
  std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
  return digits;
}

}  // namespace zel
