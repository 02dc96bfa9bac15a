// Fields of all items of a bank as arrays.
#pragma once

#include <zelaccess/DeskBanks.h>

#include <cstdint>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "common.h"

namespace zelpython {

// Name, kind (as in fields_of_type) and number of values of a field.
using ColumnWish = std::tuple<std::string, std::string, std::int32_t>;

template <typename T>
struct ColumnOf {
  std::string name;
  std::int32_t count = 1;            // values in a row
  bool hasUndefined = false;         // of whole numbers; other numbers become NaN
  std::unique_ptr<T[]> values = {};  // row after row
  std::unique_ptr<T[]> part = {};    // the rows that were read last
};

struct ReadColumns {
  std::size_t rows = 0;
  std::vector<ColumnOf<std::int32_t>> keys;  // a column for each word of a key
  std::vector<ColumnOf<double>> reals;
  std::vector<ColumnOf<std::int32_t>> integers;
  std::vector<ColumnOf<char>> texts;
};

// Reads all items of a bank, which probably has `rows` items. Undefined numbers are NaN. Throws
// UnknownWord for a field that does not exist, and block errors.
ReadColumns ColumnsOf(desk::LibraryFile const& library, std::string const& type,
                      std::string const& name, std::vector<ColumnWish> const& wishes,
                      std::int64_t rows);

// [(name, array), ...]: the keys, then the columns of numbers, whole numbers and texts.
py::list ToPython(ReadColumns columns);

// NaN for an undefined number.
double NumberOrNan(double value);

}  // namespace zelpython
