// Citations of reference codes: zel refs, and what other commands show of them.
#include "desk/annotate/bibtex.h"
#include "desk/annotate/latex_text.h"
#include "desk/notes/note_lines.h"
#include "desk/words/failure.h"
#include "tests/zel/change_fixture.h"

namespace zel::test {
namespace {

using desk::NoteKind;
using desk::NoteLines;
using nlohmann::json;

bool Has(std::string const& text, std::string const& part) {
  return text.find(part) != std::string::npos;
}

TEST(NoteLinesTest, NotesAreReplacedAmongLinesThatStay) {
  std::string const memo =
      "Checked in May.\n  REF 7:  A book ; doi:10.1/x \r\nref x: no code\nref 07: zero\nref 8:\n"
      "parameter bij [K]: energy\nequation: a: b";
  NoteLines lines(memo);
  EXPECT_EQ(lines.ToText(), memo);
  EXPECT_EQ(lines.Count(), 3U);
  EXPECT_EQ(lines.Find(NoteKind::kReference, "7")->text, "A book ; doi:10.1/x");
  EXPECT_EQ(lines.Find(NoteKind::kParameter, "BIJ")->unit, "K");
  EXPECT_EQ(lines.Find(NoteKind::kEquation, "")->text, "a: b");
  lines.Set({NoteKind::kReference, "7", "", "Another"});
  lines.Set({NoteKind::kReference, "9", "", "New"});
  EXPECT_EQ(lines.ToText(),
            "Checked in May.\nref 7: Another\nref x: no code\nref 07: zero\nref 8:\n"
            "parameter bij [K]: energy\nequation: a: b\nref 9: New");
  EXPECT_TRUE(lines.Remove(NoteKind::kReference, "9"));
  EXPECT_FALSE(lines.Remove(NoteKind::kReference, "9"));
  EXPECT_EQ(lines.ToText().substr(lines.ToText().size() - 14), "equation: a: b");
  NoteLines alone("");
  alone.Set({NoteKind::kReference, "1", "", "x"});
  EXPECT_EQ(alone.ToText(), "ref 1: x");
  EXPECT_TRUE(alone.Remove(NoteKind::kReference, "1"));
  EXPECT_EQ(alone.ToText(), "");
}

TEST(NoteLinesTest, TextsThatAMemoCannotHoldAreRefused) {
  EXPECT_EQ(desk::NoteText("  two\r\n\tlines \xC5\xA0 ", "x"), "two lines \xC5\xA0");
  for (char const* text :
       {"a\x01", "\xC5", "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "a]]>b"}) {
    EXPECT_THROW(desk::NoteText(text, "x"), desk::Failure) << text;
  }
}

TEST(BibTeXTest, EntriesOfEveryForm) {
  std::string const text =
      "A text before.\n@string{aiche = \"AIChE \" # {J.}}\n@comment{ @article{no, } }\n"
      "@Article{ref47,\n  author = {Hankinson, R. W. and Thomson, G. H.},\n"
      "  title = \"A {N}ew Correlation\",\n  journal = aiche, volume = 25, year = 1979,\n"
      "  pages = {653--663}, doi = {10.1002/aic.690250412}, }\n"
      "@book(x, author = {Bruce E. Poling and others}, title={The Properties of Gases},\n"
      "  edition = {5th}, publisher = {McGraw-Hill}, year = 2000, refcode = {41})\n"
      "@misc{nist, author = {{NIST and partners}}, month = jan, note={A {\\\"U}bung \\& 5\\%}}\n";
  std::vector<desk::BibEntry> const entries = desk::ParseBibTeX(text, "t.bib");
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].line, 4U);
  EXPECT_EQ(entries[0].type, "article");
  EXPECT_EQ(entries[0].key, "ref47");
  EXPECT_EQ(entries[0].Field("doi"), "10.1002/aic.690250412");
  EXPECT_EQ(desk::CitationText(entries[0]),
            "Hankinson, R. W., and G. H. Thomson, A New Correlation, AIChE J. 25 (1979) 653-663");
  EXPECT_EQ(desk::CitationText(entries[1]),
            "Poling, Bruce E., and others, The Properties of Gases, 5th ed., McGraw-Hill 2000");
  EXPECT_EQ(entries[1].Field("refcode"), "41");
  EXPECT_EQ(entries[2].Field("month"), "January");
  EXPECT_EQ(desk::CitationText(entries[2]),
            "NIST and partners, A \xC3\x9C"
            "bung & 5%");
}

