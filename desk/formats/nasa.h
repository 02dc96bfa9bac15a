// Polynomials of ideal gases with 7 or 9 coefficients a range, whichever file they are from.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "desk/formats/formats.h"

namespace zel::desk {

// Cp/R = a1 + a2 T + a3 T^2 + a4 T^3 + a5 T^4 and the constants a6 of the enthalpy and a7 of the
// entropy; or Cp/R = a1/T^2 + a2/T + a3 + a4 T + a5 T^2 + a6 T^3 + a7 T^4, and a8 and a9.
struct NasaRange {
  std::size_t line = 0;
  double low = 0.0;  // K
  double high = 0.0;
  std::vector<double> a;
};

struct NasaSpecies {
  std::size_t line = 0;
  std::string name;
  std::map<std::string, double> elements;  // atoms
  std::string notGas;                      // why it is not an ideal gas; empty for one
  std::string remark;                      // on its ranges, for the report
  std::vector<NasaRange> ranges;
  // What is wrong with its numbers; its data are then refused.
  std::string fault;
};

inline constexpr char kNotGas[] = "it is not a gas";

// "C2H6O" of the atoms; empty if there are parts of atoms or electrons.
std::string FormulaOf(std::map<std::string, double> const& elements);

// The record of one range: the lowest or highest one if that is asked for, else the one with
// 298.15 K, else the lowest.
ForeignComponent FromNasa(NasaSpecies const& species, ForeignOptions const& options);

// A file of fixed columns, or YAML if its name ends in .yaml or .yml.
ForeignFile ReadNasa(std::string const& path, ForeignOptions const& options);
ForeignFile ReadNasaYaml(std::string const& path, ForeignOptions const& options);

}  // namespace zel::desk
