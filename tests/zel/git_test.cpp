// Libraries as documents on standard output, and in git.
#include <set>
#include <sstream>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

class OneDocumentTest : public ZelTest {
 protected:
  // The document without the comment at its start, which names the library.
  std::string DocumentOf(std::string const& library) const {
    std::string const text = Good("export " + library + " -o -");
    std::size_t const end = text.find("\n  -->\n\n");
    EXPECT_NE(end, std::string::npos) << text.substr(0, 300);
    return end == std::string::npos ? text : text.substr(text.find('<', end));
  }
};

// Banks of components, pairs and groups; memos, descriptions and versions.
TEST_F(OneDocumentTest, ReadsBackToTheSameLibrary) {
  Good("memo sample.lb1 --set 'a memo\nof two lines'");
  for (std::string const name : {"sample", "perry", "crc"}) {
    std::string const first = DocumentOf(name + ".lb1");
    EXPECT_EQ(DocumentOf(name + ".lb1"), first) << "the same each time";
    EXPECT_EQ(first.find("<import"), std::string::npos);
    MakeFile(name + ".xml", first);
    Good("import again.lb1 " + name + ".xml --create --strict");
    EXPECT_EQ(DocumentOf("again.lb1"), first) << name;
    EXPECT_EQ(Json("diff " + name + ".lb1 again.lb1").at("differences"), nlohmann::json::array())
        << "in anything that zel compares";
    Shell("rm again.lb?");
  }
}

TEST_F(OneDocumentTest, BankOrComponentAlone) {
  std::string const bank = Good("export crc.lb1 --bank CRC -o -");
  EXPECT_NE(bank.find("<bank type=\"PURECOMP\" name=\"CRC\">\n"), std::string::npos);
  EXPECT_EQ(bank.substr(bank.size() - 8), "</bank>\n");
  std::string const component = Good("export crc.lb1 --component ETHANOL -o -");
  EXPECT_NE(component.find("<comp>"), std::string::npos) << component;
  EXPECT_EQ(component.substr(component.size() - 8), "</comp>\n");
}

TEST_F(OneDocumentTest, NothingElseIsWritten) {
  Contents const before = ContentsOf(Folder());
  Good("export crc.lb1 -o -");
  EXPECT_EQ(ContentsOf(Folder()), before);
  for (std::string const words : {"--json", "--component-files"}) {
    Outcome const outcome = Zel("export crc.lb1 -o - " + words);
    EXPECT_EQ(outcome.status, 2) << words;
    EXPECT_NE(outcome.err.find("standard output exclude each other"), std::string::npos);
    if (words == "--json") {
      EXPECT_EQ(nlohmann::json::parse(outcome.out)["schema"], "zel/error");
    } else {
      EXPECT_EQ(outcome.out, "");
    }
  }
  EXPECT_EQ(Zel("export missing.lb1 -o -").out, "");
  EXPECT_EQ(Zel("export crc.lb1 -o - >/dev/full").status, 1);
}

// What a document has no place for is in a comment after it.
TEST_F(OneDocumentTest, WhatADocumentCannotHoldIsInAComment) {
  Good("create kind.lb1 --kind 12");
  EXPECT_NE(Good("export kind.lb1 -o -").find("<!-- not part of the document:\n  kind 12\n-->\n"),
            std::string::npos);
  EXPECT_EQ(Good("export crc.lb1 -o -").find("not part of"), std::string::npos);
}

class GitTest : public ZelTest {
 protected:
  void SetUp() override {
    if (Shell("command -v git").status != 0) GTEST_SKIP() << "git is not installed";
    Git("init -q .");
    // The recipe of the document.
    Git("config diff.zel.textconv '" ZEL_TEXTCONV "'");
    MakeFile(".gitattributes", "*.lb1 diff=zel\n*.lb2 diff=zel\n");
    Commit("first");
  }
  std::string Git(std::string const& words) const {
    Outcome const outcome =
        Shell("git -c user.name=K -c user.email=k@example.org -c commit.gpgsign=false " + words);
    EXPECT_EQ(outcome.status, 0) << words << "\n" << outcome.err << outcome.out;
    return outcome.out;
  }
  void Commit(char const* message) const {
    Git("add .gitattributes sample.lb1 sample.lb2 crc.lb1 crc.lb2");
    Git(std::string("commit -q -m ") + message);
  }
  // The lines of a difference that were removed and added, without repetitions.
  static std::set<std::string> Changed(std::string const& diff) {
    std::set<std::string> lines;
    std::istringstream text(diff);
    for (std::string line; std::getline(text, line);) {
      bool const isHead = line.rfind("+++", 0) == 0 || line.rfind("---", 0) == 0;
      if (!isHead && !line.empty() && (line[0] == '+' || line[0] == '-')) lines.insert(line);
    }
    return lines;
  }
};

TEST_F(GitTest, DiffShowsTheChangedLine) {
  Good("edit crc.lb1 ETHANOL NBP 78.31C --ref 999");
  std::set<std::string> const changed = Changed(Git("diff"));
  ASSERT_EQ(changed.size(), 2U) << Git("diff");
  EXPECT_NE(changed.begin()->find("351.46"), std::string::npos) << *changed.begin();
  Git("add crc.lb1 crc.lb2");
  EXPECT_EQ(Changed(Git("diff --cached")), changed) << "from the last commit to the index";
  EXPECT_EQ(Changed(Git("diff")), std::set<std::string>{});
  Commit("second");
  EXPECT_EQ(Changed(Git("show")), changed) << "of a commit";
  Good("edit crc.lb1 ETHANOL MW 46.5");
  Commit("third");
  EXPECT_EQ(Changed(Git("diff HEAD~2 HEAD~1")), changed) << "of earlier commits";
  EXPECT_EQ(Changed(Git("log -1 -p HEAD~1")), changed);
}

// An item of a pair is in the second file alone.
TEST_F(GitTest, DiffShowsAPairThatOnlyTheSecondFileHolds) {
  Good("edit sample.lb1 NRTL ETHANOL WATER bij=-29.25 --names crc.lb1");
  std::set<std::string> const changed = Changed(Git("diff"));
  ASSERT_EQ(changed.size(), 2U) << Git("diff");
  EXPECT_NE(changed.begin()->find("bij"), std::string::npos) << *changed.begin();
  Commit("second");
  EXPECT_EQ(Changed(Git("show")), changed);
}

}  // namespace
}  // namespace zel::test
