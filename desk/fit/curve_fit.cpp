#include "desk/fit/curve_fit.h"

#include <zelaccess/Verify.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <set>

#include "desk/fit/fit_search.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/table.h"

namespace zel::desk {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

std::string AtKelvins(double kelvin) { return "at " + Digits(kelvin) + " K"; }

std::string EquationWord(int equation) { return "equation " + std::to_string(equation); }

FormRule const& RuleFor(zel::ZelCorrelation& record) {
  FormRule const* const rule = FindFormRule(record.equation);
  if (rule == nullptr) throw Failure(WhyNotFitted(record.equation));
  constexpr std::int32_t kMost = 15;
  std::int32_t& count = record.coefficientCount;
  if (count == 0) count = rule->usual;
  auto const& counts = rule->counts;
  bool const isAllowed = counts.empty()
                             ? count >= 1 && count <= kMost
                             : std::find(counts.begin(), counts.end(), count) != counts.end();
  if (isAllowed) return *rule;
  std::string list;
  for (int const one : counts) list += (list.empty() ? "" : ", ") + std::to_string(one);
  if (counts.empty()) list = "1 to 15";
  throw Failure(EquationWord(record.equation) + " is fitted with " + list +
                " coefficients, not with " + std::to_string(count));
}

void CheckConstants(FormRule const& rule, zel::ZelCorrelation const& record) {
  for (std::string const& keyword : ListWords(rule.constants)) {
    double const value = keyword == "TC"   ? record.criticalTemperature
                         : keyword == "PC" ? record.criticalPressure
                         : keyword == "MW" ? record.molecularWeight
                                           : record.boilingPoint;
    if (!zel::gen_IsUndefDouble(value)) continue;
    throw Failure(EquationWord(rule.equation) + " uses " + keyword +
                  ", which the component does not have");
  }
}

// The range that is not given is that of the points.
void CompleteRange(std::vector<FitPoint> const& points, zel::ZelCorrelation& record) {
  auto const [low, high] = std::minmax_element(
      points.begin(), points.end(),
      [](FitPoint const& one, FitPoint const& other) { return one.kelvin < other.kelvin; });
  if (zel::gen_IsUndefDouble(record.tMin)) record.tMin = low->kelvin;
  if (zel::gen_IsUndefDouble(record.tMax)) record.tMax = high->kelvin;
  constexpr double kRounding = 1e-12;  // of temperatures that were converted
  if (low->kelvin < record.tMin * (1.0 - kRounding)) {
    throw Failure("a point is below the range, " + AtKelvins(low->kelvin));
  }
  if (high->kelvin > record.tMax * (1.0 + kRounding)) {
    throw Failure("a point is above the range, " + AtKelvins(high->kelvin));
  }
}

void CheckPoint(FitPoint const& point, FitQuantity quantity, FormRule const& rule) {
  if (!std::isfinite(point.kelvin)) throw Failure("the temperature of a point is not a number");
  std::string const where = AtKelvins(point.kelvin);
  if (!(point.kelvin > 0.0)) throw Failure("a point is not above 0 K, " + where);
  if (!std::isfinite(point.value)) throw Failure("the value " + where + " is not a number");
  if (quantity == FitQuantity::kLogarithm && !(point.value > 0.0)) {
    throw Failure("the value " + where + " is not above 0 and has no logarithm");
  }
  if (rule.linear == LinearIn::kLogarithm && point.value < 0.0) {
    throw Failure(EquationWord(rule.equation) + " has no values below 0, as there is one " + where);
  }
}

// True if the points have uncertainties.
bool CheckUncertainties(std::vector<FitPoint> const& points) {
  bool const isWeighted = !std::isnan(points.front().uncertainty);
  for (FitPoint const& point : points) {
    std::string const where = AtKelvins(point.kelvin);
    if (std::isnan(point.uncertainty) == isWeighted) {
      throw Failure("some points have an uncertainty and others have none, as that " + where);
    }
    if (isWeighted && !(point.uncertainty > 0.0 && std::isfinite(point.uncertainty))) {
      throw Failure("the uncertainty " + where + " is not above 0");
    }
  }
  return isWeighted;
}

void CheckNumber(std::vector<FitPoint> const& points, std::size_t free) {
  if (points.size() < free) {
    throw Failure(std::to_string(points.size()) + " points cannot determine " +
                  std::to_string(free) + " coefficients");
  }
  std::set<double> temperatures;
  for (FitPoint const& point : points) temperatures.insert(point.kelvin);
  if (temperatures.size() == 1) throw Failure("all points are at one temperature");
  if (temperatures.size() < free) {
    throw Failure("points at " + std::to_string(temperatures.size()) +
                  " temperatures cannot determine " + std::to_string(free) + " coefficients");
  }
}

void CheckKept(FitTask const& task, zel::ZelCorrelation const& record) {
  auto const count = static_cast<std::size_t>(record.coefficientCount);
  for (std::size_t j = count; j < task.kept.size(); ++j) {
    if (!task.kept[j]) continue;
    throw Failure(EquationWord(record.equation) + " with " + std::to_string(count) +
                  (count == 1 ? " coefficient" : " coefficients") + " has no C" +
                  std::to_string(j + 1));
  }
}

void AddNumbers(FitTask const& task, bool isWeighted, FitSearchTask& search) {
  double const scale = search.model->Scale();
  double squares = 0.0;
  for (FitPoint const& point : task.points) {
    search.temperatures.push_back(point.kelvin);
    search.numbers.push_back(point.value / scale);
    squares += search.numbers.back() * search.numbers.back();
  }
  double const typical = std::sqrt(squares / static_cast<double>(task.points.size()));
  bool const isLog = search.quantity == FitQuantity::kLogarithm;
  for (FitPoint const& point : task.points) {
    double const whole = isLog ? 1.0 : 1.0 / (typical > 0.0 ? typical : 1.0);
    double const known = (isLog ? point.value : scale) / point.uncertainty;
    search.weights.push_back(isWeighted ? std::abs(known) : whole);
  }
}

// As a library keeps it: single precision, of which 7 digits are read.
double AsStored(double value) {
  return std::strtod(Digits(static_cast<double>(static_cast<float>(value))).c_str(), nullptr);
}

void AddCertainty(FitSearchTask const& search, CurveFit& fit) {
  SquaresMatrix const jacobian = FitJacobian(search, fit.coefficients);
  SquaresCertainty certainty = CertaintyOf(jacobian);
  std::size_t const count = fit.coefficients.size();
  std::size_t const freedom = jacobian.rows - certainty.rank;
  fit.variance = freedom > 0 ? fit.sum / static_cast<double>(freedom) : kNotANumber;
  double const factor = fit.isWeighted ? 1.0 : fit.variance;
  fit.covariance = SquaresMatrix(count, count);
  fit.errors.assign(count, 0.0);
  fit.isDetermined.assign(count, true);
  std::vector<std::size_t> places;
  for (std::size_t j = 0; j < count; ++j) {
    fit.isKept.push_back(search.kept[j].has_value());
    if (!search.kept[j]) places.push_back(j);
  }
  for (std::size_t i = 0; i < places.size(); ++i) {
    for (std::size_t j = 0; j < places.size(); ++j) {
      fit.covariance.Row(places[i])[places[j]] = factor * certainty.covariance.Row(i)[j];
    }
    fit.errors[places[i]] = std::sqrt(fit.covariance.Row(places[i])[places[i]]);
    fit.isDetermined[places[i]] = certainty.isDetermined[i];
  }
}

}  // namespace

