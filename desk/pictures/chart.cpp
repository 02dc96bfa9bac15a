#include "desk/pictures/chart.h"

#include <algorithm>
#include <cmath>

#include "desk/pictures/axis.h"
#include "desk/pictures/line_style.h"
#include "desk/pictures/markup.h"
#include "desk/words/failure.h"
#include "desk/words/table.h"

namespace zel::desk {
namespace {

constexpr double kHeight = 500;  // without warnings and legend
constexpr double kLeft = 80;
constexpr double kRight = 20;
constexpr double kTitle = 40;
constexpr double kWarningLine = 16;
constexpr std::size_t kWarningWidth = 110;  // characters
constexpr double kAxis = 50;                // below the curves, for labels of the axis
constexpr double kLegendLine = 20;
constexpr double kLegendSample = 48;  // width of the sample of a line
constexpr double kLetter = 6.6;       // mean width of a letter of 12 points
constexpr double kLeast = 120;        // width and height of the area of the curves
constexpr double kTick = 5;
constexpr double kMarkerDistance = 90;

// Lines of a warning, broken at blanks.
std::vector<std::string> LinesOf(std::string text) {
  std::vector<std::string> lines;
  while (text.size() > kWarningWidth) {
    std::size_t const blank = text.rfind(' ', kWarningWidth);
    if (blank == std::string::npos || blank == 0) break;
    lines.push_back(text.substr(0, blank));
    text.erase(0, blank + 1);
  }
  lines.push_back(std::move(text));
  return lines;
}

std::string Head(std::string const& name, std::string const& unit) {
  return unit.empty() ? name : name + " [" + unit + "]";
}

// The places of all parts. The legend has as many columns as its longest label allows.
struct Layout {
  std::vector<std::string> warnings;
  double width;
  double height;
  double top;    // of the area of the curves
  double floor;  // its lower end
  std::size_t legendColumns;
  double legendColumn;  // width

  explicit Layout(Chart const& chart) : width(chart.width) {
    for (std::string const& warning : chart.warnings) {
      for (std::string& line : LinesOf(warning)) warnings.push_back(std::move(line));
    }
    std::size_t longest = 0;
    for (ChartLine const& line : chart.lines) longest = std::max(longest, line.label.size());
    double const inner = width - kLeft - kRight;
    legendColumn = kLegendSample + kLetter * static_cast<double>(longest) + 16;
    legendColumns =
        std::max<std::size_t>(1, static_cast<std::size_t>(std::max(0.0, inner / legendColumn)));
    std::size_t const rows = (chart.lines.size() + legendColumns - 1) / legendColumns;
    top = kTitle + kWarningLine * static_cast<double>(warnings.size());
    double const below = kAxis + kLegendLine * static_cast<double>(rows) + 10;
    height = chart.height > 0.0 ? chart.height : kHeight + (top - kTitle) + below - kAxis;
    floor = height - below;
    if (inner < kLeast || floor - top < kLeast) {
      throw WrongUsage("a chart with this title, legend and warnings needs at least " +
                       Fixed(kLeft + kRight + kLeast, 0) + " by " +
                       Fixed(std::ceil(top + below + kLeast), 0) + " points");
    }
  }
};

class Plotter {
 public:
  explicit Plotter(Chart const& chart) : chart_(chart), layout_(chart) {
    for (ChartLine const& line : chart.lines) {
      for (auto const& vertex : line.vertices) {
        if (!Shown(vertex.y)) continue;
        x_.Take(vertex.x);
        y_.Take(Scaled(vertex.y));
      }
    }
    x_.Widen();
    y_.Widen();
    double const margin = (y_.high - y_.low) / 20;
    y_.low -= margin;
    y_.high += margin;
  }

  std::string Draw() {
    std::string const width = Fixed(layout_.width, 0);
    std::string const height = Fixed(layout_.height, 0);
    out_ = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + width + " " + height +
           "\" width=\"" + width + "\" height=\"" + height +
           "\" role=\"img\" font-family=\"sans-serif\" font-size=\"12\">\n<title>" +
           Escaped(chart_.title) + "</title>\n<desc>" + Escaped(Description()) +
           "</desc>\n<rect width=\"" + width + "\" height=\"" + height + "\" fill=\"white\"/>\n";
    Print(layout_.width / 2, 24, "middle", chart_.title, " font-size=\"16\"");
    for (std::size_t i = 0; i < layout_.warnings.size(); ++i) {
      double const y = kTitle + kWarningLine * static_cast<double>(i);
      Print(layout_.width / 2, y, "middle", layout_.warnings[i], " fill=\"#b00000\"");
    }
    Axes();
    for (std::size_t i = 0; i < chart_.lines.size(); ++i) Line(i);
    for (std::size_t i = 0; i < chart_.lines.size(); ++i) Legend(i);
    out_ += "</svg>\n";
    return out_;
  }

