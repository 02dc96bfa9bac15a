#include "frame/platform/settings_text.h"

#include <cstddef>
#include <string_view>

#include "frame/ascii.h"

namespace zel::platform {
namespace {

std::string_view Trimmed(std::string_view text) {
  constexpr char kBlanks[] = " \t\r";
  std::size_t const first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

bool ReadSettingFrom(std::istream& file, std::string const& key, std::string const& name,
                     std::string& value) {
  std::string line;
  bool inSection = false;
  while (std::getline(file, line)) {
    std::string_view const text = Trimmed(line);
    if (text.empty() || text.front() == ';' || text.front() == '#') continue;
    if (text.front() == '[' && text.back() == ']') {
      inSection = SameText(text.substr(1, text.size() - 2), key);
      continue;
    }
    std::size_t const sign = text.find('=');
    if (!inSection || sign == std::string_view::npos) continue;
    if (!SameText(Trimmed(text.substr(0, sign)), name)) continue;
    value = Trimmed(text.substr(sign + 1));
    return true;
  }
  return false;
}

}  // namespace zel::platform
