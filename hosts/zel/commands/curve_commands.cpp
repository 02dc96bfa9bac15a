// eval, plot
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/files/output_file.h"
#include "desk/open/preference_list.h"
#include "desk/words/failure.h"
#include "desk/words/number_range.h"
#include "output/chart.h"

namespace zelhost {
namespace {

struct Options {
  SourceOptions sources;
  std::vector<std::string> components;
  std::string component;
  std::string correlation;
  std::vector<std::string> at;
  std::string from;
  std::string to;
  std::string output;
  int steps = 10;
  int derivatives = 1;
  bool logarithmic = false;
  bool each = false;
};

zel::ZelCorrelationInfo const& CorrelationNamed(std::string const& word) {
  zel::ZelCorrelationInfo const* const found = FindCorrelation(word);
  if (found == nullptr) {
    throw Failure("\"" + word + "\" is not a correlation, or the beginning of several" +
                  DidYouMeanCorrelation(word) + " `zel types " + kPureType + "` lists them");
  }
  return *found;
}

Curve CurveOf(PureComponent const& component, zel::ZelCorrelationInfo const& info,
              std::string const& word) {
  Curve const curve = component.ReadCurve(IndexOf(info));
  if (!curve.present) throw Failure("component " + word + " has no " + info.name);
  return curve;
}

// "component XXX, VaporPressure: " and what is wrong with its record; empty if nothing is.
std::string WarningOf(std::string const& component, zel::ZelCorrelationInfo const& info,
                      Curve const& curve) {
  std::string const fault = FaultOf(curve);
  return fault.empty() ? "" : "component " + component + ", " + info.name + ": " + fault;
}

// The error if there is no value at any temperature.
Failure NoValue(std::string const& component, zel::ZelCorrelationInfo const& info,
                Curve const& curve) {
  std::string const warning = WarningOf(component, info, curve);
  if (!warning.empty()) return Failure(warning);
  return Failure("component " + component + ", " + info.name + ": equation " +
                 std::to_string(curve.equation) + " has no value at these temperatures");
}

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

Report Eval(Session& session, Options const& o) {
  zel::ZelCorrelationInfo const& info = CorrelationNamed(o.correlation);
  if (o.derivatives < 0 || o.derivatives > 3) throw WrongUsage("--derivatives must be 0 to 3");
  PreferenceList list(session, o.sources);
  PureComponent component;
  list.Search(o.component, component);
  Curve const curve = CurveOf(component, info, o.component);
  std::string const unit = TemperatureUnit(curve.tempUnit);
  std::string const value = info.unit;
  Report report;
  report.Fact("component", component.ReadIdentity().name);
  report.Fact("correlation", std::string(info.label));
  report.Fact("equation", std::int64_t{curve.equation});
  report.Fact("range", RangeOf(curve, session.units));
  report.Fact("from", Text(curve.source));
  std::vector<Column> columns = {{"T", unit}, {"value", value}};
  for (int order = 1; order <= o.derivatives; ++order) {
    std::string const power = order == 1 ? "" : std::to_string(order);
    columns.push_back({"d" + power + "/dT" + power, value + "/" + unit + power});
  }
  columns.push_back({"range", ""});
  std::string const warning = WarningOf(o.component, info, curve);
  if (!warning.empty()) report.Warning("warning", warning);
  Table& table = report.Begin("points", columns);
  bool hasAny = false;
  for (double const temperature : Temperatures(o, curve, o.component, session.units)) {
    Point const point = component.At(IndexOf(info), temperature);
    std::vector<Cell> row;
    row.push_back(temperature);
    row.push_back(Number(point.value));
    for (int order = 1; order <= o.derivatives; ++order) {
      row.push_back(Number(component.At(IndexOf(info), temperature, order).slope));
    }
    hasAny = hasAny || point.there;
    row.push_back(point.there ? StatusText(point.status) : "no value");
    table.Add(std::move(row));
  }
  if (!hasAny) throw NoValue(o.component, info, curve);
  AddWarnings(list, report);
  return report;
}

// One curve for a chart, over temperatures in K.
struct Drawn {
  std::string word;  // of the command line
  std::string label;
  std::unique_ptr<PureComponent> component;
  Curve curve;

