// Block runs: read, written, freed, and where new ones are allocated.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "tests/store/lib_file_fixture.h"
#include "tests/support/failing_file_system.h"

namespace zel {
namespace {

namespace f = format;
using LibFileBlocksTest = test::LibFileTest;

TEST_F(LibFileBlocksTest, FirstNodeGoesIntoBlockOneOfTheSecondFile) {
  MakeLibrary();
  EXPECT_TRUE(files_.Exists("/lib.lb2"));
  EXPECT_EQ(WordAt(File1(), 44), 1) << "file 2 is declared";
}

TEST_F(LibFileBlocksTest, AddressesThatAreNoneThrowTheirWord) {
  MakeLibrary();
  auto library = Make(accUpdate);
  ASSERT_EQ(library->OpenExisting({true, ""}, nullptr), openOk);
  std::int32_t words[4] = {};
  for (std::int32_t address :
       {990000000, 0, -1, 122000001, 110000001, 113000001, 112000000, 119000001, INT32_MIN}) {
    auto const expected = static_cast<unsigned long>(static_cast<std::uint32_t>(address));
    try {
      library->ReadBlock(address, 4, words);
      ADD_FAILURE() << address;
    } catch (unsigned long word) {
      EXPECT_EQ(word, expected);
    }
    if (address == f::kNullAddress) continue;  // a write of null allocates
    std::int32_t target = address;
    EXPECT_EQ(Thrown([&] { library->WriteBlock(target, 4, words, 0); }), expected);
    EXPECT_EQ(Thrown([&] { library->FreeBlock(target, 4); }), expected);
  }
  for (std::int32_t address : {111000001, 111000002}) {
    EXPECT_EQ(library->ReadBlock(address, 4, words), 16) << "reading the header is allowed";
    std::int32_t target = address;
    auto const expected = static_cast<unsigned long>(address);
    EXPECT_EQ(Thrown([&] { library->WriteBlock(target, 4, words, 0); }), expected);
    EXPECT_EQ(Thrown([&] { library->FreeBlock(target, 4); }), expected);
  }
}

TEST_F(LibFileBlocksTest, ReadsBehindTheEndAreZeros) {
  MakeLibrary();
  auto library = Make(accRead);
  ASSERT_EQ(library->OpenExisting({true, ""}, nullptr), openOk);
  std::int32_t words[1000];
  std::memset(words, 1, sizeof words);
  EXPECT_EQ(library->ReadBlock(112000777, 1000, words), 0);
  for (std::int32_t word : words) ASSERT_EQ(word, 0);
  std::memset(words, 1, sizeof words);
  EXPECT_EQ(library->ReadBlock(111000003, 1000, words), 96);
  EXPECT_EQ(words[0], 2);
  EXPECT_EQ(words[24], 0);
}

TEST_F(LibFileBlocksTest, NewRunsGoIntoTheFileThatWastesLess) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  struct {
    std::int32_t words, choice, address;
  } const kRows[] = {{1000, 0, 112000001}, {24, 0, 111000003},   {250, 0, 111000004},
                     {400, 0, 111000005},  {1000, 1, 111000007}, {24, 2, 112000002},
                     {126, 0, 111000011},  {500, 0, 111000012},  {751, 0, 112000003}};
  std::vector<std::int32_t> const words(2000);
  for (auto const& row : kRows) {
    std::int32_t address = f::kNullAddress;
    EXPECT_EQ(library->WriteBlock(address, row.words, words.data(), row.choice), row.words * 4);
    EXPECT_EQ(address, row.address) << row.words << " words, choice " << row.choice;
  }
}

// Two blocks of 125 words waste 320 - words; one of 284, 285 or 286 words wastes one less, as much,
// or one more.
TEST_F(LibFileBlocksTest, EachBlockCounts35WordsMoreThanItHas) {
  for (auto const& [size, file] : {std::pair(284, 2), std::pair(285, 1), std::pair(286, 1)}) {
    MakeLibrary();
    PutWord(File1(), 80, 125);
    PutWord(File1(), 84, size);
    Bytes const table(File1().begin() + 1000, File1().begin() + 1500);
    std::copy(table.begin(), table.end(), File1().begin() + 500);
    auto library = Opened(accUpdate);
    std::int32_t address = f::kNullAddress;
    std::int32_t const words[200] = {};
    library->WriteBlock(address, 200, words, 0);
    EXPECT_EQ(BlockAddress::Split(address).file, file) << size;
  }
}

TEST_F(LibFileBlocksTest, FreedBlocksAreUsedAgainBestFitFirst) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  std::vector<std::int32_t> const words(2000);
  std::int32_t runs[6];
  for (std::int32_t& run : runs) {
    run = f::kNullAddress;
    library->WriteBlock(run, 500, words.data(), 1);
  }
  std::int32_t freed = runs[1];
  library->FreeBlock(freed, 500);
  EXPECT_EQ(freed, f::kNullAddress);
  freed = runs[3];
  library->FreeBlock(freed, 250);
  std::int32_t address = f::kNullAddress;
  library->WriteBlock(address, 250, words.data(), 1);
  EXPECT_EQ(address, runs[3]) << "the smallest that holds it";
}

