#include "sense_checks.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

#include "span_of_numbers.h"

namespace zelhost {
namespace {

constexpr std::uint32_t kCurvesWithCode = 17;  // the last one has no place for a code
constexpr double kGas = 8.314462618;           // kJ/(kg-mol K), CODATA 2018, exact
constexpr double kAtmosphere = 101.325;        // kPa

// Constants by index.
enum Constant : std::uint32_t {
  kMW = 0,
  kTC = 1,
  kPC = 2,
  kVC = 3,
  kZC = 4,
  kAcentric = 5,
  kNMP = 7,
  kNBP = 8,
  kTTP = 37
};
// Correlations by index.
enum CurveIndex : std::uint32_t {
  kVaporPressure = 0,
  kLiquidEnthalpy = 2,
  kLatentHeat = 3,
  kLiquidDensity = 4,
  kLiquidThermal = 5,
  kLiquidViscosity = 7,
  kVaporViscosity = 8,
  kSurfaceTension = 9,
  kIdealGasCp = 13,
  kLiquidCp = 14,
  kSolidCp = 15
};

bool Has(double value) { return !zel::gen_IsUndefDouble(value); }

std::string Show(double value) { return Digits(value); }

// Numbers that are equal but for a rounding.
std::string Rounded(double value) {
  constexpr int kDigits = 5;
  char text[32];
  std::snprintf(text, sizeof text, "%.*g", kDigits, value);
  return text;
}

bool HasManyDigits(std::string const& number) {
  constexpr int kMany = 5;
  std::string const mantissa = number.substr(0, number.find('e'));
  std::size_t const first = mantissa.find_first_of("123456789");
  if (first == std::string::npos) return false;
  return std::count_if(mantissa.begin() + static_cast<std::ptrdiff_t>(first), mantissa.end(),
                       [](char c) { return c >= '0' && c <= '9'; }) >= kMany;
}

// One component with the ways to ask it.
class Checked {
 public:
  Checked(PureComponent const& component, std::string const& place, TellSense const& tell)
      : c_(component), place_(place), tell_(tell) {}

  void Identity();
  void Temperatures();
  void Critical();
  void Acentric();
  void VaporPressure();
  void Curves();
  void Sources();

 private:
  void Tell(char const* id, std::string const& text) const { tell_(id, place_, text); }
  double Of(Constant index) const { return c_.Constant(index); }
  // A value of a correlation at a temperature in K, inside its range only; undefined otherwise.
  double At(std::uint32_t curve, double kelvin) const;
  void Below(char const* lower, double a, char const* higher, double b, double tolerance) const;
  void Monotonic(std::uint32_t index, bool rises) const;
  void Positive(std::uint32_t index) const;
  void SurfaceTensionAtCritical() const;

