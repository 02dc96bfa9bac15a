#include "desk/open/preference_list.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "desk/open/component_name.h"
#include "desk/open/unfinished_change.h"
#include "desk/words/failure.h"

namespace zel::desk {

std::size_t PreferenceList::LibraryAt(std::string const& path) {
  auto const at = std::find_if(libraries_.begin(), libraries_.end(),
                               [&](Library const& one) { return one.Path() == path; });
  if (at != libraries_.end()) return static_cast<std::size_t>(at - libraries_.begin());
  libraries_.push_back(OpenFinished(session_, path));
  return libraries_.size() - 1;
}

PreferenceList::PreferenceList(Session& session, SourceOptions const& options)
    : session_(session),
      search_(zel::LibSearch::NewLibSearch()),
      acceptIdentity_(options.acceptIdentity) {
  for (std::string const& word : options.libraries) {
    std::size_t const colon =
        word.find(':', word.rfind('/') == std::string::npos ? 0 : word.rfind('/'));
    bool const hasBank = colon != std::string::npos && !std::filesystem::exists(word);
    std::size_t const library = LibraryAt(hasBank ? word.substr(0, colon) : word);
    if (hasBank) {
      places_.push_back({library, libraries_[library].ComponentBank(word.substr(colon + 1)).name});
      continue;
    }
    for (BankName const& bank : libraries_[library].Banks(kPureType)) {
      places_.push_back({library, bank.name});
    }
  }
  if (places_.empty() && !options.mayLackComponents) {
    std::string paths;
    for (Library const& one : libraries_) paths += (paths.empty() ? "" : ", ") + one.Path();
    throw Failure(paths + ": no bank of pure components");
  }
  std::vector<zel::LibFile*> files;
  std::vector<char> names(places_.size() * kNameSize);
  for (std::size_t i = 0; i < places_.size(); ++i) {
    files.push_back(&libraries_[places_[i].library].File());
    std::memcpy(&names[i * kNameSize], places_[i].bank.c_str(),
                std::min(places_[i].bank.size(), kNameSize - 1));
  }
  search_->SetLibraryBanks(static_cast<long>(places_.size()), files.data(),
                           reinterpret_cast<char(*)[kNameSize]>(names.data()));
}

std::string PreferenceList::Name(std::size_t i) const {
  return libraries_[places_[i].library].Path() + ":" + places_[i].bank;
}

namespace {

// Looks up a component; if its record cannot be read, the error names the component.
template <typename Look>
auto Looked(Session const& session, std::string const& word, Look const& look) {
  try {
    return look();
  } catch (unsigned long const address) {
    zel::BlockError const error(address);
    throw DamagedLibrary(
        session.ShownPath(error.File()),
        "component " + word + ": block " + std::to_string(address) + " " + error.Reason());
  }
}

}  // namespace

std::vector<PlacedComponent> PreferenceList::Components() const {
  std::vector<PlacedComponent> all;
  for (std::size_t i = 0; i < places_.size(); ++i) {
    Library const& library = libraries_[places_[i].library];
    BankName const bank{kPureType, places_[i].bank};
    library.Walk(bank, [&] {
      PureComponent const component;
      std::int32_t words[10] = {};
      library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
      while (library.Maint().NextItem(words, component.Def())) {
        PlacedComponent one{i, component.Compared()};
        one.identity.number = words[0];
        all.push_back(one);
      }
    });
  }
  return all;
}

ComponentBanks PreferenceList::Banks() const {
  ComponentBanks banks;
  for (Place const& place : places_) {
    banks.emplace_back(&libraries_[place.library], BankName{kPureType, place.bank});
  }
  return banks;
}

std::string const& PreferenceList::Lookup(std::string const& word) const {
  auto const at = lookedUp_.find(word);
  if (at != lookedUp_.end()) return at->second;
  std::string found = Looked(session_, word, [&] { return LookupWord(word, Banks()); });
  return lookedUp_.emplace(word, std::move(found)).first->second;
}

bool PreferenceList::Read(std::size_t i, std::string const& word,
                          PureComponent const& component) const {
  return Looked(session_, word, [&] {
    return ReadComponent(libraries_[places_[i].library], {kPureType, places_[i].bank}, Lookup(word),
                         component);
  });
}

void PreferenceList::Judge(std::string const& word, std::vector<SourcedIdentity> found) {
  std::optional<IdentityConflict> conflict = ConflictIn(word, std::move(found));
  if (!conflict) return;
  if (!acceptIdentity_) {
    throw ConflictingIdentity("", ToText(*conflict) + Advice(*conflict));
  }
  accepted_.push_back(std::move(*conflict));
}

void PreferenceList::Search(std::string const& word, PureComponent& component) {
  std::string const& lookup = Lookup(word);
  try {
    ParseComponent(lookup);
  } catch (NotAComponent const& error) {
    throw MissingComponent("", error.what() + NearestTo(word, Banks()));
  }
  std::vector<SourcedIdentity> found;
  for (std::size_t i = 0; i < Count(); ++i) {
    PureComponent const part;
    if (Read(i, word, part)) found.push_back({Name(i), part.Compared()});
  }
  if (!found.empty()) {
    Judge(word, std::move(found));
    zel::Handle<zel::Key> const key = KeyOf({ParseComponent(lookup)});
    if (Looked(session_, word, [&] { return search_->Search(key.get(), component.Def(), true); }))
      return;
  }
  std::string names;
  for (std::size_t i = 0; i < Count(); ++i) names += (i == 0 ? "" : ", ") + Name(i);
  throw MissingComponent("",
                         "component " + word + " is not in " + names + NearestTo(word, Banks()));
}

}  // namespace zel::desk
