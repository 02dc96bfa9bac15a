// The meaning of the parameters of models: zel parameters, and what show and pairs say of it.
#include "tests/zel/change_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

bool Has(std::string const& text, std::string const& part) {
  return text.find(part) != std::string::npos;
}

class ParametersTest : public ChangeTest {
 protected:
  // own.lb1 has a pair of NRTL in two banks, without notes.
  void SetUp() override {
    ChangeTest::SetUp();
    MakeFile("pair.csv", "number 1,number 2,bij,alphaij\n10000007,10000326,-29.2,0.3\n");
    for (char const* bank : {"NRTL:ONE", "NRTL:TWO"}) {
      Good(std::string("import own/own.lb1 --keep 0 --table pair.csv --bank ") + bank);
    }
    Good("memo own/own.lb1 --clear --keep 0");
    old_ = Now();
  }
  json Parameter(std::string const& bank, char const* field) const {
    return Row(Json("parameters own/own.lb1 --bank " + bank)["parameters"], "field", field);
  }
  void Fails(std::string const& words, std::string const& why, int status = 1) const {
    Outcome const outcome = Zel("parameters own/own.lb1 " + words);
    EXPECT_EQ(outcome.status, status) << words << "\n" << outcome.err;
    EXPECT_TRUE(Has(outcome.err + outcome.out, why)) << words << "\n" << outcome.err << outcome.out;
    EXPECT_TRUE(Now() == old_) << words;
  }
};

TEST_F(ParametersTest, WhatIsNotKnownIsSaidSo) {
  EXPECT_TRUE(Parameter("ONE", "bij")["meaning"].is_null());
  EXPECT_TRUE(Parameter("ONE", "bij")["unit"].is_null());
  EXPECT_TRUE(Parameter("ONE", "tMin").is_null());
  EXPECT_TRUE(Parameter("ONE", "refCode").is_null());
  EXPECT_TRUE(
      Has(Good("parameters own/own.lb1 --bank ONE"), "NRTL:ONE  bij       not known  not known"));
  EXPECT_TRUE(
      Has(Good("show own/own.lb1 NRTL:ONE 10000007 10000326"), "bij       not known  not known"));
  EXPECT_TRUE(Has(Good("pairs NRTL -l own/own.lb1 --fields bij"), "not known  not known"));
  json const show = Json("show own/own.lb1 NRTL:ONE 10000007 10000326");
  EXPECT_TRUE(Row(show["parameters"], "field", "equation")["meaning"].is_null());
  // A label that is not only the name again says something.
  EXPECT_EQ(
      Row(Json("parameters own/own.lb1 --bank OCTANE")["parameters"], "field", "p")["meaning"],
      "Paraffinic");
  EXPECT_TRUE(Json("parameters perry.lb1")["parameters"].empty());
}

TEST_F(ParametersTest, AMeaningIsSetForABankOrForAllOfItsType) {
  json const set = Json("parameters own/own.lb1 set NRTL BIJ 'energy / R' --unit K");
  EXPECT_EQ(set["changed"], true);
  EXPECT_EQ(Json("memo own/own.lb1")["memo"], "parameter NRTL bij [K]: energy / R");
  EXPECT_EQ(Json("parameters own/own.lb1 set NRTL bij 'energy / R' --unit K")["changed"], false);
  Good("parameters own/own.lb1 set NRTL:TWO bij 'in other units' --unit cal/mol");
  EXPECT_EQ(Json("memo own/own.lb1 --bank TWO")["memo"], "parameter bij [cal/mol]: in other units");
  Good("parameters own/own.lb1 set NRTL equation 'tau_ij = bij/T'");
  Good("parameters own/own.lb1 set NRTL alphaij nonrandomness");
  EXPECT_EQ(Parameter("ONE", "bij")["unit"], "K");
  EXPECT_EQ(Parameter("TWO", "bij")["unit"], "cal/mol");
  EXPECT_EQ(Parameter("TWO", "equation")["meaning"], "tau_ij = bij/T");
  EXPECT_EQ(Parameter("TWO", "alphaij")["unit"], "-") << "a pure number";
  json const show = Json("show own/own.lb1 NRTL:TWO 10000007 10000326");
  EXPECT_EQ(Row(show["parameters"], "field", "bij")["meaning"], "in other units");
  EXPECT_EQ(Row(show["fields"], "field", "bij")["unit"], "cal/mol");
  EXPECT_TRUE(Row(show["fields"], "field", "alphaij")["unit"].is_null()) << "a pure number";
  json const pairs = Json("pairs NRTL -l own/own.lb1 --fields bij")["parameters"];
  EXPECT_EQ(pairs.size(), 4U) << "the equation and the field of both banks";
  EXPECT_EQ(Row(pairs, "from", "own/own.lb1:TWO")["field"], "equation");
  EXPECT_EQ(Good("pairs NRTL -l own/own.lb1 --fields bij --csv"),
            "component 1,component 2,bij,from\n10000007,10000326,-29.2,own/own.lb1:ONE\n");
  Good("parameters own/own.lb1 remove NRTL:TWO bij");
  EXPECT_EQ(Parameter("TWO", "bij")["unit"], "K");
  Good("parameters own/own.lb1 remove NRTL bij");
  EXPECT_TRUE(Parameter("TWO", "bij")["meaning"].is_null());
  Good("undo own/own.lb1");
  EXPECT_EQ(Parameter("TWO", "bij")["unit"], "K");
}

