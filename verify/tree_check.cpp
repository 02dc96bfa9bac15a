#include "verify/tree_check.h"

#include <algorithm>
#include <array>

#include "store/btree.h"
#include "store/btree_head.h"

namespace zel {

namespace f = format;

void TreeCheck::Damage(char const* id, std::int32_t address, std::string const& text) {
  good_ = false;
  findings_.Damage(id, claims_.Owner(), "node " + std::to_string(address) + ": " + text);
}

bool TreeCheck::HeadIsGood(std::int32_t const* words, TreeRule rule) {
  std::array<std::int32_t, f::kHeadWords> copy{};
  std::copy_n(words, copy.size(), copy.begin());
  BTreeHead_i const head(copy.data());
  bool const fits = (rule.keyWords == 0 || head.keyWords == rule.keyWords) &&
                    (rule.dataWords == 0 || head.entryDataWords == rule.dataWords);
  bool const isRoot = head.rootAddress == f::kNullAddress ||
                      BlockAddress::Split(head.rootAddress).type == store_.LibType();
  if (!head.IsUsable() || !fits || !isRoot) {
    findings_.Damage("tree-head", claims_.Owner(),
                     "the head of the tree is damaged: nodes of " + std::to_string(head.nodeWords) +
                         " words, keys of " + std::to_string(head.keyWords) + ", entries of " +
                         std::to_string(head.entryWords) + ", root " +
                         std::to_string(head.rootAddress));
    return false;
  }
  keyWords_ = head.keyWords;
  width_ = head.entryWords + 1;
  capacity_ = head.maxEntries;
  return true;
}

bool TreeCheck::Run(std::int32_t const* head, TreeRule rule, Visit const& visit) {
  visit_ = &visit;
  last_.clear();
  entries_ = 0;
  depth_ = 0;
  good_ = true;
  if (!HeadIsGood(head, rule)) return false;
  std::int32_t const root = head[f::kHeadRootAddress];
  if (root != f::kNullAddress) Enter(root, 1);
  return good_;
}

void TreeCheck::Enter(std::int32_t address, int level) {
  if (level > BTree_i::kMaxDepth) {
    Damage("tree-depth", address, "deeper than any tree can be");
    return;
  }
  if (!claims_.Claim(address, f::kNodeWords)) {
    good_ = false;
    return;
  }
  Node node(f::kNodeWords);
  if (!claims_.Read(address, f::kNodeWords, node.data())) {
    good_ = false;
    return;
  }
  if (!NodeIsGood(node, address, level)) return;
  bool const isLeaf = node[f::kNodeLinks] == f::kNullAddress;
  auto const at = [&](std::int32_t word) { return node.data() + word; };
  if (!isLeaf) Enter(node[f::kNodeLinks], level + 1);
  for (std::int32_t i = 0; i < node[f::kNodeCount]; ++i) {
    Entry(at(f::kNodeEntries + i * width_), address);
    if (!isLeaf) Enter(*at(f::kNodeLinks + (i + 1) * width_), level + 1);
  }
}

bool TreeCheck::NodeIsGood(Node const& node, std::int32_t address, int level) {
  std::int32_t const count = node[f::kNodeCount];
  if (count < 0 || count > capacity_ || count > f::kNodeRoom / width_) {
    Damage("tree-node", address,
           std::to_string(count) + " entries, where at most " + std::to_string(capacity_) + " fit");
    return false;
  }
  std::int32_t nulls = 0;
  for (std::int32_t i = 0; i <= count; ++i) {
    if (node[static_cast<std::size_t>(f::kNodeLinks + i * width_)] == f::kNullAddress) ++nulls;
  }
  if (nulls != 0 && nulls != count + 1) {
    Damage("tree-links", address, "some links are there and some are not");
    return false;
  }
  if (nulls != 0) {
    if (depth_ == 0) depth_ = level;
    if (level != depth_) {
      Damage("tree-depth", address,
             "a leaf at level " + std::to_string(level) + ", where others are at " +
                 std::to_string(depth_));
    }
  }
  return true;
}

void TreeCheck::Entry(std::int32_t const* entry, std::int32_t address) {
  ++entries_;
  bool const rises = last_.empty() || std::lexicographical_compare(last_.begin(), last_.end(),
                                                                   entry, entry + keyWords_);
  if (!rises) {
    Damage(
        "tree-order", address,
        "entry " + std::to_string(entries_) + " of the tree does not come behind the one before");
  }
  last_.assign(entry, entry + keyWords_);
  (*visit_)(entry);
}

}  // namespace zel
