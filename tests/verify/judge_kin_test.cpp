// What kindred substances foretell.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <deque>
#include <set>
#include <string>
#include <vector>

#include "tests/support/sample_component.h"
#include "verify/judge/kin.h"
#include "verify/judge/robust_regression.h"
#include "verify/judge/structure_groups.h"

namespace zel {
namespace {

// Scattered numbers between -1 and 1, the same on each machine.
double Scattered(std::size_t i) { return std::sin(12.9898 * static_cast<double>(i * i + 3 * i)); }

// y = 3 + 2 a - 0.5 b + 0.01 of scatter.
struct Plane {
  explicit Plane(std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) {
      double const a = static_cast<double>(i % 17), b = static_cast<double>(i * i % 23);
      features.insert(features.end(), {a, b});
      observed.push_back(At(a, b) + 0.01 * Scattered(i));
    }
  }
  static double At(double a, double b) { return 3.0 + 2.0 * a - 0.5 * b; }
  std::vector<double> features;
  std::vector<double> observed;
};

TEST(RobustRegression, OneInTenGrossErrorsDoNotSpoilTheCoefficients) {
  Plane plane(100);
  for (std::size_t i = 0; i < 100; i += 10) plane.observed[i] *= 10.0;
  auto const fit = RobustRegression::Fit(plane.features, 2, plane.observed);
  ASSERT_TRUE(fit);
  double const origin[] = {0.0, 0.0}, a[] = {1.0, 0.0}, b[] = {0.0, 1.0};
  EXPECT_NEAR(fit->At(origin).value, 3.0, 0.05);
  EXPECT_NEAR(fit->At(a).value - fit->At(origin).value, 2.0, 0.01);
  EXPECT_NEAR(fit->At(b).value - fit->At(origin).value, -0.5, 0.01);
  // The residual of a gross error is its size, that of the others their scatter.
  EXPECT_NEAR(fit->Of(20).value, 0.9 * plane.observed[20], 0.1);
  EXPECT_LT(std::abs(fit->Of(21).value), 0.05);
}

TEST(RobustRegression, ResidualIsFromAFitWithoutTheObservation) {
  Plane plane(60);
  plane.features[2 * 30] = 60.0;  // far from all others: it would draw the plane to itself
  plane.observed[30] = Plane::At(60.0, plane.features[2 * 30 + 1]) + 3.0;
  auto const fit = RobustRegression::Fit(plane.features, 2, plane.observed);
  ASSERT_TRUE(fit);
  auto features = plane.features;
  auto observed = plane.observed;
  features.erase(features.begin() + 60, features.begin() + 62);
  observed.erase(observed.begin() + 30);
  auto const without = RobustRegression::Fit(features, 2, observed);
  ASSERT_TRUE(without);
  double const place[] = {60.0, plane.features[61]};
  double const foretold = without->At(place).value;
  EXPECT_NEAR(fit->Of(30).value, plane.observed[30] - foretold, 0.5 * std::abs(fit->Of(30).value));
  EXPECT_GT(fit->Of(30).leverage, 20.0 * fit->Of(29).leverage);
  EXPECT_GT(without->At(place).leverage, 20.0 * fit->Of(29).leverage);
}

TEST(RobustRegression, OnlyObservationWithAFeatureIsByItself) {
  Plane plane(60);
  std::vector<double> features;
  for (std::size_t i = 0; i < 60; ++i) {
    features.insert(features.end(),
                    {plane.features[2 * i], plane.features[2 * i + 1], i == 30 ? 1.0 : 0.0});
  }
  auto const fit = RobustRegression::Fit(features, 3, plane.observed);
  ASSERT_TRUE(fit);
  EXPECT_TRUE(fit->Of(30).isByItself);
  EXPECT_FALSE(fit->Of(29).isByItself);
}

TEST(RobustRegression, FewObservationsGiveNoFit) {
  EXPECT_FALSE(RobustRegression::Fit(Plane(24).features, 2, Plane(24).observed));
  EXPECT_TRUE(RobustRegression::Fit(Plane(25).features, 2, Plane(25).observed));
}

TEST(RobustRegression, FewObservationsForTheFeaturesGiveNoFit) {
  std::vector<double> features, observed;
  for (std::size_t i = 0; i < 29; ++i) {
    for (std::size_t j = 0; j < 9; ++j) features.push_back(Scattered(i * 9 + j));
    observed.push_back(Scattered(i));
  }
  EXPECT_FALSE(RobustRegression::Fit(features, 9, observed));  // 10 coefficients
  // A feature that does not vary has no coefficient.
  for (std::size_t i = 0; i < 29; ++i) features[i * 9] = 7.0;
  EXPECT_TRUE(RobustRegression::Fit(features, 9, observed));
}

double CountOf(char const* smiles, char const* formula, StructureGroup group) {
  Composition atoms;
  EXPECT_TRUE(CompositionOf(formula, atoms));
  auto const groups = GroupsOf(smiles, atoms);
  return groups ? (*groups)[static_cast<std::size_t>(group)] : -1.0;
}

TEST(StructureGroups, AreCountedInSmiles) {
  using enum StructureGroup;
  EXPECT_EQ(CountOf("CCO", "C2H6O", kCh3), 1.0);
  EXPECT_EQ(CountOf("CCO", "C2H6O", kCh2), 1.0);
  EXPECT_EQ(CountOf("CCO", "C2H6O", kHydroxyl), 1.0);
  EXPECT_EQ(CountOf("COC", "C2H6O", kEther), 1.0);
  EXPECT_EQ(CountOf("CC(=O)O", "C2H4O2", kAcid), 1.0);
  EXPECT_EQ(CountOf("COC=O", "C2H4O2", kEster), 1.0);
  EXPECT_EQ(CountOf("COC=O", "C2H4O2", kEther), 0.0);
  EXPECT_EQ(CountOf("CC=O", "C2H4O", kAldehyde), 1.0);
  EXPECT_EQ(CountOf("CC(=O)C", "C3H6O", kKetone), 1.0);
  EXPECT_EQ(CountOf("C1=CC=C(C=C1)O", "C6H6O", kAromaticCh), 5.0);
  EXPECT_EQ(CountOf("c1ccc(cc1)O", "C6H6O", kAromaticCh), 5.0);
  EXPECT_EQ(CountOf("C1=CC=C(C=C1)O", "C6H6O", kPhenol), 1.0);
  EXPECT_EQ(CountOf("C1CCOC1", "C4H8O", kRingOxygen), 1.0);
  EXPECT_EQ(CountOf("C1CCOC1", "C4H8O", kRingCh2), 4.0);
  EXPECT_EQ(CountOf("C1CCC2CCCCC2C1", "C10H18", kRings), 2.0);
  EXPECT_EQ(CountOf("C1CCC2CCCCC2C1", "C10H18", kRingCh), 2.0);
  EXPECT_EQ(CountOf("CC(C)(C)C=C", "C6H12", kC), 1.0);
  EXPECT_EQ(CountOf("CC(C)(C)C=C", "C6H12", kDoubleCh2), 1.0);
  EXPECT_EQ(CountOf("CC#N", "C2H3N", kNitrile), 1.0);
  EXPECT_EQ(CountOf("C[N+](=O)[O-]", "CH3NO2", kNitro), 1.0);
  EXPECT_EQ(CountOf("CS", "CH4S", kSh), 1.0);
  EXPECT_EQ(CountOf("C(Cl)(Cl)(Cl)Br", "CCl3Br", kCl), 3.0);
  EXPECT_EQ(CountOf("C[C@H](N)C(=O)O", "C3H7NO2", kNh2), 1.0);
}

TEST(StructureGroups, TextThatIsNotOfTheFormulaIsIgnored) {
  Composition ethanol;
  ASSERT_TRUE(CompositionOf("C2H6O", ethanol));
  for (char const* text : {"", "CCCO", "CC=O", "CC(O", "CC)O", "C1CO", "[13CH3]CO", "CC*O", "(C)CO",
                           "C11CO", "[CCO", "CC[", "CC[]O", "CCX", "1CCO"}) {
    EXPECT_FALSE(GroupsOf(text, ethanol)) << text;
  }
  EXPECT_TRUE(GroupsOf("OCC", ethanol));
}

// Substances with one record each, made by formulas, and one comparison engine.
class Kin : public ::testing::Test {
 protected:
  // Alkanes, alkenes, alcohols and amines of 1 to `longest` carbon atoms.
  void MakeSeries(int longest) {
    for (int n = 1; n <= longest; ++n) {
      int const h = 2 * n;
      std::string const c = "C" + std::to_string(n) + "H";
      for (int kind = 0; kind < 4; ++kind) {
        static constexpr int kMoreHydrogen[] = {2, 0, 2, 3};
        static constexpr char const* kRest[] = {"", "", "O", "N"};
        if (kind == 1 && n == 1) continue;
        double const size = 0.7 * n + 0.12 * kMoreHydrogen[kind] + (kind >= 2 ? 0.3 : 0.0);
        series_.push_back(
            {c + std::to_string(h + kMoreHydrogen[kind]) + kRest[kind],
             size * (1.0 + 0.004 * Scattered(series_.size())),
             (250.0 + 25.0 * n + 30.0 * kind) * (1.0 + 0.01 * Scattered(3 * series_.size() + 1))});
      }
    }
  }
  struct Made {
    std::string formula;
    double vdwv;
    double tc;
    double factor = 1.0;  // of the density of the liquid
    double slope = -6.0;  // of the same, by TC
  };

