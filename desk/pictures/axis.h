// The axes of a chart: their ranges, ticks and labels.
#pragma once

#include <limits>
#include <string>
#include <vector>

namespace zel::desk {

// A range of finite values that grows with each value taken.
struct AxisRange {
  double low = std::numeric_limits<double>::infinity();
  double high = -std::numeric_limits<double>::infinity();

  void Take(double value);
  // Makes it wide enough to be drawn, also if it holds one value or none.
  void Widen();
};

struct Tick {
  double value;
  std::string label;
};

// The ticks of an axis, and the unit that their labels have: "40" and "50" with "MJ/kg-mol" for
// 40000 and 50000 kJ/kg-mol.
struct Ticks {
  std::vector<Tick> ticks;
  std::string unit;
  double scale = 1.0;  // labels are values divided by it
};

// About `count` round numbers between low and high, which must be finite, low below high. Labels
// have the digits that make them differ. A unit that takes a decimal prefix gets one, unless it is
// `isFixed`; others, and pure numbers, are multiplied by a power of ten that precedes the unit.
Ticks LinearTicks(double low, double high, int count, std::string const& unit, bool isFixed);
// For an axis between 10^low and 10^high: powers of ten; on a shorter axis also 2 and 5 times each.
// Less than about two thirds of a decade is divided like a linear axis. Labels are plain numbers
// from 0.001 to below 10000, otherwise powers such as 10⁶ and 2·10⁶.
Ticks LogTicks(double low, double high, int count, std::string const& unit, bool isFixed);

}  // namespace zel::desk
