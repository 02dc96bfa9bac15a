// A line chart as an SVG document.
#pragma once

#include <string>
#include <vector>

namespace zelhost {

struct ChartLine {
  std::string label;
  struct Vertex {
    double x;
    double y;
    bool extrapolated;
  };
  std::vector<Vertex> vertices;  // in ascending order of x
  std::vector<Vertex> marks;     // the limits of the range, if they are visible
};

struct Chart {
  std::string title;
  std::string xLabel;
  std::string yLabel;
  bool logarithmic = false;           // of y; values not above 0 are left out
  std::vector<std::string> warnings;  // below the title
  std::vector<ChartLine> lines;
};

// 800 by 500 points, plus the height of the lines of its warnings; axes with ticks at round
// numbers, extrapolated parts dashed, limits as dots.
std::string ToSvg(Chart const& chart);

// About `count` round numbers between low and high, which must be finite, low below high.
std::vector<double> Ticks(double low, double high, int count);

}  // namespace zelhost
