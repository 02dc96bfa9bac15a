#include "output/chart.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zelhost {
namespace {

constexpr double kWidth = 800;
constexpr double kHeight = 500;  // without warnings
constexpr double kLeft = 90;
constexpr double kRight = 20;
constexpr double kTitle = 40;
constexpr double kWarningLine = 16;
constexpr std::size_t kWarningWidth = 110;  // characters
constexpr double kBottom = 60;
constexpr double kTick = 5;
constexpr int kTicksX = 8;
constexpr int kTicksY = 7;
// Distinguishable also for people who do not see all colors.
constexpr char const* kColours[] = {"#0072b2", "#d55e00", "#009e73", "#cc79a7",
                                    "#e69f00", "#56b4e9", "#000000"};

std::string Escaped(std::string const& text) {
  std::string out;
  for (char const c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      default: out += c;
    }
  }
  return out;
}

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

struct Range {
  double low = std::numeric_limits<double>::infinity();
  double high = -std::numeric_limits<double>::infinity();

  void Take(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
  // Never empty, so that a constant can be drawn.
  void Widen() {
    if (!(low <= high)) *this = {0.0, 1.0};
    if (low == high) {
      double const margin = low == 0.0 ? 1.0 : std::abs(low) / 10;
      low -= margin;
      high += margin;
    }
  }
};

// Round values on a logarithmic axis, whose ends are decimal logarithms: powers of ten, on a
// shorter axis also 2 and 5 times each, on a very short one every digit.
std::vector<double> LogTicks(double low, double high, int count) {
  static constexpr double kAll[] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  static constexpr double kFew[] = {1, 2, 5};
  double const decades = high - low;
  int const skip = std::max(1, static_cast<int>(std::ceil(decades / count)));
  std::vector<double> ticks;
  auto const take = [&](double power, double factor) {
    double const value = factor * std::pow(10.0, power);
    if (std::log10(value) >= low && std::log10(value) <= high) ticks.push_back(value);
  };
  for (double power = std::floor(low); power <= high; power += 1.0) {
    if (decades > 3) {
      if (std::fmod(power, skip) == 0.0) take(power, 1);
    } else {
      for (double const factor : kAll) {
        bool const isFew = std::find(std::begin(kFew), std::end(kFew), factor) != std::end(kFew);
        if (decades < 1 || isFew) take(power, factor);
      }
    }
  }
  return ticks.size() < 2 ? std::vector<double>{std::pow(10.0, low), std::pow(10.0, high)} : ticks;
}

class Plotter {
 public:
  explicit Plotter(Chart const& chart) : chart_(chart) {
    for (std::string const& warning : chart.warnings) {
      for (std::string& line : LinesOf(warning)) warnings_.push_back(std::move(line));
    }
    top_ = kTitle + kWarningLine * static_cast<double>(warnings_.size());
    height_ = kHeight - kTitle + top_;
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
    out_ = fmt::format(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 {0} {1}\" width=\"{0}\" "
        "height=\"{1}\" font-family=\"sans-serif\" font-size=\"12\">\n"
        "<rect width=\"{0}\" height=\"{1}\" fill=\"white\"/>\n",
        kWidth, height_);
    Print(kWidth / 2, 24, "middle", chart_.title, " font-size=\"16\"");
    for (std::size_t i = 0; i < warnings_.size(); ++i) {
      double const y = kTitle + kWarningLine * static_cast<double>(i);
      Print(kWidth / 2, y, "middle", warnings_[i], " fill=\"#b00000\"");
    }
    Axes();
    for (std::size_t i = 0; i < chart_.lines.size(); ++i) Line(i);
    out_ += "</svg>\n";
    return out_;
  }

 private:
  double Scaled(double y) const { return chart_.logarithmic ? std::log10(y) : y; }
  bool Shown(double y) const { return std::isfinite(y) && (!chart_.logarithmic || y > 0.0); }
  double AtX(double x) const {
    return kLeft + (x - x_.low) / (x_.high - x_.low) * (kWidth - kLeft - kRight);
  }
  double AtY(double scaled) const {
    return height_ - kBottom - (scaled - y_.low) / (y_.high - y_.low) * (height_ - top_ - kBottom);
  }

