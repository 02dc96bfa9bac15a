// The typed interfaces of pair banks: argument orders, and the model coefficients by default.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "tests/banks/bank_fields.h"

namespace zel {
namespace {

using test::Fields;
using test::Typed;

constexpr std::size_t kMost = 8;  // elements of an argument

// Elements of each field.
std::map<std::string, std::size_t> CountsOf(IZelBankDef* bank) {
  char names[20][13], labels[20][20], units[20][20];
  std::int32_t types[20], counts[20], rows = 0;
  bank->GetFieldCount(0, &rows);
  bank->GetFieldList(0, names, labels, types, counts, units);
  std::map<std::string, std::size_t> all;
  for (std::int32_t i = 0; i < rows; ++i) all[names[i]] = static_cast<std::size_t>(counts[i]);
  return all;
}

template <typename Type>
std::vector<Type> Field(IZelBankDef* bank, char const* name, std::size_t count) {
  if constexpr (std::is_same_v<Type, double>) {
    return Fields(bank).Reals(name, count);
  } else {
    return Fields(bank).Ints(name, count);
  }
}

// The values of all arguments of an operation whose arguments are pointers to elements.
template <typename... Outs>
struct Arguments {
  std::tuple<std::array<std::remove_pointer_t<Outs>, kMost>...> values;

  // No two elements alike.
  void Number() {
    int next = 0;
    std::apply(
        [&](auto&... array) {
          (..., std::for_each(array.begin(), array.end(), [&](auto& value) {
             using Type = std::decay_t<decltype(value)>;
             value = static_cast<Type>(++next + (std::is_same_v<Type, double> ? 0.5 : 0.0));
           }));
        },
        values);
  }
  template <typename Face>
  ZelStatus Get(Face* face, ZelStatus (Face::*get)(Outs...)) {
    return std::apply([&](auto&... array) { return (face->*get)(array.data()...); }, values);
  }
  // Scalars by value, arrays by pointer.
  template <typename Face, typename... Ins>
  ZelStatus Put(Face* face, ZelStatus (Face::*put)(Ins...)) {
    return std::apply([&](auto&... array) { return (face->*put)(Pass<Ins>(array.data())...); },
                      values);
  }
  template <typename In, typename Type>
  static In Pass(Type* values) {
    if constexpr (std::is_pointer_v<In>) {
      return values;
    } else {
      return *values;
    }
  }
};

using Names = std::vector<char const*>;

// Calls visit(array, name) for each argument.
template <typename Values, typename Visit>
void ForEach(Values& values, Names const& names, Visit const& visit) {
  std::size_t at = 0;
  std::apply([&](auto&... array) { (..., visit(array, names[at++])); }, values);
}

template <typename... Outs>
void ExpectFields(IZelBankDef* bank, Arguments<Outs...>& arguments, Names const& names) {
  auto counts = CountsOf(bank);
  ASSERT_EQ(names.size(), sizeof...(Outs));
  EXPECT_EQ(counts.size(), sizeof...(Outs)) << "every field is an argument";
  ForEach(arguments.values, names, [&](auto const& array, char const* name) {
    using Type = typename std::decay_t<decltype(array)>::value_type;
    std::size_t const count = counts[name];
    std::vector<Type> const expected(array.begin(), array.begin() + static_cast<long>(count));
    EXPECT_EQ(Field<Type>(bank, name, count), expected) << name;
  });
}

// The values passed in are those of the fields with these names, and are returned again.
template <typename Face, typename... Ins, typename... Outs>
void CheckOrder(Typed<Face> const& bank, ZelStatus (Face::*put)(Ins...),
                ZelStatus (Face::*get)(Outs...), Names const& names) {
  Arguments<Outs...> in{};
  Arguments<Outs...> out{};
  in.Number();
  EXPECT_EQ(in.Put(bank.operator->(), put), kStatusOk);
  ExpectFields(bank.Def(), in, names);
  EXPECT_EQ(out.Get(bank.operator->(), get), kStatusOk);
  ExpectFields(bank.Def(), out, names);
  auto counts = CountsOf(bank.Def());
  ForEach(out.values, names, [&](auto const& array, char const* name) {
    for (std::size_t i = counts[name]; i < kMost; ++i) EXPECT_EQ(array[i], 0) << name;
  });
}

template <typename Face>
void CheckData(char const* type, ZelIid const& id, Names const& names) {
  SCOPED_TRACE(type);
  Typed<Face> const bank(type, id);
  CheckOrder(bank, &Face::PutData, &Face::GetData, names);
}

bool IsBound(char const* name) {
  auto const same = [&](char const* bound) { return std::strcmp(name, bound) == 0; };
  char const* const bounds[] = {"tMin", "tMax", "pMin", "pMax"};
  return std::any_of(std::begin(bounds), std::end(bounds), same);
}

// For a cleared bank: coefficients are 0, bounds and integers unchanged.
template <typename Face, typename... Outs>
void CheckCleared(Typed<Face> const& bank, ZelStatus (Face::*get)(Outs...), Names const& names) {
  Arguments<Outs...> out{};
  bank.Def()->Clear();
  EXPECT_EQ(out.Get(bank.operator->(), get), kStatusOk);
  auto counts = CountsOf(bank.Def());
  ForEach(out.values, names, [&](auto const& array, char const* name) {
    using Type = typename std::decay_t<decltype(array)>::value_type;
    std::size_t const count = counts[name];
    auto expected = Field<Type>(bank.Def(), name, count);
    if (std::is_same_v<Type, double> && !IsBound(name)) expected.assign(count, Type{0});
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), array.begin())) << name;
  });
}

