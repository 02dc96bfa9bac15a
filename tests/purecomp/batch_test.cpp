// Batches and correlations by themselves give, bit for bit, what single evaluations give.
#include "zelaccess/Batch.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <type_traits>

#include "purecomp/equations.h"
#include "tests/purecomp/batch_compare.h"
#include "tests/purecomp/evaluate_fixture.h"
#include "tests/purecomp/published_records.h"

namespace zel::test {
namespace {

static_assert(std::is_trivially_copyable_v<ZelCorrelation>);

constexpr double kNone = gen_GetUndefDouble();

// --- all published records -----------------------------------------------------------------------

class PublishedBatches : public ::testing::TestWithParam<char const*> {};

std::vector<double> TemperaturesOf(PublishedRecord const& record) {
  double const low = gen_IsUndefDouble(record.tMin) ? 250.0 : record.tMin;
  double const high = gen_IsUndefDouble(record.tMax) ? 1000.0 : record.tMax;
  std::vector<double> all = {0.0,
                             -5.0,
                             low,
                             high,
                             record.Tc,
                             std::nextafter(low, 0.0),
                             std::nextafter(high, 1e9),
                             low * 0.4,
                             low * 0.9,
                             high * 1.1,
                             high * 3.0,
                             record.Tc * 0.99995,
                             std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity()};
  for (int k = 1; k < 8; ++k) all.push_back(low + (high - low) * k / 8);
  for (double const c : record.coefficients) {
    if (c > 100.0 && c < 2000.0) all.push_back(c);
  }
  return all;
}

TEST_P(PublishedBatches, AreSingleEvaluationsBitForBit) {
  PublishedRecords records(ZEL_DATA, GetParam());
  int count = 0;
  records.Each([&](PublishedRecord const& record) {
    if (::testing::Test::HasFatalFailure()) return;
    CompareAll(records.Component(), record.index, TemperaturesOf(record),
               record.name + " eq " + std::to_string(record.equation));
    ++count;
  });
  EXPECT_GT(count, 200);
}

INSTANTIATE_TEST_SUITE_P(Published, PublishedBatches, ::testing::ValuesIn(kPublishedSources),
                         [](auto const& source) { return std::string(source.param); });

// --- random records ------------------------------------------------------------------------------

constexpr std::int32_t kNumbers[] = {0,  1,  2,  3,  4,  5,  6,  7,  12, 13,  14,  15, 16, 17,
                                     18, 19, 20, 21, 22, 23, 24, 25, 26, 27,  28,  29, 30, 31,
                                     32, 33, 34, 35, 36, 37, 38, 39, 40, 41,  42,  43, 44, 45,
                                     46, 47, 48, 49, 50, 51, 52, 53, 54, 117, 126, 134};

class RandomRecords {
 public:
  double Between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(engine_);
  }
  int Below(int count) { return static_cast<int>(engine_() % static_cast<unsigned>(count)); }

  void Constants(ComponentBank const& bank) {
    Tc = Between(300.0, 900.0);
    bank->SetProperty(propertyMW, Between(10.0, 200.0));
    bank->SetProperty(propertyTC, Tc);
    bank->SetProperty(propertyPC, Between(1000.0, 9000.0));
    bank->SetProperty(propertyNBP, Tc * Between(0.5, 0.8));
  }
  void Record(ComponentBank const& bank, std::uint32_t index, std::int32_t equation) {
    constexpr std::int32_t kUnits[] = {0, 4010, 4012, 4015, 19081, 28012, 28018, 30011, 40010};
    double c[15];
    bool const small = Below(2) == 0;
    for (int k = 0; k < 15; ++k) {
      c[k] = small ? Between(-2.0, 2.0) * std::pow(10.0, -1.5 * k)
                   : Between(-10.0, 10.0) * std::pow(10.0, Between(-6.0, 3.0)) * (Below(5) != 0);
    }
    for (int const k : {1, 2, 8}) {
      if (Below(2) == 0) c[k] = Between(200.0, 900.0);  // where some forms have a temperature
    }
    double const low = Below(5) == 0 ? kNone : Between(100.0, 400.0);
    double const high = Below(5) == 0 ? kNone : Between(350.0, 1000.0);
    bank->SetCorrelation(index, equation, 10, kUnits[Below(9)], 1 + Below(2), Below(3),
                         equation == 40 ? 9 : 1 + Below(15), low, high, c);
    temperatures = {Between(50.0, 1200.0),
                    Between(150.0, 500.0),
                    Between(150.0, 500.0),
                    Tc,
                    Tc * 0.99999,
                    low,
                    high,
                    0.0,
                    -3.0,
                    c[1],
                    c[2]};
  }

