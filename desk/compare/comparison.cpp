#include "desk/compare/comparison.h"

#include <cmath>
#include <set>

#include "desk/compare/counterparts.h"
#include "desk/compare/curve_deviation.h"
#include "desk/open/preference_list.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

constexpr double kPercent = 100.0;
// Values are stored with 7 digits: a deviation of 1 % that is written 0.01 must not exceed that
// through rounding.
constexpr double kRounding = 1e-12;

class Comparer {
 public:
  Comparer(Session& session, std::string const& first, std::string const& second,
           CompareOptions const& options)
      : options_(options),
        first_(session, {{first}, options.acceptIdentity}),
        second_(session, {{second}, options.acceptIdentity}),
        known_(second_.Components()) {}

  Comparison Take() {
    if (options_.components.empty()) {
      All();
    } else {
      for (std::string const& word : options_.components) Named(word);
    }
    return std::move(result_);
  }

 private:
  void All();
  void Named(std::string const& word);
  void Both(std::string const& shown, std::string const& word, std::string const& otherWord);
  void Constants(std::string const& shown, PureComponent const& one, PureComponent const& other);
  void Correlations(std::string const& shown, PureComponent const& one, PureComponent const& other);
  void Correlation(std::string const& shown, zel::ZelCorrelationInfo const& info,
                   PureComponent const& one, PureComponent const& other);
  void Codes(std::string const& shown, std::string const& datum, std::uint32_t one,
             std::uint32_t other);
  // Counts a datum that only one of them has; true if both have it.
  bool BothHave(std::string const& shown, std::string const& datum, bool one, bool other);
  bool Exceeds(double deviation) const {
    return std::abs(deviation) > options_.tolerance * (1.0 + kRounding);
  }
  IdentityConflict ConflictOf(std::string const& word, PlacedComponent const& one,
                              PlacedComponent const& other) const {
    return {word,
            {{first_.Name(one.place), one.identity}, {second_.Name(other.place), other.identity}},
            0,
            1};
  }

  CompareOptions const& options_;
  PreferenceList first_;
  PreferenceList second_;
  Counterparts known_;
  Comparison result_;
};

std::string WordOf(zel::ZelIdentity const& identity) {
  return identity.ids[0][0] != '\0' ? identity.ids[0] : std::to_string(identity.number);
}

void Comparer::All() {
  std::set<std::int32_t> seen;
  for (PlacedComponent const& one : first_.Components()) {
    if (!seen.insert(one.identity.number).second) continue;
    Counterparts::Match const match = known_.Find(one.identity);
    if (match.component == nullptr) continue;
    std::string const shown = WordOf(one.identity);
    if (match.isOtherSubstance) {
      result_.conflicts.push_back(ConflictOf(shown, one, *match.component));
      if (!options_.acceptIdentity) continue;
    }
    Both(shown, std::to_string(one.identity.number),
         std::to_string(match.component->identity.number));
  }
}

void Comparer::Named(std::string const& word) {
  PureComponent merged;
  first_.Search(word, merged);
  PlacedComponent const one{0, merged.Compared()};
  Counterparts::Match const match = known_.Find(one.identity);
  if (match.component == nullptr) {
    PureComponent other;
    second_.Search(first_.Lookup(word), other);  // throws: the source does not have it
    throw Failure("component " + word + " is another one in " + second_.Name(0));
  }
  if (match.isOtherSubstance) {
    IdentityConflict conflict = ConflictOf(word, one, *match.component);
    if (!options_.acceptIdentity) {
      throw Failure(ToText(conflict) + Advice(conflict) +
                    "; --accept-identity compares them anyway");
    }
    result_.conflicts.push_back(std::move(conflict));
  }
  Both(first_.Lookup(word), std::to_string(one.identity.number),
       std::to_string(match.component->identity.number));
}

void Comparer::Both(std::string const& shown, std::string const& word,
                    std::string const& otherWord) {
  PureComponent one;
  PureComponent other;
  first_.Search(word, one);
  second_.Search(otherWord, other);
  ++result_.components;
  Constants(shown, one, other);
  Correlations(shown, one, other);
}

