#include "verify/salvage/tree_contents.h"

#include <algorithm>
#include <utility>

#include "store/btree.h"

namespace zel {

namespace f = format;

TreeWalk::Budget::Budget(BrokenLibrary const& library) {
  constexpr std::int64_t kVisits = 8;  // of each block; without damage there is one
  std::int64_t blocks = 0;
  for (int file = 1; file <= f::kMaxFiles; ++file) blocks += library.Blocks(file);
  left_ = kVisits * (blocks + 1);
}

TreeContents TreeWalk::From(std::int32_t root) {
  if (root != f::kNullAddress) Enter(root, 1);
  KeepThoseInOrder();
  ReleaseMisplaced();
  return Contents();
}

void TreeWalk::Miss(std::int32_t link, int level) {
  steps_.push_back({nullptr, visits_.size(), link, level, false, false});
}

// A damaged link can lead to a node that is also reached from its right place: each node is visited
// a few times, and the order of the keys decides.
bool TreeWalk::MayEnter(std::int32_t address, int level) {
  constexpr int kMostVisits = 3;
  bool const isLeftOut = std::any_of(leftOut_.begin(), leftOut_.end(),
                                     [&](auto const* nodes) { return nodes->count(address) != 0; });
  return !isLeftOut && level <= BTree_i::kMaxDepth &&
         std::find(path_.begin(), path_.end(), address) == path_.end() &&
         visitsOf_[address] < kMostVisits && budget_.Take();
}

void TreeWalk::Enter(std::int32_t address, int level) {
  NodeReading node;
  if (!MayEnter(address, level) || !node.Read(library_, address, shape_, tails_)) {
    Miss(address == 0 ? -1 : address, level);
    return;
  }
  ++visitsOf_[address];
  ++(node.TailIsClean() ? clean_ : dirty_);
  if (node.IsLeaf() && leafLevel_ == 0) leafLevel_ = level;
  path_.push_back(address);
  std::size_t const visit = visits_.size();
  visits_.push_back({address, 0, 0, node.IsLeaf()});
  for (std::int32_t i = 0; i <= node.Count(); ++i) {
    if (i > 0) {
      std::int32_t const* entry = node.Entry(i);
      bool const good = node.EntryIsGood(i);
      bool const canBeTrue = good && (!test_ || test_(entry));
      if (good) steps_.push_back({entry, visit, 0, level, false, canBeTrue});
      if (!canBeTrue) Miss(0, level);
      if (canBeTrue) ++visits_[visit].entries;
    }
    if (node.IsLeaf()) continue;
    if (node.LinkIsGood(i)) {
      Enter(node.LinkWord(i), level + 1);
    } else {
      Miss(node.LinkWord(i) == 0 ? -1 : node.LinkWord(i), level + 1);
    }
  }
  path_.pop_back();
}

// The longest ascending run of entries that is not necessarily contiguous.
void TreeWalk::KeepThoseInOrder() {
  constexpr std::size_t kNone = SIZE_MAX;
  std::vector<std::size_t> ends;  // by length - 1: the least last entry
  std::vector<std::size_t> before(steps_.size(), kNone);
  for (std::size_t i = 0; i < steps_.size(); ++i) {
    if (!steps_[i].canBeTrue) continue;
    auto const at = std::partition_point(ends.begin(), ends.end(), [&](std::size_t end) {
      return CompareKeys(steps_[end].words, steps_[i].words, shape_.keyWords) < 0;
    });
    if (at != ends.begin()) before[i] = *(at - 1);
    if (at == ends.end()) {
      ends.push_back(i);
    } else {
      *at = i;
    }
  }
  for (std::size_t i = ends.empty() ? kNone : ends.back(); i != kNone; i = before[i]) {
    steps_[i].isKept = true;
    ++visits_[steps_[i].visit].kept;
  }
}

// What was read in a wrong place is missing in its right one.
void TreeWalk::ReleaseMisplaced() {
  for (Step& step : steps_) {
    if (step.words == nullptr) continue;
    Visit const& visit = visits_[step.visit];
    if (!visit.IsMisplaced()) continue;
    step = {nullptr, step.visit, visit.address, step.level, false, false};
  }
}

TreeContents TreeWalk::Contents() const {
  TreeContents contents;
  contents.cleanTails = clean_;
  contents.dirtyTails = dirty_;
  contents.height = leafLevel_;
  for (Visit const& visit : visits_) {
    if (!visit.IsMisplaced()) contents.nodes.insert(visit.address);
  }
  std::set<std::int32_t const*> kept;
  std::int32_t const* last = nullptr;
  std::size_t openGaps = 0;
  std::size_t openHoles = 0;
  auto const close = [&](std::int32_t const* words) {
    for (std::size_t i = openGaps; i < contents.gaps.size(); ++i) contents.gaps[i].after = words;
    for (std::size_t i = openHoles; i < contents.holes.size(); ++i) contents.holes[i].after = words;
    openGaps = contents.gaps.size();
    openHoles = contents.holes.size();
  };
  for (Step const& step : steps_) {
    if (step.isKept) {
      contents.entries.push_back({step.words, visits_[step.visit].address});
      kept.insert(step.words);
      close(step.words);
      last = step.words;
    } else if (step.words == nullptr && step.link != 0) {
      // One gap covers all that is missing in a row.
      int const height = leafLevel_ == 0 ? 0 : std::max(0, leafLevel_ - step.level + 1);
      if (contents.gaps.size() > openGaps) {
        contents.gaps.back().height = std::max(contents.gaps.back().height, height + 1);
      } else {
        contents.gaps.push_back({last, nullptr, step.link, height, false});
      }
    } else if (contents.holes.size() == openHoles) {
      contents.holes.push_back({last, nullptr, 0, 0, false});
    }
  }
  for (Step const& step : steps_) {
    if (step.words == nullptr || step.isKept || kept.count(step.words) != 0) continue;
    contents.keyless.push_back({step.words, visits_[step.visit].address});
  }
  return contents;
}

}  // namespace zel
