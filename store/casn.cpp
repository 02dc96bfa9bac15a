#include "zelaccess/Casn.h"

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace zel {
namespace {

// The registry's rule: the sum modulo 10 of the digits before the check digit, each multiplied by
// its position from the right.
bool CheckDigitHolds(std::int32_t number) noexcept {
  std::int32_t sum = 0;
  std::int32_t position = 1;
  for (std::int32_t q = number / 10; q != 0; q /= 10) sum += position++ * (q % 10) % 10;
  return sum % 10 == number % 10;
}

}  // namespace

casn::casn(short number) noexcept { casnI2C(this, number); }
casn::casn(int number) noexcept { casnI2C(this, number); }
casn::casn(long number) noexcept { casnI2C(this, number); }
casn::casn(char const* t) noexcept { casnS2C(this, t); }

casn& casn::operator=(long number) noexcept {
  casnI2C(this, number);
  return *this;
}

casn& casn::operator=(char const* t) noexcept {
  casnS2C(this, t);
  return *this;
}

void casn::casnI2C(casn* target, long number) noexcept {
  *target = casn();
  if (number <= 0 || number > INT32_MAX) return;
  auto const n = static_cast<std::int32_t>(number);
  if (!CheckDigitHolds(n)) return;
  target->value = n;
  std::snprintf(target->text, sizeof target->text, "%d-%02d-%d", n / 1000, n / 10 % 100, n % 10);
}

void casn::casnS2C(casn* target, char const* text) noexcept {
  *target = casn();
  if (text == nullptr) return;
  std::uint32_t number = 0;  // wraps around on too many digits
  for (std::size_t left = std::strlen(text); left != 0; --left, ++text) {
    if (left == 2 || left == 5) {
      if (*text != '-') return;
    } else {
      if (*text < '0' || *text > '9') return;
      number = number * 10 + static_cast<std::uint32_t>(*text - '0');
    }
  }
  casnI2C(target, static_cast<std::int32_t>(number));
}

}  // namespace zel
