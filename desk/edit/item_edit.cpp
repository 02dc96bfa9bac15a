#include "desk/edit/item_edit.h"

#include <zelaccess/Key_p.h>

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "desk/combine/bank_copy.h"
#include "desk/edit/edit_values.h"
#include "desk/findings/written_data.h"
#include "desk/notes/parameter_meanings.h"
#include "desk/open/curve_record.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/item_values.h"
#include "desk/open/storable.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

using Values = std::vector<NamedValue>;

constexpr char kCode[] = " code";
constexpr char kCodeField[] = "refCode";

Cell ValueIn(Values const& values, std::string const& name) {
  auto const at = std::find_if(values.begin(), values.end(),
                               [&](NamedValue const& value) { return value.name == name; });
  return at == values.end() ? Cell() : at->value;
}

// An item in memory: a component or any other.
class Item {
 public:
  explicit Item(std::string const& type) : isComponent_(type == kPureType) {
    if (!isComponent_) def_ = BankOfType(type);
  }

  bool IsComponent() const { return isComponent_; }
  PureComponent const& Component() const { return component_; }
  zel::IZelBankDef& Def() const { return isComponent_ ? *component_.Def() : *def_; }
  Values All() const { return isComponent_ ? ValuesOf(component_) : ValuesOf(*def_); }
  std::vector<std::string> Set(ItemEdit const& edit, DisplayUnits const& units) const {
    return isComponent_ ? SetData(component_, edit, units) : SetData(*def_, fields_, edit, units);
  }
  void SetFields(std::vector<Field> fields) { fields_ = std::move(fields); }
  // The field of an item that is not a component.
  Field const* FieldOf(std::string const& name) const {
    auto const at = std::find_if(fields_.begin(), fields_.end(),
                                 [&](Field const& field) { return field.name == name; });
    return at == fields_.end() ? nullptr : &*at;
  }

 private:
  bool isComponent_;
  PureComponent component_;
  zel::Handle<zel::IZelBankDef> def_;
  std::vector<Field> fields_;
};

// The bank to edit; without one of that word in the library, that of `from` under its name there.
BankName BankFor(Library const& library, Library const* from, std::string const& word) {
  std::string const wanted = word.empty() ? kPureType : UpperCase(word);
  std::vector<BankName> const banks = library.Banks();
  bool const isThere = std::any_of(banks.begin(), banks.end(), [&](BankName const& bank) {
    return ToText(bank) == wanted || bank.name == wanted || bank.type == wanted;
  });
  return (isThere || from == nullptr ? library : *from).Bank(wanted);
}

// The words with components as numbers, as far as the library knows them.
std::vector<std::string> AsNumbers(Library const& library, std::vector<std::string> words) {
  for (std::string& word : words) {
    ComponentWord const component = ParseComponent(word);
    std::int32_t number = 0;
    if (auto const* id = std::get_if<std::string>(&component)) {
      number = library.Maint().FindNumberById(id->c_str());
    } else if (auto const* cas = std::get_if<zel::casn>(&component)) {
      number = library.Maint().FindNumberByCas(*cas);
    }
    if (number != 0) word = std::to_string(number);
  }
  return words;
}

class Edit {
 public:
  Edit(Library const& library, ItemEdit const& edit, Library const* from)
      : library_(library), edit_(edit), from_(from) {}

  EditedItem Make();

 private:
  bool Read(Item const& item) const;
  std::vector<Finding> Findings(Item const& item) const;
  void CopyFirst(Item const& item);
  std::vector<std::string> NumbersHere() const;
  void CheckStoredIn(Values const& wanted, Values const& stored) const;
  void Warn(Item const& item, std::vector<std::string> const& names);
  void WarnOfCodes(std::vector<std::string> const& names);
  std::string KeptCode(std::string const& name) const;
  void AddRows(Item const& item, Values const& before, Values const& after);
  std::string UnitOf(Item const& item, std::string const& name, Values const& values) const;
  std::tuple<Cell, Cell, std::string> Change(Item const& item, std::string const& name,
                                             Values const& before, Values const& after) const;

  Library const& library_;
  ItemEdit const& edit_;
  Library const* from_;
  std::vector<std::string> words_;  // what names the item to the library
  EditedItem edited_;
};

bool Edit::Read(Item const& item) const {
  zel::Handle<zel::Key> const key = KeyIn(library_, item.Def(), words_);
  return library_.Maint().ReadItem(&item.Def(), edited_.bank.name.c_str(), key.get());
}

std::vector<Finding> Edit::Findings(Item const& item) const {
  if (!item.IsComponent()) return {};
  return FindingsAbout(item.Component(), library_.Path(), edited_.bank);
}

// The numbers of the item's components in this library, under which the item is copied. The other
// library may know some of them, or none.
std::vector<std::string> Edit::NumbersHere() const {
  std::vector<std::string> here = AsNumbers(library_, words_);
  std::vector<std::string> const there = AsNumbers(*from_, words_);
  for (std::size_t i = 0; i < here.size(); ++i) {
    bool const areKnown = here[i] != words_[i] && there[i] != words_[i];
    if (!areKnown || here[i] == there[i]) continue;
    throw Failure(words_[i] + " is component " + here[i] + " in " + library_.Path() + ", but " +
                  there[i] + " in " + from_->Path());
  }
  return here;
}

