#include "sense/sense_checks.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <limits>

#include "open/curve_faults.h"
#include "sense/sense_terms.h"

namespace zelhost {
namespace {

constexpr double kGas = 8.314462618;  // kJ/(kg-mol K), CODATA 2018, exact

// The checks of one component.
class Checked {
 public:
  Checked(PureComponent const& component, std::string const& place, TellSense const& tell)
      : c_(component), place_(place), tell_(tell) {}

  void Identity();
  void Equations();
  void Temperatures();
  void Critical();
  void Acentric();
  void VaporPressure();
  void CriticalDensity();
  void LatentHeat();
  void SolidRanges();
  void Curves();
  void Sources();

 private:
  void Tell(char const* id, std::string const& text, bool isError = false) const {
    tell_(id, place_, text, isError);
  }
  double Of(zel::zelProperties index) const { return c_.Constant(index); }
  double At(std::uint32_t curve, double kelvin) const { return InsideAt(c_, curve, kelvin); }
  void Below(char const* lower, double a, char const* higher, double b, double tolerance) const;
  void Monotonic(std::uint32_t index, bool rises) const;
  void Positive(std::uint32_t index) const;
  bool HasValue(std::uint32_t index, double temperature) const;
  void SurfaceTensionAtCritical() const;

  PureComponent const& c_;
  std::string const& place_;
  TellSense const& tell_;
};

void Checked::Identity() {
  zelhost::Identity const identity = c_.ReadIdentity();
  if (identity.cas.empty()) Tell("cas", "has no CAS number, or one whose check digit is wrong");
  double const expected = zel::GetFormulaWeight(identity.formula.c_str());
  double const stored = Of(zel::propertyMW);
  constexpr double kTolerance = 5e-4;
  if (Has(expected) && Has(stored) && std::abs(stored - expected) > kTolerance * expected) {
    Tell("formula-weight", "MW is " + Show(stored) + ", but the formula " + identity.formula +
                               " gives " + Show(expected));
  }
}

// An equation without a value leaves the number that was passed in.
bool Checked::HasValue(std::uint32_t index, double temperature) const {
  double value = std::numeric_limits<double>::quiet_NaN();
  double slope = 0.0;
  std::int32_t status = 0;
  zel::ZelStatus const result =
      c_->EvaluateCorrelation(index, temperature, 1, &value, &slope, nullptr, &status);
  return result != zel::kStatusFailed && std::isfinite(value);
}

void Checked::Equations() {
  for (auto const& row : Correlations()) {
    Curve const curve = c_.ReadCurve(IndexOf(row));
    if (!curve.present) continue;
    // For a record without limits, which is extrapolated nowhere.
    constexpr double kCold = 200.0;
    constexpr double kHot = 500.0;
    double const low = Has(curve.tMin) ? curve.tMin : kCold;
    double const high = Has(curve.tMax) ? curve.tMax : std::max(kHot, low);
    // Nothing is inside a range whose ends are swapped, and Expansion is never evaluated.
    bool const hasValue = low > high || IndexOf(row) == zel::correlationExpansion ||
                          HasValue(IndexOf(row), low) || HasValue(IndexOf(row), high) ||
                          HasValue(IndexOf(row), low + (high - low) / 2);
    std::string text = FaultOf(curve);
    if (text.empty() && hasValue) continue;
    if (text.empty()) text = "equation " + std::to_string(curve.equation) + " has no value";
    Tell("equation",
         row.name + (": " + text) + (hasValue ? "" : "; it cannot be evaluated within its range"),
         !hasValue);
  }
}

void Checked::Below(char const* lower, double a, char const* higher, double b,
                    double tolerance) const {
  if (Has(a) && Has(b) && a > b * (1 + tolerance)) {
    Tell("temperatures",
         std::string(lower) + " " + Show(a) + " is above " + higher + " " + Show(b));
  }
}

void Checked::Temperatures() {
  constexpr double kMeltingTolerance = 0.005;
  Below("NMP", Of(zel::propertyNMP), "TTP", Of(zel::propertyTTP), kMeltingTolerance);
  Below("NBP", Of(zel::propertyNBP), "TC", Of(zel::propertyTC), 0.0);
  constexpr double kEndTolerance = 1e-3;
  static constexpr std::uint32_t kLiquid[] = {
      zel::correlationVaporPressure,   zel::correlationLatentHeat,
      zel::correlationLiquidDensity,   zel::correlationSurfaceTension,
      zel::correlationLiquidEnthalpy,  zel::correlationLiquidThermal,
      zel::correlationLiquidViscosity, zel::correlationLiquidCp};
  for (auto const& row : Correlations()) {
    Curve const curve = c_.ReadCurve(IndexOf(row));
    if (!curve.present || !Has(curve.tMin) || !Has(curve.tMax)) continue;
    if (curve.tMin >= curve.tMax) {
      Tell("temperatures", row.name + std::string(" has the range ") + Show(curve.tMin) + " to " +
                               Show(curve.tMax) + " " + TemperatureUnit(curve.tempUnit));
    }
    bool const isLiquid =
        std::find(std::begin(kLiquid), std::end(kLiquid), IndexOf(row)) != std::end(kLiquid);
    if (isLiquid) {
      Below((std::string("the end of ") + row.name).c_str(),
            Convert(curve.tMax, curve.tempUnit, kKelvin), "TC", Of(zel::propertyTC), kEndTolerance);
    }
  }
}

void Checked::Critical() {
  double const stored = Of(zel::propertyZC);
  if (Has(Of(zel::propertyTC)) && Has(Of(zel::propertyPC)) && Has(Of(zel::propertyVC)) &&
      Of(zel::propertyTC) > 0.0) {
    double const z = Of(zel::propertyPC) * Of(zel::propertyVC) / (kGas * Of(zel::propertyTC));
    constexpr double kTolerance = 0.02;
    if (z < 0.15 || z > 0.40) {
      Tell("critical",
           "TC, PC and VC give a compressibility factor of " + Show(z) + ", expected 0.15 to 0.40");
    } else if (Has(stored) && std::abs(stored - z) > kTolerance * z) {
      Tell("critical", "ZC is " + Show(stored) + ", but TC, PC and VC give " + Show(z));
    }
  } else if (Has(stored) && (stored < 0.15 || stored > 0.40)) {
    Tell("critical", "ZC is " + Show(stored) + ", expected 0.15 to 0.40");
  }
}

void Checked::Acentric() {
  if (!Has(Of(zel::propertyACENTRIC)) || !Has(Of(zel::propertyTC)) || !Has(Of(zel::propertyPC)) ||
      Of(zel::propertyPC) <= 0.0)
    return;
  double const pressure = At(zel::correlationVaporPressure, 0.7 * Of(zel::propertyTC));
  if (!Has(pressure) || pressure <= 0.0) return;
  double const expected = -std::log10(pressure / Of(zel::propertyPC)) - 1.0;
  constexpr double kTolerance = 0.02;
  if (std::abs(Of(zel::propertyACENTRIC) - expected) > kTolerance) {
    Tell("acentric", "ACENTRIC is " + Show(Of(zel::propertyACENTRIC)) +
                         ", but the vapor pressure at 0.7 TC gives " + Show(expected));
  }
}

void Checked::VaporPressure() {
  constexpr double kAtBoiling = 0.02;
  constexpr double kAtCritical = 0.05;
  double const boiling = At(zel::correlationVaporPressure, Of(zel::propertyNBP));
  if (Has(Of(zel::propertyNBP)) && Has(boiling) &&
      std::abs(boiling - kAtmosphere) > kAtBoiling * kAtmosphere) {
    Tell("vapor-pressure", "at NBP " + Show(Of(zel::propertyNBP)) + " K the vapor pressure is " +
                               Show(boiling) + " kPa, expected 101.325");
  }
  double const critical = At(zel::correlationVaporPressure, Of(zel::propertyTC));
  if (Has(Of(zel::propertyTC)) && Has(Of(zel::propertyPC)) && Has(critical) &&
      std::abs(critical - Of(zel::propertyPC)) > kAtCritical * Of(zel::propertyPC)) {
    Tell("vapor-pressure", "at TC the vapor pressure is " + Show(critical) + " kPa, but PC is " +
                               Show(Of(zel::propertyPC)));
  }
}

void Checked::CriticalDensity() {
  double const density = At(zel::correlationLiquidDensity, Of(zel::propertyTC));
  constexpr double kTolerance = 0.1;
  if (!Has(Of(zel::propertyTC)) || !Has(Of(zel::propertyVC)) || Of(zel::propertyVC) <= 0.0 ||
      !Has(density))
    return;
  if (std::abs(density * Of(zel::propertyVC) - 1.0) > kTolerance) {
    Tell("critical-density", "at TC the liquid density is " + Show(density) +
                                 " kg-mol/m3, but VC gives " + Show(1.0 / Of(zel::propertyVC)));
  }
}

void Checked::LatentHeat() {
  double const stored = Of(zel::propertyHVAPNBP);
  if (!Has(stored) || !Has(Of(zel::propertyNBP))) return;
  double const heat = At(zel::correlationLatentHeat, Of(zel::propertyNBP));
  constexpr double kTolerance = 0.03;
  if (Has(heat) && std::abs(stored - heat) > kTolerance * std::abs(heat)) {
    Tell("latent-heat",
         "HVAPNBP is " + Show(stored) + " kJ/kg-mol, but the latent heat at NBP is " + Show(heat));
  }
}

void Checked::SolidRanges() {
  constexpr double kTolerance = 0.005;
  for (std::uint32_t const index :
       {zel::correlationSolidEnthalpy, zel::correlationSolidDensity, zel::correlationSolidCp}) {
    Curve const curve = c_.ReadCurve(index);
    if (!curve.present || !Has(curve.tMax)) continue;
    Below((std::string("the end of ") + Correlations()[index].name).c_str(),
          Convert(curve.tMax, curve.tempUnit, kKelvin), "NMP", Of(zel::propertyNMP), kTolerance);
  }
}

// Compares values at 20 steps over the record's range, with some tolerance for rounding.
void Checked::Monotonic(std::uint32_t index, bool rises) const {
  Curve const curve = c_.ReadCurve(index);
  if (!curve.present || !Has(curve.tMin) || !Has(curve.tMax) || curve.tMin >= curve.tMax) return;
  constexpr int kSteps = 20;
  constexpr double kPlay = 1e-6;
  double before = zel::gen_GetUndefDouble();
  for (int i = 0; i <= kSteps; ++i) {
    double const t = curve.tMin + (curve.tMax - curve.tMin) * i / kSteps;
    Point const point = c_.At(index, t);
    if (!point.there) continue;
    double const change = rises ? point.value - before : before - point.value;
    if (Has(before) && change < -kPlay * std::abs(before)) {
      Tell("monotony", Correlations()[index].name + std::string(rises ? " falls" : " rises") +
                           " at " + Show(t) + " " + TemperatureUnit(curve.tempUnit));
      return;
    }
    before = point.value;
  }
}

void Checked::Positive(std::uint32_t index) const {
  Curve const curve = c_.ReadCurve(index);
  if (!curve.present || !Has(curve.tMin) || !Has(curve.tMax)) return;
  for (double const t : {curve.tMin, (curve.tMin + curve.tMax) / 2, curve.tMax}) {
    Point const point = c_.At(index, t);
    if (point.there && !(point.value > 0.0)) {
      Tell("monotony", Correlations()[index].name + std::string(" is ") + Show(point.value) +
                           " at " + Show(t) + " " + TemperatureUnit(curve.tempUnit));
      return;
    }
  }
}

void Checked::SurfaceTensionAtCritical() const {
  Curve const curve = c_.ReadCurve(zel::correlationSurfaceTension);
  if (!curve.present || !Has(curve.tMin) || !Has(Of(zel::propertyTC))) return;
  double const cold =
      At(zel::correlationSurfaceTension, Convert(curve.tMin, curve.tempUnit, kKelvin));
  double const critical = At(zel::correlationSurfaceTension, Of(zel::propertyTC));
  constexpr double kNothing = 0.02;
  if (Has(cold) && Has(critical) && std::abs(critical) > kNothing * std::abs(cold)) {
    Tell("monotony", "SurfaceTension is " + Show(critical) + " at TC, expected 0");
  }
}

void Checked::Curves() {
  Monotonic(zel::correlationVaporPressure, true);
  Monotonic(zel::correlationVaporViscosity, true);
  Monotonic(zel::correlationSurfaceTension, false);
  SurfaceTensionAtCritical();
  for (std::uint32_t const index :
       {zel::correlationIdealGasCp, zel::correlationLiquidCp, zel::correlationSolidCp})
    Positive(index);
}

void Checked::Sources() {
  std::string without;
  for (auto const& row : Constants()) {
    if (Has(c_.Constant(row.index)) && c_.ConstantCode(row.index) == 0) {
      without += std::string(without.empty() ? "" : " ") + row.keyword;
    }
  }
  for (auto const& row : Correlations()) {
    Curve const curve = c_.ReadCurve(IndexOf(row));
    if (curve.present && curve.refCode == 0 &&
        IndexOf(row) < zel::correlationCharacteristicVolume) {
      without += std::string(without.empty() ? "" : " ") + row.name;
    }
  }
  if (!without.empty()) Tell("source", "no reference code: " + without);
}

}  // namespace

std::vector<SenseKind> const& SenseKinds() {
  static std::vector<SenseKind> const kinds = {
      {"cas", "a component has a CAS number with a valid check digit"},
      {"cas-shared", "no two components have the same CAS number"},
      {"cas-formula", "components with the same CAS number have the same formula", true},
      {kIdentity,
       "components of several banks or libraries with the same number, ID or CAS number have the "
       "same CAS number and the same formula",
       true},
      {"repeated",
       "no two components have the same coefficients except for rounding, or the same TC and PC; "
       "no "
       "four have the same constant of five or more digits"},
      {"equation",
       "the equation of a correlation is known, has the coefficients that it needs and a value "
       "within its range; an error if it has none"},
      {"formula-weight", "MW agrees with the formula within 0.05 %"},
      {"temperatures", "melting, triple and boiling point, critical point and ranges are in order"},
      {"critical", "TC, PC and VC agree with ZC, which is between 0.15 and 0.40"},
      {"acentric", "ACENTRIC agrees with the vapor pressure at 0.7 TC within 0.02"},
      {"vapor-pressure", "101.325 kPa at NBP within 2 %, PC at TC within 5 %"},
      {"critical-density", "the liquid density at TC is 1/VC within 10 %"},
      {"latent-heat", "the latent heat at NBP is HVAPNBP within 3 %"},
      {"monotony",
       "vapor pressure and vapor viscosity rise, surface tension falls to 0, heat "
       "capacities are positive"},
      {"source", "each constant and correlation has a reference code"},
      {"pair-twice", "a pair stored in both orders has the same values in both"},
      {"group-use", "groups have interactions, and the groups of components exist"},
      {"magnitude", "a constant is the same in two libraries within a factor of 1.5"},
      {"boiling-point",
       "the vapor pressure of one library is 101.325 kPa within 5 % at the NBP of another"}};
  return kinds;
}

void CheckComponentSense(PureComponent const& component, std::string const& place,
                         TellSense const& tell) {
  Checked checked(component, place, tell);
  checked.Identity();
  checked.Equations();
  checked.Temperatures();
  checked.Critical();
  checked.Acentric();
  checked.VaporPressure();
  checked.CriticalDensity();
  checked.LatentHeat();
  checked.SolidRanges();
  checked.Curves();
  checked.Sources();
}

}  // namespace zelhost
