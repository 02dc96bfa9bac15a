#include "verify/library_comparison.h"

#include <cmath>
#include <set>

#include "verify/component_checks.h"
#include "zelaccess/Casn.h"

namespace zel {
namespace {

std::string TextOf(ZelIdentity const& identity) {
  char text[120];
  GetIdentityText(identity, text);
  return text;
}

// The labels by which a library finds the component.
std::vector<std::string> LabelsOf(ZelIdentity const& identity) {
  std::vector<std::string> labels;
  if (identity.number != 0) labels.push_back("the number " + std::to_string(identity.number));
  std::set<std::string> ids;
  for (char const* id : identity.ids) {
    if (*id != '\0' && ids.insert(id).second) labels.push_back(std::string("the ID ") + id);
  }
  if (identity.casNumber != 0) {
    labels.push_back(std::string("the CAS number ") +
                     static_cast<char const*>(casn(identity.casNumber)));
  }
  return labels;
}

// A component, and where findings about it are reported.
struct Compared {
  ComponentView const& component;
  CheckedItem item;
};

// Constants that differ by more than a factor of 1.5.
void CompareMagnitudes(Compared const& one, Compared const& other, DataFindings& findings) {
  constexpr double kFactor = 1.5;
  for (auto const& row : ConstantRows()) {
    double const a = one.component.Constant(row.index);
    double const b = other.component.Constant(row.index);
    if (!IsDefined(a) || !IsDefined(b) || a == 0.0 || b == 0.0) continue;
    double const ratio = a / b;
    if (ratio >= 1.0 / kFactor && ratio <= kFactor) continue;
    findings.Tell(one.item,
                  DataFinding("magnitude", row.keyword)
                      .Value(a, row.unit)
                      .Expect(Expected::Value(b))
                      .Against(other.item.library),
                  "{datum} is {value}, but {against} has {expected}");
  }
}

// The vapor pressure of the one at the normal boiling point of the other, if they have them.
void CompareBoilingPoint(Compared const& one, Compared const& other, DataFindings& findings) {
  double const boiling = other.component.Constant(propertyNBP);
  if (!IsDefined(boiling)) return;
  double const pressure = one.component.InsideAt(correlationVaporPressure, boiling);
  constexpr double kTolerance = 0.05;
  if (!IsDefined(pressure) || std::abs(pressure - kAtmosphere) <= kTolerance * kAtmosphere) return;
  ZelCorrelationInfo const& row = CorrelationRows()[correlationVaporPressure];
  findings.Tell(one.item,
                DataFinding("boiling-point", row.name)
                    .Value(pressure, row.unit)
                    .At(boiling)
                    .Expect(Expected::Value(kAtmosphere))
                    .Against(other.item.library),
                "at NBP {temperature} of {against} the vapor pressure is {value}, "
                "expected {expected}");
}

}  // namespace

void IdentityComparison::Library(CheckedLibrary& library) {
  for (CheckedBank const& bank : library.Banks(kPureComponentType)) {
    ComponentView const component;
    library.Walk(bank, component.Def(), [&](std::int32_t const* words) {
      ZelIdentity const identity = component.Identity();
      Component(library.ComponentItem(bank, identity, words[0]),
                Seen(library.Name() + ":" + bank.name, identity));
    });
  }
}

void IdentityComparison::Component(CheckedItem const& item, Seen own) {
  // What it has in common with each earlier component.
  std::map<std::size_t, std::string> common;
  for (std::string const& label : LabelsOf(own.identity)) {
    std::vector<std::size_t>& places = byLabel_[label];
    for (std::size_t const place : places) {
      std::string& text = common[place];
      text += (text.empty() ? "" : " and ") + label;
    }
    places.push_back(seen_.size());
  }
  for (auto const& [place, what] : common) {
    Seen const& before = seen_[place];
    bool const isOtherBank = before.source != own.source;
    if (!isOtherBank || CompareIdentities(own.identity, before.identity) == identityAgrees)
      continue;
    findings_.Tell(item,
                   DataFinding("identity", "identity")
                       .Text(TextOf(own.identity))
                       .Expect(Expected::Text(TextOf(before.identity)))
                       .Against(before.source),
                   "has " + what + " of {against} but is {value}; there it is {expected}");
  }
  seen_.push_back(std::move(own));
}

void CompareComponents(CheckedLibrary& one, CheckedLibrary& other) {
  DataFindings& findings = one.Findings();
  std::vector<CheckedBank> const banks = other.Banks(kPureComponentType);
  for (CheckedBank const& bank : one.Banks(kPureComponentType)) {
    ComponentView const a;
    ComponentView const b;
    one.Walk(bank, a.Def(), [&](std::int32_t const* words) {
      ZelIdentity const identity = a.Identity();
      for (CheckedBank const& there : banks) {
        if (!other.ReadSame(there, identity, b)) continue;
        Compared const own{a, one.ComponentItem(bank, identity, words[0])};
        ZelIdentity const identityThere = b.Identity();
        Compared const same{b, other.ComponentItem(there, identityThere, identityThere.number)};
        CompareMagnitudes(own, same, findings);
        CompareBoilingPoint(own, same, findings);
        CompareBoilingPoint(same, own, findings);
      }
    });
  }
}

}  // namespace zel
