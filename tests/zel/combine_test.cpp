// The commands that combine libraries: merge and renumber.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class CombineTest : public ZelTest {
 protected:
  void Make(std::string const& library, std::string const& documents) const {
    MakeFile("c.xml", documents);
    Good("create " + library + " --force");
    Good("import " + library + " c.xml");
  }
  static std::string Component(int number, std::string const& id, std::string const& tc,
                               std::string const& more = "") {
    return "<comp><id number=\"" + std::to_string(number) + "\" name=\"" + id + "\"" + more + "> " +
           id + " </id><property name=\"TC\" value=\"" + tc + "\" refCode=\"5\" /></comp>";
  }
  static std::string Bank(std::string const& components) {
    return "<bank type=\"PURECOMP\" name=\"B\">" + components + "</bank>";
  }
  void Fails(std::string const& words, int status, std::string const& text) const {
    Contents const before = ContentsOf(Folder());
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, status) << words << outcome.err;
    EXPECT_EQ(outcome.out, "") << words;
    EXPECT_NE(outcome.err.find(text), std::string::npos) << words << "\n" << outcome.err;
    EXPECT_TRUE(ContentsOf(Folder()) == before) << words << " changed something";
  }
  double Tc(std::string const& library, std::string const& id) const {
    return Row(Json("show " + library + " B " + id)["constants"], "keyword", "TC")["value"];
  }
};

class MergeTest : public CombineTest {
 protected:
  // A is the same in both, B differs, C is only in the first, D only in the second.
  void SetUp() override {
    Make("own.lb1",
         Bank(Component(1, "A", "100") + Component(2, "B", "200") + Component(3, "C", "300")));
    Make("from.lb1",
         Bank(Component(1, "A", "100") + Component(2, "B", "222") + Component(4, "D", "400")));
  }
};

TEST_F(MergeTest, DifferingItemsAreRefusedUnlessASideIsNamed) {
  Fails("merge own.lb1 from.lb1", 1,
        "own.lb1: 1 item differs from from.lb1, the first one is PURECOMP:B B; --list shows them");
}

TEST_F(MergeTest, OursKeepsAndAdds) {
  json const row = Json("merge own.lb1 from.lb1 --ours")["banks"][0];
  EXPECT_EQ(row["bank"], "PURECOMP:B");
  EXPECT_EQ(row["added"], 1);
  EXPECT_EQ(row["same"], 1);
  EXPECT_EQ(row["differing"], 1);
  EXPECT_EQ(Tc("own.lb1", "B"), 200);
  EXPECT_EQ(Tc("own.lb1", "C"), 300);
  EXPECT_EQ(Tc("own.lb1", "D"), 400);
}

TEST_F(MergeTest, TheirsReplacesAndAdds) {
  Good("merge own.lb1 from.lb1 --theirs");
  EXPECT_EQ(Tc("own.lb1", "B"), 222);
  EXPECT_EQ(Tc("own.lb1", "C"), 300);
  EXPECT_EQ(Tc("own.lb1", "D"), 400);
  // Nothing differs any more, and no side must be named.
  json const row = Json("merge own.lb1 from.lb1")["banks"][0];
  EXPECT_EQ(row["same"], 3);
  EXPECT_EQ(row["added"], 0);
}

TEST_F(MergeTest, ListShowsAndChangesNothing) {
  Contents const before = ContentsOf(Folder());
  json const report = Json("merge own.lb1 from.lb1 --list");
  ASSERT_EQ(report["differences"].size(), 1U) << report;
  EXPECT_EQ(report["differences"][0]["item"], "PURECOMP:B B");
  EXPECT_EQ(report["differences"][0]["field"], "TC");
  EXPECT_EQ(report["differences"][0]["unit"], "K");
  EXPECT_EQ(report["differences"][0]["ours"], 200);
  EXPECT_EQ(report["differences"][0]["theirs"], 222);
  EXPECT_EQ(report["banks"][0]["added"], 1);
  EXPECT_NE(Good("merge own.lb1 from.lb1 --list --csv").find("PURECOMP:B B,TC,200,222"),
            std::string::npos);
  EXPECT_TRUE(ContentsOf(Folder()) == before);
}

