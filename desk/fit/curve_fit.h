// Least squares of a form to points of a correlation.
#pragma once

#include <zelaccess/Correlation.h>

#include <cstddef>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "desk/fit/least_squares.h"

namespace zel::desk {

struct FitPoint {
  double kelvin = 0.0;
  double value = 0.0;  // in the unit of the correlation
  // Standard uncertainty of the value in its unit; NaN if it is not known.
  double uncertainty = std::numeric_limits<double>::quiet_NaN();
};

// What is made small: differences of the logarithms of values, or of values.
enum class FitQuantity { kLogarithm, kValue };
// The logarithm for vapor pressures and viscosities of liquids, which extend over orders of
// magnitude; else the value.
FitQuantity UsualQuantity(std::uint32_t index);

struct FitTask {
  // The correlation's index, the equation, units (temperatures in K), the factor and the constants
  // of the component. 0 coefficients: as many as the equation usually has. A range that is
  // undefined is that of the points.
  zel::ZelCorrelation record;
  std::vector<FitPoint> points;
  // Coefficients that are kept, by place from 0.
  std::vector<std::optional<double>> kept;
  std::optional<FitQuantity> quantity;
};

// How far the values of a record are from points.
struct FitDeviations {
  std::size_t points = 0;
  double mean = 0.0;               // of the absolute values
  double meanPercent = 0.0;        // NaN if a value is 0
  double greatest = 0.0;           // with its sign, the record minus the point
  double greatestAt = 0.0;         // K
  double greatestPercent = 0.0;    // of the point's value, with its sign; NaN if a value is 0
  double greatestPercentAt = 0.0;  // K; 0 if a value is 0
};

struct CurveFit {
  // With the coefficients in 7 digits, as libraries keep them.
  zel::ZelCorrelation record;
  std::vector<double> coefficients;  // all digits
  std::vector<double> errors;        // standard errors; 0 for kept ones, NaN for undetermined ones
  SquaresMatrix covariance{0, 0};    // of all coefficients
  std::vector<bool> isKept;
  std::vector<bool> isDetermined;
  FitQuantity quantity = FitQuantity::kValue;
  bool isWeighted = false;  // by the uncertainties of the points
  bool isDirect = false;    // one linear problem
  std::size_t starts = 0;   // of searches, if it is not
  double sum = 0.0;         // of the squared, weighted deviations in the quantity
  // The sum by the degrees of freedom: points less coefficients that they determine; NaN if there
  // are none.
  double variance = 0.0;
  FitDeviations deviations;  // of the record
};

// Finds the coefficients. Linear problems are solved directly; others from several starts, by rules
// of each form (form_rules.h), with scaled coefficients. Throws Failure for an equation that cannot
// be fitted or does not have so many coefficients or one that is kept, a constant that the form
// needs and that the record does not have, fewer points or fewer temperatures than coefficients, a
// temperature or a value that is not finite or does not suit the quantity or the form, an
// uncertainty that is not above 0 or is missing for some points only, and where no start leads to
// values.
CurveFit FitCurve(FitTask const& task);

// How far the points are from the curve in terms of their uncertainties, squared: about 1 if they
// agree with them. NaN for points without uncertainties and without degrees of freedom.
double ReducedSum(CurveFit const& fit);

// The values of the record at the points; NaN where it has none.
std::vector<double> ValuesAt(zel::ZelCorrelation const& record,
                             std::vector<FitPoint> const& points);
FitDeviations DeviationsFrom(zel::ZelCorrelation const& record,
                             std::vector<FitPoint> const& points);

}  // namespace zel::desk