  // kg-mol/m3, from 0.4 to 0.97 TC.
  static void SetDensity(IZelPureComp& c, Made const& made) {
    double const at0 = made.factor * 14.0 / made.vdwv;
    double const coefficients[15] = {at0, made.slope / 14.0 * at0 / made.tc};
    c.SetCorrelation(correlationLiquidDensity, 1, 10, 0, 0, 1, 2, 0.4 * made.tc, 0.97 * made.tc,
                     coefficients);
  }

  std::vector<std::vector<Tension>> const& Judge() {
    records_.clear();
    AddSource(series_, "own");
    return JudgeRecords();
  }
  void AddSource(std::vector<Made> const& series, char const* library) {
    std::int32_t number = 10000000;
    for (Made const& made : series) {
      test::ComponentBank bank;
      char ids[12][9] = {};
      ++number;
      bank->SetIdentity(number, number, 1, ids, "Name", made.formula.c_str(), 0);
      bank->SetProperty(propertyVDWV, made.vdwv);
      bank->SetProperty(propertyTC, made.tc);
      SetDensity(*bank.Get(), made);
      auto* const component = dynamic_cast<PureComp_i*>(bank.Get());
      records_.emplace_back(ComponentView(*component),
                            CheckedItem(library, CheckedBank("PURECOMP", "OWN"), {number},
                                        made.formula, "OWN " + made.formula));
    }
  }
  std::vector<std::vector<Tension>> const& JudgeRecords() {
    substances_ = SubstancesOf(records_);
    tensions_.assign(substances_.size(), {});
    AddKinComparisons(substances_, tensions_);
    return tensions_;
  }
  // The comparison of a datum of a substance; null if it was not compared.
  Tension const* Of(std::string const& formula, Datum datum) const {
    for (auto const& all : tensions_) {
      for (Tension const& one : all) {
        if (one.about.datum == datum && one.about.record->Item().text == formula) return &one;
      }
    }
    return nullptr;
  }
  // Formulas and data that deviate by more than the factor of a tolerance.
  std::string Deviating(double factor) const {
    std::string text;
    for (auto const& all : tensions_) {
      for (Tension const& one : all) {
        if (one.deviation > factor)
          text += one.about.record->Item().text + " " + one.about.datum.Name() + "\n";
      }
    }
    return text;
  }
  Made& Find(std::string const& formula) {
    return *std::find_if(series_.begin(), series_.end(),
                         [&](Made const& made) { return made.formula == formula; });
  }