TEST_F(MergeTest, BanksOfPairsAndBanksThatOnlyOneHas) {
  Good("copy sample.lb1 pairs.lb1 --create --bank NRTL");
  Good("delete pairs.lb1 NRTL ETHANOL WATER --names perry.lb1");
  json const report = Json("merge pairs.lb1 sample.lb1 --bank NRTL --bank WILSON");
  EXPECT_EQ(Row(report["banks"], "bank", "NRTL:SAMPLE")["added"], 1) << report;
  EXPECT_EQ(Row(report["banks"], "bank", "NRTL:SAMPLE")["same"], 217);
  EXPECT_EQ(Json("diff sample.lb1 pairs.lb1 --bank NRTL")["differences_found"], 0);
  EXPECT_EQ(Json("diff sample.lb1 pairs.lb1 --bank WILSON")["differences_found"], 0);
  EXPECT_EQ(Json("banks pairs.lb1")["banks"].size(), 2U);
}

TEST_F(MergeTest, OneNumberForTwoSubstances) {
  Make("a.lb1", Bank(Component(1, "A", "100", " casNum=\"7732-18-5\"")));
  Make("b.lb1", Bank(Component(1, "A", "100", " casNum=\"64-17-5\"")));
  Fails("merge a.lb1 b.lb1 --ours", 1, "--accept-identity goes on");
  Fails("merge a.lb1 b.lb1 --theirs", 1, "A (1, A, 7732-18-5) in a.lb1:B");
  json const report = Json("merge a.lb1 b.lb1 --theirs --accept-identity");
  EXPECT_EQ(report["identities"].size(), 2U) << report;
  EXPECT_EQ(Json("show a.lb1 B A")["cas_number"], "64-17-5");
}

// The number of a component is the same in all banks of a library.
TEST_F(MergeTest, OneNumberForTwoSubstancesInBanksOfOtherNames) {
  Make("a.lb1", Bank(Component(1, "A", "100", " casNum=\"7732-18-5\"")));
  Make("b.lb1", "<bank type=\"PURECOMP\" name=\"C\">" +
                    Component(1, "Z", "100", " casNum=\"64-17-5\"") + "</bank>");
  Fails("merge a.lb1 b.lb1", 1, "component Z is A (1, A, 7732-18-5) in a.lb1:B and Z (1, Z, 64-17");
  json const listed = Json("merge a.lb1 b.lb1 --list");
  EXPECT_EQ(listed["identities"].size(), 2U) << listed;
  json const report = Json("merge a.lb1 b.lb1 --accept-identity");
  EXPECT_TRUE(report["identity_warning"].is_string()) << report;
}

TEST_F(MergeTest, BadWords) {
  Fails("merge own.lb1", 2, "FROM is required");
  Fails("merge own.lb1 from.lb1 --ours --theirs", 2, "exclude each other");
  Fails("merge own.lb1 ./own.lb1 --ours", 1, "LIBRARY and FROM are the same library");
  Fails("merge own.lb1 none.lb1 --ours", 1, "none.lb1: not found");
  Fails("merge none.lb1 from.lb1 --list", 1, "none.lb1: not found");
  Fails("merge own.lb1 from.lb1 --bank X --ours", 1, "from.lb1: no bank X");
  // An ID that another component has.
  Make("other.lb1", Bank(Component(9, "A", "900")));
  Fails("merge own.lb1 other.lb1 --ours", 1, "already refers to a component in this library");
}

class RenumberTest : public CombineTest {};

