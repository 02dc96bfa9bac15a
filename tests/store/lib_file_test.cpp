#include "store/lib_file.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "store/packed_text.h"
#include "tests/support/memory_file_system.h"

namespace zel {
namespace {

namespace f = format;
using Bytes = test::MemoryFileSystem::Bytes;

std::int32_t WordAt(Bytes const& bytes, std::size_t offset) {
  std::int32_t word = 0;
  std::memcpy(&word, bytes.data() + offset, 4);
  return word;
}
void PutWord(Bytes& bytes, std::size_t offset, std::int32_t word) {
  std::memcpy(bytes.data() + offset, &word, 4);
}

class LibFileTest : public ::testing::Test {
 protected:
  void TearDown() override { LibFile::ClearOrdwinNameIndex(); }

  std::unique_ptr<LibFile_i> Make(accModes mode, char const* path = "/lib.lb1") {
    return std::make_unique<LibFile_i>(files_, mode, path, "Library");
  }
  // A flushed library with one node in its second file.
  void MakeLibrary() {
    auto library = Make(accUpdate);
    ASSERT_EQ(library->CreateNew(libKind11), openOk);
    std::int32_t address = f::kNullAddress;
    std::int32_t const node[1000] = {};
    library->WriteBlock(address, 1000, node, 0);
    ASSERT_EQ(address, 112000001);
    library->CloseLibFile();
  }
  openErrors OpenAs(accModes mode, char const* password = "") {
    return Make(mode)->OpenExisting({true, password}, nullptr);
  }
  Bytes& File1() { return files_.Contents("/lib.lb1"); }

