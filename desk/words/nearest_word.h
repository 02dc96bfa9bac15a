// Suggests the word that was probably meant.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zel::desk {

// The number of letters that must be inserted, deleted, changed or swapped with their neighbor to
// turn one text into the other.
std::size_t EditDistance(std::string const& one, std::string const& other);

// The distance of a name that the word may mean: at most a third of the word's letters, or any
// distance if the name begins with the word and `acceptBeginning` is set. Nothing for other names.
// Letters are compared as they are.
std::optional<std::size_t> DistanceOf(std::string const& word, std::string const& name,
                                      bool acceptBeginning = true);

// The candidate that the word probably means, in upper or lower case: the first of those with the
// least distance. Empty if no candidate is near.
std::string NearestWord(std::string const& word, std::vector<std::string> const& candidates);
// The same for a message that goes on with where to look: "; did you mean NBP?", or ";" if no
// candidate is near.
std::string DidYouMean(std::string const& word, std::vector<std::string> const& candidates);

}  // namespace zel::desk
