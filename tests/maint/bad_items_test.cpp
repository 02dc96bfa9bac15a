// Reads that fail, items that cannot be read, and writes that are interrupted: each is reported.
#include <algorithm>
#include <bit>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/maint/maint_fixture.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/file_words.h"
#include "tests/support/sample_component.h"
#include "tests/support/text_stream.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

constexpr char kType[] = "PURECOMP";

class Told final : public ZelFindingSink {
 public:
  void Found(zelFindings severity, char const* id, char const* place, char const* text) override {
    if (severity == findingDamage) all.push_back(std::string(id) + "|" + place + "|" + text);
  }
  bool Has(std::string const& start) const {
    return std::any_of(all.begin(), all.end(), [&](std::string const& one) {
      return one.compare(0, start.size(), start) == 0;
    });
  }
  std::vector<std::string> all;
};

class BadItemsTest : public ::testing::Test {
 protected:
  static constexpr std::int32_t kNumbers[] = {10000001, 10000002, 10000003};

  BadItemsTest() {
    Open(accUpdate);
    EXPECT_TRUE(maint_->CreateBank(kType, "PURE", 0));
    for (std::int32_t number : kNumbers) EXPECT_TRUE(Write(number));
    Close();
  }

  void Open(accModes mode) {
    library_.emplace(failing_, mode, "/b.lb1", "b");
    bool const there = files_.Exists("/b.lb1");
    ASSERT_EQ(there ? library_->OpenExisting({true, ""}, nullptr) : library_->CreateNew(libKind11),
              openOk);
    maint_.emplace(&*library_);
  }
  void Close() {
    maint_.reset();
    library_.reset();
  }
  bool Write(std::int32_t number) {
    test::FillComponent(bank_.Get());
    test::SetIdentity(bank_.Get(), number, 0, "A NAME", 0);
    key_.SetKey(static_cast<long>(number));
    return maint_->WriteItem(bank_.Def(), "PURE", &key_);
  }
  bool Read(std::int32_t number) {
    key_.SetKey(static_cast<long>(number));
    return maint_->ReadItem(bank_.Def(), "PURE", &key_);
  }
  // The word after a component's number in the bank's tree: the address of its record.
  std::byte* AddressOf(std::int32_t number) {
    auto& bytes = files_.Contents("/b.lb2");
    for (std::size_t at = 0; at + 8 <= bytes.size(); at += 4) {
      bool const isHere = test::FileWord(&bytes[at]) == number;
      if (isHere && test::FileWord(&bytes[at + 4]) / 1'000'000 == 111) return &bytes[at + 4];
    }
    throw std::runtime_error("no such component");
  }
  void LoseRecord(std::int32_t number) { test::PutFileWord(AddressOf(number), 0); }
  std::vector<std::int32_t> Walk() {
    std::vector<std::int32_t> numbers;
    std::int32_t key[10] = {};
    EXPECT_TRUE(maint_->BeginItemWalk(kType, "PURE"));
    while (maint_->NextItem(key, bank_.Def())) numbers.push_back(key[0]);
    return numbers;
  }

  test::MemoryFileSystem files_;
  test::FailingFileSystem failing_{files_};
  std::optional<LibFile_i> library_;
  std::optional<LibMaint_i> maint_;
  test::ComponentBank bank_;
  Key_i key_;
};

TEST_F(BadItemsTest, EveryReadOfAnItemThatFailsIsThrown) {
  files_.ServeViews(false);
  Open(accRead);
  ASSERT_TRUE(Read(kNumbers[1]));
  std::string const whole = test::TextOf(bank_.Get());
  int thrown = 0;
  for (int n = 1;; ++n) {
    Close();
    Open(accRead);
    failing_.FailAt(n, false);
    bool isRead = false;
    try {
      isRead = Read(kNumbers[1]);
    } catch (unsigned long) {
      ++thrown;
    }
    bool const failed = failing_.Operations() >= n;
    failing_.FailAt(0, false);
    EXPECT_EQ(isRead, !failed) << n;
    if (failed) continue;
    EXPECT_EQ(test::TextOf(bank_.Get()), whole);
    break;
  }
  EXPECT_GE(thrown, 5) << "directory, tree, record, structures, correlations";
}

TEST_F(BadItemsTest, RecordThatFailsHalfWayLeavesTheComponentAsItWas) {
  files_.ServeViews(false);
  Open(accRead);
  ASSERT_TRUE(Read(kNumbers[0]));
  for (int n = 3; n <= 5; ++n) {  // of the record's blocks
    failing_.FailAt(0, false);
    Close();
    Open(accRead);
    bank_.Io()->Clear();
    std::string const empty = test::TextOf(bank_.Get());
    failing_.FailAt(n, false);
    EXPECT_THROW(Read(kNumbers[0]), unsigned long) << n;
    bank_.Io()->SetSource(nullptr, "", 0);
    EXPECT_EQ(test::TextOf(bank_.Get()), empty) << n;
  }
}

TEST_F(BadItemsTest, IndexWhoseReadFailsEndsTheCheckOfAComponent) {
  Open(accUpdate);
  char const ids[12][9] = {"ONE"};
  bank_.Io()->Clear();
  bank_->SetIdentity(10000009, 0, 0, ids, "A", "", 0);
  key_.SetKey(10000009L);
  ASSERT_TRUE(maint_->WriteItem(bank_.Def(), "PURE", &key_));
  Close();
  files_.ServeViews(false);
  Open(accUpdate);
  bank_.Io()->Clear();
  bank_->SetIdentity(10000010, 0, 0, ids, "B", "", 0);
  char text[300];
  failing_.FailAt(1, false);
  EXPECT_THROW(maint_->CheckComponent(bank_.Get(), text), unsigned long);
  failing_.FailAt(0, false);
  EXPECT_FALSE(maint_->CheckComponent(bank_.Get(), text));
}

