// plot
#include <filesystem>
#include <memory>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/files/output_file.h"
#include "desk/formats/thermoml.h"
#include "desk/open/named_correlation.h"
#include "desk/open/pure_component.h"
#include "desk/pictures/plot.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/mass_units.h"

namespace zelhost {
namespace {

struct Options {
  SourceOptions sources;
  PlotOptions plot;
  std::vector<std::string> points;  // files
  std::string unit;                 // of the values
  std::string output;
};

enum class Kind { kSvg, kCsv };

// The kind by the ending of the file; on standard output a chart, unless the option --csv is given.
Kind KindOf(Session const& session, std::string const& output) {
  if (IsStandardOutput(output)) {
    if (session.form == Form::kJson) {
      throw WrongUsage("--json and a chart on standard output exclude each other");
    }
    return session.form == Form::kCsv ? Kind::kCsv : Kind::kSvg;
  }
  if (output.empty()) throw WrongUsage("the name of the output is empty");
  RefuseLibraryPath(output);
  RefuseSpecialFile(output);
  std::string const ending = LowerCase(std::filesystem::path(output).extension().string());
  if (ending == ".svg") return Kind::kSvg;
  if (ending == ".csv") return Kind::kCsv;
  throw WrongUsage(output + ": a plot is written as .svg (the chart) or .csv (its curves)");
}

// A correlation among the components is a line in the order of `eval`.
void CheckOrder(PlotOptions const& plot) {
  if (FindCorrelation(plot.correlation) != nullptr) return;
  for (std::string const& word : plot.components) {
    zel::ZelCorrelationInfo const* const found = FindCorrelation(word);
    if (found == nullptr) continue;
    throw WrongUsage(std::string("the correlation is the first word: zel plot ") + found->name +
                     " " + plot.correlation);
  }
}

// The units of the chart: those of the session, with that of --unit for the values.
DisplayUnits UnitsOf(Session const& session, Options const& o) {
  if (o.unit.empty()) return session.units;
  zel::ZelCorrelationInfo const& correlation = CorrelationNamed(o.plot.correlation);
  if (UnitNamed(o.unit, correlation.unit).empty()) {
    std::string const unit = correlation.unit;
    if (IsPerMassOf(o.unit, unit)) throw WrongUsage("--unit: " + WhyNotPerMass(o.unit, unit));
    throw WrongUsage("--unit: " + o.unit + " is not a unit of " + correlation.name +
                     (unit.empty() ? ", a pure number" : ", which is in " + unit));
  }
  return session.units.With(o.unit);
}

Report DrawPlot(Session& session, Options const& o) {
  Kind const kind = KindOf(session, o.output);
  CheckOrder(o.plot);
  session.units = UnitsOf(session, o);
  session.units.UnitFor(CorrelationNamed(o.plot.correlation).unit);  // says if it is not used
  PreferenceList list(session, o.sources);
  PlotOptions options = o.plot;
  options.units = session.units;
  options.logarithmic = o.plot.logarithmic && kind == Kind::kSvg;
  for (std::string const& path : o.points) {
    zel::ZelCorrelationInfo const& correlation = CorrelationNamed(options.correlation);
    for (PlotPoints& set : ReadPoints(path, correlation, session.units)) {
      options.points.push_back(std::move(set));
    }
  }
  Plot const plot = MakePlot(list, options);
  if (kind == Kind::kSvg) {
    WriteFile(o.output, ToSvg(plot.chart));
  } else {
    Report curves;
    curves.Add(plot.curves);
    curves.ShowIn(session.units);
    WriteFile(o.output, Print(curves, Form::kCsv));
  }
  for (std::string const& note : plot.notes) session.Note(note);
  Report report;
  if (IsStandardOutput(o.output)) {  // only the chart
    for (std::string const& warning : plot.warnings) session.Note("warning: " + warning);
    return report;
  }
  report.Fact("written", o.output);
  report.Fact("lines", static_cast<std::int64_t>(plot.chart.lines.size()));
  std::string warnings;
  for (std::string const& one : plot.warnings) warnings += (warnings.empty() ? "" : "\n") + one;
  if (!warnings.empty()) report.Warning("warning", warnings);
  AddWarnings(list, report);
  return report;
}

}  // namespace

void AddPlotCommand(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  PlotOptions& plot = o->plot;
  Command command(line, "plot", "Draw a correlation of components as an SVG chart",
                  "zel plot VaporPressure ETHANOL WATER -l perry.lb1 --log -o vp.svg");
  command.Argument("CORRELATION", plot.correlation, "its name or the beginning of it")
      .Argument("COMPONENT", plot.components, "by number, ID, CAS number or name; one or several");
  AddSourceOptions(command, o->sources);
  command
      .Required("-o,--output", o->output, "chart (.svg) or curves (.csv); - is standard output",
                "FILE")
      .Option("--from", plot.from, "lowest temperature, in the display unit", "T")
      .Option("--to", plot.to, "highest temperature, in the display unit", "T")
      .Flag("--log", plot.logarithmic, "logarithmic axis for the values")
      .Flag("--each", plot.each, "a line for each bank instead of the merged one")
      .Option("--reference", plot.reference, "divide each bank's values by those of this one",
              "SOURCE")
      .Library(plot.reference)
      .Option("--points", o->points, "points of data to draw: a table with T and value", "FILE...")
      .Option("--title", plot.title, "default: what the correlation is", "TEXT")
      .Option("--unit", o->unit, "of the values; --units is for temperatures too", "UNIT")
      .Option("--size", plot.size, "of the chart in points; default: 800 wide", "WxH")
      .Run(Outputs::kJsonAndCsv, [o](Session& session) { return DrawPlot(session, *o); });
}

}  // namespace zelhost
