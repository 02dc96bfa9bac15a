#include "verify/composition.h"

#include <array>

#include "purecomp/formula.h"

namespace zel {

bool CompositionOf(std::string_view formula, Composition& atoms) {
  constexpr std::size_t kSlots = 128;  // more than there are elements
  std::array<ElementSymbol, kSlots> elements{};
  std::array<std::int32_t, kSlots> counts{};
  FormulaResult result;
  atoms.clear();
  if (formula.empty() || !ParseFormulaMerged(formula, {elements, counts, 0}, result)) return false;
  for (std::size_t i = 0; i < static_cast<std::size_t>(result.foundCount); ++i) {
    atoms[elements[i].data()] += counts[i];
  }
  atoms["H"] += std::int64_t{2} * result.hydrate;
  atoms["O"] += result.hydrate;
  std::erase_if(atoms, [](auto const& row) { return row.second == 0; });
  return !atoms.empty();
}

}  // namespace zel
