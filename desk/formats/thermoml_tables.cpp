// What documents of ThermoML hold, as tables.
#include <algorithm>
#include <cmath>

#include "desk/formats/thermoml.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

bool IsOfComponent(std::string const& component, MeasuredSet const& set) {
  return component.empty() || Matches(component, set.cas) || Matches(component, set.compound);
}

Cell KnownNumber(double value) { return std::isfinite(value) ? Number(value) : Cell(); }

void AddSetRow(MeasuredData const& document, MeasuredSet const& set, Table& table) {
  auto const [low, high] = std::minmax_element(
      set.points.begin(), set.points.end(),
      [](MeasuredPoint const& a, MeasuredPoint const& b) { return a.kelvin < b.kelvin; });
  table.Add(set.compound, Text(set.cas), std::string(set.correlation->name),
            static_cast<std::int64_t>(set.points.size()), low->kelvin, high->kelvin,
            Text(set.phase), Text(set.method), Text(document.citation), Text(document.doi));
}

void AddPointRows(MeasuredData const& document, MeasuredSet const& set, Table& table) {
  for (MeasuredPoint const& point : set.points) {
    table.Add(set.cas.empty() ? set.compound : set.cas, point.kelvin, point.value,
              KnownNumber(point.uncertainty), KnownNumber(point.pressure), Text(document.label),
              Text(document.doi));
  }
}

}  // namespace

MeasuredTables TablesOf(std::vector<MeasuredData> const& documents,
                        zel::ZelCorrelationInfo const* correlation, std::string const& component) {
  std::string const unit = correlation == nullptr ? "" : correlation->unit;
  MeasuredTables tables = {
      Table("sets", {{"compound", ""},
                     {"CAS", ""},
                     {"correlation", ""},
                     {"points", ""},
                     {"from T", "K"},
                     {"to T", "K"},
                     {"phase", "", true},
                     {"method", "", true},
                     {"citation", "", true},
                     {"doi", "", true}}),
      Table("points", {{"component", ""},
                       {"T", "K"},
                       {"value", unit},
                       {"uncertainty", unit},
                       {"pressure", "kPa"},
                       {"label", ""},
                       {"doi", "", true}}),
      Table("passed over", {{"compound", ""}, {"property", ""}, {"points", ""}, {"why", ""}})};
  for (MeasuredData const& document : documents) {
    for (MeasuredSet const& set : document.sets) {
      bool const isMeant =
          correlation == nullptr || std::string(set.correlation->name) == correlation->name;
      if (!isMeant || !IsOfComponent(component, set)) continue;
      AddSetRow(document, set, tables.sets);
      if (correlation != nullptr) AddPointRows(document, set, tables.points);
    }
    for (PassedOver const& one : document.passedOver) {
      tables.passedOver.Add(one.compound, one.property, static_cast<std::int64_t>(one.points),
                            one.why);
    }
  }
  return tables;
}

}  // namespace zel::desk
