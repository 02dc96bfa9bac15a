#include "verify/judge/robust_regression.h"

#include <algorithm>
#include <cmath>

namespace zel {
namespace {

constexpr std::size_t kFewest = 25;
constexpr std::size_t kPerCoefficient = 3;
constexpr double kRidge = 0.0001;      // of the observations, on features of variance 1
constexpr double kMostLeverage = 0.8;  // of an observation in its own fit
constexpr int kHuberSteps = 2;
constexpr int kSteps = 4;

// The weight of an observation whose residual is so many standard deviations.
double Weight(double deviations, bool isHuber) {
  constexpr double kHuber = 1.5;
  constexpr double kTukey = 4.7;
  if (isHuber) return deviations <= kHuber ? 1.0 : kHuber / deviations;
  if (deviations >= kTukey) return 0.0;
  double const share = deviations / kTukey;
  return (1.0 - share * share) * (1.0 - share * share);
}

// Factors a symmetric matrix, of which the lower triangle is given, in its place.
bool Factor(std::vector<double>& a, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = 0; j <= i; ++j) {
      double sum = a[i * n + j];
      for (std::size_t k = 0; k < j; ++k) sum -= a[i * n + k] * a[j * n + k];
      if (i != j) {
        a[i * n + j] = sum / a[j * n + j];
      } else if (sum > 0.0) {
        a[i * n + i] = std::sqrt(sum);
      } else {
        return false;
      }
    }
  }
  return true;
}

// L x = b, in the place of b.
void SolveLower(std::vector<double> const& factor, std::size_t n, double* b) {
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t k = 0; k < i; ++k) b[i] -= factor[i * n + k] * b[k];
    b[i] /= factor[i * n + i];
  }
}

}  // namespace

double QuantileOf(std::vector<double> values, double share) {
  double const last = static_cast<double>(values.size() - 1);
  auto const at = values.begin() + static_cast<std::ptrdiff_t>(std::ceil(share * last));
  std::nth_element(values.begin(), at, values.end());
  return *at;
}

double MedianOf(std::vector<double> values) {
  std::size_t const middle = values.size() / 2;
  auto const upper = values.begin() + static_cast<std::ptrdiff_t>(middle);
  std::nth_element(values.begin(), upper, values.end());
  if (values.size() % 2 == 1) return *upper;
  return (*upper + *std::max_element(values.begin(), upper)) / 2;
}

void RobustRegression::Standardize(std::vector<double> const& features, std::size_t count,
                                   std::size_t rows) {
  auto const n = static_cast<double>(rows);
  for (std::size_t j = 0; j < count; ++j) {
    double sum = 0.0, squares = 0.0;
    std::size_t zeros = 0;
    for (std::size_t i = 0; i < rows; ++i) {
      sum += features[i * count + j];
      zeros += features[i * count + j] == 0.0 ? 1 : 0;
    }
    double const mean = sum / n;
    for (std::size_t i = 0; i < rows; ++i) {
      double const off = features[i * count + j] - mean;
      squares += off * off;
    }
    double const scale = std::sqrt(squares / n);
    if (scale > 1e-9 * (1.0 + std::abs(mean))) {
      columns_.push_back({j, 2 * zeros > rows ? 0.0 : mean, scale});
    }
  }
  rows_.resize(rows * Width());
  for (std::size_t i = 0; i < rows; ++i) {
    double* const row = &rows_[i * Width()];
    SetRow(std::span(features).subspan(i * count, count), row);
    for (std::uint32_t j = 0; j < Width(); ++j) {
      if (row[j] != 0.0) filled_.push_back(j);
    }
    ends_.push_back(filled_.size());
  }
}

void RobustRegression::SetRow(std::span<double const> features, double* row) const {
  *row++ = 1.0;
  for (Column const& column : columns_) {
    *row++ = (features[column.feature] - column.mean) / column.scale;
  }
}

