// search, why
#include <memory>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/compare/coverage.h"
#include "desk/open/preference_list.h"
#include "desk/words/failure.h"

namespace zelhost {
namespace {

struct Options {
  SourceOptions sources;
  std::string component;
  std::string datum;
};

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
    DatumCounts const counts = found ? CountOf(part) : DatumCounts{};
    gave.Add(list.Name(i), found, found ? Cell(counts.stored) : Cell(),
             found ? Cell(counts.curves) : Cell());
  }
  Table& constants = report.Begin(
      "constants", {{"keyword", ""}, {"value", ""}, {"unit", ""}, {"state", ""}, {"from", ""}});
  for (auto const& row : Constants()) {
    DatumState const state = StateOf(component, row.index);
    if (state == DatumState::kMissing) continue;
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
  DatumState const state = StateOf(merged, info.index);
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
  report.Fact("state",
              std::string(Word(curve.present ? DatumState::kStored : DatumState::kMissing)));
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
}

}  // namespace zelhost
