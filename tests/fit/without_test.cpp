// A build without Eigen, made of the sources alone.
#include <gtest/gtest.h>

#include <string>

#include "desk/fit/least_squares.h"
#include "desk/words/failure.h"

namespace zel::test {
namespace {

TEST(WithoutEigen, FitsAreRefusedInWords) {
  EXPECT_FALSE(desk::HasLeastSquares());
  try {
    desk::SolveLinear(desk::SquaresMatrix(1, 1), {1.0});
    FAIL() << "solved";
  } catch (desk::Failure const& failure) {
    EXPECT_EQ(std::string(failure.what()),
              "fits need a build with Eigen, which this one was made without");
  }
  EXPECT_THROW(desk::NeedLeastSquares(), desk::Failure);
  EXPECT_THROW(desk::CertaintyOf(desk::SquaresMatrix(1, 1)), desk::Failure);
  EXPECT_THROW(desk::SolveNonlinear({}, 1, {1.0}), desk::Failure);
}

}  // namespace
}  // namespace zel::test
