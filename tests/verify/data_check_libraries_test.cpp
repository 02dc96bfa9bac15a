// The checks of libraries with each other; what a host selects and receives; what is reported of
// what cannot be read.
#include <cstring>
#include <set>

#include "tests/verify/data_check_fixture.h"
#include "zelaccess/Identity.h"

namespace zel::test {
namespace {

class LibraryDataTest : public DataCheckTest {
 protected:
  std::unique_ptr<LibFile_i> MakeWith(char const* path, GoodComponent const& component) {
    auto library = Make(path);
    Add(*library, component);
    return library;
  }
};

TEST_F(LibraryDataTest, SameSubstanceWithSimilarData) {
  auto const one = MakeWith("/one.lb1", With(GoodComponent{}, propertyDIPOLE, 1.8));
  auto const two = MakeWith("/two.lb1", With(GoodComponent{}, propertyDIPOLE, 1.8 * 1.45));
  EXPECT_EQ(Compare({{one.get(), "one"}, {two.get(), "two"}}), Lines{});
  EXPECT_TRUE(isGood_);
}

TEST_F(LibraryDataTest, Magnitude) {
  auto const one = MakeWith("/one.lb1", With(GoodComponent{}, propertyDIPOLE, 1.8));
  auto const two = MakeWith("/two.lb1", With(GoodComponent{}, propertyDIPOLE, 6.2));
  EXPECT_EQ(
      Compare({{one.get(), "one"}, {two.get(), "two"}}),
      Lines{
          "warning magnitude | two PURECOMP:TEST [10000007] GOOD | DIPOLE = 6.2 (6.2) debye "
          "at - | 1.8 to 1.8 (1.8) | one | TEST GOOD: DIPOLE is 6.2 debye, but one has 1.8 debye"});
  EXPECT_TRUE(isGood_);
}

// 101 kPa at 400.0202 K is within 5 %, 149.5 kPa at 401 K is not; both libraries are asked.
TEST_F(LibraryDataTest, BoilingPoint) {
  auto const one = MakeWith("/one.lb1", GoodComponent{});
  auto const two = MakeWith("/two.lb1", With(GoodComponent{}, propertyNBP, 401));
  std::string const rest =
      " PURECOMP:TEST [10000007] GOOD | VaporPressure = 149.5 (149.5) kPa at 401 | 101.325 to "
      "101.325 (101.325) | two | TEST GOOD: at NBP 401 K of two the vapor pressure is 149.5 kPa, "
      "expected 101.325 kPa";
  EXPECT_EQ(Compare({{one.get(), "one"}, {two.get(), "two"}}),
            Lines{"warning boiling-point | one" + rest});
  EXPECT_EQ(Compare({{two.get(), "two"}, {one.get(), "one"}}),
            Lines{"warning boiling-point | one" + rest});
  auto const near = MakeWith("/near.lb1", With(GoodComponent{}, propertyNBP, 400.02));
  EXPECT_EQ(Compare({{one.get(), "one"}, {near.get(), "near"}}), Lines{});
}

TEST_F(LibraryDataTest, Identity) {
  auto const one = MakeWith("/one.lb1", Bare(10000007, "WATER", "H2O"));
  GoodComponent heavy = Bare(10000007, "HEAVY", "D2O");
  heavy.cas = 7789200;
  auto const two = MakeWith("/two.lb1", heavy);
  std::string const water = "Name (10000007, WATER, 7732-18-5, H2O)";
  std::string const other = "Name (10000007, HEAVY, 7789-20-0, D2O)";
  EXPECT_EQ(Compare({{one.get(), "one"}, {two.get(), "two"}}),
            Lines{"error identity | two PURECOMP:TEST [10000007] HEAVY | identity = - (" + other +
                  ")  at - | - to - (" + water +
                  ") | one:TEST | TEST HEAVY: has the number 10000007 "
                  "of one:TEST but is " +
                  other + "; there it is " + water});
  EXPECT_FALSE(isGood_);
  sink_.Clear();
  ZelDataCheckOptions options;
  options.acceptIdentity = true;
  ZelCheckedLibrary const both[] = {{one.get(), "one"}, {two.get(), "two"}};
  EXPECT_TRUE(CompareLibraryData(both, 2, options, sink_));
  ASSERT_EQ(sink_.lines.size(), 1U);
  EXPECT_EQ(sink_.lines[0].substr(0, 17), "warning identity ");
  // Another number and another ID: two substances, as they should be.
  heavy.number = 10000008;
  auto const third = MakeWith("/third.lb1", heavy);
  EXPECT_EQ(Compare({{one.get(), "one"}, {third.get(), "third"}}), Lines{});
}

// --- what a host selects and receives ------------------------------------------------------------

TEST_F(LibraryDataTest, ChecksThatAreSilent) {
  auto const library =
      MakeWith("/own.lb1", With(With(GoodComponent{}, propertyMW, 19), propertyACENTRIC, 0.1));
  auto const ids = [&](std::vector<char const*> const& silent) {
    sink_.Clear();
    ZelDataCheckOptions options;
    options.silent = silent.data();
    options.silentCount = static_cast<std::int32_t>(silent.size());
    CheckLibraryData({library.get(), "own"}, options, sink_);
    return sink_.ids;
  };
  EXPECT_EQ(ids({}), "formula-weight acentric");
  EXPECT_EQ(ids({"acentric"}), "formula-weight");
  EXPECT_EQ(ids({"acentric", nullptr, "no such check", "formula-weight"}), "");
}

TEST_F(LibraryDataTest, ErrorsThatAreSilentAreNotCounted) {
  auto const library = MakeWith("/own.lb1", Bare(10000007, "FIRST", "H2O"));
  Add(*library, Bare(10000008, "SECOND", "D2O"));
  char const* const silent[] = {"cas-formula"};
  ZelDataCheckOptions options;
  EXPECT_FALSE(CheckLibraryData({library.get(), "own"}, options, sink_));
  options.silent = silent;
  options.silentCount = 1;
  EXPECT_TRUE(CheckLibraryData({library.get(), "own"}, options, sink_));
}

TEST_F(LibraryDataTest, NameIsTheDisplayNameUnlessGiven) {
  auto const library = MakeWith("/own.lb1", With(GoodComponent{}, propertyMW, 19));
  CheckLibraryData({library.get(), nullptr}, {}, sink_);
  ASSERT_EQ(sink_.lines.size(), 1U);
  EXPECT_EQ(sink_.lines[0].find("warning formula-weight | shown PURECOMP:TEST"), 0U);
}

TEST_F(LibraryDataTest, ProgressOfEachBank) {
  auto const library = MakeWith("/own.lb1", GoodComponent{});
  Add(*library, Bare(10000008, "SECOND", "H2O"));
  LibMaint_i(library.get()).CreateBank("PURECOMP", "EMPTY", 0);
  CheckLibrary(*library);
  EXPECT_EQ(sink_.progress,
            "own PURECOMP:EMPTY 0/0\nown PURECOMP:TEST 0/2\nown PURECOMP:TEST 1/2\n"
            "own PURECOMP:TEST 2/2\n");
}

// A sink that has only what ZelFindingSink asks for receives the sentences.
TEST_F(LibraryDataTest, SentencesReachASinkOfTheIntegrityCheck) {
  struct Plain final : ZelDataFindingSink {
    void Found(zelFindings severity, char const* id, char const* place, char const* text) override {
      all += std::to_string(severity) + " " + id + " " + place + ": " + text;
    }
    std::string all;
  } plain;
  auto const library = MakeWith("/own.lb1", With(GoodComponent{}, propertyMW, 18.03));
  EXPECT_TRUE(CheckLibraryData({library.get(), "own"}, {}, plain));
  EXPECT_EQ(plain.all,
            "1 formula-weight TEST GOOD: MW is 18.03 kg/kg-mol, but the formula H2O gives 18.015 "
            "kg/kg-mol");
}

TEST_F(LibraryDataTest, LibraryThatIsNotOpen) {
  auto const library = MakeWith("/own.lb1", GoodComponent{});
  library->CloseLibFile();
  std::string const damage = " : []  |  = - ()  at - | - to - () |  | the library: it is not open";
  EXPECT_EQ(CheckLibrary(*library), Lines{"damage header | own" + damage});
  EXPECT_FALSE(isGood_);
  sink_.Clear();
  EXPECT_FALSE(CheckLibraryData({}, {}, sink_));
  EXPECT_EQ(sink_.lines, Lines{"damage header | " + damage});
  auto const one = MakeWith("/one.lb1", With(GoodComponent{}, propertyDIPOLE, 1.8));
  auto const two = MakeWith("/two.lb1", With(GoodComponent{}, propertyDIPOLE, 6.2));
  Compare({{one.get(), "one"}, {library.get(), "own"}, {two.get(), "two"}});
  EXPECT_EQ(sink_.ids, "header magnitude") << "the others are compared";
  EXPECT_FALSE(isGood_);
  sink_.Clear();
  EXPECT_FALSE(CompareLibraryData(nullptr, 2, {}, sink_));
  EXPECT_EQ(sink_.ids, "header");
  EXPECT_TRUE(CompareLibraryData(nullptr, 0, {}, sink_));
}

// The record of the first of two components cannot be read; the other one is checked.
TEST_F(LibraryDataTest, ItemThatCannotBeReadIsLeftOut) {
  auto const library = MakeWith("/own.lb1", GoodComponent{});
  GoodComponent second = With(Bare(10000008, "SECOND", "H2O"), propertyMW, 19);
  Add(*library, second);
  library->CloseLibFile();
  auto& bytes = files_.Contents("/own.lb2");
  std::int32_t const number = 10000007;
  bool isLost = false;
  for (std::size_t at = 0; at + 8 <= bytes.size(); at += 4) {
    std::int32_t words[2];
    std::memcpy(words, &bytes[at], sizeof words);
    if (words[0] != number || words[1] / 1'000'000 != 111) continue;
    std::int32_t const nowhere = 0;
    std::memcpy(&bytes[at + 4], &nowhere, sizeof nowhere);
    isLost = true;
  }
  ASSERT_TRUE(isLost);
  ASSERT_EQ(library->ReopenLibFile(), openOk);
  CheckLibrary(*library);
  EXPECT_EQ(sink_.ids, "item formula-weight");
  EXPECT_FALSE(isGood_);
  EXPECT_EQ(sink_.lines[0].find("damage item | own : []  "), 0U) << sink_.lines[0];
  EXPECT_NE(sink_.lines[0].find("PURECOMP:TEST 10000007: block 0 "), std::string::npos)
      << sink_.lines[0];
  EXPECT_EQ(sink_.progress,
            "own PURECOMP:TEST 0/2\nown PURECOMP:TEST 1/2\nown PURECOMP:TEST 2/2\n");
  // The host's own sink for items is in place again.
  DataSink items;
  SetItemFindings(library.get(), &items);
  CheckLibrary(*library);
  EXPECT_EQ(library->ItemFindings(), &items);
}

TEST(DataChecks, HaveEachAnIdAndARule) {
  std::int32_t count = 0;
  ZelDataCheck const* const checks = GetDataChecks(count);
  ASSERT_EQ(count, 20);
  std::set<std::string> ids;
  for (std::int32_t i = 0; i < count; ++i) {
    EXPECT_TRUE(ids.insert(checks[i].id).second) << checks[i].id;
    EXPECT_STRNE(checks[i].rule, "");
    static std::set<std::string> const errors = {"identity", "cas-formula", "bounds"};
    bool const isError = errors.count(checks[i].id) != 0;
    EXPECT_EQ(checks[i].severity, isError ? findingError : findingWarning) << checks[i].id;
  }
}

TEST(IdentityText, HasWhatTheSourceSays) {
  ZelIdentity identity;
  char text[120] = "x";
  GetIdentityText(identity, text);
  EXPECT_STREQ(text, "a component without a name");
  std::memset(identity.name, 'n', 40);
  std::memset(identity.formula, 'C', 20);
  std::strcpy(identity.ids[0], "LONGESTI");
  identity.number = -2000000000;
  identity.casNumber = 7732185;
  GetIdentityText(identity, text);
  EXPECT_EQ(std::string(text), std::string(40, 'n') + " (-2000000000, LONGESTI, 7732-18-5, " +
                                   std::string(20, 'C') + ")");
  GetIdentityText(identity, nullptr);
}

}  // namespace
}  // namespace zel::test
