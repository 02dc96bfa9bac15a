// show, find
#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/notes/cited_codes.h"
#include "desk/notes/item_codes.h"
#include "desk/notes/parameter_meanings.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/members.h"
#include "desk/open/pure_component.h"
#include "desk/open/unfinished_change.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/number_range.h"
#include "output/progress.h"

namespace zelhost {
namespace {

struct Options {
  std::string path;
  std::string bank;
  std::vector<std::string> words;
  bool complete = false;
  std::string text;
  std::string name;
  std::string id;
  std::string cas;
  std::string formula;
  std::string boiling;
  std::string weight;
};

void AddIdentity(PureComponent const& component, Report& report) {
  Identity const identity = component.ReadIdentity();
  report.Fact("number", std::int64_t{identity.number});
  report.Fact("name", Text(identity.name));
  report.Fact("formula", Text(identity.formula));
  report.Fact("CAS number", Text(identity.cas));
  report.Fact("IDs", Texts(identity.ids));
  report.Fact("SMILES", Text(component.Smiles()));
  report.Fact("phases", PhasesOf(component));
}

// The citations of codes of one bank.
class BankCitations {
 public:
  BankCitations(Library const& library, BankName bank)
      : library_(library), bank_(std::move(bank)) {}
  Cell Of(std::uint32_t code) { return cited_.Cite("", citations_.Find(library_, bank_, code)); }
  void AddTo(Report& report) const {
    if (!cited_.Empty()) report.Add(cited_.ToTable(false));
  }

