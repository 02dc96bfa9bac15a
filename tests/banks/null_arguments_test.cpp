// Null arguments of typed operations: unwanted outputs and missing inputs.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <tuple>
#include <type_traits>
#include <utility>

#include "tests/banks/bank_fields.h"

namespace zel {
namespace {

using test::Fields;
using test::Typed;

constexpr std::size_t kMost = 21;  // elements of the longest argument

// Filled with values that no cleared bank returns.
template <typename... Outs>
struct Buffers {
  std::tuple<std::array<std::remove_pointer_t<Outs>, kMost>...> values;

  Buffers() {
    std::apply([](auto&... array) { (array.fill(7), ...); }, values);
  }
};

// Calls an operation with the buffers whose number `wanted` accepts, and null for the others.
template <typename Face, typename... Outs, typename Wanted, std::size_t... I>
ZelStatus Call(Face* face, ZelStatus (Face::*get)(Outs...), Buffers<Outs...>& buffers,
               Wanted const& wanted, std::index_sequence<I...>) {
  return (face->*get)((wanted(I) ? std::get<I>(buffers.values).data() : nullptr)...);
}

template <typename Tuple, std::size_t... I>
std::array<bool, sizeof...(I)> SameArrays(Tuple const& a, Tuple const& b,
                                          std::index_sequence<I...>) {
  return {(std::get<I>(a) == std::get<I>(b))...};
}

// Each output alone is the same as with all others, and having no output is a failure.
template <typename Face, typename... Outs>
void CheckOutputs(char const* type, ZelIid const& id, ZelStatus (Face::*get)(Outs...)) {
  SCOPED_TRACE(type);
  Typed<Face> const bank(type, id);
  Face* face = bank.operator->();
  constexpr auto kAll = std::index_sequence_for<Outs...>{};
  Buffers<Outs...> all;
  ASSERT_EQ(Call(
                face, get, all, [](std::size_t) { return true; }, kAll),
            kStatusOk);
  for (std::size_t one = 0; one < sizeof...(Outs); ++one) {
    Buffers<Outs...> alone;
    ASSERT_EQ(Call(
                  face, get, alone, [&](std::size_t i) { return i == one; }, kAll),
              kStatusOk);
    std::array<bool, sizeof...(Outs)> const same = SameArrays(alone.values, all.values, kAll);
    for (std::size_t i = 0; i < same.size(); ++i) EXPECT_EQ(same[i], i == one) << i;
  }
  Buffers<Outs...> none;
  EXPECT_EQ(Call(
                face, get, none, [](std::size_t) { return false; }, kAll),
            kStatusFailed);
}

TEST(NullOutputs, OfPairsAreSkipped) {
  CheckOutputs("WILSON", IID_IZelWilson, &IZelWilson::GetData);
  CheckOutputs("NRTL", IID_IZelNrtl, &IZelNrtl::GetData);
  CheckOutputs("UNIQUAC", IID_IZelUniquac, &IZelUniquac::GetData);
  CheckOutputs("HMIX", IID_IZelHMix, &IZelHMix::GetData);
  CheckOutputs("PRM", IID_IZelPrM, &IZelPrM::GetData);
  CheckOutputs("HENRY", IID_IZelHenry, &IZelHenry::GetData);
  CheckOutputs("AZEOTROP", IID_IZelAzeo, &IZelAzeo::GetData);
  CheckOutputs("HOCV", IID_IZelHocV, &IZelHocV::GetData);
}

TEST(NullOutputs, OfOneComponentAndOfGroupsAreSkipped) {
  CheckOutputs("ALPHA", IID_IZelAlpha, &IZelAlpha::GetData);
  CheckOutputs("MWPR", IID_IZelMwPr, &IZelMwPr::GetData);
  CheckOutputs("PENELOUX", IID_IZelPeneloux, &IZelPeneloux::GetData);
  CheckOutputs("STRUCT", IID_IZelStruct, &IZelStruct::GetData);
  CheckOutputs("UNFDORT", IID_IZelUnfDort, &IZelUnfDort::GetGroup);
  CheckOutputs("UNFDORT", IID_IZelUnfDort, &IZelUnfDort::GetInteraction);
  CheckOutputs("UNIFAC", IID_IZelUnifac, &IZelUnifac::GetData);
  CheckOutputs("PPR78", IID_IZelPpr78, &IZelPpr78::GetData);
  CheckOutputs("OLI", IID_IZelOli, &IZelOli::GetData);
}

TEST(NullOutputs, OfTextsAreSkipped) {
  Typed<IZelGroupDes> const groups("GRPDESC", IID_IZelGroupDes);
  char text[21] = "";
  groups->PutData("a", "b", "c");
  EXPECT_EQ(groups->GetData(nullptr, text, nullptr), kStatusOk);
  EXPECT_STREQ(text, "b");
  EXPECT_EQ(groups->GetData(nullptr, nullptr, nullptr), kStatusFailed);
  Typed<IZelPsrk> const set("PSRK", IID_IZelPsrk);
  set->PutContext("S", "C");
  EXPECT_EQ(set->GetContext(text, nullptr), kStatusOk);
  EXPECT_STREQ(text, "S");
  EXPECT_EQ(set->GetContext(nullptr, nullptr), kStatusFailed);
  EXPECT_EQ(set->GetRefBankName("ALPHA", nullptr), kStatusFailed);
}

TEST(NullOutputs, AreSkippedAmongDefaultedValues) {
  Typed<IZelPcSaftPure> const bank("PCSAFTPU", IID_IZelPcSaftPure);
  double sigma = 7.0, volume = 7.0;
  EXPECT_EQ(bank->GetDataDefaulted(nullptr, &sigma, nullptr, nullptr, &volume, nullptr), kStatusOk);
  EXPECT_EQ(sigma, 1.0);
  EXPECT_EQ(volume, 0.0);
  EXPECT_EQ(bank->GetDataDefaulted(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
            kStatusFailed);
}

TEST(NullOutputs, OfEnumerationsAreSkipped) {
  Typed<IZelWilson> const bank("WILSON", IID_IZelWilson);
  IZelBankDef* def = bank.Def();
  std::int32_t values[4], index = -1;
  EXPECT_EQ(def->GetEnumList("form", nullptr, values, nullptr), kStatusOk);
  EXPECT_EQ(values[1], 24013);
  EXPECT_EQ(def->GetEnumList("eqnForm", nullptr, nullptr, &index), kStatusOk);
  EXPECT_EQ(index, 1);
  EXPECT_EQ(def->GetEnumList("form", nullptr, nullptr, nullptr), kStatusFailed);
  EXPECT_EQ(def->GetEnumCount("form", nullptr), kStatusFailed);
  EXPECT_EQ(def->GetEnumCount("aij", nullptr), kStatusNotImplemented);
}

TEST(NullInputs, OfBlocksOnAnotherScaleFail) {
  Typed<IZelPpr78> const bank("PPR78", IID_IZelPpr78);
  EXPECT_EQ(bank.IO()->ReadBlock(nullptr, 1), kStatusFailed);
  EXPECT_EQ(bank.IO()->WriteBlock(nullptr, 1), kStatusFailed);
}

TEST(NullInputs, OfArraysFailAndChangeNothing) {
  Typed<IZelPrM> const bank("PRM", IID_IZelPrM);
  double const kij[] = {1, 2, 3, 4};
  double const kji[] = {5, 6, 7, 8};
  ASSERT_EQ(bank->PutData(kij, kji, 9, 10, 11, 12, 13), kStatusOk);
  EXPECT_EQ(bank->PutData(kji, nullptr, 0, 0, 0, 0, 0), kStatusFailed);
  EXPECT_EQ(bank->PutData(nullptr, kij, 0, 0, 0, 0, 0), kStatusFailed);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("kij", 4), std::vector<double>(kij, kij + 4));
  EXPECT_EQ(fields.Reals("kji", 4), std::vector<double>(kji, kji + 4));
  EXPECT_EQ(fields.Reals("tMin", 1)[0], 9);
  EXPECT_EQ(fields.Ints("refCode", 1)[0], 13);
}

TEST(NullInputs, OfArraysAreAllowedWhereTheCountLeavesThemUnused) {
  Typed<IZelStruct> const bank("STRUCT", IID_IZelStruct);
  std::int32_t const three[] = {1, 2, 3};
  ASSERT_EQ(bank->PutData(3, three, three), kStatusOk);
  EXPECT_EQ(bank->PutData(2, three, nullptr), kStatusFailed);
  EXPECT_EQ(bank->PutData(2, nullptr, three), kStatusFailed);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Ints("count", 1)[0], 3);
  EXPECT_EQ(fields.Ints("groupCount", 10)[2], 3);
  for (std::int32_t count : {0, -1, gen_GetUndefInt()}) {
    ASSERT_EQ(bank->PutData(3, three, three), kStatusOk);
    EXPECT_EQ(bank->PutData(count, nullptr, nullptr), kStatusOk);
    EXPECT_EQ(fields.Ints("count", 1)[0], count);
    EXPECT_EQ(fields.Ints("groupNumber", 10), std::vector<std::int32_t>(10, 0));
  }
}

TEST(NullInputs, OfTextsAreEmpty) {
  Typed<IZelGroupDes> const bank("GRPDESC", IID_IZelGroupDes);
  bank->PutData("a", "b", "c");
  EXPECT_EQ(bank->PutData(nullptr, "d", nullptr), kStatusOk);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Text("name"), "");
  EXPECT_EQ(fields.Text("formula"), "d");
  EXPECT_EQ(fields.Text("image"), "");
}

}  // namespace
}  // namespace zel
