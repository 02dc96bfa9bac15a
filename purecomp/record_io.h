// Components to and from the blocks of a library.
#pragma once

#include <cstdint>

#include "purecomp/component.h"
#include "store/lib_file.h"
#include "zelaccess/Types.h"

namespace zel {

// What a merge records for each datum that it takes.
struct RecordSource {
  char const* text;
  bool isProtected;
};

// Merges the item at `address` into the component: only data that are still unset are taken.
// kStatusOk when anything was new, kStatusNothingNew otherwise. Lengths and counts from the file
// are limited to the size of their images.
ZelStatus MergeRecord(Component& component, std::int32_t address, LibFile_i& library,
                      RecordSource source);

// Writes the component. Address 0 or null makes a new item, and `address` becomes its address. When
// an item is rewritten, blocks that are too short for the present layout are left and new ones
// allocated. Throws the address of a transfer that failed; `address` is then unchanged.
void WriteRecord(Component const& component, std::int32_t& address, LibFile_i& library);

}  // namespace zel
