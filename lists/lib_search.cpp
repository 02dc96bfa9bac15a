#include "lists/lib_search.h"

#include <algorithm>

#include "frame/ascii.h"
#include "frame/limits.h"
#include "maint/face_ref.h"

namespace zel {

namespace {

std::size_t Count(long count) noexcept { return static_cast<std::size_t>(std::max(count, 0L)); }

// A name of nine letters has no terminator in its array: nothing after the eighth is read.
std::string CutName(char const* name) {
  std::size_t length = 0;
  while (name != nullptr && length < kMostName && name[length] != '\0') ++length;
  return std::string(name != nullptr ? name : "", length);
}

}  // namespace

LibSearch::~LibSearch() = default;
LibSearch_p::~LibSearch_p() = default;

LibSearch* LibSearch::NewLibSearch() { return new LibSearch_i; }

void LibSearch::DelLibSearch(LibSearch*& search) {
  delete search;
  search = nullptr;
}

void LibSearch_p::DelLibSearch(LibSearch_p*& search) {
  delete search;
  search = nullptr;
}

// --- where to look -------------------------------------------------------------------------------

void LibSearch_i::DropEntries() noexcept {
  entries_.clear();
  prepared_ = false;
}

// Libraries and names that were set as pairs are dropped together.
void LibSearch_i::DropPairs() noexcept {
  if (pairsSet_) DropAll();
}

void LibSearch_i::DropAll() noexcept {
  librariesSet_ = false;
  namesSet_ = false;
  pairsSet_ = false;
  libraries_.clear();
  bankNames_.clear();
  foundFlags_.clear();
  protectedFlags_.clear();
}

void LibSearch_i::TakeLibraries(long count, LibFile* const* libraries) {
  libraries_.assign(Count(count), nullptr);
  if (libraries != nullptr) std::copy_n(libraries, libraries_.size(), libraries_.begin());
}

template <typename Names>
void LibSearch_i::TakeNames(long count, Names names) {
  bankNames_.clear();
  for (std::size_t i = 0; i < Count(count); ++i) {
    bankNames_.push_back(names != nullptr ? CutName(names[i]) : std::string());
  }
}

void LibSearch_i::SetLibraries(long count, LibFile* const* libraries) {
  DropEntries();
  DropPairs();
  TakeLibraries(count, libraries);
  librariesSet_ = true;
}

void LibSearch_i::SetBankNames(long count, char const (*names)[9]) {
  DropEntries();
  DropPairs();
  TakeNames(count, names);
  namesSet_ = true;
}

void LibSearch_i::SetBankNames(long count, char const* const* names) {
  DropEntries();
  DropPairs();
  TakeNames(count, names);
  namesSet_ = true;
}

void LibSearch_i::SetLibraryBanks(long count, LibFile* const* libraries, char const (*names)[9]) {
  DropEntries();
  DropAll();
  TakeLibraries(count, libraries);
  TakeNames(count, names);
  foundFlags_.assign(Count(count), 0);
  protectedFlags_.assign(Count(count), 0);
  pairsSet_ = true;
}

// --- located banks -------------------------------------------------------------------------------

// Keeps the bank if its key length and record length match those of the given bank.
bool LibSearch_i::AddEntry(IZelBankIO* bank, BlockInfo const& info, LibFile* library,
                           std::string const& bankName, std::int32_t pairIndex) {
  auto* file = dynamic_cast<LibFile_i*>(library);
  if (file == nullptr) return false;
  auto entry = std::make_unique<SearchEntry>();
  entry->bankName = bankName;
  entry->library = file;
  entry->pairIndex = pairIndex;
  entry->isProtected = file->IsPasswordLocked();
  if (entry->bank.Locate(*file, bank, info, bankName.c_str()) != LocatedBank::Answer::kFound) {
    return false;
  }
  entries_.push_back(std::move(entry));
  return true;
}

// False when no libraries and bank names are set.
bool LibSearch_i::Prepare(IZelBankIO* bank, BlockInfo const& info) {
  if (!pairsSet_ && !(librariesSet_ && namesSet_)) return false;
  DropEntries();
  if (pairsSet_) {
    for (std::size_t i = 0; i < bankNames_.size(); ++i) {
      AddEntry(bank, info, libraries_[i], bankNames_[i], static_cast<std::int32_t>(i));
    }
  } else {
    // A name is searched only in the first library that has a usable bank of this name.
    for (std::string const& name : bankNames_) {
      std::any_of(libraries_.begin(), libraries_.end(),
                  [&](LibFile* library) { return AddEntry(bank, info, library, name, kNoPair); });
    }
  }
  preparedType_ = info.type;
  prepared_ = true;
  return true;
}

// --- the search ----------------------------------------------------------------------------------

bool LibSearch_i::ReadEntries(Key_p* key, IZelBankIO* bank, BlockInfo const& info, bool allBanks,
                              bool& swapped) {
  bool found = false;
  for (auto const& entry : entries_) {
    std::int32_t const* data = nullptr;
    if (!key->ResolveKey(entry->library, info.pairRule, swapped) ||
        !entry->bank.Tree().Find(key->GetKeyWords(), data)) {
      continue;
    }
    bank->SetSource(entry->library, entry->bankName.c_str(), entry->isProtected ? 1 : 0);
    if (entry->bank.Read(entry->library, bank, data) == kStatusOk) {
      found = true;
      if (entry->pairIndex != kNoPair) {
        auto const pair = static_cast<std::size_t>(entry->pairIndex);
        foundFlags_[pair] = 1;
        protectedFlags_[pair] = entry->isProtected ? 1 : 0;
      }
    }
    if (!allBanks) break;
  }
  return found;
}

bool LibSearch_i::Search(Key* key, IZelBankDef* bank, bool allBanks) {
  auto* inner = dynamic_cast<Key_p*>(key);
  auto const io = FaceRef<IZelBankIO>::Of(bank, IID_IZelBankIO);
  if (!io) return false;
  io->Clear();
  if (inner == nullptr) return false;
  inner->ClearCache();
  BlockInfo const info(io.Get());
  // Only components are merged.
  bool const mergeAll = allBanks && SameText(info.type, kPureComponentType);
  // Never true, since minKeyWords is never above keyWords.
  std::int32_t const count = inner->GetCompCount();
  if (count > info.keyWords && count < info.minKeyWords) return false;
  if (preparedType_ != info.type) DropEntries();
  if (!prepared_ && !Prepare(io.Get(), info)) return false;
  if (entries_.empty()) return false;
  std::fill(foundFlags_.begin(), foundFlags_.end(), std::uint8_t{0});
  std::fill(protectedFlags_.begin(), protectedFlags_.end(), std::uint8_t{0});
  inner->FitCompCount(info.keyWords, info.minKeyWords);
  bool swapped = false;
  if (!ReadEntries(inner, io.Get(), info, mergeAll, swapped)) {
    io->Clear();
    return false;
  }
  if (pairsSet_) {
    io->SetSourceList(static_cast<std::int32_t>(bankNames_.size()), foundFlags_.data(),
                      protectedFlags_.data());
  }
  io->Complete();
  if (swapped) io->SwapPair();
  return true;
}

}  // namespace zel
