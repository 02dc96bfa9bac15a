#include "desk/open/identity_conflict.h"

#include <zelaccess/Casn.h>

#include <algorithm>
#include <set>

#include "desk/words/letters.h"

namespace zel::desk {
namespace {

std::string CasText(zel::ZelIdentity const& identity) {
  return static_cast<char const*>(zel::casn(identity.casNumber));
}

Cell NumberOf(zel::ZelIdentity const& identity) {
  if (identity.number == 0) return {};
  return std::int64_t{identity.number};
}

// The IDs and the name in upper case.
std::set<std::string> LabelsOf(zel::ZelIdentity const& identity) {
  std::set<std::string> labels;
  for (char const* id : identity.ids) labels.insert(UpperCase(id));
  labels.insert(UpperCase(identity.name));
  labels.erase("");
  return labels;
}

// The CAS number or the formula agrees; nothing contradicts.
bool AgreesInSubstance(zel::ZelIdentity const& one, zel::ZelIdentity const& other) {
  return (one.casNumber != 0 && other.casNumber != 0) ||
         (*one.formula != '\0' && *other.formula != '\0');
}

// Nothing contradicts, but they have only the number in common.
bool ShareOnlyTheNumber(zel::ZelIdentity const& one, zel::ZelIdentity const& other) {
  if (one.number == 0 || one.number != other.number || AgreesInSubstance(one, other)) return false;
  std::set<std::string> const labels = LabelsOf(one);
  std::set<std::string> const others = LabelsOf(other);
  return !labels.empty() && !others.empty() &&
         std::none_of(labels.begin(), labels.end(),
                      [&](std::string const& label) { return others.count(label) != 0; });
}

bool Contradict(zel::ZelIdentity const& one, zel::ZelIdentity const& other) {
  return zel::CompareIdentities(one, other) != zel::identityAgrees;
}

}  // namespace

std::string ToText(zel::ZelIdentity const& identity) {
  char text[120];
  zel::GetIdentityText(identity, text);
  return text;
}

bool AreOneSubstance(zel::ZelIdentity const& one, zel::ZelIdentity const& other) {
  return !Contradict(one, other) && !ShareOnlyTheNumber(one, other);
}

std::optional<IdentityConflict> ConflictIn(std::string const& word,
                                           std::vector<SourcedIdentity> found) {
  for (auto* const areTwo : {&Contradict, &ShareOnlyTheNumber}) {
    for (std::size_t i = 1; i < found.size(); ++i) {
      for (std::size_t k = 0; k < i; ++k) {
        if (!areTwo(found[k].identity, found[i].identity)) continue;
        return IdentityConflict{word, std::move(found), k, i};
      }
    }
  }
  return std::nullopt;
}

std::string ToText(IdentityConflict const& conflict) {
  SourcedIdentity const& one = conflict.found[conflict.one];
  SourcedIdentity const& other = conflict.found[conflict.other];
  return "component " + conflict.word + " is " + ToText(one.identity) + " in " + one.source +
         " and " + ToText(other.identity) + " in " + other.source;
}

std::string Advice(IdentityConflict const& conflict) {
  zel::ZelIdentity const& one = conflict.found[conflict.one].identity;
  if (Contradict(one, conflict.found[conflict.other].identity)) return "";
  return "; they have nothing but the same number, " + std::to_string(one.number) +
         ", in common; `zel renumber` gives one of them another number";
}

Table IdentityTable(std::vector<IdentityConflict> const& conflicts) {
  Table table("identities", {{"component", ""},
                             {"source", ""},
                             {"number", ""},
                             {"id", ""},
                             {"cas", ""},
                             {"formula", ""},
                             {"name", ""}});
  for (IdentityConflict const& conflict : conflicts) {
    for (SourcedIdentity const& one : conflict.found) {
      table.Add(conflict.word, one.source, NumberOf(one.identity), Text(one.identity.ids[0]),
                Text(CasText(one.identity)), Text(one.identity.formula), Text(one.identity.name));
    }
  }
  return table;
}

}  // namespace zel::desk
