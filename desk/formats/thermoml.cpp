#include "desk/formats/thermoml.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>

#include "desk/formats/xml_elements.h"
#include "desk/open/pure_component.h"
#include "desk/tables/plot_points.h"
#include "desk/words/failure.h"
#include "desk/words/number_words.h"

namespace zel::desk {
namespace {

// How a property becomes a value of a correlation: the number, or its inverse, times a factor, and
// times or divided by the molecular weight.
struct PropertyRow {
  char const* property;
  char const* phase;  // the beginning of its name
  char const* correlation;
  double factor;
  int power;        // 1, or -1 for the inverse
  int weightPower;  // of the molecular weight
};
constexpr PropertyRow kProperties[] = {
    {"Vapor or sublimation pressure, kPa", "Liquid", "VaporPressure", 1.0, 1, 0},
    {"Vapor or sublimation pressure, kPa", "Gas", "VaporPressure", 1.0, 1, 0},
    {"Mass density, kg/m3", "Liquid", "LiquidDensity", 1.0, 1, -1},
    {"Mass density, kg/m3", "Crystal", "SolidDensity", 1.0, 1, -1},
    {"Specific volume, m3/kg", "Liquid", "LiquidDensity", 1.0, -1, -1},
    {"Molar volume, m3/mol", "Liquid", "LiquidDensity", 1e-3, -1, 0},
    {"Amount density, mol/m3", "Liquid", "LiquidDensity", 1e-3, 1, 0},
    {"Viscosity, Pa*s", "Liquid", "LiquidViscosity", 1e3, 1, 0},
    {"Viscosity, Pa*s", "Gas", "VaporViscosity", 1e3, 1, 0},
    {"Thermal conductivity, W/m/K", "Liquid", "LiquidThermal", 1.0, 1, 0},
    {"Thermal conductivity, W/m/K", "Gas", "VaporThermal", 1.0, 1, 0},
    {"Surface tension liquid-gas, N/m", "Liquid", "SurfaceTension", 1.0, 1, 0},
    {"Molar enthalpy of vaporization or sublimation, kJ/mol", "Liquid", "LatentHeat", 1e3, 1, 0},
    {"Molar enthalpy of vaporization or sublimation, kJ/mol", "Gas", "LatentHeat", 1e3, 1, 0},
    {"Molar heat capacity at constant pressure, J/K/mol", "Liquid", "LiquidCp", 1.0, 1, 0},
    {"Molar heat capacity at constant pressure, J/K/mol", "Crystal", "SolidCp", 1.0, 1, 0},
    {"Molar heat capacity at constant pressure, J/K/mol", "Ideal gas", "IdealGasCp", 1.0, 1, 0},
    {"Molar heat capacity at saturation pressure, J/K/mol", "Liquid", "LiquidCp", 1.0, 1, 0},
    {"Molar heat capacity at saturation pressure, J/K/mol", "Crystal", "SolidCp", 1.0, 1, 0},
    {"Specific heat capacity at constant pressure, J/K/kg", "Liquid", "LiquidCp", 1e-3, 1, 1},
    {"Specific heat capacity at saturation pressure, J/K/kg", "Liquid", "LiquidCp", 1e-3, 1, 1},
    {"Relative permittivity at zero frequency", "Liquid", "Dielectric", 1.0, 1, 0},
};

// Expanded uncertainties in terms of standard ones.
double CoverageOf(double confidence) {
  struct Level {
    double percent;
    double factor;
  };
  constexpr Level kLevels[] = {{68.0, 1.0}, {90.0, 1.645}, {95.0, 2.0}, {99.0, 2.576}};
  constexpr double kUsual = 2.0;
  for (Level const& level : kLevels) {
    if (std::abs(confidence - level.percent) < 1.0) return level.factor;
  }
  return kUsual;
}

std::string ElementText(XmlElement const* element) {
  if (element == nullptr) return "";
  std::size_t const first = element->text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return "";
  return element->text.substr(first, element->text.find_last_not_of(" \t\r\n") - first + 1);
}

std::string ChildText(XmlElement const& element, std::string const& name) {
  return ElementText(element.Child(name));
}

// The element within others, by their names; null if one is missing.
XmlElement const* Within(XmlElement const& element, std::initializer_list<char const*> names) {
  XmlElement const* at = &element;
  for (char const* name : names) {
    at = at == nullptr ? nullptr : at->Child(name);
  }
  return at;
}

// The first element of this name at any depth; null if the document has no such element.
XmlElement const* Somewhere(XmlElement const& element, std::string const& name) {
  for (XmlElement const& child : element.children) {
    if (child.name == name) return &child;
    if (XmlElement const* const found = Somewhere(child, name)) return found;
  }
  return nullptr;
}

struct Compound {
  std::string name;
  std::string cas;
  double weight = zel::gen_GetUndefDouble();
};

// What is varied or fixed in a set of values: the number of a variable, or the value.
struct Condition {
  std::string what;  // "Temperature, K"
  std::string number;
  double value = std::numeric_limits<double>::quiet_NaN();
};

struct PropertyOf {
  std::string number;
  std::string name;
  std::string phase;
  std::string method;
  double coverage = 2.0;
  PropertyRow const* row = nullptr;
  std::string why;  // it has none
};

class ThermoMlReader {
 public:
  explicit ThermoMlReader(std::string const& path) : path_(path), root_(ReadXml(path)) {
    if (root_.name != "DataReport") Refuse(root_, "is not a DataReport of ThermoML");
  }

