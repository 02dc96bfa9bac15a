// A pure component: the catalogue of its data, and what an item holds of them.
#pragma once

#include <zelaccess/Desk.h>
#include <zelaccess/Identity.h>
#include <zelaccess/Verify.h>
#include <zelaccess/ZelAccess.h>

#include <array>
#include <string>
#include <vector>

#include "desk/words/display_units.h"
#include "desk/words/table.h"

namespace zel::desk {

inline constexpr char kPureType[] = "PURECOMP";

std::vector<zel::ZelConstantInfo> const& Constants();
std::vector<zel::ZelCorrelationInfo> const& Correlations();
// Find a datum by keyword or name, in upper or lower case, or by the unique beginning of a
// correlation's name. Null for any other word.
zel::ZelConstantInfo const* FindConstant(std::string const& word);
zel::ZelCorrelationInfo const* FindCorrelation(std::string const& word);
// A suggestion for a word that is neither; see DidYouMean in desk/words/nearest_word.h.
std::string DidYouMeanConstant(std::string const& word);
std::string DidYouMeanCorrelation(std::string const& word);
std::string DidYouMeanDatum(std::string const& word);  // either
std::uint32_t IndexOf(zel::ZelCorrelationInfo const& correlation);
// The models that a component can have groups of, by index.
std::vector<std::string> const& StructureModels();

// A stored correlation.
struct Curve {
  bool present = false;
  bool given = true;  // false: stored, but not returned by the library; it can still be evaluated
  std::int32_t equation = 0;
  std::int32_t tempUnit = 10;
  std::int32_t propUnit = 0;
  std::int32_t logBasis = 0;
  std::int32_t basis = 0;
  double tMin = zel::gen_GetUndefDouble();
  double tMax = zel::gen_GetUndefDouble();
  std::vector<double> coefficients;  // also if not `given`
  std::uint32_t refCode = 0;
  std::string source;
};

// One value of a correlation; value and slope are undefined where it has no value.
struct Point {
  bool there = false;
  double value = 0.0;
  double slope = 0.0;
  std::int32_t status = 0;  // 0 inside the range, 1 above, -1 below
};

class PureComponent {
 public:
  PureComponent();

  zel::IZelBankDef* Def() const { return face_.Def(); }
  zel::IZelPureComp* operator->() const { return face_.operator->(); }

  Identity ReadIdentity() const;
  // The identity by which it is compared.
  zel::ZelIdentity Compared() const;
  std::string Smiles() const;
  std::int32_t Phase() const;
  // Counts and groups of a model, as "2x1 1x14"; empty without groups.
  std::string Groups(std::uint32_t model) const;
  // Derives missing data.
  void Complete();
  double Constant(std::uint32_t index) const;
  zel::zelConstantStates State(std::uint32_t index) const;
  // Stored, or derived from data that exist.
  double Completed(std::uint32_t index) const;
  std::uint32_t ConstantCode(std::uint32_t index) const;
  // Where a constant came from, or the method that derived it; empty for a missing one.
  std::string ConstantSource(std::uint32_t index) const;
  Curve ReadCurve(std::uint32_t index) const;
  // `order`, 1 to 3, is that of the derivative.
  Point At(std::uint32_t index, double temperature, std::int32_t order = 1) const;

 private:
  zel::BankFace<zel::IZelPureComp> face_;
};

// The derivative of an order, 1 to 3, at a temperature in the record's unit, with respect to the
// temperature in K; undefined where the correlation has no derivative.
double SlopePerKelvin(PureComponent const& component, std::uint32_t index, Curve const& curve,
                      double temperature, int order);

// "equation 99 is not known", or "equation 16 needs at least 4 coefficients, but the record has 2;
// missing ones count as 0"; empty when nothing is wrong.
std::string FaultOf(Curve const& curve);
// The letter of a temperature unit of a stored correlation.
char const* TemperatureUnit(std::int32_t code);
// The temperature range of a correlation: "159.05 to 514 K", "from 159.05 K", "up to 514 K";
// nothing for a record without limits. It is in the record's unit, or in the display unit if units
// were chosen.
Cell RangeOf(Curve const& curve, DisplayUnits const& units);
// The unit of a stored correlation's values; its code if it has no name, nothing for 0.
Cell UnitOf(Curve const& curve);
// The unit per mole that records name by a unit per mass and the basis mole: "kJ/kg-mol" for
// "kJ/kg". A unit without a mass stays.
std::string UnitPerMole(std::string const& unit);
// The amount to which the unit of a specific property refers: mole, mass or nothing.
Cell BasisOf(Curve const& curve);
// The phases as words, such as "vapor liquid"; empty if no phase is set.
Cell PhasesOf(PureComponent const& component);

}  // namespace zel::desk
