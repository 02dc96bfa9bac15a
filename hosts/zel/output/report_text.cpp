// A report as lines of at most 80 characters, or of the width of the terminal.
#include <algorithm>
#include <numeric>

#include "desk/words/number_words.h"
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

bool IsOfNumber(char c) { return (c >= '0' && c <= '9') || c == '.' || c == '+' || c == '-'; }

// True if a number would be cut: "1.4e+0" from "7", or "25" from ".5".
bool IsInNumber(std::string const& text, std::size_t at) {
  if (at == 0 || at >= text.size()) return false;
  char const before = text[at - 1];
  char const behind = text[at];
  auto const isExponent = [&](std::size_t i) {
    return (text[i] == 'e' || text[i] == 'E') && i > 0 && IsOfNumber(text[i - 1]) &&
           i + 1 < text.size() && IsOfNumber(text[i + 1]);
  };
  return (IsOfNumber(before) || isExponent(at - 1)) && (IsOfNumber(behind) || isExponent(at));
}

// The bytes of a text that fit into `width` columns.
std::size_t BytesWithin(Screen const& screen, std::string const& text, std::size_t width) {
  std::size_t end = 0;
  for (std::size_t used = 0; end < text.size();) {
    std::size_t const bytes = CharacterBytes(text, end);
    used += screen.Width(text.substr(end, bytes));
    if (used > width) break;
    end += bytes;
  }
  return end;
}

// Returns where to cut a word that is too long: after a colon, as in "perry.lb1:PERRY", else at
// `width` columns, or before or after the number at that place.
std::size_t CutOf(Screen const& screen, std::string const& text, std::size_t width) {
  std::size_t end = std::max(BytesWithin(screen, text, width), CharacterBytes(text, 0));
  std::size_t const colon = text.rfind(':', end - 1);
  if (colon != std::string::npos && colon > 0) return colon + 1;
  std::size_t cut = end;
  while (IsInNumber(text, cut)) --cut;
  if (cut > 0) return cut;
  while (IsInNumber(text, end)) ++end;
  return end;
}

// Lines of at most `width` characters, broken at blanks, and within words that are too long, but
// never within a number.
std::vector<std::string> Break(Screen const& screen, std::string const& text, std::size_t width) {
  std::vector<std::string> lines;
  std::string rest = text;
  for (std::size_t end = rest.find('\n'); end != std::string::npos; end = rest.find('\n')) {
    for (std::string& line : Break(screen, rest.substr(0, end), width)) {
      lines.push_back(std::move(line));
    }
    rest.erase(0, end + 1);
  }
  while (screen.Width(rest) > width) {
    // Up to here, the blanks of a text without wide letters are within the width.
    std::size_t const within = screen.isTerminal ? BytesWithin(screen, rest, width) : width;
    std::size_t const at = rest.rfind(' ', within);
    bool const atBlank = at != std::string::npos && at != 0;
    std::size_t const end = atBlank ? at : CutOf(screen, rest, width);
    lines.push_back(rest.substr(0, end));
    rest.erase(0, end + (atBlank ? 1 : 0));
  }
  if (!rest.empty() || lines.empty()) lines.push_back(rest);
  return lines;
}

// The widest number among the words of a text.
std::size_t WidthOfNumbers(std::string const& text) {
  std::size_t width = 0;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t const end = std::min(text.find(' ', at), text.size());
    std::string const word = text.substr(at, end - at);
    if (IsNumberWord(WithoutPunctuation(word))) width = std::max(width, word.size());
    at = end + 1;
  }
  return width;
}

// How bad a finding is, is seen at once.
Ink InkOf(Column const& column, std::string const& text) {
  if (column.name != "severity") return Ink::kPlain;
  return text == "error" || text == "damage" ? Ink::kRed
         : text == "warning"                 ? Ink::kYellow
                                             : Ink::kPlain;
}

class TextTable {
 public:
  TextTable(Screen const& screen, Table const& table) : screen_(screen), table_(table) {
    Show(true);
    if (Total() > screen_.columns + SlackOfLast()) Show(false);
    bool const anyUnit = std::any_of(table.Columns().begin(), table.Columns().end(),
                                     [](Column const& column) { return !column.unit.empty(); });
    if (anyUnit && Total() > screen_.columns) {
      Heads(true);
      Measure();
    }
    Narrow();
  }

