// Notes: lines of a memo that programs understand.
//
//   ref 54: CRC Handbook of Chemistry and Physics, 95th ed., 2014; doi:10.1201/b17118
//   equation NRTL: tau_ij = bij/T
//   parameter NRTL bij [K]: (g_ij - g_jj)/R
//
// In the memo of a bank, the bank type is left out. A memo is text for people, and all other lines
// are left as they are. docs/notes.md describes the lines.
#pragma once

#include <string>
#include <vector>

namespace zel::desk {

enum class NoteKind { kReference, kEquation, kParameter };

struct Note {
  NoteKind kind = NoteKind::kReference;
  std::string key;   // of a reference its code, of an equation the bank type, of a parameter the
                     // type and the field, "NRTL bij"; in the memo of a bank without the type
  std::string unit;  // of a parameter; empty if not given
  std::string text;
};

// What a line says before the colon, without the unit: "ref 54", "parameter NRTL bij".
std::string NameOf(Note const& note);
// What it says after the colon, with the unit: "nonrandomness", "(g_ij - g_jj)/R [K]".
std::string DescriptionOf(Note const& note);

class NoteLines {
 public:
  explicit NoteLines(std::string const& memo);

  // Nothing if the memo has no such note; the first one if it has several. Letters of the key are
  // compared without regard to case.
  Note const* Find(NoteKind kind, std::string const& key) const;
  std::vector<Note> All(NoteKind kind) const;
  // Replaces the note of the same kind and key, or adds it at the end.
  void Set(Note const& note);
  // Removes all notes of this kind and key; false if the memo has none.
  bool Remove(NoteKind kind, std::string const& key);
  // Replaces all lines that are not notes by the text. Its own notes replace those of the same kind
  // and key; the others are kept, after the text. Returns their number.
  std::size_t ReplaceText(std::string const& text);
  // The memo.
  std::string ToText() const;
  // The number of notes, and the memo without them.
  std::size_t Count() const;
  std::string WithoutNotes() const;

 private:
  struct Line {
    std::string text;  // with its line end
    bool isNote = false;
    Note note;
  };
  static Line LineOf(std::string text);
  std::vector<Line> lines_;
};

// The text as one line: blanks for line ends and tabs, none at the ends. Throws Failure, which says
// that the text of `what` has them, for other control characters, for bytes that are not UTF-8 and
// for "]]>", which a document cannot hold.
std::string NoteText(std::string const& text, std::string const& what);

}  // namespace zel::desk
