// Creating and opening: the bytes of a new library, accepted headers, passwords.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "frame/path_parts.h"
#include "tests/store/lib_file_fixture.h"

namespace zel {
namespace {

namespace f = format;
using LibFileOpenTest = test::LibFileTest;

TEST_F(LibFileOpenTest, NewLibraryHasFixedBytes) {
  auto library = Make(accUpdate);
  ASSERT_EQ(library->CreateNew(libKind12), openOk);
  library->CloseLibFile();
  std::vector<std::int32_t> header(125, 0);
  header[0] = 12;
  header[1] = 2;
  header[4] = 16;
  header[5] = 121000003;
  header[6] = 1000;
  header[7] = 990000000;
  header[10] = 1;  // file 1 is present now
  header[20] = 250;
  header[21] = 1000;
  header[30] = 5041209;
  header[31] = 2000000;
  std::vector<std::int32_t> table(125, 0);
  table[0] = 2;
  table[1] = table[2] = 999999;
  table[63] = 122000001;
  table[64] = 121000004;
  std::vector<std::int32_t> const heads = {2, 1000, 20, 4, 16, 47,  122000000, 990000000,
                                           2, 1000, 3,  2, 1,  248, 122000000, 990000000,
                                           2, 1000, 2,  1, 1,  331, 122000000, 990000000};
  Bytes const& bytes = File1();
  ASSERT_EQ(bytes.size(), 2096U);
  for (std::size_t i = 0; i < 125; ++i) {
    EXPECT_EQ(WordAt(bytes, 4 * i), header[i]) << "header word " << i;
    EXPECT_EQ(WordAt(bytes, 500 + 4 * i), 0) << "behind the header";
    EXPECT_EQ(WordAt(bytes, 1000 + 4 * i), table[i]) << "table word " << i;
  }
  for (std::size_t i = 0; i < heads.size(); ++i) {
    EXPECT_EQ(WordAt(bytes, 2000 + 4 * i), heads[i]) << "head word " << i;
  }
  EXPECT_FALSE(files_.Exists("/lib.lb2")) << "the second file comes with its first block";
}

TEST_F(LibFileOpenTest, TypeIsTakenModuloAHundred) {
  auto library = Make(accUpdate);
  ASSERT_EQ(library->CreateNew(static_cast<libTypes>(111)), openOk);
  libTypes type{};
  accModes mode{};
  library->GetLibInfo(type, mode);
  EXPECT_EQ(type, libKind11);
  EXPECT_EQ(mode, accUpdate);
}

TEST_F(LibFileOpenTest, PathMustNameALibrary) {
  for (char const* path : {"/a.lb2", "/lb1", "/a.lb", "/a.lb1x", ""}) {
    EXPECT_EQ(Make(accUpdate, path)->CreateNew(libKind11), openNotLibrary) << path;
    EXPECT_EQ(Make(accRead, path)->OpenExisting({true, ""}, nullptr), openNotFound) << path;
  }
  std::string const here = AbsolutePath(".lb1");
  EXPECT_EQ(Make(accUpdate, ".lb1")->CreateNew(libKind11), openNotLibrary) << "too short";
  files_.Contents(here);
  EXPECT_EQ(Make(accRead, ".lb1")->OpenExisting({true, ""}, nullptr), openNotLibrary);
  EXPECT_EQ(Make(accUpdate, "a.lb1")->CreateNew(libKind11), openOk);
  files_.Contents("/a.lb");
  EXPECT_EQ(Make(accRead, "/a.lb")->OpenExisting({true, ""}, nullptr), openNotLibrary);
  EXPECT_EQ(Make(accRead, "/none.lb1")->OpenExisting({true, ""}, nullptr), openNotFound);
  std::string const longPath = "/" + std::string(255, 'x') + ".lb1";
  EXPECT_EQ(Make(accUpdate, longPath.c_str())->CreateNew(libKind11), openNotLibrary);
}

TEST_F(LibFileOpenTest, UpperCaseNameHasAnUpperCaseSecondFile) {
  auto library = Make(accUpdate, "/X.LB1");
  ASSERT_EQ(library->CreateNew(libKind11), openOk);
  std::int32_t address = f::kNullAddress;
  std::int32_t const node[1000] = {};
  library->WriteBlock(address, 1000, node, 0);
  EXPECT_TRUE(files_.Exists("/X.LB2"));
}

TEST_F(LibFileOpenTest, HeaderWordsThatCannotBeTrueAreRefused) {
  struct {
    std::size_t offset;
    std::int32_t word;
  } const kBad[] = {{0, 10}, {0, 14},   {0, 0},        {0, -11},       {0, INT32_MAX},
                    {4, 0},  {4, -1},   {4, 10},       {4, INT32_MAX}, {4, INT32_MIN},
                    {80, 0}, {80, 124}, {80, -1},      {80, 1000001},  {80, INT32_MAX},
                    {84, 0}, {84, -1},  {84, 1000001}, {84, INT32_MIN}};
  for (auto const& bad : kBad) {
    MakeLibrary();
    PutWord(File1(), bad.offset, bad.word);
    EXPECT_EQ(OpenAs(accRead), openNotLibrary) << bad.offset << " " << bad.word;
    EXPECT_EQ(OpenAs(accUpdate), openNotLibrary) << bad.offset << " " << bad.word;
  }
}

TEST_F(LibFileOpenTest, ShortHeaderIsNoLibrary) {
  MakeLibrary();
  for (std::size_t size : {0U, 1U, 4U, 499U}) {
    MakeLibrary();
    File1().resize(size);
    EXPECT_EQ(OpenAs(accRead), openNotLibrary) << size;
  }
}

TEST_F(LibFileOpenTest, AnyFileStateButZeroMeansPresent) {
  MakeLibrary();
  PutWord(File1(), 44, 2);
  EXPECT_EQ(OpenAs(accRead), openOk);
  PutWord(File1(), 44, -7);
  EXPECT_EQ(OpenAs(accRead), openOk);
}

TEST_F(LibFileOpenTest, MissingSecondFileIsTold) {
  MakeLibrary();
  files_.Remove("/lib.lb2");
  EXPECT_EQ(OpenAs(accRead), openSiblingMissing);
  EXPECT_EQ(OpenAs(accUpdate), openSiblingMissing);
}

TEST_F(LibFileOpenTest, LibraryThatWasNeverFlushedThrowsAndLetsGo) {
  MakeLibrary();
  PutWord(File1(), 20, f::kNullAddress);
  auto library = Make(accUpdate);
  try {
    library->OpenExisting({true, ""}, nullptr);
    FAIL();
  } catch (unsigned long word) {
    EXPECT_EQ(word, 990000000UL);
  }
  EXPECT_EQ(library->GetBankTree(), nullptr);
  PutWord(File1(), 20, 111000003);
  EXPECT_EQ(OpenAs(accUpdate), openOk) << "nothing is held";
}

TEST_F(LibFileOpenTest, TypeIsReportedOnceTheHeaderIsGood) {
  MakeLibrary();
  libTypes type{};
  files_.Remove("/lib.lb2");
  EXPECT_EQ(Make(accRead)->OpenExisting({true, ""}, &type), openSiblingMissing);
  EXPECT_EQ(type, libKind11);
}

TEST_F(LibFileOpenTest, PasswordTable) {
  MakeLibrary();
  auto library = Make(accUpdate);
  ASSERT_EQ(library->OpenExisting({true, ""}, nullptr), openOk);
  library->SetPassword(1, "secret");
  library->CloseLibFile();
  library.reset();
  EXPECT_EQ(OpenAs(accRead, "secret"), openOk);
  EXPECT_EQ(OpenAs(accUpdate, "secret"), openOk);
  EXPECT_EQ(OpenAs(accRead, ""), openOk);
  EXPECT_EQ(OpenAs(accUpdate, ""), openPasswordNeeded);
  EXPECT_EQ(OpenAs(accRead, "wrong"), openBadPassword);
  EXPECT_EQ(OpenAs(accUpdate, "Secret"), openBadPassword);
  EXPECT_EQ(Make(accUpdate)->OpenExisting({false, ""}, nullptr), openOk) << "no test asked for";
}

TEST_F(LibFileOpenTest, OlderFilesAreRepairedInMemory) {
  MakeLibrary();
  PutWord(File1(), 24, 0);
  PutWord(File1(), 28, 0);
  PutWord(File1(), 2000 + 4 * (16 + 7), 0);  // root word of the CAS tree
  auto library = Make(accRead);
  ASSERT_EQ(library->OpenExisting({true, ""}, nullptr), openOk);
  std::int32_t const* live = nullptr;
  library->GetHeaderBlocks(&live, &live, &live);
  EXPECT_EQ(live[f::kMemoWords], 1000);
  EXPECT_EQ(live[f::kMemoAddress], f::kNullAddress);
  EXPECT_EQ(library->GetCasTree()->Head().rootAddress, f::kNullAddress);
  EXPECT_EQ(library->GetCasTree()->Head().maxEntries, 331);
}

TEST_F(LibFileOpenTest, EnumeratorsHaveTheirValues) {
  EXPECT_EQ(std::vector<int>({libKind11, libKind12, libKind13}), std::vector<int>({11, 12, 13}));
  EXPECT_EQ(std::vector<int>({accRead, accUpdate}), std::vector<int>({0, 1}));
  EXPECT_EQ(std::vector<int>({openOk, openFailed, openNotFound, openDenied, openNotLibrary,
                              openSiblingMissing, openPasswordNeeded, openBadPassword}),
            std::vector<int>({0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(LibFileOpenTest, BlockTableOfANewLibraryBeginsWithItsFirstFile) {
  auto library = Make(accUpdate);
  ASSERT_EQ(library->CreateNew(libKind13), openOk);
  std::int32_t const* header = nullptr;
  std::int32_t const* table = nullptr;
  std::int32_t const* heads = nullptr;
  library->GetHeaderBlocks(&header, &table, &heads);
  std::vector<std::int32_t> expected(125, 0);
  expected[0] = 2;
  expected[1] = expected[2] = 999999;
  expected[63] = 131000003;
  expected[64] = 132000001;
  EXPECT_EQ(std::vector<std::int32_t>(table, table + 125), expected) << "until the first flush";
  EXPECT_EQ(header[f::kFileState + 1], 0);
  EXPECT_EQ(header[f::kTreeHeadsAddress], f::kNullAddress);
}

TEST_F(LibFileOpenTest, TypeOutsideTheKindsIsStoredAndNotOpened) {
  for (int type : {111, 10, 14, 99, 0}) {
    files_.Remove("/lib.lb1");
    auto library = Make(accUpdate);
    ASSERT_EQ(library->CreateNew(static_cast<libTypes>(type)), openOk) << type;
    library->CloseLibFile();
    EXPECT_EQ(WordAt(File1(), 0), type % 100);
    EXPECT_EQ(OpenAs(accRead), type == 111 ? openOk : openNotLibrary) << type;
  }
}

TEST_F(LibFileOpenTest, ExistingFilesAreOverwrittenAndNotCut) {
  File1().assign(5000, std::byte{0xAB});
  files_.Contents("/lib.lb2").assign(9000, std::byte{0xCD});
  auto library = Make(accUpdate);
  ASSERT_EQ(library->CreateNew(libKind11), openOk);
  EXPECT_EQ(File1(), Bytes(5000, std::byte{0xAB})) << "nothing is written before the flush";
  std::int32_t address = f::kNullAddress;
  std::int32_t const node[1000] = {};
  library->WriteBlock(address, 1000, node, 0);
  library->CloseLibFile();
  EXPECT_EQ(File1().size(), 5000U);
  for (std::size_t behind : {500U, 999U, 1500U, 1999U, 2096U, 4999U}) {
    EXPECT_EQ(File1()[behind], std::byte{0xAB}) << behind;
  }
  EXPECT_EQ(files_.Contents("/lib.lb2").size(), 9000U);
  EXPECT_EQ(files_.Contents("/lib.lb2")[3999], std::byte{0});
  EXPECT_EQ(files_.Contents("/lib.lb2")[4000], std::byte{0xCD});
  EXPECT_EQ(OpenAs(accRead), openOk);
}

TEST_F(LibFileOpenTest, PathAndNameKeep259Characters) {
  std::string const longest = "/" + std::string(254, 'x') + ".lb1";
  auto library = Make(accUpdate, longest.c_str());
  ASSERT_EQ(library->CreateNew(libKind11), openOk);
  EXPECT_EQ(library->GetLibPath(), longest);
  std::string const tooLong = "/" + std::string(255, 'x') + ".lb1";
  EXPECT_EQ(Make(accRead, tooLong.c_str())->OpenExisting({true, ""}, nullptr), openNotFound);
  LibFile_i const named(files_, accRead, "/lib.lb1", std::string(300, 'n'));
  EXPECT_EQ(named.GetLibName(), std::string(259, 'n'));
}

TEST_F(LibFileOpenTest, BlockTableStandsInTheSecondBlockWhateverItsSize) {
  MakeLibrary();
  Bytes const table(File1().begin() + 1000, File1().begin() + 1500);
  Bytes const heads(File1().begin() + 2000, File1().begin() + 2096);
  PutWord(File1(), 80, 125);  // blocks of 500 bytes
  std::copy(table.begin(), table.end(), File1().begin() + 500);
  std::fill(File1().begin() + 1000, File1().end(), std::byte{0});
  std::copy(heads.begin(), heads.end(), File1().begin() + 1000);
  auto library = Opened(accUpdate);
  EXPECT_EQ(library->Store().Extents().Count(), 2);
  EXPECT_EQ(library->GetBankTree()->Head().maxEntries, 47);
  std::int32_t address = f::kNullAddress;
  std::int32_t const words[300] = {};
  library->WriteBlock(address, 300, words, 1);
  library->CloseLibFile();
  EXPECT_EQ(WordAt(File1(), 500 + 4 * 64), 111000007) << "three blocks were taken";
}

TEST_F(LibFileOpenTest, WordsWithoutAMeaningAndTheTagAreKept) {
  MakeLibrary();
  std::vector<std::size_t> kept = {12, 16, 32, 36, 76, 116, 152, 156};
  for (std::size_t at = 360; at < 500; at += 4) kept.push_back(at);
  for (std::size_t at : kept) PutWord(File1(), at, 7000 + static_cast<std::int32_t>(at));
  PutWord(File1(), 120, 15200818);  // "OTHR", packed
  Opened(accUpdate)->CloseLibFile();
  for (std::size_t at : kept) EXPECT_EQ(WordAt(File1(), at), 7000 + int(at)) << at;
  EXPECT_EQ(WordAt(File1(), 120), 15200818);
}

TEST_F(LibFileOpenTest, PasswordIsComparedBeforeTheLevelIsLookedAt) {
  for (std::int32_t level : {1, 2, 5, -1}) {
    MakeLibrary();
    PutWord(File1(), 8, level);
    EXPECT_EQ(OpenAs(accUpdate, ""), openOk) << "no password is stored at level " << level;
    PutWord(File1(), 260, 1020000);  // "AB"
    EXPECT_EQ(OpenAs(accUpdate, ""), openPasswordNeeded) << level;
    EXPECT_EQ(OpenAs(accUpdate, "AB"), openOk) << level;
    EXPECT_EQ(OpenAs(accRead, "ab"), openBadPassword) << level;
  }
  MakeLibrary();
  EXPECT_EQ(OpenAs(accRead, "none is stored"), openBadPassword);
  PutWord(File1(), 260, 1020000);
  EXPECT_EQ(OpenAs(accUpdate, ""), openOk) << "level 0 protects nothing";
}

TEST_F(LibFileOpenTest, ReopenAsksForNoPassword) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  library->SetPassword(2, "secret");
  library->CloseLibFile();
  EXPECT_EQ(library->ReopenLibFile(), openOk);
  libTypes type{};
  accModes mode{};
  library->GetLibInfo(type, mode);
  EXPECT_EQ(mode, accUpdate) << "in the mode that it had";
  library->CloseLibFile();
  files_.Remove("/lib.lb1");
  EXPECT_EQ(library->ReopenLibFile(), openNotFound);
  EXPECT_EQ(library->GetBankTree(), nullptr);
}

// Lets another writer change the files when the first one is opened for update.
class WriterBetween final : public platform::FileSystem {
 public:
  WriterBetween(test::MemoryFileSystem& files, std::function<void()> write)
      : files_(files), write_(std::move(write)) {}
  bool Exists(std::string const& path) override { return files_.Exists(path); }
  platform::OpenedFile Open(std::string const& path, platform::OpenMode mode) override {
    if (mode == platform::OpenMode::kUpdate && path == "/lib.lb1") write_();
    return files_.Open(path, mode);
  }

 private:
  test::MemoryFileSystem& files_;
  std::function<void()> write_;
};

TEST_F(LibFileOpenTest, HeaderIsReadAgainUnderTheExclusiveLock) {
  MakeLibrary();
  WriterBetween changed(files_, [&] {
    PutWord(File1(), 160, 1020000);   // description "AB"
    PutWord(File1(), 20, 111000005);  // the heads have moved
    Bytes const heads(File1().begin() + 2000, File1().begin() + 2096);
    File1().resize(4096);
    std::fill(File1().begin() + 2000, File1().end(), std::byte{0});
    std::copy(heads.begin(), heads.end(), File1().begin() + 4000);
  });
  {
    LibFile_i library(changed, accUpdate, "/lib.lb1", "l");
    ASSERT_EQ(library.OpenExisting({true, ""}, nullptr), openOk);
    char description[101];
    char version[13];
    library.GetDescriptionAndVersion(description, version);
    EXPECT_STREQ(description, "AB");
    EXPECT_EQ(library.GetBankTree()->Head().maxEntries, 47);
  }
  EXPECT_EQ(WordAt(File1(), 20), 111000005) << "the flush keeps what was read last";
  WriterBetween spoilt(files_, [&] { PutWord(File1(), 0, 14); });
  LibFile_i library(spoilt, accUpdate, "/lib.lb1", "l");
  EXPECT_EQ(library.OpenExisting({true, ""}, nullptr), openNotLibrary);
  WriterBetween second(files_, [&] { files_.Remove("/lib.lb2"); });
  PutWord(File1(), 0, 11);
  LibFile_i without(second, accUpdate, "/lib.lb1", "l");
  EXPECT_EQ(without.OpenExisting({true, ""}, nullptr), openNotFound) << "it was there before";
  WriterBetween gone(files_, [&] { files_.Remove("/lib.lb1"); });
  MakeLibrary();
  LibFile_i removed(gone, accUpdate, "/lib.lb1", "l");
  EXPECT_EQ(removed.OpenExisting({true, ""}, nullptr), openNotFound);
}

}  // namespace
}  // namespace zel
