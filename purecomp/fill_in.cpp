#include "purecomp/fill_in.h"

#include <cmath>
#include <string>
#include <string_view>

#include "frame/ascii.h"
#include "frame/limits.h"
#include "frame/number_text.h"
#include "purecomp/evaluate.h"
#include "purecomp/formula.h"
#include "purecomp/jet.h"
#include "zelaccess/Types.h"

namespace zel {
namespace {

// The gas constant of the equation forms; its last digits are fixed by the data that programs rely
// on.
constexpr double kInverseGasConstant = 0.12027223379575203;  // 1/8.314471
constexpr double kTolerance = 0.1;
constexpr double kTolerancePercent = 10.0;
constexpr std::size_t kElementCount = 5;
// C, H, N, O, S, kg/kg-mol: standard atomic weights, their last digits fixed by the data that
// programs rely on.
constexpr double kAtomicWeights[kElementCount] = {12.011, 1.00794005, 14.006735, 15.9994,
                                                  32.066002};
constexpr std::string_view kFractionLabels[kElementCount] = {
    "from CNUMB,MW_C,MW", "from HNUMB,MW_H,MW", "from NNUMB,MW_N,MW", "from ONUMB,MW_O,MW",
    "from SNUMB,MW_S,MW"};
// Heats of combustion per atom of C, per molecule of H2 and per atom of S, in kJ/kg-mol: the heats
// of formation of CO2, water vapor and SO2, their last digits fixed by the data that programs rely
// on.
constexpr double kHeatOfCarbon = 393510.016;
constexpr double kHeatOfHydrogen = 241814.0;
constexpr double kHeatOfSulfur = 296840.0;
constexpr double kRoomTemperature = 298.15;              // K
constexpr double kGasConstantTimesRoom = 2478.95952865;  // kJ/kg-mol
// Neither the thermochemical calorie nor that of the steam tables: fixed by the data that programs
// rely on.
constexpr double kJoulePerCalorie = 4.18321;
constexpr double kReducedForAcentric = 0.7;  // by Pitzer's definition of the acentric factor

class FillIn {
 public:
  explicit FillIn(Component& component) : c_(component) {}

  void Run() {
    if (c_.phase > 8) c_.phase %= 8;
    c_.completed = c_.fixed;
    CriticalConstants();
    TakeWorkingValues();
    Parachor();
    Gravity();
    BoilingPointCopies();
    Atoms();
    Fractions();
    Heats();
    SolubilityParameter();
    AcentricFactor();
  }

 private:
  static bool Defined(double value) { return value > kUndefinedLimit; }

  void Label(std::size_t index, std::string_view label) {
    c_.sources.Set(c_.fixedSources[index], label);
  }
  void Put(std::size_t index, double value, std::string_view label) {
    c_.completed[index] = value;
    Label(index, label);
  }

  void CriticalConstants() {
    double X = kInverseGasConstant;
    int missing = 0;
    std::size_t which = 0;
    auto const take = [&](std::size_t index, bool divide) {
      double const value = c_.fixed[index];
      if (gen_IsUndefDouble(value)) {
        ++missing;
        which = index;
      } else {
        X = divide ? X / value : X * value;
      }
    };
    take(propertyTC, true);
    take(propertyPC, false);
    take(propertyVC, false);
    take(propertyZC, true);
    if (missing == 1)
      c_.completed[which] = which == propertyPC || which == propertyVC ? 1.0 / X : X;
    if (missing == 0 && std::fabs(X - 1.0) > kTolerance) CompareSources();
  }

  // A library is trusted to be consistent with itself.
  void CompareSources() {
    auto const source = [&](std::size_t index) { return c_.sources.At(c_.fixedSources[index]); };
    std::string_view const first = source(propertyTC);
    bool const mixed = !SameText(first, source(propertyPC)) ||
                       !SameText(first, source(propertyVC)) || !SameText(first, source(propertyZC));
    c_.consistencyWarning = mixed;
    if (!mixed) return;
    std::string const text =
        "The [Pc*Vc/(R*Zc*Tc) = 1] consistency check is showing an error greater than " +
        RealText(kTolerancePercent, 6) + "% for " + c_.name.data() + ".";
    CopyText(text, c_.consistencyText.data(), c_.consistencyText.size());
  }

  // The later steps use these values, not those that earlier steps add.
  void TakeWorkingValues() {
    mw_ = c_.completed[propertyMW];
    tc_ = c_.completed[propertyTC];
    pc_ = c_.completed[propertyPC];
    vc_ = c_.completed[propertyVC];
    sg_ = c_.completed[propertySG60F];
    nbp_ = c_.completed[propertyNBP];
    molarVolume_ = c_.completed[propertyMVOL25C];
    formation_ = c_.completed[propertyHFORMATION];
    lhv_ = c_.completed[propertyLHV];
    combustion_ = c_.completed[propertyHCOMBUST];
  }

  // Regressions in the molecular weight, and in Vc (m3/kg-mol), Tc (K) and y = Tc^(1/4) Vc^(5/6):
  // their constants and the weight between them are fixed by the data that programs rely on.
  void Parachor() {
    constexpr double kHeaviestByVolume = 142.0;
    if (Defined(c_.completed[propertyPARACHOR])) return;
    if (mw_ > kHeaviestByVolume) {
      Put(propertyPARACHOR, 10.0 + 2.92 * mw_, "from MW");
      return;
    }
    double const vc5 = vc_ * vc_ * vc_ * vc_ * vc_;
    double const y = SignedSqrt(SignedSqrt(tc_) * std::cbrt(vc5));
    double const parachor = 176.05005 - 7472.807 * vc_ - 0.87458088 * tc_ + 1560.4793 * y +
                            19.309439 * y * y + 0.05013801 * y * y * y - 25.691718 / y;
    Put(propertyPARACHOR, parachor, "from Vc,Tc");
  }

