// The text that is written for components.
#include <array>

#include "tests/xml/export_fixture.h"
#include "xml/export_component.h"

namespace zel {
namespace {

class ExportComponentTest : public test::ExportTest {
 protected:
  ExportComponentTest() {
    char const ids[12][9] = {"A"};
    bank_->SetIdentity(7, 0, 0, ids, "N", "", 0);
    bank_->SetPhase(3);
  }
  std::string Text(std::size_t indent = 0) {
    platform::TextFile file(Out("c"));
    zel::PutComponent(file, bank_.Get(), indent);
    file.Close();
    return FileText(Out("c"));
  }
  // The text between the identity and the end.
  std::string Inner() {
    std::string const text = Text();
    std::size_t const start = text.find("  </id>\n") + 8;
    return text.substr(start, text.find("</comp>") - start);
  }
  void SetCurve(std::uint32_t index, std::int32_t tempUnit, std::int32_t propUnit,
                std::int32_t logBasis, std::int32_t basis, std::int32_t count, double tMin,
                double tMax) {
    std::array<double, 15> c{};
    for (std::size_t i = 0; i < c.size(); ++i) c[i] = static_cast<double>(i) - 1.5;
    bank_->ResetCorrelation(index);
    bank_->SetCorrelation(index, 20, tempUnit, propUnit, logBasis, basis, count, tMin, tMax,
                          c.data());
  }

