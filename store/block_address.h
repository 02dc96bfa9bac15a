// Addresses of blocks within a library.
#pragma once

#include <cstdint>

#include "store/block_error.h"
#include "store/format.h"

namespace zel {

// The parts of a block address. As a word: type x 10,000,000 + file x 1,000,000 + block.
struct BlockAddress {
  std::int32_t type = 0;
  std::int32_t file = 0;
  std::int32_t block = 0;

  // A word that is not positive has no parts: all are 0.
  static constexpr BlockAddress Split(std::int32_t word) noexcept {
    if (word <= 0) return {};
    auto const w = static_cast<std::uint32_t>(word);
    return {static_cast<std::int32_t>(w / format::kTypeFactor),
            static_cast<std::int32_t>(w / format::kFileFactor % 10),
            static_cast<std::int32_t>(w % format::kFileFactor)};
  }

  constexpr std::int32_t Word() const noexcept {
    return type * format::kTypeFactor + file * format::kFileFactor + block;
  }
};

}  // namespace zel
