// Types shared by all public headers: status words, interface identifiers, undefined values.
#ifndef ZELACCESS_TYPES_H
#define ZELACCESS_TYPES_H

#include <cstdint>

namespace zel {

// Status word of the bank interfaces. Unsigned, so that a host that stores it in a wider integer
// still finds it equal to the constants below.
using ZelStatus = std::uint32_t;

inline constexpr ZelStatus kStatusOk = 0;
inline constexpr ZelStatus kStatusNothingNew = 1;  // no failure: there was nothing to give or take
inline constexpr ZelStatus kStatusFailed = 0x80004005;
inline constexpr ZelStatus kStatusNotImplemented = 0x80004001;
inline constexpr ZelStatus kStatusNoInterface = 0x80004002;

// 16-byte identifier of an interface.
struct ZelIid {
  std::uint32_t data1;
  std::uint16_t data2;
  std::uint16_t data3;
  std::uint8_t data4[8];
};

constexpr bool operator==(ZelIid const& a, ZelIid const& b) noexcept {
  if (a.data1 != b.data1 || a.data2 != b.data2 || a.data3 != b.data3) return false;
  for (int i = 0; i < 8; ++i) {
    if (a.data4[i] != b.data4[i]) return false;
  }
  return true;
}
constexpr bool operator!=(ZelIid const& a, ZelIid const& b) noexcept { return !(a == b); }

// Undefined values mark fields without data. They are stored like other values and survive the
// narrowing to a 32-bit float followed by the 7-digit trim of every read. Every double at or below
// -1e35 counts as undefined, so test with gen_IsUndefDouble and never by equality.
inline constexpr double gen_GetUndefDouble() noexcept { return -1e35; }
inline constexpr std::int32_t gen_GetUndefInt() noexcept { return INT32_MIN; }
inline constexpr long gen_GetUndefLong() noexcept { return INT32_MIN; }
inline constexpr bool gen_IsUndefDouble(double value) noexcept { return value <= -1e35; }
inline constexpr bool gen_IsUndefInt(std::int32_t value) noexcept { return value == INT32_MIN; }

}  // namespace zel

#endif  // ZELACCESS_TYPES_H
