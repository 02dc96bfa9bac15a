// A report as one JSON object.
#include <nlohmann/json.hpp>

#include "output/report_forms.h"

namespace zelhost {
namespace {

using Json = nlohmann::ordered_json;

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

}  // namespace

std::string PrintJson(Report const& report, std::string const& command) {
  Json root = {{"schema", "zel/" + command}, {"schema_version", kSchemaVersion}};
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
  if (!report.Lines().empty()) root["problems"] = report.Lines();
  if (report.TheProblem()) root["error"] = ErrorMember(*report.TheProblem());
  // Bytes that are not UTF-8 come from old libraries; they are replaced, not refused.
  return root.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace zelhost
