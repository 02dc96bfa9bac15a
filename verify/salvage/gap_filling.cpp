#include "verify/salvage/gap_filling.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <tuple>
#include <utility>

namespace zel {

namespace f = format;

namespace {

bool IsOpen(TreeGap const& gap) noexcept { return !gap.isFilled || gap.height != 1; }

// How near the word in place of the address is to the address: 3 for one wrong bit, 2 for one wrong
// byte.
double LinkScore(std::int32_t link, std::int32_t address) noexcept {
  auto const wrong = static_cast<std::uint32_t>(link) ^ static_cast<std::uint32_t>(address);
  if (std::popcount(wrong) <= 1) return 3.0;
  for (unsigned byte = 0; byte < 4; ++byte) {
    if ((wrong & ~(0xFFU << (8U * byte))) == 0) return 2.0;
  }
  return 0.0;
}

// 0 to 1: how near the block is to the nearest one of the tree.
double Nearness(std::int32_t address, std::set<std::int32_t> const& nodes) noexcept {
  if (nodes.empty()) return 0.0;
  auto const at = nodes.lower_bound(address);
  double distance = 1e9;
  if (at != nodes.end()) distance = static_cast<double>(*at) - address;
  if (at != nodes.begin()) {
    distance = std::min(distance, static_cast<double>(address) - *std::prev(at));
  }
  return 1.0 / (1.0 + std::log2(1.0 + distance));
}

}  // namespace

GapFilling::GapFilling(BrokenLibrary const& library, std::vector<SalvagedTree*> trees, Test test)
    : library_(library), trees_(std::move(trees)), test_(std::move(test)) {
  for (SalvagedTree const* tree : trees_) {
    GapIndex index(Before{tree->heading.shape.keyWords});
    for (std::size_t i = 0; i < tree->contents.gaps.size(); ++i) {
      index.emplace(tree->contents.gaps[i].before, i);
    }
    gaps_.emplace(tree, std::move(index));
    for (std::int32_t const node : tree->contents.nodes) {
      std::int32_t const* words = library_.Run(node, f::kNodeWords);
      if (words == nullptr) continue;
      for (int const word : {f::kNodePrevious, f::kNodeNext}) {
        if (words[word] != f::kNullAddress) neighbours_.emplace(words[word], tree);
      }
    }
  }
}

// A node that was never split is the only one that its tree ever had.
bool GapFilling::IsWholeTree(OrphanTree const& orphan) const {
  std::int32_t const* words = library_.Run(orphan.root, f::kNodeWords);
  return orphan.contents.height == 1 && words != nullptr &&
         words[f::kNodePrevious] == f::kNullAddress && words[f::kNodeNext] == f::kNullAddress;
}

bool GapFilling::IsInside(FoundEntry const& entry, SalvagedTree const& tree, TreeGap const& gap) {
  std::int32_t const keyWords = tree.heading.shape.keyWords;
  return (gap.before == nullptr || CompareKeys(gap.before, entry.words, keyWords) < 0) &&
         (gap.after == nullptr || CompareKeys(entry.words, gap.after, keyWords) < 0);
}

std::vector<bool> const& GapFilling::Possible(OrphanTree const& orphan,
                                              BankHeading const& bank) const {
  auto const [at, isNew] = possible_.try_emplace({orphan.root, bank.type});
  if (isNew) {
    for (FoundEntry const& entry : orphan.contents.entries) {
      at->second.push_back(test_(bank, entry.words));
    }
  }
  return at->second;
}

bool GapFilling::Fits(OrphanTree const& orphan, SalvagedTree const& tree,
                      TreeGap const& gap) const {
  if (!IsOpen(gap) || (orphan.isFree && gap.isFilled)) return false;
  bool const isRootGap = tree.contents.nodes.empty() && !gap.isFilled;
  if (!isRootGap && IsWholeTree(orphan)) return false;
  std::vector<FoundEntry> const& entries = orphan.contents.entries;
  std::vector<bool> const& possible = Possible(orphan, tree.heading);
  std::size_t inside = 0;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    inside += possible[i] && IsInside(entries[i], tree, gap) ? 1 : 0;
  }
  constexpr double kLeastInside = 0.8;
  return static_cast<double>(inside) >= kLeastInside * static_cast<double>(entries.size());
}

double GapFilling::Score(OrphanTree const& orphan, SalvagedTree const& tree,
                         TreeGap const& gap) const {
  constexpr double kMostNeighbours = 6.0;
  double neighbours = 0.0;
  for (std::int32_t const node : orphan.contents.nodes) {
    auto const [from, to] = neighbours_.equal_range(node);
    neighbours += static_cast<double>(
        std::count_if(from, to, [&](auto const& one) { return one.second == &tree; }));
    std::int32_t const* words = library_.Run(node, f::kNodeWords);
    for (int const word : {f::kNodePrevious, f::kNodeNext}) {
      if (words != nullptr && tree.contents.nodes.count(words[word]) != 0) neighbours += 1.0;
    }
  }
  bool const isHigh = gap.height > 0 && gap.height == orphan.contents.height;
  return std::min(kMostNeighbours, 2.0 * neighbours) + LinkScore(gap.link, orphan.root) +
         (isHigh ? 1.0 : 0.0) + Nearness(orphan.root, tree.contents.nodes);
}

