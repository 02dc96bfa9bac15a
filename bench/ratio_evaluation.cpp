// Evaluation as hosts do it: batches beside numpy and beside a loop of calls, and single calls over
// all published correlations beside a switch that is written by hand. Public headers only.
#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/hand_formulas.h"
#include "bench/published_components.h"
#include "bench/ratio_cases.h"
#include "zelaccess/Batch.h"
#include "zelaccess/ZelAccess.h"

namespace zel::bench {
namespace {

constexpr std::size_t kCount = 1'000'000;
constexpr double kTc = 512.5, kPc = 8084.0, kFirst = 200.0, kLast = 500.0;

struct FormCase {
  std::int32_t equation;
  std::uint32_t index;
  std::vector<double> c;
};
FormCase const kForms[] = {
    {1, correlationLiquidCp, {75.1, -0.215, 1.2e-3, -1.1e-6, 3.5e-10}},
    {15, correlationLatentHeat, {52390.0, 0.3682, 0.1, -0.05}},
    {16, correlationLiquidDensity, {2.288, 0.2685, 512.5, 0.2453}},
    {19, correlationVaporViscosity, {3.0663e-4, 0.69655, 205.0, 100.0}},
    {20, correlationVaporPressure, {82.718, -6904.5, -8.8622, 7.4664e-6, 2.0}},
    {21, correlationVaporPressure, {16.57, -3626.55, -34.29}},
    {47, correlationVaporPressure, {-8.54796, 0.76982, -3.1085, 1.54481}},
    {48, correlationVaporPressure, {-8.54796, 0.76982, -3.1085, 1.54481}},
};

// A correlation of a component, and arrays for a million temperatures.
class Curve {
 public:
  explicit Curve(FormCase const& form) : form_(form) {
    for (std::size_t i = 0; i < kCount; ++i) {
      temperatures_[i] = kFirst + (kLast - kFirst) / kCount * static_cast<double>(i);
    }
    component_->SetProperty(propertyTC, kTc);
    component_->SetProperty(propertyPC, kPc);
    component_->SetCorrelation(form.index, form.equation, 10, 0, 1, 1,
                               static_cast<std::int32_t>(form.c.size()), 175.0, 512.0,
                               form.c.data());
    if (TakeCorrelation(component_.operator->(), form.index, taken_) != kStatusOk) {
      throw std::runtime_error("no correlation");
    }
    Calls();
    valueSum_ = Sum(values_);
    slopeSum_ = Sum(slopes_);
  }

  std::uint64_t Calls() {
    for (std::size_t i = 0; i < kCount; ++i) {
      component_->EvaluateCorrelation(form_.index, temperatures_[i], 1, &values_[i], &slopes_[i],
                                      nullptr, nullptr);
    }
    return 0;
  }
  std::uint64_t Batch(zelBatchModes mode) {
    ZelBatch batch;
    batch.count = kCount;
    batch.mode = mode;
    batch.temperatures = temperatures_.data();
    batch.values = values_.data();
    batch.derivatives = slopes_.data();
    return EvaluateBatch(taken_, batch) == kStatusOk ? 0 : 1;
  }
  // 0 when the results are what the loop of calls gave.
  std::uint64_t Check() const { return Agree(Sum(values_), Sum(slopes_)); }
  std::uint64_t Agree(double valueSum, double slopeSum) const {
    constexpr double kRelative = 1e-9;
    bool const agree = std::fabs(valueSum - valueSum_) <= kRelative * std::fabs(valueSum_) &&
                       std::fabs(slopeSum - slopeSum_) <= kRelative * std::fabs(slopeSum_);
    return agree ? 0 : 1;
  }
  FormCase const& Form() const { return form_; }

 private:
  static double Sum(std::vector<double> const& all) {
    double sum = 0.0;
    for (double const x : all) sum += x;
    return sum;
  }

