#include "desk/tables/table_export.h"

#include <algorithm>
#include <filesystem>

#include "desk/files/output_file.h"
#include "desk/open/field_text.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/pure_component.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr std::uint32_t kConstantsWithCode = 50;
constexpr std::int32_t kNoComponent = INT32_MAX;  // fills a short key

// The units of the columns. A gauge pressure near a vacuum has too few digits to be read back, so
// that pressures are then absolute.
class ExportUnits {
 public:
  explicit ExportUnits(DisplayUnits const& shown) : shown_(shown) {
    if (!IsGauge(shown)) return;
    std::string const gauge = shown.UnitFor(kPressure);
    std::string const plain = gauge.substr(0, gauge.size() - 1);  // "psi" of "psig"
    for (std::string const& word : {plain + "a", plain}) {
      if (UnitNamed(word, kPressure).empty()) continue;
      DisplayUnits const absolute(word);
      if (IsGauge(absolute)) continue;
      pressures_ = absolute;
      break;
    }
  }
  DisplayUnits const& Of(std::string const& unit) const {
    return unit == kPressure && IsGauge(shown_) ? pressures_ : shown_;
  }

 private:
  static constexpr char kPressure[] = "kPa";
  static bool IsGauge(DisplayUnits const& units) { return units.Shown(0.0, kPressure) != 0.0; }

  DisplayUnits const& shown_;
  DisplayUnits pressures_;  // kPa if the unit has no absolute one
};

std::string HeadIn(TableHead const& head, ExportUnits const& units) {
  return ToText(TableHead{head.name, units.Of(head.unit).UnitFor(head.unit), ""});
}

// A code of 0 means no code.
std::string CodeText(std::int64_t code) { return code == 0 ? "" : std::to_string(code); }

