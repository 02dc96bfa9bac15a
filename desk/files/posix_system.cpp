// Services of a POSIX system.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "desk/files/system.h"

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

constexpr mode_t kNewFileMode = 0666;

// False for a path that this user may not look at. Throws on any other failure.
bool IsThere(fs::path const& path) {
  std::error_code error;
  fs::file_status const status = fs::symlink_status(path, error);
  if (!error || status.type() == fs::file_type::not_found) return fs::exists(status);
  if (error == std::errc::permission_denied) return false;
  throw fs::filesystem_error("", path, error);
}

}  // namespace

void Rename(fs::path const& from, fs::path const& to) { fs::rename(from, to); }

void MoveToFreePlace(fs::path const& from, fs::path const& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return;
  bool const isKnown = errno != EINVAL && errno != ENOSYS;
  if (!isKnown && !IsThere(to)) return fs::rename(from, to);
  if (!isKnown) errno = EEXIST;
  throw fs::filesystem_error("", to, std::error_code(errno, std::generic_category()));
}

Exchange ExchangeFiles(std::string const& from, std::string const& to) {
  int const done = ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_EXCHANGE);
  if (done == 0) return Exchange::kDone;
  if (errno == ENOENT) return Exchange::kNothingThere;
  return errno == EINVAL || errno == ENOSYS ? Exchange::kUnknown : Exchange::kFailed;
}

bool MoveOver(std::string const& from, std::string const& to) {
  return std::rename(from.c_str(), to.c_str()) == 0;
}

std::FILE* OpenNewFile(std::string const& path) {
  int const descriptor =
      ::open(path.c_str(), O_CREAT | O_EXCL | O_NOFOLLOW | O_WRONLY | O_CLOEXEC, kNewFileMode);
  if (descriptor < 0) return nullptr;
  std::FILE* const file = ::fdopen(descriptor, "wb");
  if (file != nullptr) return file;
  int const reason = errno;
  ::close(descriptor);
  errno = reason;
  return nullptr;
}

void LinkFile(fs::path const& from, fs::path const& to) { fs::create_symlink(from, to); }

std::error_code MakeOwnFolder(fs::path const& path) {
  if (::mkdir(path.c_str(), S_IRWXU) == 0) return {};
  return {errno, std::generic_category()};
}

bool MakeNewFolder(std::string& path) { return ::mkdtemp(path.data()) != nullptr; }

bool IsOwnFolder(fs::path const& folder, fs::path const& library) {
  struct stat info = {};
  struct stat around = {};
  struct stat there = {};
  if (::lstat(folder.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) return false;
  if (::stat(folder.parent_path().c_str(), &around) != 0) return false;
  if ((around.st_mode & S_ISVTX) == 0 || info.st_uid == ::geteuid()) return true;
  return ::lstat(library.c_str(), &there) == 0 && info.st_uid == there.st_uid;
}

bool MayBeRead(std::string const& path) { return ::access(path.c_str(), R_OK) == 0; }

std::tm UtcOf(std::time_t time) {
  std::tm parts = {};
  ::gmtime_r(&time, &parts);
  return parts;
}

}  // namespace zel::desk
