// Header values at their limits, blocks far into a file, memos of odd lengths, and names that are
// too long.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "store/packed_text.h"
#include "tests/store/lib_file_fixture.h"

namespace zel {
namespace {

namespace f = format;
using LibFileBoundsTest = test::LibFileTest;

TEST_F(LibFileBoundsTest, HeaderWordsAtTheirLimitsAreTaken) {
  struct {
    std::size_t offset;
    std::int32_t word;
  } const kGood[] = {{4, 1}, {4, 9}, {84, 1}, {80, 125}, {80, 1000000}, {84, 1000000}};
  for (auto const& good : kGood) {
    MakeLibrary();
    PutWord(File1(), good.offset, good.word);
    EXPECT_EQ(OpenAs(accRead), openOk) << good.offset << " " << good.word;
  }
}

TEST_F(LibFileBoundsTest, SizeOfASecondFileThatIsNotThereDoesNotMatter) {
  for (std::int32_t size : {0, -1, 1000001, INT32_MIN}) {
    MakeLibrary();
    PutWord(File1(), 44, 0);
    PutWord(File1(), 84, size);
    auto library = Opened(accUpdate);
    std::int32_t const words[1000] = {};
    std::int32_t address = f::kNullAddress;
    EXPECT_EQ(library->WriteBlock(address, 1000, words, 2), 4000) << size;
    EXPECT_EQ(BlockAddress::Split(address).file, 1) << size;
  }
}

// Only the store opens files: a state from the header never means an open file.
TEST_F(LibFileBoundsTest, StatesOfTheHeaderNeverMeanOpen) {
  for (std::int32_t state : {2, -7, INT32_MIN}) {
    MakeLibrary();
    PutWord(File1(), 4, 3);
    PutWord(File1(), 36 + 12, state);
    PutWord(File1(), 76 + 12, 100);
    files_.Contents("/lib.lb3").resize(400);
    PutWord(files_.Contents("/lib.lb3"), 0, 33);
    auto library = Opened(accUpdate);
    EXPECT_EQ(library->Store().FileState(3), BlockStore::kPresent) << state;
    std::int32_t words[100];
    EXPECT_EQ(library->ReadBlock(113000001, 100, words), 400) << state;
    EXPECT_EQ(words[0], 33);
    EXPECT_EQ(library->Store().FileState(3), BlockStore::kOpen);
    library->CloseLibFile();
    EXPECT_EQ(WordAt(File1(), 36 + 12), 1) << state;
  }
}

TEST_F(LibFileBoundsTest, OneClosedFileIsPresentAndAllClosedFilesAreForgotten) {
  MakeLibrary();
  auto library = Opened(accRead);
  BlockStore& store = library->Store();
  store.CloseFile(2);
  EXPECT_EQ(store.FileState(2), BlockStore::kPresent);
  EXPECT_EQ(store.BlockWords(2), 1000);
  std::int32_t words[4];
  EXPECT_EQ(library->ReadBlock(112000001, 4, words), 16) << "opened again";
  EXPECT_EQ(store.FileState(2), BlockStore::kOpen);
  library->CloseLibFile();
  for (int number : {1, 2}) {
    EXPECT_EQ(store.FileState(number), BlockStore::kAbsent);
    EXPECT_EQ(store.BlockWords(number), 0);
  }
}

// Records where the second file is written but stores nothing.
class FarWrites final : public platform::FileSystem {
 public:
  explicit FarWrites(test::MemoryFileSystem& files) : files_(files) {}
  bool Exists(std::string const& path) override { return files_.Exists(path); }
  platform::OpenedFile Open(std::string const& path, platform::OpenMode mode) override {
    platform::OpenedFile opened = files_.Open(path, mode);
    if (path == "/lib.lb2") opened.file = std::make_unique<File>(*this, std::move(opened.file));
    return opened;
  }

  std::vector<std::uint64_t> offsets;

