// Limits of documents: bytes that are not characters of the library, texts and tables of maximum
// length, folders and rings of documents.
#include <gtest/gtest.h>

#include <filesystem>

#include "frame/platform/system.h"
#include "maint/component_identity.h"
#include "tests/support/bank_types.h"
#include "tests/support/sample_component.h"
#include "tests/xml/import_fixture.h"
#include "xml/field_tags.h"
#include "xml/import_iterator.h"

namespace zel {
namespace {

class ImportLimitsTest : public test::ImportTest {
 protected:
  std::string Description() {
    char description[101];
    char version[13];
    library_->GetDescriptionAndVersion(description, version);
    version_ = version;
    return description;
  }
  bool ReadComponent(long number) {
    Key_i key;
    key.SetKey(number);
    return Maint().ReadItem(component_.Def(), "PURE", &key);
  }

  test::ComponentBank component_;
  std::string version_;
};

// --- bytes ---------------------------------------------------------------------------------------

TEST_F(ImportLimitsTest, ReportsShowBytesAsTheyCome) {
  EXPECT_FALSE(ImportLibrary("<\xC3\xA9t\xC3\xA9/>"));
  EXPECT_EQ(Lines(), Error("Unrecognized node <\xC3\xA9t\xC3\xA9> found within <library> node"));
  EXPECT_FALSE(Import("<?xml version='1.0' encoding='ISO-8859-1'?><library><\xE9/></library>"));
  EXPECT_EQ(Lines(), Error("Unrecognized node <\xC3\xA9> found within <library> node"))
      << "in UTF-8, whatever the document is in";
}

TEST_F(ImportLimitsTest, MemosKeepBytesAndPackedTextsHaveBlanksForThem) {
  EXPECT_TRUE(
      ImportLibrary("<description>a\xC3\xA9z</description><version>1\xC3\xA9"
                    "2</version><memo><![CDATA[ m\xC3\xA9z]]></memo>"));
  char memo[4000];
  library_->GetMemo(memo);
  EXPECT_STREQ(memo, "m\xC3\xA9z");
  maint_.reset();
  library_->CloseLibFile();
  library_ = std::make_unique<LibFile_i>(files_, accUpdate, "/i.lb1", "Mine");
  ASSERT_EQ(library_->OpenExisting({true, ""}, nullptr), openOk);
  maint_ = std::make_unique<LibMaint_i>(library_.get());
  EXPECT_EQ(Description(), "a  z") << "two bytes, two blanks";
  EXPECT_EQ(version_, "1  2");
  EXPECT_TRUE(
      Import("<bank type='PURECOMP' name='PURE'><comp><id number='7' "
             "name='x\xC3\xA9y'> \xC3\xA9X </id></comp></bank>"));
  ASSERT_TRUE(ReadComponent(7));
  EXPECT_STREQ(ComponentIdentity(component_.Get()).name, "x  y");
}

// Cuts are made between bytes.
TEST_F(ImportLimitsTest, CutsCountBytes) {
  EXPECT_TRUE(ImportBank("", "type='VANLAAR' name='ABCDEFG\xC3\xA9'"));
  EXPECT_EQ(Lines(), "  VANLAAR:ABCDEFG\xC3\n");
  EXPECT_TRUE(Maint().BankExists("VANLAAR", "ABCDEFG"));
  EXPECT_TRUE(ImportLibrary("<memo><![CDATA[ " + std::string(3998, 'm') + "\xC3\xA9]]></memo>"));
  char memo[4000];
  library_->GetMemo(memo);
  EXPECT_EQ(memo, std::string(3998, 'm') + "\xC3");
}

// --- lengths -------------------------------------------------------------------------------------

TEST_F(ImportLimitsTest, TextFieldHasOneCharacterLessThanItsBuffer) {
  std::string const letters = "abcdefghijklmnopqrstuvwxyz";
  EXPECT_TRUE(ImportBank("<item><numerickey>1 1</numerickey><name>" + letters + "</name></item>",
                         "type='GRPDESC' name='MINE'"));
  EXPECT_EQ(TextOf("GRPDESC", "MINE", {1, 1}, "name"), letters.substr(0, 20));
}

// The names that an item may contain: its fields, and its key.
TEST_F(ImportLimitsTest, EveryTypeHasRoomForItsNames) {
  std::size_t most = 0;
  for (char const* const type : test::BankTypes()) {
    FaceRef<IZelBankDef> const bank(NewBank(type));
    std::size_t const names = FieldTags(bank.Get(), 0).tags.size() + 1;
    EXPECT_LE(names, kMostNames) << type;
    most = std::max(most, names);
  }
  EXPECT_EQ(most, kMostNames);
}

// The key is the last name of its type, and is counted like the others.
TEST_F(ImportLimitsTest, SecondKeyOfTheLongestTypeIsReported) {
  EXPECT_FALSE(
      ImportBank("<item><keys>1234567 1234568</keys><refCode>5</refCode><keys>1234567 "
                 "1234569</keys><keys>1 2</keys></item>",
                 "type='WILSON' name='MINE'"));
  EXPECT_EQ(Lines(), "  WILSON:MINE\n" + Error("Item \"1234567:1234568\" - Duplicate <keys> node "
                                               "found within <item> node"));
  EXPECT_EQ(IntsOf("WILSON", "MINE", {1234567, 1234568}, "refCode", 1)[0], 5);
}

// Each is a format error, which names the bound, also of a document that is kept as a tree.
TEST_F(ImportLimitsTest, BoundsOfTheParserAreNamed) {
  std::string const much(10'100'000, 'x');  // NOLINT(bugprone-string-constructor)
  std::string const most(6'000'000, 'x');
  std::string names;
  for (int i = 0; names.size() < 25'000'000; ++i) {
    names += "<a" + std::to_string(i) + "_" + std::string(2000, 'x') + "/>";
  }
  std::string deep;
  for (int i = 0; i < 300; ++i) deep += "<x>";
  struct Row {
    std::string inner;
    char const* bound;
  };
  constexpr char const* kSection = "more than 10 MB in one comment, section or instruction";
  for (Row const& row :
       {Row{"<version>" + much + "</version>", "more than 10 MB in one text"},
        Row{std::string(much.size(), ' '), "more than 10 MB in one text"},
        Row{"<x a='" + much + "'/>", "more than 10 MB in one tag"},
        Row{"<x a='" + most + "' b='" + most + "'/>", "more than 10 MB in one tag"},
        Row{"<!--" + much + "-->", kSection},
        Row{"<memo><![CDATA[" + much + "]]></memo>", kSection}, Row{"<?x " + much + "?>", kSection},
        Row{names, "more than 10 MB of different names"},
        Row{"<" + std::string(60'000, 'x') + "/>", "a name of more than 50,000 characters"},
        Row{deep, "more than 256 elements within each other"}}) {
    for (std::string const front : {"", "<!DOCTYPE library>"}) {
      EXPECT_FALSE(Import(front + "<library>" + row.inner + "</library>"));
      EXPECT_EQ(Lines(), Error("Format error in XML document \"" + Path("doc.xml") +
                               "\", line 1: " + row.bound));
    }
  }
}

TEST_F(ImportLimitsTest, DocumentOf2GiBIsRefusedByItsSize) {
  MakeFile("doc.xml", "<library/>");
  std::filesystem::resize_file(Path("doc.xml"), std::uintmax_t{1} << 31);
  EXPECT_FALSE(ImportFile("doc.xml"));
  EXPECT_EQ(Lines(),
            Error("Format error in XML document \"" + Path("doc.xml") + "\": 2 GiB or more"));
}

// An attribute may show any text in a message of the parser.
TEST_F(ImportLimitsTest, WordsOfADocumentAreNotTakenForABound) {
  EXPECT_TRUE(Import("<library xmlns='Huge input lookup'/>")) << Lines();
  EXPECT_FALSE(Import("<library><version>&Huge;</version></library>"));
  EXPECT_EQ(Lines(), Error("Format error in XML document \"" + Path("doc.xml") + "\""));
}

// --- folders -------------------------------------------------------------------------------------

TEST_F(ImportLimitsTest, WorkingFolderStays) {
  std::string const before = platform::WorkingFolder();
  std::filesystem::create_directory(Folder() / "sub");
  MakeFile("sub/a.xml", "<group><import file='b.xml'/><import file='none.xml'/></group>");
  MakeFile("sub/b.xml", "<group><foo/></group>");
  EXPECT_FALSE(ImportLibrary("<import file='sub/a.xml'/>"));
  EXPECT_NE(Lines().find("none.xml"), std::string::npos);
  EXPECT_EQ(platform::WorkingFolder(), before);
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportLibrary("<import file='sub/a.xml'/>"));
  EXPECT_EQ(platform::WorkingFolder(), before);
}

// Documents named after a ring are searched for in the folder of the document that names them.
TEST_F(ImportLimitsTest, RingThroughAFolderLeavesTheFolderOfItsDocument) {
  std::filesystem::create_directory(Folder() / "sub");
  MakeFile("sub/a.xml",
           "<group><bank type='VANLAAR' name='MINE'><import file='../doc.xml'/><import "
           "file='items.xml'/></bank></group>");
  MakeFile("sub/items.xml", "<group><item><keys>1234567 1234568</keys><aij>4</aij></item></group>");
  EXPECT_FALSE(ImportLibrary("<import file='sub/a.xml'/><version>9</version>"));
  EXPECT_EQ(Lines(), "  VANLAAR:MINE\n*** a.xml : error : Format error in XML document \"" +
                         Path("doc.xml") + "\"\n");
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aij"), 4.0);
  Description();
  EXPECT_EQ(version_, "9");
  EXPECT_EQ(Documents().TopFile(), "doc.xml");
}

// A file that exists but cannot be read is a format error; one that does not exist is missing.
TEST_F(ImportLimitsTest, UnreadableFileIsAFormatError) {
  for (char const* file : {"/dev/zero", "/proc/self/mem", "/dev"}) {
    EXPECT_FALSE(ImportLibrary("<import file='" + std::string(file) + "'/>"));
    EXPECT_EQ(Lines(), Error("Format error in XML document \"" + std::string(file) + "\""));
  }
  EXPECT_FALSE(ImportLibrary("<import file='doc.xml/x'/>"));
  EXPECT_EQ(Lines(), Error("Unable to locate XML document \"" + Path("doc.xml/x") + "\""));
}

}  // namespace
}  // namespace zel
