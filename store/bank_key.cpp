#include "store/bank_key.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "frame/ascii.h"
#include "frame/limits.h"
#include "store/format.h"
#include "store/packed_text.h"

namespace zel {
namespace {

constexpr std::uint32_t kMarkCode = 77;  // of "@" in packed text

void PutPart(std::string_view part, char* to) noexcept {
  for (std::size_t i = 0; i < part.size(); ++i) to[i] = ToUpper(part[i]);
}

}  // namespace

void MakeBankKey(std::string_view type, std::string_view name, std::int32_t* key,
                 bool marker) noexcept {
  type = type.substr(0, kMostName);
  name = name.substr(0, kMostName);
  char text[2 * kMostName];
  std::fill(std::begin(text), std::end(text), ' ');
  PutPart(type, text);
  PutPart(name, text + kMostName);
  bool const room = type.size() < kMostName;
  if (marker && room) text[type.size()] = '@';
  TextToWords({text, sizeof text}, key, format::kBankKeyWords);
  if (marker && !room) {
    auto const word = static_cast<std::uint32_t>(key[1]);
    std::uint32_t const q = word / 100;
    std::uint32_t const r = word % 100;
    key[1] = static_cast<std::int32_t>((r * 1'000'000 + q) * 100 + kMarkCode);
  }
}

void UnpackBankKey(std::int32_t const* key, char* type, char* name) noexcept {
  WordsToText(key, 2, type);
  if (char* mark = std::strchr(type, '@'); mark != nullptr) {
    std::int32_t const r = key[1] / 99'999'999;
    if (r == 0) {
      *mark = '\0';
    } else {
      std::int64_t const word = key[1] - std::int64_t{kMarkCode} - std::int64_t{r} * 99'999'999;
      std::int32_t const words[2] = {key[0], static_cast<std::int32_t>(word)};
      WordsToText(words, 2, type);
    }
  }
  WordsToText(key + 2, 2, name);
}

}  // namespace zel
