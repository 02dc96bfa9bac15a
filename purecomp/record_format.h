// The three on-file records of a component, in words. All of it is part of the format.
#pragma once

#include <cstdint>

namespace zel::record {

// Main block.
inline constexpr int kMainWords = 250;
enum MainWord : int {
  kNumber = 0,
  kRefCode = 1,
  kCasNumber = 2,
  kPhase = 4,
  kIds = 10,  // 12 of 2 words
  kName = 35,
  kFormula = 45,
  kLegacyGroups = 50,      // 10 words of count x 10000 + id
  kConstantCodes = 60,     // 50 codes of 16 bits, the lower index in the low half
  kCorrelationCodes = 85,  // 20 codes, likewise
  kCorrelationAddress = 95,
  kCorrelationLength = 96,
  kKeepFormula = 97,
  kStructureAddress = 98,
  kStructureLength = 99,
  kConstants = 100,  // 50 floats
  kDirectory = 150,  // per correlation: offset, words, block address
  kSmiles = 210
};
inline constexpr int kIdWords = 2;
inline constexpr int kMostIds = 12;
inline constexpr int kNameWords = 10;
inline constexpr int kFormulaWords = 5;
inline constexpr int kSmilesWords = 25;
inline constexpr std::int32_t kGroupFactor = 10000;
inline constexpr int kDirectoryEntry = 3;

// Structure block: models 1 to 6, each a count, 10 ids and 10 counts.
inline constexpr int kStructureWords = 126;
inline constexpr int kStructureEntry = 21;
inline constexpr std::int32_t kLongestStructure = 999999;

// Correlation block: 20 entries.
inline constexpr int kCorrelationWords = 400;
inline constexpr int kCorrelationEntry = 20;
enum CorrelationWord : int {
  kEquationAndUnit = 0,  // equation x 1000000 + 1000 + tempUnit
  kBases = 1,            // (logBasis x 1000 + moleWtBasis) x 1000
  kCountAndUnit = 2,     // coefficientCount x 1000000 + propUnit
  kTMin = 3,
  kTMax = 4,
  kCoefficientsAt = 5
};
inline constexpr std::uint32_t kMillion = 1000000;
inline constexpr std::uint32_t kThousand = 1000;
// Older layout: entries are in blocks of 1000 words, at the directory's offsets.
inline constexpr int kOldBlockWords = 1000;

}  // namespace zel::record
