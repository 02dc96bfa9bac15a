// A slow, literal model of the on-file tree: nodes in a map by address, contents as vectors.
// Addresses come from the literal free list, so that a tree made by the same calls has the same
// addresses.
#pragma once

#include <map>
#include <vector>

#include "tests/support/extent_model.h"

namespace zel::test {

class TreeModel {
 public:
  static constexpr long kNull = 990000000;
  using Words = std::vector<int>;  // a key, or a whole entry, key first

  struct Node {
    long parent = kNull;
    long previous = kNull;
    long next = kNull;
    std::vector<Words> entries;
    std::vector<long> links;  // one more than entries
  };

  TreeModel(int libType, std::size_t keyWords, std::size_t capacity)
      : keyWords_(keyWords), capacity_(capacity), free_(libType) {}

  // False when the key is there already.
  bool Insert(Words const& entry);
  // Like the tree's Delete, on a tree that is not empty.
  void Delete(Words const& key);

  long Root() const { return root_; }
  std::map<long, Node> const& Nodes() const { return nodes_; }
  std::vector<Words> Walk() const;

 private:
  struct Step {
    long address;
    std::size_t index;  // entries before the place
  };

  Words KeyOf(Words const& entry) const {
    return Words(entry.begin(), entry.begin() + static_cast<long>(keyWords_));
  }
  bool Descend(Words const& key, std::vector<Step>& path) const;
  void InsertAt(std::vector<Step> path, Words const& entry, long left, long right);
  bool QuickDelete(Words const& key);
  void Rebuild(Words const& key);
  void WalkFrom(long address, std::vector<Words>& out) const;
  long NewNode(Node node);
  void FreeNode(long address);

  std::size_t keyWords_;
  std::size_t capacity_;
  ExtentModel free_;
  std::map<long, Node> nodes_;
  long root_ = kNull;
};

}  // namespace zel::test
