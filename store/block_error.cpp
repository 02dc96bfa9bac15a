#include "store/block_error.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "frame/ascii.h"
#include "zelaccess/BlockError.h"

namespace zel {

namespace {

struct Remembered {
  unsigned long address;
  BlockFault fault;
  char file[sizeof ZelBlockErrorInfo::file];
};

constinit thread_local Remembered remembered = {};

// By BlockFault.
constexpr std::array<std::string_view, 9> kReasons = {
    "cannot be read or written; the library is damaged or the disk is full",
    "is not a block of this library; the library is damaged",
    "cannot be written; the library is not open for update",
    "no room for a block; the library is full",
    "cannot be written; the disk is full or fails",
    "cannot be read; the disk fails",
    "is not part of a sound tree; the library is damaged",
    "is free already; the library is damaged",
    "nothing can be deleted from an empty tree",
};

}  // namespace

void ThrowBlockError(std::int32_t word, BlockFault fault, std::string_view file) {
  remembered.address = static_cast<std::uint32_t>(word);
  remembered.fault = fault;
  CopyText(file, remembered.file, sizeof remembered.file);
  throw remembered.address;
}

BlockFault FaultOf(unsigned long address) noexcept {
  return remembered.address == address ? remembered.fault : BlockFault::kUnknown;
}

void GetBlockErrorInfo(unsigned long address, ZelBlockErrorInfo& info) {
  bool const known = remembered.address == address;
  CopyText(known ? remembered.file : "", info.file, sizeof info.file);
  CopyText(kReasons[static_cast<std::size_t>(FaultOf(address))], info.reason, sizeof info.reason);
}

}  // namespace zel
