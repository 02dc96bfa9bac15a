// Single values set by `zel edit`.
#include <nlohmann/json.hpp>

#include "tests/zel/change_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class EditTest : public ChangeTest {
 protected:
  void SetUp() override {
    ChangeTest::SetUp();
    Fill();
    old_ = Now();
    std::filesystem::create_directory(Folder() / "before");
    for (auto const& [name, bytes] : old_) MakeFile("before/" + name, bytes);
  }
  // own.lb1 has ethanol, water and the pairs of NRTL.
  virtual void Fill() const {
    Good("copy crc.lb1 own/own.lb1 --bank CRC --item ETHANOL");
    Good("copy crc.lb1 own/own.lb1 --bank CRC --item WATER");
    Good("copy sample.lb1 own/own.lb1 --bank NRTL --keep 0");
  }
  json Edit(std::string const& words) const { return Json("edit own/own.lb1 " + words); }
  // What has changed since the beginning, as "ITEM FIELD".
  std::vector<std::string> Changed() const {
    std::vector<std::string> changed;
    json const report = Json("diff before/own.lb1 own/own.lb1");
    for (json const& row : report["differences"]) {
      changed.push_back(row["item"].get<std::string>() + " " + row["field"].get<std::string>());
    }
    return changed;
  }
  json Constant(char const* keyword) const {
    return Row(Json("show own/own.lb1 CRC ETHANOL")["constants"], "keyword", keyword);
  }
  json Pair(std::string const& words, char const* field) const {
    return Row(Json("show own/own.lb1 NRTL " + words)["fields"], "field", field)["value"];
  }
  void Fails(std::string const& words, std::string const& why, int status = 1) const {
    Outcome const outcome = Zel("edit own/own.lb1 " + words);
    EXPECT_EQ(outcome.status, status) << words << "\n" << outcome.err;
    EXPECT_NE(outcome.err.find(why), std::string::npos) << words << "\n" << outcome.err;
    EXPECT_TRUE(Now() == old_) << words;
    EXPECT_TRUE(History().empty()) << words;
  }
};

TEST_F(EditTest, AConstantWithItsUnitAndCode) {
  json const report = Edit("ETHANOL NBP 78.31C --ref 999");
  EXPECT_EQ(report["item"], "ETHANOL");
  EXPECT_EQ(report["bank"], "PURECOMP:CRC");
  EXPECT_EQ(report["changes"], json::parse(R"([{"datum": "NBP", "old": 351.39, "new": 351.46,
      "unit": "K", "old_code": 54, "new_code": 999}])"));
  EXPECT_EQ(Constant("NBP")["value"], 351.46);
  EXPECT_EQ(Constant("NBP")["code"], 999);
  EXPECT_EQ(Changed(),
            (std::vector<std::string>{"PURECOMP:CRC ETHANOL NBP", "PURECOMP:CRC ETHANOL NBP code"}))
      << "everything else is as it was";
  Good("undo own/own.lb1");
  EXPECT_TRUE(Now() == old_);
}

TEST_F(EditTest, SeveralSettingsAtOnceInUnitsOfTheUser) {
  json const report = Edit("CRC ETHANOL NBP=351.5 PC 61.4bar --unset TC");
  EXPECT_EQ(report["changes"].size(), 3U);
  EXPECT_EQ(Constant("NBP")["value"], 351.5);
  EXPECT_EQ(Constant("NBP")["code"], 54) << "without --ref the code stays";
  EXPECT_EQ(Constant("PC")["value"], 6140);
  EXPECT_TRUE(Constant("TC").is_null() || Constant("TC")["value"].is_null());
  Good("edit own/own.lb1 64-17-5 NBP 78.4 --units degC");
  EXPECT_EQ(Constant("NBP")["value"], 351.55);
}

