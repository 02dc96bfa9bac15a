// Waits for a library that another program uses.
#pragma once

#include <zelaccess/DeskErrors.h>

#include <chrono>
#include <thread>

#include "desk/open/session.h"

namespace zel::desk {

// Opens a library. While another program uses it, tries again, until the session's patience is at
// its end; then throws LibraryInUse.
template <typename Open>
auto WhenFree(Session const& session, Open const& open) {
  constexpr std::chrono::milliseconds kBetween{20};
  auto const end = std::chrono::steady_clock::now() + session.patience;
  while (true) {
    try {
      return open();
    } catch (LibraryInUse const&) {
      if (std::chrono::steady_clock::now() >= end) throw;
    }
    std::this_thread::sleep_for(kBetween);
  }
}

}  // namespace zel::desk
