// A component to complete, and the results.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frame/ascii.h"
#include "purecomp/component.h"
#include "purecomp/fill_in.h"
#include "zelaccess/Types.h"

namespace zel::test {

inline constexpr double kUndefined = gen_GetUndefDouble();

class FillInTest : public testing::Test {
 protected:
  void Set(std::size_t index, double value, std::string_view source = "") {
    c.fixed[index] = value;
    c.sources.Set(c.fixedSources[index], source);
  }
  void SetFormula(std::string_view text) { CopyText(text, c.formula.data(), c.formula.size()); }
  // A form with these coefficients, in internal units.
  void SetCorrelation(std::size_t index, int equation, std::vector<double> const& coefficients,
                      double tMin = kUndefined, double tMax = kUndefined) {
    CorrelationRecord& record = c.correlations[index];
    record.present = true;
    record.equation = equation;
    record.coefficientCount = static_cast<std::int32_t>(coefficients.size());
    record.propUnit = 0;
    record.tMin = tMin;
    record.tMax = tMax;
    for (std::size_t i = 0; i < coefficients.size(); ++i) {
      record.coefficients[i] = coefficients[i];
    }
  }
  // The value of `completed` at an index after the fill-in.
  double Completed(std::size_t index) {
    CompleteComponent(c);
    return c.completed[index];
  }
  std::string Label(std::size_t index) const { return c.sources.At(c.fixedSources[index]); }
  void Clear() { c.Clear(); }

  std::unique_ptr<Component> const own_ = std::make_unique<Component>();
  Component& c = *own_;
};

inline constexpr std::size_t kVaporPressureAt = 0;
inline constexpr std::size_t kLatentHeatAt = 3;

}  // namespace zel::test
