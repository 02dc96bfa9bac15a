// The references of a library: which codes its data have, what is cited for them, and changes.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desk/notes/citations.h"
#include "desk/notes/item_codes.h"
#include "desk/open/library.h"
#include "desk/words/table.h"

namespace zel::desk {

// The codes of the data of each bank; of one bank if it is named. Items that cannot be read are
// handed to Session::LeaveOut.
std::vector<std::pair<BankName, CodeCounts>> UsesIn(Library const& library,
                                                    std::optional<BankName> const& bank = {});

// A row for each citation, and for each code that data have without one:
// code, data    the number of data that have the code and that the citation is for
// in            "library", or the banks in whose memos it is; empty without a citation
// DOI, citation
// With a bank, only the codes of its data and the citations that they have.
Table ReferenceTable(Library const& library, std::optional<BankName> const& bank = {});

enum class ReferenceState { kNew, kChanged, kSame };
char const* ToText(ReferenceState state);

// Sets the citation of a code: for the data of a bank, or for all data of the library. In the
// latter case it replaces the citations of the code wherever the library has them. Throws Failure
// if the code has another citation and `replace` is not set, and if a memo has no room.
ReferenceState PutReference(Library const& library, std::optional<BankName> const& bank,
                            Citation const& citation, bool replace);
// Removes the citation of a code from a bank, or wherever the library has it, and returns what was
// removed. Throws Failure if the code has no citation.
Citation RemoveReference(Library const& library, std::optional<BankName> const& bank,
                         std::uint32_t code);

// A code that a user gives. Throws Failure for a word that is not a whole number from 1 to
// 999,999,999.
std::uint32_t CodeOf(std::string const& word);
// The citation that a user gives; `doi` may be empty. Throws Failure for texts that a memo cannot
// hold; see NoteText and DoiOf.
Citation MakeCitation(std::uint32_t code, std::string const& text, std::string const& doi);

}  // namespace zel::desk
