// Chemical formulas: parsed into element counts, checked, put into normal order.
//
// Grammar: items, each an element (an upper-case letter and at most one lower-case letter) or a
// sequence in parentheses, with an optional count; at the end optionally a point, a count and
// "H2O". Only the first four digits of a count are used. "mixture" and "petro", in any case, are
// accepted in place of a formula.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zel {

using ElementSymbol = std::array<char, 3>;  // terminated; empty in a free slot

// Slots of element symbols and their counts, both of one length, the capacity. The first `preset`
// symbols, at most all, are filled by the caller.
struct ElementSlots {
  std::span<ElementSymbol> elements;
  std::span<std::int32_t> counts;
  std::int32_t preset = 0;
};

struct FormulaResult {
  std::int32_t foundCount = 0;        // slots in use
  std::int32_t hydrate = 0;           // molecules of water after the point
  bool hasCarbonAndHydrogen = false;  // anywhere before the point; set once that part is parsed
};

// False when the text is not a formula or names an unknown element; the slots then hold the counts
// up to that point, without those of a group that was not closed. Elements without a free slot are
// dropped without failure. Counts are clamped to 32 bits. Time and memory grow with the length of
// the text, whatever its depth. In merged form equal elements share a slot; in sequence form each
// occurrence has its own slot, except preset ones.
bool ParseFormulaMerged(std::string_view formula, ElementSlots slots, FormulaResult& result);
bool ParseFormulaSequence(std::string_view formula, ElementSlots slots, FormulaResult& result);
// The merged form, without the hydrate and the mark for carbon and hydrogen.
bool CountElements(std::string_view formula, ElementSlots slots, std::int32_t& foundCount);

// Puts a formula (21 characters with terminator) into normal order: Hill order when it has carbon
// and hydrogen, byte order otherwise. Returns 1 when `formula` is now in normal form, or is not a
// formula at all; 2 when the two differ and must not be merged (`strict`, or no carbon and
// hydrogen): `formula` is then unchanged and `work` (21 characters) holds the normal form.
int NormaliseFormula(char* formula, char* work, bool strict);

// A text that orders components by formula. For a text that does not parse it is the single byte 1.
std::string FormulaSortKey(std::string_view formula);

}  // namespace zel
