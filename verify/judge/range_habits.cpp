#include "verify/judge/range_habits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <map>
#include <optional>
#include <string>

namespace zel {
namespace {

enum End : std::uint8_t { kBegin, kFinish };

// A habit is what all but one in fifty components of a bank follow.
constexpr std::size_t kFewest = 20;
constexpr double kShare = 0.98;
constexpr double kMargin = 1.25;
constexpr double kWidest = 0.02;  // of what is still a habit
constexpr double kCold = 50.0;    // K: below, differences are parts of this
constexpr double kFar = 100.0;    // tolerances, of a limit that is not a temperature

constexpr char kTolerance[] =
    "1.8 %, or 1.25 times what 98 of 100 other components of the bank do not exceed";
constexpr JudgeRule kRules[] = {
    {"range-begin",
     "a curve begins where it does in the other components of the bank: at NMP, NBP or TC, "
     "where another curve begins, or at one of a few temperatures",
     0.018, kTolerance},
    {"range-end",
     "a curve ends where it does in the other components of the bank: at NMP, NBP or TC, where "
     "another curve ends, or at one of a few temperatures",
     0.018, kTolerance}};
constexpr char const* kQuantities[] = {"the beginning of the range of ",
                                       "the end of the range of "};

// A temperature that a limit can be at.
struct Reference {
  double kelvin = gen_GetUndefDouble();
  Claim claim;  // the datum that it is from; without a record for a mere temperature
};

constexpr zelProperties kPoints[] = {propertyNMP, propertyNBP, propertyTC};
constexpr std::size_t kPointCount = std::size(kPoints);

struct Component {
  std::size_t substance;
  Record const* record;
  std::array<Reference, kPointCount> points;                // of the substance
  std::array<std::array<double, 2>, kJudgedCurves> limits;  // K; undefined without a limit
};
using Bank = std::vector<Component>;

// A limit of a curve, in K; undefined without a limit.
double LimitOf(Record const& record, std::uint32_t curve, End end) {
  if (!record.HasCurve(curve)) return gen_GetUndefDouble();
  KelvinRange const range = record.RangeOf(curve);
  double const stored = end == kBegin ? record.Curve(curve).tMin : record.Curve(curve).tMax;
  return !IsDefined(stored) ? stored : end == kBegin ? range.low : range.high;
}

Component ComponentOf(std::size_t place, Substance const& substance, Record const& record) {
  Component component{place, &record, {}, {}};
  for (std::size_t k = 0; k < kPointCount; ++k) {
    component.points[k] = {substance.Median(kPoints[k]),
                           {substance.MedianRecord(kPoints[k]), Datum::Constant(kPoints[k])}};
  }
  for (std::uint32_t i = 0; i < kJudgedCurves; ++i) {
    for (End const end : {kBegin, kFinish}) component.limits[i][end] = LimitOf(record, i, end);
  }
  return component;
}

// Banks by their order in the substances.
std::vector<Bank> BanksOf(std::vector<Substance> const& substances) {
  std::vector<Bank> banks;
  std::map<std::string, std::size_t> places;
  for (std::size_t i = 0; i < substances.size(); ++i) {
    for (Record const* const record : substances[i].Records()) {
      CheckedItem const& item = record->Item();
      auto const at = places.emplace(item.library + '\n' + item.bank.Text(), banks.size()).first;
      if (at->second == banks.size()) banks.emplace_back();
      banks[at->second].push_back(ComponentOf(i, substances[i], *record));
    }
  }
  return banks;
}

// The temperatures at which many curves of the kind begin or end.
std::vector<double> UsualTemperatures(Bank const& bank, std::uint32_t curve, End end) {
  constexpr double kPart = 0.02;
  constexpr std::size_t kLeast = 4;
  constexpr double kStep = 0.01;  // K
  std::map<double, std::size_t> counts;
  std::size_t all = 0;
  for (Component const& component : bank) {
    double const limit = component.limits[curve][end];
    if (!IsDefined(limit)) continue;
    ++counts[std::round(limit / kStep) * kStep];
    ++all;
  }
  auto const least = std::max(kLeast, static_cast<std::size_t>(kPart * static_cast<double>(all)));
  std::vector<double> usual;
  for (auto const& [kelvin, count] : counts) {
    if (count >= least) usual.push_back(kelvin);
  }
  return usual;
}

double Difference(double limit, double kelvin) {
  return std::abs(limit - kelvin) / std::max(std::abs(kelvin), kCold);
}

// Whether another library has the limit as well.
bool IsConfirmed(Component const& component, Substance const& substance, std::uint32_t curve,
                 End end) {
  constexpr double kSame = 0.01;
  double const own = component.limits[curve][end];
  return std::any_of(
      substance.Records().begin(), substance.Records().end(), [&](Record const* record) {
        double const other = LimitOf(*record, curve, end);
        return record != component.record && IsDefined(other) && Difference(own, other) <= kSame;
      });
}

// The habits of a bank in one limit of one curve.
class Habits {
 public:
  Habits(Bank const& bank, std::vector<Substance> const& substances, std::uint32_t curve, End end)
      : bank_(bank), substances_(substances), curve_(curve), end_(end) {}

