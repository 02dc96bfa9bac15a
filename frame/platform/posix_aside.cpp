#include "frame/platform/posix_aside.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>

namespace zel::platform {
namespace {

constexpr int kMostLinks = 40;
constexpr mode_t kReadAndWrite = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

std::string FolderOf(std::string const& path) {
  std::size_t const slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

// True for a regular file that belongs to this user or to the library's owner, or that is in a
// folder where only those who may replace the library can make files. For another file, errno
// becomes ENOENT; if this cannot be found out, it says why.
bool IsTrusted(struct stat const& file, std::string const& path, std::string const& library) {
  bool const isRegular = S_ISREG(file.st_mode);
  struct stat folder {};
  struct stat first {};
  if (isRegular && file.st_uid == ::geteuid()) return true;
  if (isRegular) {
    std::string const around = FolderOf(path);
    if (Retry([&] { return ::stat(around.c_str(), &folder); }) != 0) return false;
    if ((folder.st_mode & S_ISVTX) == 0) return true;
    if (Retry([&] { return ::stat(library.c_str(), &first); }) != 0) return false;
    if (first.st_uid == file.st_uid) return true;
  }
  errno = ENOENT;
  return false;
}

// Whoever may read or write the library may do so with the new file.
void GiveAccessOf(std::string const& library, int fd) noexcept {
  struct stat first {};
  struct stat made {};
  if (::stat(library.c_str(), &first) != 0 || ::fstat(fd, &made) != 0) return;
  mode_t mode = first.st_mode & kReadAndWrite;
  bool const hasGroup =
      first.st_gid == made.st_gid || ::fchown(fd, static_cast<uid_t>(-1), first.st_gid) == 0;
  if (!hasGroup) mode &= ~static_cast<mode_t>(S_IRGRP | S_IWGRP);
  ::fchmod(fd, mode | S_IRUSR | S_IWUSR);
}

}  // namespace

std::string TargetOf(std::string const& path) {
  std::string target = path;
  char link[PATH_MAX];
  for (int i = 0; i < kMostLinks; ++i) {
    auto const length = ::readlink(target.c_str(), link, sizeof link);
    if (length <= 0) break;
    std::string const to(link, static_cast<std::size_t>(length));
    target = to.front() == '/' ? to : FolderOf(target).append("/").append(to);
  }
  return target;
}

Descriptor OpenAsideDescriptor(std::string const& path, OpenMode mode, std::string const& library) {
  constexpr int kAlways = O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW;
  struct stat there {};
  bool const exists = Retry([&] { return ::lstat(path.c_str(), &there); }) == 0;
  // A library can have so long a name that nothing can be next to it.
  bool const cannotBe = errno == ENAMETOOLONG && mode != OpenMode::kCreate;
  if (!exists && errno != ENOENT && errno != ENOTDIR && !cannotBe) return Descriptor(-1);
  if (!exists && mode != OpenMode::kCreate) {
    errno = ENOENT;
    return Descriptor(-1);
  }
  if (exists && !IsTrusted(there, path, library)) return Descriptor(-1);
  int const access = mode == OpenMode::kRead ? O_RDONLY : O_RDWR;
  int const make = exists ? 0 : O_CREAT | O_EXCL;
  Descriptor file(
      Retry([&] { return ::open(path.c_str(), access | make | kAlways, S_IRUSR | S_IWUSR); }));
  struct stat opened {};
  if (file.Get() < 0) return file;
  if (!exists) {
    GiveAccessOf(library, file.Get());
  } else if (Retry([&] { return ::fstat(file.Get(), &opened); }) != 0 ||
             !IsTrusted(opened, path, library)) {
    int const reason = errno;
    file = Descriptor(-1);
    errno = reason;
  }
  return file;
}

std::optional<bool> LooksThere(std::string const& path) noexcept {
  struct stat info {};
  if (Retry([&] { return ::stat(path.c_str(), &info); }) == 0) return true;
  for (int const absent : {ENOENT, ENOTDIR, ENAMETOOLONG, EACCES, ELOOP}) {
    if (errno == absent) return false;
  }
  return std::nullopt;
}

// Takes no memory.
bool SyncFolderOf(std::string const& path) noexcept {
  char name[PATH_MAX] = ".";
  std::size_t const slash = path.rfind('/');
  if (slash != std::string::npos) {
    std::size_t const length = std::max<std::size_t>(slash, 1);
    if (length >= sizeof name) return false;
    name[path.copy(name, length)] = '\0';
  }
  Descriptor const folder(::open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.Get() < 0) return false;
  // Some file systems cannot sync a folder; they have nothing to do.
  return Retry([&] { return ::fsync(folder.Get()); }) == 0 || errno == EINVAL || errno == ENOTSUP;
}

}  // namespace zel::platform
