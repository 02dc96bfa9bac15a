// The groups of a molecule in one cell of a table.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zel::desk {

struct GroupCounts {
  std::vector<std::int32_t> numbers;  // of the groups
  std::vector<std::int32_t> counts;   // how often each occurs
};

// Reads "1(2) 14(1)": group 1 twice and group 14 once, with blanks or commas between them. Throws
// Failure for anything else and for more than 10 groups, which no item holds.
GroupCounts GroupCountsIn(std::string const& text);

}  // namespace zel::desk
