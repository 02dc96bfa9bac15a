// Statuses, reasons, texts in buffers of every size, units, catalogues and tables.
#include <zelaccess/DataCheck.h>
#include <zelaccess/DeskBanks.h>
#include <zelaccess/DeskReports.h>
#include <zelaccess/Units.h>
#include <zelaccess/Verify.h>

#include <cmath>
#include <cstring>
#include <thread>

#include "c_fixture.h"

using ctest::Held;
using ctest::Reason;

namespace desk = zel::desk;

namespace {

// The characters of UTF-8 that fit into a buffer of `size` bytes with their terminator.
std::string Fitting(std::string const& text, std::size_t size) {
  std::string fits;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t next = at + 1;
    while (next < text.size() && (static_cast<unsigned char>(text[next]) & 0xC0U) == 0x80) ++next;
    if (next + 1 > size) break;
    fits.assign(text, 0, next);
    at = next;
  }
  return fits;
}

// Copies a text to buffers of every size up to two more than it needs.
template <typename Call>
void ExpectInEverySize(std::string const& whole, Call const& call) {
  for (std::size_t size = 0; size <= whole.size() + 2; ++size) {
    std::string buffer(size + 4, '#');
    std::size_t length = 0;
    EXPECT_EQ(call(buffer.data(), size, &length), size > whole.size() ? ZEL_OK : ZEL_TOO_SMALL);
    EXPECT_EQ(length, whole.size());
    EXPECT_EQ(buffer.substr(size), "####") << "written behind the buffer";
    if (size == 0) continue;
    EXPECT_STREQ(buffer.c_str(), Fitting(whole, size).c_str()) << size;
  }
  EXPECT_EQ(call(nullptr, 0, nullptr), ZEL_OK);
  EXPECT_EQ(call(nullptr, 1, nullptr), ZEL_NULL_ARGUMENT);
}

TEST_F(CFaceTest, ATextIsCopiedToABufferOfAnySize) {
  ExpectInEverySize(ZEL_VERSION, [](char* text, std::size_t size, std::size_t* length) {
    return zel_version(text, size, length);
  });
}

TEST_F(CFaceTest, ATooSmallBufferGetsWholeCharacters) {
  zel_library* library = nullptr;
  std::string const name = "a\xC3\xB6\xE2\x82\xAC\xF0\x9D\x84\x9Ez.lb1";  // of 1, 2, 3 and 4 bytes
  EXPECT_EQ(zel_library_open(name.c_str(), nullptr, &library), ZEL_NOT_FOUND);
  EXPECT_EQ(library, nullptr);
  ExpectInEverySize(name + ": not found", [](char* text, std::size_t size, std::size_t* length) {
    return zel_reason(text, size, length);
  });
}

TEST_F(CFaceTest, WhatIsNotUtf8IsReplaced) {
  std::string const mark = "\xEF\xBF\xBD";
  struct Row {
    char const* bytes;
    std::string shown;
  };
  for (auto const& [bytes, shown] :
       {Row{"\xFFz", mark + "z"}, Row{"\xC3", mark}, Row{"\xC0\xAF", mark + mark},
        Row{"\xE0\x80\x80", mark + mark + mark}, Row{"\xED\xA0\x80", mark + mark + mark},
        Row{"\xF4\x90\x80\x80", mark + mark + mark + mark},
        Row{"\xF0\x8F\xBF\xBF", mark + mark + mark + mark}, Row{"\xE2\x82z", mark + mark + "z"},
        Row{"\xED\x9F\xBF", "\xED\x9F\xBF"}, Row{"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"}}) {
    Held table;
    EXPECT_EQ(zel_list_fields(bytes, &table), ZEL_UNKNOWN_WORD);
    EXPECT_EQ(Reason(), "there is no bank type " + shown);
  }
}

TEST_F(CFaceTest, ALongReasonIsCutToWholeCharacters) {
  std::string word;
  while (word.size() < 3000) word += "\xE2\x82\xAC";
  Held table;
  EXPECT_EQ(zel_list_fields(word.c_str(), &table), ZEL_UNKNOWN_WORD);
  std::string const reason = Reason();
  EXPECT_EQ(reason, Fitting("there is no bank type " + word, 1024));
  EXPECT_GT(reason.size(), 1020U);
}