  test::MemoryFileSystem files_;
};

TEST_F(LibFileTest, NewLibraryHasFixedBytes) {
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

TEST_F(LibFileTest, FirstNodeGoesIntoBlockOneOfTheSecondFile) {
  MakeLibrary();
  EXPECT_TRUE(files_.Exists("/lib.lb2"));
  EXPECT_EQ(WordAt(File1(), 44), 1) << "file 2 is declared";
}

TEST_F(LibFileTest, TypeIsTakenModuloAHundred) {
  auto library = Make(accUpdate);
  ASSERT_EQ(library->CreateNew(static_cast<libTypes>(111)), openOk);
  libTypes type{};
  accModes mode{};
  library->GetLibInfo(type, mode);
  EXPECT_EQ(type, libKind11);
  EXPECT_EQ(mode, accUpdate);
}

TEST_F(LibFileTest, PathMustNameALibrary) {
  for (char const* path : {"/a.lb2", "/lb1", "/a.lb", "/a.lb1x", ""}) {
    EXPECT_EQ(Make(accUpdate, path)->CreateNew(libKind11), openNotLibrary) << path;
    EXPECT_EQ(Make(accRead, path)->OpenExisting({true, ""}, nullptr), openNotFound) << path;
  }
  files_.Contents("/a.lb");
  EXPECT_EQ(Make(accRead, "/a.lb")->OpenExisting({true, ""}, nullptr), openNotLibrary);
  EXPECT_EQ(Make(accRead, "/none.lb1")->OpenExisting({true, ""}, nullptr), openNotFound);
  std::string const longPath = "/" + std::string(255, 'x') + ".lb1";
  EXPECT_EQ(Make(accUpdate, longPath.c_str())->CreateNew(libKind11), openNotLibrary);
}

TEST_F(LibFileTest, UpperCaseNameHasAnUpperCaseSecondFile) {
  auto library = Make(accUpdate, "/X.LB1");
  ASSERT_EQ(library->CreateNew(libKind11), openOk);
  std::int32_t address = f::kNullAddress;
  std::int32_t const node[1000] = {};
  library->WriteBlock(address, 1000, node, 0);
  EXPECT_TRUE(files_.Exists("/X.LB2"));
}

TEST_F(LibFileTest, HeaderWordsThatCannotBeTrueAreRefused) {
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

TEST_F(LibFileTest, ShortHeaderIsNoLibrary) {
  MakeLibrary();
  for (std::size_t size : {0U, 1U, 4U, 499U}) {
    MakeLibrary();
    File1().resize(size);
    EXPECT_EQ(OpenAs(accRead), openNotLibrary) << size;
  }
}

TEST_F(LibFileTest, AnyFileStateButZeroMeansPresent) {
  MakeLibrary();
  PutWord(File1(), 44, 2);
  EXPECT_EQ(OpenAs(accRead), openOk);
  PutWord(File1(), 44, -7);
  EXPECT_EQ(OpenAs(accRead), openOk);
}

TEST_F(LibFileTest, MissingSecondFileIsTold) {
  MakeLibrary();
  files_.Remove("/lib.lb2");
  EXPECT_EQ(OpenAs(accRead), openSiblingMissing);
  EXPECT_EQ(OpenAs(accUpdate), openSiblingMissing);
}

TEST_F(LibFileTest, LibraryThatWasNeverFlushedThrowsAndLetsGo) {
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

TEST_F(LibFileTest, TypeIsReportedOnceTheHeaderIsGood) {
  MakeLibrary();
  libTypes type{};
  files_.Remove("/lib.lb2");
  EXPECT_EQ(Make(accRead)->OpenExisting({true, ""}, &type), openSiblingMissing);
  EXPECT_EQ(type, libKind11);
}

TEST_F(LibFileTest, PasswordTable) {
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

TEST_F(LibFileTest, ReaderSeesLevelAndNoPassword) {
  MakeLibrary();
  {
    auto library = Make(accUpdate);
    library->OpenExisting({true, ""}, nullptr);
    library->SetPassword(2, "secret");
    EXPECT_TRUE(library->IsPasswordLocked());
    library->SetPassword(3, "ignored");
    library->SetPassword(-1, "ignored");
    std::int32_t level = 0;
    char password[101];
    library->GetPassword(level, password);
    EXPECT_EQ(level, 2);
    EXPECT_STREQ(password, "secret");
  }
  auto library = Make(accRead);
  ASSERT_EQ(library->OpenExisting({true, ""}, nullptr), openOk);
  std::int32_t level = 0;
  char password[101] = "x";
  library->GetPassword(level, password);
  EXPECT_EQ(level, 2);
  EXPECT_STREQ(password, "");
  EXPECT_TRUE(library->IsPasswordLocked());
  std::int32_t const* header = nullptr;
  std::int32_t const* table = nullptr;
  std::int32_t const* heads = nullptr;
  library->GetHeaderBlocks(&header, &table, &heads);
  EXPECT_EQ(header[f::kPasswordLevel], 0);
  for (int i = 0; i < 25; ++i) EXPECT_EQ(header[f::kPassword + i], 0);
  EXPECT_EQ(heads[5], 47);
  EXPECT_EQ(table[0], 2);
  std::int32_t const* live = nullptr;
  library->GetHeaderBlocks(&live, &live, &live);
  EXPECT_EQ(live[f::kPasswordLevel], 2);
  EXPECT_NE(live, header);
}

TEST_F(LibFileTest, LevelZeroClearsThePassword) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  library->SetPassword(2, "secret");
  library->SetPassword(0, "kept?");
  std::int32_t level = 7;
  char password[101];
  library->GetPassword(level, password);
  EXPECT_EQ(level, 0);
  EXPECT_STREQ(password, "");
  EXPECT_FALSE(library->IsPasswordLocked());
}

TEST_F(LibFileTest, TextsAndWordsSurviveAClose) {
  {
    auto library = Make(accUpdate);
    library->CreateNew(libKind11);
    library->SetDescriptionAndVersion("A description", "1.2");
    library->SetDescriptionAndVersion(nullptr, "1.3");
    library->SetReservedWords(7, -8);
    library->SetMemo("line one\nline two");
    library->CloseLibFile();
    EXPECT_EQ(library->ReopenLibFile(), openOk);
    EXPECT_EQ(library->ReopenLibFile(), openOk) << "open already";
    char memo[4000];
    library->GetMemo(memo);
    EXPECT_STREQ(memo, "line one\nline two");
  }
  auto library = Make(accRead);
  ASSERT_EQ(library->OpenExisting({true, ""}, nullptr), openOk);
  char description[101];
  char version[13];
  library->GetDescriptionAndVersion(description, version);
  EXPECT_STREQ(description, "A description");
  EXPECT_STREQ(version, "1.3");
  std::int32_t a = 0;
  std::int32_t b = 0;
  library->GetReservedWords(a, b);
  EXPECT_EQ(a, 7);
  EXPECT_EQ(b, -8);
  EXPECT_STREQ(library->GetLibName(), "Library");
  EXPECT_STREQ(library->GetLibPath(), "/lib.lb1");
}

TEST_F(LibFileTest, MemoIsCutAtItsSize) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  char memo[4000] = "x";
  library->GetMemo(memo);
  EXPECT_STREQ(memo, "") << "none yet";
  library->SetMemo(std::string(5000, 'm').c_str());
  library->GetMemo(memo);
  EXPECT_EQ(std::strlen(memo), 3999U);
  library->SetMemo("short");
  library->GetMemo(memo);
  EXPECT_STREQ(memo, "short");
}

TEST_F(LibFileTest, MemoLengthFromTheFileIsBounded) {
  {
    auto library = Make(accUpdate);
    library->CreateNew(libKind11);
    library->SetMemo("hello");
    library->CloseLibFile();
  }
  for (std::int32_t words : {-1, INT32_MIN, INT32_MAX, 1001}) {
    PutWord(File1(), 24, words);
    auto library = Make(accRead);
    ASSERT_EQ(library->OpenExisting({true, ""}, nullptr), openOk);
    char memo[4000];
    library->GetMemo(memo);
    EXPECT_STREQ(memo, words < 0 ? "" : "hello") << words;
  }
}

TEST_F(LibFileTest, OlderFilesAreRepairedInMemory) {
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

TEST_F(LibFileTest, AddressesThatAreNoneThrowTheirWord) {
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
    EXPECT_THROW(library->WriteBlock(target, 4, words, 0), unsigned long) << address;
    EXPECT_THROW(library->FreeBlock(target, 4), unsigned long) << address;
  }
  for (std::int32_t address : {111000001, 111000002}) {
    EXPECT_EQ(library->ReadBlock(address, 4, words), 16) << "reading the header is allowed";
    std::int32_t target = address;
    EXPECT_THROW(library->WriteBlock(target, 4, words, 0), unsigned long);
    EXPECT_THROW(library->FreeBlock(target, 4), unsigned long);
  }
}

TEST_F(LibFileTest, ReadsBehindTheEndAreZeros) {
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

TEST_F(LibFileTest, NewRunsGoIntoTheFileThatWastesLess) {
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

TEST_F(LibFileTest, FreedBlocksAreUsedAgainBestFitFirst) {
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

TEST_F(LibFileTest, ReaderThrowsOnWriteAndFree) {
  MakeLibrary();
  auto library = Make(accRead);
  library->OpenExisting({true, ""}, nullptr);
  std::int32_t const words[24] = {};
  std::int32_t address = f::kNullAddress;
  EXPECT_THROW(library->WriteBlock(address, 24, words, 0), unsigned long);
  address = 112000001;
  EXPECT_THROW(library->FreeBlock(address, 1000), unsigned long);
}

TEST_F(LibFileTest, ClosedLibraryAnswersNothing) {
  MakeLibrary();
  auto library = Make(accUpdate);
  library->OpenExisting({true, ""}, nullptr);
  library->CloseLibFile();
  std::int32_t const* data = nullptr;
  EXPECT_FALSE(library->FindBank("NRTL", "X", data, false));
  EXPECT_FALSE(library->HasBank("NRTL", "X"));
  EXPECT_FALSE(library->FindIdNumbers("X", data));
  EXPECT_FALSE(library->FindCasNumbers(casn("64-17-5"), data));
  EXPECT_EQ(library->GetBankTree(), nullptr);
  EXPECT_EQ(library->GetCharIdTree(), nullptr);
  EXPECT_EQ(library->GetCasTree(), nullptr);
  library->FlushLibFile();
  library->CloseLibFile();
  std::int32_t words[4];
  EXPECT_THROW(library->ReadBlock(111000003, 4, words), unsigned long);
}

TEST_F(LibFileTest, FlushAsksForTheDiskOncePerFile) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  library->FlushLibFile();
  EXPECT_EQ(files_.FlushCount(), 1);
}

TEST_F(LibFileTest, NameIndexFollowsCloseAndReopen) {
  MakeLibrary();
  auto library = Make(accRead);
  library->OpenExisting({true, ""}, nullptr);
  LibFile::SetOrdwinNameIndex(library.get());
  EXPECT_EQ(LibFile::GetOrdwinNameIndex(), library.get());
  library->CloseLibFile();
  EXPECT_EQ(LibFile::GetOrdwinNameIndex(), nullptr);
  EXPECT_EQ(library->ReopenLibFile(), openOk);
  EXPECT_EQ(LibFile::GetOrdwinNameIndex(), library.get());
  library->CloseLibFile();
  LibFile::ClearOrdwinNameIndex();
  library->ReopenLibFile();
  EXPECT_EQ(LibFile::GetOrdwinNameIndex(), nullptr);
  LibFile::SetOrdwinNameIndex(library.get());
  library.reset();
  EXPECT_EQ(LibFile::GetOrdwinNameIndex(), nullptr);
  auto another = Make(accRead);
  another->OpenExisting({true, ""}, nullptr);
  another->CloseLibFile();
  another->ReopenLibFile();
  EXPECT_EQ(LibFile::GetOrdwinNameIndex(), nullptr) << "an ended object leaves no claim";
}

TEST_F(LibFileTest, BankEntryOfAnOlderFileIsRepairedWhereItIsRead) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  std::int32_t key[4];
  TextToWords("NRTL    OLD     ", key, 4);
  std::int32_t const* found = nullptr;
  library->GetBankTree()->Find(key, found);
  library->GetBankTree()->Insert(key, f::kNullAddress, f::kNullAddress);
  std::int32_t* data = nullptr;
  library->GetBankTree()->GetCurrentData(data);
  for (int i = 0; i < 16; ++i) data[i] = i + 1;  // word 0 is 1: words 0 to 7 do not count
  library->GetBankTree()->WriteCurrentNode();
  for (accModes mode : {accUpdate, accRead}) {
    if (mode == accRead) {
      library->CloseLibFile();
      library = Make(accRead);
      library->OpenExisting({true, ""}, nullptr);
    }
    std::int32_t const* entry = nullptr;
    ASSERT_TRUE(library->FindBank("nrtl", "old", entry, false));
    EXPECT_EQ(entry[0], 0);
    EXPECT_EQ(entry[2], 1000);
    EXPECT_EQ(entry[3], f::kNullAddress);
    EXPECT_EQ(entry[7], 0);
    EXPECT_EQ(entry[8], 9);
    EXPECT_FALSE(library->FindBank("NRTL", "TOOLONGNAME", entry, false));
    EXPECT_FALSE(library->HasBank("NRTL", "OLD")) << "it has no marker";
  }
}

}  // namespace
}  // namespace zel
