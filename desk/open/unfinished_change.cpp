#include "desk/open/unfinished_change.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>

#include "desk/files/file_copy.h"
#include "desk/files/file_lock.h"
#include "desk/files/folder.h"
#include "desk/files/system.h"
#include "desk/open/history.h"
#include "desk/open/when_free.h"
#include "desk/open/work_lock.h"
#include "desk/words/failure.h"

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

// Each step may already have been done by another command that was interrupted as well.
void MoveBack(ChangePlaces const& change) {
  for (int number = 2; number <= kMostFiles; ++number) {
    if (Exists(change.Old(number))) {
      Rename(change.Old(number), change.Place(number));
    } else if (Exists(change.Added(number)) && !Exists(change.New(number))) {
      fs::remove(change.Place(number));
    }
  }
  for (char const* ending : kCloseEndings) {
    if (Exists(change.OldClose(ending))) Rename(change.OldClose(ending), change.Close(ending));
  }
  SyncPath(change.Folder());
  if (Exists(change.Old(1))) MoveToFreePlace(change.Old(1), change.Place(1));
  SyncPath(change.Folder());
}

// The state of a ready folder, from the files in it and in place.
enum class Found {
  kLeftOver,  // nothing was moved yet, or everything was: only the folder is in the way
  kCutOff,    // the first file was moved away
  kTaken,     // the first file was moved away, and another program has made a new one since
  kLost       // everything was moved, and the first file has disappeared since
};

Found Look(ChangePlaces const& change) {
  bool const isThere = Exists(change.Place(1));
  bool const isOld = Exists(change.Old(1));
  bool const isNew = Exists(change.New(1));
  if (isThere) return isOld && isNew ? Found::kTaken : Found::kLeftOver;
  if (isNew) return Found::kCutOff;
  return isOld ? Found::kLost : Found::kLeftOver;
}

// Removes what a killed command left of its work.
void RemoveLeftOver(fs::path const& folder, fs::path const& library) {
  if (!IsOurs(folder, library) || IsAtWork(folder)) return;
  try {
    FolderTurn const turn(folder.parent_path().string(), FolderTurn::Patience::kNone);
    if (!turn) return;
    if (Exists(Inside(folder, kLockName))) WorkLock::Take(folder, "");
    RemoveFolder(folder);
  } catch (Error const&) {
    // Another program is working in it.
  } catch (fs::filesystem_error const& error) {
    // The next command tries again with what cannot be read now.
    if (error.code() == std::errc::not_enough_memory) throw;
  }
}

}  // namespace

void FinishMoves(std::string const& shownAs, ChangePlaces const& change) {
  std::string const folder = change.Ready().string();
  Found found = Found::kLeftOver;
  OrFail(shownAs, "the files of an unfinished change cannot be examined",
         [&] { found = Look(change); });
  switch (found) {
    case Found::kTaken:
      throw Failure(shownAs + ": another program made it after a change was cut off; the library " +
                    "before and after the change is in " + folder + ". Move or remove that folder");
    case Found::kLost: throw Failure(shownAs + ": its first file is lost; see " + folder);
    case Found::kCutOff:
      OrFail(shownAs, "the files of an unfinished change cannot be moved back",
             [&] { MoveBack(change); });
      break;
    case Found::kLeftOver: KeepVersion(change); return;
  }
  RemoveFolder(change.Ready());
}

void FinishChange(std::string const& path) {
  std::string whole;
  try {
    whole = WithoutLinks(path);
  } catch (fs::filesystem_error const& error) {
    if (error.code() == std::errc::not_enough_memory || path.empty()) throw;
    return;  // the folder does not exist
  }
  ChangePlaces const change(whole);
  RemoveLeftOver(NewFolder(whole), whole);
  if (!IsOurs(change.Ready(), whole)) return;
  std::string const lock = Inside(change.Ready(), kLockName).string();
  try {
    // A folder without a lock is almost removed, or it comes from a copy that left out the lock.
    if (!Exists(lock)) MakeMark(lock);
    WorkLock const held = WorkLock::Take(change.Ready(), path);
    FinishMoves(path, change);
  } catch (fs::filesystem_error const&) {
    if (Exists(lock) || Look(change) == Found::kLeftOver) return;
    throw;
  } catch (Error const&) {
    // Another program may have just finished it, and a user who may only read needs no more than
    // that the library is whole.
    if (!IsOurs(change.Ready(), whole) || Look(change) == Found::kLeftOver) return;
    if (!IsAtWork(change.Ready())) throw;
    throw LibraryInUse(path, "is being changed by another program; try again", zel::openNotFound);
  }
}

namespace {

// Readers that keep coming would keep a change waiting for them. A change that waits for one that
// has the library open for long does not keep the others out for long.
void LetChangeGoFirst(Session const& session, std::string const& path) {
  constexpr std::chrono::milliseconds kLongest{2000};
  auto const end = std::chrono::steady_clock::now() +
                   std::min(kLongest, std::max(session.patience, session.patienceAtMoves));
  while (Exists(path) && IsBeingChanged(path) && IsAtWork(ReadyFolder(WithoutLinks(path)))) {
    if (std::chrono::steady_clock::now() >= end) return;
    std::this_thread::sleep_for(kBetweenTries);
  }
}

}  // namespace

Library OpenFinished(Session& session, std::string const& path) {
  OrFail(path, "cannot be examined", [&] { LetChangeGoFirst(session, path); });
  Library library = WhenFree(session, [&] {
    FinishChange(path);
    return Library::OpenRead(session, path);
  });
  zel::ZelLastClose last;
  zel::GetLastClose(&library.File(), last);
  if (last.isMarked && session.IsNewlyNoted(path)) {
    session.Note(path + ": was not closed cleanly; `zel check --structure` finds damage, and a " +
                 "command that changes it checks it first");
  }
  if (last.hasForeignJournal && session.IsNewlyNoted(path)) {
    session.Note(path + ": the journal next to it was written for other files and is not used");
  }
  return library;
}

}  // namespace zel::desk
