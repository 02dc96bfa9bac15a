// Units of imported constants and correlations: the dimension of each row, molar words, and the
// warnings about old words in all documents of one import.
#include <algorithm>

#include "purecomp/tables.h"
#include "tests/support/sample_component.h"
#include "tests/xml/import_fixture.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

std::size_t CountOf(std::string const& text, std::string const& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

class ComponentUnitsTest : public test::ImportTest {
 protected:
  ComponentUnitsTest() { InitZelAccess(); }

  bool ImportElements(std::string const& elements) {
    MakeFile("doc.xml", "<comp><id number='7'> A </id>" + elements + "</comp>");
    bool const good =
        Caught([&] { return Maint().ImportComponent(Path("doc.xml").c_str(), "PURE", true); });
    Key_i key;
    key.SetKey(7L);
    EXPECT_TRUE(Maint().ReadItem(record_.Def(), "PURE", &key));
    return good;
  }
  static std::string Property(std::string_view name, char const* value, char const* unit) {
    return "<property name='" + std::string(name) + "' value='" + value + "' uom='" + unit + "'/>";
  }
  static std::string Curve(std::string_view name, std::string_view unit) {
    return "<correlation name='" + std::string(name) + "' equation='1' propUnit='" +
           std::string(unit) + "'> 1 </correlation>";
  }
  double Value(std::uint32_t index) {
    double value = 0.0;
    EXPECT_EQ(record_->GetProperty(index, &value), kStatusOk);
    return value;
  }
  std::int32_t CurveUnit(std::uint32_t index) {
    std::int32_t equation, tempUnit, unit = -1, logBasis, basis, count;
    double factor, tMin, tMax, coefficients[15];
    record_->GetCorrelation(index, &equation, &tempUnit, &unit, &factor, &logBasis, &basis, &count,
                            &tMin, &tMax, coefficients);
    return unit;
  }

  test::ComponentBank record_;
};

// A unit of each dimension, and the value of 100 of it in internal units.
struct DimensionRow {
  std::string_view dimension;
  char const* unit;
  double internal;
};
constexpr DimensionRow kDimensions[] = {
    {"temp", "F", 310.92777777777775},     // (100 + 459.67) / 1.8 K
    {"pres", "bar", 10000.0},              // kPa
    {"vapspvol", "cm3/g-mole", 0.1},       // m3/kg-mol
    {"spvol", "cm3/g-mole", 0.1},          // m3/kg-mol
    {"petrodensity", "API", 0.611231102},  // 141.5 / (100 + 131.5)
    {"dipole", "EU", 1e20},                // Debye
    {"length", "ft", 30.48},               // m
    {"frac", "percent", 1.0},
    {"spenthalpy", "cal/g-mole", 418.68},   // kJ/kg-mol
    {"spentropy", "cal/C-g-mole", 418.68},  // kJ/K-kg-mol
};

TEST_F(ComponentUnitsTest, EveryConstantTakesUnitsOfItsDimensionAlone) {
  int converted = 0;
  for (PropertyRow const& row : kPropertyRows) {
    if (row.keyword.empty()) continue;
    bool const plain = row.dimension.empty();
    EXPECT_EQ(ImportElements(Property(row.keyword, "100", "furlong")), plain) << row.keyword;
    if (plain) {
      EXPECT_EQ(Value(static_cast<std::uint32_t>(row.index)), 100.0) << row.keyword;
      continue;
    }
    auto const* known = std::find_if(std::begin(kDimensions), std::end(kDimensions),
                                     [&](auto const& d) { return d.dimension == row.dimension; });
    ASSERT_NE(known, std::end(kDimensions)) << row.dimension;
    ASSERT_TRUE(ImportElements(Property(row.keyword, "100", known->unit)))
        << row.keyword << ": " << Lines();
    EXPECT_NEAR(Value(static_cast<std::uint32_t>(row.index)), known->internal,
                1e-6 * known->internal)
        << row.keyword;
    ++converted;
  }
  EXPECT_EQ(converted, 30);
}

TEST_F(ComponentUnitsTest, EveryCorrelationTakesUnitsOfItsDimensionAlone) {
  struct Row {
    std::string_view name;
    char const* unit;
    std::int32_t code;
  };
  constexpr Row kRows[] = {{"VaporPressure", "mm hg", 4019},
                           {"IdealEnthalpy", "btu/lb", 28070},
                           {"LiquidEnthalpy", "j/g", 28010},
                           {"LatentHeat", "kcal/kg", 28036},
                           {"LiquidDensity", "lb/ft3", 19091},
                           {"LiquidThermal", "cal/hr-m-c", 35020},
                           {"VaporThermal", "kw/m-k", 35014},
                           {"LiquidViscosity", "pa-sec", 40012},
                           {"VaporViscosity", "lb-sec/ft2", 40029},
                           {"SurfaceTension", "dyne/cm", 42012},
                           {"Expansion", "r", 1012},
                           {"SolidEnthalpy", "cal/kg", 28030},
                           {"SolidDensity", "kg/lit", 19018},
                           {"IdealGasCp", "cal/g-k", 30022},
                           {"LiquidCp", "btu/lb-f", 30030},
                           {"SolidCp", "j/kg-k", 30012},
                           {"CharacteristicVolume", "cm3/g-mole", 22022}};
  for (Row const& row : kRows) {
    auto const* place = std::find_if(std::begin(kCorrelationRows), std::end(kCorrelationRows),
                                     [&](auto const& r) { return r.name == row.name; });
    ASSERT_NE(place, std::end(kCorrelationRows));
    auto const index = static_cast<std::uint32_t>(place - std::begin(kCorrelationRows));
    ASSERT_TRUE(ImportElements(Curve(row.name, row.unit))) << row.name << ": " << Lines();
    EXPECT_EQ(CurveUnit(index), row.code) << row.name;
    for (Row const& other : kRows) {
      if (other.code / 1000 == row.code / 1000) continue;
      EXPECT_FALSE(ImportElements(Curve(row.name, other.unit))) << row.name << " " << other.unit;
    }
  }
  EXPECT_FALSE(ImportElements(Curve("Dielectric", "K"))) << "no words at all";
  EXPECT_FALSE(ImportElements(Curve("Dielectric", "")));
}

// Molar words mean the same as the mass words of their class, since the record has a basis.
TEST_F(ComponentUnitsTest, MolarWordsOfCorrelationsAreThoseOfMass) {
  ASSERT_TRUE(ImportElements(Curve("LatentHeat", "cal/g-mole"))) << Lines();
  EXPECT_EQ(CurveUnit(3), 28028);
  ASSERT_TRUE(ImportElements(Curve("LatentHeat", "KJ/KG-MOL"))) << Lines();
  EXPECT_EQ(CurveUnit(3), 28018);
}

// --- old words through the documents of an import ------------------------------------------------

class OldWordsTest : public ComponentUnitsTest {
 protected:
  // A document of one component with `times` correlations in an old unit.
  void MakeComponent(std::string const& file, int number, int times, char const* name,
                     char const* unit) {
    std::string text =
        "<comp><id number='" + std::to_string(number) + "'> C" + std::to_string(number) + " </id>";
    for (int i = 0; i < times; ++i) text += Curve(name, unit);
    MakeFile(file, text + "</comp>");
  }
  bool ImportThem(std::string const& files) {
    return Import("<library><bank type='PURECOMP' name='B" + std::to_string(++banks_) + "'>" +
                  files + "</bank></library>");
  }
  static constexpr char kTen[] =
      "Ten unit warnings encountered - additional duplicate warnings "
      "will be suppressed";

 private:
  int banks_ = 0;
};

TEST_F(OldWordsTest, CountAndFlagsGoOnThroughTheDocumentsOfOneImport) {
  MakeComponent("a.xml", 1, 6, "LiquidViscosity", "lbs/f");
  MakeComponent("b.xml", 2, 6, "LiquidViscosity", "lbs/f");
  MakeComponent("c.xml", 3, 2, "SurfaceTension", "d/cm");
  std::string const files = "<import file='a.xml'/><import file='b.xml'/><import file='c.xml'/>";
  for (int run = 0; run < 2; ++run) {
    // Components of the previous run are removed, so that there are only warnings.
    if (run == 1) Maint().DeleteBank("PURECOMP", "B1");
    ASSERT_TRUE(ImportThem(files)) << Lines();
    EXPECT_EQ(CountOf(Lines(), "*** a.xml : warning : "), 6U);
    EXPECT_EQ(CountOf(Lines(), "*** b.xml : warning : "), 5U);
    EXPECT_EQ(CountOf(Lines(),
                      std::string("*** b.xml : warning : Component \"C2\" (2) - ") + kTen + "\n"),
              1U);
    EXPECT_EQ(CountOf(Lines(), "*** c.xml : warning : "), 1U) << "the first of its kind alone";
    EXPECT_EQ(Maint().Log().WarningCount(), 12);
  }
}

TEST_F(OldWordsTest, CountGoesOnThroughTheBanksOfOneImport) {
  MakeComponent("a.xml", 1, 11, "LiquidViscosity", "lbs/f");
  MakeComponent("b.xml", 2, 3, "LiquidViscosity", "lbs/f");
  ASSERT_TRUE(
      Import("<library><bank type='PURECOMP' name='ONE'><import file='a.xml'/></bank>"
             "<bank type='PURECOMP' name='TWO'><import file='b.xml'/></bank></library>"));
  EXPECT_EQ(CountOf(Lines(), "*** a.xml : warning : "), 11U);
  EXPECT_EQ(CountOf(Lines(), "*** b.xml : warning : "), 0U);
}

TEST_F(OldWordsTest, WarningsNeverStopASilentRun) {
  Maint().SetLogLevel(0);
  MakeComponent("a.xml", 1, 3, "LiquidViscosity", "lbs/f");
  EXPECT_TRUE(ImportThem("<import file='a.xml'/>"));
  EXPECT_EQ(Lines(), "");
  EXPECT_EQ(Maint().Log().WarningCount(), 3);
  Key_i key;
  key.SetKey(1L);
  ASSERT_TRUE(Maint().ReadItem(record_.Def(), "B1", &key));
  EXPECT_EQ(CurveUnit(7), 40029);
}

TEST_F(OldWordsTest, EmptyWordOfAConductivityIsAssumed) {
  ASSERT_TRUE(ImportElements(Curve("LiquidThermal", "")));
  EXPECT_EQ(CurveUnit(5), 35024);
  EXPECT_EQ(Lines(), Warning("Component \"A\" (7) - Thermal conductivity unit \"\" is ambiguous - "
                             "\"btu/hr-ft-f\" has been assumed"));
}

TEST_F(OldWordsTest, MendedWordOfAnotherDimensionIsUnknown) {
  EXPECT_FALSE(ImportElements(Curve("LatentHeat", "w/mk")));
  EXPECT_EQ(Lines(), Error("Component \"A\" (7) - Unrecognized property unit \"w/mk\" found for "
                           "correlation \"LatentHeat\""));
  EXPECT_EQ(Maint().Log().WarningCount(), 0);
}

}  // namespace
}  // namespace zel
