#include "verify/judge/diagnosis.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace zel {
namespace {

// How much likelier a deviation is if a datum of the comparison is wrong than if all are right, as
// a logarithm. Right data scatter normally, with the tolerance at 2.5 standard deviations, and one
// comparison in fifty has a long tail, because relations are not exact and sources differ. A
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

// Evidence from comparisons. Each other source counts; a rule that is used with the data of several
// sources is one witness, who counts as much as its strongest word.
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

// A datum, and what the comparisons say of it.
struct Suspect {
  // Of values, and of the range of a curve: one can be wrong and the other right.
  struct Aspect {
    Witnesses againstIt;  // comparisons that disagree
    Witnesses forIt;      // those that agree; negative
  };

  Claim claim;
  Aspect ofValues;
  Aspect ofRange;
  std::vector<std::size_t> disagreeing;
  std::size_t agreeing = 0;

  // What the choice between suspects goes by.
  double Weight() const {
    constexpr double kAgreement = 0.7;
    double weight = 0.0;
    for (Aspect const* const aspect : {&ofValues, &ofRange}) {
      if (aspect->againstIt.Sum() > 0.0) {
        weight += aspect->againstIt.Sum() + kAgreement * aspect->forIt.Sum();
      }
    }
    return weight;
  }
};

constexpr double kExplainedByMinor = 0.5;

class Trial {
 public:
  explicit Trial(std::vector<Tension> const& tensions)
      : tensions_(tensions), explained_(tensions.size(), 0.0) {}

  std::vector<Suspicion> Run();

 private:
  std::vector<Suspect> Suspects() const;
  Suspicion Convict(Suspect const& suspect);

  std::vector<Tension> const& tensions_;
  std::vector<double> explained_;  // share of each comparison that convicted data explain
  std::vector<Claim> convicted_;
};

std::vector<Suspect> Trial::Suspects() const {
  std::vector<Suspect> suspects;
  for (std::size_t i = 0; i < tensions_.size(); ++i) {
    if (explained_[i] >= 1.0) continue;
    double const evidence = (1.0 - explained_[i]) * Evidence(tensions_[i].deviation);
    for (Tension::Part const& part : tensions_[i].parts) {
      if (std::find(convicted_.begin(), convicted_.end(), part.claim) != convicted_.end()) continue;
      auto at = std::find_if(suspects.begin(), suspects.end(),
                             [&](Suspect const& one) { return one.claim == part.claim; });
      if (at == suspects.end()) {
        suspects.emplace_back();
        suspects.back().claim = part.claim;
        at = suspects.end() - 1;
      }
      Suspect::Aspect& aspect = tensions_[i].isOfRange ? at->ofRange : at->ofValues;
      constexpr double kMinor = 0.4;
      double const share = part.stake == Stake::kFull ? 1.0 : kMinor;
      if (tensions_[i].deviation > 1.0) {
        aspect.againstIt.Add(tensions_[i], share * std::max(evidence, 0.0));
        at->disagreeing.push_back(i);
      } else if (part.stake == Stake::kFull) {
        aspect.forIt.Add(tensions_[i], std::min(evidence, 0.0));
        ++at->agreeing;
      }
    }
  }
  return suspects;
}

// The probability that the datum is wrong, before anything is compared 1 in 20. What agrees speaks
// for a datum, but a curve can be right where one relation uses it and wrong elsewhere; sources are
// compared over its whole range.
double StrengthOf(Suspect const& suspect) {
  constexpr double kPrior = 3.0;
  double odds = -kPrior;
  for (Suspect::Aspect const* const aspect : {&suspect.ofValues, &suspect.ofRange}) {
    if (aspect->againstIt.Sum() <= 0.0) continue;
    bool const isElsewhere = suspect.claim.datum.IsCurve() && !aspect->forIt.HasSources();
    double const mostFor = isElsewhere ? -2.0 : -4.0;
    odds += aspect->againstIt.Sum() + std::max(aspect->forIt.Sum(), mostFor);
  }
  return 1.0 / (1.0 + std::exp(-odds));
}

Suspicion Trial::Convict(Suspect const& suspect) {
  Suspicion suspicion;
  suspicion.claim = suspect.claim;
  suspicion.strength = StrengthOf(suspect);
  suspicion.agreeing = suspect.agreeing;
  for (std::size_t const i : suspect.disagreeing) {
    suspicion.against.push_back(&tensions_[i]);
    auto const& parts = tensions_[i].parts;
    bool const isFull = std::any_of(parts.begin(), parts.end(), [&](Tension::Part const& part) {
      return part.claim == suspect.claim && part.stake == Stake::kFull;
    });
    // What the datum hardly matters to may have another reason; it is weaker evidence for that.
    explained_[i] = isFull ? 1.0 : std::max(explained_[i], kExplainedByMinor);
  }
  convicted_.push_back(suspect.claim);
  std::stable_sort(suspicion.against.begin(), suspicion.against.end(),
                   [](Tension const* a, Tension const* b) { return a->deviation > b->deviation; });
  return suspicion;
}

std::vector<Suspicion> Trial::Run() {
  std::vector<Suspicion> suspicions;
  for (;;) {
    std::vector<Suspect> const suspects = Suspects();
    Suspect const* worst = nullptr;
    for (Suspect const& one : suspects) {
      if (one.disagreeing.empty()) continue;
      if (worst == nullptr || one.Weight() > worst->Weight()) worst = &one;
    }
    if (worst == nullptr) break;
    suspicions.push_back(Convict(*worst));
  }
  std::stable_sort(suspicions.begin(), suspicions.end(),
                   [](Suspicion const& a, Suspicion const& b) { return a.strength > b.strength; });
  return suspicions;
}

}  // namespace

std::vector<Suspicion> Diagnose(std::vector<Tension> const& tensions) {
  return Trial(tensions).Run();
}

}  // namespace zel
