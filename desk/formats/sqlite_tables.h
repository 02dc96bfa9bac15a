// Tables of texts as a database of SQLite.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zel::desk {

struct SqlTable {
  std::string name;
  std::vector<std::string> columns;
  std::vector<std::vector<std::string>> rows;  // a cell for each column; an empty one is NULL
};

// The bytes of a database with these tables. A column whose cells are all numbers that are the same
// text when read back is one of numbers, any other one of texts. Throws Failure, and if the program
// was built without SQLite.
std::string SqliteBytes(std::vector<SqlTable> const& tables);

// True for the name of a table to read.
using SqlChoice = std::function<bool(std::string const& name)>;

// The tables of a database that are chosen, all by default, in the order in which they were made,
// without views and virtual tables. Nothing that the file says is run: a table with generated
// columns is refused. So are more than 10 million rows or 256 MB of cells. Throws Failure with the
// path and the reason.
std::vector<SqlTable> TablesInSqlite(std::string const& path, SqlChoice const& choice = nullptr);

}  // namespace zel::desk