TEST(BibTeXTest, ErrorsSayTheLine) {
  struct Row {
    char const* text;
    char const* why;
  };
  for (Row const& row :
       {Row{"\n@article{a, title = {x", "t.bib, line 2: the brace { is never closed"},
        Row{"@article{a, title = \"x}\"}", "a brace } is closed"},
        Row{"@article{a, title = \"x", "the quote \" is never closed"},
        Row{"@article{a,\n title {x}}", "t.bib, line 2: \"=\" is missing"},
        Row{"@article{a,\n title = word}", "no @string has set it"},
        Row{"@article{a, x = {1}, x = {2}}", "the field x occurs twice"},
        Row{"@misc{a}\n@misc{A}", "t.bib, line 2: an earlier entry has the key A"},
        Row{"@misc{a, x = {1}", "\"}\" is missing at the end"},
        Row{"@article a", "@article is not followed by {"},
        Row{"@", "the type of an entry is missing"},
        Row{"@misc{a, x = {\xC0}}", "is not in UTF-8"}}) {
    try {
      desk::ParseBibTeX(row.text, "t.bib");
      ADD_FAILURE() << row.text;
    } catch (desk::Failure const& failure) {
      EXPECT_TRUE(Has(failure.what(), row.why)) << row.text << "\n" << failure.what();
    }
  }
  EXPECT_TRUE(desk::ParseBibTeX("no entries", "t.bib").empty());
}

TEST(LatexTextTest, AccentsAndLettersBecomeCharacters) {
  for (auto const& [latex, plain] : std::vector<std::pair<std::string, std::string>>{
           {"Pl{\\\"o}cker", "Plöcker"},
           {"Z\\'abransk\\'{y}, M., V. R\\r{u}\\v{z}i\\v cka", "Zábranský, M., V. Růžička"},
           {"Gonz{\\'a}lez-{\\~N}, S{\\o}ren, \\AA s, {\\ss}, \\L\\'od\\'z",
            "González-Ñ, Søren, Ås, ß, Łódź"},
           {"na\\\"{\\i}ve", "naïve"},
           {"\\textit{Fluid Phase} 5~(2)\n  $x$ --- y", "Fluid Phase 5 (2) x - y"},
           {"``q'' \\copyright\\ 1", "\"q\" © 1"},
           {"\\b{q}", "q\xCC\xB1"},
           {"end\\", "end"}}) {
    EXPECT_EQ(desk::PlainText(latex), plain) << latex;
  }
  for (char const* plain : {"50% & $3 #1 a_b {x} ~ ^ \\ --- `` ''' é", "-- a--b", "plain"}) {
    EXPECT_EQ(desk::PlainText(desk::LatexText(plain)), plain) << desk::LatexText(plain);
  }
}

class ReferencesTest : public ChangeTest {
 protected:
  // own.lb1 has ethanol of CRC and of PERRY, without citations.
  void SetUp() override {
    ChangeTest::SetUp();
    Good("copy crc.lb1 own/own.lb1 --bank CRC --item ETHANOL --keep 0");
    Good("copy perry.lb1 own/own.lb1 --bank PERRY --item ETHANOL --keep 0");
    Good("memo own/own.lb1 --clear --keep 0");
    old_ = Now();
  }
  json References(std::string const& options = "") const {
    return Json("refs own/own.lb1 " + options)["references"];
  }
  std::string Memo(std::string const& bank = "") const {
    json const memo = Json("memo own/own.lb1" + (bank.empty() ? "" : " --bank " + bank))["memo"];
    return memo.is_null() ? "" : memo.get<std::string>();
  }
  void Fails(std::string const& words, std::string const& why, int status = 1) const {
    Contents const before = Now();
    Outcome const outcome = Zel("refs own/own.lb1 " + words);
    EXPECT_EQ(outcome.status, status) << words << "\n" << outcome.err;
    EXPECT_TRUE(Has(outcome.err + outcome.out, why)) << words << "\n" << outcome.err << outcome.out;
    EXPECT_TRUE(Now() == before) << words;
  }
};

