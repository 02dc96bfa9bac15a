// check: what fails, baselines, SARIF and JUnit.
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <memory>
#include <set>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

class CheckFormsTest : public ZelTest {
 protected:
  json Checked(std::string const& words, int status) const {
    Outcome const outcome = Zel("check " + words + " --json");
    EXPECT_EQ(outcome.status, status) << words << "\n" << outcome.err;
    return json::parse(outcome.out, nullptr, false);
  }
  int StatusOf(std::string const& words) const { return Zel("check " + words).status; }
  void Fails(std::string const& words, int status, std::string const& text) const {
    Outcome const outcome = Zel("check " + words);
    EXPECT_EQ(outcome.status, status) << words;
    EXPECT_EQ(outcome.out, "") << words;
    EXPECT_NE(outcome.err.find(text), std::string::npos) << words << "\n" << outcome.err;
  }
  // A copy of crc.lb1 with one more warning.
  void MakeWorse() const {
    Good("copy crc.lb1 own.lb1 --create");
    Good("edit own.lb1 ETHANOL MW 47");
  }
  void Damage(std::string const& name) const {
    std::string bytes = FileText(Folder() / name);
    bytes[1000] = '\x63';  // the length of the free list, in the block table
    MakeFile(name, bytes);
  }
};

TEST_F(CheckFormsTest, FindingsHaveMembers) {
  MakeWorse();
  json const row = Row(Checked("own.lb1 --silence source", 0)["findings"], "item", "ETHANOL");
  EXPECT_EQ(row["severity"], "warning");
  EXPECT_EQ(row["library"], "own.lb1");
  EXPECT_EQ(row["bank"], "PURECOMP:CRC");
  EXPECT_EQ(row["place"], "CRC ETHANOL");
  EXPECT_EQ(row["datum"], "MW");
  EXPECT_DOUBLE_EQ(row["value"].get<double>(), 47);
  EXPECT_NEAR(row["expected_from"].get<double>(), 46.069, 0.01);
  EXPECT_EQ(row["expected_to"], row["expected_from"]);
  EXPECT_EQ(row["unit"], "kg/kg-mol");
  EXPECT_GT(row["strength"].get<double>(), 0.5);
  EXPECT_LE(row["strength"].get<double>(), 1);
  EXPECT_EQ(row["fingerprint"].get<std::string>().size(), 16U);
  std::string const evidence = row["evidence"];
  EXPECT_EQ(evidence.find("MW of own.lb1 CRC ETHANOL is 47 kg/kg-mol, expected 46.0"), 0U)
      << evidence;
  EXPECT_NE(evidence.find("kg/kg-mol from the formula (formula-weight)"), std::string::npos)
      << evidence;
  std::string const what = row["what"];
  EXPECT_EQ(what, "own.lb1: CRC ETHANOL: " + row["text"].get<std::string>());
  std::string const csv = Good("check own.lb1 --csv");
  for (char const* name : {"expected from", "strength", "fingerprint", "evidence"}) {
    EXPECT_EQ(csv.find(name), std::string::npos) << "the other forms stay as they were";
  }
}

TEST_F(CheckFormsTest, FindingsAreInTheOrderOfSeverityAndStrength) {
  std::map<std::string, int> const ranks = {
      {"damage", 0}, {"error", 1}, {"warning", 2}, {"note", 3}};
  json const found = Checked("perry.lb1 crc.lb1 --min-strength 0", 0)["findings"];
  ASSERT_GT(found.size(), 20U);
  for (std::size_t i = 1; i < found.size(); ++i) {
    int const before = ranks.at(found[i - 1]["severity"]);
    int const rank = ranks.at(found[i]["severity"]);
    EXPECT_LE(before, rank) << i;
    if (before != rank) continue;
    EXPECT_GE(found[i - 1]["strength"], found[i]["strength"]) << i;
  }
}

TEST_F(CheckFormsTest, MinStrengthLeavesOutWeakerFindings) {
  MakeWorse();
  json const all = Checked("own.lb1 --min-strength 0", 0)["findings"];
  EXPECT_EQ(Checked("own.lb1", 0)["findings"],
            Checked("own.lb1 --min-strength 0.5", 0)["findings"]);
  for (char const* least : {"0.25", "0.5", "0.85", "1"}) {
    json expected = json::array();
    std::size_t weaker = 0;
    for (json const& one : all) {
      // The last digits of a strength are not shown.
      double const distance = one["strength"].get<double>() - std::stod(least);
      if (distance > 0.005) expected.push_back(one["what"]);
      if (distance < -0.005) ++weaker;
    }
    json const found = Checked("own.lb1 --min-strength " + std::string(least), 0)["findings"];
    EXPECT_LE(found.size(), all.size() - weaker) << least;
    ASSERT_GE(found.size(), expected.size()) << least;
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(found[i]["what"], expected[i]);
    EXPECT_GT(weaker, 0U) << least;
  }
  for (char const* word : {"-0.1", "1.01", "much", "nan", "50%"}) {
    Fails("crc.lb1 --min-strength " + std::string(word), 2, "--min-strength");
  }
}

