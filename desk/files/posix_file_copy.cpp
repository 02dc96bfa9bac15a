// Copies of files on a POSIX system.
#include "desk/files/file_copy.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <string>
#include <system_error>
#include <vector>

#include "desk/files/folder.h"
#include "desk/words/letters.h"

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;
constexpr mode_t kPermissions = 0777;
constexpr mode_t kEverybody = 0666;
constexpr int kMakeNew = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW;
constexpr std::size_t kPiece = std::size_t{1} << 20;

[[noreturn]] void Refuse(fs::path const& path) {
  throw fs::filesystem_error("", path, std::error_code(errno, std::generic_category()));
}

class Open {
 public:
  Open(fs::path const& path, int flags, mode_t mode = kOwnerOnly)
      : path_(path), descriptor_(::open(path.c_str(), flags | O_CLOEXEC, mode)) {
    if (descriptor_ < 0) Refuse(path);
  }
  Open(Open const&) = delete;
  Open& operator=(Open const&) = delete;
  ~Open() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  int Get() const { return descriptor_; }
  fs::path const& Path() const { return path_; }
  // Some file systems report only now that they were full.
  void Close() {
    int const descriptor = descriptor_;
    descriptor_ = -1;
    if (::close(descriptor) != 0) Refuse(path_);
  }

 private:
  fs::path path_;
  int descriptor_;
};

void WriteAll(Open const& to, char const* from, std::size_t count, off_t at) {
  while (count > 0) {
    ssize_t const n = ::pwrite(to.Get(), from, count, at);
    if (n < 0 && errno == EINTR) continue;
    if (n == 0) errno = EIO;
    if (n <= 0) Refuse(to.Path());
    from += n;
    count -= static_cast<std::size_t>(n);
    at += n;
  }
}

void CopyRange(Open const& from, Open const& to, off_t at, off_t end, std::vector<char>& buffer) {
  while (at < end) {
    auto const wanted = static_cast<std::size_t>(end - at);
    ssize_t const n = ::pread(from.Get(), buffer.data(), std::min(wanted, buffer.size()), at);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) Refuse(from.Path());
    if (n == 0) return;
    WriteAll(to, buffer.data(), static_cast<std::size_t>(n), at);
    at += n;
  }
}

// A file system without holes reports the whole file as data.
void CopyData(Open const& from, Open const& to, off_t size) {
  std::vector<char> buffer(kPiece);
  for (off_t at = 0; at < size;) {
    off_t data = ::lseek(from.Get(), at, SEEK_DATA);
    if (data < 0 && errno == ENXIO) break;
    if (data < 0 && errno != EINVAL) Refuse(from.Path());
    off_t end = data < 0 ? size : ::lseek(from.Get(), data, SEEK_HOLE);
    data = std::max(data, at);
    if (end <= data) end = size;
    CopyRange(from, to, data, end, buffer);
    at = end;
  }
  if (::ftruncate(to.Get(), size) != 0) Refuse(to.Path());
}

void Sync(Open const& file) {
  int result = ::fsync(file.Get());
  while (result != 0 && errno == EINTR) result = ::fsync(file.Get());
  // Some file systems cannot do it.
  if (result != 0 && errno != EINVAL && errno != ENOTSUP) Refuse(file.Path());
}

}  // namespace

FileAccess AccessOf(fs::path const& file) {
  struct stat info = {};
  if (::stat(file.c_str(), &info) != 0) Refuse(file);
  return {info.st_mode & kPermissions, FileAccess::Owner{info.st_uid, info.st_gid}};
}

void GiveAccess(fs::path const& file, FileAccess const& access) {
  // A user who may not change the owner may still set one of his own groups.
  if (access.owner && ::lchown(file.c_str(), access.owner->user, access.owner->group) != 0) {
    static_cast<void>(::lchown(file.c_str(), static_cast<uid_t>(-1), access.owner->group) == 0);
  }
  // The mode is set after the owner, since changing the owner may clear bits of the mode.
  if (::chmod(file.c_str(), access.mode) != 0) Refuse(file);
}

std::optional<FileMode> ModeOfLibrariesIn(fs::path const& folder) {
  std::map<mode_t, int> counts;
  std::error_code none;
  for (fs::path const name : NamesIn(folder, none)) {
    if (LowerCase(name.extension().string()) != ".lb1") continue;
    struct stat info = {};
    if (::lstat(Inside(folder, name).c_str(), &info) != 0 || !S_ISREG(info.st_mode)) continue;
    ++counts[info.st_mode & kPermissions];
  }
  // The first of the most frequent ones: the lowest number gives others the fewest permissions.
  auto const best =
      std::max_element(counts.begin(), counts.end(),
                       [](auto const& a, auto const& b) { return a.second < b.second; });
  if (best == counts.end()) return {};
  return best->first;
}

FileMode ModeOfNewFilesIn(fs::path const& folder) {
  fs::path const probe = Inside(folder, "mode");
  mode_t const mode = [&] {
    Open const file(probe, kMakeNew, kEverybody);
    struct stat info = {};
    if (::fstat(file.Get(), &info) != 0) Refuse(probe);
    return info.st_mode & kPermissions;
  }();
  fs::remove(probe);
  return mode;
}

void CopyWithHoles(fs::path const& from, fs::path const& to) {
  Open const source(from, O_RDONLY);
  Open target(to, kMakeNew);
  struct stat info = {};
  if (::fstat(source.Get(), &info) != 0) Refuse(from);
  if (::ioctl(target.Get(), FICLONE, source.Get()) != 0) CopyData(source, target, info.st_size);
  target.Close();
}

void WriteNewFile(fs::path const& path, std::string const& text) {
  Open file(path, kMakeNew);
  WriteAll(file, text.data(), text.size(), 0);
  file.Close();
}

void MakeMark(fs::path const& path) {
  // The file must not be empty: some programs that copy folders leave out empty files.
  WriteNewFile(path, "Made by zel while it changes a library.\n");
}

void SyncFile(fs::path const& path) {
  Open file(path, O_RDONLY | O_NOFOLLOW);
  Sync(file);
  file.Close();
}

void SyncFolder(fs::path const& path) {
  // Files can be made in a folder that this user may not read, but it cannot be opened.
  if (::access(path.c_str(), R_OK) != 0 && errno == EACCES) return;
  Open folder(path, O_RDONLY | O_NOFOLLOW | O_DIRECTORY);
  Sync(folder);
  folder.Close();
}

void SyncPath(fs::path const& path) {
  int const descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

}  // namespace zel::desk
