// The command coverage: models, missing pairs, the matrix.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class CoverageTest : public ZelTest {
 protected:
  static constexpr char kThree[] = "coverage ETHANOL WATER BENZENE -l perry.lb1 -l sample.lb1 ";
};

TEST_F(CoverageTest, PairsOfOneModel) {
  json const pairs = Json(std::string(kThree) + "--model nrtl")["pairs"];
  ASSERT_EQ(pairs.size(), 3U) << pairs;
  EXPECT_EQ(Rows(pairs, "model", "NRTL"), 3U);
  EXPECT_EQ(Row(pairs, "pair", "ETHANOL + WATER")["state"], "stored");
  EXPECT_EQ(Row(pairs, "pair", "WATER + BENZENE")["state"], "missing");
  EXPECT_EQ(Json(std::string(kThree) + "--model NRTL WILSON")["pairs"].size(), 6U);
  // No library has a bank of the model.
  json const none = Json(std::string(kThree) + "--model VANLAAR")["pairs"];
  EXPECT_EQ(Rows(none, "state", "missing"), 3U) << none;
}

TEST_F(CoverageTest, OnlyWhatIsMissing) {
  json const report = Json(std::string(kThree) + "--model NRTL --missing --details");
  ASSERT_EQ(report["pairs"].size(), 1U) << report["pairs"];
  EXPECT_EQ(report["pairs"][0]["pair"], "WATER + BENZENE");
  EXPECT_EQ(Rows(report["data"], "state", "missing"), report["data"].size());
  EXPECT_EQ(Row(report["data"], "datum", "NBP")["component"], "ETHANOL");
}

TEST_F(CoverageTest, Matrix) {
  json const report = Json(std::string(kThree) + "--model NRTL --matrix");
  EXPECT_FALSE(report.contains("pairs"));
  json const& matrix = report["matrix_nrtl"];
  ASSERT_EQ(matrix.size(), 3U) << report;
  json const water = Row(matrix, "component", "WATER");
  EXPECT_EQ(water["ethanol"], "stored");
  EXPECT_EQ(water["benzene"], "missing");
  EXPECT_TRUE(water["water"].is_null());
  EXPECT_EQ(Row(matrix, "component", "BENZENE")["water"], "missing");
  // Ethanol has all of its pairs.
  json const part = Json(std::string(kThree) + "--model NRTL --matrix --missing")["matrix_nrtl"];
  EXPECT_EQ(part.size(), 2U) << part;
  EXPECT_TRUE(Row(part, "component", "ETHANOL").is_null());
}

TEST_F(CoverageTest, ComponentsOfAModel) {
  json const report = Json("coverage --model NRTL -l perry.lb1 -l sample.lb1 --missing");
  std::size_t const count = report["components"].size();
  EXPECT_GT(count, 20U);
  EXPECT_LT(count, 340U);
  json const all = Json("coverage --model NRTL -l perry.lb1 -l sample.lb1")["pairs"];
  EXPECT_EQ(all.size(), count * (count - 1) / 2);
  EXPECT_EQ(report["pairs"].size(), Rows(all, "state", "missing"));
}

TEST_F(CoverageTest, CsvHasThePairs) {
  std::string const csv = Good(std::string(kThree) + "--model NRTL --csv");
  EXPECT_NE(csv.find("model,pair,state,from\n"), std::string::npos) << csv;
  EXPECT_NE(csv.find("NRTL,ETHANOL + WATER,stored,sample.lb1:SAMPLE\n"), std::string::npos) << csv;
  EXPECT_NE(csv.find("NRTL,WATER + BENZENE,missing,\n"), std::string::npos) << csv;
  EXPECT_NE(Good(std::string(kThree) + "--model NRTL --matrix --csv")
                .find("component,ETHANOL,WATER,BENZENE\n"),
            std::string::npos);
}

TEST_F(CoverageTest, UnknownComponentIsAnError) {
  struct {
    char const* words;
    int status;
    char const* text;
  } const rows[] = {
      {"coverage ETHANOL WTER -l perry.lb1 -l sample.lb1 --model NRTL", 1,
       "component WTER is not in perry.lb1:PERRY; the nearest ID is WATER"},
      {"coverage ETHANOL 19000326 -l perry.lb1 --missing", 1, "component 19000326 is not in"},
      {"coverage ETHANOL --model NRLT -l perry.lb1", 1, "did you mean NRTL?"},
      {"coverage ETHANOL --model UNFORIG -l perry.lb1", 1, "UNFORIG is not a model of pairs"},
      {"coverage -l perry.lb1", 2, "name components, or a --model"},
  };
  for (auto const& row : rows) {
    Outcome const outcome = Zel(row.words);
    EXPECT_EQ(outcome.status, row.status) << row.words;
    EXPECT_EQ(outcome.out, "") << row.words;
    EXPECT_NE(outcome.err.find(row.text), std::string::npos) << row.words << "\n" << outcome.err;
  }
}

TEST_F(CoverageTest, NoBankOfAModelIsSaid) {
  std::string const why = "no library of the list has a bank of type NRTL";
  EXPECT_EQ(Json("coverage --model NRTL -l crc.lb1")["warning"], why);
  EXPECT_EQ(Json("coverage ETHANOL WATER --model NRTL -l crc.lb1")["warning"], why);
  EXPECT_EQ(Good("coverage --model NRTL -l crc.lb1"), "warning  " + why + "\n");
  EXPECT_FALSE(
      Json("coverage ETHANOL WATER --model NRTL -l crc.lb1 -l sample.lb1").contains("warning"));
  EXPECT_FALSE(Json("coverage ETHANOL WATER -l crc.lb1").contains("warning"));
  EXPECT_EQ(Json("pairs NRTL ETHANOL WATER -l crc.lb1")["warning"], why);
  EXPECT_EQ(Json("pairs nrtl -l crc.lb1")["warning"], why);
  EXPECT_EQ(Json("pairs NRTL WATER BENZENE -l sample.lb1 -l crc.lb1")["warning"],
            "there is no such pair in sample.lb1:SAMPLE");
  EXPECT_FALSE(Json("pairs NRTL ETHANOL WATER -l sample.lb1 -l crc.lb1").contains("warning"));
}

}  // namespace
}  // namespace zel::test