TEST_F(ParametersTest, NumbersAreNotConvertedByTheUnitOfANote) {
  Good("parameters own/own.lb1 set NRTL bij 'energy / R' --unit K");
  json const show = Json("show own/own.lb1 NRTL:ONE 10000007 10000326 --units degC");
  EXPECT_EQ(Row(show["fields"], "field", "bij")["value"], -29.2);
  EXPECT_EQ(Row(show["fields"], "field", "bij")["unit"], "K");
  EXPECT_EQ(Row(show["parameters"], "field", "bij")["unit"], "K");
  EXPECT_EQ(Json("pairs NRTL -l own/own.lb1 --fields bij --units degC")["pairs"][0]["bij"], -29.2);
}

// Wherever a parameter is shown, it has the unit of its note.
TEST_F(ParametersTest, TheUnitOfANoteIsShown) {
  Good("parameters own/own.lb1 set NRTL bij 'energy / R' --unit K");
  for (char const* units : {"", " --units degC"}) {
    json const pairs = Json(std::string("pairs NRTL -l own/own.lb1 --fields bij") + units);
    EXPECT_EQ(pairs["units"]["pairs"]["bij"], "K") << units;
    EXPECT_EQ(pairs["pairs"][0]["bij"], -29.2) << units;
    for (char const* file : {"1", "2"}) {
      std::string const own = std::string("own/own.lb") + file;
      std::filesystem::copy_file(Folder() / own, Folder() / (std::string("old.lb") + file));
    }
    json const row =
        Json(std::string("edit own/own.lb1 ONE 10000007 10000326 bij=5") + units)["changes"][0];
    EXPECT_EQ(row["unit"], "K") << units;
    EXPECT_EQ(row["old"], -29.2) << units;
    EXPECT_EQ(row["new"], 5) << units;
    json const diff = Json(std::string("diff old.lb1 own/own.lb1") + units)["differences"][0];
    EXPECT_EQ(diff["field"], "bij") << units;
    EXPECT_EQ(diff["unit"], "K") << units;
    EXPECT_EQ(diff["second"], 5) << units;
    json const log = Json(std::string("log own/own.lb1 --last 1") + units)["differences"][0];
    EXPECT_EQ(log["unit"], "K") << units;
    EXPECT_EQ(log["before"], -29.2) << units;
    json const undo = Json(std::string("undo own/own.lb1") + units)["differences"][0];
    EXPECT_EQ(undo["unit"], "K") << units;
    EXPECT_EQ(undo["after"], -29.2) << units;
    for (char const* file : {"old.lb1", "old.lb2"}) std::filesystem::remove(Folder() / file);
  }
  // Banks that do not agree have no unit in common.
  Good("parameters own/own.lb1 set NRTL:TWO bij 'in other units' --unit cal/mol");
  EXPECT_TRUE(Has(Good("pairs NRTL -l own/own.lb1 --fields bij --csv"), ",bij,from"));
}

TEST_F(ParametersTest, TheUnitOfANoteIsRead) {
  Good("parameters own/own.lb1 set NRTL bij 'energy / R' --unit K");
  auto const value = [&] {
    return Row(Json("show own/own.lb1 NRTL:ONE 10000007 10000326")["fields"], "field",
               "bij")["value"];
  };
  Good("edit own/own.lb1 ONE 10000007 10000326 bij=-30.5K --units degC");
  EXPECT_EQ(value(), -30.5);
  Good("edit own/own.lb1 ONE 10000007 10000326 bij=-31 --units degC");
  EXPECT_EQ(value(), -31);
  Outcome const other = Zel("edit own/own.lb1 ONE 10000007 10000326 bij=-30C");
  EXPECT_EQ(other.status, 2);
  EXPECT_TRUE(Has(other.err, "its unit is K, as a note says")) << other.err;
  MakeFile("k.csv", "number 1,number 2,bij [K]\n10000007,10000326,-32\n");
  Good("import own/own.lb1 --table k.csv --bank NRTL:ONE --units degC");
  EXPECT_EQ(value(), -32);
  MakeFile("k.csv", "number 1,number 2,bij\n10000007,10000326,-33K\n");
  EXPECT_TRUE(Has(Good("import own/own.lb1 --table k.csv --bank NRTL:ONE --units degC"),
                  "bij -32 to -33 K"));
  EXPECT_EQ(value(), -33);
  for (char const* table : {"bij [C]\n10000007,10000326,-32", "bij\n10000007,10000326,-32C"}) {
    MakeFile("c.csv", std::string("number 1,number 2,") + table + "\n");
    Outcome const bad = Zel("import own/own.lb1 --table c.csv --bank NRTL:ONE --json");
    EXPECT_EQ(bad.status, 1);
    EXPECT_TRUE(Has(bad.err + bad.out, "its unit is K")) << bad.err << bad.out;
  }
  EXPECT_EQ(value(), -33);
}

