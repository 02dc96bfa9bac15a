// The checks of one component: good data have no finding, each rule has its own, with the datum,
// the value and what was expected; values just within the tolerance have none.
#include <limits>

#include "tests/verify/data_check_fixture.h"

namespace zel::test {
namespace {

// The findings about one component with a change; `rest` of lines follows "own PURECOMP:TEST
// [10000007] GOOD | " and ends before the place.
struct Row {
  char const* what;
  std::function<void(IZelPureComp&)> change;
  std::vector<std::string> findings;
};

std::string Full(std::string const& finding) {
  std::string text = finding;
  auto const put = [&](std::string const& mark, std::string const& by) {
    std::size_t const at = text.find(mark);
    if (at != std::string::npos) text.replace(at, mark.size(), by);
  };
  put("<item>", "| own PURECOMP:TEST [10000007] GOOD |");
  put("<place>", "TEST GOOD:");
  return text;
}

auto Set(zelProperties index, double value) {
  return [=](IZelPureComp& c) { c.SetProperty(index, value); };
}

class ComponentDataTest : public DataCheckTest {
 protected:
  void Expect(std::vector<Row> const& rows) {
    for (Row const& row : rows) {
      SCOPED_TRACE(row.what);
      GoodComponent component;
      component.change = row.change;
      Lines expected;
      for (std::string const& finding : row.findings) expected.push_back(Full(finding));
      EXPECT_EQ(Check({component}), expected);
    }
  }
};

TEST_F(ComponentDataTest, GoodDataHaveNoFinding) {
  EXPECT_EQ(Check({GoodComponent{}}), Lines{});
  EXPECT_TRUE(isGood_);
}

TEST_F(ComponentDataTest, Identity) {
  GoodComponent component;
  component.cas = 0;
  EXPECT_EQ(Check({component}),
            Lines{Full("warning cas <item> CAS number = - ()  at - | - to - () |  | <place> has no "
                       "CAS number, or one whose check digit is wrong")});
  EXPECT_TRUE(isGood_) << "a warning";
  Expect({{"18.015 kg/kg-mol, by hand",
           Set(propertyMW, 18.03),
           {"warning formula-weight <item> MW = 18.03 (18.03) kg/kg-mol at - | 18.015 to 18.015 "
            "(18.015) |  | <place> MW is 18.03 kg/kg-mol, but the formula H2O gives 18.015 "
            "kg/kg-mol"}},
          {"within 0.05 %", Set(propertyMW, 18.02), {}}});
}

TEST_F(ComponentDataTest, EquationThatIsUnknownOrLacksCoefficients) {
  auto const equation = [](std::int32_t number) {
    return [=](IZelPureComp& c) {
      GoodComponent::Line(c, correlationLiquidCp, 300, 500, 75, 0.01, number);
    };
  };
  Expect({{"unknown",
           equation(99),
           {"error equation <item> LiquidCp = 99 (99)  at - | - to - () |  | <place> LiquidCp: "
            "equation 99 is not known; it cannot be evaluated within its range"}},
          {"C3 counts as 0",
           equation(5),
           {"warning equation <item> LiquidCp = 5 (5)  at - | - to - () |  | <place> LiquidCp: "
            "equation 5 needs at least 3 coefficients, but the record has 2; missing ones count "
            "as 0"}},
          {"two coefficients are enough", equation(2), {}}});
  GoodComponent component;
  component.change = equation(99);
  Check({component});
  EXPECT_FALSE(isGood_) << "an error";
}

// The bounds of the sciences, by hand: (constant, an impossible value, what is expected, the values
// at the end that are possible).
TEST_F(ComponentDataTest, ConstantsOutsideTheirBounds) {
  double const none = gen_GetUndefDouble();
  struct {
    zelProperties index;
    char const* name;
    double bad;
    double good;
  } const rows[] = {{propertyMW, "MW", -46.07, 1.008},
                    {propertyTC, "TC", 0, 5.19},
                    {propertyPC, "PC", -5, 1},
                    {propertyVC, "VC", 0, 0.01},
                    {propertyZC, "ZC", 0, 0.2},
                    {propertyACENTRIC, "ACENTRIC", -1, -0.99},
                    {propertyNMP, "NMP", -1, 0.95},
                    {propertyNBP, "NBP", 0, 4.2},
                    {propertySG60F, "SG60F", 0, 0.1},
                    {propertyMVOL25C, "MVOL25C", -0.05, 0.01},
                    {propertySOLUPARA, "SOLUPARA", -1, 0},
                    {propertyPARACHOR, "PARACHOR", -1, 0},
                    {propertyRACKETT, "RACKETT", 0, 0.2},
                    {propertyDIPOLE, "DIPOLE", -0.5, 0},
                    {propertyRADIUS, "RADIUS", -1e-10, 0},
                    {propertyDIELECTRIC, "DIELECTRIC", 0.99, 1},
                    {propertyTDIELECTRIC, "TDIELECTRIC", 0, 1},
                    {propertyVDWA, "VDWA", -1, 0},
                    {propertyVDWV, "VDWV", -1, 0},
                    {propertyFLASHPOINT, "FLASHPOINT", 0, 200},
                    {propertyLOFLAMM, "LOFLAMM", 1.5, 1},
                    {propertyHIFLAMM, "HIFLAMM", -0.1, 0},
                    {propertyAUTOIGNITION, "AUTOIGNITION", 0, 500},
                    {propertyCNUM, "CNUM", -1, 0},
                    {propertyTTP, "TTP", 0, 1},
                    {propertyPTP, "PTP", 0, 1e-12},
                    {propertyHFUSIONNMP, "HFUSIONNMP", 0, 8},
                    {propertyHVAPNBP, "HVAPNBP", -5, 80}};
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    auto const check = [&](double value) {
      Check({With(Bare(10000007, "BARE", ""), row.index, value)});
      Lines bounds;
      for (std::string const& line : sink_.lines) {
        if (line.find(" bounds | ") != std::string::npos) bounds.push_back(line);
      }
      return bounds;
    };
    Lines const found = check(row.bad);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].find("error bounds | own PURECOMP:TEST [10000007] BARE | " +
                            std::string(row.name) + " = "),
              0U)
        << found[0];
    EXPECT_FALSE(isGood_);
    EXPECT_EQ(check(row.good), Lines{});
    EXPECT_EQ(check(none), Lines{});
  }
  for (zelProperties const index : {propertyGFORMATION, propertyHFORMATION, propertyHLTB,
                                    propertySVTB, propertyHCOMBUST, propertyGHV}) {
    EXPECT_EQ(Check({With(Bare(10000007, "BARE", ""), index, -1e5)}), Lines{}) << "of any sign";
  }
  Expect(
      {{"the sentence",
        Set(propertyDIPOLE, -1.5),
        {"error bounds <item> DIPOLE = -1.5 (-1.5) debye at - | 0 to - (at least 0) |  | <place> "
         "DIPOLE is -1.5 debye, which is impossible: expected at least 0 debye",
         "warning source <item> DIPOLE = - ()  at - | - to - () |  | <place> no reference code: "
         "DIPOLE"}},
       {"above a bound",
        [](IZelPureComp& c) {
          c.SetProperty(propertyPTP, 0.0);
          c.SetPropertyRefCode(propertyPTP, 1);
        },
        {"error bounds <item> PTP = 0 (0) kPa at - | 0 to - (above 0) |  | <place> PTP is 0 "
         "kPa, which is impossible: expected above 0 kPa"}}});
}

