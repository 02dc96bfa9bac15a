// A report as lines of at most 80 characters, or of the width of the terminal.
#include <algorithm>
#include <set>

#include "output/line_break.h"
#include "output/report_forms.h"

namespace zelhost {
namespace {

constexpr std::size_t kGap = 2;
constexpr std::size_t kNarrowestBreak = 12;  // a narrower last column is not broken

bool IsNumber(Cell const& cell) {
  return std::holds_alternative<double>(cell) || std::holds_alternative<std::int64_t>(cell);
}

// A column of numbers is aligned to the right.
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

// The text for a terminal, on which control characters of a library must not move the cursor.
std::string Visible(Cell const& cell) {
  std::string text = CellText(cell);
  for (char& c : text) {
    if ((c >= 0 && c < ' ' && c != '\n') || c == '\x7f') c = '?';
  }
  return text;
}

std::string OneLine(Column const& column, Cell const& cell) {
  bool const isNone = std::holds_alternative<std::monostate>(cell) && !column.none.empty();
  std::string text = isNone ? column.none : Visible(cell);
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

// The color of a severity, so that bad findings are seen at once.
Ink InkOf(Column const& column, std::string const& text) {
  if (column.name != "severity") return Ink::kPlain;
  return text == "error" || text == "damage" ? Ink::kRed
         : text == "warning"                 ? Ink::kYellow
                                             : Ink::kPlain;
}

// A column as it is printed.
struct Layout {
  std::size_t column;              // of the table
  bool right;                      // a column of numbers
  std::vector<std::string> heads;  // the name and, if it is on a line of its own, the unit
  std::size_t width = 0;
  std::size_t least = 0;  // width to which it can be narrowed without cutting words
};

std::size_t Total(std::vector<Layout> const& columns) {
  std::size_t total = columns.empty() ? 0 : kGap * (columns.size() - 1);
  for (Layout const& one : columns) total += one.width;
  return total;
}

// A table that is too wide is printed in blocks of columns, each with the columns that name a row.
class TextTable {
 public:
  TextTable(Screen const& screen, Table const& table) : screen_(screen), table_(table) {
    Show(true);
    if (Total(all_) > screen_.columns + SlackOfLast()) Show(false);
    bool const anyUnit = std::any_of(table.Columns().begin(), table.Columns().end(),
                                     [](Column const& column) { return !column.unit.empty(); });
    if (anyUnit && Total(all_) > screen_.columns) Measure(true);
  }

  void Print(std::string& out) const {
    if (std::vector<Layout> whole = all_; Narrow(whole)) return PrintBlock(whole, out);
    std::size_t const keys = KeyCount();
    for (std::size_t at = keys; at < all_.size();) {
      std::vector<Layout> block(all_.begin(), all_.begin() + static_cast<std::ptrdiff_t>(keys));
      std::vector<Layout> fitting;
      if (at > keys) out += '\n';
      do {
        block.push_back(all_[at]);
        std::vector<Layout> narrowed = block;
        if (!Narrow(narrowed) && !fitting.empty()) break;
        fitting = std::move(narrowed);
        ++at;
      } while (at < all_.size());
      PrintBlock(fitting, out);
    }
  }

 private:
  void Show(bool withOptional) {
    all_.clear();
    for (std::size_t i = 0; i < table_.Columns().size(); ++i) {
      Column const& column = table_.Columns()[i];
      if (column.hidden || (column.optional && !withOptional)) continue;
      all_.push_back({i, IsNumeric(table_, i), {}});
    }
    Measure(false);
  }

  // The width that the last column can give up without being broken too often.
  std::size_t SlackOfLast() const {
    constexpr std::size_t kComfortable = 25;
    bool const isText = !all_.empty() && !all_.back().right;
    return isText && all_.back().width > kComfortable ? all_.back().width - kComfortable : 0;
  }

  // Measures the columns with names and units in one head, or with the units on a line of their
  // own.
  void Measure(bool apart) {
    for (Layout& one : all_) {
      Column const& column = table_.Columns()[one.column];
      one.heads = {apart ? column.name : Head(column)};
      if (apart) one.heads.push_back(column.unit.empty() ? "" : "[" + column.unit + "]");
      one.width = 0;
      one.least = one.right ? 0 : kNarrowestBreak;
      auto const hold = [&](std::string const& text, bool isBroken) {
        std::size_t const width = screen_.Width(text);
        one.width = std::max(one.width, width);
        one.least = std::max(one.least, isBroken ? WidthOfWords(screen_, text) : width);
      };
      for (std::string const& head : one.heads) hold(head, true);
      for (auto const& row : table_.Rows()) hold(OneLine(column, row[one.column]), !one.right);
      one.least = std::min(one.least, one.width);
    }
  }

  // Narrows columns of text, the last one first, then the widest, then the heads of numbers, until
  // the line fits; false if it does not.
  bool Narrow(std::vector<Layout>& columns) const {
    auto const narrow = [&](Layout& one) {
      std::size_t const total = Total(columns);
      if (total <= screen_.columns) return;
      std::size_t const excess = total - screen_.columns;
      one.width = std::max(one.least, one.width > excess ? one.width - excess : 0);
    };
    if (!columns.back().right) narrow(columns.back());
    for (bool const right : {false, true}) {
      std::vector<Layout*> widest;
      for (Layout& one : columns) {
        if (one.right == right) widest.push_back(&one);
      }
      std::stable_sort(widest.begin(), widest.end(), [](Layout const* one, Layout const* other) {
        return one->width > other->width;
      });
      for (Layout* const one : widest) narrow(*one);
    }
    return Total(columns) <= screen_.columns;
  }

  // The number of columns that name a row: the first ones, by which all rows differ.
  std::size_t KeyCount() const {
    constexpr std::size_t kMostKeys = 3;
    std::size_t width = 0;
    for (std::size_t keys = 1; keys <= kMostKeys && keys < all_.size(); ++keys) {
      width += all_[keys - 1].least + kGap;
      if (width > screen_.columns / 2) break;
      std::set<std::vector<std::string>> seen;
      bool const differ =
          std::all_of(table_.Rows().begin(), table_.Rows().end(), [&](auto const& row) {
            std::vector<std::string> texts;
            for (std::size_t i = 0; i < keys; ++i) texts.push_back(CellText(row[all_[i].column]));
            return seen.insert(std::move(texts)).second;
          });
      if (differ) return keys;
    }
    return 1;
  }

  void PrintBlock(std::vector<Layout> const& columns, std::string& out) const {
    for (std::size_t line = 0; line < columns.front().heads.size(); ++line) {
      bool const isNone = std::all_of(columns.begin(), columns.end(), [line](Layout const& one) {
        return one.heads[line].empty();
      });
      if (isNone && line > 0) continue;  // no units in this block
      std::vector<std::vector<std::string>> heads;
      std::size_t height = 1;
      for (Layout const& one : columns) {
        heads.push_back(Break(screen_, one.heads[line], one.width));
        height = std::max(height, heads.back().size());
      }
      // Names end where the units, or the values, begin.
      for (auto& head : heads) head.insert(head.begin(), height - head.size(), "");
      Lines(columns, heads, std::vector<Ink>(columns.size(), Ink::kBold), out);
    }
    for (auto const& row : table_.Rows()) {
      std::vector<std::vector<std::string>> cells;
      std::vector<Ink> inks;
      for (Layout const& one : columns) {
        Column const& column = table_.Columns()[one.column];
        std::string const text = OneLine(column, row[one.column]);
        inks.push_back(InkOf(column, text));
        cells.push_back(Break(screen_, text, one.right ? screen_.columns : one.width));
      }
      Lines(columns, cells, inks, out);
    }
  }

  // A cell that is too wide is continued on further lines.
  void Lines(std::vector<Layout> const& columns, std::vector<std::vector<std::string>> const& cells,
             std::vector<Ink> const& inks, std::string& out) const {
    std::size_t height = 1;
    for (auto const& cell : cells) height = std::max(height, cell.size());
    for (std::size_t k = 0; k < height; ++k) {
      std::string line;
      for (std::size_t i = 0; i < cells.size(); ++i) {
        std::string const text = k < cells[i].size() ? cells[i][k] : "";
        std::size_t const width = screen_.Width(text);
        std::size_t const pad = columns[i].width > width ? columns[i].width - width : 0;
        if (columns[i].right) line.append(pad, ' ');
        line += Inked(screen_, inks[i], text);
        if (!columns[i].right) line.append(pad, ' ');
        line.append(kGap, ' ');
      }
      line.erase(line.find_last_not_of(' ') + 1);
      out += line + '\n';
    }
  }

  Screen const& screen_;
  Table const& table_;
  std::vector<Layout> all_;
};

}  // namespace

std::string PrintText(Report const& report, Screen const& screen) {
  std::string out;
  std::size_t width = 0;
  for (auto const& fact : report.Facts()) width = std::max(width, screen.Width(fact.name));
  for (auto const& fact : report.Facts()) {
    std::string const indent(width + kGap, ' ');
    std::vector<std::string> const parts =
        Break(screen, Visible(fact.value),
              std::max(kNarrowestBreak, screen.columns - std::min(screen.columns, width + kGap)));
    out += Inked(screen, Ink::kBold, fact.name) +
           std::string(width + kGap - screen.Width(fact.name), ' ') + parts[0] + '\n';
    for (std::size_t k = 1; k < parts.size(); ++k) out += indent + parts[k] + '\n';
  }
  bool const titled = report.Tables().size() > 1;
  for (Table const& table : report.Tables()) {
    if (table.Empty()) continue;
    if (!out.empty()) out += '\n';
    if (titled) out += Inked(screen, Ink::kBold, table.Name()) + "\n\n";
    TextTable(screen, table).Print(out);
  }
  if (out.empty() && !report.Tables().empty()) return "none\n";
  return out;
}

}  // namespace zelhost
