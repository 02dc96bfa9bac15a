// Findings that are known already, so that a check reports what is new.
#pragma once

#include <string>
#include <vector>

#include "desk/findings/finding.h"

namespace zel::desk {

// The findings of a former `zel check --json`. Throws Error if the file is not one.
std::vector<Finding> ReadBaseline(std::string const& path);

struct ComparedFindings {
  std::vector<Finding> fresh;  // not in the baseline
  std::vector<Finding> known;
  std::vector<Finding> gone;  // only in the baseline
};

// Two findings are the same if the check, the name of the library without its folder, the place and
// the text are the same, whatever the severity; two judged findings, if the library and the
// fingerprint are.
ComparedFindings CompareFindings(std::vector<Finding> const& findings,
                                 std::vector<Finding> const& baseline);

// A text of 16 digits that is the same for the same finding, as above.
std::string FingerprintOf(Finding const& finding);

}  // namespace zel::desk
