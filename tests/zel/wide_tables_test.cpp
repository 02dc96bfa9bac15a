// Tables that are wider than the screen: words stay whole, columns go to further blocks.
#include <algorithm>
#include <set>
#include <sstream>

#include "tests/zel/terminal_run.h"

namespace zel::test {
namespace {

using nlohmann::json;

class WideTablesTest : public ZelTest {
 protected:
  static std::size_t Longest(std::string const& text) {
    std::size_t longest = 0;
    for (std::string const& line : Lines(text)) longest = std::max(longest, line.size());
    return longest;
  }
  static std::set<std::string> Words(std::string const& text) {
    std::istringstream stream(text);
    std::set<std::string> words;
    for (std::string word; stream >> word;) words.insert(word);
    return words;
  }
};

TEST_F(WideTablesTest, WordsAreNotCut) {
  struct {
    char const* words;
    std::set<std::string> whole;
  } const rows[] = {
      {"compare perry.lb1 crc.lb1 --tolerance 0.01%", {"VaporPressure", "LiquidViscosity"}},
      {"items perry.lb1 PERRY --fields VaporPressure LatentHeat", {"VaporPressure", "LatentHeat"}},
      {"table ETHANOL WATER --fields VaporPressure TC NBP IdealGasCp --sources -l perry.lb1 -l "
       "crc.lb1",
       {"VaporPressure", "IdealGasCp", "equation", "159.05", "647.096"}},
      {"eval ETHANOL VaporPressure --components WATER -l perry.lb1 --at 25C --derivatives 1",
       {"VaporPressure", "[kPa/K]", "0.1890734"}},
      {"coverage ETHANOL WATER BENZENE TOLUENE METHANOL ACETONE NHEXANE --model NRTL --matrix -l "
       "perry.lb1 -l sample.lb1",
       {"METHANOL", "missing", "stored", "NHEXANE"}},
  };
  for (auto const& row : rows) {
    std::string const text = Good(row.words);
    EXPECT_LE(Longest(text), 80U) << row.words << "\n" << text.substr(0, 2000);
    std::set<std::string> const words = Words(text);
    for (std::string const& word : row.whole) {
      EXPECT_EQ(words.count(word), 1U) << row.words << ": " << word;
    }
  }
}

// Every cell of a table in blocks is in the text, in the line of its row.
TEST_F(WideTablesTest, BlocksRepeatWhatNamesARow) {
  std::string const words =
      "table ETHANOL WATER --fields TC PC VC ZC NBP ACENTRIC HVAPNBP DIPOLE HFORMATION GFORMATION "
      "-l perry.lb1 -l crc.lb1";
  std::vector<std::string> const lines = Lines(Good(words));
  std::size_t const blocks = static_cast<std::size_t>(
      std::count_if(lines.begin(), lines.end(),
                    [](std::string const& line) { return line.rfind("WATER ", 0) == 0; }));
  EXPECT_GT(blocks, 1U);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), ""), static_cast<std::ptrdiff_t>(blocks) - 1);
  std::set<std::string> inWater;
  for (std::string const& line : lines) {
    if (line.rfind("WATER ", 0) == 0) inWater.merge(Words(line));
  }
  json const water = Row(Json(words)["components"], "component", "WATER");
  std::size_t numbers = 0;
  for (auto const& [name, value] : water.items()) {
    if (!value.is_number()) continue;
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.7g", value.get<double>());
    EXPECT_EQ(inWater.count(digits), 1U) << name;
    ++numbers;
  }
  EXPECT_GT(numbers, 5U);
}

// Two columns name a pair.
TEST_F(WideTablesTest, PairsAreNamedByTwoColumns) {
  std::vector<std::string> const lines =
      Lines(Good("pairs NRTL ETHANOL --fields pMin pMax aij bij cij aji bji cji alphaij refCode -l "
                 "sample.lb1 --names perry.lb1"));
  auto const count = [&](std::string const& text) {
    return std::count_if(lines.begin(), lines.end(), [&](std::string const& line) {
      return line.find(text) != std::string::npos;
    });
  };
  EXPECT_GT(count("component 1"), 1);
  EXPECT_EQ(count("component 1"), count("component 1  component 2"));
}

TEST_F(WideTablesTest, NarrowTerminals) {
  for (char const* words :
       {"table ETHANOL WATER --fields TC PC VC NBP ACENTRIC -l perry.lb1 -l crc.lb1",
        "compare perry.lb1 crc.lb1 --components ETHANOL WATER",
        "search ETHANOL -l perry.lb1 -l crc.lb1", "types NRTL",
        "eval ETHANOL VaporPressure --components WATER -l perry.lb1 --at 25C --derivatives 2"}) {
    for (int const columns : {60, 45}) {
      Outcome const outcome = RunOnTerminal(
          Folder(), std::string("NO_COLOR=1 exec \"$ZEL\" ") + words, {columns, "", ""});
      EXPECT_LE(Longest(outcome.out), static_cast<std::size_t>(columns)) << words << outcome.out;
    }
  }
}

}  // namespace
}  // namespace zel::test
