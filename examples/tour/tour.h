// The parts of the tour.
#pragma once

#include <string>
#include <vector>

#include "handles.h"
#include "table.h"

namespace tour {

// Bank names: which bank of a type is meant; a library can hold several.
inline constexpr char kName[] = "SAMPLE";
inline constexpr char kSmallName[] = "ALKANES";

// Fills a new library from the tables in `data` and prints what went into each bank.
void WriteBanks(zel::LibFile* library, std::string const& data, Components const& components);

// What a reader finds. `cited` collects the reference codes that were printed.
using Codes = std::vector<int>;
void PrintBanks(zel::LibFile* library);
void PrintSmallTree(zel::LibFile* library);
void PrintPairs(zel::LibFile* library, Components const& components, Codes& cited);
void PrintComponents(zel::LibFile* library, Components const& components, Codes& cited);
void PrintGroups(zel::LibFile* library, Components const& components, Codes& cited);

// Columns. A number, right-aligned, or a dash where there is none.
void PrintReal(double value, int width, int decimals);
// Lower and upper bound as one column of 15, e.g. "101.3 - 101.3", or a dash where both are
// missing.
void PrintBounds(double low, double high);
// The code of a printed source, which is put on the list of those cited.
void PrintCode(int code, Codes& cited);

}  // namespace tour
