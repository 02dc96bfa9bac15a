#include "desk/formats/nasa.h"

#include <algorithm>
#include <cmath>

#include "desk/formats/foreign_equations.h"
#include "desk/formats/foreign_units.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

constexpr double kGasConstant = 8.31446261815324;  // kJ/(kmol K), of the SI of 2019
constexpr double kStandard = 298.15;               // K
constexpr std::size_t kSeven = 7;

std::string RangeText(NasaRange const& range) {
  return Digits(range.low) + " to " + Digits(range.high) + " K";
}

bool HasStandard(NasaRange const& range) {
  return range.low <= kStandard && kStandard <= range.high;
}

std::size_t Chosen(std::vector<NasaRange> const& ranges, std::string const& word) {
  if (word == "low") return 0;
  if (word == "high") return ranges.size() - 1;
  auto const at = std::find_if(ranges.begin(), ranges.end(), HasStandard);
  return at == ranges.end() ? 0 : static_cast<std::size_t>(at - ranges.begin());
}

std::string TagOf(std::size_t at, std::size_t count) {
  if (count == 1) return "range";
  return at == 0 ? "low range" : at + 1 == count ? "high range" : "middle range";
}

// H/R at a temperature, with the constant of the enthalpy.
double EnthalpyOverR(std::vector<double> const& a, double t) {
  if (a.size() == kSeven) {
    return t * (a[0] + t * (a[1] / 2 + t * (a[2] / 3 + t * (a[3] / 4 + t * a[4] / 5)))) + a[5];
  }
  return -a[0] / t + a[1] * std::log(t) +
         t * (a[2] + t * (a[3] / 2 + t * (a[4] / 3 + t * (a[5] / 4 + t * a[6] / 5)))) + a[7];
}

void AddRange(ForeignComponent& component, NasaRange const& range, std::size_t origin) {
  ForeignDatum& datum = component.data[origin];
  ForeignCurve cp;
  cp.info = FindCorrelation("IdealGasCp");
  cp.unit = "kJ/kg-mol-K";
  cp.origin = origin;
  cp.curve.present = true;
  cp.curve.logBasis = 1;
  cp.curve.tMin = range.low;
  cp.curve.tMax = range.high;
  bool const isSeven = range.a.size() == kSeven;
  cp.curve.equation = isSeven ? 1 : 25;
  // a1/T^2 and a2/T come last in form 25.
  std::vector<std::size_t> const places = isSeven ? std::vector<std::size_t>{0, 1, 2, 3, 4}
                                                  : std::vector<std::size_t>{2, 3, 4, 5, 6, 1, 0};
  for (std::size_t const place : places) {
    cp.curve.coefficients.push_back(kGasConstant * range.a[place]);
    CheckForeign(cp.curve.coefficients.back(), "a" + std::to_string(place + 1) + " R");
  }
  datum.fate = Fate::kConverted;
  datum.what = RangeText(range) + ", times 8.31446261815324 kJ/(kmol K), is equation " +
               std::to_string(cp.curve.equation);
  component.curves.push_back(cp);
  if (!isSeven) {
    datum.what += "; its integral has no form here";
    return;
  }
  ForeignCurve enthalpy = cp;
  enthalpy.info = FindCorrelation("IdealEnthalpy");
  enthalpy.unit = "kJ/kg-mol";
  IntegrateHeatCapacity({100, cp.curve.coefficients}, enthalpy.curve);
  component.curves.push_back(std::move(enthalpy));
  datum.what += "; its integral, 0 at 298.15 K, is the IdealEnthalpy";
}

void AddConstants(ForeignComponent& component, NasaRange const& range) {
  if (HasStandard(range)) {
    double const value = kGasConstant * EnthalpyOverR(range.a, kStandard);
    CheckForeign(value, "HFORMATION");
    std::size_t const origin =
        component.Note(range.line, "enthalpy constant", Fate::kConverted, "HFORMATION",
                       "the enthalpy at 298.15 K is " + Digits(value) + " kJ/kg-mol");
    component.constants.push_back({FindConstant("HFORMATION"), value, origin});
  } else {
    component.Note(range.line, "enthalpy constant", Fate::kNoPlace, "",
                   "the range does not have 298.15 K");
  }
  component.Note(range.line, "entropy constant", Fate::kNoPlace, "",
                 "a component has no such datum");
}

}  // namespace

std::string FormulaOf(std::map<std::string, double> const& elements) {
  std::string formula;
  for (auto const& [element, count] : elements) {
    if (count == 0.0) continue;
    bool const isWhole = count > 0.0 && count < 1e4 && count == std::floor(count);
    if (!isWhole || element == "E") return "";
    formula += element + (count == 1.0 ? "" : std::to_string(static_cast<long>(count)));
  }
  return formula;
}

ForeignComponent FromNasa(NasaSpecies const& species, ForeignOptions const& options) {
  ForeignComponent component;
  component.line = species.line;
  SetName(component, species.line, "name", species.name);
  if (!species.elements.empty()) {
    SetFormula(component, species.line, "composition", FormulaOf(species.elements));
  }
  if (!species.fault.empty()) {
    component.Note(species.line, "range", Fate::kRefused, "IdealGasCp", species.fault);
    return component;
  }
  std::vector<NasaRange> const& ranges = species.ranges;
  std::size_t const chosen = ranges.empty() ? 0 : Chosen(ranges, options.range);
  for (std::size_t i = 0; i < ranges.size(); ++i) {
    std::string const tag = TagOf(i, ranges.size());
    std::size_t const origin = component.Note(ranges[i].line, tag, Fate::kNoPlace, "IdealGasCp");
    if (!species.notGas.empty()) {
      component.data[origin].what = species.notGas;
    } else if (i != chosen) {
      component.data[origin].what = "a record has one range, and another one was chosen";
    } else {
      try {
        AddRange(component, ranges[i], origin);
        if (!species.remark.empty()) component.data[origin].what += "; " + species.remark;
        AddConstants(component, ranges[i]);
      } catch (Failure const& failure) {
        component.data[origin].fate = Fate::kRefused;
        component.data[origin].what = failure.what();
        component.curves.clear();
      }
    }
  }
  return component;
}

}  // namespace zel::desk
