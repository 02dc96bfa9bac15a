// Field tables: what is derived from the rows, and tables that do not compile.
#include <gtest/gtest.h>

#include <string_view>
#include <type_traits>

#include "banks/field_bank.h"

namespace zel {
namespace {

// --- what follows from the rows ------------------------------------------------------------------

TEST(FieldTable, LengthsOfFormatsAreKeptApart) {
  constexpr FieldTable kTable({{"a", "a", kReal, 2, "", 0, 1}, {"b", "b", kText, 21, "", 40, 2}});
  EXPECT_EQ(kTable.FormatCount(), 2);
  EXPECT_EQ(kTable.RecordWords(1), 2);
  EXPECT_EQ(kTable.RecordWords(2), 15);
  EXPECT_EQ(kTable.MaxRecordWords(), 15);
}

TEST(FieldTable, TheLongestFormatNeedNotBeTheLast) {
  constexpr FieldTable kTable({{"a", "a", kReal, 9, "", 0, 1}, {"b", "b", kReal, 1, "", 36, 2}});
  EXPECT_EQ(kTable.RecordWords(1), 9);
  EXPECT_EQ(kTable.RecordWords(2), 10);
  constexpr FieldTable kShort({{"a", "a", kReal, 9, "", 4, 1}, {"b", "b", kReal, 1, "", 0, 2}});
  EXPECT_EQ(kShort.RecordWords(2), 1);
  EXPECT_EQ(kShort.MaxRecordWords(), 10);
}

TEST(FieldTable, RunsAndWordsCodedByHandCountForTheLength) {
  constexpr FieldTable kRuns({{"one", "", kReal, 9, "", Runs(16, 3, 24), 1}});
  EXPECT_EQ(kRuns.RecordWords(1), 4 + 2 * 6 + 3);
  constexpr FieldTable kCoded(
      {{"one", "", kReal, 1, "", 0, 1}, {"two", "", kInteger, 1, "", ByHand(12), 1}});
  EXPECT_EQ(kCoded.RecordWords(1), 4);
}

TEST(FieldTable, CutsLabels) {
  constexpr FieldTable kTable({{"a", "a label of more than nineteen", kInteger, 1, "", 0, 1}});
  EXPECT_EQ(kTable.Rows()[0].label, "a label of more tha");
}

// Not within the test: under sanitizers the address of a local static is not a constant.
constexpr Enumeration kNone = {{}, 0};

TEST(FieldTable, RowsOfAnotherTypeArePassedOver) {
  constexpr FieldTable kTable({{"twice", "", kText, 9, "", 0, 1},
                               {"Twice", "", kReal, 1, "", 8, 1},
                               {"TWICE", "", kReal, 1, "", 12, 1},
                               {"twice", "", kEnumerated, 1, "", 16, 1, OneOf(kNone)}});
  EXPECT_EQ(kTable.Find("tWICE", kText, kText), &kTable.Rows()[0]);
  EXPECT_EQ(kTable.Find("twice", kReal, kReal), &kTable.Rows()[1]) << "the first of the type";
  EXPECT_EQ(kTable.Find("twice", kInteger, kEnumerated), &kTable.Rows()[3]);
  EXPECT_EQ(kTable.Find("thrice", kReal, kReal), nullptr);
  EXPECT_EQ(kTable.Find("", kReal, kReal), nullptr);
}

TEST(FieldTable, ValuesOfEachTypeStandInTableOrder) {
  constexpr FieldTable kTable({{"a", "", kReal, 3, "", 0, 1},
                               {"b", "", kInteger, 2, "", 12, 1},
                               {"c", "", kReal, 1, "", 20, 1},
                               {"d", "", kText, 9, "", 24, 1},
                               {"e", "", kText, 13, "", 32, 1}});
  EXPECT_EQ(kTable.Reals(), 4U);
  EXPECT_EQ(kTable.Integers(), 2U);
  EXPECT_EQ(kTable.Characters(), 22U);
  EXPECT_EQ(kTable["c"].firstValue, 3U);
  EXPECT_EQ(kTable["e"].firstValue, 9U);
}

// --- tables that do not compile ------------------------------------------------------------------

// True if rows and argument names make constants. Those that do not can never be run.
template <auto const& kRows>
concept MakesTable = requires {
  typename std::bool_constant<(FieldTable(kRows), true)>;
};
template <auto const& kTable, auto const& kNames>
concept MakesArguments = requires {
  typename std::bool_constant<(Arguments(kTable, kNames), true)>;
};

constexpr FieldRow kTwentyRows[20] = {
    {"0", "", kReal, 1, "", 0, 1},   {"1", "", kReal, 1, "", 4, 1},
    {"2", "", kReal, 1, "", 8, 1},   {"3", "", kReal, 1, "", 12, 1},
    {"4", "", kReal, 1, "", 16, 1},  {"5", "", kReal, 1, "", 20, 1},
    {"6", "", kReal, 1, "", 24, 1},  {"7", "", kReal, 1, "", 28, 1},
    {"8", "", kReal, 1, "", 32, 1},  {"9", "", kReal, 1, "", 36, 1},
    {"10", "", kReal, 1, "", 40, 1}, {"11", "", kReal, 1, "", 44, 1},
    {"12", "", kReal, 1, "", 48, 1}, {"13", "", kReal, 1, "", 52, 1},
    {"14", "", kReal, 1, "", 56, 1}, {"15", "", kReal, 1, "", 60, 1},
    {"16", "", kReal, 1, "", 64, 1}, {"17", "", kReal, 1, "", 68, 1},
    {"18", "", kReal, 1, "", 72, 1}, {"19", "", kReal, 1, "", 76, 1}};
static_assert(std::is_constructible_v<FieldTable, FieldRow const (&)[20]>);
static_assert(!std::is_constructible_v<FieldTable, FieldRow const (&)[21]>);
static_assert(MakesTable<kTwentyRows>);

// A table of one or two rows, of which the first is sound.
template <FieldRow const& kRow>
struct With {
  static constexpr FieldRow kRows[] = {{"sound", "", kReal, 1, "", 0, 1}, kRow};
  static constexpr bool kMakes = MakesTable<kRows>;
};

constexpr FieldRow kNextWord = {"next", "", kReal, 1, "", 4, 1};
static_assert(With<kNextWord>::kMakes);

constexpr FieldRow kLongestName = {"twelve lette", "", kReal, 1, "", 4, 1};
constexpr FieldRow kLongName = {"twelve letter", "", kReal, 1, "", 4, 1};
static_assert(With<kLongestName>::kMakes && !With<kLongName>::kMakes);

constexpr FieldRow kLongUnit = {"unit", "", kReal, 1, "a unit of twenty let", 4, 1};
static_assert(!With<kLongUnit>::kMakes);

constexpr FieldRow kSameWord = {"same", "", kReal, 1, "", 0, 1};
constexpr FieldRow kSameWordLater = {"same", "", kReal, 1, "", 0, 2};
constexpr FieldRow kSameWordCodedByHand = {"same", "", kReal, 1, "", ByHand(0), 1};
static_assert(!With<kSameWord>::kMakes && !With<kSameWordLater>::kMakes);
static_assert(With<kSameWordCodedByHand>::kMakes);

constexpr FieldRow kInsideAWord = {"inside", "", kReal, 1, "", 6, 1};
constexpr FieldRow kBeforeTheBlock = {"before", "", kReal, 1, "", -4, 1};
constexpr FieldRow kBeyondTheBlock = {"beyond", "", kReal, 1, "", 256, 1};
constexpr FieldRow kUnevenRuns = {"runs", "", kReal, 7, "", Runs(4, 3, 12), 1};
static_assert(!With<kInsideAWord>::kMakes && !With<kBeforeTheBlock>::kMakes);
static_assert(!With<kBeyondTheBlock>::kMakes && !With<kUnevenRuns>::kMakes);

constexpr FieldRow kNoFormat = {"format", "", kReal, 1, "", 4, 0};
constexpr FieldRow kThirdFormat = {"format", "", kReal, 1, "", 4, 3};
constexpr FieldRow kNoElements = {"none", "", kReal, 0, "", 4, 1};
static_assert(!With<kNoFormat>::kMakes && !With<kThirdFormat>::kMakes &&
              !With<kNoElements>::kMakes);

constexpr FieldRow kExchanged = {"next", "", kReal, 1, "", 4, 1, ExchangedWith("sound")};
constexpr FieldRow kExchangedWithNone = {"next", "", kReal, 1, "", 4, 1, ExchangedWith("Sound")};
constexpr FieldRow kExchangedWithItself = {"next", "", kReal, 1, "", 4, 1, ExchangedWith("next")};
constexpr FieldRow kExchangedUnequal = {"next", "", kReal, 2, "", 4, 1, ExchangedWith("sound")};
constexpr FieldRow kExchangedInteger = {"next", "", kInteger, 1, "", 4, 1, ExchangedWith("sound")};
constexpr FieldRow kNegatedInteger = {"next", "", kInteger, 1, "", 4, 1, kNegated};
static_assert(With<kExchanged>::kMakes);
static_assert(!With<kExchangedWithNone>::kMakes && !With<kExchangedWithItself>::kMakes);
static_assert(!With<kExchangedUnequal>::kMakes && !With<kExchangedInteger>::kMakes);
static_assert(!With<kNegatedInteger>::kMakes);

constexpr FieldRow kExchangedTwice[] = {{"i", "", kReal, 1, "", 0, 1, ExchangedWith("j")},
                                        {"j", "", kReal, 1, "", 4, 1, ExchangedWith("i")}};
static_assert(!MakesTable<kExchangedTwice>);

constexpr FieldRow kCountedByAReal = {"next", "", kReal, 4, "", 4, 1, CountedBy("sound")};
constexpr FieldRow kEnumeratedWithout = {"next", "", kEnumerated, 1, "", 4, 1};
static_assert(!With<kCountedByAReal>::kMakes && !With<kEnumeratedWithout>::kMakes);

constexpr FieldTable kTable({{"n", "", kInteger, 1, "", 0, 1},
                             {"x", "", kReal, 4, "", 4, 1, CountedBy("n")},
                             {"t", "", kText, 9, "", 20, 1}});
constexpr std::string_view kInOrder[] = {"t", "n", "x"};
constexpr std::string_view kCounterLast[] = {"t", "x", "n"};
constexpr std::string_view kTwice[] = {"n", "n", "x"};
constexpr std::string_view kUnknown[] = {"n", "X"};
static_assert(MakesArguments<kTable, kInOrder>);
static_assert(!MakesArguments<kTable, kCounterLast> && !MakesArguments<kTable, kTwice>);
static_assert(!MakesArguments<kTable, kUnknown>);

// The parameters of an operation match the fields, or the bank does not compile.
constexpr Arguments kAll(kTable, kInOrder);
static_assert(Match<char*, std::int32_t*, double*>(kAll));
static_assert(Match<char const*, std::int32_t, double const*>(kAll));
static_assert(!Match<std::int32_t*, char*, double*>(kAll));
static_assert(!Match<char*, std::int32_t*>(kAll));
static_assert(!Match<char const*, std::int32_t const*, double const*>(kAll));
static_assert(!Match<char const*, std::int32_t, double>(kAll));
static_assert(!Match<char const*, double, double const*>(kAll));
static_assert(kAll.AreAllOf(kTable));

}  // namespace
}  // namespace zel
