// The equations of correlations as texts.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace zel::desk {

struct EquationText {
  int number;
  std::string name;  // usual one; may be empty
  std::string form;  // "C1 + C2 T"
  std::string end;   // value at the end of its range; may be empty
};

// The equations of docs/equations.md, which is built into the program.
std::vector<EquationText> const& EquationTexts();
// Symbols of the forms and their meanings.
std::vector<std::pair<std::string, std::string>> const& EquationSymbols();

}  // namespace zel::desk
