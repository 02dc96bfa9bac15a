// Memos set by zel memo, which have the notes of a library.
#include "desk/notes/note_lines.h"
#include "tests/zel/change_fixture.h"

namespace zel::test {
namespace {

using desk::NoteLines;
using nlohmann::json;

TEST(NoteLinesTest, TextIsReplacedAndNotesAreKept) {
  struct Row {
    char const* old;
    char const* text;
    std::size_t kept;
    char const* now;
  };
  for (Row const& row :
       {Row{"", "x", 0, "x"}, Row{"old", "", 0, ""},
        Row{"old\nref 7: A\nmore", "x", 1, "x\nref 7: A\n"},
        Row{"ref 7: A\nref 8: B", "two\nlines\n", 2, "two\nlines\nref 7: A\nref 8: B"},
        Row{"ref 7: A\r\nold\r\nref 8: B", "", 2, "ref 7: A\r\nref 8: B"},
        Row{"ref 8: B\nref 7: A\nparameter NRTL bij [K]: e", "REF 7: C\nx", 2,
            "REF 7: C\nx\nref 8: B\nparameter NRTL bij [K]: e"},
        Row{"ref 7: A\nx", "ref 7: A\nx", 0, "ref 7: A\nx"}}) {
    NoteLines lines(row.old);
    EXPECT_EQ(lines.ReplaceText(row.text), row.kept) << row.old;
    EXPECT_EQ(lines.ToText(), row.now) << row.old;
  }
}

class MemoTest : public ChangeTest {
 protected:
  std::string Memo(std::string const& bank = "") const {
    json const memo = Json("memo sample.lb1" + bank)["memo"];
    return memo.is_null() ? "" : memo.get<std::string>();
  }
};

TEST_F(MemoTest, ANewTextKeepsCitationsAndMeanings) {
  NoteLines const old(Memo());
  ASSERT_GT(old.Count(), 10U);
  json const citations = Json("refs sample.lb1")["references"];
  json const set = Json("memo sample.lb1 --set 'Checked in May'");
  EXPECT_EQ(set["notes_kept"], old.Count());
  EXPECT_FALSE(set.contains("notes_removed"));
  EXPECT_EQ(set["memo"], Memo());
  EXPECT_EQ(NoteLines(Memo()).WithoutNotes(), "Checked in May\n");
  EXPECT_EQ(NoteLines(Memo()).Count(), old.Count());
  EXPECT_EQ(Json("refs sample.lb1")["references"], citations);
  EXPECT_EQ(Good("memo sample.lb1 --set ''"),
            "memo        -\nnotes kept  " + std::to_string(old.Count()) + "\n");
  EXPECT_EQ(NoteLines(Memo()).WithoutNotes(), "");
  EXPECT_EQ(Json("refs sample.lb1")["references"], citations);
}

TEST_F(MemoTest, AFileReplacesTheNotesThatItHas) {
  std::string const memo = Memo();
  MakeFile("memo.txt", memo);
  EXPECT_FALSE(Json("memo sample.lb1 --file memo.txt").contains("notes_kept"));
  EXPECT_EQ(Memo(), memo);
  MakeFile("memo.txt", "ref 91: Another\nwords");
  json const set = Json("memo sample.lb1 --file memo.txt");
  EXPECT_EQ(set["notes_kept"], NoteLines(memo).Count() - 1);
  EXPECT_EQ(Memo().substr(0, 22), "ref 91: Another\nwords\n");
  EXPECT_EQ(Row(Json("refs sample.lb1")["references"], "code", 91)["citation"], "Another");
}

TEST_F(MemoTest, AllAndClearReplaceNotesToo) {
  std::size_t const count = NoteLines(Memo()).Count();
  json const dry = Json("memo sample.lb1 --set x --all --dry-run");
  EXPECT_EQ(dry["notes_removed"], count);
  json const set = Json("memo sample.lb1 --set 'ref 91: Another' --all");
  EXPECT_EQ(set["notes_removed"], count - 1);
  EXPECT_EQ(Memo(), "ref 91: Another");
  EXPECT_EQ(Json("memo sample.lb1 --clear")["notes_removed"], 1);
  EXPECT_EQ(Memo(), "");
  EXPECT_EQ(Zel("memo sample.lb1 --all").status, 2);
}

TEST_F(MemoTest, TheMemoOfABankKeepsItsNotes) {
  Good("refs sample.lb1 add 91 'Of the bank' --bank NRTL");
  EXPECT_EQ(Json("memo sample.lb1 --bank NRTL --set x")["notes_kept"], 1);
  EXPECT_EQ(Memo(" --bank NRTL"), "x\nref 91: Of the bank");
  Good("memo sample.lb1 --bank NRTL --set x --all");
  EXPECT_EQ(Memo(" --bank NRTL"), "x");
}

// Nothing is changed, and the message says what --all would do.
TEST_F(MemoTest, TextAndNotesThatDoNotFitAreRefused) {
  std::string const memo = Memo();
  MakeFile("long.txt", std::string(3999, 'x'));
  Outcome const outcome = Zel("memo sample.lb1 --file long.txt");
  EXPECT_EQ(outcome.status, 1);
  std::string const expected = "the text has 3999 characters, and the " +
                               std::to_string(NoteLines(memo).Count()) +
                               " notes that are kept need ";
  EXPECT_NE(outcome.err.find(expected), std::string::npos) << outcome.err;
  EXPECT_NE(outcome.err.find("--all replaces the notes, too"), std::string::npos) << outcome.err;
  EXPECT_EQ(Memo(), memo);
  Good("memo sample.lb1 --file long.txt --all");
  EXPECT_EQ(Memo().size(), 3999U);
}

}  // namespace
}  // namespace zel::test
