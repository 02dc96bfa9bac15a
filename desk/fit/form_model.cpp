#include "desk/fit/form_model.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zel::desk {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t kSensitivities = 11;

bool HasSensitivities(std::int32_t equation) {
  return equation != 4 && equation != 39 && equation != 52;
}

}  // namespace

FormModel::FormModel(zel::ZelCorrelation const& record)
    : record_(record), form_(record), scale_(zel::FactorOf(record)) {
  form_.index = zel::correlationDielectric;  // whose values have no limits
  form_.moleWtBasis = 0;
}

zel::ZelCorrelation FormModel::With(std::vector<double> const& c) const {
  zel::ZelCorrelation form = form_;
  std::copy(c.begin(), c.end(), form.coefficients);
  return form;
}

zel::ZelCorrelation FormModel::RecordWith(std::vector<double> const& c) const {
  zel::ZelCorrelation record = record_;
  std::fill(std::begin(record.coefficients), std::end(record.coefficients), 0.0);
  std::copy(c.begin(), c.end(), record.coefficients);
  return record;
}

double FormModel::At(double temperature, std::vector<double> const& c) const {
  double value = kNone;
  zel::EvaluateOne(With(c), temperature, 1, &value, nullptr, nullptr, nullptr);
  return value / form_.factor;
}

double FormModel::At(double temperature, std::vector<double> const& c,
                     std::vector<double>& slopes) const {
  slopes.assign(Count(), 0.0);
  if (HasSensitivities(form_.equation)) {
    double value = kNone;
    std::array<double, 15> weights = {};
    zel::EvaluateOne(With(c), temperature, kSensitivities, &value, nullptr, weights.data(),
                     nullptr);
    std::copy_n(weights.begin(), Count(), slopes.begin());
    return value / form_.factor;
  }
  double const step = std::cbrt(std::numeric_limits<double>::epsilon());
  for (std::size_t j = 0; j < Count(); ++j) {
    double const h = step * std::max(std::abs(c[j]), step);
    std::vector<double> moved = c;
    moved[j] = c[j] + h;
    double const above = At(temperature, moved);
    moved[j] = c[j] - h;
    slopes[j] = (above - At(temperature, moved)) / (2.0 * h);
  }
  return At(temperature, c);
}

}  // namespace zel::desk
