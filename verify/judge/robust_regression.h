// Linear regression that gross errors in some of the observations do not spoil.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace zel {

// The median; the mean of the two in the middle of an even number. `values` is not empty.
double MedianOf(std::vector<double> values);
// The value that the given share of the values does not exceed. `values` is not empty.
double QuantileOf(std::vector<double> values, double share);

// 1.4826 makes the median of absolute deviations a standard deviation, if errors are normal.
inline constexpr double kSigmaPerMad = 1.4826;

// Iteratively reweighted least squares: Huber's weights first, then Tukey's, with a small ridge on
// standardized features. A constant term is added by itself; features that do not vary are ignored.
class RobustRegression {
 public:
  struct Residual {
    double value = 0.0;     // of an observation, from a fit without it
    double leverage = 0.0;  // variance of what that fit foretells, in variances of the scatter
    // The other observations say little about it, for example if it is the only one with a feature.
    bool isByItself = false;
  };

  // `features` has a row of `count` numbers for each observation. Empty if there are fewer than 25
  // observations or than 3 for each coefficient.
  static std::optional<RobustRegression> Fit(std::vector<double> const& features, std::size_t count,
                                             std::vector<double> const& observed);

  // What the fit gives for the features of another observation.
  struct Foretold {
    double value = 0.0;
    double leverage = 0.0;  // its variance, in variances of the scatter
  };
  Foretold At(std::span<double const> features) const;
  // The residual of an observation of the fit.
  Residual const& Of(std::size_t observation) const { return residuals_[observation]; }

 private:
  // What is subtracted from a feature, and what it is divided by. Nothing is subtracted from a
  // feature that is mostly 0, so that its zeros take no work.
  struct Column {
    std::size_t feature;
    double mean;
    double scale;
  };

  RobustRegression() = default;
  void Standardize(std::vector<double> const& features, std::size_t count, std::size_t rows);
  std::size_t Width() const { return columns_.size() + 1; }
  double const* Row(std::size_t observation) const { return &rows_[observation * Width()]; }
  // The places in a row that are not 0.
  std::span<std::uint32_t const> FilledOf(std::size_t observation) const {
    std::size_t const begin = observation == 0 ? 0 : ends_[observation - 1];
    return std::span(filled_).subspan(begin, ends_[observation] - begin);
  }
  void SetRow(std::span<double const> features, double* row) const;
  bool Solve(std::vector<double> const& observed, std::vector<double> const& weights);
  void Invert();
  // x' A^-1 x of a standardized row.
  double Form(double const* row) const;
  double ValueOf(double const* row) const;

  std::vector<Column> columns_;
  std::vector<double> rows_;  // standardized, each begins with 1
  std::vector<std::uint32_t> filled_;
  std::vector<std::size_t> ends_;  // in filled_, by row
  std::vector<double> factor_;     // lower triangle of Cholesky's factor of the normal equations
  std::vector<double> inverse_;
  std::vector<double> coefficients_;  // for standardized features
  std::vector<Residual> residuals_;
};

}  // namespace zel
