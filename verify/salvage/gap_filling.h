// Unreached nodes are put where trees have gaps.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "verify/salvage/bank_shapes.h"
#include "verify/salvage/orphan_nodes.h"

namespace zel {

// A bank, or the bank directory, with what was found of it.
struct SalvagedTree {
  BankHeading heading;
  TreeContents contents;
};

// Fills the gaps of trees of one shape, whose banks differ by type and name. An unreached tree
// belongs into a gap whose neighbours its keys are between, if its entries can be those of the
// bank; where several trees have such a gap, neighbours, the damaged link and the place in the file
// decide. A tree without gaps is left alone, so that what was deleted from a sound tree does not
// come back; and what a free block holds is used only where nothing else fits.
class GapFilling {
 public:
  // Whether an entry can be one of a bank; the same for all banks of a type.
  using Test = std::function<bool(BankHeading const& bank, std::int32_t const* entry)>;

  GapFilling(BrokenLibrary const& library, std::vector<SalvagedTree*> trees, Test test);

  // Uses those of the unreached trees that fit, and adds the addresses of their nodes to `used`.
  void Fill(std::vector<OrphanTree> const& orphans, std::set<std::int32_t>& used);

 private:
  struct Place {
    SalvagedTree* tree = nullptr;
    std::size_t gap = 0;
    double score = 0.0;
  };

  Place BestPlace(OrphanTree const& orphan) const;
  bool Fits(OrphanTree const& orphan, SalvagedTree const& tree, TreeGap const& gap) const;
  double Score(OrphanTree const& orphan, SalvagedTree const& tree, TreeGap const& gap) const;
  // Which entries of an unreached tree can be in a bank: the same for all banks of a type.
  std::vector<bool> const& Possible(OrphanTree const& orphan, BankHeading const& bank) const;
  bool IsWholeTree(OrphanTree const& orphan) const;
  static bool IsInside(FoundEntry const& entry, SalvagedTree const& tree, TreeGap const& gap);
  void AddGap(SalvagedTree& tree, TreeGap const& gap);
  void Put(OrphanTree const& orphan, Place const& place);
  void SortEntries();

  // By the key before each gap of a tree, null for none: the place of the gap in its list.
  struct Before {
    std::int32_t keyWords;
    bool operator()(std::int32_t const* a, std::int32_t const* b) const noexcept {
      if (a == nullptr || b == nullptr) return a == nullptr && b != nullptr;
      return CompareKeys(a, b, keyWords) < 0;
    }
  };
  using GapIndex = std::map<std::int32_t const*, std::size_t, Before>;

  BrokenLibrary const& library_;
  std::vector<SalvagedTree*> trees_;
  Test test_;
  std::map<SalvagedTree const*, GapIndex> gaps_;
  // By root and type.
  mutable std::map<std::pair<std::int32_t, std::string>, std::vector<bool>> possible_;
  // By address: the trees that have a node which was next to it when it was split.
  std::multimap<std::int32_t, SalvagedTree const*> neighbours_;
};

}  // namespace zel
