// Heats of formation, combustion and vaporization, and what follows from them.
#include <algorithm>
#include <array>
#include <string_view>

#include "verify/judge/relation_tables.h"
#include "verify/judge/relation_terms.h"

namespace zel {
namespace {

// What heats of combustion are made of: elements, their entropies at 298.15 K and 1 bar, and the
// heats of formation of what they burn to. Halogens and nitrogen end up as elements.
//
// J. D. Cox, D. D. Wagman, V. A. Medvedev, CODATA Key Values for Thermodynamics, New York 1989.
struct Element {
  char symbol[3];
  double entropy;     // of an atom in the element, kJ/(kg-mol K)
  double combustion;  // heat of formation of the oxide of an atom, kJ/kg-mol
  double increment;   // of an atom to the entropy of the ideal gas, kJ/(kg-mol K)
};
constexpr std::array<Element, 9> kElements = {{{"C", 5.74, -393510.0, -0.99},
                                               {"H", 65.34, -120913.0, 5.15},
                                               {"O", 102.576, 0.0, 16.92},
                                               {"N", 95.804, 0.0, 7.65},
                                               {"S", 32.054, -296810.0, 15.15},
                                               {"F", 101.396, 0.0, 4.45},
                                               {"Cl", 111.54, 0.0, 15.38},
                                               {"Br", 76.105, 0.0, 17.77},
                                               {"I", 58.07, 0.0, 20.0}}};
constexpr double kWaterVaporization = 44004.0;  // kJ/kg-mol at 298.15 K, CODATA

// A sum over the atoms; NaN without a formula, or with other elements than those above.
template <typename Term>
double OverAtoms(Reading const& r, Term const& term) {
  if (!r.HasFormula()) return std::nan("");
  double sum = 0.0;
  for (auto const& atoms : r.Of().Atoms()) {
    auto const at = std::find_if(kElements.begin(), kElements.end(), [&](Element const& element) {
      return std::string_view(element.symbol) == atoms.first;
    });
    if (at == kElements.end()) return std::nan("");
    sum += term(*at) * static_cast<double>(atoms.second);
  }
  return sum;
}

// The enthalpy of the ideal gas above that of the state that the substance has at 298.15 K.
double AboveStandardState(Reading& r) {
  double const melting = r.Constant(propertyNMP, Stake::kMinor);
  double const boiling = r.Constant(propertyNBP, Stake::kMinor);
  if (boiling <= kRoom) return 0.0;
  double const heat = r.At(correlationLatentHeat, std::max(kRoom, melting), Stake::kMinor);
  return melting <= kRoom ? heat : heat + r.Constant(propertyHFUSIONNMP, Stake::kMinor);
}

// A vapor of pairs of molecules, as of acetic acid, has a small heat of vaporization; then the
// ideal gas is far from it.
bool FormsPairs(Reading& r) {
  double const boiling = r.Of().Median(propertyNBP);
  Record const* const record = r.Of().RecordAt(correlationLatentHeat, boiling);
  constexpr double kUsual = 9.6;  // Trouton's ratio is 10 to 13
  return record != nullptr &&
         record->At(correlationLatentHeat, boiling) < kUsual * kGasConstant * boiling;
}

// Net, of the state at 298.15 K, with water as a gas; negative, as LHV = -HCOMBUST is positive.
Found HeatOfCombustion(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyHCOMBUST);
  double const products = OverAtoms(r, [](Element const& e) { return e.combustion; });
  double const expected = products - r.Constant(propertyHFORMATION) + AboveStandardState(r);
  if (r.Atoms("F") > 0.0) return std::nullopt;  // to HF or CF4
  constexpr double kLeast = 4000.0;             // kJ/kg-mol
  constexpr double kPairs = 30000.0;            // heat of dimerization, for a molecule
  constexpr double kSolid = 8000.0;             // solids change before they melt
  bool const isSolid = r.Of().Median(propertyNMP) > kRoom;
  double const tolerance = rule.tolerance * std::abs(expected) + kLeast +
                           (FormsPairs(r) ? kPairs : 0.0) + (isSolid ? kSolid : 0.0);
  return Outcome::Absolute(Of(propertyHCOMBUST), stored, expected, tolerance);
}

// W. M. Thornton, Phil. Mag. 33 (1917) 196: organic substances give off about the same heat for
// each mole of oxygen. Substances with weak bonds, such as nitro compounds, do not follow this.
Found HeatOfOxygen(Reading& r, JudgeRule const& rule) {
  double const stored = r.OwnConstant(propertyHCOMBUST, Stake::kMinor);
  double const carbon = r.Atoms("C");
  double const oxygen = carbon + r.Atoms("H") / 4.0 - r.Atoms("O") / 2.0;
  bool const isOrganic = std::all_of(
      r.Of().Atoms().begin(), r.Of().Atoms().end(),
      [](auto const& row) { return row.first == "C" || row.first == "H" || row.first == "O"; });
  constexpr double kLeast = 1.5;  // moles; below, it matters what is already burnt
  if (!r.HasFormula() || !isOrganic || !(carbon > 0.0) || !(oxygen > kLeast)) return std::nullopt;
  constexpr double kHeat = -411500.0;     // kJ/kg-mol of oxygen
  constexpr double kStructure = 40000.0;  // kJ/kg-mol
  double const expected = kHeat * oxygen;
  return Outcome::Absolute(Of(propertyHCOMBUST), stored, expected,
                           rule.tolerance * std::abs(expected) + kStructure);
}

Found LowerHeatingValue(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyLHV);
  return Outcome::Relative(Of(propertyLHV), stored, -r.Constant(propertyHCOMBUST), rule.tolerance);
}

