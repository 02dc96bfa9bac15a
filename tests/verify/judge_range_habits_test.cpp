// Limits of curves against where they are in the other components of a bank.
#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "tests/support/sample_component.h"
#include "verify/judge/range_habits.h"

namespace zel {
namespace {

struct Limits {
  double low, high;
};

// A component whose two curves begin at its melting point and end at its critical point.
struct Made {
  double melting;
  double critical;
  Limits pressure;
  Limits density;

  explicit Made(double melts)
      : melting(melts), critical(2.5 * melts + 7.0), pressure{melts, critical}, density(pressure) {}
};

class RangeHabits : public ::testing::Test {
 protected:
  // Banks of that many components, with melting points that are all different.
  void Make(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      made_.emplace_back(150.0 + 3.17 * static_cast<double>(i * i % 67));
    }
  }
  // A line for each comparison that deviates: the number of the component, what is compared, and
  // with what.
  std::string Judge(char const* bank = "own") {
    Add(bank);
    substances_ = SubstancesOf(records_);
    tensions_.assign(substances_.size(), {});
    AddRangeHabits(substances_, tensions_);
    std::string text;
    for (std::size_t i = 0; i < tensions_.size(); ++i) {
      for (Tension const& one : tensions_[i]) {
        if (one.deviation <= 1.0) continue;
        EXPECT_TRUE(one.isOfRange);
        EXPECT_EQ(one.unit, "K");
        text += std::to_string(i) + " " + one.quantity + one.about.datum.Name() + ": " + one.from +
                "\n";
      }
    }
    return text;
  }
  void Add(char const* bank) {
    for (std::size_t i = 0; i < made_.size(); ++i) {
      Made const& made = made_[i];
      test::ComponentBank component;
      char const ids[12][9] = {"A"};
      auto const number = static_cast<std::int32_t>(i + 1);
      component->SetIdentity(number, 100 + number, 0, ids, "A", "", 0);
      component->SetProperty(propertyNMP, made.melting);
      component->SetProperty(propertyTC, made.critical);
      Put(component, correlationVaporPressure, made.pressure);
      Put(component, correlationLiquidDensity, made.density);
      records_.emplace_back(ComponentView(dynamic_cast<PureComp_i&>(*component.Get())),
                            CheckedItem("own", CheckedBank("PURECOMP", bank), {number}, "A", "A"));
    }
  }
  // The comparisons of a component that agree.
  std::size_t Agreeing(std::size_t i) const {
    std::size_t count = 0;
    for (Tension const& one : tensions_[i]) count += one.deviation <= 1.0 ? 1U : 0U;
    return count;
  }

  std::vector<Made> made_;
  std::vector<std::vector<Tension>> tensions_;

 private:
  static void Put(test::ComponentBank& component, zelCorrelations curve, Limits const& limits) {
    double const coefficients[] = {1.0, 0.001};
    component->SetCorrelation(curve, 1, 10, 0, 1, 1, 2, limits.low, limits.high, coefficients);
  }

  std::deque<Record> records_;
  std::vector<Substance> substances_;
};

TEST_F(RangeHabits, LimitsThatAreWhereOthersAreHaveNoComparison) {
  Make(30);
  EXPECT_EQ(Judge(), "");
  for (auto const& all : tensions_) EXPECT_TRUE(all.empty());
}

TEST_F(RangeHabits, OneUnusualLimitIsFound) {
  Make(30);
  made_[7].pressure.low *= 1.06;
  EXPECT_EQ(Judge(),
            "7 the beginning of the range of VaporPressure: NMP, as in the other components\n"
            "7 the beginning of the range of VaporPressure: LiquidDensity, as in the other "
            "components\n"
            "7 the beginning of the range of LiquidDensity: VaporPressure, as in the other "
            "components\n");
  // The density begins at the melting point as always.
  EXPECT_EQ(Agreeing(7), 1U);
  Tension const& first = tensions_[7].front();
  EXPECT_EQ(first.value, made_[7].pressure.low);
  EXPECT_EQ(first.expected, made_[7].melting);
  EXPECT_NEAR(first.deviation, 0.06 / 0.018, 1e-9) << "6 % with a tolerance of 1.8 %";
  EXPECT_STREQ(first.rule->id, "range-begin");
}

TEST_F(RangeHabits, DifferenceWithinTheToleranceIsUsual) {
  Make(30);
  made_[7].density.high *= 1.0179;
  EXPECT_EQ(Judge(), "");
  made_[7].density.high *= 1.012;
  EXPECT_NE(Judge("next").find("7 the end of the range of LiquidDensity: TC"), std::string::npos);
}

TEST_F(RangeHabits, LimitThatAnotherLibraryHasIsNotFound) {
  Make(30);
  made_[7].pressure.low *= 1.06;
  Add("first");
  made_[7].pressure.low *= 1.009;
  EXPECT_EQ(Judge("second"), "");
}

TEST_F(RangeHabits, LimitBelowZeroIsFarOff) {
  Make(30);
  made_[3].density.low -= 273.15;
  ASSERT_LT(made_[3].density.low, 0.0);
  EXPECT_NE(Judge(), "");
  EXPECT_EQ(tensions_[3].back().deviation, 100.0);
}

TEST_F(RangeHabits, WhatManyDoNotKeepIsNotAHabit) {
  Make(30);
  for (std::size_t i = 0; i < 5; ++i)
    made_[5 * i].pressure.high *= 0.8 - 0.01 * static_cast<double>(i);
  EXPECT_EQ(Judge(), "");
}

TEST_F(RangeHabits, FewComponentsHaveNoHabits) {
  Make(20);
  made_[7].pressure.low *= 1.5;
  EXPECT_EQ(Judge(), "");
  made_[7].pressure.low *= 1.1;
  Make(1);
  EXPECT_NE(Judge("next"), "");
}

TEST_F(RangeHabits, CurvesOfOneTemperatureKeepToIt) {
  Make(30);
  for (std::size_t i = 0; i < 30; ++i) {
    made_[i].pressure.high = i % 2 == 0 ? 400.0 : 300.0;
    made_[i].density.high = 500.0 + 10.0 * static_cast<double>(i);
  }
  made_[7].pressure.high = 330.0;
  EXPECT_EQ(Judge(),
            "7 the end of the range of VaporPressure: the nearest usual temperature, as in the "
            "other components\n");
}

// The pressure ends at one of three points, so that none of them is a habit.
TEST_F(RangeHabits, CurvesOfSeveralPointsKeepToOneOfThem) {
  Make(30);
  for (std::size_t i = 0; i < 30; ++i) {
    made_[i].density.high = 1000.0 + 10.0 * static_cast<double>(i);
    made_[i].pressure.high = i % 3 == 0 ? made_[i].density.high : i % 3 == 1 ? 800.0 : 900.0;
  }
  EXPECT_EQ(Judge(), "");
  made_[7].pressure.high = 700.0;
  EXPECT_EQ(Judge("next"),
            "7 the end of the range of VaporPressure: the nearest usual temperature, as in the "
            "other components\n");
}

TEST_F(RangeHabits, EachBankHasItsOwn) {
  Make(30);
  Add("first");
  for (Made& made : made_) made.pressure.low *= 1.2;  // all of them, in another bank
  EXPECT_EQ(Judge("second"), "");
}

}  // namespace
}  // namespace zel
