#include "verify/salvage/orphan_nodes.h"

#include <algorithm>

namespace zel {

namespace f = format;

OrphanNodes::OrphanNodes(BrokenLibrary const& library, std::set<std::int32_t> const& reached,
                         std::set<TreeShape> const& shapes, NodeReading::Tails tails,
                         Test const& test)
    : library_(library), tails_(tails) {
  for (int file = 1; file <= f::kMaxFiles; ++file) {
    if (!library.CanHoldNodes(file)) continue;
    std::int32_t const first = file == 1 ? f::kFirstFreeBlockOfFile1 : 1;
    for (std::int32_t block = first; block <= library.Blocks(file); ++block) {
      std::int32_t const address = BlockAddress{library.Type(), file, block}.Word();
      if (reached.count(address) == 0) Place(address, shapes, test);
    }
  }
}

namespace {

// 0 to 5: links where the widths put them, ascending keys, entries that can be true, the count, and
// zeros after the last entry.
double Likeness(NodeReading const& node, TreeShape const& shape, OrphanNodes::Test const& test) {
  if (node.Count() < 1) return 0.0;
  std::int32_t ascending = 1;
  std::int32_t good = 0;
  std::int32_t possible = 0;
  for (std::int32_t i = 1; i <= node.Count(); ++i) {
    bool const isGood = node.EntryIsGood(i);
    good += isGood ? 1 : 0;
    possible += isGood && test(shape, node.Entry(i)) ? 1 : 0;
    if (i > 1 && CompareKeys(node.Entry(i - 1), node.Entry(i), shape.keyWords) < 0) ++ascending;
  }
  if (good == 0) return 0.0;
  return node.GoodLinks() + static_cast<double>(ascending + good + possible) / node.Count() +
         (node.TailIsClean() ? 0.5 : 0.0) + (node.CountIsStated() ? 0.5 : 0.0);
}

}  // namespace

// Widths of different keys and data can have the same sum, so that the links say nothing. A node
// that suits several equally well is found with each.
void OrphanNodes::Place(std::int32_t address, std::set<TreeShape> const& shapes, Test const& test) {
  constexpr double kLeast = 2.0;
  std::int32_t const* words = library_.Run(address, f::kNodeWords);
  if (words == nullptr || std::all_of(words, words + f::kNodeWords, [](auto w) { return w == 0; }))
    return;
  double most = kLeast;
  std::set<Widths> best;
  for (TreeShape const& shape : shapes) {
    NodeReading node;
    if (!node.Read(library_, address, shape, tails_)) continue;
    double const likeness = Likeness(node, shape, test);
    if (likeness < most) continue;
    if (likeness > most) best.clear();
    most = likeness;
    best.insert(WidthsOf(shape));
  }
  for (Widths const& widths : best) nodes_[widths].push_back(address);
}

OrphanNodes::ParentMap OrphanNodes::FindParents(TreeShape const& shape, bool alsoFree) const {
  ParentMap parents;
  auto const found = nodes_.find(WidthsOf(shape));
  if (found == nodes_.end()) return parents;
  for (std::int32_t const address : found->second) {
    NodeReading node;
    if (!alsoFree && library_.IsFree(address)) continue;
    if (!node.Read(library_, address, shape, tails_) || node.IsLeaf()) continue;
    for (std::int32_t i = 0; i <= node.Count(); ++i) {
      if (node.LinkIsGood(i)) parents.emplace(node.LinkWord(i), address);
    }
  }
  return parents;
}

OrphanNodes::ParentMap const& OrphanNodes::Parents(TreeShape const& shape, bool alsoFree) const {
  auto const [at, isNew] = parents_.try_emplace({WidthsOf(shape), alsoFree});
  if (isNew) at->second = FindParents(shape, alsoFree);
  return at->second;
}

std::vector<OrphanTree> OrphanNodes::Trees(TreeShape const& shape,
                                           TreeWalk::Test const& test) const {
  std::vector<OrphanTree> trees;
  auto const found = nodes_.find(WidthsOf(shape));
  if (found == nodes_.end()) return trees;
  ParentMap const& parents = Parents(shape, true);
  TreeWalk::Budget budget(library_);
  std::vector<std::int32_t> addresses = found->second;
  std::stable_partition(addresses.begin(), addresses.end(),
                        [this](std::int32_t address) { return !library_.IsFree(address); });
  for (std::int32_t const address : addresses) {
    bool const isFree = library_.IsFree(address);
    auto const parent = parents.find(address);
    // A node that a free block leads to may be in use again.
    bool const isTop = parent == parents.end() || parent->second == address ||
                       (library_.IsFree(parent->second) && !isFree);
    if (!isTop) continue;
    TreeWalk walk(library_, budget, shape, tails_, test);
    OrphanTree tree{address, isFree, walk.From(address)};
    if (!tree.contents.entries.empty()) trees.push_back(std::move(tree));
  }
  std::stable_sort(trees.begin(), trees.end(), [](OrphanTree const& a, OrphanTree const& b) {
    if (a.isFree != b.isFree) return b.isFree;
    return a.contents.entries.size() > b.contents.entries.size();
  });
  return trees;
}

bool OrphanNodes::HasLeafInPlaceOf(std::int32_t node, TreeShape const& shape) const {
  NodeReading own;
  auto const found = nodes_.find(WidthsOf(shape));
  bool const isLeaf = found != nodes_.end() && own.Read(library_, node, shape, tails_) &&
                      own.IsLeaf() && own.Count() > 0;
  if (!isLeaf) return false;
  return std::any_of(found->second.begin(), found->second.end(), [&](std::int32_t address) {
    NodeReading other;
    if (library_.IsFree(address) || !other.Read(library_, address, shape, tails_)) return false;
    if (!other.IsLeaf() || other.Count() < 1) return false;
    return CompareKeys(other.Entry(1), own.Entry(own.Count()), shape.keyWords) <= 0 &&
           CompareKeys(own.Entry(1), other.Entry(other.Count()), shape.keyWords) <= 0;
  });
}

std::int32_t OrphanNodes::Above(std::int32_t node, TreeShape const& shape) const {
  ParentMap const& parents = Parents(shape, false);
  std::set<std::int32_t> met;
  for (auto at = parents.find(node); at != parents.end(); at = parents.find(node)) {
    if (!met.insert(node).second) break;
    node = at->second;
  }
  return node;
}

}  // namespace zel
