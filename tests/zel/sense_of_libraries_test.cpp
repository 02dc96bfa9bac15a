// The plausibility checks between libraries: the datum that is accused is that of the wrong
// library.
#include <algorithm>

#include "tests/zel/sense_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

// Of two libraries that differ, one is accused. Among three it is the odd one out, in whatever
// order they are given.
TEST_F(SenseTest, MagnitudeAcrossLibraries) {
  Warnings(kGood);
  Good("copy own.lb1 other.lb1 --create");
  EXPECT_EQ(WarningsOf("own.lb1 other.lb1 --min-strength 0"), Ids{});
  auto const library = [&](char const* name, char const* dipole) {
    Warnings(With(kGood, "name=\"ACENTRIC\" value=\"0.344\"",
                  std::string("name=\"DIPOLE\" value=\"") + dipole + "\""));
    Good(std::string("copy own.lb1 ") + name + " --create");
  };
  library("one.lb1", "1.8");
  library("two.lb1", "6.2");
  library("three.lb1", "1.81");
  EXPECT_EQ(WarningsOf("one.lb1 two.lb1"), Ids{"magnitude"}) << report_;
  json const& found = report_["findings"][0];
  EXPECT_EQ(found["datum"], "DIPOLE");
  for (char const* text : {"1.8 debye", "6.2 debye", "one.lb1", "two.lb1"}) {
    EXPECT_NE(found["evidence"].get<std::string>().find(text), std::string::npos) << found;
  }
  for (char const* const all : {"one.lb1 two.lb1 three.lb1", "two.lb1 three.lb1 one.lb1"}) {
    EXPECT_EQ(AccusedIn(all), std::vector<std::string>{"DIPOLE of two.lb1"}) << report_;
    EXPECT_GT(report_["findings"][0]["strength"], 0.9) << report_;
  }
}

// The library with the wrong boiling point is accused, although its vapor pressure is right.
TEST_F(SenseTest, VaporPressureAtTheBoilingPointOfAnotherLibrary) {
  Warnings(kGood);
  Good("copy own.lb1 one.lb1 --create");
  for (char const* const wrong : {"376", "390"}) {
    Warnings(With(kGood, "value=\"373.15\"", std::string("value=\"") + wrong + "\""));
    for (char const* const both : {"one.lb1 own.lb1", "own.lb1 one.lb1"}) {
      EXPECT_EQ(AccusedIn(both), std::vector<std::string>{"NBP of own.lb1"}) << report_;
      EXPECT_TRUE(IsOf(report_["findings"][0], "vapor-pressure")) << report_;
      EXPECT_TRUE(IsOf(report_["findings"][0], "magnitude")) << report_;
    }
  }
}

// Only the first and the last one disagree, in whatever order they are given.
TEST_F(SenseTest, EveryLibraryIsHeldAgainstEveryOther) {
  auto const library = [&](char const* name, std::string const& component) {
    Warnings(component);
    Good(std::string("copy own.lb1 ") + name + " --create");
  };
  std::string const curve = kGood;
  std::size_t const begin = curve.find("<correlation name=\"VaporPressure\"");
  std::size_t const end = curve.find("</correlation>", begin) + 14;
  std::string const noCurve = curve.substr(0, begin) + curve.substr(end);
  std::string const boiling = R"(<property name="NBP" value="373.15" refCode="1" />)";
  std::string const acentric = R"(<property name="ACENTRIC" value="0.344" refCode="1" />)";
  std::string const dipole = R"(<property name="DIPOLE" value="1.8" refCode="1" />)";
  library("curve.lb1", With(With(curve, boiling, ""), acentric, dipole));
  library("none.lb1", With(With(noCurve, boiling, ""), acentric, ""));
  library("boiling.lb1",
          With(With(With(noCurve, "value=\"373.15\"", "value=\"390\""), acentric, dipole),
               "value=\"1.8\"", "value=\"6.2\""));
  for (char const* const all : {"curve.lb1 none.lb1 boiling.lb1", "boiling.lb1 none.lb1 curve.lb1",
                                "none.lb1 curve.lb1 boiling.lb1"}) {
    std::vector<std::string> accused = AccusedIn(all);
    std::sort(accused.begin(), accused.end());
    ASSERT_EQ(accused.size(), 2U) << report_;
    EXPECT_EQ(accused[0].substr(0, 6), "DIPOLE") << report_;
    EXPECT_EQ(accused[1], "NBP of boiling.lb1") << report_;
  }
  EXPECT_EQ(WarningsOf("curve.lb1 none.lb1"), Ids{}) << report_;
  EXPECT_EQ(WarningsOf("none.lb1 boiling.lb1"), Ids{}) << report_;
}

// A component without a CAS number, or whose CAS number the other library does not have, is found
// there by its number or an ID.
TEST_F(SenseTest, ComponentsWithoutACasNumberAcrossLibraries) {
  std::string const cas = "casNum=\"7732-18-5\"";
  std::string const first =
      With(kGood, "name=\"ACENTRIC\" value=\"0.344\"", "name=\"DIPOLE\" value=\"1.8\"");
  std::string const two = With(first, "value=\"1.8\"", "value=\"6.2\"");
  struct Row {
    std::string first, second;
    Ids ids;
  };
  std::string const other = With(two, cas, "");
  Row const rows[] = {
      {With(first, cas, ""), other, {"cas", "cas", "magnitude"}},
      {first, other, {"cas", "magnitude"}},
      {With(first, cas, ""), two, {"cas", "magnitude"}},
      {first, With(other, "number=\"7\"", "number=\"8\""), {"cas", "magnitude"}},
      {first, With(other, "> WATER <", "> STEAM <"), {"cas", "magnitude"}},
      // Neither is in common: two components.
      {first, With(With(other, "> WATER <", "> STEAM <"), "number=\"7\"", "number=\"8\""), {"cas"}},
      // One number for two substances.
      {first,
       With(other, "formula=\"H2O\"", "formula=\"D2O\""),
       {"cas", "formula-weight", "identity"}},
  };
  int count = 0;
  for (Row const& row : rows) {
    std::string const one = "one" + std::to_string(++count) + ".lb1";
    Warnings(row.first);
    Good("copy own.lb1 " + one + " --create");
    Warnings(row.second);
    EXPECT_EQ(WarningsOf(one + " own.lb1"), row.ids) << report_;
    EXPECT_EQ(WarningsOf("own.lb1 " + one), row.ids) << report_;
  }
}

}  // namespace
}  // namespace zel::test
