#include "desk/fit/least_squares.h"

#ifdef ZEL_WITH_EIGEN
#include <Eigen/Dense>
#include <unsupported/Eigen/NonLinearOptimization>
#endif

#include <cmath>
#include <limits>

#include "desk/words/failure.h"

namespace zel::desk {

void NeedLeastSquares() {
  if (!HasLeastSquares()) {
    throw Failure("fits need a build with Eigen, which this one was made without");
  }
}

#ifdef ZEL_WITH_EIGEN

bool HasLeastSquares() noexcept { return true; }

namespace {

using EigenIndex = Eigen::Index;
using EigenMatrix = Eigen::MatrixXd;
using EigenVector = Eigen::VectorXd;

EigenMatrix AsEigen(SquaresMatrix const& a) {
  using ByRows = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
  return Eigen::Map<ByRows const>(a.cells.data(), static_cast<EigenIndex>(a.rows),
                                  static_cast<EigenIndex>(a.columns));
}

EigenVector AsEigen(std::vector<double> const& x) {
  return Eigen::Map<EigenVector const>(x.data(), static_cast<EigenIndex>(x.size()));
}

std::vector<double> AsVector(EigenVector const& x) { return {x.data(), x.data() + x.size()}; }

// Scales the columns to length 1 and returns their lengths, 1 for columns of zeros.
EigenVector ScaleColumns(EigenMatrix& a) {
  EigenVector lengths(a.cols());
  for (EigenIndex j = 0; j < a.cols(); ++j) {
    double const length = a.col(j).stableNorm();
    lengths[j] = length > 0.0 ? length : 1.0;
    a.col(j) /= lengths[j];
  }
  return lengths;
}

EigenVector SolveScaled(EigenMatrix a, EigenVector const& b) {
  EigenVector const lengths = ScaleColumns(a);
  EigenVector const x = a.completeOrthogonalDecomposition().solve(b);
  return x.cwiseQuotient(lengths);
}

// What the solver of nonlinear problems calls.
class EigenFunctor {
 public:
  using Scalar = double;
  EigenFunctor(ResidualFunction const& residuals, std::size_t rows, std::size_t columns)
      : residuals_(residuals), rows_(rows), columns_(columns) {}

  int inputs() const { return static_cast<int>(columns_); }
  int values() const { return static_cast<int>(rows_); }
  int operator()(EigenVector const& x, EigenVector& values) const {
    std::vector<double> result(rows_);
    residuals_(AsVector(x), result, nullptr);
    values = AsEigen(result);
    return 0;
  }
  int df(EigenVector const& x, EigenMatrix& slopes) const {
    std::vector<double> result(rows_);
    SquaresMatrix jacobian(rows_, columns_);
    residuals_(AsVector(x), result, &jacobian);
    slopes = AsEigen(jacobian);
    return 0;
  }