TEST_F(ComponentDataTest, AComponentInMemoryIsCheckedByItself) {
  GoodComponent component;
  component.change = Set(propertyPC, -5);
  ComponentBank item;
  component.Fill(*item.Get());
  EXPECT_FALSE(CheckComponentData(item.Get(), "own", "TEST", {}, sink_));
  Lines const alone = sink_.lines;
  ASSERT_FALSE(alone.empty());
  EXPECT_EQ(alone, Check({component})) << "as in a library";
  EXPECT_FALSE(isGood_);
  sink_.Clear();
  char const* const silent[] = {"bounds", "critical", "acentric", "vapor-pressure"};
  EXPECT_TRUE(CheckComponentData(item.Get(), nullptr, nullptr, {silent, 4}, sink_));
  EXPECT_EQ(sink_.lines, Lines{});
  EXPECT_TRUE(CheckComponentData(nullptr, "own", "TEST", {}, sink_));
  EXPECT_EQ(sink_.lines, Lines{});
}

TEST_F(ComponentDataTest, TemperaturesOutOfOrder) {
  auto const range = [](std::uint32_t index, double tMin, double tMax) {
    return [=](IZelPureComp& c) { GoodComponent::Line(c, index, tMin, tMax, 75, 0.01); };
  };
  std::string const limit = " K at - | - to ";
  Expect({{"NMP",
           Set(propertyNMP, 275),
           {"warning temperatures <item> NMP = 275 (275)" + limit +
            "273.1 (at most 273.1) |  | "
            "<place> NMP 275 K is above TTP 273.1 K"}},
          {"NMP within 0.5 %", Set(propertyNMP, 274.4), {}},
          {"NBP",
           Set(propertyNBP, 700),
           {"warning temperatures <item> NBP = 700 (700)" + limit +
            "600 (at most 600) |  | "
            "<place> NBP 700 K is above TC 600 K"}},
          {"ends swapped",
           range(correlationLiquidCp, 300, 200),
           {"warning temperatures <item> LiquidCp = 300 (300)" + limit +
            "200 (at most 200) |  | "
            "<place> LiquidCp has the range 300 K to 200 K"}},
          {"liquid above TC",
           range(correlationLiquidCp, 300, 601),
           {"warning temperatures <item> LiquidCp = 601 (601)" + limit +
            "600 (at most 600) |  | "
            "<place> the end of LiquidCp 601 K is above TC 600 K"}},
          {"within 0.1 %", range(correlationLiquidCp, 300, 600.5), {}},
          {"gas above TC", range(correlationIdealGasCp, 300, 1000), {}},
          {"solid above NMP",
           range(correlationSolidCp, 100, 300),
           {"warning temperatures <item> SolidCp = 300 (300)" + limit +
            "273.1 (at most 273.1) |  "
            "| <place> the end of SolidCp 300 K is above NMP 273.1 K"}},
          {"solid below NMP", range(correlationSolidCp, 100, 273), {}}});
}