// Damage and errors are certain.
TEST_F(CheckFormsTest, MinStrengthLeavesDamageIn) {
  Damage("perry.lb1");
  json const found = Checked("perry.lb1 --min-strength 1", 1)["findings"];
  ASSERT_GE(found.size(), 1U);
  EXPECT_EQ(found[0]["severity"], "damage");
  EXPECT_EQ(found[0]["strength"], 1.0);
}

TEST_F(CheckFormsTest, FailOnSaysFromWhichSeverityACheckFails) {
  EXPECT_EQ(StatusOf("perry.lb1"), 0);
  EXPECT_EQ(StatusOf("perry.lb1 --fail-on error"), 0);
  EXPECT_EQ(StatusOf("perry.lb1 --fail-on warning"), 1);
  EXPECT_EQ(StatusOf("perry.lb1 --fail-on Note"), 1);
  EXPECT_EQ(StatusOf("sample.lb1 --fail-on warning"), 0);
  EXPECT_EQ(StatusOf("sample.lb1 --fail-on note"), 0);
  Fails("perry.lb1 --fail-on waring", 2, "did you mean warning?");
  Fails("perry.lb1 --fail-on damage", 2, "--fail-on is error, warning or note, not damage");
  Damage("perry.lb1");
  for (char const* least : {"error", "warning", "note"}) {
    EXPECT_EQ(StatusOf("perry.lb1 --fail-on " + std::string(least)), 1) << least;
  }
}

TEST_F(CheckFormsTest, FindingsOfABaselineDoNotCount) {
  MakeWorse();
  MakeFile("base.json", Zel("check crc.lb1 --json").out);
  fs::rename(Folder() / "crc.lb1", Folder() / "old.lb1");
  fs::rename(Folder() / "crc.lb2", Folder() / "old.lb2");
  for (char const* ending : {".lb1", ".lb2"}) {
    fs::create_directories(Folder() / "new");
    fs::rename(Folder() / ("own" + std::string(ending)),
               Folder() / ("new/crc" + std::string(ending)));
  }
  json const fresh = Checked("new/crc.lb1 --baseline base.json --fail-on warning", 1);
  json const all = Checked("new/crc.lb1", 0);
  ASSERT_EQ(fresh["findings"].size(), 1U);
  EXPECT_EQ(fresh["findings"][0]["id"], "formula-weight");
  EXPECT_EQ(fresh["warnings"], 1);
  EXPECT_EQ(fresh["known"].get<std::size_t>() + 1, all["findings"].size());
  EXPECT_EQ(fresh["gone"], 0);
  MakeFile("base.json", Zel("check new/crc.lb1 --json").out);
  EXPECT_EQ(StatusOf("new/crc.lb1 --baseline base.json --fail-on warning"), 0);
}

// A judged finding is the same as long as the datum and what is stored for it are, whatever else it
// is compared with.
TEST_F(CheckFormsTest, BaselineKnowsAJudgedFindingByItsFingerprint) {
  MakeWorse();
  json const alone = Row(Checked("own.lb1", 0)["findings"], "item", "ETHANOL");
  MakeFile("base.json", Zel("check own.lb1 --json").out);
  json const beside = Row(Checked("own.lb1 perry.lb1", 0)["findings"], "datum", "MW");
  EXPECT_EQ(beside["fingerprint"], alone["fingerprint"]);
  EXPECT_NE(beside["evidence"], alone["evidence"]);
  json const fresh = Checked("own.lb1 perry.lb1 --baseline base.json", 0)["findings"];
  for (json const& one : fresh) EXPECT_NE(one["fingerprint"], alone["fingerprint"]) << one;
  Good("edit own.lb1 ETHANOL MW 48");
  json const other = Checked("own.lb1 --baseline base.json", 0);
  ASSERT_EQ(other["findings"].size(), 1U);
  EXPECT_NE(other["findings"][0]["fingerprint"], alone["fingerprint"]);
  EXPECT_EQ(other["gone"], 1);
}

TEST_F(CheckFormsTest, FindingsThatAreGoneAreReported) {
  MakeWorse();
  MakeFile("base.json", Zel("check own.lb1 --json").out);
  Good("undo own.lb1");
  json const report = Checked("own.lb1 --baseline base.json --fail-on warning", 0);
  EXPECT_EQ(report["findings"], json::array());
  EXPECT_EQ(report["gone"], 1);
  ASSERT_EQ(report["gone_findings"].size(), 1U);
  EXPECT_EQ(report["gone_findings"][0]["id"], "formula-weight");
}