FitQuantity UsualQuantity(std::uint32_t index) {
  bool const isWide =
      index == zel::correlationVaporPressure || index == zel::correlationLiquidViscosity;
  return isWide ? FitQuantity::kLogarithm : FitQuantity::kValue;
}

std::vector<double> ValuesAt(zel::ZelCorrelation const& record,
                             std::vector<FitPoint> const& points) {
  std::vector<double> values;
  for (FitPoint const& point : points) {
    double value = kNotANumber;
    zel::EvaluateOne(record, point.kelvin, 1, &value, nullptr, nullptr, nullptr);
    values.push_back(value);
  }
  return values;
}

FitDeviations DeviationsFrom(zel::ZelCorrelation const& record,
                             std::vector<FitPoint> const& points) {
  constexpr double kPercent = 100.0;
  FitDeviations result;
  std::vector<double> const values = ValuesAt(record, points);
  bool hasRatios = true;
  for (std::size_t i = 0; i < points.size(); ++i) {
    double const difference = values[i] - points[i].value;
    if (std::isnan(difference)) continue;
    ++result.points;
    result.mean += std::abs(difference);
    if (std::abs(difference) >= std::abs(result.greatest)) {
      result.greatest = difference;
      result.greatestAt = points[i].kelvin;
    }
    hasRatios = hasRatios && points[i].value != 0.0;
    double const percent = difference / std::abs(points[i].value) * kPercent;
    result.meanPercent += std::abs(percent);
    if (std::abs(percent) >= std::abs(result.greatestPercent)) {
      result.greatestPercent = percent;
      result.greatestPercentAt = points[i].kelvin;
    }
  }
  auto const count = static_cast<double>(result.points);
  result.mean = result.points > 0 ? result.mean / count : kNotANumber;
  result.meanPercent = result.points > 0 && hasRatios ? result.meanPercent / count : kNotANumber;
  if (!hasRatios) {
    result.greatestPercent = kNotANumber;
    result.greatestPercentAt = 0.0;
  }
  return result;
}

double ReducedSum(CurveFit const& fit) { return fit.isWeighted ? fit.variance : kNotANumber; }

CurveFit FitCurve(FitTask const& task) {
  NeedLeastSquares();
  zel::ZelCorrelation record = task.record;
  FormRule const& rule = RuleFor(record);
  CheckConstants(rule, record);
  CheckKept(task, record);
  if (task.points.empty()) throw Failure("there are no points");
  CurveFit fit;
  fit.quantity = task.quantity.value_or(UsualQuantity(record.index));
  for (FitPoint const& point : task.points) CheckPoint(point, fit.quantity, rule);
  fit.isWeighted = CheckUncertainties(task.points);
  CompleteRange(task.points, record);
  FormModel const model(record);
  FitSearchTask search{&model, &rule, &record, fit.quantity, {}, {}, {}, task.kept};
  search.kept.resize(model.Count());
  AddNumbers(task, fit.isWeighted, search);
  KeepByRule(search);
  auto const free = std::count(search.kept.begin(), search.kept.end(), std::nullopt);
  if (free == 0) throw Failure("no coefficient is left to fit");
  CheckNumber(task.points, static_cast<std::size_t>(free));
  std::optional<FitSearchResult> const found = SearchCoefficients(search);
  if (!found) {
    throw Failure(EquationWord(rule.equation) +
                  " does not suit the points: it has no values there wherever the search begins");
  }
  fit.coefficients = found->coefficients;
  fit.sum = found->sum;
  fit.isDirect = found->isDirect;
  fit.starts = found->starts;
  AddCertainty(search, fit);
  std::vector<double> stored;
  for (double const c : fit.coefficients) stored.push_back(AsStored(c));
  fit.record = model.RecordWith(stored);
  fit.deviations = DeviationsFrom(fit.record, task.points);
  return fit;
}

}  // namespace zel::desk
