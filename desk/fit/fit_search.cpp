#include "desk/fit/fit_search.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zel::desk {
namespace {

using Numbers = std::vector<double>;
using Places = std::vector<std::size_t>;

// A linear coefficient where columns of the linear problem are computed: terms of some forms count
// only if their coefficient is not 0.
constexpr double kAlmostNothing = 1e-30;
// In place of a difference that does not exist.
constexpr double kFar = 1e20;

// What the numbers of a rule are multiples of.
double StartUnit(FitSearchTask const& task, StartScale scale) {
  auto const known = [](double value, double instead) {
    return zel::gen_IsUndefDouble(value) ? instead : value;
  };
  double const low = task.record->tMin;
  double const high = task.record->tMax;
  double const middle = (low + high) / 2.0;
  switch (scale) {
    case StartScale::kNumber: return 1.0;
    case StartScale::kTemperature: return middle;
    case StartScale::kLowest: return low;
    case StartScale::kHighest: return high;
    case StartScale::kCritical: return known(task.record->criticalTemperature, 1.1 * high);
    case StartScale::kBoiling: return known(task.record->boilingPoint, middle);
    case StartScale::kWeight: return task.record->molecularWeight;
    case StartScale::kValue: break;
  }
  double sum = 0.0;
  for (double const number : task.numbers) sum += number;
  return sum / static_cast<double>(task.numbers.size());
}

bool IsLinear(LinearIn linear, FitQuantity quantity) {
  return (linear == LinearIn::kValue && quantity == FitQuantity::kValue) ||
         (linear == LinearIn::kLogarithm && quantity == FitQuantity::kLogarithm);
}

class Search {
 public:
  explicit Search(FitSearchTask const& task) : t_(task), count_(task.model->Count()) {
    for (std::size_t j = 0; j < count_; ++j) {
      if (!t_.kept[j]) free_.push_back(j);
      if (!t_.kept[j] && StartOf(j) == nullptr) linear_.push_back(j);
    }
  }

  std::optional<FitSearchResult> Run() const {
    bool const isDirect = IsLinear(t_.rule->linear, t_.quantity) && linear_.size() == free_.size();
    std::vector<FitSearchResult> found;
    for (Numbers const& start : Starts()) {
      std::optional<Numbers> const c = WithLinear(start);
      if (!c) continue;
      double const sum = SumAt(*c);
      if (std::isfinite(sum)) found.push_back({*c, sum, isDirect, 0});
    }
    if (found.empty()) return std::nullopt;
    std::stable_sort(found.begin(), found.end(),
                     [](auto const& one, auto const& other) { return one.sum < other.sum; });
    return isDirect ? found.front() : Best(found);
  }

  SquaresMatrix Jacobian(Numbers const& c) const { return JacobianOf(free_, c); }

 private:
  SquaresMatrix JacobianOf(Places const& places, Numbers const& c) const {
    SquaresMatrix jacobian(t_.temperatures.size(), places.size());
    Numbers slopes;
    for (std::size_t i = 0; i < t_.temperatures.size(); ++i) {
      double const number = t_.model->At(t_.temperatures[i], c, slopes);
      double const factor =
          t_.quantity == FitQuantity::kLogarithm ? t_.weights[i] / number : t_.weights[i];
      for (std::size_t k = 0; k < places.size(); ++k) {
        double const cell = factor * slopes[places[k]];
        jacobian.Row(i)[k] = std::isfinite(cell) ? cell : 0.0;
      }
    }
    return jacobian;
  }

  StartRule const* StartOf(std::size_t place) const {
    for (StartRule const& rule : t_.rule->starts) {
      if (PlaceOf(rule, static_cast<int>(count_)) == static_cast<int>(place)) return &rule;
    }
    return nullptr;
  }

  bool IsPositive(std::size_t place) const {
    auto const& positive = t_.rule->positive;
    return std::find(positive.begin(), positive.end(), static_cast<int>(place) + 1) !=
           positive.end();
  }