  double Tc = 0.0;
  std::vector<double> temperatures;

 private:
  std::mt19937_64 engine_{20240607};
};

TEST(Correlations, FactorIsThatFromTheEquationToTheCorrelation) {
  struct {
    zelCorrelations index;
    std::int32_t basis;
    double factor;
  } const rows[] = {{correlationLiquidDensity, 1, 3.0},
                    {correlationLiquidDensity, 2, 3.0 / 16.0},
                    {correlationSolidDensity, 2, 3.0 / 16.0},
                    {correlationLatentHeat, 0, 3.0},
                    {correlationLatentHeat, 2, 48.0}};
  for (auto const& row : rows) {
    ZelCorrelation record;
    record.index = row.index;
    record.equation = 1;
    record.coefficientCount = 1;
    record.coefficients[0] = 2.0;
    record.factor = 3.0;
    record.moleWtBasis = row.basis;
    record.molecularWeight = 16.0;
    EXPECT_EQ(FactorOf(record), row.factor);
    double value = 0.0;
    EvaluateOne(record, 300.0, 1, &value, nullptr, nullptr, nullptr);
    EXPECT_EQ(value, 2.0 * FactorOf(record));
  }
}

TEST(Batches, OfAllFormsAreSingleEvaluationsBitForBit) {
  RandomRecords random;
  for (int round = 0; round < 20; ++round) {
    ComponentBank bank;
    random.Constants(bank);
    for (std::int32_t const equation : kNumbers) {
      for (std::uint32_t index = 0; index < 18; ++index) {
        if (!EvaluatesOthers(equation) && random.Below(4) != 0) continue;
        random.Record(bank, index, equation);
        CompareAll(*bank.operator->(), index, random.temperatures,
                   "eq " + std::to_string(equation) + " index " + std::to_string(index));
        if (HasFatalFailure()) return;
      }
    }
  }
}

// --- arrays --------------------------------------------------------------------------------------

class BatchArrays : public ::testing::Test {
 protected:
  BatchArrays() {
    bank_->SetProperty(propertyTC, 513.92);
    SetCorrelation(bank_, correlationVaporPressure, 20, {74.475, -7164.3, -7.327, 3.134e-06, 2.0},
                   159.05, 513.92, 4010);
  }
  IZelPureComp* Component() { return bank_.operator->(); }
  ZelCorrelation Taken() {
    ZelCorrelation taken;
    EXPECT_EQ(TakeCorrelation(Component(), correlationVaporPressure, taken), kStatusOk);
    return taken;
  }

  ComponentBank bank_;
};

TEST_F(BatchArrays, StridesReachTheElementsOfOtherStructures) {
  struct Row {
    double temperature, value, between, slope;
    std::int32_t status, other;
  };
  std::vector<Row> rows;
  for (int i = 0; i < 9; ++i) rows.push_back({100.0 + 60.0 * i, 0.0, -7.0, 0.0, 99, 8});
  std::vector<Row> const before = rows;
  for (bool const backwards : {false, true}) {
    std::int64_t const step = sizeof(Row) / sizeof(double);
    Row& first = backwards ? rows.back() : rows.front();
    ZelBatch batch;
    batch.count = 9;
    batch.temperatures = &first.temperature;
    batch.values = &first.value;
    batch.derivatives = &first.slope;
    batch.statuses = &first.status;
    batch.temperatureStride = batch.valueStride = batch.derivativeStride = backwards ? -step : step;
    batch.statusStride = 2 * batch.valueStride;
    EXPECT_EQ(EvaluateBatch(Taken(), batch), kStatusNothingNew);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      Evaluated const single = Evaluate(bank_, correlationVaporPressure, before[i].temperature);
      EXPECT_EQ(rows[i].value, single.value);
      EXPECT_EQ(rows[i].slope, single.derivative);
      EXPECT_EQ(rows[i].status, single.status);
      EXPECT_EQ(rows[i].temperature, before[i].temperature);
      EXPECT_EQ(rows[i].between, -7.0);
      EXPECT_EQ(rows[i].other, 8);
    }
    rows = before;
  }
}

TEST_F(BatchArrays, AStrideOf0IsOneElementForAll) {
  double const T[] = {300.0, 320.0, 340.0};
  double values[3] = {}, last = 0.0;
  ZelBatch batch;
  batch.count = 3;
  batch.temperatures = T;
  batch.temperatureStride = 0;
  batch.values = values;
  EXPECT_EQ(EvaluateBatch(Taken(), batch), kStatusOk);
  EXPECT_EQ(values[0], Evaluate(bank_, correlationVaporPressure, 300.0).value);
  EXPECT_EQ(values[2], values[0]);
  batch.temperatureStride = 1;
  batch.values = &last;
  batch.valueStride = 0;
  EXPECT_EQ(EvaluateBatch(Taken(), batch), kStatusOk);
  EXPECT_EQ(last, Evaluate(bank_, correlationVaporPressure, 340.0).value);
}

