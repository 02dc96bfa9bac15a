// One correlation at many temperatures: the arrays, and the elements that are evaluated one by one.
#pragma once

#include <cstdint>
#include <optional>

#include "purecomp/curve.h"
#include "zelaccess/Batch.h"

namespace zel {

// An array with a stride.
template <typename T>
struct Strided {
  T* first;
  std::int64_t stride;

  T& operator[](std::int64_t i) const noexcept { return first[i * stride]; }
};

// What the elements of a batch returned, taken together.
class BatchResult {
 public:
  void Add(ZelStatus result) noexcept {
    failed_ = failed_ || result == kStatusFailed;
    extrapolated_ = extrapolated_ || result == kStatusNothingNew;
  }
  ZelStatus Total() const noexcept {
    if (failed_) return kStatusFailed;
    return extrapolated_ ? kStatusNothingNew : kStatusOk;
  }

 private:
  bool failed_ = false;
  bool extrapolated_ = false;
};

// True for a batch that can be evaluated.
constexpr bool IsSound(ZelBatch const& batch) noexcept {
  bool const hasOutput = batch.values != nullptr || batch.derivatives != nullptr ||
                         batch.weights != nullptr || batch.statuses != nullptr;
  return batch.count >= 0 && hasOutput && (batch.count == 0 || batch.temperatures != nullptr);
}

class BatchRun {
 public:
  // Both must outlive the run.
  BatchRun(Curve& curve, ZelBatch const& batch) noexcept;
  BatchRun(BatchRun const&) = delete;
  BatchRun& operator=(BatchRun const&) = delete;

  // Receives results that the host did not ask for.
  struct Unwanted {
    double value = 0.0;
    double derivative = 0.0;
    std::int32_t status = 0;
    ZelStatus result = 0;
  };

  // Evaluates an element by itself.
  void One(std::int64_t i) noexcept;
  ZelStatus Total() const noexcept { return result_.Total(); }
  Curve const& OwnCurve() const noexcept { return curve_; }
  std::int64_t Count() const noexcept { return batch_.count; }

  Strided<double const> temperatures;
  Strided<double> values;
  Strided<double> derivatives;
  Strided<std::int32_t> statuses;
  Strided<ZelStatus> results;

 private:
  // The value and the derivative of a form at a bound, where it has a value.
  struct Bound {
    bool isKnown = false;
    bool isUsable = false;
    double value = 0.0;
    double derivative = 0.0;
  };
  ZelStatus Evaluate(double temperature, double& value, double& derivative, double* weights,
                     std::int32_t& status) noexcept;
  Bound const& BoundAt(std::int32_t status) noexcept;

  Curve& curve_;
  ZelBatch const& batch_;
  BatchResult result_;
  Bound above_;
  Bound below_;
  Unwanted unwanted_;
};

// Evaluates a batch bit for bit as single evaluations do.
void RunExact(BatchRun& run, ZelBatch const& batch);
// Evaluates a batch with vector instructions. False, with nothing done, where it has no loop for
// the form or the order.
bool RunVector(BatchRun& run, ZelBatch const& batch);

}  // namespace zel
