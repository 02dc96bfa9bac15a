// A library of a hundred thousand small components, each with two IDs.
#pragma once

#include <cstdint>

#include "zelaccess/LibFile.h"

namespace zel::bench {

inline constexpr std::int32_t kManyComponents = 100'000;
inline constexpr char kManyBank[] = "MANY";

// Component i has the IDs Ci and Di. The library must be open for update.
void MakeManyComponents(LibFile& library);

}  // namespace zel::bench