  PureComponent const& c_;
  std::string const& place_;
  TellSense const& tell_;
};

double Checked::At(std::uint32_t curve, double kelvin) const {
  Curve const record = c_.ReadCurve(curve);
  if (!record.present) return zel::gen_GetUndefDouble();
  Point const point = c_.At(curve, Convert(kelvin, kKelvin, record.tempUnit));
  return point.there && point.status == 0 ? point.value : zel::gen_GetUndefDouble();
}

void Checked::Identity() {
  zelhost::Identity const identity = c_.ReadIdentity();
  if (identity.cas.empty()) Tell("cas", "has no CAS number, or one whose check digit is wrong");
  double const expected = zel::GetFormulaWeight(identity.formula.c_str());
  double const stored = Of(kMW);
  constexpr double kTolerance = 5e-4;
  if (Has(expected) && Has(stored) && std::abs(stored - expected) > kTolerance * expected) {
    Tell("formula-weight", "MW is " + Show(stored) + ", where the formula " + identity.formula +
                               " gives " + Show(expected));
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
  Below("NMP", Of(kNMP), "TTP", Of(kTTP), kMeltingTolerance);
  Below("NBP", Of(kNBP), "TC", Of(kTC), 0.0);
  constexpr double kEndTolerance = 1e-3;
  static constexpr std::uint32_t kLiquid[] = {kVaporPressure,   kLatentHeat,     kLiquidDensity,
                                              kSurfaceTension,  kLiquidEnthalpy, kLiquidThermal,
                                              kLiquidViscosity, kLiquidCp};
  for (auto const& row : Correlations()) {
    Curve const curve = c_.ReadCurve(IndexOf(row));
    if (!curve.present || !Has(curve.tMin) || !Has(curve.tMax)) continue;
    if (curve.tMin >= curve.tMax) {
      Tell("temperatures", row.name + std::string(" goes from ") + Show(curve.tMin) + " to " +
                               Show(curve.tMax) + " " + TemperatureUnit(curve.tempUnit));
    }
    bool const isLiquid =
        std::find(std::begin(kLiquid), std::end(kLiquid), IndexOf(row)) != std::end(kLiquid);
    if (isLiquid) {
      Below((std::string("the end of ") + row.name).c_str(),
            Convert(curve.tMax, curve.tempUnit, kKelvin), "TC", Of(kTC), kEndTolerance);
    }
  }
}

void Checked::Critical() {
  double const stored = Of(kZC);
  if (Has(Of(kTC)) && Has(Of(kPC)) && Has(Of(kVC)) && Of(kTC) > 0.0) {
    double const z = Of(kPC) * Of(kVC) / (kGas * Of(kTC));
    constexpr double kTolerance = 0.02;
    if (z < 0.15 || z > 0.40) {
      Tell("critical",
           "TC, PC and VC give a compressibility factor of " + Show(z) + ", expected 0.15 to 0.40");
    } else if (Has(stored) && std::abs(stored - z) > kTolerance * z) {
      Tell("critical", "ZC is " + Show(stored) + ", where TC, PC and VC give " + Show(z));
    }
  } else if (Has(stored) && (stored < 0.15 || stored > 0.40)) {
    Tell("critical", "ZC is " + Show(stored) + ", expected 0.15 to 0.40");
  }
}

void Checked::Acentric() {
  if (!Has(Of(kAcentric)) || !Has(Of(kTC)) || !Has(Of(kPC)) || Of(kPC) <= 0.0) return;
  double const pressure = At(kVaporPressure, 0.7 * Of(kTC));
  if (!Has(pressure) || pressure <= 0.0) return;
  double const expected = -std::log10(pressure / Of(kPC)) - 1.0;
  constexpr double kTolerance = 0.02;
  if (std::abs(Of(kAcentric) - expected) > kTolerance) {
    Tell("acentric", "ACENTRIC is " + Show(Of(kAcentric)) +
                         ", where the vapor pressure at 0.7 TC gives " + Show(expected));
  }
}

void Checked::VaporPressure() {
  constexpr double kAtBoiling = 0.02;
  constexpr double kAtCritical = 0.05;
  double const boiling = At(kVaporPressure, Of(kNBP));
  if (Has(Of(kNBP)) && Has(boiling) && std::abs(boiling - kAtmosphere) > kAtBoiling * kAtmosphere) {
    Tell("vapor-pressure", "at NBP " + Show(Of(kNBP)) + " K the vapor pressure is " +
                               Show(boiling) + " kPa, expected 101.325");
  }
  double const critical = At(kVaporPressure, Of(kTC));
  if (Has(Of(kTC)) && Has(Of(kPC)) && Has(critical) &&
      std::abs(critical - Of(kPC)) > kAtCritical * Of(kPC)) {
    Tell("vapor-pressure",
         "at TC the vapor pressure is " + Show(critical) + " kPa, where PC is " + Show(Of(kPC)));
  }
}

// On 20 steps of the record's range, with a little play for rounding.
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
  Curve const curve = c_.ReadCurve(kSurfaceTension);
  if (!curve.present || !Has(curve.tMin) || !Has(Of(kTC))) return;
  double const cold = At(kSurfaceTension, Convert(curve.tMin, curve.tempUnit, kKelvin));
  double const critical = At(kSurfaceTension, Of(kTC));
  constexpr double kNothing = 0.02;
  if (Has(cold) && Has(critical) && std::abs(critical) > kNothing * std::abs(cold)) {
    Tell("monotony", "SurfaceTension is " + Show(critical) + " at TC, expected 0");
  }
}

void Checked::Curves() {
  Monotonic(kVaporPressure, true);
  Monotonic(kVaporViscosity, true);
  Monotonic(kSurfaceTension, false);
  SurfaceTensionAtCritical();
  for (std::uint32_t const index : {kIdealGasCp, kLiquidCp, kSolidCp}) Positive(index);
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
    if (curve.present && curve.refCode == 0 && IndexOf(row) < kCurvesWithCode) {
      without += std::string(without.empty() ? "" : " ") + row.name;
    }
  }
  if (!without.empty()) Tell("source", "no reference code: " + without);
}

}  // namespace

