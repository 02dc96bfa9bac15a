#include "verify/judge/kin.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "verify/judge/kin_forecast.h"
#include "verify/judge/kin_rows.h"
#include "verify/judge/robust_regression.h"

namespace zel {
namespace {

// The deviation of a value that is not positive, if kin have positive ones.
constexpr double kFar = 20.0;
// An agreement within a wider tolerance than this does not exclude a small mistake.
constexpr double kWide = 0.15;
// A value that another record of the substance confirms deviates only a little: the substance is
// then more likely to be unlike its kin than both to be wrong. It confirms the value if it is
// within this share of the tolerance, or of the difference from the forecast.
constexpr double kConfirmation = 0.3;
constexpr double kMostConfirmed = 1.2;
// The same share as for constants, but of the worst of several comparisons.
constexpr double kShare = 0.95;
constexpr double kMargin = 1.25;

using Tensions = std::vector<std::vector<Tension>>;

double Undefined() { return gen_GetUndefDouble(); }

// The median of the usable values, NaN if no value is usable, undefined without values.
double MedianOfUsable(std::vector<double> values) {
  std::erase_if(values, [](double value) { return !IsDefined(value); });
  if (values.empty()) return Undefined();
  std::erase_if(values, [](double value) { return std::isnan(value); });
  return values.empty() ? std::nan("") : MedianOf(std::move(values));
}

// NaN for a value that cannot be right.
double LogOf(double value) {
  return !IsDefined(value) ? value : value > 0.0 ? std::log(value) : std::nan("");
}

// The difference between a number and the foretold one in tolerances. `all` are the numbers of the
// substance's records, this one among them.
double DeviationOf(double number, Forecast const& forecast, std::span<double const> all) {
  if (std::isnan(number)) return kFar;
  double const off = std::abs(number - forecast.value);
  double const near = kConfirmation * std::max(off, forecast.tolerance);
  auto const confirming = std::count_if(all.begin(), all.end(), [&](double other) {
    return IsDefined(other) && std::abs(other - number) <= near;
  });
  double const deviation = off / forecast.tolerance;
  return confirming > 1 ? std::min(deviation, kMostConfirmed) : deviation;
}

class KinComparisons {
 public:
  KinComparisons(std::vector<Substance> const& substances, Tensions& tensions)
      : substances_(substances), tensions_(tensions), kin_(substances) {}

  void Constant(KinConstant const& row);
  void Curve(KinCurve const& row);

 private:
  // A value of a record's curve, what kin foretell for it, and the difference in tolerances.
  struct Point {
    double deviation = -1.0;  // unknown
    double temperature = 0.0, value = 0.0, expected = 0.0;
    double tolerance = kFar;  // the narrowest: of the logarithm, or relative
    std::uint8_t set = 0;

    bool IsKnown() const { return deviation >= 0.0; }
  };
  struct CurveRecord {
    std::uint32_t substance;
    Record const* record;
    std::vector<double> values;  // at the points of the grid
    Point value;                 // the worst
    Point change;                // the worst
  };

  void CompareValues(KinCurve const& row, std::vector<CurveRecord>& records) const;
  void CompareChanges(KinCurve const& row, std::vector<CurveRecord>& records) const;
  // The temperature nearest to 298.15 K at which the substance is a liquid.
  double LiquidNearRoom(std::uint32_t substance) const {
    double const melting = kin_.Median(substance, propertyNMP);
    double const boiling = kin_.Median(substance, propertyNBP);
    double const cooled = IsDefined(boiling) ? std::min(298.15, boiling) : 298.15;
    return IsDefined(melting) ? std::max(cooled, melting) : cooled;
  }
  std::vector<CurveRecord> RecordsWith(KinCurve const& row) const;
  double TemperatureOf(KinGrid const& grid, std::uint32_t substance, std::size_t point) const;
  // Compares what `transform` makes of the values of each record.
  template <typename Transform, typename Expect>
  void Compare(KinCurve const& row, std::vector<CurveRecord>& records, std::size_t point,
               Point CurveRecord::*worst, Transform const& transform, Expect const& expect) const;
  // Divides the worst deviations by one number, so that most of them are small again.
  static void Widen(std::vector<CurveRecord>& records, Point CurveRecord::*worst);
  void Tell(KinCurve const& row, JudgeRule const& rule, CurveRecord const& record,
            Point const& point);
  void Tell(std::uint32_t substance, Record const& record, JudgeRule const& rule, Datum datum,
            FeatureSet const& set, std::uint32_t also, Point const& point, bool isWide);

