// What a fit shows: tables and a chart.
#include <algorithm>
#include <cmath>

#include "desk/edit/library_fit.h"

namespace zel::desk {
namespace {

constexpr double kHundred = 100.0;

// A difference of values in the display unit, which may have another zero.
double ShownDifference(double difference, std::string const& unit, DisplayUnits const& units) {
  return units.Shown(difference, unit) - units.Shown(0.0, unit);
}

Cell FiniteNumber(double value) { return std::isfinite(value) ? Number(value) : Cell(); }

}  // namespace

std::string QuantityText(CurveFit const& fit) {
  std::string text = fit.quantity == FitQuantity::kLogarithm ? "logarithm of the value" : "value";
  if (fit.isWeighted) text += ", weighted by uncertainties";
  return text;
}

Table CoefficientTable(FittedRecord const& fitted) {
  CurveFit const& fit = fitted.fit;
  Table table("coefficients",
              {{"coefficient", ""}, {"value", ""}, {"standard error", ""}, {"note", ""}});
  for (std::size_t j = 0; j < fit.coefficients.size(); ++j) {
    std::string note;
    if (fit.isKept[j]) {
      note = "kept";
    } else if (!fit.isDetermined[j]) {
      note = "not determined";
    } else if (fit.errors[j] > std::abs(fit.coefficients[j])) {
      note = "error above value";
    }
    Cell const error = fit.isKept[j] ? Cell() : FiniteNumber(fit.errors[j]);
    table.Add("C" + std::to_string(j + 1), Number(fit.record.coefficients[j]), error, Text(note));
  }
  return table;
}

Table DeviationTable(FittedRecord const& fitted, DisplayUnits const& units) {
  FitDeviations const& d = fitted.fit.deviations;
  std::string const unit = fitted.info->unit;
  auto const shown = [&](double value) {
    return FiniteNumber(ShownDifference(value, unit, units));
  };
  Column absolute{"deviation", units.UnitFor(unit)};
  absolute.fixedUnit = true;
  Table table("deviations", {{"of", ""}, absolute, {"percent", "%"}, {"T", "K"}});
  table.Add("mean", shown(d.mean), FiniteNumber(d.meanPercent), Cell());
  double const kelvin = d.greatestAt;
  auto const at = std::find_if(fitted.points.begin(), fitted.points.end(),
                               [&](FitPoint const& one) { return one.kelvin == kelvin; });
  double const there = at->value;
  table.Add("greatest", shown(d.greatest),
            there == 0.0 ? Cell() : FiniteNumber(d.greatest / std::abs(there) * kHundred), kelvin);
  table.Add("greatest percent", Cell(), FiniteNumber(d.greatestPercent),
            d.greatestPercentAt > 0.0 ? Cell(d.greatestPercentAt) : Cell());
  return table;
}

Table ResidualTable(FittedRecord const& fitted, DisplayUnits const& units) {
  std::string const unit = fitted.info->unit;
  Column difference{"deviation", units.UnitFor(unit)};
  difference.fixedUnit = true;
  std::vector<Column> columns = {
      {"T", "K"}, {"value", unit}, {"fitted", unit}, difference, {"percent", "%"}};
  bool const isWeighted = fitted.fit.isWeighted;
  if (isWeighted) columns.push_back({"in uncertainties", ""});
  Table table("residuals", columns);
  std::vector<double> const values = ValuesAt(fitted.fit.record, fitted.points);
  for (std::size_t i = 0; i < values.size(); ++i) {
    FitPoint const& point = fitted.points[i];
    double const deviation = values[i] - point.value;
    std::vector<Cell> row = RowOf(
        point.kelvin, Number(point.value), FiniteNumber(values[i]),
        FiniteNumber(ShownDifference(deviation, unit, units)),
        point.value == 0.0 ? Cell() : FiniteNumber(deviation / std::abs(point.value) * kHundred));
    if (isWeighted) row.push_back(FiniteNumber(deviation / point.uncertainty));
    table.Add(std::move(row));
  }
  return table;
}

Chart FitChart(FittedRecord const& fitted, DisplayUnits const& units) {
  constexpr int kVertices = 400;
  zel::ZelCorrelation const& record = fitted.fit.record;
  std::string const unit = fitted.info->unit;
  Chart chart;
  chart.title = fitted.edited.item + ", " + fitted.info->label;
  chart.xName = "T";
  chart.xUnit = units.UnitFor("K");
  chart.yName = fitted.info->name;
  chart.yUnit = units.UnitFor(unit);
  chart.isUnitFixed = !units.AreInternal();
  chart.logarithmic = fitted.fit.quantity == FitQuantity::kLogarithm;
  auto const vertex = [&](double kelvin, double value) {
    return ChartLine::Vertex{units.Shown(kelvin, "K"), units.Shown(value, unit), false};
  };
  std::vector<FitPoint> at;
  for (int i = 0; i <= kVertices; ++i) {
    double const part = static_cast<double>(i) / kVertices;
    at.push_back({record.tMin * (1.0 - part) + record.tMax * part, 0.0});
  }
  std::vector<double> const values = ValuesAt(record, at);
  ChartLine curve;
  curve.label = "equation " + std::to_string(record.equation);
  for (std::size_t i = 0; i < at.size(); ++i) {
    if (std::isfinite(values[i])) curve.vertices.push_back(vertex(at[i].kelvin, values[i]));
  }
  if (!curve.vertices.empty()) {
    curve.marks = {curve.vertices.front(), curve.vertices.back()};
  }
  ChartLine points;
  points.label = "points";
  points.isPoints = true;
  for (FitPoint const& point : fitted.points) {
    points.vertices.push_back(vertex(point.kelvin, point.value));
  }
  chart.lines = {std::move(curve), std::move(points)};
  return chart;
}

}  // namespace zel::desk
