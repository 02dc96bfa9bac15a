// Numbers that no sound item has, written to a file and read back.
#include <algorithm>
#include <vector>

#include "store/packed_text.h"
#include "tests/purecomp/record_fixture.h"

namespace zel {
namespace {

using test::ComponentBank;

class RecordEdgesTest : public test::RecordTest {
 protected:
  // Reads as a search does: with a source.
  ZelStatus Take(ComponentBank& bank, std::int32_t address, char const* bankName) {
    bank.Io()->SetSource(&library_, bankName, 0);
    return ReadFrom(bank, address);
  }
};

// A number of 0 is read again each time, which does not count as new data.
TEST_F(RecordEdgesTest, ItemWithoutCasNumberReadTwiceGivesNothingNew) {
  ComponentBank bank, read;
  test::SetIdentity(bank.Get(), 10000123, 0, "ETHANOL", 2);
  std::int32_t const address = Write(bank);
  char text[260];
  std::uint8_t flag = 9;
  EXPECT_EQ(Take(read, address, "FIRST"), kStatusOk);
  EXPECT_EQ(Take(read, address, "SECOND"), kStatusNothingNew);
  read->GetIdentitySource(1, text, &flag);
  EXPECT_STREQ(text, "Parts:SECOND") << "noted whenever the own number is 0";
  EXPECT_EQ(flag, 0);
  read->GetIdentitySource(0, text, &flag);
  EXPECT_STREQ(text, "Parts:FIRST") << "the formula was there";
}

// A label of the fill-in is replaced by the library that has the value.
TEST_F(RecordEdgesTest, ValueThatIsReadTakesThePlaceOfAFillInsLabel) {
  ComponentBank bank, read;
  bank->SetProperty(12, 222.5);
  std::int32_t const address = Write(bank);
  char text[260];
  std::uint8_t flag = 9;
  read.Io()->Complete();
  read->GetPropertySource(12, text, &flag);
  ASSERT_STREQ(text, "from Vc,Tc");
  EXPECT_EQ(Take(read, address, "LATER"), kStatusOk);
  double value = 0.0;
  read->GetProperty(12, &value);
  EXPECT_EQ(value, 222.5);
  read->GetPropertySource(12, text, &flag);
  EXPECT_STREQ(text, "Parts:LATER");
  read.Io()->Complete();
  read->GetPropertySource(12, text, &flag);
  EXPECT_STREQ(text, "Parts:LATER");
}

// The interface refuses codes above 32000, but a file may have them.
TEST_F(RecordEdgesTest, CodesOfAFileAreKeptAsRead) {
  ComponentBank bank, read;
  double const c[] = {1.0};
  bank->SetProperty(0, 1.0);
  bank->SetProperty(1, 1.0);
  bank->SetCorrelation(0, 1, 10, 4015, 1, 0, 1, 0, 0, c);
  bank->SetCorrelation(1, 1, 10, 28018, 1, 0, 1, 0, 0, c);
  std::int32_t const address = Write(bank);
  Main main = Read<Main>(address);
  main[60] = static_cast<std::int32_t>(0xFFFF0000U | 40000U);
  main[85] = static_cast<std::int32_t>(0x80000000U | 65535U);
  Put(address, main);
  ASSERT_EQ(ReadFrom(read, address), kStatusOk);
  std::uint32_t code = 0;
  read->GetPropertyRefCode(0, &code);
  EXPECT_EQ(code, 40000U);
  read->GetPropertyRefCode(1, &code);
  EXPECT_EQ(code, 65535U);
  read->GetCorrelationRefCode(0, &code);
  EXPECT_EQ(code, 65535U);
  read->GetCorrelationRefCode(1, &code);
  EXPECT_EQ(code, 32768U);
  Main const again = Read<Main>(Write(read));
  EXPECT_EQ(again[60], main[60]);
  EXPECT_EQ(again[85], main[85]);
}

// The last two of the twenty correlations have no names, and no call reaches them.
TEST_F(RecordEdgesTest, CorrelationsWithoutNamesAreKept) {
  ComponentBank bank, read;
  std::int32_t const address = Write(bank);
  Main main = Read<Main>(address);
  Correlations block = Read<Correlations>(main[95]);
  for (std::size_t const at : {360U, 380U}) {
    auto const number = static_cast<std::int32_t>(at);
    std::array<std::int32_t, 7> const entry = {
        number / 20 * 1000000 + 1011, 1002000,      3 * 1000000 + 4015,   WordOf(number + 0.5),
        WordOf(number + 9.0),         WordOf(0.25), WordOf(-number - 2.0)};
    std::copy(entry.begin(), entry.end(), block.begin() + number);
  }
  Put(main[95], block);
  main[94] = static_cast<std::int32_t>(31999U << 16 | 123U);
  Put(address, main);
  EXPECT_EQ(ReadFrom(read, address), kStatusOk);
  EXPECT_EQ(ReadFrom(read, address), kStatusNothingNew);
  Main const again = Read<Main>(Write(read));
  ASSERT_NE(again[95], main[95]);
  EXPECT_EQ(Read<Correlations>(again[95]), block);
  EXPECT_EQ(again[94], main[94]);
  std::vector<std::int32_t> const directory(again.begin() + 150 + 54, again.begin() + 210);
  EXPECT_EQ(directory, (std::vector<std::int32_t>{360, 8, again[95], 380, 8, again[95]}));
}

TEST_F(RecordEdgesTest, EachDatumAloneIsNewData) {
  ComponentBank empty, without;
  Main const nothing = Read<Main>(Write(empty));
  EXPECT_EQ(ReadFrom(without, New(nothing)), kStatusNothingNew);
  std::int32_t text = 0;
  TextToWords("AB", &text, 1);
  struct Case {
    char const* what;
    std::size_t word;
    std::int32_t value;
  };
  for (Case const& c : {Case{"number", 0, 10000123}, Case{"reference code", 1, 9},
                        Case{"CAS number", 2, 64175}, Case{"ID", 10, text}, Case{"name", 35, text},
                        Case{"formula", 45, text}, Case{"legacy structure", 50, 20001},
                        Case{"constant", 100, WordOf(1.5)}, Case{"SMILES", 210, text}}) {
    Main main = nothing;
    main[c.word] = c.value;
    std::int32_t const address = New(main);
    ComponentBank read;
    EXPECT_EQ(ReadFrom(read, address), kStatusOk) << c.what;
    EXPECT_EQ(ReadFrom(read, address), kStatusNothingNew) << c.what;
  }
}

// Count and group share a decimal word: values that do not fit overflow and are not corrected.
TEST_F(RecordEdgesTest, GroupsTooLargeForTheirWordRunOver) {
  ComponentBank bank, read;
  std::int32_t const ids[] = {12345, 1, -7, 2};
  std::int32_t const counts[] = {3, 300000, 2, -1};
  bank->SetLegacyStructure(4, ids, counts);
  std::int32_t const address = Write(bank);
  Main const main = Read<Main>(address);
  EXPECT_EQ(main[50], 42345);
  EXPECT_EQ(main[51], static_cast<std::int32_t>(3000000001U));
  EXPECT_EQ(main[52], 19993);
  EXPECT_EQ(main[53], -9998);
  ReadFrom(read, address);
  std::int32_t count = 0, gotIds[10], gotCounts[10];
  read->GetLegacyStructure(&count, gotIds, gotCounts);
  ASSERT_EQ(count, 4);
  EXPECT_EQ((std::vector<std::int32_t>(gotIds, gotIds + 4)),
            (std::vector<std::int32_t>{2345, -7295, 9993, -9998}));
  EXPECT_EQ((std::vector<std::int32_t>(gotCounts, gotCounts + 4)),
            (std::vector<std::int32_t>{4, -129496, 1, 0}));
}

TEST_F(RecordEdgesTest, CountsTooLargeForTheirPlaceWrapAround) {
  ComponentBank bank;
  std::vector<double> const c(4000, 0.5);
  bank->SetCorrelation(0, 2147, 10, 4015, 1, 0, 4000, 0, 0, c.data());
  Main const main = Read<Main>(Write(bank));
  Correlations const block = Read<Correlations>(main[95]);
  EXPECT_EQ(block[0], static_cast<std::int32_t>(2147001010U));
  EXPECT_EQ(block[2], static_cast<std::int32_t>(4000004015U));
  EXPECT_EQ(block[19], WordOf(0.5)) << "fifteen coefficients";
  EXPECT_EQ(block[20], 0) << "and none in the next entry";
  EXPECT_EQ(main[151], 4005);
}

// The count is returned as stored, the coefficients only as far as they exist.
TEST_F(RecordEdgesTest, WildCountsOfCoefficientsGiveFifteenAtMost) {
  constexpr double kKept = -7.0;
  ComponentBank bank;
  double const c[] = {1.0};
  bank->SetCorrelation(0, 1, 10, 4015, 1, 0, 1, 1, 2, c);
  std::int32_t const address = Write(bank);
  std::int32_t const block = Read<Main>(address)[95];
  Correlations words = Read<Correlations>(block);
  for (std::size_t i = 5; i < 20; ++i) words[i] = WordOf(2.5);
  for (std::int32_t count : {0, 15, 16, 999}) {
    words[2] = count * 1000000 + 4015;
    Put(block, words);
    ComponentBank read;
    ASSERT_EQ(ReadFrom(read, address), kStatusOk);
    std::int32_t n[6];
    double factor, tMin, tMax, given[1000];
    std::fill_n(given, 1000, kKept);
    EXPECT_EQ(read->GetCorrelation(0, &n[0], &n[1], &n[2], &factor, &n[3], &n[4], &n[5], &tMin,
                                   &tMax, given),
              count == 15 ? kStatusOk : kStatusFailed);
    EXPECT_EQ(n[5], count);
    EXPECT_EQ(std::count(given, given + 1000, 2.5), std::min(count, 15)) << count;
    EXPECT_EQ(std::count(given, given + 1000, kKept), 1000 - std::min(count, 15)) << count;
  }
}

TEST_F(RecordEdgesTest, NegativeCountOfCoefficientsIsStoredAndNothingIsCopied) {
  ComponentBank bank;
  double const before[] = {1.0, 2.0};
  bank->SetCorrelation(0, 1, 10, 4015, 1, 0, 2, 1, 2, before);
  EXPECT_EQ(bank->SetCorrelation(0, 1, 10, 4015, 1, 0, -3, 1, 2, nullptr), kStatusOk);
  std::int32_t n[6];
  double factor, tMin, tMax, given[15];
  std::fill_n(given, 15, -7.0);
  EXPECT_EQ(bank->GetCorrelation(0, &n[0], &n[1], &n[2], &factor, &n[3], &n[4], &n[5], &tMin, &tMax,
                                 given),
            kStatusFailed);
  EXPECT_EQ(n[5], -3);
  EXPECT_EQ(std::count(given, given + 15, -7.0), 15);
  Correlations const block = Read<Correlations>(Read<Main>(Write(bank))[95]);
  for (std::size_t i = 5; i < 20; ++i) EXPECT_EQ(block[i], WordOf(gen_GetUndefDouble())) << i;
}

// In a second file of small blocks a structure block of an older item can be short.
class SmallBlocksTest : public RecordEdgesTest {
 protected:
  static constexpr std::int32_t kSmall = 50;
  using Small = std::array<std::int32_t, kSmall>;

