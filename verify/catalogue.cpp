// What data tools need beyond the main classes: names, units, weights.
#include <algorithm>
#include <array>
#include <iterator>

#include "frame/units/unit_factors.h"
#include "purecomp/tables.h"
#include "store/format.h"
#include "store/packed_text.h"
#include "verify/atomic_weights.h"
#include "verify/composition.h"
#include "zelaccess/Types.h"
#include "zelaccess/Units.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

// The table's texts are literals, so each is null-terminated.
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

// The dimensions of the internal units of data.
struct DimensionRow {
  std::string_view unit;
  char const* dimension;
};
constexpr DimensionRow kDimensions[] = {
    {"K", "Temp"},
    {"kPa", "Pres"},
    {"m3/kg-mol", "MolarVolume"},
    {"kg-mol/m3", "MolarDensity"},
    {"kJ/kg-mol", "MolarEnergy"},
    {"kJ/kg-mol-K", "MolarEntropy"},
    {"cP", "Visc"},
    {"W/m-K", "Cond"},
    {"N/m", "Surf"},
    {"m", "Leng"},
    {"debye", "Dipole"},
    {"fraction", "Frac"},
};

char const* DimensionOf(std::string_view unit) {
  auto const at = std::find_if(std::begin(kDimensions), std::end(kDimensions),
                               [unit](DimensionRow const& row) { return unit == row.unit; });
  return at == std::end(kDimensions) ? "" : at->dimension;
}

double WeightOf(std::string_view element) {
  auto const at = std::find_if(std::begin(kAtomicWeights), std::end(kAtomicWeights),
                               [&](AtomicWeight const& row) { return element == row.symbol; });
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

char const* GetDimensionOfUnit(char const* unit) {
  return unit == nullptr ? "" : DimensionOf(unit);
}

char const* GetConstantDimension(std::uint32_t index) {
  // Relative to water at 60 F, or in degrees API.
  if (index == propertySG60F) return "PetroDensity";
  for (ZelConstantInfo const& row : kConstants) {
    if (row.index == index) return DimensionOf(row.unit);
  }
  return "";
}

char const* GetCorrelationDimension(std::uint32_t index) {
  return index < kCorrelations.size() ? DimensionOf(kCorrelations[index].unit) : "";
}

char const* GetUnitCodeName(std::int32_t code) { return GetUnitName(code); }

void GetKeyText(std::int32_t const* words, std::int32_t count, char* text) {
  if (text == nullptr) return;
  *text = '\0';
  if (words == nullptr) return;
  WordsToText(words, std::clamp(count, 0, format::kMaxKeyWords), text);
}

double GetFormulaWeight(char const* formula) {
  Composition atoms;
  if (!CompositionOf(formula != nullptr ? formula : "", atoms)) return gen_GetUndefDouble();
  double weight = 0.0;
  for (auto const& [element, count] : atoms) {
    double const each = WeightOf(element);
    if (gen_IsUndefDouble(each)) return each;
    weight += each * static_cast<double>(count);
  }
  return weight;
}

}  // namespace zel
