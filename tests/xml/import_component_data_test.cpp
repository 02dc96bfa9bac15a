// Importing constants and correlations of components.
#include <array>
#include <cmath>

#include "purecomp/tables.h"
#include "tests/support/sample_component.h"
#include "tests/xml/import_fixture.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

using test::ComponentBank;

class ImportDataTest : public test::ImportTest {
 protected:
  ImportDataTest() { InitZelAccess(); }

  bool ImportElements(std::string const& elements) {
    MakeFile("doc.xml", "<comp><id number='7'> A </id>" + elements + "</comp>");
    bool const good =
        Caught([&] { return Maint().ImportComponent(Path("doc.xml").c_str(), "PURE", true); });
    Key_i key;
    key.SetKey(7L);
    found_ = Maint().ReadItem(bank_.Def(), "PURE", &key);
    return good;
  }
  double Property(std::uint32_t index) {
    double value = 0.0;
    EXPECT_EQ(bank_->GetProperty(index, &value), kStatusOk);
    return value;
  }
  std::uint32_t RefCode(std::uint32_t index) {
    std::uint32_t code = 99;
    bank_->GetPropertyRefCode(index, &code);
    return code;
  }
  static std::string Labelled(std::string const& text) {
    return Error("Component \"A\" (7) - " + text);
  }
  struct Curve {
    ZelStatus status;
    std::int32_t equation, tempUnit, propUnit, logBasis, basis, count;
    double factor, tMin, tMax;
    std::array<double, 15> c;
    std::uint32_t refCode = 99;
  };
  Curve CurveOf(std::uint32_t index) {
    Curve curve{};
    curve.status = bank_->GetCorrelation(index, &curve.equation, &curve.tempUnit, &curve.propUnit,
                                         &curve.factor, &curve.logBasis, &curve.basis, &curve.count,
                                         &curve.tMin, &curve.tMax, curve.c.data());
    bank_->GetCorrelationRefCode(index, &curve.refCode);
    return curve;
  }

  ComponentBank bank_;
  bool found_ = false;
};

// --- constants -----------------------------------------------------------------------------------

TEST_F(ImportDataTest, EveryConstantIsTakenUnderItsName) {
  std::string elements;
  double stamp = 1.0;
  for (PropertyRow const& row : kPropertyRows) {
    if (row.index == kEndOfWritten) break;
    stamp += 1.0;
    std::string name(row.keyword);
    for (char& c : name) c = static_cast<char>(std::tolower(c));
    elements += "<property name='" + name + "' value=' " + std::to_string(stamp) + "' refCode='" +
                std::to_string(row.index + 1) + "'/>";
  }
  ASSERT_TRUE(ImportElements(elements)) << Lines();
  stamp = 1.0;
  for (PropertyRow const& row : kPropertyRows) {
    if (row.index == kEndOfWritten) break;
    auto const index = static_cast<std::uint32_t>(row.index);
    EXPECT_EQ(Property(index), stamp += 1.0) << row.keyword;
    EXPECT_EQ(RefCode(index), index + 1) << row.keyword;
  }
}

TEST_F(ImportDataTest, NameAndValueMustBeThere) {
  EXPECT_FALSE(
      ImportElements("<property/><property value='1'/><property name='TC'/><property name='' "
                     "value=''/>"));
  EXPECT_EQ(
      Lines(),
      Labelled("A property name and value are required on the component <property> node") +
          Labelled("A property name is required on the component <property> node") +
          Labelled("A property value is required on the component <property> node") +
          Labelled("A property name and value are required on the component <property> node"));
  EXPECT_TRUE(found_);
}

// Rows that mark the end of a part of the table have no name: an empty name must not find them.
TEST_F(ImportDataTest, EmptyNameIsAMissingOne) {
  EXPECT_FALSE(
      ImportElements("<property name='' value='5'/><correlation name='' equation='1'> 1 "
                     "</correlation>"));
  EXPECT_EQ(Lines(),
            Labelled("A property name is required on the component <property> node") +
                Labelled("A correlation name is required on the component <correlation> node"));
  for (std::uint32_t i = 0; i < 100; ++i) EXPECT_TRUE(gen_IsUndefDouble(Property(i))) << i;
}

