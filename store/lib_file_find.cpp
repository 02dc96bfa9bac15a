// Look-ups in the library's own trees.
#include <algorithm>
#include <mutex>
#include <string_view>

#include "frame/ascii.h"
#include "frame/limits.h"
#include "store/bank_key.h"
#include "store/lib_file.h"
#include "store/packed_text.h"

namespace zel {

namespace f = format;

namespace {

bool Fits(char const* type, char const* name) noexcept {
  return TextOrEmpty(type).size() <= kMostName && TextOrEmpty(name).size() <= kMostName;
}

// In older files the words before the head are not a memo.
void RepairEntry(std::int32_t* entry) noexcept {
  if (entry[f::kBankOldMark] == 1) std::fill_n(entry, f::kBankHead, 0);
  if (entry[f::kBankMemoWords] == 0) entry[f::kBankMemoWords] = f::kMemoWordsDefault;
  if (entry[f::kBankMemoAddress] == 0) entry[f::kBankMemoAddress] = f::kNullAddress;
}

}  // namespace

// True when its entries have the words that everything here relies on.
bool LibFile_i::DirectoryIsSound() const noexcept {
  return bankTree_ && bankTree_->Head().keyWords == f::kBankKeyWords &&
         bankTree_->Head().entryDataWords == f::kBankDataWords;
}

// The order of the two searches matters: a failure leaves the directory's position at the key with
// `marker`, where CreateBank then inserts.
bool LibFile_i::SearchDirectory(char const* type, char const* name, std::int32_t const*& data,
                                bool marker) {
  std::int32_t key[f::kBankKeyWords];
  MakeBankKey(TextOrEmpty(type), TextOrEmpty(name), key, !marker);
  if (bankTree_->Find(key, data)) return true;
  MakeBankKey(TextOrEmpty(type), TextOrEmpty(name), key, marker);
  return bankTree_->Find(key, data);
}

bool LibFile_i::FindBank(char const* type, char const* name, std::int32_t const*& entry,
                         bool marker) {
  if (!DirectoryIsSound() || !Fits(type, name)) return false;
  std::int32_t const* data = nullptr;
  if (store_.Mode() == accUpdate) {
    if (!SearchDirectory(type, name, data, marker)) return false;
    std::int32_t* own = nullptr;  // in the node buffer, so that a later write of the node includes
                                  // it
    bankTree_->GetCurrentData(own);
    RepairEntry(own);
    entry = own;
    return true;
  }
  std::lock_guard const turn(searching_);
  BankKey key;
  MakeBankKey(TextOrEmpty(type), TextOrEmpty(name), key.data(), !marker);
  auto known = foundBanks_.find(key);
  if (known == foundBanks_.end()) {
    if (!SearchDirectory(type, name, data, marker)) return false;
    BankEntry found;
    std::copy_n(data, found.size(), found.begin());
    RepairEntry(found.data());
    known = foundBanks_.emplace(key, found).first;
  }
  entry = known->second.data();
  return true;
}

bool LibFile_i::HasBank(char const* type, char const* name) {
  if (!DirectoryIsSound()) return false;
  std::int32_t const* data = nullptr;
  std::int32_t key[f::kBankKeyWords];
  MakeBankKey(TextOrEmpty(type), TextOrEmpty(name), key, true);
  std::lock_guard const turn(searching_);
  return bankTree_->Find(key, data);
}

// A search of one of the trees of components. What a reader finds is in the mapped file, or kept.
bool LibFile_i::FindNumbers(BTree_i& tree, std::int32_t const* key, std::int32_t const*& data) {
  if (store_.Mode() == accUpdate) return tree.Find(key, data);
  std::lock_guard const turn(searching_);
  if (!tree.Find(key, data)) return false;
  if (tree.IsAtCopy()) {
    int const words = std::max<int>(tree.Head().entryDataWords, 1);
    data = foundNumbers_.emplace(data, data + words).first->data();
  }
  return true;
}

bool LibFile_i::FindIdNumbers(char const* id, std::int32_t const*& data) {
  std::string_view const text = TextOrEmpty(id);
  if (!idTree_ || text.size() > kMostName) return false;
  char upper[kMostName + 1];
  CopyText(text, upper, sizeof upper);
  for (char& c : upper) c = ToUpper(c);
  std::int32_t key[f::kMaxKeyWords] = {};
  TextToWords(upper, key, f::kIdKeyWords);
  return FindNumbers(*idTree_, key, data);
}

bool LibFile_i::FindCasNumbers(casn const& number, std::int32_t const*& data) {
  std::int32_t const key[f::kMaxKeyWords] = {static_cast<std::int32_t>(static_cast<long>(number))};
  return casTree_ && key[0] != 0 && FindNumbers(*casTree_, key, data);
}

}  // namespace zel
