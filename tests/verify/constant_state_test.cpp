// Whether a derived constant was computed from data that exist.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "zelaccess/Handles.h"
#include "zelaccess/PureComp.h"
#include "zelaccess/Types.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

constexpr std::uint32_t kMW = 0, kTC = 1, kPC = 2, kVC = 3, kZC = 4, kAcentric = 5, kNBP = 8,
                        kSG = 9, kVolume = 10, kSolubility = 11, kParachor = 12, kFormation = 24,
                        kLHV = 34, kCNUM = 35, kCombust = 45;

class ConstantStateTest : public ::testing::Test {
 protected:
  IZelPureComp* operator->() { return c_.operator->(); }
  void Formula(char const* formula) {
    char ids[12][9] = {"XXX"};
    c_->SetIdentity(7, 0, 0, ids, "X", formula, 0);
  }
  void Curve(std::uint32_t index, std::int32_t tempUnit, double value) {
    double const coefficients[15] = {value};
    c_->SetCorrelation(index, 1, tempUnit, 0, 0, 0, 1, 100.0, 1000.0, coefficients);
  }
  void Complete() {
    void* face = nullptr;
    ASSERT_EQ(c_.Def()->QueryInterface(IID_IZelBankIO, &face), kStatusOk);
    auto* const io = static_cast<IZelBankIO*>(face);
    io->Complete();
    io->Release();
  }
  zelConstantStates Of(std::uint32_t index) { return GetConstantState(c_.operator->(), index); }

  BankFace<IZelPureComp> c_{"PURECOMP", IID_IZelPureComp};
};

TEST_F(ConstantStateTest, EmptyComponentHasNothingThatCounts) {
  Complete();
  for (std::uint32_t index = 0; index < 100; ++index) {
    EXPECT_TRUE(Of(index) == constantMissing || Of(index) == constantUnfounded) << index;
  }
  EXPECT_EQ(Of(kParachor), constantUnfounded);
  EXPECT_EQ(Of(kCNUM), constantUnfounded);
  EXPECT_EQ(Of(70), constantUnfounded) << "a fraction of atoms that nobody counted";
}

// Every label of the fill-in is known: all constants of a full component are founded.
TEST_F(ConstantStateTest, FullComponentIsFounded) {
  Formula("C2H6OS");
  struct {
    std::uint32_t index;
    double value;
  } const rows[] = {{kMW, 78.1},   {kTC, 600.0}, {kPC, 5000.0},   {kVC, 0.25},
                    {kNBP, 400.0}, {kSG, 1.1},   {kVolume, 0.07}, {kFormation, -150000.0}};
  for (auto const& row : rows) c_->SetProperty(row.index, row.value);
  Curve(0, 10, 1000.0);
  Curve(3, 10, 50000.0);
  Complete();
  for (std::uint32_t index = 0; index < 100; ++index) {
    EXPECT_NE(Of(index), constantUnfounded) << index;
  }
  for (std::uint32_t const index : {kZC, kAcentric, kSolubility, kParachor, kLHV, kCNUM, kCombust,
                                    50U, 52U, 53U, 57U, 60U, 61U, 64U, 70U, 71U, 74U, 80U}) {
    EXPECT_EQ(Of(index), constantFilledIn) << index;
  }
  EXPECT_EQ(Of(kTC), constantStored);
}

// Removes one input after another.
TEST_F(ConstantStateTest, EachInputCounts) {
  struct {
    std::uint32_t index;
    std::vector<std::uint32_t> inputs;
  } const rows[] = {{kParachor, {kMW, kTC, kVC}}, {70, {kMW}}, {74, {kMW}}, {80, {kMW}}};
  for (auto const& row : rows) {
    for (std::uint32_t const input : row.inputs) {
      Formula("C2H6O");
      for (std::uint32_t const index : {kMW, kTC, kVC}) c_->SetProperty(index, 0.9);
      Complete();
      EXPECT_EQ(Of(row.index), constantFilledIn) << row.index;
      c_->SetProperty(input, gen_GetUndefDouble());
      Complete();
      EXPECT_NE(Of(row.index), constantFilledIn) << row.index << " without " << input;
    }
  }
}

TEST_F(ConstantStateTest, FormulaCounts) {
  for (char const* formula : {"", "mixture", "petro", "C2Xx"}) {
    Formula(formula);
    c_->SetProperty(kFormation, -1000.0);
    Complete();
    for (std::uint32_t const index : {kCNUM, kLHV, kCombust, 60U, 61U}) {
      EXPECT_EQ(Of(index), constantUnfounded) << formula << index;
    }
  }
}

TEST_F(ConstantStateTest, RecordsInKelvinAlone) {
  c_->SetProperty(kTC, 600.0);
  c_->SetProperty(kPC, 5000.0);
  c_->SetProperty(kVolume, 0.07);
  for (std::int32_t const unit : {10, 11, 12, 13}) {
    Curve(0, unit, 1000.0);
    Curve(3, unit, 50000.0);
    Complete();
    zelConstantStates const expected = unit == 10 ? constantFilledIn : constantUnfounded;
    EXPECT_EQ(Of(kAcentric), expected) << unit;
    EXPECT_EQ(Of(kSolubility), expected) << unit;
  }
}

TEST_F(ConstantStateTest, OtherIndicesAndNull) {
  EXPECT_EQ(GetConstantState(nullptr, 0), constantMissing);
  EXPECT_EQ(Of(100), constantMissing);
  EXPECT_EQ(Of(UINT32_MAX), constantMissing);
}

}  // namespace
}  // namespace zel
