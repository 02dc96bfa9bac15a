#include <windows.h>

#include <chrono>
#include <cstring>
#include <thread>

#include "desk/files/windows_calls.h"
#include "desk/open/change_places.h"
#include "desk/open/work_lock.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

// A folder with an open file in it cannot be renamed, so the lock is next to it: one file for the
// folder of a library's change under both of its names.
std::filesystem::path LockOf(std::filesystem::path const& folder) {
  return std::filesystem::path(folder).replace_extension(L".zel-lock");
}

}  // namespace

// No file is left when the program that has it open ends.
WorkLock WorkLock::Take(std::filesystem::path const& folder, std::string const& shownAs) {
  std::filesystem::path const lock = LockOf(folder);
  constexpr int kTries = 10;  // another program may be looking whether it is held
  constexpr std::chrono::milliseconds kBetween{5};
  for (int i = 1;; ++i) {
    std::intptr_t const file = OpenHandle(lock, GENERIC_READ | GENERIC_WRITE, 0, OPEN_ALWAYS,
                                          FILE_FLAG_DELETE_ON_CLOSE | FILE_ATTRIBUTE_HIDDEN);
    if (file != -1) return WorkLock(FileLock(file));
    DWORD const error = ::GetLastError();
    bool const isHeld = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
    if (!isHeld) throw Failure(shownAs + ": " + std::strerror(NumberOf(error)));
    if (i == kTries) {
      throw LibraryInUse(shownAs, "another program has it open", zel::openDenied);
    }
    std::this_thread::sleep_for(kBetween);
  }
}

bool WorkLock::IsHeld(std::filesystem::path const& folder) {
  if (!Exists(folder)) return false;
  std::intptr_t const file = OpenHandle(LockOf(folder), GENERIC_READ, kShareAll, OPEN_EXISTING, 0);
  bool const isHeld = file == -1 && ::GetLastError() == ERROR_SHARING_VIOLATION;
  Close(file);
  return isHeld;
}

}  // namespace zel::desk
