#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "store/key.h"
#include "store/lib_file.h"
#include "store/packed_text.h"
#include "tests/support/memory_file_system.h"

namespace zel {
namespace {

// A library whose identifier trees are filled by hand.
class KnownIds {
 public:
  KnownIds() : library_(files_, accUpdate, "/k.lb1", "k") { library_.CreateNew(libKind11); }

  void AddId(char const* id, std::int32_t number) {
    std::int32_t key[10] = {};
    TextToWords(id, key, 2);
    Add(*library_.GetCharIdTree(), key, number);
  }
  void AddCas(std::int32_t cas, std::int32_t number) {
    std::int32_t key[10] = {cas};
    Add(*library_.GetCasTree(), key, number);
  }
  LibFile* Library() { return &library_; }

 private:
  static void Add(BTree_i& tree, std::int32_t const* key, std::int32_t number) {
    std::int32_t const* found = nullptr;
    ASSERT_FALSE(tree.Find(key, found));
    tree.Insert(key, format::kNullAddress, format::kNullAddress);
    std::int32_t* data = nullptr;
    ASSERT_TRUE(tree.GetCurrentData(data));
    *data = number;
    tree.WriteCurrentNode();
  }

  test::MemoryFileSystem files_;
  LibFile_i library_;
};

std::vector<std::int32_t> Words(Key_i const& key, std::size_t n) {
  return {key.GetKeyWords(), key.GetKeyWords() + n};
}

class KeyTest : public ::testing::Test {
 protected:
  void TearDown() override { LibFile::ClearOrdwinNameIndex(); }
  bool Resolve(LibFile* library, std::int32_t mode = 0) {
    return key_.ResolveKey(library, mode, swapped_);
  }

