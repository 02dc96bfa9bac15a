#include "desk/compare/coverage.h"

#include <algorithm>
#include <map>
#include <set>

#include "desk/open/fields.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

bool IsOfPairs(zel::IZelBankDef& item) {
  BankFacts const facts(item);
  return facts.keyKind == 0 && facts.keyWords == 2;
}

std::set<std::int32_t> NumbersInPairs(Library const& library, std::string const& type) {
  zel::Handle<zel::IZelBankDef> const item = BankOfType(type);
  std::set<std::int32_t> numbers;
  for (BankName const& bank : library.Banks(type)) {
    for (auto const& key : Keys(library, bank, *item)) numbers.insert(key.begin(), key.end());
  }
  return numbers;
}

}  // namespace

DatumState StateOf(PureComponent const& component, std::uint32_t constant) {
  switch (component.State(constant)) {
    case zel::constantStored: return DatumState::kStored;
    case zel::constantFilledIn: return DatumState::kFilledIn;
    default: return DatumState::kMissing;
  }
}

char const* Word(DatumState state) {
  switch (state) {
    case DatumState::kStored: return "stored";
    case DatumState::kFilledIn: return "filled in";
    default: return "missing";
  }
}

DatumCounts CountOf(PureComponent const& component) {
  DatumCounts counts;
  for (auto const& row : Constants()) {
    switch (StateOf(component, row.index)) {
      case DatumState::kStored: ++counts.stored; break;
      case DatumState::kFilledIn: ++counts.filledIn; break;
      case DatumState::kMissing: ++counts.missing; break;
    }
  }
  for (auto const& row : Correlations()) {
    if (component.ReadCurve(IndexOf(row)).present) ++counts.curves;
  }
  return counts;
}

void PairCoverage::Add(std::string const& word) {
  components_.push_back({word, NumbersOf(list_.Libraries(), list_.Lookup(word))});
}

std::string PairCoverage::SourceOf(std::string const& type, std::size_t one,
                                   std::size_t other) const {
  zel::Handle<zel::IZelBankDef> const item = BankOfType(type);
  for (std::size_t i = 0; i < list_.Libraries().size(); ++i) {
    Library const& library = list_.Libraries()[i];
    auto const choices = Choices<std::int32_t>(
        {components_[one].numbers.inLibraries[i], components_[other].numbers.inLibraries[i]});
    for (BankName const& bank : library.Banks(type)) {
      for (auto const& choice : choices) {
        zel::Handle<zel::Key> const key =
            KeyIn(library, *item, {std::to_string(choice[0]), std::to_string(choice[1])});
        if (library.Maint().ItemExists(item.get(), bank.name.c_str(), key.get())) {
          return library.Path() + ":" + bank.name;
        }
      }
    }
  }
  return "";
}

std::vector<std::string> PairTypes(PreferenceList const& list) {
  std::vector<std::string> types;
  for (Library const& library : list.Libraries()) {
    for (BankName const& bank : library.Banks()) {
      zel::Handle<zel::IZelBankDef> const item = BankOrNone(bank.type);
      if (!item) continue;
      bool const isNew = std::find(types.begin(), types.end(), bank.type) == types.end();
      if (IsOfPairs(*item) && isNew) types.push_back(bank.type);
    }
  }
  return types;
}

std::vector<std::string> PairTypes(std::vector<std::string> const& named) {
  std::vector<std::string> types;
  for (std::string const& word : named) {
    std::string const type = UpperCase(word);
    if (!IsOfPairs(*BankOfType(type))) {
      throw Failure(type + " is not a model of pairs of components; `zel types` lists the keys");
    }
    types.push_back(type);
  }
  return types;
}

std::vector<std::string> ComponentsInPairs(PreferenceList const& list,
                                           std::vector<std::string> const& types) {
  std::vector<PlacedComponent> const all = list.Components();
  std::map<std::pair<std::size_t, std::int32_t>, std::size_t> own;  // by library and number
  std::map<std::int32_t, std::size_t> first;                        // by number
  for (std::size_t i = 0; i < all.size(); ++i) {
    own.emplace(std::make_pair(list.LibraryOf(all[i].place), all[i].identity.number), i);
    first.emplace(all[i].identity.number, i);
  }
  std::set<std::size_t> paired;
  for (std::string const& type : types) {
    for (std::size_t i = 0; i < list.Libraries().size(); ++i) {
      for (std::int32_t const number : NumbersInPairs(list.Libraries()[i], type)) {
        auto const at = own.find({i, number});
        auto const known = first.find(number);
        if (at != own.end()) {
          paired.insert(at->second);
        } else if (known != first.end()) {
          paired.insert(known->second);
        }
      }
    }
  }
  std::vector<std::string> words;
  std::set<std::string> seen;
  for (std::size_t const i : paired) {
    std::string const id = all[i].identity.ids[0];
    std::string const word = id.empty() ? std::to_string(all[i].identity.number) : id;
    if (seen.insert(word).second) words.push_back(word);
  }
  return words;
}

}  // namespace zel::desk
