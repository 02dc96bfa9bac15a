#include "table.h"

#include <zelaccess/Types.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace tour {
namespace {

constexpr char kNoValue[] = "-";
constexpr char kColumns[] = "#!";
constexpr char kRemark[] = "  # ";

std::ifstream Open(std::string const& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path);
  return file;
}

std::vector<std::string> Words(std::string const& line) {
  std::istringstream in(line);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

int PhaseOf(std::string const& letters) {
  int phase = 0;
  for (char const c : letters) phase += c == 'V' ? 1 : c == 'L' ? 2 : 4;
  return phase;
}

}  // namespace

Table::Table(std::string const& path) : path_(path) {
  std::ifstream file = Open(path);
  std::string line;
  while (std::getline(file, line)) {
    if (line.rfind(kColumns, 0) == 0) {
      for (std::string const& name : Words(line.substr(2))) columns_.emplace(name, columns_.size());
    } else if (!line.empty() && line[0] != '#') {
      rows_.push_back(Words(line.substr(0, line.find(kRemark))));
      if (rows_.back().size() != columns_.size()) {
        throw std::runtime_error(path + ": row " + std::to_string(rows_.size()) + " has " +
                                 std::to_string(rows_.back().size()) + " words, not " +
                                 std::to_string(columns_.size()));
      }
    }
  }
}

std::string const& Table::Text(std::size_t row, std::string const& column) const {
  auto const at = columns_.find(column);
  if (at == columns_.end()) throw std::runtime_error(path_ + ": no column " + column);
  return rows_.at(row)[at->second];
}

double Table::Real(std::size_t row, std::string const& column) const {
  std::string const& text = Text(row, column);
  if (text == kNoValue) return zel::gen_GetUndefDouble();
  char* end = nullptr;
  double const value = std::strtod(text.c_str(), &end);
  if (*end != '\0') throw std::runtime_error(path_ + ": no number: " + text);
  return value;
}

int Table::Int(std::size_t row, std::string const& column) const {
  std::string const& text = Text(row, column);
  char* end = nullptr;
  long const value = std::strtol(text.c_str(), &end, 10);
  if (*end != '\0') throw std::runtime_error(path_ + ": no whole number: " + text);
  return static_cast<int>(value);
}

Components::Components(Table const& table) {
  for (std::size_t i = 0; i < table.Rows(); ++i) {
    std::string name = table.Text(i, "name");
    std::replace(name.begin(), name.end(), '_', ' ');
    std::vector<std::string> const ids = Split(table.Text(i, "ids"), ',');
    byId_[ids.front()] = all_.size();
    all_.push_back({table.Int(i, "number"), ids.front(), name, table.Text(i, "formula"), ids,
                    table.Text(i, "cas"), PhaseOf(table.Text(i, "phase")),
                    table.Int(i, "refCode")});
  }
}

Component const& Components::ById(std::string const& id) const {
  auto const at = byId_.find(id);
  if (at == byId_.end()) throw std::runtime_error("no component " + id);
  return all_[at->second];
}

References::References(std::string const& path) {
  std::ifstream file = Open(path);
  int code = 0;
  std::string line;
  while (std::getline(file, line)) {
    std::istringstream in(line);
    if (line[0] != '#' && in >> code >> std::ws) std::getline(in, citations_[code]);
  }
}

std::string References::Citation(int code) const {
  auto const at = citations_.find(code);
  return at == citations_.end() ? "" : at->second;
}

std::vector<std::string> Split(std::string const& text, char separator) {
  std::istringstream in(text);
  std::vector<std::string> parts;
  for (std::string part; std::getline(in, part, separator);) parts.push_back(part);
  return parts;
}

}  // namespace tour
