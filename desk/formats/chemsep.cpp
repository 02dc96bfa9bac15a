// The XML of pure components that several simulators share: <compounds> with a <compound> for each,
// whose elements have their number in `value` and its unit in `units`.
#include <algorithm>
#include <iterator>
#include <set>

#include "desk/formats/foreign_equations.h"
#include "desk/formats/foreign_units.h"
#include "desk/formats/formats.h"
#include "desk/formats/xml_elements.h"
#include "desk/words/failure.h"
#include "desk/words/number_range.h"

namespace zel::desk {
namespace {

struct TagRow {
  char const* tag;
  char const* datum;
};
constexpr TagRow kConstantTags[] = {
    {"MolecularWeight", "MW"},
    {"CriticalTemperature", "TC"},
    {"CriticalPressure", "PC"},
    {"CriticalVolume", "VC"},
    {"CriticalCompressibility", "ZC"},
    {"AcentricityFactor", "ACENTRIC"},
    {"NormalBoilingPointTemperature", "NBP"},
    {"NormalMeltingPointTemperature", "NMP"},
    {"TriplePointTemperature", "TTP"},
    {"TriplePointPressure", "PTP"},
    {"SpecificGravity", "SG60F"},
    {"SolubilityParameter", "SOLUPARA"},
    {"Parachor", "PARACHOR"},
    {"RacketParameter", "RACKETT"},
    {"DipoleMoment", "DIPOLE"},
    {"RadiusOfGyration", "RADIUS"},
    {"UniquacR", "VDWV"},
    {"UniquacQ", "VDWA"},
    {"HeatOfFormation", "HFORMATION"},
    {"GibbsEnergyOfFormation", "GFORMATION"},
    {"HeatOfFusionAtMeltingPoint", "HFUSIONNMP"},
    {"HeatOfCombustion", "HCOMBUST"},
};
// Where two are of the same datum, the first one that can be taken is.
constexpr TagRow kCurveTags[] = {
    {"VaporPressure", "VaporPressure"},
    {"AntoineVaporPressure", "VaporPressure"},
    {"HeatOfVaporization", "LatentHeat"},
    {"LiquidDensity", "LiquidDensity"},
    {"SolidDensity", "SolidDensity"},
    {"LiquidHeatCapacityCp", "LiquidCp"},
    {"SolidHeatCapacityCp", "SolidCp"},
    {"IdealGasHeatCapacityCp", "IdealGasCp"},
    {"RPPHeatCapacityCp", "IdealGasCp"},
    {"LiquidViscosity", "LiquidViscosity"},
    {"VaporViscosity", "VaporViscosity"},
    {"LiquidThermalConductivity", "LiquidThermal"},
    {"VaporThermalConductivity", "VaporThermal"},
    {"SurfaceTension", "SurfaceTension"},
    {"RelativeStaticPermittivity", "Dielectric"},
};
constexpr TagRow kIdentityTags[] = {{"CompoundID", "name"},
                                    {"CAS", "CAS number"},
                                    {"StructureFormula", "formula"},
                                    {"Smiles", "SMILES"},
                                    {"SMILES", "SMILES"}};

template <std::size_t kSize>
char const* DatumOf(TagRow const (&pairs)[kSize], std::string const& tag) {
  auto const at = std::find_if(std::begin(pairs), std::end(pairs),
                               [&](TagRow const& one) { return tag == one.tag; });
  return at == std::end(pairs) ? nullptr : at->datum;
}

// A number that a record of a correlation consists of. Throws Failure.
double NumberOf(XmlElement const& element) {
  try {
    double const value = ParseNumber(element.Attribute("value"), "a number");
    CheckForeign(value, element.name);
    return value;
  } catch (WrongUsage const& error) {
    throw Failure(element.name + ": " + error.what());
  }
}

ForeignEquation EquationIn(XmlElement const& element) {
  XmlElement const* const number = element.Child("eqno");
  if (number == nullptr) throw Failure("it has no eqno");
  double const eqno = NumberOf(*number);
  constexpr double kLargest = 10000.0;
  if (!(eqno >= 1.0 && eqno <= kLargest) || eqno != static_cast<int>(eqno)) {
    throw Failure("eqno " + number->Attribute("value") + " is not the number of an equation");
  }
  ForeignEquation equation{static_cast<int>(eqno), {}};
  if (element.Child("A") == nullptr) throw Failure("it has no coefficient A");
  for (char const letter : std::string("ABCDEFG")) {
    XmlElement const* const one = element.Child(std::string(1, letter));
    equation.coefficients.push_back(one == nullptr ? 0.0 : NumberOf(*one));
  }
  while (equation.coefficients.size() > 1 && equation.coefficients.back() == 0.0) {
    equation.coefficients.pop_back();
  }
  return equation;
}

double LimitIn(XmlElement const& element, char const* name) {
  XmlElement const* const limit = element.Child(name);
  if (limit == nullptr || limit->Attribute("value").empty()) return zel::gen_GetUndefDouble();
  std::string const unit = limit->Attribute("units");
  if (!unit.empty() && unit != "K") throw Failure(std::string(name) + " is in " + unit + ", not K");
  return NumberOf(*limit);
}

// Sets the range. Both limits 0 is how programs write one that is not known: `what` then says so.
// Throws Failure for a range that ends before it begins.
void SetRange(XmlElement const& element, Curve& curve, std::string& what) {
  curve.tMin = LimitIn(element, "Tmin");
  curve.tMax = LimitIn(element, "Tmax");
  bool const isWhole = !zel::gen_IsUndefDouble(curve.tMin) && !zel::gen_IsUndefDouble(curve.tMax);
  if (!isWhole || curve.tMax > curve.tMin) return;
  if (curve.tMin != 0.0 || curve.tMax != 0.0) {
    throw Failure("the range " + Digits(curve.tMin) + " to " + Digits(curve.tMax) + " K " +
                  (curve.tMax < curve.tMin ? "ends before it begins" : "is one temperature"));
  }
  curve.tMin = curve.tMax = zel::gen_GetUndefDouble();
  what = "Tmin and Tmax are 0, which is no range";
}

class CompoundReader {
 public:
  explicit CompoundReader(XmlElement const& element) : element_(element) {
    component_.line = element.line;
  }