TEST_F(BatchArrays, ValuesCanReplaceTheTemperatures) {
  std::vector<double> both = {200.0, 300.0, 400.0, 500.0};
  std::vector<double> const temperatures = both;
  for (zelBatchModes const mode : {batchExact, batchVector}) {
    both = temperatures;
    ZelBatch batch;
    batch.count = 4;
    batch.mode = mode;
    batch.temperatures = batch.values = both.data();
    EXPECT_EQ(EvaluateBatch(Taken(), batch), kStatusOk);
    for (std::size_t i = 0; i < both.size(); ++i) {
      double const value = Evaluate(bank_, correlationVaporPressure, temperatures[i]).value;
      EXPECT_NEAR(both[i], value, mode == batchExact ? 0.0 : 1e-12 * value);
    }
  }
}

// --- many correlations ---------------------------------------------------------------------------

TEST_F(BatchArrays, AllCorrelationsOfAComponentAtOneTemperature) {
  SetCorrelation(bank_, correlationLatentHeat, 15, {5.69e4, 0.3359}, 159.05, 513.92, 0);
  SetCorrelation(bank_, correlationExpansion, 1, {1.0});
  SetCorrelation(bank_, correlationLiquidDensity, 38, {1.0, 0.5, 0.25});
  double const T = 298.15;
  for (std::int32_t const order : {1, 2, 3, 11}) {
    Results all(18);
    ZelBatch batch = all.Batch({}, order);
    batch.temperatures = &T;
    batch.temperatureStride = 0;
    EXPECT_EQ(EvaluateAllCorrelations(Component(), batch), kStatusFailed);
    Results expected(18);
    for (std::uint32_t i = 0; i < 18; ++i) {
      expected.results[i] =
          bank_->EvaluateCorrelation(i, T, order, &expected.values[i], &expected.derivatives[i],
                                     &expected.weights[15 * i], &expected.statuses[i]);
    }
    EXPECT_TRUE(SameBits(all.values, expected.values));
    EXPECT_TRUE(SameBits(all.derivatives, expected.derivatives));
    EXPECT_TRUE(SameBits(all.weights, expected.weights));
    EXPECT_EQ(all.statuses, expected.statuses);
    EXPECT_EQ(all.results, expected.results);
    EXPECT_EQ(all.results[correlationLatentHeat], kStatusOk);
    EXPECT_EQ(all.results[correlationSolidCp], kStatusFailed);
  }
}

TEST_F(BatchArrays, OneCorrelationOfManyComponents) {
  ComponentBank other, empty;
  SetCorrelation(other, correlationVaporPressure, 1, {3.0, 0.5});
  IZelPureComp* components[] = {Component(), other.operator->(), empty.operator->(), nullptr,
                                Component()};
  double const T = 450.0;
  Results r(5);
  ZelBatch batch = r.Batch({}, 1);
  batch.temperatures = &T;
  batch.temperatureStride = 0;
  EXPECT_EQ(EvaluateEachComponent(components, correlationVaporPressure, batch), kStatusFailed);
  EXPECT_EQ(r.results, (std::vector<ZelStatus>{kStatusOk, kStatusNothingNew, kStatusFailed,
                                               kStatusFailed, kStatusOk}));
  EXPECT_EQ(r.values[0], Evaluate(bank_, correlationVaporPressure, T).value);
  EXPECT_EQ(r.values[1], Evaluate(other, correlationVaporPressure, T).value);
  EXPECT_EQ(r.values[2], kBefore);
  EXPECT_EQ(r.values[4], r.values[0]);
  batch.count = 2;
  EXPECT_EQ(EvaluateEachComponent(components, correlationVaporPressure, batch), kStatusNothingNew);
}

TEST_F(BatchArrays, ManyCorrelationsAtTheirOwnTemperatures) {
  std::vector<ZelCorrelation> all(3, Taken());
  all[1].coefficients[0] += 0.25;
  all[2].equation = 38;
  std::vector<double> const T = {300.0, 310.0, 320.0};
  Results r(3);
  EXPECT_EQ(EvaluateEachCorrelation(all.data(), r.Batch(T, 1)), kStatusFailed);
  for (std::size_t i = 0; i < 3; ++i) {
    double value = kBefore, slope = kSlopeBefore;
    EXPECT_EQ(EvaluateOne(all[i], T[i], 1, &value, &slope, nullptr, nullptr), r.results[i]);
    EXPECT_EQ(r.values[i], value);
    EXPECT_EQ(r.derivatives[i], slope);
  }
  EXPECT_EQ(r.results[2], kStatusFailed);
  EXPECT_NEAR(r.values[1], Evaluate(bank_, correlationVaporPressure, 310.0).value * std::exp(0.25),
              1e-9);
}