  MeasuredData Read() {
    ReadCitation();
    for (XmlElement const& element : root_.children) {
      if (element.name == "Compound") ReadCompound(element);
    }
    for (XmlElement const& element : root_.children) {
      if (element.name == "PureOrMixtureData") ReadData(element);
    }
    return std::move(data_);
  }

 private:
  [[noreturn]] void Refuse(XmlElement const& element, std::string const& why) const {
    throw Failure(path_ + ", line " + std::to_string(element.line) + ": " + element.name + ": " +
                  why);
  }

  double NumberOf(XmlElement const& parent, std::string const& name) const {
    XmlElement const* const child = parent.Child(name);
    if (child == nullptr) Refuse(parent, "has no " + name);
    std::string const word = ElementText(child);
    if (!IsNumberWord(word)) Refuse(*child, "\"" + word + "\" is not a number");
    double const value = std::strtod(word.c_str(), nullptr);
    if (!std::isfinite(value)) Refuse(*child, word + " is too large");
    return value;
  }

  void ReadCitation() {
    XmlElement const* const citation = root_.Child("Citation");
    if (citation == nullptr) return;
    std::vector<std::string> authors;
    for (XmlElement const& child : citation->children) {
      if (child.name == "sAuthor") authors.push_back(ElementText(&child));
    }
    std::string const year = ChildText(*citation, "yrPubYr");
    if (!authors.empty()) {
      data_.label = authors.front().substr(0, authors.front().find(','));
      if (authors.size() > 1) data_.label += " et al.";
    }
    if (!year.empty()) data_.label += (data_.label.empty() ? "" : " ") + year;
    std::string& text = data_.citation;
    for (std::string const& author : authors) text += (text.empty() ? "" : "; ") + author;
    for (std::string const& part :
         {ChildText(*citation, "sTitle"), ChildText(*citation, "sPubName"), year,
          ChildText(*citation, "sVol"), ChildText(*citation, "sPage")}) {
      if (!part.empty()) text += (text.empty() ? "" : ", ") + part;
    }
    data_.doi = ChildText(*citation, "sDOI");
  }

  void ReadCompound(XmlElement const& element) {
    XmlElement const* const number = Within(element, {"RegNum", "nOrgNum"});
    if (number == nullptr) Refuse(element, "has no nOrgNum");
    Compound compound;
    compound.name = ChildText(element, "sCommonName");
    std::string const digits = ElementText(Within(element, {"RegNum", "nCASRNum"}));
    if (digits.size() > 3 && digits.find_first_not_of("0123456789") == std::string::npos) {
      compound.cas = digits.substr(0, digits.size() - 3) + "-" +
                     digits.substr(digits.size() - 3, 2) + "-" + digits.substr(digits.size() - 1);
    }
    compound.weight = zel::GetFormulaWeight(ChildText(element, "sFormulaMolec").c_str());
    compounds_[ElementText(number)] = compound;
  }

  static std::string PhaseOf(XmlElement const& property) {
    return ElementText(Within(property, {"PropPhaseID", "ePropPhase"}));
  }

