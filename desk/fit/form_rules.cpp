#include "desk/fit/form_rules.h"

#include <zelaccess/Verify.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace zel::desk {
namespace {

using Scale = StartScale;

std::vector<int> UpTo(int most, int fewest = 1) {
  std::vector<int> counts;
  for (int i = fewest; i <= most; ++i) counts.push_back(i);
  return counts;
}

std::vector<double> Steps(double low, double high, double step) {
  std::vector<double> numbers;
  for (double x = low; x <= high; x += step) numbers.push_back(x);
  return numbers;
}

// Which quantity is linear, how many coefficients are usual and possible, which are positive, and
// which constants the form uses.
std::vector<FormRule> MakeRules() {
  constexpr LinearIn kValue = LinearIn::kValue;
  constexpr LinearIn kLog = LinearIn::kLogarithm;
  constexpr LinearIn kQuotient = LinearIn::kQuotient;
  return {
      {1, kValue, 4, {}, {}, ""},
      {2, kValue, 5, {}, {}, ""},
      {3, kValue, 6, UpTo(15, 3), {}, ""},
      {4, kValue, 6, UpTo(15, 3), {}, ""},
      {5, kQuotient, 3, UpTo(3), {}, ""},
      {6, kValue, 4, {}, {}, "TC"},
      {12, kLog, 4, {}, {}, ""},
      {13, kLog, 5, {5}, {5}, ""},
      {14, kLog, 5, UpTo(5), {}, "TC"},
      {15, kLog, 4, {}, {1}, "TC"},
      {16, kLog, 4, {4}, {1, 2}, ""},
      {17, kValue, 6, {2, 4, 6}, {}, ""},
      {18, kQuotient, 5, {3, 4, 5}, {}, ""},
      {19, kQuotient, 4, UpTo(4), {}, ""},
      {20, kLog, 5, {1, 2, 3, 5, 6, 7, 8, 9, 10}, {}, ""},
      {21, kLog, 3, UpTo(6), {}, ""},
      {22, kLog, 5, {}, {}, ""},
      {23, kValue, 9, UpTo(9, 3), {}, ""},
      {24, kValue, 6, {2, 4, 6, 8}, {}, ""},
      {25, kValue, 7, UpTo(7), {}, ""},
      {26, kLog, 3, {3, 4}, {2}, "MW"},
      {27, kLog, 3, {3}, {1}, "TC"},
      {28, kLog, 5, {1, 2, 3, 4, 5, 7}, {}, ""},
      {29, kLog, 3, {3}, {3}, "TC"},
      {30, kValue, 3, UpTo(3, 2), {}, "TC"},
      {31, kValue, 7, UpTo(7), {}, "TC"},
      {32, kValue, 5, UpTo(5), {}, "TC"},
      {33, kQuotient, 3, {}, {}, "TC"},
      {34, kValue, 4, UpTo(4), {}, "TC"},
      {35, kValue, 5, {}, {}, "TC"},
      {36, kValue, 5, UpTo(5), {}, "TC"},
      {37, kLog, 3, {3}, {}, ""},
      {39, kLog, 7, {7}, {1}, "TC"},
      {40, kValue, 9, {9}, {}, ""},
      {41, kValue, 6, UpTo(15, 4), {}, ""},
      {42, kValue, 8, {1, 2, 3, 4, 5, 6, 8}, {}, ""},
      {43, kLog, 2, UpTo(2), {1}, "TC NBP"},
      {44, kLog, 4, {}, {}, "TC"},
      {45, kValue, 5, UpTo(15, 2), {}, "TC"},
      {46, kValue, 5, UpTo(5), {}, "TC"},
      {47, kLog, 4, UpTo(4), {}, "TC PC"},
      {48, kLog, 4, UpTo(4), {}, "TC PC"},
      {49, kValue, 6, UpTo(6), {}, "TC"},
      {52, kValue, 3, UpTo(3, 2), {}, "TC NBP"},
      {53, kValue, 2, {2}, {}, ""},
  };
}

// The coefficients that are searched for, by equation. Several rows for one are one list. Wide
// grids are for the temperatures in the exponentials of heat capacities; critical exponents and the
// like have usual values.
std::vector<std::pair<int, StartRule>> MakeStarts() {
  std::vector<double> const offsets = {0.0, -0.08, -0.15, -0.22, -0.3};  // of Antoine equations
  std::vector<double> const watson = {0.38, 0.3, 0.5, 1.2};
  std::vector<double> const both = {10.0, -10.0, 50.0, -50.0};  // signs
  return {
      {3, {-1, Scale::kHighest, {1.0}, true}},
      {3, {0, Scale::kNumber, {0.5, 1.0 / 3.0, 1.0}}},
      {4, {-1, Scale::kCritical, {1.0, 1.1}}},
      {4, {0, Scale::kNumber, {1.0 / 3.0, 0.5}}},
      {5, {2, Scale::kNumber, {1.5, 1.0, 0.5, 0.0}}},
      {13, {3, Scale::kCritical, {1.0, 1.1}}},
      {13, {4, Scale::kLowest, {0.5, 0.1, 0.3, 0.8}}},
      {16, {3, Scale::kCritical, {1.0}}},
      {16, {3, Scale::kHighest, {1.0, 1.02}}},
      {16, {4, Scale::kNumber, {2.0 / 7.0, 0.25, 0.35}}},
      {17, {4, Scale::kTemperature, {2.5, 1.2, 4.0, 6.0}}},
      {17, {6, Scale::kTemperature, {1.0, 0.5, 2.0, 3.0}}},
      {18, {3, Scale::kNumber, Steps(0.25, 2.5, 0.125)}},
      {19, {2, Scale::kNumber, Steps(-2.0, 3.0, 0.25)}},
      {20, {5, Scale::kNumber, {2.0, 6.0, 1.0, 4.0, -2.0, 0.5, 10.0, 14.0, 18.0, -6.0, -10.0}}},
      {21, {3, Scale::kLowest, offsets}},
      {23, {2, Scale::kNumber, {4.0, 2.5}}},
      {23, {4, Scale::kTemperature, {1.0, 0.5, 2.0}}},
      {23, {5, Scale::kNumber, {0.0}}},
      {23, {6, Scale::kNumber, {0.0}}},
      {23, {7, Scale::kNumber, {0.0}}},
      {23, {8, Scale::kNumber, {0.0}}},
      {23, {9, Scale::kNumber, {0.0}}},
      {24, {4, Scale::kTemperature, {1.0, 0.4, 2.0}}},
      {24, {6, Scale::kTemperature, {4.0, 2.5, 6.0}}},
      {24, {8, Scale::kTemperature, {9.0}}},
      {26, {1, Scale::kWeight, {1.0}, true}},
      {26, {3, Scale::kTemperature, {0.5, 0.8, 1.2, 0.25}}},
      {26, {4, Scale::kNumber, {1.0, 0.3}}},
      {27, {2, Scale::kNumber, {0.5, 0.1, 0.9}}},
      {27, {3, Scale::kNumber, {0.0, 1.0, 2.0}}},
      {28, {3, Scale::kLowest, offsets}},
      {28, {7, Scale::kNumber, {2.0, 6.0, -2.0}}},
      {29, {1, Scale::kNumber, {0.27, 0.2, 0.33}}},
      {29, {2, Scale::kNumber, {0.0, 0.05, -0.05}}},
      {30, {2, Scale::kNumber, watson}},
      {30, {3, Scale::kNumber, {0.0}}},
      {34, {1, Scale::kValue, {0.4, 1.0}}},
      {37, {3, Scale::kCritical, {1.0}}},
      {39, {2, Scale::kBoiling, {1.0}, true}},
      {39, {6, Scale::kBoiling, {1.0}, true}},
      {39, {7, Scale::kBoiling, {1.0}, true}},
      {40, {4, Scale::kNumber, {200.0, 500.0, 800.0, 1500.0, 3000.0}}},
      {40, {8, Scale::kNumber, {40.0, 120.0, 250.0, 500.0}}},
      {40, {9, Scale::kNumber, {0.0, 20.0, 50.0, 90.0, 150.0, 210.0}}},
      {41, {0, Scale::kTemperature, {1.0, 0.5, 2.0}}},
      {42, {8, Scale::kCritical, {1.0, 1.1}}},
      {42, {8, Scale::kHighest, {1.02, 1.05, 1.15, 1.3}}},
      {46, {2, Scale::kNumber, {8.0, 3.0, 16.0}}},
      {46, {4, Scale::kNumber, both}},
      {46, {5, Scale::kNumber, both}},
      {49, {2, Scale::kNumber, {8.0, 3.0, 16.0}}},
      {49, {4, Scale::kNumber, both}},
      {49, {5, Scale::kNumber, {10.0, -10.0}}},
      {49, {6, Scale::kNumber, {10.0}}},
      {52, {2, Scale::kNumber, watson}},
      {53, {1, Scale::kNumber, {0.3, 0.1, 0.6}}},
      {53, {2, Scale::kCritical, {1.0}}},
  };
}

std::vector<FormRule> const& Rules() {
  static std::vector<FormRule> const rules = [] {
    std::vector<FormRule> made = MakeRules();
    for (auto const& [equation, start] : MakeStarts()) {
      for (FormRule& rule : made) {
        if (rule.equation == equation) rule.starts.push_back(start);
      }
    }
    return made;
  }();
  return rules;
}

// Forms that have coefficients of a curve and those of another one, or none of their own.
struct Refusal {
  int equation;
  char const* why;
};
constexpr Refusal kRefusals[] = {
    {38, "equation 38 evaluates the liquid density and the vapor pressure of the component"},
    {51, "equation 51 has the coefficients of a vapor pressure among its own"},
    {54, "equation 54 evaluates the enthalpy of the ideal gas of the component"},
};

}  // namespace

