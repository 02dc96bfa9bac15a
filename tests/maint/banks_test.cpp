// Banks: creating, finding, describing and deleting them.
#include <functional>
#include <new>
#include <type_traits>
#include <utility>

#include "store/bank_key.h"
#include "store/key.h"
#include "store/packed_text.h"
#include "tests/maint/maint_fixture.h"
#include "tests/support/allocations.h"
#include "tests/support/bank_types.h"
#include "tests/support/text_stream.h"

namespace zel {
namespace {

// Copying a handle must not copy the object.
static_assert(!std::is_copy_constructible_v<LibMaint_i> && !std::is_copy_assignable_v<LibMaint_i>);

using BanksTest = test::MaintTest;

TEST_F(BanksTest, EveryTypeInEveryFormatIsCreatedOnce) {
  for (char const* const type : test::BankTypes()) {
    FaceRef<IZelBankDef> const bank(NewBank(type));
    ASSERT_TRUE(bank) << type;
    char keyword[9];
    char description[50];
    std::int32_t kind, words, least, formats, most;
    std::uint8_t listed;
    bank->GetBankInfo(keyword, description, &kind, &words, &least, &formats, &most, &listed);
    EXPECT_FALSE(Maint().CreateBank(type, "BAD", -1)) << type;
    EXPECT_FALSE(Maint().CreateBank(type, "BAD", formats + 1)) << type;
    for (std::int32_t format = 0; format <= formats; ++format) {
      std::string const name = "F" + std::to_string(format);
      EXPECT_TRUE(Maint().CreateBank(type, name.c_str(), format)) << type;
      EXPECT_FALSE(Maint().CreateBank(type, name.c_str(), format)) << "it exists";
      EXPECT_TRUE(Maint().BankExists(type, name.c_str()));
      std::int32_t const expected = formats == 1 ? 0 : format == 0 ? formats : format;
      EXPECT_EQ(Maint().GetBankFormat(type, name.c_str()), expected) << type;
    }
  }
}

TEST_F(BanksTest, DirectoryEntryHasTheHeadOfItsBank) {
  ASSERT_TRUE(Maint().CreateBank("NRTL", "A", 2));
  std::int32_t key[4];
  TextToWords("NRTL@   A       ", key, 4);
  std::int32_t const* data = nullptr;
  ASSERT_TRUE(Library().GetBankTree()->Find(key, data)) << "marked: the format is above 1";
  std::vector<std::int32_t> const expected = {0, 0,    0,  0, 0,  0,  0,         0,
                                              2, 1000, 22, 2, 20, 43, 112000000, 990000000};
  EXPECT_EQ(std::vector<std::int32_t>(data, data + 16), expected);
  ASSERT_TRUE(Maint().CreateBank("NRTL", "B", 1));
  TextToWords("NRTL    B       ", key, 4);
  ASSERT_TRUE(Library().GetBankTree()->Find(key, data));
  EXPECT_EQ(data[12], 14);
  ASSERT_TRUE(Maint().CreateBank("NRTL", "C", 0));
  TextToWords("NRTL@   C       ", key, 4);
  ASSERT_TRUE(Library().GetBankTree()->Find(key, data)) << "the highest format is above 1, too";
  EXPECT_EQ(data[12], 20);
}

// Their entries hold one word, which leads to the record; the length of the record is in the head
// all the same.
TEST_F(BanksTest, EntriesOfComponentsAreOneWord) {
  ASSERT_TRUE(Maint().CreateBank("PURECOMP", "P", 0));
  std::int32_t const* data = nullptr;
  ASSERT_TRUE(Library().FindBank("PURECOMP", "P", data, false));
  std::vector<std::int32_t> const expected = {1, 1000, 2, 1, 250, 331, 112000000, 990000000};
  EXPECT_EQ(std::vector<std::int32_t>(data + 8, data + 16), expected);
}

TEST_F(BanksTest, UnknownTypesAndLongNamesAreRefused) {
  EXPECT_FALSE(Maint().CreateBank("NOTYPE", "A", 0));
  EXPECT_FALSE(Maint().CreateBank("NRTL", "NINECHARS", 0));
  EXPECT_FALSE(Maint().CreateBank(nullptr, nullptr, 0));
  EXPECT_FALSE(Maint().BankExists("NRTL", "A"));
  EXPECT_EQ(Maint().GetBankFormat("NRTL", "A"), 0);
  EXPECT_EQ(Maint().GetBankFormat("NOTYPE", "A"), 0);
}

TEST_F(BanksTest, DeletedBankIsGoneAndItsBlocksAreNotFree) {
  Maint().CreateBank("VANLAAR", "A", 0);
  Maint().CreateBank("NRTL", "A", 2);
  SetAij(1, 2);
  key_.SetKey(1L, 2L);
  ASSERT_TRUE(Maint().WriteItem(vanLaar_.Get(), "A", &key_));
  EXPECT_TRUE(Maint().DeleteBank("VANLAAR", "A"));
  EXPECT_FALSE(Maint().BankExists("VANLAAR", "A"));
  EXPECT_TRUE(Maint().BankExists("NRTL", "A"));
  for (int i = 0; i < Library().Store().Extents().Count(); ++i) {
    EXPECT_GE(Library().Store().Extents()[i].size, 999999);
  }
  EXPECT_TRUE(Maint().DeleteBank("NRTL", "a")) << "marked, and in any case";
  EXPECT_FALSE(Maint().BankExists("NRTL", "A"));
  Maint().CreateBank("NRTL", "A", 1);
  EXPECT_TRUE(Maint().DeleteBank("NRTL", "NONE")) << "an absent one gives true";
  EXPECT_TRUE(Maint().BankExists("NRTL", "A"));
}

TEST_F(BanksTest, DeletingFromAnEmptyDirectoryThrows) {
  EXPECT_THROW(Maint().DeleteBank("NRTL", "A"), unsigned long);
}

TEST_F(BanksTest, MemosAreKeptPerBank) {
  Maint().CreateBank("NRTL", "A", 0);
  Maint().CreateBank("NRTL", "B", 0);
  char memo[4000] = "x";
  Maint().GetBankMemo("NRTL", "A", memo);
  EXPECT_STREQ(memo, "");
  Maint().SetBankMemo("NRTL", "A", "memo of A");
  Maint().SetBankMemo("NRTL", "B", std::string(5000, 'b').c_str());
  Maint().SetBankMemo("NRTL", "NONE", "nowhere");
  Maint().SetBankMemo("NRTL", "A", "second memo of A");
  Reopen(accRead);
  Maint().GetBankMemo("NRTL", "A", memo);
  EXPECT_STREQ(memo, "second memo of A");
  Maint().GetBankMemo("NRTL", "B", memo);
  EXPECT_EQ(std::string(memo), std::string(3999, 'b'));
  Maint().GetBankMemo("NRTL", "NONE", memo);
  EXPECT_STREQ(memo, "");
}

// The length of a memo is read from the file; 0, as in old files, means the usual length.
TEST_F(BanksTest, MemoLengthIsNeverMoreThanTheBuffer) {
  Maint().CreateBank("NRTL", "A", 0);
  std::string const text(3999, 'm');
  Maint().SetBankMemo("NRTL", "A", text.c_str());
  struct {
    std::int32_t words;
    std::size_t length;
  } const rows[] = {{-1, 0}, {INT32_MIN, 0}, {0, 3999}, {2, 8}, {1001, 3999}, {INT32_MAX, 3999}};
  for (auto const& row : rows) {
    std::int32_t const* found = nullptr;
    std::int32_t* entry = nullptr;
    ASSERT_TRUE(Library().FindBank("NRTL", "A", found, false));
    ASSERT_TRUE(Library().GetBankTree()->GetCurrentData(entry));
    entry[format::kBankMemoWords] = row.words;
    ASSERT_TRUE(Library().GetBankTree()->WriteCurrentNode());
    char memo[4001];
    memo[4000] = '#';
    Maint().GetBankMemo("NRTL", "A", memo);
    EXPECT_EQ(memo, text.substr(0, row.length)) << row.words;
    EXPECT_EQ(memo[4000], '#');
    if (row.length == text.size()) Maint().SetBankMemo("NRTL", "A", text.c_str());
  }
}

TEST_F(BanksTest, ReaderCannotChange) {
  Maint().CreateBank("VANLAAR", "A", 0);
  Maint().SetBankMemo("VANLAAR", "A", "memo");
  SetAij(1, 2);
  key_.SetKey(1L, 2L);
  Maint().WriteItem(vanLaar_.Get(), "A", &key_);
  Reopen(accRead);
  EXPECT_THROW(Maint().CreateBank("NRTL", "N", 0), unsigned long);
  EXPECT_FALSE(Maint().BankExists("NRTL", "N"));
  EXPECT_THROW(Maint().SetBankMemo("VANLAAR", "A", "x"), unsigned long);
  EXPECT_THROW(Maint().DeleteBank("VANLAAR", "A"), unsigned long);
  SetAij(8, 9);
  EXPECT_THROW(Maint().WriteItem(vanLaar_.Get(), "A", &key_), unsigned long);
  key_.SetKey(5L, 6L);
  EXPECT_THROW(Maint().WriteItem(vanLaar_.Get(), "A", &key_), unsigned long);
  key_.SetKey(1L, 2L);
  EXPECT_THROW(Maint().DeleteItem("VANLAAR", "A", &key_), unsigned long);
  ASSERT_TRUE(Maint().ReadItem(vanLaar_.Get(), "A", &key_));
  EXPECT_EQ(Aij(), 1.0) << "nothing of it stays in a buffer";
  key_.SetKey(5L, 6L);
  EXPECT_FALSE(Maint().ItemExists(vanLaar_.Get(), "A", &key_));
  char memo[4000];
  Maint().GetBankMemo("VANLAAR", "A", memo);
  EXPECT_STREQ(memo, "memo");
}

TEST_F(BanksTest, ReferredBanksAreNamed) {
  FaceRef<IZelBankDef> const psrk(NewBank("PSRK"));
  Maint().CreateBank("PSRK", "S", 0);
  psrk->SetRefBankName("PURECOMP", "PURE");
  psrk->SetRefBankName("ALPHA", "ALPHAS");
  key_.ClearKey();
  ASSERT_TRUE(Maint().WriteItem(psrk.Get(), "S", &key_));
  char const types[3][9] = {"PURECOMP", "NRTL", "ALPHA"};
  char names[3][9] = {"x", "x", "x"};
  Maint().GetRefBankNames("PSRK", "S", 3, types, names);
  EXPECT_STREQ(names[0], "PURE");
  EXPECT_STREQ(names[1], "");
  EXPECT_STREQ(names[2], "ALPHAS");
  Maint().GetRefBankNames("PSRK", "NONE", 3, types, names);
  EXPECT_STREQ(names[0], "");
  Maint().GetRefBankNames("NRTL", "S", 3, types, names);
  EXPECT_STREQ(names[2], "");
}

// A bank whose root is not a valid block: the error is thrown.
TEST_F(BanksTest, ReferencesOfADamagedBankThrow) {
  Maint().CreateBank("PSRK", "S", 0);
  std::int32_t const* found = nullptr;
  ASSERT_TRUE(Library().FindBank("PSRK", "S", found, false));
  std::int32_t* entry = nullptr;
  ASSERT_TRUE(Library().GetBankTree()->GetCurrentData(entry));
  std::int32_t* head = entry + format::kBankHead;
  head[format::kHeadRootAddress] = 12;
  Library().GetBankTree()->WriteCurrentNode();
  char const types[1][9] = {"ALPHA"};
  char names[1][9] = {"x"};
  EXPECT_THROW(Maint().GetRefBankNames("PSRK", "S", 1, types, names), unsigned long);
  EXPECT_STREQ(names[0], "");
}

TEST_F(BanksTest, TreeOfABankIsReported) {
  Maint().CreateBank("HOCV", "H", 0);
  FaceRef<IZelBankDef> const hocv(NewBank("HOCV"));
  double const eta = 0.5;
  hocv->SetDoubleField("eta", &eta);
  key_.SetKey(7L);
  ASSERT_TRUE(Maint().WriteItem(hocv.Get(), "H", &key_));
  test::TextStream const stream;
  EXPECT_TRUE(Maint().DumpBankTree("HOCV", "H", 1, stream.Get(), 1));
  EXPECT_FALSE(Maint().DumpBankTree("HOCV", "H", 1, stream.Get(), 2));
  EXPECT_FALSE(Maint().DumpBankTree("HOCV", "NONE", 1, stream.Get(), 0));
  std::string const text = stream.Text();
  EXPECT_EQ(text.substr(0, text.size() / 2),
            "\n"
            " Node----------  No  Link  Key----------------  Data--------  Link\n"
            "  0 (112000002)   1  (--)  /00000007/00000007/  /0x3f000000/  (--)\n"
            " --------------  --  ----  -------------------  ------------  ----\n"
            " Total entries    1 - passed\n\n");
}

TEST_F(BanksTest, HundredsOfBanksSplitTheDirectoryAndStayFound) {
  for (int n = 0; n < 8; ++n) {
    for (char const* const type : test::BankTypes()) {
      ASSERT_TRUE(Maint().CreateBank(type, ("N" + std::to_string(n)).c_str(), 0));
    }
  }
  Reopen(accRead);
  for (int n = 0; n < 8; ++n) {
    for (char const* const type : test::BankTypes()) {
      EXPECT_TRUE(Maint().BankExists(type, ("N" + std::to_string(n)).c_str())) << type;
    }
  }
}

// If there is no memory for an object of the bank's type, an exception is better than a wrong
// answer.
TEST_F(BanksTest, ShortMemoryIsNotAnUnknownType) {
  ASSERT_TRUE(Maint().CreateBank("NRTL", "A", 2));
  char const types[1][9] = {"UNIFAC"};
  char names[1][9] = {};
  Key_i key;
  key.SetKey(1L, 2L);
  std::pair<char const*, std::function<void()>> const calls[] = {
      {"GetBankFormat", [&] { Maint().GetBankFormat("NRTL", "A"); }},
      {"CreateBank", [&] { Maint().CreateBank("NRTL", "B", 2); }},
      {"GetRefBankNames", [&] { Maint().GetRefBankNames("NRTL", "A", 1, types, names); }},
      {"DeleteItem", [&] { Maint().DeleteItem("NRTL", "A", &key); }}};
  for (auto const& [name, call] : calls) {
    bool isRefused = false;
    {
      test::AllocationWatch const watch(1);
      try {
        call();
      } catch (std::bad_alloc const&) {
        isRefused = true;
      }
    }
    EXPECT_TRUE(isRefused) << name;
  }
  EXPECT_EQ(Maint().GetBankFormat("NRTL", "A"), 2);
  EXPECT_FALSE(Maint().BankExists("NRTL", "B"));
}

}  // namespace
}  // namespace zel
