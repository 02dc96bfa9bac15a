// What crosses the border between a host and the library: status words, undefined values, null
// texts, the wider interface of each handle, and handles that the host has made itself.
#include <gtest/gtest.h>
#include <zelaccess/CompList_p.h>
#include <zelaccess/Key_p.h>
#include <zelaccess/LibFile_p.h>
#include <zelaccess/LibMaint_p.h>
#include <zelaccess/LibSearch_p.h>
#include <zelaccess/Verify.h>
#include <zelaccess/ZelAccess.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <type_traits>

namespace {

namespace fs = std::filesystem;

constexpr char const* kNull = nullptr;

static_assert(std::is_same_v<zel::ZelStatus, std::uint32_t>);
static_assert(std::is_same_v<decltype(zel::kStatusFailed), zel::ZelStatus const>);

TEST(Status, IsItsWordInAWiderIntegerToo) {
  zel::Handle<zel::IZelBankDef> const bank(zel::NewBank("NRTL"));
  std::int32_t words = 0;
  long const wide = bank->GetRecordLength(1000, &words);
  EXPECT_EQ(wide, 0x80004005L);
  EXPECT_TRUE(wide == zel::kStatusFailed);
}

// -1e35 and everything below it, since the float nearest -1e35 can be read as a smaller number.
static_assert(zel::gen_IsUndefDouble(-1e35) && zel::gen_IsUndefDouble(-2e35));
static_assert(zel::gen_IsUndefDouble(zel::gen_GetUndefDouble()));
static_assert(!zel::gen_IsUndefDouble(-9.999999e34) && !zel::gen_IsUndefDouble(1e35));
static_assert(!zel::gen_IsUndefDouble(0.0));
static_assert(zel::gen_GetUndefInt() == -2147483647 - 1 && zel::gen_GetUndefLong() == -2147483648L);
static_assert(zel::gen_IsUndefInt(zel::gen_GetUndefInt()) && !zel::gen_IsUndefInt(-2147483647));

TEST(Undefined, EndsBetweenTwoNeighbouringDoubles) {
  EXPECT_FALSE(zel::gen_IsUndefDouble(std::nextafter(-1e35, 0.0)));
  EXPECT_TRUE(zel::gen_IsUndefDouble(std::nextafter(-1e35, -INFINITY)));
  EXPECT_TRUE(zel::gen_IsUndefDouble(-INFINITY));
  EXPECT_FALSE(zel::gen_IsUndefDouble(NAN));
}

class BorderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() /
              ("zel_border_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    library_.reset(zel::LibFile::NewLibFile(zel::libKind11, Path("a.lb1").c_str(), error_));
    ASSERT_NE(library_, nullptr);
    maint_.reset(zel::LibMaint::NewLibMaint(library_.get()));
    key_->SetKey(1L, 2L);
  }
  void TearDown() override {
    maint_.reset();
    library_.reset();
    fs::remove_all(folder_);
  }

  std::string Path(char const* name) const { return (folder_ / name).string(); }
  void SetAij(double aij) { bank_->SetDoubleField("aij", &aij); }
  double Aij() {
    double aij = 0.0;
    bank_->GetDoubleField("aij", &aij);
    return aij;
  }

  fs::path folder_;
  zel::openErrors error_{};
  zel::Handle<zel::LibFile> library_;
  zel::Handle<zel::LibMaint> maint_;
  zel::Handle<zel::IZelBankDef> const bank_{zel::NewBank("VANLAAR")};
  zel::Handle<zel::Key> const key_{zel::Key::NewKey()};
};

// --- null texts ----------------------------------------------------------------------------------

TEST_F(BorderTest, NullKeyTextIsTheEmptyId) {
  auto* const inner = dynamic_cast<zel::Key_p*>(key_.get());
  ASSERT_NE(inner, nullptr);
  key_->SetKey(kNull);
  EXPECT_EQ(inner->GetCompCount(), 1);
  EXPECT_EQ(inner->GetCompKind(0), zel::keyText);
  key_->SetKey("A", kNull, 3L);
  EXPECT_EQ(inner->GetCompKind(1), zel::keyText);
  char text[9] = "x";
  inner->GetCompText(1, text);
  EXPECT_STREQ(text, "");
  zel::casn cas("64-17-5");
  cas = kNull;
  EXPECT_EQ(static_cast<long>(cas), 0);
}