TEST_F(EditTest, WhatIsThereAlreadyIsNoChange) {
  json const report = Edit("ETHANOL NBP=351.39");
  EXPECT_EQ(report["already_so"], "NBP");
  EXPECT_EQ(report["changed"], 0);
  EXPECT_TRUE(Now() == old_);
  EXPECT_TRUE(History().empty());
  EXPECT_EQ(Edit("ETHANOL NBP=351.39 PC 61.4bar")["already_so"], "NBP");
  // Only the code is another.
  EXPECT_EQ(Edit("ETHANOL NBP --ref 7")["changes"],
            json::parse(R"([{"datum": "NBP", "old": 351.39, "new": 351.39, "unit": "K",
                "old_code": 54, "new_code": 7}])"));
}

// The fields are those of the pair in the order named, whichever is stored.
TEST_F(EditTest, FieldsOfAPairInEitherOrder) {
  Good("edit own/own.lb1 NRTL ETHANOL WATER bij=-29.2 alphaij=0.3 --ref 12");
  EXPECT_EQ(Pair("ETHANOL WATER", "bij"), -29.2);
  EXPECT_EQ(Pair("WATER ETHANOL", "bji"), -29.2);
  EXPECT_EQ(Pair("ETHANOL WATER", "alphaij"), 0.3);
  EXPECT_EQ(Pair("ETHANOL WATER", "refCode"), 12);
  EXPECT_EQ(Changed().size(), 3U);
  Good("edit own/own.lb1 NRTL WATER ETHANOL bij 600 tMin=20C pMin=1.2bar --unset pMax");
  EXPECT_EQ(Pair("ETHANOL WATER", "bji"), 600);
  EXPECT_EQ(Pair("ETHANOL WATER", "bij"), -29.2);
  EXPECT_EQ(Pair("ETHANOL WATER", "tMin"), 293.15);
  EXPECT_EQ(Pair("ETHANOL WATER", "pMin"), 120);
  EXPECT_TRUE(Pair("ETHANOL WATER", "pMax").is_null());
}

TEST_F(EditTest, FromAnotherLibrary) {
  Fails("BENZENE NBP 353K", "BENZENE");
  json const component = Edit("BENZENE NBP 353.2K --from crc.lb1");
  EXPECT_EQ(component["copied_from"], "crc.lb1:CRC");
  EXPECT_EQ(Changed(), std::vector<std::string>{"PURECOMP:CRC BENZENE whole"});
  Good("create few.lb1");
  json const pair =
      Json("edit few.lb1 NRTL WATER ETHANOL bij=1 --from sample.lb1 --names perry.lb1");
  EXPECT_EQ(pair["copied_from"], "sample.lb1:SAMPLE");
  json const fields = Json("show few.lb1 NRTL WATER ETHANOL --names perry.lb1")["fields"];
  EXPECT_EQ(Row(fields, "field", "bij")["value"], 1);
  EXPECT_EQ(Row(fields, "field", "bji")["value"], -29.16663);
  // It is there now, and not copied again.
  EXPECT_FALSE(Json("edit few.lb1 NRTL WATER ETHANOL alphaij=0.4 --from sample.lb1 "
                    "--names perry.lb1")
                   .contains("copied_from"));
  EXPECT_EQ(Zel("edit few.lb1 NRTL WATER ETHANOL bij=2 --from few.lb1").status, 1);
}

