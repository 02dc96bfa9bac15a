// Classes of codes that are composed of others: which position has which unit.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/units/unit_factor_table.h"

namespace zel {
namespace {

// The texts of the first `count` units of a class.
std::vector<std::string> Texts(int unitClass, std::size_t count) {
  std::vector<std::string> texts;
  for (auto const& unit : kUnitFactors[unitClass - 1].first(count)) texts.emplace_back(unit.unit);
  return texts;
}
std::vector<std::string> Texts(int unitClass) {
  return Texts(unitClass, kUnitFactors[unitClass - 1].size());
}

// Each of the units per each of the times, the times varying faster.
std::vector<std::string> Rates(std::vector<std::string> const& units,
                               std::vector<std::string> const& times) {
  std::vector<std::string> rates;
  for (std::string const& unit : units) {
    for (std::string const& time : times) rates.push_back(unit + "/" + time);
  }
  return rates;
}

// Classes that are composed of others have their units in the order of those.
TEST(UnitPositions, RatesAreUnitsByTimesInTheirOrder) {
  std::vector<std::string> const times = {"sec", "min", "hr", "day", "wk", "mon", "yr"};
  EXPECT_EQ(Texts(16), Rates(Texts(7, 11), {"sec", "min", "hr"}));
  EXPECT_EQ(Texts(17), Rates(Texts(15), times));
  auto powers = Rates(Texts(24), times);
  powers.insert(powers.end(), {"W", "kW"});
  for (int unitClass : {25, 26, 27}) EXPECT_EQ(Texts(unitClass), powers) << unitClass;
  auto flows = Rates(Texts(12), {"sec", "min", "hr", "day", "mon", "yr"});
  auto const last = Rates({"m3"}, times);
  flows.insert(flows.end(), last.begin(), last.end());
  EXPECT_EQ(Texts(33), flows);
  flows.resize(123);
  EXPECT_EQ(Texts(34), flows);
}

TEST(UnitPositions, DoubledClassesHaveEachUnitTwice) {
  auto gases = Texts(12);
  gases.emplace_back("nm3");
  std::vector<std::string> doubled;
  for (std::string const& unit : gases) doubled.insert(doubled.end(), 2, unit);
  EXPECT_EQ(Texts(14), doubled);
  for (int unitClass : {22, 28, 29, 31, 35, 39}) {
    auto const texts = Texts(unitClass);
    for (std::size_t i = 0; i < texts.size(); i += 2) {
      EXPECT_EQ(texts[i], texts[i + 1]) << unitClass << " " << i;
    }
  }
  // Per mass as per mole.
  auto molar = Texts(22);
  for (std::string& text : molar) text.resize(text.find("-mol"));
  EXPECT_EQ(Texts(31), molar);
}

}  // namespace
}  // namespace zel