// Gaps of a tree do not overlap: only the last one that begins before the middle entry can hold it.
GapFilling::Place GapFilling::BestPlace(OrphanTree const& orphan) const {
  Place best;
  std::vector<FoundEntry> const& entries = orphan.contents.entries;
  std::int32_t const* middle = entries[entries.size() / 2].words;
  for (SalvagedTree* tree : trees_) {
    GapIndex const& index = gaps_.at(tree);
    auto const after = index.lower_bound(middle);
    if (after == index.begin()) continue;
    std::size_t const gap = std::prev(after)->second;
    if (!Fits(orphan, *tree, tree->contents.gaps[gap])) continue;
    double const score = Score(orphan, *tree, tree->contents.gaps[gap]);
    if (best.tree == nullptr || score > best.score) best = {tree, gap, score};
  }
  return best;
}

void GapFilling::AddGap(SalvagedTree& tree, TreeGap const& gap) {
  tree.contents.gaps.push_back(gap);
  gaps_.at(&tree).emplace(gap.before, tree.contents.gaps.size() - 1);
}

// What is between the tree and the ends of the gap stays missing.
void GapFilling::Put(OrphanTree const& orphan, Place const& place) {
  TreeContents& contents = place.tree->contents;
  TreeGap const gap = contents.gaps[place.gap];
  std::int32_t const* first = nullptr;
  std::int32_t const* last = nullptr;
  for (FoundEntry entry : orphan.contents.entries) {
    if (!IsInside(entry, *place.tree, gap)) continue;
    if (first == nullptr) first = entry.words;
    last = entry.words;
    entry.isScanned = true;
    entry.isOutdated = orphan.isFree;
    contents.entries.push_back(entry);
  }
  contents.keyless.insert(contents.keyless.end(), orphan.contents.keyless.begin(),
                          orphan.contents.keyless.end());
  contents.holes.insert(contents.holes.end(), orphan.contents.holes.begin(),
                        orphan.contents.holes.end());
  contents.nodes.insert(orphan.contents.nodes.begin(), orphan.contents.nodes.end());
  contents.gaps[place.gap].isFilled = true;
  bool const isWhole =
      IsWholeTree(orphan) || (gap.height > 0 && gap.height == orphan.contents.height);
  if (isWhole) {
    contents.gaps[place.gap].height = 1;
  } else {
    contents.gaps[place.gap].after = first;
    AddGap(*place.tree, {last, gap.after, gap.link, gap.height, true});
  }
  for (TreeGap const& inner : orphan.contents.gaps) {
    if (inner.before != nullptr && inner.after != nullptr) AddGap(*place.tree, inner);
  }
}

// Fills with the surest trees first. A gap that was filled in the meantime changes the best places
// of the others.
void GapFilling::Fill(std::vector<OrphanTree> const& orphans, std::set<std::int32_t>& used) {
  using Rank = std::tuple<bool, double, std::size_t, std::size_t>;  // the last is for equal ones
  std::set<Rank, std::greater<>> queue;
  auto const rank = [&](std::size_t i) {
    Place const place = BestPlace(orphans[i]);
    if (place.tree == nullptr) return;
    queue.emplace(!orphans[i].isFree, place.score, orphans[i].contents.entries.size(),
                  orphans.size() - i);
  };
  for (std::size_t i = 0; i < orphans.size(); ++i) rank(i);
  while (!queue.empty()) {
    Rank const first = *queue.begin();
    queue.erase(queue.begin());
    std::size_t const i = orphans.size() - std::get<3>(first);
    Place const place = BestPlace(orphans[i]);
    if (place.tree == nullptr || used.count(orphans[i].root) != 0) continue;
    if (place.score < std::get<1>(first)) {
      rank(i);
      continue;
    }
    Put(orphans[i], place);
    used.insert(orphans[i].contents.nodes.begin(), orphans[i].contents.nodes.end());
  }
  SortEntries();
}

void GapFilling::SortEntries() {
  for (SalvagedTree* tree : trees_) {
    std::int32_t const keyWords = tree->heading.shape.keyWords;
    std::vector<FoundEntry>& entries = tree->contents.entries;
    std::stable_sort(entries.begin(), entries.end(), [&](FoundEntry const& a, FoundEntry const& b) {
      int const order = CompareKeys(a.words, b.words, keyWords);
      return order != 0 ? order < 0 : int{a.isScanned} < int{b.isScanned};
    });
    entries.erase(std::unique(entries.begin(), entries.end(),
                              [&](FoundEntry const& a, FoundEntry const& b) {
                                return CompareKeys(a.words, b.words, keyWords) == 0;
                              }),
                  entries.end());
  }
}

}  // namespace zel
