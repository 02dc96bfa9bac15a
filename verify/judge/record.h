// A component of a bank as the judgement of data reads it: its constants and curves by themselves.
#pragma once

#include <array>
#include <bitset>
#include <cmath>
#include <cstdint>
#include <string>

#include "verify/component_view.h"
#include "verify/composition.h"
#include "verify/data_finding.h"
#include "zelaccess/Correlation.h"

namespace zel {

inline constexpr std::uint32_t kJudgedConstants = 50;
inline constexpr std::uint32_t kJudgedCurves = 18;

// A constant or a curve (a temperature correlation).
class Datum {
 public:
  static constexpr Datum Constant(std::uint32_t index) { return Datum(index); }
  static constexpr Datum Curve(std::uint32_t index) { return Datum(kJudgedConstants + index); }

  constexpr bool IsCurve() const { return code_ >= kJudgedConstants; }
  // One of zelProperties or zelCorrelations.
  constexpr std::uint32_t Index() const { return IsCurve() ? code_ - kJudgedConstants : code_; }
  char const* Name() const;
  char const* Unit() const;
  friend constexpr bool operator==(Datum, Datum) = default;
  friend constexpr bool operator<(Datum a, Datum b) { return a.code_ < b.code_; }

 private:
  explicit constexpr Datum(std::uint32_t code) : code_(code) {}
  std::uint32_t code_;
};

// A range of temperatures in K; undefined ends do not bound it.
struct KelvinRange {
  double low = gen_GetUndefDouble();
  double high = gen_GetUndefDouble();

  bool IsBounded() const { return IsDefined(low) && IsDefined(high); }
};

class Record {
 public:
  // `item` names it in findings. Copies what it needs of the component.
  Record(ComponentView const& component, CheckedItem item);

  CheckedItem const& Item() const { return item_; }
  ZelIdentity const& Identity() const { return identity_; }
  // Atoms by element; empty if the formula has none.
  Composition const& Atoms() const { return atoms_; }
  // The SMILES text; empty if the component has none.
  std::string const& Smiles() const { return smiles_; }

  bool Has(Datum datum) const;
  // Undefined if the component does not have it.
  double Constant(std::uint32_t index) const { return constants_[index]; }
  // False for Expansion and for equations 38 and 54, which cannot be evaluated by themselves.
  bool HasCurve(std::uint32_t index) const { return curves_[index] >= 0; }
  // A curve without limits has the range in which such curves are usual, if TC is known: of a
  // liquid NMP or 0.4 TC to 0.9 TC (a viscosity to 0.75 TC), of a gas 0.5 TC to 1.3 TC.
  KelvinRange RangeOf(std::uint32_t curve) const;
  ZelCorrelation const& Curve(std::uint32_t curve) const;
  // The value at a temperature in K within the range and 0.5 K around it (a number needs no range),
  // in the curve's internal unit; undefined elsewhere, and if it is not finite.
  double At(std::uint32_t curve, double kelvin) const;
  // The same without regard to the range: what the equation itself gives.
  double Extended(std::uint32_t curve, double kelvin) const;
  // The derivative per K, within the range.
  double Slope(std::uint32_t curve, double kelvin) const;
  // The constants of the record with which a curve is evaluated: all that its equation or its basis
  // uses.
  std::vector<std::uint32_t> const& ConstantsOf(std::uint32_t curve) const;
  // Completes what curves are evaluated with, where the record itself does not have it: values of
  // other records of the substance, undefined if none has them.
  void Complete(double molecularWeight, double criticalTemperature, double criticalPressure,
                double boilingPoint);
  // Distinguishes what is stored for a datum from other values: the same on each machine.
  std::string StoredText(Datum datum) const;

 private:
  double Evaluate(std::uint32_t curve, double kelvin, double* slope) const;

  CheckedItem item_;
  ZelIdentity identity_;
  Composition atoms_;
  std::string smiles_;
  std::array<double, kJudgedConstants> constants_{};
  std::array<std::int8_t, kJudgedCurves> curves_{};  // in taken_, -1 for none
  std::vector<ZelCorrelation> taken_;
  std::vector<std::vector<std::uint32_t>> used_;  // constants, for each of taken_
};

}  // namespace zel