// Later on the item is named by numbers: the library need not know the IDs.
void Edit::CopyFirst(Item const& item) {
  if (from_ == nullptr) {
    RefuseItem(library_, edited_.bank, edited_.item,
               "does not exist" + WhyNotFound(library_, item.Def(), words_) +
                   "; --from LIBRARY copies it");
  }
  std::vector<BankName> const banks = from_->Banks(edited_.bank.type);
  bool const hasSame = std::any_of(banks.begin(), banks.end(), [&](BankName const& bank) {
    return bank.name == edited_.bank.name;
  });
  BankName const bank = hasSame ? edited_.bank : from_->Bank(edited_.bank.type);
  if (BankFacts(item.Def()).keyKind == 0) words_ = NumbersHere();
  words_ = ItemWords(*from_, item.Def(), words_);
  zel::Handle<zel::Key> const key = KeyIn(*from_, item.Def(), words_);
  if (!from_->Maint().ReadItem(&item.Def(), bank.name.c_str(), key.get())) {
    RefuseItem(*from_, bank, edited_.item,
               "does not exist" + WhyNotFound(*from_, item.Def(), words_));
  }
  std::int32_t const* const stored = dynamic_cast<zel::Key_p const&>(*key).GetKeyWords();
  BankFacts const facts(item.Def());
  if (!library_.Maint().BankExists(edited_.bank.type.c_str(), edited_.bank.name.c_str())) {
    MakeBankLike(*from_, library_, edited_.bank);
  }
  // The key as it is stored, whatever the order in which the components are named.
  zel::Handle<zel::Key> const asStored = StoredKey({stored, stored + facts.keyWords});
  if (!from_->Maint().ReadItem(&item.Def(), bank.name.c_str(), asStored.get())) {
    RefuseItem(*from_, bank, edited_.item, "cannot be read");
  }
  CodeCounts codes;
  AddCodes(item.Def(), codes);
  WriteItem(library_, edited_.bank, item.Def(), *asStored, edited_.item);
  edited_.conflicts = CarryNotes(*from_, bank, item.Def(), codes, library_, edited_.bank);
  if (facts.keyKind == 0) words_ = AsNumbers(*from_, words_);
  edited_.copiedFrom = from_->Path() + ":" + bank.name;
  if (!Read(item)) RefuseItem(library_, edited_.bank, edited_.item, "cannot be read");
}

// The record may have no room for a field, or for so many digits.
void Edit::CheckStoredIn(Values const& wanted, Values const& stored) const {
  try {
    CheckStored(wanted, stored);
  } catch (Failure const& failure) {
    RefuseItem(library_, edited_.bank, edited_.item, failure.what());
  }
}

// The reference code that a datum with a new value keeps; empty if it has no code.
std::string Edit::KeptCode(std::string const& name) const {
  for (std::vector<Cell> const& row : edited_.changes.Rows()) {
    std::string const datum = CellText(row[0]);
    bool const isMeant =
        datum == name || datum == name + " equation" || datum.rfind(name + " C", 0) == 0;
    bool const hasValue = !std::holds_alternative<std::monostate>(row[2]);
    bool const hasCode = row[5] != Cell() && row[5] != Cell(std::int64_t{0});
    if (isMeant && hasValue && hasCode && row[4] == row[5]) return CellText(row[5]);
  }
  return "";
}

// Warns of kept codes: the citation of the former value would become that of the new one.
void Edit::WarnOfCodes(std::vector<std::string> const& names) {
  if (edit_.code) return;
  std::map<std::string, std::string> data;  // by code
  for (std::string const& name : names) {
    std::string const code = KeptCode(name);
    if (code.empty()) continue;
    std::string& list = data[code];
    list.append(list.empty() ? "" : ", ").append(name);
  }
  for (auto const& [code, list] : data) {
    edited_.warnings.push_back(list);
    edited_.warnings.back().append(": reference code ").append(code);
    edited_.warnings.back().append(" is kept; --ref gives another");
  }
}

void Edit::Warn(Item const& item, std::vector<std::string> const& names) {
  WarnOfCodes(names);
  for (std::string const& name : names) {
    if (!item.IsComponent() || edit_.curve.Empty() || ConstantMeant(name) != nullptr) continue;
    zel::ZelCorrelationInfo const* const curve = FindCorrelation(name);
    if (curve == nullptr) continue;
    std::string const missing = MissingCoefficients(item.Component().ReadCurve(IndexOf(*curve)));
    if (missing.empty()) continue;
    edited_.warnings.push_back(name);
    edited_.warnings.back().append(": ").append(missing);
  }
}

