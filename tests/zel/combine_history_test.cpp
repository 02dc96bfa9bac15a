// The commands that combine libraries as changes: tried without changing anything, listed by log,
// and taken back by undo.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;
namespace fs = std::filesystem;

class CombineHistoryTest : public ZelTest {
 protected:
  void SetUp() override {
    fs::create_directory(Folder() / "own");
    Good("copy perry.lb1 own/own.lb1 --create --bank PERRY --item ETHANOL");
    Good("copy perry.lb1 own/own.lb1 --bank PERRY --item WATER");
    Good("copy sample.lb1 own/own.lb1 --bank NRTL --keep 0");
    Good("copy perry.lb1 own/from.lb1 --create --bank PERRY --item BENZENE");
    before_ = ContentsOf(Own());
  }
  fs::path Own() const { return Folder() / "own"; }
  // The files of the library itself.
  Contents Library() const {
    Contents files = ContentsOf(Own());
    for (auto it = files.begin(); it != files.end();) {
      it = it->first.rfind("own.lb", 0) == 0 ? std::next(it) : files.erase(it);
    }
    return files;
  }
  Outcome InOwn(std::string const& words) const { return Shell("cd own && \"$ZEL\" " + words); }

  // A dry run reports what the command then does, marked, and changes nothing.
  void DryRunThenReal(std::string const& words) const {
    Outcome const dry = InOwn(words + " --json --dry-run");
    EXPECT_EQ(dry.status, 0) << words << "\n" << dry.err;
    EXPECT_TRUE(ContentsOf(Own()) == before_) << words;
    Outcome const done = InOwn(words + " --json");
    EXPECT_EQ(done.status, 0) << words << "\n" << done.err;
    EXPECT_FALSE(ContentsOf(Own()) == before_) << words;
    json report = json::parse(dry.out);
    EXPECT_EQ(report["dry_run"], "nothing was changed") << words;
    report.erase("dry_run");
    EXPECT_EQ(report, json::parse(done.out)) << words;
  }
  // After the only change `words`: log lists it, with a difference, and undo makes the library what
  // it was, byte for byte.
  void LogThenUndo(std::string const& words, std::string const& item, Contents const& old) const {
    json const log = Json("log own/own.lb1");
    ASSERT_EQ(log["changes"].size(), 1U) << log;
    EXPECT_EQ(log["changes"][0]["command"], "zel " + words + " --json");
    bool isNamed = false;
    for (json const& row : log["differences"]) {
      isNamed = isNamed || row["item"].get<std::string>().find(item) != std::string::npos;
    }
    EXPECT_TRUE(isNamed) << log["differences"];
    EXPECT_FALSE(Library() == old);
    Good("undo own/own.lb1");
    EXPECT_TRUE(Library() == old) << words;
  }

  Contents before_;
};

TEST_F(CombineHistoryTest, Merge) {
  Contents const old = Library();
  std::string const words = "merge own.lb1 from.lb1";
  DryRunThenReal(words);
  LogThenUndo(words, "BENZENE", old);
}

TEST_F(CombineHistoryTest, Renumber) {
  Contents const old = Library();
  std::string const words = "renumber own.lb1 ETHANOL 21000001";
  DryRunThenReal(words);
  LogThenUndo(words, "PURECOMP:PERRY ETHANOL", old);
}

// A new library has no history yet; the changes after it do.
TEST_F(CombineHistoryTest, Flatten) {
  DryRunThenReal("flatten from.lb1 own.lb1 -o merged.lb1");
  EXPECT_EQ(Json("log own/merged.lb1")["changes"], json::array());
  Outcome const undo = InOwn("undo merged.lb1");
  EXPECT_EQ(undo.status, 1);
  EXPECT_NE(undo.err.find("merged.lb1: "), std::string::npos) << undo.err;
  EXPECT_EQ(Json("find own/merged.lb1")["found"], 3);
}

TEST_F(CombineHistoryTest, RefusedChangesLeaveNoHistory) {
  Good("edit own/from.lb1 BENZENE TC 500K --keep 0");
  Good("copy perry.lb1 own/own.lb1 --bank PERRY --item BENZENE --keep 0");
  Contents const before = ContentsOf(Own());
  for (char const* words : {"merge own.lb1 from.lb1", "renumber own.lb1 ETHANOL 10000326",
                            "flatten none.lb1 -o own.lb1"}) {
    for (char const* more : {"", " --dry-run"}) {
      EXPECT_NE(InOwn(words + std::string(more)).status, 0) << words << more;
      EXPECT_TRUE(ContentsOf(Own()) == before) << words << more;
    }
  }
}

}  // namespace
}  // namespace zel::test