template <typename Face>
void CheckDefaultedData(char const* type, ZelIid const& id, Names const& names) {
  CheckData<Face>(type, id, names);
  SCOPED_TRACE(type);
  Typed<Face> const bank(type, id);
  CheckOrder(bank, &Face::PutData, &Face::GetDataDefaulted, names);
  CheckCleared(bank, &Face::GetDataDefaulted, names);
}

TEST(TypedData, OfWilsonHasItsChoicesFirstAndGoesPairByPair) {
  CheckDefaultedData<IZelWilson>(
      "WILSON", IID_IZelWilson,
      {"form", "eqnForm", "volRatio", "aij", "aji", "bij",  "bji",  "cij",  "cji",  "dij",
       "dji",  "eij",     "eji",      "fij", "fji", "tMin", "tMax", "pMin", "pMax", "refCode"});
}

TEST(TypedData, OfNrtlGoesSideBySide) {
  Names const names = {"aij",  "bij",  "cij",  "dij",  "eij",    "fij",     "aji",
                       "bji",  "cji",  "dji",  "eji",  "fji",    "alphaij", "betaij",
                       "tMin", "tMax", "pMin", "pMax", "refCode"};
  CheckDefaultedData<IZelNrtl>("NRTL", IID_IZelNrtl, names);
  CheckDefaultedData<IZelNrtlLL>("NRTLLL", IID_IZelNrtlLL, names);
}

TEST(TypedData, OfOtherActivityModels) {
  Names const uniquac = {"aij", "bij",  "cij",  "dij",  "aji",  "bji",    "cji",
                         "dji", "tMin", "tMax", "pMin", "pMax", "refCode"};
  CheckData<IZelUniquac>("UNIQUAC", IID_IZelUniquac, uniquac);
  CheckData<IZelUniquacLL>("UNIQLL", IID_IZelUniquacLL, uniquac);
  CheckData<IZelMargules>("MARGULES", IID_IZelMargules,
                          {"aij", "aji", "dij", "tMin", "tMax", "pMin", "pMax", "refCode"});
  CheckData<IZelVanLaar>("VANLAAR", IID_IZelVanLaar,
                         {"aij", "aji", "tMin", "tMax", "pMin", "pMax", "refCode"});
}

TEST(TypedData, OfHeatsOfMixing) {
  CheckData<IZelHMix>("HMIX", IID_IZelHMix,
                      {"aij", "bij", "cij", "dij", "eij", "fij", "gij", "hij", "tMin", "tMax",
                       "pMin", "pMax", "refCode"});
}

TEST(TypedData, OfAsymmetricEquationsOfState) {
  Names const fullH = {"aij",      "bij",  "cij",  "aji",  "bji",  "cji",    "alphaCij",
                       "alphaTij", "tMin", "tMax", "pMin", "pMax", "refCode"};
  CheckData<IZelPrH>("PRH", IID_IZelPrH, fullH);
  CheckData<IZelSrkH>("SRKH", IID_IZelSrkH, fullH);
  Names const both = {"kij", "kji", "tMin", "tMax", "pMin", "pMax", "refCode"};
  CheckDefaultedData<IZelPrM>("PRM", IID_IZelPrM, both);
  CheckDefaultedData<IZelSrkS>("SRKS", IID_IZelSrkS, both);
  CheckData<IZelPrP>("PRP", IID_IZelPrP, both);
  CheckData<IZelSrkP>("SRKP", IID_IZelSrkP, both);
  CheckDefaultedData<IZelSrkM>(
      "SRKM", IID_IZelSrkM,
      {"kij", "kji", "kijd", "kjid", "tMin", "tMax", "pMin", "pMax", "refCode"});
}

TEST(TypedData, OfSymmetricEquationsOfState) {
  Names const one = {"kij", "tMin", "tMax", "pMin", "pMax", "refCode"};
  CheckDefaultedData<IZelPrO>("PRO", IID_IZelPrO, one);
  CheckDefaultedData<IZelSrkO>("SRKO", IID_IZelSrkO, one);
  CheckDefaultedData<IZelBwrs>("BWRS", IID_IZelBwrs,
                               {"aij", "bij", "tMin", "tMax", "pMin", "pMax", "refCode"});
  CheckDefaultedData<IZelPcSaft>("PCSAFT", IID_IZelPcSaft, {"kij", "tMin", "tMax", "refCode"});
  CheckData<IZelLkp>("LKP", IID_IZelLkp, {"kij", "refCode"});
}

TEST(TypedData, OfOtherPairs) {
  CheckDefaultedData<IZelHenry>("HENRY", IID_IZelHenry,
                                {"c", "tMin", "tMax", "pMin", "pMax", "refCode"});
  CheckData<IZelAzeo>("AZEOTROP", IID_IZelAzeo, {"temp", "pres", "x1", "basis"});
  CheckData<IZelIDimer>("IDIMER", IID_IZelIDimer, {"Aij", "Bij", "refCode"});
  CheckData<IZelHocV>("HOCV", IID_IZelHocV, {"eta"});
}

}  // namespace
}  // namespace zel