  std::vector<Substance> const& substances_;
  Tensions& tensions_;
  KinFeatures kin_;
};

void KinComparisons::Tell(std::uint32_t substance, Record const& record, JudgeRule const& rule,
                          Datum datum, FeatureSet const& set, std::uint32_t also,
                          Point const& point, bool isWide) {
  Tension tension;
  tension.rule = &rule;
  tension.about = {&record, datum};
  bool const isMinor = isWide && point.deviation <= 1.0;
  tension.parts.push_back({tension.about, isMinor ? Stake::kMinor : Stake::kFull});
  auto const add = [&](std::uint32_t constant) {
    Record const* const from = substances_[substance].MedianRecord(constant);
    Claim const claim{from, Datum::Constant(constant)};
    bool const isNew = std::none_of(tension.parts.begin(), tension.parts.end(),
                                    [&](Tension::Part const& part) { return part.claim == claim; });
    if (from != nullptr && isNew) tension.parts.push_back({claim, Stake::kMinor});
  };
  for (std::uint32_t const constant : set.Data()) add(constant);
  if (also != FeatureSet::kNone) add(also);
  tension.value = point.value;
  tension.expected = point.expected;
  tension.unit = datum.Unit();
  if (datum.IsCurve()) tension.temperature = point.temperature;
  tension.deviation = point.deviation;
  tension.from = "a regression over kindred substances on " + set.Text();
  tensions_[substance].push_back(std::move(tension));
}

void KinComparisons::Constant(KinConstant const& row) {
  bool const isLog = row.scale == KinScale::kLog;
  std::vector<double> observed(substances_.size(), Undefined());
  // The number that is subtracted.
  auto const lessOf = [&](std::uint32_t i, Record const& record) {
    if (row.scale == KinScale::kFromRoom) return LiquidNearRoom(i);
    if (row.less == FeatureSet::kNone) return 0.0;
    double const own = record.Constant(row.less);
    return IsDefined(own) ? own : substances_[i].Median(row.less);
  };
  auto const numberOf = [&](std::uint32_t i, Record const& record) {
    double const value = record.Constant(row.constant);
    if (isLog || !IsDefined(value)) return LogOf(value);
    double const less = lessOf(i, record);
    return IsDefined(less) ? value - less : Undefined();
  };
  for (std::uint32_t i = 0; i < substances_.size(); ++i) {
    std::vector<double> values;
    for (Record const* record : substances_[i].Records()) values.push_back(numberOf(i, *record));
    observed[i] = MedianOfUsable(std::move(values));
  }
  auto const forecasts = ForecastOf(kin_, row.sets, observed, row.floor);
  for (std::uint32_t i = 0; i < substances_.size(); ++i) {
    Forecast const& forecast = forecasts[i];
    if (!forecast.IsKnown()) continue;
    std::vector<double> numbers;
    for (Record const* record : substances_[i].Records()) numbers.push_back(numberOf(i, *record));
    for (std::size_t k = 0; k < numbers.size(); ++k) {
      Record const* const record = substances_[i].Records()[k];
      double const number = numbers[k];
      double const value = record->Constant(row.constant);
      if (!IsDefined(number)) continue;
      Point point;
      point.value = value;
      point.expected = isLog ? std::exp(forecast.value) : forecast.value + lessOf(i, *record);
      point.deviation = DeviationOf(number, forecast, numbers);
      point.tolerance =
          isLog ? forecast.tolerance : forecast.tolerance / std::max(std::abs(value), 1e-9);
      Tell(i, *record, row.rule, Datum::Constant(row.constant), row.sets[forecast.set], row.less,
           point, point.tolerance > kWide);
    }
  }
}

double KinComparisons::TemperatureOf(KinGrid const& grid, std::uint32_t substance,
                                     std::size_t point) const {
  if (grid.scale == FeatureSet::kNone) return grid.points[point];
  double const scale = kin_.Median(substance, grid.scale);
  return IsDefined(scale) ? scale * grid.points[point] : Undefined();
}

std::vector<KinComparisons::CurveRecord> KinComparisons::RecordsWith(KinCurve const& row) const {
  std::vector<CurveRecord> records;
  KinGrid const& grid = *row.grid;
  for (std::uint32_t i = 0; i < substances_.size(); ++i) {
    for (Record const* const record : substances_[i].Records()) {
      if (!record->HasCurve(row.curve)) continue;
      CurveRecord one{i, record, {}, {}, {}};
      bool const isBounded = record->RangeOf(row.curve).IsBounded();
      for (std::size_t k = 0; k < grid.points.size(); ++k) {
        double const kelvin = TemperatureOf(grid, i, k);
        bool const isCore = k >= grid.firstCore && k <= grid.lastCore;
        one.values.push_back(isBounded ? record->At(row.curve, kelvin)
                             : isCore  ? record->Extended(row.curve, kelvin)
                                       : Undefined());
      }
      records.push_back(std::move(one));
    }
  }
  return records;
}

// `transform` returns an undefined number for a missing value, and NaN for a value that cannot be
// right. `expect` makes a value from a number that is foretold.
template <typename Transform, typename Expect>
void KinComparisons::Compare(KinCurve const& row, std::vector<CurveRecord>& records,
                             std::size_t point, Point CurveRecord::*worst,
                             Transform const& transform, Expect const& expect) const {
  std::vector<double> observed(substances_.size(), Undefined());
  std::vector<double> numbers(records.size());
  std::transform(records.begin(), records.end(), numbers.begin(),
                 [&](CurveRecord const& one) { return transform(one.values); });
  // The numbers of the records of a substance, which are next to each other.
  auto const ofSubstance = [&](std::size_t first) {
    std::size_t end = first;
    while (end < records.size() && records[end].substance == records[first].substance) ++end;
    return std::span<double const>(numbers).subspan(first, end - first);
  };
  for (std::size_t k = 0; k < records.size(); k += ofSubstance(k).size()) {
    auto const own = ofSubstance(k);
    observed[records[k].substance] = MedianOfUsable({own.begin(), own.end()});
  }
  auto const forecasts = ForecastOf(kin_, row.sets, observed, row.floor);
  std::span<double const> own;
  for (std::size_t k = 0; k < records.size(); ++k) {
    CurveRecord& one = records[k];
    if (k == 0 || records[k - 1].substance != one.substance) own = ofSubstance(k);
    Forecast const& forecast = forecasts[one.substance];
    if (!forecast.IsKnown() || !IsDefined(numbers[k])) continue;
    double const deviation = DeviationOf(numbers[k], forecast, own);
    Point& known = one.*worst;
    double const narrowest = std::min(known.tolerance, forecast.tolerance);
    if (deviation > known.deviation) {
      known = {deviation,          TemperatureOf(*row.grid, one.substance, point),
               one.values[point],  expect(one.values, forecast.value),
               forecast.tolerance, forecast.set};
    }
    known.tolerance = narrowest;
  }
}

void KinComparisons::Widen(std::vector<CurveRecord>& records, Point CurveRecord::*worst) {
  std::vector<double> deviations;
  for (CurveRecord const& one : records) {
    if ((one.*worst).IsKnown()) deviations.push_back((one.*worst).deviation);
  }
  if (deviations.empty()) return;
  double const widening = std::max(1.0, kMargin * QuantileOf(std::move(deviations), kShare));
  for (CurveRecord& one : records) {
    (one.*worst).deviation /= widening;
    (one.*worst).tolerance *= widening;
  }
}

void KinComparisons::Tell(KinCurve const& row, JudgeRule const& rule, CurveRecord const& record,
                          Point const& point) {
  bool const isWide = row.value != KinCurveValue::kPlain && point.tolerance > kWide;
  Tell(record.substance, *record.record, rule, Datum::Curve(row.curve), row.sets[point.set],
       row.grid->scale, point, isWide);
}

void KinComparisons::CompareValues(KinCurve const& row, std::vector<CurveRecord>& records) const {
  bool const isLog = row.value == KinCurveValue::kLog;
  for (std::size_t k = 0; k < row.grid->points.size(); ++k) {
    Compare(
        row, records, k, &CurveRecord::value,
        [=](auto const& values) { return isLog ? LogOf(values[k]) : values[k]; },
        [=](auto const&, double number) { return isLog ? std::exp(number) : number; });
  }
  Widen(records, &CurveRecord::value);
}

void KinComparisons::CompareChanges(KinCurve const& row, std::vector<CurveRecord>& records) const {
  bool const isRise = row.value == KinCurveValue::kRise;
  for (std::size_t k = 1; k < row.grid->points.size(); ++k) {
    Compare(
        row, records, k, &CurveRecord::change,
        [=](auto const& values) {
          double const from = values[k - 1], to = values[k];
          if (!IsDefined(from) || !IsDefined(to)) return Undefined();
          if (isRise) return LogOf(to - from);
          // Values that cannot be right are reported on their own.
          return from > 0.0 && to > 0.0 ? std::log(to / from) : Undefined();
        },
        [=](auto const& values, double number) {
          return isRise ? values[k - 1] + std::exp(number) : values[k - 1] * std::exp(number);
        });
  }
  Widen(records, &CurveRecord::change);
}

// Agreement of the values does not acquit a curve if the differences deviate, nor the reverse.
void KinComparisons::Curve(KinCurve const& row) {
  auto records = RecordsWith(row);
  if (row.value != KinCurveValue::kRise) CompareValues(row, records);
  if (row.value != KinCurveValue::kPlain) CompareChanges(row, records);
  JudgeRule const& changeRule = row.change.id != nullptr ? row.change : row.rule;
  for (CurveRecord const& one : records) {
    if (one.value.deviation > 1.0) Tell(row, row.rule, one, one.value);
    if (one.change.deviation > 1.0) Tell(row, changeRule, one, one.change);
    if (one.value.deviation > 1.0 || one.change.deviation > 1.0) continue;
    if (one.value.IsKnown()) {
      Tell(row, row.rule, one, one.value);
    } else if (one.change.IsKnown()) {
      Tell(row, changeRule, one, one.change);
    }
  }
}

}  // namespace

std::vector<JudgeRule const*> KinRules() {
  std::vector<JudgeRule const*> rules;
  for (KinConstant const& row : KinConstants()) rules.push_back(&row.rule);
  for (KinCurve const& row : KinCurves()) {
    rules.push_back(&row.rule);
    if (row.change.id != nullptr) rules.push_back(&row.change);
  }
  return rules;
}

void AddKinComparisons(std::vector<Substance> const& substances,
                       std::vector<std::vector<Tension>>& tensions) {
  KinComparisons comparisons(substances, tensions);
  for (KinConstant const& row : KinConstants()) comparisons.Constant(row);
  for (KinCurve const& row : KinCurves()) comparisons.Curve(row);
}

}  // namespace zel
