// What a salvage does about blocks that cannot be read, blocks that were freed, and nodes to which
// links lead again and again.
#include <algorithm>
#include <map>
#include <memory>

#include "purecomp/record_format.h"
#include "tests/verify/salvage_fixture.h"
#include "verify/salvage/tree_contents.h"

namespace zel::test {
namespace {

namespace f = format;

constexpr std::size_t kPairWords = 22;     // of an entry of NRTL: two of key, twenty of data
constexpr std::size_t kBlockTable = 1000;  // the byte of the first file where it begins

// A disk on which one range of one file cannot be read, and nothing of that file may be mapped.
class BadSectors final : public platform::FileSystem {
 public:
  BadSectors(MemoryFileSystem& real, std::string path, std::uint64_t from, std::uint64_t end)
      : real_(real), path_(std::move(path)), from_(from), end_(end) {}

  bool Exists(std::string const& path) override { return real_.Exists(path); }
  platform::OpenedFile Open(std::string const& path, platform::OpenMode mode) override {
    if (path == cannotOpen) return {platform::OpenOutcome::kFailed, nullptr};
    platform::OpenedFile opened = real_.Open(path, mode);
    if (path == path_) opened.file = std::make_unique<File>(*this, std::move(opened.file));
    return opened;
  }
  platform::OpenedFile OpenAside(std::string const& path, platform::OpenMode mode,
                                 std::string const& library) override {
    return real_.OpenAside(path, mode, library);
  }

  std::string cannotOpen;

 private:
  class File final : public platform::BlockFile {
   public:
    File(BadSectors& system, std::unique_ptr<platform::BlockFile> real)
        : system_(system), real_(std::move(real)) {}
    std::int64_t ReadAt(std::uint64_t, void*, std::size_t) override {
      ADD_FAILURE() << "this may use a map";
      return -1;
    }
    std::int64_t ReadUnmapped(std::uint64_t offset, void* to, std::size_t count) override {
      bool const isBad = offset < system_.end_ && offset + count > system_.from_;
      return isBad ? -1 : real_->ReadAt(offset, to, count);
    }
    std::int64_t WriteAt(std::uint64_t, void const*, std::size_t) override { return -1; }
    std::byte const* View(std::uint64_t, std::size_t) const noexcept override {
      ADD_FAILURE() << "this is a map";
      return nullptr;
    }
    std::uint64_t Size() const noexcept override { return real_->Size(); }
    bool Flush() override { return true; }

   private:
    BadSectors& system_;
    std::unique_ptr<platform::BlockFile> real_;
  };

