#include "report.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <numeric>

#include "zelaccess/Types.h"

namespace zelhost {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kLineWidth = 80;
constexpr std::size_t kGap = 2;
constexpr std::size_t kNarrowestBreak = 12;  // a narrower last column is not broken

// Characters, not bytes: continuation bytes of UTF-8 take no room.
std::size_t Width(std::string const& text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

std::string Head(Column const& column) {
  return column.unit.empty() ? column.name : column.name + " [" + column.unit + "]";
}

bool IsNumber(Cell const& cell) {
  return std::holds_alternative<double>(cell) || std::holds_alternative<std::int64_t>(cell);
}

// A column of numbers stands to the right.
bool IsNumeric(Table const& table, std::size_t column) {
  bool any = false;
  for (auto const& row : table.Rows()) {
    if (IsNumber(row[column])) {
      any = true;
    } else if (!std::holds_alternative<std::monostate>(row[column])) {
      return false;
    }
  }
  return any;
}

// As a terminal shall see it: text of a library does not move the cursor.
std::string Visible(Cell const& cell) {
  std::string text = CellText(cell);
  for (char& c : text) {
    if ((c >= 0 && c < ' ' && c != '\n') || c == '\x7f') c = '?';
  }
  return text;
}

std::string OneLine(Cell const& cell) {
  std::string text = Visible(cell);
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

// Lines of at most `width` characters, broken at blanks, and within words that are too long.
std::vector<std::string> Break(std::string const& text, std::size_t width) {
  std::vector<std::string> lines;
  std::string rest = text;
  for (std::size_t end = rest.find('\n'); end != std::string::npos; end = rest.find('\n')) {
    for (std::string& line : Break(rest.substr(0, end), width)) lines.push_back(std::move(line));
    rest.erase(0, end + 1);
  }
  while (Width(rest) > width) {
    std::size_t const at = rest.rfind(' ', width);
    bool const atBlank = at != std::string::npos && at != 0;
    std::size_t end = atBlank ? at : width;
    while (!atBlank && end < rest.size() && (rest[end] & 0xC0) == 0x80) ++end;  // whole characters
    lines.push_back(rest.substr(0, end));
    rest.erase(0, end + (atBlank ? 1 : 0));
  }
  lines.push_back(rest);
  return lines;
}

class TextTable {
 public:
  explicit TextTable(Table const& table) : table_(table) {
    Show(true);
    if (Total() > kLineWidth + SlackOfLast()) Show(false);
    bool const anyUnit = std::any_of(table.Columns().begin(), table.Columns().end(),
                                     [](Column const& column) { return !column.unit.empty(); });
    if (anyUnit && Total() > kLineWidth) {
      Heads(true);
      Measure();
    }
    Narrow();
  }

  void Print(std::string& out) const {
    for (auto const& heads : heads_) Line(heads, out);
    for (auto const& row : table_.Rows()) {
      std::vector<std::string> texts;
      for (std::size_t const column : shown_) texts.push_back(OneLine(row[column]));
      Line(texts, out);
    }
  }

 private:
  void Show(bool withOptional) {
    shown_.clear();
    right_.clear();
    for (std::size_t i = 0; i < table_.Columns().size(); ++i) {
      if (table_.Columns()[i].optional && !withOptional) continue;
      shown_.push_back(i);
      right_.push_back(IsNumeric(table_, i));
    }
    Heads(false);
    Measure();
  }

  // What the last column can give without being broken too often.
  std::size_t SlackOfLast() const {
    constexpr std::size_t kComfortable = 25;
    bool const isText = !right_.empty() && !right_.back();
    return isText && widths_.back() > kComfortable ? widths_.back() - kComfortable : 0;
  }

  // Names with their units, or the units in a line of their own.
  void Heads(bool apart) {
    heads_.assign(apart ? 2 : 1, {});
    for (std::size_t const i : shown_) {
      Column const& column = table_.Columns()[i];
      heads_[0].push_back(apart ? column.name : Head(column));
      if (apart) heads_[1].push_back(column.unit.empty() ? "" : "[" + column.unit + "]");
    }
  }

  void Measure() {
    widths_.assign(shown_.size(), 0);
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      for (auto const& heads : heads_) widths_[i] = std::max(widths_[i], Width(heads[i]));
      for (auto const& row : table_.Rows()) {
        widths_[i] = std::max(widths_[i], Width(OneLine(row[shown_[i]])));
      }
    }
  }

  std::size_t Total() const {
    return std::accumulate(widths_.begin(), widths_.end(), kGap * (widths_.size() - 1));
  }

  // Columns of text give room, the last one first, then the widest, until the line fits.
  void Narrow() {
    auto const narrow = [&](std::size_t i) {
      if (right_[i] || Total() <= kLineWidth) return;
      std::size_t const excess = Total() - kLineWidth;
      std::size_t const least = std::min(widths_[i], kNarrowestBreak);
      widths_[i] = std::max(least, widths_[i] > excess ? widths_[i] - excess : 0);
    };
    if (widths_.empty()) return;
    narrow(widths_.size() - 1);
    for (std::size_t round = 0; round < widths_.size(); ++round) {
      narrow(static_cast<std::size_t>(std::max_element(widths_.begin(), widths_.end()) -
                                      widths_.begin()));
    }
  }

  // A cell that is too wide goes on in further lines.
  void Line(std::vector<std::string> const& texts, std::string& out) const {
    std::vector<std::vector<std::string>> cells;
    std::size_t height = 1;
    for (std::size_t i = 0; i < texts.size(); ++i) {
      cells.push_back(Break(texts[i], right_[i] ? kLineWidth : widths_[i]));
      height = std::max(height, cells.back().size());
    }
    for (std::size_t k = 0; k < height; ++k) {
      std::string line;
      for (std::size_t i = 0; i < cells.size(); ++i) {
        std::string const text = k < cells[i].size() ? cells[i][k] : "";
        std::size_t const pad = widths_[i] > Width(text) ? widths_[i] - Width(text) : 0;
        line += right_[i] ? std::string(pad, ' ') + text : text + std::string(pad, ' ');
        line.append(kGap, ' ');
      }
      line.erase(line.find_last_not_of(' ') + 1);
      out += line + '\n';
    }
  }

  Table const& table_;
  std::vector<std::size_t> shown_;  // columns of the table; everything below goes by place in it
  std::vector<std::vector<std::string>> heads_;
  std::vector<bool> right_;
  std::vector<std::size_t> widths_;
};

std::string PrintText(Report const& report) {
  std::string out;
  std::size_t width = 0;
  for (auto const& fact : report.Facts()) width = std::max(width, Width(fact.name));
  for (auto const& fact : report.Facts()) {
    std::string const indent(width + kGap, ' ');
    std::vector<std::string> const parts =
        Break(Visible(fact.value), std::max(kNarrowestBreak, kLineWidth - width - kGap));
    out += fact.name + std::string(width + kGap - Width(fact.name), ' ') + parts[0] + '\n';
    for (std::size_t k = 1; k < parts.size(); ++k) out += indent + parts[k] + '\n';
  }
  bool const titled = report.Tables().size() > 1;
  for (Table const& table : report.Tables()) {
    if (table.Empty()) continue;
    if (!out.empty()) out += '\n';
    if (titled) out += table.Name() + "\n\n";
    TextTable(table).Print(out);
  }
  if (out.empty() && !report.Tables().empty()) return "none\n";
  return out;
}

// "CAS number" becomes "cas_number".
std::string Member(std::string const& name) {
  std::string member;
  for (char const c : name) {
    if (c == '.') continue;
    bool const isUpper = c >= 'A' && c <= 'Z';
    member += c == ' ' || c == '-' ? '_' : isUpper ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return member;
}

Json ToJson(Cell const& cell) {
  return std::visit(
      [](auto const& value) -> Json {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::monostate>) {
          return nullptr;
        } else {
          return value;
        }
      },
      cell);
}

std::string PrintJson(Report const& report) {
  Json root = Json::object();
  for (auto const& fact : report.Facts()) root[Member(fact.name)] = ToJson(fact.value);
  Json units = Json::object();
  for (Table const& table : report.Tables()) {
    Json rows = Json::array();
    for (auto const& row : table.Rows()) {
      Json object = Json::object();
      for (std::size_t i = 0; i < row.size(); ++i) {
        object[Member(table.Columns()[i].name)] = ToJson(row[i]);
      }
      rows.push_back(std::move(object));
    }
    root[Member(table.Name())] = std::move(rows);
    for (Column const& column : table.Columns()) {
      if (!column.unit.empty()) units[Member(table.Name())][Member(column.name)] = column.unit;
    }
  }
  if (!units.empty()) root["units"] = std::move(units);
  // Bytes that are no UTF-8 come from old libraries; they are shown, not refused.
  return root.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

std::string CsvText(std::string const& text) {
  if (text.find_first_of(",\"\n\r") == std::string::npos) return text;
  std::string quoted = "\"";
  for (char const c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

std::string PrintCsv(Report const& report) {
  std::string out;
  if (report.Tables().empty()) return out;
  Table const& table = report.Tables().front();
  auto const line = [&](auto const& cells, auto const& text) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i != 0) out += ',';
      out += CsvText(text(cells[i]));
    }
    out += '\n';
  };
  line(table.Columns(), [](Column const& column) { return Head(column); });
  for (auto const& row : table.Rows()) {
    line(row, [](Cell const& cell) {
      if (std::holds_alternative<std::monostate>(cell)) return std::string();
      // As many digits as give the number back.
      if (auto const* number = std::get_if<double>(&cell)) return fmt::format("{}", *number);
      return CellText(cell);
    });
  }
  return out;
}

}  // namespace

Cell Number(double value) {
  if (zel::gen_IsUndefDouble(value) || !std::isfinite(value)) return {};
  return value;
}

Cell Text(std::string text) {
  if (text.empty()) return {};
  return text;
}

Cell Texts(std::vector<std::string> const& texts) {
  std::string joined;
  for (std::string const& text : texts) joined += (joined.empty() ? "" : " ") + text;
  return Text(joined);
}

Cell Code(std::uint32_t code) {
  if (code == 0) return {};
  return std::int64_t{code};
}

std::string Digits(double value) { return fmt::format("{:.7g}", value); }

std::string CellText(Cell const& cell) {
  struct Printer {
    std::string operator()(std::monostate) const { return "-"; }
    std::string operator()(std::string const& text) const { return text; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return Digits(number); }
    std::string operator()(bool yes) const { return yes ? "yes" : "no"; }
  };
  return std::visit(Printer{}, cell);
}

Table::Table(std::string name, std::vector<Column> columns)
    : name_(std::move(name)), columns_(std::move(columns)) {}

void Table::Add(std::vector<Cell> row) {
  row.resize(columns_.size());
  rows_.push_back(std::move(row));
}

void Report::Fact(std::string name, Cell value) {
  facts_.push_back({std::move(name), std::move(value)});
}

Table& Report::Begin(std::string name, std::vector<Column> columns) {
  return tables_.emplace_back(std::move(name), std::move(columns));
}

void Report::Add(Table table) { tables_.push_back(std::move(table)); }

std::string Print(Report const& report, Form form) {
  switch (form) {
    case Form::kJson: return PrintJson(report);
    case Form::kCsv: return PrintCsv(report);
    default: return PrintText(report);
  }
}

}  // namespace zelhost
