#include "desk/tables/separated_values.h"

#include <csv.h>

#include <algorithm>
#include <exception>
#include <new>
#include <string_view>
#include <utility>

#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/number_words.h"

namespace zel::desk {
namespace {

constexpr std::string_view kRun = "=+-@\t\r\n ";

// The separator that is most frequent in the first line that has any.
char SeparatorOf(std::string const& text) {
  constexpr std::string_view kSeparators = ",;\t";
  std::size_t counts[kSeparators.size()] = {};
  bool isQuoted = false;
  for (char const c : text) {
    if (c == '"') isQuoted = !isQuoted;
    std::size_t const at = kSeparators.find(c);
    if (!isQuoted && at != std::string_view::npos) ++counts[at];
    bool const any = std::any_of(counts, std::end(counts), [](std::size_t n) { return n != 0; });
    if (!isQuoted && c == '\n' && any) break;
  }
  return kSeparators[static_cast<std::size_t>(std::max_element(counts, std::end(counts)) - counts)];
}

constexpr std::string_view kSeparatorLine = "sep=";

// The size of a first line "sep=;", in which some programs name the separator for spreadsheets; 0
// without such a line.
std::size_t SizeOfSeparatorLine(std::string_view text) {
  std::size_t const end = text.find('\n');
  if (end == std::string_view::npos || text.substr(0, kSeparatorLine.size()) != kSeparatorLine) {
    return 0;
  }
  std::size_t const size = end - (text[end - 1] == '\r' ? 1 : 0);
  return size == kSeparatorLine.size() + 1 ? end + 1 : 0;
}

// What the parser of libcsv hands over. An exception must not pass through its C code.
struct Receiver {
  std::vector<TextRow> rows;
  TextRow row;
  std::exception_ptr failure;

  template <typename Work>
  void Guarded(Work const& work) noexcept {
    if (failure) return;
    try {
      work();
    } catch (...) {
      failure = std::current_exception();
    }
  }
};

void TakeField(void* field, std::size_t size, void* receiver) {
  auto& to = *static_cast<Receiver*>(receiver);
  to.Guarded([&] {
    to.row.cells.emplace_back(field == nullptr ? "" : static_cast<char const*>(field), size);
  });
}

void TakeRow(int, void* receiver) {
  auto& to = *static_cast<Receiver*>(receiver);
  to.Guarded([&] { to.rows.push_back(std::exchange(to.row, {})); });
}

class Parser {
 public:
  explicit Parser(char separator) {
    if (csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI) != 0) throw std::bad_alloc();
    csv_set_delim(&parser_, static_cast<unsigned char>(separator));
  }
  Parser(Parser const&) = delete;
  Parser& operator=(Parser const&) = delete;
  ~Parser() { csv_free(&parser_); }

  bool Feed(std::string_view text, Receiver& receiver) {
    return csv_parse(&parser_, text.data(), text.size(), TakeField, TakeRow, &receiver) ==
           text.size();
  }
  bool Finish(Receiver& receiver) { return csv_fini(&parser_, TakeField, TakeRow, &receiver) == 0; }
  bool IsOutOfMemory() { return csv_error(&parser_) == CSV_ENOMEM; }

 private:
  csv_parser parser_ = {};
};

}  // namespace

std::vector<TextRow> SeparatedRows(std::string const& text, std::string const& shownAs) {
  std::size_t const skipped = SizeOfSeparatorLine(text);
  Parser parser(skipped == 0 ? SeparatorOf(text) : text[kSeparatorLine.size()]);
  Receiver receiver;
  std::size_t begin = skipped == 0 ? 1 : 2;  // line of the row that is being read
  auto const fail = [&] {
    if (receiver.failure) std::rethrow_exception(receiver.failure);
    if (parser.IsOutOfMemory()) throw std::bad_alloc();
    throw Failure(shownAs + ", line " + std::to_string(begin) +
                  ": a double quote is not closed, or is within a value that is not in quotes");
  };
  std::string_view rest = std::string_view(text).substr(skipped);
  bool isOpen = false;  // within quotes
  for (std::size_t line = begin; !rest.empty(); ++line) {
    std::size_t const end = std::min(rest.find('\n'), rest.size() - 1) + 1;
    std::string_view const piece = rest.substr(0, end);
    std::size_t const before = receiver.rows.size();
    if (!parser.Feed(piece, receiver) || receiver.failure) fail();
    rest.remove_prefix(end);
    for (std::size_t i = before; i < receiver.rows.size(); ++i) receiver.rows[i].line = begin;
    if (std::count(piece.begin(), piece.end(), '"') % 2 != 0) isOpen = !isOpen;
    if (!isOpen) begin = line + 1;
  }
  std::size_t const before = receiver.rows.size();
  if (!parser.Finish(receiver) || receiver.failure) fail();
  for (std::size_t i = before; i < receiver.rows.size(); ++i) receiver.rows[i].line = begin;
  return std::move(receiver.rows);
}

bool IsProtected(std::string const& text) {
  std::size_t const after = text.find_first_not_of('\'');
  return after != 0 && after != std::string::npos && kRun.find(text[after]) != std::string::npos;
}

namespace {

std::string CellInCsv(std::string const& cell) {
  // A number is not a formula, and neither is a list of numbers.
  std::vector<std::string> const words = ListWords(cell);
  bool const isNumeric = std::all_of(words.begin(), words.end(), [](std::string const& word) {
    return word == "-" || IsNumberWord(word);
  });
  std::size_t const after = cell.find_first_not_of('\'');
  bool const isRead = cell == "-" || cell.compare(0, 1, " ") == 0;  // as no value, without blanks
  bool const mayRun = isRead || (!isNumeric && after != std::string::npos &&
                                 kRun.find(cell[after]) != std::string_view::npos);
  std::string safe = mayRun ? "'" + cell : cell;
  if (!mayRun && safe.find_first_of(",;\t\"\n\r") == std::string::npos) return safe;
  std::string quoted = "\"";
  for (char const c : safe) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace

std::string ToCsv(TextTable const& table, char separator) {
  std::string out;
  auto const add = [&](std::vector<std::string> const& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i != 0) out += separator;
      out += CellInCsv(cells[i]);
    }
    out += '\n';
  };
  add(table.heads);
  for (TextRow const& row : table.rows) add(row.cells);
  return out;
}

}  // namespace zel::desk
