// Sessions whose n-th file operation fails, and files that hold only the first writes of a session.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <map>

#include "store/lib_file.h"
#include "store/packed_text.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/memory_file_system.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

constexpr int kKeys = 30;

void Put(BTree_i& tree, std::int32_t number) {
  std::int32_t const key[10] = {number * 7 % 31, number};
  std::int32_t const* found = nullptr;
  if (tree.Find(key, found)) return;
  tree.Insert(key, format::kNullAddress, format::kNullAddress);
  std::int32_t* data = nullptr;
  if (!tree.GetCurrentData(data)) return;
  *data = number;
  tree.WriteCurrentNode();
}

// Creates a library, fills the ID tree, deletes from it, writes a memo, and closes. Each step may
// throw; the session continues with the next.
template <typename Step>
void RunSession(platform::FileSystem& files, Step const& step) {
  LibFile_i library(files, accUpdate, "/s.lb1", "s");
  if (library.CreateNew(libKind11) != openOk) return;
  for (int i = 0; i < kKeys; ++i) step([&] { Put(*library.GetCharIdTree(), i); });
  step([&] { library.SetMemo("a memo"); });
  step([&] { library.FlushLibFile(); });
  for (int i = 0; i < kKeys; i += 5) {
    step([&] {
      std::int32_t const key[10] = {i * 7 % 31, i};
      library.GetCharIdTree()->Delete(key);
    });
  }
  step([&] { library.CloseLibFile(); });
}

std::map<std::int32_t, std::int32_t> Contents(LibFile_i& library) {
  std::map<std::int32_t, std::int32_t> found;
  BTree_i* tree = library.GetCharIdTree();
  std::int32_t keyWords = 0;
  std::int32_t dataWords = 0;
  tree->WalkBegin(keyWords, dataWords);
  std::int32_t const* entry = nullptr;
  while (tree->WalkNext(entry)) found[entry[1]] = entry[2];
  return found;
}

std::size_t CountEntries(LibFile_i& library) {
  BTree_i* tree = library.GetCharIdTree();
  std::int32_t keyWords = 0;
  std::int32_t dataWords = 0;
  tree->WalkBegin(keyWords, dataWords);
  std::int32_t const* entry = nullptr;
  std::size_t count = 0;
  while (tree->WalkNext(entry)) ++count;
  return count;
}

// Opening and walking ends, with a result or with a block error.
void OpenAndWalk(platform::FileSystem& files) {
  LibFile_i library(files, accRead, "/s.lb1", "s");
  try {
    if (library.OpenExisting({false, {}}, nullptr) != openOk) return;
    // An entry has data of 0 from its insertion to the write of its data.
    for (auto const& [number, value] : Contents(library)) {
      EXPECT_TRUE(value == number || value == 0) << number;
    }
    char memo[4000];
    library.GetMemo(memo);
  } catch (unsigned long) {
  }
}

TEST(Robustness, EveryFailingOperationEndsInAnErrorAndLeavesTheTreeTrue) {
  test::MemoryFileSystem whole;
  test::FailingFileSystem counter(whole);
  RunSession(counter, [](auto const& action) { action(); });
  int const operations = counter.Operations();
  ASSERT_GT(operations, 50);
  for (bool forEver : {false, true}) {
    for (int n = 1; n <= operations; ++n) {
      test::MemoryFileSystem files;
      test::FailingFileSystem failing(files);
      failing.FailAt(n, forEver);
      int thrown = 0;
      RunSession(failing, [&](auto const& action) {
        try {
          action();
        } catch (unsigned long) {
          ++thrown;
        }
      });
      EXPECT_TRUE(thrown > 0 || n == 1 || !files.Exists("/s.lb1")) << "operation " << n;
      failing.FailAt(0, false);
      OpenAndWalk(files);
    }
  }
}

// A change that fails at one write is undone, or done: no other entry is lost or there twice. Nodes
// of four entries make the changes split nodes and move entries between them.
void FailOneWrite(std::function<void(BTree_i&)> const& change) {
  SetDeleteTestFlag(true);
  for (int n = 0, operations = 0; n <= operations; ++n) {
    test::MemoryFileSystem files;
    test::FailingFileSystem failing(files);
    LibFile_i library(failing, accUpdate, "/s.lb1", "s");
    ASSERT_EQ(library.CreateNew(libKind11), openOk);
    BTree_i& tree = *library.GetCharIdTree();
    for (int i = 0; i < kKeys; ++i) Put(tree, i);
    auto const before = Contents(library);
    failing.FailAt(n, false);
    bool failed = false;
    try {
      change(tree);
    } catch (unsigned long) {
      failed = true;
    }
    if (n == 0) operations = failing.Operations();
    EXPECT_EQ(failed, n != 0) << "operation " << n;
    failing.FailAt(0, false);
    // As many entries as the walk finds keys: none is there twice.
    if (failed) {
      EXPECT_EQ(Contents(library), before) << "operation " << n;
      EXPECT_EQ(CountEntries(library), before.size()) << "operation " << n;
    }
  }
  SetDeleteTestFlag(false);
}

TEST(Robustness, InsertThatFailsAtOneWriteLosesNothing) {
  for (std::int32_t number = kKeys; number < kKeys + 31; ++number) {
    FailOneWrite([number](BTree_i& tree) {
      std::int32_t const key[10] = {number * 7 % 31, number};
      std::int32_t const data[10] = {number};
      std::int32_t const* found = nullptr;
      if (!tree.Find(key, found)) tree.InsertWithData(key, data);
    });
  }
}