// Every code that data have is listed, with the number of its data.
TEST_F(ReferencesTest, CodesOfDataAreListed) {
  json const show = Json("show own/own.lb1 CRC ETHANOL");
  json const row = Row(References("--bank CRC"), "code", 54);
  EXPECT_EQ(row["data"], Rows(show["constants"], "code", 54));
  EXPECT_TRUE(row["citation"].is_null());
  EXPECT_TRUE(row["in"].is_null());
  EXPECT_EQ(Row(References("--bank CRC"), "code", 64)["data"],
            Rows(show["correlations"], "code", 64));
  EXPECT_EQ(Row(References(), "code", 23)["data"], 3) << "both identities and a molecular weight";
  EXPECT_TRUE(Row(References("--bank CRC"), "code", 11).is_null());
  EXPECT_EQ(Row(Json("refs sample.lb1")["references"], "code", 92)["data"], 165);
  EXPECT_TRUE(Has(Good("refs own/own.lb1 --csv"), "code,data,in,DOI,citation\n"));
}

TEST_F(ReferencesTest, ACitationIsAddedReplacedAndRemoved) {
  Good("memo own/own.lb1 --set 'Of the plant.'");
  Contents const before = Now();
  json const added =
      Json("refs own/own.lb1 add 54 ' A  handbook ' --doi https://doi.org/10.1000/182");
  EXPECT_EQ(
      added,
      json::parse(
          R"({"schema": "zel/refs", "schema_version": 1, "code": 54, "citation": "A handbook", "doi": "10.1000/182",
      "result": "new"})"));
  EXPECT_EQ(Memo(), "Of the plant.\nref 54: A handbook; doi:10.1000/182");
  json const row = Row(References(), "code", 54);
  EXPECT_EQ(row["citation"], "A handbook");
  EXPECT_EQ(row["doi"], "10.1000/182");
  EXPECT_EQ(row["in"], "library");
  EXPECT_EQ(Json("refs own/own.lb1 add 54 'A handbook' --doi 10.1000/182")["result"], "the same");
  Fails("add 54 Other", "code 54 is already cited as \"A handbook\"; --replace replaces that");
  EXPECT_EQ(Json("refs own/own.lb1 add 54 Other --replace")["result"], "changed");
  EXPECT_EQ(Json("refs own/own.lb1 remove 54")["removed"][0]["citation"], "Other");
  EXPECT_TRUE(Now() == before);
  Good("undo own/own.lb1");
  EXPECT_EQ(Memo(), "Of the plant.\nref 54: Other");
}

// The memo of a bank is for its data only, and comes first.
TEST_F(ReferencesTest, ACitationOfABank) {
  Good("refs own/own.lb1 add 23 'For all'");
  Good("refs own/own.lb1 add 23 'Of CRC' --bank CRC");
  EXPECT_EQ(Memo("CRC"), "ref 23: Of CRC");
  EXPECT_EQ(Row(References(), "in", "library")["data"], 2);
  EXPECT_EQ(Row(References(), "in", "PURECOMP:CRC")["citation"], "Of CRC");
  EXPECT_EQ(Row(References(), "in", "PURECOMP:CRC")["data"], 1);
  Fails("-o r.bib", "code 23 has several citations");
  EXPECT_EQ(Json("refs own/own.lb1 -o r.bib --bank CRC")["references"], 1);
  Good("refs own/own.lb1 add 23 Both --replace");
  EXPECT_EQ(Memo("CRC"), "ref 23: Both");
  EXPECT_EQ(Memo(), "ref 23: Both");
  Good("refs own/own.lb1 remove 23 --bank CRC");
  EXPECT_EQ(Memo("CRC"), "");
  EXPECT_EQ(Memo(), "ref 23: Both");
}

TEST_F(ReferencesTest, ADryRunChangesNothing) {
  MakeFile("r.csv", "code,citation\n54,x\n");
  for (std::string const words : {"add 54 x", "import r.csv"}) {
    EXPECT_TRUE(Json("refs own/own.lb1 " + words + " --dry-run").contains("dry_run")) << words;
    EXPECT_TRUE(Now() == old_) << words;
  }
  EXPECT_TRUE(History().empty());
}