Found GrossHeatingValue(Reading& r, JudgeRule const& rule) {
  if (!r.HasFormula()) return std::nullopt;
  double const stored = r.Constant(propertyGHV);
  double const water = r.Atoms("H") / 2.0 * kWaterVaporization;
  return Outcome::Relative(Of(propertyGHV), stored, r.Constant(propertyLHV) + water,
                           rule.tolerance);
}

// The entropy of the ideal gas by its mass, heat capacity and atoms, fitted to 290 substances.
Found GibbsEnergy(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyGFORMATION);
  double const heat = r.Constant(propertyHFORMATION);
  double const capacity = r.At(correlationIdealGasCp, kRoom, Stake::kMinor);
  double const atoms = OverAtoms(r, [](Element const& e) { return e.increment; });
  double const elements = OverAtoms(r, [](Element const& e) { return e.entropy; });
  double const translation = 1.5 * kGasConstant * std::log(r.Constant(propertyMW, Stake::kMinor));
  double const entropy = 100.0 + translation + 1.2173 * capacity + atoms;
  return Outcome::Absolute(Of(propertyGFORMATION), stored, heat - kRoom * (entropy - elements),
                           rule.tolerance);
}

// The elements whose reference state is the gas.
bool IsGaseousElement(Reading const& r) {
  Composition const& atoms = r.Of().Atoms();
  if (atoms.size() != 1) return false;
  std::string const& symbol = atoms.begin()->first;
  std::int64_t const count = atoms.begin()->second;
  static constexpr std::array<std::string_view, 6> kNoble = {"He", "Ne", "Ar", "Kr", "Xe", "Rn"};
  static constexpr std::array<std::string_view, 5> kPairs = {"H", "N", "O", "F", "Cl"};
  auto const isIn = [&](auto const& list) {
    return std::find(list.begin(), list.end(), symbol) != list.end();
  };
  return (count == 1 && isIn(kNoble)) || (count == 2 && isIn(kPairs));
}

