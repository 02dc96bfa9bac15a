// A flush that was cut off after its journal was on disk: what the next opener does about it.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>

#include "frame/platform/block_file.h"
#include "store/format.h"
#include "store/journal.h"

namespace zel {

// The paths of the files next to a library, whose first file is at that path, a link resolved.
std::string JournalOf(std::string const& library);
std::string MarkOf(std::string const& library);
// Removes the journal next to a library, whose first file is at that path, a link resolved. Where
// that is impossible it is made empty, so that it never completes anything again. False on failure.
bool RemoveJournal(platform::FileSystem& system, std::string const& library);
// The path of a file of the library whose first file is `first`.
std::string FileOfLibrary(std::string first, int number);

// The journal next to a library, as its opener finds it. The first file must be locked.
class UnfinishedFlush {
 public:
  enum class State {
    kNone,     // no journal, or one without a whole commit: the last flush is whole
    kForeign,  // a journal that was written for other files
    kThere     // the journal completes the files
  };

  // `first` is the library's path.
  UnfinishedFlush(platform::FileSystem& system, std::string first);

  // Reads the journal and compares it with the files. Changes nothing.
  platform::OpenOutcome Look();
  State Found() const noexcept { return state_; }
  // How the journal changes a file; null if it does not.
  JournaledFile const* Of(int number) const noexcept {
    return state_ == State::kThere ? journal_->Of(number) : nullptr;
  }
  // Completes the files on disk and removes the journal. May be repeated after a failure.
  platform::OpenOutcome Complete();

 private:
  platform::OpenedFile OpenFile(int number, platform::OpenMode mode) const;

  platform::FileSystem* system_;
  std::string first_;
  std::string library_;  // the same, a link resolved
  State state_ = State::kNone;
  std::optional<Journal> journal_;
};

}  // namespace zel
