// The real unit table and its catalogue, and small tables made by hand.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "frame/units/unit_catalogue.h"
#include "frame/units/unit_system.h"
#include "frame/units/unit_table.h"

namespace zel::test {

inline std::string RealTableText() { return TableFileText(UnitTableResource()); }

// The result of uom_Init2 for a text.
inline UnitTableError Load(std::string_view text) {
  UnitTable table;
  UnitTableError error = ReadUnitTable(text, table);
  if (error != UnitTableError::kNone) return error;
  auto const catalogue = UnitCatalogue::Make(std::move(table), error);
  EXPECT_EQ(catalogue != nullptr, error == UnitTableError::kNone);
  return error;
}

// A table of a few units with places for additions of a test, in single quotes here.
struct SmallTable {
  std::string units;
  std::string lists;
  std::string classes;
  std::string slates;
  std::string commonLists;

  std::string Text() const {
    std::string const text =
        "'BEGINUOMLIST'\n'K','K','Kelvin',0,0,1.8\n'F','F','Fahrenheit',1,459.67,1\n"
        "'kg','KG','Kilogram',0,0,1\n'g','G','Gram',0,0,0.001\n'm','M','Metre',0,0,1\n"
        "'F','F','Farad',0,0,1\n'mF','MF','Millifarad',0,0,0.001\n" +
        units +
        "'ENDUOMLIST'\n'BEGINLIST'\n'Temp'\n'F'\n'K'\n'ENDLIST'\n'BEGINLIST'\n'Mass'\n'kg'\n'g'\n"
        "'ENDLIST'\n'BEGINLIST'\n'Leng'\n'm'\n'ENDLIST'\n'BEGINLIST'\n'Capacitance'\n'F'\n'mF'\n"
        "'ENDLIST'\n" +
        lists + "'BEGINCLASSLIST'\n" + classes + "'ENDCLASSLIST'\n" + commonLists + slates +
        "'BEGINSLATE'\n'QRInternal'\n'isSystem=1'\n'Temp=K'\n'Mass=kg'\n'ENDSLATE'\n";
    return TableFileText(text);
  }
};

// The unit system with the real table, started once in the test program.
class UnitSystemTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { ASSERT_EQ(StartUnitSystemFrom(UnitTableResource()), 0); }

  static std::string Display(uom_Unit const* unit, int form = 1) {
    char text[30] = "";
    uom_GetDisplayUnits(unit, text, 30, form);
    return text;
  }

  // The display text of the unit that a word opens; "-" for none.
  static std::string Opened(char const* dimension, char const* word) {
    uom_Unit* unit = OpenUnit(dimension, word);
    if (unit == nullptr) return "-";
    std::string const text = Display(unit);
    uom_Free(&unit);
    EXPECT_EQ(unit, nullptr);
    return text;
  }

  // Converts from one unit of a class to another, by their texts.
  static int Convert(char const* dimension, char const* from, char const* to, double& value) {
    uom_Unit* source = uoms_New(dimension);
    uom_Unit* target = uoms_New(dimension);
    EXPECT_EQ(uom_FillStructFromString(source, from, 1), 0) << dimension << " " << from;
    EXPECT_EQ(uom_FillStructFromString(target, to, 1), 0) << dimension << " " << to;
    int const result = uom_ConvertArray(&value, 1, source, target);
    uom_Free(&source);
    uom_Free(&target);
    return result;
  }

  static double Internal(char const* dimension, char const* word, double value) {
    EXPECT_TRUE(ConvertToInternal(dimension, word, value)) << dimension << " " << word;
    return value;
  }
};

}  // namespace zel::test
