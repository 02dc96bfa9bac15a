// Data of many components, and of pairs, side by side, as a preference list merges them.
#pragma once

#include <string>
#include <vector>

#include "desk/open/preference_list.h"
#include "desk/words/table.h"

namespace zel::desk {

// Which components a table has: those that are named, and those of all banks of the list whose ID
// or name matches the pattern.
struct ComponentChoice {
  std::vector<std::string> words;
  std::string path;     // of a file with one word a line; empty for none
  std::string pattern;  // "*" for all; empty for none
};
// The words, each once. Throws WrongUsage if nothing was chosen, Failure if nothing matches.
std::vector<std::string> ChosenComponents(PreferenceList const& list,
                                          ComponentChoice const& choice);

// A row for each component, a column for each field: a constant, completed, or a correlation as
// its equation and range. `withSources` adds a column with where each value comes from. Throws
// Failure for a component that no source has and for a field that does not exist.
Table ComponentTable(PreferenceList& list, std::vector<std::string> const& components,
                     std::vector<std::string> const& fields, bool withSources);

// The column "d2/dT2" of a derivative of order 1 to 3, with respect to K, of values in a unit.
Column DerivativeColumn(std::string const& unit, int order);

// Several correlations of several components over the same temperatures.
struct CurveGrid {
  std::vector<std::string> components;
  std::vector<std::string> correlations;
  std::vector<double> kelvin;
  bool extrapolate = false;  // else no values outside the range of a record
  int derivatives = 0;       // of each correlation, up to 3
};
struct CurveTables {
  Table points;   // T and a column for each component and correlation, followed by those of its
                  // derivatives; a correlation named twice has one
  Table records;  // the component, correlation, equation, range and source of each column
  std::vector<Curve> curves;  // of each record
};
// The column of a correlation that a component does not have is empty, and so is its record. Throws
// Failure for a component that no source has.
CurveTables EvaluateGrid(PreferenceList& list, CurveGrid const& grid);

// The items of all banks of a type of component pairs; for each pair the first library that has it
// wins. With one component, all of its pairs; with more, pairs of two of them. Throws Failure for a
// type whose items are not pairs.
Table PairTable(std::vector<Library> const& libraries, std::string const& type,
                std::vector<std::string> const& fields, std::vector<std::string> const& components);

// How the banks of that type use these fields, or all parameters if no fields are given: see
// AddMeanings in desk/notes/parameter_meanings.h. A row names its bank as "sample.lb1:SAMPLE".
Table PairMeanings(std::vector<Library> const& libraries, std::string const& type,
                   std::vector<std::string> const& fields);

}  // namespace zel::desk