TEST_F(ReferencesTest, BadWordsAreRefused) {
  Fails("add 0 x", "\"0\" is not a reference code");
  Fails("add 5x x", "\"5x\" is not a reference code");
  Fails("add 1234567890 x", "is not a reference code");
  Fails("add 5 ''", "the citation of code 5 is empty");
  Fails("add 5 'a]]>b'", "which a document cannot hold");
  Fails("add 5 x --doi 11.1/2", "\"11.1/2\" is not a DOI");
  Fails("add 5 \"$(printf '%4000s' '' | tr ' ' x)\"", "at most 3900 can be stored");
  Fails("add 5", "give add CODE", 2);
  Fails("add 5 x y", "give add CODE", 2);
  Fails("remove", "give remove CODE", 2);
  Fails("remove 5", "code 5 has no citation");
  Fails("remove 5 --bank CRC", "code 5 has no citation in the memo of PURECOMP:CRC");
  Fails("show", "\"show\" is not add, remove or import", 2);
  Fails("add 5 x --bank NONE", "no bank NONE");
  Fails("import none.bib", "none.bib: cannot be read");
  Fails("import none.csv", "none.csv");
  Fails("-o r.txt", "r.txt: a table ends in .csv, .tsv or .json", 2);
  Fails("-o own/own.lb1", "own.lb1");
  Fails("add 5 x -o r.csv", "-o writes what", 2);
  EXPECT_EQ(Zel("refs none.lb1").status, 1);
  EXPECT_EQ(Zel("refs none.lb1 add 5 x").status, 1);
  EXPECT_FALSE(std::filesystem::exists(Folder() / "r.csv"));
}

TEST_F(ReferencesTest, ATableIsImported) {
  Good("refs own/own.lb1 add 54 Here");
  MakeFile("r.tsv",
           "refCode\tuses\tcitation\tDOI\n54\t1\tThere\t-\n55\t2\tA, B; C\t10.1/2\n"
           "777\t0\tUnused\t-\n56\t0\t-\t-\n");
  Contents const before = Now();
  Fails("import r.tsv", "uses is not a column of references");
  Fails("import r.tsv --ignore uses", "1 of 4 are refused");
  EXPECT_TRUE(Now() == before);
  json const done = Json("refs own/own.lb1 import r.tsv --ignore uses --used --skip-bad");
  EXPECT_EQ(done["new"], 1);
  EXPECT_EQ(done["refused"], 1);
  EXPECT_EQ(done["read"], 4);
  EXPECT_EQ(done["not_used"], 2) << "one is for a code without data, one is empty";
  EXPECT_TRUE(Has(Row(done["references"], "code", "54")["what"], "already cited as \"Here\""));
  EXPECT_EQ(Memo(), "ref 54: Here\nref 55: A, B; C; doi:10.1/2");
  EXPECT_EQ(Json("refs own/own.lb1 import r.tsv --ignore uses --replace")["changed"], 1);
  EXPECT_EQ(Row(References(), "code", 777)["data"], 0);
  MakeFile("twice.csv", "code,citation\n1,a\n1,b\n");
  Fails("import twice.csv", "code 1 is already in line 2");
  MakeFile("bad.csv", "code,text\n1,a\n");
  Fails("import bad.csv", "text is not a column of references");
  MakeFile("few.csv", "code\n1\n");
  Fails("import few.csv", "has no columns code and citation");
}

TEST_F(ReferencesTest, BibTeXIsImported) {
  MakeFile("r.bib",
           "@misc{ref54, note={Fifty-four}}\n@misc{b, code=55, note={Fifty-five}}\n"
           "@misc{smith, note={Smith}}\n@misc{56, note={Fifty-six}, doi={10.1/a_b}}");
  Fails("import r.bib", "the entry smith has no code");
  Good("refs own/own.lb1 import r.bib --first 55");
  EXPECT_EQ(Row(References(), "code", 54)["citation"], "Fifty-four");
  EXPECT_EQ(Row(References(), "code", 55)["citation"], "Fifty-five");
  EXPECT_EQ(Row(References(), "code", 56)["doi"], "10.1/a_b");
  EXPECT_EQ(Rows(References(), "citation", "Smith"), 1U);
  EXPECT_EQ(Row(References(), "citation", "Smith")["data"], 0) << "a code that nothing has";
  MakeFile("bad.bib", "@misc{ref54,\n note={x}");
  Fails("import bad.bib", "bad.bib, line 2");
  Fails("import r.bib --first x", "\"x\" is not a reference code");
}