 private:
  Library const& library_;
  BankName bank_;
  Citations citations_;
  CitedCodes cited_;
};

void AddConstants(PureComponent& component, bool complete, BankCitations& citations,
                  Report& report) {
  Table& table = report.Begin(
      "constants",
      {{"keyword", ""}, {"value", ""}, {"unit", ""}, {"code", ""}, {"from", ""}, CitationColumn()});
  for (auto const& row : Constants()) {
    double const stored = component.Constant(row.index);
    double const value = complete ? component.Completed(row.index) : stored;
    if (zel::gen_IsUndefDouble(value)) continue;
    std::uint32_t const code = component.ConstantCode(row.index);
    table.Add(row.keyword, Number(value), Text(row.unit), Code(code),
              Text(component.ConstantSource(row.index)), citations.Of(code));
  }
}

// The range is in the record's unit of temperatures, in which the coefficients are, or in the
// display unit if units were chosen; the head then says so.
void AddCurves(PureComponent const& component, DisplayUnits const& units, BankCitations& citations,
               Report& report) {
  std::string const shownIn = units.AreInternal() ? "" : units.UnitFor("K");
  Table& table = report.Begin("correlations", {{"name", ""},
                                               {"equation", ""},
                                               {"from T", shownIn},
                                               {"to T", shownIn},
                                               {"T in", ""},
                                               {"unit", ""},
                                               {"per", ""},
                                               {"code", ""},
                                               CitationColumn()});
  for (auto const& row : Correlations()) {
    Curve const curve = component.ReadCurve(IndexOf(row));
    if (!curve.present) continue;
    std::string const stored = TemperatureUnit(curve.tempUnit);
    table.Add(row.name, std::int64_t{curve.equation}, Number(units.Shown(curve.tMin, stored)),
              Number(units.Shown(curve.tMax, stored)), stored, UnitOf(curve), BasisOf(curve),
              Code(curve.refCode), citations.Of(curve.refCode));
  }
  Table& numbers = report.Begin("coefficients", {{"name", ""}, {"C", ""}, {"value", ""}});
  for (auto const& row : Correlations()) {
    Curve const curve = component.ReadCurve(IndexOf(row));
    for (std::size_t i = 0; curve.present && i < curve.coefficients.size(); ++i) {
      numbers.Add(row.name, static_cast<std::int64_t>(i + 1), Number(curve.coefficients[i]));
    }
  }
}

void AddGroups(PureComponent const& component, Report& report) {
  std::vector<std::string> const& models = StructureModels();
  Table& table = report.Begin("groups", {{"model", ""}, {"group", ""}, {"count", ""}});
  for (std::uint32_t model = 0; model < models.size(); ++model) {
    std::int32_t count = 0;
    std::int32_t ids[10] = {};
    std::int32_t counts[10] = {};
    if (component->GetRawStructure(model, &count, ids, counts) != zel::kStatusOk) continue;
    for (std::int32_t i = 0; i < count; ++i) {
      table.Add(models[model], std::int64_t{ids[i]}, std::int64_t{counts[i]});
    }
  }
}

// The mark of the library, which asks for care with its data.
void AddMark(Library const& library, Report& report) {
  if (!library.File().IsPasswordLocked()) return;
  report.Warning("protected", "the library marks its data as protected (password level 2)");
}

Report ShowComponent(Library const& library, BankName const& bank, Options const& o) {
  PureComponent component;
  zel::Handle<zel::Key> const key = KeyIn(library, *component.Def(), o.words);
  if (!library.Maint().ReadItem(component.Def(), bank.name.c_str(), key.get())) {
    throw Failure(library.Path() + ": bank " + ToText(bank) + " has no item " + Joined(o.words) +
                  WhyNotFound(library, *component.Def(), o.words));
  }
  if (o.complete) component.Complete();
  Report report;
  BankCitations citations(library, bank);
  AddIdentity(component, report);
  AddMark(library, report);
  AddConstants(component, o.complete, citations, report);
  AddCurves(component, library.InSession().units, citations, report);
  AddGroups(component, report);
  citations.AddTo(report);
  return report;
}

Report Show(Session& session, Options const& o) {
  Library const library = OpenFinished(session, o.path);
  BankName const bank = library.Bank(o.bank);
  if (bank.type == kPureType) return ShowComponent(library, bank, o);
  zel::Handle<zel::IZelBankDef> const item = BankOfType(bank.type);
  zel::Handle<zel::Key> const key = KeyIn(library, *item, o.words);
  if (!library.Maint().ReadItem(item.get(), bank.name.c_str(), key.get())) {
    throw Failure(library.Path() + ": bank " + ToText(bank) + " has no item " + Joined(o.words) +
                  WhyNotFound(library, *item, o.words));
  }
  char source[260] = {};
  std::uint8_t isProtected = 0;
  item->GetSource(source, &isProtected);
  Report report;
  std::vector<std::string> const words = ItemWords(library, *item, o.words);
  report.Fact("item", Joined(words));
  report.JsonFacts(ItemColumns(), ItemMembers(ToText(bank), words));
  report.Fact("from", Text(source));
  AddMark(library, report);
  Table& table =
      report.Begin("fields", {{"field", ""}, {"value", ""}, {"unit", ""}, {"label", ""}});
  for (Field const& field : FieldsIn(library, bank, *item)) {
    std::vector<Cell> row = RowOf(field.name, ValueOf(*item, field),
                                  field.unit == "-" ? Cell() : Text(field.unit), Text(field.label));
    field.isNoteUnit ? table.AddAsIs(std::move(row)) : table.Add(std::move(row));
  }
  Table meanings("parameters", MeaningColumns(""));
  AddMeanings(MeaningIn(library, bank, *item), "", meanings);
  if (!meanings.Empty()) report.Add(std::move(meanings));
  CodeCounts codes;
  AddCodes(*item, codes);
  BankCitations citations(library, bank);
  for (auto const& [code, count] : codes) citations.Of(code);
  citations.AddTo(report);
  return report;
}

bool AnyMatches(std::string const& pattern, std::vector<std::string> const& texts) {
  if (pattern.empty()) return true;
  for (std::string const& text : texts) {
    if (Matches(pattern, text)) return true;
  }
  return false;
}

// True if the text is a part of the name, an ID, the CAS number, the formula or the number.
bool IsMeant(std::string const& text, Identity const& identity) {
  if (text.empty()) return true;
  std::vector<std::string> others = identity.ids;
  others.insert(others.end(), {identity.cas, identity.formula, std::to_string(identity.number)});
  bool const isOther = std::any_of(others.begin(), others.end(), [&](std::string const& one) {
    return LowerCase(one) == LowerCase(text);
  });
  return isOther || LowerCase(identity.name).find(LowerCase(text)) != std::string::npos;
}

Report Find(Session& session, Options const& o) {
  std::optional<Span> const boiling =
      ParseTemperatureSpan(o.boiling, "a boiling point", session.units);
  std::optional<Span> const weight = ParseSpan(o.weight, "a molecular weight");
  Library const library = OpenFinished(session, o.path);
  Report report;
  Table& table = report.Begin("components", {{"bank", ""},
                                             {"number", "", true},
                                             {"id", ""},
                                             {"cas", ""},
                                             {"formula", ""},
                                             {"MW", ""},
                                             {"NBP", "K"},
                                             {"name", ""}});
  std::vector<BankName> banks = library.Banks(kPureType);
  if (!o.bank.empty()) banks = {library.ComponentBank(o.bank)};
  Waiting const waiting("searching " + o.path);
  PureComponent component;
  for (BankName const& bank : banks) {
    std::int32_t words[10] = {};
    library.Walk(bank, [&] {
      library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
      while (library.Maint().NextItem(words, component.Def())) {
        Identity const identity = component.ReadIdentity();
        double const nbp = component.Constant(zel::propertyNBP);
        double const mw = component.Constant(zel::propertyMW);
        bool const fits = IsMeant(o.text, identity) && AnyMatches(o.name, {identity.name}) &&
                          AnyMatches(o.id, identity.ids) && AnyMatches(o.cas, {identity.cas}) &&
                          AnyMatches(o.formula, {identity.formula}) &&
                          (!boiling || boiling->Has(nbp)) && (!weight || weight->Has(mw));
        if (!fits) continue;
        table.Add(bank.name, std::int64_t{identity.number}, Text(identity.FirstId()),
                  Text(identity.cas), Text(identity.formula), Number(mw), Number(nbp),
                  Text(identity.name));
      }
    });
  }
  report.Fact("found", static_cast<std::int64_t>(table.Rows().size()));
  return report;
}

}  // namespace

void AddShowCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command(line, "show", "Show everything in one item",
          "zel show sample.lb1 NRTL ETHANOL WATER --names perry.lb1")
      .Argument("LIBRARY", o->path, "a library file")
      .Library(o->path)
      .Argument("BANK", o->bank, "a name, a type, or TYPE:NAME")
      .Argument("ITEM", o->words, "its components, numbers or text")
      .Flag("--complete", o->complete, "for a pure component: derive missing constants")
      .Run(Outputs::kJsonAndCsv, [o](Session& session) { return Show(session, *o); });
  Command find(line, "find", "Find components by their properties",
               "zel find crc.lb1 --name \"*butan*\" --nbp 250:320");
  find.Argument("LIBRARY", o->path, "a library file")
      .Library(o->path)
      .OptionalArgument("TEXT", o->text, "part of a name, or an ID, CAS number or formula")
      .Option("--bank", o->bank, "look in this bank only", "BANK")
      .Option("--name", o->name, "\"*\" matches any text, \"?\" one character", "PATTERN")
      .Option("--id", o->id, "the same for the IDs", "PATTERN")
      .Option("--cas", o->cas, "the same for the CAS number", "PATTERN")
      .Option("--formula", o->formula, "the same for the formula", "PATTERN")
      .Option("--nbp", o->boiling, "normal boiling point; K unless --units says", "MIN:MAX")
      .Option("--mw", o->weight, "molecular weight; an end may be missing", "MIN:MAX");
  AddStrict(find);
  find.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Find(session, *o); });
}

}  // namespace zelhost
