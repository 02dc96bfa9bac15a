#include "work_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <new>
#include <system_error>

#include "failure.h"
#include "folder.h"

namespace zelhost {

namespace fs = std::filesystem;

namespace {

constexpr char kLockName[] = "lock";
constexpr char kOldName[] = "old";  // with the number of the file for all but the first
constexpr char kAddName[] = "add";  // with the number of a file that the old library has not
constexpr char kNoRoom[] = "no room for a copy beside it";
constexpr char kNotInPlace[] = "the changed library cannot be put in place";

fs::path Beside(fs::path const& library, char const* ending) {
  return library.parent_path() / ("." + library.filename().string() + ending);
}
fs::path NewFolder(fs::path const& library) { return Beside(library, ".zel-new"); }
fs::path ReadyFolder(fs::path const& library) { return Beside(library, ".zel-ready"); }

// Links count as there, whatever they lead to. What this user may not look at does not, nor what
// can have no such name. Any other failure is not an answer: a file taken for missing would be left
// out.
bool Exists(fs::path const& path) {
  std::error_code error;
  fs::file_status const status = fs::symlink_status(path, error);
  if (!error || status.type() == fs::file_type::not_found) return fs::exists(status);
  if (error == std::errc::permission_denied || error == std::errc::filename_too_long) return false;
  throw fs::filesystem_error("", path, error);
}

// What std::filesystem refuses, in the words of this program.
template <typename Work>
void OrFail(std::string const& path, char const* what, Work const& work) {
  try {
    work();
  } catch (fs::filesystem_error const& error) {
    if (error.code() == std::errc::not_enough_memory) throw;
    throw Failure(path + ": " + what + ": " + error.code().message());
  }
}

// The lock goes last: a folder without it has nothing more in it that counts. What cannot be
// removed now is tried again by the next command.
void RemoveFolder(fs::path const& folder) noexcept {
  try {
    std::error_code ignored;
    for (std::string const& name : NamesIn(folder, ignored)) {
      if (name != kLockName) RemoveTree(folder / name, ignored);
    }
    fs::remove(folder / kLockName, ignored);
    fs::remove(folder, ignored);
  } catch (std::bad_alloc const&) {
    // The next command has more memory.
  }
}

// Never over a file that is there, as far as the file system can tell.
void MoveToFreePlace(fs::path const& from, fs::path const& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return;
  bool const isKnown = errno != EINVAL && errno != ENOSYS;
  if (!isKnown && !Exists(to)) return fs::rename(from, to);
  if (!isKnown) errno = EEXIST;
  throw fs::filesystem_error("", to, std::error_code(errno, std::generic_category()));
}

// The files of one change, by number; the first has the number 1.
class Move {
 public:
  explicit Move(std::string library)
      : library_(std::move(library)),
        ready_(ReadyFolder(library_)),
        first_((ready_ / fs::path(library_).filename()).string()) {}

  fs::path Place(int number) const { return FileOf(library_, number); }
  fs::path New(int number) const { return FileOf(first_, number); }
  fs::path Old(int number) const {
    return ready_ / (kOldName + (number == 1 ? std::string() : std::to_string(number)));
  }
  fs::path Added(int number) const { return ready_ / (kAddName + std::to_string(number)); }
  fs::path const& Ready() const { return ready_; }
  fs::path Folder() const { return fs::path(library_).parent_path(); }

  void IntoPlace(bool isNew) const {
    if (!isNew) fs::rename(Place(1), Old(1));
    for (int number = 2; number <= kMostFiles; ++number) {
      if (Exists(Place(number))) fs::rename(Place(number), Old(number));
      if (Exists(New(number))) MoveToFreePlace(New(number), Place(number));
    }
    SyncPath(Ready());
    SyncPath(Folder());
    MoveToFreePlace(New(1), Place(1));
  }

  // Each step may have been done by one that was cut off too.
  void Back() const {
    for (int number = 2; number <= kMostFiles; ++number) {
      if (Exists(Old(number))) {
        fs::rename(Old(number), Place(number));
      } else if (Exists(Added(number)) && !Exists(New(number))) {
        fs::remove(Place(number));
      }
    }
    SyncPath(Folder());
    if (Exists(Old(1))) MoveToFreePlace(Old(1), Place(1));
    SyncPath(Folder());
  }

