// The walk over nodes and attributes: names, duplicates, further documents, reports that end it.
#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "tests/xml/import_fixture.h"
#include "xml/import_iterator.h"

namespace zel {
namespace {

using test::ImportTest;

std::string Item(std::string const& key, std::string const& values = "<aij> 1 </aij>") {
  return "<item><keys> " + key + " </keys>" + values + "</item>";
}

TEST_F(ImportTest, MissingDocumentIsReported) {
  EXPECT_FALSE(ImportFile("none.xml"));
  EXPECT_EQ(Lines(),
            "*** none.xml : error : Unable to locate XML document \"" + Path("none.xml") + "\"\n");
  EXPECT_FALSE(Caught([&] { return Maint().Import(nullptr, false); }));
  EXPECT_FALSE(Caught([&] { return Maint().Import("", false); }));
  EXPECT_EQ(Lines(), "***  : error : Unable to locate XML document \"\"\n");
}

TEST_F(ImportTest, IllFormedDocumentIsReported) {
  EXPECT_FALSE(Import("<library>"));
  std::string const line =
      "*** doc.xml : error : Format error in XML document \"" + Path("doc.xml") + "\"\n";
  EXPECT_EQ(Lines(), line);
  EXPECT_STREQ(Maint().GetLastErrorText(),
               ("Format error in XML document \"" + Path("doc.xml") + "\"").c_str());
  std::filesystem::create_directory(Folder() / "folder.xml");
  EXPECT_FALSE(ImportFile("folder.xml"));
  EXPECT_NE(Lines().find("Format error in XML document"), std::string::npos);
}

TEST_F(ImportTest, PathOfMoreThan259CharactersIsNotLookedFor) {
  std::string const longName = std::string(300, 'a') + ".xml";
  EXPECT_FALSE(ImportFile(longName));
  EXPECT_EQ(Lines(), "***  : error : Unable to locate XML document \"\"\n");
}

TEST_F(ImportTest, RootMustBeLibraryOrBank) {
  EXPECT_FALSE(Import("<Comp/>"));
  EXPECT_EQ(Lines(),
            Error("Unrecognized root node <Comp> - Import allows either <library> or <bank>"));
  MakeFile("doc.xml", "<Library/>");
  EXPECT_FALSE(
      Caught([&] { return Maint().ImportComponent(Path("doc.xml").c_str(), "B", false); }));
  EXPECT_EQ(Lines(),
            Error("Unrecognized root node <Library> - ImportComponent allows only <comp>"));
  EXPECT_TRUE(Import("<LIBRARY/>"));
  EXPECT_EQ(Lines(), "");
}

TEST_F(ImportTest, RunStartsWithAClearLog) {
  EXPECT_FALSE(Import("<x/>"));
  EXPECT_EQ(Maint().Log().ErrorCount(), 1);
  EXPECT_TRUE(Import("<library/>"));
  EXPECT_EQ(Maint().Log().ErrorCount(), 0);
  EXPECT_EQ(Maint().GetLastErrorText(), nullptr);
}

TEST_F(ImportTest, SecondNodeIsReportedOnceAndPassedOver) {
  EXPECT_FALSE(ImportLibrary("<memo> a</memo><memo> b</memo>"));
  EXPECT_EQ(Lines(), Error("Duplicate <memo> node found within <library> node"));
  EXPECT_FALSE(ImportLibrary("<memo/><MEMO/><memo/><memo/><memo/>"));
  EXPECT_EQ(Lines(), Error("Duplicate <MEMO> node found within <library> node"));
}

TEST_F(ImportTest, UnknownNodesAreReportedEachTime) {
  EXPECT_FALSE(ImportLibrary("<Foo/><foo/>words<![CDATA[x]]><?pi x?><COMMENT/>"));
  EXPECT_EQ(Lines(), Error("Unrecognized node <Foo> found within <library> node") +
                         Error("Unrecognized node <foo> found within <library> node") +
                         Error("Unrecognized node <#text> found within <library> node") +
                         Error("Unrecognized node <#cdata-section> found within <library> node") +
                         Error("Unrecognized node <pi> found within <library> node") +
                         Error("Unrecognized node <COMMENT> found within <library> node"));
}

TEST_F(ImportTest, CommentsArePassedOverAndNamesMatchInAnyCase) {
  EXPECT_TRUE(
      ImportLibrary("<!-- x --><VERSION>1</VERSION><!-- y --><BANK type='VANLAAR' "
                    "name='A'/>"));
  EXPECT_EQ(Lines(), "  VANLAAR:A\n");
  EXPECT_TRUE(Maint().BankExists("VANLAAR", "A"));
}

TEST_F(ImportTest, IncludedFileWithNothingButCommentsAddsNothing) {
  MakeFile("c.xml", "<!-- before --><bank type='VANLAAR' name='C'><!-- nothing --></bank>");
  MakeFile("d.xml", "<library><!-- nothing --></library>");
  EXPECT_TRUE(ImportLibrary("<import file='c.xml'/><bank type='VANLAAR' name='E'/>"));
  EXPECT_EQ(Lines(), "  VANLAAR:C\n  VANLAAR:E\n");
  EXPECT_TRUE(Maint().BankExists("VANLAAR", "C"));
  EXPECT_TRUE(Maint().Import(Path("d.xml").c_str(), false));
}

TEST_F(ImportTest, SilentRunStopsAtTheFirstError) {
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportLibrary("<foo/><bank type='VANLAAR' name='A'/>"));
  EXPECT_EQ(Lines(), "");
  EXPECT_EQ(Maint().Log().ErrorCount(), 1);
  EXPECT_FALSE(Maint().BankExists("VANLAAR", "A"));
  EXPECT_STREQ(Maint().GetLastErrorText(), "Unrecognized node <foo> found within <library> node");
}

TEST_F(ImportTest, LoudRunGoesThroughTheWholeDocument) {
  EXPECT_FALSE(ImportLibrary("<foo/><bank type='VANLAAR' name='A'/><bar/>"));
  EXPECT_EQ(Maint().Log().ErrorCount(), 2);
  EXPECT_TRUE(Maint().BankExists("VANLAAR", "A"));
}

// --- further documents ---------------------------------------------------------------------------

TEST_F(ImportTest, IncludedRootStandsInPlaceOfTheTag) {
  MakeFile("a.xml",
           "<!-- c --><bank type='VANLAAR' name='A'>" + Item("1234567 1234568") + "</bank>");
  EXPECT_TRUE(ImportLibrary("<import file='a.xml'/><bank type='NRTL' name='B'/>"));
  EXPECT_EQ(RealOf("VANLAAR", "A", {1234567, 1234568}, "aij"), 1.0);
  EXPECT_TRUE(Maint().BankExists("NRTL", "B"));
}

TEST_F(ImportTest, ChildrenOfTheFirstGroupStandInPlaceOfTheTag) {
  MakeFile("g.xml",
           "<?xml version='1.0'?><!-- c --><GROUP><bank type='VANLAAR' name='A'/><bank "
           "type='VANLAAR' name='B'/></GROUP>");
  EXPECT_TRUE(ImportLibrary("<Import file='g.xml'/><bank type='VANLAAR' name='C'/>"));
  for (char const* name : {"A", "B", "C"}) EXPECT_TRUE(Maint().BankExists("VANLAAR", name)) << name;
}

TEST_F(ImportTest, GroupWithADocumentTypeIsAGroup) {
  MakeFile("g.xml",
           "<!DOCTYPE group [<!ENTITY n 'A'>]><group><bank type='VANLAAR' name='&n;'/></group>");
  EXPECT_TRUE(ImportLibrary("<import file='g.xml'/>"));
  EXPECT_TRUE(Maint().BankExists("VANLAAR", "A"));
}

TEST_F(ImportTest, EmptyIncludesAddNothing) {
  MakeFile("g.xml", "<group/>");
  MakeFile("h.xml", "<group><!-- nothing --></group>");
  EXPECT_TRUE(ImportLibrary("<import file='g.xml'/><import file='h.xml'/><version>9</version>"));
  char description[101];
  char version[13];
  library_->GetDescriptionAndVersion(description, version);
  EXPECT_STREQ(version, "9");
}

TEST_F(ImportTest, OfTwoGroupsOnlyTheFirstIsRead) {
  MakeFile("g.xml",
           "<group><bank type='VANLAAR' name='A'/><group><bank type='VANLAAR' name='B'/></group>"
           "</group>");
  EXPECT_FALSE(ImportLibrary("<import file='g.xml'/>"));
  EXPECT_EQ(Lines(),
            "  VANLAAR:A\n*** g.xml : error : Unrecognized node <group> found within "
            "<library> node\n");
  EXPECT_FALSE(Maint().BankExists("VANLAAR", "B"));
  // Two roots side by side are not a document.
  MakeFile("two.xml", "<group/><group/>");
  EXPECT_FALSE(ImportLibrary("<import file='two.xml'/>"));
  EXPECT_EQ(Lines(), Error("Format error in XML document \"" + Path("two.xml") + "\""));
}

TEST_F(ImportTest, DeclarationOfAnIncludedRootIsAnUnknownNode) {
  MakeFile("a.xml", "<?xml version='1.0'?><bank type='VANLAAR' name='A'/>");
  EXPECT_FALSE(ImportLibrary("<import file='a.xml'/>"));
  EXPECT_EQ(Lines(),
            "*** a.xml : error : Unrecognized node <xml> found within <library> node\n"
            "  VANLAAR:A\n");
  EXPECT_TRUE(Maint().BankExists("VANLAAR", "A"));
}

TEST_F(ImportTest, GroupBelowARootIsNotSought) {
  MakeFile("a.xml", "<other><group><bank type='VANLAAR' name='A'/></group></other>");
  EXPECT_FALSE(ImportLibrary("<import file='a.xml'/>"));
  EXPECT_EQ(Lines(), "*** a.xml : error : Unrecognized node <other> found within <library> node\n");
}

TEST_F(ImportTest, TagWithoutFileEndsTheWalkInBothModes) {
  EXPECT_FALSE(ImportLibrary("<import File='a.xml'/><bank type='VANLAAR' name='A'/>"));
  EXPECT_EQ(Lines(), Error("Missing \"file\" attribute on \"import\" tag"));
  EXPECT_FALSE(Maint().BankExists("VANLAAR", "A"));
}

TEST_F(ImportTest, MissingAndIllFormedIncludesArePassedOver) {
  MakeFile("bad.xml", "<group>");
  EXPECT_FALSE(
      ImportLibrary("<import file='none.xml'/><import file='bad.xml'/><import file=''/>"
                    "<bank type='VANLAAR' name='A'/>"));
  EXPECT_EQ(Lines(), Error("Unable to locate XML document \"" + Path("none.xml") + "\"") +
                         Error("Format error in XML document \"" + Path("bad.xml") + "\"") +
                         Error("Unable to locate XML document \"\"") + "  VANLAAR:A\n");
  EXPECT_EQ(Documents().TopFile(), "doc.xml");
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportLibrary("<import file='none.xml'/><bank type='VANLAAR' name='B'/>"));
  EXPECT_FALSE(Maint().BankExists("VANLAAR", "B"));
}

