// Findings in the forms that services for builds and code reviews read.
#pragma once

#include <string>
#include <vector>

#include "desk/findings/baseline.h"
#include "desk/findings/finding.h"
#include "desk/findings/library_check.h"

namespace zel::desk {

struct CheckedLibraries {
  std::vector<std::string> libraries;  // as they were named
  std::vector<CheckRule> rules;
  ComparedFindings findings;
  bool hasBaseline = false;
  zel::zelFindings failOn = zel::findingError;  // the least severity that fails
  std::string version;                          // of the program that checked
};

// A SARIF 2.1.0 log with one run. Damage and errors have the level "error". With a baseline, each
// result says whether it is new, unchanged or absent.
std::string ToSarif(CheckedLibraries const& checked);

// JUnit XML: a test suite for each library and a test case for each check. A finding that fails is
// a failure, damage an error; known findings and those that do not fail are output of the test
// case.
std::string ToJunit(CheckedLibraries const& checked);

}  // namespace zel::desk
