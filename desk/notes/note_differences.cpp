#include "desk/notes/note_differences.h"

#include <array>
#include <map>
#include <tuple>
#include <utility>

#include "desk/notes/note_lines.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

// Orders notes by kind, then by key: codes as numbers, which have no leading zeros, names as texts.
using Place = std::tuple<NoteKind, std::size_t, std::string>;

Place PlaceOf(Note const& note) {
  std::string key = LowerCase(note.key);
  std::size_t const digits = note.kind == NoteKind::kReference ? key.size() : 0;
  return {note.kind, digits, std::move(key)};
}

struct Side {
  std::string name;
  std::string text;
};

std::map<Place, Side> NotesIn(std::vector<std::string> const& memos) {
  std::map<Place, Side> notes;
  for (std::string const& memo : memos) {
    NoteLines const lines(memo);
    for (NoteKind const kind : {NoteKind::kReference, NoteKind::kEquation, NoteKind::kParameter}) {
      for (Note const& note : lines.All(kind)) {
        Side& side = notes[PlaceOf(note)];
        if (side.name.empty()) side.name = NameOf(note);
        side.text += (side.text.empty() ? "" : "\n") + DescriptionOf(note);
      }
    }
  }
  return notes;
}

}  // namespace

std::vector<DifferingNote> DifferingNotes(std::vector<std::string> const& one,
                                          std::vector<std::string> const& other) {
  std::map<Place, std::array<Side, 2>> both;
  for (auto& [place, side] : NotesIn(one)) both[place][0] = side;
  for (auto& [place, side] : NotesIn(other)) both[place][1] = side;
  std::vector<DifferingNote> found;
  for (auto& [place, sides] : both) {
    if (sides[0].text == sides[1].text) continue;
    std::string const& name = sides[0].name.empty() ? sides[1].name : sides[0].name;
    found.push_back({name, sides[0].text, sides[1].text});
  }
  return found;
}

std::string TextBesidesNotes(std::string const& memo) {
  std::string text = NoteLines(memo).WithoutNotes();
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
  return text;
}

}  // namespace zel::desk
