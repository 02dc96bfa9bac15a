#include "verify/component_checks.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>

#include "verify/constant_bounds.h"
#include "zelaccess/Casn.h"

namespace zel {
namespace {

constexpr double kGas = 8.314462618;  // kJ/(kg-mol K), CODATA 2018, exact

class Checked {
 public:
  Checked(ComponentView const& component, CheckedItem const& item, DataFindings& findings)
      : c_(component), item_(item), findings_(findings) {}

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
  void Tell(DataFinding const& finding, std::string_view sentence) const {
    findings_.Tell(item_, finding, sentence);
  }
  double Of(zelProperties index) const { return c_.Constant(index); }
  double At(std::uint32_t curve, double kelvin) const { return c_.InsideAt(curve, kelvin); }
  // A finding about a constant, and about a value of a correlation.
  DataFinding Constant(char const* id, zelProperties index, Expected expected) const;
  static DataFinding Value(char const* id, std::uint32_t curve, double value, double kelvin,
                           Expected expected);
  void Below(zelProperties lower, zelProperties higher, double tolerance) const;
  void EndBelow(std::uint32_t curve, CorrelationRecord const& record, zelProperties higher,
                double tolerance) const;
  void Monotonic(std::uint32_t index, bool rises) const;
  void Positive(std::uint32_t index) const;
  bool HasValue(std::uint32_t index, double temperature) const;
  void SurfaceTensionAtCritical() const;

