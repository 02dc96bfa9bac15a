// In-order walk without recursion: descends at a link, returns an entry after it.
#include "store/btree.h"

namespace zel {

namespace f = format;

void BTree_i::EndWalk() noexcept {
  walk_ = WalkState::kEnded;
  walkLeft_ = 0;
}

void BTree_i::WalkBegin(std::int32_t& keyWords, std::int32_t& dataWords) {
  ForgetClosed();
  ++searches_;
  current_ = kNoLevel;
  atEntry_ = false;
  EndWalk();
  keyWords = 0;
  dataWords = 0;
  if (head_.rootAddress == f::kNullAddress) return;
  CheckHead();
  Enter(0, head_.rootAddress).index = 0;
  current_ = 0;
  keyWords = head_.keyWords;
  dataWords = head_.dataWords;
  walkVisits_ = 1;
  walkBound_ = 0;
  walk_ = WalkState::kAtLink;
}

bool BTree_i::WalkOn(std::int32_t const*& entry) {
  ForgetClosed();
  entry = nullptr;
  walkLeft_ = 0;
  if (walk_ == WalkState::kEnded) return false;
  atEntry_ = false;  // also when a link on the way throws
  for (;;) {
    Level& level = level_[current_];
    if (walk_ == WalkState::kAtLink) {
      std::int32_t const child = level.words[LinkAt(level.index)];
      if (child == f::kNullAddress) {
        ++level.index;
        walk_ = WalkState::kAtEntry;
      } else {
        if (!WithinBlocks(++walkVisits_, walkBound_)) store_.Throw(child, BlockFault::kBadNode);
        Enter(current_ + 1, child).index = 0;
        ++current_;
        continue;
      }
    }
    if (level.index <= level.words[f::kNodeCount]) {
      entry = level.words + EntryAt(level.index);
      atEntry_ = true;
      walk_ = WalkState::kAtLink;
      walkLink_ = level.words + LinkAt(level.index);
      walkLeft_ = level.words[f::kNodeCount] - level.index;
      return true;
    }
    if (current_ == 0) {
      current_ = kNoLevel;
      EndWalk();
      return false;
    }
    --current_;
    ++level_[current_].index;
  }
}

}  // namespace zel
