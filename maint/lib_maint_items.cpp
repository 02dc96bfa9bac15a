// Items of a bank: locating, reading, writing and deleting them.
#include <algorithm>
#include <array>
#include <string>

#include "banks/catalogue.h"
#include "frame/ascii.h"
#include "maint/lib_maint.h"
#include "store/key.h"
#include "zelaccess/PureComp.h"

namespace zel {

namespace f = format;

namespace {

constexpr std::string_view kBadKeyLength = "Incorrect key length";
constexpr std::string_view kUnknownParts = "Unable to identify components used in key";
constexpr std::string_view kBadBlockLength = "Incorrect data block length";
constexpr std::string_view kKeyAbsent = "Error reading bank index";

// Puts a pair into stored order for the duration of a write, and back afterwards in any case.
class StoredOrder {
 public:
  StoredOrder(IZelBankIO* bank, bool swapped) : bank_(swapped ? bank : nullptr) {
    if (bank_ != nullptr) bank_->SwapPair();
  }
  StoredOrder(StoredOrder const&) = delete;
  StoredOrder& operator=(StoredOrder const&) = delete;
  ~StoredOrder() {
    if (bank_ != nullptr) bank_->SwapPair();
  }

 private:
  IZelBankIO* bank_;
};

}  // namespace

LibMaint_i::Located LibMaint_i::Fail(std::string_view reason) {
  log_.SetPendingText(reason);
  return Located::kFailed;
}

// Extends the key to the bank's length and resolves it; leaves the reason when it returns false.
bool LibMaint_i::PrepareKey(BlockInfo const& info, Key_p* key) {
  key->ClearCache();
  std::int32_t const count = key->GetCompCount();
  // Never true, since minKeyWords is never above keyWords. A wrong length is found later, as a key
  // length that the tree does not have.
  if (count > info.keyWords && count < info.minKeyWords) {
    Fail(kBadKeyLength);
    return false;
  }
  key->FitCompCount(info.keyWords, info.minKeyWords);
  if (key->ResolveKey(library_, info.pairRule, swapped_)) return true;
  Fail(kUnknownParts);
  return false;
}

// Locates the item of the bank in `object_`.
LibMaint_i::Located LibMaint_i::LocateItem(char const* name, Key_p* key,
                                           std::int32_t const*& entry) {
  swapped_ = false;
  if (library_ == nullptr || key == nullptr) return Fail(kUnknownParts);
  BlockInfo const& info = object_.Info();
  if (!PrepareKey(info, key)) return Located::kFailed;
  switch (bank_.LocateAgain(*library_, object_, name)) {
    case LocatedBank::Answer::kFound: break;
    case LocatedBank::Answer::kNoBank:
      return Fail("Unable to locate \"" + std::string(info.type) + "\" bank \"" +
                  std::string(TextOrEmpty(name)) + "\"");
    case LocatedBank::Answer::kOtherKeyLength: return Fail(kBadKeyLength);
    case LocatedBank::Answer::kOtherRecordLength: return Fail(kBadBlockLength);
  }
  keyWords_ = info.keyWords;
  currentType_ = info.type;
  if (bank_.Tree().Find(key->GetKeyWords(), entry)) return Located::kFound;
  Fail(kKeyAbsent);
  return Located::kAbsent;
}

// Writes the bank into the entry at the tree's position. The node of a file-resident bank is
// written only if its entry changed, because the blocks at the old address could not be used.
void LibMaint_i::WriteRecord(IZelBankIO* bank) {
  StoredOrder const order(bank, swapped_);
  std::int32_t* entry = nullptr;
  if (!bank_.Tree().GetCurrentData(entry)) return;
  if (!bank_.IsFileResident()) {
    bank->WriteBlock(entry, bank_.Format().format);
    bank_.Tree().WriteCurrentNode();
    return;
  }
  std::int32_t const before = *entry;
  bank->WriteToFile(entry, library_);
  if (*entry != before) bank_.Tree().WriteCurrentNode();
  EnterIdentifiers(bank);
}

// Writes the bank as a new item; its key belongs at the tree's position. The blocks are written
// first, then the key is entered into the tree together with the data that refer to them, so that
// an interrupted write leaves no key without an item.
void LibMaint_i::AddRecord(IZelBankIO* bank, char const* name, std::int32_t const* key) {
  StoredOrder const order(bank, swapped_);
  std::array<std::int32_t, f::kNodeWords> data;
  std::fill_n(data.begin(), bank_.Tree().Head().entryDataWords, 0);
  if (!bank_.IsFileResident()) {
    bank->WriteBlock(data.data(), bank_.Format().format);
  } else if (library_->Store().NodesLieApart()) {
    WriteBlocks(bank, data.data());
  } else {
    AddRecordBehindItsKey(bank, name, key);
    return;
  }
  // The new root is entered into the directory before anything else can fail: otherwise a tree that
  // has grown would lose what was moved out of the old root.
  if (bank_.Tree().InsertWithData(key, data.data())) {
    StoreGrownHead(currentType_.c_str(), name);
  }
  EnterIdentifiers(bank);
}

// Writes the blocks of a new item. If some of them cannot be written, the others are freed again.
void LibMaint_i::WriteBlocks(IZelBankIO* bank, std::int32_t* data) {
  ExtentList const before = library_->Store().Extents();
  try {
    bank->WriteToFile(data, library_);
  } catch (...) {
    library_->Store().Extents() = before;
    throw;
  }
}

// In a library whose nodes share a file with the records, the order of the writes decides where
// each is put: the node comes first, and the key is removed again if the record cannot be written.
void LibMaint_i::AddRecordBehindItsKey(IZelBankIO* bank, char const* name,
                                       std::int32_t const* key) {
  if (bank_.Tree().Insert(key, f::kNullAddress, f::kNullAddress)) {
    StoreGrownHead(currentType_.c_str(), name);
  }
  std::int32_t* entry = nullptr;
  if (!bank_.Tree().GetCurrentData(entry)) return;
  ExtentList const before = library_->Store().Extents();
  try {
    bank->WriteToFile(entry, library_);
    bank_.Tree().WriteCurrentNode();
  } catch (...) {
    library_->Store().Extents() = before;
    bank_.Tree().Delete(key);  // from a leaf, where new entries are put: the root does not change
    throw;
  }
  EnterIdentifiers(bank);
}

void LibMaint_i::EnterIdentifiers(IZelBankIO* bank) {
  if (auto const component = FaceRef<IZelPureComp>::Of(bank, IID_IZelPureComp)) {
    UpdateIdTrees(*component.Get());
  }
}

bool LibMaint_i::ItemExists(IZelBankDef* bank, char const* name, Key* key) {
  DropItem();
  std::int32_t const* entry = nullptr;
  return object_.Take(bank) && LocateItem(name, InnerKey(key), entry) == Located::kFound;
}

bool LibMaint_i::ReadItem(IZelBankDef* bank, char const* name, Key* key) {
  DropItem();
  if (!object_.Take(bank)) return false;
  IZelBankIO* const io = object_.Io();
  io->Clear();
  std::int32_t const* entry = nullptr;
  Key_p* const inner = InnerKey(key);
  if (LocateItem(name, inner, entry) != Located::kFound) return false;
  io->SetSource(library_, name, library_->IsPasswordLocked() ? 1 : 0);
  bank_.Read(library_, io, entry);
  if (swapped_) io->SwapPair();
  KeepItem(name, inner);
  return true;
}

bool LibMaint_i::WriteItem(IZelBankDef* bank, char const* name, Key* key) {
  DropItem();
  if (!object_.Take(bank) || !MayBeWritten(object_.Io(), key)) return false;
  IZelBankIO* const io = object_.Io();
  std::int32_t const* entry = nullptr;
  Key_p* const inner = InnerKey(key);
  Located const located = LocateItem(name, inner, entry);
  // Only an absent key is inserted: in a tree with another key or record length an insert would
  // replace the old tree by a new root or write past the end of an entry.
  if (located == Located::kFailed) return false;
  if (located == Located::kAbsent) {
    AddRecord(io, name, inner->GetKeyWords());
  } else {
    WriteRecord(io);
  }
  bank_.Settle(*library_);
  KeepItem(name, inner);
  return true;
}

// Remembers the item just read or written, for RewriteItem.
void LibMaint_i::KeepItem(char const* name, Key_p* key) {
  itemBank_ = TextOrEmpty(name);
  std::copy_n(key->GetKeyWords(), itemKey_.size(), itemKey_.begin());
  itemChanges_ = library_->Store().Changes();
  itemValid_ = true;
}

// Another object may have written to the library since the item was located: the current tree then
// holds outdated nodes and is opened again from the bank's head. False when the item is gone.
bool LibMaint_i::FindItemAgain(IZelBankIO* bank, BlockInfo const& info) {
  if (itemChanges_ == library_->Store().Changes()) return true;
  std::int32_t const* entry = nullptr;
  std::int32_t const format = bank_.Format().format;
  return bank_.Locate(*library_, bank, info, itemBank_.c_str()) == LocatedBank::Answer::kFound &&
         bank_.Format().format == format && bank_.Tree().Find(itemKey_.data(), entry);
}

bool LibMaint_i::RewriteItem(IZelBankDef* bank) {
  if (!itemValid_) return false;
  auto const io = FaceRef<IZelBankIO>::Of(bank, IID_IZelBankIO);
  if (!io || !MayBeWritten(io.Get(), nullptr)) return false;
  BlockInfo const info(io.Get());
  std::int32_t words = 0;
  io->GetRecordLength(bank_.Format().format, &words);
  std::int32_t* entry = nullptr;
  if (!SameText(info.type, currentType_) || info.keyWords != keyWords_ ||
      words != bank_.Format().words || !bank_.IsOpen() || !FindItemAgain(io.Get(), info) ||
      !bank_.Tree().GetCurrentData(entry)) {
    itemValid_ = false;
    return false;
  }
  WriteRecord(io.Get());
  bank_.Settle(*library_);
  itemChanges_ = library_->Store().Changes();
  return true;
}

// An object of the type, the same one for several calls in a row; null for an unknown type.
IZelBankDef* LibMaint_i::BankOfType(char const* type) {
  std::string_view const wanted = TextOrEmpty(type);
  if (!madeBank_ || madeType_ != wanted) {
    madeBank_.reset();
    madeType_ = wanted;
    madeBank_.emplace(NewKnownBank(type));
  }
  return madeBank_->Get();
}

bool LibMaint_i::DeleteItem(char const* type, char const* name, Key* key) {
  DropItem();
  std::int32_t const* entry = nullptr;
  Key_p* const inner = InnerKey(key);
  if (!object_.Take(BankOfType(type)) || LocateItem(name, inner, entry) != Located::kFound)
    return false;
  std::int32_t const root = bank_.Tree().Head().rootAddress;
  try {
    bank_.Tree().Delete(inner->GetKeyWords());
  } catch (...) {
    // An interrupted rebuild has moved the root: the entries that it saved must stay reachable.
    if (bank_.Tree().Head().rootAddress != root) StoreHead(type, name);
    throw;
  }
  if (bank_.Tree().Head().rootAddress != root) StoreHead(type, name);
  bank_.Settle(*library_);
  return true;
}

}  // namespace zel