TEST_F(ImportTest, RelativePathsStartBesideTheirDocument) {
  std::filesystem::create_directory(Folder() / "sub");
  MakeFile("sub/a.xml",
           "<group><bank type='VANLAAR' name='A'><import file='items.xml'/></bank></group>");
  MakeFile("sub/items.xml", "<group>" + Item("1234567 1234568") + "</group>");
  EXPECT_FALSE(ImportLibrary("<import file='sub/b.xml'/><import file='none\\..\\sub/./a.xml'/>"));
  EXPECT_EQ(RealOf("VANLAAR", "A", {1234567, 1234568}, "aij"), 1.0);
  EXPECT_EQ(Lines(),
            Error("Unable to locate XML document \"" + Path("sub/b.xml") + "\"") + "  VANLAAR:A\n");
}

TEST_F(ImportTest, EntryOfATopLevelDocumentStays) {
  std::filesystem::create_directory(Folder() / "sub");
  MakeFile("sub/first.xml", "<library/>");
  MakeFile("sub/second.xml", "<library><version>2</version></library>");
  EXPECT_TRUE(ImportFile("sub/first.xml"));
  EXPECT_TRUE(Caught([&] { return Maint().Import("second.xml", false); }));
  EXPECT_EQ(Documents().TopFile(), "second.xml");
  // A report outside an import is shown with the name of that document.
  Caught([&] {
    Maint().Log().ReportWarning("odd");
    return true;
  });
  EXPECT_EQ(Lines(), "*** second.xml : warning : odd\n");
}