  PropertyOf ReadProperty(XmlElement const& element, Compound const& compound) const {
    PropertyOf property;
    property.number = ChildText(element, "nPropNumber");
    property.name = ElementText(Somewhere(element, "ePropName"));
    XmlElement const* const method = Somewhere(element, "eMethodName");
    property.method = ElementText(method != nullptr ? method : Somewhere(element, "sMethodName"));
    property.phase = PhaseOf(element);
    if (XmlElement const* const level = Somewhere(element, "nCombUncertLevOfConfid")) {
      property.coverage = CoverageOf(std::strtod(ElementText(level).c_str(), nullptr));
    } else if (XmlElement const* const other = Somewhere(element, "nUncertLevOfConfid")) {
      property.coverage = CoverageOf(std::strtod(ElementText(other).c_str(), nullptr));
    }
    auto const at =
        std::find_if(std::begin(kProperties), std::end(kProperties), [&](PropertyRow const& row) {
          return property.name == row.property && property.phase.rfind(row.phase, 0) == 0;
        });
    if (at == std::end(kProperties)) {
      property.why = "no correlation of this property in this phase";
    } else if (at->weightPower != 0 && zel::gen_IsUndefDouble(compound.weight)) {
      property.why = "per mass, and the formula has no molecular weight";
    } else {
      property.row = at;
    }
    return property;
  }

  std::vector<Condition> Conditions(XmlElement const& data) const {
    std::vector<Condition> conditions;
    for (XmlElement const& child : data.children) {
      Condition condition;
      if (child.name == "Variable") {
        XmlElement const* const type = Within(child, {"VariableID", "VariableType"});
        if (type == nullptr || type->children.empty()) Refuse(child, "has no VariableType");
        condition.what = ElementText(&type->children.front());
        condition.number = ChildText(child, "nVarNumber");
      } else if (child.name == "Constraint") {
        XmlElement const* const type = Within(child, {"ConstraintID", "ConstraintType"});
        if (type == nullptr || type->children.empty()) Refuse(child, "has no ConstraintType");
        condition.what = ElementText(&type->children.front());
        condition.value = NumberOf(child, "nConstraintValue");
      } else {
        continue;
      }
      conditions.push_back(condition);
    }
    return conditions;
  }

  void ReadData(XmlElement const& data) {
    std::vector<Compound> compounds;
    bool hasGas = false;
    bool hasSolid = false;
    for (XmlElement const& child : data.children) {
      if (child.name == "Component") compounds.push_back(CompoundOf(child));
      std::string const phase = child.name == "PhaseID" ? ChildText(child, "ePhase") : "";
      hasGas = hasGas || phase == "Gas";
      hasSolid = hasSolid || phase.rfind("Crystal", 0) == 0;
    }
    if (compounds.empty()) Refuse(data, "has no Component");
    std::vector<Condition> const conditions = Conditions(data);
    std::string const other = OtherCondition(conditions);
    for (XmlElement const& child : data.children) {
      if (child.name != "Property") continue;
      PropertyOf property = ReadProperty(child, compounds.front());
      if (compounds.size() > 1) property.why = "a mixture";
      if (property.why.empty() && !other.empty()) property.why = "it depends on: " + other;
      bool const isOfTwoPhases = property.name.find("or sublimation") != std::string::npos;
      if (property.why.empty() && isOfTwoPhases && hasSolid) property.why = "of a solid";
      AddSet(data, compounds.front(), property, conditions, hasGas);
    }
  }

  Compound CompoundOf(XmlElement const& component) const {
    std::string const number = ElementText(Within(component, {"RegNum", "nOrgNum"}));
    auto const at = compounds_.find(number);
    if (at == compounds_.end()) Refuse(component, "compound \"" + number + "\" is not described");
    return at->second;
  }

  static std::string OtherCondition(std::vector<Condition> const& conditions) {
    for (Condition const& one : conditions) {
      if (one.what != kTemperature && one.what != kPressure) return one.what;
    }
    return "";
  }

  void AddSet(XmlElement const& data, Compound const& compound, PropertyOf const& property,
              std::vector<Condition> const& conditions, bool hasGas) {
    constexpr double kHighestPressure = 150.0;  // kPa
    MeasuredSet set;
    set.compound = compound.name;
    set.cas = compound.cas;
    set.property = property.name;
    set.phase = property.phase;
    set.method = property.method;
    PassedOver atPressure = {compound.name, property.name, 0, "above 150 kPa"};
    PassedOver whole = {compound.name, property.name, 0, property.why};
    PassedOver without = {compound.name, property.name, 0, "no temperature above 0 K or no value"};
    for (XmlElement const& values : data.children) {
      if (values.name != "NumValues") continue;
      XmlElement const* const value = ValueOf(values, property.number);
      if (value == nullptr) continue;
      if (property.row == nullptr || !property.why.empty()) {
        ++whole.points;
        continue;
      }
      MeasuredPoint const point = PointOf(values, *value, compound, property, conditions);
      if (!(point.kelvin > 0.0) || !std::isfinite(point.value)) {
        ++without.points;
      } else if (point.pressure > kHighestPressure && !hasGas) {
        ++atPressure.points;
      } else {
        set.points.push_back(point);
      }
    }
    if (property.row != nullptr) set.correlation = FindCorrelation(property.row->correlation);
    if (!set.points.empty()) data_.sets.push_back(std::move(set));
    for (PassedOver const& one : {whole, atPressure, without}) {
      if (one.points > 0) data_.passedOver.push_back(one);
    }
  }

