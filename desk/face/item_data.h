// Items as the objects that hosts see hold them.
#pragma once

#include <memory>

#include "desk/face/data.h"
#include "desk/open/library.h"

namespace zel::desk {

// The data of an item that was just read from a bank by its key, with what the notes of the library
// say about them.
std::shared_ptr<ItemData const> DataOfItem(Library const& library, BankName const& bank,
                                           zel::IZelBankDef& item, zel::Key& key,
                                           Citations& citations);

}  // namespace zel::desk
