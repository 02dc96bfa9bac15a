// Keys resolved through libraries and the name index.
#include <gtest/gtest.h>

#include <memory>

#include "tests/store/key_fixture.h"

namespace zel {
namespace {

using test::KeyTest;
using test::KnownIds;
using test::Words;

TEST_F(KeyTest, IdsAndCasNumbersResolveThroughTheLibrary) {
  KnownIds known;
  known.AddId("WATER", 12);
  known.AddCas(64175, 7);
  key_.SetKey("water", casn("64-17-5"));
  ASSERT_TRUE(Resolve(known.Library()));
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{12, 7}));
}

TEST_F(KeyTest, LibraryLooksUpIdsOfEightCharactersInAnyCase) {
  KnownIds known;
  known.AddId("ABCDEFGH", 3);
  known.AddCas(0, 4);
  auto* library = dynamic_cast<LibFile_p*>(known.Library());
  std::int32_t const* data = nullptr;
  ASSERT_TRUE(library->FindIdNumbers("abcdEFGH", data));
  EXPECT_EQ(data[0], 3);
  std::int32_t* own = nullptr;
  EXPECT_FALSE(library->FindIdNumbers("ABCDEFGHI", data)) << "too long, not cut";
  EXPECT_TRUE(library->GetCharIdTree()->GetCurrentData(own)) << "nor searched";
  std::int32_t const number[10] = {0};
  ASSERT_TRUE(library->GetCasTree()->Find(number, data));
  EXPECT_FALSE(library->FindCasNumbers(casn(), data)) << "0 is never searched";
  EXPECT_TRUE(library->GetCasTree()->GetCurrentData(own));
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
  index.ChangeId("X", 2);
  ASSERT_TRUE(Resolve(index.Library()));
  EXPECT_EQ(Words(key_, 1)[0], 1) << "from the cache";
  key_.ClearCache();
  ASSERT_TRUE(Resolve(index.Library()));
  EXPECT_EQ(Words(key_, 1)[0], 2);
}

// The cache belongs to the place, not to the component in it.
TEST_F(KeyTest, CachedNumberOutlivesItsComponent) {
  KnownIds library;
  KnownIds index;
  index.AddId("X", 1);
  index.AddId("Y", 2);
  LibFile::SetOrdwinNameIndex(index.Library());
  key_.SetKey("X");
  ASSERT_TRUE(Resolve(library.Library()));
  key_.SetKey("Y");
  ASSERT_TRUE(Resolve(library.Library()));
  EXPECT_EQ(Words(key_, 1)[0], 1);
}

TEST_F(KeyTest, OneKeyResolvesAgainstSeveralLibraries) {
  KnownIds one;
  KnownIds two;
  one.AddId("A", 5);
  one.AddId("B", 6);
  two.AddId("A", 8);
  two.AddId("B", 7);
  key_.SetKey("A", "B");
  ASSERT_TRUE(Resolve(two.Library(), 2));
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{7, 8}));
  EXPECT_TRUE(swapped_);
  ASSERT_TRUE(Resolve(one.Library(), 2));
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{5, 6}));
  EXPECT_FALSE(swapped_);
}

TEST_F(KeyTest, FailureKeepsTheWordsBehind) {
  KnownIds known;
  key_.SetKey(1L, 2L, 3L);
  ASSERT_TRUE(Resolve(known.Library()));
  key_.SetKey(7L, "NOBODY", 9L);
  EXPECT_FALSE(Resolve(known.Library()));
  EXPECT_EQ(Words(key_, 3), (std::vector<std::int32_t>{7, 2, 3}));
}

TEST_F(KeyTest, ThreeComponentsAreSorted) {
  key_.SetKey(9L, -3L, 5L);
  ASSERT_TRUE(Resolve(nullptr, 1));
  EXPECT_EQ(Words(key_, 3), (std::vector<std::int32_t>{-3, 5, 9}));
}

}  // namespace
}  // namespace zel
