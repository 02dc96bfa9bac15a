// Pairs of components in a library: what an item stored for (i, j) shows when it is read as (j, i),
// and pure values of pair banks.
#include <algorithm>
#include <cstring>

#include "tests/banks/expected_fields.h"
#include "tests/maint/maint_fixture.h"

namespace zel {
namespace {

using test::ExpectedField;
using test::ExpectedType;

// Sets every number of a bank to a different value.
void FillNumbers(IZelBankDef* bank, ExpectedType const& type) {
  double next = 0.25;
  for (ExpectedField const& field : type.fields) {
    std::vector<double> reals(static_cast<std::size_t>(field.count));
    for (double& value : reals) value = next += 1.0;
    auto const whole = static_cast<std::int32_t>(next);
    std::vector<std::int32_t> const ints(reals.size(), whole);
    if (field.type == 1) bank->SetDoubleField(field.name, reals.data());
    if (field.type == 0) bank->SetIntField(field.name, ints.data());
  }
}

std::vector<double> NumbersOf(IZelBankDef* bank, ExpectedType const& type) {
  std::vector<double> all;
  for (ExpectedField const& field : type.fields) {
    std::vector<double> reals(static_cast<std::size_t>(field.count));
    std::vector<std::int32_t> ints(reals.size());
    if (field.type == 1 && bank->GetDoubleField(field.name, reals.data()) == kStatusOk) {
      all.insert(all.end(), reals.begin(), reals.end());
    } else if (bank->GetIntField(field.name, ints.data()) == kStatusOk) {
      all.insert(all.end(), ints.begin(), ints.end());
    }
  }
  return all;
}

class PairsTest : public test::MaintTest {
 protected:
  bool Read(IZelBankDef* bank, long i, long j) {
    key_.SetKey(i, j);
    return Maint().ReadItem(bank, "P", &key_);
  }
  bool Write(IZelBankDef* bank, long i, long j) {
    key_.SetKey(i, j);
    return Maint().WriteItem(bank, "P", &key_);
  }
  // Makes a bank of the type with an item for (1, 2) and returns the item's numbers.
  std::vector<double> Store(IZelBankDef* bank, ExpectedType const& type) {
    EXPECT_TRUE(Maint().CreateBank(type.keyword, "P", 0)) << type.keyword;
    FillNumbers(bank, type);
    std::vector<double> stored = NumbersOf(bank, type);
    EXPECT_TRUE(Write(bank, 1, 2)) << type.keyword;
    return stored;
  }
};

struct PairFacts {
  std::int32_t keyKind = 0, rule = 0, keyWords = 0;
};

PairFacts FactsOf(IZelBankDef* bank) {
  auto const io = FaceRef<IZelBankIO>::Of(bank, IID_IZelBankIO);
  char keyword[9];
  std::int32_t least, formats, words, resident;
  PairFacts facts;
  io->GetBlockInfo(keyword, &facts.keyKind, &facts.keyWords, &least, &formats, &words, &facts.rule,
                   &resident);
  return facts;
}

TEST_F(PairsTest, OfAsymmetricTypesTurnRoundAndOthersDoNot) {
  int asymmetric = 0;
  int symmetric = 0;
  int ordered = 0;
  for (ExpectedType const& type : test::ExpectedTypes()) {
    FaceRef<IZelBankDef> const bank(NewBank(type.keyword));
    PairFacts const facts = FactsOf(bank.Get());
    if (facts.keyKind != 0 || facts.keyWords != 2) continue;
    std::vector<double> const stored = Store(bank.Get(), type);
    FaceRef<IZelBankDef> const other(NewBank(type.keyword));
    FillNumbers(other.Get(), type);
    auto const io = FaceRef<IZelBankIO>::Of(other.Get(), IID_IZelBankIO);
    bool const turns = io->SwapPair() == kStatusOk;
    std::vector<double> const turned = NumbersOf(other.Get(), type);

    ASSERT_TRUE(Read(bank.Get(), 1, 2)) << type.keyword;
    EXPECT_EQ(NumbersOf(bank.Get(), type), stored) << type.keyword;
    bool const found = Read(bank.Get(), 2, 1);
    if (facts.rule == 3) {
      ++ordered;
      EXPECT_FALSE(found) << type.keyword;
      continue;
    }
    ASSERT_TRUE(found) << type.keyword;
    EXPECT_EQ(turns, facts.rule == 2) << type.keyword;
    EXPECT_EQ(NumbersOf(bank.Get(), type), turned) << type.keyword;
    if (facts.rule == 1) {
      ++symmetric;
      EXPECT_EQ(turned, stored) << type.keyword;
      continue;
    }
    ++asymmetric;
    EXPECT_NE(turned, stored) << type.keyword;
    // Written back as it was read: the stored item keeps its order, and the bank the caller's
    // order.
    ASSERT_TRUE(Write(bank.Get(), 2, 1)) << type.keyword;
    EXPECT_EQ(NumbersOf(bank.Get(), type), turned) << type.keyword;
    ASSERT_TRUE(Maint().RewriteItem(bank.Get())) << type.keyword;
    EXPECT_EQ(NumbersOf(bank.Get(), type), turned) << type.keyword;
    ASSERT_TRUE(Read(bank.Get(), 1, 2)) << type.keyword;
    EXPECT_EQ(NumbersOf(bank.Get(), type), stored) << type.keyword;
  }
  EXPECT_EQ(asymmetric, 16);
  EXPECT_EQ(symmetric, 7);
  EXPECT_EQ(ordered, 1);
}

TEST_F(PairsTest, HeatOfMixingReadReversedHasOtherSigns) {
  FaceRef<IZelBankDef> const bank(NewBank("HMIX"));
  auto const face = FaceRef<IZelHMix>::Of(bank.Get(), IID_IZelHMix);
  Maint().CreateBank("HMIX", "P", 0);
  face->PutData(1, 2, 3, 4, 5, 6, 7, 8, 300, 400, -1e35, 2, 9);
  ASSERT_TRUE(Write(bank.Get(), 1, 2));
  ASSERT_TRUE(Read(bank.Get(), 2, 1));
  double c[8], bounds[4];
  std::int32_t code = 0;
  face->GetData(c, c + 1, c + 2, c + 3, c + 4, c + 5, c + 6, c + 7, bounds, bounds + 1, bounds + 2,
                bounds + 3, &code);
  EXPECT_EQ(std::vector<double>(c, c + 8), (std::vector<double>{1, -2, 3, -4, 5, -6, 7, -8}));
  EXPECT_EQ(std::vector<double>(bounds, bounds + 4), (std::vector<double>{300, 400, -1e35, 2}));
  EXPECT_EQ(code, 9);
}

TEST_F(PairsTest, AzeotropeReadReversedShowsTheOtherFraction) {
  FaceRef<IZelBankDef> const bank(NewBank("AZEOTROP"));
  auto const face = FaceRef<IZelAzeo>::Of(bank.Get(), IID_IZelAzeo);
  Maint().CreateBank("AZEOTROP", "P", 0);
  face->PutData(351.3, 101.325, 0.3, 2);
  ASSERT_TRUE(Write(bank.Get(), 1, 2));
  ASSERT_TRUE(Read(bank.Get(), 2, 1));
  double temp = 0, pres = 0, x1 = 0;
  std::int32_t basis = 0;
  face->GetData(&temp, &pres, &x1, &basis);
  EXPECT_EQ(temp, 351.3);
  EXPECT_EQ(pres, 101.325);
  EXPECT_DOUBLE_EQ(x1, 0.7);
  EXPECT_EQ(basis, 2);
  ASSERT_TRUE(Read(bank.Get(), 1, 2));
  face->GetData(&temp, &pres, &x1, &basis);
  EXPECT_EQ(x1, 0.3);
}

TEST_F(PairsTest, PureValuesStandBesideThoseOfPairs) {
  for (char const* type : {"HOCV", "IDIMER"}) {
    char const* field = std::strcmp(type, "HOCV") == 0 ? "eta" : "Aij";
    FaceRef<IZelBankDef> const bank(NewBank(type));
    ASSERT_TRUE(Maint().CreateBank(type, "P", 0));
    double value = 0.5;
    bank->SetDoubleField(field, &value);
    key_.SetKey(7L);
    ASSERT_TRUE(Maint().WriteItem(bank.Get(), "P", &key_));
    value = 1.5;
    bank->SetDoubleField(field, &value);
    ASSERT_TRUE(Write(bank.Get(), 9, 7));
    ASSERT_TRUE(Read(bank.Get(), 7, 7)) << type;
    bank->GetDoubleField(field, &value);
    EXPECT_EQ(value, 0.5) << type;
    ASSERT_TRUE(Read(bank.Get(), 7, 9)) << type;
    bank->GetDoubleField(field, &value);
    EXPECT_EQ(value, 1.5) << type;
    EXPECT_FALSE(Read(bank.Get(), 9, 9)) << type;
  }
}

TEST_F(PairsTest, WilsonOfAnOldBankHasItsNewChoicesByDefault) {
  FaceRef<IZelBankDef> const bank(NewBank("WILSON"));
  auto const face = FaceRef<IZelWilson>::Of(bank.Get(), IID_IZelWilson);
  ASSERT_TRUE(Maint().CreateBank("WILSON", "P", 1));
  face->PutData(24013, 1, 2, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17);
  ASSERT_TRUE(Write(bank.Get(), 1, 2));
  Reopen(accRead);
  ASSERT_TRUE(Read(bank.Get(), 2, 1));
  double value = 0;
  std::int32_t choice = 7;
  bank->GetDoubleField("aij", &value);
  EXPECT_EQ(value, 2.0);
  bank->GetDoubleField("bij", &value);
  EXPECT_TRUE(gen_IsUndefDouble(value));
  bank->GetIntField("form", &choice);
  EXPECT_EQ(choice, 24013);
  bank->GetIntField("eqnForm", &choice);
  EXPECT_EQ(choice, 0);
  bank->GetIntField("volRatio", &choice);
  EXPECT_EQ(choice, 1);
}

}  // namespace
}  // namespace zel
