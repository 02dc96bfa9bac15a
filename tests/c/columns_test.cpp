// Banks read by columns.
#include <zelaccess/DeskBanks.h>

#include <cmath>

#include "library_fixture.h"

using ctest::Reason;

namespace desk = zel::desk;

namespace {

class CColumnTest : public CLibraryTest {};

TEST_F(CColumnTest, ColumnsHaveTheValuesOfTheItems) {
  ASSERT_EQ(zel_library_open(Path("sample.lb1").c_str(), nullptr, &library_), ZEL_OK);
  zel_columns* columns = nullptr;
  ASSERT_EQ(zel_columns_open(library_, "NRTL", "SAMPLE", &columns), ZEL_OK) << Reason();
  std::size_t width = 0;
  ASSERT_EQ(zel_columns_width(columns, "", &width), ZEL_OK);
  EXPECT_EQ(width, 2U);
  ASSERT_EQ(zel_columns_width(columns, "BIJ", &width), ZEL_OK);
  EXPECT_EQ(width, 1U);
  EXPECT_EQ(zel_columns_width(columns, "xij", &width), ZEL_UNKNOWN_WORD);
  constexpr std::size_t kRows = 300;
  std::vector<std::int32_t> keys(2 * kRows), codes(kRows);
  std::vector<double> bij(kRows), tMin(kRows);
  ASSERT_EQ(zel_columns_add_keys(columns, keys.data(), keys.size()), ZEL_OK) << Reason();
  ASSERT_EQ(zel_columns_add_reals(columns, "bij", bij.data(), kRows), ZEL_OK);
  ASSERT_EQ(zel_columns_add_reals(columns, "tMin", tMin.data(), kRows), ZEL_OK);
  ASSERT_EQ(zel_columns_add_integers(columns, "refCode", codes.data(), kRows), ZEL_OK);
  EXPECT_EQ(zel_columns_add_integers(columns, "bij", codes.data(), kRows), ZEL_UNKNOWN_WORD);
  EXPECT_EQ(zel_columns_add_reals(columns, "xij", bij.data(), kRows), ZEL_UNKNOWN_WORD);
  std::size_t read = 99;
  EXPECT_EQ(zel_columns_read(columns, kRows + 1, &read), ZEL_TOO_SMALL);
  EXPECT_EQ(zel_columns_read(columns, SIZE_MAX, &read), ZEL_TOO_SMALL);
  EXPECT_EQ(read, 99U);
  ASSERT_EQ(zel_columns_read(columns, kRows, &read), ZEL_OK);
  EXPECT_EQ(read, 218U);
  EXPECT_EQ(zel_columns_read(columns, kRows, &read), ZEL_OK);
  EXPECT_EQ(read, 0U);
  EXPECT_EQ(zel_columns_close(&columns), ZEL_OK);
  EXPECT_EQ(columns, nullptr);

  desk::LibraryFile const file(Path("sample.lb1"));
  for (std::size_t row = 0; row < 218; row += 31) {
    desk::Item const item =
        file.Item("NRTL", {std::to_string(keys[2 * row]), std::to_string(keys[2 * row + 1])});
    EXPECT_EQ(bij[row], item.Value("bij"));
    auto const lower = item.Value("tMin");
    EXPECT_TRUE(lower ? tMin[row] == *lower : std::isnan(tMin[row])) << row;
    EXPECT_EQ(static_cast<double>(codes[row]), item.Value("refCode"));
  }
}

TEST_F(CColumnTest, ComponentsAreReadByColumns) {
  ASSERT_EQ(zel_library_open(Path("crc.lb1").c_str(), nullptr, &library_), ZEL_OK);
  zel_columns* columns = nullptr;
  ASSERT_EQ(zel_columns_open(library_, "PURECOMP", "CRC", &columns), ZEL_OK);
  struct Row {
    char const* field;
    std::size_t width;
  };
  for (auto const& [field, width] : {Row{"", 1}, Row{"TC", 1}, Row{"cas", 1}, Row{"ids", 108},
                                     Row{"name", 41}, Row{"formula", 21}, Row{"smiles", 101},
                                     Row{"number", 1}, Row{"refCode", 1}, Row{"keepFormula", 1}}) {
    std::size_t found = 0;
    ASSERT_EQ(zel_columns_width(columns, field, &found), ZEL_OK) << field;
    EXPECT_EQ(found, width) << field;
  }
  std::vector<char> names(10 * 41, '#'), smiles(10 * 101, '#'), ids(10 * 108, '#'),
      formulas(10 * 21, '#');
  double chao[10];
  std::int32_t numbers[10];
  ASSERT_EQ(zel_columns_add_texts(columns, "name", names.data(), names.size()), ZEL_OK);
  ASSERT_EQ(zel_columns_add_texts(columns, "smiles", smiles.data(), smiles.size()), ZEL_OK);
  ASSERT_EQ(zel_columns_add_texts(columns, "ids", ids.data(), ids.size()), ZEL_OK);
  ASSERT_EQ(zel_columns_add_texts(columns, "formula", formulas.data(), formulas.size()), ZEL_OK);
  ASSERT_EQ(zel_columns_add_reals(columns, "CHAO", chao, 10), ZEL_OK);
  ASSERT_EQ(zel_columns_add_integers(columns, "number", numbers, 10), ZEL_OK);
  EXPECT_EQ(zel_columns_add_texts(columns, "TC", names.data(), names.size()), ZEL_UNKNOWN_WORD);
  std::size_t read = 0;
  ASSERT_EQ(zel_columns_read(columns, 10, &read), ZEL_OK) << Reason();
  ASSERT_EQ(read, 10U);
  desk::Libraries const libraries({Path("crc.lb1")});
  for (std::size_t row = 0; row < read; ++row) {
    desk::Identity const one = libraries.Component(std::to_string(numbers[row])).Identity();
    EXPECT_STREQ(&names[41 * row], one.name.c_str());
    EXPECT_STREQ(&formulas[21 * row], one.formula.c_str());
    EXPECT_STREQ(&ids[108 * row], one.FirstId().c_str());
    EXPECT_TRUE(std::isnan(chao[row])) << "undefined";
  }
  EXPECT_EQ(zel_columns_close(&columns), ZEL_OK);
}

// Hosts with garbage collection end handles in any order.
TEST_F(CColumnTest, AClosedLibraryHasNoMoreRows) {
  ASSERT_EQ(zel_library_open(Path("crc.lb1").c_str(), nullptr, &library_), ZEL_OK);
  zel_columns* columns = nullptr;
  ASSERT_EQ(zel_columns_open(library_, "PURECOMP", "CRC", &columns), ZEL_OK);
  std::size_t read = 0;
  ASSERT_EQ(zel_columns_read(columns, 3, &read), ZEL_OK);
  EXPECT_EQ(read, 3U);
  ASSERT_EQ(zel_library_close(&library_), ZEL_OK);
  EXPECT_EQ(zel_columns_read(columns, 3, &read), ZEL_OK);
  EXPECT_EQ(read, 0U);
  EXPECT_EQ(zel_columns_close(&columns), ZEL_OK);
}

TEST_F(CColumnTest, ABankThatIsNotThereHasNoColumns) {
  ASSERT_EQ(zel_library_open(Path("crc.lb1").c_str(), nullptr, &library_), ZEL_OK);
  zel_columns* columns = nullptr;
  EXPECT_EQ(zel_columns_open(library_, "NRTL", "SAMPLE", &columns), ZEL_MISSING_BANK);
  EXPECT_EQ(zel_columns_open(library_, "XYZ", "SAMPLE", &columns), ZEL_MISSING_BANK);
  EXPECT_EQ(columns, nullptr);
  ASSERT_EQ(zel_columns_open(library_, "PURECOMP", "CRC", &columns), ZEL_OK);
  std::size_t all = 0, read = 0;
  do {  // without columns, items are counted
    ASSERT_EQ(zel_columns_read(columns, 100, &read), ZEL_OK);
    all += read;
  } while (read != 0);
  EXPECT_EQ(static_cast<std::int64_t>(all), desk::LibraryFile(Path("crc.lb1")).Bank("CRC").items);
  EXPECT_EQ(zel_columns_close(&columns), ZEL_OK);
}

}  // namespace
