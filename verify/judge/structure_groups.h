// The groups of a molecule, counted in its SMILES text.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "verify/composition.h"

namespace zel {

enum class StructureGroup : std::uint8_t {
  kCh3,
  kCh2,
  kCh,
  kC,  // chains, saturated
  kDoubleCh2,
  kDoubleCh,
  kDoubleC,  // with a double bond to carbon
  kTriple,   // with a triple bond or two double bonds
  kAromaticCh,
  kAromaticC,  // in a ring with a double bond
  kRingCh2,
  kRingCh,
  kRingC,  // in a ring, saturated
  kAcid,
  kEster,
  kAldehyde,
  kKetone,  // carbonyl carbon
  kHydroxyl,
  kPhenol,
  kEther,
  kRingOxygen,
  kNh2,
  kNh,
  kN,
  kNitrile,
  kNitro,
  kSh,
  kS,
  kF,
  kCl,
  kBr,
  kI,
  kRings,  // independent rings, not a group
};

inline constexpr std::size_t kStructureGroups = 33;
using GroupCounts = std::array<double, kStructureGroups>;

// Empty if the text is not understood or is not that of the formula: isotopes, and notations of
// metals and of stereochemistry beyond "@", "/" and "\", are not understood.
std::optional<GroupCounts> GroupsOf(std::string_view smiles, Composition const& formula);

}  // namespace zel
