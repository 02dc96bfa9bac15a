// Where the notes of a library are: the memo of the library, the memos of its banks, and banks
// without items that only have a memo.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/notes/note_lines.h"
#include "desk/open/library.h"

namespace zel::desk {

// A memo has at most this many bytes.
inline constexpr std::size_t kLongestMemo = kMemoSize - 1;

// The memo of a bank, or of the library if no bank is given. Throws a block error.
std::string MemoIn(Library const& library, std::optional<BankName> const& bank);
// The same for display: a memo that cannot be read is reported as by Library::TellUnread and counts
// as empty.
std::string ReadableMemo(Library const& library, std::optional<BankName> const& bank);
// Throws Failure for a text that is too long.
void SetMemoIn(Library const& library, std::optional<BankName> const& bank,
               std::string const& memo);

// The memo of a library has room for some 25 citations. Further notes are in the memos of banks
// OLI:NOTES1, OLI:NOTES2, ..., which have no items: they are mappings to the names of another
// program, under a name that no program asks for.
bool IsNotesBank(BankName const& bank);
std::vector<BankName> NotesBanks(Library const& library);
// All other banks.
std::vector<BankName> DataBanks(Library const& library);

// The notes for all data of a library are in its memo and in those of its banks of notes.
// SetCommonNote sets a note, in its present place if that has room; RemoveCommonNote removes it,
// and returns false if it does not exist. Both throw block errors, and Failure for a note that is
// too long.
void SetCommonNote(Library const& library, Note const& note);
bool RemoveCommonNote(Library const& library, NoteKind kind, std::string const& key);
// The memos for all data, that of the library first. Throws block errors.
std::vector<std::string> CommonMemos(Library const& library);
// The notes in them; a memo counts as empty if it cannot be read.
std::vector<NoteLines> CommonNotes(Library const& library);

}  // namespace zel::desk
