// compare
#include <algorithm>
#include <memory>

#include "commands/command.h"
#include "desk/compare/comparison.h"
#include "desk/words/failure.h"
#include "desk/words/number_range.h"
#include "output/progress.h"

namespace zelhost {
namespace {

struct Options {
  std::string first;
  std::string second;
  std::string tolerance;
  CompareOptions compare;
  bool missing = false;
  bool exitCode = false;
};

bool HasTemperatures(Table const& constants) {
  constexpr std::size_t kUnit = 4;  // of a row
  auto const& rows = constants.Rows();
  return std::any_of(rows.begin(), rows.end(),
                     [](std::vector<Cell> const& row) { return CellText(row[kUnit]) == "K"; });
}

void AddFacts(Comparison const& found, Report& report) {
  auto const rows = [](Table const& table) {
    return static_cast<std::int64_t>(table.Rows().size());
  };
  report.Fact("components compared", found.components);
  report.Fact("constants compared", found.constants);
  report.Fact("constants that differ", rows(found.differingConstants));
  report.Fact("correlations compared", found.correlations);
  report.Fact("correlations that differ", rows(found.differingCorrelations));
  report.Fact("only in the first", found.onlyFirst);
  report.Fact("only in the second", found.onlySecond);
}

void AddConflicts(Comparison const& found, bool areCompared, Report& report) {
  if (found.conflicts.empty()) return;
  bool const isOne = found.conflicts.size() == 1;
  report.Warning(
      "identity warning",
      (isOne ? "1 component means" : std::to_string(found.conflicts.size()) + " components mean") +
          " different substances in the two sources" +
          (areCompared ? ""
           : isOne     ? " and is not compared; --accept-identity compares it"
                       : " and are not compared; --accept-identity compares them") +
          "; where only the numbers are equal, `zel renumber` gives one of them another");
  report.Add(IdentityTable(found.conflicts));
}

Report Compare(Session& session, Options const& o) {
  CompareOptions options = o.compare;
  constexpr double kPercent = 100.0;
  constexpr int kMostSteps = 100000;
  if (!o.tolerance.empty()) options.tolerance = ParseTolerance(o.tolerance);
  if (options.steps < 1 || options.steps > kMostSteps) {
    throw WrongUsage("--steps must be 1 to 100000");
  }
  Waiting const waiting("comparing " + o.first);
  Comparison found = Compare(session, o.first, o.second, options);
  Report report;
  report.Fact("first", o.first);
  report.Fact("second", o.second);
  report.Fact("tolerance", Digits(options.tolerance * kPercent) + " %");
  report.JsonFact("tolerance percent", options.tolerance * kPercent);
  if (HasTemperatures(found.differingConstants) && session.units.UnitFor("K") != "K") {
    report.Fact("deviation of temperatures", "relative to the value in K");
  }
  AddFacts(found, report);
  bool const differs = found.Differs();
  report.Add(std::move(found.differingConstants));
  report.Add(std::move(found.differingCorrelations));
  if (!found.notCompared.Empty()) {
    report.Add(std::move(found.notCompared),
               std::set<std::string>{"first from", "first to", "second from", "second to"});
  }
  if (options.codes) report.Add(std::move(found.differingCodes));
  if (o.missing) report.Add(std::move(found.oneSided));
  AddConflicts(found, options.acceptIdentity, report);
  if (o.exitCode && differs) session.exitStatus = 1;
  return report;
}

}  // namespace

void AddCompareCommand(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command compare(line, "compare", "Compare the data of components in two sources by value",
                  "zel compare perry.lb1 crc.lb1 --components ETHANOL WATER --tolerance 1%");
  compare.Argument("FIRST", o->first, "LIBRARY[:BANK]")
      .Argument("SECOND", o->second, "LIBRARY[:BANK]")
      .Library(o->first)
      .Library(o->second)
      .Option("--components", o->compare.components, "these; by default all that both have",
              "COMPONENT...")
      .Option("--tolerance", o->tolerance, "show deviations above it, e.g. 1%; default: 0", "SHARE")
      .Option("--steps", o->compare.steps, "of the temperature grid; default: 200", "N")
      .Flag("--codes", o->compare.codes, "compare the reference codes too")
      .Flag("--missing", o->missing, "list the data that only one source has")
      .Flag("--accept-identity", o->compare.acceptIdentity,
            "compare components that mean different substances")
      .Flag("--exit-code", o->exitCode, "exit status 1 if they differ");
  compare.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Compare(session, *o); });
}

}  // namespace zelhost
