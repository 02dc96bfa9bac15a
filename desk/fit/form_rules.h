// How the coefficients of each equation are fitted: which of them a linear problem yields, and
// where the search for the others begins.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zel::desk {

// In which quantity a form is linear in those of its coefficients that are not searched for.
enum class LinearIn {
  kValue,
  kLogarithm,  // of the value
  kQuotient    // a sum of terms, some of them times the value, that is 1; see QuotientOf
};

// The scale of the numbers with which a search begins.
enum class StartScale {
  kNumber,
  kTemperature,  // the mean of the range, in K
  kLowest,       // the lower end of the range
  kHighest,      // the upper end of the range
  kCritical,     // the critical temperature; 1.1 times the upper end if it is unknown
  kBoiling,      // the normal boiling point; the mean of the range if it is unknown
  kWeight,       // the molecular weight
  kValue         // the mean of the values
};

// A coefficient that is searched for, or kept at the first of the numbers because the form cannot
// tell it from the others.
struct StartRule {
  int coefficient = 0;  // from 1; 0 is the last one, -1 the one before it
  StartScale scale = StartScale::kNumber;
  std::vector<double> numbers;
  bool isKept = false;
};

struct FormRule {
  int equation = 0;
  LinearIn linear = LinearIn::kValue;
  int usual = 0;              // number of coefficients, if none is given
  std::vector<int> counts;    // that the form can have; empty: 1 to 15
  std::vector<int> positive;  // coefficients whose logarithm is linear
  std::string constants;      // keywords of the constants that the form uses
  std::vector<StartRule> starts = {};
};

// Null for an equation that cannot be fitted.
FormRule const* FindFormRule(int equation);
// Why it cannot be: "equation 99 is not known".
std::string WhyNotFitted(int equation);
// The equations that can be fitted, in ascending order.
std::vector<int> FittedEquations();

// The coefficient that a rule names, from 0, in a record with so many; a negative number or one
// from `count` on if it has none.
int PlaceOf(StartRule const& rule, int count);

// The terms of a form of LinearIn::kQuotient at a point, and the coefficients that multiply them,
// from 0. `c` has those that are searched for.
struct QuotientTerm {
  std::size_t coefficient;
  double term;
};
std::vector<QuotientTerm> QuotientOf(int equation, double temperature, double value,
                                     double criticalTemperature, std::vector<double> const& c);

}  // namespace zel::desk
