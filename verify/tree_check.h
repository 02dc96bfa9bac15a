// Checks one tree.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "verify/block_claims.h"

namespace zel {

// What a tree must satisfy in addition to being a valid tree.
struct TreeRule {
  std::int32_t keyWords = 0;   // 0 for any
  std::int32_t dataWords = 0;  // in the entry; 0 for any
};

// Checks every node once: counts, capacity, links (all or none), equal depth, keys that ascend from
// the first entry to the last; claims its block. Calls `visit` with each entry, key first. A node
// with a fault is not descended into. False if there was any fault. The words for parent and
// neighbours are not checked: they reflect the history of the tree, not its present state.
class TreeCheck {
 public:
  using Visit = std::function<void(std::int32_t const* entry)>;

  TreeCheck(BlockStore& store, BlockClaims& claims, Findings& findings) noexcept
      : store_(store), claims_(claims), findings_(findings) {}

  bool Run(std::int32_t const* head, TreeRule rule, Visit const& visit);

 private:
  using Node = std::vector<std::int32_t>;

  bool HeadIsGood(std::int32_t const* head, TreeRule rule);
  void Enter(std::int32_t address, int level);
  bool NodeIsGood(Node const& node, std::int32_t address, int level);
  void Entry(std::int32_t const* entry, std::int32_t address);
  void Damage(char const* id, std::int32_t address, std::string const& text);

  BlockStore& store_;
  BlockClaims& claims_;
  Findings& findings_;
  Visit const* visit_ = nullptr;
  std::int32_t keyWords_ = 0;
  std::int32_t width_ = 0;  // words of an entry and the link after it
  std::int32_t capacity_ = 0;
  std::vector<std::int32_t> last_;  // the key of the previous entry
  std::int64_t entries_ = 0;
  int depth_ = 0;  // of the first leaf reached
  bool good_ = true;
};

}  // namespace zel
