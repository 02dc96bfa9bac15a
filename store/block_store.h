// The block store: the files of one library, their blocks, and which of them are free.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "frame/platform/block_file.h"
#include "store/block_address.h"
#include "store/extents.h"
#include "store/format.h"
#include "store/held_writes.h"
#include "store/node_pool.h"
#include "store/undo_pages.h"
#include "store/unfinished_flush.h"
#include "zelaccess/OpenLibrary.h"

namespace zel {

openErrors ErrorOf(platform::OpenOutcome outcome) noexcept;

// Blocks are fixed-size records, a size per file, numbered from 1. A run of blocks is addressed by
// its first block. Everything in a library is accessed through ReadBlock, WriteBlock and FreeBlock,
// which throw the address when it cannot be a block of this library (see block_address.h).
//
// Several threads may read blocks of a store open for reading at the same time. All other calls
// must be made one at a time.
class BlockStore {
 public:
  enum State : std::uint8_t { kAbsent = 0, kPresent = 1, kOpen = 2 };

  BlockStore(platform::FileSystem& system, accModes mode, std::string firstPath);

  accModes Mode() const noexcept { return mode_; }
  std::string const& FirstPath() const noexcept { return firstPath_; }
  bool FirstFileExists() { return system_->Exists(firstPath_); }

  // --- files -------------------------------------------------------------------------------
  // Opens file `number`. An absent file is created if `create`; a present one is opened for reading
  // in accRead or with `forceRead`, otherwise for update.
  openErrors OpenFile(int number, bool create, bool forceRead);
  // Closes a file that is open; afterwards it counts as present.
  void CloseFile(int number) noexcept;
  // Closes all files and forgets states and sizes.
  void CloseAll() noexcept;
  State FileState(int number) const noexcept { return Slot(number).state; }
  // Declares a file of the header: its state unless the file is open, and its block size.
  void DeclareFile(int number, bool present, std::int32_t blockWords) noexcept;
  std::int32_t BlockWords(int number) const noexcept { return Slot(number).blockWords; }
  // The library's type and number of files, against which addresses are checked.
  void SetIdentity(std::int32_t libType, std::int32_t fileCount) noexcept;
  std::int32_t LibType() const noexcept { return libType_; }
  std::int32_t FileCount() const noexcept { return fileCount_; }
  // Block operations throw unless the store is marked as open.
  void MarkOpen(bool open) noexcept;
  bool IsOpen() const noexcept { return open_; }
  // Header and block table, which are outside the block operations. The first file must be open.
  // The read returns the number of bytes read, the rest being zeros, or -1 when the transfer
  // failed; the write returns true when all bytes were written.
  std::int64_t ReadPlain(std::int32_t block, std::int32_t words, std::int32_t* buffer);
  bool WritePlain(std::int32_t block, std::int32_t words, std::int32_t const* buffer);
  // Increases with every block that is written or freed, so that holders of a copy can compare.
  std::uint64_t Changes() const noexcept { return changes_; }
  // Increases when files are closed: pointers from View are then no longer valid.
  std::uint32_t Closings() const noexcept { return closings_; }
  // Writes what is held back into the open files, and asks the system to write them to disk.
  bool FlushFiles();
  // Sets whether the memory that each file takes is bounded, also for files opened later; see
  // BlockFile.
  void BoundMemory(bool on);

  // --- how changes get into the files; block_store_writes.cpp ---------------------------------
  // Must be set before the files are opened.
  void SetWriteMode(zelWriteModes mode) noexcept { writes_ = mode; }
  // Completes the last flush if it was cut off; for reading, only in memory. The first file must be
  // open.
  openErrors FinishLastFlush(bool forceRead);
  // Removes the mark, so that the next opener does not find it, unless a block could not be read or
  // written since the first write. To be called after a flush, before
  // the files are closed.
  void CloseCleanly() noexcept;
  // Without a value if the mark cannot be looked for.
  std::optional<ZelLastClose> LastClose() const;
  // Removes the mark of a library that no other program uses, and a journal that is not for it.
  // False if one of them is still there.
  bool ForgetUncleanClose();
  // True if the last file that could not be opened is in use.
  bool WasInUse() const noexcept { return wasInUse_; }

  // --- work that can be taken back ----------------------------------------------------------
  // From here on, what is overwritten is kept. The files must be open for update.
  void BeginUndo();
  // Forgets what was kept.
  void EndUndo() noexcept { undo_.reset(); }
  // Writes back what was kept, removes files that were created, and forgets it. False if that
  // failed. Copies of blocks are no longer current.
  bool TakeBack();

