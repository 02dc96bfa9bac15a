#include "open/curve_faults.h"

#include <algorithm>
#include <iterator>

namespace zelhost {
namespace {

// The fewest coefficients with which an equation keeps its form: those that divide or multiply the
// whole, that are an exponent or a temperature in it, or that decide whether it has a value. The
// others are further terms of a sum, which a record may leave out.
struct Equation {
  int number;
  std::size_t least;
};
constexpr Equation kEquations[] = {
    {1, 1},  {2, 1},  {3, 3},  {4, 3},   {5, 3},   {6, 1},  {12, 1}, {13, 5}, {14, 2},
    {15, 2}, {16, 4}, {17, 4}, {18, 3},  {19, 2},  {20, 2}, {21, 3}, {22, 1}, {23, 3},
    {24, 4}, {25, 1}, {26, 3}, {27, 2},  {28, 3},  {29, 3}, {30, 2}, {31, 2}, {32, 2},
    {33, 1}, {34, 2}, {35, 2}, {36, 1},  {37, 3},  {38, 1}, {39, 3}, {40, 8}, {41, 3},
    {42, 1}, {43, 2}, {44, 2}, {45, 3},  {46, 2},  {47, 4}, {48, 4}, {49, 2}, {51, 11},
    {52, 2}, {53, 2}, {54, 3}, {117, 4}, {126, 2}, {134, 1}};

}  // namespace

std::string FaultOf(Curve const& curve) {
  auto const row =
      std::find_if(std::begin(kEquations), std::end(kEquations),
                   [&](Equation const& equation) { return equation.number == curve.equation; });
  std::string const equation = "equation " + std::to_string(curve.equation);
  if (row == std::end(kEquations)) return equation + " is not known";
  std::size_t const count = curve.coefficients.size();
  if (count >= row->least) return "";
  return equation + " needs at least " + std::to_string(row->least) +
         " coefficients, but the record has " + std::to_string(count) + "; missing ones count as 0";
}

}  // namespace zelhost
