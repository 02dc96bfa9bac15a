// How changes get into the files of a library: what is held back, the mark, a flush that was cut
// off, and work that is taken back.
#include <new>
#include <optional>
#include <utility>

#include "store/block_store.h"

namespace zel {

using platform::OpenMode;

std::string const& BlockStore::Target() {
  if (target_.empty()) target_ = system_->Target(firstPath_);
  return target_;
}

// Puts the changes of a journal, or the buffer for held-back writes, in front of a file that was
// just opened.
bool BlockStore::Hold(int number, bool canWrite) {
  FileSlot& slot = Slot(number);
  if (!canWrite && unfinished_ && unfinished_->Of(number) != nullptr) {
    auto file = std::make_unique<HeldFile>(std::move(slot.file), number, nullptr);
    if (!file->Overlay(*unfinished_->Of(number))) return false;
    slot.file = std::move(file);
  }
  if (canWrite && writes_ == writesHeld) {
    if (!held_) held_ = std::make_unique<HeldWrites>(*system_, JournalOf(Target()), Target());
    slot.file = held_->Hold(number, std::move(slot.file));
  }
  return true;
}

openErrors BlockStore::FinishLastFlush(bool forceRead) {
  target_.clear();
  unfinished_.reset();
  isCompleted_ = false;
  while (true) {
    auto unfinished = std::make_unique<UnfinishedFlush>(*system_, firstPath_);
    openErrors error = ErrorOf(unfinished->Look());
    bool const isThere = unfinished->Found() == UnfinishedFlush::State::kThere;
    if (unfinished->Found() == UnfinishedFlush::State::kNone || error != openOk) return error;
    isCompleted_ = isCompleted_ || isThere;
    if (!isThere || mode_ != accUpdate || forceRead) {
      unfinished_ = std::move(unfinished);
      return Hold(1, false) ? openOk : openFailed;
    }
    error = ErrorOf(unfinished->Complete());
    if (error != openOk) return error;
    // Its length may have changed. It is not locked in between, so that another program can have
    // left a journal since.
    CloseFile(1);
    error = OpenFile(1, false, false);
    if (error != openOk) return error;
  }
}

// Removes a journal of other files first, since the files as they are written now could come to fit
// it.
bool BlockStore::BeforeFirstWrite() {
  std::string const journal = JournalOf(Target());
  if (held_ && !held_->Begin()) return false;
  bool const mayHaveJournal = !held_ && system_->IsThere(journal).value_or(true);
  if (mayHaveJournal && !RemoveJournal(*system_, Target())) {
    // A journal that no opener accepts does no harm.
    if (system_->OpenAside(journal, OpenMode::kRead, Target()).file) return false;
  }
  if (writes_ == writesMarked && !SetMark()) return false;
  hasWritten_ = true;
  return true;
}

// The mark of an earlier session stays until the library has been verified.
bool BlockStore::SetMark() {
  std::string const mark = MarkOf(Target());
  if (!hasOwnMark_) {
    std::optional<bool> const isThere = system_->IsThere(mark);
    if (!isThere) return false;
    if (*isThere) return true;
    if (!system_->OpenAside(mark, OpenMode::kCreate, Target()).file) return false;
    hasOwnMark_ = true;
  }
  return system_->SyncFolder(mark);
}

// A failed operation on a block can have left a change half done, although the flush succeeds. If
// memory runs out, the mark stays, too: the next opener verifies the library unnecessarily.
void BlockStore::CloseCleanly() noexcept {
  if (!std::exchange(hasOwnMark_, false) || hasFailed_) return;
  try {
    std::string const mark = MarkOf(Target());
    // Files that were made since are on disk before the mark goes.
    if (system_->SyncFolder(mark)) system_->Remove(mark);
  } catch (std::bad_alloc const&) {
    return;
  }
}

std::optional<ZelLastClose> BlockStore::LastClose() const {
  ZelLastClose state;
  std::optional<bool> const isThere = system_->IsThere(MarkOf(system_->Target(firstPath_)));
  if (!isThere) return std::nullopt;
  state.isMarked = !hasOwnMark_ && *isThere;
  state.isCompleted = isCompleted_;
  state.hasForeignJournal = unfinished_ && unfinished_->Found() == UnfinishedFlush::State::kForeign;
  return state;
}

bool BlockStore::ForgetUncleanClose() {
  bool good = true;
  std::string const mark = MarkOf(Target());
  std::string const journal = JournalOf(Target());
  if (system_->IsThere(mark).value_or(true)) good = system_->Remove(mark);
  bool const isForeign = unfinished_ && unfinished_->Found() == UnfinishedFlush::State::kForeign;
  if (isForeign) {
    good = system_->Remove(journal) && good;
    unfinished_.reset();
  }
  return good;
}

// --- work that can be taken back -------------------------------------------------------------

void BlockStore::BeginUndo() {
  auto undo = std::make_unique<Undo>();
  for (int number = 0; number < format::kFileSlots; ++number) {
    undo->states[static_cast<std::size_t>(number)] = Slot(number).state;
  }
  undo->extents = extents_;
  undo_ = std::move(undo);
}

bool BlockStore::KeepForUndo(BlockAddress const& a, std::size_t bytes) noexcept {
  return !undo_ || undo_->pages.Keep(a.file, *Slot(a.file).file, OffsetOf(a), bytes);
}

bool BlockStore::TakeBack() {
  std::unique_ptr<Undo> const undo = std::move(undo_);
  bool good = true;
  for (int number = 1; undo && number < format::kFileSlots; ++number) {
    FileSlot& slot = Slot(number);
    if (slot.state != kOpen) continue;
    good = undo->pages.TakeBack(number, *slot.file) && good;
    State const before = undo->states[static_cast<std::size_t>(number)];
    if (before != kAbsent) continue;
    bool const isNew = slot.file->Size() == 0;
    CloseFile(number);
    slot.state = before;
    if (isNew) good = system_->Remove(PathOf(number)) && good;
  }
  if (undo) extents_ = undo->extents;
  ++changes_;
  return good;
}

}  // namespace zel
