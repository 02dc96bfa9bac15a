// Documents that import others: what of them is read, and the stack of documents after an import
// that ended in any way.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/xml/import_fixture.h"

namespace zel {
namespace {

constexpr char kItem[] = "<item><keys>1234567 1234568</keys><aij>1</aij></item>";

class ImportIncludeTest : public test::ImportTest {
 protected:
  static std::string ErrorIn(std::string const& file, std::string const& text) {
    return "*** " + file + " : error : " + text + "\n";
  }
  static std::size_t OpenDescriptors() {
    std::size_t count = 0;
    for (auto const& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
      count += entry.path().empty() ? 0 : 1;
    }
    return count;
  }
};

// --- what is read --------------------------------------------------------------------------------

TEST_F(ImportIncludeTest, TopNodesOfARootThatIsNoGroupAreWalked) {
  MakeFile("a.xml", "<!-- c --><?p q?>\n<bank type='VANLAAR' name='A'/><!-- d --><?z?>\n");
  EXPECT_FALSE(ImportLibrary("<import file='a.xml'/><bank type='VANLAAR' name='B'/>"));
  EXPECT_EQ(Lines(), ErrorIn("a.xml", "Unrecognized node <p> found within <library> node") +
                         "  VANLAAR:A\n" +
                         ErrorIn("a.xml", "Unrecognized node <z> found within <library> node") +
                         "  VANLAAR:B\n");
}

TEST_F(ImportIncludeTest, NodesOutsideAGroupAreIgnored) {
  MakeFile("a.xml",
           "<?xml version='1.0'?><?p q?><Group><bank type='VANLAAR' name='A'/></Group><?z?>");
  EXPECT_TRUE(ImportLibrary("<import file='a.xml'/><bank type='VANLAAR' name='B'/>"));
  EXPECT_EQ(Lines(), "  VANLAAR:A\n  VANLAAR:B\n");
}

// A name of the table may come once from all documents of a list.
TEST_F(ImportIncludeTest, NamesAreCountedThroughTheDocumentsOfAList) {
  MakeFile("a.xml", "<group><version>1</version></group>");
  EXPECT_FALSE(ImportLibrary("<import file='a.xml'/><version>2</version><version>3</version>"));
  EXPECT_EQ(Lines(), Error("Duplicate <version> node found within <library> node"));
}

// The place to return to is lost with each document that is included directly.
TEST_F(ImportIncludeTest, ThreeDocumentsDirectlyWithinEachOther) {
  MakeFile("a.xml", "<group><import file='b.xml'/><bank type='VANLAAR' name='A'/></group>");
  MakeFile("b.xml", "<group><import file='c.xml'/><bank type='VANLAAR' name='B'/></group>");
  MakeFile("c.xml", "<group><bank type='VANLAAR' name='C'/></group>");
  EXPECT_TRUE(ImportLibrary("<import file='a.xml'/><bank type='VANLAAR' name='D'/>"));
  EXPECT_EQ(Lines(), "  VANLAAR:C\n  VANLAAR:B\n");
  EXPECT_EQ(Documents().TopFile(), "b.xml");
  Documents().Pop();
  EXPECT_EQ(Documents().TopFile(), "a.xml");
}

// A document that was not gone back to is no longer open when the list ends.
TEST_F(ImportIncludeTest, DocumentThatWasLostMayBeIncludedAgain) {
  MakeFile("a.xml", "<group><import file='b.xml'/></group>");
  MakeFile("b.xml", "<group>" + std::string(kItem) + "</group>");
  std::string const bank = "' type='VANLAAR'><import file='a.xml'/></bank>";
  EXPECT_TRUE(ImportLibrary("<bank name='A" + bank + "<bank name='B" + bank)) << Lines();
  for (char const* name : {"A", "B"}) {
    EXPECT_EQ(RealOf("VANLAAR", name, {1234567, 1234568}, "aij"), 1.0) << name;
  }
}

// What looks like a part below an item is none, whatever was at its depth before.
TEST_F(ImportIncludeTest, PartsBelowAnItemAreNotCounted) {
  EXPECT_FALSE(
      ImportBank("<x><y><item/></y></x><item><keys>1234567 1234568</keys><foo><item/>"
                 "</foo></item>"));
  ZelImportCounts counts;
  Maint().GetImportCounts(counts);
  EXPECT_EQ(counts.itemsFound, 2);
  EXPECT_EQ(counts.itemsStored, 1);
}

TEST_F(ImportIncludeTest, ItemOfSeveralDocumentsCountsAsStored) {
  MakeFile("tags.xml", "<group><aij> 4 </aij></group>");
  Maint().SetImportChecks(importStrict);
  EXPECT_TRUE(ImportBank("<item><import file='tags.xml'/><keys>1234567 1234568</keys></item>"));
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aij"), 4.0);
  ZelImportCounts counts;
  Maint().GetImportCounts(counts);
  EXPECT_EQ(counts.itemsStored, 1);
  EXPECT_EQ(counts.documents, 2);
}

TEST_F(ImportIncludeTest, SilentRunEndsAtAnIncludeThatCannotBeRead) {
  MakeFile("bad.xml", "<group>");
  Maint().SetLogLevel(0);
  for (std::string const file : {"file='bad.xml'", "file='none.xml'", ""}) {
    EXPECT_FALSE(ImportLibrary("<import " + file + "/><bank type='VANLAAR' name='A'/>"));
    EXPECT_EQ(Maint().Log().ErrorCount(), 1) << file;
    EXPECT_FALSE(Maint().BankExists("VANLAAR", "A")) << file;
    EXPECT_EQ(Documents().TopFile(), "doc.xml") << file;
  }
}

// --- the stack -----------------------------------------------------------------------------------

TEST_F(ImportIncludeTest, EntryOfADocumentThatCannotBeImportedStays) {
  MakeFile("bad.xml", "<library>");
  MakeFile("odd.xml", "<odd/>");
  for (char const* file : {"none.xml", "bad.xml", "odd.xml"}) {
    EXPECT_FALSE(ImportFile(file));
    EXPECT_EQ(Documents().TopFile(), file);
  }
}

// The next import resolves a relative path against the folder of the document in which this one
// ended.
TEST_F(ImportIncludeTest, AbortWithinAnIncludeLeavesItsEntry) {
  std::filesystem::create_directory(Folder() / "sub");
  MakeFile("sub/a.xml", "<group><foo/></group>");
  MakeFile("sub/next.xml", "<library/>");
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportLibrary("<import file='sub/a.xml'/>"));
  EXPECT_EQ(Documents().TopFile(), "a.xml");
  EXPECT_TRUE(Maint().Import("next.xml", false));
  EXPECT_EQ(Documents().TopFile(), "next.xml");
  Documents().Pop();
  Documents().Pop();
  EXPECT_EQ(Documents().TopFile(), "doc.xml");
}

// A component without an identity ends its bank in the same way, without a report.
TEST_F(ImportIncludeTest, EndOfABankWithinAnIncludeLeavesItsEntry) {
  MakeFile("a.xml", "<group><comp/></group>");
  EXPECT_TRUE(ImportBank("<import file='a.xml'/>", "type='PURECOMP' name='P'"));
  EXPECT_EQ(Documents().TopFile(), "a.xml");
}

TEST_F(ImportIncludeTest, BlockErrorWithinAnIncludeLeavesNothingOpen) {
  std::string const pad = "<!--" + std::string(100'000, 'x') + "-->";
  MakeFile("a.xml", "<group>" + pad + "<bank type='VANLAAR' name='A'>" + kItem + "</bank></group>");
  MakeFile("doc.xml", "<library>" + pad + "<import file='a.xml'/></library>");
  maint_.reset();
  library_->CloseLibFile();
  library_ = std::make_unique<LibFile_i>(files_, accRead, "/i.lb1", "Mine");
  ASSERT_EQ(library_->OpenExisting({true, ""}, nullptr), openOk);
  maint_ = std::make_unique<LibMaint_i>(library_.get());
  std::size_t const before = OpenDescriptors();
  EXPECT_THROW(ImportFile("doc.xml"), unsigned long);
  EXPECT_EQ(OpenDescriptors(), before);
  EXPECT_EQ(Documents().TopFile(), "a.xml");
}

}  // namespace
}  // namespace zel