  MemoryFileSystem& real_;
  std::string path_;
  std::uint64_t from_;
  std::uint64_t end_;
};

class SalvageBlocksTest : public SalvageFixture {
 protected:
  void MakePairs() {
    Make([](LibFile_i&, LibMaint_i& maint) { WritePairs(maint, "NRTL", "VLE", 0, 400); });
  }
  std::int32_t AddressAt(int file, std::size_t byte) const {
    std::size_t const size = file == 1 ? 1000 : 4000;
    return 12 * f::kTypeFactor + file * f::kFileFactor + static_cast<std::int32_t>(byte / size) + 1;
  }
  // The block table says that the block is free, and not only as one of those at the end.
  void Free(int file, std::size_t byte) {
    auto const word = [](int at) { return kBlockTable + 4 * static_cast<std::size_t>(at); };
    std::int32_t const count = WordAt(1, word(f::kExtentCount));
    std::int32_t const address = AddressAt(file, byte);
    for (int i = 0; i < count; ++i) {
      if (WordAt(1, word(f::kExtentAddresses + i)) != address) continue;
      PutWord(1, word(f::kExtentAddresses + i), address + 1);
    }
    PutWord(1, word(f::kExtentCount), count + 1);
    PutWord(1, word(f::kExtentSizes + count), 1);
    PutWord(1, word(f::kExtentAddresses + count), address);
  }
  openErrors SalvageFrom(platform::FileSystem& system, char const* path = kBroken) {
    records_.all.clear();
    MemoryFileSystem to;
    LibFile_i rescued(to, accUpdate, kRescued, "r");
    EXPECT_EQ(rescued.CreateNew(libKind12), openOk);
    openErrors const error = SalvageFiles(system, path, "", &rescued, &records_, counts_);
    rescued.CloseLibFile();
    rescued_ = ReadItems({{to.Contents(kRescued), to.Contents(kRescued2)}});
    return error;
  }
  std::vector<std::string> NotesOfHeader() const {
    std::vector<std::string> notes;
    for (SalvageRecord const& one : records_.all) {
      if (one.kind == salvageHeader) notes.push_back(one.text);
    }
    return notes;
  }
  std::int64_t Outdated() const {
    return std::count_if(records_.all.begin(), records_.all.end(),
                         [](auto const& one) { return one.way == salvageOutdated; });
  }
};

TEST_F(SalvageBlocksTest, PartThatCannotBeReadIsNamed) {
  MakePairs();
  std::size_t const root = RootOf("NRTL", "VLE");
  std::size_t const leaf = NodeAt(root, kPairWords, 3);
  BadSectors disk(files_, kBroken2, leaf + 2000, leaf + 2001);
  ASSERT_EQ(SalvageFrom(disk), openOk);
  // A sector of 512 bytes holds parts of up to seven entries of 88 bytes.
  EXPECT_GE(Missing().size(), 5U);
  EXPECT_LE(Missing().size(), 7U);
  EXPECT_TRUE(Added().empty());
  ASSERT_FALSE(records_.all.empty());
  EXPECT_EQ(records_.all.front().kind, salvageHeader);
  EXPECT_EQ(records_.all.front().state, salvageAltered);
  EXPECT_EQ(records_.all.front().text, "file 2: 512 bytes cannot be read");
}

TEST_F(SalvageBlocksTest, FileThatCannotBeOpenedIsNotLeftOut) {
  MakePairs();
  BadSectors disk(files_, "", 0, 0);
  disk.cannotOpen = kBroken2;
  EXPECT_EQ(SalvageFrom(disk), openFailed);
  disk.cannotOpen.clear();
  EXPECT_EQ(SalvageFrom(disk), openOk);
  EXPECT_TRUE(Missing().empty());
}

// What a library of two files does not use, a folder of that name for example, is not in the way.
TEST_F(SalvageBlocksTest, FileThatIsNotUsedNeedNotBeOpened) {
  MakePairs();
  files_.Contents("/broken.lb5");
  BadSectors disk(files_, "", 0, 0);
  disk.cannotOpen = "/broken.lb5";
  EXPECT_EQ(SalvageFrom(disk), openOk);
  EXPECT_TRUE(Missing().empty());
  EXPECT_EQ(NotesOfHeader(), std::vector<std::string>{});
  PutWord(1, 4 * std::size_t{f::kFileState + 5}, 1);
  EXPECT_EQ(SalvageFrom(disk), openOk);
  EXPECT_TRUE(Missing().empty());
  ASSERT_FALSE(NotesOfHeader().empty());
  EXPECT_EQ(NotesOfHeader().front(), "file 5 cannot be opened");
}

TEST_F(SalvageBlocksTest, FileThatDoesNotExistIsNamed) {
  MakePairs();
  files_.Remove(kBroken2);
  EXPECT_EQ(SalvageFrom(files_), openOk);
  ASSERT_FALSE(NotesOfHeader().empty());
  EXPECT_EQ(NotesOfHeader().front(), "file 2 does not exist");
}

// The files of a file system with symbolic links.
class LinkedFiles final : public platform::FileSystem {
 public:
  explicit LinkedFiles(MemoryFileSystem& real) : real_(real) {}
  bool Exists(std::string const& path) override { return real_.Exists(Target(path)); }
  std::string Target(std::string const& path) override {
    auto const link = links.find(path);
    return link == links.end() ? path : link->second;
  }
  platform::OpenedFile Open(std::string const& path, platform::OpenMode mode) override {
    return real_.Open(Target(path), mode);
  }

  std::map<std::string, std::string> links;

