#include "desk/compare/coverage.h"

#include <algorithm>
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

// The numbers are those of the library's own components; without components, the common ones.
void PairCoverage::Add(std::string const& word, PureComponent const& merged) {
  zel::ZelIdentity const identity = merged.Compared();
  std::string const common = std::to_string(identity.number);
  Covered covered{word, {}};
  for (Library const& library : list_.Libraries()) {
    std::string number = common;
    for (BankName const& bank : library.Banks(kPureType)) {
      PureComponent const own;
      PureComponent const namesake;
      if (ReadComponent(library, bank, word, own)) {
        number = std::to_string(own.Compared().number);
      } else if (ReadComponent(library, bank, common, namesake)) {
        if (zel::CompareIdentities(identity, namesake.Compared()) != zel::identityAgrees)
          number = "";
      }
    }
    covered.numbers.push_back(number);
  }
  components_.push_back(std::move(covered));
}

std::string PairCoverage::SourceOf(std::string const& type, std::size_t one,
                                   std::size_t other) const {
  zel::Handle<zel::IZelBankDef> const item = BankOfType(type);
  for (std::size_t i = 0; i < list_.Libraries().size(); ++i) {
    Library const& library = list_.Libraries()[i];
    std::string const& first = components_[one].numbers[i];
    std::string const& second = components_[other].numbers[i];
    if (first.empty() || second.empty()) continue;
    for (BankName const& bank : library.Banks(type)) {
      zel::Handle<zel::Key> const key = KeyIn(library, *item, {first, second});
      if (library.Maint().ItemExists(item.get(), bank.name.c_str(), key.get())) {
        return library.Path() + ":" + bank.name;
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
  std::set<std::int32_t> numbers;
  for (std::string const& type : types) {
    zel::Handle<zel::IZelBankDef> const item = BankOfType(type);
    for (Library const& library : list.Libraries()) {
      for (BankName const& bank : library.Banks(type)) {
        for (auto const& key : Keys(library, bank, *item)) numbers.insert(key.begin(), key.end());
      }
    }
  }
  std::vector<std::string> words;
  for (PlacedComponent const& one : list.Components()) {
    if (numbers.erase(one.identity.number) == 0) continue;
    std::string const id = one.identity.ids[0];
    words.push_back(id.empty() ? std::to_string(one.identity.number) : id);
  }
  return words;
}

}  // namespace zel::desk
