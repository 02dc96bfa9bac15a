// An open library: header texts, memo, flush and close, the name index.
#include "store/lib_file.h"

#include <algorithm>
#include <cstring>

#include "frame/ascii.h"
#include "frame/limits.h"
#include "store/memo.h"
#include "store/packed_text.h"

namespace zel {

namespace f = format;

std::recursive_mutex LibFile_i::nameIndexBusy_;
constinit std::atomic<LibFile*> LibFile_i::nameIndex_ = nullptr;
constinit std::atomic<LibFile*> LibFile_i::closedNameIndex_ = nullptr;

LibFile::~LibFile() = default;
LibFile_p::~LibFile_p() = default;

void LibFile::DelLibFile(LibFile*& library) {
  delete library;
  library = nullptr;
}

void LibFile_p::DelLibFile(LibFile_p*& library) {
  delete library;
  library = nullptr;
}

LibFile* LibFile::GetOrdwinNameIndex() { return LibFile_i::NameIndex(); }
void LibFile::SetOrdwinNameIndex(LibFile* library) { LibFile_i::SetNameIndex(library); }
void LibFile::ClearOrdwinNameIndex() { LibFile_i::SetNameIndex(nullptr); }

void LibFile_i::SetNameIndex(LibFile* library) noexcept {
  std::lock_guard const lock(nameIndexBusy_);
  nameIndex_ = library;
  closedNameIndex_ = nullptr;
}

void LibFile_i::LeaveNameIndex() noexcept {
  std::lock_guard const lock(nameIndexBusy_);
  if (nameIndex_ != this) return;
  nameIndex_ = nullptr;
  closedNameIndex_ = this;
}

LibFile_i::TreeHead LibFile_i::HeadOf(int tree) const noexcept {
  TreeHead head;
  std::copy_n(heads_.begin() + tree * f::kHeadWords, head.size(), head.begin());
  return head;
}

// --- flush and close -----------------------------------------------------------------------------

LibFile_i::HeaderImage LibFile_i::PackedHeader() const noexcept {
  HeaderImage image = header_;
  TextToWords(texts_.creatorTag, &image[f::kCreatorTag], f::kCreatorTagWords);
  TextToWords(texts_.version, &image[f::kVersion], f::kVersionWords);
  TextToWords(texts_.description, &image[f::kDescription], f::kDescriptionWords);
  TextToWords(texts_.password, &image[f::kPassword], f::kPasswordWords);
  image[f::kReservedA] = texts_.reservedA;
  image[f::kReservedB] = texts_.reservedB;
  for (int number = 1; number <= image[f::kFileCount]; ++number) {
    bool const present = store_.FileState(number) != BlockStore::kAbsent;
    image[static_cast<std::size_t>(f::kFileState + number)] = present ? 1 : 0;
  }
  return image;
}

void LibFile_i::FlushLibFile() {
  if (store_.Mode() == accRead || !store_.IsOpen()) return;
  constexpr std::int32_t kHeadsBytes = f::kTreeHeadsWords * f::kWordBytes;
  std::int32_t& headsAddress = header_[f::kTreeHeadsAddress];
  if (store_.WriteBlock(headsAddress, f::kTreeHeadsWords, heads_.data(), 0) != kHeadsBytes) {
    store_.Throw(headsAddress, BlockFault::kNotWritten);
  }
  HeaderImage const image = PackedHeader();
  bool good = store_.WritePlain(f::kHeaderBlock, f::kHeaderWords, image.data());
  if (good) header_ = image;
  HeaderImage table = blockTable_;
  store_.Extents().Store(table.data());
  good = good && store_.WritePlain(f::kBlockTableBlock, f::kHeaderWords, table.data());
  if (good) blockTable_ = table;
  if (!good || !store_.FlushFiles()) store_.Throw(headsAddress, BlockFault::kNotWritten);
}

void LibFile_i::BeginUndo() {
  undo_ = std::make_unique<Undo>(Undo{header_, blockTable_, heads_, texts_});
  store_.BeginUndo();
}

void LibFile_i::EndUndo() noexcept {
  undo_.reset();
  store_.EndUndo();
}

void LibFile_i::TakeBack() {
  if (!undo_) return;
  std::unique_ptr<Undo> const undo = std::move(undo_);
  bool const good = store_.TakeBack();
  DropTrees();  // a tree writes its head when it ends
  header_ = undo->header;
  blockTable_ = undo->blockTable;
  heads_ = undo->heads;
  texts_ = undo->texts;
  MakeTrees();
  if (!good) store_.Throw(header_[f::kTreeHeadsAddress], BlockFault::kNotWritten);
}

void SetProgress(LibFile* library, ZelProgress* progress) {
  auto* const inner = dynamic_cast<LibFile_i*>(library);
  if (inner != nullptr) inner->SetProgress(progress);
}

void LibFile_i::CloseLibFile() {
  if (!store_.IsOpen()) return;
  LeaveNameIndex();  // waits for a thread that is searching its trees
  DropTrees();
  try {
    FlushLibFile();
  } catch (...) {
    Shut();
    throw;
  }
  Shut(true);
}

void LibFile_i::Abandon() noexcept {
  LeaveNameIndex();
  Shut();
}

namespace {

struct LostFlushes {
  std::mutex busy;
  std::int32_t count = 0;
  char path[kMostPath + 1] = {};
  unsigned long address = 0;
};
LostFlushes lostFlushes;

void NoteLostFlush(char const* path, unsigned long address) noexcept {
  std::lock_guard const lock(lostFlushes.busy);
  ++lostFlushes.count;
  CopyText(path, lostFlushes.path, sizeof lostFlushes.path);
  lostFlushes.address = address;
}

}  // namespace

std::int32_t GetLostFlushes(char* path, unsigned long* address) {
  std::lock_guard const lock(lostFlushes.busy);
  if (path != nullptr) CopyText(lostFlushes.path, path, sizeof lostFlushes.path);
  if (address != nullptr) *address = lostFlushes.address;
  return lostFlushes.count;
}

LibFile_i::~LibFile_i() {
  // The files are closed either way. Losses are recorded for GetLostFlushes.
  try {
    LibFile_i::CloseLibFile();
  } catch (unsigned long address) {
    NoteLostFlush(GetLibPath(), address);
  } catch (std::exception const&) {
    NoteLostFlush(GetLibPath(), static_cast<unsigned long>(f::kNullAddress));
  }
  std::lock_guard const lock(nameIndexBusy_);
  if (closedNameIndex_ == this) closedNameIndex_ = nullptr;
  if (nameIndex_ == this) nameIndex_ = nullptr;
}

// --- texts -----------------------------------------------------------------------------------

void LibFile_i::GetLibInfo(libTypes& type, accModes& mode) const {
  type = static_cast<libTypes>(header_[f::kLibType]);
  mode = store_.Mode();
}

void LibFile_i::GetDescriptionAndVersion(char* description, char* version) const {
  GiveText(texts_.description, description, sizeof texts_.description);
  GiveText(texts_.version, version, sizeof texts_.version);
}

void LibFile_i::SetDescriptionAndVersion(char const* description, char const* version) {
  if (store_.Mode() == accRead) return;
  if (description != nullptr) {
    CopyText(description, texts_.description, sizeof texts_.description);
  }
  if (version != nullptr) CopyText(version, texts_.version, sizeof texts_.version);
}

void LibFile_i::GetReservedWords(std::int32_t& wordA, std::int32_t& wordB) const {
  wordA = texts_.reservedA;
  wordB = texts_.reservedB;
}

void LibFile_i::SetReservedWords(std::int32_t wordA, std::int32_t wordB) {
  if (store_.Mode() == accRead) return;
  texts_.reservedA = wordA;
  texts_.reservedB = wordB;
}

void LibFile_i::GetMemo(char* memo) const {
  if (memo == nullptr) return;
  auto& store = const_cast<BlockStore&>(store_);  // reading can open a file on demand
  ReadMemo(store, header_[f::kMemoAddress], header_[f::kMemoWords], memo);
}

void LibFile_i::SetMemo(char const* memo) {
  if (store_.Mode() == accRead) return;
  WriteMemo(store_, header_[f::kMemoAddress], header_[f::kMemoWords], TextOrEmpty(memo));
}

void LibFile_i::GetPassword(std::int32_t& level, char* password) const {
  level = header_[f::kPasswordLevel];
  bool const shown = store_.Mode() == accUpdate;
  GiveText(shown ? texts_.password : "", password, sizeof texts_.password);
}

void LibFile_i::SetPassword(std::int32_t level, char const* password) {
  if (store_.Mode() == accRead || level < 0 || level > 2) return;
  header_[f::kPasswordLevel] = level;
  // Through the packed form, so that the text shown is the one that will be on file.
  std::int32_t words[f::kPasswordWords];
  TextToWords(level == 0 ? std::string_view() : TextOrEmpty(password), words, f::kPasswordWords);
  WordsToText(words, f::kPasswordWords, texts_.password);
}

bool LibFile_i::IsPasswordLocked() const {
  return header_[f::kPasswordLevel] == 2 && texts_.password[0] != '\0';
}

// --- blocks ------------------------------------------------------------------------------------

std::int32_t LibFile_i::ReadBlock(std::int32_t address, std::int32_t words, std::int32_t* buffer) {
  return buffer == nullptr ? -1 : store_.ReadBlock(address, words, buffer);
}

std::int32_t LibFile_i::WriteBlock(std::int32_t& address, std::int32_t words,
                                   std::int32_t const* buffer, std::int32_t fileChoice) {
  return buffer == nullptr ? -1 : store_.WriteBlock(address, words, buffer, fileChoice);
}

void LibFile_i::FreeBlock(std::int32_t& address, std::int32_t words) {
  store_.FreeBlock(address, words);
}

void LibFile_i::GetHeaderBlocks(std::int32_t const** header, std::int32_t const** blockTable,
                                std::int32_t const** treeHeads) {
  if (header == blockTable && blockTable == treeHeads) {
    Give(header, header_.data());
    return;
  }
  static thread_local HeaderImage headerCopy;
  static thread_local HeaderImage tableCopy;
  static thread_local TreeHeads headsCopy;
  headerCopy = header_;
  tableCopy = blockTable_;
  headsCopy = heads_;
  if (store_.Mode() == accRead) {
    headerCopy[f::kPasswordLevel] = 0;
    std::fill_n(headerCopy.begin() + f::kPassword, f::kPasswordWords, 0);
  }
  Give(header, headerCopy.data());
  Give(blockTable, tableCopy.data());
  Give(treeHeads, headsCopy.data());
}

}  // namespace zel
