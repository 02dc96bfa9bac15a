#include "store/unfinished_flush.h"

#include <optional>
#include <utility>

namespace zel {

using platform::OpenMode;
using platform::OpenOutcome;

std::string JournalOf(std::string const& library) { return library + ".journal"; }

std::string MarkOf(std::string const& library) { return library + ".open"; }

std::string FileOfLibrary(std::string first, int number) {
  if (!first.empty()) first.back() = "0123456789"[number];
  return first;
}

bool RemoveJournal(platform::FileSystem& system, std::string const& library) {
  std::string const path = JournalOf(library);
  if (system.Remove(path)) return system.SyncFolder(path);
  platform::OpenedFile const opened = system.OpenAside(path, OpenMode::kUpdate, library);
  return opened.file && opened.file->CutTo(0) && opened.file->Flush();
}

UnfinishedFlush::UnfinishedFlush(platform::FileSystem& system, std::string first)
    : system_(&system), first_(std::move(first)), library_(system.Target(first_)) {}

// Opens without a lock: the one on the first file covers all files.
platform::OpenedFile UnfinishedFlush::OpenFile(int number, OpenMode mode) const {
  std::string const path = system_->Target(FileOfLibrary(first_, number));
  return system_->OpenAside(path, mode, path);
}

OpenOutcome UnfinishedFlush::Look() {
  state_ = State::kNone;
  std::string const path = JournalOf(library_);
  platform::OpenedFile const opened = system_->OpenAside(path, OpenMode::kRead, library_);
  if (opened.outcome == OpenOutcome::kNotFound) {
    std::optional<bool> const isThere = system_->IsThere(path);
    if (!isThere) return OpenOutcome::kFailed;
    // If something exists at the path all the same, it is a link, for example.
    if (*isThere) state_ = State::kForeign;
    return OpenOutcome::kOk;
  }
  if (!opened.file) return opened.outcome;
  bool failed = false;
  journal_ = Journal::Read(*opened.file, failed);
  if (failed) return OpenOutcome::kFailed;
  if (!journal_) return OpenOutcome::kOk;
  for (int number = 1; number <= format::kMaxFiles; ++number) {
    JournaledFile const* const of = journal_->Of(number);
    if (of == nullptr) continue;
    platform::OpenedFile const file = OpenFile(number, OpenMode::kRead);
    if (!file.file && file.outcome != OpenOutcome::kNotFound) return file.outcome;
    bool const fits = Journal::Fits(*of, file.file.get(), failed);
    if (failed) return OpenOutcome::kFailed;
    if (fits) continue;
    state_ = State::kForeign;
    return OpenOutcome::kOk;
  }
  state_ = State::kThere;
  return OpenOutcome::kOk;
}

OpenOutcome UnfinishedFlush::Complete() {
  for (int number = 1; number <= format::kMaxFiles; ++number) {
    JournaledFile const* const of = Of(number);
    if (of == nullptr) continue;
    platform::OpenedFile const file = OpenFile(number, OpenMode::kCreate);
    if (!file.file) return file.outcome;
    if (!Journal::Complete(*of, *file.file) || !file.file->Flush()) return OpenOutcome::kFailed;
  }
  // A new file must exist after a power cut once the journal is gone.
  if (!system_->SyncFolder(JournalOf(library_)) || !RemoveJournal(*system_, library_))
    return OpenOutcome::kFailed;
  state_ = State::kNone;
  return OpenOutcome::kOk;
}

}  // namespace zel