  // Appends the comparisons with each habit to those of each component.
  void Compare(std::vector<std::vector<Tension>>& ofComponents);

 private:
  static constexpr std::size_t kUsual = kPointCount + kJudgedCurves;
  static constexpr std::size_t kAny = kUsual + 1;  // the nearest, where none is a habit by itself
  static constexpr std::size_t kReferences = kAny + 1;
  using Row = std::array<Reference, kReferences>;

  Row ReferencesOf(Component const& component, std::vector<double> const& usual) const;
  double OwnLimit(std::size_t i) const { return bank_[i].limits[curve_][end_]; }
  // The difference of each component's limit, undefined without one and for those left out, in
  // tolerances.
  std::optional<std::vector<double>> DeviationsFrom(std::size_t reference,
                                                    std::vector<bool> const& isLeftOut) const;
  Tension Made(std::size_t i, std::size_t reference, double deviation) const;
  char const* TextOf(std::size_t reference) const;

  Bank const& bank_;
  std::vector<Substance> const& substances_;
  std::uint32_t curve_;
  End end_;
  std::vector<Row> rows_;  // for each component
};

Habits::Row Habits::ReferencesOf(Component const& component,
                                 std::vector<double> const& usual) const {
  Row row;
  double const limit = component.limits[curve_][end_];
  std::copy(component.points.begin(), component.points.end(), row.begin());
  for (std::uint32_t i = 0; i < kJudgedCurves; ++i) {
    if (i == curve_) continue;
    row[kPointCount + i] = {component.limits[i][end_], {component.record, Datum::Curve(i)}};
  }
  auto const isNearer = [&](double a, double b) {
    return Difference(limit, a) < Difference(limit, b);
  };
  auto const nearest = std::min_element(usual.begin(), usual.end(), isNearer);
  if (nearest != usual.end()) row[kUsual].kelvin = *nearest;
  for (std::size_t k = 0; k < kAny; ++k) {
    double const kelvin = row[k].kelvin;
    if (!IsDefined(kelvin)) continue;
    if (!IsDefined(row[kAny].kelvin) || isNearer(kelvin, row[kAny].kelvin)) {
      row[kAny].kelvin = kelvin;
    }
  }
  return row;
}

// Each limit is compared with what the other components keep.
std::optional<std::vector<double>> Habits::DeviationsFrom(
    std::size_t reference, std::vector<bool> const& isLeftOut) const {
  std::vector<double> differences(bank_.size(), gen_GetUndefDouble());
  std::vector<double> sorted;
  for (std::size_t i = 0; i < bank_.size(); ++i) {
    double const kelvin = rows_[i][reference].kelvin;
    if (isLeftOut[i] || !IsDefined(OwnLimit(i)) || !IsDefined(kelvin)) continue;
    differences[i] = Difference(OwnLimit(i), kelvin);
    sorted.push_back(differences[i]);
  }
  if (sorted.size() < kFewest + 1) return std::nullopt;
  std::sort(sorted.begin(), sorted.end());
  auto const place = static_cast<std::size_t>(kShare * static_cast<double>(sorted.size() - 1));
  if (sorted[std::min(place, sorted.size() - 2)] > kWidest) return std::nullopt;
  for (std::size_t i = 0; i < bank_.size(); ++i) {
    if (!IsDefined(differences[i])) continue;
    bool const isBefore = differences[i] <= sorted[place];
    double const kept = sorted[isBefore ? std::min(place + 1, sorted.size() - 1) : place];
    double const tolerance = std::max(kRules[end_].tolerance, kMargin * kept);
    differences[i] = OwnLimit(i) >= 0.0 ? std::min(differences[i] / tolerance, kFar) : kFar;
  }
  return differences;
}

char const* Habits::TextOf(std::size_t reference) const {
  if (reference < kPointCount) return Datum::Constant(kPoints[reference]).Name();
  if (reference < kUsual) {
    return Datum::Curve(static_cast<std::uint32_t>(reference - kPointCount)).Name();
  }
  return "the nearest usual temperature";
}

Tension Habits::Made(std::size_t i, std::size_t reference, double deviation) const {
  Reference const& from = rows_[i][reference];
  Tension tension;
  tension.rule = &kRules[end_];
  tension.about = {bank_[i].record, Datum::Curve(curve_)};
  tension.parts.push_back({tension.about, Stake::kFull});
  if (from.claim.record != nullptr) {
    bool const isCurve = from.claim.datum.IsCurve();
    tension.parts.push_back({from.claim, isCurve ? Stake::kFull : Stake::kMinor});
  }
  tension.value = OwnLimit(i);
  tension.expected = from.kelvin;
  tension.unit = "K";
  tension.quantity = kQuantities[end_];
  tension.deviation = deviation;
  tension.isOfRange = true;
  tension.from = std::string(TextOf(reference)) + ", as in the other components";
  return tension;
}

void Habits::Compare(std::vector<std::vector<Tension>>& ofComponents) {
  std::vector<double> const usual = UsualTemperatures(bank_, curve_, end_);
  for (Component const& component : bank_) rows_.push_back(ReferencesOf(component, usual));
  std::vector<bool> const none(bank_.size(), false);
  std::vector<bool> isCompared(none);
  for (std::size_t reference = 0; reference < kReferences; ++reference) {
    auto const deviations = DeviationsFrom(reference, reference == kAny ? isCompared : none);
    if (!deviations) continue;
    for (std::size_t i = 0; i < bank_.size(); ++i) {
      double const deviation = (*deviations)[i];
      if (!IsDefined(deviation)) continue;
      isCompared[i] = true;
      Component const& component = bank_[i];
      if (deviation > 1.0 && IsConfirmed(component, substances_[component.substance], curve_, end_))
        continue;
      // Being at one of many temperatures does not speak for a limit.
      if (reference >= kUsual && deviation <= 1.0) continue;
      ofComponents[i].push_back(Made(i, reference, deviation));
    }
  }
}

// Appends the comparisons that deviate, and of the same curves those that agree.
void KeepUnusual(std::vector<Tension> made, std::vector<Tension>& kept) {
  std::vector<Claim> accused;
  for (Tension const& one : made) {
    if (one.deviation <= 1.0) continue;
    for (Tension::Part const& part : one.parts) accused.push_back(part.claim);
  }
  for (Tension& one : made) {
    if (std::find(accused.begin(), accused.end(), one.about) == accused.end()) continue;
    kept.push_back(std::move(one));
  }
}

}  // namespace

std::span<JudgeRule const> RangeHabitRules() { return kRules; }

void AddRangeHabits(std::vector<Substance> const& substances,
                    std::vector<std::vector<Tension>>& tensions) {
  for (Bank const& bank : BanksOf(substances)) {
    if (bank.size() <= kFewest) continue;
    for (End const end : {kBegin, kFinish}) {
      std::vector<std::vector<Tension>> ofComponents(bank.size());
      for (std::uint32_t i = 0; i < kJudgedCurves; ++i) {
        Habits(bank, substances, i, end).Compare(ofComponents);
      }
      for (std::size_t i = 0; i < bank.size(); ++i) {
        KeepUnusual(std::move(ofComponents[i]), tensions[bank[i].substance]);
      }
    }
  }
}

}  // namespace zel