TEST_F(LibFileBlocksTest, ReaderThrowsOnWriteAndFree) {
  MakeLibrary();
  auto library = Make(accRead);
  library->OpenExisting({true, ""}, nullptr);
  std::int32_t const words[24] = {};
  std::int32_t address = f::kNullAddress;
  EXPECT_THROW(library->WriteBlock(address, 24, words, 0), unsigned long);
  address = 112000001;
  EXPECT_THROW(library->FreeBlock(address, 1000), unsigned long);
}

TEST_F(LibFileBlocksTest, FileThatIsNotThereIsMadeByAWriteAlone) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  std::int32_t words[1000] = {5};
  EXPECT_EQ(Thrown([&] { library->ReadBlock(112000001, 1000, words); }), 112000001UL);
  std::int32_t address = 112000001;
  EXPECT_EQ(Thrown([&] { library->FreeBlock(address, 1000); }), 112000001UL);
  EXPECT_FALSE(files_.Exists("/lib.lb2"));
  EXPECT_EQ(library->WriteBlock(address, 1000, words, 0), 4000);
  EXPECT_TRUE(files_.Exists("/lib.lb2"));
  words[0] = 0;
  EXPECT_EQ(library->ReadBlock(112000001, 1000, words), 4000);
  EXPECT_EQ(words[0], 5);
}

TEST_F(LibFileBlocksTest, LibraryOfOneFileTakesAllRuns) {
  MakeLibrary();
  PutWord(File1(), 4, 1);
  auto library = Opened(accUpdate);
  std::int32_t words[1000] = {};
  for (std::int32_t choice : {0, 1, 2}) {
    std::int32_t address = f::kNullAddress;
    EXPECT_EQ(library->WriteBlock(address, 1000, words, choice), 4000);
    EXPECT_EQ(address, 111000004 + 4 * choice);
  }
  EXPECT_EQ(Thrown([&] { library->ReadBlock(112000001, 4, words); }), 112000001UL);
}

TEST_F(LibFileBlocksTest, FurtherFilesThatAreDeclaredAreServed) {
  MakeLibrary();
  PutWord(File1(), 4, 4);          // files
  PutWord(File1(), 36 + 12, 1);    // file 3 is present
  PutWord(File1(), 76 + 12, 100);  // with blocks of 100 words
  PutWord(File1(), 76 + 16, 100);  // file 4 is not
  files_.Contents("/lib.lb3").resize(1200);
  PutWord(files_.Contents("/lib.lb3"), 400, 33);
  auto library = Opened(accUpdate);
  std::int32_t words[100];
  EXPECT_EQ(library->ReadBlock(113000002, 100, words), 400);
  EXPECT_EQ(words[0], 33);
  std::int32_t address = 113000003;
  EXPECT_EQ(library->WriteBlock(address, 100, words, 0), 400);
  library->FreeBlock(address, 250);  // three of its blocks
  EXPECT_EQ(library->Store().Extents()[2].address, 113000003);
  EXPECT_EQ(library->Store().Extents()[2].size, 3);
  EXPECT_EQ(Thrown([&] { library->ReadBlock(114000001, 4, words); }), 114000001UL);
  address = 114000001;
  EXPECT_EQ(Thrown([&] { library->FreeBlock(address, 4); }), 114000001UL);
  EXPECT_EQ(library->WriteBlock(address, 100, words, 0), 400);
  EXPECT_TRUE(files_.Exists("/lib.lb4"));
  library->CloseLibFile();
  EXPECT_EQ(WordAt(files_.Contents("/lib.lb3"), 800), 33);
  EXPECT_EQ(WordAt(File1(), 36 + 12), 1);
  EXPECT_EQ(WordAt(File1(), 36 + 16), 1) << "it is present now";
}