 private:
  MemoryFileSystem& real_;
};

TEST_F(SalvageBlocksTest, LinkToTheFirstFileAloneLeadsToAllFiles) {
  MakePairs();
  LinkedFiles linked(files_);
  linked.links = {{"/link.lb1", kBroken}};
  EXPECT_EQ(SalvageFrom(linked, "/link.lb1"), openOk);
  EXPECT_TRUE(Missing().empty()) << Missing().size();
  EXPECT_EQ(NotesOfHeader(), std::vector<std::string>{});
}

// As every reader does, whatever is next to the file that a link leads to.
TEST_F(SalvageBlocksTest, FilesNextToALinkBelongToIt) {
  MakePairs();
  LinkedFiles linked(files_);
  linked.links = {{"/m.lb1", "/a/x.lb1"}, {"/m.lb2", "/b/x.lb2"}};
  files_.Contents("/a/x.lb1") = files_.Contents(kBroken);
  files_.Contents("/b/x.lb2") = files_.Contents(kBroken2);
  files_.Contents("/a/x.lb2") = std::vector<std::byte>(files_.Contents(kBroken2).size());
  EXPECT_EQ(SalvageFrom(linked, "/m.lb1"), openOk);
  EXPECT_TRUE(Missing().empty()) << Missing().size();
  EXPECT_EQ(NotesOfHeader(), std::vector<std::string>{});
}

// The numbers of the files cannot be put into such a name.
TEST_F(SalvageBlocksTest, LinkToANameOfAnotherKindLeadsToOneFile) {
  MakePairs();
  LinkedFiles linked(files_);
  linked.links = {{"/m.lb1", "/xyz1"}};
  files_.Contents("/xyz1") = files_.Contents(kBroken);
  files_.Contents("/xyz2") = files_.Contents(kBroken2);
  EXPECT_EQ(SalvageFrom(linked, "/m.lb1"), openOk);
  ASSERT_FALSE(NotesOfHeader().empty());
  EXPECT_EQ(NotesOfHeader().front(), "file 2 does not exist");
}

// An old version of a leaf is in a free block, and a damaged link leads there.
TEST_F(SalvageBlocksTest, LinkToAFreeBlockIsNotFollowed) {
  MakePairs();
  std::size_t const root = RootOf("NRTL", "VLE");
  std::size_t const leaf = NodeAt(root, kPairWords, 3);
  auto& bytes = files_.Contents(kBroken2);
  std::size_t const old = bytes.size();
  bytes.resize(old + 4000);
  std::copy_n(whole_.file[1].begin() + static_cast<std::ptrdiff_t>(leaf), 4000,
              bytes.begin() + static_cast<std::ptrdiff_t>(old));
  PutWord(2, old + 4 * (f::kNodeEntries + 4), 7);  // another value
  PutWord(2, root + 4 * (4 + 3 * (kPairWords + 1)), AddressAt(2, old));
  Free(2, old);
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_TRUE(Missing().empty()) << Missing().size();
  EXPECT_TRUE(Added().empty());
  EXPECT_EQ(Outdated(), 0);
  EXPECT_GT(counts_.scanned, 0);
}

// Nothing else is in the place of the node: the block table is wrong.
TEST_F(SalvageBlocksTest, NodesThatTheBlockTableCallsFreeAreTaken) {
  MakePairs();
  std::size_t const root = RootOf("NRTL", "VLE");
  for (std::size_t const node : {root, NodeAt(root, kPairWords, 3), EntryOf("NRTL", "VLE")}) {
    Free(2, node);
    ASSERT_EQ(Salvage(), openOk);
    EXPECT_TRUE(Missing().empty()) << Missing().size();
    EXPECT_TRUE(Added().empty());
    EXPECT_EQ(Outdated() + counts_.scanned + counts_.gaps, 0);
    files_.Contents(kBroken) = whole_.file[0];
  }
}

// Two records have the number, one of them in a free block before the other.
TEST_F(SalvageBlocksTest, RecordInUseComesBeforeOneInAFreeBlock) {
  for (bool const isEntryLost : {false, true}) {
    Make([](LibFile_i&, LibMaint_i& maint) { WriteComponents(maint, "OWN", 1001, 1061); });
    auto const record = [&](std::int32_t number) {
      return items_.at({"PURECOMP", "OWN", {number}}).bytes[1].from;
    };
    std::size_t const entry = items_.at({"PURECOMP", "OWN", {1030}}).bytes[0].from;
    std::size_t const other = items_.at({"PURECOMP", "OWN", {1010}}).bytes[0].from;
    ASSERT_LT(record(1010), record(1030));
    PutWord(1, record(1010) + 4 * static_cast<std::size_t>(record::kNumber), 1030);
    Free(1, record(1010));
    PutWord(2, entry + 4, -7);
    PutWord(2, other, isEntryLost ? -7 : 1010);
    PutWord(2, other + 4, -7);
    if (isEntryLost) PutWord(2, entry, -7);
    ASSERT_EQ(Salvage(), openOk);
    ASSERT_EQ(Missing().size(), 1U);
    EXPECT_EQ(Missing().front().key, std::vector<std::int32_t>{1010});
    EXPECT_TRUE(Added().empty());
    files_.Remove(kBroken);
    files_.Remove(kBroken2);
  }
}

TEST_F(SalvageBlocksTest, WalksOverTheSameNodesEnd) {
  MakePairs();
  BrokenLibrary library;
  ASSERT_EQ(library.Open(files_, kBroken), openOk);
  std::int32_t const root = AddressAt(2, RootOf("NRTL", "VLE"));
  TreeWalk::Budget budget(library);
  TreeShape const shape{2, 20, 20, false};
  auto const walk = [&] {
    return TreeWalk(library, budget, shape, NodeReading::Tails::kUnknown, {}).From(root);
  };
  int whole = 0;
  while (walk().entries.size() == 400 && whole < 100) ++whole;
  EXPECT_GE(whole, 8);
  EXPECT_LT(whole, 40);
  EXPECT_TRUE(walk().entries.empty());
}

}  // namespace
}  // namespace zel::test