template <zelProperties kIndex>
Found NothingOfElement(Reading& r, JudgeRule const& rule) {
  if (!IsGaseousElement(r)) return std::nullopt;
  return Outcome::Absolute(Of(kIndex), r.OwnConstant(kIndex), 0.0, rule.tolerance);
}

// The entropy of fusion: about R for atoms and for molecules that turn in the solid, and at most
// what each atom but hydrogen adds in a chain that becomes flexible.
Found HeatOfFusion(Reading& r, JudgeRule const& rule) {
  if (!r.HasFormula()) return std::nullopt;
  double const heat = r.Constant(propertyHFUSIONNMP);
  double const unit = kGasConstant * r.Constant(propertyNMP, Stake::kMinor);
  double heavy = 0.0;
  for (auto const& [symbol, count] : r.Of().Atoms()) {
    if (symbol != "H") heavy += static_cast<double>(count);
  }
  constexpr double kLeast = 0.35, kMost = 4.0, kEach = 1.2;
  double const limit =
      heat < unit * kLeast ? unit * kLeast : std::min(heat, unit * (kMost + kEach * heavy));
  return AtBound(Outcome::Factor(Of(propertyHFUSIONNMP), heat, limit, rule.tolerance));
}

Found LatentHeatAtBoiling(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyHVAPNBP);
  double const heat = r.At(correlationLatentHeat, r.Constant(propertyNBP, Stake::kMinor));
  return Outcome::Relative(Of(propertyHVAPNBP), stored, heat, rule.tolerance);
}

// Clapeyron, with the compressibility of the vapor after Haggenmacher.
Found HeatOfSlope(Reading& r, JudgeRule const& rule) {
  if (FormsPairs(r)) return std::nullopt;
  double const stored = r.Constant(propertyHVAPNBP);
  double const boiling = r.Constant(propertyNBP, Stake::kMinor);
  double const pressure = r.At(correlationVaporPressure, boiling);
  double const slope = r.Slope(correlationVaporPressure, boiling);
  double const tr = boiling / r.Constant(propertyTC, Stake::kMinor);
  double const pr = kAtmospheric / r.Constant(propertyPC, Stake::kMinor);
  double const compressibility = std::sqrt(1.0 - pr / (tr * tr * tr));
  double const expected = kGasConstant * boiling * boiling * slope / pressure * compressibility;
  return Outcome::Factor(Of(propertyHVAPNBP), stored, expected, rule.tolerance);
}

// N. H. Chen, J. Chem. Eng. Data 10 (1965) 207.
Found HeatOfChen(Reading& r, JudgeRule const& rule) {
  if (FormsPairs(r) || IsQuantumFluid(r)) return std::nullopt;
  double const stored = r.Constant(propertyHVAPNBP);
  double const boiling = r.Constant(propertyNBP);
  double const tr = boiling / r.Constant(propertyTC);
  double const pressure = r.Constant(propertyPC, Stake::kMinor) / 100.0;  // bar
  double const expected =
      kGasConstant * boiling * (3.978 * tr - 3.958 + 1.555 * std::log(pressure)) / (1.07 - tr);
  return Outcome::Factor(Of(propertyHVAPNBP), stored, expected, rule.tolerance);
}

// Trouton's rule as mended by Kistiakowsky, raised by the mean of polar substances.
Found HeatOfBoiling(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const boiling = r.Constant(propertyNBP, Stake::kMinor);
  double const ratio = 4.75 + std::log(boiling);
  return Outcome::Factor(Of(propertyHVAPNBP), r.Constant(propertyHVAPNBP, Stake::kMinor),
                         kGasConstant * boiling * ratio, rule.tolerance);
}

Found EnthalpiesAtBoiling(Reading& r, JudgeRule const& rule) {
  double const vapor = r.Constant(propertyHVTB);
  double const liquid = r.Constant(propertyHLTB);
  double const heat = r.Constant(propertyHVAPNBP);
  return Outcome::Absolute(Of(propertyHVTB), vapor, liquid + heat, rule.tolerance * heat);
}

