#include "verify/judge/judged_finding.h"

#include <algorithm>
#include <map>

#include "verify/fingerprint.h"
#include "verify/judge/slip.h"

namespace zel {
namespace {

std::string InUnit(double value, std::string const& unit) {
  std::string text = Shown(value);
  if (!unit.empty()) text += " " + unit;
  return text;
}

// Whether a comparison is of values of the datum itself.
bool IsAbout(Claim const& claim, Tension const& tension) {
  return tension.about == claim || (tension.isBetweenSources && tension.about.datum == claim.datum);
}

// The same comparison, seen from the datum if that is one of its two sources.
Tension SeenFrom(Claim const& claim, Tension const& tension) {
  Tension seen = tension;
  if (tension.about == claim || !IsAbout(claim, tension)) return seen;
  std::swap(seen.value, seen.expected);
  CheckedItem const& other = tension.about.record->Item();
  seen.from = other.library + " " + other.bank.name;
  seen.about = claim;
  return seen;
}

}  // namespace

JudgedFinding::JudgedFinding(Suspicion const& suspicion, Substance const& substance)
    : suspicion_(suspicion), substance_(substance) {
  ChooseMain();
  MakeText();
  for (Tension const& tension : suspicion_.against) AddEvidence(tension);
  Record const& record = Of();
  Datum const datum = suspicion_.claim.datum;
  fingerprint_ = Fingerprint(record.Item().bank.Text() + '\n' + record.Item().text + '\n' +
                             datum.Name() + '\n' + record.StoredText(datum));
}

// The worst comparison of a value of the datum itself; the worst of all comparisons if no value of
// the datum was compared.
void JudgedFinding::ChooseMain() {
  auto const& all = suspicion_.against;
  auto const own = std::find_if(all.begin(), all.end(), [&](Tension const& tension) {
    return IsAbout(suspicion_.claim, tension);
  });
  main_ = SeenFrom(suspicion_.claim, own != all.end() ? *own : all.front());
}

// The slip that most of the comparisons with large deviations show.
std::string JudgedFinding::Slip() const {
  constexpr double kFar = 3.0;
  double const weight = substance_.Median(propertyMW);
  std::map<std::string, std::size_t> slips;
  std::size_t compared = 0;
  for (Tension const& one : suspicion_.against) {
    if (!IsAbout(suspicion_.claim, one) || one.deviation < kFar) continue;
    Tension const seen = SeenFrom(suspicion_.claim, one);
    double const most = std::max(std::abs(seen.expected), std::abs(seen.value));
    double const uncertainty = std::abs(seen.value - seen.expected) / (seen.deviation * most);
    ++slips[LikelySlip(seen.value, seen.expected, seen.unit, uncertainty, weight)];
    ++compared;
  }
  for (auto const& [slip, count] : slips) {
    if (!slip.empty() && 2 * count > compared) return slip;
  }
  return {};
}

void JudgedFinding::MakeText() {
  Datum const datum = suspicion_.claim.datum;
  valueText_ = Shown(main_.value);
  expectedText_ = Shown(main_.expected);
  std::string const at =
      IsDefined(main_.temperature) ? " at " + Shown(main_.temperature) + " K" : std::string();
  std::string const value = InUnit(main_.value, main_.unit);
  std::string const expected = InUnit(main_.expected, main_.unit);
  if (main_.about == suspicion_.claim) {
    text_ = main_.quantity + datum.Name() + " is " + value + at + ", ";
    text_ += main_.isBetweenSources ? "but " + main_.from + " has " + expected
                                    : "expected " + expected + " from " + main_.from;
  } else {
    text_ = std::string(datum.Name()) + " contradicts " + main_.about.datum.Name() + " (" +
            main_.rule->formula + "): " + value + at + " and " + expected;
  }
  std::size_t const others = suspicion_.against.size() - 1;
  if (others == 1) text_ += ", and another comparison disagrees";
  if (others > 1) text_ += ", and " + std::to_string(others) + " other comparisons disagree";
  std::string const slip = Slip();
  if (!slip.empty()) text_ += "; looks like " + slip;
}

void JudgedFinding::AddEvidence(Tension const& tension) {
  ZelDataEvidence row;
  row.rule = tension.rule->id;
  row.library = tension.about.record->Item().library.c_str();
  row.place = tension.about.record->Item().place.c_str();
  row.datum = tension.about.datum.Name();
  row.value = tension.value;
  row.expected = tension.expected;
  row.unit = tension.unit.c_str();
  row.temperature = tension.temperature;
  row.deviation = tension.deviation;
  row.source = tension.from.c_str();
  evidence_.push_back(row);
}

ZelDataFinding JudgedFinding::Fill() {
  CheckedItem const& item = Of().Item();
  ZelDataFinding out;
  out.severity = findingWarning;
  out.id = main_.rule->id;
  out.library = item.library.c_str();
  out.bankType = item.bank.type.c_str();
  out.bankName = item.bank.name.c_str();
  out.key = item.key.data();
  out.keyWords = static_cast<std::int32_t>(item.key.size());
  out.item = item.text.c_str();
  out.place = item.place.c_str();
  out.datum = suspicion_.claim.datum.Name();
  out.text = text_.c_str();
  out.strength = suspicion_.strength;
  out.fingerprint = fingerprint_.c_str();
  out.evidence = evidence_.data();
  out.evidenceCount = static_cast<std::int32_t>(evidence_.size());
  if (main_.about == suspicion_.claim) {
    out.value = main_.value;
    out.valueText = valueText_.c_str();
    out.unit = main_.unit.c_str();
    out.temperature = main_.temperature;
    out.expectedMin = out.expectedMax = main_.expected;
    out.expectedText = expectedText_.c_str();
  }
  out.against = main_.isBetweenSources ? main_.from.c_str() : "";
  return out;
}

}  // namespace zel
