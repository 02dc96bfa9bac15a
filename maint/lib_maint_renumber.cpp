// A component of a library gets another number.
#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "banks/catalogue.h"
#include "frame/ascii.h"
#include "frame/limits.h"
#include "maint/lib_maint.h"
#include "store/key.h"
#include "zelaccess/PureComp.h"

namespace zel {

namespace f = format;

namespace {

constexpr std::size_t kReasonSize = 300;

using KeyWords = std::array<std::int32_t, f::kMaxKeyWords>;

// The keys of the entries of an identifier tree that lead to a number.
std::vector<KeyWords> KeysOf(BTree_i& tree, std::int32_t keyWords, std::int32_t number) {
  std::vector<KeyWords> keys;
  std::int32_t treeKeyWords = 0, dataWords = 0;
  tree.WalkBegin(treeKeyWords, dataWords);
  if (treeKeyWords != keyWords || dataWords < 1) return keys;
  std::int32_t const* entry = nullptr;
  while (tree.WalkNext(entry)) {
    if (entry[keyWords] != number) continue;
    std::copy_n(entry, keyWords, keys.emplace_back().begin());
  }
  return keys;
}

// Makes the entries with these keys lead to a number.
void Lead(BTree_i& tree, std::vector<KeyWords> const& keys, std::int32_t number) {
  for (KeyWords const& key : keys) {
    std::int32_t const* found = nullptr;
    std::int32_t* data = nullptr;
    if (!tree.Find(key.data(), found) || !tree.GetCurrentData(data)) continue;
    *data = number;
    tree.WriteCurrentNode();
  }
}

// The identifiers of a number, also those that its component no longer has.
class Identifiers {
 public:
  Identifiers(LibFile_i& library, std::int32_t number)
      : ids_(library.GetCharIdTree()), casNumbers_(library.GetCasTree()) {
    if (ids_ != nullptr) idKeys_ = KeysOf(*ids_, f::kIdKeyWords, number);
    if (casNumbers_ != nullptr) casKeys_ = KeysOf(*casNumbers_, 1, number);
  }
  void LeadTo(std::int32_t number) {
    if (ids_ != nullptr) Lead(*ids_, idKeys_, number);
    if (casNumbers_ != nullptr) Lead(*casNumbers_, casKeys_, number);
  }
  // Changes as many of them as it can.
  void TryToLeadTo(std::int32_t number) noexcept {
    try {
      LeadTo(number);
    } catch (...) {  // the first failure is reported
    }
  }

 private:
  BTree_i* ids_;
  BTree_i* casNumbers_;
  std::vector<KeyWords> idKeys_;
  std::vector<KeyWords> casKeys_;
};

void SetNumber(IZelPureComp& component, std::int32_t number) {
  std::int32_t old = 0, cas = 0, code = 0;
  char ids[12][9] = {};
  char name[41] = {};
  char formula[21] = {};
  std::uint8_t keepFormula = 0;
  component.GetIdentity(&old, &cas, &code, ids, name, formula, &keepFormula);
  component.SetIdentity(number, cas, code, ids, name, formula, keepFormula);
}

}  // namespace

// The entry moves to the new key with the address of its record, so that no block is left over.
void LibMaint_i::MoveEntry(char const* name, std::int32_t const* from, std::int32_t const* to,
                           std::int32_t const* data) {
  BTree_i& tree = bank_.Tree();
  std::int32_t const* found = nullptr;
  if (!tree.Find(to, found) && tree.InsertWithData(to, data)) {
    StoreGrownHead(kPureComponentType, name);
  }
  std::int32_t const root = tree.Head().rootAddress;
  try {
    tree.Delete(from);
  } catch (...) {
    // An interrupted rebuild has moved the root: the entries that it saved must stay reachable.
    if (tree.Head().rootAddress != root) {
      StoreHead(kPureComponentType, name);
    } else {
      tree.Delete(to);  // in a leaf, where new entries are put
    }
    throw;
  }
  if (tree.Head().rootAddress != root) StoreHead(kPureComponentType, name);
}

// Moves the record of a component, whose number is the new one already, from its old number.
bool LibMaint_i::MoveRecord(char const* name, IZelPureComp& component, std::int32_t number,
                            Key_p* from, Key_p* to) {
  std::int32_t const* entry = nullptr;
  if (LocateItem(name, from, entry) != Located::kFound) return false;
  std::array<std::int32_t, f::kNodeWords> data{};
  std::copy_n(entry, bank_.Tree().Head().entryDataWords, data.begin());
  MoveEntry(name, from->GetKeyWords(), to->GetKeyWords(), data.data());
  try {
    if (LocateItem(name, to, entry) != Located::kFound) return false;
    WriteRecord(object_.Io());
  } catch (...) {
    MoveEntry(name, to->GetKeyWords(), from->GetKeyWords(), data.data());
    SetNumber(component, number);
    if (LocateItem(name, from, entry) == Located::kFound) WriteRecord(object_.Io());
    throw;
  }
  return true;
}

bool LibMaint_i::RenumberComponent(char const* bankName, std::int32_t from, std::int32_t to,
                                   char* text) {
  Give(text, '\0');
  FaceRef<IZelBankDef> const bank(NewKnownBank(kPureComponentType));
  auto const component = FaceRef<IZelPureComp>::Of(bank.Get(), IID_IZelPureComp);
  Key_i oldKey, newKey;
  oldKey.SetKey(static_cast<long>(from));
  newKey.SetKey(static_cast<long>(to));
  auto const refuse = [&](std::string_view why) {
    DropItem();
    if (!why.empty()) GiveText(why, text, kReasonSize);
    return false;
  };
  if (!component || library_ == nullptr || from == to) return refuse("The numbers are the same");
  if (ItemExists(bank.Get(), bankName, &newKey)) return refuse("The new number is in use");
  if (!ReadItem(bank.Get(), bankName, &oldKey)) return refuse("The component is not there");
  SetNumber(*component.Get(), to);
  Identifiers identifiers(*library_, from);
  bool isMoved = false;
  // What the writes need is there from now on, so that they can be undone: held-back writes take
  // memory for each page when it is first written.
  identifiers.LeadTo(from);
  try {
    identifiers.LeadTo(to);
    if (!CheckComponent(component.Get(), &newKey, text)) {
      identifiers.LeadTo(from);
      return refuse("");
    }
    isMoved =
        object_.Take(bank.Get()) && MoveRecord(bankName, *component.Get(), from, &oldKey, &newKey);
  } catch (...) {
    identifiers.TryToLeadTo(from);
    throw;
  }
  if (!isMoved) {
    identifiers.LeadTo(from);
    return refuse("The component is not there");
  }
  bank_.Settle(*library_);
  KeepItem(bankName, &newKey);
  return true;
}

}  // namespace zel
