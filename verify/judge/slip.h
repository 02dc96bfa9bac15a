// Slips that their size reveals: a factor that is exactly that of a unit.
#pragma once

#include <string>
#include <string_view>

namespace zel {

// What a wrong value looks like, "C taken for K" for example; empty if its size says nothing.
// `value` and `expected` are in `unit`; `uncertainty` is the relative uncertainty of the expected
// value; `molecularWeight` may be undefined.
std::string LikelySlip(double value, double expected, std::string_view unit, double uncertainty,
                       double molecularWeight);

// Whether the two numbers differ by the exchange of two neighbouring digits, and have three digits
// or more: 0.213 and 0.123.
bool HasExchangedDigits(double value, double expected);

}  // namespace zel