TEST_F(CFaceTest, EveryThreadHasItsOwnReason) {
  Held table;
  EXPECT_EQ(zel_list_fields("FIRST", &table), ZEL_UNKNOWN_WORD);
  std::thread([] {
    EXPECT_EQ(Reason(), "") << "nothing has failed in this thread";
    zel_table* other = nullptr;
    EXPECT_EQ(zel_list_fields("SECOND", &other), ZEL_UNKNOWN_WORD);
    EXPECT_EQ(Reason(), "there is no bank type SECOND");
  }).join();
  EXPECT_EQ(Reason(), "there is no bank type FIRST");
  EXPECT_EQ(zel_list_fields("NRTL", &table), ZEL_OK);
  EXPECT_EQ(Reason(), "there is no bank type FIRST") << "a call that works leaves it";
}

TEST_F(CFaceTest, EveryStatusHasAName) {
  auto const name = [](zel_status status) {
    return ctest::Text([&](char* text, std::size_t size, std::size_t* length) {
      return zel_status_name(status, text, size, length);
    });
  };
  EXPECT_EQ(name(ZEL_OK), "ZEL_OK");
  EXPECT_EQ(name(ZEL_FAILED), "ZEL_FAILED");
  EXPECT_EQ(name(ZEL_NULL_ARGUMENT), "ZEL_NULL_ARGUMENT");
  EXPECT_EQ(name(ZEL_BAD_ARGUMENT), "ZEL_BAD_ARGUMENT");
  EXPECT_EQ(name(ZEL_NO_MEMORY), "ZEL_NO_MEMORY");
  EXPECT_EQ(name(ZEL_TOO_SMALL), "ZEL_TOO_SMALL");
  EXPECT_EQ(name(ZEL_NO_VALUE), "ZEL_NO_VALUE");
  EXPECT_EQ(name(ZEL_WRONG_TYPE), "ZEL_WRONG_TYPE");
  EXPECT_EQ(name(ZEL_NOT_FOUND), "ZEL_NOT_FOUND");
  EXPECT_EQ(name(ZEL_IN_USE), "ZEL_IN_USE");
  EXPECT_EQ(name(ZEL_CANNOT_OPEN), "ZEL_CANNOT_OPEN");
  EXPECT_EQ(name(ZEL_READ_ONLY), "ZEL_READ_ONLY");
  EXPECT_EQ(name(ZEL_DAMAGED), "ZEL_DAMAGED");
  EXPECT_EQ(name(ZEL_MISSING_COMPONENT), "ZEL_MISSING_COMPONENT");
  EXPECT_EQ(name(ZEL_CONFLICTING_IDENTITY), "ZEL_CONFLICTING_IDENTITY");
  EXPECT_EQ(name(ZEL_MISSING_ITEM), "ZEL_MISSING_ITEM");
  EXPECT_EQ(name(ZEL_MISSING_BANK), "ZEL_MISSING_BANK");
  EXPECT_EQ(name(ZEL_MISSING_DATUM), "ZEL_MISSING_DATUM");
  EXPECT_EQ(name(ZEL_UNKNOWN_WORD), "ZEL_UNKNOWN_WORD");
  EXPECT_EQ(name(ZEL_STOPPED), "ZEL_STOPPED");
  for (zel_status const status : {-1, ZEL_STOPPED + 1}) {
    EXPECT_EQ(zel_status_name(status, nullptr, 0, nullptr), ZEL_BAD_ARGUMENT);
  }
}

TEST_F(CFaceTest, ValuesAreConverted) {
  EXPECT_EQ(zel_start(), ZEL_OK);
  double values[] = {100.0, std::nan(""), 101.325};
  ASSERT_EQ(zel_convert("Pres", "kPa", "bar", values, 3), ZEL_OK);
  EXPECT_DOUBLE_EQ(values[0], 1.0);
  EXPECT_TRUE(std::isnan(values[1]));
  EXPECT_DOUBLE_EQ(values[2], 1.01325);
  EXPECT_EQ(zel_convert("Pres", "kPa", "K", values, 3), ZEL_UNKNOWN_WORD);
  EXPECT_NE(Reason().find("\"K\""), std::string::npos);
  EXPECT_DOUBLE_EQ(values[0], 1.0) << "unchanged";
  EXPECT_EQ(zel_convert("Nothing", "kPa", "bar", values, 3), ZEL_UNKNOWN_WORD);
  EXPECT_EQ(zel_convert("Pres", "kPa", "bar", nullptr, 0), ZEL_OK);
  EXPECT_EQ(zel_convert("Pres", "kPa", "bar", values, SIZE_MAX), ZEL_BAD_ARGUMENT);
}