  void Print(std::string& out) const {
    std::vector<Ink> const bold(shown_.size(), Ink::kBold);
    for (auto const& heads : heads_) Line(heads, bold, out);
    for (auto const& row : table_.Rows()) {
      std::vector<std::string> texts;
      std::vector<Ink> inks;
      for (std::size_t const column : shown_) {
        texts.push_back(OneLine(table_.Columns()[column], row[column]));
        inks.push_back(InkOf(table_.Columns()[column], texts.back()));
      }
      Line(texts, inks, out);
    }
  }

 private:
  void Show(bool withOptional) {
    shown_.clear();
    right_.clear();
    for (std::size_t i = 0; i < table_.Columns().size(); ++i) {
      Column const& column = table_.Columns()[i];
      if (column.hidden || (column.optional && !withOptional)) continue;
      shown_.push_back(i);
      right_.push_back(IsNumeric(table_, i));
    }
    Heads(false);
    Measure();
  }

  // The width that the last column can give up without being broken too often.
  std::size_t SlackOfLast() const {
    constexpr std::size_t kComfortable = 25;
    bool const isText = !right_.empty() && !right_.back();
    return isText && widths_.back() > kComfortable ? widths_.back() - kComfortable : 0;
  }

  // Names with their units, or the units on a line of their own.
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
    least_.assign(shown_.size(), kNarrowestBreak);
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      for (auto const& heads : heads_) widths_[i] = std::max(widths_[i], screen_.Width(heads[i]));
      for (auto const& row : table_.Rows()) {
        std::string const text = OneLine(table_.Columns()[shown_[i]], row[shown_[i]]);
        widths_[i] = std::max(widths_[i], screen_.Width(text));
        least_[i] = std::max(least_[i], WidthOfNumbers(text));
      }
    }
  }

  std::size_t Total() const {
    return std::accumulate(widths_.begin(), widths_.end(), kGap * (widths_.size() - 1));
  }

  // Narrows columns of text, the last one first, then the widest, until the line fits.
  void Narrow() {
    auto const narrow = [&](std::size_t i) {
      if (right_[i] || Total() <= screen_.columns) return;
      std::size_t const excess = Total() - screen_.columns;
      std::size_t const least = std::min(widths_[i], least_[i]);
      widths_[i] = std::max(least, widths_[i] > excess ? widths_[i] - excess : 0);
    };
    if (widths_.empty()) return;
    narrow(widths_.size() - 1);
    for (std::size_t round = 0; round < widths_.size(); ++round) {
      narrow(static_cast<std::size_t>(std::max_element(widths_.begin(), widths_.end()) -
                                      widths_.begin()));
    }
  }

  // A cell that is too wide is continued on further lines.
  void Line(std::vector<std::string> const& texts, std::vector<Ink> const& inks,
            std::string& out) const {
    std::vector<std::vector<std::string>> cells;
    std::size_t height = 1;
    for (std::size_t i = 0; i < texts.size(); ++i) {
      cells.push_back(Break(screen_, texts[i], right_[i] ? screen_.columns : widths_[i]));
      height = std::max(height, cells.back().size());
    }
    for (std::size_t k = 0; k < height; ++k) {
      std::string line;
      for (std::size_t i = 0; i < cells.size(); ++i) {
        std::string const text = k < cells[i].size() ? cells[i][k] : "";
        std::size_t const width = screen_.Width(text);
        std::size_t const pad = widths_[i] > width ? widths_[i] - width : 0;
        if (right_[i]) line.append(pad, ' ');
        line += Inked(screen_, inks[i], text);
        if (!right_[i]) line.append(pad, ' ');
        line.append(kGap, ' ');
      }
      line.erase(line.find_last_not_of(' ') + 1);
      out += line + '\n';
    }
  }

  Screen const& screen_;
  Table const& table_;
  std::vector<std::size_t> shown_;  // columns of the table; the members below are indexed like it
  std::vector<std::vector<std::string>> heads_;
  std::vector<bool> right_;
  std::vector<std::size_t> widths_;
  std::vector<std::size_t> least_;  // widths to which they can be narrowed
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
