#include "verify/judge/diagnosis.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <numeric>

namespace zel {
namespace {

// How much likelier a deviation is if a datum of the comparison is wrong than if all are right, as
// a logarithm. Correct data scatter normally, with the tolerance at 2.5 standard deviations, and
// one comparison in fifty has a long tail, because relations are not exact and sources differ. A
// mistake can be of any size.
double Evidence(double deviation) {
  constexpr double kSigma = 0.4;
  constexpr double kTail = 0.02;
  constexpr double kSizes = 8.0;  // width of the logarithmic distribution of mistakes
  double const at = deviation / kSigma;
  double const normal = (1.0 - kTail) * std::exp(-0.5 * at * at) * 0.79788 / kSigma;
  double const tail = kTail / ((1.0 + deviation) * (1.0 + deviation));
  double const wrong = 1.0 / (kSizes * (deviation + 0.5));
  return std::log(wrong / (normal + tail));
}

// Evidence from comparisons. Each other source counts as a witness. A rule that is used with the
// data of several sources is a single witness, which counts as much as its strongest comparison.
class Witnesses {
 public:
  void Add(Tension const& tension, double evidence) {
    if (tension.isBetweenSources) {
      hasSources_ = true;
      sum_ += evidence;
      return;
    }
    auto at = std::find_if(rules_.begin(), rules_.end(),
                           [&](auto const& known) { return known.first == tension.rule; });
    if (at == rules_.end()) {
      rules_.emplace_back(tension.rule, evidence);
    } else if (std::abs(evidence) > std::abs(at->second)) {
      at->second = evidence;
    }
  }
  bool HasSources() const { return hasSources_; }
  double Sum() const {
    return std::accumulate(rules_.begin(), rules_.end(), sum_,
                           [](double sum, auto const& rule) { return sum + rule.second; });
  }

 private:
  bool hasSources_ = false;
  double sum_ = 0.0;
  std::vector<std::pair<JudgeRule const*, double>> rules_;
};

// The size of a difference, as a logarithm; a difference of sign is larger than any size.
double SizeOf(Tension const& tension) {
  constexpr double kOtherSign = 10.0;
  double const ratio = tension.expected == 0.0 ? 0.0 : tension.value / tension.expected;
  return ratio > 0.0 ? std::abs(std::log(ratio)) : kOtherSign;
}

// Whether a mistake of this size would show in a comparison that agrees.
bool Shows(Tension const& tension, double size) {
  constexpr double kTimes = 2.0;
  double const tolerance = tension.deviation > 0.0 ? SizeOf(tension) / tension.deviation : 0.0;
  return kTimes * tolerance < size;
}

// What the comparisons say about a datum: about its values, and about the range of a curve, since
// one can be wrong and the other right.
struct Suspect {
  struct Aspect {
    Witnesses againstIt;  // comparisons that disagree
    Witnesses forIt;      // those that agree; negative
  };

  Aspect ofValues;
  Aspect ofRange;
  std::vector<std::size_t> disagreeing;
  std::size_t agreeing = 0;

  // The number by which suspects are ranked. That the values agree does not acquit the range.
  double Weight() const {
    constexpr double kAgreement = 0.7;
    double weight = 0.0, worst = 0.0;
    for (Aspect const* const aspect : {&ofValues, &ofRange}) {
      double const against = aspect->againstIt.Sum();
      if (against <= 0.0) continue;
      double const net = against + kAgreement * aspect->forIt.Sum();
      weight += std::max(net, 0.0);
      worst = std::min(worst, net);
    }
    return weight > 0.0 ? weight : worst;
  }
  // The probability that the datum is wrong, which is 1 in 25 before anything is compared.
  // Comparisons that agree speak for a datum, but a curve can be right where one relation uses it
  // and wrong elsewhere; only sources are compared over its whole range.
  double Strength(bool isCurve) const {
    constexpr double kPrior = 3.2;
    double odds = -kPrior;
    for (Aspect const* const aspect : {&ofValues, &ofRange}) {
      double const against = aspect->againstIt.Sum();
      if (against <= 0.0) continue;
      double const mostFor = isCurve && !aspect->forIt.HasSources() ? -2.0 : -4.0;
      odds += std::max(against + std::max(aspect->forIt.Sum(), mostFor), 0.0);
    }
    return 1.0 / (1.0 + std::exp(-odds));
  }
};

// The data of a substance, each with its comparisons. A datum that has been convicted explains the
// comparisons that it is in; the other data are judged by what is left.
class Trial {
 public:
  Trial(std::vector<Tension> const& tensions, double minStrength);

  std::vector<Suspicion> Run();

 private:
  struct Mention {
    std::size_t tension;
    Stake stake;
  };
  struct Accused {
    Claim claim;
    std::vector<Mention> mentions;
    Suspect suspect;
    bool isConvicted = false;
  };

  void Weigh(Accused& accused) const;
  Accused* Worst();
  Suspicion Convict(Accused& accused);

