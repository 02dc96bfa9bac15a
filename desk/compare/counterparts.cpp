#include "desk/compare/counterparts.h"

#include <algorithm>

#include "desk/open/identity_conflict.h"
#include "desk/words/letters.h"

namespace zel::desk {

Counterparts::Counterparts(std::vector<PlacedComponent> components)
    : components_(std::move(components)) {
  for (std::size_t i = 0; i < components_.size(); ++i) {
    zel::ZelIdentity const& identity = components_[i].identity;
    byNumber_[identity.number].push_back(i);
    for (char const* id : identity.ids) {
      if (*id != '\0') byId_[UpperCase(id)].push_back(i);
    }
    if (identity.casNumber != 0) byCas_[identity.casNumber].push_back(i);
  }
}

Counterparts::Match Counterparts::Find(zel::ZelIdentity const& identity) const {
  std::vector<std::size_t> candidates;
  std::vector<std::size_t> namesakes;
  auto const add = [](auto const& index, auto const& key, std::vector<std::size_t>& to) {
    auto const at = index.find(key);
    if (at == index.end()) return;
    to.insert(to.end(), at->second.begin(), at->second.end());
  };
  add(byNumber_, identity.number, candidates);
  for (char const* id : identity.ids) {
    if (*id != '\0') add(byId_, UpperCase(id), namesakes);
  }
  candidates.insert(candidates.end(), namesakes.begin(), namesakes.end());
  if (identity.casNumber != 0) add(byCas_, identity.casNumber, candidates);
  if (candidates.empty()) return {};
  auto const agrees = [&](std::size_t i) {
    return AreOneSubstance(identity, components_[i].identity);
  };
  // A component with the same ID can be another substance: rows with this ID would then be of
  // neither.
  if (!namesakes.empty() && std::none_of(namesakes.begin(), namesakes.end(), agrees)) {
    return {&components_[namesakes.front()], true};
  }
  auto const at = std::find_if(candidates.begin(), candidates.end(), agrees);
  if (at != candidates.end()) return {&components_[*at], false};
  return {&components_[candidates.front()], true};
}

}  // namespace zel::desk
