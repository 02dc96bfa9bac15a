// How the lines of a chart differ: by color, dashes and the shape of their markers, so that they
// can be distinguished in print without color too.
#pragma once

#include <cstddef>
#include <string>

namespace zel::desk {

struct LineStyle {
  char const* color;
  char const* dashes;  // of SVG; empty for a solid line
  int shape;
};

// The first 56 differ from each other, and the first 28 in color or dashes.
LineStyle StyleOf(std::size_t line);

// A marker of about 8 points around a place, as an SVG element.
std::string Marker(int shape, double x, double y, std::string const& color, bool isFilled);

}  // namespace zel::desk
