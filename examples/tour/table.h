// Reader for the tables under data/: comment lines, a line "#!" that names the columns, then rows.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace tour {

class Table {
 public:
  // Throws std::runtime_error when the file cannot be read or a row has the wrong number of
  // columns.
  explicit Table(std::string const& path);

  std::size_t Rows() const { return rows_.size(); }
  // "-" stands for no value. Throws std::out_of_range for a column that the table does not have.
  std::string const& Text(std::size_t row, std::string const& column) const;
  double Real(std::size_t row, std::string const& column) const;  // undefined for no value
  int Int(std::size_t row, std::string const& column) const;

 private:
  std::map<std::string, std::size_t> columns_;
  std::vector<std::vector<std::string>> rows_;
};

// The substances of data/components.txt.
struct Component {
  long number;
  std::string id;
  std::string name;
  std::string formula;
};

class Components {
 public:
  explicit Components(Table const& table);
  Component const& ById(std::string const& id) const;  // throws std::out_of_range
  Component const& ByNumber(long number) const;

 private:
  std::map<std::string, Component> byId_;
  std::map<long, std::string> ids_;
};

std::vector<std::string> Split(std::string const& text, char separator);

}  // namespace tour
