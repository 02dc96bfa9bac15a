// Reports on components of documents, in runs with and without a log, and what each leaves in the
// library.
#include "maint/component_identity.h"
#include "tests/support/sample_component.h"
#include "tests/xml/import_fixture.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

class ComponentReportsTest : public test::ImportTest {
 protected:
  static constexpr char kBank[] = "PURE";

  bool ImportBank(std::string const& inner, std::string const& name = kBank) {
    return Import("<bank type='PURECOMP' name='" + name + "'>" + inner + "</bank>");
  }
  bool Read(long number, char const* bank = kBank) {
    Key_i key;
    key.SetKey(number);
    return Maint().ReadItem(record_.Def(), bank, &key);
  }
  // Removes the bank, so that a new one can be started.
  void Forget() {
    if (Maint().BankExists("PURECOMP", kBank)) Maint().DeleteBank("PURECOMP", kBank);
  }

  test::ComponentBank record_;
};

// A component that is wrong in one way, whose number is 7.
struct Fault {
  char const* component;
  char const* message;  // with its label
  bool written;         // without the element, if the run continues
};
constexpr char kLabel[] = "Component \"A\" (7) - ";
constexpr Fault kFaults[] = {
    {"<id number='7'> A </id><other/>", "Unrecognized node <other> found within <comp> node", true},
    {"<id number='7'> A </id><id number='8'> B </id>",
     "Duplicate <id> node found within <comp> node", true},
    {"<id number='7'> A </id><smiles>C</smiles><smiles>N</smiles>",
     "Duplicate <smiles> node found within <comp> node", true},
    {"<id/>",
     "A library number and at least one library ID are required on the component <id> node", false},
    {"<id> A </id>", "A library number is required on the component <id> node", false},
    {"<id number='7'/>", "At least one library ID is required on the component <id> node", false},
    {"<id number='000000007' name='N'> A </id>",
     "Ordwin Id or Libary Number is exceeding more than 8 digits for the component N", false},
    {"<id number='7' other='1'> A </id>",
     "Unrecognized attribute \"other\" found within component <id> node", true},
    {"<id number='7' casNum='64-17-6'> A </id>", "CAS number \"64-17-6\" is invalid", true},
    {"<id number='7' formula='Xx2'> A </id>", "Chemical formula \"Xx2\" is invalid", true},
    {"<id number='7' formula='CHNOSPFIBKVWYUXx'> A </id>",
     "Chemical formula \"CHNOSPFIBKVWYUXx\" is invalid", true},
    {"<id number='7'> A </id><flags phase='VS'/>",
     "Unrecognized value \"VS\" found for \"phase\" attribute", true},
    {"<id number='7'> A </id><flags other='1'/>",
     "Unrecognized attribute \"other\" found within component <flags> node", true},
    {"<id number='7'> A </id><structure model='unifac'> 1(1) </structure>",
     "Unrecognized value \"unifac\" found for component structure \"model\" attribute", true},
    {"<id number='7'> A </id><structure other='1'> 1(1) </structure>",
     "Unrecognized attribute \"other\" found within component <structure> node", true},
    {"<id number='7'> A </id><property/>",
     "A property name and value are required on the component <property> node", true},
    {"<id number='7'> A </id><property value='1'/>",
     "A property name is required on the component <property> node", true},
    {"<id number='7'> A </id><property name='TC'/>",
     "A property value is required on the component <property> node", true},
    {"<id number='7'> A </id><property name='tcc' value='1'/>",
     "Unrecognized property \"tcc\" found", true},
    {"<id number='7'> A </id><property name='tc' value='1' uom='kg'/>",
     "Unrecognized unit of measure \"kg\" found for property \"tc\"", true},
    {"<id number='7'> A </id><property name='TC' value='1' other='1'/>",
     "Unrecognized attribute \"other\" found within component <property> node", true},
    {"<id number='7'> A </id><correlation/>",
     "A correlation name and equation number are required on the component <correlation> node",
     true},
    {"<id number='7'> A </id><correlation equation='1'/>",
     "A correlation name is required on the component <correlation> node", true},
    {"<id number='7'> A </id><correlation name='LatentHeat'/>",
     "An equation number is required on the component <correlation> node", true},
    {"<id number='7'> A </id><correlation name='Heat' equation='1'/>",
     "Unrecognized correlation \"Heat\" found", true},
    {"<id number='7'> A </id><correlation name='latentheat' equation='1' tempUnit='X'/>",
     "Unrecognized temperature unit \"X\" found for correlation \"latentheat\"", true},
    {"<id number='7'> A </id><correlation name='LatentHeat' equation='1' propUnit='kPa'/>",
     "Unrecognized property unit \"kPa\" found for correlation \"LatentHeat\"", true},
    {"<id number='7'> A </id><correlation name='LatentHeat' equation='1' logBasis='E'/>",
     "Unrecognized log form \"E\" found for correlation \"LatentHeat\"", true},
    {"<id number='7'> A </id><correlation name='LatentHeat' equation='1' moleWtBasis='W'/>",
     "Unrecognized basis \"W\" found for correlation \"LatentHeat\"", true},
    {"<id number='7'> A </id><correlation name='LatentHeat' NAME='x' equation='1'/>",
     "Duplicate \"NAME\" attribute found within component <correlation> node", true},
    {"<id number='7'> A </id><correlation name='LatentHeat' equation='1' tMin='1' TMIN='2'/>",
     "Duplicate \"TMIN\" attribute found within component <correlation> node", true},
};

