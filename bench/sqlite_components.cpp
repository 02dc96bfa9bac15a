#include "bench/sqlite_components.h"

#include <cstring>
#include <stdexcept>
#include <vector>

namespace zel::bench {

SqliteComponents::SqliteComponents(std::filesystem::path const& path, ComponentTable table,
                                   std::span<std::int32_t const> numbers,
                                   std::span<double const> values)
    : table_(table) {
  if (sqlite3_open(path.c_str(), &database_) != SQLITE_OK) throw std::runtime_error("no database");
  Run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE;"
      "PRAGMA cache_size = -2000000; PRAGMA mmap_size = 4000000000;");
  std::size_t const width = values.size() / numbers.size();
  std::size_t const columns = table == ComponentTable::kBlob ? 1 : width;
  std::string names = "id INTEGER PRIMARY KEY";
  std::string marks = "?";
  for (std::size_t i = 0; i < columns; ++i) {
    names += ", c" + std::to_string(i);
    marks += ", ?";
  }
  Run("CREATE TABLE component(" + names + "); BEGIN");
  Prepare("INSERT INTO component VALUES(" + marks + ")");
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    Insert(numbers[i], values.subspan(i * width, width));
  }
  Run("COMMIT; BEGIN");
  sqlite3_finalize(statement_);
  Prepare("SELECT * FROM component WHERE id = ?");
}

SqliteComponents::~SqliteComponents() {
  sqlite3_finalize(statement_);
  sqlite3_close(database_);
}

void SqliteComponents::Run(std::string const& sql) {
  if (sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_));
  }
}

void SqliteComponents::Prepare(std::string const& sql) {
  if (sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement_, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_));
  }
}

void SqliteComponents::Insert(std::int32_t number, std::span<double const> row) {
  sqlite3_bind_int(statement_, 1, number);
  std::vector<float> floats(row.size());
  if (table_ == ComponentTable::kBlob) {
    for (std::size_t i = 0; i < row.size(); ++i) floats[i] = static_cast<float>(row[i]);
    sqlite3_bind_blob(statement_, 2, floats.data(), static_cast<int>(floats.size() * sizeof(float)),
                      SQLITE_STATIC);
  } else {
    for (std::size_t i = 0; i < row.size(); ++i) {
      sqlite3_bind_double(statement_, static_cast<int>(i) + 2, row[i]);
    }
  }
  if (sqlite3_step(statement_) != SQLITE_DONE) throw std::runtime_error("no insert");
  sqlite3_reset(statement_);
}

void SqliteComponents::Read(std::int32_t number, std::span<double> row) {
  sqlite3_bind_int(statement_, 1, number);
  if (sqlite3_step(statement_) != SQLITE_ROW) throw std::runtime_error("no component");
  if (table_ == ComponentTable::kBlob) {
    auto const* bytes = static_cast<char const*>(sqlite3_column_blob(statement_, 1));
    for (std::size_t i = 0; i < row.size(); ++i) {
      float value = 0.0F;
      std::memcpy(&value, bytes + i * sizeof value, sizeof value);
      row[i] = value;
    }
  } else {
    for (std::size_t i = 0; i < row.size(); ++i) {
      row[i] = sqlite3_column_double(statement_, static_cast<int>(i) + 1);
    }
  }
  sqlite3_reset(statement_);
}

}  // namespace zel::bench