  // All combinations of the numbers of the rules; linear coefficients are 0.
  std::vector<Numbers> Starts() const {
    std::vector<Numbers> starts(1, Numbers(count_, 0.0));
    for (std::size_t j = 0; j < count_; ++j) {
      Numbers values;
      if (t_.kept[j]) values.push_back(*t_.kept[j]);
      for (StartRule const& rule : t_.rule->starts) {
        bool const isMeant = PlaceOf(rule, static_cast<int>(count_)) == static_cast<int>(j);
        if (!isMeant || t_.kept[j]) continue;
        double const unit = StartUnit(t_, rule.scale);
        for (double const number : rule.numbers) values.push_back(number * unit);
      }
      if (values.empty()) continue;  // linear
      std::vector<Numbers> next;
      for (Numbers const& start : starts) {
        for (double const value : values) {
          next.push_back(start);
          next.back()[j] = value;
        }
      }
      starts = std::move(next);
    }
    return starts;
  }

  // The start with its linear coefficients; nothing where the form has no values.
  std::optional<Numbers> WithLinear(Numbers start) const {
    if (linear_.empty()) return start;
    std::optional<Numbers> c =
        t_.rule->linear == LinearIn::kQuotient ? SolveQuotient(start) : SolveColumns(start);
    if (!c || std::any_of(c->begin(), c->end(), [](double x) { return !std::isfinite(x); })) {
      return std::nullopt;
    }
    return c;
  }

  std::optional<Numbers> SolveColumns(Numbers c) const {
    bool const isLog = t_.rule->linear == LinearIn::kLogarithm;
    for (std::size_t const j : linear_) c[j] = IsPositive(j) ? 1.0 : kAlmostNothing;
    SquaresMatrix columns(t_.temperatures.size(), linear_.size());
    Numbers rest(t_.temperatures.size());
    Numbers slopes;
    for (std::size_t i = 0; i < t_.temperatures.size(); ++i) {
      double const number = t_.model->At(t_.temperatures[i], c, slopes);
      double const target = t_.numbers[i];
      // Values of 0 have no logarithm and would have no weight; neither have ends of a form, where
      // it is 0 whatever the coefficients are.
      if (isLog && (target == 0.0 || number == 0.0)) continue;
      if (!std::isfinite(number) || (isLog && !(target / number > 0.0))) return std::nullopt;
      double const weight = LinearWeight(i);
      double const difference = isLog ? std::log(target / number) : target - number;
      rest[i] = weight * difference;
      for (std::size_t k = 0; k < linear_.size(); ++k) {
        double const cell = weight * (isLog ? slopes[linear_[k]] / number : slopes[linear_[k]]);
        if (!std::isfinite(cell)) return std::nullopt;
        columns.Row(i)[k] = cell;
      }
    }
    Numbers const x = SolveLinear(columns, rest);
    for (std::size_t k = 0; k < linear_.size(); ++k) {
      c[linear_[k]] = IsPositive(linear_[k]) ? std::exp(x[k]) : x[k];
    }
    return c;
  }

  // The weight of a difference in the quantity in which the form is linear.
  double LinearWeight(std::size_t i) const {
    bool const isLog = t_.rule->linear == LinearIn::kLogarithm;
    if (IsLinear(t_.rule->linear, t_.quantity)) return t_.weights[i];
    return isLog ? t_.weights[i] * std::abs(t_.numbers[i])
                 : t_.weights[i] / std::abs(t_.numbers[i]);
  }

  std::optional<Numbers> SolveQuotient(Numbers c) const {
    std::vector<std::vector<QuotientTerm>> rows;
    for (std::size_t i = 0; i < t_.temperatures.size(); ++i) {
      rows.push_back(QuotientOf(t_.rule->equation, t_.temperatures[i], t_.numbers[i],
                                t_.record->criticalTemperature, c));
    }
    SquaresMatrix columns(rows.size(), count_);
    Numbers rest(rows.size(), 1.0);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      for (QuotientTerm const& term : rows[i]) {
        if (!std::isfinite(term.term)) return std::nullopt;
        if (term.coefficient >= count_) continue;
        if (t_.kept[term.coefficient]) {
          rest[i] -= term.term * c[term.coefficient];
        } else {
          columns.Row(i)[term.coefficient] = term.term;
        }
      }
    }
    Numbers const x = SolveLinear(columns, rest);
    for (std::size_t const j : linear_) c[j] = x[j];
    return c;
  }

