// search, why
#include <memory>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/compare/contenders.h"
#include "desk/compare/coverage.h"
#include "desk/notes/cited_codes.h"
#include "desk/notes/merged_citations.h"
#include "desk/open/members.h"
#include "desk/open/preference_list.h"
#include "desk/words/failure.h"

namespace zelhost {
namespace {

struct Options {
  SourceOptions sources;
  std::string component;
  std::string datum;
};

// The citation of a datum, which is noted under the name of its source; null without one.
Citation const* CitationIn(std::map<std::uint32_t, Citation> const& citations,
                           std::uint32_t index) {
  auto const at = citations.find(index);
  return at == citations.end() ? nullptr : &at->second;
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
    DatumCounts const counts = found ? CountOf(part) : DatumCounts{};
    gave.Add(list.Name(i), found, found ? Cell(counts.stored) : Cell(),
             found ? Cell(counts.curves) : Cell());
  }
  Citations citations;
  MergedCitations const merged = CitationsOf(list, o.component, citations);
  CitedCodes cited;
  Table& constants = report.Begin("constants", {{"keyword", ""},
                                                {"value", ""},
                                                {"unit", ""},
                                                {"state", ""},
                                                {"from", ""},
                                                {"code", ""},
                                                CitationColumn()});
  for (auto const& row : Constants()) {
    DatumState const state = StateOf(component, row.index);
    if (state == DatumState::kMissing) continue;
    constants.Add(
        row.keyword, Number(component.Completed(row.index)), Text(row.unit), Word(state),
        Text(component.ConstantSource(row.index)), Code(component.ConstantCode(row.index)),
        cited.Cite(component.ConstantSource(row.index), CitationIn(merged.constants, row.index)));
  }
  std::vector<Column> heads = {{"name", ""}, {"equation", ""}, {"range", ""},
                               {"from", ""}, {"code", ""},     CitationColumn()};
  Append(heads, RangeColumns());
  Table curves("correlations", std::move(heads));
  for (auto const& row : Correlations()) {
    Curve const curve = component.ReadCurve(IndexOf(row));
    if (!curve.present) continue;
    std::vector<Cell> cells = RowOf(
        row.name, std::int64_t{curve.equation}, RangeOf(curve, session.units), Text(curve.source),
        Code(curve.refCode), cited.Cite(curve.source, CitationIn(merged.curves, IndexOf(row))));
    Append(cells, RangeMembers(curve, session.units));
    curves.Add(std::move(cells));
  }
  report.Add(std::move(curves), RangeColumns());
  if (!cited.Empty()) report.Add(cited.ToTable(true));
  AddWarnings(list, report);
  return report;
}

// CSV leaves facts out: a table has them instead, whose unit is in the column `unit`.
void AddDatumTable(Report& report) {
  std::vector<Column> columns;
  std::vector<Cell> cells;
  for (Report::NamedFact const& fact : report.Facts()) {
    if (fact.isWarning) continue;
    columns.push_back({fact.name, ""});
    cells.push_back(fact.value);
  }
  Table table("datum", std::move(columns));
  table.Add(std::move(cells));
  report.AddFirst(std::move(table));
}

// The citations of the data that compete, under the names of their sources.
class CitedSources {
 public:
  explicit CitedSources(PreferenceList const& list) : list_(list) {}

  // The citation of source `i`; `hasWon` if its datum is the one that is used.
  Cell Of(std::size_t i, std::uint32_t code, bool hasWon) {
    Citation const* const found = citations_.Find(LibraryAt(list_, i), BankAt(list_, i), code);
    if (hasWon && found != nullptr) used_ = *found;
    return cited_.Cite(list_.Name(i), found);
  }
  void AddFacts(Report& report) const {
    if (used_.code == 0) return;
    report.Fact("citation", Text(used_.text));
    if (!used_.doi.empty()) report.Fact("DOI", Text(used_.doi));
  }
  void AddTable(Report& report) const {
    if (!cited_.Empty()) report.Add(cited_.ToTable(true));
  }