Found EntropiesAtBoiling(Reading& r, JudgeRule const& rule) {
  double const vapor = r.Constant(propertySVTB);
  double const liquid = r.Constant(propertySLTB);
  double const change = r.Constant(propertyHVAPNBP) / r.Constant(propertyNBP);
  return Outcome::Absolute(Of(propertySVTB), vapor, liquid + change, rule.tolerance * change);
}

// Hildebrand's parameter at a temperature, (cal/cm3)^0.5.
double Solubility(double heat, double kelvin, double volume) {
  constexpr double kUnit = 4184.0;  // kJ/m3 in a cal/cm3
  return std::sqrt((heat - kGasConstant * kelvin) / volume / kUnit);
}

// 25 C, or the melting point if that is higher; none near the critical point, for which sources use
// other temperatures.
std::optional<double> SolubilityTemperature(Reading& r) {
  double const melting = r.Of().Median(propertyNMP);
  double const kelvin = IsDefined(melting) ? std::max(kRoom, melting) : kRoom;
  constexpr double kMost = 0.8;
  if (!(kelvin < kMost * r.Of().Median(propertyTC))) return std::nullopt;
  return kelvin;
}

Found SolubilityOfDensity(Reading& r, JudgeRule const& rule) {
  std::optional<double> const kelvin = SolubilityTemperature(r);
  if (!kelvin) return std::nullopt;
  double const stored = r.Constant(propertySOLUPARA);
  double const heat = r.At(correlationLatentHeat, *kelvin);
  double const density = r.At(correlationLiquidDensity, *kelvin);
  return Outcome::Factor(Of(propertySOLUPARA), stored, Solubility(heat, *kelvin, 1.0 / density),
                         rule.tolerance);
}

Found SolubilityOfVolume(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertySOLUPARA);
  double const heat = r.At(correlationLatentHeat, kRoom);
  double const volume = r.Constant(propertyMVOL25C);
  if (!SolubilityTemperature(r)) return std::nullopt;
  return Outcome::Factor(Of(propertySOLUPARA), stored, Solubility(heat, kRoom, volume),
                         rule.tolerance);
}

// The solubility parameter of gases, at the boiling point.
Found SolubilityOfGas(Reading& r, JudgeRule const& rule) {
  if (SolubilityTemperature(r)) return std::nullopt;
  double const boiling = r.Constant(propertyNBP, Stake::kMinor);
  double const stored = r.Constant(propertySOLUPARA, Stake::kMinor);
  double const heat = r.At(correlationLatentHeat, boiling, Stake::kMinor);
  double const density = r.At(correlationLiquidDensity, boiling, Stake::kMinor);
  return Outcome::Factor(Of(propertySOLUPARA), stored, Solubility(heat, boiling, 1.0 / density),
                         rule.tolerance);
}

