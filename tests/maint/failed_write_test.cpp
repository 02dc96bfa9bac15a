// Maintenance whose n-th file operation fails: afterwards the library shows what is on file, and
// nothing that failed remains in a buffer.
#include <functional>
#include <map>
#include <optional>

#include "tests/maint/maint_fixture.h"
#include "tests/support/failing_file_system.h"

namespace zel {
namespace {

using Shown = std::map<std::string, std::string>;

class FailedWriteTest : public ::testing::Test {
 protected:
  FailedWriteTest() {
    Open(accUpdate);
    for (char const* name : {"A", "B"}) EXPECT_TRUE(maint_->CreateBank("VANLAAR", name, 0));
    maint_->SetBankMemo("VANLAAR", "A", "memo of A");
    for (long i = 1; i <= 3; ++i) Write("A", i, 1.0);
    library_->FlushLibFile();
  }

  void Open(accModes mode) {
    maint_.reset();
    library_.reset();
    library_.emplace(failing_, mode, "/l.lb1", "l");
    bool const there = files_.Exists("/l.lb1");
    ASSERT_EQ(there ? library_->OpenExisting({true, ""}, nullptr) : library_->CreateNew(libKind11),
              openOk);
    maint_.emplace(&*library_);
  }

  bool Write(char const* name, long number, double aij) {
    bank_->SetDoubleField("aij", &aij);
    key_.SetKey(number, number + 1);
    return maint_->WriteItem(bank_.Get(), name, &key_);
  }

  // Banks with their memos and items. A bank whose entry was not written completely has no tree.
  static Shown Show(LibMaint_i& maint) {
    Shown shown;
    std::vector<std::string> banks;
    char type[9];
    char name[9];
    maint.BeginBankWalk();
    while (maint.NextBank(type, name)) banks.emplace_back(name);
    for (std::string const& one : banks) {
      char memo[4000];
      maint.GetBankMemo("VANLAAR", one.c_str(), memo);
      try {
        shown[one] = std::string(memo) + ":" + Items(maint, one.c_str());
      } catch (unsigned long) {
        shown[one] = "no tree";
      }
    }
    return shown;
  }
  static std::string Items(LibMaint_i& maint, char const* name) {
    FaceRef<IZelBankDef> const bank(NewBank("VANLAAR"));
    std::string items;
    std::int32_t words[10] = {};
    maint.BeginItemWalk("VANLAAR", name);
    while (maint.NextItem(words, bank.Get())) {
      double aij = 0.0;
      bank->GetDoubleField("aij", &aij);
      items += " " + std::to_string(words[0]) + "=" + std::to_string(aij);
    }
    return items;
  }

  // What a program sees that opens the files as they are now.
  Shown OnFile() {
    test::MemoryFileSystem copy;
    for (char const* path : {"/l.lb1", "/l.lb2"}) copy.Contents(path) = files_.Contents(path);
    LibFile_i library(copy, accRead, "/l.lb1", "l");
    EXPECT_EQ(library.OpenExisting({true, ""}, nullptr), openOk);
    LibMaint_i maint(&library);
    return Show(maint);
  }

  // Runs an operation on the initial library, with each of its file operations failing in turn.
  void FailEverywhere(std::function<void()> const& operation) {
    Shown const before = Show(*maint_);
    ASSERT_EQ(OnFile(), before);
    maint_.reset();
    library_.reset();
    auto const first = files_.Contents("/l.lb1");
    auto const second = files_.Contents("/l.lb2");
    int last = 0;
    for (int n = 1; last == 0; ++n) {
      SCOPED_TRACE("operation " + std::to_string(n));
      ASSERT_LT(n, 100);
      files_.Contents("/l.lb1") = first;
      files_.Contents("/l.lb2") = second;
      Open(accUpdate);
      ASSERT_EQ(Show(*maint_), before) << "all that is needed has been read";
      failing_.FailAt(n, true);
      bool failed = false;
      try {
        operation();
      } catch (unsigned long) {
        failed = true;
      }
      if (failing_.Operations() < n) last = n;
      failing_.FailAt(0, false);
      EXPECT_EQ(failed, last == 0);
      Shown const after = Show(*maint_);
      EXPECT_EQ(after, OnFile());
      if (n == 1) {
        EXPECT_EQ(after, before);
      }
      if (last != 0) {
        EXPECT_NE(after, before);
      }
      maint_.reset();
      library_.reset();
    }
    EXPECT_GT(last, 1) << "nothing was written";
  }

  test::MemoryFileSystem files_;
  test::FailingFileSystem failing_{files_};
  std::optional<LibFile_i> library_;
  std::optional<LibMaint_i> maint_;
  FaceRef<IZelBankDef> bank_{NewBank("VANLAAR")};
  Key_i key_;
};

TEST_F(FailedWriteTest, OfANewBank) {
  FailEverywhere([&] { maint_->CreateBank("VANLAAR", "C", 0); });
}

TEST_F(FailedWriteTest, OfABankToBeDeleted) {
  FailEverywhere([&] { maint_->DeleteBank("VANLAAR", "A"); });
}

TEST_F(FailedWriteTest, OfAMemoThatIsChanged) {
  FailEverywhere([&] { maint_->SetBankMemo("VANLAAR", "A", "another"); });
}

TEST_F(FailedWriteTest, OfANewMemo) {
  FailEverywhere([&] { maint_->SetBankMemo("VANLAAR", "B", "its first"); });
}

TEST_F(FailedWriteTest, OfANewItem) {
  FailEverywhere([&] { Write("A", 9, 5.0); });
}

TEST_F(FailedWriteTest, OfTheFirstItemOfABank) {
  FailEverywhere([&] { Write("B", 9, 5.0); });
}

TEST_F(FailedWriteTest, OfAnItemThatIsThere) {
  FailEverywhere([&] { Write("A", 2, 5.0); });
}

TEST_F(FailedWriteTest, OfAnItemToBeDeleted) {
  FailEverywhere([&] {
    key_.SetKey(2L, 3L);
    maint_->DeleteItem("VANLAAR", "A", &key_);
  });
}

}  // namespace
}  // namespace zel