  // All is in place: nothing that fails now undoes the change or makes a failure of it.
  void Settle() const noexcept {
    try {
      SyncPath(Folder());
    } catch (std::bad_alloc const&) {
      // Then it is on disk when the system puts it there.
    }
    RemoveFolder(Ready());
  }

 private:
  std::string library_;
  fs::path ready_;
  std::string first_;
};

// What a ready folder is, from the files that are in it and in place.
enum class Found {
  kLeftOver,  // nothing was moved yet, or all was: only the folder has to go
  kCutOff,    // the first file is away
  kTaken,     // the first file was moved away, and somebody has made another one since
  kLost       // all was moved, and the first file is not there any more
};

Found Look(Move const& move) {
  bool const isThere = Exists(move.Place(1));
  bool const isOld = Exists(move.Old(1));
  bool const isNew = Exists(move.New(1));
  if (isThere) return isOld && isNew ? Found::kTaken : Found::kLeftOver;
  if (isNew) return Found::kCutOff;
  return isOld ? Found::kLost : Found::kLeftOver;
}

// A folder that a stranger put in the place of one of ours is not looked into: a link, or, where
// anybody may make files but not touch those of others, one that is not of this user or of the
// library's owner.
bool IsOurs(fs::path const& folder, fs::path const& library) {
  struct stat info = {};
  struct stat around = {};
  struct stat there = {};
  if (::lstat(folder.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) return false;
  if (::stat(folder.parent_path().c_str(), &around) != 0) return false;
  if ((around.st_mode & S_ISVTX) == 0 || info.st_uid == ::geteuid()) return true;
  return ::lstat(library.c_str(), &there) == 0 && info.st_uid == there.st_uid;
}

// Two programs that make a library of one name must not take each other's folder for one left over.
FileLock MakeLockedFolder(fs::path const& folder, std::string const& shownAs) {
  FolderTurn const turn(folder.parent_path().string());
  fs::path const lock = folder / kLockName;
  if (Exists(lock)) FileLock::Take(lock.string(), shownAs);
  OrFail(shownAs, kNoRoom, [&] {
    RemoveTree(folder);
    // Only what is made here and now is worked in, whatever a stranger has put in the place.
    if (::mkdir(folder.c_str(), S_IRWXU) != 0) {
      throw fs::filesystem_error("", folder, std::error_code(errno, std::generic_category()));
    }
    MakeMark(lock);
  });
  return FileLock::Take(lock.string(), shownAs);
}

// What a killed command left of its work.
void RemoveLeftOver(fs::path const& folder, fs::path const& library) {
  if (!IsOurs(folder, library)) return;
  try {
    FolderTurn const turn(folder.parent_path().string(), FolderTurn::Patience::kNone);
    if (!turn) return;
    if (Exists(folder / kLockName)) FileLock::Take((folder / kLockName).string(), "");
    RemoveFolder(folder);
  } catch (Failure const&) {
    // Somebody is at work in it.
  } catch (fs::filesystem_error const& error) {
    // What cannot be looked at now is tried again by the next command.
    if (error.code() == std::errc::not_enough_memory) throw;
  }
}

void Finish(std::string const& shownAs, Move const& move) {
  std::string const folder = move.Ready().string();
  Found found = Found::kLeftOver;
  OrFail(shownAs, "what a change left cannot be looked at", [&] { found = Look(move); });
  switch (found) {
    case Found::kTaken:
      throw Failure(shownAs + ": another program made it while a change was cut off; the library " +
                    "before and after the change is in " + folder + ". Move or remove that folder");
    case Found::kLost: throw Failure(shownAs + ": its first file is lost; see " + folder);
    case Found::kCutOff:
      OrFail(shownAs, "what a change that was cut off moved away cannot be put back",
             [&] { move.Back(); });
      break;
    case Found::kLeftOver: break;
  }
  RemoveFolder(move.Ready());
}

}  // namespace

std::string FileOf(std::string first, int number) {
  if (!first.empty()) first.back() = static_cast<char>('0' + number);
  return first;
}

std::string WithoutLinks(std::string const& path) {
  constexpr int kMostLinks = 40;
  fs::path whole = fs::absolute(path);
  for (int i = 0; fs::is_symlink(fs::symlink_status(whole)); ++i) {
    if (i == kMostLinks) {
      throw fs::filesystem_error("", path,
                                 std::make_error_code(std::errc::too_many_symbolic_link_levels));
    }
    whole = whole.parent_path() / fs::read_symlink(whole);
  }
  return (fs::canonical(whole.parent_path()) / whole.filename()).string();
}

WorkFolder::WorkFolder(std::string const& library, std::string const& shownAs)
    : library_(library),
      shownAs_(shownAs),
      folder_(NewFolder(library).string()),
      lock_(MakeLockedFolder(folder_, shownAs)) {}

WorkFolder::~WorkFolder() {
  if (!folder_.empty()) RemoveFolder(folder_);
}

std::string WorkFolder::First() const {
  return (fs::path(folder_) / fs::path(library_).filename()).string();
}

void WorkFolder::Share(FileAccess const& access) const {
  constexpr mode_t kRead = 0444;
  OrFail(shownAs_, kNoRoom, [&] {
    GiveAccess(fs::path(folder_) / kLockName, {access.mode | S_IRUSR | S_IWUSR, access.owner});
    GiveAccess(folder_, {access.mode | ((access.mode & kRead) >> 2) | S_IRWXU, access.owner});
  });
}

// All is on disk before anything is moved.
void WorkFolder::Prepare(bool isNew) {
  for (int number = 1; number <= kMostFiles; ++number) {
    std::string const file = FileOf(First(), number);
    if (!Exists(file)) continue;
    SyncPath(file);
    if (number > 1 && !Exists(FileOf(library_, number))) {
      MakeMark(fs::path(folder_) / (kAddName + std::to_string(number)));
    }
  }
  SyncPath(folder_);
  FolderTurn const turn(fs::path(library_).parent_path().string());
  fs::path const ready = ReadyFolder(library_);
  if (Exists(ready) && !IsOurs(ready, library_)) {
    throw Failure(shownAs_ + ": " + ready.string() + " is in the way; remove it");
  }
  if (Exists(ready) || (isNew && Exists(library_))) {
    throw Failure(shownAs_ + ": another program has made it meanwhile");
  }
  fs::rename(folder_, ready);
  folder_ = ready.string();
  SyncPath(ready.parent_path());
}

void WorkFolder::PutInPlace(bool isNew) {
  OrFail(shownAs_, kNotInPlace, [&] { Prepare(isNew); });
  Move const move(library_);
  folder_.clear();
  try {
    OrFail(shownAs_, kNotInPlace, [&] { move.IntoPlace(isNew); });
  } catch (Failure const& failure) {
    try {
      Finish(shownAs_, move);
    } catch (Failure const& again) {
      throw Failure(failure.what() + std::string("; ") + again.what());
    }
    throw;
  } catch (...) {
    Finish(shownAs_, move);
    throw;
  }
  move.Settle();
}

bool IsBeingChanged(std::string const& path) {
  try {
    return Exists(ReadyFolder(WithoutLinks(path)));
  } catch (fs::filesystem_error const&) {
    return false;
  }
}

void FinishChange(std::string const& path) {
  std::string whole;
  try {
    whole = WithoutLinks(path);
  } catch (fs::filesystem_error const& error) {
    if (error.code() == std::errc::not_enough_memory || path.empty()) throw;
    return;  // there is no such folder
  }
  Move const move(whole);
  RemoveLeftOver(NewFolder(whole), whole);
  if (!IsOurs(move.Ready(), whole)) return;
  std::string const lock = (move.Ready() / kLockName).string();
  try {
    // Without a lock it is nearly removed, or came from a copy that left the lock out.
    if (!Exists(lock)) MakeMark(lock);
    FileLock const held = FileLock::Take(lock, path);
    Finish(path, move);
  } catch (fs::filesystem_error const&) {
    if (Exists(lock) || Look(move) == Found::kLeftOver) return;
    throw;
  } catch (Failure const&) {
    // Another program may have just finished it, and who may only read needs no more than that the
    // library is whole.
    if (!IsOurs(move.Ready(), whole) || Look(move) == Found::kLeftOver) return;
    throw;
  }
}

}  // namespace zelhost
