// Notes that go with data from one library to another.
#pragma once

#include "desk/notes/item_codes.h"
#include "desk/open/library.h"

namespace zel::desk {

// Copies the notes about items that were copied from a bank into one of another library, which is
// open for update: the citations of these codes, and the meaning of the parameters of `item`, which
// is of the banks' type. What `to` says otherwise is kept, and Session::Note reports it.
void CarryNotes(Library const& from, BankName const& fromBank, zel::IZelBankDef& item,
                CodeCounts const& codes, Library const& to, BankName const& toBank);

}  // namespace zel::desk