  std::vector<Tension> const& tensions_;
  double minStrength_;
  std::vector<double> evidence_;
  std::vector<double> left_;  // share of each comparison that is not explained
  std::vector<Accused> accused_;
};

Trial::Trial(std::vector<Tension> const& tensions, double minStrength)
    : tensions_(tensions), minStrength_(minStrength), left_(tensions.size(), 1.0) {
  auto const isBefore = [](Claim const& a, Claim const& b) {
    return a.record != b.record ? std::less<>()(a.record, b.record) : a.datum < b.datum;
  };
  std::map<Claim, std::size_t, decltype(isBefore)> places(isBefore);
  for (Tension const& tension : tensions) {
    if (tension.deviation <= 1.0) continue;
    for (Tension::Part const& part : tension.parts) {
      if (places.emplace(part.claim, accused_.size()).second) {
        accused_.emplace_back();
        accused_.back().claim = part.claim;
      }
    }
  }
  for (std::size_t i = 0; i < tensions.size(); ++i) {
    evidence_.push_back(Evidence(tensions[i].deviation));
    for (Tension::Part const& part : tensions[i].parts) {
      auto const at = places.find(part.claim);
      if (at != places.end()) accused_[at->second].mentions.push_back({i, part.stake});
    }
  }
  for (Accused& one : accused_) Weigh(one);
}

void Trial::Weigh(Accused& accused) const {
  constexpr double kMinor = 0.25;
  Suspect suspect;
  double size = 0.0;  // of the mistake
  for (auto const& [i, stake] : accused.mentions) {
    if (left_[i] > 0.0 && stake == Stake::kFull && tensions_[i].deviation > 1.0) {
      size = std::max(size, SizeOf(tensions_[i]));
    }
  }
  for (auto const& [i, stake] : accused.mentions) {
    if (left_[i] <= 0.0) continue;
    Tension const& tension = tensions_[i];
    Suspect::Aspect& aspect = tension.isOfRange ? suspect.ofRange : suspect.ofValues;
    double const evidence = left_[i] * evidence_[i];
    if (tension.deviation > 1.0) {
      double const share = stake == Stake::kFull ? 1.0 : kMinor;
      aspect.againstIt.Add(tension, share * std::max(evidence, 0.0));
      suspect.disagreeing.push_back(i);
    } else if (stake == Stake::kFull && Shows(tension, size)) {
      aspect.forIt.Add(tension, std::min(evidence, 0.0));
      ++suspect.agreeing;
    }
  }
  accused.suspect = std::move(suspect);
}

Trial::Accused* Trial::Worst() {
  Accused* worst = nullptr;
  for (Accused& one : accused_) {
    if (one.isConvicted || one.suspect.disagreeing.empty()) continue;
    if (worst == nullptr || one.suspect.Weight() > worst->suspect.Weight()) worst = &one;
  }
  return worst;
}

// A comparison in which the datum hardly matters may deviate for another reason, so it is weaker
// evidence.
Suspicion Trial::Convict(Accused& accused) {
  constexpr double kLeftByMinor = 0.5;
  Suspicion suspicion;
  suspicion.claim = accused.claim;
  suspicion.strength = accused.suspect.Strength(accused.claim.datum.IsCurve());
  suspicion.agreeing = accused.suspect.agreeing;
  std::vector<std::size_t> const against = std::move(accused.suspect.disagreeing);
  if (suspicion.strength >= minStrength_) {
    for (std::size_t const i : against) suspicion.against.push_back(tensions_[i]);
    std::stable_sort(suspicion.against.begin(), suspicion.against.end(),
                     [](Tension const& a, Tension const& b) { return a.deviation > b.deviation; });
  }
  accused.isConvicted = true;
  for (auto const& [i, stake] : accused.mentions) {
    if (tensions_[i].deviation <= 1.0) continue;
    left_[i] = stake == Stake::kFull ? 0.0 : std::min(left_[i], kLeftByMinor);
  }
  for (Accused& other : accused_) {
    bool const isTouched =
        std::any_of(other.mentions.begin(), other.mentions.end(), [&](Mention const& mention) {
          return std::find(against.begin(), against.end(), mention.tension) != against.end();
        });
    if (!other.isConvicted && isTouched) Weigh(other);
  }
  return suspicion;
}

std::vector<Suspicion> Trial::Run() {
  std::vector<Suspicion> suspicions;
  while (Accused* const worst = Worst()) {
    Suspicion suspicion = Convict(*worst);
    if (suspicion.strength >= minStrength_) suspicions.push_back(std::move(suspicion));
  }
  std::stable_sort(suspicions.begin(), suspicions.end(),
                   [](Suspicion const& a, Suspicion const& b) { return a.strength > b.strength; });
  return suspicions;
}

}  // namespace

std::vector<Suspicion> Diagnose(std::vector<Tension> const& tensions, double minStrength) {
  return Trial(tensions, minStrength).Run();
}

}  // namespace zel
