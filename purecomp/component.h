// The data of one pure component: identity, structures, constants, correlations, and where each
// datum came from.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "purecomp/source_table.h"
#include "purecomp/tables.h"

namespace zel {

inline constexpr int kLibraryIds = 12;
inline constexpr int kModels = 7;       // structure models, 0 is the legacy one
inline constexpr int kGroups = 10;      // groups of a structure
inline constexpr int kConstants = 100;  // fixed constants in memory
inline constexpr int kConstantsOnFile = 50;
inline constexpr int kCorrelations = 20;  // the first 18 have names
inline constexpr int kCoefficients = 15;
inline constexpr int kIdentitySources = 5;
inline constexpr std::uint32_t kMaxRefCode = 32000;

struct Structure {
  std::int32_t count = 0;
  std::array<std::int32_t, kGroups> groupIds{};
  std::array<std::int32_t, kGroups> groupCounts{};
};

// One temperature-dependent property.
struct CorrelationRecord {
  bool present;
  std::int32_t equation;          // 0 when unset
  std::int32_t coefficientCount;  // as given or read; 1 to 15 in sound data
  std::int32_t tempUnit;          // 10 K, 11 C, 12 R, 13 F
  std::int32_t logBasis;          // 1 natural, 2 decimal
  std::int32_t moleWtBasis;       // 0 none, 1 molar, 2 weight
  std::int32_t propUnit;          // unit code, 0 for a factor of 1
  double factor;                  // of the unit code
  double tMin;                    // in tempUnit, undefined for no limit
  double tMax;
  std::array<double, kCoefficients> coefficients;

  // Sets the unit code and its factor.
  void SetUnit(std::int32_t code) noexcept;
  // Makes the record unset, in the default unit of the correlation.
  void Reset(std::int32_t defaultUnit) noexcept;
};

struct Component {
  std::int32_t number;     // 0 when unset
  std::int32_t casNumber;  // as one integer, 0 when unset
  std::int32_t refCode;    // of the identity
  std::array<std::array<char, 9>, kLibraryIds> libraryIds;
  std::array<char, 41> name;
  std::array<char, 21> formula;
  bool keepFormula;  // the formula must be kept as written
  std::array<Structure, kModels> structures;
  std::array<char, 101> smiles;
  std::int32_t phase;                        // 1 vapor, 2 liquid, 4 solid, added up
  std::array<double, kConstants> completed;  // with what is derived from them
  std::array<double, kConstants> fixed;      // as read or set, internal units
  std::array<CorrelationRecord, kCorrelations> correlations;
  std::array<std::uint32_t, kConstantsOnFile> fixedRefs;
  std::array<std::uint32_t, kCorrelations> correlationRefs;
  SourceTable sources;  // the texts of those that follow
  std::array<SourceTable::Index, kConstants>
      fixedSources;  // a library, or the method of the fill-in
  std::array<SourceTable::Index, kCorrelations> correlationSources;
  std::array<SourceTable::Index, kIdentitySources> identitySources;
  std::array<std::uint8_t, kConstants> fixedSourceFlags;  // the source was a protected library
  std::array<std::uint8_t, kCorrelations> correlationSourceFlags;
  std::array<std::uint8_t, kIdentitySources> identitySourceFlags;
  bool consistencyWarning;
  std::array<char, 260> consistencyText;

  Component() noexcept { Clear(); }
  // Unsets everything. Texts are cleared by their first character.
  void Clear() noexcept;
  void ResetCorrelation(int index) noexcept;
};

// One more than the data: a merge holds the text of its source as well.
static_assert(kConstants + kCorrelations + kIdentitySources + 1 <= SourceTable::kMostData);

namespace on_file {

constexpr std::array<bool, kConstants> MakeMarks() noexcept {
  std::array<bool, kConstants> marks{};
  for (PropertyRow const* row = kPropertyRows; row->index != kEndOfWritten; ++row) {
    marks[static_cast<std::size_t>(row->index)] = true;
  }
  return marks;
}
inline constexpr std::array<bool, kConstants> kMarks = MakeMarks();

}  // namespace on_file

// True for the constants that are on file: those with a keyword.
constexpr bool IsOnFile(std::size_t index) noexcept { return on_file::kMarks[index]; }

}  // namespace zel