std::vector<SenseKind> const& SenseKinds() {
  static std::vector<SenseKind> const kinds = {
      {"cas", "a component has a CAS number with a right check digit"},
      {"cas-shared", "no two components have the same CAS number"},
      {"cas-formula", "components with the same CAS number have the same formula", true},
      {kIdentity,
       "what several banks or libraries call by one number, ID or CAS number has one CAS number "
       "and one formula there",
       true},
      {"repeated",
       "no two components have the same coefficients but for rounding, or both TC and PC; no "
       "four have the same constant of five digits or more"},
      {"formula-weight", "MW is that of the formula within 0.05 %"},
      {"temperatures", "melting, triple and boiling point, critical point and ranges are in order"},
      {"critical", "TC, PC and VC agree with ZC, which lies within 0.15 to 0.40"},
      {"acentric", "ACENTRIC agrees with the vapor pressure at 0.7 TC within 0.02"},
      {"vapor-pressure", "101.325 kPa at NBP within 2 %, PC at TC within 5 %"},
      {"monotony",
       "vapor pressure and vapor viscosity rise, surface tension falls to 0, heat "
       "capacities are positive"},
      {"source", "each constant and correlation has a reference code"},
      {"pair-twice", "a pair stored in both orders has the same values in both"},
      {"group-use", "groups have interactions, and components have groups that are there"},
      {"magnitude", "a constant is the same in two libraries within a factor of 1.5"}};
  return kinds;
}

void CheckComponentSense(PureComponent const& component, std::string const& place,
                         TellSense const& tell) {
  Checked checked(component, place, tell);
  checked.Identity();
  checked.Temperatures();
  checked.Critical();
  checked.Acentric();
  checked.VaporPressure();
  checked.Curves();
  checked.Sources();
}

void SenseAcross::Component(PureComponent const& component, std::string const& place) {
  Identity const identity = component.ReadIdentity();
  if (!identity.cas.empty()) {
    casNumbers_.push_back({identity.cas, {place, identity.formula, identity.name}});
  }
  for (auto const& row : Correlations()) {
    Curve const curve = component.ReadCurve(IndexOf(row));
    if (curve.coefficients.size() < 2) continue;
    std::string text = row.name + (" of equation " + std::to_string(curve.equation)) + ":";
    for (double const c : curve.coefficients) text += " " + Rounded(c);
    numbers_.push_back(
        {std::move(text),
         {place, identity.formula, row.name + std::string(" has the coefficients")}});
  }
  for (auto const& row : Constants()) {
    std::string const value = Digits(component.Constant(row.index));
    if (Has(component.Constant(row.index)) && HasManyDigits(value)) {
      constants_[row.keyword + (" " + value)].push_back({place, identity.formula, ""});
    }
  }
  if (Has(component.Constant(kTC)) && Has(component.Constant(kPC))) {
    numbers_.push_back(
        {"TC and PC: " + Digits(component.Constant(kTC)) + " " + Digits(component.Constant(kPC)),
         {place, identity.formula, "has TC and PC"}});
  }
}

void SenseAcross::CasShared() {
  std::stable_sort(casNumbers_.begin(), casNumbers_.end(),
                   [](auto const& a, auto const& b) { return a.first < b.first; });
  for (std::size_t i = 1; i < casNumbers_.size(); ++i) {
    auto const& [cas, seen] = casNumbers_[i];
    auto const& [casBefore, before] = casNumbers_[i - 1];
    if (cas != casBefore) continue;
    tell_(seen.formula == before.formula ? "cas-shared" : "cas-formula", seen.place,
          "has the CAS number " + cas + " of " + before.place +
              (seen.formula == before.formula
                   ? ""
                   : " and another formula, " + seen.formula + " instead of " + before.formula));
  }
}

void SenseAcross::Repeated() {
  std::stable_sort(numbers_.begin(), numbers_.end(),
                   [](auto const& a, auto const& b) { return a.first < b.first; });
  for (std::size_t i = 1; i < numbers_.size(); ++i) {
    auto const& [text, seen] = numbers_[i];
    auto const& [textBefore, before] = numbers_[i - 1];
    if (text != textBefore) continue;
    tell_("repeated", seen.place, seen.text + " of " + before.place);
  }
  constexpr std::size_t kFew = 3;
  for (auto const& [constant, components] : constants_) {
    // Isomers have some constants in common.
    bool const allAlike = std::all_of(
        components.begin(), components.end(),
        [&first = components.front()](Seen const& one) { return one.formula == first.formula; });
    if (components.size() <= kFew || allAlike) continue;
    tell_("repeated", components.back().place,
          "has " + constant + " with " + std::to_string(components.size() - 1) +
              " others, the first of them " + components.front().place);
  }
}

void SenseAcross::Close() {
  CasShared();
  Repeated();
}

void CheckMagnitude(PureComponent const& one, std::string const& onePlace,
                    PureComponent const& other, std::string const& otherPlace,
                    TellSense const& tell) {
  constexpr double kFactor = 1.5;
  for (auto const& row : Constants()) {
    double const a = one.Constant(row.index);
    double const b = other.Constant(row.index);
    if (!Has(a) || !Has(b) || a == 0.0 || b == 0.0) continue;
    double const ratio = a / b;
    if (ratio >= 1.0 / kFactor && ratio <= kFactor) continue;
    tell("magnitude", onePlace,
         row.keyword + (" is " + Show(a)) + ", where " + otherPlace + " has " + Show(b));
  }
}

}  // namespace zelhost