// The source of a pair need not know the components; the edited library does.
TEST_F(EditTest, FromALibraryOfPairs) {
  Good("copy perry.lb1 few.lb1 --create --bank PERRY");
  json const pair = Json("edit few.lb1 NRTL ETHANOL WATER bij=5 --from sample.lb1");
  EXPECT_EQ(pair["copied_from"], "sample.lb1:SAMPLE");
  EXPECT_EQ(Row(Json("show few.lb1 NRTL ETHANOL WATER")["fields"], "field", "bij")["value"], 5);
  Outcome const outcome = Zel("edit few.lb1 WILSON ETHANOL WATER aij=5");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("few.lb1: no bank WILSON; it has NRTL:SAMPLE PURECOMP:PERRY"),
            std::string::npos)
      << outcome.err;
  // Another component has the number there.
  Good("renumber few.lb1 BENZENE 21000001");
  Outcome const other = Zel("edit few.lb1 NRTL BENZENE WATER bij=5 --from sample.lb1");
  EXPECT_NE(other.err.find("does not exist"), std::string::npos) << other.err;
  Good("copy perry.lb1 pairs.lb1 --create --bank PERRY");
  Good("copy sample.lb1 pairs.lb1 --bank NRTL");
  Outcome const contradiction = Zel("edit few.lb1 NRTL BENZENE WATER bij=5 --from pairs.lb1");
  EXPECT_NE(contradiction.err.find("BENZENE is component 21000001 in few.lb1, but 1000"),
            std::string::npos)
      << contradiction.err;
}

class CurveEditTest : public EditTest {
 protected:
  void Fill() const override {
    Good("copy perry.lb1 own/own.lb1 --bank PERRY --item ETHANOL --keep 0");
  }
  json Curve(char const* name) const {
    return Row(Json("show own/own.lb1 PERRY ETHANOL")["correlations"], "name", name);
  }
  double Value(std::string const& words) const {
    return Json("eval ETHANOL " + words + " -l own/own.lb1")["points"][0]["value"];
  }
};

TEST_F(CurveEditTest, RangeCodeAndCoefficients) {
  json const report = Edit("ETHANOL VaporPressure --range 200K:250C --ref 5");
  EXPECT_EQ(Curve("VaporPressure")["from_t"], 200);
  EXPECT_EQ(Curve("VaporPressure")["to_t"], 523.15);
  EXPECT_EQ(Curve("VaporPressure")["code"], 5);
  EXPECT_EQ(Curve("VaporPressure")["equation"], 20);
  json const row = report["changes"][0];
  EXPECT_EQ(row["datum"], "VaporPressure from T");
  EXPECT_EQ(row["old"], 159.05);
  EXPECT_EQ(row["new"], 200);
  EXPECT_EQ(row["unit"], "K");
  EXPECT_EQ(row["new_code"], 5);
  EXPECT_EQ(Changed().size(), 3U);
  double const before = Value("VaporPressure --at 300K");
  Good("edit own/own.lb1 ETHANOL vaporp --coefficients 67.08939 -7122.3 -7.1424 2.8853e-06 2");
  EXPECT_NEAR(Value("VaporPressure --at 300K") / before, 2.0, 1e-4) << "ln 2 more";
}

// The coefficients are in C, and the values in bar.
TEST_F(CurveEditTest, ANewRecord) {
  Good("edit own/own.lb1 ETHANOL --unset VaporPressure");
  EXPECT_TRUE(Curve("VaporPressure").is_null());
  Outcome const outcome = Zel("edit own/own.lb1 ETHANOL VaporPressure --range 200K:400K");
  EXPECT_NE(outcome.err.find("a new one needs --equation and --coefficients"), std::string::npos)
      << outcome.err;
  Good(
      "edit own/own.lb1 ETHANOL VaporPressure --equation 1 --coefficients 0 1 --range :400K "
      "--value-unit bar --temperature-unit C");
  EXPECT_NEAR(Value("VaporPressure --at 50C"), 5000.0, 1e-3) << "50 bar in kPa";
  EXPECT_TRUE(Curve("VaporPressure")["from_t"].is_null());
  EXPECT_EQ(Curve("VaporPressure")["to_t"], 126.85);
  Good("edit own/own.lb1 ETHANOL Dielectric --equation 1 --coefficients 24.3");
  EXPECT_EQ(Value("Dielectric --at 300K"), 24.3);
  Good("edit own/own.lb1 ETHANOL SolidDensity --equation 1 --coefficients 20");
  EXPECT_EQ(Value("SolidDensity --at 150K"), 20.0) << "in the unit of an evaluated value";
}

