#include "verify/salvage/found_identifiers.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "frame/ascii.h"
#include "store/packed_text.h"
#include "zelaccess/Casn.h"

namespace zel {

namespace f = format;
namespace r = record;

namespace {

using IdKey = std::array<std::int32_t, f::kIdKeyWords>;

// The key of an ID in the tree of IDs, in which they are in capitals.
IdKey KeyOf(std::string_view id) {
  char capitals[f::kWordBytes * r::kIdWords + 1] = "";
  std::transform(id.begin(), id.end(), capitals, [](char c) { return ToUpper(c); });
  IdKey key{};
  TextToWords(capitals, key.data(), f::kIdKeyWords);
  return key;
}

bool IsOneOf(std::vector<std::int32_t> const& numbers, std::int32_t number) {
  return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

}  // namespace

void FoundIdentifiers::Note(ComponentWords const& words) {
  std::int32_t const number = words.main[r::kNumber];
  for (int i = 0; i < r::kMostIds; ++i) {
    char id[f::kWordBytes * r::kIdWords + 1];
    WordsToText(&words.main[static_cast<std::size_t>(r::kIds + r::kIdWords * i)], r::kIdWords, id);
    if (id[0] == '\0') break;
    ids_.emplace_back(KeyOf(id), number);
    owners_[ids_.back().first].push_back(number);
    numbers_.insert(number);
  }
  casn const cas(static_cast<long>(words.main[r::kCasNumber]));
  if (static_cast<long>(cas) != 0) cas_.emplace_back(words.main[r::kCasNumber], number);
}

void FoundIdentifiers::NoteAll(std::vector<ComponentBank> const& banks,
                               ComponentRecords const& records) {
  for (ComponentBank const& bank : banks) {
    for (FoundComponent const& component : bank.components) {
      ComponentWords words;
      if (component.address != 0 && records.Copy(component.address, component.number, words)) {
        Note(words);
      }
    }
  }
  for (FoundEntry const& entry : before_.Ids().entries) {
    auto const at = owners_.find({entry.words[0], entry.words[1]});
    if (at == owners_.end()) continue;
    auto const owner = std::find(at->second.begin(), at->second.end(), entry.words[2]);
    if (owner != at->second.end()) std::iter_swap(at->second.begin(), owner);
  }
}

void FoundIdentifiers::DropForeign(ComponentWords& words) const {
  std::int32_t const number = words.main[r::kNumber];
  ComponentRecords::KeepIds(words, [&](std::string_view id) {
    auto const at = owners_.find(KeyOf(id));
    return id.empty() || at == owners_.end() || at->second.front() == number;
  });
}

void FoundIdentifiers::Write(RescuedLibrary& to) const {
  WriteIds(to);
  WriteCasNumbers(to);
}

void FoundIdentifiers::WriteIds(RescuedLibrary& to) const {
  for (FoundEntry const& entry : before_.Ids().entries) {
    auto const at = owners_.find({entry.words[0], entry.words[1]});
    bool const isGood = at == owners_.end() ? numbers_.count(entry.words[2]) != 0
                                            : at->second.front() == entry.words[2];
    if (isGood) to.AddId(entry.words, entry.words[2]);
  }
  for (auto const& [key, number] : ids_) {
    if (owners_.at(key).front() == number) to.AddId(key.data(), number);
  }
}

void FoundIdentifiers::WriteCasNumbers(RescuedLibrary& to) const {
  std::map<std::int32_t, std::vector<std::int32_t>> owners;
  for (auto const& [cas, number] : cas_) owners[cas].push_back(number);
  for (FoundEntry const& entry : before_.CasNumbers().entries) {
    auto const at = owners.find(entry.words[0]);
    bool const isCas = static_cast<long>(casn(static_cast<long>(entry.words[0]))) != 0;
    bool const isGood = at == owners.end() ? isCas && numbers_.count(entry.words[1]) != 0
                                           : IsOneOf(at->second, entry.words[1]);
    if (isGood) to.AddCas(entry.words[0], entry.words[1]);
  }
  for (auto const& [cas, number] : cas_) to.AddCas(cas, number);
}

}  // namespace zel
