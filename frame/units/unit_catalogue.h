// The unit classes of a unit table with all names resolved: which rows a class allows, which
// classes it is composed of, and which unit a slate names for it. It is immutable.
//
// A class has a list of unit rows, or factors (other classes with exponents), or both: diffusivity
// is in m2/sec from its list and in ft2/hr as area by time. A class whose definition is just
// another class is that class.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "frame/units/unit_table.h"

namespace zel {

// The columns of a unit in which a text can be looked up.
enum class UnitForm { kText = 1, kKeyword = 2 };

// A unit of a class: one row of its list, or one row for each of its factors.
struct UnitChoice {
  bool ofFactors = false;
  std::vector<int> rows;  // empty for no unit
};

// Converts between a unit and the intermediate value of its class. Linear: (value + addition) x
// multiplication. API gravity: 141.5 / (value + 131.5) is the density relative to water at 60 F,
// and the intermediate value is the density in kg/m3.
struct UnitRule {
  bool isGravity = false;
  double addition = 0.0;
  double multiplication = 1.0;

  double ToIntermediate(double value) const noexcept;
  double FromIntermediate(double value) const noexcept;
};

// kg/m3, as in the row of the specific gravity.
inline constexpr double kWaterDensityAt60F = 999.016;

// True for the row of the one unit that is not linear.
inline bool IsGravity(UnitRow const& row) { return row.text == "API"; }

class UnitCatalogue {
 public:
  struct Factor {
    int unitClass;
    int exponent;  // negative below the line, never 0
  };
  struct Class {
    std::string name;
    std::string definition;
    std::vector<int> rows;
    std::vector<Factor> factors;
    bool isDifference = false;  // addition constants are ignored
    bool builtIn = false;       // absent if the table lacks a class that it needs
    int same = 0;               // the class that it is by definition, or itself
    enum class State { kOpen, kBinding, kBound, kAbsent } state = State::kOpen;
  };

  // Resolves the names of a table. On an error returns null and sets `error`.
  static std::unique_ptr<UnitCatalogue const> Make(UnitTable table, UnitTableError& error);

  UnitTable const& Table() const noexcept { return table_; }
  UnitRow const& Row(int row) const { return table_.units[static_cast<std::size_t>(row)]; }
  Class const& ClassAt(int unitClass) const {
    return classes_[static_cast<std::size_t>(unitClass)];
  }

  int ClassCount() const noexcept { return static_cast<int>(classes_.size()); }
  // By name in any case; -1 when there is none.
  int FindClass(std::string_view name) const;

  // Finds the unit of a class by its text; false when the class has no such unit. Case matters only
  // where two units differ in nothing else.
  bool FindUnit(int unitClass, std::string_view text, UnitForm form, UnitChoice& unit) const;
  // The unit that a slate, named in any case, has for a class.
  bool FindSlateUnit(int unitClass, std::string_view slate, UnitChoice& unit) const;

  std::string Text(int unitClass, UnitChoice const& unit, UnitForm form) const;
  UnitRule Rule(int unitClass, UnitChoice const& unit) const;

 private:
  friend class UnitBinder;
  explicit UnitCatalogue(UnitTable table) : table_(std::move(table)) {}

  UnitTable table_;
  std::vector<Class> classes_;
  std::unordered_map<std::string, int> classOfName_;  // names in lower case
  std::unordered_map<std::string, int> slateOfName_;
  std::vector<std::vector<UnitChoice>> slateUnits_;  // by slate and class
};

}  // namespace zel