constexpr Relation kRows[] = {
    {{"combustion",
      "HCOMBUST = nC HF(CO2) + nH/2 HF(H2O gas) + nS HF(SO2) - HF of the state at 298.15 K", 0.004,
      "0.4 % and 4 kJ/mol (12 of solids, 34 where the vapor forms pairs): heats of formation of "
      "handbooks; 94 of 100 data are within it"},
     "HFORMATION and the formula",
     HeatOfCombustion},
    {{"oxygen-combustion", "HCOMBUST = -411.5 MJ/kg-mol (nC + nH/4 - nO/2), of C, H and O", 0.12,
      "12 % and 40 kJ/mol: strained rings and triple bonds; 98 of 100 substances are within it"},
     "the formula",
     HeatOfOxygen},
    {{"lower-heating", "LHV = -HCOMBUST", 0.005, "0.5 %: the same quantity"},
     "HCOMBUST",
     LowerHeatingValue},
    {{"gross-heating", "GHV = LHV + nH/2 44004 kJ/kg-mol", 0.005, "0.5 %: the same quantity"},
     "LHV and the formula",
     GrossHeatingValue},
    {{"gibbs-energy",
      "GFORMATION = HFORMATION - 298.15 K (S by mass, heat capacity and atoms - S of "
      "the elements)",
      15000.0,
      "15 kJ/mol: scatter of the entropies of 290 substances about the sum; 96 of 100 are "
      "within "
      "it"},
     "HFORMATION and the entropy by atoms",
     GibbsEnergy},
    {{"element-heat", "HFORMATION = 0 of an element in its reference state", 100.0,
      "100 kJ/kg-mol: by definition"},
     "the definition",
     NothingOfElement<propertyHFORMATION>},
    {{"element-gibbs", "GFORMATION = 0 of an element in its reference state", 100.0,
      "100 kJ/kg-mol: by definition"},
     "the definition",
     NothingOfElement<propertyGFORMATION>},
    {{"element-dipole", "DIPOLE = 0 of noble gases and of H2, N2, O2, F2 and Cl2", 0.01,
      "0.01 debye: by symmetry"},
     "the symmetry",
     NothingOfElement<propertyDIPOLE>},
    {{"fusion-entropy", "0.35 R NMP <= HFUSIONNMP <= (4 + 1.2 heavy atoms) R NMP", 0.1,
      "10 %: all of 254 substances but one are between the limits"},
     "NMP and the formula",
     HeatOfFusion},
    {{"latent-heat", "HVAPNBP = latent heat at NBP", 0.06,
      "6 %: uncertainty of heats of vaporization; 97 of 100 handbook data are within it"},
     "the latent heat at NBP",
     LatentHeatAtBoiling},
    {{"boiling-slope", "HVAPNBP = R NBP^2 d(ln p)/dT (1 - (101.325 kPa/PC)/(NBP/TC)^3)^0.5", 0.09,
      "9 %: slopes of vapor pressures, and the vapor after Haggenmacher"},
     "the slope of the vapor pressure at NBP",
     HeatOfSlope},
    {{"boiling-heat", "HVAPNBP from TC, PC and NBP after Chen", 0.09,
      "9 %: error of the method for polar substances; 97 of 100 data are within it"},
     "TC, PC and NBP",
     HeatOfChen},
    {{"trouton", "HVAPNBP = R NBP (4.75 + ln(NBP))", 0.3,
      "factor 1.35: Trouton's rule from inert gases to alcohols"},
     "NBP",
     HeatOfBoiling},
    {{"boiling-enthalpy", "HVTB - HLTB = HVAPNBP", 0.03, "3 % of HVAPNBP: the same quantity"},
     "HLTB + HVAPNBP",
     EnthalpiesAtBoiling},
    {{"boiling-entropy", "SVTB - SLTB = HVAPNBP/NBP", 0.03,
      "3 % of HVAPNBP/NBP: the same quantity"},
     "SLTB + HVAPNBP/NBP",
     EntropiesAtBoiling},
    {{"solubility", "SOLUPARA^2 = (latent heat - R T) liquid density at 25 C, or at NMP above it",
      0.027, "2.7 %: half the uncertainty of heats of vaporization; 97 of 100 data are within it"},
     "latent heat and liquid density",
     SolubilityOfDensity},
    {{"solubility-volume", "SOLUPARA^2 = (latent heat at 25 C - R T)/MVOL25C", 0.025,
      "2.5 %: half the uncertainty of heats of vaporization; 99 of 100 data are within it"},
     "latent heat and MVOL25C",
     SolubilityOfVolume},
    {{"solubility-gas", "SOLUPARA^2 = (latent heat - R T) liquid density at NBP, of a gas", 0.7,
      "factor 2: sources take 25 C or NBP"},
     "latent heat and liquid density at NBP",
     SolubilityOfGas},
};

}  // namespace

std::span<Relation const> ThermalRelations() { return kRows; }

}  // namespace zel