TEST_F(ImportTest, TagsAreFollowedInBankAndItem) {
  MakeFile("tags.xml", "<group><aij> 4 </aij><aji> 5 </aji></group>");
  MakeFile("item.xml",
           "<item><keys>1234567 1234568</keys><import file='tags.xml'/><bij>6</bij></item>");
  EXPECT_FALSE(ImportBank("<import file='item.xml'/>" + Item("1234567 1234569")));
  EXPECT_EQ(Lines(),
            "  VANLAAR:MINE\n*** item.xml : error : Item \"1234567:1234568\" - Unrecognized "
            "node <bij> found within <item> node\n");
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aji"), 5.0);
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234569}, "aij"), 1.0);
}

// A document that includes itself would never end.
TEST_F(ImportTest, DocumentThatIncludesItselfIsAFormatError) {
  EXPECT_FALSE(Import("<library><import file='doc.xml'/><version>1</version></library>"));
  EXPECT_EQ(Lines(), Error("Format error in XML document \"" + Path("doc.xml") + "\""));
  MakeFile("a.xml", "<group><import file='b.xml'/></group>");
  MakeFile("b.xml", "<group><import file='a.xml'/></group>");
  EXPECT_FALSE(ImportLibrary("<import file='a.xml'/>"));
  EXPECT_EQ(Lines(),
            "*** b.xml : error : Format error in XML document \"" + Path("a.xml") + "\"\n");
  EXPECT_FALSE(ImportLibrary("<import file='./x/../a.xml'/><import file='a.xml'/>"));
}

