// Importing components: the element, its identity, phase, structures and SMILES text.
#include "maint/component_identity.h"
#include "tests/support/sample_component.h"
#include "tests/xml/import_fixture.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

using test::ComponentBank;

constexpr char kGoodId[] =
    "<id number='10000007' name='Ethanol' formula='C2H6O'> ETHANOL ETOH </id>";

class ImportComponentTest : public test::ImportTest {
 protected:
  ImportComponentTest() { InitZelAccess(); }

  bool ImportAlone(std::string_view text, bool replace = false, char const* bank = "PURE") {
    MakeFile("doc.xml", text);
    return Caught([&] { return Maint().ImportComponent(Path("doc.xml").c_str(), bank, replace); });
  }
  bool ImportBank(std::string const& inner) {
    return Import("<bank type='PURECOMP' name='PURE'>" + inner + "</bank>");
  }
  bool ImportId(std::string const& id) { return ImportAlone("<comp>" + id + "</comp>"); }
  bool ImportElements(std::string const& elements) {
    return ImportAlone("<comp>" + (kGoodId + elements) + "</comp>", true);
  }
  bool Read(long number, char const* bank = "PURE") {
    Key_i key;
    key.SetKey(number);
    return Maint().ReadItem(bank_.Def(), bank, &key);
  }
  ComponentIdentity Identity(long number = 10000007) {
    EXPECT_TRUE(Read(number));
    return ComponentIdentity(bank_.Get());
  }
  static std::string Labelled(std::string const& text) {
    return Error("Component \"ETHANOL\" (10000007) - " + text);
  }

  ComponentBank bank_;
};

// --- the element ---------------------------------------------------------------------------------

TEST_F(ImportComponentTest, BankIsMadeOrFound) {
  EXPECT_TRUE(ImportId(kGoodId));
  EXPECT_EQ(Lines(), "");
  EXPECT_TRUE(Maint().BankExists("PURECOMP", "PURE"));
  EXPECT_TRUE(ImportId("<id number='10000008'> WATER </id>"));
  EXPECT_TRUE(Read(10000007));
  EXPECT_TRUE(Read(10000008));
  EXPECT_TRUE(ImportAlone("<COMP>" + std::string(kGoodId) + "</COMP>", false, "LONGERNAME"));
  EXPECT_TRUE(Read(10000007, "LONGERNA")) << "eight characters";
}

TEST_F(ImportComponentTest, BankThatCannotBeMadeIsReported) {
  library_->CloseLibFile();
  EXPECT_FALSE(ImportId(kGoodId));
  EXPECT_EQ(Lines(), Error("Bank \"PURECOMP-PURE\" cannot be found or created"));
}

TEST_F(ImportComponentTest, BankOfComponentsIsWalked) {
  EXPECT_TRUE(ImportBank("<memo><![CDATA[ words]]></memo><comp>" + std::string(kGoodId) +
                         "</comp><!-- x --><comp><id number='8'>W</id></comp>"));
  EXPECT_EQ(Lines(), "  PURECOMP:PURE\n");
  char memo[4000];
  Maint().GetBankMemo("PURECOMP", "PURE", memo);
  EXPECT_STREQ(memo, "words");
  EXPECT_TRUE(Read(8));
}

TEST_F(ImportComponentTest, BankFollowsImportTagsToComponents) {
  MakeFile("one.xml", "<comp>" + std::string(kGoodId) + "</comp>");
  MakeFile("two.xml",
           "<group><comp><id number='8'>W</id></comp><comp><id number='9'>V</id></comp>"
           "</group>");
  EXPECT_TRUE(ImportBank("<import file='one.xml'/><import file='two.xml'/>"));
  for (long number : {10000007L, 8L, 9L}) EXPECT_TRUE(Read(number)) << number;
}

TEST_F(ImportComponentTest, UnknownNodesAreNamedByTheirElement) {
  EXPECT_FALSE(ImportBank("<item/>"));
  EXPECT_EQ(Lines(), "  PURECOMP:PURE\n" +
                         Error("Unrecognized node <item> found within component <bank> node"));
  EXPECT_FALSE(ImportElements("<import file='x.xml'/>words<flags/><flags/>"));
  EXPECT_EQ(Lines(), Labelled("Unrecognized node <import> found within <comp> node") +
                         Labelled("Unrecognized node <#text> found within <comp> node") +
                         Labelled("Duplicate <flags> node found within <comp> node"));
  EXPECT_TRUE(Read(10000007)) << "written without them";
}

TEST_F(ImportComponentTest, AttributesOfTheElementAreNotLookedAt) {
  EXPECT_TRUE(ImportAlone("<comp x='1'>" + std::string(kGoodId) + "</comp>"));
}

