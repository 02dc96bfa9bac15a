#include "desk/change/library_change.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "desk/change/last_close.h"
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

LibraryChange::LibraryChange(Session& session, ChangeOptions options)
    : session_(&session), options_(std::move(options)) {
  if (options_.keep < 0) throw WrongUsage("the number of versions to keep is 0 or more");
}

LibraryChange::LibraryChange(Session& session, std::string const& path,
                             ChangeOptions const& options)
    : LibraryChange(session, ChangeOptions(options)) {
  WhenFree(session, [&] { Begin(path); });
}

void LibraryChange::Begin(std::string const& path) {
  work_.reset();
  original_.reset();
  FinishChange(path);
  knewNames_ = ReleaseNames(*session_, path) || knewNames_;
  shown_ = path;
  whole_ = WithoutLinks(path);
  // Of a library whose first file is gone, a version of its history can still take the place.
  std::vector<Version> versions;
  if (options_.replacesAll && !Exists(whole_)) versions = VersionsOf(whole_);
  isNew_ = !versions.empty();
  if (!isNew_) {
    CheckIsFile(path);
    CompleteLastFlush(whole_, path, false);
  }
  if (!options_.inPlace || options_.dryRun) Hold();
  // Another host may have been killed in between. Where there may be readers, its flush counts as a
  // use of the library, so that all of this is tried again.
  if (work_ && !options_.admitsReaders && !isNew_) CompleteLastFlush(whole_, path, true);
  bool const isReadBefore = work_ && options_.admitsReaders && !options_.replacesAll;
  if (isReadBefore && HasUnfinishedFlush(*session_, whole_, path)) {
    throw LibraryInUse(path, "a flush of another program was cut off", zel::openDenied);
  }
  access_ = AccessOf(isNew_ ? versions.back().first.string() : whole_);
  filesBefore_ = FilesOf(whole_);
  if (work_) {
    work_->Share(access_);
    Copy(whole_);
  }
  JudgeLastClose();
  OpenForUpdate();
  if (knewNames_ && library_) zel::LibFile::SetOrdwinNameIndex(&library_->File());
}

// The lock of the work folder excludes other changes, so that only one of them waits for readers.
// A change that has to wait for another one holds no lock meanwhile, which would be in the way of
// that one.
void LibraryChange::Hold() {
  auto const refuseIf = [&](bool isInUse) {
    if (isInUse) throw LibraryInUse(shown_, "another program has it open", zel::openDenied);
  };
  refuseIf(IsAtWork(NewFolder(whole_)) || IsAtWork(ReadyFolder(whole_)));
  std::optional<FileLock> original;
  if (!isNew_ && options_.admitsReaders) {
    original = FileLock::Share(whole_, shown_);
    // Without patience, the work is not begun while there is a reader, which would make it fail at
    // its end.
    refuseIf(session_->patience.count() == 0 && original->HasReaders());
  } else if (!isNew_) {
    original = FileLock::Take(whole_, shown_);
  }
  auto work = std::make_unique<WorkFolder>(whole_, shown_);
  // The change before may have made the folder ready to be put in place since the check above.
  refuseIf(IsAtWork(ReadyFolder(whole_)));
  original_ = std::move(original);
  work_ = std::move(work);
}

// Verifies the copy, which is equal to the original and is not locked. An original that is changed
// in place is verified again when it is locked, and then gets its own mark.
void LibraryChange::JudgeLastClose() {
  bool const isOfInterest = options_.verifiesUnclean && !options_.replacesAll;
  if (!isOfInterest || !WasClosedUncleanly(whole_)) return;
  VerifyUnclean(*session_, work_ ? work_->First() : whole_, shown_, !VersionsOf(whole_).empty());
}

void LibraryChange::Copy(std::string const& from) {
  OrFail(shown_, "cannot be copied", [&] {
    for (int number = 1; number <= kMostFiles; ++number) {
      std::string const file = FileOf(from, number);
      if (fs::exists(file)) CopyWithHoles(file, FileOf(work_->First(), number));
    }
  });
}

