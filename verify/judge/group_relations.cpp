// The van der Waals volume and area against the groups of the structure.
#include <array>

#include "verify/judge/relation_tables.h"
#include "verify/judge/relation_terms.h"
#include "verify/judge/structure_groups.h"

namespace zel {
namespace {

// A. Bondi, J. Phys. Chem. 68 (1964) 441, in the units of UNIFAC: 15.17 cm3/mol and 2.5e9 cm2/mol.
struct GroupSize {
  double volume;
  double area;
  double hydrogen, oxygen;  // atoms
};
constexpr std::array<GroupSize, kStructureGroups> kSizes = {
    {{0.9011, 0.848, 3, 0}, {0.6744, 0.540, 2, 0}, {0.4469, 0.228, 1, 0}, {0.2195, 0.000, 0, 0},
     {0.7870, 0.743, 2, 0}, {0.5584, 0.434, 1, 0}, {0.3303, 0.242, 0, 0}, {0.5306, 0.392, 0, 0},
     {0.5313, 0.400, 1, 0}, {0.3652, 0.120, 0, 0}, {0.6744, 0.540, 2, 0}, {0.4469, 0.228, 1, 0},
     {0.2195, 0.000, 0, 0}, {1.3013, 1.224, 1, 2}, {1.0020, 0.880, 0, 2}, {0.9980, 0.948, 1, 1},
     {0.7713, 0.640, 0, 1}, {0.5299, 0.584, 1, 1}, {0.5299, 0.584, 1, 1}, {0.2439, 0.240, 0, 1},
     {0.2439, 0.240, 0, 1}, {0.6948, 0.696, 2, 0}, {0.5326, 0.396, 1, 0}, {0.2854, 0.092, 0, 0},
     {0.4384, 0.484, 0, 0}, {0.8636, 0.780, 0, 1}, {0.9759, 0.828, 1, 0}, {0.7119, 0.520, 0, 0},
     {0.3955, 0.460, 0, 0}, {0.7910, 0.724, 0, 0}, {0.9492, 0.832, 0, 0}, {1.2640, 0.992, 0, 0},
     {0, 0, 0, 0}}};

// Some authors take the hydroxyl group of UNIFAC, which is greater than the real one.
constexpr GroupSize kOfUnifac = {0.4701, 0.616, 0, 0};

// Whether a carbon atom has two double bonds, as in allene. Those with a triple bond are in pairs,
// or with a nitrogen atom.
bool HasTwoDoubleBonds(GroupCounts const& groups) {
  double const linear = groups[static_cast<std::size_t>(StructureGroup::kTriple)] -
                        groups[static_cast<std::size_t>(StructureGroup::kNitrile)];
  return std::fmod(linear, 2.0) != 0.0;
}

// The sum over the groups; undefined without a structure, or if hydrogen or oxygen is in none of
// these groups, as in methane and dimethyl sulfoxide.
struct Size {
  GroupSize sum{};
  double hydroxyls = 0.0;
};
std::optional<Size> SizeOf(Reading const& r) {
  Size size;
  GroupSize& sum = size.sum;
  for (Record const* const record : r.Of().Records()) {
    auto const groups = GroupsOf(record->Smiles(), r.Of().Atoms());
    if (!groups) continue;
    for (std::size_t i = 0; i < kStructureGroups; ++i) {
      sum.volume += (*groups)[i] * kSizes[i].volume;
      sum.area += (*groups)[i] * kSizes[i].area;
      sum.hydrogen += (*groups)[i] * kSizes[i].hydrogen;
      sum.oxygen += (*groups)[i] * kSizes[i].oxygen;
    }
    for (auto const group : {StructureGroup::kHydroxyl, StructureGroup::kPhenol}) {
      size.hydroxyls += (*groups)[static_cast<std::size_t>(group)];
    }
    bool const isAll = r.Atoms("C") > 0.0 && sum.hydrogen == r.Atoms("H") &&
                       sum.oxygen == r.Atoms("O") && !HasTwoDoubleBonds(*groups);
    return isAll ? std::optional(size) : std::nullopt;
  }
  return std::nullopt;
}

template <zelProperties kIndex, double GroupSize::*kSize>
Found SumOfGroups(Reading& r, JudgeRule const& rule) {
  double const stored = r.OwnConstant(kIndex);
  auto const size = std::isnan(stored) ? std::nullopt : SizeOf(r);
  if (!size) return std::nullopt;
  double const sum = size->sum.*kSize;
  double const other = sum + size->hydroxyls * kOfUnifac.*kSize;
  bool const isOther = std::abs(stored - other) < std::abs(stored - sum);
  return Outcome::Factor(Of(kIndex), stored, isOther ? other : sum, rule.tolerance);
}

constexpr Relation kRows[] = {
    {{"waals-volume-groups", "VDWV = sum over the groups of the structure after Bondi", 0.05,
      "5 %"},
     "the groups of the structure",
     SumOfGroups<propertyVDWV, &GroupSize::volume>},
    {{"waals-area-groups", "VDWA = sum over the groups of the structure after Bondi", 0.04,
      "4 %: rings; 24 of 25 published data are within it"},
     "the groups of the structure",
     SumOfGroups<propertyVDWA, &GroupSize::area>},
};

}  // namespace

std::span<Relation const> GroupRelations() { return kRows; }

}  // namespace zel