TEST_F(LibFileBlocksTest, FurtherFileThatIsNotAskedForStaysDeclared) {
  MakeLibrary();
  PutWord(File1(), 4, 3);
  PutWord(File1(), 36 + 12, 1);
  PutWord(File1(), 76 + 12, 100);
  Opened(accUpdate)->CloseLibFile();
  EXPECT_EQ(WordAt(File1(), 36 + 12), 1);
  EXPECT_FALSE(files_.Exists("/lib.lb3"));
}

TEST_F(LibFileBlocksTest, FurtherFileThatIsMissingTransfersNothing) {
  MakeLibrary();
  PutWord(File1(), 4, 3);
  PutWord(File1(), 36 + 12, 1);
  PutWord(File1(), 76 + 12, 100);
  auto library = Opened(accUpdate);
  std::int32_t words[100];
  std::fill_n(words, 100, 7);
  EXPECT_EQ(library->ReadBlock(113000001, 100, words), -1);
  EXPECT_EQ(std::count(words, words + 100, 0), 100);
  std::int32_t address = 113000001;
  EXPECT_EQ(library->WriteBlock(address, 100, words, 0), -1);
  EXPECT_FALSE(files_.Exists("/lib.lb3"));
}

TEST_F(LibFileBlocksTest, FurtherFileWithABlockSizeThatCannotBeTrueIsAbsent) {
  for (std::int32_t size : {0, -1, 1000001, INT32_MIN}) {
    MakeLibrary();
    PutWord(File1(), 4, 9);
    PutWord(File1(), 36 + 36, 1);
    PutWord(File1(), 76 + 36, size);
    files_.Contents("/lib.lb9").resize(4000);
    auto library = Opened(accUpdate);
    std::int32_t words[4] = {};
    std::int32_t address = 119000001;
    EXPECT_EQ(Thrown([&] { library->ReadBlock(address, 4, words); }), 119000001UL) << size;
    EXPECT_EQ(Thrown([&] { library->WriteBlock(address, 4, words, 0); }), 119000001UL) << size;
    EXPECT_EQ(Thrown([&] { library->FreeBlock(address, 4); }), 119000001UL) << size;
    library->CloseLibFile();
    EXPECT_EQ(WordAt(File1(), 36 + 36), 0) << size;
  }
}

TEST_F(LibFileBlocksTest, FileWithoutRoomPassesARunToTheOther) {
  MakeLibrary();
  std::int32_t const words[1000] = {};
  PutWord(File1(), 1000 + 4 * 64, 0);  // no extent of file 1
  {
    auto library = Opened(accUpdate);
    std::int32_t address = f::kNullAddress;
    EXPECT_EQ(library->WriteBlock(address, 24, words, 1), 96);
    EXPECT_EQ(address, 112000002);
  }
  PutWord(File1(), 1000 + 4 * 63, 112999998);  // two blocks are left
  auto library = Opened(accUpdate);
  std::int32_t address = f::kNullAddress;
  EXPECT_EQ(Thrown([&] { library->WriteBlock(address, 3000, words, 2); }), 990000000UL);
  EXPECT_EQ(address, f::kNullAddress);
}