// The same finding twice, once in the baseline: one of them is new.
TEST_F(CheckFormsTest, ABaselineCountsHowOftenAFindingIsThere) {
  json base = Checked("perry.lb1 --silence source", 0);
  json const first = base["findings"][0];
  base["findings"].push_back(first);
  MakeFile("base.json", base.dump());
  EXPECT_EQ(Checked("perry.lb1 --silence source --baseline base.json", 0)["gone"], 1);
  base["findings"].erase(0);
  base["findings"].erase(base["findings"].size() - 1);
  MakeFile("base.json", base.dump());
  EXPECT_EQ(Checked("perry.lb1 --silence source --baseline base.json", 0)["findings"],
            json::array({first}));
}

TEST_F(CheckFormsTest, FileThatIsNoBaselineIsRefused) {
  MakeFile("text", "perry");
  MakeFile("other.json", Zel("info perry.lb1 --json").out);
  MakeFile("old.json",
           R"({"schema": "zel/check", "findings": [{"severity": "warning", "what": "x"}]})");
  fs::create_directory(Folder() / "folder");
  Fails("perry.lb1 --baseline none", 1, "none: not found");
  Fails("perry.lb1 --baseline folder", 1, "folder: is a folder");
  for (char const* file : {"text", "other.json"}) {
    Fails("perry.lb1 --baseline " + std::string(file), 1, "is not a baseline");
  }
  Fails("perry.lb1 --baseline old.json", 1, "a finding has no text \"id\"");
  Fails("perry.lb1 --format html", 2, "--format is sarif or junit, not html");
  Fails("perry.lb1 --format sarif --csv", 2, "--format excludes --json and --csv");
}

TEST_F(CheckFormsTest, SarifHasWhatTheStandardRequires) {
  MakeWorse();
  MakeFile("base.json", Zel("check own.lb1 --json --silence source").out);
  Good("edit own.lb1 ETHANOL MW 48");
  fs::create_directory(Folder() / "a b");
  for (char const* ending : {".lb1", ".lb2"}) {
    fs::copy_file(Folder() / ("own" + std::string(ending)),
                  Folder() / ("a b/own" + std::string(ending)));
  }
  json const found = Checked("'a b/own.lb1' --silence source", 0)["findings"];
  json const log =
      json::parse(Good("check 'a b/own.lb1' --silence source --baseline base.json --format sarif"));
  EXPECT_EQ(log.at("version"), "2.1.0");
  ASSERT_EQ(log.at("runs").size(), 1U);
  json const& driver = log["runs"][0].at("tool").at("driver");
  EXPECT_EQ(driver.at("name"), "zel");
  EXPECT_EQ(driver.at("version"), ZEL_VERSION);
  std::set<std::string> ids;
  for (json const& rule : driver.at("rules")) {
    EXPECT_TRUE(ids.insert(rule.at("id")).second) << rule;
    EXPECT_FALSE(rule.at("shortDescription").at("text").get<std::string>().empty());
  }
  json const& results = log["runs"][0].at("results");
  std::map<std::string, std::size_t> states;
  std::set<std::string> prints;
  for (json const& result : results) {
    EXPECT_EQ(driver["rules"].at(result.at("ruleIndex").get<std::size_t>())["id"],
              result.at("ruleId"));
    EXPECT_EQ(result.at("level"), "warning");
    EXPECT_FALSE(result.at("message").at("text").get<std::string>().empty());
    json const& place = result.at("locations").at(0);
    std::string const uri = place.at("physicalLocation").at("artifactLocation").at("uri");
    ++states[result.at("baselineState")];
    EXPECT_EQ(uri, result["baselineState"] == "absent" ? "own.lb1" : "a%20b/own.lb1");
    EXPECT_FALSE(place.at("logicalLocations").at(0).at("fullyQualifiedName").empty());
    prints.insert(result.at("partialFingerprints").at("zelFinding/v1"));
    EXPECT_GE(result.at("rank"), 50);
    EXPECT_LE(result.at("rank"), 100);
    if (result["ruleId"] == "formula-weight" && result["baselineState"] == "new") {
      std::string const evidence = result.at("properties").at("evidence").at(0);
      EXPECT_EQ(evidence.find("MW of "), 0U) << evidence;
    }
  }
  EXPECT_EQ(states["new"], 1U);
  EXPECT_EQ(states["absent"], 1U);
  EXPECT_EQ(states["unchanged"] + 1, found.size());
  EXPECT_EQ(prints.size(), results.size());
}