 private:
  double Scaled(double y) const { return chart_.logarithmic ? std::log10(y) : y; }
  bool Shown(double y) const { return std::isfinite(y) && (!chart_.logarithmic || y > 0.0); }
  double AtX(double x) const {
    return kLeft + (x - x_.low) / (x_.high - x_.low) * (layout_.width - kLeft - kRight);
  }
  double AtY(double scaled) const {
    return layout_.floor - (scaled - y_.low) / (y_.high - y_.low) * (layout_.floor - layout_.top);
  }

  void Print(double x, double y, char const* anchor, std::string const& text,
             std::string const& more = "") {
    out_ += "<text x=\"" + Fixed(x, 1) + "\" y=\"" + Fixed(y, 1) + "\" text-anchor=\"" + anchor +
            "\"" + more + ">" + Escaped(text) + "</text>\n";
  }
  void Stroke(double x1, double y1, double x2, double y2, std::string const& paint) {
    out_ += "<line x1=\"" + Fixed(x1, 1) + "\" y1=\"" + Fixed(y1, 1) + "\" x2=\"" + Fixed(x2, 1) +
            "\" y2=\"" + Fixed(y2, 1) + "\" stroke=" + paint + "/>\n";
  }

  Ticks TicksOfY() const {
    constexpr double kDistance = 55;  // of ticks, about
    int const count = std::max(2, static_cast<int>((layout_.floor - layout_.top) / kDistance));
    auto const ticks = chart_.logarithmic ? LogTicks : LinearTicks;
    return ticks(y_.low, y_.high, count, chart_.yUnit, chart_.isUnitFixed);
  }

  std::string Description() const {
    Ticks const y = TicksOfY();
    std::string text = Head(chart_.yName, y.unit) + " over " + Head(chart_.xName, chart_.xUnit) +
                       (chart_.logarithmic ? ", on a logarithmic axis" : "");
    for (ChartLine const& line : chart_.lines) {
      text += "; " + line.label;
      if (line.vertices.empty()) continue;
      if (line.isPoints) {
        std::size_t const count = line.vertices.size();
        text += ", " + std::to_string(count) + (count == 1 ? " point" : " points");
      }
      auto const& first = line.vertices.front();
      auto const& last = line.vertices.back();
      text += ": " + Digits(first.y / y.scale) + " at " + Digits(first.x);
      if (line.isPoints && line.vertices.size() == 1) continue;
      text += ", " + Digits(last.y / y.scale) + " at " + Digits(last.x);
    }
    for (std::string const& warning : chart_.warnings) text += "; " + warning;
    for (std::string const& note : chart_.notes) text += "; " + note;
    return text;
  }

  void Axes() {
    double const right = layout_.width - kRight;
    double const floor = layout_.floor;
    constexpr double kDistanceX = 80;  // of ticks, about
    int const countX = std::max(2, static_cast<int>((right - kLeft) / kDistanceX));
    Ticks const x = LinearTicks(x_.low, x_.high, countX, chart_.xUnit, true);
    for (Tick const& tick : x.ticks) {
      Stroke(AtX(tick.value), layout_.top, AtX(tick.value), floor, "\"#e0e0e0\"");
      Stroke(AtX(tick.value), floor, AtX(tick.value), floor + kTick, "\"black\"");
      Print(AtX(tick.value), floor + 18, "middle", tick.label);
    }
    Ticks const y = TicksOfY();
    for (Tick const& tick : y.ticks) {
      double const at = AtY(Scaled(tick.value));
      Stroke(kLeft, at, right, at, "\"#e0e0e0\"");
      Stroke(kLeft - kTick, at, kLeft, at, "\"black\"");
      Print(kLeft - 8, at + 4, "end", tick.label);
    }
    Stroke(kLeft, floor, right, floor, "\"black\"");
    Stroke(kLeft, layout_.top, kLeft, floor, "\"black\"");
    Print((kLeft + right) / 2, floor + 38, "middle", Head(chart_.xName, x.unit));
    double const middle = (layout_.top + floor) / 2;
    Print(20, middle, "middle", Head(chart_.yName, y.unit),
          " transform=\"rotate(-90 20 " + Fixed(middle, 1) + ")\"");
  }