// Faults that are found before the label is set are reported without it.
std::string WithLabel(Fault const& fault) {
  std::string const component(fault.component);
  bool const early = !fault.written || component.find("other='1'> A") != std::string::npos;
  return early ? fault.message : std::string(kLabel) + fault.message;
}

std::string Wrapped(Fault const& fault) {
  return "<comp>" + std::string(fault.component) + "</comp><comp><id number='9'> Z </id></comp>";
}

TEST_F(ComponentReportsTest, SilentRunEndsAtTheFirstErrorAndWritesNothing) {
  InitZelAccess();
  Maint().SetLogLevel(0);
  for (Fault const& fault : kFaults) {
    Forget();
    EXPECT_FALSE(ImportBank(Wrapped(fault))) << fault.component;
    EXPECT_EQ(Lines(), "");
    ASSERT_NE(Maint().GetLastErrorText(), nullptr) << fault.component;
    EXPECT_EQ(Maint().GetLastErrorText(), WithLabel(fault));
    EXPECT_EQ(Maint().Log().ErrorCount(), 1) << fault.component;
    EXPECT_FALSE(Read(7)) << fault.component;
    EXPECT_FALSE(Read(9)) << fault.component << ": nothing behind it is read";
  }
}

TEST_F(ComponentReportsTest, LoudRunsSayItOnceAndGoOn) {
  InitZelAccess();
  for (int level : {1, 2}) {
    Maint().SetLogLevel(level);
    for (Fault const& fault : kFaults) {
      Forget();
      EXPECT_FALSE(ImportBank(Wrapped(fault))) << fault.component;
      EXPECT_EQ(Lines(), "  PURECOMP:PURE\n" + Error(WithLabel(fault))) << fault.component;
      EXPECT_EQ(Maint().Log().ErrorCount(), 1) << fault.component;
      EXPECT_EQ(Read(7), fault.written) << fault.component;
      // A component without an identity ends the bank.
      EXPECT_EQ(Read(9), fault.written) << fault.component;
    }
  }
}

// Each attribute is allowed once, and is known in any case.
TEST_F(ComponentReportsTest, SecondAttributeOfEachNameIsReported) {
  InitZelAccess();
  struct Row {
    char const* element;
    std::initializer_list<char const*> attributes;  // with values
  };
  int attributes = 0;
  for (Row const& row :
       {Row{"id",
            {"number='7'", "name='n'", "formula='C'", "casNum=''", "refCode='1'",
             "keepFormula='1'"}},
        Row{"flags", {"phase='S'"}}, Row{"structure", {"model='joback'"}},
        Row{"property", {"name='TC'", "value='1'", "uom='K'", "refcode='1'"}},
        Row{"correlation",
            {"name='LatentHeat'", "equation='1'", "tMin='1'", "tMax='2'", "refCode='1'",
             "tempUnit='k'", "propUnit='kj/kg'", "logBasis='ln'", "moleWtBasis='m'"}}}) {
    for (std::string const second : row.attributes) {
      std::string all;
      for (char const* attribute : row.attributes) all += std::string(" ") + attribute;
      std::size_t const end = second.find('=');
      std::string name = second.substr(0, end);
      for (char& c : name) c = static_cast<char>(std::toupper(c));
      std::string const element = "<" + std::string(row.element) + all + " " + name +
                                  second.substr(end) + "> A </" + row.element + ">";
      Forget();
      bool const isId = element.starts_with("<id");
      EXPECT_FALSE(ImportBank("<comp>" + (isId ? "" : std::string("<id number='7'> A </id>")) +
                              element + "</comp>"));
      EXPECT_EQ(Lines(),
                "  PURECOMP:PURE\n" +
                    Error((isId ? "" : kLabel) + ("Duplicate \"" + name) +
                          "\" attribute found within component <" + row.element + "> node"));
      EXPECT_TRUE(Read(7)) << element;
      ++attributes;
    }
  }
  EXPECT_EQ(attributes, 21);
}

