// Whether a derived constant was computed from data that exist.
#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "purecomp/component.h"
#include "verify/composition.h"
#include "zelaccess/Identity.h"
#include "zelaccess/PureComp.h"
#include "zelaccess/Types.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

constexpr std::int32_t kKelvin = 10;

// Inputs of a method: constants of zelProperties, and these.
constexpr std::int32_t kNone = -1;
constexpr std::int32_t kFormula = -2;
constexpr std::int32_t kLatentHeatAtRoom = -3;      // at 298.15 K
constexpr std::int32_t kVaporPressureReduced = -4;  // at 0.7 TC

// The inputs of each method of the fill-in, by the label that it leaves.
struct Method {
  std::string_view label;
  std::array<std::int32_t, 3> inputs;
};
constexpr Method kMethods[] = {
    {"from MW", {propertyMW, kNone, kNone}},
    {"from Vc,Tc",
     {propertyVC, propertyTC, propertyMW}},  // MW decides whether the component is light enough
    {"from sg6oF", {propertySG60F, kNone, kNone}},
    {"from NBP,sg6oF", {propertyNBP, propertySG60F, kNone}},
    {"from NBP", {propertyNBP, kNone, kNone}},
    {"from chemical formula", {kFormula, kNone, kNone}},
    {"from CNUM", {propertyCNUM, kNone, kNone}},
    {"from CNUMB,MW_C,MW", {propertyCarbonAtoms, propertyMW, kNone}},
    {"from HNUMB,MW_H,MW", {propertyHydrogenAtoms, propertyMW, kNone}},
    {"from NNUMB,MW_N,MW", {propertyNitrogenAtoms, propertyMW, kNone}},
    {"from ONUMB,MW_O,MW", {propertyOxygenAtoms, propertyMW, kNone}},
    {"from SNUMB,MW_S,MW", {propertySulfurAtoms, propertyMW, kNone}},
    {"from CWTFRAC,HWTFRAC", {propertyCarbonFraction, propertyHydrogenFraction, kNone}},
    {"defaulted to zero", {propertyHydrogenFraction, kNone, kNone}},
    {"from Lower Heating Value", {propertyLHV, kNone, kNone}},
    {"from Heat of formation,CNUM,NHUM,SNUM", {propertyHFORMATION, kFormula, kNone}},
    {"from Heat of Combustion", {propertyHCOMBUST, kNone, kNone}},
    {"from HVap@25C,MolVol@25C", {propertyMVOL25C, kLatentHeatAtRoom, kNone}},
    {"from PSat,Pc,Tc", {propertyPC, propertyTC, kVaporPressureReduced}},
};
// These are computed from each other without a label.
constexpr std::array<std::uint32_t, 4> kCritical = {propertyTC, propertyPC, propertyVC, propertyZC};

class Judge {
 public:
  explicit Judge(IZelPureComp& component) : c_(component) {}

  zelConstantStates StateOf(std::uint32_t index, int depth = 0) const {
    if (IsStored(index)) return constantStored;
    double value = gen_GetUndefDouble();
    c_.GetCompleted(index, &value);
    if (gen_IsUndefDouble(value) || !std::isfinite(value)) return constantMissing;
    return IsFounded(index, depth) ? constantFilledIn : constantUnfounded;
  }

 private:
  bool IsStored(std::uint32_t index) const {
    double value = gen_GetUndefDouble();
    return c_.GetProperty(index, &value) == kStatusOk && !gen_IsUndefDouble(value) &&
           std::isfinite(value);
  }

  // If data were changed later, their labels can form a circle.
  bool IsFounded(std::uint32_t index, int depth) const {
    constexpr int kDeepest = 8;
    if (depth > kDeepest) return false;
    char label[260] = {};
    std::uint8_t isProtected = 0;
    c_.GetPropertySource(index, label, &isProtected);
    auto const method = std::find_if(std::begin(kMethods), std::end(kMethods),
                                     [&](Method const& one) { return one.label == label; });
    if (method == std::end(kMethods)) {
      if (std::find(kCritical.begin(), kCritical.end(), index) == kCritical.end()) return false;
      return std::count_if(kCritical.begin(), kCritical.end(), [&](std::uint32_t const other) {
               return other != index && IsStored(other);
             }) == 3;
    }
    return std::all_of(method->inputs.begin(), method->inputs.end(),
                       [&](std::int32_t const input) { return IsThere(input, depth); });
  }

  bool IsThere(std::int32_t input, int depth) const {
    switch (input) {
      case kNone: return true;
      case kFormula: return HasFormula();
      case kLatentHeatAtRoom: return HasValue(correlationLatentHeat, 298.15);
      case kVaporPressureReduced: {
        double critical = gen_GetUndefDouble();
        c_.GetCompleted(propertyTC, &critical);
        return HasValue(correlationVaporPressure, 0.7 * critical);
      }
      default: {
        zelConstantStates const state = StateOf(static_cast<std::uint32_t>(input), depth + 1);
        return state == constantStored || state == constantFilledIn;
      }
    }
  }

  bool HasFormula() const {
    ZelIdentity identity;
    Composition atoms;
    return GetComponentIdentity(&c_, identity) && CompositionOf(identity.formula, atoms);
  }

  // The fill-in passes the temperature in K, whatever the unit of the record.
  bool HasValue(std::uint32_t curve, double kelvin) const {
    std::int32_t equation = 0, tempUnit = 0, propUnit = 0, logBasis = 0, basis = 0, count = 0;
    double factor = 0.0, tMin = 0.0, tMax = 0.0;
    double coefficients[15] = {};
    c_.GetCorrelation(curve, &equation, &tempUnit, &propUnit, &factor, &logBasis, &basis, &count,
                      &tMin, &tMax, coefficients);
    double value = gen_GetUndefDouble();  // unchanged by a form that has no value there
    double slope = 0.0;
    std::int32_t status = 0;
    return tempUnit == kKelvin &&
           c_.EvaluateCorrelation(curve, kelvin, 1, &value, &slope, nullptr, &status) !=
               kStatusFailed &&
           !gen_IsUndefDouble(value) && std::isfinite(value);
  }

  IZelPureComp& c_;
};

}  // namespace

zelConstantStates GetConstantState(IZelPureComp* component, std::uint32_t index) {
  if (component == nullptr || index >= static_cast<std::uint32_t>(kConstants))
    return constantMissing;
  return Judge(*component).StateOf(index);
}

}  // namespace zel
