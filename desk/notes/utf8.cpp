#include "desk/notes/utf8.h"

#include <cstddef>
#include <cstdint>

namespace zel::desk {
namespace {

constexpr unsigned kSixBits = 0x3F;
constexpr unsigned kContinuation = 0x80;

// The number of bytes of a character by its first byte; 0 for a byte that begins none.
std::size_t LengthFrom(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  if (first >= 0xF0 && first < 0xF5) return 4;
  return 0;
}

// True for code points that are characters and for which the length is the shortest.
bool IsCharacter(std::uint32_t point, std::size_t length) {
  constexpr std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  bool const isSurrogate = point >= 0xD800 && point < 0xE000;
  return point >= kLeast[length] && point < 0x110000 && !isSurrogate;
}

}  // namespace

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    auto const first = static_cast<unsigned char>(text.front());
    std::size_t const length = LengthFrom(first);
    if (length == 0 || length > text.size()) return false;
    std::uint32_t point = length == 1 ? first : first & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
      auto const byte = static_cast<unsigned char>(text[i]);
      if ((byte & ~kSixBits) != kContinuation) return false;
      point = (point << 6) | (byte & kSixBits);
    }
    if (!IsCharacter(point, length)) return false;
    text.remove_prefix(length);
  }
  return true;
}

void AppendUtf8(std::string& text, char32_t character) {
  auto const point = static_cast<std::uint32_t>(character);
  auto const tail = [&](unsigned shift) {
    text += static_cast<char>(kContinuation | (point >> shift & kSixBits));
  };
  if (point < 0x80) {
    text += static_cast<char>(point);
  } else if (point < 0x800) {
    text += static_cast<char>(0xC0 | point >> 6);
    tail(0);
  } else if (point < 0x10000) {
    text += static_cast<char>(0xE0 | point >> 12);
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0 | point >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

}  // namespace zel::desk
