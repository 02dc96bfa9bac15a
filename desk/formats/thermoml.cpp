#include "desk/formats/thermoml.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <map>
#include <optional>

#include "desk/formats/thermoml_properties.h"
#include "desk/formats/xml_elements.h"
#include "desk/open/pure_component.h"
#include "desk/words/failure.h"
#include "desk/words/number_words.h"

namespace zel::desk {
namespace {

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

// The names of the elements of an uncertainty, in a property and in its values.
struct UncertaintyNames {
  char const* place;
  char const* number;  // of the assessment
  char const* factor;
  char const* level;
  char const* standard;
  char const* expanded;
};
constexpr UncertaintyNames kUncertainties[] = {
    {"CombinedUncertainty", "nCombUncertAssessNum", "nCombCoverageFactor", "nCombUncertLevOfConfid",
     "nCombStdUncertValue", "nCombExpandUncertValue"},
    {"PropUncertainty", "nUncertAssessNum", "nCoverageFactor", "nUncertLevOfConfid",
     "nStdUncertValue", "nExpandUncertValue"}};

// Coverage factors of a property by the number of their assessment; NaN for one that is not known.
struct CoverageFactors {
  double first = 2.0;  // for another number
  std::map<std::string, double> byNumber;
};

// A property of a set, and what has been read of it.
struct PropertyOf {
  std::string name;
  std::string phase;
  std::string method;
  CoverageFactors factors[std::size(kUncertainties)];
  MeasuredProperty const* row = nullptr;
  std::string why;  // it has none
  std::vector<MeasuredPoint> points;
  std::size_t passedOver = 0;  // because of `why`
  std::size_t atPressure = 0;
  std::size_t without = 0;  // temperature or value
  std::size_t second = 0;
  XmlElement const* last = nullptr;  // values of which one was read last
};

// What a set of values is of.
struct SetOf {
  std::vector<Compound> compounds;
  std::vector<std::string> phases;
  std::vector<Condition> conditions;

  bool Has(char const* phase) const {
    return std::find(phases.begin(), phases.end(), phase) != phases.end();
  }
  Condition const* Find(char const* what) const {
    auto const at = std::find_if(conditions.begin(), conditions.end(),
                                 [&](Condition const& one) { return one.what == what; });
    return at == conditions.end() ? nullptr : &*at;
  }
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

  PropertyOf ReadProperty(XmlElement const& element, SetOf const& set) const {
    PropertyOf property;
    property.name = ElementText(Somewhere(element, "ePropName"));
    XmlElement const* const method = Somewhere(element, "eMethodName");
    property.method = ElementText(method != nullptr ? method : Somewhere(element, "sMethodName"));
    property.phase = PhaseOf(element);
    for (std::size_t kind = 0; kind < std::size(kUncertainties); ++kind) {
      for (XmlElement const& child : element.children) {
        if (child.name != kUncertainties[kind].place) continue;
        AddFactor(child, kUncertainties[kind], property.factors[kind]);
      }
    }
    property.row = FindMeasuredProperty(property.name, property.phase);
    property.why = WhyPassedOver(element, property, set);
    return property;
  }

  void AddFactor(XmlElement const& child, UncertaintyNames const& names,
                 CoverageFactors& factors) const {
    double const factor = FactorIn(child, names);
    if (factors.byNumber.empty()) factors.first = factor;
    factors.byNumber.emplace(ChildText(child, names.number), factor);
  }

  // The factor that the assessment states, or that of its level of confidence; 2 for neither.
  double FactorIn(XmlElement const& assessment, UncertaintyNames const& names) const {
    constexpr double kUsual = 2.0;
    if (XmlElement const* const factor = assessment.Child(names.factor)) {
      double const value = NumberOf(assessment, names.factor);
      if (!(value > 0.0)) Refuse(*factor, Digits(value) + " is not a coverage factor");
      return value;
    }
    if (assessment.Child(names.level) == nullptr) return kUsual;
    return CoverageFactorOf(NumberOf(assessment, names.level));
  }

  static std::string WhyPassedOver(XmlElement const& element, PropertyOf const& property,
                                   SetOf const& set) {
    constexpr char kDirect[] = "Direct value, X";
    std::string const presented = ElementText(Somewhere(element, "ePresentation"));
    if (set.compounds.size() > 1) return "a mixture";
    if (property.row == nullptr) return "no correlation of this property in this phase";
    bool const isPerMass = property.row->weightPower != 0;
    if (isPerMass && zel::gen_IsUndefDouble(set.compounds.front().weight)) {
      return "per mass, and the formula has no molecular weight";
    }
    if (!presented.empty() && presented != kDirect) return "presented as: " + presented;
    for (Condition const& one : set.conditions) {
      bool const isUsual = one.what == kTemperature || one.what == kPressure;
      if (!isUsual) return "it depends on: " + one.what;
    }
    bool const isOfVapor = property.name.find("or sublimation") != std::string::npos;
    for (std::string const& phase : set.phases) {
      if (!isOfVapor || phase == kLiquid || phase == kGas) continue;
      return phase.rfind("Crystal", 0) == 0 ? "of a solid" : "of the phase " + phase;
    }
    return "";
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
    SetOf set;
    for (XmlElement const& child : data.children) {
      if (child.name == "Component") set.compounds.push_back(CompoundOf(child));
      if (child.name == "PhaseID") set.phases.push_back(ChildText(child, "ePhase"));
    }
    if (set.compounds.empty()) Refuse(data, "has no Component");
    set.conditions = Conditions(data);
    std::vector<PropertyOf> properties;
    std::map<std::string, std::size_t> places;  // by number
    for (XmlElement const& child : data.children) {
      if (child.name != "Property") continue;
      std::string const number = ChildText(child, "nPropNumber");
      if (!places.emplace(number, properties.size()).second) {
        Refuse(child, "nPropNumber \"" + number + "\" is there twice");
      }
      properties.push_back(ReadProperty(child, set));
    }
    for (XmlElement const& child : data.children) {
      if (child.name == "NumValues") ReadValues(child, set, places, properties);
    }
    for (PropertyOf& property : properties) AddSet(set.compounds.front(), property);
  }

