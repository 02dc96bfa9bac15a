// Single values of an item: constants and correlations of components, fields of all other items.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "desk/findings/finding.h"
#include "desk/notes/carried_notes.h"
#include "desk/open/library.h"
#include "desk/words/table.h"

namespace zel::desk {

// A datum to set: a constant or a correlation of a component, by keyword or name, or a field.
struct Setting {
  std::string datum;
  // A number with or without a unit, several numbers with blanks or commas between them, a text or
  // a word. None for a correlation, and for a constant of which only the reference code is set.
  std::optional<std::string> value;
};

// What is set of the record of a correlation; the rest stays as it was. A record that does not
// exist gets K, the unit in which the library evaluates the correlation, no logarithm and moles.
struct CurveEdit {
  std::optional<int> equation;
  std::vector<std::string> coefficients;
  std::string range;            // MIN:MAX, temperatures; a missing end is open
  std::string unit;             // of the values, as in the table of unit codes
  std::string temperatureUnit;  // of the coefficients and the range: K, C, R or F
  std::string logarithm;        // natural, decimal or none
  std::string basis;            // mole or mass

  bool Empty() const;
};

struct ItemEdit {
  std::string bank;               // empty: the only bank of components
  std::vector<std::string> item;  // what names the item
  std::vector<Setting> settings;
  std::vector<std::string> unset;     // data to remove
  std::optional<std::uint32_t> code;  // the reference code of what is set; without one it stays
  CurveEdit curve;                    // for the only correlation among the settings
};

// Reads words of the form [BANK] ITEM DATUM=VALUE ... or [BANK] ITEM DATUM VALUE ...; the first
// word is a bank if one of the libraries (`from` may be null) has a bank of that name or type.
// Throws WrongUsage and Failure.
ItemEdit EditOf(Library const& library, Library const* from, std::vector<std::string> words);

struct EditedItem {
  BankName bank;
  std::string item;
  std::vector<std::string> parts;  // what the item is named by
  std::string copiedFrom;  // the bank from which the item was copied first; empty if it existed
  // Rows of what changed: datum, old, new, unit, old code, new code.
  Table changes = Table("", {});
  std::vector<std::string> same;      // data that had the value already
  std::vector<std::string> warnings;  // about correlations
  std::vector<Finding> findings;      // about a component, which it did not have before
  // Codes of the item's data for which the two libraries have different citations.
  std::vector<CitationConflict> conflicts;

  bool IsChanged() const { return !copiedFrom.empty() || !changes.Empty(); }
};

// Edits an item of a library that is open for update. A pair is edited in the order in which its
// components are named. If the library does not have the item, it is first copied from the library
// `from`, which may be null. Numbers without a unit are in the session's display units. Throws
// Failure and WrongUsage; the library may then be half changed.
EditedItem EditItem(Library const& library, ItemEdit const& edit, Library const* from);

}  // namespace zel::desk
