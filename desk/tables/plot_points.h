// Points of data for a chart, from a table.
#pragma once

#include <zelaccess/Verify.h>

#include <string>
#include <vector>

#include "desk/pictures/plot.h"

namespace zel::desk {

// Reads points of a correlation from a file (desk/tables/text_table.h). Its columns are the
// temperature, with the head "T" or "temperature", and the value, "value" or the name of the
// correlation; with a unit in brackets, "T [degC]", or in the display unit. A column "uncertainty"
// has that of the value, in its unit, in another one or in percent, "uncertainty [%]"; its cells
// may be empty. A column "component" says to which component a point belongs, and "label" what the
// legend calls it; without that it is the name of the file. Other columns are ignored, and so are
// points without a value. One set for each label and component, in the order of temperatures.
// Throws Failure, with the line, for a cell that is not a number or is not above 0 K, for a unit
// that does not fit, and for a table without these columns or without points.
std::vector<PlotPoints> ReadPlotPoints(std::string const& path,
                                       zel::ZelCorrelationInfo const& correlation,
                                       DisplayUnits const& units);

}  // namespace zel::desk
