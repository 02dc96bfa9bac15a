// CAS registry number: valid or empty, never anything else.
#ifndef ZELACCESS_CASN_H
#define ZELACCESS_CASN_H

#include <cstdint>
#include <type_traits>

#include "zelaccess/Export.h"

namespace zel {

// A CAS registry number as an integer (check digit last) together with its printed form
// "%d-%02d-%d". Every input that is not a valid number - a failed check digit, a misplaced dash,
// zero, a negative number, a number beyond 32 bits - gives the empty casn: value 0, text "".
//
//   casn("7732-18-5")   7732185, "7732-18-5"
//   casn(7732186)       empty: the check digit is wrong
//   casn("7732185")     empty: a text needs its two dashes
class ZEL_API casn {
 public:
  casn() noexcept = default;
  casn(short number) noexcept;      // NOLINT(google-explicit-constructor)
  casn(int number) noexcept;        // NOLINT(google-explicit-constructor)
  casn(long number) noexcept;       // NOLINT(google-explicit-constructor)
  casn(char const* text) noexcept;  // NOLINT(google-explicit-constructor)
  casn(casn const&) noexcept = default;
  ~casn() = default;

  casn& operator=(casn const&) noexcept = default;
  casn& operator=(long number) noexcept;
  casn& operator=(char const* text) noexcept;
  // Any other integer is taken as a long, so that `c = 0` means the number and not a null text.
  template <typename Integer, std::enable_if_t<std::is_integral<Integer>::value, int> = 0>
  casn& operator=(Integer number) noexcept {
    return *this = static_cast<long>(number);
  }

  // The number; 0 when empty.
  operator long() const noexcept { return value; }  // NOLINT(google-explicit-constructor)
  // The printed form, to be read only, valid as long as this object is unchanged; "" when empty.
  operator char*() noexcept { return text; }              // NOLINT(google-explicit-constructor)
  operator char const*() const noexcept { return text; }  // NOLINT(google-explicit-constructor)

 private:
  static void casnI2C(casn* target, long number) noexcept;
  static void casnS2C(casn* target, char const* text) noexcept;

  std::int32_t value = 0;
  char text[16] = {};
};

}  // namespace zel

#endif  // ZELACCESS_CASN_H
