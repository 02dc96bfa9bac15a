#include "frame/units/class_definition.h"

#include <algorithm>
#include <cstddef>

namespace zel {
namespace {

// Appends the names in one piece between two "/".
void TakeNames(std::string_view piece, bool above, std::vector<DefinitionFactor>& factors) {
  while (true) {
    std::size_t const first = piece.find_first_not_of(' ');
    if (first == std::string_view::npos) return;
    piece.remove_prefix(first);
    std::size_t const length = std::min(piece.find(' '), piece.size());
    factors.push_back({std::string(piece.substr(0, length)), above});
    piece.remove_prefix(length);
  }
}

}  // namespace

bool ReadDefinition(std::string_view text, std::vector<DefinitionFactor>& factors) {
  factors.clear();
  bool above = true;
  while (true) {
    std::size_t const end = text.find('/');
    std::size_t const before = factors.size();
    TakeNames(text.substr(0, end), above, factors);
    if (factors.size() == before) return false;
    bool const isOne = above && factors.size() == 1 && factors.front().name == "1";
    if (isOne) factors.clear();
    if (end == std::string_view::npos) {
      return !factors.empty() && factors.size() <= static_cast<std::size_t>(kMostFactors);
    }
    text.remove_prefix(end + 1);
    above = false;
  }
}

}  // namespace zel
