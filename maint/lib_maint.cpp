// Banks of a library: creating, deleting and describing them.
#include "maint/lib_maint.h"

#include <algorithm>

#include "banks/catalogue.h"
#include "frame/ascii.h"
#include "frame/limits.h"
#include "store/bank_key.h"
#include "store/key.h"
#include "store/memo.h"

namespace zel {

namespace f = format;

LibMaint::~LibMaint() = default;
LibMaint_p::~LibMaint_p() = default;

LibMaint* LibMaint::NewLibMaint(LibFile* library) { return new LibMaint_i(library); }

void LibMaint::DelLibMaint(LibMaint*& maint) {
  delete maint;
  maint = nullptr;
}

void LibMaint_p::DelLibMaint(LibMaint_p*& maint) {
  delete maint;
  maint = nullptr;
}

LibMaint_i::LibMaint_i(LibFile* library) : library_(dynamic_cast<LibFile_i*>(library)) {}

void LibMaint_i::DropTree() noexcept {
  bank_.CloseTree();
  DropItem();
}

// Ends the current item or walk; the tree may serve the next call.
void LibMaint_i::DropItem() noexcept {
  itemValid_ = false;
  walkMode_ = WalkMode::kNone;
}

// The bank directory; null unless its entries have the lengths that these functions rely on.
BTree_i* LibMaint_i::Directory() const noexcept {
  BTree_i* tree = library_ == nullptr ? nullptr : library_->GetBankTree();
  bool const usable = tree != nullptr && tree->Head().keyWords == f::kBankKeyWords &&
                      tree->Head().entryDataWords == f::kBankDataWords;
  return usable ? tree : nullptr;
}

bool LibMaint_i::FindBank(char const* type, char const* name, std::int32_t const*& entry) const {
  return library_ != nullptr && library_->FindBank(type, name, entry, false);
}

// Writes the current tree's head back into the bank's directory entry.
void LibMaint_i::StoreHead(char const* type, char const* name) {
  std::int32_t const* found = nullptr;
  if (!FindBank(type, name, found)) return;
  std::int32_t* entry = nullptr;
  if (!Directory()->GetCurrentData(entry)) return;
  std::copy(bank_.HeadWords().begin(), bank_.HeadWords().end(), entry + f::kBankHead);
  Directory()->WriteCurrentNode();
  bank_.SettleDirectory(*library_);
}

// To be called after an insert that gave the bank's tree a new root: if that cannot be entered into
// the directory, the insert is undone, since the old root no longer leads to all items.
void LibMaint_i::StoreGrownHead(char const* type, char const* name) {
  try {
    StoreHead(type, name);
  } catch (...) {
    bank_.Tree().TakeBackGrowth();
    throw;
  }
}

bool LibMaint_i::CreateBank(char const* type, char const* name, std::int32_t format) {
  DropTree();
  FaceRef<IZelBankDef> const bank(NewKnownBank(type));
  auto const io = FaceRef<IZelBankIO>::Of(bank.Get(), IID_IZelBankIO);
  BTree_i* directory = Directory();
  if (!io || directory == nullptr || TextOrEmpty(type).size() > kMostName ||
      TextOrEmpty(name).size() > kMostName) {
    return false;
  }
  BlockInfo const info(io.Get());
  if (format < 0 || format > info.formatCount) return false;
  std::int32_t recordWords = info.maxRecordWords;
  if (format != 0) io->GetRecordLength(format, &recordWords);
  bool const marker = (format == 0 ? info.formatCount : format) > 1;

  // The failed search leaves the directory tree at the place where the new key belongs.
  std::int32_t const* found = nullptr;
  if (library_->FindBank(type, name, found, marker)) return false;
  std::int32_t key[f::kBankKeyWords];
  MakeBankKey(TextOrEmpty(type), TextOrEmpty(name), key, marker);
  std::int32_t entry[f::kBankDataWords] = {};
  libTypes libType{};
  accModes mode{};
  library_->GetLibInfo(libType, mode);
  InitTreeHead(entry + f::kBankHead, info.fileResident != 0, info.keyWords, recordWords, libType);
  directory->InsertWithData(key, entry);
  std::int32_t* inserted = nullptr;
  return directory->GetCurrentData(inserted);
}

bool LibMaint_i::DeleteBank(char const* type, char const* name) {
  DropTree();
  BTree_i* directory = Directory();
  if (directory == nullptr) return false;
  std::int32_t key[f::kBankKeyWords];
  bool const marker = library_->HasBank(type, name);
  MakeBankKey(TextOrEmpty(type), TextOrEmpty(name), key, marker);
  return directory->Delete(key);
}

void LibMaint_i::GetBankMemo(char const* type, char const* name, char* memo) {
  if (memo == nullptr) return;
  *memo = '\0';
  std::int32_t const* entry = nullptr;
  if (!FindBank(type, name, entry)) return;
  ReadMemo(library_->Store(), entry[f::kBankMemoAddress], entry[f::kBankMemoWords], memo);
}

void LibMaint_i::SetBankMemo(char const* type, char const* name, char const* memo) {
  std::int32_t const* found = nullptr;
  if (!FindBank(type, name, found)) return;
  std::int32_t address = found[f::kBankMemoAddress];
  WriteMemo(library_->Store(), address, found[f::kBankMemoWords], TextOrEmpty(memo));
  std::int32_t* entry = nullptr;
  if (!Directory()->GetCurrentData(entry)) return;
  entry[f::kBankMemoAddress] = address;
  Directory()->WriteCurrentNode();
}

std::int32_t LibMaint_i::GetBankFormat(char const* type, char const* name) {
  FaceRef<IZelBankDef> const object(NewKnownBank(type));
  auto const io = FaceRef<IZelBankIO>::Of(object.Get(), IID_IZelBankIO);
  if (!io) return 0;
  BlockInfo const info(io.Get());
  std::int32_t const* entry = nullptr;
  if (info.formatCount == 1 || !FindBank(type, name, entry)) return 0;
  LocatedBank bank;
  bank.OpenTree(*library_, entry + f::kBankHead);
  return FormatOf(io.Get(), info, bank.Tree().Head()).format;
}

bool LibMaint_i::BankExists(char const* type, char const* name) {
  std::int32_t const* entry = nullptr;
  return FindBank(type, name, entry);
}

bool LibMaint_i::DumpBankTree(char const* type, char const* name, std::int32_t indent,
                              std::FILE* stream, std::int32_t expected) {
  std::int32_t const* entry = nullptr;
  if (stream == nullptr || !FindBank(type, name, entry)) return false;
  LocatedBank bank;
  bank.OpenTree(*library_, entry + f::kBankHead);
  return bank.Tree().DumpTree(indent, stream, expected);
}

void LibMaint_i::GetRefBankNames(char const* type, char const* name, std::int32_t count,
                                 char const (*types)[9], char (*names)[9]) {
  if (names == nullptr) return;
  for (std::int32_t i = 0; i < count; ++i) names[i][0] = '\0';
  if (types == nullptr) return;
  FaceRef<IZelBankDef> const bank(NewKnownBank(type));
  if (!bank || !BankExists(type, name)) return;
  Key_i key;
  if (!ReadItem(bank.Get(), name, &key)) return;
  for (std::int32_t i = 0; i < count; ++i) bank->GetRefBankName(types[i], names[i]);
}

}  // namespace zel
