// The reference codes of an item.
#pragma once

#include <zelaccess/ZelAccess.h>

#include <cstdint>
#include <map>

#include "desk/open/library.h"

namespace zel::desk {

// The number of data by code.
using CodeCounts = std::map<std::uint32_t, std::int64_t>;

// Adds the codes of an item just read: of a pure component those of its identity, of the constants
// that it has and of its correlations, of any other item that of the item. 0 is not a code.
void AddCodes(zel::IZelBankDef& item, CodeCounts& counts);
// The codes of the data of a bank; none if its type is not known. Items that cannot be read are
// handed to Session::LeaveOut.
CodeCounts CodesIn(Library const& library, BankName const& bank);

}  // namespace zel::desk
