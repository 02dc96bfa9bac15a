// search, why, coverage
#include <algorithm>
#include <memory>

#include "command.h"
#include "failure.h"
#include "fields.h"
#include "sources.h"

namespace zelhost {
namespace {

struct Options {
  std::vector<std::string> libraries;
  std::vector<std::string> components;
  std::string component;
  std::string datum;
  bool details = false;
};

enum class State { kStored, kFilledIn, kMissing };

State StateOf(PureComponent const& component, std::uint32_t index) {
  if (!zel::gen_IsUndefDouble(component.Constant(index))) return State::kStored;
  return zel::gen_IsUndefDouble(component.Completed(index)) ? State::kMissing : State::kFilledIn;
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

std::string RangeText(Curve const& curve) {
  return CellText(Number(curve.tMin)) + " to " + CellText(Number(curve.tMax)) + " " +
         TemperatureUnit(curve.tempUnit);
}

void AddWarning(PureComponent const& component, Report& report) {
  std::uint8_t flag = 0;
  char text[260] = {};
  component->GetConsistencyWarning(&flag, text);
  if (flag != 0) report.Fact("warning", Text(text));
}

Report Search(Options const& o) {
  Sources const sources(o.libraries);
  PureComponent component;
  sources.Search(o.component, component);
  Identity const identity = component.ReadIdentity();
  Report report;
  report.Fact("component", identity.name);
  report.Fact("number", std::int64_t{identity.number});
  report.Fact("formula", Text(identity.formula));
  report.Fact("CAS number", Text(identity.cas));
  AddWarning(component, report);
  Table& gave = report.Begin(
      "sources", {{"source", ""}, {"found", ""}, {"constants", ""}, {"correlations", ""}});
  for (std::size_t i = 0; i < sources.Count(); ++i) {
    PureComponent part;
    bool const found = sources.Read(i, o.component, part);
    Counts const counts = found ? CountOf(part) : Counts{};
    gave.Add({sources.Name(i), found, found ? Cell(counts.stored) : Cell(),
              found ? Cell(counts.curves) : Cell()});
  }
  Table& constants = report.Begin(
      "constants", {{"keyword", ""}, {"value", ""}, {"unit", ""}, {"state", ""}, {"from", ""}});
  for (auto const& row : Constants()) {
    State const state = StateOf(component, row.index);
    if (state == State::kMissing) continue;
    constants.Add({row.keyword, Number(component.Completed(row.index)), Text(row.unit), Word(state),
                   Text(component.ConstantSource(row.index))});
  }
  Table& curves =
      report.Begin("correlations", {{"name", ""}, {"equation", ""}, {"range", ""}, {"from", ""}});
  for (auto const& row : Correlations()) {
    Curve const curve = component.ReadCurve(IndexOf(row));
    if (!curve.present) continue;
    curves.Add({row.name, std::int64_t{curve.equation}, RangeText(curve), Text(curve.source)});
  }
  return report;
}

void WhyConstant(zel::ZelConstantInfo const& info, Options const& o, Sources const& sources,
                 PureComponent const& merged, Report& report) {
  State const state = StateOf(merged, info.index);
  report.Fact("datum", info.keyword + (", " + std::string(info.label)));
  report.Fact("value", Number(merged.Completed(info.index)));
  report.Fact("unit", Text(info.unit));
  report.Fact("state", std::string(Word(state)));
  Table table("sources", {{"source", ""}, {"value", ""}, {"code", ""}, {"result", ""}});
  // Libraries of one file name are told apart by the row that won.
  std::string from = merged.ConstantSource(info.index);
  bool won = false;
  for (std::size_t i = 0; i < sources.Count(); ++i) {
    PureComponent part;
    if (!sources.Read(i, o.component, part)) {
      table.Add({sources.Name(i), Cell(), Cell(), "does not have the component"});
      continue;
    }
    double const value = part.Constant(info.index);
    bool const has = !zel::gen_IsUndefDouble(value);
    table.Add({sources.Name(i), Number(value), Code(part.ConstantCode(info.index)),
               !has  ? "has no value"
               : won ? "comes later"
                     : "won"});
    if (has && !won) from = sources.Name(i);
    won = won || has;
  }
  report.Fact("from", Text(from));
  report.Add(std::move(table));
}

void WhyCurve(zel::ZelCorrelationInfo const& info, Options const& o, Sources const& sources,
              PureComponent const& merged, Report& report) {
  Curve const curve = merged.ReadCurve(IndexOf(info));
  report.Fact("datum", info.name + (", " + std::string(info.label)));
  report.Fact("state", std::string(Word(curve.present ? State::kStored : State::kMissing)));
  Table table("sources",
              {{"source", ""}, {"equation", ""}, {"range", ""}, {"code", ""}, {"result", ""}});
  std::string from = curve.source;
  bool won = false;
  for (std::size_t i = 0; i < sources.Count(); ++i) {
    PureComponent part;
    if (!sources.Read(i, o.component, part)) {
      table.Add({sources.Name(i), Cell(), Cell(), Cell(), "does not have the component"});
      continue;
    }
    Curve const own = part.ReadCurve(IndexOf(info));
    if (!own.present) {
      table.Add({sources.Name(i), Cell(), Cell(), Cell(), "has no correlation"});
      continue;
    }
    table.Add({sources.Name(i), std::int64_t{own.equation}, RangeText(own), Code(own.refCode),
               won ? "comes later" : "won"});
    if (!won) from = sources.Name(i);
    won = true;
  }
  report.Fact("from", Text(from));
  report.Add(std::move(table));
}

Report Why(Options const& o) {
  zel::ZelConstantInfo const* const constant = FindConstant(o.datum);
  zel::ZelCorrelationInfo const* const curve = FindCorrelation(o.datum);
  if (constant == nullptr && curve == nullptr) {
    throw Failure("\"" + o.datum + "\" is no constant and no correlation; `zel types " + kPureType +
                  "` lists them");
  }
  Sources const sources(o.libraries);
  PureComponent merged;
  sources.Search(o.component, merged);
  Report report;
  report.Fact("component", merged.ReadIdentity().name);
  if (constant != nullptr) {
    WhyConstant(*constant, o, sources, merged, report);
  } else {
    WhyCurve(*curve, o, sources, merged, report);
  }
  return report;
}

// The first bank of a type, over the libraries in their order, that has the pair.
std::string SourceOfPair(Sources const& sources, std::string const& type,
                         std::vector<std::string> const& pair) {
  zel::Handle<zel::IZelBankDef> const item = BankOfType(type);
  for (Library const& library : sources.Libraries()) {
    for (BankName const& bank : library.Banks(type)) {
      zel::Handle<zel::Key> const key = KeyOf(*item, pair);
      if (library.Maint().ItemExists(item.get(), bank.name.c_str(), key.get())) {
        return library.Path() + ":" + bank.name;
      }
    }
  }
  return "";
}

// Types of pairs of components that any of the libraries has a bank of.
std::vector<std::string> PairTypes(Sources const& sources) {
  std::vector<std::string> types;
  for (Library const& library : sources.Libraries()) {
    for (BankName const& bank : library.Banks()) {
      zel::Handle<zel::IZelBankDef> const item(zel::NewBank(bank.type.c_str()));
      if (!item) continue;
      BankFacts const facts(*item);
      bool const isNew = std::find(types.begin(), types.end(), bank.type) == types.end();
      if (facts.keyKind == 0 && facts.keyWords == 2 && isNew) types.push_back(bank.type);
    }
  }
  return types;
}

// `numbers` are the components' numbers, for a library of pairs alone knows no IDs; empty for one
// that no library has.
void AddPairs(Options const& o, std::vector<std::string> const& numbers, Sources const& sources,
              Report& report) {
  Table& table = report.Begin("pairs", {{"model", ""}, {"pair", ""}, {"state", ""}, {"from", ""}});
  for (std::string const& type : PairTypes(sources)) {
    for (std::size_t i = 0; i < o.components.size(); ++i) {
      for (std::size_t k = i + 1; k < o.components.size(); ++k) {
        bool const areKnown = !numbers[i].empty() && !numbers[k].empty();
        std::string const from =
            areKnown ? SourceOfPair(sources, type, {numbers[i], numbers[k]}) : "";
        table.Add({type, Joined({o.components[i], o.components[k]}),
                   Word(from.empty() ? State::kMissing : State::kStored), Text(from)});
      }
    }
  }
}

void AddDetails(std::string const& word, PureComponent const& component, Table& table) {
  for (auto const& row : Constants()) {
    table.Add({word, row.keyword, Word(StateOf(component, row.index)),
               Text(component.ConstantSource(row.index))});
  }
  for (auto const& row : Correlations()) {
    Curve const curve = component.ReadCurve(IndexOf(row));
    table.Add({word, row.name, Word(curve.present ? State::kStored : State::kMissing),
               Text(curve.source)});
  }
}

Report Coverage(Options const& o) {
  Sources const sources(o.libraries);
  Report report;
  Table summary("components", {{"component", ""},
                               {"stored", ""},
                               {"filled in", ""},
                               {"missing", ""},
                               {"correlations", ""},
                               {"name", ""}});
  Table details("data", {{"component", ""}, {"datum", ""}, {"state", ""}, {"from", ""}});
  std::vector<std::string> numbers;
  for (std::string const& word : o.components) {
    PureComponent component;
    if (!sources.Find(word, component)) {
      summary.Add({word, std::int64_t{0}, std::int64_t{0},
                   static_cast<std::int64_t>(Constants().size()), std::int64_t{0}, Cell()});
      numbers.emplace_back();
      continue;
    }
    Identity const identity = component.ReadIdentity();
    Counts const counts = CountOf(component);
    summary.Add(
        {word, counts.stored, counts.filledIn, counts.missing, counts.curves, identity.name});
    numbers.push_back(std::to_string(identity.number));
    if (o.details) AddDetails(word, component, details);
  }
  // As CSV the first table is printed.
  if (o.details) report.Add(std::move(details));
  report.Add(std::move(summary));
  if (o.components.size() > 1) AddPairs(o, numbers, sources, report);
  return report;
}

}  // namespace

void AddSearchCommands(CLI::App& app) {
  auto const o = std::make_shared<Options>();
  Command(app, "search", "Merge a component over libraries, then complete it",
          "zel search ETHANOL -l perry.lb1:PERRY -l crc.lb1")
      .Argument("COMPONENT", o->component, "by number, ID or CAS number")
      .Required("-l,--lib", o->libraries, kSourceHelp, "SOURCE")
      .Run(Outputs::kJson, [o] { return Search(*o); });
  Command(app, "why", "Tell where one datum of a component comes from",
          "zel why ETHANOL TC -l perry.lb1 -l crc.lb1")
      .Argument("COMPONENT", o->component, "by number, ID or CAS number")
      .Argument("DATUM", o->datum, "keyword of a constant or name of a correlation")
      .Required("-l,--lib", o->libraries, kSourceHelp, "SOURCE")
      .Run(Outputs::kJson, [o] { return Why(*o); });
  Command(app, "coverage", "Tell what components have, and what is missing",
          "zel coverage ETHANOL WATER BENZENE -l perry.lb1 -l sample.lb1")
      .Argument("COMPONENT", o->components, "by number, ID or CAS number; one or several")
      .Required("-l,--lib", o->libraries, kSourceHelp, "SOURCE")
      .Flag("--details", o->details, "every datum with its source")
      .Run(Outputs::kJsonAndCsv, [o] { return Coverage(*o); });
}

}  // namespace zelhost
