// The mark of a library that is being changed.
#include <gtest/gtest.h>

#include "tests/store/lib_file_fixture.h"
#include "tests/support/failing_file_system.h"

namespace zel {
namespace {

using test::FailingFileSystem;

class MarkTest : public test::LibFileTest {
 protected:
  MarkTest() { MakeLibrary(); }
  std::unique_ptr<LibFile_i> OpenMarked(platform::FileSystem& system) {
    auto library = std::make_unique<LibFile_i>(system, accUpdate, "/lib.lb1", "l");
    library->Store().SetWriteMode(writesMarked);
    EXPECT_EQ(library->OpenExisting({true, ""}, nullptr), openOk);
    return library;
  }
  bool HasMark() { return files_.Exists("/lib.lb1.open"); }
};

TEST_F(MarkTest, IsThereFromTheFirstWriteToTheClose) {
  auto library = OpenMarked(files_);
  EXPECT_FALSE(HasMark());
  library->SetMemo("changed");
  EXPECT_TRUE(HasMark());
  EXPECT_TRUE(files_.Contents("/lib.lb1.open").empty());
  EXPECT_FALSE(library->Store().LastClose()->isMarked) << "its own";
  library->FlushLibFile();
  EXPECT_TRUE(HasMark());
  library->CloseLibFile();
  EXPECT_FALSE(HasMark());
  library->ReopenLibFile();
  library->FlushLibFile();
  EXPECT_TRUE(HasMark()) << "a flush writes";
  library.reset();
  EXPECT_FALSE(HasMark());
}

TEST_F(MarkTest, PlainWritesHaveNoMark) {
  auto library = Opened(accUpdate);
  library->SetMemo("changed");
  EXPECT_FALSE(HasMark());
}

TEST_F(MarkTest, StaysAfterACloseThatFails) {
  FailingFileSystem failing(files_);
  auto library = OpenMarked(failing);
  library->SetMemo("changed");
  failing.FailAt(1, true);
  EXPECT_THROW(library->CloseLibFile(), unsigned long);
  failing.FailAt(0, false);
  EXPECT_TRUE(HasMark());
  ASSERT_EQ(library->ReopenLibFile(), openOk);
  EXPECT_TRUE(library->Store().LastClose()->isMarked);
  library->CloseLibFile();
  EXPECT_TRUE(HasMark()) << "nobody has verified the library";
}

// The flush at the close succeeds, but the change may be half done.
TEST_F(MarkTest, StaysAfterAChangeThatFailed) {
  std::int32_t const words[24] = {};
  for (bool fails : {false, true}) {
    FailingFileSystem failing(files_);
    auto library = OpenMarked(failing);
    std::int32_t address = format::kNullAddress;
    EXPECT_EQ(library->WriteBlock(address, 24, words, 1), 96);
    if (fails) {
      failing.FailAt(1, true);
      EXPECT_EQ(library->WriteBlock(address, 24, words, 1), -1);
      failing.FailAt(0, false);
    }
    library->CloseLibFile();
    EXPECT_EQ(HasMark(), fails);
  }
}

TEST_F(MarkTest, OfAnEarlierSessionStaysUntilItIsForgotten) {
  files_.Contents("/lib.lb1.open");
  EXPECT_TRUE(Opened(accRead)->Store().LastClose()->isMarked);
  auto library = OpenMarked(files_);
  library->SetMemo("changed");
  EXPECT_TRUE(library->Store().LastClose()->isMarked);
  library->CloseLibFile();
  EXPECT_TRUE(HasMark());
  ASSERT_EQ(library->ReopenLibFile(), openOk);
  EXPECT_TRUE(library->Store().ForgetUncleanClose());
  EXPECT_FALSE(HasMark());
  library->SetMemo("again");
  EXPECT_TRUE(HasMark());
  library->CloseLibFile();
  EXPECT_FALSE(HasMark());
}

// A mark that may not be on disk is not relied on.
TEST_F(MarkTest, WriteFailsUntilTheFolderIsSynced) {
  FailingFileSystem failing(files_);
  auto library = OpenMarked(failing);
  std::int32_t const words[24] = {};
  std::int32_t address = format::kNullAddress;
  auto const before = File1();
  for (int i = 0; i < 2; ++i) {
    failing.FailAt(i == 0 ? 2 : 1, true);  // after the mark was made
    EXPECT_EQ(library->WriteBlock(address, 24, words, 1), -1);
    EXPECT_TRUE(HasMark());
    EXPECT_EQ(File1(), before) << i;
  }
  failing.FailAt(0, false);
  EXPECT_EQ(library->WriteBlock(address, 24, words, 1), 96);
  library->CloseLibFile();
  EXPECT_FALSE(HasMark()) << "it is its own";
}

TEST_F(MarkTest, WriteThatCannotSetItFails) {
  FailingFileSystem failing(files_);
  auto library = OpenMarked(failing);
  failing.FailAt(1, true);
  std::int32_t const words[24] = {};
  std::int32_t address = format::kNullAddress;
  auto const before = File1();
  EXPECT_EQ(library->WriteBlock(address, 24, words, 1), -1);
  EXPECT_EQ(File1(), before);
  failing.FailAt(0, false);
  EXPECT_EQ(library->WriteBlock(address, 24, words, 1), 96);
  EXPECT_TRUE(HasMark());
}

}  // namespace
}  // namespace zel
