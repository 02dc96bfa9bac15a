// Relations with published values, which agree with what a calculation by hand gives, and with a
// mistake in one of them.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "tests/verify/data_check_fixture.h"
#include "verify/judge/relation_tables.h"

namespace zel::test {

struct Stored {
  zelProperties index;
  double value;
};

// A straight line through a value, 30 K to both sides of it.
struct Point {
  zelCorrelations curve;
  double kelvin, value, slope;
};

struct RelationCase {
  char const* rule;
  double expected;  // by hand
  Stored mistake;
  std::vector<Stored> constants;
  std::vector<Point> curves;
  char const* formula = "C6H6";
  char const* smiles = "";

  friend void PrintTo(RelationCase const& row, std::ostream* out) { *out << row.rule; }
};

class JudgeRelationCaseTest : public ::testing::TestWithParam<RelationCase> {
 protected:
  // Of the data of the case, with one value instead of its own.
  std::optional<Outcome> Find(Stored const* instead) {
    RelationCase const& data = GetParam();
    GoodComponent component = Bare(data);
    ComponentView view;
    component.Fill(*view.Face());
    if (instead != nullptr) view.Face()->SetProperty(instead->index, instead->value);
    records_.emplace_back(view, CheckedItem("own", CheckedBank("PURECOMP", "TEST"), {}, "A", "A"));
    Substance substance;
    substance.Add(records_.back());
    Reading reading(records_.back(), substance);
    for (Relation const* const relation : AllRelations()) {
      if (std::string_view(relation->rule.id) == data.rule)
        return relation->find(reading, relation->rule);
    }
    return std::nullopt;
  }

  // Agrees with published values, and with the calculation by hand.
  void Agrees() {
    std::optional<Outcome> const outcome = Find(nullptr);
    ASSERT_TRUE(outcome);
    EXPECT_LE(outcome->deviation, 1.0);
    constexpr double kDigits = 2e-4;
    EXPECT_NEAR(outcome->expected, GetParam().expected, kDigits * std::abs(GetParam().expected));
  }
  void Deviates() {
    std::optional<Outcome> const outcome = Find(&GetParam().mistake);
    ASSERT_TRUE(outcome);
    EXPECT_GT(outcome->deviation, 1.0);
  }

 private:
  static GoodComponent Bare(RelationCase const& data) {
    GoodComponent component;
    component.formula = data.formula;
    component.change = [&data](IZelPureComp& c) {
      for (std::uint32_t i = 0; i < kJudgedConstants; ++i) c.SetProperty(i, gen_GetUndefDouble());
      for (std::uint32_t i = 0; i < kJudgedCurves; ++i) c.ResetCorrelation(i);
      for (Stored const& row : data.constants) c.SetProperty(row.index, row.value);
      c.SetSmiles(data.smiles);
      for (Point const& row : data.curves) {
        constexpr double kReach = 30.0;
        GoodComponent::Line(c, row.curve, row.kelvin - kReach, row.kelvin + kReach,
                            row.value - row.slope * row.kelvin, row.slope);
      }
    };
    return component;
  }

  std::deque<Record> records_;
};

inline std::string NameOf(::testing::TestParamInfo<RelationCase> const& row) {
  std::string name = row.param.rule;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

// The rules that have a case, and those of tables.
inline std::set<std::string> RulesOf(std::vector<RelationCase> const& cases) {
  std::set<std::string> rules;
  for (RelationCase const& row : cases) rules.insert(row.rule);
  return rules;
}
inline std::set<std::string> RulesOf(std::span<Relation const> table) {
  std::set<std::string> rules;
  for (Relation const& row : table) rules.insert(row.rule.id);
  return rules;
}

}  // namespace zel::test
