// The head record of a tree, 8 words on file.
#pragma once

#include <cstdint>

#include "store/format.h"

namespace zel {

// Fills a head record for an empty tree. An `indirect` tree holds one word per entry, the address
// of the item's data; `dataWords` is the length of that data either way. While the delete-test flag
// is on, the node capacity is 4 instead of the number of entries that fit.
void InitTreeHead(std::int32_t* head, bool indirect, std::int32_t keyWords, std::int32_t dataWords,
                  std::int32_t libType) noexcept;

// A view of a head record. The record must not move: a new root is written into it at once, and all
// fields when the view is destroyed.
class BTreeHead_i {
 public:
  explicit BTreeHead_i(std::int32_t* record) noexcept;
  BTreeHead_i(BTreeHead_i const&) = delete;
  BTreeHead_i& operator=(BTreeHead_i const&) = delete;
  virtual ~BTreeHead_i();

  // False when nodes cannot have these widths: a damaged record.
  bool IsUsable() const noexcept;
  void SetRoot(std::int32_t address) noexcept;

  std::int32_t storageKind = 0;
  std::int32_t digit1 = 0;  // of the digit word; preserved, no meaning
  std::int32_t digit2 = 0;
  std::int32_t nodeWords = 0;
  std::int32_t entryWords = 0;
  std::int32_t keyWords = 0;
  std::int32_t entryDataWords = 0;  // entryWords - keyWords; 0 where these are impossible
  std::int32_t dataWords = 0;
  std::int32_t maxEntries = 0;
  std::int32_t nodeBase = 0;
  std::int32_t rootAddress = format::kNullAddress;

 private:
  void WriteBack() noexcept;

  std::int32_t* record_;
};

}  // namespace zel