// --- what fails ----------------------------------------------------------------------------------

TEST_F(BatchArrays, ACorrelationThatEvaluatesOthersIsEvaluatedThroughItsComponentOnly) {
  SetCorrelation(bank_, correlationLiquidViscosity, 38, {1.0, 0.0, 0.25});
  ZelCorrelation taken;
  taken.equation = 5;
  EXPECT_EQ(TakeCorrelation(Component(), correlationLiquidViscosity, taken), kStatusFailed);
  EXPECT_EQ(taken.equation, 5) << "unchanged";
  double const T = 300.0;
  double value = kBefore;
  ZelBatch batch;
  batch.count = 1;
  batch.temperatures = &T;
  batch.values = &value;
  EXPECT_EQ(EvaluateComponentBatch(Component(), correlationLiquidViscosity, batch), kStatusOk);
  EXPECT_EQ(value, Evaluate(bank_, correlationLiquidViscosity, T).value);
}

TEST_F(BatchArrays, AnUnknownCorrelationFailsForEachElement) {
  ZelCorrelation unknown = Taken();
  unknown.index = 1000;
  double const T[] = {300.0, 310.0};
  double values[] = {kBefore, kBefore};
  ZelStatus results[] = {77, 77};
  ZelBatch batch;
  batch.count = 2;
  batch.temperatures = T;
  batch.values = values;
  batch.results = results;
  EXPECT_EQ(EvaluateBatch(unknown, batch), kStatusFailed);
  for (int i : {0, 1}) {
    EXPECT_EQ(values[i], kBefore) << i;
    EXPECT_EQ(results[i], kStatusFailed) << i;
  }
  batch.results = nullptr;
  EXPECT_EQ(EvaluateBatch(unknown, batch), kStatusFailed);
  batch.count = 0;
  EXPECT_EQ(EvaluateBatch(unknown, batch), kStatusOk);
  ZelCorrelation taken;
  taken.equation = 5;
  EXPECT_EQ(TakeCorrelation(Component(), 1000, taken), kStatusFailed);
  EXPECT_EQ(TakeCorrelation(Component(), correlationLiquidCp, taken), kStatusFailed) << "not set";
  EXPECT_EQ(taken.equation, 5) << "unchanged";
}

TEST_F(BatchArrays, NothingIsEvaluatedWithoutArrays) {
  double const T = 300.0;
  double value = kBefore;
  ZelStatus result = 77;
  ZelBatch good;
  good.count = 1;
  good.temperatures = &T;
  good.values = &value;
  good.results = &result;
  ZelBatch noTemperatures = good, noOutputs = good, negative = good, none = good;
  noTemperatures.temperatures = nullptr;
  noOutputs.values = nullptr;
  negative.count = -1;
  none.count = 0;
  none.temperatures = nullptr;
  ZelCorrelation const taken = Taken();
  IZelPureComp* const components[] = {Component()};
  for (ZelBatch const& bad : {noTemperatures, noOutputs, negative}) {
    EXPECT_EQ(EvaluateBatch(taken, bad), kStatusFailed);
    EXPECT_EQ(EvaluateComponentBatch(Component(), 0, bad), kStatusFailed);
    EXPECT_EQ(EvaluateEachCorrelation(&taken, bad), kStatusFailed);
    EXPECT_EQ(EvaluateAllCorrelations(Component(), bad), kStatusFailed);
    EXPECT_EQ(EvaluateEachComponent(components, 0, bad), kStatusFailed);
  }
  EXPECT_EQ(value, kBefore);
  EXPECT_EQ(result, 77U);
  EXPECT_EQ(EvaluateBatch(taken, none), kStatusOk);
  EXPECT_EQ(EvaluateEachCorrelation(nullptr, none), kStatusOk);
  EXPECT_EQ(EvaluateEachComponent(nullptr, 0, none), kStatusOk);
  ZelBatch many = good;
  many.count = 19;
  EXPECT_EQ(EvaluateAllCorrelations(Component(), many), kStatusFailed);
  EXPECT_EQ(EvaluateBatch(taken, good), kStatusOk);
  EXPECT_EQ(EvaluateComponentBatch(Component(), correlationSolidCp, good), kStatusFailed);
  EXPECT_EQ(result, kStatusFailed);
  EXPECT_EQ(EvaluateComponentBatch(Component(), 18, good), kStatusFailed);
}

}  // namespace
}  // namespace zel::test