 private:
  class File final : public platform::BlockFile {
   public:
    File(FarWrites& system, std::unique_ptr<BlockFile> real)
        : system_(system), real_(std::move(real)) {}
    std::int64_t ReadAt(std::uint64_t offset, void* to, std::size_t count) override {
      return real_->ReadAt(offset, to, count);
    }
    std::int64_t WriteAt(std::uint64_t offset, void const*, std::size_t count) override {
      system_.offsets.push_back(offset);
      return static_cast<std::int64_t>(count);
    }
    std::byte const* View(std::uint64_t, std::size_t) const noexcept override { return nullptr; }
    std::uint64_t Size() const noexcept override { return real_->Size(); }
    bool Flush() override { return true; }

   private:
    FarWrites& system_;
    std::unique_ptr<BlockFile> real_;
  };

  test::MemoryFileSystem& files_;
};

// With blocks of a mebibyte, block 4097 begins at 4 GiB.
TEST_F(LibFileBoundsTest, BlocksBehindFourGibibytesAreNotThoseOfTheStart) {
  MakeLibrary();
  PutWord(File1(), 84, 1 << 18);
  PutWord(files_.Contents("/lib.lb2"), 0, 77);
  {
    auto library = Opened(accRead);
    std::int32_t words[4] = {5, 5, 5, 5};
    EXPECT_EQ(library->ReadBlock(112000001, 1, words), 4);
    EXPECT_EQ(words[0], 77);
    for (std::int32_t block : {2049, 4097, 999999}) {
      std::fill_n(words, 4, 5);
      EXPECT_EQ(library->ReadBlock(112000000 + block, 4, words), 0) << block;
      EXPECT_EQ(std::count(words, words + 4, 0), 4) << block;
      for (int i = 0; i < 20; ++i) ASSERT_EQ(library->Store().View(112000000 + block, 4), nullptr);
    }
  }
  FarWrites files(files_);
  LibFile_i library(files, accUpdate, "/lib.lb1", "l");
  ASSERT_EQ(library.OpenExisting({true, ""}, nullptr), openOk);
  std::int32_t const words[4] = {};
  for (std::int32_t block : {2049, 4097, 999999}) {
    std::int32_t address = 112000000 + block;
    EXPECT_EQ(library.WriteBlock(address, 4, words, 0), 16);
  }
  EXPECT_EQ(files.offsets, (std::vector<std::uint64_t>{0x80000000U, 0x100000000U, 0xF423E00000U}));
}

// Only the caller knows the length of a run.
TEST_F(LibFileBoundsTest, WriteAtAnAddressGoesAsFarAsItsWords) {
  MakeLibrary();
  auto library = Opened(accUpdate);
  std::vector<std::int32_t> words(400, 1);
  std::int32_t first = f::kNullAddress;
  std::int32_t second = f::kNullAddress;
  library->WriteBlock(first, 250, words.data(), 1);
  library->WriteBlock(second, 250, words.data(), 1);
  ASSERT_EQ(second, first + 1);
  std::fill(words.begin(), words.end(), 2);
  EXPECT_EQ(library->WriteBlock(first, 400, words.data(), 0), 1600);
  EXPECT_EQ(first, second - 1) << "it is not moved either";
  library->ReadBlock(second, 250, words.data());
  EXPECT_EQ(words[149], 2);
  EXPECT_EQ(words[150], 1);
}

TEST_F(LibFileBoundsTest, MemoAddressThatIsNoneThrowsItsWord) {
  for (std::int32_t address : {122000001, 113000001, -1, 112000000}) {
    MakeLibrary();
    PutWord(File1(), 28, address);
    auto library = Opened(accUpdate);
    auto const word = static_cast<unsigned long>(static_cast<std::uint32_t>(address));
    char memo[4000];
    EXPECT_EQ(Thrown([&] { library->GetMemo(memo); }), word);
    EXPECT_EQ(Thrown([&] { library->SetMemo("text"); }), word);
  }
}

TEST_F(LibFileBoundsTest, MemoIsWrittenWithinItsLengthAndAThousandWords) {
  struct {
    std::int32_t words;
    char const* read;  // after "abcdefghijkl" was written over "old text, longer"
  } const rows[] = {{INT32_MIN, ""},
                    {-1, ""},
                    {1, "abcd"},
                    {2, "abcdefgh"},
                    {4, "abcdefghijkl"},
                    {1000, "abcdefghijkl"},
                    {1001, "abcdefghijkl"},
                    {INT32_MAX, "abcdefghijkl"}};
  for (auto const& row : rows) {
    files_.Remove("/lib.lb1");
    files_.Remove("/lib.lb2");
    {
      auto library = Make(accUpdate);
      library->CreateNew(libKind11);
      library->SetMemo("old text, longer");
    }
    PutWord(File1(), 24, row.words);
    auto library = Opened(accUpdate);
    library->SetMemo("abcdefghijkl");
    char memo[4000] = "x";
    library->GetMemo(memo);
    EXPECT_STREQ(memo, row.read) << row.words;
    library->CloseLibFile();
    Bytes const& bytes = files_.Contents("/lib.lb2");
    EXPECT_EQ(bytes.size(), 4000U) << row.words;
    std::string left = "old text, longer";  // words beyond the length are not written
    std::size_t const written = row.words > 2 ? 16 : std::strlen(row.read);
    left.replace(0, written, row.read);
    left.resize(16, '\0');
    EXPECT_EQ(std::string(reinterpret_cast<char const*>(bytes.data()), 16), left) << row.words;
  }
}

TEST_F(LibFileBoundsTest, LongestMemoEndsOnFileToo) {
  auto library = Make(accUpdate);
  library->CreateNew(libKind11);
  library->SetMemo(std::string(5000, 'm').c_str());
  library->CloseLibFile();
  Bytes const& bytes = files_.Contents("/lib.lb2");
  ASSERT_EQ(bytes.size(), 4000U);
  EXPECT_EQ(bytes[3998], std::byte{'m'});
  EXPECT_EQ(bytes[3999], std::byte{0});
}

class LibFileDirectoryTest : public test::LibFileTest {
 protected:
  // A directory with one entry of zeros.
  void MakeDirectory(char const* key16) {
    auto library = Make(accUpdate);
    ASSERT_EQ(library->CreateNew(libKind11), openOk);
    std::int32_t key[4];
    TextToWords(key16, key, 4);
    std::int32_t const* found = nullptr;
    ASSERT_FALSE(library->GetBankTree()->Find(key, found));
    library->GetBankTree()->Insert(key, f::kNullAddress, f::kNullAddress);
  }
};

TEST_F(LibFileDirectoryTest, ReaderRepairsACopyOfAnEntryInPlace) {
  MakeDirectory("NRTL    OLD     ");
  Bytes const before = files_.Contents("/lib.lb2");
  auto library = Opened(accRead);
  std::int32_t const root = library->GetBankTree()->Head().rootAddress;
  std::int32_t const* node = nullptr;
  for (int i = 0; i < 20 && node == nullptr; ++i) node = library->Store().View(root, 1000);
  bool const inPlace = std::endian::native == std::endian::little;
  ASSERT_EQ(node != nullptr, inPlace) << "nodes are read in place from here on";
  std::int32_t const* entry = nullptr;
  ASSERT_TRUE(library->FindBank("NRTL", "OLD", entry, false));
  EXPECT_EQ(entry[f::kBankMemoWords], 1000);
  EXPECT_EQ(entry[f::kBankMemoAddress], f::kNullAddress);
  EXPECT_EQ(files_.Contents("/lib.lb2"), before);
}

TEST_F(LibFileDirectoryTest, HasBankCutsNamesAndFindBankRefusesThem) {
  MakeDirectory("NRTL@   TOOLONGN");
  auto library = Opened(accRead);
  std::int32_t const* entry = nullptr;
  EXPECT_TRUE(library->FindBank("NRTL", "TOOLONGN", entry, false));
  EXPECT_FALSE(library->FindBank("NRTL", "TOOLONGNAME", entry, false));
  EXPECT_TRUE(library->HasBank("NRTL", "TOOLONGNAME"));
}

TEST_F(LibFileBoundsTest, PasswordIsComparedWithWhatIsOnFile) {
  MakeLibrary();
  Opened(accUpdate)->SetPassword(1, "a[b~");
  EXPECT_EQ(OpenAs(accUpdate, "a[b~"), openBadPassword) << "two characters have no code";
  EXPECT_EQ(OpenAs(accUpdate, "a b"), openOk);
  EXPECT_EQ(OpenAs(accRead, "a b "), openBadPassword) << "every byte counts";
}

}  // namespace
}  // namespace zel