TEST_F(ImportDataTest, UnknownConstantsAndAttributesAreReported) {
  EXPECT_FALSE(
      ImportElements("<property name='TX' value='1'/><property name='TC' value='5' foo='1'/>"));
  EXPECT_EQ(Lines(),
            Labelled("Unrecognized property \"TX\" found") +
                Labelled("Unrecognized attribute \"foo\" found within component <property> node"));
  EXPECT_EQ(Property(1), 5.0);
}

TEST_F(ImportDataTest, UnitsAreConvertedWhereThereIsADimension) {
  ASSERT_TRUE(
      ImportElements("<property name='TC' value='100' uom='C'/><property name='ZC' value='100' "
                     "uom='C'/><property name='PC' value='1' uom='BAR'/><property name='NBP' "
                     "value='300' uom=''/>"))
      << Lines();
  EXPECT_NEAR(Property(1), 373.15, 1e-4);
  EXPECT_EQ(Property(4), 100.0);
  EXPECT_NEAR(Property(2), 100.0, 1e-4);
  EXPECT_EQ(Property(8), 300.0);
}

TEST_F(ImportDataTest, UnknownUnitLeavesTheConstantOut) {
  EXPECT_FALSE(ImportElements("<property name='TC' value='100' uom='kPa'/>"));
  EXPECT_EQ(Lines(), Labelled("Unrecognized unit of measure \"kPa\" found for property \"TC\""));
  EXPECT_TRUE(gen_IsUndefDouble(Property(1)));
}

TEST_F(ImportDataTest, AliasLandsOnItsConstant) {
  ASSERT_TRUE(ImportElements("<property name='MVOL60F' value='0.05'/>"));
  EXPECT_EQ(Property(10), 0.05);
}

TEST_F(ImportDataTest, RefCodeIsAnyCaseAndOptional) {
  ASSERT_TRUE(
      ImportElements("<property name='TC' value='5'/><property name='PC' value='6' REFCODE='9'/>"));
  EXPECT_EQ(RefCode(1), 0U);
  EXPECT_EQ(RefCode(2), 9U);
}

// --- correlations --------------------------------------------------------------------------------

TEST_F(ImportDataTest, CorrelationIsTaken) {
  ASSERT_TRUE(ImportElements(
      "<correlation name='vaporpressure' equation='20' tempUnit='K' propUnit='kPa' logBasis='LOG' "
      "moleWtBasis='wt' tMin='159.05' tMax='514' refCode='11'> 1.5 -2e3 3 </correlation>"))
      << Lines();
  Curve const c = CurveOf(0);
  EXPECT_EQ(c.status, kStatusOk);
  EXPECT_EQ(c.equation, 20);
  EXPECT_EQ(c.tempUnit, 10);
  EXPECT_EQ(c.propUnit, 4015);
  EXPECT_EQ(c.logBasis, 2);
  EXPECT_EQ(c.tMin, 159.05);
  EXPECT_EQ(c.tMax, 514.0);
  EXPECT_EQ(c.refCode, 11U);
  ASSERT_EQ(c.count, 3);
  EXPECT_EQ(c.c[0], 1.5);
  EXPECT_EQ(c.c[1], -2000.0);
  EXPECT_EQ(c.c[2], 3.0);
}

TEST_F(ImportDataTest, EveryCorrelationIsTakenUnderItsName) {
  std::string elements;
  for (CorrelationRow const& row : kCorrelationRows) {
    elements +=
        "<correlation name='" + std::string(row.name) + "' equation='1'> 1 2 </correlation>";
  }
  ASSERT_TRUE(ImportElements(elements)) << Lines();
  for (std::uint32_t i = 0; i < kNamedCorrelations; ++i) {
    EXPECT_EQ(CurveOf(i).status, kStatusOk) << kCorrelationRows[i].name;
    EXPECT_EQ(CurveOf(i).count, 2);
  }
}

