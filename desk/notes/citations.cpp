#include "desk/notes/citations.h"

#include <algorithm>
#include <charconv>

#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr char kMark[] = "; doi:";
constexpr std::size_t kMarkSize = sizeof(kMark) - 1;

bool IsDoi(std::string const& word) {
  std::size_t const slash = word.find('/');
  return word.compare(0, 3, "10.") == 0 && slash != std::string::npos && slash > 3 &&
         word.find_first_not_of("0123456789.", 3) == slash && slash + 1 < word.size() &&
         std::all_of(word.begin(), word.end(), [](char c) { return c > ' ' && c < '\x7f'; });
}

// Adds the citations of a memo; an earlier citation of a code is kept.
void AddFrom(NoteLines const& notes, std::map<std::uint32_t, Citation>& known) {
  for (Note const& note : notes.All(NoteKind::kReference)) {
    Citation citation = CitationOf(note);
    known.emplace(citation.code, std::move(citation));
  }
}

}  // namespace

Citation CitationOf(Note const& note) {
  Citation citation;
  std::from_chars(note.key.data(), note.key.data() + note.key.size(), citation.code);
  citation.text = note.text;
  std::size_t const at = note.text.rfind(kMark);
  if (at == std::string::npos || at == 0 || !IsDoi(note.text.substr(at + kMarkSize))) {
    return citation;
  }
  citation.doi = note.text.substr(at + kMarkSize);
  citation.text.resize(at);
  return citation;
}

Note NoteOf(Citation const& citation) {
  return {NoteKind::kReference, std::to_string(citation.code), "",
          citation.text + (citation.doi.empty() ? "" : kMark + citation.doi)};
}

std::string DoiOf(std::string const& word) {
  std::string doi = word;
  for (char const* const prefix : {"https://", "http://", "dx.", "doi.org/", "doi:"}) {
    std::string const text(prefix);
    if (LowerCase(doi.substr(0, text.size())) == text) doi.erase(0, text.size());
  }
  if (!IsDoi(doi)) {
    throw Failure("\"" + word + "\" is not a DOI, such as 10.1021/i260068a009");
  }
  return doi;
}

Citations::Known const& Citations::OfBank(Library const& library, BankName const& bank) {
  auto const [at, isNew] = banks_.try_emplace({&library, ToText(bank)});
  if (isNew) AddFrom(NoteLines(ReadableMemo(library, bank)), at->second);
  return at->second;
}

Citations::Known const& Citations::OfLibrary(Library const& library) {
  auto const [at, isNew] = libraries_.try_emplace(&library);
  if (!isNew) return at->second;
  for (NoteLines const& notes : CommonNotes(library)) AddFrom(notes, at->second);
  return at->second;
}

Citation const* Citations::Find(Library const& library, BankName const& bank, std::uint32_t code) {
  if (code == 0) return nullptr;
  if (Citation const* const own = FindOwn(library, bank, code)) return own;
  Known const& known = OfLibrary(library);
  auto const at = known.find(code);
  return at == known.end() ? nullptr : &at->second;
}

Citation const* Citations::FindOwn(Library const& library, BankName const& bank,
                                   std::uint32_t code) {
  Known const& known = OfBank(library, bank);
  auto const at = known.find(code);
  return at == known.end() ? nullptr : &at->second;
}

bool Citations::HasAny(Library const& library, BankName const& bank) {
  return !OfBank(library, bank).empty() || !OfLibrary(library).empty();
}

}  // namespace zel::desk
