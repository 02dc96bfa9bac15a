// types, banks, items
#include <algorithm>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/members.h"
#include "desk/open/pure_component.h"
#include "desk/open/unfinished_change.h"
#include "desk/words/failure.h"

namespace zelhost {
namespace {

// Adds tables of constants and correlations.
void AddCatalogue(Report& report) {
  Table& constants = report.Begin("constants", {{"keyword", ""}, {"unit", ""}, {"label", ""}});
  for (auto const& row : Constants()) {
    constants.Add(row.keyword, Text(row.unit), row.label);
  }
  Table& curves = report.Begin("correlations", {{"name", ""}, {"unit", ""}, {"label", ""}});
  for (auto const& row : Correlations()) curves.Add(row.name, Text(row.unit), row.label);
}

struct Options {
  std::string type;
  std::string path;
  std::string bank;
  std::vector<std::string> fields;
};

std::string KindOfKey(std::int32_t kind, std::int32_t shortest, std::int32_t words) {
  if (kind == 2) return "a text";
  std::string const count = shortest == words
                                ? std::to_string(words)
                                : std::to_string(shortest) + " to " + std::to_string(words);
  return count + (kind == 0 ? (words == 1 ? " component" : " components")
                            : (words == 1 ? " number" : " numbers"));
}

Report AllTypes() {
  Report report;
  Table& table =
      report.Begin("types", {{"type", ""}, {"formats", ""}, {"key", ""}, {"description", ""}});
  auto const count = static_cast<std::size_t>(zel::GetBankTypeCount());
  std::vector<char> list(count * kNameSize);
  auto* const names = reinterpret_cast<char(*)[kNameSize]>(list.data());
  zel::GetBankTypeList(static_cast<long>(count), names);
  for (std::size_t i = 0; i < count; ++i) {
    zel::Handle<zel::IZelBankDef> const bank = BankOfType(names[i]);
    BankFacts const facts(*bank);
    table.Add(facts.type, std::int64_t{facts.formats},
              KindOfKey(facts.keyKind, facts.shortestKey, facts.keyWords), facts.description);
  }
  return report;
}

Report OneType(std::string const& type) {
  zel::Handle<zel::IZelBankDef> const bank = BankOfType(type);
  BankFacts const facts(*bank);
  Report report;
  report.Fact("type", facts.type);
  report.Fact("description", facts.description);
  report.Fact("key", KindOfKey(facts.keyKind, facts.shortestKey, facts.keyWords));
  report.Fact("formats", std::int64_t{facts.formats});
  if (facts.type == kPureType) {
    AddCatalogue(report);
    return report;
  }
  Table& table = report.Begin(
      "fields", {{"field", ""}, {"kind", ""}, {"values", ""}, {"unit", ""}, {"label", ""}});
  for (Field const& field : FieldsOf(*bank)) {
    table.Add(field.name, KindOf(field), std::int64_t{field.count}, Text(field.unit),
              Text(field.label));
  }
  return report;
}

Report Banks(Session& session, Options const& o) {
  Library const library = OpenFinished(session, o.path);
  Report report;
  Table& table =
      report.Begin("banks", {{"type", ""}, {"name", ""}, {"format", ""}, {"description", ""}});
  for (BankName const& bank : library.Banks()) {
    zel::Handle<zel::IZelBankDef> const item = BankOrNone(bank.type);
    std::int32_t const format = library.Maint().GetBankFormat(bank.type.c_str(), bank.name.c_str());
    table.Add(bank.type, bank.name, std::int64_t{format == 0 ? 1 : format},
              item ? Text(BankFacts(*item).description) : Text("an unknown type"));
  }
  return report;
}

// The fields with these names, in the same order.
std::vector<Field> Chosen(zel::IZelBankDef& item, std::vector<std::string> const& names) {
  std::vector<Field> chosen;
  chosen.reserve(names.size());
  for (std::string const& name : names) chosen.push_back(FieldNamed(item, name));
  return chosen;
}

// A constant or a correlation of components as a column.
struct ComponentField {
  zel::ZelConstantInfo const* constant = nullptr;
  zel::ZelCorrelationInfo const* curve = nullptr;

