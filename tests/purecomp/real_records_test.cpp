// Every correlation of the published data, evaluated inside its range, at its ends and far outside:
// what comes with success is a number.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "zelaccess/ZelAccess.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

struct Record {
  std::string name;
  std::uint32_t index;
  std::int32_t equation;
  double tMin, tMax, Tc;
  std::vector<double> coefficients;
};

class RealRecords : public ::testing::TestWithParam<char const*> {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() / ("zel_real_" + std::string(GetParam()));
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    InitZelAccess();  // units
    openErrors error{};
    library_.reset(LibFile::NewLibFile(libKind11, (folder_ / "r.lb1").c_str(), error));
    ASSERT_EQ(error, openOk);
    maint_.reset(LibMaint::NewLibMaint(library_.get()));
    fs::path const document = fs::path(ZEL_DATA) / (std::string(GetParam()) + ".xml");
    ASSERT_TRUE(maint_->Import(document.c_str(), false)) << maint_->GetLastErrorText();
  }
  void TearDown() override {
    maint_.reset();
    library_.reset();
    fs::remove_all(folder_);
  }

  // Calls `use` with every correlation of every component.
  template <typename Use>
  void EachRecord(Use const& use) {
    char type[9], bank[9];
    maint_->BeginBankWalk("PURECOMP");
    ASSERT_TRUE(maint_->NextBank(type, bank));
    maint_->EndBankWalk();
    ASSERT_TRUE(maint_->BeginItemWalk("PURECOMP", bank));
    std::int32_t key[6];
    while (maint_->NextItem(key, component_.Def())) {
      for (std::uint32_t index = 0; index < 18; ++index) {
        Record record;
        if (!Read(index, record)) continue;
        record.name = GetParam() + (" " + std::to_string(key[0])) + " " + std::to_string(index);
        use(record);
      }
    }
    maint_->EndItemWalk();
  }

  bool Read(std::uint32_t index, Record& record) {
    std::int32_t tempUnit, propUnit, logBasis, basis, count;
    double factor, coefficients[15];
    record.index = index;
    if (component_->GetCorrelation(index, &record.equation, &tempUnit, &propUnit, &factor,
                                   &logBasis, &basis, &count, &record.tMin, &record.tMax,
                                   coefficients) != kStatusOk) {
      return false;
    }
    record.coefficients.assign(coefficients, coefficients + count);
    component_->GetProperty(1, &record.Tc);
    return true;
  }

  // Holds all orders at a temperature against what may come with success. An infinite slope is one
  // of a form that has it there: the end of a density, of a viscosity and of a Wagner equation.
  void Check(Record const& record, double T) {
    for (std::int32_t const order : {0, 1, 2, 3, 11}) {
      double value = 0.0, derivative = 0.0, weights[15] = {};
      std::int32_t status = 99;
      ZelStatus const result = component_->EvaluateCorrelation(record.index, T, order, &value,
                                                               &derivative, weights, &status);
      if (result == kStatusFailed) continue;
      ++evaluated_;
      bool const mayEndSteeply =
          status == 0 && (record.equation == 13 || record.equation == 16 || record.equation == 47);
      bool sound = std::isfinite(value) && !std::isnan(derivative);
      if (std::isinf(derivative)) sound = sound && mayEndSteeply;
      for (double const weight : weights) sound = sound && !std::isnan(weight);
      EXPECT_TRUE(sound) << record.name << " eq " << record.equation << " order " << order << " at "
                         << T << ": " << value << " " << derivative << ", status " << status;
    }
  }

  fs::path folder_;
  Handle<LibFile> library_;
  Handle<LibMaint> maint_;
  BankFace<IZelPureComp> component_{"PURECOMP", IID_IZelPureComp};
  long evaluated_ = 0;
};

bool IsDefined(double x) { return !gen_IsUndefDouble(x); }

// At the ends of the range, the critical point, the temperatures among the coefficients, and what
// lies a rounding beside them.
TEST_P(RealRecords, GiveNumbersWhereTheyEnd) {
  EachRecord([&](Record const& record) {
    std::vector<double> ends = {record.tMin, record.tMax, record.Tc};
    for (double const c : record.coefficients) {
      if (c > 10.0 && c < 3000.0) ends.push_back(c);
    }
    for (double const T : ends) {
      if (!IsDefined(T)) continue;
      for (double const beside : {T, std::nextafter(T, 0.0), std::nextafter(T, 1e9), T * 0.9999,
                                  T * 1.0001, T * 0.5, T * 2.0}) {
        Check(record, beside);
      }
    }
    Check(record, 0.0);
  });
  EXPECT_GT(evaluated_, 10000);
}

// From a fifth of the lower limit to three times the upper one, a degree a step: every twentieth
// record, and all of the forms that end steeply in steps of 25.
TEST_P(RealRecords, GiveNumbersAtAnyTemperature) {
  int count = 0;
  EachRecord([&](Record const& record) {
    bool const steep = record.equation == 13 || record.equation == 16 || record.equation == 47;
    if (++count % 20 != 0 && !steep) return;
    double const first = 0.2 * (IsDefined(record.tMin) ? record.tMin : 250.0);
    double const last = 3.0 * (IsDefined(record.tMax) ? record.tMax : 1000.0);
    double const step = count % 20 == 0 ? 1.0 : 25.0;
    for (double T = std::floor(first); T <= last; T += step) Check(record, T);
  });
  EXPECT_GT(evaluated_, 10000);
}

INSTANTIATE_TEST_SUITE_P(Published, RealRecords,
                         ::testing::Values("chemsep", "crc", "nist", "perry", "poling", "vdi"),
                         [](auto const& source) { return std::string(source.param); });

}  // namespace
}  // namespace zel
