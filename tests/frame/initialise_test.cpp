#include "frame/initialise.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>

#include "frame/units/unit_system.h"
#include "tests/frame/child.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

int Initialised() {
  InitZelAccess();
  double value = 25.0;
  return ConvertToInternal("temp", "C", value) && value == 298.15 ? test::kHeld : test::kFailed;
}
test::ProgramPart const oncePart("initialise", Initialised);

int InitialisedTwice() {
  InitZelAccess();
  uom_Unit* before = OpenUnit("temp", "C");
  // A second start would not find a folder for its file.
  ::setenv("TMPDIR", "/missing", 1);
  InitZelAccess();
  uom_Unit* after = OpenUnit("temp", "K");
  double value = 0.0;
  bool const sameTable = uom_ConvertArray(&value, 1, before, after) == 0;
  uom_Free(&before);
  uom_Free(&after);
  return sameTable ? test::kHeld : test::kFailed;
}
test::ProgramPart const twicePart("initialise twice", InitialisedTwice);

int WithoutTable() {
  EndUnlessStarted(StartUnitSystem(nullptr));
  return test::kHeld;
}
test::ProgramPart const withoutPart("initialise without table", WithoutTable);

int WithEmptyTable() {
  EndUnlessStarted(StartUnitSystemFrom(""));
  return test::kHeld;
}
test::ProgramPart const emptyPart("initialise with empty table", WithEmptyTable);

int WithBadTable() {
  EndUnlessStarted(StartUnitSystemFrom("bad"));
  return test::kHeld;
}
test::ProgramPart const badPart("initialise with bad table", WithBadTable);

// The failed start is reported, and another one works.
int TriedTwice() {
  std::string const folder = std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "";
  ::setenv("TMPDIR", "/missing", 1);
  std::array<char, kInitReasonSize> reason{};
  bool const failed = !TryInitZelAccess(reason.data()) && !TryInitZelAccess(nullptr) &&
                      std::string(reason.data()) == "Error 2 returned from UOM system";
  folder.empty() ? ::unsetenv("TMPDIR") : ::setenv("TMPDIR", folder.c_str(), 1);
  bool const started = TryInitZelAccess(reason.data()) && reason[0] == '\0';
  return failed && started ? Initialised() : test::kFailed;
}
test::ProgramPart const triedPart("try to initialise twice", TriedTwice);

constexpr char kLoadLine[] = "ZelAccess initializing - DllMain\n";
constexpr char kInitLine[] = "ZelAccess initializing - InitZelAccess\n";
constexpr char kNotFound[] = "Unable to locate embedded uomdata.txt resource\n";

std::string Program(std::string const& part, std::string const& settings) {
  return settings + " ZEL_TEST_PART='" + part + "' " + test::ThisProgram() + " --gtest_brief=1";
}

// The debug output of a part of this program.
std::string DebugLines(std::string const& part, std::string const& settings = "") {
  return test::RunProgram("(" + Program(part, settings + " ZELACCESS_DEBUG=1") +
                          " 2>&1 >/dev/null)")
      .output;
}

// The exit status and standard output of a part. The test program writes lines of its own before.
test::ProgramResult Outcome(std::string const& part, std::string const& settings = "") {
  return test::RunProgram("(" + Program(part, settings) + " 2>/dev/null)");
}

TEST(Initialise, StartsTheUnitSystemAndSaysSoToTheDebugOutput) {
  EXPECT_EQ(Outcome("initialise").status, test::kHeld);
  EXPECT_EQ(DebugLines("initialise"), std::string(kLoadLine) + kInitLine);
}

TEST(Initialise, SecondCallDoesNothing) {
  EXPECT_EQ(Outcome("initialise twice").status, test::kHeld);
  EXPECT_EQ(DebugLines("initialise twice"), std::string(kLoadLine) + kInitLine);
}

TEST(Initialise, ProcessesMayStartAtOnce) {
  std::string const one = Program("initialise", "");
  test::ProgramResult const result = test::RunProgram("(" + one + " & first=$!; " + one +
                                                      "; second=$?; wait $first && exit $second)");
  EXPECT_EQ(result.status, test::kHeld) << result.output;
}

TEST(Initialise, MissingOrEmptyTableEndsTheProcess) {
  for (char const* part : {"initialise without table", "initialise with empty table"}) {
    test::ProgramResult const result = Outcome(part);
    EXPECT_EQ(result.status, 1) << part;
    EXPECT_NE(result.output.find(std::string("\n") + kNotFound), std::string::npos) << part;
    EXPECT_EQ(DebugLines(part), std::string(kLoadLine) + kNotFound) << part;
  }
}

TEST(Initialise, BadTableEndsTheProcessWithItsNumber) {
  test::ProgramResult const result = Outcome("initialise with bad table");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.output.find("\nError 5 returned from UOM system\n"), std::string::npos);
  EXPECT_EQ(DebugLines("initialise with bad table"),
            std::string(kLoadLine) + "Error 5 returned from UOM system\n");
}

TEST(Initialise, AFailureCanBeReportedInsteadAndTriedAgain) {
  test::ProgramResult const result = Outcome("try to initialise twice");
  EXPECT_EQ(result.status, test::kHeld);
  EXPECT_EQ(result.output.find("UOM system"), std::string::npos) << "nothing is printed";
}

TEST(Initialise, MissingTemporaryFolderEndsTheProcess) {
  test::ProgramResult const result = Outcome("initialise", "TMPDIR=/missing");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.output.find("\nError 2 returned from UOM system\n"), std::string::npos);
  EXPECT_EQ(DebugLines("initialise", "TMPDIR=/missing"),
            std::string(kLoadLine) + kInitLine + "Error 2 returned from UOM system\n");
}

}  // namespace
}  // namespace zel
