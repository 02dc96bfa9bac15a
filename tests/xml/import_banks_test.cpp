// Importing libraries and banks.
#include <gtest/gtest.h>

#include "frame/date_text.h"
#include "tests/xml/import_fixture.h"

namespace zel {
namespace {

using test::ImportTest;

class ImportBanksTest : public ImportTest {
 protected:
  std::string Description() {
    char description[101];
    char version[13];
    library_->GetDescriptionAndVersion(description, version);
    version_ = version;
    return description;
  }
  std::string LibraryMemo() {
    char memo[4000];
    library_->GetMemo(memo);
    return memo;
  }
  std::string BankMemo(char const* type, char const* name) {
    char memo[4000];
    Maint().GetBankMemo(type, name, memo);
    return memo;
  }
  // Checks the report on a bank with these attributes, which cannot be made.
  void ExpectProblem(std::string const& attributes, std::string const& problem) {
    EXPECT_FALSE(ImportLibrary("<bank " + attributes + "><bad/></bank>")) << attributes;
    EXPECT_EQ(Lines(), Error(problem));
  }
  std::string version_;
};

TEST_F(ImportBanksTest, TextsOfTheLibraryAreTaken) {
  EXPECT_TRUE(
      ImportLibrary("<description> Built %date% here </description><version> 1.2 %date% "
                    "</version><memo><![CDATA[ one\n            [ two]]></memo>"));
  EXPECT_EQ(Description(), "Built " + TodayText() + " here");
  EXPECT_EQ(version_, "1.2 %date%");
  EXPECT_EQ(LibraryMemo(), "one\ntwo");
}

TEST_F(ImportBanksTest, TextsAreCutAndLeaveEachOtherAlone) {
  library_->SetDescriptionAndVersion("old", "7");
  EXPECT_TRUE(ImportLibrary("<version>1234567890123</version>"));
  EXPECT_EQ(Description(), "old");
  EXPECT_EQ(version_, "123456789012");
  EXPECT_TRUE(ImportLibrary("<description>" + std::string(150, 'd') + "</description>"));
  EXPECT_EQ(Description(), std::string(100, 'd'));
  EXPECT_EQ(version_, "123456789012");
}

TEST_F(ImportBanksTest, TextsOfTheLibraryAreAllowedOnce) {
  for (std::string const name : {"description", "version", "memo"}) {
    std::string const start = "<" + name + ">";
    std::string const end = "</" + name + ">";
    EXPECT_FALSE(ImportLibrary(start + ".1" + end + start + ".2" + end));
    EXPECT_EQ(Lines(), Error("Duplicate " + start + " node found within <library> node"));
  }
  EXPECT_EQ(Description(), ".1");
  EXPECT_EQ(version_, ".1");
  EXPECT_EQ(LibraryMemo(), "1") << "without its first character";
}

TEST_F(ImportBanksTest, EmptyMemoMakesAnEmptyMemo) {
  library_->SetMemo("old");
  EXPECT_TRUE(ImportLibrary("<memo/>"));
  EXPECT_EQ(LibraryMemo(), "");
}

TEST_F(ImportBanksTest, BankGetsItsMemo) {
  EXPECT_TRUE(ImportBank("<memo><![CDATA[ words]]></memo>"));
  EXPECT_EQ(BankMemo("VANLAAR", "MINE"), "words");
}

TEST_F(ImportBanksTest, AttributesMustBeThere) {
  ExpectProblem("name='A'", "Missing \"type\" attribute on <bank> node");
  ExpectProblem("Type='VANLAAR' name='A'", "Missing \"type\" attribute on <bank> node");
  ExpectProblem("type='' name='A'", "Empty \"type\" attribute on <bank> node");
  ExpectProblem("type='VANLAAR'", "Missing \"name\" attribute on <bank> node");
  ExpectProblem("type='VANLAAR' name=''", "Empty \"name\" attribute on <bank> node");
  ExpectProblem("type='VANLAAR' name='A' format=''", "Empty \"format\" attribute on <bank> node");
  ExpectProblem("", "Missing \"type\" attribute on <bank> node");
}

TEST_F(ImportBanksTest, TypeAndFormatMustBeKnown) {
  ExpectProblem("type='VANLARR' name='A'", "Bank type \"VANLARR\" is not a recognized type");
  ExpectProblem("type='VANLAAR' name='A' format='7'",
                "Bank format \"7\" in invalid - must be between 0 and 1");
  ExpectProblem("type='NRTL' name='A' format='-1'",
                "Bank format \"-1\" in invalid - must be between 0 and 2");
  EXPECT_FALSE(Maint().BankExists("VANLAAR", "A"));
}

TEST_F(ImportBanksTest, FormatIsReadLeniently) {
  EXPECT_TRUE(
      ImportLibrary("<bank type='NRTL' name='A' format='abc'/><bank type='NRTL' name='B' "
                    "format='1x'/><bank type='NRTL' name='C' format=' 2'/>"
                    "<bank type='NRTL' name='D'/>"));
  EXPECT_EQ(Maint().GetBankFormat("NRTL", "A"), 2);
  EXPECT_EQ(Maint().GetBankFormat("NRTL", "B"), 1);
  EXPECT_EQ(Maint().GetBankFormat("NRTL", "C"), 2);
  EXPECT_EQ(Maint().GetBankFormat("NRTL", "D"), 2);
}

TEST_F(ImportBanksTest, BankMustBeNewWhateverIsReplaced) {
  EXPECT_FALSE(
      Import("<library><bank type='VANLAAR' name='A'/><bank type='VANLAAR' name='A'><item>"
             "<keys>1234567 1234568</keys></item></bank><bank type='VANLAAR' "
             "name='B'/></library>",
             true));
  EXPECT_EQ(Lines(), "  VANLAAR:A\n" + Error("Bank \"VANLAAR-A\" already exists in this library") +
                         "  VANLAAR:B\n");
  EXPECT_EQ(RealOf("VANLAAR", "A", {1234567, 1234568}, "aij"), -777.0) << "its items are not read";
}

TEST_F(ImportBanksTest, NamesAreCutToEightCharacters) {
  EXPECT_TRUE(ImportBank("<item><keys>1234567 1234568</keys><aij>2</aij></item>",
                         "type='VANLAAR' name='abcdefghij'"));
  EXPECT_EQ(RealOf("VANLAAR", "ABCDEFGH", {1234567, 1234568}, "aij"), 2.0);
  EXPECT_FALSE(ImportBank("", "type='VANLAAR' name='abcdefghxx'"));
  EXPECT_STREQ(Maint().GetLastErrorText(),
               "Bank \"VANLAAR-abcdefghxx\" already exists in this library");
}

TEST_F(ImportBanksTest, TypeMatchesInAnyCase) {
  EXPECT_TRUE(ImportBank("<memo> m</memo><item><keys>1234567 1234568</keys><aij>2</aij></item>",
                         "type='vanlaar' name='low'"));
  EXPECT_EQ(Lines(), "  vanlaar:low\n");
  EXPECT_EQ(RealOf("VANLAAR", "LOW", {1234567, 1234568}, "aij"), 2.0);
}

TEST_F(ImportBanksTest, ProgressIsPartOfTheLog) {
  Maint().SetLogLevel(2);
  EXPECT_TRUE(ImportLibrary("<bank type='NRTL' name='A'/><bank type='UNIQUAC' name='LONGNAME'/>"));
  EXPECT_EQ(Lines(), "      NRTL:A\n   UNIQUAC:LONGNAME\n");
  Maint().SetLogLevel(0);
  EXPECT_TRUE(ImportLibrary("<bank type='NRTL' name='B'/>"));
  EXPECT_EQ(Lines(), "");
}

TEST_F(ImportBanksTest, AttributesOfWalkedElementsPassWithoutAWord) {
  EXPECT_TRUE(
      Import("<library x='1'><bank type='VANLAAR' name='A' y='2'><item z='3'><keys "
             "k='1'>1234567 1234568</keys></item></bank></library>"));
}

TEST_F(ImportBanksTest, LabelOfAnItemDoesNotReachTheNextBank) {
  EXPECT_FALSE(
      ImportLibrary("<bank type='VANLAAR' name='A'><item><keys>1234567 1234568</keys></item>"
                    "</bank><bank name='B'/>"));
  EXPECT_EQ(Lines(), "  VANLAAR:A\n" + Error("Missing \"type\" attribute on <bank> node"));
}

TEST_F(ImportBanksTest, FailureOfABankEndsASilentRun) {
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportLibrary("<bank name='B'/><version>5</version>"));
  Description();
  EXPECT_EQ(version_, "");
}

TEST_F(ImportBanksTest, BankIsARootToo) {
  EXPECT_TRUE(Import("<BANK type='VANLAAR' name='A'/>"));
  EXPECT_TRUE(Maint().BankExists("VANLAAR", "A"));
}

TEST_F(ImportBanksTest, UnknownNodesOfABankAreNamedByIt) {
  EXPECT_FALSE(ImportBank("<foo/>"));
  EXPECT_EQ(Lines(),
            "  VANLAAR:MINE\n" + Error("Unrecognized node <foo> found within <bank> node"));
}

// Only the type in upper case is read as a bank of components; otherwise its items have a key and
// nothing else.
TEST_F(ImportBanksTest, ComponentBankInOtherCaseIsReadByItems) {
  EXPECT_FALSE(ImportBank("<comp/>", "type='purecomp' name='A'"));
  EXPECT_EQ(Lines(), "  purecomp:A\n" + Error("Unrecognized node <comp> found within <bank> node"));
}

TEST_F(ImportBanksTest, LibraryOpenForReadingThrowsTheAddress) {
  MakeFile("doc.xml", "<library><bank type='VANLAAR' name='A'/></library>");
  maint_.reset();
  library_->CloseLibFile();
  library_ = std::make_unique<LibFile_i>(files_, accRead, "/i.lb1", "Mine");
  ASSERT_EQ(library_->OpenExisting({true, ""}, nullptr), openOk);
  maint_ = std::make_unique<LibMaint_i>(library_.get());
  EXPECT_THROW(ImportFile("doc.xml"), unsigned long);
}

TEST_F(ImportBanksTest, WithoutALibraryThereIsNoImport) {
  LibMaint_i none(nullptr);
  EXPECT_FALSE(none.Import(Path("doc.xml").c_str(), false));
  EXPECT_FALSE(none.ImportComponent(Path("doc.xml").c_str(), "A", false));
}

}  // namespace
}  // namespace zel