// A library without a password refuses every password.
void LibraryChange::OpenForUpdate() {
  std::string const path = work_ ? work_->First() : shown_;
  auto const how = work_ ? Library::Update::kCopy : Library::Update::kInPlace;
  try {
    library_ = Library::OpenUpdate(*session_, path, options_.password, shown_, how);
    return;
  } catch (unsigned long) {  // a block error
    if (!options_.replacesAll) throw;
    return;
  } catch (OpenError const& error) {
    bool const isProtected =
        error.Code() == zel::openPasswordNeeded || error.Code() == zel::openBadPassword;
    if (options_.replacesAll && !isProtected) return;
    if (options_.password.empty()) throw;
    try {
      library_ = Library::OpenUpdate(*session_, path, "", shown_, how);
    } catch (Error const&) {
      // The library has a password, or cannot be opened at all.
    }
    if (!library_) throw;
  }
  if (!options_.passwordIsGeneral) {
    throw Failure(shown_ + ": has no password; omit --password");
  }
}

LibraryChange LibraryChange::New(Session& session, std::string const& path, NewLibrary const& made,
                                 ChangeOptions const& options) {
  WhenFree(session, [&] { FinishChange(path); });
  ReleaseNames(session, path);
  if (made.replace && IsThereOrBeingChanged(path)) {
    // The file must be a library, and one that may be changed; opening a copy of it checks that.
    ChangeOptions probed;
    probed.password = options.password;
    probed.admitsReaders = options.admitsReaders;
    probed.verifiesUnclean = false;
    probed.passwordIsGeneral = options.passwordIsGeneral;
    LibraryChange const probe(session, path, probed);
  }
  if (!fs::is_directory(fs::absolute(path).parent_path())) {
    throw Failure(path + ": its folder does not exist");
  }
  LibraryChange change(session, options);
  change.shown_ = path;
  change.whole_ = WithoutLinks(path);
  change.allAreNew_ = true;
  WhenFree(session, [&] {
    change.isNew_ = !made.replace || !IsThereOrBeingChanged(change.whole_);
    change.Hold();
  });
  if (!change.isNew_) change.access_ = AccessOf(change.whole_);
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

void LibraryChange::Restore(Version const& version) {
  library_.reset();
  for (int number = 1; number <= kMostFiles; ++number) {
    fs::remove(FileOf(work_->First(), number));
  }
  Copy(version.first.string());
  // The version must be a library.
  Library::OpenRead(*session_, work_->First(), version.first.string());
  undoes_ = version.number;
}

// Returns nothing for a change that keeps no version.
std::optional<ChangeRecord> LibraryChange::Record() const {
  if (!work_ || isNew_ || options_.keep <= 0) return std::nullopt;
  ChangeRecord record;
  record.command = session_->command;
  record.time = TimeNow();
  record.undoes = undoes_;
  // An undo must not push out the versions to which the next undos go back.
  record.keep = undoes_ == 0 ? options_.keep : 2 * options_.keep;
  OrFail(shown_, "cannot be read", [&] {
    record.before = DigestOfLibrary(whole_);
    record.after = DigestOfLibrary(work_->First());
  });
  return record;
}

void LibraryChange::KeepReadersOut() {
  if (!options_.admitsReaders || !original_) return;
  WhenFree(*session_, [&] { original_->KeepReadersOut(shown_); });
}

void LibraryChange::PutInPlace() {
  if (library_) library_->Close();
  GiveFilesAccess();
  if (work_) {
    // The text is made before the change, since memory may run out after it.
    constexpr std::size_t kLongestReason = 200;
    std::string note = shown_ + ": the change is in place, but what it replaced is not kept: ";
    note.reserve(note.size() + kLongestReason);
    work_->Prepare(isNew_, Record());
    KeepReadersOut();
    work_->PutInPlace(isNew_);
    original_.reset();  // of a file that is now in the history
    std::string const why = work_->KeepOld();
    if (!why.empty()) session_->Note(note.append(why, 0, kLongestReason));
    if (options_.keep <= 0) RemoveHistory(whole_);
  }
  library_.reset();
}

}  // namespace zel::desk