  Key_i key_;
  bool swapped_ = true;
};

TEST_F(KeyTest, FreshKeyIsEmpty) {
  EXPECT_EQ(key_.GetCompCount(), 0);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(key_.GetCompKind(i), keyNone);
}

TEST_F(KeyTest, NumberIsKept) {
  key_.SetKey(5L);
  long number = 0;
  key_.GetCompNumber(0, number);
  EXPECT_EQ(key_.GetCompCount(), 1);
  EXPECT_EQ(key_.GetCompKind(0), keyNumber);
  EXPECT_EQ(number, 5);
}

TEST_F(KeyTest, IdsAreUpperCasedAndCutToEight) {
  char text[9];
  key_.SetKey("ab", "abcdefghi");
  key_.GetCompText(0, text);
  EXPECT_STREQ(text, "AB");
  key_.GetCompText(1, text);
  EXPECT_STREQ(text, "ABCDEFGH");
  EXPECT_EQ(key_.GetCompKind(2), keyNone);
}

TEST_F(KeyTest, EveryOverloadSetsKindsAndCount) {
  casn const s("64-17-5");
  char const* const c = "X";
  long const n = 4;
  auto const kinds = [&] {
    std::string text;
    for (int i = 0; i < key_.GetCompCount(); ++i) text += "-nct"[key_.GetCompKind(i)];
    return text;  // n number, c text, t CAS
  };
#define CHECK_KEY(expected, ...) \
  key_.SetKey(__VA_ARGS__);      \
  EXPECT_EQ(kinds(), expected)
  CHECK_KEY("ttt", s, s, s);
  CHECK_KEY("ttc", s, s, c);
  CHECK_KEY("ttn", s, s, n);
  CHECK_KEY("tct", s, c, s);
  CHECK_KEY("tcc", s, c, c);
  CHECK_KEY("tcn", s, c, n);
  CHECK_KEY("tnt", s, n, s);
  CHECK_KEY("tnc", s, n, c);
  CHECK_KEY("tnn", s, n, n);
  CHECK_KEY("ctt", c, s, s);
  CHECK_KEY("ctc", c, s, c);
  CHECK_KEY("ctn", c, s, n);
  CHECK_KEY("cct", c, c, s);
  CHECK_KEY("ccc", c, c, c);
  CHECK_KEY("ccn", c, c, n);
  CHECK_KEY("cnt", c, n, s);
  CHECK_KEY("cnc", c, n, c);
  CHECK_KEY("cnn", c, n, n);
  CHECK_KEY("ntt", n, s, s);
  CHECK_KEY("ntc", n, s, c);
  CHECK_KEY("ntn", n, s, n);
  CHECK_KEY("nct", n, c, s);
  CHECK_KEY("ncc", n, c, c);
  CHECK_KEY("ncn", n, c, n);
  CHECK_KEY("nnt", n, n, s);
  CHECK_KEY("nnc", n, n, c);
  CHECK_KEY("tt", s, s);
  CHECK_KEY("tc", s, c);
  CHECK_KEY("tn", s, n);
  CHECK_KEY("ct", c, s);
  CHECK_KEY("cc", c, c);
  CHECK_KEY("cn", c, n);
  CHECK_KEY("nt", n, s);
  CHECK_KEY("nc", n, c);
  CHECK_KEY("t", s);
  CHECK_KEY("c", c);
  CHECK_KEY("nnn", n, n, n);
  CHECK_KEY("nn", n, n);
  CHECK_KEY("n", n);
#undef CHECK_KEY
}

TEST_F(KeyTest, GettersGiveWhatTheKindSays) {
  casn cas;
  long number = 7;
  char text[9] = "as is";
  key_.SetKey(casn("64-17-5"), 3L);
  key_.GetCompCasn(0, cas);
  EXPECT_EQ(static_cast<long>(cas), 64175);
  key_.GetCompNumber(0, number);
  EXPECT_EQ(number, 64175);
  key_.GetCompText(0, text);
  EXPECT_STREQ(text, "as is") << "the text of a CAS component is not given";
  key_.GetCompText(1, text);
  EXPECT_STREQ(text, "");
  key_.GetCompCasn(1, cas);
  EXPECT_EQ(static_cast<long>(cas), 0);
  for (int position : {-1, 3, 1000}) {
    EXPECT_EQ(key_.GetCompKind(position), keyNone);
    key_.GetCompNumber(position, number);
    EXPECT_EQ(number, 0);
  }
}

TEST_F(KeyTest, DirectWordsAreCutToTen) {
  std::int32_t const words[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  key_.SetKeyWords(12, words);
  EXPECT_EQ(key_.GetCompCount(), 10);
  EXPECT_EQ(Words(key_, 10), std::vector<std::int32_t>(words, words + 10));
  EXPECT_EQ(key_.GetCompKind(0), keyNone);
  key_.SetKeyWords(0, words);
  EXPECT_EQ(key_.GetCompCount(), 0);
  key_.SetKey(3L);  // no longer direct
  EXPECT_EQ(key_.GetCompKind(0), keyNumber);
}

TEST_F(KeyTest, TextIsPackedIntoWords) {
  key_.SetKeyText(3, "ABCDEFGHIJKL");
  std::int32_t words[3];
  TextToWords("ABCDEFGHIJKL", words, 3);
  EXPECT_EQ(Words(key_, 3), std::vector<std::int32_t>(words, words + 3));
  EXPECT_EQ(key_.GetCompCount(), 3);
}

TEST_F(KeyTest, ClearEmpties) {
  key_.SetKey(1L, 2L);
  key_.ClearKey();
  EXPECT_EQ(key_.GetCompCount(), 0);
  EXPECT_EQ(key_.GetCompKind(0), keyNone);
}

TEST_F(KeyTest, ShortKeysAreWidened) {
  key_.SetKey(7L);
  key_.FitCompCount(2, 1);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{7, 7}));

  key_.SetKey(4L, 5L);
  key_.FitCompCount(3, 2);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 3), (std::vector<std::int32_t>{4, 5, 2147483647}));

  key_.SetKey(4L, 5L);
  key_.FitCompCount(2, 2);
  EXPECT_EQ(key_.GetCompCount(), 2);

  key_.ClearKey();
  key_.FitCompCount(2, 0);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{2147483647, 2147483647}));
}

TEST_F(KeyTest, DirectKeyOfOneWordIsDoubledToo) {
  std::int32_t const word = 9;
  key_.SetKeyWords(1, &word);
  key_.FitCompCount(2, 0);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{9, 9}));
}

