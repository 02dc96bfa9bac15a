// Waits for a library that another program uses.
#pragma once

#include <zelaccess/DeskErrors.h>

#include <chrono>
#include <thread>

#include "desk/open/change_places.h"
#include "desk/open/session.h"

namespace zel::desk {

inline constexpr std::chrono::milliseconds kBetweenTries{20};

// Opens a library. While another program uses it, tries again, until the session's patience is at
// its end, or patienceAtMoves while a change of the library is moved into place; then throws
// LibraryInUse.
template <typename Open>
auto WhenFree(Session const& session, Open const& open) {
  // Moves that were in the way may be done by the time they are looked for.
  constexpr int kTriesForMoves = 3;
  auto const begin = std::chrono::steady_clock::now();
  for (int tries = 1;; ++tries) {
    try {
      return open();
    } catch (LibraryInUse const& inUse) {
      auto const waited = std::chrono::steady_clock::now() - begin;
      bool const mayBeMoved = tries < kTriesForMoves || IsBeingChanged(inUse.File());
      if (waited >= session.patience && !(mayBeMoved && waited < session.patienceAtMoves)) throw;
    }
    std::this_thread::sleep_for(kBetweenTries);
  }
}

}  // namespace zel::desk
