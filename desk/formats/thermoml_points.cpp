// Points of a correlation from files of either form.
#include <algorithm>
#include <fstream>

#include "desk/formats/thermoml.h"
#include "desk/tables/plot_points.h"
#include "desk/words/failure.h"

namespace zel::desk {

bool IsXmlFile(std::string const& path) {
  if (path == "-") return false;
  std::ifstream file(path, std::ios::binary);
  char begin[64] = {};
  file.read(begin, sizeof begin - 1);
  std::string text(begin);
  if (text.rfind("\xef\xbb\xbf", 0) == 0) text.erase(0, 3);
  std::size_t const first = text.find_first_not_of(" \t\r\n");
  return first != std::string::npos && text[first] == '<';
}

std::vector<PlotPoints> ReadPoints(std::string const& path,
                                   zel::ZelCorrelationInfo const& correlation,
                                   DisplayUnits const& units) {
  if (!IsXmlFile(path)) return ReadPlotPoints(path, correlation, units);
  MeasuredData const data = ReadThermoMl(path);
  std::vector<PlotPoints> sets;
  for (MeasuredSet const& set : data.sets) {
    if (std::string(set.correlation->name) != correlation.name) continue;
    PlotPoints points;
    points.label = data.label.empty() ? path : data.label;
    points.component = set.cas.empty() ? set.compound : set.cas;
    for (MeasuredPoint const& one : set.points) {
      points.points.push_back({one.kelvin, one.value, one.uncertainty});
    }
    std::stable_sort(
        points.points.begin(), points.points.end(),
        [](PlotPoints::Point const& a, PlotPoints::Point const& b) { return a.kelvin < b.kelvin; });
    sets.push_back(std::move(points));
  }
  if (sets.empty()) throw Failure(path + ": has no points of " + correlation.name);
  return sets;
}

}  // namespace zel::desk