TEST_F(KeyTest, SortingGoesByTheMode) {
  struct {
    std::int32_t mode;
    std::vector<std::int32_t> words;
    bool swapped;
  } const kRows[] = {{0, {9, 3}, false}, {1, {3, 9}, false}, {2, {3, 9}, true}, {3, {9, 3}, false}};
  for (auto const& row : kRows) {
    key_.SetKey(9L, 3L);
    ASSERT_TRUE(Resolve(nullptr, row.mode));
    EXPECT_EQ(Words(key_, 2), row.words) << row.mode;
    EXPECT_EQ(swapped_, row.swapped) << row.mode;
  }
  key_.SetKey(3L, 9L);
  ASSERT_TRUE(Resolve(nullptr, 2));
  EXPECT_FALSE(swapped_);
}

TEST_F(KeyTest, DirectKeyStaysReversedForTheNextResolution) {
  std::int32_t const words[] = {9, 3};
  key_.SetKeyWords(2, words);
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(Resolve(nullptr, 2));
    EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{3, 9}));
    EXPECT_TRUE(swapped_);
  }
}

TEST_F(KeyTest, IdsAndCasNumbersResolveThroughTheLibrary) {
  KnownIds known;
  known.AddId("WATER", 12);
  known.AddCas(64175, 7);
  key_.SetKey("water", casn("64-17-5"));
  ASSERT_TRUE(Resolve(known.Library()));
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{12, 7}));
}

TEST_F(KeyTest, UnknownComponentFailsWithoutANameIndex) {
  KnownIds known;
  key_.SetKey(5L, "NOBODY");
  EXPECT_FALSE(Resolve(known.Library()));
  EXPECT_EQ(Words(key_, 1)[0], 5) << "words in front were written";
  key_.SetKey(casn("7732-18-6"));  // the empty number is never looked up
  EXPECT_FALSE(Resolve(known.Library()));
}

TEST_F(KeyTest, NameIndexServesWhatTheLibraryDoesNotKnowAndIsCached) {
  KnownIds library;
  auto index = std::make_unique<KnownIds>();
  index->AddId("ETHANOL", 44);
  LibFile::SetOrdwinNameIndex(index->Library());
  key_.SetKey("ETHANOL");
  ASSERT_TRUE(Resolve(library.Library()));
  EXPECT_EQ(Words(key_, 1)[0], 44);
  LibFile::ClearOrdwinNameIndex();
  ASSERT_TRUE(Resolve(library.Library())) << "the cached number serves";
  key_.ClearCache();
  EXPECT_FALSE(Resolve(library.Library()));
}

TEST_F(KeyTest, LibraryIsAskedBeforeTheCache) {
  KnownIds library;
  KnownIds index;
  index.AddId("X", 1);
  LibFile::SetOrdwinNameIndex(index.Library());
  key_.SetKey("X");
  ASSERT_TRUE(Resolve(library.Library()));
  library.AddId("X", 2);
  ASSERT_TRUE(Resolve(library.Library()));
  EXPECT_EQ(Words(key_, 1)[0], 2);
}

TEST_F(KeyTest, NameIndexAsTheLibraryGoesStraightToTheCache) {
  KnownIds index;
  index.AddId("X", 1);
  LibFile::SetOrdwinNameIndex(index.Library());
  key_.SetKey("X");
  ASSERT_TRUE(Resolve(index.Library()));
  EXPECT_EQ(Words(key_, 1)[0], 1);
}

TEST_F(KeyTest, AssignmentBetweenKeysChangesNeither) {
  Key* a = Key::NewKey();
  Key* b = Key::NewKey();
  a->SetKey(1L);
  b->SetKey(2L, 3L);
  *a = *b;
  EXPECT_EQ(dynamic_cast<Key_p*>(a)->GetCompCount(), 1);
  EXPECT_EQ(dynamic_cast<Key_p*>(b)->GetCompCount(), 2);
  Key::DelKey(a);
  auto* inner = dynamic_cast<Key_p*>(b);
  Key_p::DelKey(inner);
  EXPECT_EQ(a, nullptr);
  EXPECT_EQ(inner, nullptr);
  Key::DelKey(a);  // null: nothing
}

}  // namespace
}  // namespace zel
