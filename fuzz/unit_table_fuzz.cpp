// Unit tables: read, made a catalogue, and every unit of every slate looked up by its own texts.
#include <cstdint>
#include <string_view>
#include <utility>

#include "frame/units/unit_catalogue.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  using namespace zel;
  UnitTable table;
  UnitTableError error = ReadUnitTable({reinterpret_cast<char const*>(data), size}, table);
  if (error != UnitTableError::kNone) return 0;
  auto const catalogue = UnitCatalogue::Make(std::move(table), error);
  if (!catalogue) return 0;
  for (auto const& slate : catalogue->Table().slates) {
    for (auto const& list : catalogue->Table().lists) {
      int const unitClass = catalogue->FindClass(list.name);
      UnitChoice unit;
      if (unitClass < 0 || !catalogue->FindSlateUnit(unitClass, slate.name, unit)) continue;
      for (UnitForm const form : {UnitForm::kText, UnitForm::kKeyword}) {
        UnitChoice same;
        catalogue->FindUnit(unitClass, catalogue->Text(unitClass, unit, form), form, same);
      }
      static_cast<void>(catalogue->Rule(unitClass, unit).ToIntermediate(3.0));
    }
  }
  return 0;
}
