// Changes of the citations of a library that is open for update. All functions throw block errors,
// and Failure for what cannot be stored.
#pragma once

#include <cstdint>
#include <optional>

#include "desk/notes/citations.h"

namespace zel::desk {

// Writes a citation for the data of a bank, or for all data of the library. Replaces an existing
// one for the code. A memo of a bank without room is a Failure; further citations of the library go
// to banks of notes.
void SetCitation(Library const& library, std::optional<BankName> const& bank,
                 Citation const& citation);
// Removes it; false if the code has no citation. A bank of notes that becomes empty is removed.
bool RemoveCitation(Library const& library, std::optional<BankName> const& bank,
                    std::uint32_t code);

}  // namespace zel::desk
