/// \file
/// CAS registry number: valid or empty, never anything else.
#ifndef ZELACCESS_CASN_H
#define ZELACCESS_CASN_H

#include <cstdint>
#include <type_traits>

#include "zelaccess/Export.h"

namespace zel {

/// A CAS registry number as an integer (check digit last) together with its printed form
/// "%d-%02d-%d". Every input that is not a valid number - a failed check digit, a misplaced dash,
/// zero, a negative number, a number beyond 32 bits - makes the empty casn: value 0, text "".
///
///     casn("7732-18-5")   // 7732185, "7732-18-5"
///     casn(7732186)       // empty: the check digit is wrong
///     casn("7732185")     // empty: a text needs its two dashes
///
/// A plain value: different objects may be used by different threads.
class ZEL_API casn {
 public:
  /// Makes the empty casn.
  casn() noexcept = default;
  /// \name From a number or a text
  ///@{

  /// Makes a CAS number, or the empty casn.
  /// \param number  the number as one integer, check digit last
  casn(short number) noexcept;  // NOLINT(google-explicit-constructor)
  casn(int number) noexcept;    // NOLINT(google-explicit-constructor)
  casn(long number) noexcept;   // NOLINT(google-explicit-constructor)
  ///@}
  /// Makes a CAS number from its printed form, or the empty casn.
  /// \param text  digits with two dashes; null is the empty text
  casn(char const* text) noexcept;  // NOLINT(google-explicit-constructor)
  /// Copies the number.
  casn(casn const&) noexcept = default;
  /// A plain value: there is nothing to release.
  ~casn() = default;

  /// Copies the number.
  /// \return this object
  casn& operator=(casn const&) noexcept = default;
  /// Replaces the number; an invalid one makes the casn empty.
  /// \param number  the number as one integer, check digit last
  /// \return this object
  casn& operator=(long number) noexcept;
  /// Replaces the number; an invalid text makes the casn empty.
  /// \param text  digits with two dashes; null is the empty text
  /// \return this object
  casn& operator=(char const* text) noexcept;
  /// Replaces the number: any other integer counts as a long, so that `c = 0` means the number and
  /// not a null text.
  /// \param number  the number as one integer, check digit last
  /// \return this object
  template <typename Integer, std::enable_if_t<std::is_integral<Integer>::value, int> = 0>
  casn& operator=(Integer number) noexcept {
    return *this = static_cast<long>(number);
  }

  /// Returns the number.
  /// \return 0 when empty
  operator long() const noexcept { return value; }  // NOLINT(google-explicit-constructor)
  /// Returns the printed form, which must not be modified.
  /// \return valid as long as this object is unchanged; "" when empty; never null
  operator char*() noexcept { return text; }  // NOLINT(google-explicit-constructor)
  /// Returns the printed form.
  /// \return valid as long as this object is unchanged; "" when empty; never null
  operator char const*() const noexcept { return text; }  // NOLINT(google-explicit-constructor)

 private:
  static void casnI2C(casn* target, long number) noexcept;
  static void casnS2C(casn* target, char const* text) noexcept;

  std::int32_t value = 0;
  char text[16] = {};
};

}  // namespace zel

#endif  // ZELACCESS_CASN_H