TEST_F(ImportDataTest, WordsHaveCodes) {
  struct Row {
    char const* attributes;
    std::int32_t Curve::*member;
    std::int32_t value;
  };
  Row const rows[] = {
      {"tempUnit='k'", &Curve::tempUnit, 10},        {"tempUnit='C'", &Curve::tempUnit, 11},
      {"tempUnit='r'", &Curve::tempUnit, 12},        {"tempUnit='F'", &Curve::tempUnit, 13},
      {"logBasis='ln'", &Curve::logBasis, 1},        {"logBasis='Log'", &Curve::logBasis, 2},
      {"moleWtBasis='M'", &Curve::basis, 1},         {"moleWtBasis='Wt'", &Curve::basis, 2},
      {"propUnit='kj/kg'", &Curve::propUnit, 28018}, {"PROPUNIT='J/KG'", &Curve::propUnit, 28012}};
  for (Row const& row : rows) {
    // The last of two elements is used, whatever the first one is.
    ASSERT_TRUE(
        ImportElements("<correlation name='LatentHeat' equation='1' tempUnit='F' "
                       "logBasis='log' moleWtBasis='wt'> 2 </correlation>"
                       "<correlation name='LatentHeat' equation='1' " +
                       std::string(row.attributes) + "> 1 </correlation>"))
        << Lines();
    EXPECT_EQ(CurveOf(3).*row.member, row.value) << row.attributes;
  }
}

// A code that a component cannot hold leaves the existing one unchanged.
TEST_F(ImportDataTest, ReferenceCodesBeyondTheirRange) {
  struct Row {
    char const* code;
    std::uint32_t kept;
  };
  for (Row const& row : {Row{"32000", 32000}, Row{"32001", 5}, Row{"-1", 5}, Row{"0", 0}}) {
    std::string const code = "refCode='" + std::string(row.code) + "'";
    ASSERT_TRUE(
        ImportElements("<property name='TC' value='1' refCode='5'/>"
                       "<property name='TC' value='2' " +
                       code +
                       "/><correlation name='LatentHeat' equation='1' refCode='5'> 1 "
                       "</correlation><correlation name='LatentHeat' equation='1' " +
                       code + "> 2 </correlation>"))
        << Lines();
    EXPECT_EQ(RefCode(1), row.kept) << row.code;
    EXPECT_EQ(CurveOf(3).refCode, row.kept) << row.code;
  }
}

TEST_F(ImportDataTest, UnknownWordsLeaveTheCorrelationOut) {
  struct Row {
    char const* attribute;
    char const* what;
  };
  for (Row const& row : {Row{"tempUnit", "temperature unit"}, Row{"propUnit", "property unit"},
                         Row{"logBasis", "log form"}, Row{"moleWtBasis", "basis"}}) {
    EXPECT_FALSE(ImportElements("<correlation name='LatentHeat' equation='1' " +
                                std::string(row.attribute) + "='x' foo='1'> 1 </correlation>"));
    EXPECT_EQ(Lines(),
              Labelled("Unrecognized attribute \"foo\" found within component <correlation> "
                       "node") +
                  Labelled("Unrecognized " + std::string(row.what) +
                           " \"x\" found for correlation \"LatentHeat\""));
    EXPECT_NE(CurveOf(3).status, kStatusOk);
    EXPECT_TRUE(found_);
  }
}

TEST_F(ImportDataTest, NameAndEquationMustBeThere) {
  EXPECT_FALSE(
      ImportElements("<correlation/><correlation equation='1'/><correlation "
                     "name='LatentHeat'/><correlation name='None' equation='1'/>"));
  EXPECT_EQ(
      Lines(),
      Labelled("A correlation name and equation number are required on the component <correlation> "
               "node") +
          Labelled("A correlation name is required on the component <correlation> node") +
          Labelled("An equation number is required on the component <correlation> node") +
          Labelled("Unrecognized correlation \"None\" found"));
}

TEST_F(ImportDataTest, UnknownAttributeIsMetInBothPasses) {
  EXPECT_FALSE(
      ImportElements("<correlation name='LatentHeat' equation='1' foo='1'> 1 </correlation>"));
  std::string const line =
      Labelled("Unrecognized attribute \"foo\" found within component <correlation> node");
  EXPECT_EQ(Lines(), line + line);
  EXPECT_EQ(CurveOf(3).status, kStatusOk);
}

