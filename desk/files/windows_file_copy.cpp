// Copies of files on Windows. Who may read and write a file is what its folder passes on; only
// whether it may be written is kept.
#include <windows.h>

#include <algorithm>

#include "desk/files/file_copy.h"
#include "desk/files/folder.h"
#include "desk/files/windows_calls.h"
#include "desk/words/letters.h"

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

constexpr FileMode kWritable = 0666;
constexpr FileMode kReadOnly = 0444;
constexpr FileMode kOwnerWrites = 0200;

bool IsFolder(DWORD attributes) { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

void WriteAll(std::intptr_t file, fs::path const& path, std::string const& text) {
  std::size_t done = 0;
  while (done < text.size()) {
    DWORD moved = 0;
    if (!::WriteFile(HandleOf(file), text.data() + done, static_cast<DWORD>(text.size() - done),
                     &moved, nullptr)) {
      std::error_code const error = LastError();
      Close(file);
      throw fs::filesystem_error("", path, error);
    }
    done += moved;
  }
}

}  // namespace

FileAccess AccessOf(fs::path const& file) {
  DWORD const attributes = ::GetFileAttributesW(file.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) RefuseLast(file);
  bool const isFixed = !IsFolder(attributes) && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  return {isFixed ? kReadOnly : kWritable, std::nullopt};
}

void GiveAccess(fs::path const& file, FileAccess const& access) {
  DWORD const before = ::GetFileAttributesW(file.c_str());
  if (before == INVALID_FILE_ATTRIBUTES) RefuseLast(file);
  if (IsFolder(before)) return;
  DWORD const writable = before & ~DWORD{FILE_ATTRIBUTE_READONLY};
  bool const isFixed = (access.mode & kOwnerWrites) == 0;
  DWORD const now = isFixed ? writable | FILE_ATTRIBUTE_READONLY : writable;
  if (now != before && !::SetFileAttributesW(file.c_str(), now)) RefuseLast(file);
}

std::optional<FileMode> ModeOfLibrariesIn(fs::path const& folder) {
  std::error_code none;
  for (std::string const& name : NamesIn(folder, none)) {
    if (LowerCase(PathFrom(name).extension().u8string()) == ".lb1") return kWritable;
  }
  return {};
}

FileMode ModeOfNewFilesIn(fs::path const& /*folder*/) { return kWritable; }

// The copy keeps holes if the system can do that. It can be written, whatever the original is.
void CopyWithHoles(fs::path const& from, fs::path const& to) {
  if (!::CopyFileW(from.c_str(), to.c_str(), TRUE)) RefuseLast(from);
  GiveAccess(to, {kWritable, std::nullopt});
}

void WriteNewFile(fs::path const& path, std::string const& text) {
  std::intptr_t const file = OpenHandle(path, GENERIC_WRITE, 0, CREATE_NEW, FILE_ATTRIBUTE_NORMAL);
  if (file == -1) RefuseLast(path);
  WriteAll(file, path, text);
  Close(file);
}

void MakeMark(fs::path const& path) {
  // Not empty: some programs that copy folders leave empty files out.
  WriteNewFile(path, "Made by zel while it changes a library.\n");
}

void SyncFile(fs::path const& path) {
  std::intptr_t const file = OpenHandle(path, GENERIC_READ | GENERIC_WRITE, kShareAll,
                                        OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT);
  if (file == -1) return;  // it may not be written any longer
  bool const isDone = ::FlushFileBuffers(HandleOf(file)) != 0;
  std::error_code const error = isDone ? std::error_code() : LastError();
  Close(file);
  if (!isDone) throw fs::filesystem_error("", path, error);
}

// The file system writes which files there are in a folder to its journal by itself.
void SyncFolder(fs::path const& path) { SyncPath(path); }

void SyncPath(fs::path const& path) {
  std::intptr_t const file = OpenHandle(path, GENERIC_READ | GENERIC_WRITE, kShareAll,
                                        OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT);
  if (file == -1) return;
  ::FlushFileBuffers(HandleOf(file));
  Close(file);
}

}  // namespace zel::desk