// In degrees of Fahrenheit 620.33 is 600 K.
TEST_F(ComponentDataTest, RangesInOtherUnits) {
  auto const fahrenheit = [](double tMax) {
    return [=](IZelPureComp& c) {
      double const coefficients[15] = {75, 0.01};
      c.SetCorrelation(correlationLiquidCp, 1, 13, 0, 0, 1, 2, 80, tMax, coefficients);
    };
  };
  Expect({{"at TC", fahrenheit(620.33), {}},
          {"700 F is 644.2611 K",
           fahrenheit(700),
           {"warning temperatures <item> LiquidCp = 644.2611 (644.2611) K at - | - to 600 (at most "
            "600) |  | <place> the end of LiquidCp 644.2611 K is above TC 600 K"}}});
}

TEST_F(ComponentDataTest, CriticalConstants) {
  double const none = gen_GetUndefDouble();
  Expect({{"z = 10000 * 0.3 / (8.314463 * 600)",
           Set(propertyVC, 0.3),
           {"warning critical <item> TC PC VC = 0.6013618 (0.6013618)  at - | 0.15 to 0.4 (0.15 to "
            "0.40) |  | <place> TC, PC and VC give a compressibility factor of 0.6013618, expected "
            "0.15 to 0.40"}},
          {"ZC",
           Set(propertyZC, 0.21),
           {"warning critical <item> ZC = 0.21 (0.21)  at - | 0.2004539 to 0.2004539 (0.2004539) | "
            " | <place> ZC is 0.21, but TC, PC and VC give 0.2004539"}},
          {"within 2 %", Set(propertyZC, 0.204), {}},
          {"without VC",
           [=](IZelPureComp& c) {
             c.SetProperty(propertyVC, none);
             c.SetProperty(propertyZC, 0.41);
           },
           {"warning critical <item> ZC = 0.41 (0.41)  at - | 0.15 to 0.4 (0.15 to 0.40) |  | "
            "<place> ZC is 0.41, expected 0.15 to 0.40"}}});
}

