#include <algorithm>
#include <set>

#include "desk/notes/parameter_meanings.h"
#include "desk/open/component_name.h"
#include "desk/open/fields.h"
#include "desk/tables/component_table.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

// The ID of a component in the first library that knows it, that of --names being the last; its
// number if none does.
std::string IdOf(std::vector<Library> const& libraries, std::int32_t number) {
  std::vector<Library const*> knowing;
  knowing.reserve(libraries.size() + 1);
  for (Library const& library : libraries) knowing.push_back(&library);
  if (!libraries.empty()) knowing.push_back(libraries.front().InSession().names.get());
  for (Library const* library : knowing) {
    if (library == nullptr) continue;
    char id[kNameSize] = {};
    library->Maint().GetIdOfNumber(number, id);
    if (*id != '\0') return id;
  }
  return std::to_string(number);
}

std::int32_t NumberOf(std::vector<Library> const& libraries, std::string const& word) {
  ComponentBanks banks;
  for (Library const& library : libraries) {
    for (auto const& known : BanksKnownTo(library)) banks.push_back(known);
  }
  std::string const lookup = LookupWord(word, banks);
  PureComponent const component;
  for (auto const& [library, bank] : banks) {
    if (ReadComponent(*library, bank, lookup, component)) return component.ReadIdentity().number;
  }
  ComponentWord const parsed = ParseComponent(lookup);
  if (auto const* number = std::get_if<long>(&parsed)) return static_cast<std::int32_t>(*number);
  throw Failure("component " + word + " is in none of the libraries" + NearestTo(word, banks));
}

// With the unit of a note if the banks of the type agree on it.
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
  std::set<std::int32_t> numbers;
  for (std::string const& word : components) numbers.insert(NumberOf(libraries, word));
  std::set<std::pair<std::string, std::string>> seen;
  for (Library const& library : libraries) {
    for (BankName const& bank : library.Banks(facts.type)) {
      std::vector<std::vector<std::int32_t>> keys;
      library.Walk(bank, [&] { keys = Keys(library, bank, *item); });
      for (auto const& stored : keys) {
        std::size_t const named = numbers.count(stored[0]) + numbers.count(stored[1]);
        if (named < std::min<std::size_t>(numbers.size(), 2)) continue;
        std::string const one = IdOf(libraries, stored[0]);
        std::string const other = IdOf(libraries, stored[1]);
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