TEST_F(ParametersTest, ATableIsImported) {
  MakeFile("p.csv",
           "type,field,unit,meaning\nNRTL,equation,,\"tau = bij/T, alpha\"\n"
           "nrtl:two,bij,K,energy\nWILSON,aij,,unused\nNRTL,none,,x\nNONE,aij,,x\n");
  Fails("import p.csv", "2 of 5 are refused");
  json const done = Json("parameters own/own.lb1 import p.csv --skip-bad");
  EXPECT_EQ(done["changed"], 2);
  EXPECT_EQ(done["not_used"], 1);
  EXPECT_EQ(done["refused"], 2);
  EXPECT_EQ(Parameter("ONE", "equation")["meaning"], "tau = bij/T, alpha");
  EXPECT_TRUE(Parameter("ONE", "bij")["meaning"].is_null());
  EXPECT_EQ(Parameter("TWO", "bij")["meaning"], "energy");
  EXPECT_EQ(Json("parameters own/own.lb1 import p.csv --skip-bad")["the_same"], 2);
}

TEST_F(ParametersTest, WhatIsWrittenReadsBack) {
  for (char const* words :
       {"set NRTL bij \"energy, divided by R\" --unit K", "set NRTL equation \"tau = bij/T\"",
        "set NRTL:TWO aji \"-\"", "set NRTL:TWO alphaij 0.3"}) {
    Good(std::string("parameters own/own.lb1 ") + words);
  }
  json const before = Json("parameters own/own.lb1")["parameters"];
  for (char const* file : {"p.csv", "p.tsv", "p.json"}) {
    EXPECT_EQ(Json(std::string("parameters own/own.lb1 -o ") + file)["parameters"], 4) << file;
    for (char const* words : {"NRTL bij", "NRTL equation", "NRTL:TWO aji", "NRTL:TWO alphaij"}) {
      Good(std::string("parameters own/own.lb1 remove ") + words);
    }
    EXPECT_NE(Json("parameters own/own.lb1")["parameters"], before);
    EXPECT_EQ(Json(std::string("parameters own/own.lb1 import ") + file)["changed"], 4) << file;
    EXPECT_EQ(Json("parameters own/own.lb1")["parameters"], before) << file;
  }
  EXPECT_EQ(Json("parameters own/own.lb1 --bank ONE -o p.csv")["parameters"], 2);
  EXPECT_EQ(Zel("parameters own/own.lb1 -o p.xls").status, 2);
  EXPECT_EQ(Zel("parameters own/own.lb1 set NRTL bij x -o p.csv").status, 2);
}

TEST_F(ParametersTest, BadWordsAreRefused) {
  MakeFile("bad.csv", "type,meaning\nNRTL,x\n");
  Fails("import bad.csv", "the columns are type, field, unit and meaning");
  Fails("import none.csv", "none.csv");
  Fails("set NRTL biij x", "biij");
  Fails("set NONE bij x", "NONE");
  Fails("set NRTL bij ''", "the meaning is empty", 2);
  Fails("set NRTL bij", "give set BANK FIELD", 2);
  Fails("set NRTL bij x --unit '[K]'", "has a bracket");
  Fails("set NRTL equation x --unit K", "an equation has no unit");
  Fails("set NRTL bij 'a]]>'", "which a document cannot hold");
  Fails("show", "\"show\" is not set, remove or import", 2);
  Fails("set NRTL bij x --bank ONE", "--bank is for the list", 2);
  EXPECT_EQ(Zel("parameters none.lb1").status, 1);
  json const dry = Json("parameters own/own.lb1 set NRTL bij x --dry-run");
  EXPECT_TRUE(dry.contains("dry_run"));
  EXPECT_TRUE(Now() == old_);
}

// The table next to the data is what the documents say.
TEST_F(ParametersTest, PublishedLibrariesSayHowTheyUseThem) {
  json const parameters = Json("parameters sample.lb1")["parameters"];
  EXPECT_EQ(Row(Json("parameters sample.lb1 --bank WILSON")["parameters"], "field", "aij")["unit"],
            "cal/mol");
  EXPECT_GT(parameters.size(), 40U);
  json const again =
      Json("parameters sample.lb1 import '" + std::string(ZEL_DATA) + "/../parameters.csv'");
  EXPECT_EQ(again["the_same"], again["read"]);
}

}  // namespace
}  // namespace zel::test