  Compound CompoundOf(XmlElement const& component) const {
    std::string const number = ElementText(Within(component, {"RegNum", "nOrgNum"}));
    auto const at = compounds_.find(number);
    if (at == compounds_.end()) Refuse(component, "compound \"" + number + "\" is not described");
    return at->second;
  }

  // The values at one temperature and pressure.
  void ReadValues(XmlElement const& values, SetOf const& set,
                  std::map<std::string, std::size_t> const& places,
                  std::vector<PropertyOf>& properties) const {
    constexpr double kHighestPressure = 150.0;  // kPa
    bool const isOfTwoPhases = set.Has(kGas) && set.phases.size() > 1;
    std::optional<MeasuredPoint> state;
    for (XmlElement const& value : values.children) {
      if (value.name != "PropertyValue") continue;
      auto const place = places.find(ChildText(value, "nPropNumber"));
      if (place == places.end()) continue;
      PropertyOf& property = properties[place->second];
      bool const isSecond = property.last == &values;
      property.last = &values;
      if (!property.why.empty() || isSecond) {
        ++(isSecond ? property.second : property.passedOver);
        continue;
      }
      if (!state) state = StateOf(values, set);
      MeasuredPoint const point = PointOf(*state, value, set.compounds.front(), property);
      bool const isSaturated = isOfTwoPhases && property.phase != kGas;
      if (!(point.kelvin > 0.0) || !std::isfinite(point.value)) {
        ++property.without;
      } else if (point.pressure > kHighestPressure && !isSaturated) {
        ++property.atPressure;
      } else {
        property.points.push_back(point);
      }
    }
  }

  void AddSet(Compound const& compound, PropertyOf& property) {
    for (PassedOver const& one :
         {PassedOver{compound.name, property.name, property.passedOver, property.why},
          PassedOver{compound.name, property.name, property.atPressure, "above 150 kPa"},
          PassedOver{compound.name, property.name, property.without,
                     "no temperature above 0 K or no value"},
          PassedOver{compound.name, property.name, property.second,
                     "a second value at the same conditions"}}) {
      if (one.points > 0) data_.passedOver.push_back(one);
    }
    if (property.points.empty()) return;
    MeasuredSet set;
    set.compound = compound.name;
    set.cas = compound.cas;
    set.correlation = FindCorrelation(property.row->correlation);
    set.property = property.name;
    set.phase = property.phase;
    set.method = property.method;
    set.points = std::move(property.points);
    data_.sets.push_back(std::move(set));
  }

  MeasuredPoint StateOf(XmlElement const& values, SetOf const& set) const {
    MeasuredPoint point;
    point.kelvin = At(values, set.Find(kTemperature));
    point.pressure = At(values, set.Find(kPressure));
    return point;
  }

  MeasuredPoint PointOf(MeasuredPoint const& state, XmlElement const& value,
                        Compound const& compound, PropertyOf const& property) const {
    MeasuredProperty const& row = *property.row;
    MeasuredPoint point = state;
    double const number = NumberOf(value, "nPropValue");
    double const scale = row.factor * std::pow(row.weightPower == 0 ? 1.0 : compound.weight,
                                               static_cast<double>(row.weightPower));
    point.value = row.power > 0 ? number * scale : scale / number;
    double const uncertainty = UncertaintyOf(value, property);
    point.uncertainty =
        std::abs(row.power > 0 ? uncertainty * scale : point.value * uncertainty / number);
    return point;
  }

  // The value of a condition, which may be null; NaN for one that is not stated.
  double At(XmlElement const& values, Condition const* condition) const {
    if (condition == nullptr) return std::numeric_limits<double>::quiet_NaN();
    if (condition->number.empty()) return condition->value;
    for (XmlElement const& child : values.children) {
      bool const isIt =
          child.name == "VariableValue" && ChildText(child, "nVarNumber") == condition->number;
      if (isIt) return NumberOf(child, "nVarValue");
    }
    return std::numeric_limits<double>::quiet_NaN();
  }

  // In the unit of the property; NaN for none.
  double UncertaintyOf(XmlElement const& value, PropertyOf const& property) const {
    for (std::size_t kind = 0; kind < std::size(kUncertainties); ++kind) {
      UncertaintyNames const& names = kUncertainties[kind];
      for (XmlElement const& child : value.children) {
        if (child.name != names.place) continue;
        if (child.Child(names.standard) != nullptr) return NumberOf(child, names.standard);
        if (child.Child(names.expanded) == nullptr) continue;
        CoverageFactors const& factors = property.factors[kind];
        auto const factor = factors.byNumber.find(ChildText(child, names.number));
        return NumberOf(child, names.expanded) /
               (factor == factors.byNumber.end() ? factors.first : factor->second);
      }
    }
    return std::numeric_limits<double>::quiet_NaN();
  }

  static constexpr char kTemperature[] = "Temperature, K";
  static constexpr char kPressure[] = "Pressure, kPa";
  static constexpr char kLiquid[] = "Liquid";
  static constexpr char kGas[] = "Gas";

  std::string path_;
  XmlElement root_;
  std::map<std::string, Compound> compounds_;  // by their number in the document
  MeasuredData data_;
};

}  // namespace

MeasuredData ReadThermoMl(std::string const& path) { return ThermoMlReader(path).Read(); }

}  // namespace zel::desk
