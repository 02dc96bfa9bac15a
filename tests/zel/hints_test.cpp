// What zel says about words that do not mean what was intended, and the units of what it shows.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class HintsTest : public ZelTest {
 protected:
  void Says(std::string const& words, int status, std::string const& message) const {
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, status) << words;
    EXPECT_NE((outcome.err + outcome.out).find(message), std::string::npos)
        << words << "\n"
        << outcome.err << outcome.out;
  }
};

TEST_F(HintsTest, ABareTemperatureBelowTheRange) {
  std::string const hint = "25 is in K and below the range; 25C is in degrees Celsius";
  std::string const plot = "plot VaporPressure ETHANOL -l perry.lb1 -o x.csv ";
  EXPECT_EQ(Json(plot + "--from 25 --to 78C")["warning"], hint);
  EXPECT_FALSE(Json(plot + "--from 25C --to 78C").contains("warning"));
  std::string const grid = "eval ETHANOL VaporPressure -l perry.lb1 --components WATER ";
  EXPECT_EQ(Json(grid + "--at 25")["warning"], hint);
  EXPECT_EQ(Json(grid + "--from 25 --to 350")["warning"], hint);
  EXPECT_FALSE(Json(grid + "--at 300").contains("warning"));
  std::string const one = "eval ETHANOL VaporPressure -l perry.lb1 ";
  EXPECT_EQ(Json(one + "--from 25 --to 350")["warning"], hint);
}

TEST_F(HintsTest, AnOtherConstantKeepsItsCode) {
  Good("copy perry.lb1 own.lb1 --create --bank PERRY --item ETHANOL");
  Good("edit own.lb1 ETHANOL PC=61bar NBP=350 --ref 9");
  std::string const kept = ": reference code 9 is kept; --ref gives another";
  EXPECT_EQ(Json("edit own.lb1 ETHANOL PC=62bar")["warning"], "PC" + kept);
  EXPECT_EQ(Json("edit own.lb1 ETHANOL PC=63bar NBP=351")["warning"], "PC, NBP" + kept);
  EXPECT_FALSE(Json("edit own.lb1 ETHANOL PC=63bar").contains("warning")) << "the same value";
  EXPECT_FALSE(Json("edit own.lb1 ETHANOL PC=64bar --ref 8").contains("warning"));
  EXPECT_FALSE(Json("edit own.lb1 ETHANOL --unset NBP").contains("warning"));
}

TEST_F(HintsTest, AnOtherFieldKeepsItsCode) {
  Good("edit sample.lb1 NRTL ETHANOL WATER bij=-29 --ref 9 --names perry.lb1");
  std::string const words = "edit sample.lb1 NRTL ETHANOL WATER --names perry.lb1 ";
  EXPECT_EQ(Json(words + "bij=-30")["warning"],
            "bij: reference code 9 is kept; --ref gives another");
  EXPECT_FALSE(Json(words + "bij=-31 --ref 8").contains("warning"));
  EXPECT_FALSE(Json(words + "bij=-32 refCode=7").contains("warning"));
}

TEST_F(HintsTest, MolecularWeightsHaveSeveralUnits) {
  json const show = Json("show perry.lb1 PERRY ETHANOL --units g/mol");
  json const row = Row(show["constants"], "keyword", "MW");
  EXPECT_EQ(row["unit"], "g/mol");
  EXPECT_NEAR(row["value"].get<double>(), 46.07, 0.01);
}

TEST_F(HintsTest, AUnitAfterABlank) {
  Good("copy perry.lb1 own.lb1 --create --bank PERRY --item ETHANOL");
  Says("edit own.lb1 ETHANOL NBP=78 C", 2, "a unit follows its number without a blank: NBP=78C");
}

TEST_F(HintsTest, AComponentThatOnlyNamesKnow) {
  Good("copy perry.lb1 own.lb1 --create --bank PERRY --item ETHANOL");
  Good("copy sample.lb1 own.lb1 --bank NRTL");
  Says("edit own.lb1 NRTL ETHANOL WATER bij=-29.2", 1, "--names LIBRARY names a library");
}

TEST_F(HintsTest, PairsAreOfLibraries) {
  Says("pairs NRTL -l sample:SAMPLE", 2,
       "sample.lb1:SAMPLE: pairs takes libraries without a bank: -l sample.lb1");
}

TEST_F(HintsTest, APureNumberHasNoUnitInTables) {
  std::string const table = Good("show sample.lb1 NRTL ETHANOL WATER --names perry.lb1 --csv");
  EXPECT_EQ(table.find("'-,"), std::string::npos) << table;
}

}  // namespace
}  // namespace zel::test