TEST_F(CurveEditTest, MissingCoefficientsAreAWarning) {
  json const report = Edit("ETHANOL VaporPressure --equation 20 --coefficients 94 -4917 --ref 5");
  EXPECT_EQ(report["warning"],
            "VaporPressure: equation 20 usually has 5 coefficients, but the record has 2; missing "
            "ones count as 0");
  EXPECT_FALSE(Edit("ETHANOL VaporPressure --coefficients 94 -4917 -13.7 0.02 1 --ref 6")
                   .contains("warning"));
}

TEST_F(CurveEditTest, OtherCoefficientsOfACodeAreAWarning) {
  EXPECT_EQ(Edit("ETHANOL VaporPressure --equation 1 --coefficients 94 1")["warning"],
            "VaporPressure: reference code 11 is kept; --ref gives another");
  EXPECT_FALSE(Edit("ETHANOL VaporPressure --coefficients 94 1").contains("warning")) << "the same";
  EXPECT_FALSE(Edit("ETHANOL VaporPressure --range 200K:300K").contains("warning"));
  EXPECT_FALSE(Edit("ETHANOL VaporPressure --coefficients 95 --ref 7").contains("warning"));
  EXPECT_EQ(Edit("ETHANOL VaporPressure --equation 20 --coefficients 94 1")["warning"],
            "VaporPressure: reference code 7 is kept; --ref gives another; VaporPressure: equation "
            "20 usually has 5 coefficients, but the record has 2; missing ones count as 0");
}

// A new record can be in any unit of its class, and in that of an evaluated value.
TEST_F(CurveEditTest, TheUnitOfANewRecord) {
  Good("edit own/own.lb1 ETHANOL --unset LatentHeat");
  Good(
      "edit own/own.lb1 ETHANOL LatentHeat --equation 1 --coefficients 2 --value-unit MJ/kg "
      "--basis mass");
  EXPECT_NEAR(Value("LatentHeat --at 300K"), 2000.0 * 46.068, 10.0) << "kJ/kg-mol";
  EXPECT_NE(Zel("edit own/own.lb1 ETHANOL Dielectric --equation 1 --coefficients 2 --value-unit K")
                .err.find("which is a pure number"),
            std::string::npos);
}

TEST_F(CurveEditTest, WhatIsRefused) {
  Fails("ETHANOL VaporPressure", "needs --equation, --coefficients or --range", 2);
  Fails("ETHANOL VaporPressure 12", "needs --equation, --coefficients or --range", 2);
  Fails("ETHANOL VaporPressure=12", "set it with --equation", 2);
  Fails("ETHANOL VaporPressure --equation 99 --coefficients 1", "equation 99 is not known");
  Fails("ETHANOL VaporPressure --equation 16 --coefficients 1", "needs at least");
  Fails("ETHANOL VaporPressure --equation 1", "another --equation needs --coefficients", 2);
  Fails("ETHANOL VaporPressure --equation x --coefficients 1", "--equation is a whole number", 2);
  Fails("ETHANOL VaporPressure --coefficients a", "\"a\" is not a coefficient", 2);
  Fails("ETHANOL VaporPressure --coefficients 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16",
        "at most 15 coefficients", 2);
  Fails("ETHANOL VaporPressure --coefficients 1e39 2", "C1 cannot be stored as 1e+39");
  Fails("ETHANOL LiquidDensity --value-unit kPa", "\"kPa\" is not a unit of LiquidDensity");
  Fails("ETHANOL VaporPressure --range 400K:300K", "ends before it begins", 2);
  Fails("ETHANOL VaporPressure --range 400", "is not a range MIN:MAX", 2);
  Fails("ETHANOL VaporPressure --range 1:2 --value-unit J", "is not a unit of VaporPressure");
  Fails("ETHANOL VaporPressure LiquidCp --equation 1 --coefficients 1", "for one correlation", 2);
  Fails("ETHANOL MW=46 --range 1:2", "for one correlation", 2);
  Fails("ETHANOL CharacteristicVolume --equation 1 --coefficients 1 --ref 3", "no reference code");
}