TEST_F(ComponentDataTest, AcentricFactor) {
  Expect({{"-0.0374265",
           Set(propertyACENTRIC, 0.1),
           {"warning acentric <item> ACENTRIC = 0.1 (0.1)  at - | -0.0374265 to -0.0374265 "
            "(-0.0374265) |  | <place> ACENTRIC is 0.1, but the vapor pressure at 0.7 TC gives "
            "-0.0374265"}},
          {"within 0.02", Set(propertyACENTRIC, -0.018), {}}});
}

TEST_F(ComponentDataTest, VaporPressureAtTheConstants) {
  auto const critical = [](double pressure, double z, double acentric) {
    return [=](IZelPureComp& c) {
      c.SetProperty(propertyPC, pressure);
      c.SetProperty(propertyZC, z);
      c.SetProperty(propertyACENTRIC, acentric);
    };
  };
  Expect(
      {{"at 401 K",
        Set(propertyNBP, 401),
        {"warning vapor-pressure <item> VaporPressure = 149.5 (149.5) kPa at 401 | 101.325 to "
         "101.325 (101.325) |  | <place> at NBP 401 K the vapor pressure is 149.5 kPa, expected "
         "101.325 kPa"}},
       {"-19700 + 49.5 * 600 is 9.1 % below",
        critical(11000, 0.22, 0.004),
        {"warning vapor-pressure <item> VaporPressure = 10000 (10000) kPa at 600 | 11000 to "
         "11000 (11000) |  | <place> at TC the vapor pressure is 10000 kPa, but PC is 11000 kPa"}},
       {"within 5 %", critical(10500, 0.21, -0.017), {}}});
}

TEST_F(ComponentDataTest, DensityAndLatentHeat) {
  auto const density = [](double value) {
    return [=](IZelPureComp& c) {
      GoodComponent::Line(c, correlationLiquidDensity, 300, 600, value, 0);
    };
  };
  auto const heat = [](double stored) {
    return [=](IZelPureComp& c) {
      c.SetProperty(propertyHVAPNBP, stored);
      c.SetPropertyRefCode(propertyHVAPNBP, 1);
      GoodComponent::Line(c, correlationLatentHeat, 300, 600, 40000, 0);
    };
  };
  Expect(
      {{"1/VC is 10",
        density(12),
        {"warning critical-density <item> LiquidDensity = 12 (12) kg-mol/m3 at 600 | 10 to 10 "
         "(10) |  | <place> at TC the liquid density is 12 kg-mol/m3, but VC gives 10 kg-mol/m3"}},
       {"within 10 %", density(10.9), {}},
       {"5 % above",
        heat(42000),
        {"warning latent-heat <item> HVAPNBP = 42000 (42000) kJ/kg-mol at - | 40000 to 40000 "
         "(40000) |  | <place> HVAPNBP is 42000 kJ/kg-mol, but the latent heat at NBP is "
         "40000 kJ/kg-mol"}},
       {"within 3 %", heat(41000), {}}});
}

TEST_F(ComponentDataTest, CurvesThatRiseOrFallWrongly) {
  auto const line = [](std::uint32_t index, double a, double b) {
    return [=](IZelPureComp& c) { GoodComponent::Line(c, index, 300, 600, a, b); };
  };
  Expect({{"the second of 21 steps: 315 K",
           line(correlationVaporViscosity, 1, -0.001),
           {"warning monotony <item> VaporViscosity = 0.685 (0.685) cP at 315 | 0.7 to - (at least "
            "0.7) |  | <place> VaporViscosity falls at 315 K"}},
          {"a viscosity that rises", line(correlationVaporViscosity, 0.001, 0.001), {}},
          {"a surface tension that rises",
           line(correlationSurfaceTension, 0.01, 0.0001),
           {"warning monotony <item> SurfaceTension = 0.0415 (0.0415) N/m at 315 | - to 0.04 (at "
            "most 0.04) |  | <place> SurfaceTension rises at 315 K",
            "warning monotony <item> SurfaceTension = 0.07 (0.07) N/m at 600 | 0 to 0 (0) |  | "
            "<place> SurfaceTension is 0.07 N/m at TC, expected 0 N/m"}},
          {"a heat capacity of 75 - 0.3 T",
           [](IZelPureComp& c) { GoodComponent::Line(c, correlationLiquidCp, 240, 340, 75, -0.3); },
           {"warning monotony <item> LiquidCp = -12 (-12) kJ/kg-mol-K at 290 | 0 to - (at least 0) "
            "|  | <place> LiquidCp is -12 kJ/kg-mol-K at 290 K"}}});
}

