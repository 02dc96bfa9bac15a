// Checks whether sources of a component mean the same substance. Numbers, IDs and CAS numbers are
// assigned by the author of a library, and two libraries can use the same one for different
// substances.
#pragma once

#include <zelaccess/Identity.h>

#include <optional>
#include <string>
#include <vector>

#include "desk/words/table.h"

namespace zel::desk {

// A component and where it was read.
struct SourcedIdentity {
  std::string source;  // "crc.lb1:CRC"
  zel::ZelIdentity identity;
};
// "Water (10000326, WATER, 7732-18-5, H2O)", without the parts that the source does not have.
std::string ToText(zel::ZelIdentity const& identity);

// False if the two contradict each other (CompareIdentities), and if they have the same number but
// nothing else that says they are one substance: no ID, no name, no CAS number and no formula. A
// source that has neither an ID nor a name for it is accepted.
bool AreOneSubstance(zel::ZelIdentity const& one, zel::ZelIdentity const& other);

// What was found for one word of the command line, if that is more than one substance.
struct IdentityConflict {
  std::string word;
  std::vector<SourcedIdentity> found;
  std::size_t one = 0;  // indexes in `found` of two that contradict each other
  std::size_t other = 0;
};
// Nothing if no two contradict each other.
std::optional<IdentityConflict> ConflictIn(std::string const& word,
                                           std::vector<SourcedIdentity> found);
// Names both identities.
std::string ToText(IdentityConflict const& conflict);
// The end of a message if they have only the number in common: that `zel renumber` can change one
// of the numbers. Else empty.
std::string Advice(IdentityConflict const& conflict);

// A table with everything that was found.
Table IdentityTable(std::vector<IdentityConflict> const& conflicts);

}  // namespace zel::desk
