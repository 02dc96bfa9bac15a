#include "frame/file_name.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "frame/ascii.h"

namespace zel {
namespace {

constexpr std::string_view kForbidden = "<>:\"\\|?*";
constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr std::size_t kEscape = 3;  // characters

bool IsControl(char c) noexcept { return static_cast<unsigned char>(c) < 0x20 || c == '\x7f'; }

// True if a "%" and two digits are at this place.
bool IsEscape(std::string_view text, std::size_t at) noexcept {
  return text.size() - at >= kEscape && text[at] == '%' &&
         kDigits.find(text[at + 1]) != std::string_view::npos &&
         kDigits.find(text[at + 2]) != std::string_view::npos;
}

// True for a name that stands for a device, whatever follows its first point.
bool IsDevice(std::string_view name) noexcept {
  constexpr std::string_view kDevices[] = {"CON", "PRN", "AUX", "NUL"};
  constexpr std::string_view kNumbered[] = {"COM", "LPT"};
  std::string_view stem = name.substr(0, name.find('.'));
  stem = stem.substr(0, stem.find_last_not_of(' ') + 1);
  auto const isStem = [&](std::string_view device) { return SameText(stem, device); };
  if (std::any_of(std::begin(kDevices), std::end(kDevices), isStem)) return true;
  if (stem.size() != 4 || stem.back() < '1' || stem.back() > '9') return false;
  stem.remove_suffix(1);
  return std::any_of(std::begin(kNumbered), std::end(kNumbered), isStem);
}

bool IsToEscape(std::string_view name, std::size_t at, platform::FileNames forbids) noexcept {
  char const c = name[at];
  if (c == '/' || IsEscape(name, at)) return true;
  if (forbids == platform::FileNames::kPosix) {
    return at == 0 && (name == "." || name == "..");  // which are folders
  }
  bool const isLast = at + 1 == name.size();
  return IsControl(c) || kForbidden.find(c) != std::string_view::npos ||
         (isLast && (c == ' ' || c == '.')) || (at == 0 && IsDevice(name));
}

}  // namespace

std::string FileNameOf(std::string_view name, platform::FileNames forbids) {
  std::string file;
  for (std::size_t at = 0; at < name.size(); ++at) {
    if (!IsToEscape(name, at, forbids)) {
      file += name[at];
      continue;
    }
    auto const code = static_cast<unsigned char>(name[at]);
    file += '%';
    file += kDigits[code / kDigits.size()];
    file += kDigits[code % kDigits.size()];
  }
  return file;
}

}  // namespace zel
