// The unit classes of a unit table with all names settled: which rows a class allows, what a class
// made of others is made of, and which unit a slate names for it. It does not change once made.
//
// A class has a list of unit rows, or factors (other classes with exponents), or both: diffusivity
// is in m2/sec from its list and in ft2/hr as area by time. A class that is another one by
// definition is that class.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "frame/units/unit_table.h"

namespace zel {

// The columns of a unit that a text can be looked for in.
enum class UnitForm { kText = 1, kKeyword = 2 };

// A unit of a class: one row of its list, or one row for each of its factors.
struct UnitChoice {
  bool ofFactors = false;
  std::vector<int> rows;  // empty for no unit
};

// Between a unit and the intermediate value of its class. Linear: (value + addition) x
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

// The row of the one unit that is no linear one.
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
    bool isDifference = false;  // the addition constants do not count
    bool builtIn = false;       // absent if the table lacks what it is made of
    int same = 0;               // the class that it is by definition, or itself
    enum class State { kOpen, kBinding, kBound, kAbsent } state = State::kOpen;
  };

  // Settles the names of a table. On a fault gives null and says what it is.
  static std::unique_ptr<UnitCatalogue const> Make(UnitTable table, UnitTableError& error);

  UnitTable const& Table() const noexcept { return table_; }
  UnitRow const& Row(int row) const { return table_.units[static_cast<std::size_t>(row)]; }
  Class const& ClassAt(int unitClass) const {
    return classes_[static_cast<std::size_t>(unitClass)];
  }

  // By name in any case; -1 when there is none.
  int FindClass(std::string_view name) const;

  // The unit of a class that a text stands for; false when it has none such. Case counts only where
  // two units differ by nothing else.
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