TEST(Robustness, DeleteThatFailsAtOneWriteLosesNothing) {
  for (int number = 0; number < kKeys; ++number) {
    FailOneWrite([number](BTree_i& tree) {
      std::int32_t const key[10] = {number * 7 % 31, number};
      tree.Delete(key);
    });
  }
}

TEST(Robustness, BufferNeverGetsAheadOfTheFile) {
  test::MemoryFileSystem files;
  test::FailingFileSystem failing(files);
  LibFile_i library(failing, accUpdate, "/s.lb1", "s");
  ASSERT_EQ(library.CreateNew(libKind11), openOk);
  for (int i = 0; i < 10; ++i) Put(*library.GetCharIdTree(), i);
  failing.FailAt(1, true);
  EXPECT_THROW(Put(*library.GetCharIdTree(), 11), unsigned long);
  failing.FailAt(0, false);
  auto const found = Contents(library);
  EXPECT_EQ(found.size(), 10U);
  EXPECT_EQ(found.count(11), 0U);
}

TEST(Robustness, AllocationWhoseTransferFailedIsTakenBack) {
  test::MemoryFileSystem files;
  test::FailingFileSystem failing(files);
  LibFile_i library(failing, accUpdate, "/s.lb1", "s");
  ASSERT_EQ(library.CreateNew(libKind11), openOk);
  std::int32_t const words[24] = {};
  failing.FailAt(1, true);
  std::int32_t address = format::kNullAddress;
  EXPECT_EQ(library.WriteBlock(address, 24, words, 1), -1);
  EXPECT_EQ(address, format::kNullAddress);
  failing.FailAt(0, false);
  EXPECT_EQ(library.WriteBlock(address, 24, words, 1), 96);
  EXPECT_EQ(address, 111000003) << "the same block as if nothing had happened";
}

TEST(Robustness, EveryPrefixOfASessionsWritesOpensSafely) {
  test::MemoryFileSystem whole;
  test::FailingFileSystem recorder(whole);
  RunSession(recorder, [](auto const& action) { action(); });
  test::MemoryFileSystem files;
  for (auto const& write : recorder.Trace()) {
    auto& bytes = files.Contents(write.path);
    bytes.resize(
        std::max(bytes.size(), static_cast<std::size_t>(write.offset) + write.bytes.size()));
    std::copy(write.bytes.begin(), write.bytes.end(),
              bytes.begin() + static_cast<long>(write.offset));
    OpenAndWalk(files);
  }
  LibFile_i library(files, accRead, "/s.lb1", "s");
  ASSERT_EQ(library.OpenExisting({false, {}}, nullptr), openOk);
  EXPECT_EQ(Contents(library).size(), static_cast<std::size_t>(kKeys - kKeys / 5));
}

// After a failed close nothing is held any longer, whether the caller learns of the failure or not.
TEST(Robustness, CloseThatFailsClosesAllTheSame) {
  test::MemoryFileSystem files;
  test::FailingFileSystem failing(files);
  LibFile_i library(failing, accUpdate, "/s.lb1", "s");
  ASSERT_EQ(library.CreateNew(libKind11), openOk);
  for (int i = 0; i < kKeys; ++i) Put(*library.GetCharIdTree(), i);
  library.FlushLibFile();
  LibFile_i other(files, accRead, "/s.lb1", "s");
  EXPECT_EQ(other.OpenExisting({true, ""}, nullptr), openDenied);
  failing.FailAt(1, true);
  EXPECT_THROW(library.CloseLibFile(), unsigned long);
  EXPECT_NO_THROW(library.CloseLibFile()) << "is closed";
  EXPECT_EQ(library.GetCharIdTree(), nullptr);
  EXPECT_EQ(other.OpenExisting({true, ""}, nullptr), openOk);
  EXPECT_EQ(Contents(other).size(), static_cast<std::size_t>(kKeys));
}

TEST(Robustness, EndOfALibraryWhoseFlushFailsIsQuietAndClosesIt) {
  test::MemoryFileSystem files;
  test::FailingFileSystem failing(files);
  {
    LibFile_i library(failing, accUpdate, "/s.lb1", "s");
    ASSERT_EQ(library.CreateNew(libKind11), openOk);
    library.FlushLibFile();
    failing.FailAt(1, true);
  }
  EXPECT_GT(failing.Operations(), 0) << "a flush was tried";
  LibFile_i other(files, accUpdate, "/s.lb1", "s");
  EXPECT_EQ(other.OpenExisting({true, ""}, nullptr), openOk);
}

// Opening for update, changing nothing and closing: whatever fails, the library stays intact.
TEST(Robustness, FailureOfAnOpenForUpdateIsNotWrittenBack) {
  test::MemoryFileSystem whole;
  RunSession(whole, [](auto const& action) { action(); });
  auto const first = whole.Contents("/s.lb1");
  auto const second = whole.Contents("/s.lb2");
  test::FailingFileSystem failing(whole);
  int operations = 1;
  for (int n = 0; n <= operations; ++n) {
    failing.FailAt(n, false);
    openErrors error = openOk;
    try {
      LibFile_i library(failing, accUpdate, "/s.lb1", "s");
      error = library.OpenExisting({true, ""}, nullptr);
      library.CloseLibFile();
    } catch (unsigned long) {
      error = openFailed;
    }
    EXPECT_EQ(error == openOk, n == 0) << "operation " << n;
    if (n == 0) operations = failing.Operations();
    ASSERT_EQ(whole.Contents("/s.lb1"), first) << "operation " << n;
    ASSERT_EQ(whole.Contents("/s.lb2"), second) << "operation " << n;
  }
  EXPECT_GT(operations, 8);
}

}  // namespace
}  // namespace zel