  ForeignComponent Read() {
    for (XmlElement const& child : element_.children) {
      bool const isFirst = seen_.insert(child.name).second;
      if (!isFirst) {
        component_.Note(child.line, child.name, Fate::kRefused, "", "it is there twice");
      } else if (DatumOf(kIdentityTags, child.name) != nullptr) {
        ReadIdentity(child);
      } else if (char const* const constant = DatumOf(kConstantTags, child.name)) {
        AddConstant(component_, constant,
                    {child.line, child.name, child.Attribute("value"), child.Attribute("units")});
      } else if (DatumOf(kCurveTags, child.name) == nullptr) {
        component_.Note(child.line, child.name, Fate::kNoPlace, "",
                        "a component has no such datum");
      }
    }
    for (TagRow const& pair : kCurveTags) {
      if (XmlElement const* const child = element_.Child(pair.tag)) ReadCurve(*child, pair.datum);
    }
    return std::move(component_);
  }

 private:
  void ReadIdentity(XmlElement const& child) {
    std::string const datum = DatumOf(kIdentityTags, child.name);
    std::string const text = child.Attribute("value");
    if (text.empty()) return;
    auto* const set = datum == "name"      ? SetName
                      : datum == "formula" ? SetFormula
                      : datum == "SMILES"  ? SetSmiles
                                           : SetCas;
    set(component_, child.line, child.name, text);
  }

  bool Has(zel::ZelCorrelationInfo const* info) const {
    return std::any_of(component_.curves.begin(), component_.curves.end(),
                       [&](ForeignCurve const& one) { return one.info == info; });
  }