  void Print(double x, double y, char const* anchor, std::string const& text,
             std::string const& more = "") {
    out_ += fmt::format("<text x=\"{:.1f}\" y=\"{:.1f}\" text-anchor=\"{}\"{}>{}</text>\n", x, y,
                        anchor, more, Escaped(text));
  }
  void Stroke(double x1, double y1, double x2, double y2, char const* colour) {
    out_ += fmt::format(
        "<line x1=\"{:.1f}\" y1=\"{:.1f}\" x2=\"{:.1f}\" y2=\"{:.1f}\" stroke=\"{}\"/>\n", x1, y1,
        x2, y2, colour);
  }

  void Axes() {
    double const floor = height_ - kBottom;
    for (double const tick : Ticks(x_.low, x_.high, kTicksX)) {
      Stroke(AtX(tick), top_, AtX(tick), floor, "#e0e0e0");
      Stroke(AtX(tick), floor, AtX(tick), floor + kTick, "black");
      Print(AtX(tick), floor + 18, "middle", fmt::format("{:g}", tick));
    }
    bool const log = chart_.logarithmic;
    for (double const value :
         log ? LogTicks(y_.low, y_.high, kTicksY) : Ticks(y_.low, y_.high, kTicksY)) {
      double const at = AtY(Scaled(value));
      Stroke(kLeft, at, kWidth - kRight, at, "#e0e0e0");
      Stroke(kLeft - kTick, at, kLeft, at, "black");
      Print(kLeft - 8, at + 4, "end", fmt::format("{:.4g}", value));
    }
    Stroke(kLeft, floor, kWidth - kRight, floor, "black");
    Stroke(kLeft, top_, kLeft, floor, "black");
    Print((kLeft + kWidth - kRight) / 2, height_ - 15, "middle", chart_.xLabel);
    Print(18, (top_ + floor) / 2, "middle", chart_.yLabel,
          fmt::format(" transform=\"rotate(-90 18 {:.1f})\"", (top_ + floor) / 2));
  }

  // One polyline per stretch of one kind; neighboring stretches share a vertex.
  void Line(std::size_t number) {
    ChartLine const& line = chart_.lines[number];
    char const* const colour = kColours[number % std::size(kColours)];
    std::string points;
    bool dashed = false;
    auto const flush = [&] {
      if (points.find(' ') != std::string::npos) {
        out_ += fmt::format(
            "<polyline points=\"{}\" fill=\"none\" stroke=\"{}\" stroke-width=\"2\"{}/>\n", points,
            colour, dashed ? " stroke-dasharray=\"6 4\"" : "");
      }
      points.clear();
    };
    for (auto const& vertex : line.vertices) {
      if (!Shown(vertex.y)) {
        flush();
        continue;
      }
      std::string const at = fmt::format("{:.1f},{:.1f}", AtX(vertex.x), AtY(Scaled(vertex.y)));
      if (!points.empty() && vertex.extrapolated != dashed) {
        if (dashed) {  // the dashes reach to the limit
          points += " " + at;
          flush();
        } else {
          std::string const last = points.substr(points.rfind(' ') + 1);
          flush();
          points = last;
        }
      }
      dashed = vertex.extrapolated;
      points += (points.empty() ? "" : " ") + at;
    }
    flush();
    for (auto const& mark : line.marks) {
      if (!Shown(mark.y)) continue;
      out_ += fmt::format("<circle cx=\"{:.1f}\" cy=\"{:.1f}\" r=\"4\" fill=\"{}\"/>\n",
                          AtX(mark.x), AtY(Scaled(mark.y)), colour);
    }
    double const y = top_ + 14 + 18 * static_cast<double>(number);
    Stroke(kLeft + 12, y - 4, kLeft + 36, y - 4, colour);
    Print(kLeft + 42, y, "start", line.label);
  }

  Chart const& chart_;
  std::vector<std::string> warnings_;
  double top_ = kTitle;  // of the plot area
  double height_ = kHeight;
  Range x_;
  Range y_;
  std::string out_;
};

}  // namespace

std::vector<double> Ticks(double low, double high, int count) {
  double const raw = (high - low) / count;
  double const power = std::pow(10.0, std::floor(std::log10(raw)));
  double step = 10 * power;
  for (double const factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= raw) {
      step = factor * power;
      break;
    }
  }
  std::vector<double> ticks;
  // Multiples of the step, so that rounding does not add up and 0 is 0.
  for (double n = std::ceil(low / step); n * step <= high && ticks.size() < 100; n += 1.0) {
    ticks.push_back(n * step + 0.0);  // no negative zero
  }
  return ticks;
}

std::string ToSvg(Chart const& chart) { return Plotter(chart).Draw(); }

}  // namespace zelhost