TEST_F(ImportComponentTest, ComponentWithoutIdentityEndsItsBankInSilence) {
  EXPECT_TRUE(
      ImportBank("<comp><flags phase='S'/></comp><comp>" + std::string(kGoodId) + "</comp>"));
  EXPECT_EQ(Lines(), "  PURECOMP:PURE\n");
  EXPECT_FALSE(Read(10000007)) << "the walk has ended";
  EXPECT_TRUE(
      Import("<library><bank type='PURECOMP' name='Z'><comp><id number='0'>A</id></comp></bank>"
             "<version>9</version></library>"));
  char description[101], version[13];
  library_->GetDescriptionAndVersion(description, version);
  EXPECT_STREQ(version, "") << "and the library's too";
}

TEST_F(ImportComponentTest, ExistingComponentIsReplacedOnlyWhenAsked) {
  ASSERT_TRUE(ImportId(kGoodId));
  std::string const again = "<comp><id number='10000007' name='New'> ETHANOL </id></comp>";
  EXPECT_FALSE(ImportAlone(again));
  EXPECT_EQ(Lines(), Labelled("Library number (10000007) already exists in this bank"));
  EXPECT_STREQ(Identity().name, "Ethanol");
  EXPECT_TRUE(ImportAlone(again, true));
  EXPECT_STREQ(Identity().name, "New");
}

TEST_F(ImportComponentTest, RefusedComponentIsReportedWithItsReason) {
  ASSERT_TRUE(ImportId(kGoodId));
  EXPECT_FALSE(ImportId("<id number='8'> OTHER ETOH </id>"));
  EXPECT_EQ(Lines(), Error("Component \"OTHER\" (8) - Library ID \"ETOH\" already refers to a "
                           "component in this library"));
  EXPECT_FALSE(Read(8));
}

TEST_F(ImportComponentTest, SharedCasNumberIsAWarning) {
  ASSERT_TRUE(ImportId("<id number='7' casNum='64-17-5'> A </id>"));
  EXPECT_TRUE(ImportId("<id number='8' casNum='64-17-5'> B </id>"));
  EXPECT_EQ(Lines(),
            Warning("Component \"B\" (8) - CAS number \"64-17-5\" duplicates component \"A\" "
                    "(00000007)"));
  EXPECT_TRUE(Read(8));
}

TEST_F(ImportComponentTest, SilentRunWritesNothingOfABrokenComponent) {
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportElements("<property name='TC' value='5'/><foo/>"));
  EXPECT_FALSE(Read(10000007));
  EXPECT_FALSE(ImportElements("<property name='NONE' value='5'/>"));
  EXPECT_FALSE(Read(10000007));
  EXPECT_STREQ(Maint().GetLastErrorText(),
               "Component \"ETHANOL\" (10000007) - Unrecognized property \"NONE\" found");
}

// --- identity ------------------------------------------------------------------------------------

TEST_F(ImportComponentTest, IdentityIsTaken) {
  EXPECT_TRUE(
      ImportId("<id NUMBER='10000007' name='Ethanol' formula='C2H6O' casNum='64-17-5' "
               "REFCODE='23' keepFormula='0'> ethanol EtOH\nC2H5OHXYZ  third </id>"));
  ComponentIdentity const id = Identity();
  EXPECT_EQ(id.number, 10000007);
  EXPECT_EQ(id.casNumber, 64175);
  EXPECT_EQ(id.refCode, 23);
  EXPECT_STREQ(id.name, "Ethanol");
  EXPECT_STREQ(id.formula, "C2H6O");
  EXPECT_EQ(id.keepFormula, 1) << "presence alone sets the flag";
  EXPECT_STREQ(id.ids[0], "ethanol");
}

TEST_F(ImportComponentTest, TextsAndIdsAreCutInSilence) {
  EXPECT_TRUE(ImportId("<id number='7' name='" + std::string(50, 'n') +
                       "' formula='C2H6O'> A23456789 B C D E F G H I J K L M </id>"));
  ComponentIdentity const id = Identity(7);
  EXPECT_EQ(id.name, std::string(40, 'n'));
  EXPECT_STREQ(id.ids[0], "A2345678");
  EXPECT_STREQ(id.ids[11], "L") << "the thirteenth is not read";
}

TEST_F(ImportComponentTest, NumberAndIdMustBeThere) {
  EXPECT_FALSE(ImportId("<id/>"));
  EXPECT_EQ(Lines(),
            Error("A library number and at least one library ID are required on the component "
                  "<id> node"));
  EXPECT_FALSE(ImportId("<id> A </id>"));
  EXPECT_EQ(Lines(), Error("A library number is required on the component <id> node"));
  EXPECT_FALSE(ImportId("<id number='7'>  </id>"));
  EXPECT_EQ(Lines(), Error("At least one library ID is required on the component <id> node"));
  EXPECT_TRUE(ImportId("<id number=''> A </id>")) << "it has a number, and that is 0";
  EXPECT_EQ(Lines(), "");
}