  void ReadCurve(XmlElement const& child, std::string const& name) {
    std::size_t const origin = component_.Note(child.line, child.name, Fate::kTaken, name);
    ForeignDatum datum = component_.data[origin];
    try {
      ForeignCurve curve;
      curve.info = FindCorrelation(name);
      curve.origin = origin;
      curve.unit = UnitWord(child.Attribute("units"));
      ForeignEquation const equation = EquationIn(child);
      std::string noRange;
      SetRange(child, curve.curve, noRange);
      bool const hasUnit = *curve.info->unit == '\0' || !curve.unit.empty();
      if (Has(curve.info) || !hasUnit) {
        datum.fate = Fate::kNoPlace;
        datum.what = hasUnit ? "a component has one record of " + name : kNoUnit;
      } else {
        TakeCurve(curve, equation, datum);
        if (!noRange.empty() && datum.fate != Fate::kNoPlace) {
          datum.fate = Fate::kConverted;
          datum.what += "; " + noRange;
        }
      }
    } catch (Failure const& failure) {
      datum.fate = Fate::kRefused;
      datum.what = failure.what();
    }
    component_.data[origin] = datum;
  }

  // The record, and that of the enthalpy: its integral if it was taken, or the only form that the
  // equation has here.
  void TakeCurve(ForeignCurve& curve, ForeignEquation const& equation, ForeignDatum& datum) {
    bool isSame = false;
    std::string const why = ConvertEquation(equation, curve, datum.what, isSame);
    bool const isHeat = datum.datum == "IdealGasCp";
    if (why.empty()) component_.curves.push_back(curve);
    bool const isIntegrated = isHeat && AddEnthalpy(curve, equation);
    if (why.empty()) {
      if (!isSame) datum.fate = Fate::kConverted;
      if (isIntegrated) datum.what += "; its integral is the IdealEnthalpy";
    } else if (isIntegrated) {
      datum.fate = Fate::kConverted;
      datum.datum = "IdealEnthalpy";
      datum.what = "the integral, 0 at 298.15 K";
    } else {
      datum.fate = Fate::kNoPlace;
      datum.what = why;
    }
  }

  // False if the equation has no integral here.
  bool AddEnthalpy(ForeignCurve const& cp, ForeignEquation const& equation) {
    ForeignCurve enthalpy = cp;
    enthalpy.info = FindCorrelation("IdealEnthalpy");
    if (Has(enthalpy.info) || !IntegrateHeatCapacity(equation, enthalpy.curve)) return false;
    for (double const one : enthalpy.curve.coefficients) CheckForeign(one, "IdealEnthalpy");
    constexpr char kPerKelvin[] = " K)";
    std::string const unit = cp.unit;
    std::size_t const slash = unit.find("/(");
    bool const isKnown = slash != std::string::npos && unit.size() > 3 &&
                         unit.compare(unit.size() - 3, 3, kPerKelvin) == 0;
    if (!isKnown) return false;
    enthalpy.unit =
        unit.substr(0, slash) + "/" + unit.substr(slash + 2, unit.size() - slash - 2 - 3);
    component_.curves.push_back(std::move(enthalpy));
    return true;
  }

  XmlElement const& element_;
  ForeignComponent component_;
  std::set<std::string> seen_;
};

}  // namespace

ForeignFile ReadChemsep(std::string const& path, ForeignOptions const& /*options*/) {
  XmlElement const root = ReadXml(path);
  ForeignFile file;
  auto const isCompound = [](XmlElement const& one) { return one.name == "compound"; };
  if (isCompound(root)) {
    file.components.push_back(CompoundReader(root).Read());
    return file;
  }
  if (root.name != "compounds") {
    throw Failure(path + ", line " + std::to_string(root.line) + ": the root is <" + root.name +
                  ">, not <compounds>");
  }
  for (XmlElement const& child : root.children) {
    if (!isCompound(child)) {
      throw Failure(path + ", line " + std::to_string(child.line) + ": <" + child.name +
                    "> is not a <compound>");
    }
    file.components.push_back(CompoundReader(child).Read());
  }
  return file;
}

}  // namespace zel::desk
