// The library as a host sees it: shared, public headers only.
#include <gtest/gtest.h>
#include <zelaccess/ZelAccess.h>

#include <filesystem>
#include <string>

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
  zel::LibMaint::DelLibMaint(maint);
  zel::LibFile::DelLibFile(library);
}

TEST_F(HostTest, BlockErrorReachesTheHostAsUnsignedLong) {
  zel::openErrors error{};
  zel::LibFile* library = zel::LibFile::NewLibFile(zel::libKind11, Path("b.lb1").c_str(), error);
  zel::LibMaint* maint = zel::LibMaint::NewLibMaint(library);
  try {
    maint->DeleteBank("NRTL", "X");  // no bank at all
    FAIL() << "nothing was thrown";
  } catch (unsigned long word) {
    EXPECT_EQ(word, 990000000UL);
  }
  zel::LibMaint::DelLibMaint(maint);
  zel::LibFile::DelLibFile(library);
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
