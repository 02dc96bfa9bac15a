// A form of a correlation as a function of its coefficients, in the numbers of the form: without
// the factor of its unit, its basis and the limits of the correlation.
#pragma once

#include <zelaccess/Correlation.h>

#include <array>
#include <vector>

namespace zel::desk {

class FormModel {
 public:
  // `record` has the equation, the number of coefficients, units, the range and the constants of
  // the component; its coefficients are not used.
  explicit FormModel(zel::ZelCorrelation const& record);

  std::size_t Count() const { return static_cast<std::size_t>(form_.coefficientCount); }
  // What turns a number of the form into a value of the correlation.
  double Scale() const { return scale_; }
  // The number at a temperature within the range; NaN where the form has none.
  double At(double temperature, std::vector<double> const& c) const;
  // The same with the derivatives with respect to the coefficients: those of the library, which are
  // exact, and central differences for the forms that have none (4, 39, 52).
  double At(double temperature, std::vector<double> const& c, std::vector<double>& slopes) const;
  // The record with these coefficients.
  zel::ZelCorrelation RecordWith(std::vector<double> const& c) const;

 private:
  zel::ZelCorrelation With(std::vector<double> const& c) const;

  zel::ZelCorrelation record_;
  zel::ZelCorrelation form_;
  double scale_;
};

}  // namespace zel::desk
