#include "store/block_store.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

#include "frame/ascii.h"
#include "frame/limits.h"

namespace zel {
namespace {

constexpr bool kNativeIsFileOrder = std::endian::native == std::endian::little;
constexpr std::size_t kNodeBytes = std::size_t{format::kNodeWords} * format::kWordBytes;

// Words on file are little-endian.
void SwapBytes(std::int32_t* words, std::size_t count) noexcept {
  for (std::size_t i = 0; i < count; ++i) {
    auto const w = static_cast<std::uint32_t>(words[i]);
    words[i] =
        static_cast<std::int32_t>(w >> 24 | (w >> 8 & 0xFF00U) | (w << 8 & 0xFF0000U) | w << 24);
  }
}

std::int64_t WriteWords(platform::BlockFile& file, std::uint64_t offset, std::int32_t const* words,
                        std::size_t count) {
  std::size_t const bytes = count * format::kWordBytes;
  if constexpr (kNativeIsFileOrder) return file.WriteAt(offset, words, bytes);
  std::vector<std::int32_t> swapped(words, words + count);
  SwapBytes(swapped.data(), count);
  return file.WriteAt(offset, swapped.data(), bytes);
}

// Reads, and sets words that could not be read to zero.
std::int64_t ReadWords(platform::BlockFile& file, std::uint64_t offset, std::int32_t* words,
                       std::size_t count) {
  std::size_t const bytes = count * format::kWordBytes;
  std::int64_t const got = file.ReadAt(offset, words, bytes);
  std::size_t const good = got < 0 ? 0 : static_cast<std::size_t>(got);
  if (good < bytes) std::memset(reinterpret_cast<std::byte*>(words) + good, 0, bytes - good);
  if constexpr (!kNativeIsFileOrder) SwapBytes(words, count);
  return got;
}

std::size_t Count(std::int32_t words) noexcept {
  constexpr std::int32_t kMost = INT32_MAX / format::kWordBytes;
  return static_cast<std::size_t>(std::clamp<std::int32_t>(words, 0, kMost));
}

}  // namespace

openErrors ErrorOf(platform::OpenOutcome outcome) noexcept {
  switch (outcome) {
    case platform::OpenOutcome::kOk: return openOk;
    case platform::OpenOutcome::kNotFound: return openNotFound;
    case platform::OpenOutcome::kDenied: return openDenied;
    case platform::OpenOutcome::kFailed: break;
  }
  return openFailed;
}

BlockStore::BlockStore(platform::FileSystem& system, accModes mode, std::string firstPath)
    : system_(&system), mode_(mode), firstPath_(std::move(firstPath)) {}

openErrors BlockStore::OpenFile(int number, bool create, bool forceRead) {
  FileSlot& slot = Slot(number);
  if (slot.state == kAbsent && !create) return openFailed;
  platform::OpenMode mode = platform::OpenMode::kUpdate;
  if (slot.state == kAbsent) {
    mode = platform::OpenMode::kCreate;
  } else if (mode_ == accRead || forceRead) {
    mode = platform::OpenMode::kRead;
  }
  platform::OpenedFile opened = system_->Open(PathOf(number), mode);
  wasInUse_ = opened.isInUse;
  if (opened.outcome == platform::OpenOutcome::kOk) {
    slot.file = std::move(opened.file);
    if (!Hold(number, mode != platform::OpenMode::kRead)) {
      slot.file.reset();
      return openFailed;
    }
    slot.state = kOpen;
    if (boundMemory_) slot.file->BoundMemory(true);
  }
  return ErrorOf(opened.outcome);
}

void BlockStore::CloseFile(int number) noexcept {
  FileSlot& slot = Slot(number);
  if (slot.state != kOpen) return;
  slot.file.reset();
  slot.state = kPresent;
  ++closings_;
}

void BlockStore::CloseAll() noexcept {
  nodeFile_.blocks = 0;
  if (held_) held_->End();
  for (FileSlot& slot : slots_) {
    slot.file.reset();
    slot.state = kAbsent;
    slot.blockWords = 0;
  }
  held_.reset();
  unfinished_.reset();
  hasWritten_ = false;
  hasOwnMark_ = false;
  hasFailed_ = false;
  ++closings_;
}

void BlockStore::DeclareFile(int number, bool present, std::int32_t blockWords) noexcept {
  FileSlot& slot = Slot(number);
  if (slot.state != kOpen) slot.state = present ? kPresent : kAbsent;
  slot.blockWords = blockWords;
}

void BlockStore::SetIdentity(std::int32_t libType, std::int32_t fileCount) noexcept {
  libType_ = libType;
  fileCount_ = fileCount;
}

std::uint64_t BlockStore::OffsetOf(BlockAddress const& a) const noexcept {
  auto const blockBytes = static_cast<std::uint64_t>(Slot(a.file).blockWords) * format::kWordBytes;
  return static_cast<std::uint64_t>(a.block - 1) * blockBytes;
}

std::int64_t BlockStore::ReadPlain(std::int32_t block, std::int32_t words, std::int32_t* buffer) {
  return ReadWords(*Slot(1).file, OffsetOf({0, 1, block}), buffer, Count(words));
}

bool BlockStore::WritePlain(std::int32_t block, std::int32_t words, std::int32_t const* buffer) {
  std::size_t const count = Count(words);
  auto const bytes = static_cast<std::int64_t>(count) * format::kWordBytes;
  return BeforeWrite() &&
         WriteWords(*Slot(1).file, OffsetOf({0, 1, block}), buffer, count) == bytes;
}

bool BlockStore::FlushFiles() {
  if (held_) return held_->Commit();
  bool good = true;
  for (FileSlot& slot : slots_) {
    if (slot.file && !slot.file->Flush()) good = false;
  }
  return good;
}

void BlockStore::BoundMemory(bool on) {
  boundMemory_ = on;
  for (FileSlot& slot : slots_) {
    if (slot.file) slot.file->BoundMemory(on);
  }
}

// --- blocks ----------------------------------------------------------------------------------

void BlockStore::Throw(std::int32_t address, BlockFault fault) const {
  char path[kMostPath + 1];
  CopyText(firstPath_, path, sizeof path);
  BlockAddress const a = BlockAddress::Split(address);
  bool const known = !firstPath_.empty() && address != format::kNullAddress && a.type == libType_ &&
                     a.file >= 1 && a.file <= fileCount_;
  if (known) path[std::strlen(path) - 1] = "0123456789"[a.file];
  ThrowBlockError(address, fault, path);
}

BlockAddress BlockStore::CheckedForReading(std::int32_t address) const {
  BlockAddress const a = BlockAddress::Split(address);
  if (!open_ || a.type != libType_ || a.file < 1 || a.file > fileCount_ || a.block < 1 ||
      Slot(a.file).state == kAbsent || Slot(a.file).blockWords < 1) {
    Throw(address, BlockFault::kNotABlock);
  }
  return a;
}

// Header and block table are written only by the flush: a block address that names them is damage.
BlockAddress BlockStore::CheckedForWriting(std::int32_t address) const {
  CheckWritable(address);
  BlockAddress const a = BlockAddress::Split(address);
  if (a.type != libType_ || a.file < 1 || a.file > fileCount_ || a.block < 1 ||
      Slot(a.file).blockWords < 1 || (a.file == 1 && a.block < format::kFirstFreeBlockOfFile1)) {
    Throw(address, BlockFault::kNotABlock);
  }
  return a;
}

void BlockStore::CheckWritable(std::int32_t address) const {
  if (!open_ || mode_ == accRead) Throw(address, BlockFault::kReadOnly);
}

std::int32_t BlockStore::ReadBlock(std::int32_t address, std::int32_t words, std::int32_t* buffer) {
  BlockAddress const a = CheckedForReading(address);
  std::size_t const count = Count(words);
  FileSlot& slot = Slot(a.file);
  if (!OpenOnDemand(a.file)) {
    std::fill_n(buffer, count, 0);
    return Noted(-1);
  }
  return Noted(static_cast<std::int32_t>(ReadWords(*slot.file, OffsetOf(a), buffer, count)));
}

// What a change reads may be half of it: if a block fails, the caller gives up in the middle.
std::int32_t BlockStore::Noted(std::int32_t bytes) noexcept {
  if (bytes < 0 && hasWritten_) hasFailed_ = true;
  return bytes;
}

std::int32_t BlockStore::ReadOrThrow(std::int32_t address, std::int32_t words,
                                     std::int32_t* buffer) {
  std::int32_t const got = ReadBlock(address, words, buffer);
  if (got < 0) Throw(address, BlockFault::kNotRead);
  return got;
}

void BlockStore::MarkOpen(bool open) noexcept {
  open_ = open;
  nodeFile_.blocks = 0;
  viewsAskedFor_ = 0;
  nodeFileAskedFor_ = false;
}

// Opens a file that a read needs, unless it is open.
bool BlockStore::OpenOnDemand(int number) {
  if (Slot(number).state == kOpen) return true;
  std::lock_guard const turn(onDemand_);
  return Slot(number).state == kOpen || OpenFile(number, false, false) == openOk;
}

void BlockStore::MapNodeFile() noexcept {
  std::lock_guard const turn(onDemand_);
  if (nodeFileAskedFor_.exchange(true)) return;
  FileSlot const& slot = Slot(2);
  if (mode_ != accRead || !kNativeIsFileOrder || !slot.file || fileCount_ < 2 ||
      slot.blockWords != format::kNodeWords) {
    return;
  }
  auto const blocks = static_cast<std::size_t>(
      std::min<std::uint64_t>(slot.file->Size() / kNodeBytes, format::kMaxBlock));
  std::byte const* bytes = slot.file->View(0, blocks * kNodeBytes);
  if (blocks == 0 || bytes == nullptr) return;
  nodeFile_.words = reinterpret_cast<std::int32_t const*>(bytes);
  nodeFile_.firstAddress = BlockAddress{libType_, 2, 1}.Word();
  nodeFile_.blocks.store(static_cast<std::uint32_t>(blocks), std::memory_order_release);
}

std::int32_t const* BlockStore::ViewOfAnyFile(std::int32_t address, std::int32_t words) {
  constexpr int kCopiesFirst = 8;
  BlockAddress const a = CheckedForReading(address);
  if (mode_ != accRead || !kNativeIsFileOrder) return nullptr;
  if (viewsAskedFor_ <= kCopiesFirst && ++viewsAskedFor_ <= kCopiesFirst) return nullptr;
  if (!nodeFileAskedFor_) MapNodeFile();
  if (!OpenOnDemand(a.file)) return nullptr;
  std::byte const* bytes = Slot(a.file).file->View(OffsetOf(a), Count(words) * format::kWordBytes);
  return reinterpret_cast<std::int32_t const*>(bytes);
}

std::int32_t const* BlockStore::NodeInPlace(std::int32_t address) const {
  BlockAddress const a = CheckedForReading(address);
  FileSlot const& slot = Slot(a.file);
  if (!kNativeIsFileOrder || slot.state != kOpen) return nullptr;
  return reinterpret_cast<std::int32_t const*>(slot.file->View(OffsetOf(a), kNodeBytes));
}

bool BlockStore::NodeWriteCannotFail(std::int32_t address) {
  BlockAddress const a = CheckedForWriting(address);
  FileSlot const& slot = Slot(a.file);
  return kNativeIsFileOrder && slot.state == kOpen &&
         slot.file->WriteCannotFail(OffsetOf(a), kNodeBytes) && KeepForUndo(a, kNodeBytes);
}

std::int64_t BlockStore::BlocksFor(int number, std::int32_t words) const noexcept {
  std::int64_t const size = Slot(number).blockWords;
  return std::max<std::int64_t>(1, (std::max(words, 0) + size - 1) / size);
}

bool BlockStore::IsCandidate(int number) const noexcept {
  return number <= fileCount_ && Slot(number).blockWords > 0;
}

// The file that wastes fewer words, where each block counts 35 words more than it has.
int BlockStore::FileForNewRun(std::int32_t words, std::int32_t fileChoice) const noexcept {
  if (!IsCandidate(2)) return 1;
  if (fileChoice == 1 || fileChoice == 2) return fileChoice;
  auto const waste = [&](int number) {
    return (std::int64_t{Slot(number).blockWords} + format::kBlockPenalty) *
               BlocksFor(number, words) -
           words;
  };
  return waste(1) > waste(2) ? 2 : 1;
}

bool BlockStore::NodesLieApart() const noexcept {
  return fileCount_ >= 2 && BlockWords(1) == format::kBlockWordsOfFile1 &&
         BlockWords(2) == format::kBlockWordsOfFile2;
}

std::int32_t BlockStore::Allocate(std::int32_t words, std::int32_t fileChoice) {
  int const file = FileForNewRun(words, fileChoice);
  std::int32_t address = extents_.Take(file, BlocksFor(file, words));
  int const other = 3 - file;
  if (address == format::kNullAddress && IsCandidate(other)) {
    address = extents_.Take(other, BlocksFor(other, words));
  }
  if (address == format::kNullAddress) Throw(address, BlockFault::kNoRoom);
  return address;
}

std::int32_t BlockStore::Transfer(std::int32_t address, std::int32_t words,
                                  std::int32_t const* buffer) {
  BlockAddress const a = CheckedForWriting(address);
  FileSlot& slot = Slot(a.file);
  if (!BeforeWrite()) return -1;
  if (slot.state != kOpen && OpenFile(a.file, true, false) != openOk) return Noted(-1);
  if (!KeepForUndo(a, Count(words) * format::kWordBytes)) return Noted(-1);
  std::size_t const count = Count(words);
  auto const written =
      static_cast<std::int32_t>(WriteWords(*slot.file, OffsetOf(a), buffer, count));
  bool const isWhole = written == static_cast<std::int32_t>(count) * format::kWordBytes;
  Noted(isWhole ? written : -1);
  return written;
}

std::int32_t BlockStore::WriteBlock(std::int32_t& address, std::int32_t words,
                                    std::int32_t const* buffer, std::int32_t fileChoice) {
  CheckWritable(address);
  ++changes_;
  if (address != format::kNullAddress) return Transfer(address, words, buffer);
  ExtentList const before = extents_;
  std::int32_t const run = Allocate(words, fileChoice);
  try {
    std::int32_t const written = Transfer(run, words, buffer);
    if (written == static_cast<std::int32_t>(Count(words)) * format::kWordBytes) {
      address = run;
    } else {
      extents_ = before;  // nothing refers to the run yet
    }
    return written;
  } catch (std::bad_alloc const&) {
    extents_ = before;
    throw;
  }
}

std::int32_t BlockStore::Reserve(std::int32_t words) {
  CheckWritable(format::kNullAddress);
  ++changes_;
  return Allocate(words, 0);
}

std::int64_t BlockStore::CheckFreeable(std::int32_t address, std::int32_t words) const {
  BlockAddress const a = CheckedForWriting(address);
  std::int64_t const blocks = BlocksFor(a.file, words);
  if (Slot(a.file).state == kAbsent || extents_.Overlaps(address, blocks, a.file)) {
    Throw(address, BlockFault::kNotOccupied);
  }
  return blocks;
}

void BlockStore::FreeBlock(std::int32_t& address, std::int32_t words) {
  BlockAddress const a = CheckedForWriting(address);
  std::int64_t const blocks = CheckFreeable(address, words);
  ++changes_;
  if (Slot(a.file).state != kOpen) OpenFile(a.file, false, false);
  extents_.GiveBack(address, blocks, a.file);
  address = format::kNullAddress;
}

std::int64_t BlockStore::BytesInFile(int number) const noexcept {
  FileSlot const& slot = Slot(number);
  return slot.state == kOpen ? static_cast<std::int64_t>(slot.file->Size()) : 0;
}

std::int64_t BlockStore::BlocksInFile(int number) const noexcept {
  if (Slot(number).blockWords < 1) return 0;
  std::int64_t const blockBytes = std::int64_t{Slot(number).blockWords} * format::kWordBytes;
  return (BytesInFile(number) + blockBytes - 1) / blockBytes;
}

std::int64_t BlockStore::BlockBound() const noexcept {
  std::int64_t blocks = 0;
  for (int number = 1; number <= format::kMaxFiles; ++number) blocks += BlocksInFile(number);
  return blocks;
}

}  // namespace zel
