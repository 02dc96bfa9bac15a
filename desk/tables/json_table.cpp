#include "desk/tables/json_table.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>

#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/number_words.h"

namespace zel::desk {
namespace {

using Json = nlohmann::ordered_json;

// The lines on which the objects of an array begin.
std::vector<std::size_t> LinesOfObjects(std::string const& text) {
  std::vector<std::size_t> lines;
  std::size_t line = 1;
  int depth = 0;
  bool isText = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char const c = text[i];
    if (c == '\n') ++line;
    if (isText) {
      if (c == '\\') ++i;
      if (c == '"') isText = false;
      continue;
    }
    if (c == '"') isText = true;
    if (c == '{' || c == '[') {
      if (c == '{' && depth == 1) lines.push_back(line);
      ++depth;
    }
    if (c == '}' || c == ']') --depth;
  }
  return lines;
}

std::string NumberText(double value) {
  char text[40];
  auto const [end, error] = std::to_chars(text, text + sizeof(text), value);
  return {text, end};
}

std::string CellOf(Json const& value, std::string const& where) {
  switch (value.type()) {
    case Json::value_t::null: return "";
    case Json::value_t::string: return value.get<std::string>();
    case Json::value_t::boolean: return value.get<bool>() ? "yes" : "no";
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned: return value.dump();
    case Json::value_t::number_float: return NumberText(value.get<double>());
    case Json::value_t::array: break;
    default: throw Failure(where + " is neither a text, a number nor a list");
  }
  std::string list;
  for (Json const& element : value) {
    if (element.is_array()) throw Failure(where + " is a list of lists");
    std::string const word = CellOf(element, where);
    list += (list.empty() ? "" : " ") + (word.empty() ? "-" : word);
  }
  return list;
}

// Refuses an object that has a member twice, of which only one would be kept.
Json::parser_callback_t OnceEach(std::string const& shownAs) {
  auto const seen = std::make_shared<std::set<std::string>>();
  return [seen, shownAs](int, Json::parse_event_t event, Json& parsed) {
    if (event == Json::parse_event_t::object_start) seen->clear();
    if (event != Json::parse_event_t::key) return true;
    auto const head = parsed.get<std::string>();
    if (seen->insert(LowerCase(head)).second) return true;
    throw Failure(shownAs + ": an object has the member " + head + " twice");
  };
}

}  // namespace

TextTable ParseJsonTable(std::string const& text, std::string const& shownAs) {
  Json root;
  try {
    root = Json::parse(text, OnceEach(shownAs));
  } catch (Json::exception const& error) {
    // The message without the name of the exception in brackets.
    std::string const what = error.what();
    throw Failure(shownAs + ": is not JSON: " + what.substr(what.find("] ") + 2));
  }
  std::vector<std::size_t> const lines = LinesOfObjects(text);
  TextTable table;
  for (Json const& object : root) {
    if (!object.is_object()) throw Failure(shownAs + ": is not an array of objects");
    TextRow row{table.rows.size() < lines.size() ? lines[table.rows.size()] : 0, {}};
    row.cells.resize(table.heads.size());
    for (auto const& [head, value] : object.items()) {
      std::size_t const at = table.Find(head);
      if (at == table.heads.size()) {
        table.heads.push_back(head);
        row.cells.emplace_back();
      }
      std::string place = shownAs;
      place.append(", line ").append(std::to_string(row.line)).append(": ").append(head);
      row.cells[at] = CellOf(value, place);
    }
    table.rows.push_back(std::move(row));
  }
  for (TextRow& row : table.rows) row.cells.resize(table.heads.size());
  if (table.heads.empty()) throw Failure(shownAs + ": is an empty array");
  return table;
}

std::string ToJson(TextTable const& table) {
  Json rows = Json::array();
  for (TextRow const& row : table.rows) {
    Json object = Json::object();
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      std::string const& cell = row.cells[i];
      double value = 0.0;
      // A CAS number or an ID of digits stays a text only if it is not a plain number.
      if (cell.empty()) {
        object[table.heads[i]] = nullptr;
      } else if (IsNumberWord(cell) &&
                 std::from_chars(cell.data(), cell.data() + cell.size(), value).ec == std::errc() &&
                 NumberText(value) == cell) {
        object[table.heads[i]] = Json::parse(cell);
      } else {
        object[table.heads[i]] = cell;
      }
    }
    rows.push_back(std::move(object));
  }
  return rows.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace zel::desk
