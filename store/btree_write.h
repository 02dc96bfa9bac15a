// What the writing parts of the tree share.
#pragma once

#include "store/btree.h"

namespace zel {

// A change that does not come to its end leaves buffers that may differ from the file: they are
// forgotten, and the next search reads the file again.
class BTree_i::ForgetOnFailure {
 public:
  explicit ForgetOnFailure(BTree_i& tree) noexcept : tree_(&tree) {}
  ForgetOnFailure(ForgetOnFailure const&) = delete;
  ForgetOnFailure& operator=(ForgetOnFailure const&) = delete;
  ~ForgetOnFailure() {
    if (tree_ != nullptr) tree_->ForgetAll();
  }
  void Done() noexcept { tree_ = nullptr; }

 private:
  BTree_i* tree_;
};

}  // namespace zel