bool Comparer::BothHave(std::string const& shown, std::string const& datum, bool one, bool other) {
  if (one != other) {
    ++(one ? result_.onlyFirst : result_.onlySecond);
    result_.oneSided.Add(shown, datum, one ? "first" : "second");
  }
  return one && other;
}

void Comparer::Codes(std::string const& shown, std::string const& datum, std::uint32_t one,
                     std::uint32_t other) {
  if (options_.codes && one != other) {
    result_.differingCodes.Add(shown, datum, Code(one), Code(other));
  }
}

void Comparer::Constants(std::string const& shown, PureComponent const& one,
                         PureComponent const& other) {
  for (auto const& row : zel::desk::Constants()) {
    double const a = one.Constant(row.index);
    double const b = other.Constant(row.index);
    bool const hasA = !zel::gen_IsUndefDouble(a);
    bool const hasB = !zel::gen_IsUndefDouble(b);
    if (!BothHave(shown, row.keyword, hasA, hasB)) continue;
    ++result_.constants;
    double const deviation = Deviation(a, b, a);
    if (Exceeds(deviation)) {
      result_.differingConstants.Add(shown, row.keyword, Number(a), Number(b), Text(row.unit),
                                     Number(deviation * kPercent));
    }
    Codes(shown, row.keyword, one.ConstantCode(row.index), other.ConstantCode(row.index));
  }
}

void Comparer::Correlations(std::string const& shown, PureComponent const& one,
                            PureComponent const& other) {
  for (auto const& row : zel::desk::Correlations()) Correlation(shown, row, one, other);
}

void Comparer::Correlation(std::string const& shown, zel::ZelCorrelationInfo const& info,
                           PureComponent const& one, PureComponent const& other) {
  Curve const a = one.ReadCurve(IndexOf(info));
  Curve const b = other.ReadCurve(IndexOf(info));
  if (!BothHave(shown, info.name, a.present, b.present)) return;
  ++result_.correlations;
  Codes(shown, info.name, a.refCode, b.refCode);
  CurveDeviation const found = DeviationOf(one, other, IndexOf(info), options_.steps);
  if (!found.why.empty()) {
    auto const limit = [](double value, Curve const& of) {
      return Number(LimitInKelvin(value, of));
    };
    result_.notCompared.Add(shown, info.name, found.why, limit(a.tMin, a), limit(a.tMax, a),
                            limit(b.tMin, b), limit(b.tMax, b));
    return;
  }
  if (!Exceeds(found.greatest)) return;
  result_.differingCorrelations.Add(shown, info.name, Number(found.first), Number(found.second),
                                    Text(info.unit), Number(found.greatest * kPercent), found.at,
                                    Number(found.mean * kPercent), found.from, found.to);
}

}  // namespace

Comparison::Comparison()
    : differingConstants("constants", {{"component", ""},
                                       {"constant", ""},
                                       {"first", "", false, true},
                                       {"second", "", false, true},
                                       {"unit", ""},
                                       {"deviation", "%"}}),
      differingCorrelations("correlations", {{"component", ""},
                                             {"correlation", ""},
                                             {"first", "", false, true},
                                             {"second", "", false, true},
                                             {"unit", ""},
                                             {"greatest", "%"},
                                             {"at T", "K"},
                                             {"mean", "%"},
                                             {"from T", "K", true},
                                             {"to T", "K", true}}),
      notCompared("not compared", {{"component", ""},
                                   {"correlation", ""},
                                   {"why", ""},
                                   {"first from", "K"},
                                   {"first to", "K"},
                                   {"second from", "K"},
                                   {"second to", "K"}}),
      oneSided("one source only", {{"component", ""}, {"datum", ""}, {"source", ""}}),
      differingCodes("codes", {{"component", ""}, {"datum", ""}, {"first", ""}, {"second", ""}}) {}

bool Comparison::Differs() const {
  return !differingConstants.Empty() || !differingCorrelations.Empty() || !differingCodes.Empty() ||
         !conflicts.empty();
}

Comparison Compare(Session& session, std::string const& first, std::string const& second,
                   CompareOptions const& options) {
  return Comparer(session, first, second, options).Take();
}

}  // namespace zel::desk
