#include <algorithm>
#include <map>
#include <set>

#include "desk/notes/parameter_meanings.h"
#include "desk/open/component_name.h"
#include "desk/open/component_numbers.h"
#include "desk/open/fields.h"
#include "desk/tables/component_table.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

// The ID of a component in the library, or in the first library that knows it, where that of
// --names is the last one; its number if none does.
std::string IdOf(std::vector<Library> const& libraries, std::size_t own, std::int32_t number) {
  std::vector<Library const*> knowing = {&libraries[own]};
  knowing.reserve(libraries.size() + 2);
  for (Library const& library : libraries) knowing.push_back(&library);
  knowing.push_back(libraries.front().InSession().names.get());
  for (Library const* library : knowing) {
    if (library == nullptr) continue;
    char id[kNameSize] = {};
    library->Maint().GetIdOfNumber(number, id);
    if (*id != '\0') return id;
  }
  return std::to_string(number);
}

ComponentNumbers NumbersOfWord(std::vector<Library> const& libraries, std::string const& word) {
  ComponentBanks banks;
  for (Library const& library : libraries) {
    for (auto const& known : BanksKnownTo(library)) banks.push_back(known);
  }
  std::string const lookup = LookupWord(word, banks);
  ComponentNumbers numbers = NumbersOf(libraries, lookup);
  if (numbers.isKnown || std::holds_alternative<long>(ParseComponent(lookup))) return numbers;
  throw Failure("component " + word + " is in none of the libraries" + NearestTo(word, banks));
}

// The components that are named, each once, by their numbers in each library.
class NamedComponents {
 public:
  NamedComponents(std::vector<Library> const& libraries, std::vector<std::string> const& words) {
    std::set<std::vector<std::vector<std::int32_t>>> distinct;
    shown_.resize(libraries.size());
    for (std::string const& word : words) {
      ComponentNumbers const one = NumbersOfWord(libraries, word);
      if (!distinct.insert(one.inLibraries).second) continue;
      ++count_;
      for (std::size_t i = 0; i < libraries.size(); ++i) {
        for (std::int32_t const number : one.inLibraries[i]) shown_[i].emplace(number, one.shown);
      }
    }
  }
  // True for a pair of the component, if only one is named, or of two of the components.
  bool HavePair(std::size_t library, std::int32_t one, std::int32_t other) const {
    std::size_t const named = shown_[library].count(one) + shown_[library].count(other);
    return named >= std::min<std::size_t>(count_, 2);
  }
  // The name of a component of a library if it is one of them; empty for another one.
  std::string Shown(std::size_t library, std::int32_t number) const {
    auto const at = shown_[library].find(number);
    return at == shown_[library].end() ? "" : at->second;
  }

 private:
  std::size_t count_ = 0;
  std::vector<std::map<std::int32_t, std::string>> shown_;  // by library and number
};

// The column of a field, with the unit of a note if the banks of the type agree on it.
Column ColumnOf(Field const& field, std::vector<Library> const& libraries, zel::IZelBankDef& item) {
  Column column = {field.name, field.unit};
  if (!field.unit.empty()) return column;
  std::set<std::string> units;
  for (Library const& library : libraries) {
    for (BankName const& bank : library.Banks(BankFacts(item).type)) {
      for (Field const& one : FieldsIn(library, bank, item)) {
        if (one.name == field.name) units.insert(one.unit);
      }
    }
  }
  if (units.size() == 1) column.unit = *units.begin();
  column.fixedUnit = true;
  return column;
}

}  // namespace

Table PairTable(std::vector<Library> const& libraries, std::string const& type,
                std::vector<std::string> const& fields,
                std::vector<std::string> const& components) {
  zel::Handle<zel::IZelBankDef> const item = BankOfType(UpperCase(type));
  BankFacts const facts(*item);
  if (facts.keyKind != 0 || facts.keyWords != 2) {
    throw Failure(facts.type + " is not a type of component pairs");
  }
  std::vector<Field> chosen;
  chosen.reserve(fields.size());
  for (std::string const& name : fields) chosen.push_back(FieldNamed(*item, name));
  std::vector<Column> columns = {{"component 1", ""}, {"component 2", ""}};
  for (Field const& field : chosen) columns.push_back(ColumnOf(field, libraries, *item));
  columns.push_back({"from", ""});
  Table table("pairs", std::move(columns));
  NamedComponents const named(libraries, components);
  auto const shown = [&](std::size_t library, std::int32_t number) {
    std::string name = named.Shown(library, number);
    return name.empty() ? IdOf(libraries, library, number) : name;
  };
  std::set<std::pair<std::string, std::string>> seen;
  for (std::size_t i = 0; i < libraries.size(); ++i) {
    Library const& library = libraries[i];
    for (BankName const& bank : library.Banks(facts.type)) {
      std::vector<std::vector<std::int32_t>> keys;
      library.Walk(bank, [&] { keys = Keys(library, bank, *item); });
      for (auto const& stored : keys) {
        if (!named.HavePair(i, stored[0], stored[1])) continue;
        std::string const one = shown(i, stored[0]);
        std::string const other = shown(i, stored[1]);
        if (!seen.insert(std::minmax(one, other)).second) continue;
        zel::Handle<zel::Key> const key = StoredKey(stored);
        try {
          if (!library.Maint().ReadItem(item.get(), bank.name.c_str(), key.get())) continue;
        } catch (unsigned long const address) {
          std::string place = ToText(bank);
          place.append(" ").append(one).append(" + ").append(other);
          library.TellUnread(place, address);
          continue;
        }
        std::vector<Cell> row = RowOf(one, other);
        for (Field const& field : chosen) row.push_back(ValueOf(*item, field));
        row.push_back(library.Path() + ":" + bank.name);
        table.Add(std::move(row));
      }
    }
  }
  return table;
}

Table PairMeanings(std::vector<Library> const& libraries, std::string const& type,
                   std::vector<std::string> const& fields) {
  zel::Handle<zel::IZelBankDef> const item = BankOfType(UpperCase(type));
  std::set<std::string> wanted;
  for (std::string const& name : fields) wanted.insert(FieldNamed(*item, name).name);
  Table table("parameters", MeaningColumns("from"));
  for (Library const& library : libraries) {
    for (BankName const& bank : library.Banks(UpperCase(type))) {
      ModelMeaning model = MeaningIn(library, bank, *item);
      auto& all = model.parameters;
      all.erase(std::remove_if(all.begin(), all.end(),
                               [&](ParameterMeaning const& one) {
                                 return !wanted.empty() && wanted.count(one.field) == 0;
                               }),
                all.end());
      AddMeanings(model, library.Path() + ":" + bank.name, table);
    }
  }
  return table;
}

}  // namespace zel::desk
