// The command flatten: a preference list saved as one library.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class FlattenTest : public ZelTest {
 protected:
  void Make(std::string const& library, std::string const& components) const {
    MakeFile("c.xml", "<bank type=\"PURECOMP\" name=\"B\">" + components + "</bank>");
    Good("create " + library + " --force");
    Good("import " + library + " c.xml");
  }
  static std::string Component(int number, std::string const& id, std::string const& parts,
                               std::string const& more = "") {
    return "<comp><id number=\"" + std::to_string(number) + "\" name=\"" + id + "\"" + more + "> " +
           id + " </id>" + parts + "</comp>";
  }
  static std::string Constant(std::string const& name, std::string const& value,
                              std::string const& code) {
    return "<property name=\"" + name + "\" value=\"" + value + "\" refCode=\"" + code + "\" />";
  }
  void Fails(std::string const& words, int status, std::string const& text) const {
    Contents const before = ContentsOf(Folder());
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, status) << words << outcome.err;
    EXPECT_NE(outcome.err.find(text), std::string::npos) << words << "\n" << outcome.err;
    EXPECT_TRUE(ContentsOf(Folder()) == before) << words << " changed something";
  }
};

// Everything but where it came from is the same when the one library is searched.
TEST_F(FlattenTest, SavesWhatTheSearchFinds) {
  json const report = Json("flatten perry.lb1 crc.lb1 sample.lb1 -o merged.lb1");
  EXPECT_EQ(report["components"], 340);
  EXPECT_EQ(report["items"], 2540);
  EXPECT_EQ(Json("find merged.lb1")["found"], 340);
  for (char const* id : {"ETHANOL", "WATER", "BENZENE", "AIR"}) {
    json list = Json("search " + std::string(id) + " -l perry.lb1 -l crc.lb1");
    json one = Json("search " + std::string(id) + " -l merged.lb1");
    for (json* const found : {&list, &one}) {
      found->erase("sources");
      found->erase("references");  // they name their sources; each datum has its citation
      for (json& row : (*found)["constants"]) {
        if (row["state"] == "stored") row.erase("from");
      }
      for (json& row : (*found)["correlations"]) row.erase("from");
    }
    EXPECT_EQ(one, list) << id;
    EXPECT_GT(list["constants"].size(), 3U);
  }
  // Codes and coefficients are those of the source of each datum.
  json const merged = Json("show merged.lb1 PURECOMP ETHANOL");
  json const crc = Json("show crc.lb1 CRC ETHANOL");
  json const perry = Json("show perry.lb1 PERRY ETHANOL");
  EXPECT_EQ(Row(merged["constants"], "keyword", "NBP")["code"],
            Row(crc["constants"], "keyword", "NBP")["code"]);
  EXPECT_EQ(Row(merged["constants"], "keyword", "TC")["code"],
            Row(perry["constants"], "keyword", "TC")["code"]);
  EXPECT_EQ(Row(merged["correlations"], "name", "VaporPressure"),
            Row(perry["correlations"], "name", "VaporPressure"));
  EXPECT_EQ(Json("show merged.lb1 NRTL ETHANOL WATER")["fields"],
            Json("show sample.lb1 NRTL ETHANOL WATER --names perry.lb1")["fields"]);
  EXPECT_EQ(Json("check merged.lb1 --structure")["findings"], json::array());
}

// Derived constants stay derived.
TEST_F(FlattenTest, WhatIsFilledInIsNotStored) {
  Good("flatten perry.lb1 crc.lb1 -o merged.lb1 --components ETHANOL");
  EXPECT_EQ(Json("why ETHANOL ACENTRIC -l merged.lb1")["state"], "filled in");
  EXPECT_EQ(Json("find merged.lb1")["found"], 1);
}

TEST_F(FlattenTest, CountsWhatWasTakenFromWhere) {
  Make("a.lb1", Component(1, "A", Constant("TC", "500", "3") + Constant("PC", "4000", "3")));
  Make("b.lb1", Component(1, "A", Constant("TC", "501", "4") + Constant("NBP", "300", "4")) +
                    Component(2, "B", Constant("TC", "600", "4")));
  json const taken = Json("flatten a.lb1 b.lb1 -o c.lb1")["taken"];
  json const a = Row(taken, "source", "a.lb1:B");
  json const b = Row(taken, "source", "b.lb1:B");
  EXPECT_EQ(a["bank"], "PURECOMP:MERGED");
  EXPECT_EQ(a["items"], 1);
  EXPECT_EQ(a["constants"], 2);
  EXPECT_EQ(b["items"], 2);
  EXPECT_EQ(b["constants"], 2) << "NBP of A and TC of B";
  json const shown = Json("show c.lb1 MERGED A")["constants"];
  EXPECT_EQ(Row(shown, "keyword", "TC")["value"], 500);
  EXPECT_EQ(Row(shown, "keyword", "TC")["code"], 3);
  EXPECT_EQ(Row(shown, "keyword", "NBP")["code"], 4);
  EXPECT_EQ(Json("memo c.lb1 --bank MERGED")["memo"],
            "Merged from, the preferred one first:\na.lb1:B\nb.lb1:B");
}

