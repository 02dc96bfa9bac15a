#include "desk/change/library_change.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "desk/open/names_library.h"
#include "desk/open/unfinished_change.h"
#include "desk/open/when_free.h"
#include "desk/words/failure.h"

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

// Throws the error of an open that fails.
void CheckIsFile(std::string const& path) {
  std::error_code none;
  fs::file_status const there = fs::status(path, none);
  if (fs::exists(there) && !fs::is_directory(there)) return;
  ThrowOpenError(fs::exists(there) ? zel::openDenied : zel::openNotFound, path);
}

// Bit n is set if file n exists.
int FilesOf(std::string const& first) {
  int files = 0;
  for (int number = 1; number <= kMostFiles; ++number) {
    if (fs::exists(FileOf(first, number))) files |= 1 << number;
  }
  return files;
}

}  // namespace

LibraryChange::LibraryChange(Session& session, std::string const& path,
                             ChangeOptions const& options)
    : session_(&session) {
  WhenFree(session, [&] { Begin(path, options); });
}

void LibraryChange::Begin(std::string const& path, ChangeOptions const& options) {
  original_.reset();
  FinishChange(path);
  knewNames_ = ReleaseNames(*session_, path) || knewNames_;
  CheckIsFile(path);
  shown_ = path;
  whole_ = WithoutLinks(path);
  if (!options.inPlace) original_ = FileLock::Take(whole_, path);
  access_ = AccessOf(whole_);
  filesBefore_ = FilesOf(whole_);
  if (!options.inPlace) Copy();
  OpenForUpdate(options);
  if (knewNames_) zel::LibFile::SetOrdwinNameIndex(&library_->File());
}

void LibraryChange::Copy() {
  work_ = std::make_unique<WorkFolder>(whole_, shown_);
  work_->Share(access_);
  try {
    for (int number = 1; number <= kMostFiles; ++number) {
      std::string const from = FileOf(whole_, number);
      if (fs::exists(from)) CopyWithHoles(from, FileOf(work_->First(), number));
    }
  } catch (fs::filesystem_error const& error) {
    if (error.code() == std::errc::not_enough_memory) throw;
    throw Failure(shown_ + ": cannot be copied: " + error.code().message());
  }
}

// A library without a password refuses every password.
void LibraryChange::OpenForUpdate(ChangeOptions const& options) {
  std::string const path = work_ ? work_->First() : shown_;
  try {
    library_ = Library::OpenUpdate(*session_, path, options.password, shown_);
    return;
  } catch (Error const&) {
    if (options.password.empty()) throw;
    try {
      library_ = Library::OpenUpdate(*session_, path, "", shown_);
    } catch (Error const&) {
      // It has one, or cannot be opened at all.
    }
    if (!library_) throw;
  }
  if (!options.passwordIsGeneral) {
    throw Failure(shown_ + ": has no password; omit --password");
  }
}

LibraryChange LibraryChange::New(Session& session, std::string const& path,
                                 NewLibrary const& made) {
  FinishChange(path);
  ReleaseNames(session, path);
  if (made.replace && fs::exists(path)) {
    // It must be a library, and one that may be changed; opening a copy of it checks that.
    LibraryChange const probe(session, path, {made.password, false, false});
  }
  if (!fs::is_directory(fs::absolute(path).parent_path())) {
    throw Failure(path + ": its folder does not exist");
  }
  LibraryChange change(session);
  change.shown_ = path;
  change.whole_ = WithoutLinks(path);
  change.isNew_ = !fs::exists(change.whole_);
  change.allAreNew_ = true;
  if (made.replace && !change.isNew_) {
    change.original_ = WhenFree(session, [&] { return FileLock::Take(change.whole_, path); });
    change.access_ = AccessOf(change.whole_);
  }
  change.work_ = std::make_unique<WorkFolder>(change.whole_, path);
  for (int number = 1; number <= kMostFiles && !made.replace; ++number) {
    std::string const file = FileOf(path, number);
    if (fs::exists(file)) throw Failure(file + ": exists; `zel create --force` replaces it");
  }
  if (change.isNew_) {
    auto const others = ModeOfLibrariesIn(fs::path(change.whole_).parent_path());
    change.access_.mode = others ? *others : ModeOfNewFilesIn(change.work_->Path());
  }
  if (made.mode) change.access_.mode = *made.mode;
  change.work_->Share(change.access_);
  change.library_ = Library::Create(session, made.kind, change.work_->First(), path);
  return change;
}

// A file that replaces another gets the access of that one, and a file that the change has added
// gets that of the first file.
void LibraryChange::GiveFilesAccess() const {
  std::string const first = work_ ? work_->First() : whole_;
  for (int number = 1; number <= kMostFiles; ++number) {
    std::string const file = FileOf(first, number);
    if (!fs::exists(file)) continue;
    bool const hasForerunner = !allAreNew_ && (filesBefore_ & (1 << number)) != 0;
    if (hasForerunner && !work_) continue;
    GiveAccess(file, hasForerunner ? AccessOf(FileOf(whole_, number)) : access_);
  }
}

void LibraryChange::PutInPlace() {
  library_->Close();
  GiveFilesAccess();
  if (work_) work_->PutInPlace(isNew_);
  library_.reset();
}

}  // namespace zel::desk
