// The tables of the relations within a component.
#pragma once

#include <span>
#include <vector>

#include "verify/judge/reading.h"

namespace zel {

std::span<Relation const> ConstantRelations();
std::span<Relation const> CurveEnthalpyRelations();
std::span<Relation const> CurveHeatRelations();
std::span<Relation const> CurveLawRelations();
std::span<Relation const> CurvePairRelations();
std::span<Relation const> CurveRangeRelations();
std::span<Relation const> CurveShapeRelations();
std::span<Relation const> CurveSmoothRelations();
std::span<Relation const> CurveStateRelations();
std::span<Relation const> GroupRelations();
std::span<Relation const> HazardRelations();
std::span<Relation const> ThermalRelations();
std::span<Relation const> VolumeRelations();

// All tables, in the order in which rules are listed.
std::vector<std::span<Relation const>> RelationTables();

// The rules of relations, sources and kin, in the order in which they are listed.
std::vector<JudgeRule const*> AllRules();

}  // namespace zel