 private:
  PreferenceList const& list_;
  Citations citations_;
  CitedCodes cited_;
  Citation used_;
};

void WhyConstant(zel::ZelConstantInfo const& info, Options const& o, PreferenceList const& list,
                 PureComponent const& merged, bool inCsv, Report& report) {
  DatumState const state = StateOf(merged, info.index);
  report.Fact("datum", info.keyword + (", " + std::string(info.label)));
  report.Fact("value", Number(merged.Completed(info.index)));
  report.Fact("unit", Text(info.unit));
  report.Fact("state", std::string(Word(state)));
  // In internal units the fact above shows the unit, except in CSV.
  bool const isSaid = list.Units().AreInternal() && !inCsv;
  std::string const unit = isSaid ? "" : info.unit;
  Table table("sources",
              {{"source", ""}, {"value", unit}, {"code", ""}, {"result", ""}, CitationColumn()});
  CitedSources cited(list);
  // The name in the row that won distinguishes libraries with the same file name.
  std::string from = merged.ConstantSource(info.index);
  std::vector<Contender> const contenders = ContendersFor(list, o.component, info);
  for (std::size_t i = 0; i < contenders.size(); ++i) {
    Contender const& one = contenders[i];
    table.Add(one.source, Number(one.value), Code(one.code), ResultOf(one, "has no value"),
              one.hasDatum ? cited.Of(i, one.code, one.hasWon) : Cell());
    if (one.hasWon) from = one.source;
  }
  report.Fact("from", Text(from));
  cited.AddFacts(report);
  report.Add(std::move(table));
  cited.AddTable(report);
}

void WhyCurve(zel::ZelCorrelationInfo const& info, Options const& o, PreferenceList const& list,
              PureComponent const& merged, Report& report) {
  Curve const curve = merged.ReadCurve(IndexOf(info));
  report.Fact("datum", info.name + (", " + std::string(info.label)));
  report.Fact("state",
              std::string(Word(curve.present ? DatumState::kStored : DatumState::kMissing)));
  std::vector<Column> heads = {{"source", ""}, {"equation", ""}, {"range", ""},
                               {"code", ""},   {"result", ""},   CitationColumn()};
  Append(heads, RangeColumns());
  Table table("sources", std::move(heads));
  CitedSources cited(list);
  std::string from = curve.source;
  std::vector<Contender> const contenders = ContendersFor(list, o.component, info);
  for (std::size_t i = 0; i < contenders.size(); ++i) {
    Contender const& one = contenders[i];
    std::string const result = ResultOf(one, "has no correlation");
    if (!one.hasDatum) {
      table.Add(one.source, Cell(), Cell(), Cell(), result);
      continue;
    }
    std::vector<Cell> cells =
        RowOf(one.source, std::int64_t{one.curve.equation}, RangeOf(one.curve, list.Units()),
              Code(one.code), result, cited.Of(i, one.code, one.hasWon));
    Append(cells, RangeMembers(one.curve, list.Units()));
    table.Add(std::move(cells));
    if (one.hasWon) from = one.source;
  }
  report.Fact("from", Text(from));
  cited.AddFacts(report);
  report.Add(std::move(table), RangeColumns());
  cited.AddTable(report);
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
    WhyConstant(*constant, o, list, merged, session.form == Form::kCsv, report);
  } else {
    WhyCurve(*curve, o, list, merged, report);
  }
  AddWarnings(list, report);
  if (session.form == Form::kCsv) AddDatumTable(report);
  return report;
}

}  // namespace

void AddSearchCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command search(line, "search", "Merge a component from libraries and complete it",
                 "zel search ETHANOL -l perry.lb1:PERRY -l crc.lb1");
  search.Argument("COMPONENT", o->component, "by number, ID, CAS number or name");
  AddSourceOptions(search, o->sources);
  search.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Search(session, *o); });
  Command why(line, "why", "Show where one datum of a component comes from",
              "zel why ETHANOL TC -l perry.lb1 -l crc.lb1");
  why.Argument("COMPONENT", o->component, "by number, ID, CAS number or name")
      .Argument("DATUM", o->datum, "keyword of a constant or name of a correlation");
  AddSourceOptions(why, o->sources);
  why.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Why(session, *o); });
}

}  // namespace zelhost
