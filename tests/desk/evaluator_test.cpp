// Evaluators: many values of one correlation, in the caller's arrays.
#include <gtest/gtest.h>
#include <zelaccess/DeskEvaluator.h>

#include <array>
#include <cmath>
#include <optional>
#include <thread>
#include <vector>

#include "desk_fixture.h"

namespace desk = zel::desk;

namespace {

class EvaluatorTest : public DeskTest {
 protected:
  static desk::Component Ethanol() {
    return desk::Libraries(Paths({"perry.lb1"})).Component("ETHANOL");
  }
  // Temperatures in K: below absolute zero, below, in and above the range of the vapor pressure.
  static std::vector<double> Temperatures(std::size_t count) {
    std::vector<double> all;
    for (std::size_t i = 0; i < count; ++i) {
      all.push_back(-10.0 + 600.0 * static_cast<double>(i) / static_cast<double>(count));
    }
    return all;
  }
};

bool AreSame(double one, double other) {
  return one == other || (std::isnan(one) && std::isnan(other));
}

TEST_F(EvaluatorTest, ArraysHaveWhatSingleCallsReturn) {
  std::vector<double> const temperatures = Temperatures(5000);
  for (int const order : {1, 2, 3}) {
    desk::Evaluator const pressure(Ethanol(), zel::Correlation::VaporPressure, {"bar", "K", order});
    std::vector<double> values(temperatures.size());
    std::vector<double> slopes(temperatures.size());
    std::vector<std::int32_t> statuses(temperatures.size());
    desk::EvaluatorArrays arrays;
    arrays.count = temperatures.size();
    arrays.temperatures = temperatures.data();
    arrays.values = values.data();
    arrays.derivatives = slopes.data();
    arrays.statuses = statuses.data();
    pressure.Evaluate(arrays);
    std::vector<double> onlySlopes(temperatures.size());
    arrays.values = nullptr;
    arrays.statuses = nullptr;
    arrays.derivatives = onlySlopes.data();
    pressure.Evaluate(arrays);
    std::array<int, 3> seen{};
    for (std::size_t i = 0; i < temperatures.size(); ++i) {
      ASSERT_TRUE(AreSame(values[i], pressure.Value(temperatures[i]))) << temperatures[i];
      ASSERT_TRUE(AreSame(slopes[i], onlySlopes[i])) << temperatures[i];
      ASSERT_EQ(temperatures[i] < 0.0, std::isnan(values[i])) << temperatures[i];
      ++seen.at(static_cast<std::size_t>(statuses[i] + 1));
    }
    EXPECT_GT(seen[0], 0);
    EXPECT_GT(seen[1], 0);
    EXPECT_GT(seen[2], 0);
    EXPECT_EQ(pressure.Unit(), "bar");
  }
}

TEST_F(EvaluatorTest, ADetachedCorrelationHasTheSameValues) {
  desk::Evaluator const pressure(Ethanol(), zel::Correlation::VaporPressure);
  ASSERT_NE(pressure.Detached(), nullptr);
  desk::Evaluator const alone(*pressure.Detached());
  for (double const temperature : {100.0, 300.0, 351.4, 600.0}) {
    EXPECT_EQ(alone.Value(temperature), pressure.Value(temperature));
  }
  zel::ZelCorrelation changed = *pressure.Detached();
  changed.factor *= 2.0;
  EXPECT_EQ(desk::Evaluator(changed).Value(300.0), 2.0 * pressure.Value(300.0));
}

TEST_F(EvaluatorTest, ARecordWithoutRangeHasNoValuesBelowAbsoluteZero) {
  zel::ZelCorrelation line;  // 1 + T, in C
  line.index = zel::correlationIdealGasCp;
  line.equation = 1;
  line.coefficientCount = 2;
  line.coefficients[0] = line.coefficients[1] = 1.0;
  line.tempUnit = 11;
  desk::Evaluator const open(line, {"", "C"});
  EXPECT_TRUE(std::isfinite(open.Value(-273.1)));
  EXPECT_TRUE(std::isnan(open.Value(-273.2)));
  line.tMin = -300.0;
  EXPECT_TRUE(std::isnan(desk::Evaluator(line, {"", "C"}).Value(-273.2)));
  line.tMin = 0.0;
  desk::Evaluator const bounded(line, {"", "C"});
  EXPECT_TRUE(std::isnan(bounded.Value(-273.2)));
  EXPECT_TRUE(std::isfinite(bounded.Value(-273.1))) << "extrapolated";
}

TEST_F(EvaluatorTest, VectorModeIsAsGoodAsItSays) {
  std::vector<double> const temperatures = Temperatures(3000);
  std::vector<double> exact(temperatures.size());
  std::vector<double> fast(temperatures.size());
  desk::Evaluator const pressure(Ethanol(), zel::Correlation::VaporPressure);
  desk::EvaluatorArrays arrays;
  arrays.count = temperatures.size();
  arrays.temperatures = temperatures.data();
  arrays.values = exact.data();
  pressure.Evaluate(arrays);
  arrays.values = fast.data();
  arrays.mode = zel::batchVector;
  pressure.Evaluate(arrays);
  for (std::size_t i = 0; i < temperatures.size(); ++i) {
    if (std::isnan(exact[i])) {
      EXPECT_TRUE(std::isnan(fast[i]));
    } else {
      EXPECT_NEAR(fast[i], exact[i], 1e-12 * std::fabs(exact[i]));
    }
  }
}

TEST_F(EvaluatorTest, ItOutlivesComponentAndLibrariesAndServesThreads) {
  std::optional<desk::Evaluator> pressure;
  {
    desk::Libraries const libraries(Paths({"perry.lb1"}));
    pressure.emplace(libraries.Component("ETHANOL"), zel::Correlation::VaporPressure);
  }
  double const expected = pressure->Value(351.4);
  std::array<double, 4> sums{};
  std::vector<std::thread> threads;
  for (double& sum : sums) {
    threads.emplace_back([&sum, &pressure] {
      for (int i = 0; i < 1000; ++i) sum += pressure->Value(351.4);
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (double const sum : sums) EXPECT_NEAR(sum, 1000.0 * expected, 1e-6);
}

TEST_F(EvaluatorTest, ThreadsMayShareOneComponent) {
  desk::Component const ethanol = Ethanol();
  double const expected = ethanol.Constant(zel::Constant::TC)->value;
  std::array<int, 4> wrong{};
  std::vector<std::thread> threads;
  for (int& count : wrong) {
    threads.emplace_back([&count, &ethanol, expected] {
      for (int i = 0; i < 300; ++i) {
        bool const isSame = ethanol.Constant(zel::Constant::TC)->value == expected &&
                            ethanol.Identity().name == "Ethanol" &&
                            ethanol.Correlation(zel::Correlation::VaporPressure).has_value();
        count += isSame ? 0 : 1;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, (std::array<int, 4>{}));
}

TEST_F(EvaluatorTest, WordsThatMeanNothingAreErrors) {
  desk::Component const ethanol = Ethanol();
  EXPECT_THROW(desk::Evaluator(ethanol, zel::Correlation::Dielectric), desk::MissingDatum);
  EXPECT_THROW(desk::Evaluator(ethanol, zel::Correlation::VaporPressure, {"W"}), desk::UnknownWord);
  EXPECT_THROW(desk::Evaluator(ethanol, zel::Correlation::VaporPressure, {"", "bar"}),
               desk::UnknownWord);
  EXPECT_THROW(desk::Evaluator(ethanol, zel::Correlation::VaporPressure, {"", "K", 4}),
               desk::UnknownWord);
  zel::ZelCorrelation none;
  none.index = 18;
  EXPECT_THROW(desk::Evaluator{none}, desk::UnknownWord);
}

}  // namespace