TEST_F(ImportComponentTest, NumberHasAtMostEightCharacters) {
  EXPECT_FALSE(ImportId("<id number='123456789' name='Long one'> A </id>"));
  EXPECT_EQ(Lines(),
            Error("Ordwin Id or Libary Number is exceeding more than 8 digits for the component "
                  "Long one"));
  EXPECT_TRUE(ImportId("<id number='12345678'> A </id>"));
  EXPECT_FALSE(ImportId("<id number='000000007'> B </id>")) << "measured as written";
}

TEST_F(ImportComponentTest, BadCasNumberCountsAsNone) {
  EXPECT_FALSE(ImportId("<id number='7' casNum='64-17-6'> A </id>"));
  EXPECT_EQ(Lines(), Error("Component \"A\" (7) - CAS number \"64-17-6\" is invalid"));
  EXPECT_EQ(Identity(7).casNumber, 0);
  EXPECT_TRUE(ImportId("<id number='8' casNum=''> B </id>"));
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportId("<id number='9' casNum='x'> C </id>"));
  EXPECT_FALSE(Read(9));
}

TEST_F(ImportComponentTest, FormulaIsCheckedAndStoredAsWritten) {
  EXPECT_FALSE(ImportId("<id number='7' formula='C2Xx' keepFormula='1'> A </id>"));
  EXPECT_EQ(Lines(), Error("Component \"A\" (7) - Chemical formula \"C2Xx\" is invalid"));
  EXPECT_STREQ(Identity(7).formula, "C2Xx");
  EXPECT_TRUE(ImportId("<id number='8' formula='OH2'> B </id>"));
  EXPECT_TRUE(ImportId("<id number='9'> C </id>")) << "none at all";
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportId("<id number='10' formula='(C'> D </id>"));
  EXPECT_FALSE(Read(10));
}

TEST_F(ImportComponentTest, FormulasOfOneBankAreOfAnotherKind) {
  EXPECT_TRUE(ImportAlone("<comp><id number='7' formula='C2Xx'> A </id></comp>", false, "OliLib"));
  EXPECT_TRUE(Import("<bank type='PURECOMP' name='OLILIB2'/>"));
}

TEST_F(ImportComponentTest, AttributesOfTheIdentityAreChecked) {
  EXPECT_FALSE(ImportId("<id number='7' foo='1' NAME='a' name='b'> A </id>"));
  EXPECT_EQ(Lines(), Error("Unrecognized attribute \"foo\" found within component <id> node") +
                         Error("Duplicate \"name\" attribute found within component <id> node"));
  EXPECT_STREQ(Identity(7).name, "a");
}

// An error in the identity drops the component, and ends the walk over its bank, too.
TEST_F(ImportComponentTest, BadIdentityDropsTheComponent) {
  EXPECT_FALSE(ImportBank("<comp><id> A </id></comp><comp>" + std::string(kGoodId) + "</comp>"));
  EXPECT_EQ(Lines(),
            "  PURECOMP:PURE\n" + Error("A library number is required on the component <id> node"));
  EXPECT_FALSE(Read(10000007));
}

// --- phase, SMILES text, structures --------------------------------------------------------------

TEST_F(ImportComponentTest, PhasesHaveWords) {
  struct Row {
    char const* word;
    std::int32_t phase;
  };
  for (Row const& row : {Row{"VL", 3}, Row{"vls", 7}, Row{"LS", 6}, Row{"s", 4}, Row{"None", 3}}) {
    EXPECT_TRUE(ImportElements("<flags phase='" + std::string(row.word) + "'/>")) << Lines();
    std::int32_t phase = -1;
    ASSERT_TRUE(Read(10000007));
    bank_->GetPhase(&phase);
    EXPECT_EQ(phase, row.phase) << row.word << "; none reads from a library as vapor and liquid";
  }
}

TEST_F(ImportComponentTest, UnknownPhaseIsReported) {
  EXPECT_FALSE(ImportElements("<flags phase='V' foo='1'/>"));
  EXPECT_EQ(Lines(),
            Labelled("Unrecognized value \"V\" found for \"phase\" attribute") +
                Labelled("Unrecognized attribute \"foo\" found within component <flags> node"));
  EXPECT_TRUE(Read(10000007));
  Maint().SetLogLevel(0);
  Maint().DeleteBank("PURECOMP", "PURE");
  EXPECT_FALSE(ImportElements("<flags phase='V'/>"));
  EXPECT_FALSE(Read(10000007));
}

