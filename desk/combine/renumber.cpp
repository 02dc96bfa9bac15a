#include "desk/combine/renumber.h"

#include <zelaccess/LibMaint_p.h>

#include <algorithm>
#include <charconv>
#include <vector>

#include "desk/combine/bank_copy.h"
#include "desk/open/component_name.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/item_numbers.h"
#include "desk/open/item_values.h"
#include "desk/open/storable.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

constexpr std::int32_t kNoComponent = INT32_MAX;  // fills a key that was given short

// One bank of a library whose items contain component numbers.
class NumberedBank {
 public:
  NumberedBank(Library const& library, BankName bank)
      : library_(library),
        bank_(std::move(bank)),
        item_(BankOfType(bank_.type)),
        numbers_(*item_) {}

  // The keys of the items with this number.
  std::vector<StoredWords> ItemsWith(std::int32_t number);
  std::string Shown(StoredWords const& key) { return Joined(KeyWords(library_, *item_).Of(key)); }
  void Move(StoredWords const& key, std::int32_t from, std::int32_t to);
  // What was lost in the moves.
  std::vector<std::string> const& Warnings() const { return warnings_; }
  BankName const& Name() const { return bank_; }

 private:
  void Read(StoredWords const& key, std::string const& shown);
  void NoteLoss(zel::Key& moved, std::string const& shown, std::vector<NamedValue> const& before);

  Library const& library_;
  BankName bank_;
  zel::Handle<zel::IZelBankDef> item_;
  ItemNumbers numbers_;
  std::vector<std::string> warnings_;
};

std::vector<StoredWords> NumberedBank::ItemsWith(std::int32_t number) {
  if (!numbers_.HasAny()) return {};
  std::vector<StoredWords> found;
  for (StoredWords& key : Keys(library_, bank_, *item_)) {
    if (numbers_.AreInField()) Read(key, Shown(key));
    std::vector<std::int32_t> const numbers = numbers_.Of(key);
    if (std::find(numbers.begin(), numbers.end(), number) == numbers.end()) continue;
    found.push_back(std::move(key));
  }
  return found;
}

void NumberedBank::Read(StoredWords const& key, std::string const& shown) {
  zel::Handle<zel::Key> const stored = StoredKey(key);
  if (library_.Maint().ReadItem(item_.get(), bank_.name.c_str(), stored.get())) return;
  RefuseItem(library_, bank_, shown, "cannot be read by its key");
}

// A pair whose order changes is stored the other way round, with 1 - x1 instead of x1 for example,
// which has fewer digits if it is near 1.
void NumberedBank::NoteLoss(zel::Key& moved, std::string const& shown,
                            std::vector<NamedValue> const& before) {
  if (!library_.Maint().ReadItem(item_.get(), bank_.name.c_str(), &moved)) {
    RefuseItem(library_, bank_, shown, "cannot be read under the new number");
  }
  try {
    CheckStored(before, ValuesOf(*item_));
  } catch (Failure const& failure) {
    warnings_.push_back(ToText(bank_) + ", item " + shown + ": " + failure.what());
  }
}

void NumberedBank::Move(StoredWords const& key, std::int32_t from, std::int32_t to) {
  std::string const shown = Shown(key);
  zel::LibMaint& maint = library_.Maint();
  if (bank_.type == kPureType) {
    char why[300] = {};
    auto& wide = dynamic_cast<zel::LibMaint_p&>(maint);
    if (!wide.RenumberComponent(bank_.name.c_str(), from, to, why)) {
      RefuseItem(library_, bank_, shown, std::string("cannot have the number: ") + why);
    }
    return;
  }
  Read(key, shown);
  StoredWords moved = key;
  numbers_.Replace(moved, [&](std::int32_t number) { return number == from ? to : number; });
  zel::Handle<zel::Key> const target = StoredKey(moved);
  if (moved != key && maint.ItemExists(item_.get(), bank_.name.c_str(), target.get())) {
    RefuseItem(library_, bank_, shown, "exists under the new number already");
  }
  std::vector<NamedValue> const before = ValuesOf(*item_);
  WriteItem(library_, bank_, *item_, *target, shown);
  if (moved == key) return;
  NoteLoss(*target, shown, before);
  zel::Handle<zel::Key> const old = StoredKey(key);
  if (!maint.DeleteItem(bank_.type.c_str(), bank_.name.c_str(), old.get())) {
    RefuseItem(library_, bank_, shown, "cannot be removed under the old number");
  }
}

