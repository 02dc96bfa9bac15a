// The judgement of the data of libraries: what is reported, in which order, with what evidence.
#include <algorithm>

#include "tests/verify/data_check_fixture.h"
#include "zelaccess/DataJudgement.h"

namespace zel::test {
namespace {

struct Found {
  std::string library, item, datum, id, text, fingerprint;
  double strength = 0.0;
  std::vector<std::string> evidence;  // "rule datum source"
};

class JudgeSink final : public ZelDataFindingSink {
 public:
  void Found(zelFindings, char const* id, char const*, char const* text) override {
    ADD_FAILURE() << "not through FoundData: " << id << ' ' << text;
  }
  void FoundData(ZelDataFinding const& finding) override {
    if (finding.severity == findingDamage) {
      damages.emplace_back(finding.text);
      return;
    }
    found.push_back({finding.library,
                     finding.item,
                     finding.datum,
                     finding.id,
                     finding.text,
                     finding.fingerprint,
                     finding.strength,
                     {}});
    for (std::int32_t i = 0; i < finding.evidenceCount; ++i) {
      ZelDataEvidence const& one = finding.evidence[i];
      EXPECT_GT(one.deviation, 1.0);
      found.back().evidence.push_back(std::string(one.rule) + ' ' + one.datum + ' ' + one.source);
    }
  }

  std::vector<test::Found> found;
  std::vector<std::string> damages;
};

class JudgeLibrariesTest : public DataCheckTest {
 protected:
  // Water of three sources that agree, by default; `change` is for the second one.
  std::vector<Found> Judge(std::function<void(IZelPureComp&)> const& change,
                           ZelJudgementOptions const& options = {}) {
    std::vector<std::unique_ptr<LibFile_i>> libraries;
    std::vector<ZelCheckedLibrary> checked;
    for (char const* const name : {"one", "two", "three"}) {
      GoodComponent component = Water();
      if (name == std::string("two")) {
        component.change = [before = component.change, change](IZelPureComp& c) {
          before(c);
          if (change) change(c);
        };
      }
      libraries.push_back(Make((std::string("/") + name + ".lb1").c_str()));
      Add(*libraries.back(), component);
      checked.push_back({libraries.back().get(), name});
    }
    JudgeSink sink;
    isGood_ = JudgeLibraryData(checked.data(), 3, options, sink);
    EXPECT_EQ(sink.damages, Lines{});
    return sink.found;
  }
  // Constants of water that agree with each other.
  static GoodComponent Water() {
    GoodComponent water = Bare(10000326, "WATER", "H2O");
    for (auto const& [index, value] :
         std::initializer_list<std::pair<zelProperties, double>>{{propertyMW, 18.0153},
                                                                 {propertyTC, 647.1},
                                                                 {propertyPC, 22064},
                                                                 {propertyVC, 0.05595},
                                                                 {propertyZC, 0.2294},
                                                                 {propertyACENTRIC, 0.3443},
                                                                 {propertyNBP, 373.12},
                                                                 {propertyHFORMATION, -241818}}) {
      water = With(std::move(water), index, value);
    }
    return water;
  }
  static auto Set(zelProperties index, double value) {
    return [=](IZelPureComp& c) { c.SetProperty(index, value); };
  }
};

TEST_F(JudgeLibrariesTest, DataThatAgreeHaveNoFinding) {
  EXPECT_TRUE(Judge({}).empty());
  EXPECT_TRUE(isGood_);
}

TEST_F(JudgeLibrariesTest, TheWrongDatumIsNamedWithItsEvidence) {
  std::vector<Found> const found = Judge(Set(propertyTC, 647.1 - 273.15));
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].library, "two");
  EXPECT_EQ(found[0].item, "WATER");
  EXPECT_EQ(found[0].datum, "TC");
  EXPECT_GT(found[0].strength, 0.95);
  EXPECT_NE(found[0].text.find("TC is 373.95 K, "), std::string::npos) << found[0].text;
  EXPECT_NE(found[0].text.find("; looks like C taken for K"), std::string::npos) << found[0].text;
  for (char const* const evidence : {"magnitude TC one TEST", "magnitude TC two TEST"}) {
    EXPECT_EQ(std::count(found[0].evidence.begin(), found[0].evidence.end(), evidence), 1)
        << evidence;
  }
  EXPECT_TRUE(isGood_) << "a suspicion is a warning";
}

TEST_F(JudgeLibrariesTest, FingerprintsChangeWithTheStoredValueAlone) {
  std::string const first = Judge(Set(propertyTC, 400)).at(0).fingerprint;
  EXPECT_EQ(first.size(), 16U);
  EXPECT_EQ(Judge(Set(propertyTC, 400)).at(0).fingerprint, first);
  EXPECT_NE(Judge(Set(propertyTC, 401)).at(0).fingerprint, first);
}

TEST_F(JudgeLibrariesTest, WeakFindingsAndSilentRulesAreLeftOut) {
  ZelJudgementOptions options;
  options.minStrength = 1.0;
  EXPECT_TRUE(Judge(Set(propertyHFORMATION, -255000), options).empty());
  options.minStrength = 0.0;
  EXPECT_FALSE(Judge(Set(propertyHFORMATION, -255000), options).empty());
  char const* const silent[] = {"magnitude", nullptr, "unknown"};
  options.silent = silent;
  options.silentCount = 3;
  for (Found const& one : Judge(Set(propertyHFORMATION, -255000), options)) {
    EXPECT_NE(one.id, "magnitude");
  }
}

TEST_F(JudgeLibrariesTest, LibrariesThatAreNotOpenAreDamage) {
  JudgeSink sink;
  EXPECT_TRUE(JudgeLibraryData(nullptr, 0, {}, sink));
  EXPECT_FALSE(JudgeLibraryData(nullptr, 1, {}, sink));
  ZelCheckedLibrary const none[] = {{nullptr, "none"}};
  EXPECT_FALSE(JudgeLibraryData(none, 1, {}, sink));
  EXPECT_EQ(sink.damages, (Lines{"it is not open", "it is not open"}));
  EXPECT_TRUE(sink.found.empty());
}

TEST_F(JudgeLibrariesTest, RulesHaveIdFormulaAndTolerance) {
  std::int32_t count = 0;
  ZelDataRule const* const rules = GetDataRules(count);
  ASSERT_GT(count, 20);
  for (std::int32_t i = 0; i < count; ++i) {
    EXPECT_NE(rules[i].id, std::string());
    EXPECT_NE(rules[i].formula, std::string()) << rules[i].id;
    EXPECT_NE(rules[i].tolerance, std::string()) << rules[i].id;
  }
}

}  // namespace
}  // namespace zel::test
