// Checked imports: malformed numbers, altered texts, lost parts; and that an import without checks
// behaves as before.
#include "tests/support/sample_component.h"
#include "tests/xml/import_fixture.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

constexpr char kPureBank[] = "type='PURECOMP' name='P'";
constexpr char kKeys[] = "<keys>1234567 1234568</keys>";

class ImportChecksTest : public test::ImportTest {
 protected:
  ImportChecksTest() { InitZelAccess(); }

  ZelImportCounts Counts() {
    ZelImportCounts counts;
    Maint().GetImportCounts(counts);
    return counts;
  }
  bool ImportItem(std::string const& fields, zelImportChecks checks) {
    if (Maint().BankExists("VANLAAR", "MINE")) Maint().DeleteBank("VANLAAR", "MINE");
    Maint().SetImportChecks(checks);
    return ImportBank("<item>" + fields + kKeys + "</item>");
  }
  bool ImportComp(std::string const& elements, zelImportChecks checks,
                  std::string const& id = "<id number='7' formula='CH4' name='n'> A </id>") {
    if (Maint().BankExists("PURECOMP", "P")) Maint().DeleteBank("PURECOMP", "P");
    Maint().SetImportChecks(checks);
    return ImportBank("<comp>" + id + elements + "</comp>", kPureBank);
  }
  bool HasItem() { return RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aij") != -777.0; }
  bool HasLine(std::string const& text) { return Lines().find(text) != std::string::npos; }
};

// --- malformed numbers ---------------------------------------------------------------------------

TEST_F(ImportChecksTest, WithoutChecksNumbersAreReadLeniently) {
  EXPECT_TRUE(ImportItem("<aij>61x37</aij><aji>6137,5</aji>", importUnchecked));
  EXPECT_EQ(Lines(), "  VANLAAR:MINE\n");
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aij"), 61.0);
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aji"), 6137.0);
}

TEST_F(ImportChecksTest, MalformedNumbersAreErrorsWithTheirLine) {
  EXPECT_FALSE(
      ImportItem("\n<aij>61x37</aij>\n<aji>abc</aji>\n<refCode>1.5</refCode>", importChecked));
  EXPECT_EQ(Lines(), "  VANLAAR:MINE\n" + Error("line 2: <aij> \"61x37\" is not a number") +
                         Error("line 3: <aji> \"abc\" is not a number") +
                         Error("line 4: <refCode> \"1.5\" is not a whole number") +
                         Warning("<bank> of line 1 (VANLAAR:MINE): 1 of "
                                 "1 items not stored, on line 1"));
  EXPECT_FALSE(HasItem()) << "an item with a wrong number is not stored";
  EXPECT_EQ(Counts().malformedNumbers, 3);
}

TEST_F(ImportChecksTest, WhatIsANumber) {
  for (char const* good : {"1", "-1.5", "+2", "1e-3", "1.E+5", ".5", "0", "-1e+35", "-", " 7\n"}) {
    EXPECT_TRUE(ImportItem(std::string("<aij>") + good + "</aij>", importChecked)) << good;
    EXPECT_TRUE(HasItem()) << good;
  }
  for (char const* bad : {"61x37", "abc", "6137,5", "1.5D+03", "1e", "0x10", "nan", "inf", "1e39",
                          "1e-60", "--1", "+-1", "1\n2", "1.2.3", "1 2"}) {
    EXPECT_FALSE(ImportItem(std::string("<aij>") + bad + "</aij>", importChecked)) << bad;
    EXPECT_FALSE(HasItem()) << bad;
  }
  for (char const* bad : {"1.0", "1e3", "x", "3000000000", "0x1"}) {
    EXPECT_FALSE(ImportItem(std::string("<refCode>") + bad + "</refCode>", importChecked)) << bad;
  }
}

TEST_F(ImportChecksTest, EveryNumberOfAComponentIsChecked) {
  for (char const* bad :
       {"<property name='TC' value='61x37'/>", "<property name='TC' value='6137,5' uom='C'/>",
        "<property name='TC' value='1' refCode='1x'/>",
        "<correlation name='VaporPressure' equation='2o'>1</correlation>",
        "<correlation name='VaporPressure' equation='20' tMin='a'>1</correlation>",
        "<correlation name='VaporPressure' equation='20' tMax='1,'>1</correlation>",
        "<correlation name='VaporPressure' equation='20' refCode='-x'>1</correlation>",
        "<correlation name='VaporPressure' equation='20'>1 2x 3</correlation>",
        "<correlation name='VaporPressure' equation='20'>1 2 3\n4</correlation>",
        ("<correlation name='VaporPressure' equation='20'>1 2 3 4 5 6 7 8 9 10 11 "
         "12 13 14 15 16</correlation>"),
        "<structure model='joback'>1(1</structure>", "<structure model='joback'>1</structure>",
        "<structure model='joback'>1(1)x</structure>", "<structure model='joback'>x(1)</structure>",
        "<structure model='joback'>1(x)</structure>",
        ("<structure model='joback'>1(1) 2(1) 3(1) 4(1) 5(1) 6(1) 7(1) 8(1) 9(1) "
         "10(1) 11(1)</structure>"),
        "<property name='TC' value='1'/><property name='TC' value='2'/>",
        "<structure>1(1)</structure><structure>2(1)</structure>"}) {
    EXPECT_TRUE(ImportComp(bad, importUnchecked)) << bad << Lines();
    EXPECT_FALSE(ImportComp(bad, importChecked)) << bad;
    EXPECT_TRUE(HasLine("error : Component \"A\" (7) - line 1: <")) << Lines();
    EXPECT_EQ(Counts().malformedNumbers, 1) << bad;
    EXPECT_TRUE(ImportComp(bad, importTold)) << bad;
    EXPECT_TRUE(HasLine("warning : Component \"A\" (7) - line 1: <")) << Lines();
  }
  EXPECT_FALSE(ImportComp("", importChecked, "<id number='7x' formula='CH4'> A </id>"));
  EXPECT_FALSE(ImportComp("", importChecked, "<id number='7' formula='CH4' refCode='x'> A </id>"));
  EXPECT_TRUE(HasLine("line 1: <id> refCode \"x\" is not a whole number")) << Lines();
}

TEST_F(ImportChecksTest, NumbersOfKeysAndFormatsAreChecked) {
  Maint().SetImportChecks(importChecked);
  EXPECT_FALSE(ImportBank("<item><numerickey>1 2x</numerickey></item>", "type='GRPDESC' name='G'"));
  EXPECT_TRUE(HasLine("line 1: <numerickey> \"2x\" is not a whole number")) << Lines();
  EXPECT_FALSE(ImportBank("", "type='VANLAAR' name='V' format='one'"));
  EXPECT_TRUE(HasLine("line 1: <bank> format \"one\" is not a whole number")) << Lines();
  EXPECT_FALSE(Maint().BankExists("VANLAAR", "V"));
}

TEST_F(ImportChecksTest, ToldNumbersAreWarningsAndStored) {
  EXPECT_TRUE(ImportItem("<aij>61x37</aij>", importTold));
  EXPECT_EQ(Lines(), "  VANLAAR:MINE\n" + Warning("line 1: <aij> \"61x37\" is not a number"));
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aij"), 61.0);
}

// Without a log the first error ends the import and is the last error text.
TEST_F(ImportChecksTest, SilentImportEndsAtTheFirstMalformedNumber) {
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportItem("<aij>61x37</aij><aji>abc</aji>", importChecked));
  EXPECT_STREQ(Maint().GetLastErrorText(), "line 1: <aij> \"61x37\" is not a number");
  EXPECT_EQ(Counts().errors, 1);
}

