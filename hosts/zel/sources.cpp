#include "sources.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "failure.h"

namespace zelhost {

std::size_t Sources::LibraryAt(std::string const& path) {
  auto const at = std::find_if(libraries_.begin(), libraries_.end(),
                               [&](Library const& one) { return one.Path() == path; });
  if (at != libraries_.end()) return static_cast<std::size_t>(at - libraries_.begin());
  libraries_.push_back(Library::OpenRead(path));
  return libraries_.size() - 1;
}

Sources::Sources(std::vector<std::string> const& words) : search_(zel::LibSearch::NewLibSearch()) {
  for (std::string const& word : words) {
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
  if (places_.empty()) {
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

std::string Sources::Name(std::size_t i) const {
  return libraries_[places_[i].library].Path() + ":" + places_[i].bank;
}

bool Sources::Read(std::size_t i, std::string const& word, PureComponent& component) const {
  zel::Handle<zel::Key> const key = KeyOf({ParseComponent(word)});
  return libraries_[places_[i].library].Maint().ReadItem(component.Def(), places_[i].bank.c_str(),
                                                         key.get());
}

bool Sources::Find(std::string const& word, PureComponent& component) const {
  zel::Handle<zel::Key> const key = KeyOf({ParseComponent(word)});
  return search_->Search(key.get(), component.Def(), true);
}

void Sources::Search(std::string const& word, PureComponent& component) const {
  if (Find(word, component)) return;
  std::string names;
  for (std::size_t i = 0; i < Count(); ++i) names += (i == 0 ? "" : ", ") + Name(i);
  throw Failure("component " + word + " is not in " + names + "; `zel find` looks for names");
}

}  // namespace zelhost
