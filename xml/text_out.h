// Writes pieces of text to a file one after the other.
#pragma once

#include <charconv>
#include <cstdint>
#include <string_view>

#include "frame/number_text.h"
#include "frame/platform/text_file.h"

namespace zel {

inline constexpr std::size_t kNumberRoom = 32;

struct Blanks {
  std::size_t count;
};
// Seven significant digits, as "%.7g" prints them.
struct Seven {
  double value;
};
// At least eight digits, padded with zeros.
struct Eight {
  std::int32_t value;
};

inline platform::TextFile& operator<<(platform::TextFile& file, std::string_view text) {
  file.Put(text);
  return file;
}

inline platform::TextFile& operator<<(platform::TextFile& file, std::int32_t value) {
  char* at = file.Room(kNumberRoom);
  file.Advance(static_cast<std::size_t>(std::to_chars(at, at + kNumberRoom, value).ptr - at));
  return file;
}

inline platform::TextFile& operator<<(platform::TextFile& file, std::uint32_t value) {
  char* at = file.Room(kNumberRoom);
  file.Advance(static_cast<std::size_t>(std::to_chars(at, at + kNumberRoom, value).ptr - at));
  return file;
}

inline platform::TextFile& operator<<(platform::TextFile& file, Seven number) {
  constexpr int kDigits = 7;
  char* at = file.Room(kNumberRoom);
  file.Advance(static_cast<std::size_t>(PrintReal(number.value, kDigits, at)));
  return file;
}

inline platform::TextFile& operator<<(platform::TextFile& file, Eight number) {
  constexpr std::size_t kPlaces = 8;
  char digits[kNumberRoom];
  std::int64_t const size = number.value < 0 ? -std::int64_t{number.value} : number.value;
  auto const length =
      static_cast<std::size_t>(std::to_chars(digits, digits + sizeof digits, size).ptr - digits);
  std::size_t const sign = number.value < 0 ? 1 : 0;
  if (sign != 0) file.Put('-');
  for (std::size_t i = length + sign; i < kPlaces; ++i) file.Put('0');
  file.Put({digits, length});
  return file;
}

inline platform::TextFile& operator<<(platform::TextFile& file, Blanks blanks) {
  for (std::size_t i = 0; i < blanks.count; ++i) file.Put(' ');
  return file;
}

}  // namespace zel
