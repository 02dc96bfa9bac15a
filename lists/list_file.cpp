#include "lists/list_file.h"

#include <algorithm>
#include <optional>

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
std::string Number(CompList_i::Order const& order, std::size_t k) {
  return std::to_string(k < order.size() ? order[k] : -1);
}

std::string ShortListLine(CompList_i& list, std::size_t k) {
  ListEntry const& row = list.Entries()[k];
  return row.name + kTab + row.id + kTab + row.formula + kTab +
         Number(list.OrderBy(sortByName), k) + kTab + Number(list.OrderBy(sortByFormula), k) + "\n";
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
  constexpr int kDigits = 6;
  ListEntry const& row = list.Entries()[k];
  std::string const formula = row.formula.empty() ? " " : row.formula;
  std::string const cas = static_cast<long>(row.cas) > 0 ? static_cast<char const*>(row.cas) : "-";
  return row.name + kTab + Number(list.OrderBy(sortByName), k) + kTab + row.id + kTab +
         Number(list.OrderBy(sortById), k) + kTab + formula + kTab +
         Number(list.OrderBy(sortByFormula), k) + kTab + cas + kTab +
         Number(list.OrderBy(sortByCas), k) + kTab + RealText(row.nbp, kDigits) + kTab +
         Number(list.OrderBy(sortByNbp), k) + kTab + RealText(row.mw, kDigits) + kTab +
         Number(list.OrderBy(sortByMw), k) + "\n";
}

bool WriteListFile(std::string const& path, CompList_i& list, bool shortForm) {
  platform::TextFile file(path);
  if (!file) return false;
  file.Put(Head(path));
  for (std::size_t k = 0; k < list.Entries().size(); ++k) {
    file.Put(shortForm ? ShortListLine(list, k) : ListLine(list, k));
  }
  return file.Close();
}

}  // namespace zel
