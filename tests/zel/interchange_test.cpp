// Import and export of documents by zel: nothing is changed or lost on the way without a message.
#include <algorithm>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

class InterchangeTest : public ZelTest {
 protected:
  // Imports the text of a document into new.lb1, which does not exist before.
  Outcome Import(std::string const& text, std::string const& options = "") {
    MakeFile("doc.xml", text);
    for (char const* name : {"new.lb1", "new.lb2"}) fs::remove(Folder() / name);
    return Zel("import new.lb1 doc.xml --create " + options);
  }
  static std::string Pair(std::string const& fields) {
    return "<bank type='NRTL' name='N'>\n<item><keys>1234567 1234568</keys>" + fields +
           "</item></bank>";
  }
  // An export cannot be read back if a name has "&".
  static std::string Components(std::string const& name, std::string const& id,
                                std::string const& component = "A &amp; B") {
    return "<bank type='PURECOMP' name='" + name + "'><comp><id number='7' name='" + component +
           "' formula='CH4'> " + id + " </id></comp></bank>";
  }
  bool Made() const { return fs::exists(Folder() / "new.lb1"); }
};

bool Has(std::string const& text, std::string const& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(InterchangeTest, MalformedNumberIsRefusedUnlessLenient) {
  for (char const* number : {"61x37", "abc", "6137,5"}) {
    std::string const document = Pair("<bij>" + std::string(number) + "</bij>");
    Outcome const refused = Import(document);
    EXPECT_EQ(refused.status, 1) << number;
    EXPECT_TRUE(Has(refused.out, "*** doc.xml : error : ")) << refused.out;
    EXPECT_TRUE(Has(refused.out, "line 2: <bij> \"" + std::string(number) + "\" is not a number"))
        << refused.out;
    EXPECT_FALSE(Made());
    Outcome const silent = Import(document, "--json");
    EXPECT_EQ(silent.status, 1);
    EXPECT_TRUE(Has(silent.err, "line 2: <bij> \"" + std::string(number) + "\"")) << silent.err;
    Outcome const taken = Import(document, "--lenient");
    EXPECT_EQ(taken.status, 0) << taken.err;
    EXPECT_TRUE(Has(taken.out, "warning : ")) << taken.out;
    EXPECT_TRUE(Has(taken.out, "malformed numbers  1")) << taken.out;
  }
  EXPECT_EQ(Import(Pair(""), "--lenient --strict").status, 2);
}

TEST_F(InterchangeTest, AlteredTextsAreCountedAndStrictRefuses) {
  std::string const document =
      "<bank type='PURECOMP' name='P'><comp><id number='7' name='\xCE\xB1-Pin\xC3\xA8ne' "
      "formula='CH4'> A </id><smiles>[CH4]</smiles></comp></bank>";
  Outcome const taken = Import(document);
  EXPECT_EQ(taken.status, 0) << taken.err;
  EXPECT_TRUE(Has(taken.out, "<id> name \"\xCE\xB1-Pin\xC3\xA8ne\" is kept as \"-Pin  ne\""))
      << taken.out;
  EXPECT_TRUE(Has(taken.out, "altered texts  2")) << taken.out;
  EXPECT_EQ(Import(document, "--strict").status, 1);
  EXPECT_FALSE(Made());
  Outcome const asJson = Import(document, "--json");
  EXPECT_EQ(json::parse(asJson.out)["altered_texts"], 2);
}

TEST_F(InterchangeTest, LostPartsAreReportedWithTheirPlace) {
  std::string const document =
      "<library><bank type='PURECOMP' name='P'>\n<comp/>\n<comp><id number='7' formula='CH4'> A "
      "</id></comp></bank>" +
      Pair("") + "</library>";
  for (char const* options : {"", "--json"}) {
    Outcome const refused = Import(document, options);
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(Has(refused.err, "<bank> of line 1") || Has(refused.err, "<library> of line 1"))
        << refused.err;
    EXPECT_FALSE(Made());
  }
  Outcome const refused = Import(document);
  EXPECT_TRUE(Has(refused.out, "(PURECOMP:P): 2 of 2 components not stored, on line 2, 3"))
      << refused.out;
  EXPECT_TRUE(Has(refused.out, "(NRTL:N): 1 of 1 items not stored")) << refused.out;
  Outcome const taken = Import(document, "--lenient");
  EXPECT_EQ(taken.status, 0) << taken.err;
  // Two components, an item, and the bank that it was in.
  EXPECT_TRUE(Has(taken.out, "not stored             4\n")) << taken.out;
  EXPECT_TRUE(Has(taken.out, "components not stored  2\n")) << taken.out;
  EXPECT_TRUE(Has(taken.out, "items not stored       1\n")) << taken.out;
  EXPECT_TRUE(Has(taken.out, "banks not stored       1\n")) << taken.out;
}

TEST_F(InterchangeTest, LostBanksAndTextsAreInTheTotal) {
  std::string const document =
      "<library><bank type='PURECOMP' name='P'>\n<comp/>\n<memo>m</memo></bank>\n"
      "<bank type='NRTL' name='EMPTY'></bank></library>";
  EXPECT_EQ(Import(document).status, 1);
  json const taken = json::parse(Import(document, "--lenient --json").out);
  EXPECT_EQ(taken["not_stored"], 3);
  EXPECT_EQ(taken["components_not_stored"], 1);
  EXPECT_EQ(taken["banks_not_stored"], 1);
  EXPECT_EQ(taken["texts_not_stored"], 1);
  EXPECT_EQ(taken.count("items_not_stored"), 0U);
  json const bank = Row(taken["findings"], "line", 4);
  EXPECT_EQ(bank["what"], "<library> of line 1: 1 of 2 banks not stored, on line 4");
}

TEST_F(InterchangeTest, FindingsAreATableForPrograms) {
  std::string const document =
      "<library><bank type='PURECOMP' name='P'>\n<comp><id number='7' name='Pin\xC3\xA8ne' "
      "formula='CH4'> A </id>\n<property name='TC' "
      "value='61x37'/></comp>\n<comp/></bank></library>";
  Outcome const taken = Import(document, "--lenient --json");
  EXPECT_EQ(taken.status, 0) << taken.err;
  json const report = json::parse(taken.out);
  EXPECT_EQ(report["errors"], 0);
  EXPECT_EQ(report["warnings"], 3);
  ASSERT_EQ(report["findings"].size(), 3U) << taken.out;
  json const text = Row(report["findings"], "kind", "altered text");
  EXPECT_EQ(text["document"], "doc.xml");
  EXPECT_EQ(text["line"], 2);
  EXPECT_EQ(text["severity"], "warning");
  EXPECT_EQ(text["before"], "Pin\xC3\xA8ne");
  EXPECT_EQ(text["after"], "Pin  ne");
  json const number = Row(report["findings"], "kind", "malformed number");
  EXPECT_EQ(number["line"], 3);
  EXPECT_EQ(number["before"], "61x37");
  EXPECT_EQ(number["after"], "61");
  json const part = Row(report["findings"], "kind", "lost part");
  EXPECT_EQ(part["line"], 4);
  EXPECT_TRUE(part["before"].is_null());
  EXPECT_TRUE(Has(part["what"], "1 of 2 components not stored, on line 4")) << part;

  Outcome const refused = Import(document, "--json");
  EXPECT_EQ(refused.status, 1);
  json const failed = json::parse(refused.out);
  EXPECT_EQ(failed["failed"], "doc.xml");
  EXPECT_EQ(failed["errors"], 1);
  EXPECT_EQ(failed["findings"].size(), 3U) << "an import goes on after an error";
  EXPECT_TRUE(Row(failed["findings"], "kind", "malformed number")["after"].is_null());
  EXPECT_FALSE(Made());

  std::string const csv = Import(document, "--lenient --csv").out;
  EXPECT_EQ(csv.substr(0, csv.find('\n')), "document,line,severity,kind,what,before,after");
  EXPECT_TRUE(Has(csv, "doc.xml,3,warning,malformed number,")) << csv;
  EXPECT_TRUE(Has(csv, ",61x37,61\n")) << csv;
  json const sound = Json("import good.lb1 '" ZEL_DATA "/crc.xml' --create");
  EXPECT_EQ(sound["findings"].size() + sound["errors"].get<std::size_t>(), 0U);
}

TEST_F(InterchangeTest, LinesOfASmallDocumentAreBounded) {
  constexpr int kWrong = 2500;
  std::string items;
  for (int i = 0; i < kWrong; ++i) {
    items += "<item><keys>" + std::to_string(1000000 + i) + " 2000000</keys><bij>x</bij></item>\n";
  }
  std::string const document = "<bank type='NRTL' name='N'>" + items + "</bank>";
  Outcome const lenient = Import(document, "--lenient");
  EXPECT_EQ(lenient.status, 0) << lenient.err;
  EXPECT_EQ(std::count(lenient.out.begin(), lenient.out.end(), '*'), 3 * 1001);
  EXPECT_TRUE(Has(lenient.out, "*** 1500 more errors and warnings\n")) << lenient.out.size();
  EXPECT_TRUE(Has(lenient.out, "malformed numbers  2500\n"));
  Outcome const refused = Import(document);
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(std::count(refused.out.begin(), refused.out.end(), '*'), 3 * 1001);
  for (char const* options : {"--json", "--json --lenient"}) {
    json const report = json::parse(Import(document, options).out);
    EXPECT_EQ(report["findings"].size(), 1000U);
    EXPECT_EQ(report["not_listed"].get<int>() + 1000,
              report["errors"].get<int>() + report["warnings"].get<int>());
    EXPECT_GE(report["not_listed"], 1500);
  }
  std::string const csv = Import(document, "--csv --lenient").out;
  EXPECT_TRUE(Has(csv, "\nwarnings\nwarning,text\nnot listed,1500\n")) << csv.size();
}

TEST_F(InterchangeTest, DocumentInAGroupThatIncludesAnotherDropsNothingInSilence) {
  MakeFile("inner.xml", "<group/>");
  MakeFile("outer.xml", "<group><import file='inner.xml'/></group>");
  Outcome const refused = Import("<library><import file='outer.xml'/>\n" + Pair("") + "</library>");
  EXPECT_EQ(refused.status, 1);
  EXPECT_TRUE(Has(refused.out, "<library> of line 1: 1 of 1 banks not stored, on line 2"))
      << refused.out;
}

TEST_F(InterchangeTest, CountsWhatArrived) {
  Good("import two.lb1 '" ZEL_DATA "/sample.xml' --create");
  json const imported = Json("import one.lb1 '" ZEL_DATA "/crc.xml' --create");
  EXPECT_EQ(imported["components"], 336);
  EXPECT_EQ(imported["items"], 0);
  EXPECT_EQ(imported.count("not_stored"), 0U);
}

TEST_F(InterchangeTest, PublishedDocumentsPassStrictly) {
  for (char const* name : {"sample", "perry", "crc", "chemsep", "nist"}) {
    Good("import strict-" + std::string(name) + ".lb1 '" ZEL_DATA "/" + name +
         ".xml' --create --strict");
  }
}

TEST_F(InterchangeTest, FailureNeverHasAnEmptyReason) {
  Outcome const outcome = Import(
      "<bank type='PURECOMP' name='P'><comp><id number='7' formula='CH4'> A </id>"
      "<property name='XX' value='1'/></comp><comp><id number='8' formula='CH4'> B </id></comp>"
      "</bank>");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_FALSE(Has(outcome.err, "doc.xml: ;")) << outcome.err;
  EXPECT_TRUE(Has(outcome.err, "doc.xml: 1 errors, listed above; no library was created"))
      << outcome.err;
}

TEST_F(InterchangeTest, FormatErrorNamesItsLine) {
  Outcome const outcome = Import("<library>\n<memo>\n</library>");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(Has(outcome.err, "doc.xml\", line 3: ")) << outcome.err;
}

TEST_F(InterchangeTest, EntityAttackEndsWithTheBoundThatItPassed) {
  Outcome const outcome = Import("<!DOCTYPE library [<!ENTITY % p ''>]><library/>");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(Has(outcome.err, "a parameter entity")) << outcome.err;
}

TEST_F(InterchangeTest, ReplaceNamesWhatReplacesBanks) {
  EXPECT_EQ(Import(Pair("")).status, 0);
  Outcome const outcome = Zel("import new.lb1 doc.xml --replace");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(Has(outcome.err, "--replace does not replace banks")) << outcome.err;
  EXPECT_TRUE(Has(outcome.err, "zel copy --replace")) << outcome.err;
}

// --- export --------------------------------------------------------------------------------------

TEST_F(InterchangeTest, ExportThatCannotBeReadBackIsReported) {
  ASSERT_EQ(Import(Components("P", "A")).status, 0);
  fs::create_directory(Folder() / "out");
  Outcome const outcome = Zel("export new.lb1 -o out/");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(Has(outcome.out, "cannot be read back  1")) << outcome.out;
  EXPECT_TRUE(Has(outcome.out, "Bank-PURECOMP-P.xml")) << outcome.out;
  EXPECT_TRUE(fs::exists(Folder() / "out/Bank-PURECOMP-P.xml")) << "it is there to be mended";
  Outcome const asJson = Zel("export new.lb1 -o out/ --json");
  json const row = json::parse(asJson.out)["unreadable"][0];
  EXPECT_EQ(row["document"], "Bank-PURECOMP-P.xml");
  EXPECT_GT(row["line"], 1);
  EXPECT_EQ(Zel("export new.lb1 --component 7 -o one.xml").status, 1);
  json const sound = Json("export crc.lb1 -o out/");
  EXPECT_EQ(sound.count("unreadable") + sound.count("missing"), 0U);
}

// A component whose ID is not kept at all is not found by it, and so is not written.
TEST_F(InterchangeTest, ExportHoldsAsManyItemsAsTheBank) {
  fs::create_directory(Folder() / "out");
  for (char const* options : {"", " --component-files", " --bank CRC"}) {
    json const sound = Json("export crc.lb1 -o out/" + std::string(options));
    EXPECT_EQ(sound.count("missing"), 0U) << options;
  }
}

TEST_F(InterchangeTest, NamesThatNoFileCanHaveAreEscaped) {
  ASSERT_EQ(Import(Components("A/B", "X/Y", "Plain")).status, 0);
  fs::create_directory(Folder() / "out");
  json const whole = Json("export new.lb1 -o out/ --component-files");
  EXPECT_EQ(whole.count("missing"), 0U) << whole.dump();
  EXPECT_TRUE(fs::exists(Folder() / "out/Bank-PURECOMP-A%2FB.xml"));
  EXPECT_TRUE(fs::exists(Folder() / "out/Comp-A%2FB-X%2FY.xml"));
  EXPECT_EQ(Json("import again.lb1 out/new.xml --create")["components"], 1);
  EXPECT_EQ(Zel("diff new.lb1 again.lb1").status, 0) << "they are the same";
  EXPECT_EQ(Zel("export new.lb1 --component 7 -o out/").status, 0);
  EXPECT_TRUE(fs::exists(Folder() / "out/Comp-A%2FB-7.xml"));
  EXPECT_EQ(Zel("export new.lb1 --bank A/B -o b.xml").status, 0);
  EXPECT_TRUE(fs::exists(Folder() / "b.xml"));
  json const indexes = Json("dump new.lb1");
  EXPECT_TRUE(fs::exists(Folder() / "new.A%2FB.cmp")) << indexes.dump();
}

}  // namespace
}  // namespace zel::test
