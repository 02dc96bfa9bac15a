// Runs of the benchmarks as files, and the comparison of two of them.
#include "bench/run_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "tests/frame/temp_folder.h"

namespace zel::bench {
namespace {

RunRow Row(char const* what, double lower, double ratio, double upper) {
  return {what, "LMDB", "ns", 100.0 * ratio, 100.0, ratio, lower, upper};
}
BenchRun RunOf(std::vector<RunRow> rows) {
  return {"abc1234", "2026-01-31T12:00:00Z", "Example CPU", 11, std::move(rows)};
}

class RunFileTest : public test::TempFolderTest {
 protected:
  // Both runs go through files.
  std::vector<RowChange> Changes(BenchRun const& before, BenchRun const& after) const {
    WriteRun(before, Path("before.json"));
    WriteRun(after, Path("after.json"));
    return ChangesOf(ReadRun(Path("before.json")), ReadRun(Path("after.json")));
  }
  std::vector<RowChange> Changes(RunRow const& before, RunRow const& after) const {
    return Changes(RunOf({before}), RunOf({after}));
  }
};

TEST_F(RunFileTest, WhatIsReadIsWhatWasWritten) {
  BenchRun run = RunOf({Row("point read, 10k", 0.38, 0.39, 0.41), Row("load", 1.0, 1.1, 1.2)});
  run.rows[1].unit = "KB";
  WriteRun(run, Path("run.json"));
  BenchRun const read = ReadRun(Path("run.json"));
  EXPECT_EQ(read.commit, "abc1234");
  EXPECT_EQ(read.date, "2026-01-31T12:00:00Z");
  EXPECT_EQ(read.processor, "Example CPU");
  EXPECT_EQ(read.rounds, 11);
  ASSERT_EQ(read.rows.size(), 2U);
  EXPECT_EQ(read.rows[0].what, "point read, 10k");
  EXPECT_EQ(read.rows[0].peer, "LMDB");
  EXPECT_EQ(read.rows[0].lowerQuartile, 0.38);
  EXPECT_EQ(read.rows[0].ratio, 0.39);
  EXPECT_EQ(read.rows[0].upperQuartile, 0.41);
  EXPECT_EQ(read.rows[0].peerFigure, 100.0);
  EXPECT_EQ(read.rows[1].unit, "KB");
  EXPECT_EQ(read.rows[1].project, 100.0 * 1.1);
}

TEST_F(RunFileTest, SlowerByMoreThanTheNoise) {
  auto const changes = Changes(Row("read", 0.49, 0.50, 0.51), Row("read", 0.54, 0.55, 0.56));
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_EQ(changes[0].change, Change::kSlower);
  EXPECT_EQ(StatusOf(changes), 1);
  EXPECT_EQ(TextOf(RunOf({}), changes),
            "Compared with abc1234 of 2026-01-31T12:00:00Z on Example CPU:\n"
            "slower   read, LMDB: ratio 0.550, was 0.500 (+10%, noise 8%)\n"
            "1 slower, 0 faster, 0 within the noise\n");
}

TEST_F(RunFileTest, FasterByMoreThanTheNoise) {
  auto const changes = Changes(Row("read", 0.49, 0.50, 0.51), Row("read", 0.39, 0.40, 0.41));
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_EQ(changes[0].change, Change::kFaster);
  EXPECT_EQ(StatusOf(changes), 0);
  EXPECT_NE(TextOf(RunOf({}), changes)
                .find("\nfaster   read, LMDB: ratio 0.400, was 0.500 (-20%, noise 8%)\n"
                      "0 slower, 1 faster, 0 within the noise\n"),
            std::string::npos);
}

TEST_F(RunFileTest, TheSpreadOfEitherRunIsNoise) {
  RunRow const steady = Row("read", 0.50, 0.50, 0.50);
  RunRow const restless = Row("read", 0.45, 0.60, 0.65);
  EXPECT_DOUBLE_EQ(NoiseOf(steady, restless), 0.65 - 0.45);
  EXPECT_EQ(Changes(steady, restless)[0].change, Change::kSame) << "0.1 more with a spread of 0.2";
  EXPECT_EQ(Changes(restless, steady)[0].change, Change::kSame);
  EXPECT_EQ(StatusOf(Changes(steady, restless)), 0);
  EXPECT_EQ(Changes(steady, Row("read", 0.60, 0.60, 0.60))[0].change, Change::kSlower)
      << "the same without it";
}

TEST_F(RunFileTest, AFewPercentAreNoiseWithoutASpread) {
  RunRow const before = Row("read", 1.0, 1.0, 1.0);
  EXPECT_EQ(Changes(before, Row("read", 1.04, 1.04, 1.04))[0].change, Change::kSame);
  EXPECT_EQ(Changes(before, Row("read", 1.06, 1.06, 1.06))[0].change, Change::kSlower);
  EXPECT_EQ(Changes(before, Row("read", 0.96, 0.96, 0.96))[0].change, Change::kSame);
  EXPECT_EQ(Changes(before, Row("read", 0.94, 0.94, 0.94))[0].change, Change::kFaster);
}

TEST_F(RunFileTest, RowsOfOneRunOnlyAreNamed) {
  RunRow const both = Row("read", 0.5, 0.5, 0.5);
  RunRow other = both;
  other.peer = "SQLite";  // the same title, compared with another peer
  auto const changes = Changes(RunOf({both, Row("gone", 1, 1, 1)}), RunOf({other, both}));
  ASSERT_EQ(changes.size(), 3U);
  EXPECT_EQ(changes[0].change, Change::kNew);
  EXPECT_EQ(changes[1].change, Change::kSame);
  EXPECT_EQ(changes[2].change, Change::kMissing);
  EXPECT_EQ(StatusOf(changes), 0) << "a group can be run by itself";
  EXPECT_EQ(TextOf(RunOf({}), changes),
            "Compared with abc1234 of 2026-01-31T12:00:00Z on Example CPU:\n"
            "new      read, SQLite: not in the older run\n"
            "missing  gone, LMDB: not in this run\n"
            "0 slower, 0 faster, 1 within the noise\n");
}

// The message of the exception with which a file is refused.
std::string Refusal(std::string const& path) {
  try {
    ReadRun(path);
    return "read";
  } catch (std::runtime_error const& error) {
    return error.what();
  }
}

TEST_F(RunFileTest, WhatIsNotARunIsRefusedByName) {
  EXPECT_EQ(Refusal(Path("none.json")), Path("none.json") + ": cannot be read");
  char const* const noRatio =
      R"({"commit": "a", "date": "d", "processor": "p", "rounds": 1, "rows": [{"case": "r"}]})";
  for (char const* text : {"", "{", "[]", R"({"commit": 1})", noRatio}) {
    MakeFile("bad.json", text);
    EXPECT_EQ(Refusal(Path("bad.json")).rfind(Path("bad.json") + ": is not a run", 0), 0U) << text;
  }
  EXPECT_THROW(WriteRun(RunOf({}), Path("none/run.json")), std::runtime_error);
}

TEST_F(RunFileTest, ThisMachineAndTimeHaveNames) {
  EXPECT_EQ(TimeNow().size(), sizeof "2026-01-31T12:00:00Z" - 1);
  EXPECT_EQ(TimeNow().back(), 'Z');
  EXPECT_FALSE(ProcessorName().empty());
}

}  // namespace
}  // namespace zel::bench
