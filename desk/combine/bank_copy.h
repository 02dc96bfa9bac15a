// Banks and items of one library that are written into another.
#pragma once

#include <string>

#include "desk/open/library.h"

namespace zel::desk {

// Makes a bank in `to` with the format and the memo that it has in `from`, unless `to` has it.
// Throws Failure if it cannot be made, or if it exists with a format that has no room for all
// fields.
void MakeBankLike(Library const& from, Library const& to, BankName const& bank);

// Writes an item; `shown` names it in messages. Throws Failure with the reason if it is refused.
void WriteItem(Library const& to, BankName const& bank, zel::IZelBankDef& item, zel::Key& key,
               std::string const& shown);

// Throws Failure with the library, the bank, the item and the reason.
[[noreturn]] void RefuseItem(Library const& library, BankName const& bank, std::string const& item,
                             std::string const& why);

}  // namespace zel::desk