TEST_F(ReferencesTest, WhatIsExportedReadsBack) {
  Good("refs own/own.lb1 add 54 'Müller & 50% {x} -- \"q\" a_b' --doi '10.1/a--b_c'");
  Good("refs own/own.lb1 add 999 \"Perry's, 'x'\"");
  json const all = References();
  for (char const* name : {"r.bib", "r.csv", "r.tsv", "r.json"}) {
    EXPECT_EQ(Json(std::string("refs own/own.lb1 -o ") + name)["references"], 2);
    Good("refs own/own.lb1 remove 54 999");
    EXPECT_EQ(Json(std::string("refs own/own.lb1 import ") + name)["new"], 2) << name;
    EXPECT_EQ(References(), all) << name << FileText(Folder() / name);
  }
}

// More than one memo holds; documents keep them, and what is removed leaves nothing.
TEST_F(ReferencesTest, ManyCitationsGoToBanksOfNotes) {
  std::string table = "code,citation\n";
  for (int i = 1; i <= 60; ++i) {
    table += std::to_string(i) + "," + std::string(200, 'x') + std::to_string(i) + "\n";
  }
  MakeFile("r.csv", table);
  EXPECT_EQ(Json("refs own/own.lb1 import r.csv")["new"], 60);
  json const banks = Json("banks own/own.lb1")["banks"];
  EXPECT_EQ(Rows(banks, "type", "OLI"), 3U);
  json const all = References();
  EXPECT_EQ(Rows(all, "in", "library"), 60U);
  EXPECT_EQ(Row(all, "code", 60)["citation"], std::string(200, 'x') + "60");
  std::filesystem::create_directory(Folder() / "docs");
  Good("export own/own.lb1 -o docs/");
  Good("import back.lb1 docs/own.xml --create");
  EXPECT_EQ(Json("refs back.lb1")["references"], all);
  EXPECT_EQ(Json("diff own/own.lb1 back.lb1")["differences"].size(), 0U);
  EXPECT_EQ(Json("check own/own.lb1 --structure")["damage"], 0);
  std::string codes;
  for (int i = 1; i <= 60; ++i) codes += " " + std::to_string(i);
  Good("refs own/own.lb1 remove" + codes);
  EXPECT_EQ(Rows(Json("banks own/own.lb1")["banks"], "type", "OLI"), 0U);
  EXPECT_EQ(Memo(), "");
}

// The published documents carry what is cited for each code.
TEST_F(ReferencesTest, PublishedLibrariesHaveTheirCitations) {
  for (std::string const library : {"sample", "perry", "crc"}) {
    json const references = Json("refs " + library + ".lb1")["references"];
    EXPECT_GT(references.size(), 6U);
    EXPECT_EQ(Rows(references, "citation", nullptr), 0U) << library;
  }
  EXPECT_TRUE(Has(Row(Json("refs crc.lb1")["references"], "code", 54)["citation"],
                  "CRC Handbook of Chemistry and Physics, 95th ed., 2014"));
}

TEST_F(ReferencesTest, WhyShowAndSearchCite) {
  std::string const handbook =
      "CRC Handbook of Chemistry and Physics, 95th ed., 2014 (physical constants of organic and "
      "inorganic compounds)";
  Good("refs crc.lb1 add 54 '" + handbook + "' --doi 10.1201/b17118 --replace");
  json const why = Json("why ETHANOL NBP -l perry.lb1 -l crc.lb1");
  EXPECT_EQ(why["citation"], handbook);
  EXPECT_EQ(why["doi"], "10.1201/b17118");
  EXPECT_EQ(Row(why["sources"], "result", "won")["citation"], handbook);
  EXPECT_TRUE(Row(why["sources"], "result", "has no value")["citation"].is_null());
  json const curve = Json("why ETHANOL VaporPressure -l perry.lb1 -l crc.lb1");
  EXPECT_TRUE(Has(curve["citation"], "Perry's Chemical Engineers' Handbook"));
  EXPECT_TRUE(Has(Row(curve["references"], "source", "crc.lb1:CRC")["citation"], "Dykyj"));
  json const show = Json("show crc.lb1 CRC ETHANOL");
  EXPECT_EQ(Row(show["constants"], "keyword", "NBP")["citation"], handbook);
  EXPECT_TRUE(Has(Row(show["correlations"], "name", "VaporPressure")["citation"], "Dykyj"));
  EXPECT_EQ(Row(show["references"], "code", 54)["doi"], "10.1201/b17118");
  json const item = Json("show sample.lb1 NRTL 10000007 10000326");
  EXPECT_TRUE(Has(item["references"][0]["citation"], "Gmehling"));
  json const search = Json("search ETHANOL -l perry.lb1 -l crc.lb1");
  EXPECT_EQ(Row(search["constants"], "keyword", "NBP")["code"], 54);
  EXPECT_EQ(Row(search["constants"], "keyword", "NBP")["citation"], handbook);
  EXPECT_TRUE(Row(search["constants"], "keyword", "CNUM")["citation"].is_null());
  EXPECT_EQ(Row(search["correlations"], "name", "VaporPressure")["code"], 11);
  for (std::string const words :
       {"why ETHANOL NBP -l crc.lb1", "show crc.lb1 CRC ETHANOL", "search ETHANOL -l crc.lb1"}) {
    EXPECT_TRUE(Has(Good(words), "10.1201/b17118")) << words;
  }
  // Without citations there is no table of them.
  EXPECT_FALSE(Json("why ETHANOL NBP -l own/own.lb1").contains("references"));
  EXPECT_FALSE(Json("why ETHANOL NBP -l own/own.lb1").contains("citation"));
}

