// Constants without the data to compute them, and components that nobody has.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class MissingTest : public ZelTest {
 protected:
  void Make(std::string const& id, std::string const& parts) const {
    MakeFile("c.xml", "<bank type=\"PURECOMP\" name=\"B\"><comp><id number=\"7\" name=\"X\"" + id +
                          "> XXX </id>" + parts + "</comp></bank>");
    Good("create c.lb1 --force");
    Good("import c.lb1 c.xml");
  }
};

// The parachor is computed from an undefined critical volume, the carbon number and the heats from
// a missing formula, the acentric factor from a record in degrees Celsius.
TEST_F(MissingTest, ConstantsFromUndefinedOnesAreMissing) {
  struct {
    char const* id;
    char const* parts;
    char const* keyword;
    bool isThere;
  } const rows[] = {
      {"", "", "PARACHOR", false},
      {"", "<property name=\"MW\" value=\"46\" /><property name=\"TC\" value=\"514\" />",
       "PARACHOR", false},
      {"", "<property name=\"MW\" value=\"46\" /><property name=\"VC\" value=\"0.168\" />",
       "PARACHOR", false},
      {"",
       "<property name=\"MW\" value=\"46\" /><property name=\"TC\" value=\"514\" />"
       "<property name=\"VC\" value=\"0.168\" />",
       "PARACHOR", true},
      {"", "<property name=\"MW\" value=\"146\" />", "PARACHOR", true},
      {"", "", "CNUM", false},
      {" formula=\"petro\"", "", "CNUM", false},
      {" formula=\"C2H6O\"", "", "CNUM", true},
      {"", "<property name=\"HFORMATION\" value=\"-234950\" />", "HCOMBUST", false},
      {"", "<property name=\"HFORMATION\" value=\"-234950\" />", "LHV", false},
      {" formula=\"C2H6O\"", "<property name=\"HFORMATION\" value=\"-234950\" />", "LHV", true},
      {"", "<property name=\"LHV\" value=\"1234950\" />", "HCOMBUST", true},
      {"",
       "<property name=\"TC\" value=\"500\" /><property name=\"PC\" value=\"5000\" />"
       "<correlation name=\"VaporPressure\" equation=\"1\" tempUnit=\"k\" propUnit=\"kpa\" "
       "tMin=\"200\" tMax=\"500\"> 500 </correlation>",
       "ACENTRIC", true},
      {"",
       "<property name=\"TC\" value=\"500\" /><property name=\"PC\" value=\"5000\" />"
       "<correlation name=\"VaporPressure\" equation=\"1\" tempUnit=\"c\" propUnit=\"kpa\" "
       "tMin=\"0\" tMax=\"200\"> 500 </correlation>",
       "ACENTRIC", false},
  };
  for (auto const& row : rows) {
    Make(row.id, row.parts);
    std::string const what = row.keyword + (" of " + std::string(row.id)) + row.parts;
    json const found = Row(Json("search XXX -l c.lb1")["constants"], "keyword", row.keyword);
    EXPECT_EQ(!found.is_null(), row.isThere) << what << found;
    json const why = Json("why XXX " + std::string(row.keyword) + " -l c.lb1");
    EXPECT_EQ(why["state"], row.isThere ? "filled in" : "missing") << what;
    EXPECT_EQ(why["value"].is_number(), row.isThere) << what << why;
    EXPECT_EQ(why["from"].is_null(), !row.isThere) << what << why;
    json const data = Json("coverage XXX -l c.lb1 --details")["data"];
    EXPECT_EQ(Row(data, "datum", row.keyword)["state"], why["state"]) << what;
    json const shown = Json("show c.lb1 B XXX --complete")["constants"];
    EXPECT_EQ(!Row(shown, "keyword", row.keyword).is_null(), row.isThere) << what;
  }
}

// No completed constant of the published data is absurdly large.
TEST_F(MissingTest, CompletedConstantsArePlausible) {
  json const found = Json("find crc.lb1");
  for (json const& component : found["components"]) {
    static int every = 0;
    if (++every % 20 != 0) continue;
    std::string const id = component["id"];
    json const report = Json("search '" + id + "' -l crc.lb1");
    for (json const& row : report["constants"]) {
      EXPECT_LT(std::abs(row["value"].get<double>()), 1e10) << id << row;
    }
  }
}

