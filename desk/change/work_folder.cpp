#include "desk/change/work_folder.h"

#include <filesystem>
#include <new>
#include <system_error>

#include "desk/files/folder.h"
#include "desk/files/system.h"
#include "desk/open/change_places.h"
#include "desk/open/unfinished_change.h"
#include "desk/words/failure.h"

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

constexpr char kNoCopy[] = "cannot make a copy next to it";
constexpr char kNotInPlace[] = "the changed library cannot be put in place";

// A folder of that name is not of a library.
bool IsFile(fs::path const& path) {
  return Exists(path) && !fs::is_directory(fs::symlink_status(path));
}

void MoveIntoPlace(ChangePlaces const& change, bool isNew) {
  if (!isNew) Rename(change.Place(1), change.Old(1));
  // They are about the old library, which no program can open any more. Once the new one is in
  // place, files of these names can belong to a program that has opened it.
  for (char const* ending : kCloseEndings) {
    if (IsFile(change.Close(ending))) Rename(change.Close(ending), change.OldClose(ending));
  }
  for (int number = 2; number <= kMostFiles; ++number) {
    if (Exists(change.Place(number))) Rename(change.Place(number), change.Old(number));
    if (Exists(change.New(number))) MoveToFreePlace(change.New(number), change.Place(number));
  }
  SyncFolder(change.Ready());
  SyncFolder(change.Folder());
  MoveToFreePlace(change.New(1), change.Place(1));
}

// Two programs that make a library of the same name must not take each other's folder for a
// leftover.
WorkLock MakeLockedFolder(fs::path const& folder, std::string const& shownAs) {
  FolderTurn const turn(folder.parent_path().string());
  fs::path const lock = Inside(folder, kLockName);
  if (Exists(lock)) WorkLock::Take(folder, shownAs);
  OrFail(shownAs, kNoCopy, [&] {
    RemoveTree(folder);
    // Only a folder made here and now is used, whatever somebody else has put in its place.
    if (std::error_code const error = MakeOwnFolder(folder)) {
      throw fs::filesystem_error("", folder, error);
    }
    MakeMark(lock);
  });
  return WorkLock::Take(folder, shownAs);
}

}  // namespace

WorkFolder::WorkFolder(std::string const& library, std::string const& shownAs)
    : library_(library),
      places_(library),
      shownAs_(shownAs),
      folder_(NewFolder(library).string()),
      lock_(MakeLockedFolder(folder_, shownAs)) {}

WorkFolder::~WorkFolder() {
  if (folder_.empty()) return;
  try {
    RemoveFolder(folder_);
  } catch (std::bad_alloc const&) {
    // The next change of the library removes it.
  }
}

std::string WorkFolder::First() const {
  return Inside(folder_, fs::path(library_).filename()).string();
}

void WorkFolder::Share(FileAccess const& access) const {
  constexpr FileMode kRead = 0444;
  constexpr FileMode kReadAndWrite = 0600;  // for the owner
  constexpr FileMode kSearch = 0100;
  OrFail(shownAs_, kNoCopy, [&] {
    GiveAccess(Inside(folder_, kLockName), {access.mode | kReadAndWrite, access.owner});
    GiveAccess(folder_, {access.mode | ((access.mode & kRead) >> 2) | kReadAndWrite | kSearch,
                         access.owner});
  });
}

void WorkFolder::Prepare(bool isNew, std::optional<ChangeRecord> const& record) {
  OrFail(shownAs_, kNotInPlace, [&] {
    WriteOut(record);
    Announce(isNew);
  });
}

void WorkFolder::WriteOut(std::optional<ChangeRecord> const& record) const {
  for (int number = 1; number <= kMostFiles; ++number) {
    std::string const file = FileOf(First(), number);
    if (!Exists(file)) continue;
    SyncFile(file);
    if (number > 1 && !Exists(FileOf(library_, number))) {
      MakeMark(Inside(folder_, AddedName(number)));
    }
  }
  if (record) WriteRecord(folder_, *record);
  SyncFolder(folder_);
}

void WorkFolder::Announce(bool isNew) {
  FolderTurn const turn(fs::path(library_).parent_path().string());
  fs::path const ready = ReadyFolder(library_);
  if (Exists(ready) && !IsOurs(ready, library_)) {
    throw Failure(shownAs_ + ": " + ready.string() + " is in the way; remove it");
  }
  if (Exists(ready) || (isNew && Exists(library_))) {
    throw Failure(shownAs_ + ": another program has made it meanwhile");
  }
  Rename(folder_, ready);
  folder_ = ready.string();
  SyncFolder(ready.parent_path());
}

void WorkFolder::PutInPlace(bool isNew) {
  folder_.clear();
  try {
    OrFail(shownAs_, kNotInPlace, [&] { MoveIntoPlace(places_, isNew); });
  } catch (Error const& failure) {
    try {
      FinishMoves(shownAs_, places_);
    } catch (Error const& again) {
      throw Failure(failure.what() + std::string("; ") + again.what());
    }
    throw;
  } catch (...) {
    FinishMoves(shownAs_, places_);
    throw;
  }
}

// Everything is in place: a failure from here on does not undo the change.
std::string WorkFolder::KeepOld() const noexcept {
  try {
    SyncPath(places_.Folder());
  } catch (std::bad_alloc const&) {
    // The system then writes it to disk later.
  }
  return KeepVersion(places_);
}

}  // namespace zel::desk
