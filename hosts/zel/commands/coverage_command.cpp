// coverage
#include <algorithm>
#include <memory>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/compare/coverage.h"
#include "desk/words/failure.h"

namespace zelhost {
namespace {

struct Options {
  SourceOptions sources;
  std::vector<std::string> components;
  std::vector<std::string> models;
  bool details = false;
  bool missing = false;
  bool matrix = false;
};

void AddDetails(std::string const& word, PureComponent const& component, bool onlyMissing,
                Table& table) {
  auto const add = [&](char const* datum, DatumState state, std::string const& from) {
    if (onlyMissing && state != DatumState::kMissing) return;
    table.Add(word, datum, Word(state), Text(from));
  };
  for (auto const& row : Constants()) {
    add(row.keyword, StateOf(component, row.index), component.ConstantSource(row.index));
  }
  for (auto const& row : Correlations()) {
    Curve const curve = component.ReadCurve(IndexOf(row));
    add(row.name, curve.present ? DatumState::kStored : DatumState::kMissing, curve.source);
  }
}

void AddPairs(PairCoverage const& pairs, std::vector<std::string> const& types, bool onlyMissing,
              Report& report) {
  Table table("pairs", {{"model", ""},
                        {"pair", ""},
                        {"state", ""},
                        {"from", ""},
                        {"component 1", ""},
                        {"component 2", ""}});
  for (std::string const& type : types) {
    for (std::size_t i = 0; i < pairs.Count(); ++i) {
      for (std::size_t k = i + 1; k < pairs.Count(); ++k) {
        std::string const from = pairs.SourceOf(type, i, k);
        if (onlyMissing && !from.empty()) continue;
        table.Add(type, Joined({pairs.WordOf(i), pairs.WordOf(k)}),
                  Word(from.empty() ? DatumState::kMissing : DatumState::kStored), Text(from),
                  pairs.WordOf(i), pairs.WordOf(k));
      }
    }
  }
  report.Add(std::move(table), std::set<std::string>{"component 1", "component 2"});
}

// A row and a column for each component; with `onlyMissing` for those of which a pair is missing.
void AddMatrix(PairCoverage const& pairs, std::string const& type, bool onlyMissing,
               Report& report) {
  std::size_t const count = pairs.Count();
  std::vector<std::vector<char>> has(count, std::vector<char>(count, 1));
  std::vector<std::size_t> shown;
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t k = i + 1; k < count; ++k) {
      has[i][k] = has[k][i] = pairs.SourceOf(type, i, k).empty() ? 0 : 1;
    }
  }
  for (std::size_t i = 0; i < count; ++i) {
    bool const isWhole = std::find(has[i].begin(), has[i].end(), 0) == has[i].end();
    if (!onlyMissing || !isWhole) shown.push_back(i);
  }
  std::vector<Column> columns = {{"component", ""}};
  for (std::size_t const i : shown) columns.push_back({pairs.WordOf(i), ""});
  Table& table = report.Begin("matrix " + type, columns);
  for (std::size_t const i : shown) {
    std::vector<Cell> row = RowOf(pairs.WordOf(i));
    for (std::size_t const k : shown) {
      if (i == k) {
        row.emplace_back();
      } else {
        row.emplace_back(
            std::string(Word(has[i][k] != 0 ? DatumState::kStored : DatumState::kMissing)));
      }
    }
    table.Add(std::move(row));
  }
}

// Warns of models of which no library has a bank: all of their pairs are missing.
void WarnOfMissingBanks(PreferenceList const& list, std::vector<std::string> const& types,
                        Report& report) {
  std::vector<std::string> const there = PairTypes(list);
  std::string without;
  for (std::string const& type : types) {
    if (std::find(there.begin(), there.end(), type) != there.end()) continue;
    without += (without.empty() ? "" : ", ") + type;
  }
  if (without.empty()) return;
  report.Warning("warning", "no library of the list has a bank of type " + without);
}

Report Coverage(Session& session, Options const& o) {
  if (o.components.empty() && o.models.empty()) {
    throw WrongUsage("name components, or a --model, whose components are then taken");
  }
  std::vector<std::string> const named = PairTypes(o.models);
  PreferenceList list(session, o.sources);
  std::vector<std::string> const types = named.empty() ? PairTypes(list) : named;
  Report report;
  WarnOfMissingBanks(list, types, report);
  Table summary("components", {{"component", ""},
                               {"stored", ""},
                               {"filled in", ""},
                               {"missing", ""},
                               {"correlations", ""},
                               {"name", ""}});
  Table details("data", {{"component", ""}, {"datum", ""}, {"state", ""}, {"from", ""}});
  PairCoverage pairs(list);
  for (std::string const& given :
       o.components.empty() ? ComponentsInPairs(list, types) : o.components) {
    std::string const& word = list.Lookup(given);
    PureComponent component;
    list.Search(word, component);
    DatumCounts const counts = CountOf(component);
    summary.Add(word, counts.stored, counts.filledIn, counts.missing, counts.curves,
                component.ReadIdentity().name);
    if (o.details) AddDetails(word, component, o.missing, details);
    pairs.Add(word);
  }
  if (o.details) report.Add(std::move(details));
  report.Add(std::move(summary));
  if (o.matrix) {
    for (std::string const& type : types) AddMatrix(pairs, type, o.missing, report);
  } else if (pairs.Count() > 1) {
    AddPairs(pairs, types, o.missing, report);
  }
  AddWarnings(list, report);
  return report;
}

}  // namespace

void AddCoverageCommand(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command coverage(line, "coverage", "Show what components have, and what is missing",
                   "zel coverage ETHANOL WATER BENZENE -l perry.lb1 -l sample.lb1");
  coverage.OptionalArgument("COMPONENT", o->components,
                            "by number, ID, CAS number or name; one or several");
  AddSourceOptions(coverage, o->sources);
  coverage
      .List("--model", o->models, "its pairs; of all its components without COMPONENT", "TYPE...")
      .Flag("--missing", o->missing, "only the pairs, and data, that are missing")
      .Flag("--matrix", o->matrix, "the pairs of each model as a matrix")
      .Flag("--details", o->details, "every datum with its source")
      .Run(Outputs::kJsonAndCsv, [o](Session& session) { return Coverage(session, *o); });
}

}  // namespace zelhost
