// An open library: texts, memo, name index, look-up of banks, close.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include "store/bank_key.h"
#include "store/packed_text.h"
#include "tests/store/lib_file_fixture.h"

namespace zel {
namespace {

// Handles are never copied.
static_assert(!std::is_copy_constructible_v<LibFile_i> && !std::is_copy_assignable_v<LibFile_i>);
static_assert(!std::is_copy_constructible_v<BTree_i> && !std::is_copy_assignable_v<BTree_i>);

namespace f = format;
using test::LibFileTest;

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

TEST_F(LibFileTest, BankEntryIsRepairedWordByWord) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  std::int32_t key[4];
  TextToWords("NRTL    B       ", key, 4);
  std::int32_t const* found = nullptr;
  library->GetBankTree()->Find(key, found);
  library->GetBankTree()->Insert(key, f::kNullAddress, f::kNullAddress);
  struct {
    std::int32_t mark, words, address, repairedWords, repairedAddress;
  } const rows[] = {{2, 7, 111000009, 7, 111000009},
                    {0, 0, 111000009, 1000, 111000009},
                    {-1, 7, 0, 7, 990000000},
                    {1, 7, 111000009, 1000, 990000000}};
  for (auto const& row : rows) {
    std::int32_t* data = nullptr;
    ASSERT_TRUE(library->GetBankTree()->Find(key, found));
    library->GetBankTree()->GetCurrentData(data);
    data[0] = row.mark;
    data[1] = 5;
    data[2] = row.words;
    data[3] = row.address;
    ASSERT_TRUE(library->FindBank("NRTL", "B", found, false));
    EXPECT_EQ(found[0], row.mark == 1 ? 0 : row.mark);
    EXPECT_EQ(found[1], row.mark == 1 ? 0 : 5);
    EXPECT_EQ(found[2], row.repairedWords);
    EXPECT_EQ(found[3], row.repairedAddress);
  }
}

TEST_F(LibFileTest, BankIsFoundUnderBothFormsOfItsKey) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  auto const insert = [&](char const* text, std::int32_t mark) {
    std::int32_t key[4];
    TextToWords(text, key, 4);
    std::int32_t const* found = nullptr;
    ASSERT_FALSE(library->GetBankTree()->Find(key, found));
    library->GetBankTree()->Insert(key, f::kNullAddress, f::kNullAddress);
    std::int32_t* data = nullptr;
    ASSERT_TRUE(library->GetBankTree()->GetCurrentData(data));
    data[f::kBankHead] = mark;
    library->GetBankTree()->WriteCurrentNode();
  };
  insert("NRTL@   ONE     ", 1);
  insert("NRTL    TWO     ", 2);
  insert("NRTL@   BOTH    ", 3);
  insert("NRTL    BOTH    ", 4);
  struct {
    char const* name;
    bool marker;
    std::int32_t mark;
  } const rows[] = {{"ONE", false, 1}, {"ONE", true, 1},   {"TWO", false, 2},
                    {"TWO", true, 2},  {"BOTH", false, 3}, {"BOTH", true, 4}};
  std::int32_t const* entry = nullptr;
  for (auto const& row : rows) {
    ASSERT_TRUE(library->FindBank("NRTL", row.name, entry, row.marker)) << row.name;
    EXPECT_EQ(entry[f::kBankHead], row.mark) << row.name << ", the other form first";
  }
  // A failure leaves the place of the key with the requested marker.
  for (bool marker : {false, true}) {
    EXPECT_FALSE(library->FindBank("NRTL", "THREE", entry, marker));
    std::int32_t key[4];
    MakeBankKey("NRTL", "THREE", key, marker);
    library->GetBankTree()->Insert(key, f::kNullAddress, f::kNullAddress);
    EXPECT_TRUE(library->GetBankTree()->Find(key, entry)) << marker;
    EXPECT_EQ(library->HasBank("NRTL", "THREE"), marker);
    library->GetBankTree()->Delete(key);
  }
}

