#include "desk/pictures/line_style.h"

#include <iterator>
#include <vector>

#include "desk/pictures/markup.h"

namespace zel::desk {
namespace {

// Colors that color-blind people can distinguish, too.
constexpr char const* kColors[] = {"#0072b2", "#d55e00", "#009e73", "#cc79a7",
                                   "#b07d00", "#56b4e9", "#000000"};
constexpr char const* kDashes[] = {"", "12 4", "5 3", "12 3 3 3"};

struct Corner {
  double x;
  double y;
};

// Corners around the middle; none for the circle, which is the first.
std::vector<std::vector<Corner>> const& Shapes() {
  static std::vector<std::vector<Corner>> const shapes = {
      {},
      {{-3.5, -3.5}, {3.5, -3.5}, {3.5, 3.5}, {-3.5, 3.5}},
      {{0, -4.5}, {4.2, 3.2}, {-4.2, 3.2}},
      {{0, -5}, {4.2, 0}, {0, 5}, {-4.2, 0}},
      {{0, 4.5}, {4.2, -3.2}, {-4.2, -3.2}},
      {{-4.5, -1.5},
       {-1.5, -1.5},
       {-1.5, -4.5},
       {1.5, -4.5},
       {1.5, -1.5},
       {4.5, -1.5},
       {4.5, 1.5},
       {1.5, 1.5},
       {1.5, 4.5},
       {-1.5, 4.5},
       {-1.5, 1.5},
       {-4.5, 1.5}},
      {{-4, -4.2}, {4, -4.2}, {-4, 4.2}, {4, 4.2}},
      {{0, -4.8}, {4.6, -1.2}, {2.8, 4.2}, {-2.8, 4.2}, {-4.6, -1.2}}};
  return shapes;
}

}  // namespace

LineStyle StyleOf(std::size_t line) {
  return {kColors[line % std::size(kColors)], kDashes[line % std::size(kDashes)],
          static_cast<int>(line % Shapes().size())};
}

std::string Marker(int shape, double x, double y, std::string const& color, bool isFilled) {
  std::string const paint =
      " fill=\"" + (isFilled ? color : std::string("white")) + "\" stroke=\"" + color + "\"/>\n";
  std::vector<Corner> const& corners = Shapes()[static_cast<std::size_t>(shape)];
  if (corners.empty()) {
    return "<circle cx=\"" + Fixed(x, 1) + "\" cy=\"" + Fixed(y, 1) + "\" r=\"4\"" + paint;
  }
  std::string points;
  for (Corner const& corner : corners) {
    points += (points.empty() ? "" : " ") + Fixed(x + corner.x, 1) + "," + Fixed(y + corner.y, 1);
  }
  return "<polygon points=\"" + points + "\"" + paint;
}

}  // namespace zel::desk
