#include "desk/tables/component_rows.h"

#include "desk/open/component_name.h"
#include "desk/open/field_text.h"
#include "desk/open/item_key.h"
#include "desk/open/storable.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {

ComponentRows::ComponentRows(TableTarget const& target, std::vector<TableColumn>& columns)
    : target_(target),
      written_(*target.library, target.bank),
      component_(TakeColumn(columns, {"component", "item"})),
      number_(TakeColumn(columns, {"number"})),
      cas_(TakeColumn(columns, {"cas", "CAS number", "casNum"})),
      ids_(TakeColumn(columns, {"ids", "id"})) {
  if (!component_ && !number_ && !cas_ && !ids_) {
    std::string heads;
    for (TableColumn const& column : columns) heads += (heads.empty() ? "" : ", ") + column.Name();
    throw Failure(
        "no column names the components; its head is number, ids, cas or component, and "
        "the heads here are " +
        heads + "; --map FILE gives heads other meanings");
  }
}

std::vector<std::string> ComponentRows::WordsOf(TextRow const& row) const {
  std::vector<std::string> words;
  // Only the column that may hold a name is looked up as one: an ID can be the beginning of a name.
  std::string const any = CellOf(component_, row);
  if (!any.empty()) words.push_back(LookupWord(any, {{target_.library, target_.bank}}));
  for (auto const* column : {&number_, &cas_}) {
    if (!CellOf(*column, row).empty()) words.push_back(CellOf(*column, row));
  }
  std::vector<std::string> const ids = ListWords(CellOf(ids_, row));
  for (std::string const& id : ids) {
    if (MayBeName(id)) CheckText(id, kNameSize - 1, "\"" + id + "\": an ID");
  }
  if (!ids.empty()) words.push_back(ids.front());
  if (words.empty()) throw Failure("names no component");
  return words;
}

ComponentRows::Found ComponentRows::Find(TextRow const& row) {
  Found found;
  PureComponent const component;
  for (std::string const& word : WordsOf(row)) {
    if (found.shown.empty()) found.shown = word;
    if (!ReadComponent(*target_.library, target_.bank, word, component)) continue;
    std::int32_t const number = component.ReadIdentity().number;
    if (found.isThere && found.number != number) {
      throw Failure(found.shown + " is component " + std::to_string(found.number) + ", but " +
                    word + " is component " + std::to_string(number));
    }
    found.number = number;
    found.isThere = true;
  }
  if (!found.isThere) SetNumberOfNew(row, found);
  return found;
}

// The component of the row in the library that names components.
std::optional<Identity> ComponentRows::Known(TextRow const& row) const {
  Library const* const names = target_.library->InSession().names.get();
  if (names == nullptr) return std::nullopt;
  PureComponent const known;
  for (std::string const& word : WordsOf(row)) {
    for (BankName const& bank : names->Banks(kPureType)) {
      if (ReadComponent(*names, bank, word, known)) return known.ReadIdentity();
    }
  }
  return std::nullopt;
}

void ComponentRows::SetNumberOfNew(TextRow const& row, Found& found) const {
  constexpr char kWhat[] = "a component number";
  std::string const given = CellOf(number_, row);
  if (!given.empty()) {
    found.number = WholeNumber(given, kWhat);
    if (found.number < 1) throw Failure("\"" + given + "\" is not " + kWhat);
    return;
  }
  auto const known = Known(row);
  found.isGiven = !known;
  found.number = known ? known->number : target_.library->Maint().NextComponentNumber();
}

void ComponentRows::Write(PureComponent& component, Found const& found) const {
  zel::Handle<zel::Key> const key = KeyOf({static_cast<long>(found.number)});
  zel::LibMaint& maint = target_.library->Maint();
  if (maint.WriteItem(component.Def(), target_.bank.name.c_str(), key.get())) return;
  char reasons[300] = {};
  maint.CheckComponent(component.operator->(), key.get(), reasons);
  throw Failure(found.shown + " is refused: " + reasons);
}

void ComponentRows::TakeBack(PureComponent* before, Found const& found) const {
  if (before != nullptr) return Write(*before, found);
  zel::Handle<zel::Key> const key = KeyOf({static_cast<long>(found.number)});
  target_.library->Maint().DeleteItem(kPureType, target_.bank.name.c_str(), key.get());
}

RowResult ComponentRows::Apply(TextRow const& row) {
  Found const found = Find(row);
  std::string const datum = DatumOf(row);
  Once(std::to_string(found.number) + " " + LowerCase(datum), row.line);
  warning_.clear();
  PureComponent component;
  PureComponent old;
  std::string const number = std::to_string(found.number);
  if (found.isThere) {
    ReadComponent(*target_.library, target_.bank, number, component);
    ReadComponent(*target_.library, target_.bank, number, old);
  } else {
    component.Def()->Clear();
    char ids[12][kNameSize] = {};
    auto const known = Known(row);
    std::string const cas = CellOf(cas_, row);
    bool const isIt = known && known->number == found.number && (cas.empty() || cas == known->cas);
    if (isIt && CellOf(ids_, row).empty()) {
      for (std::size_t i = 0; i < known->ids.size(); ++i) {
        known->ids[i].copy(ids[i], kNameSize - 1);
      }
    }
    component->SetIdentity(found.number, 0, 0, ids, "", "", 0);
  }
  std::string const shown = found.shown + (datum.empty() ? "" : " " + datum);
  std::vector<NamedValue> wanted;
  try {
    Set(row, component, !found.isThere);
    wanted = ValuesOf(component);
  } catch (std::runtime_error const& error) {
    throw Failure(shown + ": " + error.what());
  }
  Write(component, found);
  PureComponent const written;
  ReadComponent(*target_.library, target_.bank, number, written);
  std::vector<NamedValue> const after = ValuesOf(written);
  try {
    CheckStored(wanted, after);
  } catch (Failure const& failure) {
    TakeBack(found.isThere ? &old : nullptr, found);
    throw Failure(shown + ": " + failure.what());
  }
  written_.Add(found.number, found.isThere ? &old : nullptr);
  if (!found.isThere) {
    std::int32_t const given = found.isGiven ? found.number : 0;
    return {RowState::kNew, shown, "", warning_, {found.shown}, datum, given};
  }
  std::string const what = Differences(ValuesOf(old), after, target_.units);
  RowState const state = what.empty() ? RowState::kSame : RowState::kChanged;
  return {state, shown, what, warning_, {found.shown}, datum};
}

}  // namespace zel::desk
