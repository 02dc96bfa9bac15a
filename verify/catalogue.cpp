// What a data tool asks beyond the working classes: names, units, weights.
#include <algorithm>
#include <array>
#include <iterator>

#include "frame/units/unit_factors.h"
#include "purecomp/formula.h"
#include "purecomp/tables.h"
#include "store/format.h"
#include "store/packed_text.h"
#include "verify/atomic_weights.h"
#include "zelaccess/Types.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

// The table's texts are literals, so that each ends with a zero.
constexpr std::size_t kWritten = [] {
  std::size_t count = 0;
  while (kPropertyRows[count].index != kEndOfWritten) ++count;
  return count;
}();

constexpr auto kConstants = [] {
  std::array<ZelConstantInfo, kWritten> rows{};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    PropertyRow const& row = kPropertyRows[i];
    rows[i] = {row.keyword.data(), row.label.data(), row.unit.data(),
               static_cast<std::uint32_t>(row.index)};
  }
  return rows;
}();

constexpr auto kCorrelations = [] {
  std::array<ZelCorrelationInfo, kNamedCorrelations> rows{};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    CorrelationRow const& row = kCorrelationRows[i];
    rows[i] = {row.name.data(), row.label.data(), row.unit.data()};
  }
  return rows;
}();

double WeightOf(ElementSymbol const& symbol) {
  auto const at = std::find_if(
      std::begin(kAtomicWeights), std::end(kAtomicWeights),
      [&](AtomicWeight const& row) { return std::string_view(row.symbol) == symbol.data(); });
  return at == std::end(kAtomicWeights) ? gen_GetUndefDouble() : at->weight;
}

}  // namespace

ZelConstantInfo const* GetConstantCatalogue(std::int32_t& count) {
  count = static_cast<std::int32_t>(kConstants.size());
  return kConstants.data();
}

ZelCorrelationInfo const* GetCorrelationCatalogue(std::int32_t& count) {
  count = static_cast<std::int32_t>(kCorrelations.size());
  return kCorrelations.data();
}

char const* GetUnitCodeName(std::int32_t code) { return GetUnitName(code); }

void GetKeyText(std::int32_t const* words, std::int32_t count, char* text) {
  WordsToText(words, std::clamp(count, 0, format::kMaxKeyWords), text);
}

double GetFormulaWeight(char const* formula) {
  constexpr std::size_t kSlots = 128;  // more than there are elements
  std::array<ElementSymbol, kSlots> elements{};
  std::array<std::int32_t, kSlots> counts{};
  FormulaResult result;
  std::string_view const text = formula != nullptr ? formula : "";
  if (text.empty() || !ParseFormulaMerged(text, {elements, counts, 0}, result)) {
    return gen_GetUndefDouble();
  }
  double weight = 0.0;
  auto const add = [&](ElementSymbol const& symbol, std::int32_t count) {
    double const each = WeightOf(symbol);
    weight = gen_IsUndefDouble(each) || gen_IsUndefDouble(weight) ? gen_GetUndefDouble()
                                                                  : weight + each * count;
  };
  for (std::int32_t i = 0; i < result.foundCount; ++i) {
    add(elements[static_cast<std::size_t>(i)], counts[static_cast<std::size_t>(i)]);
  }
  add({"H"}, 2 * result.hydrate);
  add({"O"}, result.hydrate);
  return weight > 0.0 ? weight : gen_GetUndefDouble();
}

}  // namespace zel
