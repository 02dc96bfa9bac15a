#include "verify/bank_components.h"

#include <algorithm>

#include "frame/number_text.h"
#include "verify/composition.h"
#include "zelaccess/Casn.h"

namespace zel {
namespace {

// The same text for numbers that are equal except for rounding.
std::string Rounded(double value) {
  constexpr int kDigits = 5;
  return RealText(value, kDigits);
}

// The strength for a value that other components have for a good reason.
constexpr double kUnlikely = 0.3;

bool IsOneAtom(std::string const& formula) {
  Composition atoms;
  return CompositionOf(formula, atoms) && atoms.size() == 1 && atoms.begin()->second == 1;
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

void BankComponents::Component(ComponentView const& component, CheckedItem item) {
  ZelIdentity const identity = component.Identity();
  components_.emplace_back(std::move(item), identity.formula);
  std::string const cas = static_cast<char const*>(casn(identity.casNumber));
  if (!cas.empty()) {
    casNumbers_.emplace_back(components_.size() - 1, cas, "CAS number", cas);
  }
  AddData(component);
}

void BankComponents::AddData(ComponentView const& component) {
  std::size_t const own = components_.size() - 1;
  for (std::uint32_t i = 0; i < CorrelationRows().size(); ++i) {
    CorrelationRecord const* const record = component.Record(i);
    if (record == nullptr) continue;
    auto const coefficients = ComponentView::Coefficients(*record);
    if (coefficients.size() < 2) continue;
    std::string const name = CorrelationRows()[i].name;
    std::string text;
    for (double const c : coefficients) text += (text.empty() ? "" : " ") + Rounded(c);
    std::string compared = name + " of equation ";
    compared += std::to_string(record->equation);
    compared += ": ";
    compared += text;
    numbers_.emplace_back(own, std::move(compared), name, text);
  }
  for (auto const& row : ConstantRows()) {
    double const value = component.Constant(row.index);
    if (!IsDefined(value) || !HasManyDigits(Shown(value))) continue;
    constants_[row.keyword + (" " + Shown(value))].emplace_back(own, row.keyword, value, row.unit);
  }
  double const temperature = component.Constant(propertyTC);
  double const pressure = component.Constant(propertyPC);
  if (IsDefined(temperature) && IsDefined(pressure)) {
    std::string const text = Shown(temperature) + " " + Shown(pressure);
    numbers_.emplace_back(own, "TC and PC: " + text, "TC and PC", text);
  }
}

// Compares each component with the previous ones that have its CAS number. Components with the same
// formula compare alike, so that one of each formula is enough.
void BankComponents::CasShared() {
  std::stable_sort(casNumbers_.begin(), casNumbers_.end(),
                   [](Seen const& a, Seen const& b) { return a.compared < b.compared; });
  std::map<std::string, Seen const*> formulas;
  for (std::size_t i = 0; i < casNumbers_.size(); ++i) {
    Seen const& seen = casNumbers_[i];
    Identified const& own = Of(seen);
    bool const isShared = i > 0 && casNumbers_[i - 1].compared == seen.compared;
    if (!isShared) formulas.clear();
    auto const other = std::find_if(formulas.begin(), formulas.end(), [&](auto const& known) {
      return !FormulasAgree(own.formula.c_str(), known.first.c_str());
    });
    if (other != formulas.end()) {
      findings_.Tell(own.item,
                     DataFinding("cas-formula", "formula")
                         .Text(own.formula)
                         .Expect(Expected::Text(other->first))
                         .Against(Of(*other->second).item.place),
                     "has the CAS number " + seen.compared +
                         " of {against} and another {datum}, {value} instead of {expected}");
    } else if (isShared) {
      findings_.Tell(own.item,
                     DataFinding("cas-shared", seen.datum)
                         .Text(seen.valueText)
                         .Against(Of(casNumbers_[i - 1]).item.place),
                     "has the {datum} {value} of {against}");
    }
    if (!own.formula.empty()) formulas.emplace(own.formula, &seen);
  }
}

void BankComponents::Repeated() {
  std::stable_sort(numbers_.begin(), numbers_.end(),
                   [](Seen const& a, Seen const& b) { return a.compared < b.compared; });
  for (std::size_t i = 1; i < numbers_.size(); ++i) {
    Seen const& seen = numbers_[i];
    Seen const& before = numbers_[i - 1];
    if (seen.compared != before.compared) continue;
    bool const isCritical = seen.datum == "TC and PC";
    // Atoms without bonds have the same heat capacity as a gas.
    constexpr double kLikely = 0.6;
    bool const areAtoms = IsOneAtom(Of(seen).formula) && IsOneAtom(Of(before).formula);
    findings_.Tell(
        Of(seen).item,
        DataFinding("repeated", seen.datum)
            .Text(seen.valueText)
            .Against(Of(before).item.place)
            .Strength(areAtoms ? kUnlikely : kLikely),
        isCritical ? "has {datum} of {against}" : "{datum} has the coefficients of {against}");
  }
}

void BankComponents::RepeatedConstants() {
  constexpr std::size_t kFew = 3;
  for (auto const& [text, all] : constants_) {
    Seen const& first = all.front();
    Seen const& last = all.back();
    // Isomers have some constants in common.
    bool const allAlike = std::all_of(all.begin(), all.end(), [&](Seen const& one) {
      return Of(one).formula == Of(first).formula;
    });
    if (all.size() <= kFew || allAlike) continue;
    findings_.Tell(Of(last).item,
                   DataFinding("repeated", last.datum)
                       .Value(last.value, last.unit)
                       .Strength(kUnlikely)
                       .Against(Of(first).item.place),
                   "has {datum} {value} with " + std::to_string(all.size() - 1) +
                       " others, the first of them {against}");
  }
}

void BankComponents::Close() {
  CasShared();
  Repeated();
  RepeatedConstants();
}

}  // namespace zel
