// Common to all banks: field tables, blocks, defaults, sources.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>

#include "banks/field_table.h"
#include "store/lib_file.h"
#include "store/packed_text.h"
#include "tests/banks/bank_fields.h"
#include "tests/banks/expected_fields.h"
#include "tests/support/memory_file_system.h"

namespace zel {
namespace {

using test::ExpectedField;
using test::ExpectedType;
using test::Fields;
using test::Typed;

std::int32_t FloatWord(double value) {
  return std::bit_cast<std::int32_t>(static_cast<float>(value));
}

TEST(BankFramework, FieldListsAreTheExpectedOnesInEveryFormat) {
  for (ExpectedType const& type : test::ExpectedTypes()) {
    IZelBankDef* bank = NewBank(type.keyword);
    for (std::int32_t format = 0; format <= static_cast<std::int32_t>(type.recordWords.size());
         ++format) {
      std::vector<ExpectedField> expected;
      for (ExpectedField const& field : type.fields) {
        if (format == 0 || field.format <= format) expected.push_back(field);
      }
      std::int32_t count = 0;
      bank->GetFieldCount(format, &count);
      ASSERT_EQ(count, static_cast<std::int32_t>(expected.size())) << type.keyword;
      char names[20][13];
      char labels[20][20];
      char units[20][20];
      std::int32_t types[20];
      std::int32_t counts[20];
      ASSERT_EQ(bank->GetFieldList(format, names, labels, types, counts, units), kStatusOk);
      for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_STREQ(names[i], expected[i].name) << type.keyword;
        EXPECT_EQ(labels[i], std::string(expected[i].label).substr(0, 19)) << type.keyword;
        EXPECT_EQ(types[i], expected[i].type) << expected[i].name;
        EXPECT_EQ(counts[i], expected[i].count) << expected[i].name;
        EXPECT_STREQ(units[i], expected[i].unit) << expected[i].name;
      }
    }
    bank->Release();
  }
}

// Distinct words for one field, and the value that they read as.
void FillWords(ExpectedField const& field, std::int32_t stamp, std::int32_t* words) {
  std::int32_t const n = field.type == 2 ? (field.count + 2) / 4 : field.count;
  for (std::int32_t i = 0; i < n; ++i) {
    words[i] = field.type == 1 ? FloatWord(stamp + i + 0.25) : stamp + i;
  }
  if (field.type == 2) TextToWords("F" + std::to_string(stamp), words, n);
}

TEST(BankFramework, EveryPlainFieldStandsAtItsOffset) {
  for (ExpectedType const& type : test::ExpectedTypes()) {
    if (std::strcmp(type.keyword, "PPR78") == 0) continue;  // on another scale
    IZelBankDef* bank = NewBank(type.keyword);
    void* face = nullptr;
    bank->QueryInterface(IID_IZelBankIO, &face);
    auto* io = static_cast<IZelBankIO*>(face);
    for (std::size_t f = 1; f <= type.recordWords.size(); ++f) {
      auto const format = static_cast<std::int32_t>(f);
      std::vector<std::int32_t> block(static_cast<std::size_t>(type.recordWords[f - 1]), 0);
      std::int32_t stamp = 100;
      bool byHand = false;
      for (ExpectedField const& field : type.fields) {
        if (field.format > format) continue;
        if (field.offset < 0) {
          byHand = true;
        } else {
          FillWords(field, stamp += 20, block.data() + field.offset / 4);
        }
      }
      if (byHand) continue;
      bank->Clear();
      ASSERT_EQ(io->ReadBlock(block.data(), format), kStatusOk);
      stamp = 100;
      Fields const fields(bank);
      for (ExpectedField const& field : type.fields) {
        auto const count = static_cast<std::size_t>(field.count);
        if (field.format > format) {
          if (field.type == 1) {
            EXPECT_TRUE(gen_IsUndefDouble(fields.Reals(field.name, count)[0])) << field.name;
          }
          continue;
        }
        stamp += 20;
        for (std::size_t i = 0; i < count; ++i) {
          auto const value = stamp + static_cast<std::int32_t>(i);
          if (field.type == 1) {
            EXPECT_EQ(fields.Reals(field.name, count)[i], value + 0.25);
          }
          if (field.type == 0 || field.type == 3) {
            EXPECT_EQ(fields.Ints(field.name, count)[i], value);
          }
        }
        if (field.type == 2) {
          EXPECT_EQ(fields.Text(field.name), "F" + std::to_string(stamp));
        }
      }
      std::vector<std::int32_t> written(block.size() + 1, 77);
      ASSERT_EQ(io->WriteBlock(written.data(), format), kStatusOk);
      EXPECT_EQ(written.back(), 77) << type.keyword;
      written.pop_back();
      EXPECT_EQ(written, block) << type.keyword << " format " << format;
    }
    io->Release();
    bank->Release();
  }
}

TEST(BankFramework, NewAndClearedBanksHoldDefaults) {
  for (ExpectedType const& type : test::ExpectedTypes()) {
    IZelBankDef* bank = NewBank(type.keyword);
    Fields const fields(bank);
    for (ExpectedField const& field : type.fields) {
      auto const count = static_cast<std::size_t>(field.count);
      if (field.type == 0) {
        for (std::int32_t value : fields.Ints(field.name, count))
          EXPECT_EQ(value, gen_GetUndefInt());
      }
      if (field.type == 1) {
        for (double value : fields.Reals(field.name, count)) EXPECT_EQ(value, -1e35);
      }
      if (field.type == 2) {
        EXPECT_EQ(fields.Text(field.name), "");
      }
    }
    bank->Release();
  }
}

TEST(BankFramework, UndefinedValuesSurviveABlock) {
  Typed<IZelVanLaar> bank("VANLAAR", IID_IZelVanLaar);
  std::int32_t block[14];
  bank.IO()->WriteBlock(block, 1);
  bank.IO()->ReadBlock(block, 1);
  EXPECT_EQ(Fields(bank.Def()).Reals("aij", 1)[0], -1e35);
  EXPECT_EQ(Fields(bank.Def()).Ints("refCode", 1)[0], gen_GetUndefInt());
}

TEST(BankFramework, FloatsAreTrimmedToSevenDigits) {
  Typed<IZelVanLaar> bank("VANLAAR", IID_IZelVanLaar);
  for (double value : {0.1, 1.0E-5, 298.15, -1234.567, 3.141593}) {
    std::int32_t block[14] = {};
    block[5] = FloatWord(value);
    bank.IO()->ReadBlock(block, 1);
    EXPECT_EQ(Fields(bank.Def()).Reals("aij", 1)[0], value);
  }
}

TEST(BankFramework, FormatsThatTheTypeDoesNotHaveTouchNothing) {
  Typed<IZelNrtl> bank("NRTL", IID_IZelNrtl);
  std::int32_t block[20];
  std::fill(std::begin(block), std::end(block), 5);
  for (std::int32_t format : {-1, 0, 3}) {
    EXPECT_EQ(bank.IO()->ReadBlock(block, format), kStatusFailed);
    EXPECT_EQ(bank.IO()->WriteBlock(block, format), kStatusFailed);
  }
  EXPECT_EQ(block[0], 5);
  EXPECT_TRUE(gen_IsUndefDouble(Fields(bank.Def()).Reals("aij", 1)[0]));
}

TEST(BankFramework, NamesMatchInAnyCaseAndTypesMustFit) {
  Typed<IZelGroupDes> names("GRPDESC", IID_IZelGroupDes);
  Typed<IZelVanLaar> bank("VANLAAR", IID_IZelVanLaar);
  std::int32_t const code = 5;
  EXPECT_EQ(bank.Def()->SetIntField("REFCODE", &code), kStatusOk);
  EXPECT_EQ(Fields(bank.Def()).Ints("refCode", 1)[0], 5);
  char text[64] = "x";
  EXPECT_EQ(bank.Def()->GetStringField("refCode", text), kStatusFailed);
  EXPECT_STREQ(text, "");
  std::int32_t number = 9;
  EXPECT_EQ(names.Def()->GetIntField("name", &number), kStatusFailed);
  EXPECT_EQ(number, 0);
  double value = 9.0;
  EXPECT_EQ(bank.Def()->GetDoubleField("none", &value), kStatusFailed);
  EXPECT_EQ(value, 0.0);
  EXPECT_EQ(bank.Def()->SetDoubleField("refCode", &value), kStatusFailed);
  EXPECT_EQ(bank.Def()->SetIntField("aij", &code), kStatusFailed);
  EXPECT_EQ(bank.Def()->SetStringField("aij", "x"), kStatusFailed);
  EXPECT_EQ(Fields(bank.Def()).Ints("refCode", 1)[0], 5);
  EXPECT_EQ(names.Def()->SetStringField("NAME", "twenty characters and more"), kStatusOk);
  EXPECT_EQ(Fields(names.Def()).Text("name"), "twenty characters an");
}

TEST(BankFramework, OnlyWilsonHasEnumerations) {
  for (ExpectedType const& type : test::ExpectedTypes()) {
    if (std::strcmp(type.keyword, "WILSON") == 0) continue;
    IZelBankDef* bank = NewBank(type.keyword);
    std::int32_t n = 0;
    EXPECT_EQ(bank->GetEnumCount(type.fields[0].name, &n), kStatusNotImplemented);
    EXPECT_EQ(bank->GetEnumList(type.fields[0].name, nullptr, &n, &n), kStatusNotImplemented);
    bank->Release();
  }
}

class SourceTest : public ::testing::Test {
 protected:
  SourceTest() : library_(files_, accUpdate, "/l.lb1", "My library") {}
  std::string Source() {
    char text[260];
    std::uint8_t isProtected = 0;
    EXPECT_EQ(bank_.Def()->GetSource(text, &isProtected), kStatusOk);
    protected_ = isProtected;
    return text;
  }