TEST_F(BorderTest, NullPathsAndNamesOpenNothing) {
  EXPECT_EQ(zel::LibFile::NewLibFile(zel::libKind11, nullptr, nullptr, error_), nullptr);
  EXPECT_EQ(error_, zel::openNotLibrary);
  zel::libTypes type{};
  for (char const* path : {kNull, ""}) {
    EXPECT_EQ(zel::LibFile::OpenLibFile(zel::accRead, path, nullptr, nullptr, error_), nullptr);
    EXPECT_EQ(error_, zel::openNotFound);
    error_ = zel::openOk;
    zel::LibFile::StatusLibFile(path, type, error_);
    EXPECT_EQ(error_, zel::openNotFound);
  }
  maint_.reset();
  library_.reset();
  library_.reset(
      zel::LibFile::OpenLibFile(zel::accRead, Path("a.lb1").c_str(), nullptr, nullptr, error_));
  ASSERT_NE(library_, nullptr) << "without a password";
  EXPECT_STREQ(library_->GetLibName(), "");
}

// A bank may have an empty name, and a null pointer means the empty name.
TEST_F(BorderTest, NullBankNameIsTheEmptyName) {
  EXPECT_FALSE(maint_->BankExists("VANLAAR", nullptr));
  ASSERT_TRUE(maint_->CreateBank("VANLAAR", nullptr, 0));
  EXPECT_TRUE(maint_->BankExists("VANLAAR", ""));
  EXPECT_FALSE(maint_->CreateBank("VANLAAR", "", 0)) << "is there";
  maint_->SetBankMemo("VANLAAR", nullptr, "memo");
  char memo[4000];
  maint_->GetBankMemo("VANLAAR", "", memo);
  EXPECT_STREQ(memo, "memo");
  maint_->SetBankMemo("VANLAAR", "", nullptr);
  maint_->GetBankMemo("VANLAAR", nullptr, memo);
  EXPECT_STREQ(memo, "");
  SetAij(1.5);
  EXPECT_TRUE(maint_->WriteItem(bank_.get(), nullptr, key_.get()));
  SetAij(0.0);
  EXPECT_TRUE(maint_->ItemExists(bank_.get(), nullptr, key_.get()));
  EXPECT_TRUE(maint_->ReadItem(bank_.get(), "", key_.get()));
  EXPECT_EQ(Aij(), 1.5);
  EXPECT_TRUE(maint_->BeginItemWalk("VANLAAR", nullptr));
  EXPECT_TRUE(maint_->DeleteItem("VANLAAR", nullptr, key_.get()));
  EXPECT_FALSE(maint_->ItemExists(bank_.get(), "", key_.get()));
  EXPECT_TRUE(maint_->DeleteBank("VANLAAR", nullptr));
  EXPECT_FALSE(maint_->BankExists("VANLAAR", ""));
}

TEST_F(BorderTest, NullTypeIsNoType) {
  char list[1][9] = {"as is"};
  EXPECT_EQ(zel::NewBank(nullptr), nullptr);
  EXPECT_EQ(zel::GetRefBankTypeCount(nullptr), 0);
  zel::GetRefBankTypeList(nullptr, 1, list);
  EXPECT_STREQ(list[0], "as is");
  EXPECT_FALSE(maint_->CreateBank(nullptr, "A", 0));
  EXPECT_FALSE(maint_->BankExists(nullptr, nullptr));
  EXPECT_EQ(maint_->GetBankFormat(nullptr, nullptr), 0);
  EXPECT_FALSE(maint_->DeleteItem(nullptr, nullptr, key_.get()));
  EXPECT_FALSE(maint_->BeginItemWalk(nullptr, nullptr));
  EXPECT_FALSE(maint_->Import(nullptr, false));
  EXPECT_FALSE(maint_->ImportComponent(nullptr, nullptr, false));
  EXPECT_EQ(maint_->FindNumberById(nullptr), 0);
}

TEST_F(BorderTest, NullFieldsAndTextsOfBanks) {
  char text[260] = "x";
  EXPECT_EQ(bank_->GetStringField(nullptr, text), zel::kStatusFailed);
  EXPECT_STREQ(text, "");
  EXPECT_EQ(bank_->SetStringField(nullptr, nullptr), zel::kStatusFailed);
  zel::Handle<zel::IZelBankDef> const group(zel::NewBank("GRPDESC"));
  ASSERT_EQ(group->SetStringField("image", "T3"), zel::kStatusOk);
  EXPECT_EQ(group->SetStringField("image", nullptr), zel::kStatusOk);
  EXPECT_EQ(group->GetStringField("image", text), zel::kStatusOk);
  EXPECT_STREQ(text, "");
  zel::BankFace<zel::IZelOrwMap> map("ORWMAP", zel::IID_IZelOrwMap);
  map->PutData("name");
  map->PutData(nullptr);
  map->GetData(text);
  EXPECT_STREQ(text, "");
  zel::Handle<zel::IZelBankDef> const set(zel::NewBank("PSRK"));
  ASSERT_EQ(set->SetRefBankName("PURECOMP", "MINE"), zel::kStatusOk);
  EXPECT_EQ(set->SetRefBankName(nullptr, "OTHER"), set->SetRefBankName("", "OTHER"));
  set->GetRefBankName("PURECOMP", text);
  EXPECT_STREQ(text, "MINE");
  EXPECT_EQ(set->SetRefBankName("PURECOMP", nullptr), zel::kStatusOk);
  set->GetRefBankName("PURECOMP", text);
  EXPECT_STREQ(text, "");
  zel::BankFace<zel::IZelPureComp> component("PURECOMP", zel::IID_IZelPureComp);
  component->SetSmiles("CCO");
  component->SetSmiles(nullptr);
  EXPECT_EQ(component->GetSmiles(text), zel::kStatusNothingNew);
  char ids[12][9] = {"A"};
  component->SetIdentity(1, 0, 0, ids, "name", "CH4", 1);
  component->SetIdentity(1, 0, 0, ids, nullptr, nullptr, 1);
  std::int32_t number, cas, refCode;
  char formula[21];
  std::uint8_t keep;
  component->GetIdentity(&number, &cas, &refCode, ids, text, formula, &keep);
  EXPECT_STREQ(text, "");
  EXPECT_STREQ(formula, "");
}