// The report on a model ends its element: what follows is not walked.
TEST_F(ComponentReportsTest, UnknownModelEndsItsElement) {
  EXPECT_FALSE(
      ImportBank("<comp><id number='7'> A </id><structure foo='1' model='x' bar='2'/>"
                 "<flags foo='3'/></comp>"));
  auto const unknown = [](std::string const& name, std::string const& element) {
    return Error(kLabel + ("Unrecognized attribute \"" + name) + "\" found within component <" +
                 element + "> node");
  };
  EXPECT_EQ(Lines(), "  PURECOMP:PURE\n" + unknown("foo", "structure") +
                         Error(kLabel + std::string("Unrecognized value \"x\" found for component "
                                                    "structure \"model\" attribute")) +
                         unknown("foo", "flags"));
}

TEST_F(ComponentReportsTest, WrongElementLeavesTheOthersOfItsComponent) {
  InitZelAccess();
  EXPECT_FALSE(
      ImportBank("<comp><id number='7'> A </id><property name='PC' value='1' uom='K'/>"
                 "<property name='ZC' value='0.25'/><correlation name='LatentHeat' equation='1' "
                 "logBasis='x'> 1 </correlation><smiles>CCO</smiles></comp>"));
  ASSERT_TRUE(Read(7));
  double pressure = 0.0;
  double compressibility = 0.0;
  char smiles[101] = "";
  record_->GetProperty(2, &pressure);
  record_->GetProperty(4, &compressibility);
  record_->GetSmiles(smiles);
  EXPECT_TRUE(gen_IsUndefDouble(pressure));
  EXPECT_EQ(compressibility, 0.25);
  EXPECT_STREQ(smiles, "CCO");
}

TEST_F(ComponentReportsTest, NodesOfABankAreChecked) {
  EXPECT_FALSE(ImportBank("<memo>a</memo><memo>b</memo><comp><id number='7'> A </id></comp>"));
  EXPECT_EQ(Lines(), "  PURECOMP:PURE\n" +
                         Error("Duplicate <memo> node found within component <bank> node"));
  EXPECT_TRUE(Read(7));
  Forget();
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportBank("<item/><comp><id number='7'> A </id></comp>"));
  EXPECT_FALSE(Read(7));
}

// If the run is silent, a component bank that ends with an error ends its library.
TEST_F(ComponentReportsTest, NodeUnknownToABankEndsASilentLibrary) {
  std::string const library =
      "<library><bank type='PURECOMP' name='PURE'><comp><id number='7'> A </id></comp><item/>"
      "</bank><version>9</version></library>";
  for (int level : {0, 1}) {
    Forget();
    Maint().SetLogLevel(level);
    EXPECT_FALSE(Import(library));
    EXPECT_TRUE(Read(7)) << "what was written stays";
    char description[101], version[13];
    library_->GetDescriptionAndVersion(description, version);
    EXPECT_STREQ(version, level == 0 ? "" : "9");
  }
}

// --- identities ----------------------------------------------------------------------------------

TEST_F(ComponentReportsTest, LongNumberOfANamelessComponentIsReportedToo) {
  EXPECT_FALSE(ImportBank("<comp><id number='12345678x'> A </id></comp>"));
  EXPECT_EQ(Lines(), "  PURECOMP:PURE\n" +
                         Error("Ordwin Id or Libary Number is exceeding more than 8 digits for the "
                               "component "));
}

TEST_F(ComponentReportsTest, LabelHasTheNumberAsWrittenAndTheFirstId) {
  EXPECT_FALSE(ImportBank("<comp><id number='007x' formula='-'> A23456789 B </id><other/></comp>"));
  EXPECT_EQ(Lines(), "  PURECOMP:PURE\n" +
                         Error("Component \"A2345678\" (007x) - Chemical formula \"-\" is "
                               "invalid") +
                         Error("Component \"A2345678\" (007x) - Unrecognized node <other> found "
                               "within <comp> node"));
  EXPECT_TRUE(Read(7)) << "as far as it is a number";
}

TEST_F(ComponentReportsTest, ReportsOfTheIdentityComeInOrder) {
  EXPECT_FALSE(ImportBank("<comp><id number='7' casNum='1' formula='c'> A </id></comp>"));
  EXPECT_EQ(Lines(), "  PURECOMP:PURE\n" +
                         Error(std::string(kLabel) + "CAS number \"1\" is invalid") +
                         Error(std::string(kLabel) + "Chemical formula \"c\" is invalid"));
}

