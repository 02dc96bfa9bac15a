// What a bank reports about its blocks and keys, in one object.
#pragma once

#include <cstdint>

#include "frame/limits.h"
#include "store/btree_head.h"
#include "zelaccess/Banks.h"

namespace zel {

struct BlockInfo {
  char type[kMostName + 1] = {};
  std::int32_t keyKind = 0;
  std::int32_t keyWords = 0;
  std::int32_t minKeyWords = 0;
  std::int32_t formatCount = 0;
  std::int32_t maxRecordWords = 0;
  std::int32_t pairRule = 0;
  std::int32_t fileResident = 0;

  explicit BlockInfo(IZelBankIO* bank) {
    bank->GetBlockInfo(type, &keyKind, &keyWords, &minKeyWords, &formatCount, &maxRecordWords,
                       &pairRule, &fileResident);
  }
};

// What a bank reports about itself to a host.
struct BankInfo {
  char type[kMostName + 1] = {};
  char description[50] = {};
  std::int32_t keyKind = 0;
  std::int32_t keyWords = 0;
  std::int32_t minKeyWords = 0;
  std::int32_t formatCount = 0;
  std::int32_t maxRecordWords = 0;
  std::uint8_t listed = 0;

  explicit BankInfo(IZelBankDef* bank) {
    bank->GetBankInfo(type, description, &keyKind, &keyWords, &minKeyWords, &formatCount,
                      &maxRecordWords, &listed);
  }
};

// A record format and its length in words; format 0 means no format.
struct RecordFormat {
  std::int32_t format = 0;
  std::int32_t words = 0;
};

// A stored bank does not hold its record format: the format follows from the record length in the
// head of its tree. Returns format 0 when no format has that length, or when the tree's entries are
// too short for it.
inline RecordFormat FormatOf(IZelBankIO* bank, BlockInfo const& info, BTreeHead_i const& head) {
  for (std::int32_t format = 1; format <= info.formatCount; ++format) {
    std::int32_t words = 0;
    bank->GetRecordLength(format, &words);
    if (words != head.dataWords) continue;
    std::int32_t const needed = info.fileResident != 0 ? 1 : words;
    return head.entryDataWords >= needed ? RecordFormat{format, words} : RecordFormat{};
  }
  return {};
}

}  // namespace zel
