#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "zelaccess/Banks.h"

namespace zel {
namespace {

struct Row {
  char const* keyword;
  char const* description;
  std::int32_t keyKind, keyWords, minKeyWords, pairRule;
  std::vector<std::int32_t> words;  // by format
  std::uint8_t listed;
  ZelIid const* id;
  std::uint16_t number;
  IZelBankDef* (*factory)();
};

// In the order of GetBankTypeList.
std::vector<Row> const kRows = {
    {"ALPHA", "Alpha coefficients", 0, 1, 1, 0, {16}, 1, &IID_IZelAlpha, 0, NewAlpha},
    {"AZEOTROP", "Azeotrope binary data", 0, 2, 2, 2, {4}, 1, &IID_IZelAzeo, 1, NewAzeo},
    {"BWRS", "Bwrs binary data", 0, 2, 2, 1, {14}, 1, &IID_IZelBwrs, 2, NewBwrs},
    {"PUREBWRS",
     "Bwrs pure component data",
     0,
     1,
     1,
     0,
     {11},
     1,
     &IID_IZelBwrsPure,
     3,
     NewBwrsPure},
    {"COSTALD", "Costald data", 0, 1, 1, 0, {3}, 1, &IID_IZelCostald, 4, NewCostald},
    {"GRPDESC",
     "UNIFAC Group Description bank",
     1,
     2,
     1,
     0,
     {15},
     1,
     &IID_IZelGroupDes,
     5,
     NewGroupDes},
    {"HENRY", "Henry's law data", 0, 2, 2, 3, {14}, 1, &IID_IZelHenry, 6, NewHenry},
    {"HMIX", "Heat of mixing data", 0, 2, 2, 2, {14}, 1, &IID_IZelHMix, 7, NewHMix},
    {"HOCV", "Hayden-O'Connell data", 0, 2, 1, 1, {1}, 1, &IID_IZelHocV, 8, NewHocV},
    {"IDIMER", "IDimer binary data", 0, 2, 1, 1, {3}, 1, &IID_IZelIDimer, 9, NewIDimer},
    {"IDIMPURE",
     "IDimer pure component data",
     0,
     1,
     1,
     0,
     {3},
     1,
     &IID_IZelIDimPure,
     10,
     NewIDimPure},
    {"LKP", "Lkp binary data", 0, 2, 2, 1, {2}, 1, &IID_IZelLkp, 11, NewLkp},
    {"MAPORW",
     "Client to Ordwin component mapping data",
     2,
     3,
     3,
     3,
     {1},
     0,
     &IID_IZelMapOrw,
     12,
     NewMapOrw},
    {"MARGULES",
     "Margules VLE binary data",
     0,
     2,
     2,
     2,
     {14},
     1,
     &IID_IZelMargules,
     13,
     NewMargules},
    {"MWPR", "Pr Kij-Mw curves", 0, 1, 1, 0, {25}, 0, &IID_IZelMwPr, 14, NewMwPr},
    {"MWSRK", "Srk Kij-Mw curves", 0, 1, 1, 0, {25}, 0, &IID_IZelMwSrk, 15, NewMwSrk},
    {"NRTL", "Nrtl VLE binary data", 0, 2, 2, 2, {14, 20}, 1, &IID_IZelNrtl, 16, NewNrtl},
    {"NRTLLL", "Nrtl LLE binary data", 0, 2, 2, 2, {14, 20}, 1, &IID_IZelNrtlLL, 17, NewNrtlLL},
    {"OCTANE", "Octane number data", 0, 1, 1, 0, {7}, 1, &IID_IZelOctane, 18, NewOctane},
    {"OLI", "Oli to Ordwin component mapping data", 2, 4, 4, 3, {1}, 0, &IID_IZelOli, 19, NewOli},
    {"PCSAFT", "PcSaft data", 0, 2, 2, 1, {12}, 1, &IID_IZelPcSaft, 20, NewPcSaft},
    {"PCSAFTPU",
     "PcSaft pure component data",
     0,
     1,
     1,
     0,
     {6},
     1,
     &IID_IZelPcSaftPure,
     21,
     NewPcSaftPure},
    {"PENELOUX",
     "Peneloux pure component data",
     0,
     1,
     1,
     0,
     {8},
     1,
     &IID_IZelPeneloux,
     22,
     NewPeneloux},
    {"PPR78", "PPR78 Group Interaction bank", 1, 2, 2, 1, {2}, 0, &IID_IZelPpr78, 23, NewPpr78},
    {"PRH", "PrH binary data", 0, 2, 2, 2, {14}, 1, &IID_IZelPrH, 24, NewPrH},
    {"PRM", "PrM binary data", 0, 2, 2, 2, {14}, 1, &IID_IZelPrM, 25, NewPrM},
    {"PRO", "Pr (Original) binary data", 0, 2, 2, 1, {14}, 1, &IID_IZelPrO, 26, NewPrO},
    {"PRP", "PrP binary data", 0, 2, 2, 2, {14}, 1, &IID_IZelPrP, 27, NewPrP},
    {"PSRK", "Predictive SRK data", 1, 2, 0, 2, {17, 21}, 1, &IID_IZelPsrk, 28, NewPsrk},
    {"PURECOMP", "Pure component data", 0, 1, 1, 0, {250}, 1, &IID_IZelPureComp, 29, NewPureComp},
    {"RACKETT", "Rackett data", 0, 1, 1, 0, {1}, 1, &IID_IZelRackett, 30, NewRackett},
    {"SRKH", "SrkH binary data", 0, 2, 2, 2, {14}, 1, &IID_IZelSrkH, 31, NewSrkH},
    {"SRKM", "SrkM binary data", 0, 2, 2, 2, {14, 16}, 1, &IID_IZelSrkM, 32, NewSrkM},
    {"SRKO", "Srk (Original) binary data", 0, 2, 2, 1, {14}, 1, &IID_IZelSrkO, 33, NewSrkO},
    {"SRKP", "SrkP binary data", 0, 2, 2, 2, {14}, 1, &IID_IZelSrkP, 34, NewSrkP},
    {"SRKS", "SrkS binary data", 0, 2, 2, 2, {14}, 1, &IID_IZelSrkS, 35, NewSrkS},
    {"ORWMAP",
     "Ordwin to Client component mapping data",
     1,
     1,
     1,
     3,
     {3},
     0,
     &IID_IZelOrwMap,
     36,
     NewOrwMap},
    {"STRUCT", "Structural data", 0, 1, 1, 0, {21}, 1, &IID_IZelStruct, 37, NewStruct},
    {"UNF2PUR",
     "Unifac pure group parameters for UFT2",
     1,
     1,
     1,
     0,
     {3},
     0,
     &IID_IZelUnf2Pure,
     43,
     NewUnf2Pure},
    {"UNFDORT", "Dortmund Unifac data", 1, 2, 0, 2, {17}, 1, &IID_IZelUnfDort, 38, NewUnfDort},
    {"UNFLYNG", "Lyngby Unifac data", 1, 2, 0, 2, {17}, 1, &IID_IZelUnfLyng, 39, NewUnfLyng},
    {"UNFORIG", "Original Unifac data", 1, 2, 0, 2, {15}, 1, &IID_IZelUnfOrig, 41, NewUnfOrig},
    {"UNFMOD", "Modified Unifac data", 1, 2, 0, 2, {17}, 1, &IID_IZelUnfMod, 40, NewUnfMod},
    {"UNFPURE",
     "Unifac pure group parameters",
     1,
     1,
     1,
     0,
     {3},
     0,
     &IID_IZelUnfPure,
     42,
     NewUnfPure},
    {"UNIFAC", "Unifac binary group data", 1, 2, 2, 2, {22}, 0, &IID_IZelUnifac, 44, NewUnifac},
    {"UNIQUAC", "Uniquac VLE binary data", 0, 2, 2, 2, {14}, 1, &IID_IZelUniquac, 45, NewUniquac},
    {"UNIQLL",
     "Uniquac LLE binary data",
     0,
     2,
     2,
     2,
     {14},
     1,
     &IID_IZelUniquacLL,
     46,
     NewUniquacLL},
    {"VANLAAR", "vanLaar VLE binary data", 0, 2, 2, 2, {14}, 1, &IID_IZelVanLaar, 47, NewVanLaar},
    {"VIRIAL", "Virial coefficients", 0, 1, 1, 0, {5}, 1, &IID_IZelVirial, 48, NewVirial},
    {"WILSON", "Wilson VLE binary data", 0, 2, 2, 2, {14, 21}, 1, &IID_IZelWilson, 49, NewWilson},
};

TEST(Catalogue, FiftyTypesInTheirOrder) {
  ASSERT_EQ(GetBankTypeCount(), 50);
  ASSERT_EQ(kRows.size(), 50U);
  char list[60][9];
  std::memset(list, 'x', sizeof list);
  GetBankTypeList(60, list);
  for (std::size_t i = 0; i < 50; ++i) EXPECT_STREQ(list[i], kRows[i].keyword);
  for (std::size_t i = 50; i < 60; ++i) EXPECT_STREQ(list[i], "");
}

TEST(Catalogue, ListOfFiftyTouchesNothingElse) {
  char list[51][9];
  std::strcpy(list[50], "KEPT");
  GetBankTypeList(50, list);
  EXPECT_STREQ(list[49], kRows[49].keyword);
  EXPECT_STREQ(list[50], "KEPT");
}

TEST(Catalogue, ShortListTouchesNothingElse) {
  char list[4][9] = {"", "", "", "KEPT"};
  GetBankTypeList(3, list);
  EXPECT_STREQ(list[0], "ALPHA");
  EXPECT_STREQ(list[1], "AZEOTROP");
  EXPECT_STREQ(list[2], "BWRS");
  EXPECT_STREQ(list[3], "KEPT");
  GetBankTypeList(0, list);
  GetBankTypeList(-1, list);
  EXPECT_STREQ(list[0], "ALPHA");
}

TEST(Catalogue, OnlyPsrkRefersToOtherTypes) {
  for (Row const& row : kRows) {
    EXPECT_EQ(GetRefBankTypeCount(row.keyword), std::strcmp(row.keyword, "PSRK") == 0 ? 2 : 0);
  }
  EXPECT_EQ(GetRefBankTypeCount("psrk"), 2);
  EXPECT_EQ(GetRefBankTypeCount("NOTYPE"), 0);
  EXPECT_EQ(GetRefBankTypeCount(nullptr), 0);
  char list[3][9] = {"a", "b", "c"};
  GetRefBankTypeList("PSRK", 1, list);
  EXPECT_STREQ(list[0], "PURECOMP");
  EXPECT_STREQ(list[1], "b");
  GetRefBankTypeList("pSRK", 3, list);
  EXPECT_STREQ(list[1], "ALPHA");
  EXPECT_STREQ(list[2], "c");
  GetRefBankTypeList("WILSON", 3, list);
  GetRefBankTypeList("PSRK", 0, list);
  EXPECT_STREQ(list[0], "PURECOMP");
}

TEST(Catalogue, EveryTypeReportsItsFacts) {
  for (Row const& row : kRows) {
    std::string lower = row.keyword;
    for (char& c : lower) c = static_cast<char>(std::tolower(c));
    for (IZelBankDef* bank : {NewBank(row.keyword), NewBank(lower.c_str()), row.factory()}) {
      ASSERT_NE(bank, nullptr) << row.keyword;
      char type[9];
      char description[50];
      std::int32_t keyKind, keyWords, minKeyWords, formats, most;
      std::uint8_t listed;
      EXPECT_EQ(bank->GetBankInfo(type, description, &keyKind, &keyWords, &minKeyWords, &formats,
                                  &most, &listed),
                kStatusOk);
      EXPECT_STREQ(type, row.keyword);
      EXPECT_STREQ(description, row.description);
      EXPECT_EQ(keyKind, row.keyKind) << row.keyword;
      EXPECT_EQ(keyWords, row.keyWords) << row.keyword;
      EXPECT_EQ(minKeyWords, row.minKeyWords) << row.keyword;
      EXPECT_EQ(formats, static_cast<std::int32_t>(row.words.size())) << row.keyword;
      EXPECT_EQ(most, row.words.back()) << row.keyword;
      EXPECT_EQ(listed, row.listed) << row.keyword;
      void* face = nullptr;
      ASSERT_EQ(bank->QueryInterface(IID_IZelBankIO, &face), kStatusOk);
      auto* io = static_cast<IZelBankIO*>(face);
      std::int32_t pairRule, fileResident;
      io->GetBlockInfo(type, &keyKind, &keyWords, &minKeyWords, &formats, &most, &pairRule,
                       &fileResident);
      EXPECT_EQ(pairRule, row.pairRule) << row.keyword;
      // Only components have their own blocks, and only they are completed.
      bool const isComponent = row.factory == NewPureComp;
      EXPECT_EQ(fileResident, isComponent ? 1 : 0) << row.keyword;
      ZelStatus const byFile = isComponent ? kStatusFailed : kStatusNotImplemented;
      for (std::size_t f = 1; f <= row.words.size(); ++f) {
        std::int32_t words = 0;
        EXPECT_EQ(bank->GetRecordLength(static_cast<std::int32_t>(f), &words), kStatusOk);
        EXPECT_EQ(words, row.words[f - 1]) << row.keyword;
      }
      std::int32_t words = 0;
      EXPECT_EQ(bank->GetRecordLength(0, &words), kStatusOk);
      EXPECT_EQ(words, row.words.back());
      for (std::int32_t bad : {-1, static_cast<std::int32_t>(row.words.size()) + 1}) {
        EXPECT_EQ(bank->GetRecordLength(bad, &words), kStatusFailed);
        EXPECT_EQ(words, 0);
      }
      EXPECT_EQ(io->ReservedIO(nullptr, nullptr), kStatusNotImplemented);
      EXPECT_EQ(io->Complete(), isComponent ? kStatusOk : kStatusNotImplemented);
      EXPECT_EQ(io->ReadFromFile(nullptr, nullptr), byFile) << row.keyword;
      EXPECT_EQ(io->WriteToFile(nullptr, nullptr), byFile) << row.keyword;
      EXPECT_EQ(io->SwapPair(), row.pairRule == 2 ? kStatusOk : kStatusNotImplemented)
          << row.keyword;
      io->Release();
      EXPECT_EQ(bank->Release(), 0);
    }
  }
}

TEST(Catalogue, UnknownKeywordsGiveNoBank) {
  EXPECT_EQ(NewBank(""), nullptr);
  EXPECT_EQ(NewBank(nullptr), nullptr);
  EXPECT_EQ(NewBank("WILSON "), nullptr);
  EXPECT_EQ(NewBank("PURECOM"), nullptr);
}

TEST(Catalogue, IdentifiersAreNumberedInTheirOrder) {
  ZelIid const expected = {0xDEADBEEF, 0, 0, {}};
  EXPECT_EQ(IID_IZelBankDef, expected);
  EXPECT_EQ(IID_IZelBankIO, (ZelIid{0xDEADBEEF, 0, 1, {}}));
  for (Row const& row : kRows) {
    EXPECT_EQ(*row.id, (ZelIid{0xDEADBEEF, 1, row.number, {}})) << row.keyword;
  }
  EXPECT_EQ(IID_IUnknown, (ZelIid{0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}));
}

TEST(Catalogue, EveryFaceIsTheSameObject) {
  ZelIid const test = {0xDEADBEEF, 0, 2, {}};
  for (Row const& row : kRows) {
    IZelBankDef* bank = row.factory();
    std::vector<IUnknown*> faces;
    for (ZelIid const* id : {&IID_IUnknown, &IID_IZelBankDef, &IID_IZelBankIO, &test, row.id}) {
      void* face = nullptr;
      ASSERT_EQ(bank->QueryInterface(*id, &face), kStatusOk) << row.keyword;
      void* back = nullptr;
      auto* unknown = static_cast<IUnknown*>(face);
      ASSERT_EQ(unknown->QueryInterface(IID_IZelBankDef, &back), kStatusOk);
      EXPECT_EQ(back, static_cast<void*>(bank));
      EXPECT_EQ(unknown->Release(), static_cast<std::int32_t>(faces.size()) + 2);
      faces.push_back(unknown);
      if (id == &test) {
        EXPECT_EQ(static_cast<IZelBankTest*>(face)->SelfTest(), kStatusNotImplemented);
      }
    }
    void* face = bank;
    for (Row const& other : kRows) {
      if (other.number == row.number) continue;
      EXPECT_EQ(bank->QueryInterface(*other.id, &face), kStatusNoInterface);
      EXPECT_EQ(face, nullptr);
    }
    EXPECT_EQ(bank->QueryInterface(*row.id, nullptr), kStatusNoInterface);
    EXPECT_EQ(bank->AddRef(), 7);
    for (IUnknown* last : faces) last->Release();
    EXPECT_EQ(bank->Release(), 1);
    EXPECT_EQ(faces.back()->Release() + 0, 0) << "the last reference through any face";
  }
}

}  // namespace
}  // namespace zel
