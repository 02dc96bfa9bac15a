// The end of a library: closes and destructors that fail, what is closed, and the next object at
// the same address.
#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "tests/store/lib_file_fixture.h"
#include "tests/support/failing_file_system.h"

namespace zel {
namespace {

using test::FailingFileSystem;

class LibFileLifeTest : public test::LibFileTest {
 protected:
  LibFileLifeTest() { MakeLibrary(); }
  std::unique_ptr<LibFile_i> OpenOn(platform::FileSystem& system, accModes mode) {
    auto library = std::make_unique<LibFile_i>(system, mode, "/lib.lb1", "l");
    EXPECT_EQ(library->OpenExisting({true, ""}, nullptr), openOk);
    return library;
  }
};

TEST_F(LibFileLifeTest, CloseThatFailsThrowsAndLetsTheFilesGo) {
  FailingFileSystem failing(files_);
  auto library = OpenOn(failing, accUpdate);
  LibFile::SetOrdwinNameIndex(library.get());
  ASSERT_EQ(OpenAs(accRead), openDenied);
  failing.FailAt(1, true);
  EXPECT_EQ(Thrown([&] { library->CloseLibFile(); }), 111000003UL);
  EXPECT_EQ(OpenAs(accUpdate), openOk) << "nothing is held";
  EXPECT_EQ(library->GetBankTree(), nullptr);
  EXPECT_EQ(LibFile::GetOrdwinNameIndex(), nullptr);
  EXPECT_NO_THROW(library->CloseLibFile()) << "it is closed";
  failing.FailAt(0, false);
  EXPECT_EQ(library->ReopenLibFile(), openOk);
  EXPECT_EQ(LibFile::GetOrdwinNameIndex(), library.get());
}

// Each operation of the last flush may be the one that fails.
TEST_F(LibFileLifeTest, DestructorKeepsAFailureToItself) {
  for (int n = 1; n <= 5; ++n) {
    FailingFileSystem failing(files_);
    auto library = OpenOn(failing, accUpdate);
    LibFile::SetOrdwinNameIndex(library.get());
    failing.FailAt(n, false);
    EXPECT_NO_THROW(library.reset());
    EXPECT_GE(failing.Operations(), n) << "the failure was met";
    EXPECT_EQ(LibFile::GetOrdwinNameIndex(), nullptr);
    EXPECT_EQ(OpenAs(accUpdate), openOk) << "nothing is held";
  }
}

TEST_F(LibFileLifeTest, FlushOfAReaderOrAClosedLibraryTouchesNothing) {
  FailingFileSystem counter(files_);
  for (accModes mode : {accRead, accUpdate}) {
    auto library = OpenOn(counter, mode);
    if (mode == accUpdate) library->CloseLibFile();
    int const before = counter.Operations();
    library->FlushLibFile();
    EXPECT_EQ(counter.Operations(), before) << mode;
  }
}

TEST_F(LibFileLifeTest, SystemThatFailsOtherwiseIsAFailedOpen) {
  FailingFileSystem failing(files_);
  for (accModes mode : {accRead, accUpdate}) {
    for (int n : {1, 3}) {  // the opens of the two files; the read of the header is in between
      LibFile_i library(failing, mode, "/lib.lb1", "l");
      failing.FailAt(n, false);
      EXPECT_EQ(library.OpenExisting({true, ""}, nullptr), openFailed) << n;
    }
  }
  LibFile_i library(failing, accUpdate, "/new.lb1", "l");
  failing.FailAt(1, false);
  EXPECT_EQ(library.CreateNew(libKind11), openFailed);
}

// A library that was the name index when it was closed, and was then destroyed, leaves no claim to
// the next object at its address.
TEST_F(LibFileLifeTest, NextObjectInThePlaceOfAnEndedNameIndexIsNone) {
  for (bool closedFirst : {true, false}) {
    std::optional<LibFile_i> library;
    library.emplace(files_, accRead, "/lib.lb1", "l");
    ASSERT_EQ(library->OpenExisting({true, ""}, nullptr), openOk);
    LibFile const* const place = &*library;
    LibFile::SetOrdwinNameIndex(&*library);
    if (closedFirst) library->CloseLibFile();
    library.emplace(files_, accRead, "/lib.lb1", "l");
    ASSERT_EQ(&*library, place);
    EXPECT_EQ(LibFile::GetOrdwinNameIndex(), nullptr);
    EXPECT_EQ(library->ReopenLibFile(), openOk);
    EXPECT_EQ(LibFile::GetOrdwinNameIndex(), nullptr) << closedFirst;
  }
}

}  // namespace
}  // namespace zel