TEST_F(ReferencesTest, PagesCite) {
  Good("sheet ETHANOL -l crc.lb1 -l perry.lb1 -o s.html");
  std::string const html = FileText(Folder() / "s.html");
  EXPECT_TRUE(Has(html, "[0,54,\"CRC Handbook of Chemistry and Physics, 95th ed., 2014 (physical"));
  EXPECT_TRUE(Has(html, "[1,11,\"Perry"));
  EXPECT_FALSE(Has(html, "[0,60,")) << "only codes of the component";
  Good("report -l sample.lb1 -l perry.lb1 -o r.html");
  EXPECT_TRUE(
      Has(FileText(Folder() / "r.html"), "[\"bij\",\"K\",\"published energy A12, divided by R\"]"));
}

// Data that go to another library take their citations along.
TEST_F(ReferencesTest, CitationsGoWithTheData) {
  std::string const known = Row(Json("refs crc.lb1")["references"], "code", 54)["citation"];
  Good("create new.lb1");
  Good("copy crc.lb1 new.lb1 --bank CRC --item ETHANOL");
  json const references = Json("refs new.lb1")["references"];
  EXPECT_EQ(Row(references, "code", 54)["citation"], known);
  EXPECT_EQ(Rows(references, "data", 0), 0U) << "only those of its data";
  EXPECT_TRUE(Json("memo new.lb1 --bank CRC")["memo"].is_null());
  Good("edit new.lb1 WATER NBP 100C --from crc.lb1");
  EXPECT_EQ(Rows(Json("refs new.lb1")["references"], "citation", nullptr), 0U);
  Good("flatten perry.lb1 crc.lb1 sample.lb1 -o all.lb1");
  json const all = Json("refs all.lb1")["references"];
  EXPECT_EQ(Rows(all, "citation", nullptr), 0U);
  EXPECT_EQ(Row(all, "code", 54)["citation"], known);
  EXPECT_TRUE(Has(Row(all, "code", 91)["citation"], "Gmehling"));
  EXPECT_EQ(Row(Json("parameters all.lb1 --bank NRTL")["parameters"], "field", "bij")["unit"], "K");
  Good("create m.lb1");
  Good("merge m.lb1 crc.lb1");
  EXPECT_EQ(Row(Json("refs m.lb1")["references"], "code", 54)["citation"], known);
}

TEST_F(ReferencesTest, AnotherCitationOfTheSameCodeIsKeptAndReported) {
  Good("refs own/own.lb1 add 54 'Something else'");
  Outcome const outcome = Zel("copy crc.lb1 own/own.lb1 --bank CRC --item WATER");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(Has(outcome.err, "code 54 is cited as \"Something else\" here, but as \"CRC"))
      << outcome.err;
  EXPECT_TRUE(Has(outcome.err, "the former is kept"));
  EXPECT_EQ(Row(References(), "code", 54)["citation"], "Something else");
  EXPECT_TRUE(Has(Row(References(), "code", 53)["citation"], "Mathews"));
}

TEST_F(ReferencesTest, InfoCountsNotes) {
  Good("memo own/own.lb1 --set 'Of the plant.'");
  Good("refs own/own.lb1 add 54 Book");
  EXPECT_TRUE(Has(Good("info own/own.lb1"), "memo            Of the plant.\nnotes           1\n"));
  EXPECT_EQ(Json("info own/own.lb1")["memo"], "Of the plant.\nref 54: Book");
}

}  // namespace
}  // namespace zel::test