TEST_F(CheckFormsTest, SarifCallsDamageAnError) {
  Damage("perry.lb1");
  Outcome const outcome = Zel("check perry.lb1 --format sarif");
  EXPECT_EQ(outcome.status, 1);
  json const run = json::parse(outcome.out)["runs"][0];
  EXPECT_EQ(run["results"][0]["level"], "error");
  EXPECT_EQ(run["results"][0]["ruleId"], "extent");
  EXPECT_FALSE(run["results"][0].contains("baselineState"));
}

// A document that libxml2 has read.
class Document {
 public:
  explicit Document(std::string const& text)
      : document_(xmlReadMemory(text.data(), static_cast<int>(text.size()), "", nullptr,
                                XML_PARSE_NONET | XML_PARSE_NOERROR)) {}
  Document(Document const&) = delete;
  Document& operator=(Document const&) = delete;
  ~Document() { xmlFreeDoc(document_); }

  xmlNode* Root() const { return document_ == nullptr ? nullptr : xmlDocGetRootElement(document_); }

 private:
  xmlDoc* document_;
};

std::string Attribute(xmlNode* node, char const* name) {
  xmlChar* const text = xmlGetProp(node, reinterpret_cast<xmlChar const*>(name));
  std::string result = text == nullptr ? "(none)" : reinterpret_cast<char const*>(text);
  xmlFree(text);
  return result;
}

std::vector<xmlNode*> Below(xmlNode* node, std::string const& name) {
  std::vector<xmlNode*> found;
  for (xmlNode* child = node->children; child != nullptr; child = child->next) {
    if (child->type == XML_ELEMENT_NODE && name == reinterpret_cast<char const*>(child->name)) {
      found.push_back(child);
    }
  }
  return found;
}

TEST_F(CheckFormsTest, JunitHasATestForEachCheckOfEachLibrary) {
  Good("edit perry.lb1 WATER MW 19");
  json const found =
      Checked("perry.lb1 sample.lb1 --silence source --fail-on warning", 1)["findings"];
  Outcome const outcome =
      Zel("check perry.lb1 sample.lb1 --silence source --fail-on warning --format junit");
  EXPECT_EQ(outcome.status, 1);
  Document const document(outcome.out);
  ASSERT_NE(document.Root(), nullptr) << outcome.out;
  EXPECT_STREQ(reinterpret_cast<char const*>(document.Root()->name), "testsuites");
  EXPECT_EQ(Attribute(document.Root(), "failures"), std::to_string(found.size()));
  auto const suites = Below(document.Root(), "testsuite");
  ASSERT_EQ(suites.size(), 2U);
  EXPECT_EQ(Attribute(suites[0], "name"), "perry.lb1");
  EXPECT_EQ(Attribute(suites[1], "failures"), "0");
  std::size_t const checks = Json("check --ids")["checks"].size();
  std::size_t failures = 0;
  for (xmlNode* suite : suites) {
    auto const cases = Below(suite, "testcase");
    EXPECT_EQ(cases.size(), checks);
    EXPECT_EQ(Attribute(suite, "tests"), std::to_string(checks));
    for (xmlNode* test : cases) {
      EXPECT_EQ(Attribute(test, "classname"), Attribute(suite, "name"));
      failures += Below(test, "failure").size();
      bool const isWeight = Attribute(test, "name") == "formula-weight" && suite == suites[0];
      if (!isWeight) continue;
      auto const failed = Below(test, "failure");
      ASSERT_EQ(failed.size(), 1U);
      EXPECT_NE(Attribute(failed[0], "message").find("PERRY WATER: MW is 19"), std::string::npos);
    }
  }
  EXPECT_EQ(failures, found.size());
}

TEST_F(CheckFormsTest, JunitShowsWhatDoesNotFailAsOutput) {
  MakeFile("base.json", Zel("check perry.lb1 --json --silence source").out);
  Document const warned(Good("check perry.lb1 --silence source --format junit"));
  Document const known(
      Good("check perry.lb1 --silence source --format junit --baseline base.json --fail-on note"));
  for (Document const* document : {&warned, &known}) {
    ASSERT_NE(document->Root(), nullptr);
    EXPECT_EQ(Attribute(document->Root(), "failures"), "0");
    std::size_t outputs = 0;
    for (xmlNode* test : Below(Below(document->Root(), "testsuite").at(0), "testcase")) {
      outputs += Below(test, "system-out").size();
    }
    EXPECT_GE(outputs, 1U);
  }
  Damage("perry.lb1");
  Outcome const outcome = Zel("check perry.lb1 --format junit");
  EXPECT_EQ(outcome.status, 1);
  Document const damaged(outcome.out);
  ASSERT_NE(damaged.Root(), nullptr);
  EXPECT_NE(Attribute(damaged.Root(), "errors"), "0");
}

}  // namespace
}  // namespace zel::test
