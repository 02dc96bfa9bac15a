// Memos of libraries and banks: plain terminated text of up to 4000 bytes in a block run.
#pragma once

#include <cstdint>
#include <string_view>

#include "store/block_store.h"

namespace zel {

// Reads a memo of `words` words, as stated by the file (clamped to 0..1000), into a buffer of 4000
// characters; empty when the address is null.
void ReadMemo(BlockStore& store, std::int32_t address, std::int32_t words, char* memo);

// Writes at most 3999 characters, then zeros; for a null address a run is allocated. Throws the
// address when the transfer fails, and leaves `address` as it was.
void WriteMemo(BlockStore& store, std::int32_t& address, std::int32_t words, std::string_view memo);

}  // namespace zel
