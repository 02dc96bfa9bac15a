// fit, points
#include <charconv>
#include <cmath>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/edit/library_fit.h"
#include "desk/files/output_file.h"
#include "desk/formats/thermoml.h"
#include "desk/open/members.h"
#include "desk/open/named_correlation.h"
#include "desk/open/unfinished_change.h"
#include "desk/pictures/chart.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zelhost {
namespace {

struct Options {
  std::string path;
  std::vector<std::string> points;  // files
  LibraryFit fit;
  std::string equation;
  std::string terms;
  std::string code;
  std::string from;
  std::string plot;
  bool residuals = false;
  ChangeOptions change;
};

int WholeNumber(std::string const& word, char const* option, int least, int most) {
  int number = 0;
  auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  bool const isRead = error == std::errc() && end == word.data() + word.size();
  if (isRead && number >= least && number <= most) return number;
  throw WrongUsage(std::string(option) + " is a whole number from " + std::to_string(least) +
                   " to " + std::to_string(most) + ", not " + word);
}

void CheckPlot(std::string const& path) {
  if (path.empty()) return;
  RefuseLibraryPath(path);
  RefuseSpecialFile(path);
  if (LowerCase(std::filesystem::path(path).extension().string()) != ".svg") {
    throw WrongUsage("--plot writes a chart, whose name ends in .svg");
  }
}

LibraryFit AskedFor(Options const& o) {
  constexpr int kLastEquation = 1000;
  constexpr int kMostCoefficients = 15;
  constexpr int kLastCode = 32000;
  LibraryFit asked = o.fit;
  asked.equation = WholeNumber(o.equation, "--equation", 0, kLastEquation);
  if (!o.terms.empty()) asked.coefficients = WholeNumber(o.terms, "--terms", 1, kMostCoefficients);
  if (!o.code.empty()) {
    asked.code = static_cast<std::uint32_t>(WholeNumber(o.code, "--ref", 0, kLastCode));
  }
  return asked;
}

std::vector<PlotPoints> AllPoints(Session& session, Options const& o) {
  zel::ZelCorrelationInfo const& correlation = CorrelationNamed(o.fit.correlation);
  session.units.UnitFor(correlation.unit);  // says if it is not used
  std::vector<PlotPoints> sets;
  for (std::string const& path : o.points) {
    for (PlotPoints& set : ReadPoints(path, correlation, session.units)) {
      sets.push_back(std::move(set));
    }
  }
  return sets;
}

void AddFit(FittedRecord const& fitted, Session const& session, Options const& o, Report& report) {
  CurveFit const& fit = fitted.fit;
  zel::ZelCorrelation const& record = fit.record;
  report.Fact("item", fitted.edited.item);
  report.Fact("bank", ToText(fitted.edited.bank));
  report.JsonFacts(PartColumns(), PartMembers(fitted.edited.parts));
  report.Fact("correlation", std::string(fitted.info->name));
  report.Fact("equation", std::int64_t{record.equation});
  report.Fact("fitted", QuantityText(fit));
  report.Fact("points", static_cast<std::int64_t>(fitted.points.size()));
  if (fitted.leftOut > 0) {
    report.Fact("left out", static_cast<std::int64_t>(fitted.leftOut));
  }
  Curve range;
  range.tMin = record.tMin;
  range.tMax = record.tMax;
  report.Fact("range", RangeOf(range, session.units));
  report.JsonFacts(RangeColumns(), RangeMembers(range, session.units));
  if (!std::isnan(ReducedSum(fit))) report.Fact("reduced sum", ReducedSum(fit));
  if (!fitted.edited.copiedFrom.empty()) report.Fact("copied from", fitted.edited.copiedFrom);
  std::string warnings;
  for (auto const* const some : {&fitted.warnings, &fitted.edited.warnings}) {
    for (std::string const& one : *some) warnings += (warnings.empty() ? "" : "; ") + one;
  }
  if (!warnings.empty()) report.Warning("warning", warnings);
  report.Add(CoefficientTable(fitted));
  report.Add(DeviationTable(fitted, session.units));
  if (o.residuals) report.Add(ResidualTable(fitted, session.units));
}

Report Fit(Session& session, Options const& o) {
  CheckPlot(o.plot);
  LibraryFit const asked = AskedFor(o);
  zel::InitZelAccess();
  std::vector<PlotPoints> const sets = AllPoints(session, o);
  std::optional<Library> from;
  std::error_code none;
  if (!o.from.empty() && std::filesystem::equivalent(o.from, o.path, none)) {
    throw Failure(o.from + ": is the library to change itself");
  }
  if (!o.from.empty()) from.emplace(OpenFinished(session, o.from));
  LibraryChange change(session, o.path, o.change);
  FittedRecord fitted = FitInLibrary(change.Open(), asked, sets, from ? &*from : nullptr);
  Report report;
  AddFit(fitted, session, o, report);
  bool const isChanged = fitted.edited.IsChanged();
  report.Fact("changed", static_cast<std::int64_t>(fitted.edited.changes.Rows().size()));
  if (!o.plot.empty()) report.Fact("written", o.plot);
  report.Add(std::move(fitted.edited.changes));
  AddDataWarning(fitted.edited.findings, session.isStrict, report);
  AddCitationConflicts(session, fitted.edited.conflicts, report);
  if (!o.plot.empty()) WriteFile(o.plot, ToSvg(FitChart(fitted, session.units)));
  if (isChanged) PutInPlaceAfter(report, std::move(change));
  return report;
}

struct PointOptions {
  std::vector<std::string> files;
  std::string correlation;
  std::string component;
};

// Without a correlation, what there is; with one, its points.
Report ListPoints(Session& session, PointOptions const& o) {
  zel::InitZelAccess();
  zel::ZelCorrelationInfo const* const correlation =
      o.correlation.empty() ? nullptr : &CorrelationNamed(o.correlation);
  if (correlation != nullptr) session.units.UnitFor(correlation->unit);  // says if it is not used
  std::vector<MeasuredData> documents;
  for (std::string const& path : o.files) documents.push_back(ReadThermoMl(path));
  MeasuredTables tables = TablesOf(documents, correlation, o.component);
  if (correlation != nullptr && tables.points.Empty()) {
    throw Failure("there are no points of " + std::string(correlation->name) +
                  (o.component.empty() ? "" : " of " + o.component));
  }
  Report report;
  report.Fact("documents", static_cast<std::int64_t>(documents.size()));
  if (correlation != nullptr) {
    report.Fact("correlation", std::string(correlation->name));
    report.Add(std::move(tables.points));
    return report;
  }
  report.Add(std::move(tables.sets));
  if (!tables.passedOver.Empty()) report.AddAside(std::move(tables.passedOver));
  return report;
}

void AddPointsCommand(CommandLine& line) {
  auto const o = std::make_shared<PointOptions>();
  Command command(line, "points", "Show the measured points in files of ThermoML",
                  "zel points measured.xml --to VaporPressure --csv");
  command.Argument("FILE", o->files, "ThermoML, the standard of the IUPAC; one or several")
      .Option("--to", o->correlation, "the points of this correlation, for fit and plot",
              "CORRELATION")
      .Option("--component", o->component, "of this compound only, by CAS number or name", "NAME");
  command.Run(Outputs::kJsonAndCsv, [o](Session& session) { return ListPoints(session, *o); });
}

}  // namespace

void AddFitCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  LibraryFit& fit = o->fit;
  Command command(line, "fit", "Fit a correlation to points and set its record",
                  "zel fit crc.lb1 steam.csv --to VaporPressure --equation 20 --component WATER");
  command.Argument("LIBRARY", o->path, "the library to change")
      .Library(o->path)
      .Library(o->from)
      .Argument("POINTS", o->points, "tables with T, value, perhaps uncertainty; ThermoML")
      .Required("--to", fit.correlation, "the correlation, by its name or the beginning of it",
                "CORRELATION")
      .Required("--equation", o->equation, "of the record", "N")
      .Required("--component", fit.component, "by number, ID, CAS number or name", "COMPONENT")
      .Option("--bank", fit.bank, "of the component; default: the only one", "BANK")
      .Option("--ref", o->code, "the reference code of the record; else it stays", "CODE")
      .Option("--range", fit.range, "of the record, 280K:350K; default: of the points", "MIN:MAX")
      .Option("--terms", o->terms, "number of coefficients; default: as usual", "N")
      .List("--fix", fit.fixed, "coefficients that are kept: C5=2, C3=TC", "C=VALUE...")
      .Option("--deviations", fit.deviations, "which are made small: relative or absolute", "WORD")
      .Option("--value-unit", fit.unit, "of the values of the equation", "UNIT")
      .Option("--logarithm", fit.logarithm, "of the equation: natural or decimal", "WORD")
      .Option("--basis", fit.basis, "of the values of the equation: mole or mass", "WORD")
      .Option("--from", o->from, "copy the component from here first if it is missing", "LIBRARY")
      .Flag("--unweighted", fit.isUnweighted, "the uncertainties of the points do not matter")
      .Flag("--residuals", o->residuals, "list the points with the fitted values")
      .Option("--plot", o->plot, "draw the points and the curve as SVG", "FILE");
  AddChangeOptions(command, o->change);
  command.Flag("--strict", command.InSession().isStrict,
               "refuse implausible values and citation conflicts");
  command.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Fit(session, *o); });
  AddPointsCommand(line);
}

}  // namespace zelhost
