// A key under test, and libraries that have some components.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "store/key.h"
#include "store/lib_file.h"
#include "store/packed_text.h"
#include "tests/support/memory_file_system.h"

namespace zel::test {

// A library whose identifier trees are filled by hand.
class KnownIds {
 public:
  KnownIds() : library_(files_, accUpdate, "/k.lb1", "k") { library_.CreateNew(libKind11); }

  void AddId(char const* id, std::int32_t number) {
    std::int32_t key[10] = {};
    TextToWords(id, key, 2);
    Add(*library_.GetCharIdTree(), key, number);
  }
  void AddCas(std::int32_t cas, std::int32_t number) {
    std::int32_t key[10] = {cas};
    Add(*library_.GetCasTree(), key, number);
  }
  void ChangeId(char const* id, std::int32_t number) {
    std::int32_t key[10] = {};
    TextToWords(id, key, 2);
    std::int32_t const* found = nullptr;
    std::int32_t* data = nullptr;
    ASSERT_TRUE(library_.GetCharIdTree()->Find(key, found));
    ASSERT_TRUE(library_.GetCharIdTree()->GetCurrentData(data));
    *data = number;
    library_.GetCharIdTree()->WriteCurrentNode();
  }
  LibFile* Library() { return &library_; }

 private:
  static void Add(BTree_i& tree, std::int32_t const* key, std::int32_t number) {
    std::int32_t const* found = nullptr;
    ASSERT_FALSE(tree.Find(key, found));
    tree.Insert(key, format::kNullAddress, format::kNullAddress);
    std::int32_t* data = nullptr;
    ASSERT_TRUE(tree.GetCurrentData(data));
    *data = number;
    tree.WriteCurrentNode();
  }

  MemoryFileSystem files_;
  LibFile_i library_;
};

inline std::vector<std::int32_t> Words(Key_i const& key, std::size_t n) {
  return {key.GetKeyWords(), key.GetKeyWords() + n};
}

class KeyTest : public ::testing::Test {
 protected:
  void TearDown() override { LibFile::ClearOrdwinNameIndex(); }
  bool Resolve(LibFile* library, std::int32_t mode = 0) {
    return key_.ResolveKey(library, mode, swapped_);
  }

  Key_i key_;
  bool swapped_ = true;
};

}  // namespace zel::test
