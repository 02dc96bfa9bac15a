// Which records of a substance a relation is evaluated for.
#include <gtest/gtest.h>

#include <deque>

#include "tests/verify/data_check_fixture.h"
#include "verify/judge/reading.h"

namespace zel {
namespace {

struct Stored {
  zelProperties index;
  double value;
};

class JudgeRelationsTest : public ::testing::Test {
 protected:
  void Add(char const* library, std::vector<Stored> const& constants) {
    test::GoodComponent component;
    component.formula = "C6H6";
    component.change = [&](IZelPureComp& c) {
      for (std::uint32_t i = 0; i < kJudgedConstants; ++i) c.SetProperty(i, gen_GetUndefDouble());
      for (std::uint32_t i = 0; i < kJudgedCurves; ++i) c.ResetCorrelation(i);
      for (Stored const& row : constants) c.SetProperty(row.index, row.value);
    };
    ComponentView view;
    component.Fill(*view.Face());
    records_.emplace_back(view,
                          CheckedItem(library, CheckedBank("PURECOMP", "TEST"), {}, "A", "A"));
    substance_.Add(records_.back());
  }
  // "library:datum library:datum" for each comparison by the rule.
  std::vector<std::string> Compared(std::string_view rule) const {
    std::vector<Tension> tensions;
    AddRelations(substance_, tensions);
    std::vector<std::string> lines;
    for (Tension const& tension : tensions) {
      if (tension.rule->id != rule) continue;
      std::string line;
      for (Tension::Part const& part : tension.parts) {
        line += (line.empty() ? "" : " ") + part.claim.record->Item().library + ":" +
                part.claim.datum.Name();
      }
      lines.push_back(line);
    }
    return lines;
  }

  using Lines = std::vector<std::string>;

 private:
  std::deque<Record> records_;
  Substance substance_;
};

TEST_F(JudgeRelationsTest, OnceForTheDataThatMatter) {
  Add("a", {{propertyPARACHOR, 205.1}, {propertyMVOL25C, 0.08941}, {propertyTC, 562.05}});
  Add("b", {{propertyTC, 562.0}});
  EXPECT_EQ(Compared("parachor-volume"), Lines{"a:PARACHOR a:MVOL25C a:TC"});
}

TEST_F(JudgeRelationsTest, ForEachRecordWithOneOfTheDataThatMatter) {
  Add("a", {{propertyPARACHOR, 205.1}, {propertyTC, 562.05}});
  Add("b", {{propertyMVOL25C, 0.08941}, {propertyTC, 562.0}});
  EXPECT_EQ(Compared("parachor-volume"),
            (Lines{"a:PARACHOR b:MVOL25C a:TC", "a:PARACHOR b:MVOL25C b:TC"}));
}

TEST_F(JudgeRelationsTest, ForTheRecordOfTheDatumWhereNoneMattersMuch) {
  Add("a", {{propertyPARACHOR, 205.1}, {propertyVC, 0.256}, {propertyTC, 562.05}});
  Add("b", {{propertyVC, 0.257}, {propertyTC, 562.0}});
  EXPECT_EQ(Compared("parachor-critical"), Lines{"a:PARACHOR a:VC a:TC"});
}

}  // namespace
}  // namespace zel
