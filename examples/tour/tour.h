// The two halves of the tour.
#pragma once

#include <string>

#include "handles.h"
#include "table.h"

namespace tour {

// Bank names: which bank of a type is meant; a library can hold several.
inline constexpr char kName[] = "SAMPLE";

// Fills a new library from the tables in `data` and prints what went into each bank.
void WriteBanks(zel::LibFile* library, std::string const& data, Components const& components);

// Prints what a reader finds.
void PrintBanks(zel::LibFile* library);
void PrintPairs(zel::LibFile* library, Components const& components);
void PrintGroups(zel::LibFile* library);

}  // namespace tour
