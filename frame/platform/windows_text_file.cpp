// Text files of Windows.
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <climits>
#include <cstring>

#include "frame/platform/text_calls.h"
#include "frame/platform/windows_path.h"

namespace zel::platform {
namespace {

HANDLE HandleOf(int file) noexcept { return reinterpret_cast<HANDLE>(::_get_osfhandle(file)); }

// The number under which the run-time library knows an open file; -1 when there are too many.
int NumberOf(Handle file, int flags) noexcept {
  if (!file.IsOpen()) return -1;
  int const number =
      ::_open_osfhandle(reinterpret_cast<std::intptr_t>(file.Get()), flags | _O_BINARY);
  if (number >= 0) file.Release();
  return number;
}

}  // namespace

// A file that is open as a library, here or elsewhere, is left alone: library files have the same
// lock.
int OpenEmptyTextFile(std::string const& path) {
  Handle file(::CreateFileW(SystemPath(path).c_str(), GENERIC_READ | GENERIC_WRITE, kShareAll,
                            nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) return -1;
  if (::GetFileType(file.Get()) == FILE_TYPE_DISK) {
    if (!LockWithoutWaiting(file.Get(), true) && ::GetLastError() == ERROR_LOCK_VIOLATION) {
      return -1;
    }
    if (!::SetEndOfFile(file.Get())) return -1;
  }
  return NumberOf(std::move(file), 0);
}

std::int64_t WriteTextFile(int file, char const* from, std::size_t count) noexcept {
  DWORD written = 0;
  auto const piece = static_cast<DWORD>(count);  // of a buffer
  return ::WriteFile(HandleOf(file), from, piece, &written, nullptr) ? std::int64_t{written} : -1;
}

bool CloseTextFile(int file) noexcept { return ::_close(file) == 0; }

OpenedText OpenTextFile(std::string const& path) {
  std::wstring const place = SystemPath(path);
  DWORD const attributes = ::GetFileAttributesW(place.c_str());
  if (path.empty() || attributes == INVALID_FILE_ATTRIBUTES) return {ReadResult::kMissing};
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return {ReadResult::kUnreadable};
  Handle file(::CreateFileW(place.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
  LARGE_INTEGER size{};
  if (!file.IsOpen() || ::GetFileType(file.Get()) != FILE_TYPE_DISK ||
      !::GetFileSizeEx(file.Get(), &size)) {
    return {ReadResult::kUnreadable};
  }
  int const number = NumberOf(std::move(file), _O_RDONLY);
  if (number < 0) return {ReadResult::kUnreadable};
  return {ReadResult::kRead, number, static_cast<std::uint64_t>(size.QuadPart)};
}

std::int64_t ReadTextFileAt(int file, std::uint64_t place, char* to, std::size_t room) noexcept {
  return ReadFileAt(HandleOf(file), place, to, room);
}

}  // namespace zel::platform
