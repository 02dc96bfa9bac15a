// The library that a host's handle refers to.
#pragma once

#include "store/lib_file.h"

namespace zel {

// Null unless the library is open.
inline LibFile_i* OpenLibrary(LibFile* library) {
  auto* const inner = dynamic_cast<LibFile_i*>(library);
  return inner != nullptr && inner->GetBankTree() != nullptr ? inner : nullptr;
}

}  // namespace zel
