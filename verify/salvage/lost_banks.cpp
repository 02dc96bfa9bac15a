// Banks that the directory no longer describes: they are found by their trees.
#include <algorithm>
#include <array>
#include <list>
#include <utility>

#include "store/bank_key.h"
#include "verify/salvage/found_banks.h"

namespace zel {

namespace f = format;

namespace {

constexpr std::int32_t kMostNumber = 99'999'999;

// Trees of one bank, in the order of their keys.
using Chain = std::list<OrphanTree*>;

// Moves the trees of a chain to another, unless their keys overlap.
bool Join(Chain& to, Chain& from, std::int32_t keyWords) {
  auto const first = [](Chain const& chain) {
    return chain.front()->contents.entries.front().words;
  };
  auto const last = [](Chain const& chain) { return chain.back()->contents.entries.back().words; };
  bool const isAfter = CompareKeys(last(to), first(from), keyWords) < 0;
  if (!isAfter && CompareKeys(last(from), first(to), keyWords) >= 0) return false;
  to.splice(isAfter ? to.end() : to.begin(), from);
  return true;
}

// Moves the contents of all trees of a chain to one of them.
void Unite(Chain const& chain, OrphanTree& to) {
  TreeContents all;
  for (OrphanTree* const tree : chain) {
    TreeContents const from = std::move(tree->contents);
    tree->contents = {};
    // The entry between two of them was in the node that is lost.
    if (!all.entries.empty()) {
      all.gaps.push_back({all.entries.back().words, from.entries.front().words, 0, 0, true});
    }
    all.entries.insert(all.entries.end(), from.entries.begin(), from.entries.end());
    all.keyless.insert(all.keyless.end(), from.keyless.begin(), from.keyless.end());
    all.gaps.insert(all.gaps.end(), from.gaps.begin(), from.gaps.end());
    all.holes.insert(all.holes.end(), from.holes.begin(), from.holes.end());
    all.nodes.insert(from.nodes.begin(), from.nodes.end());
  }
  to.contents = std::move(all);
}

}  // namespace

BankHeading const* FoundBanks::OldHeading(std::int32_t root, TreeShape const& shape) const {
  auto const at = std::find_if(oldHeadings_.begin(), oldHeadings_.end(), [&](auto const& one) {
    return one.keyIsGood && one.root == root && one.shape == shape;
  });
  return at == oldHeadings_.end() ? nullptr : &*at;
}

// Whether a bank of this type would be in a gap of the directory.
bool FoundBanks::IsInDirectoryGap(BankHeading const& heading, bool isMarked) const {
  std::array<std::int32_t, f::kBankKeyWords> last{};
  MakeBankKey(heading.type, "________", last.data(), isMarked);
  auto const isIn = [&](TreeGap const& gap) {
    return (gap.before == nullptr || CompareKeys(gap.before, last.data(), f::kBankKeyWords) < 0) &&
           (gap.after == nullptr ||
            CompareKeys(heading.key.data(), gap.after, f::kBankKeyWords) < 0);
  };
  TreeContents const& directory = directory_.contents;
  return std::any_of(directory.gaps.begin(), directory.gaps.end(), isIn) ||
         std::any_of(directory.holes.begin(), directory.holes.end(), isIn);
}

// The words that the format uses and that are zero in every record: its writer had no such fields.
// SIZE_MAX if the records cannot be of the format.
std::size_t FoundBanks::Unused(BankShape const& shape, OrphanTree const& tree) {
  if (shape.shape.isAddressed) return 0;
  std::vector<bool> isZero(static_cast<std::size_t>(shape.shape.dataWords), true);
  std::vector<bool> used;
  std::size_t wrong = 0;
  for (FoundEntry const& entry : tree.contents.entries) {
    std::int32_t const* data = entry.words + shape.shape.keyWords;
    bool const isGood =
        checks_.IsPlausible(shape, entry.words) && checks_.IsOfFormat(shape, data, used);
    if (!isGood) ++wrong;
    for (std::size_t i = 0; i < isZero.size(); ++i) isZero[i] = isZero[i] && data[i] == 0;
  }
  if (8 * wrong > tree.contents.entries.size()) return SIZE_MAX;
  std::size_t unused = 0;
  for (std::size_t i = 0; i < used.size(); ++i) unused += used[i] && isZero[i] ? 1 : 0;
  return unused;
}

// The formats that a tree can be of: those that fit its records best, as far as a bank of the type
// would be in a gap of the directory.
std::vector<BankShape const*> FoundBanks::Candidates(TreeShape const& shape,
                                                     OrphanTree const& tree) {
  for (bool const mustBeInGap : {true, false}) {
    std::vector<BankShape const*> best;
    std::size_t least = SIZE_MAX;
    for (BankShape const& one : BankShapes()) {
      if (one.shape != shape) continue;
      if (mustBeInGap && !IsInDirectoryGap(MakeHeading(one, "", tree.root), one.isMarked)) continue;
      std::size_t const unused = Unused(one, tree);
      if (unused == SIZE_MAX || unused > least) continue;
      if (unused < least) best.clear();
      least = unused;
      best.push_back(&one);
    }
    if (!best.empty()) return best;
  }
  return {};
}

// Nodes that were next to each other when one was split are of one bank, if their keys do not
// overlap.
void FoundBanks::JoinNeighbours(std::vector<OrphanTree>& trees, TreeShape const& shape) const {
  std::map<std::int32_t, std::size_t> treeOf;
  for (std::size_t i = 0; i < trees.size(); ++i) {
    if (trees[i].isFree) continue;
    for (std::int32_t const node : trees[i].contents.nodes) treeOf.emplace(node, i);
  }
  std::vector<std::size_t> into(trees.size());
  std::vector<Chain> chains(trees.size());
  for (std::size_t i = 0; i < into.size(); ++i) {
    into[i] = i;
    chains[i] = {&trees[i]};
  }
  auto const group = [&](std::size_t i) {
    for (; into[i] != i; i = into[i]) into[i] = into[into[i]];
    return i;
  };
  for (auto const& [node, tree] : treeOf) {
    std::int32_t const* words = library_.Run(node, f::kNodeWords);
    for (int const word : {f::kNodePrevious, f::kNodeNext}) {
      auto const other = words == nullptr ? treeOf.end() : treeOf.find(words[word]);
      if (other == treeOf.end() || group(other->second) == group(tree)) continue;
      std::size_t const to = group(tree);
      std::size_t const from = group(other->second);
      if (Join(chains[to], chains[from], shape.keyWords)) into[from] = to;
    }
  }
  for (std::size_t i = 0; i < trees.size(); ++i) {
    if (chains[i].size() > 1) Unite(chains[i], trees[i]);
  }
  std::erase_if(trees, [](OrphanTree const& tree) { return tree.contents.entries.empty(); });
}

void FoundBanks::AddLostBanks(TreeShape const& shape) {
  std::vector<OrphanTree> trees = orphans_->Trees(shape, TestOf(shape));
  JoinNeighbours(trees, shape);
  for (OrphanTree& tree : trees) {
    BankHeading const* old = OldHeading(tree.root, shape);
    bool const isUsed = reached_.count(tree.root) != 0 ||
                        std::any_of(tree.contents.nodes.begin(), tree.contents.nodes.end(),
                                    [&](auto node) { return reached_.count(node) != 0; });
    if (isUsed || (tree.isFree && old == nullptr)) continue;
    BankHeading heading;
    if (old != nullptr) {
      heading = *old;
    } else {
      std::vector<BankShape const*> const types = Candidates(shape, tree);
      if (types.empty()) continue;
      heading = MakeHeading(*types.front(), "", tree.root);
      if (types.size() > 1) {
        for (BankShape const* one : types) {
          heading.typeIsOneOf += (heading.typeIsOneOf.empty() ? "" : ", ") + one->type;
        }
      }
    }
    for (FoundEntry& entry : tree.contents.entries) {
      entry.isScanned = true;
      entry.isOutdated = tree.isFree;
    }
    reached_.insert(tree.contents.nodes.begin(), tree.contents.nodes.end());
    banks_.push_back({std::move(heading), std::move(tree.contents)});
  }
}

// Nodes of the identifiers have the widths of some banks.
void FoundBanks::FindLostBanks() {
  for (OrphanTree const& tree : orphans_->Trees(kIdShape, IsIdEntry)) {
    bool const isIds =
        std::all_of(tree.contents.entries.begin(), tree.contents.entries.end(),
                    [](FoundEntry const& entry) { return entry.words[2] <= kMostNumber; });
    if (isIds) reached_.insert(tree.contents.nodes.begin(), tree.contents.nodes.end());
  }
  for (OrphanTree const& tree : orphans_->Trees(kCasShape, IsCasEntry)) {
    if (2 * tree.contents.keyless.size() > tree.contents.entries.size()) continue;
    reached_.insert(tree.contents.nodes.begin(), tree.contents.nodes.end());
  }
  // Data hardly ever look like a part of a key, so that of equal widths the longer key is right.
  for (auto shape = shapes_.rbegin(); shape != shapes_.rend(); ++shape) {
    if (*shape != kDirectoryShape) AddLostBanks(*shape);
  }
}

}  // namespace zel
