#include "lists/list_file.h"

#include <algorithm>
#include <charconv>

#include "frame/ascii.h"
#include "frame/date_text.h"
#include "frame/number_text.h"
#include "frame/path_parts.h"
#include "frame/platform/text_file.h"

namespace zel {

namespace {

constexpr std::size_t kLongestLine = 499;
constexpr char kTab = '\t';
constexpr char kComment = ';';
constexpr auto kShortTabs = 4;
constexpr auto kLongTabs = 11;

// --- reading -------------------------------------------------------------------------------------

// Pieces of a text, each up to a line end or 499 characters, without trailing blanks and line ends.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}
  // The next piece that is neither empty nor a comment.
  bool Next(std::string_view& line) {
    while (!rest_.empty()) {
      std::size_t const end = std::min(rest_.find('\n'), rest_.size() - 1) + 1;
      line = rest_.substr(0, std::min(end, kLongestLine));
      rest_.remove_prefix(line.size());
      line = line.substr(0, line.find('\0'));
      line = line.substr(0, line.find_last_not_of(" \r\n") + 1);
      if (!line.empty() && line.front() != kComment) return true;
    }
    return false;
  }

 private:
  std::string_view rest_;
};

// Columns of a line. Consecutive tabs count as one, so an empty column in the file shifts the
// others; this is why the long form never leaves a column empty.
class Columns {
 public:
  explicit Columns(std::string_view line) : rest_(line) {}

  // Empty after the last column.
  std::string_view Text() {
    std::size_t const start = rest_.find_first_not_of(kTab);
    if (start == std::string_view::npos) return {};
    rest_.remove_prefix(start);
    std::string_view const column = rest_.substr(0, rest_.find(kTab));
    rest_.remove_prefix(column.size());
    return column;
  }
  // Undefined after the last column.
  double Real() {
    std::string_view const column = Text();
    return column.empty() ? gen_GetUndefDouble() : ParseReal(column);
  }
  // Appends the next number of an order; a missing or negative one is dropped.
  void Append(CompList_i::Order& order) {
    std::string_view const column = Text();
    std::int32_t const row = ParseInt(column);
    if (!column.empty() && row >= 0) order.push_back(row);
  }

 private:
  std::string_view rest_;
};

void ReadLongLine(Columns columns, CompList_i& list) {
  ListEntry row;
  row.name = columns.Text();
  columns.Append(list.OrderBy(sortByName));
  row.id = columns.Text();
  columns.Append(list.OrderBy(sortById));
  row.formula = columns.Text();
  columns.Append(list.OrderBy(sortByFormula));
  row.cas = casn(std::string(columns.Text()).c_str());
  columns.Append(list.OrderBy(sortByCas));
  row.nbp = columns.Real();
  columns.Append(list.OrderBy(sortByNbp));
  row.mw = columns.Real();
  columns.Append(list.OrderBy(sortByMw));
  list.Entries().push_back(std::move(row));
}

// The lines of the file are in the order by ID.
void ReadShortLine(Columns columns, CompList_i& list) {
  ListEntry row;
  row.name = columns.Text();
  row.id = columns.Text();
  row.formula = columns.Text();
  columns.Append(list.OrderBy(sortByName));
  columns.Append(list.OrderBy(sortByFormula));
  list.OrderBy(sortById).push_back(static_cast<std::int32_t>(list.Entries().size()));
  list.Entries().push_back(std::move(row));
}

// --- writing -------------------------------------------------------------------------------------

constexpr std::string_view kStars = "; *********************************************\n";
constexpr std::string_view kEmptyComment = ";\n";
constexpr std::string_view kGenerated = "; *** Generated File - Do Not Edit Manually ***\n";

std::string Head(std::string const& path) {
  PathParts const parts = SplitPath(path);
  std::string head(kStars);
  head.append(kEmptyComment).append(kGenerated);
  head.append(";     File name      - ").append(parts.name).append(parts.extension).append("\n");
  head.append(";     Last generated - ").append(LongTodayText()).append("\n");
  return head.append(kGenerated).append(kEmptyComment).append(kStars).append("\n");
}

// Number k of an order, -1 after its end.
std::int32_t NumberAt(CompList_i::Order const& order, std::size_t k) {
  return k < order.size() ? order[k] : -1;
}

// A line of the file, column after column.
class Line {
 public:
  Line() { text_.reserve(kLongestLine + 1); }
  Line& operator<<(std::string_view column) {
    text_.append(column).push_back(kTab);
    return *this;
  }
  Line& operator<<(std::int32_t number) {
    char digits[16];
    char* end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    *end++ = kTab;
    text_.append(digits, end);
    return *this;
  }
  Line& operator<<(double number) {
    constexpr int kDigits = 6;
    char text[32];
    char* end = text + PrintReal(number, kDigits, text);
    *end++ = kTab;  // in place of the terminator
    text_.append(text, end);
    return *this;
  }
  std::string const& Ended() {
    text_.back() = '\n';
    return text_;
  }
  void Clear() { text_.clear(); }

 private:
  std::string text_;
};

void PutShortLine(CompList_i& list, std::size_t k, Line& line) {
  ListEntry const& row = list.Entries()[k];
  line << row.name << row.id << row.formula << NumberAt(list.OrderBy(sortByName), k)
       << NumberAt(list.OrderBy(sortByFormula), k);
}

void PutLongLine(CompList_i& list, std::size_t k, Line& line) {
  ListEntry const& row = list.Entries()[k];
  std::string_view const formula = row.formula.empty() ? " " : std::string_view(row.formula);
  bool const hasCas = static_cast<long>(row.cas) > 0;
  std::string_view const cas = hasCas ? static_cast<char const*>(row.cas) : "-";
  line << row.name << NumberAt(list.OrderBy(sortByName), k) << row.id
       << NumberAt(list.OrderBy(sortById), k) << formula << NumberAt(list.OrderBy(sortByFormula), k)
       << cas << NumberAt(list.OrderBy(sortByCas), k) << row.nbp
       << NumberAt(list.OrderBy(sortByNbp), k) << row.mw << NumberAt(list.OrderBy(sortByMw), k);
}

}  // namespace

bool ReadListFile(std::string_view path, CompList_i& list) {
  std::string text;
  if (platform::ReadTextFile(std::string(path), text) != platform::ReadResult::kRead) return false;
  Lines lines(text);
  std::string_view line;
  if (!lines.Next(line)) return true;
  auto const tabs = std::count(line.begin(), line.end(), kTab);
  if (tabs != kShortTabs && tabs != kLongTabs) return true;
  do {
    if (tabs == kLongTabs) {
      ReadLongLine(Columns(line), list);
    } else {
      ReadShortLine(Columns(line), list);
    }
  } while (lines.Next(line));
  return true;
}

std::string ListLine(CompList_i& list, std::size_t k) {
  Line line;
  PutLongLine(list, k, line);
  return line.Ended();
}

bool WriteListFile(std::string const& path, CompList_i& list, bool shortForm) {
  platform::TextFile file(path);
  if (!file) return false;
  file.Put(Head(path));
  Line line;
  for (std::size_t k = 0; k < list.Entries().size(); ++k) {
    line.Clear();
    shortForm ? PutShortLine(list, k, line) : PutLongLine(list, k, line);
    file.Put(line.Ended());
  }
  return file.Close();
}

}  // namespace zel
