// What is foretold from similar substances, and from which features.
#pragma once

#include <cstdint>
#include <span>

#include "verify/judge/kin_features.h"
#include "verify/judge/tension.h"

namespace zel {

enum class KinScale : std::uint8_t {
  kLog,
  kPlain,
  kFromRoom,  // K, the difference from the temperature nearest 298.15 K where there is a liquid
};

struct KinConstant {
  JudgeRule rule;
  std::uint32_t constant;
  KinScale scale;
  double floor;  // of the tolerance, in the scale
  std::span<FeatureSet const> sets;
  // A constant that is subtracted first: the substance's median if the record does not have it.
  std::uint32_t less = FeatureSet::kNone;
};

// Where curves are compared.
struct KinGrid {
  std::span<double const> points;
  // The points are multiples of this constant of the substance, or in K without one.
  std::uint32_t scale;
  // The points at which a curve without a range is evaluated.
  std::size_t firstCore, lastCore;
};

enum class KinCurveValue : std::uint8_t {
  kLog,    // its logarithm, and by themselves the differences of neighbouring points
  kPlain,  // itself
  kRise,   // the logarithm of the differences of neighbouring points, which are positive
};

struct KinCurve {
  JudgeRule rule;
  JudgeRule change;  // of the differences; without an ID if they are not compared by themselves
  std::uint32_t curve;
  KinCurveValue value;
  double floor;
  KinGrid const* grid;
  std::span<FeatureSet const> sets;
};

std::span<KinConstant const> KinConstants();
std::span<KinCurve const> KinCurves();

}  // namespace zel
