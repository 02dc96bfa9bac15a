#include "desk/open/members.h"

namespace zel::desk {
namespace {

constexpr std::size_t kMostParts = 3;

}  // namespace

std::vector<Cell> RangeMembers(Curve const& curve, DisplayUnits const& units) {
  std::string const stored = TemperatureUnit(curve.tempUnit);
  Cell const low = Number(units.Shown(curve.tMin, stored));
  Cell const high = Number(units.Shown(curve.tMax, stored));
  bool const isOpen =
      std::holds_alternative<std::monostate>(low) && std::holds_alternative<std::monostate>(high);
  return RowOf(low, high, isOpen ? Cell() : Text(units.UnitFor(stored)));
}

std::vector<Column> RangeColumns() {
  return {{"range from", ""}, {"range to", ""}, {"range unit", ""}};
}

std::vector<Cell> RecordMembers(Curve const& curve, DisplayUnits const& units) {
  if (!curve.present) return std::vector<Cell>(RecordColumns("").size());
  std::vector<Cell> cells = RowOf(std::int64_t{curve.equation});
  Append(cells, RangeMembers(curve, units));
  return cells;
}

std::vector<Column> RecordColumns(std::string const& name) {
  std::vector<Column> columns = {{name + " equation", ""}};
  for (Column const& column : RangeColumns()) columns.push_back({name + " " + column.name, ""});
  return columns;
}

std::vector<Cell> PartMembers(std::vector<std::string> const& parts) {
  std::vector<Cell> cells;
  for (std::size_t i = 0; i < kMostParts; ++i) {
    cells.push_back(i < parts.size() ? Text(parts[i]) : Cell());
  }
  return cells;
}

std::vector<Column> PartColumns() { return {{"item 1", ""}, {"item 2", ""}, {"item 3", ""}}; }

std::vector<Cell> ItemMembers(std::string const& bank, std::vector<std::string> const& parts) {
  std::vector<Cell> cells = RowOf(Text(bank));
  Append(cells, PartMembers(parts));
  return cells;
}

std::vector<Column> ItemColumns() {
  std::vector<Column> columns = {{"bank", ""}};
  Append(columns, PartColumns());
  return columns;
}

}  // namespace zel::desk
