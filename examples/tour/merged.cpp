// A component merged from the libraries of all sources.
#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

#include "tour.h"

namespace tour {

std::string LowerCase(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

Merged::Merged(std::vector<Library> const& libraries)
    : bank_("PURECOMP", zel::IID_IZelPureComp),
      key_(zel::Key::NewKey()),
      search_(zel::LibSearch::NewLibSearch()) {
  constexpr std::size_t kCount = std::size(kSources);
  std::array<zel::LibFile*, kCount> files{};
  char names[kCount][9] = {};
  for (std::size_t i = 0; i < kCount; ++i) {
    files[i] = libraries.at(i).get();
    std::snprintf(names[i], sizeof names[i], "%s", kSources[i].name);
  }
  search_->SetLibraryBanks(static_cast<long>(kCount), files.data(), names);
}

bool Merged::Find(Component const& component) {
  key_->SetKey(component.number);
  return search_->Search(key_.get(), bank_.Def(), true);
}

}  // namespace tour
