// Files and services of Windows.
#include <gtest/gtest.h>
#include <windows.h>

#include <climits>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "frame/known_folders.h"
#include "frame/module.h"
#include "frame/platform/system.h"
#include "frame/platform/text_file.h"
#include "frame/platform/windows_path.h"
#include "tests/frame/block_file_fixture.h"

namespace zel::platform {
namespace {

namespace fs = std::filesystem;
using test::BlockFileTest;

// Letters of two alphabets.
constexpr char kLetters[] = "\xc3\xa4\xce\xb1";

class WindowsFilesTest : public BlockFileTest {
 protected:
  static OpenedFile OpenAt(std::string const& path, OpenMode mode) {
    return SystemFileSystem().Open(path, mode);
  }
  static bool IsThere(std::wstring const& path) {
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
  }
};

TEST_F(WindowsFilesTest, PathsAreUtf8) {
  EXPECT_EQ(Utf16Of(kLetters), L"\u00e4\u03b1");
  EXPECT_EQ(Utf8Of(L"\u00e4\u03b1"), kLetters);
  std::string const path = Folder().string() + "\\" + kLetters + ".lb1";
  ASSERT_EQ(OpenAt(path, OpenMode::kCreate).outcome, OpenOutcome::kOk);
  EXPECT_TRUE(IsThere(Folder().wstring() + L"\\\u00e4\u03b1.lb1"));
  std::vector<FolderEntry> const found = ListFolder(Folder().string());
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].name, std::string(kLetters) + ".lb1");
  EXPECT_TRUE(SystemFileSystem().Exists(path));
  EXPECT_TRUE(SystemFileSystem().Remove(path));
  EXPECT_FALSE(SystemFileSystem().Exists(path));
}

TEST_F(WindowsFilesTest, LongPathsAreOpened) {
  std::string deep = Folder().string();
  while (deep.size() < 300) {
    deep += "\\folder-in-a-folder";
    ASSERT_TRUE(::CreateDirectoryW(SystemPath(deep).c_str(), nullptr)) << deep;
  }
  EXPECT_EQ(SystemPath(deep).substr(0, 4), L"\\\\?\\");
  EXPECT_EQ(PathOf(SystemPath(deep)), deep);
  std::string const path = deep + "/x.lb1";
  ASSERT_EQ(OpenAt(path, OpenMode::kCreate).outcome, OpenOutcome::kOk);
  EXPECT_TRUE(SystemFileSystem().Exists(path));
  EXPECT_EQ(ListFolder(deep).size(), 1U);
  TextFile text(deep + "/text");
  ASSERT_TRUE(text);
  text.Put("long");
  EXPECT_TRUE(text.Close());
  std::string read;
  EXPECT_EQ(ReadTextFile(deep + "/text", read), ReadResult::kRead);
  EXPECT_EQ(read, "long");
}

TEST_F(WindowsFilesTest, ShortPathsStayAsTheyAreAndSharesGetTheirPrefix) {
  EXPECT_EQ(SystemPath("C:/x/y"), L"C:\\x\\y");
  EXPECT_EQ(SystemPath("x"), L"x");
  std::string const share = "//server/share/" + std::string(300, 'x');
  EXPECT_EQ(SystemPath(share).substr(0, 22), L"\\\\?\\UNC\\server\\share\\x");
  EXPECT_EQ(PathOf(SystemPath(share)), "\\\\server\\share\\" + std::string(300, 'x'));
}

