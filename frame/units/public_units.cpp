// The unit system as hosts use it.
#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include "frame/ascii.h"
#include "frame/units/everyday_units.h"
#include "frame/units/unit_catalogue.h"
#include "frame/units/uom.h"
#include "zelaccess/Units.h"

namespace zel {
namespace {

struct FreeUnit {
  void operator()(uom_Unit* unit) const { uom_Free(&unit); }
};
using UnitHandle = std::unique_ptr<uom_Unit, FreeUnit>;

bool Understands(uom_Unit* unit, std::string const& text) {
  return uom_FillStructFromString(unit, text.c_str(), static_cast<int>(UnitForm::kText)) == 0 ||
         uom_FillStructFromString(unit, text.c_str(), static_cast<int>(UnitForm::kKeyword)) == 0;
}

// The text of the unit that has this long text; empty for none.
std::string TextOfLong(char const* dimension, std::string_view longText) {
  std::shared_ptr<UnitCatalogue const> const units = LoadedUnits();
  int const unitClass = units == nullptr ? -1 : units->FindClass(TextOrEmpty(dimension));
  if (unitClass < 0) return {};
  for (int const row : units->ClassAt(unitClass).rows) {
    if (SameText(units->Row(row).longText, longText)) return units->Row(row).text;
  }
  return {};
}

// Null when the dimension has no such unit. Unlike OpenUnit it never takes a mass for an amount of
// substance.
UnitHandle OpenWord(char const* dimension, char const* word) {
  if (word == nullptr || *word == '\0') return nullptr;
  UnitHandle unit(uoms_New(dimension));
  if (unit == nullptr || Understands(unit.get(), word)) return unit;
  std::string const text = TextOfLong(dimension, word);
  bool const known = (!text.empty() && Understands(unit.get(), text)) ||
                     Understands(unit.get(), TableSpelling(word));
  return known ? std::move(unit) : nullptr;
}

// The units of a class: its own list, then all products of the units of its factors.
struct ClassUnits {
  std::shared_ptr<UnitCatalogue const> catalogue;
  int unitClass = -1;

  explicit ClassUnits(char const* dimension) : catalogue(LoadedUnits()) {
    if (catalogue != nullptr) unitClass = catalogue->FindClass(TextOrEmpty(dimension));
  }
  UnitCatalogue::Class const& Class() const { return catalogue->ClassAt(unitClass); }
  std::vector<int> const& RowsOf(UnitCatalogue::Factor const& factor) const {
    return catalogue->ClassAt(factor.unitClass).rows;
  }
  std::int32_t Count() const {
    if (unitClass < 0) return 0;
    std::size_t products = Class().factors.empty() ? 0 : 1;
    for (auto const& factor : Class().factors) products *= RowsOf(factor).size();
    return static_cast<std::int32_t>(Class().rows.size() + products);
  }
  // The last factor varies fastest.
  std::string At(std::size_t index) const {
    UnitChoice unit;
    if (index < Class().rows.size()) {
      unit.rows.push_back(Class().rows[index]);
      return catalogue->Text(unitClass, unit, UnitForm::kText);
    }
    index -= Class().rows.size();
    unit.ofFactors = true;
    for (auto factor = Class().factors.rbegin(); factor != Class().factors.rend(); ++factor) {
      std::vector<int> const& rows = RowsOf(*factor);
      unit.rows.insert(unit.rows.begin(), rows[index % rows.size()]);
      index /= rows.size();
    }
    return catalogue->Text(unitClass, unit, UnitForm::kText);
  }
};

}  // namespace

bool ConvertUnits(char const* dimension, char const* from, char const* to, double* values,
                  std::int32_t count) {
  UnitHandle const source = OpenWord(dimension, from);
  UnitHandle const target = OpenWord(dimension, to);
  if (source == nullptr || target == nullptr) return false;
  if (count == 0) return true;  // the values of an empty array may be null
  return uom_ConvertArray(values, count, source.get(), target.get()) == 0;
}

bool FindUnit(char const* dimension, char const* word, char* text) {
  UnitHandle const unit = OpenWord(dimension, word);
  if (unit == nullptr) return false;
  return text == nullptr || uom_GetDisplayUnits(unit.get(), text, kUnitTextSize,
                                                static_cast<int>(UnitForm::kText)) == 0;
}

std::int32_t GetDimensionCount() {
  std::shared_ptr<UnitCatalogue const> const units = LoadedUnits();
  return units == nullptr ? 0 : units->ClassCount();
}

bool GetDimension(std::int32_t index, char* name) {
  if (name == nullptr || index < 0 || index >= GetDimensionCount()) return false;
  CopyText(LoadedUnits()->ClassAt(index).name, name, kUnitTextSize);
  return true;
}

std::int32_t GetUnitCount(char const* dimension) { return ClassUnits(dimension).Count(); }

bool GetUnit(char const* dimension, std::int32_t index, char* text) {
  ClassUnits const units(dimension);
  if (text == nullptr || index < 0 || index >= units.Count()) return false;
  CopyText(units.At(static_cast<std::size_t>(index)), text, kUnitTextSize);
  return true;
}

std::int32_t GetUnitSystemCount() {
  std::shared_ptr<UnitCatalogue const> const units = LoadedUnits();
  return units == nullptr ? 0 : static_cast<std::int32_t>(units->Table().slates.size());
}

bool GetUnitSystem(std::int32_t index, char* name) {
  if (name == nullptr || index < 0 || index >= GetUnitSystemCount()) return false;
  CopyText(LoadedUnits()->Table().slates[static_cast<std::size_t>(index)].name, name,
           kUnitTextSize);
  return true;
}

}  // namespace zel
