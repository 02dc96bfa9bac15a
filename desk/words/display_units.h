// The units in which numbers are shown and read.
//
// Data are in the library's internal units. A host shows them in others, and numbers that a user
// types without a unit are in those others too.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "desk/words/table.h"

namespace zel::desk {

// Sets of units that a user has made: by name in lower case, the words, with commas between them.
using UnitSets = std::map<std::string, std::string>;

class DisplayUnits {
 public:
  // The internal units; temperatures in K.
  DisplayUnits() = default;
  // `words`, with commas between them, are units ("bar", "degC", "J/mol"), each of which is used
  // for every dimension that has it, or sets: the unit systems of zelaccess/Units.h ("SI",
  // "English", ...), "US", which is English, and "engineering", which is C and bar. If two words
  // have a unit for a dimension, the later one is used. An empty text means the internal units.
  // `own` are more sets, which may name each other, but not in a circle. Throws WrongUsage for a
  // word that no dimension knows.
  explicit DisplayUnits(std::string const& words, UnitSets const& own = {});

  // These units with a further one, which is used if both have a unit for a dimension. Throws
  // WrongUsage for a word that no dimension knows.
  DisplayUnits With(std::string const& word) const;

  bool AreInternal() const { return words_.empty(); }
  // The unit in which values that are in `unit` are shown. `unit` is an internal unit, C, R or F,
  // or a derivative of one of these with respect to the temperature: kPa/K, kPa/K2. Any other unit
  // is returned as it is.
  std::string UnitFor(std::string const& unit) const;
  // A value that is in `unit`, in UnitFor(unit). Undefined values stay undefined. Throws Failure
  // for a value that has no counterpart in that unit.
  double Shown(double value, std::string const& unit) const;
  // The units that were asked for by UnitFor, Shown or Read and are per mole, each with the word
  // that was not used for it because it is a unit per mass.
  std::map<std::string, std::string> const& NotUsed() const { return notUsed_; }
  // The number that a word means, in the internal unit `unit`: "1.2bar", "78.31 C"; without a unit
  // the number is in UnitFor(unit). Throws WrongUsage for a word or temperature that cannot be one,
  // and for a number without a unit if the unit is in NotUsed.
  double Read(std::string const& word, std::string const& unit, std::string const& what) const;

 private:
  struct Change {
    std::string unit;       // of the value that is shown
    std::string dimension;  // empty for a slope and for a unit that is shown as it is
    std::string from;       // unit word
    double factor = 1.0;    // of a slope
  };
  void AddWords(std::string const& words, UnitSets const& own);
  Change const& ChangeOf(std::string const& unit) const;
  Change MakeChange(std::string const& unit) const;
  Change ChangeInDimension(std::string const& unit, std::string const& dimension) const;
  bool MakeSlope(std::string const& unit, Change& change) const;
  double FactorOf(std::string const& unit) const;

  std::vector<std::string> words_;
  mutable std::map<std::string, Change> changes_;       // by unit
  mutable std::map<std::string, std::string> notUsed_;  // words by unit
};

// The units of the data of components, and the sets: words for --units.
std::vector<std::string> UnitWords();
// True for a word that DisplayUnits knows without sets of a user.
bool IsUnitOrSet(std::string const& word);

// The unit that a word means for values in the internal unit `unit`, as text of the table of units;
// empty if it is not one. `unit` itself is always one.
std::string UnitNamed(std::string const& word, std::string const& unit);
// The first of the names that means the same unit as a word in some dimension, such as "mm Hg" for
// "mmHg"; empty if it is not a unit. A unit system is not a unit.
std::string SameUnit(std::string const& word, std::vector<std::string> const& names);
// A value in the unit `word` as a value in the internal unit `unit`. Throws Failure if it cannot be
// converted.
double ToInternal(double value, std::string const& word, std::string const& unit);

// A cell of a value that is in the internal unit `unit`, in display units; a text that is a list of
// numbers is converted too.
Cell ShownCell(Cell const& cell, DisplayUnits const& units, std::string const& unit);
// The table with its numbers in display units: those of a column that has a unit which is not
// fixed, and those of columns whose unit is in a column "unit" of the same row: "value", and any
// that is marked with `unitInRow`. Rows of AddAsIs stay as they are.
Table InDisplayUnits(Table const& table, DisplayUnits const& units);

}  // namespace zel::desk
