// The numbered equations that programs for process data share, in the forms of this library.
#pragma once

#include <string>
#include <vector>

#include "desk/formats/foreign_record.h"

namespace zel::desk {

// A record of the file: Y(T) with T in K. The coefficients A, B, ... are in this order; those that
// the file does not have are 0.
struct ForeignEquation {
  int number = 0;
  std::vector<double> coefficients;
};

// Sets equation, coefficients and logarithm of the curve so that it has the same values. Returns
// why it cannot: empty for a good one. `what` receives how it was done; `isSame` whether all
// numbers are those of the file; `needsTc` whether the form reads the component's TC.
std::string ConvertEquation(ForeignEquation const& from, ForeignCurve& to, std::string& what,
                            bool& isSame);

// The enthalpy of a heat capacity of equations 1 to 5, 100 and 107: its integral over the
// temperature, 0 at 298.15 K. False for other equations, and for a coefficient other than 0 that
// the equation does not have.
bool IntegrateHeatCapacity(ForeignEquation const& cp, Curve& enthalpy);

// The equations that ConvertEquation knows, for documents: number, form here, coefficients.
struct EquationRow {
  int number;
  int form;
  char const* terms;  // "A -B C": what C1, C2, ... are
};
std::vector<EquationRow> EquationRows();

}  // namespace zel::desk