TEST_F(ComponentDataTest, MissingReferenceCodes) {
  Expect({{"two data",
           [](IZelPureComp& c) {
             c.SetPropertyRefCode(propertyACENTRIC, 0);
             c.SetCorrelationRefCode(correlationLiquidCp, 0);
           },
           {"warning source <item> ACENTRIC LiquidCp = - ()  at - | - to - () |  | <place> no "
            "reference code: ACENTRIC LiquidCp"}}});
}

// --- what data tools can ask of one record -------------------------------------------------------

TEST(CorrelationFault, OfEquationAndCount) {
  char text[120] = "x";
  EXPECT_FALSE(GetCorrelationFault(16, 4, text));
  EXPECT_STREQ(text, "");
  EXPECT_TRUE(GetCorrelationFault(16, 3, text));
  EXPECT_STREQ(text,
               "equation 16 needs at least 4 coefficients, but the record has 3; missing "
               "ones count as 0");
  EXPECT_TRUE(GetCorrelationFault(99, 15, text));
  EXPECT_STREQ(text, "equation 99 is not known");
  EXPECT_TRUE(GetCorrelationFault(99, 15, nullptr));
  EXPECT_TRUE(GetCorrelationFault(std::numeric_limits<std::int32_t>::min(),
                                  std::numeric_limits<std::int32_t>::min(), text));
}

// The conversion of 647.096 K and back ends at the same number: a limit stays inside its range.
TEST(RecordTemperatures, KeepTheirLimits) {
  constexpr std::int32_t kK = 10, kC = 11, kR = 12, kF = 13;
  EXPECT_EQ(ConvertTemperature(25, kC, kK), 298.15);
  EXPECT_EQ(ConvertTemperature(77, kF, kC), 25.0);
  EXPECT_EQ(ConvertTemperature(537, kR, kK), 298.333333333);
  EXPECT_EQ(ConvertTemperature(647.096, kK, kC), 373.946);
  EXPECT_EQ(ConvertTemperature(373.946, kC, kK), 647.096);
  EXPECT_EQ(ConvertTemperature(0.1234567890123, kK, kK), 0.1234567890123) << "not rounded";
  EXPECT_EQ(ConvertTemperature(300, 0, kC), 26.85) << "an unknown unit is K";
}

TEST(CorrelationValue, IsUndefinedWhereTheFormHasNone) {
  ComponentBank bank;
  IZelPureComp& c = *bank.Get();
  double value = 1.0, slope = 1.0;
  std::int32_t status = 7;
  auto const at = [&](std::uint32_t index, double temperature) {
    return GetCorrelationValue(&c, index, temperature, 1, value, slope, status);
  };
  EXPECT_FALSE(at(correlationLiquidCp, 300)) << "not set";
  EXPECT_TRUE(gen_IsUndefDouble(value));
  EXPECT_TRUE(gen_IsUndefDouble(slope));
  GoodComponent::Line(c, correlationLiquidCp, 300, 500, 75, 0.01);
  EXPECT_TRUE(at(correlationLiquidCp, 400));
  EXPECT_DOUBLE_EQ(value, 79.0);
  EXPECT_DOUBLE_EQ(slope, 0.01);
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(at(correlationLiquidCp, 600)) << "extrapolated";
  EXPECT_DOUBLE_EQ(value, 81.0);
  EXPECT_EQ(status, 1);
  GoodComponent::Line(c, correlationLiquidCp, 300, 500, 75, 0.01, 99);
  EXPECT_FALSE(at(correlationLiquidCp, 400)) << "no such equation";
  EXPECT_TRUE(gen_IsUndefDouble(value));
  EXPECT_FALSE(at(correlationLiquidCp, 600)) << "nor is there one to extrapolate from";
  EXPECT_FALSE(at(18, 400)) << "no such correlation";
  EXPECT_FALSE(GetCorrelationValue(nullptr, correlationLiquidCp, 400, 1, value, slope, status));
}

}  // namespace
}  // namespace zel::test
