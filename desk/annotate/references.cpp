#include "desk/annotate/references.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "desk/notes/citation_changes.h"
#include "desk/notes/note_lines.h"
#include "desk/open/fields.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

constexpr std::uint32_t kGreatestCode = 999999999;
constexpr std::size_t kLongestText = 3900;  // it must fit in one memo with its code

using Place = std::optional<BankName>;

// The memos that can have citations, those for all data first.
std::vector<Place> PlacesIn(Library const& library) {
  std::vector<Place> places = {std::nullopt};
  for (BankName const& bank : NotesBanks(library)) places.emplace_back(bank);
  for (BankName const& bank : library.Banks()) {
    if (!IsNotesBank(bank)) places.emplace_back(bank);
  }
  return places;
}

bool IsForAll(Place const& place) { return !place || IsNotesBank(*place); }

// One row of the table.
struct Entry {
  std::uint32_t code = 0;
  Citation citation;
  std::vector<std::string> places;
  std::int64_t data = 0;
};

// The entry with this citation, which is made if it does not exist.
Entry& EntryFor(std::vector<Entry>& entries, std::uint32_t code, Citation const& citation) {
  auto const at = std::find_if(entries.begin(), entries.end(), [&](Entry const& entry) {
    return entry.code == code && entry.citation == citation;
  });
  if (at != entries.end()) return *at;
  entries.push_back({code, citation, {}, 0});
  return entries.back();
}

// Lists the citations of the library, with the places that have them.
std::vector<Entry> Cited(Library const& library) {
  std::vector<Entry> entries;
  for (Place const& place : PlacesIn(library)) {
    std::string const shown = IsForAll(place) ? "library" : ToText(*place);
    NoteLines const lines(ReadableMemo(library, place));
    for (Note const& note : lines.All(NoteKind::kReference)) {
      // Only the first note of a code counts.
      if (lines.Find(note.kind, note.key)->text != note.text) continue;
      Citation const citation = CitationOf(note);
      std::vector<std::string>& places = EntryFor(entries, citation.code, citation).places;
      if (std::find(places.begin(), places.end(), shown) == places.end()) places.push_back(shown);
    }
  }
  return entries;
}

bool Before(Entry const& one, Entry const& other) {
  return std::pair(one.code, one.places.empty()) < std::pair(other.code, other.places.empty());
}

// Those of the selected places that have a citation of the code.
std::vector<std::pair<Place, Citation>> Present(Library const& library, Place const& bank,
                                                std::uint32_t code) {
  std::vector<std::pair<Place, Citation>> present;
  std::vector<Place> const places = bank ? std::vector<Place>{bank} : PlacesIn(library);
  for (Place const& place : places) {
    NoteLines const lines(MemoIn(library, place));
    Note const* const note = lines.Find(NoteKind::kReference, std::to_string(code));
    if (note != nullptr) present.emplace_back(place, CitationOf(*note));
  }
  return present;
}

}  // namespace

std::vector<std::pair<BankName, CodeCounts>> UsesIn(Library const& library, Place const& bank) {
  std::vector<std::pair<BankName, CodeCounts>> uses;
  for (BankName const& one : bank ? std::vector<BankName>{*bank} : library.Banks()) {
    uses.emplace_back(one, CodesIn(library, one));
  }
  return uses;
}

Table ReferenceTable(Library const& library, Place const& bank) {
  std::vector<Entry> entries = Cited(library);
  Citations citations;
  for (auto const& [one, counts] : UsesIn(library, bank)) {
    for (auto const& [code, count] : counts) {
      Citation const* const found = citations.Find(library, one, code);
      EntryFor(entries, code, found == nullptr ? Citation{} : *found).data += count;
    }
  }
  std::stable_sort(entries.begin(), entries.end(), Before);
  bool const hasDoi = std::any_of(entries.begin(), entries.end(),
                                  [](Entry const& entry) { return !entry.citation.doi.empty(); });
  Table table("references", {{"code", ""},
                             {"data", ""},
                             {"in", ""},
                             {"DOI", "", false, false, !hasDoi},
                             {"citation", ""}});
  for (Entry const& entry : entries) {
    std::vector<std::string> const& places = entry.places;
    bool const isOfBank =
        bank && std::find(places.begin(), places.end(), ToText(*bank)) != places.end();
    if (bank && entry.data == 0 && !isOfBank) continue;
    table.Add(std::int64_t{entry.code}, entry.data, Texts(places), Text(entry.citation.doi),
              Text(entry.citation.text));
  }
  return table;
}

char const* ToText(ReferenceState state) {
  constexpr char const* kWords[] = {"new", "changed", "the same"};
  return kWords[static_cast<int>(state)];
}

ReferenceState PutReference(Library const& library, Place const& bank, Citation const& citation,
                            bool replace) {
  auto const present = Present(library, bank, citation.code);
  if (present.empty()) {
    SetCitation(library, bank, citation);
    return ReferenceState::kNew;
  }
  auto const other = std::find_if(present.begin(), present.end(),
                                  [&](auto const& one) { return !(one.second == citation); });
  if (other == present.end()) return ReferenceState::kSame;
  if (!replace) {
    throw Failure("code " + std::to_string(citation.code) + " is already cited as \"" +
                  other->second.text + "\"; --replace replaces that");
  }
  for (auto const& [place, old] : present) SetCitation(library, place, citation);
  return ReferenceState::kChanged;
}

Citation RemoveReference(Library const& library, Place const& bank, std::uint32_t code) {
  auto const present = Present(library, bank, code);
  if (present.empty()) {
    throw Failure(library.Path() + ": code " + std::to_string(code) + " has no citation" +
                  (bank ? " in the memo of " + ToText(*bank) : ""));
  }
  for (auto const& [place, old] : present) RemoveCitation(library, place, code);
  return present.front().second;
}

std::uint32_t CodeOf(std::string const& word) {
  std::uint32_t code = 0;
  auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), code);
  bool const isWhole = error == std::errc() && end == word.data() + word.size();
  if (!isWhole || code == 0 || code > kGreatestCode) {
    throw Failure("\"" + word + "\" is not a reference code, a whole number from 1");
  }
  return code;
}

Citation MakeCitation(std::uint32_t code, std::string const& text, std::string const& doi) {
  Citation citation{code, NoteText(text, "the citation of code " + std::to_string(code)),
                    doi.empty() ? "" : DoiOf(doi)};
  if (citation.text.empty()) {
    throw Failure("the citation of code " + std::to_string(code) + " is empty");
  }
  std::string const line = NoteOf(citation).text;
  if (line.size() > kLongestText) {
    throw Failure("the citation of code " + std::to_string(code) + " has " +
                  std::to_string(line.size()) + " characters; at most " +
                  std::to_string(kLongestText) + " can be stored");
  }
  // A citation that ends in its DOI is read back with the DOI apart.
  Citation const stored = CitationOf(NoteOf(citation));
  if (citation.doi.empty()) citation = stored;
  return citation;
}

}  // namespace zel::desk