TEST_F(ImportDataTest, SixteenthCoefficientIsNotRead) {
  ASSERT_TRUE(
      ImportElements("<correlation name='LatentHeat' equation='1'> 1 2 3 4 5 6 7 8 9 10 11 12 13 "
                     "14 15 16 17 </correlation>"));
  Curve const c = CurveOf(3);
  EXPECT_EQ(c.count, 15);
  EXPECT_EQ(c.c[14], 15.0);
}

TEST_F(ImportDataTest, SecondElementAddsToTheCount) {
  ASSERT_TRUE(ImportElements(
      "<correlation name='LatentHeat' equation='1' tMin='5' refCode='4'> 1 2 </correlation>"
      "<correlation name='LatentHeat' equation='2'> 7 </correlation>"));
  Curve const c = CurveOf(3);
  EXPECT_EQ(c.equation, 2);
  EXPECT_EQ(c.tMin, 5.0) << "what the first gave stays";
  EXPECT_EQ(c.refCode, 4U);
  ASSERT_EQ(c.count, 3);
  EXPECT_EQ(c.c[0], 7.0);
  EXPECT_EQ(c.c[1], 2.0);
  EXPECT_TRUE(gen_IsUndefDouble(c.c[2]));
}

TEST_F(ImportDataTest, CountsBeyondTheRecordStayWithin) {
  std::string ten;
  for (int i = 0; i < 10; ++i) ten += " 1";
  std::string const element =
      "<correlation name='LatentHeat' equation='1'>" + ten + "</correlation>";
  ASSERT_TRUE(ImportElements(element + element));
  EXPECT_NE(CurveOf(3).status, kStatusOk) << "20 coefficients are no sound correlation";
}

TEST_F(ImportDataTest, OldUnitWordsAreMendedWithAWarning) {
  ASSERT_TRUE(
      ImportElements("<correlation name='LiquidThermal' equation='1' propUnit='w/mk'> 1 "
                     "</correlation><correlation name='VaporThermal' equation='1' "
                     "propUnit='btu/hr'> 1 </correlation>"));
  EXPECT_EQ(CurveOf(5).propUnit, 35010);
  EXPECT_EQ(CurveOf(6).propUnit, 35024);
  std::string const label = "Component \"A\" (7) - ";
  EXPECT_EQ(Lines(), Warning(label + "Thermal conductivity unit \"w/mk\" is obsolete and should be "
                                     "replaced with \"w/m-k\"") +
                         Warning(label + "Thermal conductivity unit \"btu/hr\" is ambiguous - "
                                         "\"btu/hr-ft-f\" has been assumed"));
}

TEST_F(ImportDataTest, EachImportBeginsItsWarningsAnew) {
  std::string const element =
      "<correlation name='LiquidThermal' equation='1' propUnit='w/mk'> 1 "
      "</correlation>";
  std::string twelve;
  for (int i = 0; i < 12; ++i) twelve += element;
  ASSERT_TRUE(ImportElements(twelve));
  EXPECT_NE(Lines().find("Ten unit warnings"), std::string::npos);
  ASSERT_TRUE(ImportElements(element));
  EXPECT_NE(Lines().find("obsolete"), std::string::npos);
}

TEST_F(ImportDataTest, MolarVolumeAsItIsWrittenIsRefused) {
  EXPECT_FALSE(
      ImportElements("<correlation name='CharacteristicVolume' equation='1' "
                     "propUnit='lit/kg-mole'> 1 </correlation>"));
  EXPECT_EQ(Lines(), Labelled("Unrecognized property unit \"lit/kg-mole\" found for correlation "
                              "\"CharacteristicVolume\""));
  EXPECT_TRUE(
      ImportElements("<correlation name='CharacteristicVolume' equation='1' "
                     "propUnit='liter/kg-mole'> 1 </correlation>"));
  EXPECT_EQ(CurveOf(17).propUnit, 22012);
}

}  // namespace
}  // namespace zel