TEST_F(LibFileTest, DirectoryOfAnotherFormHasNoBanks) {
  {
    auto library = Make(accUpdate);
    library->CreateNew(libKind11);
    std::int32_t key[4];
    TextToWords("NRTL@   X       ", key, 4);
    std::int32_t const* found = nullptr;
    library->GetBankTree()->Find(key, found);
    library->GetBankTree()->Insert(key, f::kNullAddress, f::kNullAddress);
    EXPECT_TRUE(library->HasBank("NRTL", "X"));
  }
  struct {
    std::size_t word;
    std::int32_t value;
  } const rows[] = {{2, 19}, {2, 21}, {3, 3}, {3, 5}};  // entry words, key words
  for (auto const& row : rows) {
    std::int32_t const before = WordAt(File1(), 2000 + 4 * row.word);
    PutWord(File1(), 2000 + 4 * row.word, row.value);
    auto library = Opened(accRead);
    std::int32_t const* entry = nullptr;
    EXPECT_FALSE(library->HasBank("NRTL", "X")) << row.word << " " << row.value;
    EXPECT_FALSE(library->FindBank("NRTL", "X", entry, false)) << row.word << " " << row.value;
    library.reset();
    PutWord(File1(), 2000 + 4 * row.word, before);
  }
}

TEST_F(LibFileTest, CopiesOfHeaderBlocksAreSharedByAllLibraries) {
  MakeLibrary();
  auto first = Opened(accRead);
  auto second = Make(accUpdate, "/second.lb1");
  second->CreateNew(libKind12);
  std::int32_t const* blocks[2][3] = {};
  first->GetHeaderBlocks(&blocks[0][0], &blocks[0][1], &blocks[0][2]);
  EXPECT_EQ(blocks[0][0][0], 11);
  second->GetHeaderBlocks(&blocks[1][0], &blocks[1][1], &blocks[1][2]);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(blocks[0][i], blocks[1][i]);
  EXPECT_EQ(blocks[0][0][0], 12) << "valid until the next call";
  std::int32_t const* same = nullptr;
  std::int32_t const* other = nullptr;
  second->GetHeaderBlocks(&same, &same, &other);
  EXPECT_EQ(same, blocks[1][1]) << "two alike do not ask for the live header";
  EXPECT_EQ(other, blocks[1][2]);
}

TEST_F(LibFileTest, PasswordIsShownAsItWillBeOnFile) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  std::int32_t level = 0;
  char password[101];
  library->SetPassword(1, "a[b ");
  library->GetPassword(level, password);
  EXPECT_STREQ(password, "a b");
  library->SetPassword(1, std::string(150, 'p').c_str());
  library->GetPassword(level, password);
  EXPECT_EQ(password, std::string(100, 'p'));
  library->SetPassword(2, nullptr);
  library->GetPassword(level, password);
  EXPECT_EQ(level, 2);
  EXPECT_STREQ(password, "");
  EXPECT_FALSE(library->IsPasswordLocked()) << "level 2 without a password locks nothing";
}

TEST_F(LibFileTest, NullTextsCountAsEmpty) {
  EXPECT_EQ(Make(accUpdate, nullptr)->CreateNew(libKind11), openNotLibrary);
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  library->SetMemo("text");
  library->SetMemo(nullptr);
  char memo[4000] = "x";
  library->GetMemo(memo);
  EXPECT_STREQ(memo, "");
  std::int32_t const* found = nullptr;
  EXPECT_FALSE(library->FindBank(nullptr, nullptr, found, true));
  EXPECT_FALSE(library->HasBank(nullptr, nullptr));
  EXPECT_FALSE(library->FindIdNumbers(nullptr, found));
}

TEST_F(LibFileTest, MemoWithoutATerminatorOnFileEndsInsideTheBuffer) {
  {
    auto library = Make(accUpdate);
    library->CreateNew(libKind11);
    library->SetMemo("x");
  }
  files_.Contents("/lib.lb2").assign(4000, std::byte{'m'});
  char memo[4001];
  memo[4000] = 'g';
  Opened(accRead)->GetMemo(memo);
  EXPECT_EQ(memo[4000], 'g');
  EXPECT_EQ(std::string(memo), std::string(3999, 'm'));
}

TEST_F(LibFileTest, MemoIsPlainTextWithZerosBehind) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  library->SetMemo("a longer text [with brackets]");
  library->SetMemo("A[\xE4");
  library->CloseLibFile();
  EXPECT_EQ(WordAt(File1(), 24), 1000);
  std::int32_t const address = WordAt(File1(), 28);
  EXPECT_EQ(address, 112000001) << "4000 bytes fit a block of the second file best";
  Bytes const& bytes = files_.Contents("/lib.lb2");
  ASSERT_EQ(bytes.size(), 4000U);
  EXPECT_EQ(std::memcmp(bytes.data(), "A[\xE4", 4), 0);
  EXPECT_EQ(std::count(bytes.begin() + 3, bytes.end(), std::byte{0}), 3997);
}

}  // namespace
}  // namespace zel