TEST_F(ImportComponentTest, SmilesTextIsTakenAsItStands) {
  EXPECT_TRUE(ImportElements("<smiles> CC=O nonsense </smiles>"));
  char text[101];
  ASSERT_TRUE(Read(10000007));
  bank_->GetSmiles(text);
  EXPECT_STREQ(text, "CC=O nonsense");
  EXPECT_TRUE(ImportElements("<smiles>" + std::string(150, 'C') + "</smiles>"));
  ASSERT_TRUE(Read(10000007));
  bank_->GetSmiles(text);
  EXPECT_EQ(text, std::string(100, 'C'));
}

class StructureTest : public ImportComponentTest {
 protected:
  // The groups of a model as they were read.
  std::string Groups(std::uint32_t model) {
    std::int32_t count = -1;
    std::int32_t ids[10] = {};
    std::int32_t counts[10] = {};
    if (!Read(10000007)) return "nothing";
    if (bank_->GetRawStructure(model, &count, ids, counts) != kStatusOk) return "none";
    std::string text;
    for (int i = 0; i < count; ++i) {
      text += " " + std::to_string(ids[i]) + "(" + std::to_string(counts[i]) + ")";
    }
    return text;
  }
};

TEST_F(StructureTest, EachModelHasItsGroups) {
  char const* const models[] = {"",          "orig-public", "ORIG-CONS", "dort-public",
                                "dort-cons", "lyngby",      "joback"};
  std::string elements = "<structure> 900(1) 901(2) </structure>";
  for (int i = 1; i < 7; ++i) {
    elements += "<structure model='" + std::string(models[i]) + "'> " + std::to_string(i) +
                "(2) 9(1)"
                "</structure>";
  }
  EXPECT_TRUE(ImportElements(elements)) << Lines();
  EXPECT_EQ(Groups(0), " 900(1) 901(2)");
  for (std::uint32_t i = 1; i < 7; ++i) {
    EXPECT_EQ(Groups(i), " " + std::to_string(i) + "(2) 9(1)") << i;
  }
}

TEST_F(StructureTest, UnknownModelsAndTheNameOfTheFirstAreRefused) {
  EXPECT_FALSE(
      ImportElements("<structure model='legacy'> 1(1) </structure><structure model=''> 1(1) "
                     "</structure>"));
  EXPECT_EQ(
      Lines(),
      Labelled("Unrecognized value \"legacy\" found for component structure \"model\" attribute") +
          Labelled("Unrecognized value \"\" found for component structure \"model\" attribute"));
  EXPECT_NE(Groups(0), " 1(1)");
}

TEST_F(StructureTest, TokensAreReadAsFarAsTheyGo) {
  EXPECT_TRUE(ImportElements("<structure model='joback'> 5 x 7(2 (3) -1(+2)z 4x9 </structure>"));
  EXPECT_EQ(Groups(6), " 5(0) 0(0) 7(2) 0(0) -1(2) 4(0)");
}

// A line end is part of a token: it is skipped before a number, and ends the reading after one.
TEST_F(StructureTest, LinesDoNotSeparateGroups) {
  EXPECT_TRUE(
      ImportElements("<structure model='joback'>\n  1(1)\n2(2) \n3(\n3) 4\n(4) </structure>"));
  EXPECT_EQ(Groups(6), " 1(1) 3(3) 4(0)");
}

TEST_F(StructureTest, TenGroupsAreKept) {
  EXPECT_TRUE(
      ImportElements("<structure model='joback'> 1(1) 2(1) 3(1) 4(1) 5(1) 6(1) 7(1) 8(1) 9(1) "
                     "10(1) 11(1) </structure>"));
  EXPECT_EQ(Groups(6), " 1(1) 2(1) 3(1) 4(1) 5(1) 6(1) 7(1) 8(1) 9(1) 10(1)");
}

TEST_F(StructureTest, SecondElementOfAModelAddsToTheCountOnly) {
  EXPECT_TRUE(
      ImportElements("<structure model='joback'> 1(1) 2(2) </structure><structure "
                     "model='joback'> 3(3) </structure>"));
  EXPECT_EQ(Groups(6), " 3(3) 2(2) 0(0)");
  std::string many;
  for (int i = 0; i < 8; ++i) many += " 1(1)";
  std::string const element = "<structure model='joback'>" + many + "</structure>";
  EXPECT_TRUE(ImportElements(element + element));
  EXPECT_EQ(Groups(6), many + " 0(0) 0(0)") << "at most ten";
}

}  // namespace
}  // namespace zel