  static constexpr Datum kVolume = Datum::Constant(propertyVDWV);
  static constexpr Datum kDensity = Datum::Curve(correlationLiquidDensity);

  std::vector<Made> series_;
  std::deque<Record> records_;
  std::vector<Substance> substances_;
  std::vector<std::vector<Tension>> tensions_;
};

TEST_F(Kin, OneWrongConstantOfASeriesIsFoundAndNoOther) {
  MakeSeries(15);
  double const right = Find("C8H18O").vdwv;
  Find("C8H18O").vdwv = 1.2 * right;
  Find("C8H18O").factor = 1.2;  // its density is made from it, and stays right
  Judge();
  EXPECT_EQ(Deviating(1.5), "C8H18O VDWV\n");
  Tension const* const found = Of("C8H18O", kVolume);
  ASSERT_NE(found, nullptr);
  EXPECT_DOUBLE_EQ(found->value, 1.2 * right);
  EXPECT_NEAR(found->expected, right, 0.03 * right);
  EXPECT_EQ(found->parts.front().claim, found->about);
  EXPECT_EQ(found->parts.front().stake, Stake::kFull);
  EXPECT_EQ(found->from.find("a regression over kindred substances on atoms"), 0U) << found->from;
}

TEST_F(Kin, DataThatAreRightAgree) {
  MakeSeries(15);
  Judge();
  EXPECT_EQ(Deviating(1.5), "");
  ASSERT_NE(Of("C8H18", kVolume), nullptr);
  EXPECT_LT(Of("C8H18", kVolume)->deviation, 1.0);
}

TEST_F(Kin, LostSignOfAConstantDeviatesByFar) {
  MakeSeries(15);
  Find("C5H12").vdwv *= -1.0;
  Find("C5H12").factor = -1.0;
  Judge();
  EXPECT_EQ(Deviating(1.5), "C5H12 VDWV\n");
  EXPECT_GT(Of("C5H12", kVolume)->expected, 0.0);
}

TEST_F(Kin, ValueThatAnotherSourceConfirmsDeviatesOnlyALittle) {
  MakeSeries(15);
  double const right = Find("C8H18O").vdwv;
  Find("C8H18O").vdwv = 1.3 * right;
  AddSource(series_, "own");
  AddSource(series_, "other");
  JudgeRecords();
  EXPECT_EQ(Deviating(1.25), "");
  EXPECT_GT(Of("C8H18O", kVolume)->deviation, 1.0);
  records_.clear();
  AddSource(series_, "own");
  Find("C8H18O").vdwv = right;
  AddSource(series_, "other");
  JudgeRecords();
  EXPECT_NE(Deviating(1.5).find("C8H18O VDWV\n"), std::string::npos);
}

TEST_F(Kin, CurveOfWrongSizeIsFound) {
  MakeSeries(15);
  Find("C9H18").factor = 4.184;
  Judge();
  EXPECT_EQ(Deviating(1.5), "C9H18 LiquidDensity\n");
  Tension const& found = *Of("C9H18", kDensity);
  EXPECT_NEAR(found.value / found.expected, 4.184, 0.3);
  double const tc = Find("C9H18").tc;
  EXPECT_GE(found.temperature, 0.44 * tc);
  EXPECT_LE(found.temperature, 0.96 * tc);
  // The temperatures are parts of TC, so it has a share in what is foretold.
  EXPECT_TRUE(std::any_of(found.parts.begin(), found.parts.end(), [](Tension::Part const& part) {
    return part.claim.datum == Datum::Constant(propertyTC) && part.stake == Stake::kMinor;
  }));
}

TEST_F(Kin, CurveOfWrongShapeIsFoundThoughItsSizeIsRight) {
  MakeSeries(15);
  Made& wrong = Find("C9H18");
  wrong.slope = 6.0;                                       // a lost sign
  wrong.factor = (14.0 - 6.0 * 0.7) / (14.0 + 6.0 * 0.7);  // right at 0.7 TC
  Judge();
  // By its values at both ends, and by their change.
  EXPECT_EQ(Deviating(1.5), "C9H18 LiquidDensity\nC9H18 LiquidDensity\n");
  auto const& own = tensions_[static_cast<std::size_t>(&wrong - series_.data())];
  EXPECT_TRUE(std::any_of(own.begin(), own.end(), [](Tension const& one) {
    return std::string(one.rule->id) == "kin-liquid-density-change" && one.deviation > 3.0;
  }));
}

TEST(KinRules, HaveAnIdEach) {
  std::set<std::string> ids;
  for (JudgeRule const* const rule : KinRules()) {
    EXPECT_TRUE(ids.insert(rule->id).second) << rule->id;
    EXPECT_EQ(std::string(rule->id).find("kin-"), 0U);
  }
  EXPECT_GT(ids.size(), 50U);
}

TEST_F(Kin, FewSubstancesGiveNothing) {
  MakeSeries(6);  // 23 substances
  for (auto const& all : Judge()) EXPECT_TRUE(all.empty());
}

TEST_F(Kin, SubstanceUnlikeAllOthersHasAWideTolerance) {
  MakeSeries(15);
  series_.push_back({"SF6", 3.0, 400.0});
  series_.push_back({"C6H14S", 4.95, 500.0});  // 4.44 + the size of a sulfur atom
  Judge();
  EXPECT_EQ(Deviating(1.5), "");
}

// The sample of very many substances is even: those outside it are foretold as well.
TEST_F(Kin, SubstancesOutsideTheSampleAreCompared) {
  for (int repeat = 0; repeat < 22; ++repeat) MakeSeries(15);
  ASSERT_GT(series_.size(), 1200U);
  series_[37].vdwv *= 1.3;
  series_[38].vdwv *= 1.3;
  for (std::size_t const i : {std::size_t{37}, std::size_t{38}}) series_[i].factor = 1.3;
  Judge();
  std::string const expected = series_[37].formula + " VDWV\n" + series_[38].formula + " VDWV\n";
  EXPECT_EQ(Deviating(1.5), expected);
}

}  // namespace
}  // namespace zel