std::string Edit::UnitOf(Item const& item, std::string const& name, Values const& values) const {
  if (item.IsComponent()) {
    if (auto const* const constant = FindConstant(name)) return constant->unit;
    std::size_t const blank = name.find(' ');
    std::string const rest = blank == std::string::npos ? "" : name.substr(blank);
    if (rest != " from T" && rest != " to T") return "";
    return CellText(ValueIn(values, name.substr(0, blank) + " T in"));
  }
  Field const* const field = item.FieldOf(name);
  return field == nullptr ? "" : field->unit;
}

// What a value was and is, and its unit. Limits of a record whose unit of temperatures changes are
// texts with their own units.
std::tuple<Cell, Cell, std::string> Edit::Change(Item const& item, std::string const& name,
                                                 Values const& before, Values const& after) const {
  Cell old = ValueIn(before, name);
  Cell now = ValueIn(after, name);
  bool const isGone = std::holds_alternative<std::monostate>(now);
  bool const isNew = std::holds_alternative<std::monostate>(old);
  std::string const oldUnit = UnitOf(item, name, before);
  std::string const unit = UnitOf(item, name, after);
  if (isGone) return {old, now, oldUnit};
  if (isNew || oldUnit == unit) return {old, now, unit};
  return {CellText(old) + " " + oldUnit, CellText(now) + " " + unit, ""};
}

void Edit::AddRows(Item const& item, Values const& before, Values const& after) {
  std::vector<std::string> names;  // of what changed, in the order of the item
  auto const add = [&](Values const& values) {
    for (NamedValue const& value : values) {
      if (ValueIn(before, value.name) == ValueIn(after, value.name)) continue;
      if (std::find(names.begin(), names.end(), value.name) == names.end()) {
        names.push_back(value.name);
      }
    }
  };
  add(after);
  add(before);
  auto const codeOf = [&](std::string const& name) {
    return item.IsComponent() ? name.substr(0, name.find(' ')) + kCode : kCodeField;
  };
  // A code is shown with its value; if only the code changed, in a row of its own.
  std::vector<std::string> rows;
  for (std::string const& name : names) {
    bool const isCode = name == codeOf(name);
    bool const hasRow = std::any_of(names.begin(), names.end(), [&](std::string const& other) {
      return other != name && codeOf(other) == name;
    });
    if (!isCode) rows.push_back(name);
    if (isCode && !hasRow) {
      rows.push_back(item.IsComponent() ? name.substr(0, name.find(' ')) : name);
    }
  }
  for (std::string const& name : rows) {
    std::string const code = codeOf(name);
    auto [old, now, unit] = Change(item, name, before, after);
    std::vector<Cell> row = RowOf(name, std::move(old), std::move(now), Text(std::move(unit)),
                                  ValueIn(before, code), ValueIn(after, code));
    Field const* const field = item.FieldOf(name);
    if (field != nullptr && field->isNoteUnit) {
      edited_.changes.AddAsIs(std::move(row));
    } else {
      edited_.changes.Add(std::move(row));
    }
  }
}

EditedItem Edit::Make() {
  if (edit_.settings.empty() && edit_.unset.empty()) {
    throw WrongUsage("nothing to edit: give DATUM=VALUE or --unset DATUM; see zel edit --help");
  }
  edited_.bank = BankFor(library_, from_, edit_.bank);
  edited_.changes = Table("changes", {{"datum", ""},
                                      {"old", "", false, true},
                                      {"new", "", false, true},
                                      {"unit", ""},
                                      {"old code", ""},
                                      {"new code", ""}});
  Item item(edited_.bank.type);
  words_ = ItemWords(library_, item.Def(), edit_.item);
  edited_.item = Joined(words_);
  edited_.parts = words_;
  bool const hasBank =
      library_.Maint().BankExists(edited_.bank.type.c_str(), edited_.bank.name.c_str());
  if (!hasBank || !Read(item)) CopyFirst(item);
  if (!item.IsComponent()) item.SetFields(FieldsIn(library_, edited_.bank, item.Def()));
  Values const before = item.All();
  std::vector<Finding> const known = Findings(item);
  std::vector<std::string> const edited = item.Set(edit_, library_.InSession().units);
  Values const wanted = item.All();
  zel::Handle<zel::Key> const key = KeyIn(library_, item.Def(), words_);
  WriteItem(library_, edited_.bank, item.Def(), *key, edited_.item);
  if (!Read(item)) RefuseItem(library_, edited_.bank, edited_.item, "cannot be read");
  Values const after = item.All();
  CheckStoredIn(wanted, after);
  AddRows(item, before, after);
  edited_.findings = NewAmong(Findings(item), known);
  Warn(item, edited);
  for (std::string const& name : edited) {
    auto const& rows = edited_.changes.Rows();
    bool const isChanged = std::any_of(rows.begin(), rows.end(), [&](auto const& row) {
      std::string const datum = CellText(row[0]);
      return datum == name || datum.rfind(name + " ", 0) == 0 ||
             (name == kCodeField && row[4] != row[5]);
    });
    if (!isChanged) edited_.same.push_back(name);
  }
  return std::move(edited_);
}

}  // namespace

EditedItem EditItem(Library const& library, ItemEdit const& edit, Library const* from) {
  return Edit(library, edit, from).Make();
}

}  // namespace zel::desk