// --- altered texts -------------------------------------------------------------------------------

TEST_F(ImportChecksTest, AlteredTextsAreWarningsWithBeforeAndAfter) {
  std::string const id =
      "<id number='7' formula='CH4' name='\xCE\xB1-Pin\xC3\xA8ne &amp; \xC3\x96l'> A ABCDEFGHIJ "
      "</id>";
  EXPECT_TRUE(ImportComp("<smiles>C[C@H](N)O</smiles>", importChecked, id));
  EXPECT_TRUE(
      HasLine("warning : line 1: <id> name \"\xCE\xB1-Pin\xC3\xA8ne & \xC3\x96l\" is kept "
              "as \"-Pin  ne &   l\""))
      << Lines();
  EXPECT_TRUE(HasLine("line 1: <id> \"ABCDEFGHIJ\" is kept as \"ABCDEFGH\"")) << Lines();
  EXPECT_TRUE(HasLine("line 1: <smiles> \"C[C@H](N)O\" is kept as \"C C@H (N)O\"")) << Lines();
  EXPECT_EQ(Counts().alteredTexts, 3);
  EXPECT_EQ(Counts().componentsStored, 1);
  EXPECT_FALSE(ImportComp("<smiles>C[C@H](N)O</smiles>", importStrict, id));
  EXPECT_EQ(Counts().componentsStored, 0);
}