TEST_F(MissingTest, UnknownComponentIsAnErrorThatNamesTheNearest) {
  struct {
    char const* words;
    char const* text;
  } const rows[] = {
      {"coverage ETHANOL WTER -l perry.lb1",
       "component WTER is not in perry.lb1:PERRY; the "
       "nearest ID is WATER (Water)"},
      {"search ETHANLO -l perry.lb1 -l crc.lb1", "the nearest ID is ETHANOL (Ethanol)"},
      {"why ETHANLO TC -l perry.lb1", "the nearest ID is ETHANOL"},
      {"eval ETHANLO VaporP -l perry.lb1", "the nearest ID is ETHANOL"},
      {"plot VaporP ETHANLO -l perry.lb1 -o x.svg", "the nearest ID is ETHANOL"},
      {"show perry.lb1 PERRY ETHANLO",
       "has no item ETHANLO; ETHANLO is not a component; the "
       "nearest ID is ETHANOL (Ethanol)"},
      {"show sample.lb1 NRTL ETHANOL WTER --names perry.lb1",
       "WTER is not a component; the nearest ID is WATER"},
      {"show sample.lb1 NRTL ETHANOL 19000326 --names perry.lb1", "19000326 is not a component"},
      {"export perry.lb1 --component ETHANLO -o x.xml", "the nearest ID is ETHANOL"},
      {"copy perry.lb1 crc.lb1 --bank PERRY --item ETHANLO", "the nearest ID is ETHANOL"},
      {"delete perry.lb1 PERRY ETHANLO", "the nearest ID is ETHANOL"},
      {"coverage CYCLOHEXANES -l perry.lb1", "the nearest ID is CYCLOHEX (Cyclohexane)"},
      {"show perry.lb1 PERRY CYCLOHEXANES", "the nearest ID is CYCLOHEX (Cyclohexane)"},
      {"search 64-17-6 -l perry.lb1", "the nearest ID is ETHANOL (64-17-5)"},
      {"search 19000326 -l perry.lb1", "the nearest ID is WATER (10000326)"}};
  for (auto const& row : rows) {
    Outcome const outcome = Zel(row.words);
    EXPECT_EQ(outcome.status, 1) << row.words;
    EXPECT_EQ(outcome.out, "") << row.words;
    EXPECT_NE(outcome.err.find(row.text), std::string::npos) << row.words << "\n" << outcome.err;
  }
}

// A name is suggested if it differs in at most a third of the letters, or if it completes what was
// typed.
TEST_F(MissingTest, NothingFarAwayIsSuggested) {
  struct {
    char const* word;
    char const* text;
  } const rows[] = {{"XYLITOL9", "not in crc.lb1:CRC; `zel find crc.lb1` lists components"},
                    {"QJXVW", "not in crc.lb1:CRC; `zel find crc.lb1` lists components"},
                    {"99", "not in crc.lb1:CRC; `zel find crc.lb1` lists components"},
                    {"7783-06-4x", "is not a component ID or name; `zel find crc.lb1` lists"},
                    {"CYCLOHEXA", "begins the names of 3 components"},
                    {"CYCLOHEXXXE", "the nearest ID is CYCLOHEX (Cyclohexane)"},
                    {"ETHAMOL", "the nearest ID is ETHANOL (Ethanol)"},
                    {"64-17-50", "CAS number"}};
  for (auto const& row : rows) {
    Outcome const outcome = Zel("search '" + std::string(row.word) + "' -l crc.lb1");
    EXPECT_EQ(outcome.status, 1) << row.word;
    EXPECT_NE(outcome.err.find(row.text), std::string::npos) << row.word << "\n" << outcome.err;
  }
  EXPECT_EQ(Zel("search QJXVW -l crc.lb1").err.find("nearest"), std::string::npos);
  EXPECT_NE(Zel("show crc.lb1 CRC QJXVWQ").err.find("`zel find crc.lb1` lists components"),
            std::string::npos);
}

TEST_F(MissingTest, PairThatIsNotThereOfKnownComponents) {
  Outcome const outcome = Zel("show sample.lb1 OCTANE ETHANOL --names perry.lb1");
  EXPECT_EQ(outcome.err.find("is not a component"), std::string::npos) << outcome.err;
}

}  // namespace
}  // namespace zel::test
