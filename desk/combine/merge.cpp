#include "desk/combine/merge.h"

#include <algorithm>
#include <memory>

#include "desk/combine/bank_copy.h"
#include "desk/notes/carried_notes.h"
#include "desk/notes/memo.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/item_values.h"
#include "desk/open/members.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

// An item of any type, with the operations that its type allows.
class AnyItem {
 public:
  explicit AnyItem(std::string const& type) {
    if (type == kPureType) {
      component_ = std::make_unique<PureComponent>();
    } else {
      item_ = BankOfType(type);
    }
  }
  zel::IZelBankDef& Def() const { return component_ ? *component_->Def() : *item_; }
  bool Read(Library const& library, BankName const& bank, zel::Key& key) const {
    return library.Maint().ReadItem(&Def(), bank.name.c_str(), &key);
  }
  std::vector<NamedValue> Values() const {
    return component_ ? ValuesOf(*component_) : ValuesOf(*item_);
  }
  // Null unless it is a pure component.
  PureComponent const* Component() const { return component_.get(); }

 private:
  std::unique_ptr<PureComponent> component_;
  zel::Handle<zel::IZelBankDef> item_;
};

class Merger {
 public:
  Merger(Library const& library, Library const& from, MergeOptions const& options)
      : library_(library), from_(from), options_(options) {}

  Merged Take();

 private:
  struct Counts {
    std::int64_t added = 0;
    std::int64_t same = 0;
    std::int64_t differing = 0;
    CodeCounts codes;  // of the items that are written
  };

  std::vector<BankName> Banks() const;
  void Bank(BankName const& bank);
  void Item(BankName const& bank, AnyItem const& ours, AnyItem const& theirs,
            std::vector<std::int32_t> const& stored, std::string const& shown, Counts& counts);
  void CheckOtherBanks(BankName const& bank, AnyItem const& ours, AnyItem const& theirs,
                       zel::Key& key, std::string const& shown);
  void CheckSubstance(BankName const& oursIn, AnyItem const& ours, BankName const& theirsIn,
                      AnyItem const& theirs, std::string const& shown);
  bool IsListing() const { return options_.side == MergeSide::kList; }

  Library const& library_;
  Library const& from_;
  MergeOptions const& options_;
  Merged result_;
  std::int64_t differing_ = 0;
  std::string firstDiffering_;
  std::vector<std::string> parts_;  // what names the item that is compared
};

std::vector<BankName> Merger::Banks() const {
  std::vector<BankName> banks;
  if (options_.banks.empty()) banks = DataBanks(from_);
  for (std::string const& word : options_.banks) banks.push_back(from_.Bank(word));
  // Components first, because pairs refer to them.
  std::stable_partition(banks.begin(), banks.end(),
                        [](BankName const& bank) { return bank.type == kPureType; });
  return banks;
}

Merged Merger::Take() {
  for (BankName const& bank : Banks()) Bank(bank);
  if (options_.side == MergeSide::kRefuse && differing_ > 0) {
    throw Failure(library_.Path() + ": " + std::to_string(differing_) +
                  (differing_ == 1 ? " item differs from " : " items differ from ") + from_.Path() +
                  ", the first one is " + firstDiffering_ +
                  "; --list shows them, --ours keeps those of " + library_.Path() +
                  ", --theirs replaces them");
  }
  return std::move(result_);
}

void Merger::Bank(BankName const& bank) {
  AnyItem const ours(bank.type);
  AnyItem const theirs(bank.type);
  if (!IsListing()) MakeBankLike(from_, library_, bank);
  KeyWords words(from_, theirs.Def());
  std::vector<std::vector<std::int32_t>> keys;
  from_.Walk(bank, [&] { keys = Keys(from_, bank, theirs.Def()); });
  Counts counts;
  for (auto const& stored : keys) {
    parts_ = words.Of(stored);
    Item(bank, ours, theirs, stored, Joined(parts_), counts);
  }
  if (!IsListing()) {
    Append(result_.citations, CarryNotes(from_, bank, theirs.Def(), counts.codes, library_, bank));
  }
  result_.banks.Add(ToText(bank), counts.added, counts.same, counts.differing);
}

void Merger::Item(BankName const& bank, AnyItem const& ours, AnyItem const& theirs,
                  std::vector<std::int32_t> const& stored, std::string const& shown,
                  Counts& counts) {
  zel::Handle<zel::Key> const key = StoredKey(stored);
  std::string const place = ToText(bank) + " " + shown;
  try {
    if (!theirs.Read(from_, bank, *key)) RefuseItem(from_, bank, shown, "cannot be read");
  } catch (unsigned long const address) {
    return from_.TellUnread(place, address);
  }
  if (!ours.Read(library_, bank, *key)) {
    CheckOtherBanks(bank, ours, theirs, *key, shown);
    ++counts.added;
    if (IsListing()) return;
    WriteItem(library_, bank, theirs.Def(), *key, shown);
    AddCodes(theirs.Def(), counts.codes);
    return;
  }
  std::vector<DifferingValue> const found = DifferingValues(ours.Values(), theirs.Values());
  if (found.empty()) {
    ++counts.same;
    return;
  }
  ++counts.differing;
  if (differing_++ == 0) firstDiffering_ = place;
  CheckSubstance(bank, ours, bank, theirs, shown);
  for (DifferingValue const& value : found) {
    if (!IsListing()) break;
    std::vector<Cell> row = RowOf(place, value.name, value.one, value.other, Text(value.unit));
    Append(row, ItemMembers(ToText(bank), parts_));
    result_.differences.Add(std::move(row));
  }
  if (options_.side != MergeSide::kTheirs) return;
  WriteItem(library_, bank, theirs.Def(), *key, shown);
  AddCodes(theirs.Def(), counts.codes);
}

// A component has one number in all banks of a library.
void Merger::CheckOtherBanks(BankName const& bank, AnyItem const& ours, AnyItem const& theirs,
                             zel::Key& key, std::string const& shown) {
  if (theirs.Component() == nullptr) return;
  for (BankName const& other : library_.Banks(kPureType)) {
    if (other.name != bank.name && ours.Read(library_, other, key)) {
      CheckSubstance(other, ours, bank, theirs, shown);
    }
  }
}

void Merger::CheckSubstance(BankName const& oursIn, AnyItem const& ours, BankName const& theirsIn,
                            AnyItem const& theirs, std::string const& shown) {
  if (ours.Component() == nullptr) return;
  auto conflict =
      ConflictIn(shown, {{library_.Path() + ":" + oursIn.name, ours.Component()->Compared()},
                         {from_.Path() + ":" + theirsIn.name, theirs.Component()->Compared()}});
  if (!conflict) return;
  if (!IsListing() && !options_.acceptIdentity) {
    throw Failure(ToText(*conflict) +
                  "; `zel renumber` gives one of them another number, --accept-identity goes on");
  }
  result_.conflicts.push_back(std::move(*conflict));
}

}  // namespace

Merged::Merged()
    : banks("banks", {{"bank", ""}, {"added", ""}, {"same", ""}, {"differing", ""}}),
      differences("differences", {{"item", ""},
                                  {"field", ""},
                                  {"ours", "", false, true},
                                  {"theirs", "", false, true},
                                  {"unit", ""},

                                  {"bank", ""},
                                  {"item 1", ""},
                                  {"item 2", ""},
                                  {"item 3", ""}}) {}

Merged Merge(Library const& library, Library const& from, MergeOptions const& options) {
  return Merger(library, from, options).Take();
}

}  // namespace zel::desk
