// Sizes and values that are the same in every part of the library.
#pragma once

#include <cstddef>

#include "zelaccess/Types.h"

namespace zel {

// The longest full path, in characters; buffers for a path have one more.
inline constexpr std::size_t kMostPath = 259;
// The longest type and the longest name of a bank, and the longest character ID of a component.
inline constexpr std::size_t kMostName = 8;
// The type of the banks of pure components.
inline constexpr char kPureComponentType[] = "PURECOMP";
// Numbers at or below this one are undefined, and temperature limits at or below it mean none.
inline constexpr double kUndefinedLimit = gen_GetUndefDouble();

}  // namespace zel