TEST_F(CFaceTest, TheCataloguesAreThoseOfTheLibrary) {
  std::int32_t count = 0;
  Held table;
  zel::ZelConstantInfo const* const constants = zel::GetConstantCatalogue(count);
  desk::Table expected("", {{"keyword", ""}, {"label", ""}, {"unit", ""}, {"dimension", ""}});
  for (std::int32_t i = 0; i < count; ++i) {
    expected.Add(std::string(constants[i].keyword), std::string(constants[i].label),
                 std::string(constants[i].unit),
                 std::string(zel::GetConstantDimension(constants[i].index)));
  }
  ASSERT_EQ(zel_list_constants(&table), ZEL_OK);
  ctest::ExpectSame(table, expected);

  Held correlations;
  zel::ZelCorrelationInfo const* const curves = zel::GetCorrelationCatalogue(count);
  desk::Table curvesExpected("", {{"name", ""}, {"label", ""}, {"unit", ""}, {"dimension", ""}});
  for (std::int32_t i = 0; i < count; ++i) {
    curvesExpected.Add(std::string(curves[i].name), std::string(curves[i].label),
                       std::string(curves[i].unit),
                       std::string(zel::GetCorrelationDimension(static_cast<std::uint32_t>(i))));
  }
  ASSERT_EQ(zel_list_correlations(&correlations), ZEL_OK);
  ctest::ExpectSame(correlations, curvesExpected);

  Held checks;
  char const* const severities[] = {"note", "warning", "damage", "error"};
  zel::ZelDataCheck const* const rules = zel::GetDataChecks(count);
  desk::Table checksExpected("", {{"id", ""}, {"rule", ""}, {"severity", ""}});
  for (std::int32_t i = 0; i < count; ++i) {
    checksExpected.Add(std::string(rules[i].id), std::string(rules[i].rule),
                       std::string(severities[rules[i].severity]));
  }
  ASSERT_EQ(zel_list_checks(&checks), ZEL_OK);
  ctest::ExpectSame(checks, checksExpected);
}

TEST_F(CFaceTest, BankTypesAndTheirFieldsAreListed) {
  Held types;
  char const* const keys[] = {"components", "numbers", "text"};
  desk::Table expected("", {{"type", ""},
                            {"description", ""},
                            {"key", ""},
                            {"key parts", ""},
                            {"shortest key", ""},
                            {"formats", ""}});
  for (desk::BankType const& type : desk::BankTypes()) {
    expected.Add(type.type, type.description, std::string(keys[static_cast<int>(type.keyKind)]),
                 std::int64_t{type.keyParts}, std::int64_t{type.shortestKey},
                 std::int64_t{type.formats});
    Held fields;
    char const* const kinds[] = {"integer", "real", "text", "word"};
    desk::Table fieldsExpected(
        "", {{"name", ""}, {"label", ""}, {"unit", ""}, {"kind", ""}, {"count", ""}});
    for (desk::FieldInfo const& field : desk::FieldsOfType(type.type)) {
      fieldsExpected.Add(field.name, field.label, field.unit, std::string(kinds[field.type]),
                         std::int64_t{field.count});
    }
    ASSERT_EQ(zel_list_fields(type.type.c_str(), &fields), ZEL_OK);
    ctest::ExpectSame(fields, fieldsExpected);
  }
  ASSERT_EQ(zel_list_bank_types(&types), ZEL_OK);
  ctest::ExpectSame(types, expected);
}