TEST_F(LibFileBlocksTest, CountBelowOneIsOneBlockAndNoTransfer) {
  MakeLibrary();
  auto library = Opened(accUpdate);
  std::int32_t word = 7;
  EXPECT_EQ(library->ReadBlock(111000003, -5, &word), 0);
  EXPECT_EQ(word, 7);
  for (std::int32_t count : {0, -5, INT32_MIN}) {
    std::int32_t address = f::kNullAddress;
    EXPECT_EQ(library->WriteBlock(address, count, &word, 0), 0);
    EXPECT_EQ(address, 111000004);
    EXPECT_EQ(library->Store().Extents()[1].address, 111000005);
    library->FreeBlock(address, count);
    EXPECT_EQ(address, f::kNullAddress);
    EXPECT_EQ(library->Store().Extents()[1].address, 111000004);
  }
}

TEST_F(LibFileBlocksTest, UnknownFileChoiceIsNone) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  std::int32_t const words[1000] = {};
  for (std::int32_t choice : {3, -1, INT32_MAX}) {
    std::int32_t address = f::kNullAddress;
    library->WriteBlock(address, 24, words, choice);
    EXPECT_LT(address, 112000000) << choice;
    address = f::kNullAddress;
    library->WriteBlock(address, 1000, words, choice);
    EXPECT_GT(address, 112000000) << choice;
  }
}

TEST_F(LibFileBlocksTest, FailedReadGivesZerosAndTellsOfIt) {
  MakeLibrary();
  test::FailingFileSystem failing(files_);
  LibFile_i library(failing, accRead, "/lib.lb1", "l");
  ASSERT_EQ(library.OpenExisting({true, ""}, nullptr), openOk);
  std::int32_t words[24];
  std::fill_n(words, 24, 7);
  failing.FailAt(1, false);
  EXPECT_EQ(library.ReadBlock(111000003, 24, words), -1);
  EXPECT_EQ(std::count(words, words + 24, 0), 24);
  EXPECT_EQ(library.ReadBlock(111000003, 24, words), 96);
}

TEST_F(LibFileBlocksTest, ClosedLibraryThrowsTheAddress) {
  MakeLibrary();
  auto library = Opened(accUpdate);
  library->CloseLibFile();
  std::int32_t words[4] = {};
  std::int32_t address = 111000003;
  EXPECT_EQ(Thrown([&] { library->ReadBlock(address, 4, words); }), 111000003UL);
  EXPECT_EQ(Thrown([&] { library->WriteBlock(address, 4, words, 0); }), 111000003UL);
  EXPECT_EQ(Thrown([&] { library->FreeBlock(address, 4); }), 111000003UL);
  address = f::kNullAddress;
  EXPECT_EQ(Thrown([&] { library->WriteBlock(address, 4, words, 0); }), 990000000UL);
}

TEST_F(LibFileBlocksTest, FreeBlocksAndRootsSurviveAClose) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  std::int32_t const key[4] = {1, 2, 3, 4};
  std::int32_t const* found = nullptr;
  EXPECT_FALSE(library->GetBankTree()->Find(key, found));
  EXPECT_TRUE(library->GetBankTree()->Insert(key, f::kNullAddress, f::kNullAddress));
  std::int32_t const words[500] = {};
  std::int32_t first = f::kNullAddress;
  std::int32_t second = f::kNullAddress;
  library->WriteBlock(first, 500, words, 1);
  library->WriteBlock(second, 500, words, 1);
  library->FreeBlock(first, 500);
  library->FlushLibFile();
  EXPECT_EQ(WordAt(File1(), 20), 111000003) << "the heads take the first block that is free";
  EXPECT_EQ(WordAt(File1(), 2000 + 28), 112000001) << "root, written before the tree has ended";
  library->CloseLibFile();
  EXPECT_EQ(WordAt(File1(), 1000), 3);
  EXPECT_EQ(WordAt(File1(), 1012), 1);
  EXPECT_EQ(WordAt(File1(), 1252 + 8), 111000004);
  library = Opened(accUpdate);
  EXPECT_TRUE(library->GetBankTree()->Find(key, found));
  library->WriteBlock(first, 250, words, 1);
  EXPECT_EQ(first, 111000004);
}

}  // namespace
}  // namespace zel