  FormCase const& form_;
  BankFace<IZelPureComp> component_{"PURECOMP", IID_IZelPureComp};
  ZelCorrelation taken_;
  std::vector<double> temperatures_ = std::vector<double>(kCount);
  std::vector<double> values_ = temperatures_;
  std::vector<double> slopes_ = temperatures_;
  double valueSum_ = 0.0;
  double slopeSum_ = 0.0;
};

Side NumpyOf(Curve const& curve) {
  return [&curve](int) {
    FormCase const& form = curve.Form();
    char text[120];
    std::snprintf(text, sizeof text, " %d %.17g %.17g %.17g %.17g", form.equation, kTc, kPc, kFirst,
                  kLast);
    std::string command = std::string(ZEL_NUMPY) + text;
    for (double const c : form.c) {
      std::snprintf(text, sizeof text, " %.17g", c);
      command += text;
    }
    std::FILE* const pipe = ::popen(command.c_str(), "r");
    double time = 0.0, values = 0.0, slopes = 0.0;
    int const read = pipe ? std::fscanf(pipe, "%lf %lf %lf", &time, &values, &slopes) : 0;
    if (pipe != nullptr) ::pclose(pipe);
    if (read != 3) throw std::runtime_error("numpy does not run: " + command);
    return Timing{time, curve.Agree(values, slopes)};
  };
}

template <typename Run>
Side SideOf(Curve& curve, Run const& run) {
  return [&curve, run](int) {
    Timing timing = TimeInMemory(kCount, run);
    timing.check += curve.Check();
    return timing;
  };
}

// --- single calls over all published correlations
// -------------------------------------------------

struct Single {
  IZelPureComp* component;
  std::uint32_t index;
  double temperature;
};
struct Singles {
  std::vector<Single> calls;
  std::vector<HandRecord> records;
};

// Those inside a range that is known, in its middle, whose values no limit cuts.
void AddSingles(IZelPureComp& component, Singles& all) {
  double weight = 0.0;
  component.GetProperty(propertyMW, &weight);
  for (std::uint32_t index = 0; index < 18; ++index) {
    HandRecord r{};
    std::int32_t tempUnit = 0, propUnit = 0, logBasis = 0, basis = 0;
    if (component.GetCorrelation(index, &r.equation, &tempUnit, &propUnit, &r.factor, &logBasis,
                                 &basis, &r.count, &r.tMin, &r.tMax,
                                 r.c.data()) == kStatusNothingNew ||
        r.count < 1 || gen_IsUndefDouble(r.tMin) || gen_IsUndefDouble(r.tMax)) {
      continue;
    }
    bool const isDensity = index == correlationLiquidDensity || index == correlationSolidDensity;
    if (basis == 2) r.factor *= isDensity ? 1.0 / weight : weight;
    r.b = logBasis == 2 ? std::log(10.0) : 1.0;
    component.GetProperty(propertyTC, &r.Tc);
    component.GetProperty(propertyPC, &r.Pc);
    double const T = r.tMin + 0.4 * (r.tMax - r.tMin);
    double value = 0.0, slope = 0.0;
    component.EvaluateCorrelation(index, T, 1, &value, &slope, nullptr, nullptr);
    Point const hand = ByHand(r, T);
    if (!(std::fabs(value - hand.value) <= 1e-9 * std::fabs(value))) continue;
    all.calls.push_back({&component, index, T});
    all.records.push_back(r);
  }
}

std::uint64_t CheckOf(double sum) { return static_cast<std::uint64_t>(std::llround(sum * 1e-6)); }

void CompareSingles(RatioTable& table, std::filesystem::path const& folder) {
  std::size_t const before = ::mallinfo2().uordblks;
  auto const components = PublishedComponents(folder);
  std::size_t const bytes = (::mallinfo2().uordblks - before) / components.size();
  Singles all;
  for (auto const& component : components) AddSingles(*component->operator->(), all);
  std::size_t const count = all.calls.size();
  auto const repeat = [](auto const& pass) {
    constexpr int kPasses = 20;
    double sum = 0.0;
    for (int i = 0; i < kPasses; ++i) sum += pass();
    return CheckOf(sum);
  };
  constexpr std::size_t kPasses = 20;
  Side const hand = [&](int) {
    return TimeInMemory(kPasses * count, [&] {
      return repeat([&] {
        double sum = 0.0;
        for (std::size_t i = 0; i < count; ++i) {
          Point const p = ByHand(all.records[i], all.calls[i].temperature);
          sum += p.value + p.slope;
        }
        return sum;
      });
    });
  };
  Side const calls = [&](int) {
    return TimeInMemory(kPasses * count, [&] {
      return repeat([&] {
        double sum = 0.0;
        for (Single const& call : all.calls) {
          double value = 0.0, slope = 0.0;
          std::int32_t status = 0;
          call.component->EvaluateCorrelation(call.index, call.temperature, 1, &value, &slope,
                                              nullptr, &status);
          sum += value + slope;
        }
        return sum;
      });
    });
  };
  table.Compare({"EvaluateCorrelation of " + std::to_string(count) + " published records",
                 "switch by hand", hand, calls, Target::Ratio(1.6)});
  std::printf("A component in memory takes %zu bytes, the mean of %zu.\n", bytes,
              components.size());
}

}  // namespace

void CompareEvaluations(RatioTable& table, std::filesystem::path const& folder) {
  for (FormCase const& form : kForms) {
    Curve curve(form);
    std::string const name = ", equation " + std::to_string(form.equation);
    table.Compare({"batch, vector" + name, "numpy", NumpyOf(curve),
                   SideOf(curve, [&] { return curve.Batch(batchVector); }), Target::Ratio(1.1)});
    table.Compare({"batch, exact" + name, "EvaluateCorrelation",
                   SideOf(curve, [&] { return curve.Calls(); }),
                   SideOf(curve, [&] { return curve.Batch(batchExact); }), Target::Ratio(0.6)});
  }
  CompareSingles(table, folder);
}

}  // namespace zel::bench