TEST_F(ComponentReportsTest, LabelEndsWithItsComponent) {
  EXPECT_FALSE(ImportBank("<comp><id number='7'> A </id></comp><comp><other/></comp>"));
  EXPECT_EQ(Lines(),
            "  PURECOMP:PURE\n" + Error("Unrecognized node <other> found within <comp> node"));
}

// The flag is stored with the formula.
TEST_F(ComponentReportsTest, FlagOfTheFormulaGoesByPresence) {
  auto const component = [](char const* number, char const* flag) {
    return "<comp><id number='" + std::string(number) + "' formula='C2H6' " + flag + "> I" +
           number + " </id></comp>";
  };
  EXPECT_TRUE(ImportBank(component("1", "keepFormula=''") + component("2", "") +
                         component("3", "KEEPFORMULA='1'")))
      << Lines();
  for (long number : {1L, 2L, 3L}) {
    ASSERT_TRUE(Read(number));
    EXPECT_EQ(ComponentIdentity(record_.Get()).keepFormula, number == 2 ? 0 : 1) << number;
  }
}

// Only blanks separate IDs; a library keeps a line end as a blank.
TEST_F(ComponentReportsTest, LineEndIsPartOfAnId) {
  EXPECT_TRUE(ImportBank("<comp><id number='7'>\n  A B\nC D\n</id></comp>"));
  ASSERT_TRUE(Read(7));
  ComponentIdentity const id(record_.Get());
  EXPECT_STREQ(id.ids[0], "A");
  EXPECT_STREQ(id.ids[1], "B C");
  EXPECT_STREQ(id.ids[2], "D");
  EXPECT_STREQ(id.ids[3], "");
}

TEST_F(ComponentReportsTest, FormulaIsCutBeforeItIsChecked) {
  std::string const twenty = "C10H10C10H10C10H10C1";
  EXPECT_TRUE(ImportBank("<comp><id number='1' formula='" + twenty +
                         "Xx'> A </id></comp><comp><id "
                         "number='2' formula='MIXTURE'> B </id></comp><comp><id number='3' "
                         "formula='petro'> C </id></comp>"))
      << Lines();
  ASSERT_TRUE(Read(1));
  EXPECT_STREQ(ComponentIdentity(record_.Get()).formula, twenty.c_str());
}

TEST_F(ComponentReportsTest, OnlyOneBankNameFreesTheFormula) {
  std::string const odd = "<comp><id number='7' formula='C2Xx'> A </id></comp>";
  EXPECT_TRUE(ImportBank(odd, "olilib")) << Lines();
  ASSERT_TRUE(Read(7, "OLILIB"));
  EXPECT_STREQ(ComponentIdentity(record_.Get()).formula, "C2Xx");
  EXPECT_FALSE(ImportBank("<comp><id number='8' formula='C2Xx'> B </id></comp>", "OLILIB2"));
  EXPECT_EQ(Lines(), "  PURECOMP:OLILIB2\n" +
                         Error("Component \"B\" (8) - Chemical formula \"C2Xx\" is invalid"));
}

TEST_F(ComponentReportsTest, LongNameOfTheFreeBankIsCutFirst) {
  MakeFile("doc.xml", "<comp><id number='7' formula='C2Xx'> A </id></comp>");
  EXPECT_FALSE(
      Caught([&] { return Maint().ImportComponent(Path("doc.xml").c_str(), "OLILIB234", false); }));
  EXPECT_TRUE(Read(7, "OLILIB23"));
}

// --- units before they are there -----------------------------------------------------------------

// Runs in a separate process, since a unit table that was loaded once stays loaded.
TEST_F(ComponentReportsTest, UnitWordsAreRefusedBeforeTheUnitTableIsLoaded) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  auto const run = [&] {
    bool const good = ImportBank(
        "<comp><id number='7'> A </id><property name='TC' value='1' uom='K'/>"
        "<property name='PC' value='2'/><property name='ZC' value='3' uom='K'/>"
        "<correlation name='LatentHeat' equation='1' propUnit='kj/kg'/></comp>");
    std::string const expected =
        "  PURECOMP:PURE\n" +
        Error(std::string(kLabel) +
              "Unrecognized unit of measure \"K\" found for property \"TC\"") +
        Error(std::string(kLabel) +
              "Unrecognized property unit \"kj/kg\" found for correlation \"LatentHeat\"");
    double pressure = 0.0;
    bool const read = Read(7) && record_->GetProperty(2, &pressure) == kStatusOk;
    std::fputs(Lines().c_str(), stderr);
    std::_Exit(!good && Lines() == expected && read && pressure == 2.0 ? 0 : 1);
  };
  EXPECT_EXIT(run(), ::testing::ExitedWithCode(0), "Unrecognized unit of measure");
}

}  // namespace
}  // namespace zel
