// The library as a host sees it: the shared library and its public headers only.
#include <gtest/gtest.h>
#include <zelaccess/ZelAccess.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <type_traits>

namespace {

namespace fs = std::filesystem;

class HostTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() /
              ("zel_host_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string Path(char const* name) const { return (folder_ / name).string(); }

  fs::path folder_;
};

TEST_F(HostTest, PairGoesInAndComesOutInBothOrders) {
  zel::openErrors error{};
  zel::LibFile* library = zel::LibFile::NewLibFile(zel::libKind11, Path("a.lb1").c_str(), error);
  ASSERT_NE(library, nullptr);
  zel::LibMaint* maint = zel::LibMaint::NewLibMaint(library);
  ASSERT_TRUE(maint->CreateBank("VANLAAR", "MINE", 0));
  zel::IZelBankDef* bank = zel::NewBank("vanlaar");
  void* face = nullptr;
  ASSERT_EQ(bank->QueryInterface(zel::IID_IZelVanLaar, &face), zel::kStatusOk);
  auto* vanLaar = static_cast<zel::IZelVanLaar*>(face);
  vanLaar->PutData(1.25, -2.5, 300.0, 400.0, 101.325, 101.325, 9);
  zel::Key* key = zel::Key::NewKey();
  key->SetKey(1L, 2L);
  EXPECT_TRUE(maint->WriteItem(bank, "MINE", key));
  zel::LibMaint::DelLibMaint(maint);
  EXPECT_EQ(maint, nullptr);
  zel::LibFile::DelLibFile(library);
  EXPECT_EQ(library, nullptr);

  library = zel::LibFile::OpenLibFile(zel::accRead, Path("a.lb1").c_str(), "", error);
  ASSERT_EQ(error, zel::openOk);
  maint = zel::LibMaint::NewLibMaint(library);
  key->SetKey(2L, 1L);
  ASSERT_TRUE(maint->ReadItem(bank, "MINE", key));
  double aij, aji, tMin, tMax, pMin, pMax;
  std::int32_t refCode;
  vanLaar->GetData(&aij, &aji, &tMin, &tMax, &pMin, &pMax, &refCode);
  EXPECT_EQ(aij, -2.5);
  EXPECT_EQ(aji, 1.25);
  EXPECT_EQ(tMin, 300.0);
  EXPECT_EQ(pMax, 101.325);
  EXPECT_EQ(refCode, 9);

  EXPECT_EQ(vanLaar->Release(), 1);
  EXPECT_EQ(bank->Release(), 0);
  zel::Key::DelKey(key);
  EXPECT_EQ(key, nullptr);
  zel::LibMaint::DelLibMaint(maint);
  zel::LibFile::DelLibFile(library);
}

// A search and a walk whose library is closed, in each mode: after the close they end in a block
// error or find nothing, after a reopen they work again.
TEST_F(HostTest, ClosedLibraryUnderASearchAndAWalk) {
  constexpr long kItems = 2000;
  zel::openErrors error{};
  zel::Handle<zel::LibFile> library(
      zel::LibFile::NewLibFile(zel::libKind11, Path("a.lb1").c_str(), error));
  ASSERT_NE(library, nullptr);
  zel::Handle<zel::IZelBankDef> const bank(zel::NewBank("RACKETT"));
  zel::Handle<zel::Key> const key(zel::Key::NewKey());
  {
    zel::Handle<zel::LibMaint> const maint(zel::LibMaint::NewLibMaint(library.get()));
    ASSERT_TRUE(maint->CreateBank("RACKETT", "X", 0));
    for (long i = 1; i <= kItems; ++i) {
      key->SetKey(i);
      ASSERT_TRUE(maint->WriteItem(bank.get(), "X", key.get()));
    }
  }
  for (zel::accModes const mode : {zel::accUpdate, zel::accRead}) {
    library.reset();
    library.reset(zel::LibFile::OpenLibFile(mode, Path("a.lb1").c_str(), "", error));
    ASSERT_EQ(error, zel::openOk);
    zel::Handle<zel::LibMaint> const maint(zel::LibMaint::NewLibMaint(library.get()));
    zel::Handle<zel::LibSearch> const search(zel::LibSearch::NewLibSearch());
    zel::LibFile* const libraries[] = {library.get()};
    char const names[1][9] = {"X"};
    search->SetLibraryBanks(1, libraries, names);
    auto const find = [&](long component) {
      key->SetKey(component);
      return search->Search(key.get(), bank.get(), false);
    };
    for (int round = 0; round < 2; ++round) {
      for (long i = 1; i <= kItems; i += 100) EXPECT_TRUE(find(i));
      std::int32_t words[10] = {};
      ASSERT_TRUE(maint->BeginItemWalk("RACKETT", "X"));
      for (int i = 0; i < 1500; ++i) ASSERT_TRUE(maint->NextItemKey(words));
      EXPECT_EQ(words[0], 1500);
      library->CloseLibFile();
      if (round == 0) {
        EXPECT_THROW(find(1901), unsigned long);
        EXPECT_FALSE(maint->NextItemKey(words));
        EXPECT_FALSE(maint->NextItem(words, bank.get()));
        EXPECT_FALSE(maint->RewriteItem(bank.get()));
      }
      ASSERT_EQ(library->ReopenLibFile(), zel::openOk);
      EXPECT_TRUE(find(1901)) << "round " << round;
      EXPECT_FALSE(maint->NextItemKey(words)) << "the walk has ended";
    }
  }
}

// A list that is deleted after everything that the library made during the run.
zel::Handle<zel::CompList> listToTheEnd;

TEST_F(HostTest, GlobalListEndsWithTheProcess) {
  listToTheEnd.reset(zel::CompList::NewCompList());
  listToTheEnd->SetFilter("a filter of more than fifteen characters");
}

// Made by its factory and deleted by its Del function only.
template <typename Handle>
constexpr bool IsHandle = std::is_abstract_v<Handle>&& std::has_virtual_destructor_v<Handle> &&
                          !std::is_destructible_v<Handle> && std::is_copy_assignable_v<Handle>;
static_assert(IsHandle<zel::Key> && IsHandle<zel::LibFile> && IsHandle<zel::LibMaint>);
static_assert(!std::is_polymorphic_v<zel::casn> && std::is_copy_constructible_v<zel::casn>);

TEST_F(HostTest, AssignmentBetweenHandlesChangesNeither) {
  zel::openErrors error{};
  zel::LibFile* a = zel::LibFile::NewLibFile(zel::libKind11, Path("a.lb1").c_str(), "A", error);
  zel::LibFile* b = zel::LibFile::NewLibFile(zel::libKind12, Path("b.lb1").c_str(), "B", error);
  EXPECT_EQ(&(*a = *b), a);
  zel::libTypes type{};
  zel::accModes mode{};
  a->GetLibInfo(type, mode);
  EXPECT_EQ(type, zel::libKind11);
  EXPECT_STREQ(a->GetLibName(), "A");
  EXPECT_STREQ(b->GetLibName(), "B");
  zel::LibMaint* onA = zel::LibMaint::NewLibMaint(a);
  zel::LibMaint* onB = zel::LibMaint::NewLibMaint(b);
  ASSERT_TRUE(onB->CreateBank("NRTL", "X", 0));
  EXPECT_EQ(&(*onA = *onB), onA);
  EXPECT_FALSE(onA->BankExists("NRTL", "X"));
  EXPECT_TRUE(onB->BankExists("NRTL", "X"));
  zel::LibMaint::DelLibMaint(onA);
  zel::LibMaint::DelLibMaint(onB);
  zel::LibFile::DelLibFile(a);
  zel::LibFile::DelLibFile(b);
}

TEST_F(HostTest, BlockErrorReachesTheHostAsUnsignedLong) {
  zel::openErrors error{};
  zel::LibFile* library = zel::LibFile::NewLibFile(zel::libKind11, Path("b.lb1").c_str(), error);
  zel::LibMaint* maint = zel::LibMaint::NewLibMaint(library);
  try {
    maint->DeleteBank("NRTL", "X");  // there is no bank at all
    FAIL() << "nothing was thrown";
  } catch (unsigned long word) {
    EXPECT_EQ(word, 990000000UL);
  }
  zel::LibMaint::DelLibMaint(maint);
  zel::LibFile::DelLibFile(library);
}

TEST_F(HostTest, InitialisesOnceAndLeavesNothingBehind) {
  // The temporary file is made in a folder that these tests can examine.
  char const* const before = std::getenv("TMPDIR");
  std::string const folder = before == nullptr ? "" : before;
  ::setenv("TMPDIR", folder_.c_str(), 1);
  zel::InitZelAccess();
  EXPECT_TRUE(fs::is_empty(folder_));
  // A second start would end the process: there is no folder for its file.
  ::setenv("TMPDIR", Path("missing").c_str(), 1);
  zel::InitZelAccess();
  if (folder.empty()) {
    ::unsetenv("TMPDIR");
  } else {
    ::setenv("TMPDIR", folder.c_str(), 1);
  }
}

TEST_F(HostTest, DisposalOfNullDoesNothing) {
  zel::Key* key = nullptr;
  zel::LibFile* library = nullptr;
  zel::LibMaint* maint = nullptr;
  zel::Key::DelKey(key);
  zel::LibFile::DelLibFile(library);
  zel::LibMaint::DelLibMaint(maint);
  EXPECT_EQ(key, nullptr);
}

}  // namespace
