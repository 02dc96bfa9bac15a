// The words for codes in the attributes of components in documents.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/ascii.h"

namespace zel {

// Words are read in upper or lower case and written as they are here.
struct CodeWord {
  std::int32_t code;
  std::string_view word;
};

// Phases of a component: the sum of 1 vapor, 2 liquid, 4 solid.
inline constexpr std::int32_t kUsualPhase = 3;  // read, but not written
inline constexpr CodeWord kPhaseWords[] = {
    {0, "NONE"}, {kUsualPhase, "VL"}, {7, "VLS"}, {6, "LS"}, {4, "S"}};
inline constexpr CodeWord kTempUnitWords[] = {{10, "k"}, {12, "r"}, {11, "c"}, {13, "f"}};
inline constexpr CodeWord kLogBasisWords[] = {{1, "ln"}, {2, "log"}};
inline constexpr CodeWord kBasisWords[] = {{1, "m"}, {2, "wt"}};

// Empty for a code without a word.
template <std::size_t N>
constexpr std::string_view WordOf(CodeWord const (&words)[N], std::int32_t code) noexcept {
  for (CodeWord const& row : words) {
    if (row.code == code) return row.word;
  }
  return {};
}

// False, with the code unchanged, for a word that is not in the table.
template <std::size_t N>
bool TakeCode(CodeWord const (&words)[N], std::string_view word, std::int32_t& code) noexcept {
  for (CodeWord const& row : words) {
    if (!SameText(row.word, word)) continue;
    code = row.code;
    return true;
  }
  return false;
}

}  // namespace zel
