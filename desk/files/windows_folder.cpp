// Folders of Windows.
#include <windows.h>

#include <new>

#include "desk/files/folder.h"
#include "desk/files/windows_calls.h"

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

void Note(DWORD number, std::error_code& error) {
  int const generic = NumberOf(number);
  if (generic == ENOMEM) throw std::bad_alloc();
  if (!error) error = std::error_code(generic, std::generic_category());
}

class Listing {
 public:
  explicit Listing(fs::path const& folder)
      : search_(::FindFirstFileW(Inside(folder, L"*").c_str(), &found_)) {}
  Listing(Listing const&) = delete;
  Listing& operator=(Listing const&) = delete;
  ~Listing() {
    if (IsOpen()) ::FindClose(search_);
  }
  bool IsOpen() const { return search_ != INVALID_HANDLE_VALUE; }
  bool Next() { return ::FindNextFileW(search_, &found_) != 0; }
  WIN32_FIND_DATAW const& Entry() const { return found_; }

 private:
  WIN32_FIND_DATAW found_{};
  HANDLE search_;
};

std::vector<fs::path> EntriesOf(fs::path const& folder, std::error_code& error) {
  std::vector<fs::path> names;
  Listing listing(folder);
  if (!listing.IsOpen()) {
    Note(::GetLastError(), error);
    return names;
  }
  do {
    fs::path name(listing.Entry().cFileName);
    if (name != L"." && name != L"..") names.push_back(std::move(name));
  } while (listing.Next());
  if (::GetLastError() != ERROR_NO_MORE_FILES) Note(::GetLastError(), error);
  return names;
}

bool IsGone(DWORD error) { return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND; }

void Remove(fs::path const& path, std::error_code& error) {
  DWORD const attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    if (!IsGone(::GetLastError())) Note(::GetLastError(), error);
    return;
  }
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    ::SetFileAttributesW(path.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
  }
  bool const isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  bool const isLink = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (isFolder && !isLink) {
    for (fs::path const& name : EntriesOf(path, error)) Remove(Inside(path, name), error);
  }
  bool const isRemoved =
      (isFolder ? ::RemoveDirectoryW(path.c_str()) : ::DeleteFileW(path.c_str())) != 0;
  if (!isRemoved && !IsGone(::GetLastError())) Note(::GetLastError(), error);
}

}  // namespace

std::vector<std::string> NamesIn(fs::path const& folder, std::error_code& error) {
  error.clear();
  std::vector<std::string> names;
  for (fs::path const& name : EntriesOf(folder, error)) names.push_back(name.u8string());
  return names;
}

void RemoveTree(fs::path const& path, std::error_code& error) {
  error.clear();
  Remove(path, error);
}

}  // namespace zel::desk
