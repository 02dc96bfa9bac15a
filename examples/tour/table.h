// Reader for the tables in data/: comment lines, a line "#!" that names the columns, then rows.
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
  // "-" means no value. Throws std::runtime_error for a column that the table does not have, and
  // for a word that is not a number in Real and Int.
  std::string const& Text(std::size_t row, std::string const& column) const;
  double Real(std::size_t row, std::string const& column) const;  // undefined if there is no value
  int Int(std::size_t row, std::string const& column) const;

 private:
  std::string path_;
  std::map<std::string, std::size_t> columns_;
  std::vector<std::vector<std::string>> rows_;
};

// The substances of data/components.txt.
struct Component {
  long number;
  std::string id;  // the main one
  std::string name;
  std::string formula;
  std::vector<std::string> ids;
  std::string cas;
  int phase;  // sum of 1 vapor, 2 liquid, 4 solid
  int refCode;
};

class Components {
 public:
  explicit Components(Table const& table);
  // By main ID. Throws std::runtime_error for an ID that is not in the table.
  Component const& ById(std::string const& id) const;
  // In the order of the table.
  std::vector<Component> const& All() const { return all_; }

 private:
  std::vector<Component> all_;
  std::map<std::string, std::size_t> byId_;
};

// The printed sources of data/references.txt by reference code; an unknown code has no text.
class References {
 public:
  explicit References(std::string const& path);
  std::string Citation(int code) const;

 private:
  std::map<int, std::string> citations_;
};

std::vector<std::string> Split(std::string const& text, char separator);

}  // namespace tour
