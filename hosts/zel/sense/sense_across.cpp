// Plausibility checks that need several components, or two libraries.
#include <zelaccess/Identity.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "sense/sense_checks.h"
#include "sense/sense_terms.h"

namespace zelhost {
namespace {

// The same text for numbers that are equal except for rounding.
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

}  // namespace

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
  if (Has(component.Constant(zel::propertyTC)) && Has(component.Constant(zel::propertyPC))) {
    numbers_.push_back({"TC and PC: " + Digits(component.Constant(zel::propertyTC)) + " " +
                            Digits(component.Constant(zel::propertyPC)),
                        {place, identity.formula, "has TC and PC"}});
  }
}

// Compares each component with the previous ones that have its CAS number. Components with the same
// formula compare alike, so that one of each formula is enough.
void SenseAcross::CasShared() {
  std::stable_sort(casNumbers_.begin(), casNumbers_.end(),
                   [](auto const& a, auto const& b) { return a.first < b.first; });
  std::map<std::string, Seen const*> formulas;
  for (std::size_t i = 0; i < casNumbers_.size(); ++i) {
    auto const& cas = casNumbers_[i].first;
    auto const& seen = casNumbers_[i].second;
    bool const isShared = i > 0 && casNumbers_[i - 1].first == cas;
    if (!isShared) formulas.clear();
    auto const other = std::find_if(formulas.begin(), formulas.end(), [&](auto const& known) {
      return !zel::FormulasAgree(seen.formula.c_str(), known.first.c_str());
    });
    if (other != formulas.end()) {
      tell_("cas-formula", seen.place,
            "has the CAS number " + cas + " of " + other->second->place + " and another formula, " +
                seen.formula + " instead of " + other->first);
    } else if (isShared) {
      tell_("cas-shared", seen.place,
            "has the CAS number " + cas + " of " + casNumbers_[i - 1].second.place);
    }
    if (!seen.formula.empty()) formulas.emplace(seen.formula, &seen);
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

// Checks nothing unless the one has a vapor pressure and the other a boiling point.
void CheckBoilingPoint(PureComponent const& one, std::string const& onePlace,
                       PureComponent const& other, std::string const& otherPlace,
                       TellSense const& tell) {
  double const boiling = other.Constant(zel::propertyNBP);
  if (!Has(boiling)) return;
  double const pressure = InsideAt(one, zel::correlationVaporPressure, boiling);
  constexpr double kTolerance = 0.05;
  if (!Has(pressure) || std::abs(pressure - kAtmosphere) <= kTolerance * kAtmosphere) return;
  tell("boiling-point", onePlace,
       "at NBP " + Show(boiling) + " K of " + otherPlace + " the vapor pressure is " +
           Show(pressure) + " kPa, expected 101.325");
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
         row.keyword + (" is " + Show(a)) + ", but " + otherPlace + " has " + Show(b));
  }
}

}  // namespace zelhost
