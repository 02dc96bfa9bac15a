#include "desk/files/folder.h"
#include "desk/open/change_places.h"
#include "desk/open/work_lock.h"

namespace zel::desk {

// The file in the folder itself is locked.
WorkLock WorkLock::Take(std::filesystem::path const& folder, std::string const& shownAs) {
  return WorkLock(FileLock::Take(Inside(folder, kLockName).string(), shownAs));
}

bool WorkLock::IsHeld(std::filesystem::path const& folder) {
  return FileLock::IsHeld(Inside(folder, kLockName).string());
}

}  // namespace zel::desk
