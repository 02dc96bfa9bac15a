// The memory that an open file takes where it is bounded.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "frame/platform/block_file.h"
#include "tests/frame/posix_block_file_fixture.h"
#include "tests/support/process_memory.h"

namespace zel::platform {
namespace {

using test::PosixBlockFileTest;
using test::ProcessMemory;

constexpr std::size_t kNode = 4000;
constexpr std::size_t kNodes = 30'000;  // 120 MB
constexpr std::int64_t kMostKilobytes = std::int64_t{BlockFile::kMostHeld} / 1024;
// What the system maps around the used parts, and what the program itself needs.
constexpr std::int64_t kSlack = 8 * 1024;

// A node that holds its number and a version in all words.
std::vector<std::uint32_t> NodeOf(std::size_t number, std::uint32_t version) {
  return std::vector<std::uint32_t>(kNode / 4, static_cast<std::uint32_t>(number) * 16 + version);
}

class BlockFileMemoryTest : public PosixBlockFileTest {
 protected:
  // Writes each node once, in an order given by the index, and returns the most that the mapped
  // pages of the process grew by, in KB. In between, the node written is read, and a few nodes that
  // are used all the time are written again.
  template <typename Order>
  static std::int64_t WriteAll(BlockFile& file, std::uint32_t version, Order const& order) {
    std::int64_t const before = ProcessMemory("RssFile");
    std::int64_t most = 0;
    std::vector<std::uint32_t> back(kNode / 4);
    for (std::size_t i = 0; i < kNodes; ++i) {
      std::size_t const number = order(i);
      auto const node = NodeOf(number, version);
      EXPECT_EQ(file.WriteAt(number * kNode, node.data(), kNode), std::int64_t{kNode});
      EXPECT_EQ(file.ReadAt(number * kNode, back.data(), kNode), std::int64_t{kNode});
      EXPECT_EQ(back, node);
      std::size_t const root = i % 4;
      auto const often = NodeOf(root, version);
      EXPECT_EQ(file.WriteAt(root * kNode, often.data(), kNode), std::int64_t{kNode});
      if (i % 500 == 0) most = std::max(most, ProcessMemory("RssFile") - before);
    }
    return std::max(most, ProcessMemory("RssFile") - before);
  }
  void ExpectAll(BlockFile& file, std::uint32_t version) const {
    std::vector<std::uint32_t> back(kNode / 4);
    for (std::size_t number = 0; number < kNodes; ++number) {
      ASSERT_EQ(file.ReadAt(number * kNode, back.data(), kNode), std::int64_t{kNode});
      ASSERT_EQ(back, NodeOf(number, version)) << number;
    }
    EXPECT_EQ(file.Size(), kNodes * kNode);
  }
};

std::size_t InOrder(std::size_t i) { return i; }
std::size_t Scattered(std::size_t i) { return i * 7919 % kNodes; }

TEST_F(BlockFileMemoryTest, WhatWasUsedIsGivenBackWhereMemoryIsBounded) {
  if (!MakesRoom()) GTEST_SKIP() << "files are not written through a map here";
  auto file = Open(OpenMode::kCreate);
  file->BoundMemory(true);
  EXPECT_LT(WriteAll(*file, 1, InOrder), kMostKilobytes + kSlack);
  EXPECT_LT(WriteAll(*file, 2, Scattered), kMostKilobytes + kSlack);
  // Each part so often that it is worth mapping.
  EXPECT_LT(WriteAll(*file, 3, [](std::size_t i) { return i / 40 * 40 + i % 4; }),
            kMostKilobytes + kSlack);
  WriteAll(*file, 4, Scattered);
  ExpectAll(*file, 4);
  EXPECT_LT(ProcessMemory("RssFile"), kMostKilobytes + 4 * kSlack);
  file->BoundMemory(false);
  ExpectAll(*file, 4);
  file.reset();
  ExpectAll(*Open(OpenMode::kRead), 4);
  EXPECT_EQ(LengthOnDisk(), kNodes * kNode);
}

TEST_F(BlockFileMemoryTest, WithoutABoundAllOfAFileStaysMapped) {
  if (!MakesRoom()) GTEST_SKIP() << "files are not written through a map here";
  auto file = Open(OpenMode::kCreate);
  // Where addresses have 32 bits, only the first part of a file is mapped.
  constexpr std::size_t kMapped = sizeof(void*) > 4 ? kNode * kNodes : std::size_t{64} << 20;
  EXPECT_GT(WriteAll(*file, 1, InOrder), std::int64_t{kMapped / 1024} / 10 * 9);
  std::int64_t const before = ProcessMemory("RssFile");
  file->BoundMemory(true);
  EXPECT_LT(ProcessMemory("RssFile"), before - kMostKilobytes) << "given back at once";
  ExpectAll(*file, 1);
}

}  // namespace
}  // namespace zel::platform
