// The only source that includes sqlite3.h.
#include "desk/formats/sqlite_tables.h"

#include "desk/words/failure.h"

#ifdef ZEL_WITH_SQLITE
#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <memory>
#include <new>

#include "desk/formats/foreign_record.h"
#include "desk/open/field_text.h"
#include "desk/words/number_words.h"

namespace zel::desk {
namespace {

// Of all tables.
constexpr std::size_t kMostRows = 10'000'000;
constexpr std::size_t kMostCellBytes = 256'000'000;
struct SqlSize {
  std::size_t rows = 0;
  std::size_t bytes = 0;
};

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;
struct EndStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, EndStatement>;

void Check(int result, sqlite3* database, std::string const& what) {
  if (result == SQLITE_OK || result == SQLITE_DONE || result == SQLITE_ROW) return;
  if (result == SQLITE_NOMEM) throw std::bad_alloc();
  throw Failure(what + ": " +
                (database == nullptr ? sqlite3_errstr(result) : sqlite3_errmsg(database)));
}

Database InMemory(std::string const& what) {
  sqlite3* opened = nullptr;
  int const result =
      sqlite3_open_v2(":memory:", &opened,
                      SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY, nullptr);
  Database database(opened);
  Check(result, opened, what);
  return database;
}

Statement Prepare(Database const& database, std::string const& sql, std::string const& what) {
  sqlite3_stmt* made = nullptr;
  int const result =
      sqlite3_prepare_v2(database.get(), sql.c_str(), static_cast<int>(sql.size()), &made, nullptr);
  Statement statement(made);
  Check(result, database.get(), what);
  return statement;
}

void Run(Database const& database, std::string const& sql) {
  Statement const statement = Prepare(database, sql, "SQLite");
  Check(sqlite3_step(statement.get()), database.get(), "SQLite");
}

std::string Quoted(std::string const& name) {
  std::string quoted = "\"";
  for (char const letter : name) {
    if (letter == '"') quoted += letter;
    quoted += letter;
  }
  quoted += '"';
  return quoted;
}

bool IsWhole(std::string const& text) {
  std::int64_t value = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() && std::to_string(value) == text;
}

bool IsReal(std::string const& text) {
  double value = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return IsNumberWord(text) && AllDigits(value) == text && text != "-0";
}

enum class Type { kText, kWhole, kReal };
char const* ToText(Type type) {
  return type == Type::kText ? "TEXT" : type == Type::kWhole ? "INTEGER" : "REAL";
}

Type TypeOf(SqlTable const& table, std::size_t column) {
  bool anyValue = false;
  bool isWhole = true;
  bool isReal = true;
  for (auto const& row : table.rows) {
    std::string const& cell = row[column];
    if (cell.empty()) continue;
    anyValue = true;
    isWhole = isWhole && IsWhole(cell);
    isReal = isReal && IsReal(cell);
  }
  if (!anyValue || !isReal) return isWhole && anyValue ? Type::kWhole : Type::kText;
  return isWhole ? Type::kWhole : Type::kReal;
}

int Bind(sqlite3_stmt* statement, int at, std::string const& cell, Type type) {
  if (cell.empty()) return sqlite3_bind_null(statement, at);
  char const* const end = cell.data() + cell.size();
  if (type == Type::kWhole) {
    std::int64_t value = 0;
    std::from_chars(cell.data(), end, value);
    return sqlite3_bind_int64(statement, at, value);
  }
  if (type == Type::kReal) {
    double value = 0.0;
    std::from_chars(cell.data(), end, value);
    return sqlite3_bind_double(statement, at, value);
  }
  return sqlite3_bind_text(statement, at, cell.data(), static_cast<int>(cell.size()),
                           SQLITE_STATIC);
}

void Put(Database const& database, SqlTable const& table) {
  std::string columns;
  std::string places;
  std::vector<Type> types;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    types.push_back(TypeOf(table, i));
    columns += (i == 0 ? "" : ", ") + Quoted(table.columns[i]) + " " + ToText(types[i]);
    places += i == 0 ? "?" : ", ?";
  }
  Run(database, "CREATE TABLE " + Quoted(table.name) + " (" + columns + ")");
  Statement const insert = Prepare(
      database, "INSERT INTO " + Quoted(table.name) + " VALUES (" + places + ")", table.name);
  for (auto const& row : table.rows) {
    sqlite3_reset(insert.get());
    for (std::size_t i = 0; i < row.size(); ++i) {
      int const result = Bind(insert.get(), static_cast<int>(i + 1), row[i], types[i]);
      Check(result, database.get(), table.name);
    }
    Check(sqlite3_step(insert.get()), database.get(), table.name);
  }
}

std::string CellOf(sqlite3_stmt* row, int column, std::string const& where) {
  int const type = sqlite3_column_type(row, column);
  if (type == SQLITE_NULL) return "";
  if (type == SQLITE_BLOB)
    throw Failure(where + ": column " + std::to_string(column + 1) +
                  " has bytes that are not a text");
  if (type == SQLITE_FLOAT) return AllDigits(sqlite3_column_double(row, column));
  auto const* const text = reinterpret_cast<char const*>(sqlite3_column_text(row, column));
  if (text == nullptr) throw std::bad_alloc();
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

// Columns that are generated would run expressions of the file.
void RefuseGenerated(Database const& database, std::string const& name, std::string const& where) {
  Statement const columns =
      Prepare(database, "SELECT name, hidden FROM pragma_table_xinfo(?1)", where);
  Check(sqlite3_bind_text(columns.get(), 1, name.data(), static_cast<int>(name.size()),
                          SQLITE_STATIC),
        database.get(), where);
  for (;;) {
    int const result = sqlite3_step(columns.get());
    Check(result, database.get(), where);
    if (result == SQLITE_DONE) return;
    constexpr int kPlain = 0;
    if (sqlite3_column_int(columns.get(), 1) == kPlain) continue;
    throw Failure(where + ": its column " + CellOf(columns.get(), 0, where) +
                  " is generated, and expressions of a file are not run");
  }
}

// Lets a statement read tables, but not run functions or views.
int Authorize(void* /*data*/, int action, char const* /*first*/, char const* /*second*/,
              char const* /*database*/, char const* view) {
  bool const isRead = action == SQLITE_SELECT || action == SQLITE_READ;
  return isRead && view == nullptr ? SQLITE_OK : SQLITE_DENY;
}

SqlTable ReadTable(Database const& database, std::string const& name, std::string const& path,
                   SqlSize& size) {
  std::string const where = path + ": table " + name;
  RefuseGenerated(database, name, where);
  SqlTable table;
  table.name = name;
  sqlite3_set_authorizer(database.get(), Authorize, nullptr);
  Statement const select = Prepare(database, "SELECT * FROM " + Quoted(name), where);
  sqlite3_set_authorizer(database.get(), nullptr, nullptr);
  int const count = sqlite3_column_count(select.get());
  for (int i = 0; i < count; ++i) {
    char const* const column = sqlite3_column_name(select.get(), i);
    if (column == nullptr) throw std::bad_alloc();
    table.columns.emplace_back(column);
  }
  for (;;) {
    int const result = sqlite3_step(select.get());
    Check(result, database.get(), where);
    if (result == SQLITE_DONE) return table;
    if (++size.rows > kMostRows) throw Failure(path + ": has more than 10 million rows");
    std::vector<std::string>& row = table.rows.emplace_back();
    for (int i = 0; i < count; ++i) {
      row.push_back(CellOf(select.get(), i, where));
      size.bytes += sizeof(std::string) + row.back().size();
      if (size.bytes > kMostCellBytes) throw Failure(path + ": has more than 256 MB of cells");
    }
  }
}

// Changes that are still in the log of the database are not in its file.
void RefuseLog(std::string const& path) {
  std::error_code none;
  for (char const* ending : {"-wal", "-journal"}) {
    std::string log = path;
    log += ending;
    auto const size = std::filesystem::file_size(log, none);
    if (none || size == 0) continue;
    std::string message = path + ": is in use, or was not closed: there is ";
    throw Failure(message += log);
  }
}

// Opens the bytes. They are only read, and what a schema can call is only what SQLite trusts.
Database OpenBytes(std::string& bytes, std::string const& path) {
  constexpr std::size_t kWriteVersion = 18;  // and the read version; 2 is that of a log
  constexpr char kMark[] = "SQLite format 3";
  if (bytes.compare(0, sizeof kMark, std::string(kMark, sizeof kMark)) != 0) {
    throw Failure(path + ": is not a database of SQLite");
  }
  for (std::size_t i = kWriteVersion; i < kWriteVersion + 2 && i < bytes.size(); ++i) {
    if (bytes[i] == 2) bytes[i] = 1;
  }
  Database database = InMemory(path);
  sqlite3_db_config(database.get(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(database.get(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  constexpr int kLongestValue = 10'000'000;
  sqlite3_limit(database.get(), SQLITE_LIMIT_LENGTH, kLongestValue);
  auto const size = static_cast<sqlite3_int64>(bytes.size());
  Check(sqlite3_deserialize(database.get(), "main", reinterpret_cast<unsigned char*>(bytes.data()),
                            size, size, SQLITE_DESERIALIZE_READONLY),
        database.get(), path);
  return database;
}

}  // namespace

std::string SqliteBytes(std::vector<SqlTable> const& tables) {
  Database const database = InMemory("SQLite");
  Run(database, "BEGIN");
  for (SqlTable const& table : tables) Put(database, table);
  Run(database, "COMMIT");
  sqlite3_int64 size = 0;
  struct Free {
    void operator()(unsigned char* bytes) const { sqlite3_free(bytes); }
  };
  std::unique_ptr<unsigned char, Free> const bytes(
      sqlite3_serialize(database.get(), "main", &size, 0));
  if (bytes == nullptr && size != 0) throw std::bad_alloc();
  if (size == 0) return "";  // without tables
  return {reinterpret_cast<char const*>(bytes.get()), static_cast<std::size_t>(size)};
}

std::vector<SqlTable> TablesInSqlite(std::string const& path, SqlChoice const& choice) {
  std::string bytes = ForeignText(path);
  RefuseLog(path);
  Database const database = OpenBytes(bytes, path);
  std::vector<std::string> names;
  Statement const list = Prepare(database,
                                 "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT "
                                 "LIKE 'sqlite%' AND sql LIKE 'CREATE TABLE%' ORDER BY rowid",
                                 path);
  for (;;) {
    int const result = sqlite3_step(list.get());
    Check(result, database.get(), path);
    if (result == SQLITE_DONE) break;
    std::string name = CellOf(list.get(), 0, path);
    if (!choice || choice(name)) names.push_back(std::move(name));
  }
  SqlSize size;
  std::vector<SqlTable> tables;
  tables.reserve(names.size());
  for (std::string const& name : names) tables.push_back(ReadTable(database, name, path, size));
  return tables;
}

}  // namespace zel::desk

#else

namespace zel::desk {
namespace {

[[noreturn]] void Refuse() {
  throw Failure("this program was built without SQLite; --table writes and reads tables");
}

}  // namespace

std::string SqliteBytes(std::vector<SqlTable> const& /*tables*/) { Refuse(); }
std::vector<SqlTable> TablesInSqlite(std::string const& /*path*/, SqlChoice const& /*choice*/) {
  Refuse();
}

}  // namespace zel::desk

#endif
