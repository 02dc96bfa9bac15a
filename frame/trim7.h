// The 7-digit trim of every float that is read from a library.
#pragma once

#include <cstdint>

namespace zel {

// The double nearest to the text that `value` prints as with 7 significant digits (ties of the
// exact value to even), so that a stored 0.1f reads as 0.1. NaN and infinities are returned
// unchanged, -0.0 keeps its sign. Exact for every 32-bit float.
double Trim7(float value) noexcept;

// The same for `count` floats, given as words.
void Trim7Words(std::int32_t const* words, std::int32_t count, double* values) noexcept;

}  // namespace zel
