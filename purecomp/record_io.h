// Components to and from the blocks of a library.
#pragma once

#include <cstdint>

#include "purecomp/component.h"
#include "store/lib_file.h"
#include "zelaccess/Types.h"

namespace zel {

// What a merge notes beside each datum that it takes.
struct RecordSource {
  char const* text;
  bool isProtected;
};

// Merges the item at `address` into the component: only what is still empty is taken. kStatusOk
// when anything was new, kStatusNothingNew otherwise. Lengths and counts from the file are cut to
// what their images hold.
ZelStatus MergeRecord(Component& component, std::int32_t address, LibFile_i& library,
                      RecordSource source);

// Writes the component. Address 0 or null makes a new item, and `address` becomes its address.
// Blocks of an item rewritten that are too short for the present layout are left and new ones
// taken. Throws the address of a transfer that failed; `address` is then as it was.
void WriteRecord(Component const& component, std::int32_t& address, LibFile_i& library);

}  // namespace zel