TEST_F(ImportChecksTest, TextsOfAllPlacesAreCompared) {
  Maint().SetImportChecks(importChecked);
  std::string const letters(120, 'a');
  struct Row {
    std::string document;
    char const* line;
  };
  for (Row const& row : {
           Row{"<description>" + letters + "</description>", "<description> \"aaa"},
           Row{"<version>1.2.3.4.5.6.7</version>",
               "<version> \"1.2.3.4.5.6.7\" is kept as \"1.2.3.4.5.6.\""},
           Row{"<version>1~2</version>", "<version> \"1~2\" is kept as \"1 2\""},
           Row{"<memo><![CDATA[ " + std::string(4500, 'm') + "]]></memo>",
               "is cut after 3999 characters"},
           Row{"<memo>Hello</memo>", "<memo> \"Hello\" is kept as \"ello\""},
           Row{"<memo><![CDATA[ one\ntwo [three]]]></memo>", "<memo> \"one two [three]\" is kept"},
           Row{"<bank type='VANLAAR' name='LONGNAMES'/>",
               "<bank> name \"LONGNAMES\" is kept as \"LONGNAME\""},
           Row{"<bank type='GRPDESC' name='G'><item><numerickey>1 1</numerickey><name>a^b</name>"
               "</item></bank>",
               "<name> \"a^b\" is kept as \"a b\""},
       }) {
    EXPECT_TRUE(ImportLibrary(row.document)) << Lines();
    EXPECT_EQ(Counts().alteredTexts, 1) << row.document << Lines();
    EXPECT_TRUE(HasLine(row.line)) << Lines();
  }
  EXPECT_TRUE(
      ImportLibrary("<description> Made\n on %date% </description><version> 1 </version>"
                    "<memo><![CDATA[ one\n        [ two\n        [ three]]></memo>"));
  EXPECT_EQ(Lines(), "") << "blanks, marks and the date are no change";
}

// --- lost parts ----------------------------------------------------------------------------------

TEST_F(ImportChecksTest, ComponentWithoutIdentityTellsWhatItEnds) {
  std::string const library =
      "<bank type='PURECOMP' name='P'>\n<comp><id number='7' formula='CH4'> A </id></comp>\n"
      "<comp/>\n<comp><id number='8' formula='CH4'> B </id></comp>\n</bank>\n"
      "<bank type='VANLAAR' name='MINE'><item><keys>1234567 1234568</keys></item></bank>\n"
      "<memo><![CDATA[ m]]></memo>";
  EXPECT_TRUE(ImportLibrary(library)) << "as ever";
  EXPECT_EQ(Lines(), "  PURECOMP:P\n");
  Maint().DeleteBank("PURECOMP", "P");
  Maint().SetImportChecks(importChecked);
  EXPECT_FALSE(ImportLibrary(library));
  EXPECT_TRUE(HasLine("<bank> of line 1 (PURECOMP:P): 2 of 3 components not stored, on line 3, 4"))
      << Lines();
  EXPECT_TRUE(HasLine("<bank> of line 6 (VANLAAR:MINE): 1 of 1 items not stored, on line 6"))
      << Lines();
  EXPECT_TRUE(HasLine("<library> of line 1: 1 of 2 banks not stored, on line 6")) << Lines();
  EXPECT_TRUE(HasLine("<library> of line 1: 1 of 1 texts not stored, on line 7")) << Lines();
  EXPECT_EQ(Counts().componentsFound, 3);
  EXPECT_EQ(Counts().componentsStored, 1);
  EXPECT_EQ(Counts().itemsFound, 1);
  EXPECT_EQ(Counts().itemsStored, 0);
  Maint().DeleteBank("PURECOMP", "P");
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportLibrary(library)) << "and without a log";
  EXPECT_NE(Maint().GetLastErrorText(), nullptr);
}

