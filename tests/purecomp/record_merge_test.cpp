// Reading a component: what is taken, from where, and what is left unchanged.
#include <cmath>
#include <cstring>
#include <limits>

#include "tests/purecomp/record_fixture.h"

namespace zel {
namespace {

using test::ComponentBank;

class MergeTest : public test::RecordTest {
 protected:
  // Reads as a search does: with a source.
  ZelStatus Take(ComponentBank& bank, std::int32_t address, char const* bankName = "B",
                 std::uint8_t isProtected = 0) {
    bank.Io()->SetSource(&library_, bankName, isProtected);
    return ReadFrom(bank, address);
  }
  static double Property(ComponentBank& bank, std::uint32_t index) {
    double value = 0.0;
    EXPECT_EQ(bank->GetProperty(index, &value), kStatusOk);
    return value;
  }
  static std::string PropertySource(ComponentBank& bank, std::uint32_t index, int* flag = nullptr) {
    char text[260];
    std::uint8_t isProtected = 9;
    EXPECT_EQ(bank->GetPropertySource(index, text, &isProtected), kStatusOk);
    if (flag != nullptr) *flag = isProtected;
    return text;
  }
  static std::string IdentitySource(ComponentBank& bank, std::uint32_t index) {
    char text[260];
    std::uint8_t isProtected = 9;
    EXPECT_EQ(bank->GetIdentitySource(index, text, &isProtected), kStatusOk);
    EXPECT_EQ(isProtected, 0);
    return text;
  }
  struct Identity {
    std::int32_t number, cas, ref;
    char ids[12][9], name[41], formula[21];
    std::uint8_t keep;
  };
  static Identity IdentityOf(ComponentBank& bank) {
    Identity i{};
    bank->GetIdentity(&i.number, &i.cas, &i.ref, i.ids, i.name, i.formula, &i.keep);
    return i;
  }
  static std::int32_t Phase(ComponentBank& bank) {
    std::int32_t phase = -1;
    bank->GetPhase(&phase);
    return phase;
  }
};

TEST_F(MergeTest, WhatWasWrittenIsReadBack) {
  ComponentBank bank;
  test::FillComponent(bank.Get());
  std::int32_t const address = Write(bank);
  ComponentBank first, second;
  EXPECT_EQ(ReadFrom(first, address), kStatusOk);
  std::int32_t const copy = Write(first);
  EXPECT_EQ(ReadFrom(second, copy), kStatusOk);
  EXPECT_EQ(test::TextOf(first.Get()), test::TextOf(second.Get()));
  EXPECT_EQ(Property(first, 5), 52.319);
  Identity const identity = IdentityOf(first);
  EXPECT_EQ(identity.number, 10000123);
  EXPECT_STREQ(identity.name, "ETHANOL");
  EXPECT_STREQ(identity.ids[11], "ID12");
  EXPECT_EQ(identity.keep, 1);
}

TEST_F(MergeTest, FloatOfATenthIsTheDoubleOfATenth) {
  ComponentBank bank;
  bank->SetProperty(0, 0.1);
  double const c[] = {0.1, 0.2};
  bank->SetCorrelation(0, 1, 10, 4015, 1, 0, 2, 0.3, 0.7, c);
  ComponentBank read;
  ReadFrom(read, Write(bank));
  EXPECT_EQ(Property(read, 0), 0.1);
  std::int32_t n[6];
  double factor, tMin, tMax, coefficients[15];
  EXPECT_EQ(read->GetCorrelation(0, &n[0], &n[1], &n[2], &factor, &n[3], &n[4], &n[5], &tMin, &tMax,
                                 coefficients),
            kStatusOk);
  EXPECT_EQ(tMin, 0.3);
  EXPECT_EQ(tMax, 0.7);
  EXPECT_EQ(coefficients[0], 0.1);
  EXPECT_EQ(coefficients[1], 0.2);
}

TEST_F(MergeTest, FirstLibraryWinsAndTheSecondFillsTheHoles) {
  ComponentBank a, b;
  test::SetIdentity(a.Get(), 10000123, 64175, "ETHANOL", 2);
  a->SetProperty(0, 46.0);
  a->SetPropertyRefCode(0, 11);
  double const c[] = {1.0};
  a->SetCorrelation(0, 1, 10, 4015, 1, 0, 1, 100, 200, c);
  test::SetIdentity(b.Get(), 20000123, 67561, "OTHER", 3);
  b->SetProperty(0, 47.0);
  b->SetProperty(1, 513.9);
  b->SetPropertyRefCode(1, 22);
  b->SetCorrelation(0, 16, 10, 4015, 1, 0, 1, 100, 200, c);
  b->SetCorrelation(1, 16, 10, 28018, 1, 0, 1, 100, 200, c);
  b->SetCorrelationRefCode(1, 33);
  b->SetSmiles("CCO");
  std::int32_t const addressA = Write(a);
  std::int32_t const addressB = Write(b);

  ComponentBank merged;
  EXPECT_EQ(Take(merged, addressA, "FIRST"), kStatusOk);
  std::string const before = test::TextOf(merged.Get());
  EXPECT_EQ(Take(merged, addressA, "AGAIN"), kStatusNothingNew);
  EXPECT_EQ(test::TextOf(merged.Get()), before);
  EXPECT_EQ(Take(merged, addressB, "SECOND", 1), kStatusOk);
  Identity const identity = IdentityOf(merged);
  EXPECT_EQ(identity.number, 10000123);
  EXPECT_STREQ(identity.name, "ETHANOL");
  EXPECT_STREQ(identity.ids[2], "ID3") << "only the unknown one is added";
  EXPECT_STREQ(identity.ids[3], "");
  int flag = -1;
  EXPECT_EQ(Property(merged, 0), 46.0);
  EXPECT_EQ(PropertySource(merged, 0, &flag), "Parts:FIRST");
  EXPECT_EQ(flag, 0);
  EXPECT_EQ(Property(merged, 1), 513.9);
  EXPECT_EQ(PropertySource(merged, 1, &flag), "Parts:SECOND");
  EXPECT_EQ(flag, 1);
  std::uint32_t code = 0;
  merged->GetPropertyRefCode(0, &code);
  EXPECT_EQ(code, 11U);
  merged->GetPropertyRefCode(1, &code);
  EXPECT_EQ(code, 22U);
  char text[260];
  std::uint8_t isProtected = 9;
  merged->GetCorrelationSource(0, text, &isProtected);
  EXPECT_STREQ(text, "Parts:FIRST");
  EXPECT_EQ(isProtected, 0);
  merged->GetCorrelationSource(1, text, &isProtected);
  EXPECT_STREQ(text, "Parts:SECOND");
  EXPECT_EQ(isProtected, 1);
  merged->GetCorrelationRefCode(1, &code);
  EXPECT_EQ(code, 33U);
  EXPECT_EQ(IdentitySource(merged, 0), "Parts:FIRST");
  EXPECT_EQ(IdentitySource(merged, 1), "Parts:FIRST");
  EXPECT_EQ(IdentitySource(merged, 3), "Parts:SECOND");
  EXPECT_EQ(Take(merged, addressB, "SECOND", 1), kStatusNothingNew);
}

TEST_F(MergeTest, ComponentWithoutAnythingGivesNothingNew) {
  ComponentBank empty, read;
  EXPECT_EQ(Take(read, Write(empty)), kStatusNothingNew);
  EXPECT_EQ(IdentitySource(read, 1), "Parts:B") << "noted whenever the own number is 0";
  EXPECT_EQ(IdentitySource(read, 0), "");
  EXPECT_EQ(Phase(read), 3) << "does not count as new";
}

TEST_F(MergeTest, ThirteenthIdIsDropped) {
  ComponentBank a, b, merged;
  test::SetIdentity(a.Get(), 1, 0, "A", 12);
  char ids[12][9] = {"NEW", "ID3"};
  b->SetIdentity(1, 0, 7, ids, "A", "", 0);
  Take(merged, Write(a));
  Take(merged, Write(b));
  Identity const identity = IdentityOf(merged);
  for (int i = 0; i < 12; ++i) EXPECT_EQ(identity.ids[i], "ID" + std::to_string(i + 1));
}

TEST_F(MergeTest, IdsOfAnItemEndAtTheFirstEmptyOne) {
  ComponentBank a, merged;
  char const ids[12][9] = {"ONE", "", "THREE"};
  a->SetIdentity(1, 0, 0, ids, "", "", 0);
  Take(merged, Write(a));
  Identity const identity = IdentityOf(merged);
  EXPECT_STREQ(identity.ids[0], "ONE");
  EXPECT_STREQ(identity.ids[1], "");
}

TEST_F(MergeTest, StoredPhaseZeroReadsAsThree) {
  ComponentBank a, read;
  std::int32_t const address = Write(a);
  EXPECT_EQ(Read<Main>(address)[4], 0);
  ReadFrom(read, address);
  EXPECT_EQ(Phase(read), 3);
  ComponentBank four, own;
  four->SetPhase(4);
  own->SetPhase(7);
  std::int32_t const solid = Write(four);
  ReadFrom(own, solid);
  EXPECT_EQ(Phase(own), 7);
  ReadFrom(read, solid);
  EXPECT_EQ(Phase(read), 3);
}

TEST_F(MergeTest, KeepMarkComesWithItsFormula) {
  ComponentBank a, merged;
  char const none[12][9] = {};
  a->SetIdentity(1, 0, 0, none, "", "NaCl", 1);
  std::int32_t const address = Write(a);
  merged->SetIdentity(0, 0, 0, none, "", "H2O", 0);
  Take(merged, address);
  EXPECT_STREQ(IdentityOf(merged).formula, "H2O");
  EXPECT_EQ(IdentityOf(merged).keep, 0);
  EXPECT_EQ(IdentitySource(merged, 0), "");
  ComponentBank read;
  Take(read, address);
  EXPECT_EQ(IdentityOf(read).keep, 1);
  EXPECT_EQ(IdentitySource(read, 0), "Parts:B");
}

TEST_F(MergeTest, UndefinedConstantsAreHolesAndZeroIsAValue) {
  ComponentBank a, merged;
  a->SetProperty(14, 0.0);
  Take(merged, Write(a));
  EXPECT_EQ(Property(merged, 14), 0.0);
  EXPECT_EQ(PropertySource(merged, 14), "Parts:B");
  EXPECT_TRUE(gen_IsUndefDouble(Property(merged, 0)));
  EXPECT_EQ(PropertySource(merged, 0), "");
  for (std::uint32_t i : {20U, 22U, 29U, 32U, 48U, 49U, 50U}) {
    EXPECT_TRUE(gen_IsUndefDouble(Property(merged, i))) << i << " stands on no file";
  }
}

TEST_F(MergeTest, StructureOfEachModelIsTakenOnItsOwn) {
  ComponentBank a, merged;
  std::int32_t const ids[] = {1, 2};
  std::int32_t const counts[] = {3, 4};
  std::int32_t const own[] = {9};
  a->SetStructure(0, 2, ids, counts);
  a->SetStructure(1, 2, ids, counts);
  a->SetStructure(2, 2, ids, counts);
  merged->SetStructure(1, 1, own, own);
  EXPECT_EQ(Take(merged, Write(a)), kStatusOk);
  std::int32_t count = 0, gotIds[10], gotCounts[10];
  merged->GetRawStructure(1, &count, gotIds, gotCounts);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(gotIds[0], 9);
  for (std::uint32_t model : {0U, 2U}) {
    EXPECT_EQ(merged->GetRawStructure(model, &count, gotIds, gotCounts), kStatusOk);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(gotIds[1], 2);
    EXPECT_EQ(gotCounts[1], 4);
  }
  EXPECT_EQ(IdentitySource(merged, 2), "Parts:B");
}

TEST_F(MergeTest, NegativeGroupWordsAreKeptAsTheyDivide) {
  ComponentBank a, read;
  std::int32_t const address = Write(a);
  Main main = Read<Main>(address);
  main[50] = -20900;
  main[59] = INT32_MIN;
  Put(address, main);
  ReadFrom(read, address);
  std::int32_t count = 0, ids[10], counts[10];
  EXPECT_EQ(read->GetLegacyStructure(&count, ids, counts), kStatusOk);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(ids[0], -900);
  EXPECT_EQ(counts[0], -2);
  EXPECT_EQ(ids[1], -3648);
  EXPECT_EQ(counts[1], -214748);
}

TEST_F(MergeTest, WildStructureReferencesReadAsNone) {
  ComponentBank a;
  std::int32_t const one[] = {1};
  a->SetStructure(2, 1, one, one);
  std::int32_t const address = Write(a);
  Main const good = Read<Main>(address);
  auto const found = [&](std::size_t word, std::int32_t value) {
    Main main = good;
    main[word] = value;
    Put(address, main);
    ComponentBank read;
    ReadFrom(read, address);
    std::int32_t count = 0, ids[10], counts[10];
    return read->GetRawStructure(2, &count, ids, counts) == kStatusOk;
  };
  EXPECT_TRUE(found(99, 126));
  EXPECT_TRUE(found(99, 999999));
  EXPECT_FALSE(found(99, 1000000));
  EXPECT_FALSE(found(99, 0));
  EXPECT_FALSE(found(99, -1));
  EXPECT_FALSE(found(99, 21)) << "only as long as it says";
  EXPECT_TRUE(found(99, 42));
  EXPECT_FALSE(found(98, good[98] + 10000000)) << "another kind of library";
  EXPECT_FALSE(found(98, 0));
  EXPECT_FALSE(found(98, 990000000));
}

TEST_F(MergeTest, StoredGroupCountsAreCutToTheirArrays) {
  ComponentBank a;
  std::int32_t const one[] = {1};
  a->SetStructure(1, 1, one, one);
  std::int32_t const address = Write(a);
  std::int32_t const block = Read<Main>(address)[98];
  for (std::int32_t stored : {-1, 0, 1, 10, 11, INT32_MAX, INT32_MIN}) {
    Structures words = Read<Structures>(block);
    words[0] = stored;
    Put(block, words);
    ComponentBank read;
    ReadFrom(read, address);
    std::int32_t count = 77, ids[10], counts[10];
    ZelStatus const status = read->GetRawStructure(1, &count, ids, counts);
    EXPECT_EQ(count, std::min(std::max(stored, 0), 10));
    EXPECT_EQ(status, stored > 0 ? kStatusOk : kStatusFailed);
  }
}

TEST_F(MergeTest, CorrelationFieldsAreTakenByTheirDigits) {
  ComponentBank a;
  double const c[] = {1.0};
  a->SetCorrelation(9, 1, 10, 42015, 1, 0, 1, 1, 2, c);
  std::int32_t const address = Write(a);
  std::int32_t const block = Read<Main>(address)[95];
  Correlations words = Read<Correlations>(block);
  words[180] = -1;          // 4294967295
  words[181] = 123456789;   // 123 and 456
  words[182] = -999999999;  // 3294967297
  Put(block, words);
  ComponentBank read;
  EXPECT_EQ(ReadFrom(read, address), kStatusOk);
  std::int32_t equation, tempUnit, propUnit, logBasis, basis, count;
  double factor, tMin, tMax, coefficients[15];
  EXPECT_EQ(read->GetCorrelation(9, &equation, &tempUnit, &propUnit, &factor, &logBasis, &basis,
                                 &count, &tMin, &tMax, coefficients),
            kStatusFailed);
  EXPECT_EQ(equation, 294);
  EXPECT_EQ(tempUnit, 295);
  EXPECT_EQ(logBasis, 123);
  EXPECT_EQ(basis, 456);
  EXPECT_EQ(count, 294);
  EXPECT_EQ(propUnit, 967297);
}

TEST_F(MergeTest, ShortCorrelationBlockGivesWhatItHolds) {
  ComponentBank a;
  test::FillComponent(a.Get());
  std::int32_t const address = Write(a);
  Main const good = Read<Main>(address);
  auto const present = [&](std::int32_t block, std::int32_t length) {
    Main main = good;
    main[95] = block;
    main[96] = length;
    for (std::size_t i = 150; i < 210; ++i) main[i] = 0;
    Put(address, main);
    ComponentBank read;
    ReadFrom(read, address);
    int n = 0;
    for (std::uint32_t i = 0; i < 18; ++i) {
      double value = 0.0, slope = 0.0;
      std::int32_t status = 0;
      n += read->EvaluateCorrelation(i, 300, 1, &value, &slope, nullptr, &status) == kStatusOk;
    }
    return n;
  };
  int const all = present(good[95], 400);
  EXPECT_GE(all, 15);
  EXPECT_EQ(present(good[95], INT32_MAX), all);
  EXPECT_LT(present(good[95], 40), 3);
  EXPECT_EQ(present(good[95], 0), 0) << "the older layout, with no entry";
  EXPECT_EQ(present(0, 400), 0);
  EXPECT_EQ(present(990000000, 400), 0);
}

class OldLayoutTest : public MergeTest {
 protected:
  // One correlation (index 2) in a block of 1000 words, as older programs wrote it.
  void SetUp() override {
    std::array<std::int32_t, 1000> table{};
    std::int32_t* entry = &table[600];
    entry[0] = 16001011;
    entry[1] = 1002000;
    entry[2] = 28018;  // no count of coefficients
    entry[3] = WordOf(200);
    entry[4] = WordOf(500);
    for (std::size_t i = 0; i < 15; ++i) entry[5 + i] = WordOf(0.5 + static_cast<double>(i));
    block_ = New(table);
    ComponentBank empty;
    address_ = Write(empty);
    good_ = Read<Main>(address_);
    good_[95] = 0;
    good_[96] = 0;
    good_[156] = 600;
    good_[157] = 8;
    good_[158] = block_;
  }
  // True if the correlation is found with these words in its directory entry.
  bool Found(std::int32_t offset, std::int32_t words, std::int32_t block) {
    Main main = good_;
    main[156] = offset;
    main[157] = words;
    main[158] = block;
    Put(address_, main);
    ComponentBank read;
    return ReadFrom(read, address_) == kStatusOk;
  }