  ComponentView const& c_;
  CheckedItem const& item_;
  DataFindings& findings_;
};

DataFinding Checked::Constant(char const* id, zelProperties index, Expected expected) const {
  ZelConstantInfo const& row = ConstantRow(index);
  return DataFinding(id, row.keyword).Value(Of(index), row.unit).Expect(std::move(expected));
}

DataFinding Checked::Value(char const* id, std::uint32_t curve, double value, double kelvin,
                           Expected expected) {
  ZelCorrelationInfo const& row = CorrelationRows()[curve];
  return DataFinding(id, row.name).Value(value, row.unit).At(kelvin).Expect(std::move(expected));
}

void Checked::Identity() {
  ZelIdentity const identity = c_.Identity();
  if (*static_cast<char const*>(casn(identity.casNumber)) == '\0') {
    Tell(DataFinding("cas", "CAS number"), "has no {datum}, or one whose check digit is wrong");
  }
  double const expected = GetFormulaWeight(identity.formula);
  double const stored = Of(propertyMW);
  constexpr double kTolerance = 5e-4;
  if (IsDefined(expected) && IsDefined(stored) &&
      std::abs(stored - expected) > kTolerance * expected) {
    Tell(Constant("formula-weight", propertyMW, Expected::Value(expected)),
         std::string("{datum} is {value}, but the formula ") + identity.formula +
             " gives {expected}");
  }
}

// An equation without a value leaves the number that was passed in.
bool Checked::HasValue(std::uint32_t index, double temperature) const {
  double value = std::numeric_limits<double>::quiet_NaN();
  double slope = 0.0;
  std::int32_t status = 0;
  ZelStatus const result =
      c_.Face()->EvaluateCorrelation(index, temperature, 1, &value, &slope, nullptr, &status);
  return result != kStatusFailed && std::isfinite(value);
}

void Checked::Equations() {
  for (std::uint32_t i = 0; i < CorrelationRows().size(); ++i) {
    CorrelationRecord const* const record = c_.Record(i);
    if (record == nullptr) continue;
    // The temperatures for a record without limits, which is never extrapolated.
    constexpr double kCold = 200.0;
    constexpr double kHot = 500.0;
    double const low = IsDefined(record->tMin) ? record->tMin : kCold;
    double const high = IsDefined(record->tMax) ? record->tMax : std::max(kHot, low);
    // No temperature is inside a range whose ends are swapped, and Expansion is never evaluated.
    bool const hasValue = low > high || i == correlationExpansion || HasValue(i, low) ||
                          HasValue(i, high) || HasValue(i, low + (high - low) / 2);
    char fault[120] = {};
    bool const isFaulty = GetCorrelationFault(
        record->equation, static_cast<std::int32_t>(ComponentView::Coefficients(*record).size()),
        fault);
    if (!isFaulty && hasValue) continue;
    Tell(DataFinding("equation", CorrelationRows()[i].name)
             .Value(record->equation)
             .AsError(!hasValue),
         "{datum}: " + (isFaulty ? std::string(fault) : "equation {value} has no value") +
             (hasValue ? "" : "; it cannot be evaluated within its range"));
  }
}

void Checked::Below(zelProperties lower, zelProperties higher, double tolerance) const {
  double const limit = Of(higher);
  if (!IsDefined(Of(lower)) || !IsDefined(limit) || !(Of(lower) > limit * (1 + tolerance))) return;
  Tell(Constant("temperatures", lower, Expected::AtMost(limit)),
       std::string("{datum} {value} is above ") + ConstantRow(higher).keyword + " {max}");
}

void Checked::EndBelow(std::uint32_t curve, CorrelationRecord const& record, zelProperties higher,
                       double tolerance) const {
  double const end = ConvertTemperature(record.tMax, record.tempUnit, kKelvin);
  double const limit = Of(higher);
  if (!IsDefined(limit) || !(end > limit * (1 + tolerance))) return;
  Tell(
      DataFinding("temperatures", CorrelationRows()[curve].name)
          .Value(end, "K")
          .Expect(Expected::AtMost(limit)),
      std::string("the end of {datum} {value} is above ") + ConstantRow(higher).keyword + " {max}");
}

void Checked::Temperatures() {
  constexpr double kMeltingTolerance = 0.005;
  Below(propertyNMP, propertyTTP, kMeltingTolerance);
  Below(propertyNBP, propertyTC, 0.0);
  constexpr double kEndTolerance = 1e-3;
  static constexpr std::uint32_t kLiquid[] = {correlationVaporPressure,   correlationLatentHeat,
                                              correlationLiquidDensity,   correlationSurfaceTension,
                                              correlationLiquidEnthalpy,  correlationLiquidThermal,
                                              correlationLiquidViscosity, correlationLiquidCp};
  for (std::uint32_t i = 0; i < CorrelationRows().size(); ++i) {
    CorrelationRecord const* const record = c_.Record(i);
    if (record == nullptr || !IsDefined(record->tMin) || !IsDefined(record->tMax)) continue;
    if (record->tMin >= record->tMax) {
      Tell(DataFinding("temperatures", CorrelationRows()[i].name)
               .Value(record->tMin, TemperatureLetter(record->tempUnit))
               .Expect(Expected::AtMost(record->tMax)),
           "{datum} has the range {value} to {max}");
    }
    if (std::find(std::begin(kLiquid), std::end(kLiquid), i) != std::end(kLiquid)) {
      EndBelow(i, *record, propertyTC, kEndTolerance);
    }
  }
}

void Checked::Critical() {
  constexpr double kLeast = 0.15;
  constexpr double kMost = 0.40;
  Expected const usual(kLeast, kMost, "0.15 to 0.40");
  double const stored = Of(propertyZC);
  double const critical = Of(propertyTC);
  if (IsDefined(critical) && IsDefined(Of(propertyPC)) && IsDefined(Of(propertyVC)) &&
      critical > 0.0) {
    double const z = Of(propertyPC) * Of(propertyVC) / (kGas * critical);
    constexpr double kTolerance = 0.02;
    if (z < kLeast || z > kMost) {
      Tell(DataFinding("critical", "TC PC VC").Value(z).Expect(usual),
           "TC, PC and VC give a compressibility factor of {value}, expected {expected}");
    } else if (IsDefined(stored) && std::abs(stored - z) > kTolerance * z) {
      Tell(Constant("critical", propertyZC, Expected::Value(z)),
           "{datum} is {value}, but TC, PC and VC give {expected}");
    }
  } else if (IsDefined(stored) && (stored < kLeast || stored > kMost)) {
    Tell(Constant("critical", propertyZC, usual), "{datum} is {value}, expected {expected}");
  }
}

void Checked::Acentric() {
  if (!IsDefined(Of(propertyACENTRIC)) || !IsDefined(Of(propertyTC)) ||
      !IsDefined(Of(propertyPC)) || Of(propertyPC) <= 0.0)
    return;
  double const pressure = At(correlationVaporPressure, 0.7 * Of(propertyTC));
  if (!IsDefined(pressure) || pressure <= 0.0) return;
  double const expected = -std::log10(pressure / Of(propertyPC)) - 1.0;
  constexpr double kTolerance = 0.02;
  if (std::abs(Of(propertyACENTRIC) - expected) > kTolerance) {
    Tell(Constant("acentric", propertyACENTRIC, Expected::Value(expected)),
         "{datum} is {value}, but the vapor pressure at 0.7 TC gives {expected}");
  }
}

void Checked::VaporPressure() {
  constexpr double kAtBoiling = 0.02;
  constexpr double kAtCritical = 0.05;
  double const boiling = At(correlationVaporPressure, Of(propertyNBP));
  if (IsDefined(Of(propertyNBP)) && IsDefined(boiling) &&
      std::abs(boiling - kAtmosphere) > kAtBoiling * kAtmosphere) {
    Tell(Value("vapor-pressure", correlationVaporPressure, boiling, Of(propertyNBP),
               Expected::Value(kAtmosphere)),
         "at NBP {temperature} the vapor pressure is {value}, expected {expected}");
  }
  double const critical = At(correlationVaporPressure, Of(propertyTC));
  if (IsDefined(Of(propertyTC)) && IsDefined(Of(propertyPC)) && IsDefined(critical) &&
      std::abs(critical - Of(propertyPC)) > kAtCritical * Of(propertyPC)) {
    Tell(Value("vapor-pressure", correlationVaporPressure, critical, Of(propertyTC),
               Expected::Value(Of(propertyPC))),
         "at TC the vapor pressure is {value}, but PC is {expected}");
  }
}

void Checked::CriticalDensity() {
  double const volume = Of(propertyVC);
  double const density = At(correlationLiquidDensity, Of(propertyTC));
  constexpr double kTolerance = 0.1;
  if (!IsDefined(Of(propertyTC)) || !IsDefined(volume) || volume <= 0.0 || !IsDefined(density))
    return;
  if (std::abs(density * volume - 1.0) > kTolerance) {
    Tell(Value("critical-density", correlationLiquidDensity, density, Of(propertyTC),
               Expected::Value(1.0 / volume)),
         "at TC the liquid density is {value}, but VC gives {expected}");
  }
}

void Checked::LatentHeat() {
  double const stored = Of(propertyHVAPNBP);
  if (!IsDefined(stored) || !IsDefined(Of(propertyNBP))) return;
  double const heat = At(correlationLatentHeat, Of(propertyNBP));
  constexpr double kTolerance = 0.03;
  if (IsDefined(heat) && std::abs(stored - heat) > kTolerance * std::abs(heat)) {
    Tell(Constant("latent-heat", propertyHVAPNBP, Expected::Value(heat)),
         "{datum} is {value}, but the latent heat at NBP is {expected}");
  }
}

void Checked::SolidRanges() {
  constexpr double kTolerance = 0.005;
  for (std::uint32_t const index :
       {correlationSolidEnthalpy, correlationSolidDensity, correlationSolidCp}) {
    CorrelationRecord const* const record = c_.Record(index);
    if (record == nullptr || !IsDefined(record->tMax)) continue;
    EndBelow(index, *record, propertyNMP, kTolerance);
  }
}

// Compares values at 20 steps over the record's range, with some tolerance for rounding.
void Checked::Monotonic(std::uint32_t index, bool rises) const {
  CorrelationRecord const* const record = c_.Record(index);
  if (record == nullptr || !IsDefined(record->tMin) || !IsDefined(record->tMax) ||
      record->tMin >= record->tMax)
    return;
  constexpr int kSteps = 20;
  constexpr double kPlay = 1e-6;
  double before = gen_GetUndefDouble();
  for (int i = 0; i <= kSteps; ++i) {
    double const t = record->tMin + (record->tMax - record->tMin) * i / kSteps;
    double const value = c_.ValueAt(index, t);
    if (!IsDefined(value)) continue;
    double const change = rises ? value - before : before - value;
    if (IsDefined(before) && change < -kPlay * std::abs(before)) {
      Tell(Value("monotony", index, value, ConvertTemperature(t, record->tempUnit, kKelvin),
                 rises ? Expected::AtLeast(before) : Expected::AtMost(before)),
           "{datum}" + std::string(rises ? " falls" : " rises") + " at " + Shown(t) + " " +
               TemperatureLetter(record->tempUnit));
      return;
    }
    before = value;
  }
}

void Checked::Positive(std::uint32_t index) const {
  CorrelationRecord const* const record = c_.Record(index);
  if (record == nullptr || !IsDefined(record->tMin) || !IsDefined(record->tMax)) return;
  for (double const t : {record->tMin, (record->tMin + record->tMax) / 2, record->tMax}) {
    double const value = c_.ValueAt(index, t);
    if (IsDefined(value) && !(value > 0.0)) {
      Tell(Value("monotony", index, value, ConvertTemperature(t, record->tempUnit, kKelvin),
                 Expected::AtLeast(0.0)),
           "{datum} is {value} at " + Shown(t) + " " + TemperatureLetter(record->tempUnit));
      return;
    }
  }
}

void Checked::SurfaceTensionAtCritical() const {
  CorrelationRecord const* const record = c_.Record(correlationSurfaceTension);
  if (record == nullptr || !IsDefined(record->tMin) || !IsDefined(Of(propertyTC))) return;
  double const cold =
      At(correlationSurfaceTension, ConvertTemperature(record->tMin, record->tempUnit, kKelvin));
  double const critical = At(correlationSurfaceTension, Of(propertyTC));
  constexpr double kNothing = 0.02;
  if (IsDefined(cold) && IsDefined(critical) && std::abs(critical) > kNothing * std::abs(cold)) {
    Tell(Value("monotony", correlationSurfaceTension, critical, Of(propertyTC),
               Expected::Value(0.0)),
         "{datum} is {value} at TC, expected {expected}");
  }
}

void Checked::Curves() {
  Monotonic(correlationVaporPressure, true);
  Monotonic(correlationVaporViscosity, true);
  Monotonic(correlationSurfaceTension, false);
  SurfaceTensionAtCritical();
  for (std::uint32_t const index : {correlationIdealGasCp, correlationLiquidCp, correlationSolidCp})
    Positive(index);
}

void Checked::Sources() {
  std::string without;
  auto const add = [&](char const* datum) {
    without += std::string(without.empty() ? "" : " ") + datum;
  };
  for (auto const& row : ConstantRows()) {
    if (IsDefined(c_.Constant(row.index)) && c_.ConstantCode(row.index) == 0) add(row.keyword);
  }
  for (std::uint32_t i = 0; i < correlationCharacteristicVolume; ++i) {
    if (c_.Record(i) != nullptr && c_.CorrelationCode(i) == 0) add(CorrelationRows()[i].name);
  }
  if (!without.empty()) {
    Tell(DataFinding("source", std::move(without)), "no reference code: {datum}");
  }
}

}  // namespace

void CheckComponent(ComponentView const& component, CheckedItem const& item,
                    DataFindings& findings) {
  Checked checked(component, item, findings);
  checked.Identity();
  checked.Equations();
  CheckBounds(component, item, findings);
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

}  // namespace zel