  // --- blocks ------------------------------------------------------------------------------
  // See LibFile_p for the three operations.
  std::int32_t ReadBlock(std::int32_t address, std::int32_t words, std::int32_t* buffer);
  // The same, but a transfer that fails throws the address. Words past the end of the file are
  // still zeros. Returns the number of bytes read.
  std::int32_t ReadOrThrow(std::int32_t address, std::int32_t words, std::int32_t* buffer);
  std::int32_t WriteBlock(std::int32_t& address, std::int32_t words, std::int32_t const* buffer,
                          std::int32_t fileChoice);
  // Takes a run for words that are written later; the same one as a write without an address would.
  std::int32_t Reserve(std::int32_t words);
  void FreeBlock(std::int32_t& address, std::int32_t words);
  // Throws where FreeBlock would throw; returns the number of blocks that it would free.
  std::int64_t CheckFreeable(std::int32_t address, std::int32_t words) const;
  // Throws `address` unless the store is open for update.
  void CheckWritable(std::int32_t address) const;
  // Throws the address, with the path of the file that holds the block, or would hold it.
  [[noreturn]] void Throw(std::int32_t address, BlockFault fault) const;
  // A block run in place, for a library open for reading whose file is mapped. Null if the file is
  // not mapped, if part of the run is past the end of the file, and for the first few calls: for a
  // host that opens, reads an item and closes, copies are faster than a map. Valid until the file
  // is closed. Throws like ReadBlock.
  std::int32_t const* View(std::int32_t address, std::int32_t words) {
    std::uint32_t const blocks = nodeFile_.blocks.load(std::memory_order_acquire);
    if (words == format::kNodeWords && blocks != 0) {
      std::uint32_t const block =
          static_cast<std::uint32_t>(address) - static_cast<std::uint32_t>(nodeFile_.firstAddress);
      if (block < blocks) return nodeFile_.words + std::size_t{block} * format::kNodeWords;
    }
    return ViewOfAnyFile(address, words);
  }
  // A node in place in a file open for update, until the next write; null where it must be read.
  std::int32_t const* NodeInPlace(std::int32_t address) const;
  // True when writing the node cannot fail.
  bool NodeWriteCannotFail(std::int32_t address);
  // The greatest number of blocks that can hold anything: a bound for walks over damaged links.
  std::int64_t BlockBound() const noexcept;
  // The blocks of one open file, a partial last block included, and its bytes; 0 for a file that is
  // not open.
  std::int64_t BlocksInFile(int number) const noexcept;
  std::int64_t BytesInFile(int number) const noexcept;

  // True when tree nodes and shorter runs are allocated in different files, as in every library
  // made here: neither then affects where the other is placed.
  bool NodesLieApart() const noexcept;
  ExtentList& Extents() noexcept { return extents_; }
  NodePool& Nodes() noexcept { return nodes_; }

 private:
  struct FileSlot {
    std::unique_ptr<platform::BlockFile> file;
    std::atomic<State> state = kAbsent;
    std::int32_t blockWords = 0;
  };

  // The second file of a library open for reading, as mapped; it holds nearly all nodes. Empty if
  // the file is not mapped or its blocks do not have the size of a node. The number of blocks is
  // set last: a thread that sees it sees the others.
  struct NodeFile {
    std::int32_t const* words = nullptr;
    std::int32_t firstAddress = 0;
    std::atomic<std::uint32_t> blocks = 0;
  };

  FileSlot& Slot(int number) noexcept { return slots_[static_cast<std::size_t>(number)]; }
  FileSlot const& Slot(int number) const noexcept {
    return slots_[static_cast<std::size_t>(number)];
  }
  std::string PathOf(int number) const { return FileOfLibrary(firstPath_, number); }
  bool Hold(int number, bool canWrite);
  std::string const& Target();
  bool SetMark();
  // `bytes`, the result of an operation on a block; remembers a negative one.
  std::int32_t Noted(std::int32_t bytes) noexcept;
  // To be called before each write: whether it may be made.
  bool BeforeWrite() { return hasWritten_ || BeforeFirstWrite(); }
  bool BeforeFirstWrite();
  bool OpenOnDemand(int number);
  std::int32_t const* ViewOfAnyFile(std::int32_t address, std::int32_t words);
  void MapNodeFile() noexcept;
  BlockAddress CheckedForReading(std::int32_t address) const;
  BlockAddress CheckedForWriting(std::int32_t address) const;
  std::uint64_t OffsetOf(BlockAddress const& a) const noexcept;
  bool KeepForUndo(BlockAddress const& a, std::size_t bytes) noexcept;
  std::int64_t BlocksFor(int number, std::int32_t words) const noexcept;
  bool IsCandidate(int number) const noexcept;
  int FileForNewRun(std::int32_t words, std::int32_t fileChoice) const noexcept;
  std::int32_t Allocate(std::int32_t words, std::int32_t fileChoice);
  std::int32_t Transfer(std::int32_t address, std::int32_t words, std::int32_t const* buffer);

  platform::FileSystem* system_;
  accModes mode_;
  std::string firstPath_;
  bool open_ = false;
  bool boundMemory_ = false;
  std::uint32_t closings_ = 0;
  std::uint64_t changes_ = 0;
  std::int32_t libType_ = 0;
  std::int32_t fileCount_ = 0;
  zelWriteModes writes_ = writesPlain;
  bool wasInUse_ = false;
  bool hasWritten_ = false;
  bool hasOwnMark_ = false;
  bool hasFailed_ = false;  // an operation on a block, after the first write
  bool isCompleted_ = false;
  std::string target_;  // the first file, a link resolved; empty until it is needed
  // How the journal next to the library changes the files that are open for reading.
  std::unique_ptr<UnfinishedFlush> unfinished_;
  std::unique_ptr<HeldWrites> held_;  // where writes are held back; must outlive the files
  std::array<FileSlot, format::kFileSlots> slots_;
  NodeFile nodeFile_;
  std::atomic<int> viewsAskedFor_ = 0;
  std::atomic<bool> nodeFileAskedFor_ = false;
  std::mutex onDemand_;  // for what a read opens or maps
  ExtentList extents_;
  NodePool nodes_;
  // The state at BeginUndo.
  struct Undo {
    UndoPages pages;
    std::array<State, format::kFileSlots> states;
    ExtentList extents;
  };
  std::unique_ptr<Undo> undo_;
};

}  // namespace zel
