// Numbers of items in titles.
#pragma once

#include <cstddef>
#include <string>

namespace zel::bench {

// "10k", "1M".
inline std::string SizeText(std::size_t items) {
  constexpr std::size_t kThousand = 1'000;
  if (items % (kThousand * kThousand) == 0)
    return std::to_string(items / kThousand / kThousand) + "M";
  if (items % kThousand == 0) return std::to_string(items / kThousand) + "k";
  return std::to_string(items);
}

}  // namespace zel::bench
