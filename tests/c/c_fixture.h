// What the tests of the C interface have in common: the libraries of the desk's tests, texts,
// tables.
#pragma once

#include <zelaccess/DeskTable.h>
#include <zelaccess/zel.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/desk/desk_fixture.h"

namespace ctest {

// The reason of the last failure in this thread.
inline std::string Reason() {
  char text[1024] = "?";
  EXPECT_EQ(zel_reason(text, sizeof text, nullptr), ZEL_OK);
  return text;
}

// The text that a call copies, after it was asked for the length.
template <typename Call>
std::string Text(Call const& call) {
  std::size_t length = 0;
  if (call(nullptr, 0, &length) != ZEL_OK) return "failed: " + Reason();
  std::string text(length + 1, '?');
  EXPECT_EQ(call(text.data(), text.size(), nullptr), ZEL_OK) << Reason();
  EXPECT_EQ(text.back(), '\0');
  text.pop_back();
  EXPECT_EQ(text.find('\0'), std::string::npos);
  return text;
}

// A table that ends with its scope.
class Held {
 public:
  Held() = default;
  Held(Held const&) = delete;
  Held& operator=(Held const&) = delete;
  ~Held() {
    if (table != nullptr) zel_table_free(&table);
  }
  operator zel_table const*() const { return table; }  // NOLINT(google-explicit-constructor)
  zel_table** operator&() { return &table; }           // NOLINT(google-runtime-operator)

  zel_table* table = nullptr;
};

// The cell of a table of the C interface as the desk has it.
inline zel::desk::Cell CellOf(zel_table const* table, std::size_t row, std::size_t column) {
  std::int32_t kind = -1;
  EXPECT_EQ(zel_table_kind(table, row, column, &kind), ZEL_OK);
  std::int64_t whole = 0;
  double number = 0.0;
  switch (kind) {
    case ZEL_CELL_EMPTY: return {};
    case ZEL_CELL_TEXT:
      return Text([&](char* text, std::size_t size, std::size_t* length) {
        return zel_table_text(table, row, column, text, size, length);
      });
    case ZEL_CELL_INTEGER:
      EXPECT_EQ(zel_table_integer(table, row, column, &whole), ZEL_OK);
      return whole;
    case ZEL_CELL_NUMBER:
      EXPECT_EQ(zel_table_number(table, row, column, &number), ZEL_OK);
      return number;
    case ZEL_CELL_YES_NO:
      EXPECT_EQ(zel_table_integer(table, row, column, &whole), ZEL_OK);
      return whole != 0;
    default: ADD_FAILURE() << kind; return {};
  }
}

// Compares a table of the C interface with that of the desk, cell by cell.
inline void ExpectSame(zel_table const* table, zel::desk::Table const& expected) {
  ASSERT_NE(table, nullptr) << Reason();
  std::size_t rows = 0;
  std::size_t columns = 0;
  ASSERT_EQ(zel_table_size(table, &rows, &columns), ZEL_OK);
  ASSERT_EQ(rows, expected.Rows().size());
  ASSERT_EQ(columns, expected.Columns().size());
  for (std::size_t column = 0; column < columns; ++column) {
    EXPECT_EQ(Text([&](char* text, std::size_t size, std::size_t* length) {
                return zel_table_heading(table, column, text, size, length);
              }),
              expected.Columns()[column].name);
    EXPECT_EQ(Text([&](char* text, std::size_t size, std::size_t* length) {
                return zel_table_unit(table, column, text, size, length);
              }),
              expected.Columns()[column].unit);
    for (std::size_t row = 0; row < rows; ++row) {
      EXPECT_EQ(CellOf(table, row, column), expected.Rows()[row][column]) << row << " " << column;
    }
  }
}

// Words as C passes them.
class Words {
 public:
  Words(std::vector<std::string> texts) : texts_(std::move(texts)) {  // NOLINT
    for (std::string const& text : texts_) words_.push_back(text.c_str());
  }
  char const* const* data() const { return words_.data(); }
  std::size_t size() const { return words_.size(); }
  std::vector<std::string> const& Texts() const { return texts_; }

 private:
  std::vector<std::string> texts_;
  std::vector<char const*> words_;
};

}  // namespace ctest

class CFaceTest : public DeskTest {};
