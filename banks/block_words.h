// A floating value as a word of a data block: a 32-bit float.
#pragma once

#include <bit>
#include <cstdint>

#include "frame/trim7.h"

namespace zel {

// Trimmed to 7 significant digits, as every read of a block is.
inline double RealOfWord(std::int32_t word) { return Trim7(std::bit_cast<float>(word)); }

inline std::int32_t WordOfReal(double value) {
  return std::bit_cast<std::int32_t>(static_cast<float>(value));
}

}  // namespace zel
