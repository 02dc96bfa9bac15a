// One library: opened in every way, described and changed.
#include <zelaccess/DeskBanks.h>
#include <zelaccess/OpenLibrary.h>

#include <cstring>
#include <fstream>

#include "library_fixture.h"

using ctest::Held;
using ctest::Reason;

namespace desk = zel::desk;

namespace {

TEST_F(CLibraryTest, ALibraryIsDescribed) {
  zel::openErrors error = zel::openFailed;
  zel::Handle<zel::LibFile> const file(
      zel::LibFile::OpenLibFile(zel::accRead, Path("sample.lb1").c_str(), "", error));
  ASSERT_TRUE(file);
  char description[101], version[13], memo[4000];
  file->GetDescriptionAndVersion(description, version);
  file->GetMemo(memo);
  ASSERT_EQ(zel_library_open(Path("sample.lb1").c_str(), nullptr, &library_), ZEL_OK);
  EXPECT_EQ(TextOf(ZEL_TEXT_NAME), "sample.lb1");
  EXPECT_EQ(TextOf(ZEL_TEXT_PATH), file->GetLibPath());
  EXPECT_EQ(TextOf(ZEL_TEXT_DESCRIPTION), description);
  EXPECT_EQ(TextOf(ZEL_TEXT_DESCRIPTION), "Published pair and group parameters");
  EXPECT_EQ(TextOf(ZEL_TEXT_VERSION), version);
  EXPECT_EQ(TextOf(ZEL_TEXT_MEMO), memo);
  EXPECT_GT(std::strlen(memo), 1000U);
  EXPECT_EQ(zel_library_text(library_, ZEL_TEXT_CAS, nullptr, 0, nullptr), ZEL_BAD_ARGUMENT);
  zel_library_facts facts = {9, 9, 9, 9, 9, 9};
  ASSERT_EQ(zel_library_describe(library_, &facts), ZEL_OK);
  EXPECT_EQ(facts.kind, 11);
  EXPECT_EQ(facts.mode, ZEL_READ);
  EXPECT_EQ(facts.password_level, 0);
  EXPECT_EQ(facts.is_marked + facts.is_completed + facts.has_foreign_journal, 0);
}

TEST_F(CLibraryTest, BanksAreListed) {
  for (char const* const name : {"sample.lb1", "perry.lb1"}) {
    desk::Table expected("", {{"type", ""}, {"name", ""}, {"items", ""}, {"format", ""}});
    for (desk::BankInfo const& bank : desk::LibraryFile(Path(name)).Banks()) {
      expected.Add(bank.type, bank.name, bank.items, std::int64_t{bank.format});
    }
    EXPECT_FALSE(expected.Empty());
    ASSERT_EQ(zel_library_open(Path(name).c_str(), nullptr, &library_), ZEL_OK);
    Held table;
    ASSERT_EQ(zel_library_banks(library_, &table), ZEL_OK) << Reason();
    ctest::ExpectSame(table, expected);
    EXPECT_EQ(zel_library_close(&library_), ZEL_OK);
    EXPECT_EQ(library_, nullptr);
  }
}

TEST_F(CLibraryTest, WhyALibraryIsNotOpenedIsReported) {
  EXPECT_EQ(zel_library_open("none.lb1", nullptr, &library_), ZEL_NOT_FOUND);
  EXPECT_EQ(Reason(), "none.lb1: not found");
  std::ofstream(Path("own.lb1")) << "not a library";
  EXPECT_EQ(zel_library_open(Path("own.lb1").c_str(), nullptr, &library_), ZEL_CANNOT_OPEN);
  EXPECT_NE(Reason().find("not a library"), std::string::npos);
  SetUp();
  CopyFrom("perry");
  OpenOwn(ZEL_UPDATE);
  zel_library* other = nullptr;
  EXPECT_EQ(zel_library_open(Path("own.lb1").c_str(), nullptr, &other), ZEL_IN_USE);
  EXPECT_EQ(other, nullptr);
}

TEST_F(CLibraryTest, OptionsOutOfRangeAreRefused) {
  zel_open_options const good = {sizeof good, 0, 0, 0, 0, nullptr, nullptr};
  for (int i = 0; i < 8; ++i) {
    zel_open_options options = good;
    if (i == 0) options.size = 0;
    if (i == 1) options.size = sizeof options + 1;
    if (i == 2) options.mode = 2;
    if (i == 3) options.mode = -1;
    if (i == 4) options.writes = 3;
    if (i == 5) options.unclean = 3;
    if (i == 6) options.unclean = -1;
    if (i == 7) options.size = std::size_t{1} << 40;  // never set
    EXPECT_EQ(Open("perry.lb1", options), ZEL_BAD_ARGUMENT) << i;
    EXPECT_EQ(library_, nullptr);
  }
  EXPECT_EQ(Open("perry.lb1", good), ZEL_OK);
  zel_library* made = nullptr;
  EXPECT_EQ(zel_library_create(Path("own.lb1").c_str(), 10, nullptr, &made), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(zel_library_create(Path("own.lb1").c_str(), 14, nullptr, &made), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(zel_library_create(Path("own.txt").c_str(), 11, nullptr, &made), ZEL_CANNOT_OPEN);
  EXPECT_EQ(made, nullptr);
}

// A host that was compiled with a later version of the header.
TEST_F(CLibraryTest, LongerOptionsAreTakenIfTheirOwnMembersAreZero) {
  struct {
    zel_open_options known;
    char const* later;
  } options = {{sizeof options, 0, 0, 0, 0, nullptr, nullptr}, nullptr};
  EXPECT_EQ(Open("perry.lb1", options.known), ZEL_OK) << Reason();
  EXPECT_EQ(zel_library_close(&library_), ZEL_OK);
  options.later = "x";
  EXPECT_EQ(Open("perry.lb1", options.known), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(Reason(), "options has members that this version of the library does not know");
}

TEST_F(CLibraryTest, APasswordForANewLibraryIsRefused) {
  zel_open_options const options = {sizeof options, 0, 0, 0, 0, nullptr, "secret"};
  EXPECT_EQ(zel_library_create(Path("own.lb1").c_str(), 11, &options, &library_), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(Reason(), "a new library has no password");
  EXPECT_FALSE(fs::exists(Path("own.lb1")));
}

TEST_F(CLibraryTest, NameAndPasswordArePassedOn) {
  CopyFrom("perry");
  zel::openErrors error = zel::openFailed;
  {
    zel::Handle<zel::LibFile> const file(
        zel::LibFile::OpenLibFile(zel::accUpdate, Path("own.lb1").c_str(), "", error));
    file->SetPassword(1, "secret");
  }
  zel_open_options options = {sizeof options, ZEL_UPDATE, 0, 0, 0, "mine", nullptr};
  EXPECT_EQ(Open("own.lb1", options), ZEL_CANNOT_OPEN);
  EXPECT_NE(Reason().find("a password is needed"), std::string::npos);
  options.password = "wrong";
  EXPECT_EQ(Open("own.lb1", options), ZEL_CANNOT_OPEN);
  EXPECT_NE(Reason().find("the password is wrong"), std::string::npos);
  options.password = "secret";
  ASSERT_EQ(Open("own.lb1", options), ZEL_OK);
  EXPECT_EQ(TextOf(ZEL_TEXT_NAME), "mine");
  zel_library_facts facts = {};
  ASSERT_EQ(zel_library_describe(library_, &facts), ZEL_OK);
  EXPECT_EQ(facts.password_level, 1);
  EXPECT_EQ(facts.mode, ZEL_UPDATE);
}

TEST_F(CLibraryTest, AMarkIsSetAndSeen) {
  CopyFrom("perry");
  zel_open_options options = {sizeof options, ZEL_UPDATE, ZEL_WRITES_MARKED, 0, 0,
                              nullptr,        nullptr};
  ASSERT_EQ(Open("own.lb1", options), ZEL_OK);
  ASSERT_EQ(zel_library_set_text(library_, ZEL_TEXT_MEMO, "changed"), ZEL_OK);
  EXPECT_TRUE(fs::exists(Path("own.lb1.open")));
  fs::create_directories(Path("owncopy"));
  for (char const* file : {"own.lb1", "own.lb2", "own.lb1.open"}) {
    fs::copy_file(Path(file), Path("owncopy/") + file);
  }
  EXPECT_EQ(zel_library_close(&library_), ZEL_OK);
  EXPECT_FALSE(fs::exists(Path("own.lb1.open")));
  options = {sizeof options, ZEL_READ, 0, ZEL_UNCLEAN_REFUSED, 0, nullptr, nullptr};
  EXPECT_EQ(Open("owncopy/own.lb1", options), ZEL_CANNOT_OPEN);
  EXPECT_NE(Reason().find("not closed cleanly"), std::string::npos);
  options.unclean = ZEL_UNCLEAN_IGNORED;
  ASSERT_EQ(Open("owncopy/own.lb1", options), ZEL_OK);
  zel_library_facts facts = {};
  ASSERT_EQ(zel_library_describe(library_, &facts), ZEL_OK);
  EXPECT_EQ(facts.is_marked, 1);
}

TEST_F(CLibraryTest, HeldWritesComeWithTheFlush) {
  CopyFrom("perry");
  zel_open_options const options = {sizeof options, ZEL_UPDATE, ZEL_WRITES_HELD, 0, 0,
                                    nullptr,        nullptr};
  auto const bytes = [] {
    std::ifstream file(Path("own.lb1"), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  };
  std::string const before = bytes();
  ASSERT_EQ(Open("own.lb1", options), ZEL_OK);
  ASSERT_EQ(zel_library_set_text(library_, ZEL_TEXT_DESCRIPTION, "New description"), ZEL_OK);
  EXPECT_TRUE(bytes() == before);
  ASSERT_EQ(zel_library_flush(library_), ZEL_OK);
  EXPECT_FALSE(bytes() == before);
}

TEST_F(CLibraryTest, TextsAreSet) {
  ASSERT_EQ(zel_library_create(Path("own.lb1").c_str(), 12, nullptr, &library_), ZEL_OK);
  zel_library_facts facts = {};
  ASSERT_EQ(zel_library_describe(library_, &facts), ZEL_OK);
  EXPECT_EQ(facts.kind, 12);
  EXPECT_EQ(facts.mode, ZEL_UPDATE);
  EXPECT_EQ(zel_library_set_text(library_, ZEL_TEXT_DESCRIPTION, "Made in C"), ZEL_OK);
  EXPECT_EQ(zel_library_set_text(library_, ZEL_TEXT_VERSION, "1.5"), ZEL_OK);
  EXPECT_EQ(zel_library_set_text(library_, ZEL_TEXT_MEMO, "a memo"), ZEL_OK);
  EXPECT_EQ(zel_library_set_text(library_, ZEL_TEXT_PATH, "x"), ZEL_BAD_ARGUMENT);
  ASSERT_EQ(zel_library_close(&library_), ZEL_OK);
  OpenOwn(ZEL_READ);
  EXPECT_EQ(TextOf(ZEL_TEXT_DESCRIPTION), "Made in C");
  EXPECT_EQ(TextOf(ZEL_TEXT_VERSION), "1.5");
  EXPECT_EQ(TextOf(ZEL_TEXT_MEMO), "a memo");
  EXPECT_EQ(zel_library_set_text(library_, ZEL_TEXT_MEMO, "x"), ZEL_READ_ONLY);
  EXPECT_EQ(zel_library_create_bank(library_, "NRTL", "MINE", 0), ZEL_READ_ONLY);
  EXPECT_EQ(zel_library_delete_bank(library_, "NRTL", "MINE"), ZEL_READ_ONLY);
  EXPECT_EQ(zel_library_import(library_, "none.xml", 0, 2, nullptr, nullptr), ZEL_READ_ONLY);
  EXPECT_EQ(zel_library_flush(library_), ZEL_OK);
}

TEST_F(CLibraryTest, BanksAreMadeAndDeleted) {
  ASSERT_EQ(zel_library_create(Path("own.lb1").c_str(), 11, nullptr, &library_), ZEL_OK);
  EXPECT_EQ(zel_library_create_bank(library_, "NRTL", "MINE", 0), ZEL_OK);
  EXPECT_EQ(zel_library_create_bank(library_, "NRTL", "MINE", 0), ZEL_FAILED) << "it exists";
  EXPECT_EQ(zel_library_create_bank(library_, "NRTX", "MINE", 0), ZEL_FAILED);
  EXPECT_EQ(zel_library_create_bank(library_, "NRTL", "OTHER", 99), ZEL_FAILED);
  EXPECT_EQ(zel_library_create_bank(library_, "NRTL", "TOOLONGNAME", 0), ZEL_FAILED);
  Held table;
  std::size_t rows = 0;
  ASSERT_EQ(zel_library_banks(library_, &table), ZEL_OK);
  ASSERT_EQ(zel_table_size(table, &rows, nullptr), ZEL_OK);
  EXPECT_EQ(rows, 1U);
  EXPECT_EQ(ctest::CellOf(table, 0, 1), desk::Cell("MINE"));
  EXPECT_EQ(zel_library_delete_bank(library_, "NRTL", "OTHER"), ZEL_MISSING_BANK);
  EXPECT_EQ(Reason(), "the library has no bank NRTL:OTHER");
  EXPECT_EQ(zel_library_delete_bank(library_, "NRTL", "MINE"), ZEL_OK);
  EXPECT_EQ(zel_library_delete_bank(library_, "NRTL", "MINE"), ZEL_MISSING_BANK);
}

}  // namespace