std::vector<NumberedBank> BanksOf(Library const& library) {
  std::vector<NumberedBank> banks;
  std::vector<BankName> names = library.Banks();
  // Components first, which messages can name best.
  std::stable_partition(names.begin(), names.end(),
                        [](BankName const& bank) { return bank.type == kPureType; });
  for (BankName const& bank : names) {
    if (!BankOrNone(bank.type)) {
      throw Failure(library.Path() + ": bank " + ToText(bank) +
                    " is of an unknown type, whose items may have the number");
    }
    banks.emplace_back(library, bank);
  }
  return banks;
}

std::int32_t NewNumber(std::string const& word) {
  std::int32_t number = 0;
  auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size() || number < 1 ||
      number == kNoComponent) {
    throw WrongUsage("\"" + word + "\" is not a component number, which is 1 to 2147483646");
  }
  return number;
}

// The number that a word means in the library, or in that of --names.
std::int32_t NumberOf(Library const& library, std::string const& word) {
  ComponentBanks const banks = BanksKnownTo(library);
  ComponentWord component;
  try {
    component = ParseComponent(LookupWord(word, banks));
  } catch (NotAComponent const& error) {
    throw Failure(error.what() + NearestTo(word, banks));
  }
  std::int32_t number = 0;
  if (long const* const given = std::get_if<long>(&component)) {
    number = static_cast<std::int32_t>(*given);
  } else if (zel::casn const* const cas = std::get_if<zel::casn>(&component)) {
    number = library.Maint().FindNumberByCas(*cas);
  } else {
    number = library.Maint().FindNumberById(std::get<std::string>(component).c_str());
  }
  if (number != 0) return number;
  throw Failure(library.Path() + ": " + word + " is not a component" + NearestTo(word, banks));
}

}  // namespace

Renumbered::Renumbered() : banks("banks", {{"bank", ""}, {"items", ""}}) {}

Renumbered Renumber(Library const& library, std::string const& component, std::string const& to) {
  Renumbered result;
  result.to = NewNumber(to);
  result.from = NumberOf(library, component);
  if (result.from == result.to) throw Failure(component + " has the number " + to + " already");
  std::vector<NumberedBank> banks = BanksOf(library);
  for (NumberedBank& bank : banks) {
    std::vector<StoredWords> const taken = bank.ItemsWith(result.to);
    if (taken.empty()) continue;
    throw Failure(library.Path() + ": " + to + " is in use: " + ToText(bank.Name()) + " " +
                  bank.Shown(taken.front()) + " has it");
  }
  std::vector<std::vector<StoredWords>> found;
  found.reserve(banks.size());
  for (NumberedBank& bank : banks) found.push_back(bank.ItemsWith(result.from));
  for (std::size_t i = 0; i < banks.size(); ++i) {
    if (found[i].empty()) continue;
    if (banks[i].Name().type == kPureType && result.name.empty()) {
      PureComponent const read;
      ReadComponent(library, banks[i].Name(), std::to_string(result.from), read);
      result.name = read.ReadIdentity().name;
    }
    for (StoredWords const& key : found[i]) banks[i].Move(key, result.from, result.to);
    result.warnings.insert(result.warnings.end(), banks[i].Warnings().begin(),
                           banks[i].Warnings().end());
    result.banks.Add(ToText(banks[i].Name()), static_cast<std::int64_t>(found[i].size()));
  }
  if (result.banks.Empty()) {
    throw Failure(library.Path() + ": nothing has the number " + std::to_string(result.from));
  }
  return result;
}

}  // namespace zel::desk
