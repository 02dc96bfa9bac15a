// The notes that differ between two texts.
#pragma once

#include <string>
#include <vector>

namespace zel::desk {

// A note that differs. It is empty on a side that does not have it.
struct DifferingNote {
  std::string name;  // "ref 54", "parameter NRTL bij"
  std::string one;
  std::string other;
};

// Compares the notes of two lists of memos, wherever in a list a note is: first the references in
// the order of their codes, then the equations and the parameters. A note that a side has several
// times is a text with a line for each.
std::vector<DifferingNote> DifferingNotes(std::vector<std::string> const& one,
                                          std::vector<std::string> const& other);
// The lines of a memo that are not notes, without a line end after the last one.
std::string TextBesidesNotes(std::string const& memo);

}  // namespace zel::desk
