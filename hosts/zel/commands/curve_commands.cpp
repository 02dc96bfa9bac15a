// eval
#include <zelaccess/Types.h>
#include <zelaccess/Units.h>
#include <zelaccess/Verify.h>

#include <limits>
#include <memory>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/open/members.h"
#include "desk/open/named_correlation.h"
#include "desk/open/preference_list.h"
#include "desk/tables/component_table.h"
#include "desk/words/failure.h"
#include "desk/words/number_range.h"

namespace zelhost {
namespace {

constexpr int kNotGiven = std::numeric_limits<int>::min();

struct Options {
  SourceOptions sources;
  std::string component;
  std::string correlation;
  std::vector<std::string> moreComponents;
  std::vector<std::string> moreCorrelations;
  bool extrapolate = false;
  std::vector<std::string> at;
  std::string from;
  std::string to;
  int steps = 10;
  int derivatives = kNotGiven;
};

// The temperatures of the command line, or those of the record's range, in the record's unit.
std::vector<double> Temperatures(Options const& o, Curve const& curve, std::string const& word,
                                 DisplayUnits const& units) {
  std::vector<double> temperatures;
  for (std::string const& text : o.at) {
    temperatures.push_back(ParseTemperature(text, units).In(curve.tempUnit));
  }
  if (!temperatures.empty()) {
    if (!o.from.empty() || !o.to.empty())
      throw WrongUsage("--at and --from/--to exclude each other");
    return temperatures;
  }
  if (o.steps < 1 || o.steps > 100000) throw WrongUsage("--steps must be 1 to 100000");
  double const low =
      o.from.empty() ? curve.tMin : ParseTemperature(o.from, units).In(curve.tempUnit);
  double const high = o.to.empty() ? curve.tMax : ParseTemperature(o.to, units).In(curve.tempUnit);
  if (zel::gen_IsUndefDouble(low) || zel::gen_IsUndefDouble(high)) {
    throw Failure("the record of " + word + " has no limits; give --from and --to, or --at");
  }
  for (int i = 0; i <= o.steps; ++i) {
    temperatures.push_back(low + (high - low) * i / o.steps);
  }
  return temperatures;
}

std::string StatusText(std::int32_t status) {
  return status == 0 ? "inside" : status > 0 ? "above" : "below";
}

// The temperatures as they were written.
std::vector<std::string> TemperatureWords(Options const& o) {
  std::vector<std::string> words = o.at;
  words.insert(words.end(), {o.from, o.to});
  return words;
}

// Several components or correlations over the same temperatures, in K.
Report EvalGrid(Session& session, Options const& o) {
  PreferenceList list(session, o.sources);
  CurveGrid grid;
  grid.components.push_back(o.component);
  grid.components.insert(grid.components.end(), o.moreComponents.begin(), o.moreComponents.end());
  grid.correlations.push_back(o.correlation);
  grid.correlations.insert(grid.correlations.end(), o.moreCorrelations.begin(),
                           o.moreCorrelations.end());
  for (std::string const& word : grid.correlations) CorrelationNamed(word);
  grid.extrapolate = o.extrapolate;
  if (o.derivatives != kNotGiven) grid.derivatives = o.derivatives;
  if (o.at.empty() && (o.from.empty() || o.to.empty())) {
    throw WrongUsage("several components or correlations need --at, or --from and --to");
  }
  grid.kelvin = Temperatures(o, Curve{}, o.component, session.units);
  CurveTables tables = EvaluateGrid(list, grid);
  Report report;
  std::string const hint = HintForBareNumber(TemperatureWords(o), tables.curves, session.units);
  if (!hint.empty()) report.Warning("warning", hint);
  report.Add(std::move(tables.records), RangeColumns());
  report.Add(std::move(tables.points));
  AddWarnings(list, report);
  return report;
}

// A correlation in front of a component is a line in the order of `plot`.
void CheckOrder(Options const& o) {
  zel::ZelCorrelationInfo const* const found = FindCorrelation(o.component);
  if (found == nullptr || FindCorrelation(o.correlation) != nullptr) return;
  if (FindConstant(o.correlation) != nullptr) return;
  throw WrongUsage("the component is the first word: zel eval " + o.correlation + " " +
                   found->name);
}

Report Eval(Session& session, Options const& o) {
  CheckOrder(o);
  if (o.derivatives != kNotGiven && (o.derivatives < 0 || o.derivatives > 3)) {
    throw WrongUsage("--derivatives must be 0 to 3");
  }
  if (!o.moreComponents.empty() || !o.moreCorrelations.empty()) return EvalGrid(session, o);
  zel::ZelCorrelationInfo const& info = CorrelationNamed(o.correlation);
  PreferenceList list(session, o.sources);
  PureComponent component;
  list.Search(o.component, component);
  Curve const curve = CurveOf(component, info, o.component);
  std::string const value = info.unit;
  Report report;
  report.Fact("component", component.ReadIdentity().name);
  report.Fact("correlation", std::string(info.label));
  report.Fact("equation", std::int64_t{curve.equation});
  report.Fact("range", RangeOf(curve, session.units));
  report.JsonFacts(RangeColumns(), RangeMembers(curve, session.units));
  report.Fact("from", Text(curve.source));
  std::vector<Column> columns = {{"T", "K"}, {"value", value}};
  int const derivatives = o.derivatives == kNotGiven ? 1 : o.derivatives;
  for (int order = 1; order <= derivatives; ++order) {
    columns.push_back(DerivativeColumn(value, order));
  }
  columns.push_back({"range", ""});
  std::string warning = WarningOf(o.component, info, curve);
  if (warning.empty()) {
    warning = HintForBareNumber(TemperatureWords(o), {curve}, session.units);
  }
  if (!warning.empty()) report.Warning("warning", warning);
  Table& table = report.Begin("points", columns);
  bool hasAny = false;
  for (double const temperature : Temperatures(o, curve, o.component, session.units)) {
    Point const point = component.At(IndexOf(info), temperature);
    std::vector<Cell> row;
    row.push_back(zel::ConvertTemperature(temperature, curve.tempUnit, kKelvin));
    row.push_back(Number(point.value));
    for (int order = 1; order <= derivatives; ++order) {
      row.push_back(Number(SlopePerKelvin(component, IndexOf(info), curve, temperature, order)));
    }
    hasAny = hasAny || point.there;
    row.push_back(point.there ? StatusText(point.status) : "no value");
    table.Add(std::move(row));
  }
  if (!hasAny) throw NoValue(o.component, info, curve);
  AddWarnings(list, report);
  return report;
}

}  // namespace

void AddCurveCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command eval(line, "eval", "Evaluate a correlation over temperatures",
               "zel eval ETHANOL VaporPressure -l perry.lb1 -l crc.lb1 --at 25C 351.4K");
  eval.Argument("COMPONENT", o->component, "by number, ID, CAS number or name")
      .Argument("CORRELATION", o->correlation, "its name or the beginning of it");
  AddSourceOptions(eval, o->sources);
  eval.Option("--at", o->at, "temperatures; in the display unit, K by default", "T...")
      .Option("--from", o->from, "lowest temperature; default: the record's", "T")
      .Option("--to", o->to, "highest temperature; default: the record's", "T")
      .Option("--steps", o->steps, "number of steps; default: 10", "N")
      .Option("--components", o->moreComponents, "further components, in the same table",
              "COMPONENT...")
      .List("--correlations", o->moreCorrelations, "further correlations", "CORRELATION...")
      .Flag("--extrapolate", o->extrapolate, "with several: values outside the ranges too")
      .Option("--derivatives", o->derivatives, "0 to 3; default: 1, with several: 0", "N")
      .Run(Outputs::kJsonAndCsv, [o](Session& session) { return Eval(session, *o); });
}

}  // namespace zelhost
