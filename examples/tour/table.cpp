#include "table.h"

#include <zelaccess/Types.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace tour {
namespace {

constexpr char kNoValue[] = "-";
constexpr char kRemark[] = "  # ";

std::vector<std::string> Words(std::string const& line) {
  std::istringstream in(line);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

}  // namespace

Table::Table(std::string const& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path);
  std::string line;
  while (std::getline(file, line)) {
    if (line.rfind("#!", 0) == 0) {
      for (std::string const& name : Words(line.substr(2))) columns_.emplace(name, columns_.size());
    } else if (!line.empty() && line[0] != '#') {
      rows_.push_back(Words(line.substr(0, line.find(kRemark))));
      if (rows_.back().size() != columns_.size()) {
        throw std::runtime_error(path + ": row " + std::to_string(rows_.size()) + " has " +
                                 std::to_string(rows_.back().size()) + " columns");
      }
    }
  }
}

std::string const& Table::Text(std::size_t row, std::string const& column) const {
  return rows_.at(row)[columns_.at(column)];
}

double Table::Real(std::size_t row, std::string const& column) const {
  std::string const& text = Text(row, column);
  return text == kNoValue ? zel::gen_GetUndefDouble() : std::stod(text);
}

int Table::Int(std::size_t row, std::string const& column) const {
  return std::stoi(Text(row, column));
}

Components::Components(Table const& table) {
  for (std::size_t i = 0; i < table.Rows(); ++i) {
    std::string name = table.Text(i, "name");
    std::replace(name.begin(), name.end(), '_', ' ');
    std::string const id = Split(table.Text(i, "ids"), ',').front();
    long const number = table.Int(i, "number");
    byId_[id] = {number, id, name, table.Text(i, "formula")};
    ids_[number] = id;
  }
}

Component const& Components::ById(std::string const& id) const { return byId_.at(id); }
Component const& Components::ByNumber(long number) const { return byId_.at(ids_.at(number)); }

std::vector<std::string> Split(std::string const& text, char separator) {
  std::istringstream in(text);
  std::vector<std::string> parts;
  for (std::string part; std::getline(in, part, separator);) parts.push_back(part);
  return parts;
}

}  // namespace tour
