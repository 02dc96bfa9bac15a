// The widths of a tree: what its nodes look like.
#pragma once

#include <cstdint>
#include <tuple>

#include "store/format.h"

namespace zel {

struct TreeShape {
  std::int32_t keyWords = 0;
  std::int32_t entryDataWords = 0;  // 1 where the entry holds the address of the data
  std::int32_t dataWords = 0;       // of an item
  bool isAddressed = false;

  // Words of an entry and of the link after it; only of a usable shape.
  std::int32_t Width() const noexcept { return keyWords + entryDataWords + 1; }
  std::int32_t Capacity() const noexcept { return format::kNodeRoom / Width(); }
  bool IsUsable() const noexcept {
    return keyWords >= 1 && keyWords <= format::kMaxKeyWords && entryDataWords >= 1 &&
           entryDataWords < format::kNodeRoom && Width() <= format::kNodeRoom / 3;
  }
  bool operator==(TreeShape const&) const = default;
  // An order, for sets.
  bool operator<(TreeShape const& other) const noexcept { return AsTuple() < other.AsTuple(); }

 private:
  std::tuple<std::int32_t, std::int32_t, std::int32_t, bool> AsTuple() const noexcept {
    return {keyWords, entryDataWords, dataWords, isAddressed};
  }
};

// -1, 0 or 1.
inline int CompareKeys(std::int32_t const* a, std::int32_t const* b,
                       std::int32_t keyWords) noexcept {
  for (std::int32_t i = 0; i < keyWords; ++i) {
    if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
  }
  return 0;
}

}  // namespace zel