  // By definition: the API gravity, and the Watson factor, the cube root of the boiling point in
  // degrees Rankine over the specific gravity.
  void Gravity() {
    if (!Defined(sg_)) return;
    Put(propertyApiGravity, 141.5 / sg_ - 131.5, "from sg6oF");
    if (Defined(nbp_)) Put(propertyWatsonK, std::cbrt(1.8 * nbp_) / sg_, "from NBP,sg6oF");
  }

  void BoilingPointCopies() {
    for (std::size_t i = propertyFirstNbpCopy; i <= propertyLastNbpCopy; ++i)
      Put(i, nbp_, "from NBP");
  }

  void Atoms() {
    std::array<ElementSymbol, kElementCount> elements = {ElementSymbol{"C"}, ElementSymbol{"H"},
                                                         ElementSymbol{"N"}, ElementSymbol{"O"},
                                                         ElementSymbol{"S"}};
    std::int32_t found = 0;
    // When a formula does not parse, the counts up to the failure remain.
    CountElements(c_.formula.data(), {elements, atoms_, kElementCount}, found);
    constexpr std::string_view kFromFormula = "from chemical formula";
    if (!Defined(c_.fixed[propertyCNUM])) {
      Put(propertyCNUM, atoms_[0], kFromFormula);
      Put(propertyCarbonAtoms, atoms_[0], kFromFormula);
    } else {
      Put(propertyCarbonAtoms, c_.fixed[propertyCNUM], "from CNUM");
    }
    for (std::size_t i = 1; i < kElementCount; ++i)
      Put(propertyCarbonAtoms + i, atoms_[i], kFromFormula);
  }

  void Fractions() {
    for (std::size_t i = 0; i < kElementCount; ++i) {
      double const atoms = c_.completed[propertyCarbonAtoms + i];
      Put(propertyCarbonFraction + i, atoms * kAtomicWeights[i] / mw_, kFractionLabels[i]);
    }
    double const carbon = c_.completed[propertyCarbonFraction];
    double const hydrogen = c_.completed[propertyCarbonFraction + 1];
    if (hydrogen > 0.0) {
      Put(propertyCarbonToHydrogen, carbon / hydrogen, "from CWTFRAC,HWTFRAC");
    } else {
      Put(propertyCarbonToHydrogen, 0.0, "defaulted to zero");
    }
  }

  void Heats() {
    if (!Defined(combustion_) && Defined(lhv_)) {
      Put(propertyHCOMBUST, -lhv_, "from Lower Heating Value");
    } else if (!Defined(combustion_) && Defined(formation_)) {
      constexpr std::string_view kLabel = "from Heat of formation,CNUM,NHUM,SNUM";
      double const heat = -kHeatOfCarbon * atoms_[0] - kHeatOfHydrogen * 0.5 * atoms_[1] -
                          kHeatOfSulfur * atoms_[4] - formation_;
      Put(propertyHCOMBUST, heat, kLabel);
      Put(propertyLHV, -heat, kLabel);
    } else if (Defined(combustion_) && !Defined(lhv_)) {
      Put(propertyLHV, -combustion_, "from Heat of Combustion");
    }
  }

  // The value of a correlation at a temperature; false when it cannot be evaluated. The value is in
  // the units of the correlation as stored: nothing is converted.
  bool Evaluate(std::uint32_t index, double temperature, double& value) {
    double derivative = 0.0;
    std::int32_t status = 0;
    value = 0.0;
    return Evaluator(c_).Evaluate(index, temperature, kFirstDerivative, value, derivative, nullptr,
                                  status) != kStatusFailed;
  }

  // Hildebrand's definition, ((Hvap - R T)/V)^0.5 at 25 C, in (cal/cm3)^0.5.
  void SolubilityParameter() {
    double heat = 0.0;
    if (Defined(c_.completed[propertySOLUPARA]) || !Defined(molarVolume_) ||
        !Evaluate(correlationLatentHeat, kRoomTemperature, heat)) {
      return;
    }
    double const x = (heat - kGasConstantTimesRoom) / molarVolume_ / kJoulePerCalorie / 1000.0;
    Put(propertySOLUPARA, SignedSqrt(x), "from HVap@25C,MolVol@25C");
  }

  // Pitzer's definition: -log10(P/Pc) - 1 at a reduced temperature of 0.7.
  void AcentricFactor() {
    constexpr double kLogOfZero = -100.0;
    double pressure = 0.0;
    if (Defined(c_.completed[propertyACENTRIC]) || !Defined(tc_) || !Defined(pc_) ||
        !Evaluate(correlationVaporPressure, kReducedForAcentric * tc_, pressure)) {
      return;
    }
    double const x = pressure / pc_;
    double const log = x == 0.0 ? kLogOfZero : std::log10(std::fabs(x));
    Put(propertyACENTRIC, -log - 1.0, "from PSat,Pc,Tc");
  }

  Component& c_;
  std::array<std::int32_t, kElementCount> atoms_{};
  double mw_ = 0.0, tc_ = 0.0, pc_ = 0.0, vc_ = 0.0, sg_ = 0.0, nbp_ = 0.0;
  double molarVolume_ = 0.0, formation_ = 0.0, lhv_ = 0.0, combustion_ = 0.0;
};

}  // namespace

void CompleteComponent(Component& component) { FillIn(component).Run(); }

}  // namespace zel
