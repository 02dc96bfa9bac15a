// Compares the indices of a component's data in PureComp.h, including their comments, with the
// catalogue.
#include <gtest/gtest.h>
#include <zelaccess/PureComp.h>
#include <zelaccess/Verify.h>

#include <fstream>
#include <map>
#include <regex>
#include <string>

namespace {

struct Line {
  std::string keyword, unit, meaning;
};

// Enumerators of the form `PREFIXname = n,  ///< KEYWORD, unit: meaning` by n.
std::map<std::uint32_t, Line> LinesOf(std::string const& prefix) {
  std::ifstream header(ZEL_HEADERS "/PureComp.h");
  std::regex const form("  " + prefix + R"((\w+) = (\d+),? +///< (\w+), ([^:]+): (.+))");
  std::map<std::uint32_t, Line> lines;
  for (std::string text; std::getline(header, text);) {
    std::smatch found;
    if (!std::regex_match(text, found, form)) continue;
    EXPECT_EQ(found[1], found[3]) << text;  // the enumerator is named by the keyword
    auto const index = static_cast<std::uint32_t>(std::stoul(found[2]));
    EXPECT_TRUE(lines.emplace(index, Line{found[3], found[4], found[5]}).second) << text;
  }
  return lines;
}

std::string UnitText(char const* unit) { return *unit == '\0' ? "-" : unit; }

TEST(DataIndices, ConstantsAreThoseOfTheCatalogue) {
  std::map<std::uint32_t, Line> const lines = LinesOf("property");
  std::int32_t count = 0;
  zel::ZelConstantInfo const* const catalogue = zel::GetConstantCatalogue(count);
  EXPECT_EQ(lines.size(), static_cast<std::size_t>(count));
  for (std::int32_t i = 0; i < count; ++i) {
    zel::ZelConstantInfo const& info = catalogue[i];
    ASSERT_EQ(lines.count(info.index), 1U) << info.keyword;
    Line const& line = lines.at(info.index);
    EXPECT_EQ(line.keyword, info.keyword);
    EXPECT_EQ(line.unit, UnitText(info.unit)) << info.keyword;
    EXPECT_EQ(line.meaning, info.label) << info.keyword;
  }
}

TEST(DataIndices, CorrelationsAreThoseOfTheCatalogue) {
  std::map<std::uint32_t, Line> const lines = LinesOf("correlation");
  std::int32_t count = 0;
  zel::ZelCorrelationInfo const* const catalogue = zel::GetCorrelationCatalogue(count);
  ASSERT_EQ(lines.size(), static_cast<std::size_t>(count));
  for (auto const& [index, line] : lines) {
    ASSERT_LT(index, static_cast<std::uint32_t>(count));
    EXPECT_EQ(line.keyword, catalogue[index].name);
    EXPECT_EQ(line.unit, UnitText(catalogue[index].unit)) << line.keyword;
    EXPECT_EQ(line.meaning, catalogue[index].label) << line.keyword;
  }
}

}  // namespace