 private:
  ResidualFunction const& residuals_;
  std::size_t rows_;
  std::size_t columns_;
};

double SumAt(EigenFunctor const& functor, EigenVector const& x) {
  EigenVector values(functor.values());
  functor(x, values);
  double const sum = values.squaredNorm();
  return std::isfinite(sum) ? sum : std::numeric_limits<double>::infinity();
}

// The damped method stops where the sum hardly changes; where the unknowns are nearly dependent,
// they still do. A step that goes too far is halved.
void Polish(EigenFunctor const& functor, EigenVector& x, double& sum) {
  constexpr int kMostSteps = 60;
  constexpr int kMostHalvings = 12;
  for (int i = 0; i < kMostSteps; ++i) {
    EigenVector values(functor.values());
    EigenMatrix slopes(functor.values(), functor.inputs());
    functor(x, values);
    functor.df(x, slopes);
    if (!slopes.allFinite()) return;
    EigenVector step = SolveScaled(slopes, values);
    if (!step.allFinite()) return;
    double nextSum = SumAt(functor, x - step);
    for (int half = 0; half < kMostHalvings && !(nextSum < sum); ++half) {
      step /= 2.0;
      nextSum = SumAt(functor, x - step);
    }
    if (!(nextSum < sum)) return;
    x -= step;
    sum = nextSum;
  }
}

}  // namespace

std::vector<double> SolveLinear(SquaresMatrix const& a, std::vector<double> const& b) {
  return AsVector(SolveScaled(AsEigen(a), AsEigen(b)));
}

SquaresSolution SolveNonlinear(ResidualFunction const& residuals, std::size_t rows,
                               std::vector<double> const& start) {
  constexpr int kMostEvaluations = 400;
  constexpr int kMostRuns = 4;
  constexpr double kWorthIt = 0.9;  // of the sum, for another run with new scales
  EigenFunctor functor(residuals, rows, start.size());
  EigenVector x = AsEigen(start);
  double sum = SumAt(functor, x);
  for (int run = 0; run < kMostRuns; ++run) {
    Eigen::LevenbergMarquardt<EigenFunctor> solver(functor);
    solver.parameters.ftol = std::numeric_limits<double>::epsilon();
    solver.parameters.xtol = std::numeric_limits<double>::epsilon();
    solver.parameters.maxfev = kMostEvaluations;
    EigenVector found = x;
    solver.minimize(found);
    double const foundSum = found.allFinite() ? SumAt(functor, found) : sum;
    if (!(foundSum < sum)) break;
    bool const isWorthIt = foundSum < kWorthIt * sum;
    x = found;
    sum = foundSum;
    if (!isWorthIt) break;
  }
  Polish(functor, x, sum);
  return {AsVector(x), sum};
}

SquaresCertainty CertaintyOf(SquaresMatrix const& jacobian) {
  constexpr double kLeastSingular = 1e-11;  // of the largest, for scaled columns
  constexpr double kLeastShare = 1e-3;      // of an unknown in a direction
  EigenMatrix a = AsEigen(jacobian);
  EigenVector const lengths = ScaleColumns(a);
  Eigen::JacobiSVD<EigenMatrix> const svd(a, Eigen::ComputeThinV);
  EigenVector const& singular = svd.singularValues();
  SquaresCertainty result{0, std::vector<bool>(jacobian.columns, true),
                          SquaresMatrix(jacobian.columns, jacobian.columns)};
  EigenMatrix covariance = EigenMatrix::Zero(a.cols(), a.cols());
  for (EigenIndex k = 0; k < a.cols(); ++k) {
    EigenVector const direction = svd.matrixV().col(k);
    if (k < singular.size() && singular[k] > kLeastSingular * singular[0]) {
      ++result.rank;
      covariance += direction * direction.transpose() / (singular[k] * singular[k]);
      continue;
    }
    for (EigenIndex j = 0; j < a.cols(); ++j) {
      if (std::abs(direction[j]) > kLeastShare)
        result.isDetermined[static_cast<std::size_t>(j)] = false;
    }
  }
  for (std::size_t i = 0; i < jacobian.columns; ++i) {
    for (std::size_t j = 0; j < jacobian.columns; ++j) {
      auto const row = static_cast<EigenIndex>(i);
      auto const column = static_cast<EigenIndex>(j);
      bool const isDetermined = result.isDetermined[i] && result.isDetermined[j];
      result.covariance.Row(i)[j] = isDetermined
                                        ? covariance(row, column) / (lengths[row] * lengths[column])
                                        : std::numeric_limits<double>::quiet_NaN();
    }
  }
  return result;
}

#else

bool HasLeastSquares() noexcept { return false; }

std::vector<double> SolveLinear(SquaresMatrix const& /*a*/, std::vector<double> const& /*b*/) {
  NeedLeastSquares();
  return {};
}

SquaresSolution SolveNonlinear(ResidualFunction const& /*residuals*/, std::size_t /*rows*/,
                               std::vector<double> const& /*start*/) {
  NeedLeastSquares();
  return {};
}

SquaresCertainty CertaintyOf(SquaresMatrix const& jacobian) {
  NeedLeastSquares();
  return {0, {}, jacobian};
}

#endif

}  // namespace zel::desk
