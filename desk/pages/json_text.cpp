#include "desk/pages/json_text.h"

#include <zelaccess/Types.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace zel::desk {
namespace {

// The length of the UTF-8 sequence at this place, 0 if it is not one.
std::size_t SequenceAt(std::string const& text, std::size_t at) {
  auto const first = static_cast<unsigned char>(text[at]);
  std::size_t length = 0;
  if (first < 0x80) return 1;
  if (first >= 0xc2 && first < 0xe0) length = 2;
  if (first >= 0xe0 && first < 0xf0) length = 3;
  if (first >= 0xf0 && first < 0xf5) length = 4;
  if (length == 0 || at + length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((static_cast<unsigned char>(text[at + i]) & 0xc0) != 0x80) return 0;
  }
  return length;
}

}  // namespace

std::string JsonText(std::string const& text) {
  std::string out = "\"";
  for (std::size_t i = 0; i < text.size();) {
    std::size_t const length = SequenceAt(text, i);
    char const c = text[i];
    if (length == 0) {
      out += '?';
    } else if (length > 1) {
      out.append(text, i, length);
    } else if (c == '"' || c == '\\') {
      out += std::string("\\") + c;
    } else if (c < ' ' || c == '<') {
      char escape[8];
      std::snprintf(escape, sizeof(escape), "\\u%04x", static_cast<unsigned>(c));
      out += escape;
    } else {
      out += c;
    }
    i += length == 0 ? 1 : length;
  }
  return out + "\"";
}

std::string JsonNumber(double value) {
  if (zel::gen_IsUndefDouble(value) || !std::isfinite(value)) return "null";
  char text[32];
  return {text, std::to_chars(text, text + sizeof(text), value).ptr};
}

std::string JsonList(std::vector<std::string> const& parts) {
  std::string out = "[";
  for (std::string const& part : parts) {
    if (out.size() > 1) out += ',';
    out += part;
  }
  return out + "]";
}

std::string Base64(std::vector<float> const& numbers) {
  static constexpr char kDigits[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::vector<std::uint8_t> bytes;
  bytes.reserve(numbers.size() * 4);
  for (float const number : numbers) {
    std::uint32_t bits = 0;
    static_assert(sizeof(bits) == sizeof(number));
    std::memcpy(&bits, &number, sizeof(bits));
    for (int shift = 0; shift < 32; shift += 8) {
      bytes.push_back(static_cast<std::uint8_t>(bits >> shift));
    }
  }
  std::string out;
  out.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t group = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      group = group << 8 | (i + k < bytes.size() ? bytes[i + k] : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      out += i + k <= bytes.size() ? kDigits[group >> (18 - 6 * k) & 63] : '=';
    }
  }
  return out;
}

}  // namespace zel::desk
