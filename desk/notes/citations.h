// Citations of the reference codes of a library.
//
// A citation is a note (note_lines.h). One in the memo of a bank is for the data of that bank; one
// in the memo of the library, or in a bank of notes (memo.h), is for all data whose bank has no
// citation for the code.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desk/notes/memo.h"
#include "desk/notes/note_lines.h"
#include "desk/open/library.h"

namespace zel::desk {

struct Citation {
  std::uint32_t code = 0;
  std::string text;
  std::string doi;  // "10.1201/b17118"; empty without one

  bool operator==(Citation const& o) const {
    return code == o.code && text == o.text && doi == o.doi;
  }
};

// The citation that a note of a reference holds.
Citation CitationOf(Note const& note);
Note NoteOf(Citation const& citation);

// The DOI that a word means, "10.1201/b17118", "doi:10.1201/b17118" or
// "https://doi.org/10.1201/b17118". Throws Failure for a word that is not a DOI.
std::string DoiOf(std::string const& word);

// Finds citations; reads each memo once. The libraries must not change meanwhile.
class Citations {
 public:
  // The citation of a code of data in a bank; null for a code without one.
  Citation const* Find(Library const& library, BankName const& bank, std::uint32_t code);
  // The same from the memo of the bank only.
  Citation const* FindOwn(Library const& library, BankName const& bank, std::uint32_t code);
  // True if data of the bank have any.
  bool HasAny(Library const& library, BankName const& bank);

 private:
  using Known = std::map<std::uint32_t, Citation>;
  Known const& OfBank(Library const& library, BankName const& bank);
  Known const& OfLibrary(Library const& library);

  std::map<std::pair<Library const*, std::string>, Known> banks_;
  std::map<Library const*, Known> libraries_;
};

}  // namespace zel::desk