bool RobustRegression::Solve(std::vector<double> const& observed,
                             std::vector<double> const& weights) {
  std::size_t const n = Width();
  factor_.assign(n * n, 0.0);
  coefficients_.assign(n, 0.0);
  for (std::size_t i = 0; i < observed.size(); ++i) {
    if (weights[i] == 0.0) continue;
    double const* const row = Row(i);
    auto const filled = FilledOf(i);
    for (std::uint32_t const j : filled) {
      double const weighted = weights[i] * row[j];
      coefficients_[j] += weighted * observed[i];
      for (std::uint32_t const k : filled) {
        if (k > j) break;
        factor_[j * n + k] += weighted * row[k];
      }
    }
  }
  double const ridge = kRidge * static_cast<double>(observed.size());
  for (std::size_t j = 1; j < n; ++j) factor_[j * n + j] += ridge;
  if (!Factor(factor_, n)) return false;
  SolveLower(factor_, n, coefficients_.data());
  for (std::size_t i = n; i-- > 0;) {
    for (std::size_t k = i + 1; k < n; ++k) {
      coefficients_[i] -= factor_[k * n + i] * coefficients_[k];
    }
    coefficients_[i] /= factor_[i * n + i];
  }
  return true;
}

// The inverse of the normal equations, from their factor.
void RobustRegression::Invert() {
  std::size_t const n = Width();
  std::vector<double> lower(n * n, 0.0);  // the inverse of the factor
  for (std::size_t j = 0; j < n; ++j) {
    lower[j * n + j] = 1.0 / factor_[j * n + j];
    for (std::size_t i = j + 1; i < n; ++i) {
      double sum = 0.0;
      for (std::size_t k = j; k < i; ++k) sum -= factor_[i * n + k] * lower[k * n + j];
      lower[i * n + j] = sum / factor_[i * n + i];
    }
  }
  inverse_.assign(n * n, 0.0);
  for (std::size_t k = 0; k < n; ++k) {
    for (std::size_t i = 0; i <= k; ++i) {
      double const factor = lower[k * n + i];
      if (factor == 0.0) continue;
      for (std::size_t j = 0; j <= k; ++j) inverse_[i * n + j] += factor * lower[k * n + j];
    }
  }
}

double RobustRegression::Form(double const* row) const {
  std::size_t const n = Width();
  std::vector<std::size_t> filled;
  filled.reserve(n);
  for (std::size_t i = 0; i < n; ++i) {
    if (row[i] != 0.0) filled.push_back(i);
  }
  double sum = 0.0;
  for (std::size_t const i : filled) {
    double product = 0.0;
    for (std::size_t const j : filled) product += inverse_[i * n + j] * row[j];
    sum += row[i] * product;
  }
  return sum;
}

double RobustRegression::ValueOf(double const* row) const {
  double sum = 0.0;
  for (std::size_t j = 0; j < Width(); ++j) sum += row[j] * coefficients_[j];
  return sum;
}

std::optional<RobustRegression> RobustRegression::Fit(std::vector<double> const& features,
                                                      std::size_t count,
                                                      std::vector<double> const& observed) {
  std::size_t const rows = observed.size();
  if (rows < kFewest) return std::nullopt;
  RobustRegression fit;
  fit.Standardize(features, count, rows);
  if (rows < kPerCoefficient * fit.Width()) return std::nullopt;
  std::vector<double> weights(rows, 1.0);
  std::vector<double> off(rows);
  for (int step = 0;; ++step) {
    if (!fit.Solve(observed, weights)) return std::nullopt;
    if (step == kSteps) break;
    for (std::size_t i = 0; i < rows; ++i) off[i] = std::abs(observed[i] - fit.ValueOf(fit.Row(i)));
    double const sigma = kSigmaPerMad * MedianOf(off);
    if (sigma <= 0.0) break;  // more than half of the observations are met exactly
    for (std::size_t i = 0; i < rows; ++i) weights[i] = Weight(off[i] / sigma, step < kHuberSteps);
  }
  fit.Invert();
  for (std::size_t i = 0; i < rows; ++i) {
    double const form = fit.Form(fit.Row(i));
    double const others = 1.0 - weights[i] * form;
    double const residual = observed[i] - fit.ValueOf(fit.Row(i));
    bool const isByItself = others < 1.0 - kMostLeverage;
    fit.residuals_.push_back({residual / others, form / others, isByItself});
  }
  return fit;
}

RobustRegression::Foretold RobustRegression::At(std::span<double const> features) const {
  std::vector<double> row(Width());
  SetRow(features, row.data());
  return {ValueOf(row.data()), Form(row.data())};
}

}  // namespace zel
