// The progress of imports and exports, and what a cancelled one leaves.
#include <algorithm>
#include <fstream>
#include <sstream>

#include "frame/platform/block_file.h"
#include "tests/support/failing_file_system.h"
#include "tests/xml/import_fixture.h"
#include "zelaccess/Progress.h"

namespace zel {
namespace {

// Records the shares, and cancels at one of the calls.
struct Follower final : ZelProgress {
  bool OnProgress(double share) noexcept override {
    shares.push_back(share);
    return shares.size() != cancelAt;
  }
  std::vector<double> shares;
  std::size_t cancelAt = 0;  // counted from 1
};

std::string Component(int number) {
  std::string const id = "C" + std::to_string(number);
  std::ostringstream text;
  text << "<comp><id number='" << 21'000'000 + number << "' name='" << id << "' formula='C"
       << number % 20 + 1 << "H4'> " << id << " </id>";
  for (char const* name : {"TC", "NBP"}) {
    text << "<property name='" << name << "' value='" << 100 + number << "' refCode='9'/>";
  }
  text << "</comp>\n";
  return text.str();
}

class ProgressTest : public test::ImportTest {
 protected:
  using Bytes = test::MemoryFileSystem::Bytes;

  // A bank of pairs in a document of more than 64 KB.
  static std::string Pairs(char const* name, int items) {
    std::ostringstream text;
    text << "<bank type='NRTL' name='" << name << "'>\n";
    for (int i = 0; i < items; ++i) {
      int const pair = i * 7919 % items;
      text << "<item><keys>" << 10'000'000 + pair / 40 << ' ' << 20'000'000 + pair % 40
           << "</keys><aij>" << pair % 1000 << "</aij></item>\n";
    }
    text << "</bank>\n";
    return text.str();
  }
  // A library document that imports banks, one of which imports components from files of their own.
  void MakeDocuments() {
    MakeFile("pairs.xml", Pairs("NEW", 4000));
    std::string bank = "<bank type='PURECOMP' name='COMPS'>";
    for (int i = 100; i < 140; ++i) {
      std::string const name = "comp" + std::to_string(i) + ".xml";
      MakeFile(name, Component(i));
      bank += "<import file='" + name + "'/>";
    }
    MakeFile("comps.xml", bank + "</bank>");
    MakeFile("all.xml",
             "<library><description>new</description><memo><![CDATA[ new memo]]></memo>"
             "<import file='comps.xml'/><import file='pairs.xml'/></library>");
  }
  // What the library has before the import: a bank, components and texts.
  void FillLibrary() {
    std::string comps;
    for (int i = 0; i < 60; ++i) comps += Component(i);
    ASSERT_TRUE(
        Import("<library><description>old</description><memo><![CDATA[ old memo]]></memo>"
               "<bank type='PURECOMP' name='OLD'>" +
               comps + "</bank></library>"))
        << Lines();
    ASSERT_TRUE(Import(Pairs("OLDPAIRS", 500)));
  }
  void Reopen() {
    maint_.reset();
    library_ = std::make_unique<LibFile_i>(files_, accUpdate, "/i.lb1", "Mine");
    ASSERT_EQ(library_->OpenExisting({true, ""}, nullptr), openOk);
    maint_ = std::make_unique<LibMaint_i>(library_.get());
    maint_->SetLogLevel(1);
  }
  std::pair<Bytes, Bytes> Closed() {
    library_->CloseLibFile();
    return {files_.Contents("/i.lb1"), files_.Contents("/i.lb2")};
  }
  bool ImportWith(Follower& follower, char const* document) {
    SetProgress(library_.get(), &follower);
    Documents().Clear();
    bool const good = ImportFile(document);
    SetProgress(library_.get(), nullptr);
    return good;
  }
};

TEST_F(ProgressTest, SharesOfAnImportRiseFromZeroToOne) {
  MakeDocuments();
  Follower follower;
  ASSERT_TRUE(ImportWith(follower, "all.xml")) << Lines();
  std::vector<double> const& shares = follower.shares;
  ASSERT_GE(shares.size(), 50U) << "one per component and per 64 KB";
  EXPECT_EQ(shares.front(), 0.0);
  EXPECT_EQ(shares.back(), 1.0);
  EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
  // The documents that are imported count from the start: no share is far from the next.
  for (std::size_t i = 1; i < shares.size(); ++i) {
    EXPECT_LT(shares[i] - shares[i - 1], 0.35) << i;
  }
  ZelImportCounts counts;
  Maint().GetImportCounts(counts);
  EXPECT_EQ(counts.itemsStored, 4000);
  EXPECT_EQ(counts.componentsStored, 40);
}

// A document is searched for imports in pieces of 64 KB: its size counts wherever its tag is.
TEST_F(ProgressTest, ImportTagAcrossTwoPiecesCounts) {
  constexpr std::size_t kPiece = 1 << 16;
  std::string const start = "<library><!--";
  auto const sharesOf = [&](char const* bank, std::size_t at) {
    std::string const file = std::string(bank) + ".xml";
    MakeFile(file, Pairs(bank, 400));
    std::string const tag = "--><import file='" + file + "'/><!--";
    MakeFile("all.xml", start + std::string(at - start.size() - 3, 'x') + tag +
                            std::string(kPiece + 500 - at, 'x') + "--></library>");
    Follower follower;
    EXPECT_TRUE(ImportWith(follower, "all.xml")) << Lines();
    return follower.shares;
  };
  std::vector<double> const whole = sharesOf("BANK0", kPiece + 100);
  ASSERT_GE(whole.size(), 4U);
  EXPECT_EQ(sharesOf("BANK1", kPiece - 1), whole)
      << "of the tag, one character is in the first piece";
  EXPECT_EQ(sharesOf("BANK2", kPiece - 7), whole);
  EXPECT_EQ(sharesOf("BANK3", kPiece - 20), whole);
}

// At every call, after the first pass and in the middle of what is written.
TEST_F(ProgressTest, CancelledImportLeavesTheLibraryByteForByte) {
  FillLibrary();
  MakeDocuments();
  Closed();
  Reopen();
  library_->SetDescriptionAndVersion("not on file yet", "1");
  auto const before = Closed();
  for (std::size_t call = 1;; ++call) {
    files_.Contents("/i.lb1") = before.first;
    files_.Contents("/i.lb2") = before.second;
    Reopen();
    Follower follower;
    follower.cancelAt = call;
    bool const good = ImportWith(follower, "all.xml");
    if (follower.shares.size() < call) break;
    if (follower.shares.back() == 1.0) {
      EXPECT_TRUE(good) << "at the end it is too late";
      continue;
    }
    ASSERT_FALSE(good) << call;
    EXPECT_EQ(follower.shares.size(), call) << "nothing more is reported";
    EXPECT_STREQ(Maint().GetLastErrorText(), "Import was cancelled");
    EXPECT_NE(Lines().find("error : Import was cancelled\n"), std::string::npos) << Lines();
    ZelImportCounts counts;
    Maint().GetImportCounts(counts);
    EXPECT_EQ(counts.itemsStored + counts.componentsStored, 0);
    EXPECT_EQ(counts.errors, 1);
    EXPECT_FALSE(Maint().BankExists("NRTL", "NEW"));
    EXPECT_EQ(Maint().FindNumberById("C100"), 0);
    EXPECT_EQ(Maint().FindNumberById("C5"), 21'000'005);
    char memo[4000];
    library_->GetMemo(memo);
    EXPECT_STREQ(memo, "old memo");
    ASSERT_EQ(Closed(), before) << call;
  }
}

TEST_F(ProgressTest, CancelledImportOfANewLibraryRemovesTheSecondFile) {
  MakeDocuments();
  auto const second = [&] { return files_.Exists("/i.lb2"); };
  ASSERT_FALSE(second());
  Follower follower;
  follower.cancelAt = 30;
  ASSERT_FALSE(ImportWith(follower, "all.xml"));
  EXPECT_FALSE(second());
  library_->CloseLibFile();
  Bytes const cancelled = files_.Contents("/i.lb1");
  LibFile_i plain(files_, accUpdate, "/j.lb1", "Mine");
  ASSERT_EQ(plain.CreateNew(libKind11), openOk);
  plain.CloseLibFile();
  EXPECT_EQ(cancelled, files_.Contents("/j.lb1"));
}

// The same, through the system's files.
TEST_F(ProgressTest, FilesOnDiskAreAsBefore) {
  MakeDocuments();
  std::string const path = Path("disk.lb1");
  auto const bytes = [&](char last) {
    std::string name = path;
    name.back() = last;
    std::ifstream file(name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  };
  {
    LibFile_i library(platform::SystemFileSystem(), accUpdate, path.c_str(), "d");
    ASSERT_EQ(library.CreateNew(libKind11), openOk);
    LibMaint_i maint(&library);
    MakeFile("old.xml", Pairs("OLD", 3000));
    ASSERT_TRUE(maint.Import(Path("old.xml").c_str(), false));
  }
  std::string const first = bytes('1');
  std::string const second = bytes('2');
  {
    LibFile_i library(platform::SystemFileSystem(), accUpdate, path.c_str(), "d");
    ASSERT_EQ(library.OpenExisting({true, ""}, nullptr), openOk);
    LibMaint_i maint(&library);
    Follower follower;
    follower.cancelAt = 48;
    SetProgress(&library, &follower);
    Documents().Clear();
    ASSERT_FALSE(maint.Import(Path("all.xml").c_str(), false));
    EXPECT_GT(follower.shares.back(), 0.3) << "while pairs were written";
    EXPECT_FALSE(maint.BankExists("PURECOMP", "COMPS"));
  }
  EXPECT_EQ(bytes('1'), first);
  EXPECT_EQ(bytes('2'), second);
}

TEST_F(ProgressTest, AfterACancelledImportTheLibraryIsUsedOn) {
  FillLibrary();
  MakeDocuments();
  auto const start = Closed();
  Reopen();
  ASSERT_TRUE(ImportFile("all.xml"));
  auto const imported = Closed();
  files_.Contents("/i.lb1") = start.first;
  files_.Contents("/i.lb2") = start.second;
  Reopen();
  LibMaint_i other(library_.get());  // has a bank located
  std::int32_t words[10] = {};
  ASSERT_TRUE(other.BeginItemWalk("NRTL", "OLDPAIRS"));
  ASSERT_TRUE(other.NextItemKey(words));
  Follower follower;
  follower.cancelAt = 48;
  ASSERT_FALSE(ImportWith(follower, "all.xml"));
  int items = 0;
  ASSERT_TRUE(other.BeginItemWalk("NRTL", "OLDPAIRS"));
  while (other.NextItemKey(words)) ++items;
  EXPECT_EQ(items, 500);
  Documents().Clear();
  ASSERT_TRUE(ImportFile("all.xml")) << Lines();
  EXPECT_EQ(Closed(), imported) << "the same library as without the cancelled import";
}

// A disk that fails: old content that cannot be written back is damage.
TEST_F(ProgressTest, ContentThatCannotBeWrittenBackThrows) {
  MakeDocuments();
  FillLibrary();
  Closed();
  test::FailingFileSystem failing(files_);
  LibFile_i library(failing, accUpdate, "/i.lb1", "Mine");
  ASSERT_EQ(library.OpenExisting({true, ""}, nullptr), openOk);
  LibMaint_i maint(&library);
  struct Breaking final : ZelProgress {
    explicit Breaking(test::FailingFileSystem& system) : files(system) {}
    bool OnProgress(double share) noexcept override {
      if (share < 0.5) return true;
      files.FailAt(1, true);
      return false;
    }
    test::FailingFileSystem& files;
  } breaking(failing);
  SetProgress(&library, &breaking);
  Documents().Clear();
  EXPECT_THROW(maint.Import(Path("all.xml").c_str(), false), unsigned long);
  failing.FailAt(0, false);
}

TEST_F(ProgressTest, WithoutAProgressAFailedImportKeepsWhatItStored) {
  EXPECT_FALSE(
      ImportLibrary("<bank type='NRTL' name='A'><item><keys>1 2</keys></item></bank>"
                    "<bank type='NONE' name='B'/>"));
  EXPECT_TRUE(Maint().BankExists("NRTL", "A"));
  Follower follower;
  SetProgress(library_.get(), &follower);
  EXPECT_FALSE(
      ImportLibrary("<bank type='NRTL' name='C'><item><keys>1 2</keys></item></bank>"
                    "<bank type='NONE' name='B'/>"));
  EXPECT_TRUE(Maint().BankExists("NRTL", "C")) << "and so it does with one that does not cancel";
}

TEST_F(ProgressTest, ExportsAreFollowedAndCancelled) {
  FillLibrary();
  Follower follower;
  SetProgress(library_.get(), &follower);
  std::string const whole = Path("whole.xml");
  ASSERT_TRUE(Maint().ExportLibrary(whole.c_str(), false, false));
  ASSERT_GE(follower.shares.size(), 8U) << "500 pairs";
  EXPECT_EQ(follower.shares.front(), 0.0);
  EXPECT_EQ(follower.shares.back(), 1.0);
  EXPECT_TRUE(std::is_sorted(follower.shares.begin(), follower.shares.end()));
  std::size_t const calls = follower.shares.size();
  for (std::size_t call = 1; call < calls; ++call) {
    Follower canceller;
    canceller.cancelAt = call;
    SetProgress(library_.get(), &canceller);
    bool const done =
        Caught([&] { return Maint().ExportLibrary(Path("part.xml").c_str(), false, false); });
    EXPECT_FALSE(done) << call;
    EXPECT_EQ(canceller.shares.size(), call);
    EXPECT_STREQ(Maint().GetLastErrorText(), "Export was cancelled");
  }
  Follower canceller;
  canceller.cancelAt = 2;
  SetProgress(library_.get(), &canceller);
  EXPECT_FALSE(Caught(
      [&] { return Maint().ExportBank("NRTL", "OLDPAIRS", Path("b.xml").c_str(), false, false); }));
}

}  // namespace
}  // namespace zel