TEST_F(ImportChecksTest, ImportWithinAGroupTellsWhatItDrops) {
  MakeFile("inner.xml", "<group><bank type='VANLAAR' name='INNER'/></group>");
  MakeFile("outer.xml",
           "<group><import file='inner.xml'/><bank type='VANLAAR' name='OUTER'/></group>");
  std::string const library =
      "<import file='outer.xml'/>\n<bank type='VANLAAR' name='LAST'><item>" + std::string(kKeys) +
      "</item></bank>\n<import file='more.xml'/>";
  Maint().SetImportChecks(importChecked);
  EXPECT_FALSE(ImportLibrary(library));
  EXPECT_TRUE(
      HasLine("*** doc.xml : error : <library> of line 1: 1 of 1 banks not stored, on line 2"))
      << Lines();
  EXPECT_TRUE(HasLine("<bank> of line 2 (VANLAAR:LAST): 1 of 1 items not stored")) << Lines();
  EXPECT_TRUE(HasLine("<library> of line 1: 1 of 2 imports not followed, on line 3")) << Lines();
  EXPECT_TRUE(Maint().BankExists("VANLAAR", "OUTER"));
  EXPECT_FALSE(Maint().BankExists("VANLAAR", "LAST"));
}

// Without a log the first lost part is the only error, but all documents are counted.
TEST_F(ImportChecksTest, SilentImportCountsAllDocuments) {
  MakeFile("comps.xml", "<group><comp/><comp/></group>");
  Maint().SetImportChecks(importChecked);
  Maint().SetLogLevel(0);
  EXPECT_FALSE(
      ImportLibrary("<bank type='PURECOMP' name='P'><import file='comps.xml'/></bank>"
                    "<bank type='VANLAAR' name='MINE'><item/><item/><item/></bank>"));
  EXPECT_EQ(Counts().errors, 1);
  EXPECT_EQ(Counts().componentsFound, 2);
  EXPECT_EQ(Counts().banksFound, 2);
  EXPECT_EQ(Counts().itemsFound, 3);
}

TEST_F(ImportChecksTest, SecondGroupAndNodesBesideAGroupAreTold) {
  MakeFile("two.xml",
           "<r><group><bank type='VANLAAR' name='A'/></group>\n<group><bank type='VANLAAR' "
           "name='B'/></group></r>");
  Maint().SetImportChecks(importChecked);
  EXPECT_FALSE(ImportLibrary("<import file='two.xml'/>"));
  EXPECT_TRUE(HasLine("<group> of line 2: 1 of 1 banks not stored, on line 2")) << Lines();
}

TEST_F(ImportChecksTest, CountsOfASoundImport) {
  MakeFile("items.xml", "<group><item>" + std::string(kKeys) + "</item></group>");
  for (zelImportChecks const checks : {importUnchecked, importStrict}) {
    if (Maint().BankExists("VANLAAR", "MINE")) Maint().DeleteBank("VANLAAR", "MINE");
    Maint().SetImportChecks(checks);
    EXPECT_TRUE(ImportBank("<item><keys>1234561 1234562</keys></item><import file='items.xml'/>"));
    EXPECT_EQ(Counts().documents, 2);
    EXPECT_EQ(Counts().itemsFound, 2);
    EXPECT_EQ(Counts().itemsStored, 2);
    EXPECT_EQ(Counts().errors + Counts().warnings + Counts().alteredTexts, 0);
  }
}

TEST_F(ImportChecksTest, ItemThatStandsTwiceIsTold) {
  Maint().SetImportChecks(importChecked);
  MakeFile("doc.xml", "<bank type='VANLAAR' name='MINE'><item>" + std::string(kKeys) +
                          "</item>\n<item>" + kKeys + "</item></bank>");
  EXPECT_TRUE(ImportFile("doc.xml", true));
  EXPECT_TRUE(HasLine("line 2: <item> replaces an item of the same key in the same documents"))
      << Lines();
}

// --- documents that are refused ------------------------------------------------------------------

TEST_F(ImportChecksTest, FormatErrorNamesItsLine) {
  std::string const text = "<library>\n<version>1</version>\n<memo></library>";
  std::string const plain = "Format error in XML document \"" + Path("doc.xml") + "\"";
  EXPECT_FALSE(Import(text));
  EXPECT_EQ(Lines(), Error(plain));
  Maint().SetImportChecks(importChecked);
  EXPECT_FALSE(Import(text));
  EXPECT_TRUE(HasLine(plain + ", line 3: ")) << Lines();
  EXPECT_FALSE(ImportLibrary("<import file='doc.xml'/>"));
  EXPECT_TRUE(HasLine(plain + ": it imports itself")) << Lines();
}