  void Polyline(std::string const& points, LineStyle const& style, bool isOutside) {
    if (points.find(' ') == std::string::npos) return;
    out_ += "<polyline points=\"" + points + "\" fill=\"none\" stroke=\"" + style.color + "\"";
    if (isOutside) {
      out_ += " stroke-width=\"1.2\" stroke-dasharray=\"1.5 3\"";
    } else {
      out_ += " stroke-width=\"2\"";
      if (*style.dashes != '\0') {
        out_ += std::string(" stroke-dasharray=\"") + style.dashes + "\"";
      }
    }
    out_ += "/>\n";
  }

  // One polyline per stretch of one kind; neighboring stretches share a vertex.
  void Line(std::size_t number) {
    ChartLine const& line = chart_.lines[number];
    LineStyle const style = StyleOf(number);
    if (line.isPoints) return Markers(line.vertices, style, false);
    std::string points;
    bool isOutside = false;
    auto const flush = [&] {
      Polyline(points, style, isOutside);
      points.clear();
    };
    for (auto const& vertex : line.vertices) {
      if (!Shown(vertex.y)) {
        flush();
        continue;
      }
      std::string const at = Fixed(AtX(vertex.x), 1) + "," + Fixed(AtY(Scaled(vertex.y)), 1);
      if (!points.empty() && vertex.extrapolated != isOutside) {
        if (isOutside) {  // the dots reach to the limit
          points += " " + at;
          flush();
        } else {
          std::string const last = points.substr(points.rfind(' ') + 1);
          flush();
          points = last;
        }
      }
      isOutside = vertex.extrapolated;
      points += (points.empty() ? "" : " ") + at;
    }
    flush();
    if (chart_.lines.size() > 1) Markers(Spread(line, number), style, false);
    Markers(line.marks, style, true);
  }

  void Markers(std::vector<ChartLine::Vertex> const& at, LineStyle const& style, bool isFilled) {
    for (auto const& vertex : at) {
      if (!Shown(vertex.y)) continue;
      out_ += Marker(style.shape, AtX(vertex.x), AtY(Scaled(vertex.y)), style.color, isFilled);
    }
  }

  // Vertices of the line at equal distances, those of each line at other places than those of the
  // line before it.
  std::vector<ChartLine::Vertex> Spread(ChartLine const& line, std::size_t number) const {
    constexpr std::size_t kShifts = 5;
    std::vector<ChartLine::Vertex> spread;
    double const shift = kMarkerDistance * static_cast<double>(number % kShifts) / kShifts;
    double next = kLeft + kMarkerDistance / 3 + shift;
    for (auto const& vertex : line.vertices) {
      if (AtX(vertex.x) < next) continue;
      if (!vertex.extrapolated) spread.push_back(vertex);
      while (next <= AtX(vertex.x)) next += kMarkerDistance;
    }
    return spread;
  }

  void Legend(std::size_t number) {
    ChartLine const& line = chart_.lines[number];
    LineStyle const style = StyleOf(number);
    std::size_t const row = number / layout_.legendColumns;
    std::size_t const column = number % layout_.legendColumns;
    double const x = kLeft + static_cast<double>(column) * layout_.legendColumn;
    double const y = layout_.floor + kAxis + 12 + kLegendLine * static_cast<double>(row);
    if (!line.isPoints) {
      std::string paint = std::string("\"") + style.color + "\" stroke-width=\"2\"";
      if (*style.dashes != '\0') paint += std::string(" stroke-dasharray=\"") + style.dashes + "\"";
      Stroke(x, y - 4, x + kLegendSample - 8, y - 4, paint);
    }
    if (chart_.lines.size() > 1 || line.isPoints) {
      out_ += Marker(style.shape, x + (kLegendSample - 8) / 2, y - 4, style.color, false);
    }
    Print(x + kLegendSample, y, "start", line.label);
  }

  Chart const& chart_;
  Layout layout_;
  AxisRange x_;
  AxisRange y_;
  std::string out_;
};

}  // namespace

std::string ToSvg(Chart const& chart) { return Plotter(chart).Draw(); }

}  // namespace zel::desk
