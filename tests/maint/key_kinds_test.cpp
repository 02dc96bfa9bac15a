// Keys that are not component numbers: group numbers of one or two parts, and texts.
#include <numeric>

#include "tests/maint/maint_fixture.h"

namespace zel {
namespace {

class KeyKindsTest : public test::MaintTest {
 protected:
  // Makes bank K of a type and returns an object of that type.
  FaceRef<IZelBankDef> Make(char const* type, std::int32_t format = 0) {
    EXPECT_TRUE(Maint().CreateBank(type, "K", format)) << type;
    return FaceRef<IZelBankDef>(NewBank(type));
  }
  using Words = std::vector<std::int32_t>;
  bool Write(FaceRef<IZelBankDef> const& bank, Words const& words) {
    key_.SetKeyWords(static_cast<long>(words.size()), words.data());
    return Maint().WriteItem(bank.Get(), "K", &key_);
  }
  bool Read(FaceRef<IZelBankDef> const& bank, Words const& words) {
    key_.SetKeyWords(static_cast<long>(words.size()), words.data());
    return Maint().ReadItem(bank.Get(), "K", &key_);
  }
  // The keys of all items of bank K.
  std::vector<Words> Keys(char const* type, std::size_t keyWords) {
    std::vector<Words> keys;
    std::int32_t words[10];
    EXPECT_TRUE(Maint().BeginItemWalk(type, "K"));
    while (Maint().NextItemKey(words)) keys.emplace_back(words, words + keyWords);
    return keys;
  }
};

double RealOf(FaceRef<IZelBankDef> const& bank, char const* field) {
  double value = 0.0;
  EXPECT_EQ(bank->GetDoubleField(field, &value), kStatusOk);
  return value;
}

TEST_F(KeyKindsTest, GroupPairsAreStoredLowerFirstAndTurnRoundWhole) {
  auto const bank = Make("UNIFAC");
  auto const face = FaceRef<IZelUnifac>::Of(bank.Get(), IID_IZelUnifac);
  double tij[9], tji[9], outIj[9], outJi[9], v[4];
  std::iota(tij, tij + 9, 100.0);
  std::iota(tji, tji + 9, 200.0);
  face->PutData(1, 2, 3, 4, tij, tji);
  ASSERT_TRUE(Write(bank, {3, 7}));
  ASSERT_TRUE(Read(bank, {7, 3}));
  face->GetData(v, v + 1, v + 2, v + 3, outIj, outJi);
  EXPECT_TRUE(std::equal(tij, tij + 9, outJi));
  EXPECT_TRUE(std::equal(tji, tji + 9, outIj));
  EXPECT_EQ((std::vector{v[0], v[1], v[2], v[3]}), (std::vector<double>{2, 1, 4, 3}));
  EXPECT_EQ(Keys("UNIFAC", 2), (std::vector<Words>{{3, 7}}));
}

TEST_F(KeyKindsTest, SetsGroupsAndInteractionsShareATree) {
  std::int32_t const any = 2147483647;
  for (char const* type : {"UNFDORT", "UNFLYNG", "UNFMOD", "UNFORIG", "PSRK"}) {
    auto const bank = Make(type);
    auto const write = [&](Words const& words, double r) {
      bank->SetDoubleField("r", &r);
      return Write(bank, words);
    };
    ASSERT_TRUE(write({}, 1.0) && write({5}, 2.0) && write({5, 3}, 3.0)) << type;
    EXPECT_EQ(Keys(type, 2), (std::vector<Words>{{3, 5}, {5, 5}, {any, any}})) << type;
    for (Words const& words : {Words{}, Words{any, any}}) {
      ASSERT_TRUE(Read(bank, words)) << type;
      EXPECT_EQ(RealOf(bank, "r"), 1.0) << type;
    }
    for (Words const& words : {Words{5}, Words{5, 5}}) {
      ASSERT_TRUE(Read(bank, words)) << type;
      EXPECT_EQ(RealOf(bank, "r"), 2.0) << type;
    }
    ASSERT_TRUE(Read(bank, {3, 5})) << type;
    EXPECT_EQ(RealOf(bank, "r"), 3.0) << type;
    EXPECT_FALSE(Read(bank, {3})) << type;
  }
}

TEST_F(KeyKindsTest, GroupNamesKeepTheOrderOfTheirKeys) {
  auto const bank = Make("GRPDESC");
  for (Words const& words : {Words{9, 2}, Words{2, 9}, Words{4}}) {
    bank->SetStringField("name", std::to_string(words[0]).c_str());
    ASSERT_TRUE(Write(bank, words));
  }
  EXPECT_EQ(Keys("GRPDESC", 2), (std::vector<Words>{{2, 9}, {4, 4}, {9, 2}}));
  char name[21];
  ASSERT_TRUE(Read(bank, {9, 2}));
  bank->GetStringField("name", name);
  EXPECT_STREQ(name, "9");
  EXPECT_TRUE(Read(bank, {4, 4}));
}

// Pair parameters of groups on another scale, symmetric: both orders show the same.
TEST_F(KeyKindsTest, SymmetricGroupPairIsOneItem) {
  auto const bank = Make("PPR78");
  auto const face = FaceRef<IZelPpr78>::Of(bank.Get(), IID_IZelPpr78);
  face->PutData(52.5, 286.75);
  ASSERT_TRUE(Write(bank, {8, 1}));
  double a = 0, b = 0;
  for (Words const& words : {Words{1, 8}, Words{8, 1}}) {
    bank->Clear();
    ASSERT_TRUE(Read(bank, words));
    face->GetData(&a, &b);
    EXPECT_NEAR(a, 52.5, 52.5e-6);
    EXPECT_NEAR(b, 286.75, 286.75e-6);
  }
  EXPECT_EQ(Keys("PPR78", 2), (std::vector<Words>{{1, 8}}));
}

// The words of these texts descend: sorting them would mix up the parts of the name.
TEST_F(KeyKindsTest, TextsOfMappingBanksAreNotSorted) {
  struct {
    char const* type;
    long words;
    char const* text;
    char const* other;
  } const rows[] = {{"MAPORW", 3, "ZINCMEALAQUA", "AQUAMEALZINC"},
                    {"OLI", 4, "ZINCMEALCHLOAQUA", "AQUACHLOMEALZINC"}};
  for (auto const& row : rows) {
    auto const bank = Make(row.type);
    std::int32_t number = 10000012;
    bank->SetIntField("libnum", &number);
    key_.SetKeyText(row.words, row.text);
    ASSERT_TRUE(Maint().WriteItem(bank.Get(), "K", &key_)) << row.type;
    number = 0;
    ASSERT_TRUE(Maint().ReadItem(bank.Get(), "K", &key_)) << row.type;
    bank->GetIntField("libnum", &number);
    EXPECT_EQ(number, 10000012) << row.type;
    key_.SetKeyText(row.words, row.other);
    EXPECT_FALSE(Maint().ReadItem(bank.Get(), "K", &key_)) << row.type;
    std::int32_t words[10];
    key_.SetKeyText(row.words, row.text);
    ASSERT_TRUE(Maint().BeginItemWalk(row.type, "K"));
    ASSERT_TRUE(Maint().NextItemKey(words));
    EXPECT_TRUE(std::equal(words, words + row.words, key_.GetKeyWords())) << row.type;
  }
}

TEST_F(KeyKindsTest, NumbersMapToNamesOfTwelveCharacters) {
  auto const bank = Make("ORWMAP");
  std::int32_t count = 0;
  for (std::int32_t format : {0, 1}) {
    bank->GetFieldCount(format, &count);
    EXPECT_EQ(count, 1);
  }
  auto const face = FaceRef<IZelOrwMap>::Of(bank.Get(), IID_IZelOrwMap);
  char name[13];
  face->PutData("TwelveLetter");
  ASSERT_TRUE(Write(bank, {10000012}));
  face->PutData("ThirteenChars");
  ASSERT_TRUE(Write(bank, {10000007}));
  ASSERT_TRUE(Read(bank, {10000012}));
  face->GetData(name);
  EXPECT_STREQ(name, "TwelveLetter");
  ASSERT_TRUE(Read(bank, {10000007}));
  face->GetData(name);
  EXPECT_STREQ(name, "ThirteenChar");
}

TEST_F(KeyKindsTest, OldSetNamesNoOtherBanks) {
  auto const bank = Make("PSRK", 1);
  bank->SetRefBankName("PURECOMP", "PURE");
  bank->SetRefBankName("ALPHA", "ALPHAS");
  ASSERT_TRUE(Write(bank, {}));
  char const types[2][9] = {"PURECOMP", "ALPHA"};
  char names[2][9] = {"x", "x"};
  Maint().GetRefBankNames("PSRK", "K", 2, types, names);
  EXPECT_STREQ(names[0], "");
  EXPECT_STREQ(names[1], "");
}

}  // namespace
}  // namespace zel
