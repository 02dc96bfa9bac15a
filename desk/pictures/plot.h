// Charts of a correlation of components, from the merged libraries or from each source.
#pragma once

#include <limits>
#include <string>
#include <vector>

#include "desk/open/preference_list.h"
#include "desk/pictures/chart.h"
#include "desk/words/display_units.h"
#include "desk/words/table.h"

namespace zel::desk {

// Points of data that are drawn over the curves.
struct PlotPoints {
  std::string label;
  std::string component;  // one of the words of the options; empty if there is only one
  struct Point {
    double kelvin;
    double value;  // in the unit of the correlation's values
    double uncertainty = std::numeric_limits<double>::quiet_NaN();  // of the value; NaN if unknown
  };
  std::vector<Point> points;
};

struct PlotOptions {
  std::string correlation;              // its name or the beginning of it
  std::vector<std::string> components;  // by number, ID or CAS number
  std::string from;                     // lowest temperature; empty: that of the records
  std::string to;                       // highest temperature; empty: that of the records
  bool logarithmic = false;
  bool each = false;      // a line for each source that has the correlation
  std::string reference;  // a source; the values are then divided by its values
  DisplayUnits units;     // of the chart, and of temperatures without a unit
  std::string title;      // empty: the correlation's meaning
  std::string size;       // "800x500", in points; empty: as high as it needs to be
  std::vector<PlotPoints> points;
};

struct Plot {
  Chart chart;
  // What is drawn, in internal units. With points, also how much each differs from the curve of its
  // component, or from the preferred curve of several.
  Table curves;
  std::vector<std::string> warnings;  // about records
  std::vector<std::string> notes;     // what is not drawn: sources without a record, values
};

// A component that is named twice is drawn once. Evaluates the correlation of each component at 400
// temperatures and at the limits of its record. Throws Failure if a component has no such
// correlation, or no value at these temperatures, and WrongUsage for options that do not fit.
Plot MakePlot(PreferenceList& list, PlotOptions const& options);

}  // namespace zel::desk