  SmallBlocksTest() { library_.Store().DeclareFile(2, false, kSmall); }

  // Makes a run of the second file with this many words.
  std::int32_t NewRun(std::int32_t words, std::int32_t fill) {
    std::vector<std::int32_t> const block(static_cast<std::size_t>(words), fill);
    std::int32_t address = format::kNullAddress;
    library_.WriteBlock(address, words, block.data(), 2);
    return address;
  }
};

TEST_F(SmallBlocksTest, ShortStructureBlockIsReplacedAndItsNeighbourStays) {
  struct {
    std::int32_t words, blocks;
    bool kept;
  } const rows[] = {{21, 1, false}, {100, 2, false}, {101, 3, true}, {126, 3, true}};
  for (auto const& row : rows) {
    ComponentBank bank, read;
    std::int32_t const one[] = {1}, nine[] = {9};
    bank->SetStructure(6, 1, nine, one);
    std::int32_t const address = Write(bank);
    std::int32_t const run = NewRun(row.words, 0);
    std::int32_t const next = NewRun(kSmall, 4711);
    ASSERT_EQ(next, run + row.blocks);
    Main main = Read<Main>(address);
    main[98] = run;
    main[99] = row.words;
    Put(address, main);
    Write(bank, address);
    Small neighbour;
    neighbour.fill(4711);
    EXPECT_EQ(Read<Small>(next), neighbour) << row.words;
    main = Read<Main>(address);
    EXPECT_EQ(main[98] == run, row.kept) << row.words;
    EXPECT_EQ(main[99], 126);
    ASSERT_EQ(ReadFrom(read, address), kStatusOk);
    std::int32_t count = 0, ids[10], counts[10];
    EXPECT_EQ(read->GetRawStructure(6, &count, ids, counts), kStatusOk) << row.words;
    EXPECT_EQ(ids[0], 9);
  }
}

// The reference of a structure must be of the library's own kind; its file does not matter.
TEST_F(SmallBlocksTest, StructureBlockOfTheOtherFileIsRead) {
  ComponentBank bank, read;
  bank->SetProperty(0, 1.0);
  std::int32_t const address = Write(bank);
  std::int32_t const run = NewRun(126, 1);
  EXPECT_EQ(run / 1000000, 112);
  Main main = Read<Main>(address);
  main[98] = run;
  main[99] = 126;
  Put(address, main);
  ASSERT_EQ(ReadFrom(read, address), kStatusOk);
  std::int32_t count = 0, ids[10], counts[10];
  EXPECT_EQ(read->GetRawStructure(1, &count, ids, counts), kStatusOk);
  EXPECT_EQ(count, 1);
}

}  // namespace
}  // namespace zel