TEST_F(EditTest, BadWords) {
  Fails("ETHANOL NPB 351", "NPB is not a constant or a correlation; did you mean NBP?");
  Fails("NRTL ETHANOL WATER bjj=1", "banks of type NRTL have no field bjj; did you mean ");
  Fails("ETHANOL --unset NPB", "did you mean NBP?");
  Fails("ETHANOL NBP 351x", "is not a value of NBP, in K", 2);
  Fails("ETHANOL NBP 1.2bar", "is not a value of NBP, in K", 2);
  Fails("ETHANOL NBP=-300C", "it is below absolute zero", 2);
  Fails("ETHANOL NBP=-1", "it is below absolute zero", 2);
  Fails("NRTL ETHANOL WATER tMin=-500F", "it is below absolute zero", 2);
  Fails("ETHANOL NBP", "NBP needs a value", 2);
  Fails("ETHANOL NBP=351 NBP=352", "NBP is named twice", 2);
  Fails("ETHANOL NBP=351 --unset NBP", "NBP is named twice", 2);
  Fails("ETHANOL", "nothing to edit", 2);
  Fails("NRTL ETHANOL", "name the item to edit", 2);
  Fails("NRTL ETHANOL WATER bij", "bij needs a value", 2);
  Fails("NRTL ETHANOL WATER bij='1 2'", "bij has 1 value(s), not 2", 2);
  Fails("NRTL ETHANOL WATER bij=1 --range 1:2", "for correlations of components", 2);
  Fails("NRTL ETHANOL WATER refCode=x", "a whole number", 2);
  Fails("ETHANOL NBP=351 --ref 32001", "--ref is a whole number up to 32000", 2);
  Fails("ETHANOL NBP=351 --ref -1", "--ref", 2);
  Fails("ETHANOL NBP=1e300", "NBP cannot be stored as 1e+300");
  Fails("ETHANOL TC=-3.4e38", "it is below absolute zero", 2);
  Fails("ETHANOL ZC=-3.4e38", "ZC cannot be stored as -3.4e+38");
  Fails("NRTL ETHANOL WATER bij=-3.4028e38", "bij cannot be stored as -3.4028e+38");
  Fails("NRTL ETHANOL WATER bij=1e-50", "bij cannot be stored as 1e-50");
  Fails("ETHNOL NBP=351", "ETHNOL is not a component");
  Fails("WILSON ETHANOL WATER aij=1", "", 1);
  Fails("NRTL ETHANOL ETHANOL bij=1", "--from LIBRARY copies it");
  Fails("ETHANOL NBP=351 --from none.lb1", "none.lb1: not found");
  Fails("ETHANOL NBP=351 --password x", "has no password");
  EXPECT_EQ(Zel("edit own/none.lb1 ETHANOL NBP=351").status, 1);
}

TEST_F(EditTest, DryRunShowsTheSame) {
  json report = Edit("ETHANOL NBP 78.31C --dry-run");
  EXPECT_EQ(report["dry_run"], "nothing was changed");
  EXPECT_TRUE(Now() == old_);
  report.erase("dry_run");
  EXPECT_EQ(report, Edit("ETHANOL NBP 78.31C"));
}

// Items with a text as key, lists of values, and words of an enumeration.
TEST_F(EditTest, FieldsOfOtherTypes) {
  Good("copy sample.lb1 own/own.lb1 --bank RACKETT");
  json const items = Json("items own/own.lb1 RACKETT");
  std::string const item = items["items"][0]["item"];
  json const fields = Json("show own/own.lb1 RACKETT " + item)["fields"];
  std::string const field = fields[0]["field"];
  Good("edit own/own.lb1 RACKETT " + item + " " + field + "=0.25");
  EXPECT_EQ(Row(Json("show own/own.lb1 RACKETT " + item)["fields"], "field", field)["value"], 0.25);
}

}  // namespace
}  // namespace zel::test
