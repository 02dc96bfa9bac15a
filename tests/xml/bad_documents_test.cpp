// Invalid documents: they are reported, and the library stays intact.
#include <random>

#include "tests/support/sample_component.h"
#include "tests/xml/import_fixture.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

constexpr char kDocument[] =
    "<!-- c --><library><description>d</description><memo><![CDATA[ m]]></memo>\n"
    "<bank type='VANLAAR' name='V'><item><keys> 1234567 1234568 </keys><aij> 1 "
    "</aij></item></bank>\n"
    "<bank type='PURECOMP' name='P'><comp><id number='7' name='n' formula='CH4'> A </id>"
    "<property name='TC' value='190'/><correlation name='VaporPressure' equation='20' tempUnit='k'"
    " propUnit='kpa'> 1 2 3 </correlation></comp></bank></library>\n";

class BadDocumentsTest : public test::ImportTest {
 protected:
  BadDocumentsTest() { InitZelAccess(); }

  // All banks and items of the library.
  std::string Contents() {
    std::string text;
    char type[9], name[9];
    LibMaint_i items(library_.get());
    Maint().BeginBankWalk();
    while (Maint().NextBank(type, name)) {
      text += std::string(type) + ":" + name;
      std::int32_t words[10] = {};
      items.BeginItemWalk(type, name);
      while (items.NextItemKey(words)) text += " " + std::to_string(words[0]);
      text += "\n";
    }
    return text;
  }
};

TEST_F(BadDocumentsTest, CutAnywhereItIsAFormatErrorAndNothingIsRead) {
  std::string const whole = kDocument;
  std::size_t const end = whole.rfind("</library>") + 10;
  std::string const report = Error("Format error in XML document \"" + Path("doc.xml") + "\"");
  for (std::size_t n = 0; n < end; ++n) {
    ASSERT_FALSE(Import(whole.substr(0, n))) << n;
    ASSERT_EQ(Lines(), report) << n;
  }
  EXPECT_EQ(Contents(), "");
  EXPECT_TRUE(Import(whole));
  EXPECT_EQ(Contents(), "PURECOMP:P 7\nVANLAAR:V 1234567\n");
}

TEST_F(BadDocumentsTest, CutIncludeLeavesWhatStandsAroundIt) {
  std::string const whole =
      "<bank type='NRTL' name='N'><item><keys>1234567 1234568</keys></item></bank>";
  for (std::size_t n = 0; n < whole.size(); n += 3) {
    MakeFile("in.xml", whole.substr(0, n));
    std::string const name = "V" + std::to_string(n);
    ASSERT_FALSE(
        ImportLibrary("<import file='in.xml'/><bank type='VANLAAR' name='" + name + "'/>"));
    ASSERT_TRUE(Maint().BankExists("VANLAAR", name.c_str()));
    ASSERT_FALSE(Maint().BankExists("NRTL", "N"));
  }
}

TEST_F(BadDocumentsTest, AnyByteMayBeAnother) {
  std::string const whole = kDocument;
  std::mt19937 random(3);
  for (int i = 0; i < 3000; ++i) {
    std::string text = whole;
    for (int k = 0; k <= i % 3; ++k) text[random() % text.size()] = static_cast<char>(random());
    Import(text, true);
    if (i % 50 == 0) {
      for (char const* type : {"VANLAAR", "PURECOMP"}) {
        for (char const* name : {"V", "P"}) {
          if (Maint().BankExists(type, name)) Maint().DeleteBank(type, name);
        }
      }
    }
  }
  Contents();
}

TEST_F(BadDocumentsTest, NamesAndNumbersFarTooLong) {
  std::string const a(100'000, 'a');
  std::string const nines(100'000, '9');
  EXPECT_FALSE(Import("<" + a + "/>"));
  EXPECT_FALSE(ImportLibrary("<" + a + "/><version>" + a + "</version><description>" + a +
                             "</description><memo>" + a + "</memo>"));
  EXPECT_FALSE(ImportLibrary("<bank type='" + a +
                             "' name='x'/><bank type='NRTL' name='x' format='" + nines + "'/>"));
  EXPECT_FALSE(ImportBank("<item><keys>" + nines + " " + a +
                          "</keys></item><item><keys>1234567 1234568"
                          "</keys><aij>" +
                          nines + "</aij><refCode>-" + nines + "</refCode></item>"));
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aij"),
            std::numeric_limits<double>::infinity());
  EXPECT_EQ(IntsOf("VANLAAR", "MINE", {1234567, 1234568}, "refCode", 1)[0], INT32_MIN);
  EXPECT_FALSE(ImportBank("<comp><id number='" + nines + "' name='" + a + "'>" + a +
                              "</id></comp>"
                              "<comp><id number='7' casNum='" +
                              nines + "' formula='" + a + "' refCode='" + nines +
                              "'> A </id><structure>" + nines + "(" + nines +
                              ")</structure><property name='" + a +
                              "' value='1'/><property name='TC' value='" + nines + "' uom='" + a +
                              "'/><correlation name='LatentHeat' equation='" + nines +
                              "' propUnit='" + a + "'>" + nines + "</correlation></comp>",
                          "type='PURECOMP' name='LONG'"));
  EXPECT_FALSE(ImportLibrary("<import file='" + a + "'/>"));
}

TEST_F(BadDocumentsTest, ControlCharactersAreNoText) {
  for (char c : {'\x01', '\x08', '\x0B', '\x1F'}) {
    EXPECT_FALSE(ImportLibrary(std::string("<version>") + c + "</version>")) << int{c};
    EXPECT_NE(Lines().find("Format error"), std::string::npos);
  }
  EXPECT_FALSE(Import(std::string_view("<library>\0</library>", 20)));
  EXPECT_FALSE(ImportLibrary("<version>&#1;</version>"));
}

TEST_F(BadDocumentsTest, OtherEncodingsAreReadOrRefused) {
  EXPECT_TRUE(
      Import("<?xml version='1.0' encoding='ISO-8859-1'?><library><version>\xE9</version>"
             "</library>"));
  EXPECT_FALSE(Import("<library><version>\xE9</version></library>")) << "no UTF-8";
  EXPECT_FALSE(Import("<?xml version='1.0' encoding='EBCDIC-XYZ'?><library/>"));
  EXPECT_TRUE(Import("\xEF\xBB\xBF<library/>"));
}

TEST_F(BadDocumentsTest, LaughsAndOutsideEntitiesAreFormatErrors) {
  std::string laughs = "<!DOCTYPE library [<!ENTITY e0 'ha'>";
  for (int i = 1; i < 20; ++i) {
    std::string const before = "&e" + std::to_string(i - 1) + ";";
    laughs += "<!ENTITY e" + std::to_string(i) + " '" + before + before + before + before + before +
              before + before + before + before + before + "'>";
  }
  for (std::string const& text :
       {laughs + "]><library><version>&e19;</version></library>",
        std::string("<!DOCTYPE library [<!ENTITY e SYSTEM '/etc/hostname'>]><library><version>&e;"
                    "</version></library>")}) {
    EXPECT_FALSE(Import(text));
    EXPECT_EQ(Lines(), Error("Format error in XML document \"" + Path("doc.xml") + "\""));
  }
}

}  // namespace
}  // namespace zel
