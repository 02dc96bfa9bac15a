#include "verify/salvage/found_banks.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace zel {

namespace f = format;

FoundBanks::FoundBanks(BrokenLibrary const& library, ComponentRecords const& records)
    : library_(library), records_(records), budget_(library) {
  directory_.heading.shape = kDirectoryShape;
  shapes_ = {kDirectoryShape, kIdShape, kCasShape};
  for (BankShape const& shape : BankShapes()) shapes_.insert(shape.shape);
  WalkAll();
  if (LearnTails()) WalkAll();
  SettleClaims();
  FindOrphans();
  LeaveOutOutdated();
  FillDirectory();
  CorrectRoots();
  FillBanks();
  if (!DirectoryIsWhole()) FindLostBanks();
}

TreeContents FoundBanks::Walk(TreeShape const& shape, std::int32_t root, TreeWalk::Test test,
                              std::set<std::int32_t> const& leftOut) {
  TreeWalk walk(library_, budget_, shape, tails_, std::move(test));
  walk.LeaveOut(leftOut);
  walk.LeaveOut(outdated_);
  return walk.From(root);
}

// The records to which entries of components lead are read later (found_components.h).
TreeContents FoundBanks::WalkBank(BankHeading const& heading,
                                  std::set<std::int32_t> const& leftOut) {
  if (!heading.shape.IsUsable()) return {};
  return Walk(heading.shape, heading.root, {}, leftOut);
}

// How well a node suits a bank: 0 to 3, for its links, its count, and its entries.
double FoundBanks::Claim(BankHeading const& bank, std::int32_t node) {
  NodeReading reading;
  if (!reading.Read(library_, node, bank.shape, tails_)) return 0.0;
  std::int32_t suiting = 0;
  for (std::int32_t i = 1; i <= reading.Count(); ++i) {
    suiting += reading.EntryIsGood(i) && CanBeIn(bank, reading.Entry(i)) ? 1 : 0;
  }
  double const share = static_cast<double>(suiting) / std::max(reading.Count(), 1);
  return reading.GoodLinks() + (reading.CountIsStated() && reading.TailIsClean() ? 1.0 : 0.0) +
         share;
}

// A damaged link or root can lead into another tree: a node belongs to the tree that it suits best,
// and of equally good ones to that in which another node leads to it.
void FoundBanks::SettleClaims() {
  std::map<std::int32_t, std::vector<std::size_t>> claims;
  for (std::size_t i = 0; i < banks_.size(); ++i) {
    for (std::int32_t const node : banks_[i].contents.nodes) claims[node].push_back(i);
  }
  std::map<std::size_t, std::set<std::int32_t>> leftOut;
  for (auto const& [node, claimants] : claims) {
    if (claimants.size() < 2) continue;
    std::size_t best = claimants.front();
    double most = -1.0;
    for (std::size_t const one : claimants) {
      double const claim =
          Claim(banks_[one].heading, node) + (banks_[one].heading.root == node ? 0.0 : 0.1);
      if (claim <= most) continue;
      most = claim;
      best = one;
    }
    for (std::size_t const one : claimants) {
      if (one != best) leftOut[one].insert(node);
    }
  }
  budget_ = TreeWalk::Budget(library_);
  for (auto const& [bank, nodes] : leftOut) {
    banks_[bank].contents = WalkBank(banks_[bank].heading, nodes);
  }
}

void FoundBanks::WalkAll() {
  auto const isBank = [this](std::int32_t const* entry) { return IsBankEntry(library_, entry); };
  budget_ = TreeWalk::Budget(library_);
  directory_.contents = Walk(kDirectoryShape, library_.RootOf(0), isBank);
  ids_ = Walk(kIdShape, library_.RootOf(1), {});
  cas_ = Walk(kCasShape, library_.RootOf(2), {});
  banks_.clear();
  AddBanksOfDirectory();
}