  Column Head() const {
    if (constant != nullptr) return {constant->keyword, constant->unit};
    return {curve->name, ""};
  }
  // A correlation is shown as its equation and range.
  Cell ValueIn(PureComponent const& component, DisplayUnits const& units) const {
    if (constant != nullptr) return Number(component.Constant(constant->index));
    Curve const record = component.ReadCurve(IndexOf(*curve));
    if (!record.present) return {};
    Cell const range = RangeOf(record, units);
    bool const isOpen = std::holds_alternative<std::monostate>(range);
    return "equation " + std::to_string(record.equation) + (isOpen ? "" : ", " + CellText(range));
  }
};

ComponentField ComponentFieldNamed(std::string const& word) {
  ComponentField const field = {FindConstant(word), FindCorrelation(word)};
  if (field.constant == nullptr && field.curve == nullptr) {
    throw Failure(std::string("banks of type ") + kPureType + " have no field " + word +
                  DidYouMeanDatum(word) + " `zel types " + kPureType + "` lists them");
  }
  return field;
}

Report Components(Library const& library, BankName const& bank,
                  std::vector<std::string> const& names) {
  std::vector<ComponentField> fields;
  fields.reserve(names.size());
  for (std::string const& name : names) fields.push_back(ComponentFieldNamed(name));
  bool const isWide = !fields.empty();
  std::vector<Column> columns = {
      {"number", ""}, {"id", ""}, {"cas", "", isWide}, {"formula", "", isWide}, {"name", ""}};
  for (ComponentField const& field : fields) columns.push_back(field.Head());
  std::vector<Column> onlyJson;
  for (ComponentField const& field : fields) {
    if (field.curve != nullptr) Append(onlyJson, RecordColumns(field.curve->name));
  }
  Append(columns, onlyJson);
  DisplayUnits const& units = library.InSession().units;
  Table table("items", std::move(columns));
  PureComponent component;
  std::int32_t words[10] = {};
  library.Walk(bank, [&] {
    library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
    while (library.Maint().NextItem(words, component.Def())) {
      Identity const identity = component.ReadIdentity();
      std::vector<Cell> row =
          RowOf(std::int64_t{words[0]}, Text(identity.FirstId()), Text(identity.cas),
                Text(identity.formula), Text(identity.name));
      for (ComponentField const& field : fields) row.push_back(field.ValueIn(component, units));
      for (ComponentField const& field : fields) {
        if (field.curve == nullptr) continue;
        Append(row, RecordMembers(component.ReadCurve(IndexOf(*field.curve)), units));
      }
      table.Add(std::move(row));
    }
  });
  Report report;
  report.Add(std::move(table), onlyJson);
  return report;
}

Report Items(Session& session, Options const& o) {
  Library const library = OpenFinished(session, o.path);
  BankName const bank = library.Bank(o.bank);
  if (bank.type == kPureType) return Components(library, bank, o.fields);
  zel::Handle<zel::IZelBankDef> const item = BankOfType(bank.type);
  std::vector<Field> const fields = Chosen(*item, o.fields);
  KeyWords words(library, *item);
  std::vector<Column> columns;
  for (std::size_t i = 0; i < words.Parts(); ++i) {
    columns.push_back({words.Parts() == 1 ? "item" : "item " + std::to_string(i + 1), ""});
  }
  for (Field const& field : fields) columns.push_back({field.name, field.unit});
  Report report;
  Table& table = report.Begin("items", columns);
  for (auto const& stored : Keys(library, bank, *item)) {
    std::vector<Cell> row;
    std::vector<std::string> const parts = words.Of(stored);
    row.assign(parts.begin(), parts.end());
    if (!fields.empty()) {
      zel::Handle<zel::Key> const key(zel::Key::NewKey());
      key->SetKeyWords(static_cast<long>(stored.size()), stored.data());
      if (!library.Maint().ReadItem(item.get(), bank.name.c_str(), key.get())) {
        throw Failure(o.path + ": " + ToText(bank) + ", item " + Joined(parts) + ": not found");
      }
      for (Field const& field : fields) row.push_back(ValueOf(*item, field));
    }
    table.Add(std::move(row));
  }
  return report;
}

}  // namespace

void AddBankCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command(line, "types", "List the types of banks, or the fields of one type", "zel types NRTL")
      .OptionalArgument("TYPE", o->type, "show the fields of this type")
      .Run(Outputs::kJsonAndCsv,
           [o](Session&) { return o->type.empty() ? AllTypes() : OneType(o->type); });
  Command(line, "banks", "List the banks of a library", "zel banks sample.lb1")
      .Argument("LIBRARY", o->path, "a library file")
      .Library(o->path)
      .Run(Outputs::kJsonAndCsv, [o](Session& session) { return Banks(session, *o); });
  Command items(line, "items", "List the items of a bank",
                "zel items sample.lb1 NRTL --fields aij aji alphaij");
  items.Argument("LIBRARY", o->path, "a library file")
      .Library(o->path)
      .Argument("BANK", o->bank, "a name, a type, or TYPE:NAME")
      .List("--fields", o->fields, "show these fields too", "FIELD...");
  AddStrict(items);
  items.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Items(session, *o); });
}

}  // namespace zelhost
