// The citations of a component as it is merged from a preference list.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "desk/notes/citations.h"
#include "desk/open/preference_list.h"

namespace zel::desk {

// The bank of place `i` of the list.
BankName BankAt(PreferenceList const& list, std::size_t i);
Library const& LibraryAt(PreferenceList const& list, std::size_t i);

struct MergedCitations {
  std::map<std::uint32_t, Citation> constants;  // by index; those that have one
  std::map<std::uint32_t, Citation> curves;
};

// For each datum the citation of the first source that has the datum, as in the merge.
MergedCitations CitationsOf(PreferenceList const& list, std::string const& word,
                            Citations& citations);

}  // namespace zel::desk
