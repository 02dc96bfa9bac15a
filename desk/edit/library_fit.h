// A correlation of a component of a library fitted to points, and set.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "desk/edit/item_edit.h"
#include "desk/fit/curve_fit.h"
#include "desk/pictures/plot.h"

namespace zel::desk {

// What to fit. Empty texts: the only bank of components, the range of the points, the unit in which
// the correlation is evaluated, natural logarithms.
struct LibraryFit {
  std::string bank;
  std::string component;    // by number, ID, CAS number or name
  std::string correlation;  // its name or the beginning of it
  int equation = 0;
  int coefficients = 0;               // 0: as many as the equation usually has
  std::vector<std::string> fixed;     // "C5=2", "C3=TC"
  std::string range;                  // MIN:MAX; points outside are left out
  std::string deviations;             // relative or absolute; empty: as the correlation is
  std::string unit;                   // of the values of the equation
  bool isUnweighted = false;          // uncertainties of points do not matter
  std::string basis;                  // mole or mass
  std::string logarithm;              // natural or decimal
  std::optional<std::uint32_t> code;  // reference
};

struct FittedRecord {
  zel::ZelCorrelationInfo const* info = nullptr;
  CurveFit fit;
  std::vector<FitPoint> points;  // that were fitted, by temperature
  std::size_t leftOut = 0;       // points outside the range
  std::vector<std::string> warnings;
  EditedItem edited;
};

// Fits the points of the component, those of sets that name another one are passed over, and sets
// the record in the library, which is open for update. Numbers without a unit are in the session's
// display units. If the library does not have the component, it is first copied from the library
// `from`, which may be null. Throws Failure as FitCurve and EditItem do, and WrongUsage; the
// library may then be half changed.
FittedRecord FitInLibrary(Library const& library, LibraryFit const& asked,
                          std::vector<PlotPoints> const& sets, Library const* from);

// The tables of a fit. Coefficients: name, value, standard error, and what is special; deviations
// of the record; points with the values of the record.
Table CoefficientTable(FittedRecord const& fitted);
Table DeviationTable(FittedRecord const& fitted, DisplayUnits const& units);
Table ResidualTable(FittedRecord const& fitted, DisplayUnits const& units);
// "logarithm of the value, weighted by uncertainties"
std::string QuantityText(CurveFit const& fit);

// The points and the curve of the record.
Chart FitChart(FittedRecord const& fitted, DisplayUnits const& units);

}  // namespace zel::desk
