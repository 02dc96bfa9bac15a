// Texts that a document could not hold are refused where they are entered.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

class DocumentTextsTest : public ZelTest {
 protected:
  // "own.lb1" is as it was, or is still missing.
  void Refuses(std::string const& words, std::string const& message) const {
    auto const before = Own();
    Outcome const outcome = Zel(words);
    EXPECT_NE(outcome.status, 0) << words;
    std::string said;  // without the breaks of lines in a table
    for (char const c : outcome.err + outcome.out) {
      bool const isBlank = c == ' ' || c == '\n';
      if (!isBlank) said += c;
      if (isBlank && !said.empty() && said.back() != ' ') said += ' ';
    }
    EXPECT_NE(said.find(message + ", which a document cannot hold"), std::string::npos)
        << words << "\n"
        << outcome.err << outcome.out;
    EXPECT_EQ(Own(), before) << words;
  }
  // The library can be exported, and what is read back is the same.
  void ComesBack() const {
    Good("export own.lb1 -o own.xml");
    Good("import back.lb1 own.xml --create");
    Good("diff own.lb1 back.lb1");
    std::filesystem::remove(Folder() / "back.lb1");
    std::filesystem::remove(Folder() / "back.lb2");
  }
  std::string ATable(std::string const& head, std::string const& cell) const {
    MakeFile("t.csv", "number,ids,MW," + head + "\n7,XXX,30,\"" + cell + "\"\n");
    return "import own.lb1 --table t.csv --bank PURECOMP:MY";
  }

 private:
  std::string Own() const {
    std::string bytes;
    for (char const* name : {"own.lb1", "own.lb2"}) {
      bool const isThere = std::filesystem::exists(Folder() / name);
      bytes += isThere ? FileText(Folder() / name) : std::string("none");
    }
    return bytes;
  }
};

TEST_F(DocumentTextsTest, OfALibrary) {
  Refuses("create own.lb1 --description 'R&D library'", "the description has \"&\"");
  Refuses("create own.lb1 --library-version '<2'", "the version has \"<\"");
  Good("create own.lb1 --description 'a > \"b\"'");
  Refuses("set own.lb1 --description 'R&amp;D'", "the description has \"&\"");
  MakeFile("memo.txt", "a ]]> b");
  Refuses("memo own.lb1 --file memo.txt", "the memo has \"]]>\"");
  MakeFile("memo.txt", "<b>M&M</b>\n\t]] >\n");
  Good("memo own.lb1 --file memo.txt");
  ComesBack();
}

// Memos can have characters for which XML has no place at all.
TEST_F(DocumentTextsTest, ControlCharactersOfMemosAreLeftOut) {
  Good("copy sample.lb1 own.lb1 --create --bank OCTANE");
  Good("memo own.lb1 --set \"$(printf 'a\\033[31m\\001b\\tc\\nd')\" --all");
  Good("memo own.lb1 --bank OCTANE --set \"$(printf 'e\\037f')\" --all");
  EXPECT_EQ(Json("export own.lb1 -o own.xml")["control_characters_left_out"], 3);
  Good("import back.lb1 own.xml --create");
  EXPECT_EQ(Json("memo back.lb1")["memo"], "a[31mb\tc\nd");
  EXPECT_EQ(Json("memo back.lb1 --bank OCTANE")["memo"], "ef");
  Outcome const printed = Zel("export own.lb1 -o -");
  EXPECT_EQ(printed.status, 0);
  EXPECT_EQ(printed.err, "zel: left out: 3 control characters, which documents cannot hold\n");
  EXPECT_EQ(printed.out.find('\x1b'), std::string::npos);
  EXPECT_FALSE(Json("export crc.lb1 -o crc.xml").contains("control_characters_left_out"));
}

// The text that flatten makes of the names of its sources.
TEST_F(DocumentTextsTest, OfAMergedLibrary) {
  Good("copy crc.lb1 'R&D.lb1' --create");
  Good("flatten 'R&D.lb1' -o own.lb1 --components ETHANOL WATER");
  EXPECT_EQ(Json("info own.lb1")["description"], "Merged from 1 library");
  ComesBack();
  Good("flatten 'R&D.lb1' perry.lb1 -o own.lb1 --components ETHANOL WATER --force");
  EXPECT_EQ(Json("info own.lb1")["description"], "Merged from 2 libraries");
}

TEST_F(DocumentTextsTest, OfComponents) {
  Good("create own.lb1");
  Refuses(ATable("name", "M&M"), "a name has \"&\"");
  Refuses(ATable("name", "<b>x</b>"), "a name has \"<\"");
  Refuses(ATable("smiles", "C<C"), "a SMILES text has \"<\"");
  Refuses(ATable("formula", "C\"\"H4"), "a formula has a quotation mark");
  MakeFile("t.csv", "number,ids,MW\n7,A&B,30\n");
  Refuses("import own.lb1 --table t.csv --bank PURECOMP:MY", "an ID has \"&\"");
  MakeFile("t.csv", "number,ids,MW\n7,XXX,30\n");
  for (std::string const c : {"&", "<", "\""}) {
    Refuses("import own.lb1 --table t.csv --bank 'PURECOMP:A" + c + "B'",
            "the bank name A" + c + "B has " + (c == "\"" ? "a quotation mark" : "\"" + c + "\""));
  }
  Good(ATable("name", "a > b"));
  ComesBack();
}

TEST_F(DocumentTextsTest, OfItems) {
  Good("create own.lb1");
  MakeFile("t.csv", "item 1,item 2,name\n1,1,A&B\n");
  Refuses("import own.lb1 --table t.csv --bank GRPDESC:G", "name has \"&\"");
  MakeFile("t.csv", "item,libnum\nA<B,1\n");
  Refuses("import own.lb1 --table t.csv --bank MAPORW:G", "a key has \"<\"");
  MakeFile("t.csv", "item 1,item 2,name\n1,1,A>B\n");
  Good("import own.lb1 --table t.csv --bank GRPDESC:G");
  Refuses("edit own.lb1 GRPDESC 1 1 name='A<B'", "name has \"<\"");
  ComesBack();
}

// A document can bring such a name; the component can still be edited.
TEST_F(DocumentTextsTest, WhatIsThereStays) {
  MakeFile("c.xml",
           "<bank type='PURECOMP' name='MY'><comp><id number='7' name='M&amp;M'> XXX </id>"
           "<property name='MW' value='30' /></comp></bank>");
  Good("import own.lb1 c.xml --create");
  MakeFile("t.csv", "number,ids,MW,name\n7,XXX,31,M&M\n");
  Good("import own.lb1 --table t.csv --bank PURECOMP:MY");
  EXPECT_EQ(Json("show own.lb1 MY XXX")["name"], "M&M");
}

}  // namespace
}  // namespace zel::test
