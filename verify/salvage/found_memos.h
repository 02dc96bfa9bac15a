// Memos of libraries and banks: blocks of plain text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "verify/salvage/broken_library.h"

namespace zel {

// The memo at an address that the header or a directory entry names; empty for no memo, nothing for
// one that is not text or cannot be read.
std::optional<std::string> MemoAt(BrokenLibrary const& library, std::int32_t address,
                                  std::int32_t words);
// The text of a run that looks like a memo: text of some length, and zeros after it. Empty if it is
// not.
std::string LooseMemo(BrokenLibrary const& library, std::int32_t address);

}  // namespace zel