FormRule const* FindFormRule(int equation) {
  auto const at = std::find_if(Rules().begin(), Rules().end(),
                               [&](FormRule const& rule) { return rule.equation == equation; });
  return at == Rules().end() ? nullptr : &*at;
}

std::string WhyNotFitted(int equation) {
  constexpr int kMostCoefficients = 15;
  for (Refusal const& one : kRefusals) {
    if (one.equation == equation) return std::string(one.why) + " and cannot be fitted";
  }
  std::array<char, 121> text = {};
  if (zel::GetCorrelationFault(equation, kMostCoefficients, text.data())) return text.data();
  return "equation " + std::to_string(equation) +
         " can be evaluated but not returned by a library, and is not fitted";
}

std::vector<int> FittedEquations() {
  std::vector<int> equations;
  for (FormRule const& rule : Rules()) equations.push_back(rule.equation);
  return equations;
}

int PlaceOf(StartRule const& rule, int count) {
  return rule.coefficient > 0 ? rule.coefficient - 1 : count - 1 + rule.coefficient;
}

std::vector<QuotientTerm> QuotientOf(int equation, double temperature, double value,
                                     double criticalTemperature, std::vector<double> const& c) {
  double const t = temperature;
  double const y = value;
  switch (equation) {
    case 5: return {{0, std::pow(t, c[1]) / (y * t)}, {2, -1.0 / t}};
    // Without C1, which is small.
    case 18: return {{1, std::pow(t, c[2]) / y}, {3, -1.0 / t}, {4, -1.0 / (t * t)}};
    case 19: return {{0, std::pow(t, c[1]) / y}, {2, -1.0 / t}, {3, -1.0 / (t * t)}};
    default: {  // 33
      double const tr = t / criticalTemperature;
      std::vector<QuotientTerm> terms;
      for (std::size_t i = 0; i < c.size(); ++i) {
        double const power = std::pow(tr, -static_cast<double>(i));
        terms.push_back({i, y * power / std::sqrt(tr)});
      }
      return terms;
    }
  }
}

}  // namespace zel::desk
