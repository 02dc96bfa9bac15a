// The parts of the tour.
#pragma once

#include <string>
#include <vector>

#include "handles.h"
#include "table.h"

namespace tour {

// Bank names: a library can hold several banks of one type.
inline constexpr char kName[] = "SAMPLE";
inline constexpr char kSmallName[] = "ALKANES";

// Imports an interchange document into a library and shows the log. Throws std::runtime_error with
// the last error if there was one.
void ImportDocument(zel::LibFile* library, std::string const& path);
// Exports the library into `folder`, imports the documents into `second`, which is new, exports
// that too and compares the two exports. Throws std::runtime_error if they differ.
void ExportAndReadBack(zel::LibFile* library, zel::LibFile* second, std::string const& folder);

// Print what is in the library. `cited` collects the reference codes that were printed.
using Codes = std::vector<int>;
void PrintBanks(zel::LibFile* library);
void PrintSmallTree(zel::LibFile* library);
void PrintPairs(zel::LibFile* library, Components const& components, Codes& cited);
void PrintComponents(zel::LibFile* library, Components const& components, Codes& cited);
void PrintGroups(zel::LibFile* library, Components const& components, Codes& cited);

// --- pure components: one library per source -----------------------------------------------------

struct Source {
  char const* name;  // of the bank, and in lower case of the files
  char const* what;
};
// In order of preference.
inline constexpr Source kSources[] = {
    {"PERRY", "Perry's handbook"},       {"CHEMSEP", "ChemSep data"},
    {"VDI", "VDI Heat Atlas"},           {"POLING", "Poling, Prausnitz, O'Connell, and others"},
    {"CRC", "CRC Handbook, and others"}, {"NIST", "NIST WebBook, and others"}};

std::string LowerCase(std::string text);

// The names of the constants and correlations of a component, and their units.
struct ConstantRow {
  char const* keyword;
  std::uint32_t index;
  char const* unit;
};
struct CurveRow {
  char const* name;
  std::uint32_t index;
  char const* unit;  // of the value that the library returns
};
CurveRow const* FindCurve(std::string const& name);
std::vector<ConstantRow> const& AllConstants();

// Prints how much the library of one source holds.
void PrintSource(zel::LibFile* library, Source const& source);

// Makes the pick list of a library's components in a file, and walks it in several ways.
void PrintList(zel::LibFile* library, char const* bank, std::string const& path);

// Searches all libraries in the order of preference and merges.
class Merged {
 public:
  explicit Merged(std::vector<Library> const& libraries);
  // False when no library knows the component.
  bool Find(Component const& component);
  zel::IZelPureComp* operator->() const { return bank_.operator->(); }
  zel::IZelBankDef* Def() const { return bank_.Def(); }

 private:
  Bank<zel::IZelPureComp> bank_;
  Key key_;
  Search search_;
};

void PrintConstants(Merged& merged, Components const& components, Codes& cited);
void PrintCurves(Merged& merged, Components const& components, Codes& cited);
// Checks the vapor pressure at each normal boiling point.
void PrintBoilingPoints(Merged& merged, Components const& components);

// Columns. A number, right-aligned, or a dash if there is none.
void PrintReal(double value, int width, int decimals);
// Lower and upper bound in one column of 15 characters, e.g. "101.3 - 101.3", or a dash if both are
// missing.
void PrintBounds(double low, double high);
// The code of a printed source, which is added to the list of those cited.
void PrintCode(int code, Codes& cited);

}  // namespace tour