// The rows of a list that is made with `text` for every text that may be missing.
std::string RowsWith(char const* text) {
  zel::Handle<zel::CompList> const list(zel::CompList::NewCompList());
  auto* const builder = dynamic_cast<zel::CompListBuild_p*>(list->GetBuilder());
  if (builder == nullptr) return "no builder";
  builder->AddRecord(text, text, text, zel::casn("64-17-5"), 300.0, 46.0);
  builder->AddId(text);
  builder->AddFormula(text);
  builder->SortRecords();
  std::string rows;
  for (std::int32_t i = 0; i < builder->CountOrders(); ++i) {
    char row[1000];
    builder->FormatRecord(i, row);
    rows.append(row).append("\n");
  }
  return rows;
}

TEST_F(BorderTest, NullTextsOfListsAreEmptyTexts) {
  EXPECT_GT(RowsWith("").size(), 10U);
  EXPECT_EQ(RowsWith(nullptr), RowsWith(""));
  zel::Handle<zel::CompList> const list(zel::CompList::NewCompList());
  EXPECT_FALSE(list->ReadList(nullptr));
  EXPECT_TRUE(list->GetBuilder()->BuildList(library_.get(), nullptr, nullptr)) << "an empty list";
}

// --- the wider layers ----------------------------------------------------------------------------

TEST_F(BorderTest, EveryHandleLeadsToItsWiderLayer) {
  auto* const file = dynamic_cast<zel::LibFile_p*>(library_.get());
  ASSERT_NE(file, nullptr);
  EXPECT_FALSE(file->HasBank("VANLAAR", "A"));
  zel::Handle<zel::LibSearch> const search(zel::LibSearch::NewLibSearch());
  EXPECT_NE(dynamic_cast<zel::LibSearch_p*>(search.get()), nullptr);
  auto* const maint = dynamic_cast<zel::LibMaint_p*>(maint_.get());
  ASSERT_NE(maint, nullptr);
  // The log is silent until the host turns it on, which happens only here.
  for (std::int32_t level : {0, 1}) {
    if (level != 0) maint->SetLogLevel(level);
    ::testing::internal::CaptureStdout();
    EXPECT_FALSE(maint_->Import(Path("none.xml").c_str(), false));
    std::fflush(stdout);
    EXPECT_EQ(::testing::internal::GetCapturedStdout().empty(), level == 0) << level;
  }
}

// --- handles that the host has made --------------------------------------------------------------

// A key of the host's own, which the library cannot use.
class OwnKey : public zel::Key {
 public:
  OwnKey() = default;

#define OWN_KEY_LAST(a, b)                        \
  void SetKey(a, b, zel::casn const&) override {} \
  void SetKey(a, b, char const*) override {}      \
  void SetKey(a, b, long) override {}
#define OWN_KEY(a)                             \
  OWN_KEY_LAST(a, zel::casn const&)            \
  OWN_KEY_LAST(a, char const*)                 \
  OWN_KEY_LAST(a, long)                        \
  void SetKey(a, zel::casn const&) override {} \
  void SetKey(a, char const*) override {}      \
  void SetKey(a, long) override {}             \
  void SetKey(a) override {}
  OWN_KEY(zel::casn const&)
  OWN_KEY(char const*)
  OWN_KEY(long)
#undef OWN_KEY
#undef OWN_KEY_LAST
  void ClearKey() override {}
  void SetKeyWords(long, std::int32_t const*) override {}
  void SetKeyText(long, char const*) override {}
};

// A library of the host's own.
class OwnLibrary : public zel::LibFile {
 public:
  OwnLibrary() = default;

