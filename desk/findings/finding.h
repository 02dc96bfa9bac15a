// What a check of libraries found.
#pragma once

#include <zelaccess/DataCheck.h>
#include <zelaccess/Types.h>
#include <zelaccess/Verify.h>

#include <string>
#include <vector>

#include "desk/words/table.h"

namespace zel::desk {

// Texts that do not apply are empty, numbers that do not apply undefined.
struct Finding {
  zel::zelFindings severity = zel::findingWarning;
  std::string id;       // of the check
  std::string library;  // as it was named
  std::string place;    // a file, a tree, a bank, or bank and item
  std::string text;     // what is wrong
  std::string bank;     // "PURECOMP:CRC"
  std::string item;     // "ACETONE", "1 + 2"
  std::string datum;
  double value = zel::gen_GetUndefDouble();        // in `unit`
  double temperature = zel::gen_GetUndefDouble();  // in K
  double expectedMin = zel::gen_GetUndefDouble();  // in `unit`
  double expectedMax = zel::gen_GetUndefDouble();  // in `unit`
  std::string unit;
  double strength = 1.0;    // how likely the datum is wrong, 0 to 1
  std::string fingerprint;  // 16 digits; see ZelDataFinding
  // The comparisons that make the datum suspect, the worst first, at most eight; see
  // ZelDataEvidence.
  std::vector<std::string> evidence;
};

// "note", "warning", "error" or "damage", from the least severe to the most severe.
char const* WordOf(zel::zelFindings severity);
// True if `severity` is as bad as `least`, or worse.
bool IsAtLeast(zel::zelFindings severity, zel::zelFindings least);
// The severity that a word means, except damage. Throws WrongUsage, which names `option`.
zel::zelFindings SeverityNamed(std::string const& word, char const* option);
// "perry.lb1: PERRY ACN: ZC is 0.263"
std::string LineOf(Finding const& finding);
// What a check of data has found.
Finding FindingOf(zel::ZelDataFinding const& found);
// A table with a row for each: severity, id, "what" as by LineOf, and the members, for programs.
Table FindingTable(std::string const& name, std::vector<Finding> const& findings);

}  // namespace zel::desk