  test::ComponentBank bank_;
};

TEST_F(ExportComponentTest, LeastComponent) {
  EXPECT_EQ(Text(),
            "<comp>\n  <id number=\"7\" name=\"N\" formula=\"\">\n    A\n  </id>\n</comp>\n");
  EXPECT_EQ(Text(2),
            "  <comp>\n    <id number=\"7\" name=\"N\" formula=\"\">\n      A\n    </id>\n"
            "  </comp>\n");
}

TEST_F(ExportComponentTest, EveryLineIsIndented) {
  test::FillComponent(bank_.Get());
  bank_->SetPhase(4);
  std::string const text = Text();
  std::string expected;
  for (std::size_t line = 0; line < text.size(); line = text.find('\n', line) + 1) {
    expected += "  " + text.substr(line, text.find('\n', line) + 1 - line);
  }
  for (char const* element : {"<flags", "<smiles>", "<structure", "<property", "<correlation"}) {
    EXPECT_NE(text.find("\n  " + std::string(element)), std::string::npos) << element;
  }
  EXPECT_EQ(Text(2), expected);
}

TEST_F(ExportComponentTest, IdentityHasWhatThereIs) {
  char const ids[12][9] = {"A", "", "C"};
  bank_->SetIdentity(10000007, 64175, 23, ids, "Et\"han\"ol", "C2H6O", 1);
  EXPECT_EQ(Text(),
            "<comp>\n  <id number=\"10000007\" name=\"Et%quot;han%quot;ol\" formula=\"C2H6O\" "
            "casNum=\"64-17-5\" refCode=\"23\" keepFormula=\"1\">\n    A C\n  </id>\n</comp>\n");
  bank_->SetIdentity(7, -1, -2, ids, "a<&>b", "", 0);
  EXPECT_EQ(Text().substr(0, 59),
            "<comp>\n  <id number=\"7\" name=\"a<&>b\" formula=\"\">\n    A C\n  ");
}

TEST_F(ExportComponentTest, PhasesHaveWordsButTheUsualOne) {
  struct Row {
    std::int32_t phase;
    char const* text;
  };
  for (Row const& row :
       {Row{0, "  <flags phase=\"NONE\" />\n"}, Row{1, ""}, Row{2, ""}, Row{3, ""},
        Row{4, "  <flags phase=\"S\" />\n"}, Row{5, ""}, Row{6, "  <flags phase=\"LS\" />\n"},
        Row{7, "  <flags phase=\"VLS\" />\n"}}) {
    bank_->SetPhase(row.phase);
    EXPECT_EQ(Inner(), row.text) << row.phase;
  }
}

TEST_F(ExportComponentTest, SmilesText) {
  bank_->SetSmiles("CC(=O)C");
  EXPECT_EQ(Inner(), "  <smiles>\n    CC(=O)C\n  </smiles>\n");
}

TEST_F(ExportComponentTest, StructuresByModel) {
  char const* const words[] = {"",
                               " model=\"orig-public\"",
                               " model=\"orig-cons\"",
                               " model=\"dort-public\"",
                               " model=\"dort-cons\"",
                               " model=\"lyngby\"",
                               " model=\"joback\""};
  std::string expected;
  for (std::uint32_t model = 0; model < 7; ++model) {
    std::int32_t const ids[10] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    std::int32_t const counts[10] = {3, -1};
    bank_->SetStructure(model, 2, ids, counts);
    expected += "  <structure" + std::string(words[model]) + ">\n    1(3) 2(-1)\n  </structure>\n";
  }
  EXPECT_EQ(Inner(), expected);
}

TEST_F(ExportComponentTest, ConstantsInTheOrderOfTheTable) {
  bank_->SetProperty(47, 1234567.8);
  bank_->SetProperty(0, 46.0684);
  bank_->SetProperty(18, 0.0);
  bank_->SetProperty(22, 5.0);  // has no name
  bank_->SetPropertyRefCode(47, 32000);
  EXPECT_EQ(Inner(),
            "  <property name=\"MW\" value=\"46.0684\" />\n"
            "  <property name=\"VDWA\" value=\"0\" />\n"
            "  <property name=\"HVAPNBP\" value=\"1234568\" refCode=\"32000\" />\n");
}

// Keywords by index, as in the printed table.
TEST_F(ExportComponentTest, ConstantsHaveKeywords) {
  struct Row {
    std::uint32_t index;
    char const* keyword;
  };
  constexpr Row kRows[] = {{0, "MW"},          {1, "TC"},
                           {2, "PC"},          {3, "VC"},
                           {4, "ZC"},          {5, "ACENTRIC"},
                           {6, "CHAO"},        {7, "NMP"},
                           {8, "NBP"},         {9, "SG60F"},
                           {10, "MVOL25C"},    {11, "SOLUPARA"},
                           {12, "PARACHOR"},   {13, "RACKETT"},
                           {14, "DIPOLE"},     {15, "RADIUS"},
                           {16, "DIELECTRIC"}, {17, "TDIELECTRIC"},
                           {18, "VDWA"},       {19, "VDWV"},
                           {23, "GFORMATION"}, {24, "HFORMATION"},
                           {25, "FLASHPOINT"}, {26, "LOFLAMM"},
                           {27, "HIFLAMM"},    {28, "AUTOIGNITION"},
                           {33, "GHV"},        {34, "LHV"},
                           {35, "CNUM"},       {36, "ZNUM"},
                           {37, "TTP"},        {38, "PTP"},
                           {39, "SVTB"},       {40, "SLTB"},
                           {41, "SLTM"},       {42, "HVTB"},
                           {43, "HLTB"},       {44, "HLTM"},
                           {45, "HCOMBUST"},   {46, "HFUSIONNMP"},
                           {47, "HVAPNBP"}};
  std::string expected;
  for (Row const& row : kRows) {
    expected += "  <property name=\"" + std::string(row.keyword) + "\" value=\"" +
                std::to_string(row.index + 1) + ".5\" />\n";
  }
  for (std::uint32_t i = 0; i < 100; ++i) bank_->SetProperty(i, i + 1.5);
  EXPECT_EQ(Inner(), expected) << "no other index, and no alias";
}

// In the order of their numbers; a basis is written only where there is a choice.
TEST_F(ExportComponentTest, CorrelationsHaveNames) {
  struct Row {
    char const* name;
    bool hasBasis;
  };
  constexpr Row kRows[] = {
      {"VaporPressure", false},  {"IdealEnthalpy", true},    {"LiquidEnthalpy", true},
      {"LatentHeat", true},      {"LiquidDensity", true},    {"LiquidThermal", false},
      {"VaporThermal", false},   {"LiquidViscosity", false}, {"VaporViscosity", false},
      {"SurfaceTension", false}, {"Expansion", false},       {"SolidEnthalpy", true},
      {"SolidDensity", true},    {"IdealGasCp", true},       {"LiquidCp", true},
      {"SolidCp", true},         {"Dielectric", false},      {"CharacteristicVolume", true}};
  std::string expected;
  std::uint32_t index = 0;
  for (Row const& row : kRows) {
    SetCurve(index++, 0, 0, 0, 2, 2, gen_GetUndefDouble(), 5.0);
    expected += "  <correlation name=\"" + std::string(row.name) + "\" equation=\"20\"" +
                (row.hasBasis ? " moleWtBasis=\"wt\"" : "") +
                " tMax=\"5\">\n    -1.5 -0.5\n  </correlation>\n";
  }
  EXPECT_EQ(Inner(), expected);
}

TEST_F(ExportComponentTest, CorrelationWithEverything) {
  SetCurve(0, 10, 4015, 1, 1, 3, 159.05, 514.0);
  bank_->SetCorrelationRefCode(0, 11);
  EXPECT_EQ(Inner(),
            "  <correlation name=\"VaporPressure\" equation=\"20\" tempUnit=\"k\" propUnit=\"kpa\" "
            "logBasis=\"ln\" tMin=\"159.05\" tMax=\"514\" refCode=\"11\">\n"
            "    -1.5 -0.5 0.5\n  </correlation>\n")
      << "a pressure has no basis";
  SetCurve(3, 10, 28018, 1, 1, 3, 159.05, 514.0);
  bank_->ResetCorrelation(0);
  bank_->SetCorrelationRefCode(3, 11);
  EXPECT_EQ(Inner(),
            "  <correlation name=\"LatentHeat\" equation=\"20\" tempUnit=\"k\" propUnit=\"kj/kg\" "
            "logBasis=\"ln\" moleWtBasis=\"m\" tMin=\"159.05\" tMax=\"514\" refCode=\"11\">\n"
            "    -1.5 -0.5 0.5\n  </correlation>\n");
}

TEST_F(ExportComponentTest, CorrelationWithTheLeast) {
  SetCurve(0, 0, 0, 0, 0, 1, gen_GetUndefDouble(), gen_GetUndefDouble());
  std::string const text = Inner();
  for (char const* word : {"tempUnit", "propUnit", "tMin", "tMax", "refCode"}) {
    EXPECT_EQ(text.find(word), std::string::npos) << word << "\n" << text;
  }
}

TEST_F(ExportComponentTest, WordsOfACorrelation) {
  char const* const temps[] = {"k", "c", "r", "f"};
  for (std::int32_t i = 0; i < 4; ++i) {
    SetCurve(3, 10 + i, 28018, 2, 2, 1, 1.0, gen_GetUndefDouble());
    EXPECT_EQ(Inner(), "  <correlation name=\"LatentHeat\" equation=\"20\" tempUnit=\"" +
                           std::string(temps[i]) +
                           "\" propUnit=\"kj/kg\" logBasis=\"log\" moleWtBasis=\"wt\" tMin=\"1\">\n"
                           "    -1.5\n  </correlation>\n");
  }
}

TEST_F(ExportComponentTest, UndefinedCoefficientIsANumber) {
  std::array<double, 15> c;
  c.fill(gen_GetUndefDouble());
  bank_->SetCorrelation(3, 1, 10, 28018, 1, 1, 2, 1.0, 2.0, c.data());
  EXPECT_NE(Inner().find("\n    -1e+35 -1e+35\n"), std::string::npos);
}

// Codes and words as in the printed table of words.
TEST_F(ExportComponentTest, UnitsHaveWords) {
  struct Row {
    std::int32_t code;
    char const* word;
  };
  constexpr Row kRows[] = {{1010, "k"},
                           {1011, "c"},
                           {1012, "r"},
                           {1013, "f"},
                           {4010, "dyne/cm2"},
                           {4012, "n/m2"},
                           {4014, "pa"},
                           {4015, "kpa"},
                           {4016, "mpa"},
                           {4017, "bar"},
                           {4019, "mm hg"},
                           {4021, "kg/cm2"},
                           {4025, "atm"},
                           {4026, "psia"},
                           {4032, "in hg"},
                           {4033, "mbar"},
                           {19012, "g/lit"},
                           {19018, "kg/lit"},
                           {19026, "lb/gal"},
                           {19030, "lb/bbl"},
                           {19063, "g/cm3"},
                           {19067, "g/m3"},
                           {19073, "kg/cm3"},
                           {19081, "kg/m3"},
                           {19089, "lb/in3"},
                           {19091, "lb/ft3"},
                           {22012, "lit/kg-mole"},
                           {22014, "lit/g-mole"},
                           {22016, "m3/g-mole"},
                           {22018, "gal/lb-mole"},
                           {22020, "cm3/kg-mole"},
                           {22022, "cm3/g-mole"},
                           {22024, "m3/kg-mole"},
                           {22026, "in3/lb-mole"},
                           {22028, "ft3/lb-mole"},
                           {22034, "bbl/lb-mole"},
                           {28010, "j/g"},
                           {28012, "j/kg"},
                           {28016, "kj/g"},
                           {28018, "kj/kg"},
                           {28028, "cal/g"},
                           {28030, "cal/kg"},
                           {28064, "cal/kg"},
                           {28034, "kcal/g"},
                           {28058, "kcal/g"},
                           {28036, "kcal/kg"},
                           {28060, "kcal/kg"},
                           {28044, "btu/lb"},
                           {28070, "btu/lb"},
                           {30010, "j/g-k"},
                           {30012, "j/kg-k"},
                           {30014, "kj/g-k"},
                           {30016, "kj/kg-k"},
                           {30022, "cal/g-k"},
                           {30024, "cal/kg-k"},
                           {30026, "kcal/g-k"},
                           {30028, "kcal/kg-k"},
                           {30030, "btu/lb-f"},
                           {35010, "w/m-k"},
                           {35011, "w/m-k"},
                           {35014, "kw/m-k"},
                           {35018, "cal/sec-cm-c"},
                           {35020, "cal/hr-m-c"},
                           {35022, "kcal/hr-m-c"},
                           {35024, "btu/hr-ft-f"},
                           {40010, "cp"},
                           {40012, "pa-sec"},
                           {40029, "lb-sec/ft2"},
                           {42012, "dyne/cm"},
                           {42013, "dyne/cm"},
                           {42015, "n/m"},
                           {42016, "n/m"}};
  for (Row const& row : kRows) {
    SetCurve(3, 10, row.code, 1, 1, 1, 1.0, 2.0);
    EXPECT_NE(Inner().find(" propUnit=\"" + std::string(row.word) + "\" "), std::string::npos)
        << row.code;
  }
  for (std::int32_t code : {0, 1014, 28020, 50000}) {
    SetCurve(3, 10, code, 1, 1, 1, 1.0, 2.0);
    EXPECT_EQ(Inner().find("propUnit"), std::string::npos) << code;
  }
}

}  // namespace
}  // namespace zel
