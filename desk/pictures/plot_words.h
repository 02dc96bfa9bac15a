// What the words of a plot mean: a size, a source.
#pragma once

#include <string>

#include "desk/open/preference_list.h"
#include "desk/pictures/chart.h"

namespace zel::desk {

// Sets the size from "800x500"; leaves it for an empty word. Throws WrongUsage if it is not one.
void SetSize(std::string const& word, Chart& chart);

// The place in the list of the source that a word means: its name, its library or its bank. Throws
// WrongUsage, with the sources, if it means no source or several.
std::size_t SourceNamed(PreferenceList const& list, std::string const& word);

}  // namespace zel::desk
