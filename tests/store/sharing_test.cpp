// Which opens of a library may coexist, in one process and between two.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "store/lib_file.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

enum class Role { kNone, kReader, kUpdater, kCreator };

LibFile* OpenAs(Role role, std::string const& path, openErrors& error) {
  switch (role) {
    case Role::kNone: error = openOk; return nullptr;
    case Role::kReader: return LibFile::OpenLibFile(accRead, path.c_str(), "", error);
    case Role::kUpdater: return LibFile::OpenLibFile(accUpdate, path.c_str(), "", error);
    case Role::kCreator: return LibFile::NewLibFile(libKind11, path.c_str(), error);
  }
  return nullptr;
}

class SharingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() / ("zel_sharing_" + std::to_string(::getpid()));
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    MakeLibrary();
  }
  void TearDown() override { fs::remove_all(folder_); }

  void MakeLibrary() {
    openErrors error{};
    LibFile* library = LibFile::NewLibFile(libKind11, Path().c_str(), error);
    ASSERT_EQ(error, openOk);
    auto* inner = dynamic_cast<LibFile_i*>(library);
    std::int32_t address = format::kNullAddress;
    std::int32_t const words[1000] = {1};
    inner->WriteBlock(address, 1000, words, 2);  // so that there is a second file
    LibFile::DelLibFile(library);
  }
  std::string Path() const { return (folder_ / "s.lb1").string(); }

  // The result of an open in another process.
  openErrors OpenElsewhere(Role role) {
    pid_t const child = ::fork();
    if (child == 0) {
      openErrors error = openFailed;
      OpenAs(role, Path(), error);
      ::_exit(static_cast<int>(error));
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return static_cast<openErrors>(WEXITSTATUS(status));
  }

  fs::path folder_;
};

TEST_F(SharingTest, EveryHolderAndOpener) {
  constexpr Role kHolders[] = {Role::kNone, Role::kReader, Role::kUpdater, Role::kCreator};
  constexpr Role kOpeners[] = {Role::kReader, Role::kUpdater, Role::kCreator};
  for (Role holder : kHolders) {
    for (Role opener : kOpeners) {
      MakeLibrary();
      openErrors error{};
      LibFile* held = OpenAs(holder, Path(), error);
      ASSERT_EQ(error, openOk);
      bool const together =
          holder == Role::kNone || (holder == Role::kReader && opener == Role::kReader);
      openErrors const expected = together ? openOk : openDenied;
      auto const label = std::to_string(int(holder)) + " against " + std::to_string(int(opener));
      EXPECT_EQ(OpenElsewhere(opener), expected) << label << ", other process";
      LibFile* opened = OpenAs(opener, Path(), error);
      EXPECT_EQ(error, expected) << label << ", same process";
      LibFile::DelLibFile(opened);
      LibFile::DelLibFile(held);
    }
  }
}

TEST_F(SharingTest, RefusedUpdaterLeavesNothingLocked) {
  openErrors error{};
  LibFile* reader = OpenAs(Role::kReader, Path(), error);
  LibFile* updater = OpenAs(Role::kUpdater, Path(), error);
  EXPECT_EQ(updater, nullptr);
  EXPECT_EQ(error, openDenied);
  EXPECT_EQ(OpenElsewhere(Role::kReader), openOk);
  LibFile::DelLibFile(reader);
  EXPECT_EQ(OpenElsewhere(Role::kUpdater), openOk);
}

TEST_F(SharingTest, SecondFileHeldByAnotherRefusesTheUpdate) {
  auto opened =
      platform::SystemFileSystem().Open((folder_ / "s.lb2").string(), platform::OpenMode::kRead);
  ASSERT_EQ(opened.outcome, platform::OpenOutcome::kOk);
  EXPECT_EQ(OpenElsewhere(Role::kUpdater), openDenied);
  EXPECT_EQ(OpenElsewhere(Role::kReader), openOk);
  openErrors error{};
  LibFile* updater = OpenAs(Role::kUpdater, Path(), error);
  EXPECT_EQ(updater, nullptr);
  opened.file.reset();
  EXPECT_EQ(OpenElsewhere(Role::kUpdater), openOk) << "the first file was let go";
}