TEST_F(ImportTest, OneHundredDocumentsMayBeOpen) {
  // Each document includes only the next one, and the last one has the version.
  auto const chain = [&](int documents) {
    for (int i = 1; i < documents; ++i) {
      std::string const next = i + 1 < documents
                                   ? "<import file='" + std::to_string(i + 1) + ".xml'/>"
                                   : "<version>" + std::to_string(documents) + "</version>";
      MakeFile(std::to_string(i) + ".xml", "<group>" + next + "</group>");
    }
    return ImportLibrary("<import file='1.xml'/>");
  };
  EXPECT_TRUE(chain(100));
  char description[101];
  char version[13];
  library_->GetDescriptionAndVersion(description, version);
  EXPECT_STREQ(version, "100");
  EXPECT_FALSE(chain(101));
  EXPECT_NE(Lines().find("Format error in XML document \"" + Path("100.xml") + "\""),
            std::string::npos)
      << Lines();
}

// The walk remembers one place to return to. An include directly within an include replaces it.
TEST_F(ImportTest, IncludeDirectlyWithinAnIncludeEndsTheOuterWalk) {
  MakeFile("a.xml",
           "<group><bank type='VANLAAR' name='A'/><import file='b.xml'/><bank "
           "type='VANLAAR' name='A2'/></group>");
  MakeFile("b.xml", "<group><bank type='VANLAAR' name='B'/></group>");
  EXPECT_TRUE(ImportLibrary("<import file='a.xml'/><bank type='VANLAAR' name='C'/>"));
  EXPECT_TRUE(Maint().BankExists("VANLAAR", "A"));
  EXPECT_TRUE(Maint().BankExists("VANLAAR", "B"));
  EXPECT_TRUE(Maint().BankExists("VANLAAR", "A2"));
  EXPECT_FALSE(Maint().BankExists("VANLAAR", "C")) << "the first document is not gone back to";
  EXPECT_EQ(Documents().TopFile(), "a.xml") << "its entry stays";
}

TEST_F(ImportTest, OuterIncludeGoesOnToFurtherTags) {
  MakeFile("a.xml",
           "<group><import file='b.xml'/><import file='b.xml'/><version>3</version></group>");
  MakeFile("b.xml", "<group/>");
  EXPECT_TRUE(ImportLibrary("<import file='a.xml'/>"));
  char description[101];
  char version[13];
  library_->GetDescriptionAndVersion(description, version);
  EXPECT_STREQ(version, "3");
}