// A table with a text, a number, an empty cell, a whole number and yes or no in its rows.
class CTableTest : public CFaceTest {
 protected:
  void SetUp() override {
    ctest::Words const libraries(Paths({"crc.lb1", "perry.lb1"}));
    ASSERT_EQ(zel_why(libraries.data(), 2, "ETHANOL", "NBP", nullptr, &table_), ZEL_OK) << Reason();
    ctest::ExpectSame(table_, desk::WhyOf(libraries.Texts(), "ETHANOL", "NBP"));
    ASSERT_EQ(zel_table_column(table_, "source", &source_), ZEL_OK);
    ASSERT_EQ(zel_table_column(table_, "value", &value_), ZEL_OK);
    ASSERT_EQ(zel_table_column(table_, "code", &code_), ZEL_OK);
  }
  Held table_;
  std::size_t source_ = 99, value_ = 99, code_ = 99;
};

TEST_F(CTableTest, ACellIsReadAsWhatItHolds) {
  double number = -1.0;
  std::int64_t whole = -1;
  char text[60] = "";
  // The row of crc.lb1 has a value, that of perry.lb1 has none.
  EXPECT_EQ(zel_table_number(table_, 0, value_, &number), ZEL_OK);
  EXPECT_EQ(number, 351.39);
  EXPECT_EQ(zel_table_integer(table_, 0, code_, &whole), ZEL_OK);
  EXPECT_EQ(whole, 54);
  EXPECT_EQ(zel_table_number(table_, 0, code_, &number), ZEL_OK) << "a whole number is a number";
  EXPECT_EQ(number, 54.0);
  EXPECT_EQ(zel_table_text(table_, 0, source_, text, sizeof text, nullptr), ZEL_OK);
  EXPECT_EQ(std::string(text).substr(std::strlen(text) - 11), "crc.lb1:CRC");
  EXPECT_EQ(zel_table_number(table_, 0, source_, &number), ZEL_WRONG_TYPE);
  EXPECT_EQ(zel_table_integer(table_, 0, source_, &whole), ZEL_WRONG_TYPE);
  EXPECT_EQ(zel_table_integer(table_, 0, value_, &whole), ZEL_WRONG_TYPE);
  EXPECT_EQ(zel_table_text(table_, 0, value_, text, sizeof text, nullptr), ZEL_WRONG_TYPE);
  EXPECT_EQ(zel_table_number(table_, 1, value_, &number), ZEL_NO_VALUE);
  EXPECT_EQ(zel_table_integer(table_, 1, value_, &whole), ZEL_NO_VALUE);
  EXPECT_EQ(zel_table_text(table_, 1, value_, text, sizeof text, nullptr), ZEL_NO_VALUE);
  EXPECT_EQ(number, 54.0) << "unchanged";
}

TEST_F(CTableTest, WhatIsNotInTheTableIsReported) {
  std::size_t rows = 0;
  std::size_t columns = 0;
  std::size_t found = 77;
  double number = 0.0;
  std::int32_t kind = 0;
  ASSERT_EQ(zel_table_size(table_, &rows, &columns), ZEL_OK);
  EXPECT_EQ(zel_table_column(table_, "Value", &found), ZEL_UNKNOWN_WORD) << "headings are exact";
  EXPECT_EQ(found, 77U);
  EXPECT_EQ(zel_table_number(table_, rows, value_, &number), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(Reason(), "there is no row 2 in a table of 2");
  EXPECT_EQ(zel_table_kind(table_, 0, columns, &kind), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(zel_table_heading(table_, SIZE_MAX, nullptr, 0, nullptr), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(zel_table_unit(table_, columns, nullptr, 0, nullptr), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(zel_table_numbers(table_, columns, &number, 1), ZEL_BAD_ARGUMENT);
}

TEST_F(CTableTest, AColumnIsReadAsAnArray) {
  double values[3] = {-7.0, -7.0, -7.0};
  ASSERT_EQ(zel_table_numbers(table_, value_, values, 1), ZEL_TOO_SMALL);
  EXPECT_EQ(values[0], -7.0) << "nothing is copied";
  ASSERT_EQ(zel_table_numbers(table_, value_, values, 3), ZEL_OK);
  EXPECT_EQ(values[0], 351.39);
  EXPECT_TRUE(std::isnan(values[1]));
  EXPECT_EQ(values[2], -7.0) << "there are two rows";
  ASSERT_EQ(zel_table_numbers(table_, source_, values, 2), ZEL_OK);
  EXPECT_TRUE(std::isnan(values[0])) << "a text";
}

}  // namespace