TEST_F(ImportChecksTest, ContentsOfADocument) {
  MakeFile("doc.xml",
           "<library><import file='x'/><bank><item/><item/></bank><bank><comp/></bank></library>");
  ZelDocumentContents contents;
  EXPECT_TRUE(ReadDocumentContents(Path("doc.xml").c_str(), contents));
  EXPECT_EQ(contents.banks, 2);
  EXPECT_EQ(contents.items, 2);
  EXPECT_EQ(contents.components, 1);
  EXPECT_EQ(contents.imports, 1);
  MakeFile("doc.xml", "<comp>\n<id name='A & B'/></comp>");
  EXPECT_FALSE(ReadDocumentContents(Path("doc.xml").c_str(), contents));
  EXPECT_EQ(contents.line, 2);
  EXPECT_STRNE(contents.reason, "");
  EXPECT_EQ(contents.components, 0);
  EXPECT_FALSE(ReadDocumentContents(Path("none.xml").c_str(), contents));
  EXPECT_STREQ(contents.reason, "not found");
  EXPECT_FALSE(ReadDocumentContents(nullptr, contents));
}

// --- the host's sink -----------------------------------------------------------------------------

class Collector final : public ZelLogSink {
 public:
  std::string text;

  void Line(ZelLogLine const& line) override {
    text += std::string(line.isError ? "error" : "warning") + "|" + std::to_string(line.kind) +
            "|" + std::to_string(line.line) + "|" + line.before + "|" + line.after + "|" +
            line.message + "\n";
  }
  void BankBegins(char const* type, char const* name) override {
    text += std::string(type) + ":" + name + "\n";
  }
};

TEST_F(ImportChecksTest, SinkGetsTheLinesInThePlaceOfStandardOutput) {
  Collector sink;
  Maint().SetLogSink(&sink);
  EXPECT_TRUE(ImportItem("\n<aij>61x37</aij>", importTold));
  EXPECT_EQ(Lines(), "");
  EXPECT_EQ(sink.text,
            "VANLAAR:MINE\nwarning|1|2|61x37|61|line 2: <aij> \"61x37\" is not a number\n");
  sink.text.clear();
  EXPECT_TRUE(ImportComp("</comp>\n<comp>", importTold));
  EXPECT_NE(sink.text.find("warning|3|2|||<bank> of line 1 (PURECOMP:P): 1 of 2 components"),
            std::string::npos)
      << sink.text;
  sink.text.clear();
  EXPECT_TRUE(ImportComp("", importTold, "<id number='7' formula='CH4' name='\xC3\xB6l'> A </id>"));
  EXPECT_NE(sink.text.find("warning|2|1|\xC3\xB6l|  l|"), std::string::npos) << sink.text;
  sink.text.clear();
  EXPECT_FALSE(ImportItem("<aij>x</aij>", importChecked));
  EXPECT_NE(sink.text.find("error|1|1|x||"), std::string::npos) << sink.text;
  sink.text.clear();
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportItem("<aij>x</aij>", importChecked));
  EXPECT_EQ(sink.text, "") << "silent";
  Maint().SetLogLevel(1);
  Maint().SetLogSink(nullptr);
  EXPECT_TRUE(ImportItem("<aij>x</aij>", importTold));
  EXPECT_NE(Lines().find("\"x\" is not a number"), std::string::npos);
}

TEST_F(ImportChecksTest, BanksTextsAndImportsAreCounted) {
  Maint().SetImportChecks(importTold);
  ImportBank("<memo>m</memo><comp/><comp><id number='7' formula='CH4'> A </id></comp>", kPureBank);
  ZelImportCounts const counts = Counts();
  EXPECT_EQ(counts.banksFound, 1);
  EXPECT_EQ(counts.banksStored, 1);
  EXPECT_EQ(counts.textsFound, 1);
  EXPECT_EQ(counts.textsStored, 1);
  EXPECT_EQ(counts.componentsFound, 2);
  EXPECT_EQ(counts.componentsStored, 0);
  EXPECT_EQ(counts.importsFound, 0);
}

}  // namespace
}  // namespace zel
