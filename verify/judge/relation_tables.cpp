#include "verify/judge/relation_tables.h"

#include "verify/judge/kin.h"
#include "verify/judge/range_habits.h"

namespace zel {

std::vector<std::span<Relation const>> RelationTables() {
  return {ConstantRelations(),      VolumeRelations(),      GroupRelations(),
          ThermalRelations(),       HazardRelations(),      CurveRangeRelations(),
          CurveShapeRelations(),    CurveSmoothRelations(), CurveLawRelations(),
          CurveEnthalpyRelations(), CurveHeatRelations(),   CurvePairRelations(),
          CurveStateRelations()};
}

std::vector<JudgeRule const*> AllRules() {
  std::vector<JudgeRule const*> rules;
  for (auto const& table : RelationTables()) {
    for (Relation const& row : table) rules.push_back(&row.rule);
  }
  for (JudgeRule const& rule : SourceRules()) rules.push_back(&rule);
  for (JudgeRule const* const rule : KinRules()) rules.push_back(rule);
  for (JudgeRule const& rule : RangeHabitRules()) rules.push_back(&rule);
  return rules;
}

}  // namespace zel
