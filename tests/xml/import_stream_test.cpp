// Imports of documents that are larger than what is read at once: memory, lines, changes meanwhile.
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "tests/support/sanitizers.h"
#include "tests/xml/import_fixture.h"
#include "zelaccess/Interchange.h"

namespace zel {
namespace {

class ImportStreamTest : public test::ImportTest {
 protected:
  // A bank of items, each on four lines, in blocks of 400 keys; item `odd` has a malformed number.
  void MakePairs(int items, int odd = -1, int blocks = 1'000'000) const {
    std::ofstream file(Path("doc.xml"), std::ios::binary);
    file << "<library>\n<bank type='VANLAAR' name='MINE'>\n";
    for (int i = 0; i < items; ++i) {
      file << "<item>\n<keys> " << 1000000 + i / 400 % blocks << " " << 2000000 + i % 400
           << " </keys>\n<aij> " << (i == odd ? "1x" : "1.5") << " </aij>\n</item>\n";
    }
    file << "</bank>\n</library>\n";
  }
  static long KilobytesOf(char const* row) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
      if (line.starts_with(row)) return std::stol(line.substr(std::string_view(row).size()));
    }
    return -1;
  }
};

TEST_F(ImportStreamTest, LinesAreThoseOfTheDocumentAtAnySize) {
  constexpr int kItems = 30'000;
  MakePairs(kItems, kItems - 1);
  Maint().SetImportChecks(importChecked);
  EXPECT_FALSE(ImportFile("doc.xml"));
  EXPECT_NE(Lines().find("line 120001: <aij> \"1x\" is not a number"), std::string::npos)
      << Lines();
  EXPECT_NE(Lines().find("<bank> of line 2 (VANLAAR:MINE): 1 of 30000 items not stored, on line "
                         "119999"),
            std::string::npos)
      << Lines();
  ZelImportCounts counts;
  Maint().GetImportCounts(counts);
  EXPECT_EQ(counts.itemsFound, kItems);
  EXPECT_EQ(counts.itemsStored, kItems - 1);
}

// What follows an item that cannot be read is found, though it is never walked.
TEST_F(ImportStreamTest, WhatTheWalkDoesNotReachIsCounted) {
  std::string banks;
  for (int i = 0; i < 3000; ++i) {
    banks += "<bank type='VANLAAR' name='B" + std::to_string(i) + "'><item/><item/></bank>\n";
  }
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportLibrary("<nothing/>\n" + banks));
  ZelImportCounts counts;
  Maint().GetImportCounts(counts);
  EXPECT_EQ(counts.banksFound, 3000);
  EXPECT_EQ(counts.itemsFound, 6000);
  EXPECT_EQ(counts.banksStored, 0);
}

// Replaces the end of the document as soon as its bank begins.
class Changer final : public ZelLogSink {
 public:
  explicit Changer(std::string path) : path_(std::move(path)) {}
  void Line(ZelLogLine const& line) override { lines += std::string(line.message) + "\n"; }
  void BankBegins(char const*, char const*) override {
    std::fstream file(path_, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(-200, std::ios::end);
    file << "7777777";
  }

  std::string lines;

 private:
  std::string path_;
};

TEST_F(ImportStreamTest, DocumentThatChangesMeanwhileIsNeverMixed) {
  for (zelImportChecks const checks : {importUnchecked, importChecked}) {
    MakePairs(10'000);
    Changer changer(Path("doc.xml"));
    Maint().SetImportChecks(checks);
    Maint().SetLogSink(&changer);
    EXPECT_FALSE(Maint().Import(Path("doc.xml").c_str(), true));
    std::string const reason = checks == importChecked ? ": it changed while it was read" : "";
    EXPECT_EQ(changer.lines,
              "Format error in XML document \"" + Path("doc.xml") + "\"" + reason + "\n");
    ZelImportCounts counts;
    Maint().GetImportCounts(counts);
    EXPECT_EQ(counts.errors, 1);
    EXPECT_TRUE(Maint().DeleteBank("VANLAAR", "MINE"));
  }
}

// The rest of the document is not read after the change, also where the change is met within a text
// that fills more than what is read at once.
TEST_F(ImportStreamTest, DocumentThatChangesWithinALongTextIsLeftAlone) {
  for (std::size_t const size : {70'000U, 200'000U, 400'000U}) {
    MakeFile("doc.xml", "<bank type='VANLAAR' name='MINE'><memo>" + std::string(size, 'm') +
                            "</memo><item><keys>1234567 1234568</keys></item></bank>");
    Changer changer(Path("doc.xml"));
    Maint().SetLogSink(&changer);
    EXPECT_FALSE(Maint().Import(Path("doc.xml").c_str(), false));
    EXPECT_EQ(changer.lines, "Format error in XML document \"" + Path("doc.xml") + "\"\n");
    char memo[4000] = "x";
    Maint().GetBankMemo("VANLAAR", "MINE", memo);
    EXPECT_STREQ(memo, "");
    EXPECT_TRUE(Maint().DeleteBank("VANLAAR", "MINE"));
  }
}

#if !ZEL_ADDRESS_SANITIZER && !ZEL_THREAD_SANITIZER
// A tree of this document takes 16 times its size. The items have few keys, so that the library
// stays small.
TEST_F(ImportStreamTest, MemoryDoesNotGrowWithTheDocument) {
  MakePairs(400'000, -1, 1);
  constexpr long kMost = 8'000;  // KB, of a document of 24 MB
  pid_t const child = ::fork();
  if (child == 0) {
    long const before = KilobytesOf("VmRSS:");
    if (!ImportFile("doc.xml", true)) ::_exit(2);
    ::_exit(KilobytesOf("VmHWM:") - before < kMost ? 0 : 1);
  }
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

// Nor with what it does not hold, if that is not reported, nor with sections that follow each
// other.
TEST_F(ImportStreamTest, MemoryDoesNotGrowWithWhatIsPassedOver) {
  std::string text = "<library><x/>";
  for (int i = 0; i < 1'000'000; ++i) text += "<x><item/></x>\n";
  text += "<y>";
  for (int i = 0; i < 200'000; ++i) text += "<![CDATA[" + std::string(40, 'y') + "]]>";
  text += "</y></library>";
  MakeFile("doc.xml", text);
  constexpr long kMost = 4'000;  // KB, of a document of 25 MB
  pid_t const child = ::fork();
  if (child == 0) {
    long const before = KilobytesOf("VmHWM:");
    ZelDocumentContents contents;
    bool const isRead = ReadDocumentContents(Path("doc.xml").c_str(), contents);
    if (!isRead || contents.items != 1'000'000) ::_exit(2);
    Maint().SetLogLevel(0);
    if (ImportFile("doc.xml")) ::_exit(3);
    ::_exit(KilobytesOf("VmHWM:") - before < kMost ? 0 : 1);
  }
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}
#endif

}  // namespace
}  // namespace zel
