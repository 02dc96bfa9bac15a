#include "replacement.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

#include "command.h"
#include "failure.h"

namespace zelhost {

namespace fs = std::filesystem;

namespace {

constexpr char kLockName[] = "lock";
constexpr char kOldName[] = "old";
constexpr int kFiles = 9;

// Folders beside the library.
std::string Beside(fs::path const& library, char const* ending) {
  return (library.parent_path() / ("." + library.stem().string() + ending)).string();
}
std::string NewFolder(fs::path const& library) { return Beside(library, ".zel-new"); }
std::string ReadyFolder(fs::path const& library) { return Beside(library, ".zel-ready"); }

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

fs::path FolderOf(fs::path const& path) {
  return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

// Every step may have been done by one that was cut off.
void MoveIntoPlace(std::string const& path) {
  fs::path const ready = ReadyFolder(path);
  fs::path const name = fs::path(path).filename();
  std::string const first = (ready / name).string();
  if (fs::exists(first)) {
    if (fs::exists(path)) fs::rename(path, ready / kOldName);
    for (int number = 2; number <= kFiles; ++number) {
      std::string const from = FileOf(first, number);
      if (fs::exists(from)) fs::rename(from, FileOf(path, number));
    }
    fs::rename(first, path);
    SyncFolder(FolderOf(path));
  }
  fs::remove_all(ready);
}

FileLock MakeWorkFolder(std::string const& folder, std::string const& path) {
  OrFail(path, "no room for a copy beside it", [&] {
    fs::remove_all(folder);
    fs::create_directory(folder);
  });
  std::string const lock = folder + "/" + kLockName;
  int const descriptor = open(lock.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
  if (descriptor < 0) throw Failure(path + ": no room for a copy beside it");
  close(descriptor);
  return FileLock::Take(lock, path);
}

}  // namespace

void AddChangeOptions(Command& command, ChangeOptions& options) {
  command.Option("--password", options.password, "of a protected library", "TEXT")
      .Flag("--in-place", options.inPlace, "no copy: faster, but a failure leaves it half changed");
}

FileLock FileLock::Take(std::string const& path, std::string const& shownAs) {
  int const descriptor = open(path.c_str(), O_RDWR | O_CLOEXEC);
  if (descriptor < 0) {
    throw Failure(shownAs + ": " +
                  (errno == ENOENT ? "not found" : std::string(std::strerror(errno))));
  }
  struct flock whole = {};
  whole.l_type = F_WRLCK;
  whole.l_whence = SEEK_SET;
  if (fcntl(descriptor, F_OFD_SETLK, &whole) != 0) {
    close(descriptor);
    throw Failure(shownAs + ": another program has it open");
  }
  return FileLock(descriptor);
}

FileLock::FileLock(FileLock&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

FileLock::~FileLock() {
  if (descriptor_ >= 0) close(descriptor_);
}

LibraryChange::LibraryChange(std::string const& path, ChangeOptions const& options) {
  FinishChange(path);
  if (options.inPlace) {
    library_ = Library::OpenUpdate(path, options.password);
    return;
  }
  // What the library says of a path that cannot be opened is told in its words.
  { Library const seen = Library::OpenRead(path); }
  OrFail(path, "cannot be found", [&] { path_ = fs::canonical(path).string(); });
  original_ = FileLock::Take(path_, path);
  folder_ = NewFolder(path_);
  work_ = MakeWorkFolder(folder_, path);
  std::string const copy = folder_ + "/" + fs::path(path_).filename().string();
  OrFail(path, "cannot be copied", [&] {
    for (int number = 1; number <= kFiles; ++number) {
      std::string const from = FileOf(path_, number);
      if (fs::exists(from)) fs::copy_file(from, FileOf(copy, number));
    }
  });
  library_ = Library::OpenUpdate(copy, options.password, path);
}

LibraryChange LibraryChange::New(std::string const& path, zel::libTypes kind) {
  fs::path const absolute = fs::absolute(path);
  if (!fs::is_directory(absolute.parent_path())) {
    throw Failure(path + ": its folder is not there");
  }
  LibraryChange change(absolute.string());
  if (fs::exists(path)) change.original_ = FileLock::Take(path, path);
  change.folder_ = NewFolder(change.path_);
  change.work_ = MakeWorkFolder(change.folder_, path);
  change.library_ =
      Library::Create(kind, change.folder_ + "/" + absolute.filename().string(), path);
  return change;
}

// The folder goes along: only one of two may drop it.
LibraryChange::LibraryChange(LibraryChange&& other) noexcept
    : path_(std::move(other.path_)),
      folder_(std::exchange(other.folder_, {})),
      original_(std::move(other.original_)),
      work_(std::move(other.work_)),
      library_(std::move(other.library_)) {}

void LibraryChange::PutInPlace() {
  library_->Close();
  if (!folder_.empty()) {
    OrFail(path_, "the changed library cannot be put in place", [&] {
      SyncFolder(folder_);
      fs::rename(folder_, ReadyFolder(path_));
      SyncFolder(FolderOf(path_));
      MoveIntoPlace(path_);
    });
    folder_.clear();
  }
  library_.reset();
}

LibraryChange::~LibraryChange() {
  library_.reset();
  std::error_code ignored;
  if (!folder_.empty()) fs::remove_all(folder_, ignored);
}

void FinishChange(std::string const& path) {
  std::error_code none;
  // Resolved as far as it goes: the first file may be away.
  fs::path const whole = fs::weakly_canonical(path, none);
  fs::path const ready = ReadyFolder(whole);
  if (none || !fs::is_directory(ready, none)) return;
  FileLock const lock = FileLock::Take((ready / kLockName).string(), path);
  OrFail(path, "a change that was cut off cannot be finished",
         [&] { MoveIntoPlace(whole.string()); });
}

}  // namespace zelhost
