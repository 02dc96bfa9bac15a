#include "desk/notes/citation_changes.h"

#include "desk/notes/memo.h"

namespace zel::desk {

void SetCitation(Library const& library, std::optional<BankName> const& bank,
                 Citation const& citation) {
  Note const note = NoteOf(citation);
  if (!bank || IsNotesBank(*bank)) return SetCommonNote(library, note);
  NoteLines lines(MemoIn(library, bank));
  lines.Set(note);
  SetMemoIn(library, bank, lines.ToText());
}

bool RemoveCitation(Library const& library, std::optional<BankName> const& bank,
                    std::uint32_t code) {
  std::string const key = std::to_string(code);
  if (!bank || IsNotesBank(*bank)) return RemoveCommonNote(library, NoteKind::kReference, key);
  NoteLines lines(MemoIn(library, bank));
  if (!lines.Remove(NoteKind::kReference, key)) return false;
  SetMemoIn(library, bank, lines.ToText());
  return true;
}

}  // namespace zel::desk
