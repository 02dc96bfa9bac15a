// What the parts of the tree that write share.
#pragma once

#include "store/btree.h"

namespace zel {

// After a change that does not complete, buffers may differ from the file: they are invalidated,
// and the next search reads the file again.
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
