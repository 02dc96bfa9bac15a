// Components in an SQLite file: the same numbers as one blob of floats, or as a column each.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

namespace zel::bench {

enum class ComponentTable { kBlob, kColumns };

class SqliteComponents {
 public:
  // Makes the file, with `rows` of one length under their numbers, and opens it for reading.
  SqliteComponents(std::filesystem::path const& path, ComponentTable table,
                   std::span<std::int32_t const> numbers, std::span<double const> values);
  SqliteComponents(SqliteComponents const&) = delete;
  SqliteComponents& operator=(SqliteComponents const&) = delete;
  ~SqliteComponents();

  // All numbers of a component as doubles.
  void Read(std::int32_t number, std::span<double> row);

 private:
  void Run(std::string const& sql);
  void Prepare(std::string const& sql);
  void Insert(std::int32_t number, std::span<double const> row);

  ComponentTable table_;
  sqlite3* database_ = nullptr;
  sqlite3_stmt* statement_ = nullptr;
};

}  // namespace zel::bench