  void FlushLibFile() override {}
  void CloseLibFile() override {}
  zel::openErrors ReopenLibFile() override { return zel::openOk; }
  char const* GetLibName() const override { return "own"; }
  char const* GetLibPath() const override { return "/own.lb1"; }
  void GetLibInfo(zel::libTypes& type, zel::accModes& mode) const override {
    type = zel::libKind11;
    mode = zel::accUpdate;
  }
  void GetDescriptionAndVersion(char* description, char* version) const override {
    *description = *version = '\0';
  }
  void SetDescriptionAndVersion(char const*, char const*) override {}
  void GetReservedWords(std::int32_t& a, std::int32_t& b) const override { a = b = 0; }
  void SetReservedWords(std::int32_t, std::int32_t) override {}
  void GetMemo(char* memo) const override { *memo = '\0'; }
  void SetMemo(char const*) override {}
  void GetPassword(std::int32_t& level, char* password) const override {
    level = 0;
    *password = '\0';
  }
  void SetPassword(std::int32_t, char const*) override {}
  bool IsPasswordLocked() const override { return false; }
};

TEST_F(BorderTest, KeyOfTheHostsOwnNamesNoItem) {
  OwnKey own;
  OwnKey const copy(own);  // handles may be copied; the object is not
  own = copy;
  ASSERT_TRUE(maint_->CreateBank("VANLAAR", "A", 0));
  SetAij(1.5);
  ASSERT_TRUE(maint_->WriteItem(bank_.get(), "A", key_.get()));
  EXPECT_FALSE(maint_->ItemExists(bank_.get(), "A", &own));
  EXPECT_FALSE(maint_->WriteItem(bank_.get(), "A", &own));
  EXPECT_FALSE(maint_->DeleteItem("VANLAAR", "A", &own));
  EXPECT_FALSE(maint_->ReadItem(bank_.get(), "A", &own));
  zel::Handle<zel::LibSearch> const search(zel::LibSearch::NewLibSearch());
  zel::LibFile* const libraries[] = {library_.get()};
  char const names[1][9] = {"A"};
  search->SetLibraryBanks(1, libraries, names);
  EXPECT_FALSE(search->Search(&own, bank_.get(), false));
  EXPECT_TRUE(search->Search(key_.get(), bank_.get(), false));
  EXPECT_TRUE(maint_->ReadItem(bank_.get(), "A", key_.get())) << "nothing has changed";
  EXPECT_EQ(Aij(), 1.5);
}

struct NoFindings : zel::ZelFindingSink {
  void Found(zel::zelFindings, char const*, char const*, char const*) override { ++count; }
  int count = 0;
};

TEST_F(BorderTest, LibraryOfTheHostsOwnHoldsNothing) {
  OwnLibrary own;
  zel::Handle<zel::LibMaint> const maint(zel::LibMaint::NewLibMaint(&own));
  EXPECT_FALSE(maint->CreateBank("VANLAAR", "A", 0));
  EXPECT_FALSE(maint->BankExists("VANLAAR", "A"));
  EXPECT_FALSE(maint->WriteItem(bank_.get(), "A", key_.get()));
  EXPECT_FALSE(maint->ReadItem(bank_.get(), "A", key_.get()));
  EXPECT_FALSE(maint->Import(Path("none.xml").c_str(), false));
  EXPECT_FALSE(maint->ExportLibrary(Path("out.xml").c_str()));
  EXPECT_EQ(maint->FindNumberById("A"), 0);

  ASSERT_TRUE(maint_->CreateBank("VANLAAR", "A", 0));
  ASSERT_TRUE(maint_->WriteItem(bank_.get(), "A", key_.get()));
  zel::Handle<zel::LibSearch> const search(zel::LibSearch::NewLibSearch());
  zel::LibFile* const libraries[] = {&own, library_.get()};
  char const names[2][9] = {"A", "A"};
  search->SetLibraryBanks(2, libraries, names);
  EXPECT_TRUE(search->Search(key_.get(), bank_.get(), false)) << "is passed over";

  // As the name index it knows no component.
  zel::LibFile::SetOrdwinNameIndex(&own);
  bool fromIndex = true;
  EXPECT_EQ(maint_->FindNumberById("A", fromIndex), 0);
  EXPECT_FALSE(fromIndex);
  key_->SetKey("A", 2L);
  EXPECT_FALSE(maint_->ReadItem(bank_.get(), "A", key_.get()));
  zel::LibFile::ClearOrdwinNameIndex();

  zel::Handle<zel::CompList> const list(zel::CompList::NewCompList());
  EXPECT_TRUE(list->GetBuilder()->BuildList(&own, "A", nullptr)) << "an empty list";
  NoFindings findings;
  EXPECT_FALSE(zel::VerifyLibrary(&own, findings));
  EXPECT_EQ(findings.count, 1) << "that it is no library";
}

}  // namespace
