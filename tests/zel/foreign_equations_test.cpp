// The equations of other programs in the forms of the library: the same values.
#include "desk/formats/foreign_equations.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <set>
#include <sstream>

#include "desk/open/curve_record.h"

namespace zel::desk {
namespace {

constexpr double kTc = 600.0;
using Numbers = std::vector<double>;

struct Case {
  int number;
  Numbers c;
  double (*formula)(Numbers const& c, double t);  // as the form's descriptions print it
};

double Tau(double t) { return 1.0 - t / kTc; }

Case const kCases[] = {
    {1, {3.25}, [](Numbers const& c, double) { return c[0]; }},
    {2, {3.25, 0.5}, [](Numbers const& c, double t) { return c[0] + c[1] * t; }},
    {3, {3, 0.5, -2e-3}, [](Numbers const& c, double t) { return c[0] + c[1] * t + c[2] * t * t; }},
    {4,
     {3, 0.5, -2e-3, 4e-6},
     [](Numbers const& c, double t) { return c[0] + c[1] * t + c[2] * t * t + c[3] * t * t * t; }},
    {5,
     {3, 0.5, -2e-3, 4e-6, 7e-9},
     [](Numbers const& c, double t) {
       return c[0] + c[1] * t + c[2] * t * t + c[3] * t * t * t + c[4] * std::pow(t, 4);
     }},
    {10,
     {21.5, 3800, -42},
     [](Numbers const& c, double t) { return std::exp(c[0] - c[1] / (t + c[2])); }},
    {11, {2.5}, [](Numbers const& c, double) { return std::exp(c[0]); }},
    {12, {2.5, -4e-3}, [](Numbers const& c, double t) { return std::exp(c[0] + c[1] * t); }},
    {13,
     {2.5, -4e-3, 3e-6},
     [](Numbers const& c, double t) { return std::exp(c[0] + c[1] * t + c[2] * t * t); }},
    {14,
     {2.5, -4e-3, 3e-6, 5e-9},
     [](Numbers const& c, double t) {
       return std::exp(c[0] + c[1] * t + c[2] * t * t + c[3] * t * t * t);
     }},
    {16,
     {0, -700, 9.5, 2e-3, -3e-7},
     [](Numbers const& c, double t) {
       return c[0] + std::exp(c[1] / t + c[2] + c[3] * t + c[4] * t * t);
     }},
    {17,
     {0, 2.5, -4e-3, 3e-6, 5e-9},
     [](Numbers const& c, double t) {
       return c[0] + std::exp(c[1] + c[2] * t + c[3] * t * t + c[4] * t * t * t);
     }},
    {100,
     {3, 0.5, -2e-3, 4e-6, 7e-9},
     [](Numbers const& c, double t) {
       return c[0] + c[1] * t + c[2] * t * t + c[3] * t * t * t + c[4] * std::pow(t, 4);
     }},
    {101,
     {73.304, -7122.3, -7.1424, 2.8853e-6, 2},
     [](Numbers const& c, double t) {
       return std::exp(c[0] + c[1] / t + c[2] * std::log(t) + c[3] * std::pow(t, c[4]));
     }},
    {102,
     {1.5e-6, 0.8, 120, 3000},
     [](Numbers const& c, double t) {
       return c[0] * std::pow(t, c[1]) / (1 + c[2] / t + c[3] / (t * t));
     }},
    {105,
     {1.63, 0.27, 620, 0.23},
     [](Numbers const& c, double t) {
       return c[0] / std::pow(c[1], 1 + std::pow(1 - t / c[2], c[3]));
     }},
    {106,
     {5.6e7, 0.3, 0.11, -0.05, 0.02},
     [](Numbers const& c, double t) {
       double const tr = t / kTc;
       return c[0] * std::pow(1 - tr, c[1] + c[2] * tr + c[3] * tr * tr + c[4] * tr * tr * tr);
     }},
    {115,
     {12, -1500, 0.7, 3e-6, 90000},
     [](Numbers const& c, double t) {
       return std::exp(c[0] + c[1] / t + c[2] * std::log(t) + c[3] * t * t + c[4] / (t * t));
     }},
    {116,
     {17, 58, -53, -23, 31},
     [](Numbers const& c, double t) {
       double const x = Tau(t);
       return c[0] + c[1] * std::pow(x, 0.35) + c[2] * std::pow(x, 2.0 / 3.0) + c[3] * x +
              c[4] * std::pow(x, 4.0 / 3.0);
     }},
    {119,
     {17, 35, 19, -8.5, -26, -8.4e2, -1e3},
     [](Numbers const& c, double t) {
       double const x = Tau(t);
       return c[0] + c[1] * std::cbrt(x) + c[2] * std::pow(x, 2.0 / 3.0) +
              c[3] * std::pow(x, 5.0 / 3.0) + c[4] * std::pow(x, 16.0 / 3.0) +
              c[5] * std::pow(x, 43.0 / 3.0) + c[6] * std::pow(x, 110.0 / 3.0);
     }},
    {120, {9.5, 800, 35}, [](Numbers const& c, double t) { return c[0] - c[1] / (t + c[2]); }},
    {207,
     {21.5, 3800, -42},
     [](Numbers const& c, double t) { return std::exp(c[0] - c[1] / (t + c[2])); }},
    {208,
     {7.5, 1200, 220},
     [](Numbers const& c, double t) { return std::pow(10, c[0] - c[1] / (t + c[2])); }},
    {210,
     {1.5, -300, 2e-3, -4e-7},
     [](Numbers const& c, double t) {
       return std::pow(10, c[0] + c[1] / t + c[2] * t + c[3] * t * t);
     }},
};

// The heat capacity of the ideal gas takes any value as it is.
double ValueOf(Curve curve, char const* correlation, double t) {
  PureComponent const component;
  component.Def()->Clear();
  component->SetProperty(zel::propertyTC, kTc);
  zel::ZelCorrelationInfo const* const info = FindCorrelation(correlation);
  curve.basis = 1;
  SetCurve(component, *info, curve);
  return component.At(IndexOf(*info), t).value;
}

TEST(ForeignEquations, HaveTheirValuesInTheForms) {
  zel::InitZelAccess();
  std::set<int> tested;
  for (Case const& one : kCases) {
    tested.insert(one.number);
    ForeignCurve converted;
    std::string what;
    bool isSame = false;
    ASSERT_EQ(ConvertEquation({one.number, one.c}, converted, what, isSame), "") << one.number;
    for (double const t : {280.0, 333.3, 400.0, 475.5, 590.0}) {
      double const expected = one.formula(one.c, t);
      EXPECT_NEAR(ValueOf(converted.curve, "IdealGasCp", t), expected, 1e-12 * std::abs(expected))
          << one.number << " at " << t;
    }
  }
  for (EquationRow const& row : EquationRows()) {
    EXPECT_EQ(tested.count(row.number), 1U) << row.number << " has no formula here";
  }
}

// Each coefficient counts: another value of it gives another result.
TEST(ForeignEquations, UseEachCoefficient) {
  zel::InitZelAccess();
  for (Case const& one : kCases) {
    for (std::size_t i = 0; i < one.c.size(); ++i) {
      if (one.c[i] == 0.0) continue;
      Case other = one;
      other.c[i] *= 1.01;
      ForeignCurve converted;
      std::string what;
      bool isSame = false;
      ASSERT_EQ(ConvertEquation({one.number, other.c}, converted, what, isSame), "");
      double const t = 290.0;
      double const expected = one.formula(other.c, t);
      EXPECT_NE(expected, one.formula(one.c, t)) << one.number << " C" << i + 1;
      EXPECT_NEAR(ValueOf(converted.curve, "IdealGasCp", t), expected, 1e-12 * std::abs(expected))
          << one.number << " C" << i + 1;
    }
  }
}

TEST(ForeignEquations, WithoutAFormSayWhy) {
  struct {
    ForeignEquation equation;
    char const* why;
  } const rows[] = {
      {{16, {33000, -700, 11}}, "equation 16 has no form here unless A is 0"},
      {{17, {1, 2, 3}}, "equation 17 has no form here unless A is 0"},
      {{104, {1, 2}}, "equation 104 has no form here"},
      {{9999, {1}}, "equation 9999 has no form here"},
      {{10, {21, 3800, -42, 5}}, "equation 10 does not have the coefficient D"},
      {{1, {2, 0, 3, 4}}, "equation 1 does not have the coefficient C, D"},
  };
  for (auto const& row : rows) {
    ForeignCurve converted;
    std::string what;
    bool isSame = false;
    EXPECT_EQ(ConvertEquation(row.equation, converted, what, isSame), row.why);
    EXPECT_FALSE(converted.curve.present) << row.why;
  }
}

TEST(ForeignEquations, SeriesAreAsLongAsTheirLastTerm) {
  ForeignCurve converted;
  std::string what;
  bool isSame = false;
  ASSERT_EQ(ConvertEquation({100, {1, 0, 2, 0, 0}}, converted, what, isSame), "");
  EXPECT_EQ(converted.curve.coefficients, (Numbers{1, 0, 2}));
  EXPECT_TRUE(isSame);
  ASSERT_EQ(ConvertEquation({106, {5, 0.3, 0, 0, 0}}, converted, what, isSame), "");
  EXPECT_EQ(converted.curve.coefficients, (Numbers{5, 0.3}));
  EXPECT_TRUE(converted.needsTc);
  ASSERT_EQ(ConvertEquation({10, {21, 3800, -42}}, converted, what, isSame), "");
  EXPECT_FALSE(isSame);
  EXPECT_EQ(what, "equation 10 is 21 with A -B C");
}

// The slope of the enthalpy is the heat capacity, and it is 0 at 298.15 K.
TEST(ForeignEquations, EnthalpyIsTheIntegralOfTheHeatCapacity) {
  zel::InitZelAccess();
  struct {
    ForeignEquation equation;
    double (*cp)(Numbers const& c, double t);
  } const rows[] = {
      {{4, {9014, 214.07, -0.0839, 1.373e-6}}, kCases[3].formula},
      {{100, {33000, 12, 0.01, -2e-6, 4e-10}}, kCases[4].formula},
      {{107, {33363, 26790, 2610.5, 8896, 1169}},
       [](Numbers const& c, double t) {
         return c[0] + c[1] * std::pow(c[2] / t / std::sinh(c[2] / t), 2) +
                c[3] * std::pow(c[4] / t / std::cosh(c[4] / t), 2);
       }},
      {{107, {33363, 26790, 0, 8896, 0}}, [](Numbers const& c, double) { return c[0] + c[1]; }},
  };
  for (auto const& row : rows) {
    Curve enthalpy;
    ASSERT_TRUE(IntegrateHeatCapacity(row.equation, enthalpy));
    EXPECT_NEAR(ValueOf(enthalpy, "IdealEnthalpy", 298.15), 0.0, 20.0) << row.equation.number;
    for (double const t : {250.0, 298.15, 500.0, 777.0, 1200.0}) {
      double const step = 0.5;
      // The stored coefficients have seven digits.
      double const slope = (ValueOf(enthalpy, "IdealEnthalpy", t + step) -
                            ValueOf(enthalpy, "IdealEnthalpy", t - step)) /
                           (2 * step);
      double const expected = row.cp(row.equation.coefficients, t);
      EXPECT_NEAR(slope, expected, 2e-6 * expected) << row.equation.number << " at " << t;
    }
  }
  Curve none;
  EXPECT_FALSE(IntegrateHeatCapacity({16, {1, 2, 3}}, none));
}

TEST(ForeignEquations, AreThoseOfTheDocument) {
  std::ifstream file(ZEL_DOCS "/formats.md");
  std::stringstream text;
  text << file.rdbuf();
  for (EquationRow const& row : EquationRows()) {
    std::string const line = "| " + std::to_string(row.number) + " | " + std::to_string(row.form) +
                             " | `" + row.terms + "` |";
    EXPECT_NE(text.str().find(line), std::string::npos) << line;
  }
}

}  // namespace
}  // namespace zel::desk