  double Difference(std::size_t i, double number) const {
    if (t_.quantity == FitQuantity::kValue) return t_.weights[i] * (number - t_.numbers[i]);
    return t_.weights[i] * std::log(number / t_.numbers[i]);
  }

  double SumAt(Numbers const& c) const {
    double sum = 0.0;
    for (std::size_t i = 0; i < t_.temperatures.size(); ++i) {
      double const difference = Difference(i, t_.model->At(t_.temperatures[i], c));
      sum += difference * difference;
    }
    return sum;
  }

  // Searches from the best starts. Coefficients that begin at a constant of the component stay
  // there first: many are that constant, and forms are not smooth on its other side.
  FitSearchResult Best(std::vector<FitSearchResult> const& starts) const {
    constexpr std::size_t kMostSearches = 8;
    Places withoutConstants;
    for (std::size_t const j : free_) {
      StartRule const* const rule = StartOf(j);
      bool const isConstant = rule != nullptr && (rule->scale == StartScale::kCritical ||
                                                  rule->scale == StartScale::kBoiling);
      if (!isConstant) withoutConstants.push_back(j);
    }
    FitSearchResult best = starts.front();
    best.starts = std::min(starts.size(), kMostSearches);
    for (std::size_t s = 0; s < best.starts; ++s) {
      FitSearchResult found = starts[s];
      if (withoutConstants.size() < free_.size()) SearchFrom(withoutConstants, found);
      SearchFrom(free_, found);
      if (!(found.sum < best.sum)) continue;
      best.coefficients = found.coefficients;
      best.sum = found.sum;
    }
    return best;
  }

  // Improves these coefficients, positive ones by their logarithms.
  void SearchFrom(Places const& places, FitSearchResult& result) const {
    Numbers const start = result.coefficients;
    Numbers x;
    for (std::size_t const j : places) x.push_back(IsPositive(j) ? std::log(start[j]) : start[j]);
    ResidualFunction const residuals = [&](Numbers const& at, Numbers& values,
                                           SquaresMatrix* jacobian) {
      Residuals(places, CoefficientsAt(places, start, at), values, jacobian);
    };
    SquaresSolution const solution = SolveNonlinear(residuals, t_.temperatures.size(), x);
    if (!(solution.sum < result.sum)) return;
    result.coefficients = CoefficientsAt(places, start, solution.x);
    result.sum = solution.sum;
  }

  Numbers CoefficientsAt(Places const& places, Numbers c, Numbers const& x) const {
    for (std::size_t k = 0; k < places.size(); ++k) {
      c[places[k]] = IsPositive(places[k]) ? std::exp(x[k]) : x[k];
    }
    return c;
  }

  void Residuals(Places const& places, Numbers const& c, Numbers& values,
                 SquaresMatrix* jacobian) const {
    for (std::size_t i = 0; i < values.size(); ++i) {
      double const difference = Difference(i, t_.model->At(t_.temperatures[i], c));
      values[i] = std::abs(difference) < kFar ? difference : kFar;
    }
    if (jacobian == nullptr) return;
    *jacobian = JacobianOf(places, c);
    for (std::size_t i = 0; i < values.size(); ++i) {
      for (std::size_t k = 0; k < places.size(); ++k) {
        if (IsPositive(places[k])) jacobian->Row(i)[k] *= c[places[k]];
      }
    }
  }

  FitSearchTask const& t_;
  std::size_t count_;
  Places free_;    // coefficients that are not kept
  Places linear_;  // those of them that the linear problem yields
};

}  // namespace

void KeepByRule(FitSearchTask& task) {
  int const count = static_cast<int>(task.model->Count());
  for (StartRule const& rule : task.rule->starts) {
    int const place = PlaceOf(rule, count);
    if (!rule.isKept || place < 0 || place >= count) continue;
    std::optional<double>& kept = task.kept[static_cast<std::size_t>(place)];
    if (!kept) kept = rule.numbers.front() * StartUnit(task, rule.scale);
  }
}

std::optional<FitSearchResult> SearchCoefficients(FitSearchTask const& task) {
  return Search(task).Run();
}

SquaresMatrix FitJacobian(FitSearchTask const& task, std::vector<double> const& coefficients) {
  return Search(task).Jacobian(coefficients);
}

}  // namespace zel::desk