// Adds the banks of entries that have not been added yet. An entry whose key is out of order may
// still describe a bank.
void FoundBanks::AddBanksOfDirectory() {
  std::set<std::pair<std::array<std::int32_t, f::kBankKeyWords>, std::int32_t>> known;
  for (SalvagedTree const& bank : banks_) known.emplace(bank.heading.key, bank.heading.root);
  auto const add = [&](FoundEntry const& entry, bool isInOrder) {
    BankHeading heading = ReadBankEntry(library_, entry.words);
    heading.keyIsGood = heading.keyIsGood && isInOrder;
    bool const isNew = heading.shape.IsUsable() && known.emplace(heading.key, heading.root).second;
    if (!isNew) return;
    shapes_.insert(heading.shape);
    TreeContents contents = WalkBank(heading);
    banks_.push_back({std::move(heading), std::move(contents)});
  };
  for (FoundEntry const& entry : directory_.contents.entries) add(entry, true);
  for (FoundEntry const& entry : directory_.contents.keyless) {
    if (IsBankEntry(library_, entry.words)) add(entry, false);
  }
}

// True if writers of this library leave zeros after the last entry of a node. Nearly all nodes must
// have them, since a count that became too small is then rejected.
bool FoundBanks::LearnTails() {
  std::int64_t clean = directory_.contents.cleanTails + ids_.cleanTails + cas_.cleanTails;
  std::int64_t dirty = directory_.contents.dirtyTails + ids_.dirtyTails + cas_.dirtyTails;
  for (SalvagedTree const& bank : banks_) {
    clean += bank.contents.cleanTails;
    dirty += bank.contents.dirtyTails;
  }
  constexpr std::int64_t kFew = 3;
  if (clean < kFew || dirty == 0 || dirty > 1 + clean / 20) return false;
  tails_ = NodeReading::Tails::kClean;
  return true;
}

// A damaged link can lead to an old leaf, in a block that was freed; the leaf that it led to before
// is then not reached. Without such a leaf, the block table is wrong, and the link is right.
void FoundBanks::LeaveOutOutdated() {
  for (SalvagedTree const& bank : banks_) {
    for (std::int32_t const node : bank.contents.nodes) {
      if (!library_.WasFreed(node) || node == bank.heading.root) continue;
      if (orphans_->HasLeafInPlaceOf(node, bank.heading.shape)) outdated_.insert(node);
    }
  }
  if (outdated_.empty()) return;
  WalkAll();
  SettleClaims();
  FindOrphans();
}

void FoundBanks::Reach() {
  reached_.clear();
  auto const add = [this](TreeContents const& contents) {
    reached_.insert(contents.nodes.begin(), contents.nodes.end());
  };
  add(directory_.contents);
  add(ids_);
  add(cas_);
  for (SalvagedTree const& bank : banks_) add(bank.contents);
}

void FoundBanks::FindOrphans() {
  Reach();
  orphans_.emplace(library_, reached_, shapes_, tails_,
                   [this](TreeShape const& shape, std::int32_t const* entry) {
                     return CanBeEntry(shape, entry);
                   });
}