  std::int32_t block_ = 0;
  std::int32_t address_ = 0;
  Main good_{};
};

TEST_F(OldLayoutTest, EntryComesFromItsOffsetAndItsCountFromTheDirectory) {
  Put(address_, good_);
  ComponentBank read;
  EXPECT_EQ(Take(read, address_, "OLD"), kStatusOk);
  std::int32_t equation, tempUnit, propUnit, logBasis, basis, count;
  double factor, tMin, tMax, c[15];
  EXPECT_EQ(read->GetCorrelation(2, &equation, &tempUnit, &propUnit, &factor, &logBasis, &basis,
                                 &count, &tMin, &tMax, c),
            kStatusOk);
  EXPECT_EQ(equation, 16);
  EXPECT_EQ(tempUnit, 11);
  EXPECT_EQ(propUnit, 28018);
  EXPECT_EQ(logBasis, 1);
  EXPECT_EQ(basis, 2);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(tMin, 200.0);
  EXPECT_EQ(c[2], 2.5);
  char text[260];
  std::uint8_t flag = 0;
  read->GetCorrelationSource(2, text, &flag);
  EXPECT_STREQ(text, "Parts:OLD");
}

TEST_F(OldLayoutTest, DirectoryEntriesThatPointOutsideAreSkipped) {
  EXPECT_TRUE(Found(600, 8, block_));
  EXPECT_TRUE(Found(600, 5, block_));
  EXPECT_TRUE(Found(600, 20, block_));
  EXPECT_FALSE(Found(600, 4, block_));
  EXPECT_FALSE(Found(600, 21, block_));
  EXPECT_FALSE(Found(600, INT32_MAX, block_));
  EXPECT_FALSE(Found(600, INT32_MIN, block_));
  EXPECT_FALSE(Found(-1, 8, block_));
  EXPECT_FALSE(Found(993, 8, block_));
  EXPECT_FALSE(Found(INT32_MAX, 8, block_));
  EXPECT_FALSE(Found(600, 8, 0));
  EXPECT_FALSE(Found(600, 8, -5));
  EXPECT_FALSE(Found(600, 8, 990000000));
  EXPECT_FALSE(Found(980, 20, block_)) << "in range, and nothing there";
}

TEST_F(OldLayoutTest, WritingBringsTheItemIntoThePresentLayout) {
  Put(address_, good_);
  ComponentBank read;
  ReadFrom(read, address_);
  Write(read, address_);
  Main const main = Read<Main>(address_);
  EXPECT_EQ(main[96], 400);
  EXPECT_EQ(main[156], 40);
  EXPECT_EQ(main[157], 8);
  EXPECT_EQ(main[158], main[95]);
  EXPECT_EQ(Read<Correlations>(main[95])[42], 3028018);
}

}  // namespace
}  // namespace zel
