/// \file
/// Types shared by all public headers: status words, interface identifiers, undefined values.
#ifndef ZELACCESS_TYPES_H
#define ZELACCESS_TYPES_H

#include <cstdint>

namespace zel {

/// Status word of the bank interfaces. Unsigned, so that a host that stores it in a wider integer
/// still finds it equal to the constants below.
using ZelStatus = std::uint32_t;

/// Success.
inline constexpr ZelStatus kStatusOk = 0;
/// Not a failure: there was nothing to return or to store.
inline constexpr ZelStatus kStatusNothingNew = 1;
/// Failure.
inline constexpr ZelStatus kStatusFailed = 0x80004005;
/// The type does not have the operation.
inline constexpr ZelStatus kStatusNotImplemented = 0x80004001;
/// The object does not have the interface.
inline constexpr ZelStatus kStatusNoInterface = 0x80004002;

/// 16-byte identifier of an interface.
struct ZelIid {
  std::uint32_t data1;    ///< First 4 bytes.
  std::uint16_t data2;    ///< Bytes 4 and 5.
  std::uint16_t data3;    ///< Bytes 6 and 7.
  std::uint8_t data4[8];  ///< Last 8 bytes.
};

/// Compares two identifiers.
/// \param a,b  the identifiers
/// \return true when all 16 bytes are equal
constexpr bool operator==(ZelIid const& a, ZelIid const& b) noexcept {
  if (a.data1 != b.data1 || a.data2 != b.data2 || a.data3 != b.data3) return false;
  for (int i = 0; i < 8; ++i) {
    if (a.data4[i] != b.data4[i]) return false;
  }
  return true;
}
/// Compares two identifiers.
/// \param a,b  the identifiers
/// \return true when some of the 16 bytes differ
constexpr bool operator!=(ZelIid const& a, ZelIid const& b) noexcept { return !(a == b); }

/// \name Undefined values
/// Undefined values mark fields without data. They are stored like other values and survive the
/// narrowing to a 32-bit float followed by the 7-digit trim of every read. Every double at or below
/// -1e35 counts as undefined, so test with gen_IsUndefDouble and never by equality. These functions
/// may be called by any thread at any time.
///@{

/// Returns the undefined double.
/// \return -1e35
inline constexpr double gen_GetUndefDouble() noexcept { return -1e35; }
/// Returns the undefined 32-bit integer.
/// \return INT32_MIN
inline constexpr std::int32_t gen_GetUndefInt() noexcept { return INT32_MIN; }
/// Returns the undefined long.
/// \return INT32_MIN, also where a long is wider
inline constexpr long gen_GetUndefLong() noexcept { return INT32_MIN; }
/// Returns whether a double is undefined.
/// \param value  any value
/// \return true at or below -1e35
inline constexpr bool gen_IsUndefDouble(double value) noexcept { return value <= -1e35; }
/// Returns whether an integer is undefined.
/// \param value  any value
/// \return true for INT32_MIN
inline constexpr bool gen_IsUndefInt(std::int32_t value) noexcept { return value == INT32_MIN; }

///@}

}  // namespace zel

#endif  // ZELACCESS_TYPES_H
