// Locks of Windows.
//
// Library files are locked on two bytes far beyond their end, as the library does it. Whoever reads
// shares the first byte, and whoever updates has both alone. A change that admits readers shares
// the first byte and has the second one alone: so no one else updates while it gives up its share
// of the first byte to take that alone, too.
#include <windows.h>

#include <chrono>
#include <cstring>
#include <thread>

#include "desk/files/file_lock.h"
#include "desk/files/folder.h"
#include "desk/files/windows_calls.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

constexpr std::uint64_t kReaders = std::uint64_t{1} << 62;
constexpr std::uint64_t kChanges = kReaders + 1;

bool LockByte(std::intptr_t file, std::uint64_t byte, DWORD how) {
  OVERLAPPED place = PlaceAt(byte);
  return ::LockFileEx(HandleOf(file), LOCKFILE_FAIL_IMMEDIATELY | how, 0, 1, 0, &place) != 0;
}

void UnlockByte(std::intptr_t file, std::uint64_t byte) {
  OVERLAPPED place = PlaceAt(byte);
  ::UnlockFileEx(HandleOf(file), 0, 1, 0, &place);
}

constexpr DWORD kShared = 0;
constexpr DWORD kAlone = LOCKFILE_EXCLUSIVE_LOCK;

// Exchanges a share of the first byte for all of it. Others may read meanwhile, and no one changes.
bool TakeReaders(std::intptr_t file) {
  UnlockByte(file, kReaders);
  if (LockByte(file, kReaders, kAlone)) return true;
  LockByte(file, kReaders, kShared);
  return false;
}

// False if the path now names a file other than the one that was opened.
bool IsAt(std::intptr_t file, std::filesystem::path const& path) {
  std::intptr_t const there =
      OpenHandle(path, 0, kShareAll, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT);
  BY_HANDLE_FILE_INFORMATION a{};
  BY_HANDLE_FILE_INFORMATION b{};
  bool const isSame = there != -1 && ::GetFileInformationByHandle(HandleOf(file), &a) &&
                      ::GetFileInformationByHandle(HandleOf(there), &b) &&
                      a.dwVolumeSerialNumber == b.dwVolumeSerialNumber &&
                      a.nFileIndexHigh == b.nFileIndexHigh && a.nFileIndexLow == b.nFileIndexLow;
  Close(there);
  return isSame;
}

[[noreturn]] void RefuseOpen(std::string const& shownAs) {
  throw LibraryInUse(shownAs, "another program has it open", zel::openDenied);
}

}  // namespace

FileLock FileLock::Open(bool isShared, std::string const& path, std::string const& shownAs) {
  std::filesystem::path const place = PathFrom(path);
  std::intptr_t const file = OpenHandle(place, GENERIC_READ | GENERIC_WRITE, kShareAll,
                                        OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT);
  if (file == -1) {
    int const number = NumberOf(::GetLastError());
    if (number == ENOENT) {
      throw LibraryInUse(shownAs, "is being changed by another program; try again",
                         zel::openNotFound);
    }
    throw Failure(shownAs + ": " + std::strerror(number));
  }
  FileLock lock(file);
  if (!LockByte(file, kChanges, kAlone) || !LockByte(file, kReaders, isShared ? kShared : kAlone) ||
      !IsAt(file, place)) {
    RefuseOpen(shownAs);
  }
  return lock;
}

// The system does not say who has a lock, so it is tried.
bool FileLock::IsHeld(std::string const& path) {
  std::intptr_t const file = OpenHandle(PathFrom(path), GENERIC_READ, kShareAll, OPEN_EXISTING,
                                        FILE_FLAG_OPEN_REPARSE_POINT);
  if (file == -1) return false;
  FileLock const closed(file);
  return !LockByte(file, kReaders, kAlone);
}

bool FileLock::HasReaders() const {
  if (!TakeReaders(file_)) return true;
  UnlockByte(file_, kReaders);
  LockByte(file_, kReaders, kShared);
  return false;
}

void FileLock::KeepReadersOut(std::string const& shownAs) {
  if (!TakeReaders(file_)) RefuseOpen(shownAs);
}

FileLock::~FileLock() { Close(file_); }

// A file that only one process can have open, and that goes with it.
FolderTurn::FolderTurn(std::string const& folder, Patience patience) : file_(-1) {
  int const tries = patience == Patience::kNone ? 1 : 200;
  constexpr std::chrono::milliseconds kBetween{10};
  std::filesystem::path const path = Inside(PathFrom(folder), L".zel-turn");
  for (int i = 0; i < tries; ++i) {
    file_ = OpenHandle(path, GENERIC_READ | GENERIC_WRITE, 0, OPEN_ALWAYS,
                       FILE_FLAG_DELETE_ON_CLOSE | FILE_ATTRIBUTE_HIDDEN);
    isHeld_ = file_ != -1;
    if (isHeld_) return;
    // A file that is just being removed denies the access.
    DWORD const error = ::GetLastError();
    if (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED) return;
    if (i + 1 < tries) std::this_thread::sleep_for(kBetween);
  }
}

FolderTurn::~FolderTurn() { Close(file_); }

}  // namespace zel::desk
