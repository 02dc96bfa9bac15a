// Sessions that are cut off by a kill or a power cut at random moments, and what is left of their
// libraries.
#pragma once

#include <cstdint>

#include "zelaccess/OpenLibrary.h"

namespace zel::test {

enum class Crash { kKill, kPowerCut };

struct CrashCounts {
  long images = 0;     // cut off, opened again and read
  long sessions = 0;   // that they are from
  long inFlush = 0;    // of the images, those cut off within a flush
  long completed = 0;  // those whose last flush the open has completed
  long cutAgain = 0;   // of these, those in which the completion was cut off as well
  long flushed = 0;    // items that were flushed and not changed since, over all images
  long lost = 0;       // of these, items that are not there, or not with their value
  long between = 0;    // images that are neither of the last flush nor of the one under way
  long unread = 0;     // of these, images that cannot be opened and read to the end
  long damaged = 0;    // images in which the integrity check finds damage
};

// Cuts sessions off until there are that many images. The same seed gives the same images.
CrashCounts CrashSessions(zelWriteModes writes, Crash crash, long images, std::uint64_t seed);

}  // namespace zel::test
