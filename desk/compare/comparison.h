// Compares the data of the components that two sources have, by value: whatever their banks are
// called, whatever equations and units their correlations use.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desk/open/identity_conflict.h"
#include "desk/open/session.h"
#include "desk/words/table.h"

namespace zel::desk {

struct CompareOptions {
  std::vector<std::string> components;  // none: all that both sources have
  double tolerance = 0.0;               // relative to the first source, as a fraction
  int steps = 200;                      // of the grid over the common range of two correlations
  bool codes = false;                   // compare the reference codes too
  bool acceptIdentity = false;          // compare components that mean different substances
};

// What was compared and what differs. The tables have a row for each difference.
struct Comparison {
  std::int64_t components = 0;
  std::int64_t constants = 0;  // data that both sources have
  std::int64_t correlations = 0;
  std::int64_t onlyFirst = 0;  // data of these components that one source has
  std::int64_t onlySecond = 0;
  Table differingConstants;
  Table differingCorrelations;
  Table notCompared;     // correlations without a common range or value
  Table oneSided;        // data that one source has
  Table differingCodes;  // empty without `codes`
  // Components that were found under the same number, ID or CAS number and contradict each other.
  // They are compared only with `acceptIdentity`.
  std::vector<IdentityConflict> conflicts;

  Comparison();
  bool Differs() const;
};

// The sources are LIBRARY or LIBRARY:BANK; without a bank, all banks of the library, merged in
// their order. Only stored data are compared. Throws Failure if a source cannot be opened, and for
// a named component that a source does not have or that means two substances.
Comparison Compare(Session& session, std::string const& first, std::string const& second,
                   CompareOptions const& options);

}  // namespace zel::desk
