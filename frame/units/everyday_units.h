// Units as people spell them, in the spelling of the unit table.
#pragma once

#include <string>
#include <string_view>

namespace zel {

// "degC" as "C", "J/mol" as "J/g-mol", "kJ/(mol K)" as "kJ/g-mol-K", "m^3/kmol" as "m3/kg-mol",
// "Pa.s" as "Pa-sec". A text that is not understood comes out in some other form, which no class
// has.
std::string TableSpelling(std::string_view text);

}  // namespace zel
