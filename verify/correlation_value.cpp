// Whether the record of a correlation is good as a whole, whether it has a value, and its units of
// temperatures.
#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>

#include "frame/ascii.h"
#include "zelaccess/PureComp.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

// The fewest coefficients with which an equation keeps its form: those that divide or multiply the
// whole, that are an exponent or a temperature in it, or that decide whether it has a value. The
// others are further terms of a sum, which a record may leave out.
struct Equation {
  std::int32_t number;
  std::int32_t least;
};
constexpr Equation kEquations[] = {
    {1, 1},  {2, 1},  {3, 3},  {4, 3},   {5, 3},   {6, 1},  {12, 1}, {13, 5}, {14, 2},
    {15, 2}, {16, 4}, {17, 4}, {18, 3},  {19, 2},  {20, 2}, {21, 3}, {22, 1}, {23, 3},
    {24, 4}, {25, 1}, {26, 3}, {27, 2},  {28, 3},  {29, 3}, {30, 2}, {31, 2}, {32, 2},
    {33, 1}, {34, 2}, {35, 2}, {36, 1},  {37, 3},  {38, 1}, {39, 3}, {40, 8}, {41, 3},
    {42, 1}, {43, 2}, {44, 2}, {45, 3},  {46, 2},  {47, 4}, {48, 4}, {49, 2}, {51, 11},
    {52, 2}, {53, 2}, {54, 3}, {117, 4}, {126, 2}, {134, 1}};

constexpr double kIcePoint = 273.15;        // K
constexpr double kFahrenheitZero = 459.67;  // Rankine
constexpr double kRankine = 1.8;            // degrees Rankine per kelvin

double ToKelvin(double value, std::int32_t unit) {
  switch (unit) {
    case 11: return value + kIcePoint;
    case 12: return value / kRankine;
    case 13: return (value + kFahrenheitZero) / kRankine;
    default: return value;
  }
}

double FromKelvin(double value, std::int32_t unit) {
  switch (unit) {
    case 11: return value - kIcePoint;
    case 12: return value * kRankine;
    case 13: return value * kRankine - kFahrenheitZero;
    default: return value;
  }
}

std::string FaultOf(std::int32_t number, std::int32_t coefficients) {
  auto const row =
      std::find_if(std::begin(kEquations), std::end(kEquations),
                   [&](Equation const& equation) { return equation.number == number; });
  std::string const equation = "equation " + std::to_string(number);
  if (row == std::end(kEquations)) return equation + " is not known";
  if (coefficients >= row->least) return "";
  return equation + " needs at least " + std::to_string(row->least) +
         " coefficients, but the record has " + std::to_string(coefficients) +
         "; missing ones count as 0";
}

}  // namespace

// The conversion through kelvin adds rounding errors to the last digits, which are cut off.
double ConvertTemperature(double value, std::int32_t from, std::int32_t to) {
  constexpr double kDigits = 1e9;
  if (from == to) return value;
  return std::round(FromKelvin(ToKelvin(value, from), to) * kDigits) / kDigits;
}

bool GetCorrelationFault(std::int32_t equation, std::int32_t coefficientCount, char* text) {
  constexpr std::size_t kSize = 120;
  std::string const fault = FaultOf(equation, coefficientCount);
  GiveText(fault, text, kSize);
  return !fault.empty();
}

// An equation without a value leaves the number that was passed in, which later steps may change.
// Only an extrapolation changes a NaN, so then the value at the bound is checked too.
bool GetCorrelationValue(IZelPureComp* component, std::uint32_t index, double temperature,
                         std::int32_t order, double& value, double& derivative,
                         std::int32_t& status) {
  double const none = gen_GetUndefDouble();
  value = derivative = none;
  status = 0;
  if (component == nullptr) return false;
  auto const valueAt = [&](double at, double& slope, std::int32_t& where) {
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    double found = kNan;
    bool const failed = component->EvaluateCorrelation(index, at, order, &found, &slope, nullptr,
                                                       &where) == kStatusFailed;
    return failed ? kNan : found;
  };
  double slope = none;
  double const found = valueAt(temperature, slope, status);
  bool isThere = std::isfinite(found) && !gen_IsUndefDouble(found);
  if (isThere && status != 0) {
    double tMin = none, tMax = none, unused = none;
    std::int32_t inside = 0;
    component->GetCorrelation(index, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                              &tMin, &tMax, nullptr);
    isThere = !std::isnan(valueAt(status > 0 ? tMax : tMin, unused, inside));
  }
  if (!isThere) return false;
  value = found;
  derivative = slope;
  return true;
}

}  // namespace zel