  double Limit(double bound) const {
    return zel::gen_IsUndefDouble(bound) ? bound
                                         : zel::ConvertTemperature(bound, curve.tempUnit, kKelvin);
  }
};

// One curve for each component, or for each component and each bank that has the correlation.
std::vector<Drawn> Collect(Options const& o, zel::ZelCorrelationInfo const& info,
                           PreferenceList& list) {
  std::vector<Drawn> drawn;
  for (std::string const& word : o.components) {
    auto merged = std::make_unique<PureComponent>();
    list.Search(word, *merged);
    std::size_t const before = drawn.size();
    for (std::size_t i = 0; o.each && i < list.Count(); ++i) {
      auto component = std::make_unique<PureComponent>();
      if (!list.Read(i, word, *component)) continue;
      Curve curve = component->ReadCurve(IndexOf(info));
      if (!curve.present) continue;
      std::string label = component->ReadIdentity().name + ", " + list.Name(i);
      drawn.push_back({word, std::move(label), std::move(component), std::move(curve)});
    }
    if (o.each && drawn.size() > before) continue;
    Curve curve = CurveOf(*merged, info, word);
    std::string label = merged->ReadIdentity().name;
    drawn.push_back({word, std::move(label), std::move(merged), std::move(curve)});
  }
  return drawn;
}

Span DefaultSpan(Options const& o, std::vector<Drawn> const& drawn, DisplayUnits const& units) {
  Span span;
  if (!o.from.empty()) span.low = ParseTemperature(o.from, units).In(kKelvin);
  if (!o.to.empty()) span.high = ParseTemperature(o.to, units).In(kKelvin);
  bool const takesLow = !span.low;
  bool const takesHigh = !span.high;
  for (Drawn const& one : drawn) {
    double const low = one.Limit(one.curve.tMin);
    double const high = one.Limit(one.curve.tMax);
    if (takesLow && !zel::gen_IsUndefDouble(low)) span.low = std::min(span.low.value_or(low), low);
    if (takesHigh && !zel::gen_IsUndefDouble(high)) {
      span.high = std::max(span.high.value_or(high), high);
    }
  }
  if (!span.low || !span.high) throw Failure("the records have no limits; give --from and --to");
  if (!(*span.low < *span.high)) {
    throw WrongUsage("nothing to draw from " + Digits(units.Shown(*span.low, "K")) + " to " +
                     Digits(units.Shown(*span.high, "K")) + " " + units.UnitFor("K"));
  }
  return span;
}

ChartLine LineOf(Drawn const& one, zel::ZelCorrelationInfo const& info, Span const& span,
                 DisplayUnits const& units) {
  constexpr int kPoints = 400;
  ChartLine line;
  line.label = one.label;
  double const limits[] = {one.Limit(one.curve.tMin), one.Limit(one.curve.tMax)};
  std::vector<double> at(std::begin(limits), std::end(limits));
  for (int i = 0; i <= kPoints; ++i) {
    at.push_back(*span.low + (*span.high - *span.low) * i / kPoints);
  }
  std::sort(at.begin(), at.end());
  at.erase(std::unique(at.begin(), at.end()), at.end());
  for (double const kelvin : at) {
    if (!span.Has(kelvin)) continue;
    Point const point = one.component->At(
        IndexOf(info), zel::ConvertTemperature(kelvin, kKelvin, one.curve.tempUnit));
    if (!point.there) continue;
    ChartLine::Vertex const vertex = {units.Shown(kelvin, "K"), units.Shown(point.value, info.unit),
                                      point.status != 0};
    line.vertices.push_back(vertex);
    if (kelvin == limits[0] || kelvin == limits[1]) line.marks.push_back(vertex);
  }
  return line;
}

Report Plot(Session& session, Options const& o) {
  if (IsStandardOutput(o.output) && session.form != Form::kText) {
    throw WrongUsage("--json and a chart on standard output exclude each other");
  }
  zel::ZelCorrelationInfo const& info = CorrelationNamed(o.correlation);
  PreferenceList list(session, o.sources);
  std::vector<Drawn> const drawn = Collect(o, info, list);
  Span const span = DefaultSpan(o, drawn, session.units);
  Chart chart;
  chart.title = info.label;
  chart.xLabel = "T [" + session.units.UnitFor("K") + "]";
  chart.yLabel =
      *info.unit == '\0' ? info.name : info.name + (" [" + session.units.UnitFor(info.unit)) + "]";
  chart.logarithmic = o.logarithmic;
  std::string warnings;
  for (Drawn const& one : drawn) {
    chart.lines.push_back(LineOf(one, info, span, session.units));
    if (chart.lines.back().vertices.empty()) throw NoValue(one.word, info, one.curve);
    std::string const warning = WarningOf(one.word, info, one.curve);
    if (warning.empty()) continue;
    warnings += (warnings.empty() ? "" : "\n") + warning;
    chart.warnings.push_back("Warning: " + warning);
  }
  for (IdentityConflict const& conflict : list.Accepted()) {
    chart.warnings.push_back("Warning: " + ToText(conflict));
  }
  WriteFile(o.output, ToSvg(chart));
  Report report;
  if (IsStandardOutput(o.output)) return report;  // only the chart
  report.Fact("written", o.output);
  report.Fact("lines", static_cast<std::int64_t>(drawn.size()));
  if (!warnings.empty()) report.Warning("warning", warnings);
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
  eval.Option("--at", o->at, "temperatures, in K without a unit", "T...")
      .Option("--from", o->from, "lowest temperature; default: the record's", "T")
      .Option("--to", o->to, "highest temperature; default: the record's", "T")
      .Option("--steps", o->steps, "number of steps; default: 10", "N")
      .Option("--derivatives", o->derivatives, "number of derivatives, 0 to 3; default: 1", "N")
      .Run(Outputs::kJsonAndCsv, [o](Session& session) { return Eval(session, *o); });
  Command plot(line, "plot", "Draw a correlation of components as an SVG chart",
               "zel plot VaporPressure ETHANOL WATER -l perry.lb1 --log -o vp.svg");
  plot.Argument("CORRELATION", o->correlation, "its name or the beginning of it")
      .Argument("COMPONENT", o->components, "by number, ID, CAS number or name; one or several");
  AddSourceOptions(plot, o->sources);
  plot.Required("-o,--output", o->output, "the SVG file; - is standard output", "FILE")
      .Option("--from", o->from, "lowest temperature, in K without a unit", "T")
      .Option("--to", o->to, "highest temperature, in K without a unit", "T")
      .Flag("--log", o->logarithmic, "logarithmic axis for the values")
      .Flag("--each", o->each, "a line for each bank instead of the merged one")
      .Run(Outputs::kJson, [o](Session& session) { return Plot(session, *o); });
}

}  // namespace zelhost