// Entries in unreached nodes of the directory are of banks where the directory has a gap; otherwise
// they are of banks that were deleted, or outdated.
void FoundBanks::FillDirectory() {
  auto const isBank = [this](std::int32_t const* entry) { return IsBankEntry(library_, entry); };
  std::vector<OrphanTree> const trees = orphans_->Trees(kDirectoryShape, isBank);
  for (OrphanTree const& tree : trees) {
    for (FoundEntry const& entry : tree.contents.entries) {
      oldHeadings_.push_back(ReadBankEntry(library_, entry.words));
    }
  }
  if (directory_.contents.gaps.empty()) return;
  std::set<std::int32_t> used;
  bool const isRootLost = directory_.contents.nodes.empty();
  GapFilling(library_, {&directory_}, [&](BankHeading const&, std::int32_t const* entry) {
    return isBank(entry);
  }).Fill(trees, used);
  // If only the address of the root was lost, the directory is whole again. A leaf that has been
  // split is only a part of it.
  auto const isIt = [&](OrphanTree const& tree) {
    std::int32_t const* root = library_.Run(tree.root, f::kNodeWords);
    bool const isAll = tree.contents.height > 1 || (root[f::kNodePrevious] == f::kNullAddress &&
                                                    root[f::kNodeNext] == f::kNullAddress);
    return !tree.isFree && isAll && tree.contents.gaps.empty() &&
           tree.contents.nodes == directory_.contents.nodes;
  };
  if (isRootLost && std::any_of(trees.begin(), trees.end(), isIt)) {
    directory_.contents.gaps.clear();
  }
  AddBanksOfDirectory();
  SettleClaims();
  FindOrphans();
}

// A damaged head can lead to a node below the root: the nodes above it are then not reached.
void FoundBanks::CorrectRoots() {
  bool any = false;
  budget_ = TreeWalk::Budget(library_);
  for (SalvagedTree& bank : banks_) {
    if (bank.heading.root == f::kNullAddress || !bank.heading.shape.IsUsable()) continue;
    std::int32_t const above = orphans_->Above(bank.heading.root, bank.heading.shape);
    if (above == bank.heading.root) continue;
    BankHeading heading = bank.heading;
    heading.root = above;
    TreeContents contents = WalkBank(heading);
    if (contents.entries.size() <= bank.contents.entries.size()) continue;
    bank = {std::move(heading), std::move(contents)};
    any = true;
  }
  if (any) FindOrphans();
}

void FoundBanks::FillBanks() {
  std::map<TreeShape, std::vector<SalvagedTree*>> withGaps;
  for (SalvagedTree& bank : banks_) {
    if (!bank.contents.gaps.empty()) withGaps[bank.heading.shape].push_back(&bank);
  }
  for (auto& [shape, trees] : withGaps) {
    std::vector<OrphanTree> const orphans = orphans_->Trees(shape, TestOf(shape));
    GapFilling(library_, trees, [this](BankHeading const& bank, std::int32_t const* entry) {
      return CanBeIn(bank, entry);
    }).Fill(orphans, reached_);
  }
}

bool FoundBanks::CanBeEntry(TreeShape const& shape, std::int32_t const* entry) {
  if (shape == kDirectoryShape) return IsBankEntry(library_, entry);
  if (shape == kIdShape && IsIdEntry(entry)) return true;
  if (shape == kCasShape && IsCasEntry(entry)) return true;
  if (shape.isAddressed) return records_.IsRecordOf(entry[1], entry[0]);
  auto const& all = BankShapes();
  return std::any_of(all.begin(), all.end(), [&](BankShape const& one) {
    std::vector<bool> used;
    return one.shape == shape && checks_.IsPlausible(one, entry) &&
           checks_.IsOfFormat(one, entry + shape.keyWords, used);
  });
}

bool FoundBanks::CanBeIn(BankHeading const& bank, std::int32_t const* entry) {
  if (bank.shape.isAddressed) return records_.IsRecordOf(entry[1], entry[0]);
  auto const& all = BankShapes();
  auto const shape = std::find_if(all.begin(), all.end(), [&](BankShape const& one) {
    return one.type == bank.type && one.shape == bank.shape;
  });
  std::vector<bool> used;
  return shape == all.end() || (checks_.IsPlausible(*shape, entry) &&
                                checks_.IsOfFormat(*shape, entry + bank.shape.keyWords, used));
}

// An entry of a component whose record belongs to another one is damaged; for other banks the walk
// decides.
TreeWalk::Test FoundBanks::TestOf(TreeShape const& shape) const {
  if (!shape.isAddressed) return {};
  return [this](std::int32_t const* entry) { return records_.IsRecordOf(entry[1], entry[0]); };
}

}  // namespace zel
