#include "desk/open/identity_conflict.h"

#include <zelaccess/Casn.h>

namespace zel::desk {
namespace {

std::string CasText(zel::ZelIdentity const& identity) {
  return static_cast<char const*>(zel::casn(identity.casNumber));
}

Cell NumberOf(zel::ZelIdentity const& identity) {
  if (identity.number == 0) return {};
  return std::int64_t{identity.number};
}

}  // namespace

std::string ToText(zel::ZelIdentity const& identity) {
  char text[120];
  zel::GetIdentityText(identity, text);
  return text;
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
