// An empty tree of capacity 4 with one key word and one data word, in a library in memory.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <memory>
#include <vector>

#include "store/btree.h"
#include "store/lib_file.h"
#include "tests/support/memory_file_system.h"

namespace zel::test {

inline constexpr std::int32_t kNull = format::kNullAddress;
inline constexpr std::int32_t kNode1 = 112000001;  // the first node made; the next ones follow

class BTreeTest : public ::testing::Test {
 protected:
  BTreeTest() : library_(std::make_unique<LibFile_i>(files_, accUpdate, "/t.lb1", "t")) {
    library_->CreateNew(libKind11);
    InitTreeHead(head_.data(), false, 1, 1, 11);
    head_[format::kHeadMaxEntries] = 4;
  }

  void Put(BTree_i& tree, std::int32_t key) {
    std::int32_t const* found = nullptr;
    if (tree.Find(&key, found)) return;
    tree.Insert(&key, kNull, kNull);
    std::int32_t* data = nullptr;
    ASSERT_TRUE(tree.GetCurrentData(data));
    *data = key * 10;
    tree.WriteCurrentNode();
  }
  void PutAll(std::initializer_list<std::int32_t> keys) {
    BTree_i tree(library_->Store(), head_.data());
    for (std::int32_t key : keys) Put(tree, key);
  }
  std::vector<std::int32_t> Node(std::int32_t address) {
    std::vector<std::int32_t> words(format::kNodeWords);
    library_->ReadBlock(address, format::kNodeWords, words.data());
    return words;
  }
  void WriteNode(std::int32_t address, std::vector<std::int32_t> words) {
    words.resize(format::kNodeWords);
    library_->WriteBlock(address, format::kNodeWords, words.data(), 0);
  }
  std::vector<std::int32_t> Keys() {
    BTree_i tree(library_->Store(), head_.data());
    std::int32_t keyWords = 0;
    std::int32_t dataWords = 0;
    tree.WalkBegin(keyWords, dataWords);
    std::vector<std::int32_t> keys;
    std::int32_t const* entry = nullptr;
    while (tree.WalkNext(entry)) keys.push_back(entry[0]);
    return keys;
  }
  template <typename Action>
  static unsigned long Thrown(Action const& action) {
    try {
      action();
    } catch (unsigned long word) {
      return word;
    }
    return 0;
  }

  MemoryFileSystem files_;
  std::unique_ptr<LibFile_i> library_;
  std::array<std::int32_t, 8> head_{};
};

}  // namespace zel::test
