#include "open/identity_conflict.h"

#include <zelaccess/Casn.h>

#include <set>

namespace zelhost {
namespace {

std::string CasText(zel::ZelIdentity const& identity) {
  return static_cast<char const*>(zel::casn(identity.casNumber));
}

Cell NumberOf(zel::ZelIdentity const& identity) {
  if (identity.number == 0) return {};
  return std::int64_t{identity.number};
}

// The labels by which a library finds the component.
std::vector<std::string> LabelsOf(zel::ZelIdentity const& identity) {
  std::vector<std::string> labels;
  if (identity.number != 0) labels.push_back("the number " + std::to_string(identity.number));
  std::set<std::string> ids;
  for (char const* id : identity.ids) {
    if (*id != '\0' && ids.insert(id).second) labels.push_back(std::string("the ID ") + id);
  }
  if (identity.casNumber != 0) labels.push_back("the CAS number " + CasText(identity));
  return labels;
}

}  // namespace

std::string ToText(zel::ZelIdentity const& identity) {
  std::string labels;
  auto const add = [&](std::string const& text) {
    if (!text.empty()) labels += (labels.empty() ? "" : ", ") + text;
  };
  if (identity.number != 0) add(std::to_string(identity.number));
  add(identity.ids[0]);
  add(CasText(identity));
  add(identity.formula);
  std::string const name = *identity.name != '\0' ? identity.name : "a component without a name";
  return labels.empty() ? name : name + " (" + labels + ")";
}

std::optional<IdentityConflict> ConflictIn(std::string const& word,
                                           std::vector<SourcedIdentity> found) {
  for (std::size_t i = 1; i < found.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) {
      if (zel::CompareIdentities(found[k].identity, found[i].identity) == zel::identityAgrees) {
        continue;
      }
      return IdentityConflict{word, std::move(found), k, i};
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

void AddConflicts(std::vector<IdentityConflict> const& conflicts, Report& report) {
  if (conflicts.empty()) return;
  std::vector<std::string> words;
  for (IdentityConflict const& conflict : conflicts) words.push_back(conflict.word);
  report.Warning("identity warning", "the sources contradict each other about the identity of " +
                                         CellText(Texts(words)));
  Table& table = report.Begin("identities", {{"component", ""},
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
}

void IdentityAcross::Component(SourcedIdentity component) {
  // What it has in common with each earlier component.
  std::map<std::size_t, std::string> common;
  for (std::string const& label : LabelsOf(component.identity)) {
    std::vector<std::size_t>& places = byLabel_[label];
    for (std::size_t const place : places) {
      std::string& text = common[place];
      text += (text.empty() ? "" : " and ") + label;
    }
    places.push_back(seen_.size());
  }
  for (auto const& [place, what] : common) {
    SourcedIdentity const& before = seen_[place];
    bool const isOtherBank = before.source != component.source;
    if (isOtherBank && zel::CompareIdentities(component.identity, before.identity) != 0) {
      tell_(component, before, what);
    }
  }
  seen_.push_back(std::move(component));
}

}  // namespace zelhost