TEST_F(WindowsFilesTest, OpenErrorsAreDistinguished) {
  EXPECT_EQ(OpenAt(Path("none"), OpenMode::kRead).outcome, OpenOutcome::kNotFound);
  EXPECT_EQ(OpenAt(Path("none/f"), OpenMode::kRead).outcome, OpenOutcome::kNotFound);
  EXPECT_EQ(OpenAt(Folder().string(), OpenMode::kRead).outcome, OpenOutcome::kDenied);
  MakeFile("f", "x");
  ASSERT_TRUE(::SetFileAttributesW(SystemPath(File()).c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(OpenAt(File(), OpenMode::kUpdate).outcome, OpenOutcome::kDenied);
  EXPECT_EQ(OpenAt(File(), OpenMode::kRead).outcome, OpenOutcome::kOk);
  ::SetFileAttributesW(SystemPath(File()).c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsFilesTest, FileThatAnotherProgramDoesNotShareIsInUse) {
  MakeFile("f", "x");
  Handle const other(::CreateFileW(SystemPath(File()).c_str(), GENERIC_READ, 0, nullptr,
                                   OPEN_EXISTING, 0, nullptr));
  OpenedFile const opened = OpenAt(File(), OpenMode::kRead);
  EXPECT_EQ(opened.outcome, OpenOutcome::kDenied);
  EXPECT_TRUE(opened.isInUse);
}

TEST_F(WindowsFilesTest, LocksKeepNoOneFromReadingTheBytes) {
  auto const file = Open(OpenMode::kCreate);
  ASSERT_EQ(file->WriteAt(0, "bytes", 5), 5);
  std::ifstream other(File());
  std::string text;
  EXPECT_TRUE(std::getline(other, text));
  EXPECT_EQ(text, "bytes");
}

TEST_F(WindowsFilesTest, OpenFileCanBeRenamedAndReplaced) {
  MakeFile("f", "old");
  auto const file = Open(OpenMode::kUpdate);
  fs::rename(File(), Path("moved"));
  MakeFile("f", "new");
  EXPECT_EQ(Open(OpenMode::kUpdate)->Size(), 3U);
  EXPECT_EQ(file->WriteAt(0, "O", 1), 1);
  std::ifstream moved(Path("moved"));
  std::string text;
  EXPECT_TRUE(std::getline(moved, text));
  EXPECT_EQ(text, "Old");
}

TEST_F(WindowsFilesTest, FileUnderUpdateIsNotMapped) {
  auto const file = Open(OpenMode::kCreate);
  ASSERT_EQ(file->WriteAt(0, "0123456789", 10), 10);
  EXPECT_EQ(file->View(0, 10), nullptr);
  EXPECT_FALSE(file->WriteCannotFail(0, 10));
  char bytes[10];
  for (int i = 0; i < 40; ++i) ASSERT_EQ(file->ReadAt(0, bytes, 10), 10);
  EXPECT_EQ(std::string(bytes, 10), "0123456789");
  EXPECT_TRUE(file->CutTo(4));
  EXPECT_EQ(LengthOnDisk(), 4U);
  EXPECT_EQ(file->ReadAt(0, bytes, 10), 4);
}

TEST_F(WindowsFilesTest, ViewsOfAReaderLieInsideTheFile) {
  MakeFile("f", "0123456789");
  auto const file = Open(OpenMode::kRead);
  ASSERT_NE(file->View(0, 10), nullptr);
  EXPECT_EQ(static_cast<char>(*file->View(9, 1)), '9');
  EXPECT_EQ(file->View(9, 2), nullptr);
  EXPECT_EQ(file->View(UINT64_MAX, 1), nullptr);
  EXPECT_EQ(file->View(1, SIZE_MAX), nullptr);
}

TEST_F(WindowsFilesTest, CreateKeepsWhatIsThere) {
  MakeFile("f", "content");
  EXPECT_EQ(Open(OpenMode::kCreate)->Size(), 7U);
}

TEST_F(WindowsFilesTest, WriteFarPastTheEndLeavesZeros) {
  auto file = Open(OpenMode::kCreate);
  constexpr std::uint64_t kFar = std::uint64_t{64} << 20;
  ASSERT_EQ(file->WriteAt(0, "abc", 3), 3);
  ASSERT_EQ(file->WriteAt(kFar, "xyz", 3), 3);
  EXPECT_EQ(file->Size(), kFar + 3);
  char bytes[2] = {'?', '?'};
  ASSERT_EQ(file->ReadAt(2, bytes, 2), 2);
  EXPECT_EQ(std::string(bytes, 2), std::string("c\0", 2));
  file.reset();
  EXPECT_EQ(LengthOnDisk(), kFar + 3);
}

TEST_F(WindowsFilesTest, FileNextToALibraryIsNotLocked) {
  MakeFile("f", "library");
  std::string const aside = File() + ".journal";
  FileSystem& files = SystemFileSystem();
  EXPECT_EQ(files.OpenAside(aside, OpenMode::kRead, File()).outcome, OpenOutcome::kNotFound);
  OpenedFile const made = files.OpenAside(aside, OpenMode::kCreate, File());
  ASSERT_TRUE(made.file);
  EXPECT_EQ(made.file->WriteAt(2, "abc", 3), 3);
  OpenedFile const second = files.OpenAside(aside, OpenMode::kUpdate, File());
  ASSERT_TRUE(second.file);
  EXPECT_EQ(second.file->Size(), 5U);
  EXPECT_TRUE(second.file->CutTo(3));
  EXPECT_EQ(files.OpenAside(aside, OpenMode::kRead, File()).file->WriteAt(0, "x", 1), -1);
  fs::create_directory(Path("folder"));
  EXPECT_FALSE(files.OpenAside(Path("folder"), OpenMode::kRead, File()).file);
  EXPECT_EQ(files.Target(File()), File());
}

TEST_F(WindowsFilesTest, TextFileLeavesAnOpenLibraryAlone) {
  MakeFile("f", "library");
  {
    auto const library = Open(OpenMode::kRead);
    EXPECT_FALSE(TextFile(File()));
  }
  EXPECT_EQ(LengthOnDisk(), 7U);
  TextFile text(File());
  ASSERT_TRUE(text);
  Open(OpenMode::kRead, OpenOutcome::kDenied);
  text.Put("a\nb");
  ASSERT_TRUE(text.Close());
  std::string read;
  EXPECT_EQ(ReadTextFile(File(), read), ReadResult::kRead);
  EXPECT_EQ(read, "a\nb") << "line ends stay as they are";
}

TEST_F(WindowsFilesTest, TextFilesAreReadWholeAndInPieces) {
  std::string text;
  EXPECT_EQ(ReadTextFile("", text), ReadResult::kMissing);
  EXPECT_EQ(ReadTextFile(Path("none"), text), ReadResult::kMissing);
  EXPECT_EQ(ReadTextFile(Folder().string(), text), ReadResult::kUnreadable);
  std::string written(200'000, 'x');
  written[100] = '\0';
  written += "\r\nend\x1a!";
  MakeFile("f", written);
  EXPECT_EQ(ReadTextFile(File(), text), ReadResult::kRead);
  EXPECT_TRUE(text == written);
  TextInput file;
  ASSERT_EQ(file.Open(File()), ReadResult::kRead);
  EXPECT_EQ(file.Size(), written.size());
  char piece[8] = {};
  EXPECT_EQ(file.Read(200'000, piece, 5), 5U);
  EXPECT_EQ(std::string(piece, 5), "\r\nend");
  EXPECT_EQ(file.Read(written.size(), piece, 8), 0U);
}

class WindowsServicesTest : public test::TempFolderTest {};

TEST_F(WindowsServicesTest, VariablesAreReadAndSet) {
  EXPECT_EQ(Environment("ZEL_TEST_VARIABLE"), "");
  SetEnvironment("ZEL_TEST_VARIABLE", std::string(1000, 'x') + kLetters);
  EXPECT_EQ(Environment("ZEL_TEST_VARIABLE"), std::string(1000, 'x') + kLetters);
  SetEnvironment("ZEL_TEST_VARIABLE", "");
  EXPECT_EQ(Environment("ZEL_TEST_VARIABLE"), "");
}

TEST_F(WindowsServicesTest, SettingsAreReadFromTheFileThatIsNamed) {
  MakeFile("ini", "[Software\\K]\r\n  Name = two words \r\n");
  test::SetVariable("ZELACCESS_SETTINGS", Path("ini"));
  std::string value;
  EXPECT_TRUE(ReadSetting("software\\k", "name", value));
  EXPECT_EQ(value, "two words");
  EXPECT_FALSE(ReadSetting("Other", "name", value));
  test::UnsetVariable("ZELACCESS_SETTINGS");
}

TEST_F(WindowsServicesTest, ModuleAndProgramAreFiles) {
  EXPECT_EQ(ModuleFile(ThisModule()), ProgramFile());
  EXPECT_TRUE(fs::is_regular_file(ProgramFile()));
  EXPECT_EQ(GetWellKnownFolder(1), fs::path(ProgramFile()).parent_path().string());
  for (int folder = 3; folder <= 7; ++folder) {
    EXPECT_FALSE(GetWellKnownFolder(folder).empty()) << folder;
  }
}

TEST_F(WindowsServicesTest, LongPathHasTheNameAsItIsWritten) {
  MakeFile("Long Name.txt", "");
  EXPECT_EQ(fs::path(LongPath(Path("long name.TXT"))).filename().string(), "Long Name.txt");
  EXPECT_EQ(LongPath(Path("none")), Path("none"));
}

TEST_F(WindowsServicesTest, TemporaryFilesAreNewAndGo) {
  test::SetVariable(test::kTemporaryFolderVariable, Folder().string());
  std::string const one = MakeTemporaryFile("~uom");
  std::string const two = MakeTemporaryFile("~uom");
  EXPECT_NE(one, two);
  EXPECT_EQ(fs::path(one).filename().string().rfind("~uom", 0), 0U) << one;
  RemoveFile(one);
  EXPECT_FALSE(fs::exists(one));
  EXPECT_TRUE(fs::exists(two));
  {
    TemporaryFile const file("x", 259);
    EXPECT_TRUE(fs::exists(file.Path()));
  }
  EXPECT_EQ(ListFolder(Folder().string()).size(), 1U);
  EXPECT_EQ(TemporaryFile("x", 10).Path(), "") << "its name would be too long";
  test::SetVariable(test::kTemporaryFolderVariable, Path("none"));
  EXPECT_EQ(MakeTemporaryFile("x"), "");
  test::UnsetVariable(test::kTemporaryFolderVariable);
}

TEST_F(WindowsServicesTest, FoldersAreListedWithTheirAttributes) {
  fs::create_directory(Path("b"));
  MakeFile("a", "");
  MakeFile("C", "");
  ::SetFileAttributesW(SystemPath(Path("a")).c_str(), FILE_ATTRIBUTE_READONLY);
  std::vector<std::pair<std::string, int>> found;
  for (FolderEntry const& entry : ListFolder(Folder().string())) {
    found.emplace_back(entry.name, entry.attributes);
  }
  std::vector<std::pair<std::string, int>> const expected = {{"C", 0}, {"a", 1}, {"b", 16}};
  EXPECT_EQ(found, expected);
  ::SetFileAttributesW(SystemPath(Path("a")).c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_TRUE(ListFolder(Path("none")).empty());
}

}  // namespace
}  // namespace zel::platform
