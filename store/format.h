// The numbers of the library file format. Sizes and offsets in 32-bit little-endian words unless
// the name says bytes. All of them are part of the format: changing one changes the files.
#pragma once

#include <cstdint>

namespace zel::format {

inline constexpr int kWordBytes = 4;

// Files name.lb1 to name.lb9; arrays indexed by file number have an unused element 0.
inline constexpr int kMaxFiles = 9;
inline constexpr int kFileSlots = kMaxFiles + 1;
inline constexpr int kFilesOfNewLibrary = 2;
inline constexpr std::int32_t kBlockWordsOfFile1 = 250;
inline constexpr std::int32_t kBlockWordsOfFile2 = 1000;
inline constexpr std::int32_t kMaxBlockWords = 1'000'000;
// Block 1 of file 1 holds the header and block 2 the block table, 125 words each.
inline constexpr std::int32_t kHeaderWords = 125;
inline constexpr std::int32_t kHeaderBytes = kHeaderWords * kWordBytes;
inline constexpr std::int32_t kHeaderBlock = 1;
inline constexpr std::int32_t kBlockTableBlock = 2;
inline constexpr std::int32_t kFirstFreeBlockOfFile1 = 3;
inline constexpr std::int32_t kFirstFreeBlockOfFile2 = 1;

// Block address: library type x 10,000,000 + file x 1,000,000 + block, block from 1.
inline constexpr std::int32_t kTypeFactor = 10'000'000;
inline constexpr std::int32_t kFileFactor = 1'000'000;
inline constexpr std::int32_t kMaxBlock = 999'999;
inline constexpr std::int32_t kNullAddress = 990'000'000;

// Header words.
enum HeaderWord : int {
  kLibType = 0,
  kFileCount = 1,
  kPasswordLevel = 2,
  kReserved16 = 4,
  kTreeHeadsAddress = 5,
  kMemoWords = 6,
  kMemoAddress = 7,
  kFileState = 9,    // 10 words, by file number: 0 absent, 1 present
  kBlockWords = 19,  // 10 words, by file number
  kCreatorTag = 30,
  kVersion = 33,
  kReservedA = 36,
  kReservedB = 37,
  kDescription = 40,
  kPassword = 65
};
inline constexpr int kCreatorTagWords = 3;
inline constexpr int kVersionWords = 3;
inline constexpr int kDescriptionWords = 25;
inline constexpr int kPasswordWords = 25;
inline constexpr std::int32_t kReserved16Value = 16;
inline constexpr char kCreatorTagText[] = "EDLIB";

// Memos of libraries and banks: plain terminated text in a run of 1000 words.
inline constexpr std::int32_t kMemoWordsDefault = 1000;
inline constexpr int kMemoBytes = 4000;

// Block table words: the count of extents, then their sizes, then their addresses.
inline constexpr int kExtentCount = 0;
inline constexpr int kExtentSizes = 1;
inline constexpr int kExtentAddresses = 63;
inline constexpr int kExtentsOnFile = 62;
inline constexpr std::int32_t kOpenTail = 999'999;  // size of the open-ended extent at a file's end
// Penalty per block, in words, when choosing the file of a new run.
inline constexpr std::int32_t kBlockPenalty = 35;

// Tree heads: 8 words each, in the order bank directory, character ID tree, CAS tree.
inline constexpr int kHeadWords = 8;
inline constexpr int kTreeHeadCount = 3;
inline constexpr int kTreeHeadsWords = kHeadWords * kTreeHeadCount;
inline constexpr int kBankKeyWords = 4;
inline constexpr int kBankDataWords = 16;
inline constexpr int kIdKeyWords = 2;
inline constexpr int kCasKeyWords = 1;

// Words of a bank directory entry.
enum BankEntryWord : int {
  kBankOldMark = 0,  // 1 in older files, whose words before the head hold something else
  kBankMemoWords = 2,
  kBankMemoAddress = 3,
  kBankHead = 8
};

// Head words.
enum HeadWord : int {
  kHeadDigits = 0,  // ones: storage kind; tens and hundreds are preserved
  kHeadNodeWords = 1,
  kHeadEntryWords = 2,
  kHeadKeyWords = 3,
  kHeadDataWords = 4,
  kHeadMaxEntries = 5,
  kHeadNodeBase = 6,
  kHeadRootAddress = 7
};
inline constexpr std::int32_t kStorageAddressed = 1;  // an entry's data is one word, an address
inline constexpr std::int32_t kStorageInline = 2;     // the data is in the entry

// Node words: count, parent, previous and next neighbour, link[0], then per entry its words and
// the link right of it.
inline constexpr int kNodeWords = 1000;
inline constexpr int kNodeCount = 0;
inline constexpr int kNodeParent = 1;
inline constexpr int kNodePrevious = 2;
inline constexpr int kNodeNext = 3;
inline constexpr int kNodeLinks = 4;
inline constexpr int kNodeEntries = 5;
inline constexpr int kNodeRoom = kNodeWords - kNodeEntries;
// Node capacity of heads made while the delete-test flag is on.
inline constexpr std::int32_t kTestCapacity = 4;

inline constexpr int kMaxKeyWords = 10;

}  // namespace zel::format
