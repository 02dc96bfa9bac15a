// Unit tables: read and made into a catalogue; every unit that a slate has for a class of the
// table, a row or a product, is looked up by its own texts and converted.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include "frame/units/unit_catalogue.h"

namespace {

using zel::UnitCatalogue;
using zel::UnitChoice;
using zel::UnitForm;

void Require(bool holds, char const* what) {
  if (holds) return;
  std::fprintf(stderr, "unit_table_fuzz: not so: %s\n", what);
  std::abort();
}

void LookUp(UnitCatalogue const& catalogue, std::string const& name) {
  int const unitClass = catalogue.FindClass(name);
  Require(unitClass >= 0, "a class of the table is found");
  for (auto const& slate : catalogue.Table().slates) {
    UnitChoice unit;
    if (!catalogue.FindSlateUnit(unitClass, slate.name, unit)) continue;
    for (UnitForm const form : {UnitForm::kText, UnitForm::kKeyword}) {
      std::string const text = catalogue.Text(unitClass, unit, form);
      UnitChoice same;
      bool const found = catalogue.FindUnit(unitClass, text, form, same);
      // Products can be read in several ways, or be too long to be read.
      if (unit.ofFactors) continue;
      Require(found && !same.ofFactors, "a row is found by its text");
      Require(catalogue.Text(unitClass, same, form) == text, "what is found has that text");
    }
    zel::UnitRule const rule = catalogue.Rule(unitClass, unit);
    static_cast<void>(rule.FromIntermediate(rule.ToIntermediate(3.0)));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  zel::UnitTable table;
  zel::UnitTableError error = ReadUnitTable({reinterpret_cast<char const*>(data), size}, table);
  Require(error >= zel::UnitTableError::kNone && error <= zel::UnitTableError::kTooComplex,
          "the error is one of those told");
  if (error != zel::UnitTableError::kNone) return 0;
  auto const catalogue = UnitCatalogue::Make(std::move(table), error);
  Require((catalogue == nullptr) == (error != zel::UnitTableError::kNone),
          "there is a catalogue or an error");
  if (!catalogue) return 0;
  for (auto const& list : catalogue->Table().lists) LookUp(*catalogue, list.name);
  for (auto const& custom : catalogue->Table().classes) LookUp(*catalogue, custom.name);
  return 0;
}