  test::MemoryFileSystem files_;
  LibFile_i library_;
  Typed<IZelLkp> bank_{"LKP", IID_IZelLkp};
  int protected_ = 0;
};

TEST_F(SourceTest, IsLibraryAndBank) {
  bank_.IO()->SetSource(&library_, "BANK  ", 1);
  EXPECT_EQ(Source(), "My library:BANK");
  EXPECT_EQ(protected_, 1);
  bank_.Def()->Clear();
  EXPECT_EQ(Source(), "");
}

TEST_F(SourceTest, IsCutAtItsBuffer) {
  LibFile_i longNamed(files_, accUpdate, "/l.lb1", std::string(259, 'n'));
  bank_.IO()->SetSource(&longNamed, "BANK", 0);
  EXPECT_EQ(Source(), std::string(259, 'n'));
}

TEST_F(SourceTest, OfSeveralBanksIsMultiple) {
  std::uint8_t const none[3] = {0, 0, 0};
  std::uint8_t const one[3] = {0, 1, 0};
  std::uint8_t const two[3] = {1, 0, 1};
  std::uint8_t flags[3] = {9, 9, 9};
  bank_.IO()->SetSource(&library_, "B", 1);
  EXPECT_EQ(bank_.Def()->GetSourceFlags(flags), kStatusOk);
  EXPECT_EQ(flags[0], 9) << "no list yet";
  bank_.IO()->SetSourceList(3, one, none);
  EXPECT_EQ(Source(), "My library:B");
  EXPECT_EQ(protected_, 0);
  bank_.IO()->SetSourceList(3, two, one);
  EXPECT_EQ(Source(), "Multiple");
  EXPECT_EQ(protected_, 1);
  bank_.Def()->GetSourceFlags(flags);
  EXPECT_EQ(flags[0], 1);
  EXPECT_EQ(flags[1], 0);
  EXPECT_EQ(flags[2], 1);
  bank_.Def()->Clear();
  bank_.Def()->GetSourceFlags(flags);
  EXPECT_EQ(flags[0], 0) << "cleared, and the count stays";
  bank_.IO()->SetSource(&library_, "B", 0);
  bank_.IO()->SetSourceList(3, none, none);
  EXPECT_EQ(Source(), "");
  bank_.IO()->SetSource(&library_, "B", 0);
  bank_.IO()->SetSourceList(0, none, none);
  EXPECT_EQ(Source(), "");
  bank_.IO()->SetSourceList(-3, none, none);
}

}  // namespace
}  // namespace zel
