// A line chart as an SVG document.
#pragma once

#include <string>
#include <vector>

namespace zel::desk {

struct ChartLine {
  std::string label;
  struct Vertex {
    double x;
    double y;
    bool extrapolated;
  };
  std::vector<Vertex> vertices;  // in ascending order of x
  std::vector<Vertex> marks;     // the limits of the range, if they are visible
  bool isPoints = false;         // markers only, one at each vertex
};

struct Chart {
  std::string title;
  std::string xName;  // "T", "K" for an axis "T [K]"
  std::string xUnit;
  std::string yName;
  std::string yUnit;
  bool isUnitFixed = false;           // the axis has no decimal prefix before the unit of y
  bool logarithmic = false;           // of y; values not above 0 are left out
  std::vector<std::string> warnings;  // below the title
  std::vector<std::string> notes;     // only for readers who do not see the picture
  std::vector<ChartLine> lines;
  // In points. Without a height the chart is 500 high, plus the lines of its warnings and of its
  // legend.
  double width = 800;
  double height = 0;
};

// The title, and a description with the ends of each line, in the unit of the axis, and the
// warnings and notes, for readers who do not see the picture. Axes with ticks at round numbers,
// parts outside the range thin and dotted, limits as filled markers, and a legend below. Throws
// WrongUsage if the size leaves no room for the curves.
std::string ToSvg(Chart const& chart);

}  // namespace zel::desk
