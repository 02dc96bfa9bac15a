#include <algorithm>
#include <nlohmann/json.hpp>

#include "desk/findings/finding_formats.h"
#include "desk/pictures/markup.h"

namespace zel::desk {
namespace {

struct TestCase {
  std::string id;
  std::string body;  // XML
  int failures = 0;
  int errors = 0;
};

std::string Element(char const* name, Finding const& finding) {
  return std::string("      <") + name + " type=\"" + Escaped(finding.id) + "\" message=\"" +
         Escaped(finding.place + ": " + finding.text) + "\"/>\n";
}

void Add(CheckedLibraries const& checked, Finding const& finding, TestCase& test,
         std::string& output) {
  if (!IsAtLeast(finding.severity, checked.failOn)) {
    output += std::string(WordOf(finding.severity)) + ": " + LineOf(finding) + "\n";
  } else if (finding.severity == zel::findingDamage) {
    ++test.errors;
    test.body += Element("error", finding);
  } else {
    ++test.failures;
    test.body += Element("failure", finding);
  }
}

// The check of one library, with what it found there. A finding about several libraries is at the
// one that it names.
TestCase CaseOf(CheckedLibraries const& checked, std::string const& id,
                std::string const& library) {
  TestCase test;
  test.id = id;
  std::string output;
  for (Finding const& finding : checked.findings.fresh) {
    if (finding.id == id && finding.library == library) Add(checked, finding, test, output);
  }
  for (Finding const& finding : checked.findings.known) {
    if (finding.id != id || finding.library != library) continue;
    output += "in the baseline: " + LineOf(finding) + "\n";
  }
  if (!output.empty()) test.body += "      <system-out>" + Escaped(output) + "</system-out>\n";
  return test;
}

// The IDs of all checks and of the damage that was found.
std::vector<std::string> IdsOf(CheckedLibraries const& checked) {
  std::vector<std::string> ids;
  for (CheckRule const& rule : checked.rules) ids.push_back(rule.id);
  for (auto const* findings : {&checked.findings.fresh, &checked.findings.known}) {
    for (Finding const& finding : *findings) {
      if (std::find(ids.begin(), ids.end(), finding.id) == ids.end()) ids.push_back(finding.id);
    }
  }
  return ids;
}

std::string Counts(std::size_t tests, int failures, int errors) {
  return " tests=\"" + std::to_string(tests) + "\" failures=\"" + std::to_string(failures) +
         "\" errors=\"" + std::to_string(errors) + "\">\n";
}

}  // namespace

std::string ToJunit(CheckedLibraries const& checked) {
  std::vector<std::string> const ids = IdsOf(checked);
  std::string suites;
  int allFailures = 0;
  int allErrors = 0;
  for (std::string const& library : checked.libraries) {
    std::string cases;
    int failures = 0;
    int errors = 0;
    for (std::string const& id : ids) {
      TestCase const test = CaseOf(checked, id, library);
      failures += test.failures;
      errors += test.errors;
      cases += "    <testcase classname=\"" + Escaped(library) + "\" name=\"" + Escaped(id) + "\"" +
               (test.body.empty() ? "/>\n" : ">\n" + test.body + "    </testcase>\n");
    }
    suites += "  <testsuite name=\"" + Escaped(library) + "\"" +
              Counts(ids.size(), failures, errors) + cases + "  </testsuite>\n";
    allFailures += failures;
    allErrors += errors;
  }
  std::string const document =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites name=\"zel check\"" +
      Counts(ids.size() * checked.libraries.size(), allFailures, allErrors) + suites +
      "</testsuites>\n";
  // Bytes that are not UTF-8 are replaced, as in JSON.
  using Json = nlohmann::json;
  return Json::parse(Json(document).dump(-1, ' ', false, Json::error_handler_t::replace))
      .get<std::string>();
}

}  // namespace zel::desk
