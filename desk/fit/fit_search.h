// The search for the coefficients of one form.
#pragma once

#include <optional>
#include <vector>

#include "desk/fit/curve_fit.h"
#include "desk/fit/form_model.h"
#include "desk/fit/form_rules.h"

namespace zel::desk {

// The points in the numbers of the form, and what is known of the coefficients.
struct FitSearchTask {
  FormModel const* model = nullptr;
  FormRule const* rule = nullptr;
  zel::ZelCorrelation const* record = nullptr;
  FitQuantity quantity = FitQuantity::kValue;
  std::vector<double> temperatures;
  std::vector<double> numbers;
  std::vector<double> weights;  // of the differences in the quantity
  std::vector<std::optional<double>> kept;
};

struct FitSearchResult {
  std::vector<double> coefficients;
  double sum = 0.0;  // of the squared, weighted differences
  bool isDirect = false;
  std::size_t starts = 0;
};

// Keeps the coefficients that the rule of the form keeps.
void KeepByRule(FitSearchTask& task);

// Nothing if no start leads to values at all points.
std::optional<FitSearchResult> SearchCoefficients(FitSearchTask const& task);

// The derivatives of the weighted differences with respect to the coefficients that are not kept.
SquaresMatrix FitJacobian(FitSearchTask const& task, std::vector<double> const& coefficients);

}  // namespace zel::desk
