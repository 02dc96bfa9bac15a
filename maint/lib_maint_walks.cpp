// Walks over component IDs, banks and items. Each works on its own tree over a copy of the head, so
// that walks of several objects on one library do not disturb each other.
#include <algorithm>

#include "frame/ascii.h"
#include "frame/limits.h"
#include "maint/lib_maint.h"
#include "store/bank_key.h"
#include "store/packed_text.h"
#include "zelaccess/BlockError.h"
#include "zelaccess/Verify.h"

namespace zel {

namespace f = format;

namespace {
enum OwnTree : int { kDirectory = 0, kCharacterIds = 1 };
bool IsOpen(LibFile_i* library) { return library != nullptr && library->GetBankTree() != nullptr; }
}  // namespace

bool LibMaint_i::StartWalk(WalkMode mode, std::int32_t const* head) {
  bank_.OpenTree(*library_, head);
  std::int32_t words = 0;
  bank_.Tree().WalkBegin(keyWords_, words);
  // An empty tree has no key length: its walk ends with a key length of 0 words, too.
  if (keyWords_ == 0 && bank_.Tree().Head().IsUsable()) keyWords_ = bank_.Tree().Head().keyWords;
  walkMode_ = mode;
  return true;
}

// True if a walk of this kind is under way. An item read before can no longer be rewritten.
bool LibMaint_i::WalkIs(WalkMode mode) noexcept {
  itemValid_ = false;
  return walkMode_ == mode && bank_.IsOpen();
}

void LibMaint_i::BeginIdWalk() {
  DropTree();
  if (IsOpen(library_)) StartWalk(WalkMode::kIds, library_->HeadOf(kCharacterIds).data());
}

bool LibMaint_i::NextId(std::int32_t& number, char* id) {
  number = 0;
  Give(id, '\0');
  std::int32_t const* entry = nullptr;
  if (!WalkIs(WalkMode::kIds) || keyWords_ != f::kIdKeyWords || !bank_.Tree().WalkNext(entry)) {
    return false;
  }
  number = entry[f::kIdKeyWords];
  if (id != nullptr) WordsToText(entry, f::kIdKeyWords, id);
  return true;
}

void LibMaint_i::BeginBankWalk(char const* type) {
  DropTree();
  currentType_ = TextOrEmpty(type);
  if (IsOpen(library_)) StartWalk(WalkMode::kBanks, library_->HeadOf(kDirectory).data());
}

bool LibMaint_i::NextBank(char* type, char* name) {
  Give(type, '\0');
  Give(name, '\0');
  if (NothingWanted(type, name)) return false;
  char ownType[kMostName + 1];
  char ownName[kMostName + 1];
  std::int32_t const* entry = nullptr;
  while (WalkIs(WalkMode::kBanks) && keyWords_ == f::kBankKeyWords &&
         bank_.Tree().WalkNext(entry)) {
    UnpackBankKey(entry, ownType, ownName);
    if (!currentType_.empty() && currentType_ != ownType) continue;
    GiveText(ownType, type, sizeof ownType);
    GiveText(ownName, name, sizeof ownName);
    return true;
  }
  return false;
}

namespace {

// The key of an item for display: a text, or numbers.
std::string ItemText(BlockInfo const& info, std::int32_t const* words) {
  constexpr std::int32_t kCharacters = 2;
  if (info.keyKind == kCharacters) {
    char text[4 * f::kMaxKeyWords + 1];
    WordsToText(words, info.keyWords, text);
    return text;
  }
  std::string text = std::to_string(words[0]);
  for (std::int32_t i = 1; i < info.keyWords; ++i) text += " + " + std::to_string(words[i]);
  return text;
}

}  // namespace

bool LibMaint_i::BeginItemWalk(char const* type, char const* name) {
  DropTree();
  std::int32_t const* entry = nullptr;
  if (!FindBank(type, name, entry)) return false;
  currentType_ = TextOrEmpty(type);
  walkedName_ = TextOrEmpty(name);
  return StartWalk(WalkMode::kItems, entry + f::kBankHead);
}

void SetItemFindings(LibFile* library, ZelFindingSink* sink) {
  auto* const inner = dynamic_cast<LibFile_i*>(library);
  if (inner != nullptr) inner->SetItemFindings(sink);
}

bool LibMaint_i::TellLeftOut(std::string const& place, std::string const& why) const {
  ZelFindingSink* const sink = library_->ItemFindings();
  if (sink == nullptr) return false;
  sink->Found(findingDamage, "item", place.c_str(), why.c_str());
  return true;
}

bool LibMaint_i::TellUnread(std::string const& place, unsigned long address) const {
  ZelBlockErrorInfo info;
  GetBlockErrorInfo(address, info);
  return TellLeftOut(place, "block " + std::to_string(address) + " " + info.reason);
}

std::string LibMaint_i::PlaceInWalk(std::int32_t const* entry) const {
  return currentType_ + ":" + walkedName_ + " " + ItemText(object_.Info(), entry);
}

// False for an item that cannot be read and was reported to the host; the bank is then empty.
bool LibMaint_i::ReadOrTell(IZelBankIO* bank, std::int32_t const* entry) {
  if (library_->ItemFindings() == nullptr) {
    bank_.Read(library_, bank, entry + keyWords_);
    return true;
  }
  // The text is made before the read, which can move the node that holds the words.
  std::string const place = PlaceInWalk(entry);
  try {
    bank_.Read(library_, bank, entry + keyWords_);
    return true;
  } catch (unsigned long const address) {
    bank->Clear();
    if (!TellUnread(place, address)) throw;
    return false;
  }
}

// False when the bank in `object_` is not of the type that is walked.
bool LibMaint_i::FitWalk() {
  if (bank_.IsFittedTo(object_)) return true;
  BlockInfo const& info = object_.Info();
  return SameText(info.type, currentType_) && info.keyWords == keyWords_ &&
         bank_.FitAgain(object_) == LocatedBank::Answer::kFound;
}

std::int32_t LibMaint_i::FormatOfWalk(IZelBankDef* bank) {
  return WalkIs(WalkMode::kItems) && object_.Take(bank) && FitWalk() ? bank_.Format().format : 0;
}

bool LibMaint_i::NextItem(std::int32_t* keyWords, IZelBankDef* bank) {
  if (!WalkIs(WalkMode::kItems)) return false;
  bool const isBank = object_.Take(bank);
  if (keyWords != nullptr) std::fill_n(keyWords, keyWords_, 0);
  if (!isBank) return false;
  IZelBankIO* const io = object_.Io();
  io->Clear();
  if (!FitWalk()) return false;
  std::int32_t const* entry = nullptr;
  while (bank_.Tree().WalkNext(entry)) {
    if (keyWords != nullptr) std::copy_n(entry, keyWords_, keyWords);
    if (ReadOrTell(io, entry)) return true;
    if (keyWords != nullptr) std::fill_n(keyWords, keyWords_, 0);
  }
  return false;
}

bool LibMaint_i::NextItemKey(std::int32_t* keyWords) {
  if (!WalkIs(WalkMode::kItems) || keyWords == nullptr) return false;
  std::fill_n(keyWords, keyWords_, 0);
  std::int32_t const* entry = nullptr;
  if (!bank_.Tree().WalkNext(entry)) return false;
  std::copy_n(entry, keyWords_, keyWords);
  return true;
}

}  // namespace zel
