// Services of Windows.
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "desk/files/system.h"
#include "desk/files/windows_calls.h"

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

// Programs that watch for new files, such as virus scanners, have them open for a moment, and then
// neither they nor their folders can be renamed.
bool Move(fs::path const& from, fs::path const& to, DWORD flags) {
  constexpr int kTries = 100;
  constexpr std::chrono::milliseconds kBetween{20};
  for (int i = 1;; ++i) {
    if (::MoveFileExW(from.c_str(), to.c_str(), flags | MOVEFILE_WRITE_THROUGH)) return true;
    DWORD const error = ::GetLastError();
    bool const mayPass = error == ERROR_SHARING_VIOLATION ||
                         (error == ERROR_ACCESS_DENIED && fs::exists(fs::symlink_status(from)));
    ::SetLastError(error);
    if (!mayPass || i == kTries) return false;
    std::this_thread::sleep_for(kBetween);
  }
}

bool Fail(DWORD error) {
  errno = NumberOf(error);
  return false;
}

}  // namespace

void Rename(fs::path const& from, fs::path const& to) {
  DWORD const attributes = ::GetFileAttributesW(from.c_str());
  bool const isFolder =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if (!Move(from, to, isFolder ? 0 : MOVEFILE_REPLACE_EXISTING)) RefuseLast(from);
}

void MoveToFreePlace(fs::path const& from, fs::path const& to) {
  if (!Move(from, to, 0)) RefuseLast(to);
}

Exchange ExchangeFiles(std::string const& /*from*/, std::string const& to) {
  DWORD const attributes = ::GetFileAttributesW(PathFrom(to).c_str());
  return attributes == INVALID_FILE_ATTRIBUTES ? Exchange::kNothingThere : Exchange::kUnknown;
}

bool MoveOver(std::string const& from, std::string const& to) {
  return Move(PathFrom(from), PathFrom(to), MOVEFILE_REPLACE_EXISTING) || Fail(::GetLastError());
}

std::FILE* OpenNewFile(std::string const& path) {
  std::intptr_t const file =
      OpenHandle(PathFrom(path), GENERIC_WRITE, FILE_SHARE_READ, CREATE_NEW, FILE_ATTRIBUTE_NORMAL);
  if (file == -1) {
    Fail(::GetLastError());
    return nullptr;
  }
  int const number = ::_open_osfhandle(file, _O_BINARY);
  if (number < 0) Close(file);
  return number < 0 ? nullptr : ::_fdopen(number, "wb");
}

// A second name on the same disk, or a copy.
void LinkFile(fs::path const& from, fs::path const& to) {
  if (::CreateHardLinkW(to.c_str(), from.c_str(), nullptr)) return;
  if (!::CopyFileW(from.c_str(), to.c_str(), TRUE)) RefuseLast(to);
}

std::error_code MakeOwnFolder(fs::path const& path) {
  if (::CreateDirectoryW(path.c_str(), nullptr)) return {};
  return LastError();
}

bool MakeNewFolder(std::string& path) {
  constexpr char kCharacters[] = "0123456789abcdefghijklmnopqrstuvwxyz";
  constexpr std::size_t kRandom = 6;
  constexpr std::uint64_t kSpread = 0x9e3779b97f4a7c15;
  constexpr int kTries = 100;
  static std::atomic<std::uint64_t> calls = 0;
  for (int i = 0; i < kTries; ++i) {
    LARGE_INTEGER clock{};
    ::QueryPerformanceCounter(&clock);
    std::uint64_t bits = static_cast<std::uint64_t>(clock.QuadPart) +
                         (std::uint64_t{::GetCurrentProcessId()} << 32) + ++calls;
    bits = bits * kSpread >> 16;
    for (std::size_t at = path.size() - kRandom; at < path.size(); ++at) {
      path[at] = kCharacters[bits % (sizeof(kCharacters) - 1)];
      bits /= sizeof(kCharacters) - 1;
    }
    if (::CreateDirectoryW(PathFrom(path).c_str(), nullptr)) return true;
    if (::GetLastError() != ERROR_ALREADY_EXISTS) break;
  }
  return Fail(::GetLastError());
}

// Who may make a folder is what the one around it allows.
bool IsOwnFolder(fs::path const& folder, fs::path const& /*library*/) {
  DWORD const attributes = ::GetFileAttributesW(folder.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
         (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
}

bool MayBeRead(std::string const& path) {
  std::intptr_t const file = OpenHandle(PathFrom(path), GENERIC_READ, kShareAll, OPEN_EXISTING, 0);
  // A file that another program does not share at all may be read when it is closed.
  if (file == -1 && ::GetLastError() != ERROR_SHARING_VIOLATION) return Fail(::GetLastError());
  Close(file);
  return true;
}

std::tm UtcOf(std::time_t time) {
  std::tm parts = {};
  ::gmtime_s(&parts, &time);
  return parts;
}

}  // namespace zel::desk
