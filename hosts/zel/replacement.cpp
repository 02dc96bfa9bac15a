#include "replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "command.h"
#include "failure.h"

namespace zelhost {

namespace fs = std::filesystem;

namespace {

constexpr char kLockName[] = "lock";
constexpr char kOldName[] = "old";
constexpr char kDropName[] = "drop";  // with a number behind: a file that the new library has not
constexpr int kFiles = 9;

// Folders beside the library.
fs::path Beside(fs::path const& library, char const* ending) {
  return library.parent_path() / ("." + library.filename().string() + ending);
}
fs::path NewFolder(fs::path const& library) { return Beside(library, ".zel-new"); }
fs::path ReadyFolder(fs::path const& library) { return Beside(library, ".zel-ready"); }

std::string FileOf(std::string path, int number) {
  if (!path.empty()) path.back() = static_cast<char>('0' + number);
  return path;
}

// What std::filesystem refuses, in the words of this program.
template <typename Work>
void OrFail(std::string const& path, char const* what, Work const& work) {
  try {
    work();
  } catch (fs::filesystem_error const& error) {
    throw Failure(path + ": " + what + ": " + error.code().message());
  }
}

void SyncFolder(fs::path const& folder) {
  int const descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

bool MakeEmptyFile(fs::path const& path) {
  int const descriptor = open(path.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
  if (descriptor < 0) return false;
  close(descriptor);
  return true;
}

// The lock goes last: a folder without it has nothing more in it that counts.
void RemoveFolder(fs::path const& folder) {
  for (auto const& entry : fs::directory_iterator(folder)) {
    if (entry.path().filename() != kLockName) fs::remove_all(entry.path());
  }
  std::error_code ignored;  // another finisher may have come in between
  fs::remove(folder / kLockName, ignored);
  fs::remove(folder, ignored);
}

// Every step may have been done by one that was cut off.
void MoveIntoPlace(std::string const& path) {
  fs::path const ready = ReadyFolder(path);
  std::string const first = (ready / fs::path(path).filename()).string();
  if (fs::exists(first)) {
    if (fs::exists(path)) fs::rename(path, ready / kOldName);
    for (int number = 2; number <= kFiles; ++number) {
      std::string const from = FileOf(first, number);
      if (fs::exists(ready / (kDropName + std::to_string(number)))) {
        fs::remove(FileOf(path, number));
      } else if (fs::exists(from)) {
        fs::rename(from, FileOf(path, number));
      }
    }
    fs::rename(first, path);
    SyncFolder(fs::path(path).parent_path());
  }
  if (!fs::exists(path)) throw Failure(path + ": its first file is lost; see " + ready.string());
  RemoveFolder(ready);
}

// Owner and group stay where this user may give files to them; the mode always does.
void CopyWithOwner(std::string const& from, std::string const& to) {
  fs::copy_file(from, to);
  struct stat info = {};
  if (stat(from.c_str(), &info) != 0 || chown(to.c_str(), info.st_uid, info.st_gid) != 0) return;
  chmod(to.c_str(), info.st_mode);  // which a change of the owner may have cut
}

// Two programs that make a library of one name must not take each other's folder for one left over.
FileLock MakeLockedFolder(fs::path const& folder, std::string const& shownAs) {
  FolderTurn const turn(folder.parent_path().string());
  fs::path const lock = folder / kLockName;
  if (fs::exists(lock)) FileLock::Take(lock.string(), shownAs);
  OrFail(shownAs, "no room for a copy beside it", [&] {
    fs::remove_all(folder);
    fs::create_directory(folder);
  });
  if (!MakeEmptyFile(lock)) throw Failure(shownAs + ": no room for a copy beside it");
  return FileLock::Take(lock.string(), shownAs);
}

// What a killed command left of its work.
void RemoveLeftOver(fs::path const& folder) {
  std::error_code ignored;
  if (!fs::is_directory(folder, ignored)) return;
  try {
    FolderTurn const turn(folder.parent_path().string(), FolderTurn::Patience::kNone);
    if (!turn) return;
    if (fs::exists(folder / kLockName)) FileLock::Take((folder / kLockName).string(), "");
    fs::remove_all(folder, ignored);
  } catch (Failure const&) {
    // Somebody is at work in it.
  }
}

void CheckPassword(Library const& library, std::string const& password) {
  std::int32_t level = 0;
  char none[101] = {};
  library.File().GetPassword(level, none);
  if (level == 0 && !password.empty() && std::getenv("ZEL_PASSWORD") == nullptr) {
    throw Failure(library.Path() + ": has no password; leave --password out");
  }
}

}  // namespace

void AddChangeOptions(Command& command, ChangeOptions& options) {
  if (char const* const password = std::getenv("ZEL_PASSWORD")) options.password = password;
  command.Option("--password", options.password, "of a protected library", "TEXT")
      .Flag("--in-place", options.inPlace, "no copy: faster, but a failure leaves it half changed");
}

WorkFolder::WorkFolder(std::string const& library, std::string const& shownAs)
    : library_(library),
      folder_(NewFolder(library).string()),
      lock_(MakeLockedFolder(folder_, shownAs)) {}

WorkFolder::~WorkFolder() {
  std::error_code ignored;
  if (!folder_.empty()) fs::remove_all(folder_, ignored);
}

std::string WorkFolder::First() const {
  return (fs::path(folder_) / fs::path(library_).filename()).string();
}

void WorkFolder::PutInPlace(bool isNew) {
  OrFail(library_, "the changed library cannot be put in place", [&] {
    for (int number = 2; number <= kFiles; ++number) {
      if (fs::exists(FileOf(library_, number)) && !fs::exists(FileOf(First(), number))) {
        MakeEmptyFile(fs::path(folder_) / (kDropName + std::to_string(number)));
      }
    }
    SyncFolder(folder_);
    {
      FolderTurn const turn(fs::path(library_).parent_path().string());
      if (fs::exists(ReadyFolder(library_)) || (isNew && fs::exists(library_))) {
        throw Failure(library_ + ": another program has made it meanwhile");
      }
      fs::rename(folder_, ReadyFolder(library_));
    }
    folder_.clear();
    SyncFolder(fs::path(library_).parent_path());
    MoveIntoPlace(library_);
  });
}

LibraryChange::LibraryChange(std::string const& path, ChangeOptions const& options) {
  FinishChange(path);
  bool const knewNames = ReleaseNames(path);
  // What the library says of a path that cannot be opened is told in its words.
  CheckPassword(Library::OpenRead(path), options.password);
  OpenCopy(path, options);
  if (knewNames) zel::LibFile::SetOrdwinNameIndex(&library_->File());
}

void LibraryChange::OpenCopy(std::string const& path, ChangeOptions const& options) {
  if (options.inPlace) {
    library_ = Library::OpenUpdate(path, options.password);
    return;
  }
  std::string whole;  // without symbolic links
  OrFail(path, "cannot be found", [&] { whole = fs::canonical(path).string(); });
  original_ = FileLock::Take(whole, path);
  work_ = std::make_unique<WorkFolder>(whole, path);
  OrFail(path, "cannot be copied", [&] {
    for (int number = 1; number <= kFiles; ++number) {
      std::string const from = FileOf(whole, number);
      if (fs::exists(from)) CopyWithOwner(from, FileOf(work_->First(), number));
    }
  });
  library_ = Library::OpenUpdate(work_->First(), options.password, path);
}

LibraryChange LibraryChange::New(std::string const& path, zel::libTypes kind, bool replace,
                                 std::string const& password) {
  FinishChange(path);
  ReleaseNames(path);
  if (replace && fs::exists(path)) {
    // It must be a library, and one that may be changed; a copy of it tells.
    LibraryChange const probe(path, {password, false});
  }
  fs::path whole = fs::absolute(path);
  if (!fs::is_directory(whole.parent_path())) throw Failure(path + ": its folder is not there");
  whole = fs::weakly_canonical(whole);
  LibraryChange change;
  change.isNew_ = !fs::exists(whole);
  if (replace && fs::exists(whole)) change.original_ = FileLock::Take(whole.string(), path);
  change.work_ = std::make_unique<WorkFolder>(whole.string(), path);
  for (int number = 1; number <= kFiles && !replace; ++number) {
    std::string const file = FileOf(path, number);
    if (fs::exists(file)) throw Failure(file + ": exists; `zel create --force` replaces it");
  }
  change.library_ = Library::Create(kind, change.work_->First(), path);
  return change;
}

void LibraryChange::PutInPlace() {
  library_->Close();
  if (work_) work_->PutInPlace(isNew_);
  library_.reset();
}

bool IsBeingChanged(std::string const& path) {
  std::error_code none;
  return fs::exists(ReadyFolder(fs::weakly_canonical(fs::absolute(path), none)), none);
}

void FinishChange(std::string const& path) {
  std::error_code none;
  // Resolved as far as it goes: the first file may be away.
  fs::path const whole = fs::weakly_canonical(fs::absolute(path), none);
  if (none) return;
  fs::path const ready = ReadyFolder(whole);
  RemoveLeftOver(NewFolder(whole));
  if (!fs::is_directory(ready, none)) return;
  // Without a lock it is nearly removed, or came from a copy that left empty files out.
  if (!fs::exists(ready / kLockName, none) && !MakeEmptyFile(ready / kLockName)) return;
  try {
    FileLock const lock = FileLock::Take((ready / kLockName).string(), path);
    OrFail(path, "a change that was cut off cannot be finished",
           [&] { MoveIntoPlace(whole.string()); });
  } catch (Failure const&) {
    if (fs::is_directory(ready, none)) throw;
    // Another program has just finished it.
  }
}

}  // namespace zelhost
