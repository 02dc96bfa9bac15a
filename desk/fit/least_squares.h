// Least squares: linear systems, functions with their Jacobian, and what the points determine. The
// only source that includes the library of linear algebra is that of this header.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace zel::desk {

// False if the desk was built without Eigen; the functions below then throw Failure, which says so.
bool HasLeastSquares() noexcept;
// Throws Failure in a build without a library for least squares.
void NeedLeastSquares();

// The matrix of a system, by rows.
struct SquaresMatrix {
  std::size_t rows = 0;
  std::size_t columns = 0;
  std::vector<double> cells;

  SquaresMatrix(std::size_t rowCount, std::size_t columnCount)
      : rows(rowCount), columns(columnCount), cells(rowCount * columnCount) {}
  double* Row(std::size_t row) { return cells.data() + row * columns; }
  double const* Row(std::size_t row) const { return cells.data() + row * columns; }
};

// The x for which |A x - b| is least. Columns are scaled to length 1. Where A does not determine x,
// the shortest of the scaled ones.
std::vector<double> SolveLinear(SquaresMatrix const& a, std::vector<double> const& b);

// Computes the residuals at x and, unless it is null, their derivatives with respect to x.
using ResidualFunction = std::function<void(
    std::vector<double> const& x, std::vector<double>& residuals, SquaresMatrix* jacobian)>;

struct SquaresSolution {
  std::vector<double> x;
  double sum = 0.0;  // of the squared residuals
};

// The x near `start` for which the sum of the squares of `rows` residuals is least, by the method
// of Levenberg and Marquardt, and then by steps of Gauss and Newton as long as they lessen the sum.
// Residuals must be finite.
SquaresSolution SolveNonlinear(ResidualFunction const& residuals, std::size_t rows,
                               std::vector<double> const& start);

// What a Jacobian says about the unknowns.
struct SquaresCertainty {
  std::size_t rank = 0;
  std::vector<bool> isDetermined;  // by unknown
  SquaresMatrix covariance;        // for residuals of variance 1
};

// Two unknowns that only act together are both not determined; their rows and columns of the
// covariance are undefined.
SquaresCertainty CertaintyOf(SquaresMatrix const& jacobian);

}  // namespace zel::desk
