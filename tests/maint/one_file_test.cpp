// A library of one file, whose nodes are among the records: a new item's key is on file before its
// record, and is removed again if the record cannot be written.
#include <optional>
#include <string>
#include <vector>

#include "store/format.h"
#include "tests/maint/maint_fixture.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/file_words.h"
#include "tests/support/sample_component.h"
#include "zelaccess/Module.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

constexpr char kType[] = "PURECOMP";
constexpr char kPath[] = "/o.lb1";

class Told final : public ZelFindingSink {
 public:
  void Found(zelFindings severity, char const* id, char const* place, char const* text) override {
    if (severity == findingNote) return;
    all += std::string(id) + "|" + place + "|" + text + "\n";
  }
  std::string all;
};

class OneFileTest : public ::testing::Test {
 protected:
  // A small node capacity makes trees of several levels.
  OneFileTest() { SetDeleteTestFlag(true); }
  ~OneFileTest() override { SetDeleteTestFlag(false); }

  void Open(accModes mode) {
    library_.emplace(failing_, mode, kPath, "o");
    bool const there = files_.Exists(kPath);
    ASSERT_EQ(there ? library_->OpenExisting({true, ""}, nullptr) : library_->CreateNew(libKind11),
              openOk);
    maint_.emplace(&*library_);
  }
  void Close() {
    maint_.reset();
    library_.reset();
  }
  void PutHeader(format::HeaderWord word, std::int32_t value) {
    test::PutFileWord(&files_.Contents(kPath)[static_cast<std::size_t>(word) * 4], value);
  }
  bool Write(std::int32_t number) {
    test::FillComponent(bank_.Get());
    test::SetIdentity(bank_.Get(), number, 0, "A NAME", 0);
    key_.SetKey(static_cast<long>(number));
    return maint_->WriteItem(bank_.Def(), "PURE", &key_);
  }
  std::vector<std::int32_t> Walk() {
    std::vector<std::int32_t> numbers;
    std::int32_t key[10] = {};
    try {
      EXPECT_TRUE(maint_->BeginItemWalk(kType, "PURE"));
      while (maint_->NextItem(key, bank_.Def())) numbers.push_back(key[0]);
    } catch (unsigned long const address) {
      ADD_FAILURE() << "block " << address << " after " << numbers.size() << " items";
    }
    return numbers;
  }
  // A library of one file with the given number of components 10, 20, ...
  void Make(int components) {
    files_.Remove(kPath);
    files_.Remove("/o.lb2");
    Open(accUpdate);
    Close();
    files_.Remove("/o.lb2");
    PutHeader(format::kFileCount, 1);
    PutHeader(static_cast<format::HeaderWord>(format::kFileState + 2), 0);
    PutHeader(static_cast<format::HeaderWord>(format::kBlockWords + 2), 0);
    Open(accUpdate);
    ASSERT_FALSE(library_->Store().NodesLieApart());
    ASSERT_TRUE(maint_->CreateBank(kType, "PURE", 0));
    for (int i = 1; i <= components; ++i) ASSERT_TRUE(Write(10 * i));
    Close();
    ASSERT_FALSE(files_.Exists("/o.lb2"));
  }
  // Writes a new component with each of the last file operations failing once: those after the key
  // was entered into the tree.
  void FailEverywhere(int components, std::int32_t number) {
    constexpr int kLast = 4;  // structures, correlations, record, the node with its address
    auto const first = files_.Contents(kPath);
    Open(accUpdate);
    failing_.FailAt(0, false);
    ASSERT_TRUE(Write(number));
    int const operations = failing_.Operations();
    Close();
    for (int n = operations - kLast + 1; n <= operations; ++n) {
      SCOPED_TRACE(std::to_string(components) + " components, " + std::to_string(number) +
                   ", operation " + std::to_string(n) + " of " + std::to_string(operations));
      files_.Contents(kPath) = first;
      Open(accUpdate);
      failing_.FailAt(n, false);
      EXPECT_THROW(Write(number), unsigned long);
      failing_.FailAt(0, false);
      auto const expected = static_cast<std::size_t>(components);
      EXPECT_EQ(Walk().size(), expected);
      Close();
      Open(accRead);
      EXPECT_EQ(Walk().size(), expected) << "on file";
      Told told;
      EXPECT_TRUE(VerifyLibrary(&*library_, told)) << told.all;
      EXPECT_EQ(told.all, "");
      Close();
      if (HasFailure()) return;
    }
    files_.Contents(kPath) = first;
  }

  test::MemoryFileSystem files_;
  test::FailingFileSystem failing_{files_};
  std::optional<LibFile_i> library_;
  std::optional<LibMaint_i> maint_;
  test::ComponentBank bank_;
  Key_i key_;
};

TEST_F(OneFileTest, FirstItemOfABankWhoseWriteFailsLeavesNoKey) {
  Make(0);
  FailEverywhere(0, 5);
}

TEST_F(OneFileTest, NewItemWhoseWriteFailsLeavesNoKey) {
  Make(3);
  for (std::int32_t const number : {5, 15, 35}) FailEverywhere(3, number);
}

// Before, between and after the keys of trees of up to three levels, where the insert splits nodes.
TEST_F(OneFileTest, NewItemThatSplitsNodes) {
  for (int const components : {4, 16, 17, 18, 19, 20}) {
    Make(components);
    for (int gap = 0; gap <= components && !HasFailure(); ++gap) {
      FailEverywhere(components, 10 * gap + 5);
    }
  }
}

}  // namespace
}  // namespace zel
