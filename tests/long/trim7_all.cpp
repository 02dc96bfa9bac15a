// Compares the 7-digit trim with printing and reading back for all 2^32 floats. Takes tens of
// minutes.
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "frame/trim7.h"

int main() {
  std::uint64_t wrong = 0;
  for (std::uint64_t p = 0; p <= UINT32_MAX; ++p) {
    float const value = std::bit_cast<float>(static_cast<std::uint32_t>(p));
    if (std::isnan(value)) continue;
    char text[32];
    std::snprintf(text, sizeof text, "%.7g", static_cast<double>(value));
    double const expected = std::strtod(text, nullptr);
    if (std::bit_cast<std::uint64_t>(expected) != std::bit_cast<std::uint64_t>(zel::Trim7(value))) {
      if (++wrong < 10) std::printf("%08x: %s\n", static_cast<unsigned>(p), text);
    }
  }
  std::printf("%llu patterns wrong\n", static_cast<unsigned long long>(wrong));
  return wrong == 0 ? 0 : 1;
}
