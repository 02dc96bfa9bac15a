// Whether a derived constant rests on data that are there.
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

// Inputs of a method: constants by index, also of completed ones, and these.
constexpr std::int32_t kNone = -1;
constexpr std::int32_t kFormula = -2;
constexpr std::int32_t kLatentHeatAtRoom = -3;      // at 298.15 K
constexpr std::int32_t kVaporPressureReduced = -4;  // at 0.7 TC

constexpr std::int32_t kCarbonAtoms = 60;
constexpr std::int32_t kHydrogenAtoms = 61;
constexpr std::int32_t kNitrogenAtoms = 62;
constexpr std::int32_t kOxygenAtoms = 63;
constexpr std::int32_t kSulfurAtoms = 64;
constexpr std::int32_t kCarbonFraction = 70;
constexpr std::int32_t kHydrogenFraction = 71;

// What each method of the fill-in takes, by the label that it leaves.
struct Method {
  std::string_view label;
  std::array<std::int32_t, 3> inputs;
};
constexpr Method kMethods[] = {
    {"from MW", {kMW, kNone, kNone}},
    {"from Vc,Tc", {kVC, kTC, kMW}},  // MW tells that the component is light enough
    {"from sg6oF", {kSG60F, kNone, kNone}},
    {"from NBP,sg6oF", {kNBP, kSG60F, kNone}},
    {"from NBP", {kNBP, kNone, kNone}},
    {"from chemical formula", {kFormula, kNone, kNone}},
    {"from CNUM", {kCNUM, kNone, kNone}},
    {"from CNUMB,MW_C,MW", {kCarbonAtoms, kMW, kNone}},
    {"from HNUMB,MW_H,MW", {kHydrogenAtoms, kMW, kNone}},
    {"from NNUMB,MW_N,MW", {kNitrogenAtoms, kMW, kNone}},
    {"from ONUMB,MW_O,MW", {kOxygenAtoms, kMW, kNone}},
    {"from SNUMB,MW_S,MW", {kSulfurAtoms, kMW, kNone}},
    {"from CWTFRAC,HWTFRAC", {kCarbonFraction, kHydrogenFraction, kNone}},
    {"defaulted to zero", {kHydrogenFraction, kNone, kNone}},
    {"from Lower Heating Value", {kLHV, kNone, kNone}},
    {"from Heat of formation,CNUM,NHUM,SNUM", {kHFORMATION, kFormula, kNone}},
    {"from Heat of Combustion", {kHCOMBUST, kNone, kNone}},
    {"from HVap@25C,MolVol@25C", {kMVOL25C, kLatentHeatAtRoom, kNone}},
    {"from PSat,Pc,Tc", {kPC, kTC, kVaporPressureReduced}},
};
// They complete each other without a label.
constexpr std::array<std::uint32_t, 4> kCritical = {kTC, kPC, kVC, kZC};

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

  // Labels of data that were changed since can lead in a circle.
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
      case kLatentHeatAtRoom: return HasValue(3, 298.15);
      case kVaporPressureReduced: {
        double critical = gen_GetUndefDouble();
        c_.GetCompleted(kTC, &critical);
        return HasValue(0, 0.7 * critical);
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

  // The fill-in gives the temperature in K, whatever the unit of the record.
  bool HasValue(std::uint32_t curve, double kelvin) const {
    std::int32_t equation = 0, tempUnit = 0, propUnit = 0, logBasis = 0, basis = 0, count = 0;
    double factor = 0.0, tMin = 0.0, tMax = 0.0;
    double coefficients[15] = {};
    c_.GetCorrelation(curve, &equation, &tempUnit, &propUnit, &factor, &logBasis, &basis, &count,
                      &tMin, &tMax, coefficients);
    double value = gen_GetUndefDouble();  // left by a form that has none there
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
