// search, why, coverage
#include <algorithm>
#include <memory>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/open/fields.h"
#include "desk/open/preference_list.h"
#include "desk/words/failure.h"

namespace zelhost {
namespace {

struct Options {
  SourceOptions sources;
  std::vector<std::string> components;
  std::string component;
  std::string datum;
  bool details = false;
};

enum class State { kStored, kFilledIn, kMissing };

State StateOf(PureComponent const& component, std::uint32_t index) {
  switch (component.State(index)) {
    case zel::constantStored: return State::kStored;
    case zel::constantFilledIn: return State::kFilledIn;
    default: return State::kMissing;
  }
}

char const* Word(State state) {
  switch (state) {
    case State::kStored: return "stored";
    case State::kFilledIn: return "filled in";
    default: return "missing";
  }
}

struct Counts {
  std::int64_t stored = 0;
  std::int64_t filledIn = 0;
  std::int64_t missing = 0;
  std::int64_t curves = 0;
};

Counts CountOf(PureComponent const& component) {
  Counts counts;
  for (auto const& row : Constants()) {
    switch (StateOf(component, row.index)) {
      case State::kStored: ++counts.stored; break;
      case State::kFilledIn: ++counts.filledIn; break;
      case State::kMissing: ++counts.missing; break;
    }
  }
  for (auto const& row : Correlations()) {
    if (component.ReadCurve(IndexOf(row)).present) ++counts.curves;
  }
  return counts;
}

void AddWarning(PureComponent const& component, Report& report) {
  std::uint8_t flag = 0;
  char text[260] = {};
  component->GetConsistencyWarning(&flag, text);
  if (flag != 0) report.Warning("warning", Text(text));
}

Report Search(Session& session, Options const& o) {
  PreferenceList list(session, o.sources);
  PureComponent component;
  list.Search(o.component, component);
  Identity const identity = component.ReadIdentity();
  Report report;
  report.Fact("component", identity.name);
  report.Fact("number", std::int64_t{identity.number});
  report.Fact("formula", Text(identity.formula));
  report.Fact("CAS number", Text(identity.cas));
  AddWarning(component, report);
  Table& gave = report.Begin(
      "sources", {{"source", ""}, {"found", ""}, {"constants", ""}, {"correlations", ""}});
  for (std::size_t i = 0; i < list.Count(); ++i) {
    PureComponent part;
    bool const found = list.Read(i, o.component, part);
    Counts const counts = found ? CountOf(part) : Counts{};
    gave.Add(list.Name(i), found, found ? Cell(counts.stored) : Cell(),
             found ? Cell(counts.curves) : Cell());
  }
  Table& constants = report.Begin(
      "constants", {{"keyword", ""}, {"value", ""}, {"unit", ""}, {"state", ""}, {"from", ""}});
  for (auto const& row : Constants()) {
    State const state = StateOf(component, row.index);
    if (state == State::kMissing) continue;
    constants.Add(row.keyword, Number(component.Completed(row.index)), Text(row.unit), Word(state),
                  Text(component.ConstantSource(row.index)));
  }
  Table& curves =
      report.Begin("correlations", {{"name", ""}, {"equation", ""}, {"range", ""}, {"from", ""}});
  for (auto const& row : Correlations()) {
    Curve const curve = component.ReadCurve(IndexOf(row));
    if (!curve.present) continue;
    curves.Add(row.name, std::int64_t{curve.equation}, RangeOf(curve, session.units),
               Text(curve.source));
  }
  AddWarnings(list, report);
  return report;
}

void WhyConstant(zel::ZelConstantInfo const& info, Options const& o, PreferenceList const& list,
                 PureComponent const& merged, Report& report) {
  State const state = StateOf(merged, info.index);
  report.Fact("datum", info.keyword + (", " + std::string(info.label)));
  report.Fact("value", Number(merged.Completed(info.index)));
  report.Fact("unit", Text(info.unit));
  report.Fact("state", std::string(Word(state)));
  // In internal units the fact above says the unit.
  std::string const unit = list.Units().AreInternal() ? "" : info.unit;
  Table table("sources", {{"source", ""}, {"value", unit}, {"code", ""}, {"result", ""}});
  // The name in the row that won distinguishes libraries with the same file name.
  std::string from = merged.ConstantSource(info.index);
  bool won = false;
  for (std::size_t i = 0; i < list.Count(); ++i) {
    PureComponent part;
    if (!list.Read(i, o.component, part)) {
      table.Add(list.Name(i), Cell(), Cell(), "does not have the component");
      continue;
    }
    double const value = part.Constant(info.index);
    bool const has = !zel::gen_IsUndefDouble(value);
    table.Add(list.Name(i), Number(value), Code(part.ConstantCode(info.index)),
              !has  ? "has no value"
              : won ? "comes later"
                    : "won");
    if (has && !won) from = list.Name(i);
    won = won || has;
  }
  report.Fact("from", Text(from));
  report.Add(std::move(table));
}

void WhyCurve(zel::ZelCorrelationInfo const& info, Options const& o, PreferenceList const& list,
              PureComponent const& merged, Report& report) {
  Curve const curve = merged.ReadCurve(IndexOf(info));
  report.Fact("datum", info.name + (", " + std::string(info.label)));
  report.Fact("state", std::string(Word(curve.present ? State::kStored : State::kMissing)));
  Table table("sources",
              {{"source", ""}, {"equation", ""}, {"range", ""}, {"code", ""}, {"result", ""}});
  std::string from = curve.source;
  bool won = false;
  for (std::size_t i = 0; i < list.Count(); ++i) {
    PureComponent part;
    if (!list.Read(i, o.component, part)) {
      table.Add(list.Name(i), Cell(), Cell(), Cell(), "does not have the component");
      continue;
    }
    Curve const own = part.ReadCurve(IndexOf(info));
    if (!own.present) {
      table.Add(list.Name(i), Cell(), Cell(), Cell(), "has no correlation");
      continue;
    }
    table.Add(list.Name(i), std::int64_t{own.equation}, RangeOf(own, list.Units()),
              Code(own.refCode), won ? "comes later" : "won");
    if (!won) from = list.Name(i);
    won = true;
  }
  report.Fact("from", Text(from));
  report.Add(std::move(table));
}

Report Why(Session& session, Options const& o) {
  zel::ZelConstantInfo const* const constant = FindConstant(o.datum);
  zel::ZelCorrelationInfo const* const curve = FindCorrelation(o.datum);
  if (constant == nullptr && curve == nullptr) {
    throw Failure("\"" + o.datum + "\" is neither a constant nor a correlation" +
                  DidYouMeanDatum(o.datum) + " `zel types " + kPureType + "` lists them");
  }
  PreferenceList list(session, o.sources);
  PureComponent merged;
  list.Search(o.component, merged);
  Report report;
  report.Fact("component", merged.ReadIdentity().name);
  if (constant != nullptr) {
    WhyConstant(*constant, o, list, merged, report);
  } else {
    WhyCurve(*curve, o, list, merged, report);
  }
  AddWarnings(list, report);
  return report;
}

// A component that was found, and the number that it has in each library; empty if that number is
// another substance there.
struct Covered {
  std::string word;
  std::vector<std::string> numbers;
};

// The numbers are those of the library's own components; without components, the common ones.
Covered NumbersOf(std::string const& word, PureComponent const& merged,
                  PreferenceList const& list) {
  zel::ZelIdentity const identity = merged.Compared();
  std::string const common = std::to_string(identity.number);
  Covered covered{word, {}};
  for (Library const& library : list.Libraries()) {
    std::string number = common;
    for (BankName const& bank : library.Banks(kPureType)) {
      PureComponent const own;
      PureComponent const namesake;
      if (ReadComponent(library, bank, word, own)) {
        number = std::to_string(own.Compared().number);
      } else if (ReadComponent(library, bank, common, namesake)) {
        if (zel::CompareIdentities(identity, namesake.Compared()) != zel::identityAgrees)
          number = "";
      }
    }
    covered.numbers.push_back(number);
  }
  return covered;
}

// The first bank of a type that has the pair, over the libraries in their order.
std::string SourceOfPair(PreferenceList const& list, std::string const& type, Covered const& one,
                         Covered const& other) {
  zel::Handle<zel::IZelBankDef> const item = BankOfType(type);
  for (std::size_t i = 0; i < list.Libraries().size(); ++i) {
    Library const& library = list.Libraries()[i];
    if (one.numbers[i].empty() || other.numbers[i].empty()) continue;
    for (BankName const& bank : library.Banks(type)) {
      zel::Handle<zel::Key> const key = KeyIn(library, *item, {one.numbers[i], other.numbers[i]});
      if (library.Maint().ItemExists(item.get(), bank.name.c_str(), key.get())) {
        return library.Path() + ":" + bank.name;
      }
    }
  }
  return "";
}

// The types of component pairs for which any of the libraries has a bank.
std::vector<std::string> PairTypes(PreferenceList const& list) {
  std::vector<std::string> types;
  for (Library const& library : list.Libraries()) {
    for (BankName const& bank : library.Banks()) {
      zel::Handle<zel::IZelBankDef> const item = BankOrNone(bank.type);
      if (!item) continue;
      BankFacts const facts(*item);
      bool const isNew = std::find(types.begin(), types.end(), bank.type) == types.end();
      if (facts.keyKind == 0 && facts.keyWords == 2 && isNew) types.push_back(bank.type);
    }
  }
  return types;
}

void AddPairs(std::vector<Covered> const& components, PreferenceList const& list, Report& report) {
  Table& table = report.Begin("pairs", {{"model", ""}, {"pair", ""}, {"state", ""}, {"from", ""}});
  for (std::string const& type : PairTypes(list)) {
    for (std::size_t i = 0; i < components.size(); ++i) {
      for (std::size_t k = i + 1; k < components.size(); ++k) {
        std::string const from = SourceOfPair(list, type, components[i], components[k]);
        table.Add(type, Joined({components[i].word, components[k].word}),
                  Word(from.empty() ? State::kMissing : State::kStored), Text(from));
      }
    }
  }
}

void AddDetails(std::string const& word, PureComponent const& component, Table& table) {
  for (auto const& row : Constants()) {
    table.Add(word, row.keyword, Word(StateOf(component, row.index)),
              Text(component.ConstantSource(row.index)));
  }
  for (auto const& row : Correlations()) {
    Curve const curve = component.ReadCurve(IndexOf(row));
    table.Add(word, row.name, Word(curve.present ? State::kStored : State::kMissing),
              Text(curve.source));
  }
}

Report Coverage(Session& session, Options const& o) {
  PreferenceList list(session, o.sources);
  Report report;
  Table summary("components", {{"component", ""},
                               {"stored", ""},
                               {"filled in", ""},
                               {"missing", ""},
                               {"correlations", ""},
                               {"name", ""}});
  Table details("data", {{"component", ""}, {"datum", ""}, {"state", ""}, {"from", ""}});
  std::vector<Covered> covered;
  for (std::string const& given : o.components) {
    std::string const& word = list.Lookup(given);
    PureComponent component;
    list.Search(word, component);
    Counts const counts = CountOf(component);
    summary.Add(word, counts.stored, counts.filledIn, counts.missing, counts.curves,
                component.ReadIdentity().name);
    if (o.details) AddDetails(word, component, details);
    covered.push_back(NumbersOf(word, component, list));
  }
  if (o.details) report.Add(std::move(details));
  report.Add(std::move(summary));
  if (covered.size() > 1) AddPairs(covered, list, report);
  AddWarnings(list, report);
  return report;
}

}  // namespace

void AddSearchCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command search(line, "search", "Merge a component from libraries and complete it",
                 "zel search ETHANOL -l perry.lb1:PERRY -l crc.lb1");
  search.Argument("COMPONENT", o->component, "by number, ID, CAS number or name");
  AddSourceOptions(search, o->sources);
  search.Run(Outputs::kJson, [o](Session& session) { return Search(session, *o); });
  Command why(line, "why", "Show where one datum of a component comes from",
              "zel why ETHANOL TC -l perry.lb1 -l crc.lb1");
  why.Argument("COMPONENT", o->component, "by number, ID, CAS number or name")
      .Argument("DATUM", o->datum, "keyword of a constant or name of a correlation");
  AddSourceOptions(why, o->sources);
  why.Run(Outputs::kJson, [o](Session& session) { return Why(session, *o); });
  Command coverage(line, "coverage", "Show what components have, and what is missing",
                   "zel coverage ETHANOL WATER BENZENE -l perry.lb1 -l sample.lb1");
  coverage.Argument("COMPONENT", o->components,
                    "by number, ID, CAS number or name; one or several");
  AddSourceOptions(coverage, o->sources);
  coverage.Flag("--details", o->details, "every datum with its source")
      .Run(Outputs::kJsonAndCsv, [o](Session& session) { return Coverage(session, *o); });
}

}  // namespace zelhost