TEST_F(ImportTest, NothingOutsideIsRead) {
  EXPECT_FALSE(
      Import("<!DOCTYPE library [<!ENTITY e SYSTEM 'file:///etc/hostname'>]><library>"
             "<version>&e;</version></library>"));
  EXPECT_EQ(Lines(), Error("Format error in XML document \"" + Path("doc.xml") + "\""));
}

// --- the iterator itself -------------------------------------------------------------------------

constexpr NameRow kNames[] = {
    {"a", NameMode::kOnce}, {"b", NameMode::kSkip}, {"c", NameMode::kAny}};
constexpr NameRow kOtherNames[] = {
    {"a", NameMode::kSkip}, {"b", NameMode::kOnce}, {"c", NameMode::kSkip}};

class IteratorTest : public ImportTest {
 protected:
  // The names that the walk returns, in order, with their indices in the table.
  std::string Walked(ImportIterator_i& walk) {
    std::string names;
    XmlNode node;
    std::size_t match = 0;
    Caught([&] {
      while (walk.NextNode(node, match)) names += std::string(node.Name()) + std::to_string(match);
      return true;
    });
    return names;
  }
  XmlNode RootOf(std::string_view text) {
    EXPECT_TRUE(document_.Load(text));
    return document_.Root();
  }
  XmlDocument document_;
  ImportRun run_{Maint()};
};

TEST_F(IteratorTest, ModesSayWhatIsHandedOut) {
  auto walk = ImportIterator_i::OverChildren(run_, RootOf("<r><c/><b/><A/><b/><c/></r>"), kNames,
                                             "<r>", ImportTags::kUnknown);
  EXPECT_EQ(Walked(walk), "c2A0c2");
  EXPECT_EQ(Lines(), "");
  EXPECT_FALSE(walk.Aborted());
}

TEST_F(IteratorTest, AttributesHaveTheirOwnWords) {
  auto walk = ImportIterator_i::OverAttributes(run_, RootOf("<r a='1' A='2' x='3' c='4' C='5'/>"),
                                               kNames, "component <r>");
  EXPECT_EQ(Walked(walk), "a0c2C2");
  EXPECT_EQ(Lines(),
            "***  : error : Duplicate \"A\" attribute found within component <r> node\n"
            "***  : error : Unrecognized attribute \"x\" found within component <r> node\n");
}

TEST_F(IteratorTest, ResetWalksTheSameListWithOtherModes) {
  auto walk =
      ImportIterator_i::OverAttributes(run_, RootOf("<r a='1' b='2' c='3' x='4'/>"), kNames, "r");
  EXPECT_EQ(Walked(walk), "a0c2");
  EXPECT_NE(Lines(), "");
  walk.ResetWalk(kOtherNames);
  EXPECT_EQ(Walked(walk), "b1") << "counters begin anew";
  EXPECT_EQ(Lines(), "***  : error : Unrecognized attribute \"x\" found within r node\n");
  walk.ResetWalk(kNames);
  EXPECT_EQ(Walked(walk), "a0c2");
}

TEST_F(IteratorTest, TagIsUnknownWhereNoneIsFollowed) {
  auto walk = ImportIterator_i::OverChildren(run_, RootOf("<r><import file='x.xml'/></r>"), kNames,
                                             "<r>", ImportTags::kUnknown);
  EXPECT_EQ(Walked(walk), "");
  EXPECT_EQ(Lines(), "***  : error : Unrecognized node <import> found within <r> node\n");
}

TEST_F(IteratorTest, EmptyListEndsAtOnce) {
  auto walk =
      ImportIterator_i::OverChildren(run_, RootOf("<r/>"), kNames, "<r>", ImportTags::kFollowed);
  EXPECT_EQ(Walked(walk), "");
  EXPECT_FALSE(walk.Aborted());
}

TEST_F(IteratorTest, VerdictToStopAbortsTheWalk) {
  Maint().SetLogLevel(0);
  auto walk = ImportIterator_i::OverChildren(run_, RootOf("<r><c/><x/><c/></r>"), kNames, "<r>",
                                             ImportTags::kUnknown);
  EXPECT_EQ(Walked(walk), "c2");
  EXPECT_TRUE(walk.Aborted());
  XmlNode node;
  std::size_t match = 0;
  EXPECT_FALSE(walk.NextNode(node, match)) << "and it stays ended";
}

}  // namespace
}  // namespace zel
