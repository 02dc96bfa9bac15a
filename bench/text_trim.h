// The peer of the 7-digit trim: the same value through its decimal text.
#pragma once

namespace zel::bench {

// The C library's snprintf and strtod.
double TrimByPrintf(float value) noexcept;
// std::to_chars and std::from_chars.
double TrimByChars(float value) noexcept;

}  // namespace zel::bench
