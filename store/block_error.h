// Block errors: the exception, and what is recorded about it for BlockError.h.
//
// The exception is an `unsigned long` that holds the address word, and nothing else. File and
// reason of the last one are kept separately, once per thread.
#pragma once

#include <cstdint>
#include <string_view>

namespace zel {

enum class BlockFault : std::uint8_t {
  kUnknown,
  kNotABlock,    // not the address of a block of the library
  kReadOnly,     // a write to a library that is open for reading, or closed
  kNoRoom,       // an allocation in a library whose files are as long as they can be
  kNotWritten,   // a transfer that failed
  kNotRead,      // likewise
  kBadNode,      // a tree node, or links between nodes, that no writer produces
  kNotOccupied,  // a block to be freed that is free
  kEmptyTree     // a deletion from a tree without entries
};

// Throws the address; `file` is the path of the file that holds the block, empty when not known.
[[noreturn]] void ThrowBlockError(std::int32_t word, BlockFault fault = BlockFault::kUnknown,
                                  std::string_view file = {});

// Why this thread threw a block error that it has just caught; kUnknown for another address.
BlockFault FaultOf(unsigned long address) noexcept;

}  // namespace zel
