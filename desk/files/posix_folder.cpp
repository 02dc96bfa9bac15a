#include "desk/files/folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <new>

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

struct FolderCloser {
  void operator()(DIR* folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, FolderCloser>;

void Note(int number, std::error_code& error) {
  if (number == ENOMEM) throw std::bad_alloc();
  if (!error) error = std::error_code(number, std::generic_category());
}

// Null if the folder cannot be opened; with O_NOFOLLOW in `flags` a link is not opened.
OpenFolder OpenAt(int around, char const* name, int flags) {
  int const descriptor = ::openat(around, name, flags | O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return nullptr;
  OpenFolder folder(::fdopendir(descriptor));
  if (!folder) {
    int const number = errno;
    ::close(descriptor);
    errno = number;
  }
  return folder;
}

std::vector<std::string> NamesOf(DIR* folder, std::error_code& error) {
  std::vector<std::string> names;
  for (;;) {
    errno = 0;
    dirent const* const entry = ::readdir(folder);
    if (entry == nullptr) break;
    std::string name = entry->d_name;
    if (name != "." && name != "..") names.push_back(std::move(name));
  }
  if (errno != 0) Note(errno, error);
  return names;
}

void RemoveAt(int around, char const* name, std::error_code& error) {
  if (::unlinkat(around, name, 0) == 0 || errno == ENOENT) return;
  // Systems report different errors for a folder.
  int const number = errno;
  OpenFolder const folder = OpenAt(around, name, O_NOFOLLOW);
  if (!folder) return Note(errno == ENOTDIR || errno == ELOOP ? number : errno, error);
  for (std::string const& inside : NamesOf(folder.get(), error)) {
    RemoveAt(::dirfd(folder.get()), inside.c_str(), error);
  }
  if (::unlinkat(around, name, AT_REMOVEDIR) != 0 && errno != ENOENT) Note(errno, error);
}

}  // namespace

std::vector<std::string> NamesIn(fs::path const& folder, std::error_code& error) {
  error.clear();
  OpenFolder const open = OpenAt(AT_FDCWD, folder.c_str(), 0);
  if (open) return NamesOf(open.get(), error);
  Note(errno, error);
  return {};
}

void RemoveTree(fs::path const& path, std::error_code& error) {
  error.clear();
  RemoveAt(AT_FDCWD, path.c_str(), error);
}

}  // namespace zel::desk