TEST_F(RenumberTest, ProtectedLibraryNeedsItsPassword) {
  std::filesystem::create_directory(Folder() / "own");
  Good("copy perry.lb1 own/own.lb1 --create --bank PERRY --item ETHANOL");
  Good("set own/own.lb1 --new-password sesam");
  Fails("renumber own/own.lb1 ETHANOL 21000001", 1, "--password");
  Good("renumber own/own.lb1 ETHANOL 21000001 --password sesam");
  EXPECT_EQ(Json("show own/own.lb1 PERRY ETHANOL")["number"], 21000001);
}

TEST_F(RenumberTest, PairsMappingsGroupsAndTheComponent) {
  Good("copy perry.lb1 own.lb1 --create --bank PERRY");
  Good("copy crc.lb1 own.lb1 --bank CRC");
  Good("copy sample.lb1 own.lb1");
  json const before = Json("show own.lb1 PERRY ETHANOL");
  json const nrtl = Json("show own.lb1 NRTL ETHANOL WATER");
  json const lower = Json("show own.lb1 NRTL ETHANOL METHANOL");
  json const items = Json("info own.lb1")["banks"];
  json const report = Json("renumber own.lb1 ethanol 21000001");
  EXPECT_EQ(report["component"], "Ethanol");
  EXPECT_EQ(report["old_number"], 10000007);
  EXPECT_EQ(report["new_number"], 21000001);
  EXPECT_EQ(Row(report["banks"], "bank", "PURECOMP:PERRY")["items"], 1) << report;
  EXPECT_EQ(Row(report["banks"], "bank", "PURECOMP:CRC")["items"], 1);
  EXPECT_GT(Row(report["banks"], "bank", "NRTL:SAMPLE")["items"], 10);
  EXPECT_EQ(Row(report["banks"], "bank", "STRUCT:SAMPLE")["items"], 1);
  EXPECT_TRUE(Row(report["banks"], "bank", "UNFORIG:SAMPLE").is_null());
  // The same items, under the other number; its place in the pairs has changed.
  EXPECT_EQ(Json("info own.lb1")["banks"], items);
  for (char const* word : {"ETHANOL", "64-17-5", "21000001"}) {
    json after = Json("show own.lb1 PERRY " + std::string(word));
    EXPECT_EQ(after["number"], 21000001) << word;
    after["number"] = 10000007;
    EXPECT_EQ(after, before) << word;
  }
  EXPECT_EQ(Json("show own.lb1 NRTL ETHANOL WATER"), nrtl);
  EXPECT_EQ(Json("show own.lb1 NRTL ETHANOL METHANOL"), lower);
  EXPECT_EQ(Json("show own.lb1 NRTL 21000001 WATER")["fields"], nrtl["fields"]);
  EXPECT_EQ(Zel("show own.lb1 PERRY 10000007").status, 1);
  EXPECT_EQ(Zel("show own.lb1 NRTL 10000007 WATER").status, 1);
  EXPECT_EQ(Json("check own.lb1 --structure")["findings"], json::array());
  // And back: nothing is left of the change.
  Good("renumber own.lb1 21000001 10000007");
  EXPECT_EQ(Json("diff perry.lb1 own.lb1 --bank PERRY")["differences_found"], 0);
  EXPECT_EQ(Json("diff sample.lb1 own.lb1 --bank NRTL")["differences_found"], 0);
  EXPECT_EQ(Json("diff sample.lb1 own.lb1 --bank STRUCT")["differences_found"], 0);
}