TEST_F(FlattenTest, FirstLibraryThatHasAPairWins) {
  Good("copy sample.lb1 first.lb1 --create --bank NRTL --item 10000007 10000326");
  Good("export first.lb1 --bank NRTL -o first.xml");
  Shell("sed -i 's/refCode> *91/refCode> 77/' first.xml");
  Good("create own.lb1");
  Good("import own.lb1 first.xml");
  Good("flatten own.lb1 sample.lb1 perry.lb1 -o merged.lb1 --components ETHANOL WATER BENZENE");
  auto const code = [&](std::string const& pair) {
    return Row(Json("show merged.lb1 NRTL " + pair)["fields"], "field", "refCode")["value"];
  };
  EXPECT_EQ(code("ETHANOL WATER"), 77);
  EXPECT_NE(code("ETHANOL BENZENE"), 77);
  json const items = Json("info merged.lb1")["banks"];
  EXPECT_EQ(Row(items, "type", "NRTL")["items"], 2) << "only pairs of the three";
  EXPECT_EQ(Row(items, "type", "UNFORIG")["items"],
            Row(Json("info sample.lb1")["banks"], "type", "UNFORIG")["items"]);
}

// A pair is carried over to the number of the merged component.
TEST_F(FlattenTest, LibrariesThatNumberDifferently) {
  Good("copy perry.lb1 own.lb1 --create --bank PERRY");
  Good("copy sample.lb1 own.lb1 --bank NRTL");
  json const pair = Json("show own.lb1 NRTL ETHANOL WATER");
  Good("renumber own.lb1 ETHANOL 21000001");
  Good("flatten perry.lb1 own.lb1 -o merged.lb1");
  EXPECT_EQ(Json("find merged.lb1")["found"], 340);
  EXPECT_EQ(Json("show merged.lb1 PURECOMP ETHANOL")["number"], 10000007);
  EXPECT_EQ(Json("show merged.lb1 NRTL ETHANOL WATER")["fields"], pair["fields"]);
  EXPECT_EQ(Zel("show merged.lb1 NRTL 21000001 WATER").status, 1);
}

TEST_F(FlattenTest, DifferentSubstancesAreRefused) {
  Make("a.lb1", Component(1, "A", Constant("TC", "500", "3"), " casNum=\"7732-18-5\""));
  Make("b.lb1", Component(1, "A", Constant("PC", "5", "4"), " casNum=\"64-17-5\""));
  Fails("flatten a.lb1 b.lb1 -o c.lb1", 1, "--accept-identity");
  json const report = Json("flatten a.lb1 b.lb1 -o c.lb1 --accept-identity");
  EXPECT_TRUE(report["identity_warning"].is_string()) << report;
  EXPECT_EQ(report["identities"].size(), 2U);
}

// The number of the first library's A is that of another component of the second.
TEST_F(FlattenTest, OneNumberForTwoComponentsIsRefused) {
  Make("a.lb1", Component(1, "A", ""));
  Make("b.lb1", Component(5, "A", "") + Component(1, "B", ""));
  Fails("flatten a.lb1 b.lb1 -o d.lb1", 1, "the same number, 1");
}

TEST_F(FlattenTest, BadWords) {
  Fails("flatten -o c.lb1", 2, "SOURCE is required");
  Fails("flatten perry.lb1", 2, "--output is required");
  Fails("flatten perry.lb1 none.lb1 -o c.lb1", 1, "none.lb1: not found");
  Fails("flatten sample.lb1 -o c.lb1", 1, "sample.lb1: no bank of pure components");
  Fails("flatten perry.lb1 -o crc.lb1", 1, "crc.lb1: exists; --force replaces it");
  Fails("flatten perry.lb1 crc.lb1 -o ./crc.lb1 --force", 1, "is one of the sources");
  Fails("flatten perry.lb1 -o c.lb1 --components ETHANLO", 1, "the nearest ID is ETHANOL");
  Fails("flatten perry.lb1 -o c.lb1 --bank TOOLONGNAME", 2, "1 to 8 characters");
  Fails("flatten perry.lb1 -o none/c.lb1", 1, "its folder does not exist");
  Good("create c.lb1");
  Good("flatten perry.lb1 -o c.lb1 --force --components WATER");
  EXPECT_EQ(Json("find c.lb1")["found"], 1);
}

}  // namespace
}  // namespace zel::test
