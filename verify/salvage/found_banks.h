// Everything that can be found of the banks of a library.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

#include "verify/salvage/component_records.h"
#include "verify/salvage/gap_filling.h"
#include "verify/salvage/item_checks.h"

namespace zel {

class FoundBanks {
 public:
  FoundBanks(BrokenLibrary const& library, ComponentRecords const& records);

  // The banks, in the order of the directory, those that it does not describe at the end.
  std::vector<SalvagedTree>& Banks() noexcept { return banks_; }
  // The directory, its entries and gaps.
  TreeContents const& Directory() const noexcept { return directory_.contents; }
  bool DirectoryIsWhole() const noexcept {
    TreeContents const& contents = directory_.contents;
    return contents.gaps.empty() && contents.holes.empty() && contents.keyless.empty();
  }
  TreeContents const& Ids() const noexcept { return ids_; }
  TreeContents const& CasNumbers() const noexcept { return cas_; }

 private:
  TreeContents Walk(TreeShape const& shape, std::int32_t root, TreeWalk::Test test,
                    std::set<std::int32_t> const& leftOut = {});
  TreeContents WalkBank(BankHeading const& heading, std::set<std::int32_t> const& leftOut = {});
  void WalkAll();
  void AddBanksOfDirectory();
  bool LearnTails();
  void LeaveOutOutdated();
  void SettleClaims();
  double Claim(BankHeading const& bank, std::int32_t node);
  void Reach();
  void FindOrphans();
  void FillDirectory();
  void CorrectRoots();
  void FillBanks();
  void FindLostBanks();
  TreeWalk::Test TestOf(TreeShape const& shape) const;
  void AddLostBanks(TreeShape const& shape);
  bool CanBeIn(BankHeading const& bank, std::int32_t const* entry);
  bool CanBeEntry(TreeShape const& shape, std::int32_t const* entry);
  std::vector<BankShape const*> Candidates(TreeShape const& shape, OrphanTree const& tree);
  std::size_t Unused(BankShape const& shape, OrphanTree const& tree);
  bool IsInDirectoryGap(BankHeading const& heading, bool isMarked) const;
  void JoinNeighbours(std::vector<OrphanTree>& trees, TreeShape const& shape) const;
  BankHeading const* OldHeading(std::int32_t root, TreeShape const& shape) const;

  BrokenLibrary const& library_;
  ComponentRecords const& records_;
  ItemChecks checks_;
  NodeReading::Tails tails_ = NodeReading::Tails::kUnknown;
  std::set<std::int32_t> outdated_;  // nodes that are reached although another is in their place
  TreeWalk::Budget budget_;          // of the present pass over the trees
  SalvagedTree directory_;
  TreeContents ids_;
  TreeContents cas_;
  std::vector<SalvagedTree> banks_;
  std::set<std::int32_t> reached_;
  std::set<TreeShape> shapes_;
  std::optional<OrphanNodes> orphans_;
  std::vector<BankHeading> oldHeadings_;  // of entries in unreached nodes of the directory
};

}  // namespace zel
