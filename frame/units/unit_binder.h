// Resolves the names of a unit table; used once by UnitCatalogue::Make.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "frame/units/unit_catalogue.h"

namespace zel {

class UnitBinder {
 public:
  explicit UnitBinder(UnitCatalogue& catalogue) : catalogue_(catalogue) {}

  // Fills the catalogue except its table.
  UnitTableError Bind();

 private:
  using Class = UnitCatalogue::Class;
  using Factor = UnitCatalogue::Factor;

  // Classes in the order in which they are searched: lists, custom classes, built-in ones.
  UnitTableError AddLists();
  UnitTableError AddCustomClasses();
  void AddBuiltInClasses();
  UnitTableError AddClass(std::string const& name, Class*& added);
  // The row of each text. Of several rows with the same text, the one nearest to the row of the
  // list's first unit that has only one row.
  UnitTableError BindRows(std::vector<std::string> const& texts, std::vector<int>& rows) const;

  UnitTableError BindClass(int unitClass, int depth);
  UnitTableError BindDefinition(int unitClass, int depth);
  UnitTableError AddFactor(std::string_view name, bool above, int depth,
                           std::vector<Factor>& factors);
  // A factor's name: a class, or a class and the digit of an exponent. -1 for none.
  int FactorClass(std::string_view name, int& exponent) const;
  UnitTableError CheckBasis() const;

  UnitTableError BindSlates();
  UnitTableError OwnUnits(UnitSlate const& slate, std::vector<UnitChoice>& units);
  UnitTableError Inherit(std::size_t slate);

  Class& ClassAt(int unitClass) { return catalogue_.classes_[static_cast<std::size_t>(unitClass)]; }

  UnitCatalogue& catalogue_;
  std::unordered_map<std::string_view, std::vector<int>> rowsOfText_;
  enum class SlateState { kOpen, kInheriting, kDone };
  std::vector<SlateState> slateStates_;
  long budget_ = 5'000'000;  // row comparisons, ten times what a real table needs
};

}  // namespace zel
