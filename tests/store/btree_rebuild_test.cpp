// Rebuilds of a tree on each kind of file: mapped, where no write can fail; in place, but with
// writes that can fail; and read by copying.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "store/btree.h"
#include "store/lib_file.h"
#include "tests/support/environment.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/memory_file_system.h"

namespace zel {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<char>;

class BTreeRebuildTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() / ("zel_rebuild_" + std::to_string(test::ProcessNumber()));
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string Path() const { return (folder_ / "t.lb1").string(); }
  static Bytes BytesOf(fs::path const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  // A tree of three levels in a new library, from which a key of its root is deleted, and an absent
  // key.
  static void LoadAndRebuild(platform::FileSystem& system, std::string const& path,
                             bool bounded = false, zelWriteModes writes = writesPlain) {
    LibFile_i library(system, accUpdate, path.c_str(), "t");
    library.Store().SetWriteMode(writes);
    ASSERT_EQ(library.CreateNew(libKind11), openOk);
    library.Store().BoundMemory(bounded);
    std::array<std::int32_t, format::kHeadWords> head{};
    constexpr std::int32_t kDataWords = 14;
    InitTreeHead(head.data(), false, 2, kDataWords, libKind11);
    BTree_i tree(library.Store(), head.data());
    std::array<std::int32_t, kDataWords> data{};
    std::int32_t const* found = nullptr;
    for (std::int32_t i = 0; i < 9000; ++i) {
      std::int32_t const key[2] = {i % 90, i / 90};
      data.fill(i);
      ASSERT_FALSE(tree.Find(key, found));
      tree.InsertWithData(key, data.data());
    }
    std::array<std::int32_t, format::kNodeWords> root{};
    library.ReadBlock(tree.Head().rootAddress, format::kNodeWords, root.data());
    std::int32_t const ofRoot[2] = {root[format::kNodeEntries], root[format::kNodeEntries + 1]};
    std::int32_t const absent[2] = {-1, -1};
    for (auto const* key : {ofRoot, absent}) {
      std::int32_t const before = tree.Head().rootAddress;
      tree.Delete(key);
      EXPECT_NE(tree.Head().rootAddress, before);
      EXPECT_FALSE(tree.Find(key, found));
    }
  }

  fs::path folder_;
};

TEST_F(BTreeRebuildTest, BytesAreTheSameOnEachKindOfFile) {
  LoadAndRebuild(platform::SystemFileSystem(), Path());
  Bytes const mapped = BytesOf(folder_ / "t.lb2");
  fs::remove(Path());
  fs::remove(folder_ / "t.lb2");
  test::FailingFileSystem failing(platform::SystemFileSystem());
  LoadAndRebuild(failing, Path());
  EXPECT_GT(mapped.size(), 9000U * 68U);
  EXPECT_EQ(BytesOf(folder_ / "t.lb2"), mapped);
  fs::remove(Path());
  fs::remove(folder_ / "t.lb2");
  LoadAndRebuild(platform::SystemFileSystem(), Path(), true);
  EXPECT_EQ(BytesOf(folder_ / "t.lb2"), mapped) << "with bounded memory";
  fs::remove(Path());
  fs::remove(folder_ / "t.lb2");
  LoadAndRebuild(platform::SystemFileSystem(), Path(), false, writesHeld);
  EXPECT_EQ(BytesOf(folder_ / "t.lb2"), mapped) << "with writes that are held back";
  for (bool inPlace : {true, false}) {
    test::MemoryFileSystem files;
    files.ServeViews(inPlace);
    LoadAndRebuild(files, "/t.lb1");
    auto const& bytes = files.Contents("/t.lb2");
    ASSERT_EQ(bytes.size(), mapped.size());
    EXPECT_EQ(std::memcmp(bytes.data(), mapped.data(), mapped.size()), 0) << inPlace;
  }
}

TEST_F(BTreeRebuildTest, MappedFileTellsWhichWritesCannotFail) {
  auto const opened = platform::SystemFileSystem().Open(Path(), platform::OpenMode::kCreate);
  ASSERT_EQ(opened.outcome, platform::OpenOutcome::kOk);
  std::array<std::byte, 4000> const bytes{};
  EXPECT_TRUE(opened.file->WriteCannotFail(0, bytes.size()));
  EXPECT_EQ(opened.file->Size(), 0U) << "only room is made";
  EXPECT_EQ(opened.file->WriteAt(0, bytes.data(), bytes.size()), 4000);
  EXPECT_TRUE(opened.file->WriteCannotFail(4000, bytes.size()));
  EXPECT_FALSE(opened.file->WriteCannotFail(std::uint64_t{1} << 30, 1)) << "that would be a hole";
  EXPECT_FALSE(opened.file->WriteCannotFail(std::uint64_t{1} << 62, 1));
  EXPECT_FALSE(opened.file->WriteCannotFail(~std::uint64_t{0}, 4000));
}

TEST_F(BTreeRebuildTest, FileOpenForReadingHasNoWritesThatCannotFail) {
  std::ofstream(Path()) << std::string(8000, 'x');
  auto const opened = platform::SystemFileSystem().Open(Path(), platform::OpenMode::kRead);
  ASSERT_EQ(opened.outcome, platform::OpenOutcome::kOk);
  EXPECT_FALSE(opened.file->WriteCannotFail(0, 4000));
}

}  // namespace
}  // namespace zel
