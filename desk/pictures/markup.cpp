#include "desk/pictures/markup.h"

#include <cstdio>

namespace zel::desk {

std::string Escaped(std::string const& text) {
  std::string out;
  for (char const c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default: out += (c >= 0 && c < ' ' && c != '\n') || c == '\x7f' ? '?' : c;
    }
  }
  return out;
}

std::string Fixed(double value, int decimals) {
  char text[400];
  std::snprintf(text, sizeof(text), "%.*f", decimals, value);
  std::string const digits = text;
  bool const isZero = digits.find_first_of("123456789") == std::string::npos;
  return isZero && digits[0] == '-' ? digits.substr(1) : digits;
}

}  // namespace zel::desk
