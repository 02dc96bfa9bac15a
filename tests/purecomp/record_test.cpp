// The words of a component on file.
#include "store/packed_text.h"
#include "tests/purecomp/record_fixture.h"

namespace zel {
namespace {

using test::ComponentBank;
using test::RecordTest;

std::string TextAt(std::int32_t const* words, int count) {
  char text[128];
  WordsToText(words, count, text);
  return text;
}

TEST_F(RecordTest, IdentityStandsInTheMainBlock) {
  ComponentBank bank;
  test::SetIdentity(bank.Get(), 10000123, 64175, "ETHANOL", 12);
  bank->SetPhase(6);
  bank->SetSmiles("CCO");
  Main const main = Read<Main>(Write(bank));
  EXPECT_EQ(main[0], 10000123);
  EXPECT_EQ(main[1], 7);
  EXPECT_EQ(main[2], 64175);
  EXPECT_EQ(main[3], 0);
  EXPECT_EQ(main[4], 6);
  for (std::size_t i = 5; i < 10; ++i) EXPECT_EQ(main[i], 0) << i;
  EXPECT_EQ(TextAt(&main[10], 2), "ID1");
  EXPECT_EQ(TextAt(&main[32], 2), "ID12");
  EXPECT_EQ(main[34], 0);
  EXPECT_EQ(TextAt(&main[35], 10), "ETHANOL");
  EXPECT_EQ(TextAt(&main[45], 5), "C2H6O");
  EXPECT_EQ(main[97], 1);
  EXPECT_EQ(TextAt(&main[210], 25), "CCO");
  for (std::size_t i = 235; i < 250; ++i) EXPECT_EQ(main[i], 0) << i;
}

TEST_F(RecordTest, ConstantsAreFloatsAndThoseWithoutKeywordAreZero) {
  ComponentBank bank;
  for (std::uint32_t i = 0; i < 100; ++i) bank->SetProperty(i, 0.1 + i);
  Main const main = Read<Main>(Write(bank));
  for (std::uint32_t i = 0; i < 50; ++i) {
    bool const hasKeyword = i <= 19 || (i >= 23 && i <= 28) || (i >= 33 && i <= 47);
    EXPECT_EQ(main[100 + i], hasKeyword ? WordOf(0.1 + i) : 0) << i;
  }
}

TEST_F(RecordTest, ReferenceCodesArePackedTwoAWordLowerIndexLow) {
  ComponentBank bank;
  for (std::uint32_t i = 0; i < 50; ++i) bank->SetPropertyRefCode(i, 1000 + i);
  for (std::uint32_t i = 0; i < 17; ++i) bank->SetCorrelationRefCode(i, 32000 - i);
  Main const main = Read<Main>(Write(bank));
  EXPECT_EQ(main[60], 1001 * 65536 + 1000);
  EXPECT_EQ(main[84], 1049 * 65536 + 1048);
  EXPECT_EQ(main[85], 31999 * 65536 + 32000);
  EXPECT_EQ(main[93], 32000 - 16) << "the last code that the interface reaches, with no other";
  EXPECT_EQ(main[94], 0);
}

TEST_F(RecordTest, LegacyStructureIsCountTimesTenThousandPlusGroup) {
  ComponentBank bank;
  std::int32_t const ids[] = {900, 1200};
  std::int32_t const counts[] = {2, 13};
  bank->SetLegacyStructure(2, ids, counts);
  Main const main = Read<Main>(Write(bank));
  EXPECT_EQ(main[50], 20900);
  EXPECT_EQ(main[51], 131200);
  for (std::size_t i = 52; i < 60; ++i) EXPECT_EQ(main[i], 0);
  EXPECT_EQ(main[98], 990000000) << "no other model, no structure block";
  EXPECT_EQ(main[99], 0);
}

TEST_F(RecordTest, OtherModelsHaveABlockOfTheirOwn) {
  ComponentBank bank;
  std::int32_t const ids[] = {1, 2, 14};
  std::int32_t const counts[] = {3, 4, 5};
  bank->SetStructure(1, 3, ids, counts);
  bank->SetStructure(6, 1, ids, counts);
  Main const main = Read<Main>(Write(bank));
  EXPECT_EQ(main[99], 126);
  Structures const block = Read<Structures>(main[98]);
  Structures expected{};
  expected[0] = 3;
  std::copy_n(ids, 3, &expected[1]);
  std::copy_n(counts, 3, &expected[11]);
  expected[105] = 1;
  expected[106] = 1;
  expected[116] = 3;
  EXPECT_EQ(block, expected);
  for (std::size_t i = 50; i < 60; ++i) EXPECT_EQ(main[i], 0);
}

TEST_F(RecordTest, CorrelationBlockStandsAlsoWithoutACorrelation) {
  ComponentBank bank;
  Main const main = Read<Main>(Write(bank));
  EXPECT_EQ(main[96], 400);
  EXPECT_EQ(main[95] / 10000000, 11);
  EXPECT_EQ(Read<Correlations>(main[95]), Correlations{});
  for (std::size_t i = 150; i < 210; ++i) EXPECT_EQ(main[i], 0) << i;
}

TEST_F(RecordTest, CorrelationIsPackedInTwentyWords) {
  ComponentBank bank;
  double const c[] = {1.5, -2.25, 0.1, 4e10, -5e-10};
  bank->SetCorrelation(4, 116, 11, 19083, 2, 2, 5, -20.5, 333.3, c);
  Main const main = Read<Main>(Write(bank));
  Correlations const block = Read<Correlations>(main[95]);
  std::int32_t const* entry = &block[80];
  EXPECT_EQ(entry[0], 116001011);
  EXPECT_EQ(entry[1], 2002000);
  EXPECT_EQ(entry[2], 5019083);
  EXPECT_EQ(entry[3], WordOf(-20.5));
  EXPECT_EQ(entry[4], WordOf(333.3));
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(entry[5 + i], WordOf(c[i]));
  for (std::size_t i = 5; i < 15; ++i) EXPECT_EQ(entry[5 + i], WordOf(gen_GetUndefDouble()));
  for (std::size_t i = 0; i < 400; ++i) {
    if (i / 20 != 4) {
      ASSERT_EQ(block[i], 0) << i;
    }
  }
  EXPECT_EQ(main[162], 80) << "offset";
  EXPECT_EQ(main[163], 10) << "coefficients and 5";
  EXPECT_EQ(main[164], main[95]);
  for (std::size_t i = 150; i < 210; ++i) {
    if (i / 3 != 54) {
      EXPECT_EQ(main[i], 0) << i;
    }
  }
}

TEST_F(RecordTest, NumbersTooLargeForTheirPlaceWrapAround) {
  ComponentBank bank;
  double const c[15] = {};
  bank->SetCorrelation(0, 5000, 10, 4015, 1, 0, 16, 0, 0, c);
  Main const main = Read<Main>(Write(bank));
  Correlations const block = Read<Correlations>(main[95]);
  EXPECT_EQ(block[0], static_cast<std::int32_t>(5000001010U % 4294967296U));
  EXPECT_EQ(block[2], 16004015);
  EXPECT_EQ(main[151], 21);
}

TEST_F(RecordTest, WritingAgainKeepsAllBlocksInPlace) {
  ComponentBank bank;
  test::FillComponent(bank.Get());
  std::int32_t const address = Write(bank);
  Main const first = Read<Main>(address);
  std::size_t const size = files_.Contents("/p.lb1").size();
  bank->SetProperty(0, 1.0);
  EXPECT_EQ(Write(bank, address), address);
  Main const second = Read<Main>(address);
  EXPECT_EQ(second[95], first[95]);
  EXPECT_EQ(second[98], first[98]);
  EXPECT_EQ(second[100], WordOf(1.0));
  EXPECT_EQ(files_.Contents("/p.lb1").size(), size);
}

TEST_F(RecordTest, NullAddressMakesANewItem) {
  ComponentBank bank;
  std::int32_t const a = Write(bank, format::kNullAddress);
  std::int32_t const b = Write(bank, 0);
  EXPECT_NE(a, b);
  EXPECT_NE(a, format::kNullAddress);
  EXPECT_NE(Read<Main>(a)[95], Read<Main>(b)[95]);
}

TEST_F(RecordTest, StructureBlockStaysWhenItsStructuresAreGone) {
  ComponentBank bank;
  std::int32_t const one[] = {1};
  bank->SetStructure(3, 1, one, one);
  std::int32_t const address = Write(bank);
  std::int32_t const structures = Read<Main>(address)[98];
  bank->SetStructure(3, 0, one, one);
  Write(bank, address);
  EXPECT_EQ(Read<Main>(address)[98], structures);
  EXPECT_EQ(Read<Main>(address)[99], 126);
  EXPECT_EQ(Read<Structures>(structures), Structures{});
}

TEST_F(RecordTest, WildReferencesOfAnOldItemAreReplaced) {
  ComponentBank bank;
  test::FillComponent(bank.Get());
  struct Case {
    std::size_t word;
    std::int32_t value;
  };
  // Structure address of another library kind or invalid, its length; invalid correlation address.
  for (Case const& c : {Case{98, 121000001}, Case{98, 0}, Case{99, 0}, Case{99, 1000000},
                        Case{99, -1}, Case{95, 0}, Case{95, 990000000}}) {
    std::int32_t const address = Write(bank);
    Main damaged = Read<Main>(address);
    damaged[c.word] = c.value;
    Put(address, damaged);
    Write(bank, address);
    Main const mended = Read<Main>(address);
    ComponentBank again;
    EXPECT_EQ(ReadFrom(again, address), kStatusOk);
    ComponentBank plain;
    ReadFrom(plain, Write(bank));
    EXPECT_EQ(test::TextOf(again.Get()), test::TextOf(plain.Get())) << c.word << " " << c.value;
    EXPECT_NE(mended[c.word], c.value);
    if (c.word == 99) {
      EXPECT_NE(mended[98], damaged[98]) << "not written over: " << c.value;
    }
  }
}

// An item of a program that kept fewer correlations: its block is too short for 400 words, and the
// block after it belongs to another item.
TEST_F(RecordTest, ShortBlocksOfAnOldItemAreNotOverrun) {
  ComponentBank bank;
  test::FillComponent(bank.Get());
  std::int32_t const address = Write(bank);
  std::array<std::int32_t, 250> const old{};
  std::int32_t const shortBlock = New(old);
  std::array<std::int32_t, 250> neighbour;
  neighbour.fill(4711);
  std::int32_t const next = New(neighbour);
  ASSERT_EQ(next, shortBlock + 1);
  Main main = Read<Main>(address);
  main[95] = shortBlock;
  main[96] = 250;
  Put(address, main);
  Write(bank, address);
  EXPECT_EQ(Read<Main>(next), neighbour);
  EXPECT_NE(Read<Main>(address)[95], shortBlock);
}

TEST_F(RecordTest, FailedTransferThrowsAndKeepsTheAddress) {
  ComponentBank bank;
  LibFile_i closed(files_, accUpdate, "/none.lb1", "None");
  std::int32_t address = 0;
  EXPECT_THROW(bank.Io()->WriteToFile(&address, &closed), unsigned long);
  EXPECT_EQ(address, 0);
  EXPECT_EQ(bank.Io()->WriteToFile(&address, nullptr), kStatusFailed);
  EXPECT_EQ(bank.Io()->WriteToFile(nullptr, &library_), kStatusFailed);
  EXPECT_EQ(bank.Io()->ReadFromFile(&address, nullptr), kStatusFailed);
}

}  // namespace
}  // namespace zel
