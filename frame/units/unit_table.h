// The unit table: a text in five sections that lists units, the units that each unit class allows,
// classes made of other classes, the units that a host offers first, and slates, which name a unit
// for each class. docs/units.md describes the format. This is its parser; the unit catalogue
// resolves the names in it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zel {

// What can be wrong with a unit table; the numbers are results of uom_Init2.
enum class UnitTableError : int {
  kNone = 0,
  kArguments = 1,         // not the two arguments "-f" and a path
  kNoFile = 2,            // cannot be read
  kTooLarge = 3,          // the file, or the number of rows of a section
  kEnds = 4,              // within a section, or before the last one
  kOrder = 5,             // a line where another section or row is expected
  kText = 6,              // a text without quotes, without end, or too long
  kNumber = 7,            // not a valid flag or constant; a multiplication constant of 0
  kRow = 8,               // text after the last column, or no "="
  kDuplicate = 9,         // a list, class or slate named twice, a unit twice in a list
  kUnknownUnit = 10,      // in a list
  kBasis = 11,            // a unit of the list Basis that is not a class
  kDefinition = 12,       // a class definition that cannot be read, or with too many factors
  kUnknownClass = 13,     // in a definition or a slate
  kCyclicClasses = 14,    // a class made of itself
  kUnknownSlate = 15,     // named as Parent or CopyFrom
  kCyclicSlates = 16,     // a slate that inherits from itself
  kSlateUnit = 17,        // a unit that its class does not have
  kNoInternalSlate = 18,  // no QRInternal
  kTooComplex = 19        // too many comparisons needed to match its texts
};

struct UnitRow {
  std::string text;
  std::string keyword;
  std::string longText;
  bool millionsAsMm = false;  // thousands and millions as M and MM (MM BBL), otherwise M* (M*M3)
  double addition = 0.0;
  double multiplication = 1.0;  // never 0
};

struct UnitList {
  std::string name;
  std::vector<std::string> units;
};

struct CustomClass {
  std::string name;
  std::string definition;
  std::string longName;  // empty for none
};

struct UnitSlate {
  std::string name;
  bool isSystem = false;
  bool isHidden = false;
  bool allowDelete = false;
  bool allowModify = false;
  std::string parent;    // empty for none
  std::string copyFrom;  // empty for none
  double gaugePressureBasis = 101325.0;
  std::vector<std::pair<std::string, std::string>> units;  // class and unit
};

struct UnitTable {
  std::vector<UnitRow> units;
  std::vector<UnitList> lists;
  std::vector<CustomClass> classes;
  std::vector<UnitList> commonLists;
  std::vector<UnitSlate> slates;
};

// The largest table, in bytes.
inline constexpr std::size_t kMostTableBytes = 256 * 1024;

// Reads a table whose texts are in double quotes. On an error `table` holds the rows before it.
UnitTableError ReadUnitTable(std::string_view text, UnitTable& table);

}  // namespace zel