  static XmlElement const* ValueOf(XmlElement const& values, std::string const& number) {
    for (XmlElement const& child : values.children) {
      if (child.name == "PropertyValue" && ChildText(child, "nPropNumber") == number) return &child;
    }
    return nullptr;
  }

  MeasuredPoint PointOf(XmlElement const& values, XmlElement const& value, Compound const& compound,
                        PropertyOf const& property,
                        std::vector<Condition> const& conditions) const {
    PropertyRow const& row = *property.row;
    MeasuredPoint point;
    point.kelvin = At(values, conditions, kTemperature);
    point.pressure = At(values, conditions, kPressure);
    double const number = NumberOf(value, "nPropValue");
    double const scale = row.factor * std::pow(row.weightPower == 0 ? 1.0 : compound.weight,
                                               static_cast<double>(row.weightPower));
    point.value = row.power > 0 ? number * scale : scale / number;
    double const uncertainty = UncertaintyOf(value, property.coverage);
    point.uncertainty = std::abs(point.value * uncertainty / number);
    return point;
  }

  // The value of a condition; NaN for one that is not stated.
  double At(XmlElement const& values, std::vector<Condition> const& conditions,
            std::string const& what) const {
    for (Condition const& one : conditions) {
      if (one.what != what) continue;
      if (one.number.empty()) return one.value;
      for (XmlElement const& child : values.children) {
        bool const isIt =
            child.name == "VariableValue" && ChildText(child, "nVarNumber") == one.number;
        if (isIt) return NumberOf(child, "nVarValue");
      }
    }
    return std::numeric_limits<double>::quiet_NaN();
  }

  // In the unit of the property; NaN for none.
  double UncertaintyOf(XmlElement const& value, double coverage) const {
    for (char const* place : {"CombinedUncertainty", "PropUncertainty"}) {
      XmlElement const* const found = value.Child(place);
      if (found == nullptr) continue;
      for (char const* name : {"nCombStdUncertValue", "nStdUncertValue"}) {
        if (found->Child(name) != nullptr) return NumberOf(*found, name);
      }
      for (char const* name : {"nCombExpandUncertValue", "nExpandUncertValue"}) {
        if (found->Child(name) != nullptr) return NumberOf(*found, name) / coverage;
      }
    }
    return std::numeric_limits<double>::quiet_NaN();
  }

  static constexpr char kTemperature[] = "Temperature, K";
  static constexpr char kPressure[] = "Pressure, kPa";

  std::string path_;
  XmlElement root_;
  std::map<std::string, Compound> compounds_;  // by their number in the document
  MeasuredData data_;
};

}  // namespace

MeasuredData ReadThermoMl(std::string const& path) { return ThermoMlReader(path).Read(); }

bool IsXmlFile(std::string const& path) {
  if (path == "-") return false;
  std::ifstream file(path, std::ios::binary);
  char begin[64] = {};
  file.read(begin, sizeof begin - 1);
  std::string text(begin);
  if (text.rfind("\xef\xbb\xbf", 0) == 0) text.erase(0, 3);
  std::size_t const first = text.find_first_not_of(" \t\r\n");
  return first != std::string::npos && text[first] == '<';
}

std::vector<PlotPoints> ReadPoints(std::string const& path,
                                   zel::ZelCorrelationInfo const& correlation,
                                   DisplayUnits const& units) {
  if (!IsXmlFile(path)) return ReadPlotPoints(path, correlation, units);
  MeasuredData const data = ReadThermoMl(path);
  std::vector<PlotPoints> sets;
  for (MeasuredSet const& set : data.sets) {
    if (std::string(set.correlation->name) != correlation.name) continue;
    PlotPoints points;
    points.label = data.label.empty() ? path : data.label;
    points.component = set.cas.empty() ? set.compound : set.cas;
    for (MeasuredPoint const& one : set.points) {
      points.points.push_back({one.kelvin, one.value, one.uncertainty});
    }
    std::stable_sort(
        points.points.begin(), points.points.end(),
        [](PlotPoints::Point const& a, PlotPoints::Point const& b) { return a.kelvin < b.kelvin; });
    sets.push_back(std::move(points));
  }
  if (sets.empty()) throw Failure(path + ": has no points of " + correlation.name);
  return sets;
}

}  // namespace zel::desk
