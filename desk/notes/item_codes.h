// The reference codes of an item.
#pragma once

#include <zelaccess/ZelAccess.h>

#include <cstdint>
#include <map>

namespace zel::desk {

// The number of data by code.
using CodeCounts = std::map<std::uint32_t, std::int64_t>;

// Adds the codes of an item just read: of a pure component those of its identity, of the constants
// that it has and of its correlations, of any other item that of the item. 0 is not a code.
void AddCodes(zel::IZelBankDef& item, CodeCounts& counts);

}  // namespace zel::desk