std::string Listed(std::vector<std::string> const& words) {
  std::string text;
  for (std::string const& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

void AddItems(PureComponent const& component, ExportUnits const& units, TextTable& table) {
  Identity const identity = component.ReadIdentity();
  std::string phases;
  for (int bit = 0; bit < 3; ++bit) {
    if ((component.Phase() & (1 << bit)) != 0) phases += "VLS"[bit];
  }
  TextRow row;
  row.cells = {std::to_string(identity.number), Listed(identity.ids), identity.cas, identity.name,
               identity.formula};
  row.cells.emplace_back(identity.keepsFormula ? "yes" : "");
  row.cells.push_back(component.Smiles());
  row.cells.push_back(phases);
  row.cells.push_back(CodeText(identity.refCode));
  for (zel::ZelConstantInfo const& info : Constants()) {
    double const value = component.Constant(info.index);
    row.cells.push_back(AllDigits(units.Of(info.unit).Shown(value, info.unit)));
    if (info.index < kConstantsWithCode) {
      row.cells.push_back(CodeText(component.ConstantCode(info.index)));
    }
  }
  table.rows.push_back(std::move(row));
}

void AddCorrelations(PureComponent const& component, TextTable& table) {
  for (zel::ZelCorrelationInfo const& info : Correlations()) {
    Curve const curve = component.ReadCurve(IndexOf(info));
    if (!curve.present) continue;
    TextRow row;
    row.cells = {std::to_string(component.ReadIdentity().number), info.name,
                 std::to_string(curve.equation), TemperatureUnit(curve.tempUnit)};
    row.cells.emplace_back(zel::GetUnitCodeName(curve.propUnit));
    row.cells.push_back(CodeText(curve.propUnit));
    row.cells.emplace_back(curve.logBasis == 2 ? "log" : "ln");
    row.cells.emplace_back(curve.basis == 1 ? "m" : curve.basis == 2 ? "wt" : "");
    row.cells.push_back(AllDigits(curve.tMin));
    row.cells.push_back(AllDigits(curve.tMax));
    row.cells.push_back(CodeText(curve.refCode));
    std::vector<std::string> coefficients;
    for (double const value : curve.coefficients) coefficients.push_back(AllDigits(value));
    row.cells.push_back(Listed(coefficients));
    table.rows.push_back(std::move(row));
  }
}

void AddGroups(PureComponent const& component, TextTable& table) {
  for (std::uint32_t model = 0; model < StructureModels().size(); ++model) {
    std::int32_t count = 0;
    std::int32_t ids[10] = {};
    std::int32_t counts[10] = {};
    if (component->GetRawStructure(model, &count, ids, counts) != zel::kStatusOk) continue;
    std::vector<std::string> groups;
    groups.reserve(static_cast<std::size_t>(count));
    for (std::int32_t i = 0; i < count; ++i) {
      groups.push_back(std::to_string(ids[i]) + "(" + std::to_string(counts[i]) + ")");
    }
    TextRow row;
    row.cells = {std::to_string(component.ReadIdentity().number), StructureModels()[model],
                 Listed(groups)};
    table.rows.push_back(std::move(row));
  }
}

TextTable Components(Library const& library, BankName const& bank, TableKind kind,
                     ExportUnits const& units) {
  TextTable table;
  for (TableHead const& head : HeadsOf(kPureType, kind)) table.heads.push_back(HeadIn(head, units));
  PureComponent const component;
  std::int32_t words[10] = {};
  library.Walk(bank, [&] {
    library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
    while (library.Maint().NextItem(words, component.Def())) {
      if (kind == TableKind::kItems) AddItems(component, units, table);
      if (kind == TableKind::kCorrelations) AddCorrelations(component, table);
      if (kind == TableKind::kGroups) AddGroups(component, table);
    }
  });
  return table;
}

TextTable Items(Library const& library, BankName const& bank, ExportUnits const& units) {
  zel::Handle<zel::IZelBankDef> const item = BankOfType(bank.type);
  BankFacts const facts(*item);
  std::vector<Field> const fields = FieldsOf(*item);
  KeyWords words(library, *item);
  bool const isText = facts.keyKind == 2;
  bool const isOfComponents = facts.keyKind == 0;
  TextTable table;
  for (std::size_t i = 0; i < words.Parts(); ++i) {
    table.heads.push_back(HeadsOfKey(i, words.Parts()).front());
    if (isOfComponents) {
      table.heads.push_back(words.Parts() == 1 ? "id" : "id " + std::to_string(i + 1));
    }
  }
  for (Field const& field : fields)
    table.heads.push_back(HeadIn({field.name, field.unit, ""}, units));
  for (auto const& stored : Keys(library, bank, *item)) {
    TextRow row;
    std::vector<std::string> const shown = words.Of(stored);
    for (std::size_t i = 0; i < words.Parts(); ++i) {
      bool const isFilled = !isText && stored[i] == kNoComponent;
      row.cells.push_back(isText ? shown.front() : isFilled ? "" : std::to_string(stored[i]));
      if (isOfComponents)
        row.cells.push_back(isFilled || shown[i] == row.cells.back() ? "" : shown[i]);
    }
    zel::Handle<zel::Key> const key = StoredKey(stored);
    try {
      if (!library.Maint().ReadItem(item.get(), bank.name.c_str(), key.get())) {
        throw Failure(library.Path() + ": " + ToText(bank) + ", item " + Joined(shown) +
                      ": not found");
      }
    } catch (unsigned long const address) {
      library.TellUnread(ToText(bank) + " " + Joined(shown), address);
      continue;
    }
    for (Field const& field : fields)
      row.cells.push_back(FieldText(*item, field, units.Of(field.unit)));
    table.rows.push_back(std::move(row));
  }
  return table;
}

// The first column and those that name the items stay.
void DropEmptyColumns(TextTable& table) {
  for (std::size_t i = table.heads.size(); i-- > 1;) {
    bool const any = std::any_of(table.rows.begin(), table.rows.end(),
                                 [i](TextRow const& row) { return !row.cells[i].empty(); });
    bool const isKey = table.heads[i].compare(0, 5, "item ") == 0;
    if (any || isKey || table.rows.empty()) continue;
    auto const at = static_cast<std::ptrdiff_t>(i);
    table.heads.erase(table.heads.begin() + at);
    for (TextRow& row : table.rows) row.cells.erase(row.cells.begin() + at);
  }
}

}  // namespace

TextTable ExportTable(Library const& library, BankName const& bank, TableKind kind,
                      DisplayUnits const& units) {
  ExportUnits const exact(units);
  TextTable table =
      bank.type == kPureType ? Components(library, bank, kind, exact) : Items(library, bank, exact);
  DropEmptyColumns(table);
  return table;
}

std::string InFormOf(std::string const& path, TextTable const& table) {
  std::string const ending = LowerCase(std::filesystem::path(path).extension().string());
  if (ending == ".csv" || IsStandardOutput(path)) return ToCsv(table, ',');
  if (ending == ".tsv") return ToCsv(table, '\t');
  if (ending == ".json") return ToJson(table);
  throw WrongUsage(path + ": a table ends in .csv, .tsv or .json");
}

}  // namespace zel::desk