TEST_F(RenumberTest, Mappings) {
  Good("create own.lb1");
  auto const add = [&](std::string const& type, std::string const& items) {
    MakeFile("m.xml", "<bank type=\"" + type + "\" name=\"M\">" + items + "</bank>");
    Good("import own.lb1 m.xml");
  };
  auto const mapped = [](std::string const& text, std::string const& number) {
    return "<item><characterkey>" + text + "</characterkey><libnum>" + number + "</libnum></item>";
  };
  add("MAPORW", mapped("SPIRIT", "10000007") + mapped("WATER", "10000326"));
  add("OLI", mapped("ETOH", "10000007"));
  add("ORWMAP", "<item><numerickey>10000007</numerickey><name>SPIRIT</name></item>");
  json const report = Json("renumber own.lb1 10000007 21000001");
  EXPECT_EQ(report["banks"].size(), 3U) << report;
  EXPECT_EQ(Json("show own.lb1 MAPORW SPIRIT")["fields"][0]["value"], 21000001);
  EXPECT_EQ(Json("show own.lb1 MAPORW WATER")["fields"][0]["value"], 10000326);
  EXPECT_EQ(Json("show own.lb1 OLI ETOH")["fields"][0]["value"], 21000001);
  EXPECT_EQ(Json("show own.lb1 ORWMAP 21000001")["fields"][0]["value"], "SPIRIT");
  EXPECT_EQ(Zel("show own.lb1 ORWMAP 10000007").status, 1);
  Fails("renumber own.lb1 21000001 10000326", 1, "10000326 is in use: MAPORW:M WATER has it");
}

TEST_F(RenumberTest, NumberInUseIsRefused) {
  Good("copy perry.lb1 own.lb1 --create --bank PERRY");
  Good("copy sample.lb1 own.lb1 --bank NRTL");
  Fails("renumber own.lb1 ETHANOL 10000326", 1,
        "own.lb1: 10000326 is in use: PURECOMP:PERRY WATER has it");
  Fails("renumber own.lb1 ETHANOL 10000007", 1, "ETHANOL has the number 10000007 already");
  // A pair alone is enough.
  Good("delete own.lb1 PERRY WATER");
  Fails("renumber own.lb1 ETHANOL 10000326", 1, "10000326 is in use: NRTL:SAMPLE");
}

TEST_F(RenumberTest, LibraryOfPairsAlone) {
  Good("copy sample.lb1 own.lb1 --create --bank NRTL");
  json const pair = Json("show own.lb1 NRTL ETHANOL WATER --names perry.lb1");
  json const report = Json("renumber own.lb1 ethanol 21000001 --names perry.lb1");
  EXPECT_TRUE(report["component"].is_null());
  EXPECT_EQ(report["old_number"], 10000007);
  EXPECT_EQ(Json("show own.lb1 NRTL 21000001 10000326")["fields"], pair["fields"]);
}

// The pair is stored in the order of its numbers; 1 - x1 has 7 digits too.
TEST_F(RenumberTest, DigitsThatAPairLosesAreAWarning) {
  Good("create own.lb1");
  MakeFile("t.csv", "item 1,item 2,temp,x1\n7,9,350,1e-09\n8,9,350,0.25\n");
  Good("import own.lb1 --bank AZEOTROP:B --table t.csv");
  EXPECT_FALSE(Json("renumber own.lb1 8 21").contains("warning"));
  json const report = Json("renumber own.lb1 7 20");
  EXPECT_EQ(report["warning"], "AZEOTROP:B, item 7 + 9: x1 cannot be stored as 1e-09, only as 0");
}

TEST_F(RenumberTest, BadWords) {
  Good("copy perry.lb1 own.lb1 --create --bank PERRY");
  Fails("renumber own.lb1 ETHANOL", 2, "NEW is required");
  Fails("renumber own.lb1 ETHANOL WATER", 2, "\"WATER\" is not a component number");
  Fails("renumber own.lb1 ETHANOL 0", 2, "is not a component number");
  Fails("renumber own.lb1 ETHANOL 99999999999", 2, "is not a component number");
  Fails("renumber own.lb1 ETHANLO 21000001", 1, "the nearest ID is ETHANOL");
  Fails("renumber own.lb1 5 21000001", 1, "own.lb1: nothing has the number 5");
  Fails("renumber none.lb1 ETHANOL 21000001", 1, "none.lb1: not found");
  // The library of --names knows the ID under the old number.
  Fails("renumber own.lb1 ETHANOL 21000001 --names perry.lb1", 1, "cannot have the number");
}

}  // namespace
}  // namespace zel::test