TEST_F(BadItemsTest, MemoWhoseReadFailsIsThrown) {
  Open(accUpdate);
  library_->SetMemo("words");
  char memo[4000];
  failing_.FailAt(1, false);
  EXPECT_THROW(library_->GetMemo(memo), unsigned long);
  failing_.FailAt(0, false);
  library_->GetMemo(memo);
  EXPECT_STREQ(memo, "words");
}

TEST_F(BadItemsTest, DumpOfATreeWhoseReadFailsThrows) {
  files_.ServeViews(false);
  Open(accRead);
  test::TextStream const stream;
  std::int32_t const* entry = nullptr;
  ASSERT_TRUE(library_->FindBank(kType, "PURE", entry, false));
  failing_.FailAt(1, false);
  EXPECT_THROW(maint_->DumpBankTree(kType, "PURE", 0, stream.Get(), -1), unsigned long);
  failing_.FailAt(0, false);
  EXPECT_TRUE(maint_->DumpBankTree(kType, "PURE", 0, stream.Get(), 3));
}

TEST_F(BadItemsTest, WalkThrowsOrTellsAndGoesOn) {
  LoseRecord(kNumbers[1]);
  Open(accRead);
  EXPECT_THROW(Walk(), unsigned long);
  Told told;
  SetItemFindings(&*library_, &told);
  EXPECT_EQ(Walk(), (std::vector<std::int32_t>{kNumbers[0], kNumbers[2]}));
  ASSERT_EQ(told.all.size(), 1U);
  EXPECT_TRUE(told.Has("item|PURECOMP:PURE 10000002|block 0 is not a block")) << told.all[0];
  SetItemFindings(&*library_, nullptr);
  EXPECT_THROW(Walk(), unsigned long);
  SetItemFindings(nullptr, &told);
}

TEST_F(BadItemsTest, CheckNamesTheItem) {
  LoseRecord(kNumbers[1]);
  Open(accRead);
  Told told;
  EXPECT_FALSE(VerifyLibrary(&*library_, told));
  EXPECT_TRUE(told.Has("block-address|PURECOMP:PURE 10000002|"));
}

TEST_F(BadItemsTest, EveryReadOfACheckThatFailsIsDamage) {
  files_.ServeViews(false);
  Open(accRead);
  Told none;
  ASSERT_TRUE(VerifyLibrary(&*library_, none));
  int failed = 0;
  for (int n = 1;; ++n) {
    Close();
    Open(accRead);
    failing_.FailAt(n, false);
    Told told;
    bool const isSound = VerifyLibrary(&*library_, told);
    bool const hasFailed = failing_.Operations() >= n;
    failing_.FailAt(0, false);
    EXPECT_EQ(isSound, !hasFailed) << n;
    EXPECT_EQ(told.all.empty(), !hasFailed) << n;
    if (!hasFailed) break;
    ++failed;
  }
  EXPECT_GT(failed, 15);
}

// Whichever write fails, no key is left without its item, and allocated blocks are freed again.
TEST_F(BadItemsTest, NewItemWhoseWriteFailsLeavesNoKey) {
  auto const first = files_.Contents("/b.lb1");
  auto const second = files_.Contents("/b.lb2");
  int failed = 0;
  for (int n = 1;; ++n) {
    files_.Contents("/b.lb1") = first;
    files_.Contents("/b.lb2") = second;
    Open(accUpdate);
    ASSERT_TRUE(Read(kNumbers[2])) << "all that is needed has been read";
    failing_.FailAt(n, true);
    bool isWritten = false;
    try {
      isWritten = Write(10000004);
    } catch (unsigned long) {
      ++failed;
    }
    failing_.FailAt(0, false);
    std::vector<std::int32_t> const numbers = Walk();
    std::size_t const expected = isWritten ? 4 : 3;
    EXPECT_EQ(numbers.size(), expected) << n;
    Close();
    Open(accRead);
    Told told;
    EXPECT_TRUE(VerifyLibrary(&*library_, told)) << n;
    Close();
    if (isWritten) break;
  }
  EXPECT_GE(failed, 4) << "structures, correlations, record, node";
}

// A record that is stored in the tree itself: key and values are written together.
TEST_F(BadItemsTest, NodeNeverHasAKeyWithoutItsValues) {
  Open(accUpdate);
  ASSERT_TRUE(maint_->CreateBank("VANLAAR", "A", 0));
  FaceRef<IZelBankDef> const pair(NewBank("VANLAAR"));
  double const aij = 1.5;
  pair->SetDoubleField("aij", &aij);
  key_.SetKey(1L, 2L);
  std::size_t const before = failing_.Trace().size();
  ASSERT_TRUE(maint_->WriteItem(pair.Get(), "A", &key_));
  int nodes = 0;
  for (std::size_t i = before; i < failing_.Trace().size(); ++i) {
    auto const& bytes = failing_.Trace()[i].bytes;
    std::int32_t words[20] = {};
    for (std::size_t k = 0; k < 20 && 4 * k + 24 <= bytes.size(); ++k)
      words[k] = test::FileWord(bytes.data() + 20 + 4 * k);
    if (words[0] != 1 || words[1] != 2) continue;
    ++nodes;
    auto const stored = std::bit_cast<std::int32_t>(static_cast<float>(aij));
    EXPECT_NE(std::count(std::begin(words), std::end(words), stored), 0) << "write " << i;
  }
  EXPECT_EQ(nodes, 1) << "key and values came at once";
}

}  // namespace
}  // namespace zel
