#include "frame/units/uom.h"

#include <cerrno>
#include <cmath>
#include <cstddef>
#include <fstream>
#include <memory>
#include <mutex>
#include <new>
#include <string>
#include <utility>

#include "frame/ascii.h"
#include "frame/units/unit_catalogue.h"
#include "zelaccess/Types.h"

namespace zel {

struct uom_Unit {
  std::shared_ptr<UnitCatalogue const> catalogue;
  int unitClass;
  UnitChoice unit;
};

namespace {

// The catalogue that uom_Init2 loaded. A handle keeps the catalogue that it was made from.
using SharedCatalogue = std::shared_ptr<UnitCatalogue const>;
std::mutex loading;
SharedCatalogue loaded;

bool IsForm(int form) {
  return form == static_cast<int>(UnitForm::kText) || form == static_cast<int>(UnitForm::kKeyword);
}

// Reads at most one byte more than a table may have. Throws std::bad_alloc, which the stream
// reports only as not open.
bool ReadFile(char const* path, std::string& bytes) {
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file && errno == ENOMEM) throw std::bad_alloc();
  if (!file) return false;
  bytes.resize(kMostTableBytes + 1);
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return !file.bad();
}

UnitTableError Load(char const* path) {
  std::string text;
  if (!ReadFile(path, text)) return UnitTableError::kNoFile;
  UnitTable table;
  UnitTableError error = ReadUnitTable(text, table);
  if (error != UnitTableError::kNone) return error;
  std::unique_ptr<UnitCatalogue const> made = UnitCatalogue::Make(std::move(table), error);
  if (made == nullptr) return error;
  SharedCatalogue catalogue = std::move(made);
  std::lock_guard const lock(loading);
  loaded.swap(catalogue);
  return error;
}

// The class of a handle, or the one for which it is a second name.
int RootClass(uom_Unit const& unit) { return unit.catalogue->ClassAt(unit.unitClass).same; }

bool SameUnit(UnitChoice const& a, UnitChoice const& b) {
  return a.ofFactors == b.ofFactors && a.rows == b.rows;
}

double Converted(double value, UnitRule const& from, UnitRule const& to) {
  if (gen_IsUndefDouble(value)) return value;
  return to.FromIntermediate(from.ToIntermediate(value));
}

}  // namespace

std::shared_ptr<UnitCatalogue const> LoadedUnits() {
  std::lock_guard const lock(loading);
  return loaded;
}

int uom_Init2(int count, char const* const* arguments) {
  bool const given = count == 2 && arguments != nullptr && arguments[0] != nullptr &&
                     arguments[1] != nullptr && std::string_view(arguments[0]) == "-f";
  return static_cast<int>(given ? Load(arguments[1]) : UnitTableError::kArguments);
}

uom_Unit* uoms_New(char const* dimension) {
  SharedCatalogue catalogue = LoadedUnits();
  if (catalogue == nullptr) return nullptr;
  int const unitClass = catalogue->FindClass(TextOrEmpty(dimension));
  return unitClass < 0 ? nullptr : new uom_Unit{std::move(catalogue), unitClass, {}};
}

int uom_FillStructFromString(uom_Unit* unit, char const* text, int form) {
  if (unit == nullptr || !IsForm(form)) return kUomBadArgument;
  UnitCatalogue const& catalogue = *unit->catalogue;
  std::string_view const word = TextOrEmpty(text);
  UnitChoice found;
  bool known = catalogue.FindUnit(unit->unitClass, word, static_cast<UnitForm>(form), found);
  if (!known && form == static_cast<int>(UnitForm::kText)) {
    known = catalogue.FindSlateUnit(unit->unitClass, word, found);
  }
  if (!known) return kUomUnknownUnit;
  unit->unit = std::move(found);
  return 0;
}

int uom_GetDisplayUnits(uom_Unit const* unit, char* buffer, int size, int form) {
  if (unit == nullptr || buffer == nullptr || size < 1 || !IsForm(form)) return kUomBadArgument;
  CopyText(unit->catalogue->Text(unit->unitClass, unit->unit, static_cast<UnitForm>(form)), buffer,
           static_cast<std::size_t>(size));
  return unit->unit.rows.empty() ? kUomNoUnit : 0;
}

int uom_ConvertArray(double* values, int count, uom_Unit const* source, uom_Unit const* target) {
  if (values == nullptr || count < 0 || source == nullptr || target == nullptr) {
    return kUomBadArgument;
  }
  if (source->unit.rows.empty() || target->unit.rows.empty()) return kUomNoUnit;
  if (source->catalogue != target->catalogue || RootClass(*source) != RootClass(*target)) {
    return kUomOtherClass;
  }
  if (SameUnit(source->unit, target->unit)) return 0;
  UnitRule const from = source->catalogue->Rule(source->unitClass, source->unit);
  UnitRule const to = target->catalogue->Rule(target->unitClass, target->unit);
  for (int i = 0; i < count; ++i) {
    if (std::isfinite(values[i]) && !std::isfinite(Converted(values[i], from, to))) {
      return kUomNoValue;
    }
  }
  for (int i = 0; i < count; ++i) values[i] = Converted(values[i], from, to);
  return 0;
}

void uom_Free(uom_Unit** unit) {
  if (unit == nullptr) return;
  delete *unit;
  *unit = nullptr;
}

}  // namespace zel