TEST_F(SharingTest, ReaderChangesNoByteSizeOrTime) {
  auto const state = [&](char const* name) {
    std::string const path = (folder_ / name).string();
    struct stat info {};
    ::stat(path.c_str(), &info);
    std::ifstream file(path, std::ios::binary);
    std::string const bytes((std::istreambuf_iterator<char>(file)), {});
    return std::tuple(bytes, info.st_size, info.st_mtim.tv_sec, info.st_mtim.tv_nsec,
                      info.st_ctim.tv_sec, info.st_ctim.tv_nsec);
  };
  auto const first = state("s.lb1");
  auto const second = state("s.lb2");
  openErrors error{};
  LibFile* reader = OpenAs(Role::kReader, Path(), error);
  char memo[4000];
  reader->GetMemo(memo);
  reader->SetDescriptionAndVersion("changed", "changed");
  reader->SetMemo("changed");
  reader->SetPassword(1, "changed");
  reader->SetReservedWords(1, 2);
  reader->FlushLibFile();
  auto* inner = dynamic_cast<LibFile_i*>(reader);
  std::int32_t words[1000];
  inner->ReadBlock(112000001, 1000, words);
  LibFile::DelLibFile(reader);
  EXPECT_EQ(state("s.lb1"), first);
  EXPECT_EQ(state("s.lb2"), second);
}

TEST_F(SharingTest, FactoriesNameAndReportTheLibrary) {
  openErrors error{};
  libTypes type{};
  LibFile* library = LibFile::OpenLibFile(accRead, Path().c_str(), "", error, type);
  ASSERT_EQ(error, openOk);
  EXPECT_EQ(type, libKind11);
  EXPECT_STREQ(library->GetLibName(), "s.lb1");
  EXPECT_EQ(library->GetLibPath(), Path());
  LibFile::DelLibFile(library);
  library = LibFile::OpenLibFile(accRead, Path().c_str(), "Shown", "", error, type);
  EXPECT_STREQ(library->GetLibName(), "Shown");
  LibFile::DelLibFile(library);
  library = LibFile::OpenLibFile(accRead, Path().c_str(), "Shown", "", error);
  EXPECT_EQ(error, openOk);
  auto* inner = dynamic_cast<LibFile_p*>(library);
  LibFile_p::DelLibFile(inner);
  EXPECT_EQ(inner, nullptr);
  library = LibFile::NewLibFile(libKind13, Path().c_str(), error);
  EXPECT_EQ(library->GetLibName(), Path());
  LibFile::DelLibFile(library);
  EXPECT_EQ(LibFile::OpenLibFile(accRead, (Path() + "x").c_str(), "", error), nullptr);
  EXPECT_EQ(error, openNotFound);
}

TEST_F(SharingTest, StatusNeedsNoPasswordAndHoldsNothing) {
  openErrors error{};
  LibFile* library = OpenAs(Role::kUpdater, Path(), error);
  library->SetPassword(2, "secret");
  LibFile::DelLibFile(library);
  libTypes type{};
  LibFile::StatusLibFile(Path().c_str(), type, error);
  EXPECT_EQ(error, openOk);
  EXPECT_EQ(type, libKind11);
  EXPECT_EQ(OpenElsewhere(Role::kReader), openOk);
  LibFile::StatusLibFile((folder_ / "none.lb1").c_str(), type, error);
  EXPECT_EQ(error, openNotFound);
}

TEST_F(SharingTest, OpenThatThrowsLeavesItsReasonAndNoLock) {
  std::fstream file(Path(), std::ios::in | std::ios::out | std::ios::binary);
  std::int32_t const null = format::kNullAddress;
  file.seekp(20);
  file.write(reinterpret_cast<char const*>(&null), 4);
  file.close();
  openErrors error = openOk;
  EXPECT_THROW(OpenAs(Role::kUpdater, Path(), error), unsigned long);
  EXPECT_EQ(error, openFailed);
  libTypes type{};
  error = openOk;
  EXPECT_THROW(LibFile::StatusLibFile(Path().c_str(), type, error), unsigned long);
  EXPECT_EQ(error, openFailed);
  EXPECT_EQ(OpenElsewhere(Role::kCreator), openOk);
}

TEST_F(SharingTest, UpdateWithoutChangeKeepsSizes) {
  auto const sizes = [&] {
    return std::pair(fs::file_size(folder_ / "s.lb1"), fs::file_size(folder_ / "s.lb2"));
  };
  auto const before = sizes();
  openErrors error{};
  LibFile* updater = OpenAs(Role::kUpdater, Path(), error);
  LibFile::DelLibFile(updater);
  EXPECT_EQ(sizes(), before);
}

}  // namespace
}  // namespace zel
