#include "store/btree_head.h"

#include "frame/module.h"

namespace zel {

namespace f = format;

namespace {
// A capacity below 3 would make inner nodes without entries; no tree of a library has one.
constexpr std::int32_t kLeastCapacity = 3;
constexpr std::int32_t kNodeBaseOffset = 2'000'000;

// A decimal digit of the digit word, which is negative only in a damaged record.
std::int32_t DigitOf(std::int32_t word, std::uint32_t divisor) noexcept {
  auto const bits = static_cast<std::uint32_t>(word);
  std::uint32_t const magnitude = word < 0 ? 0U - bits : bits;
  return static_cast<std::int32_t>(magnitude / divisor % 10);
}
}  // namespace

void InitTreeHead(std::int32_t* head, bool indirect, std::int32_t keyWords, std::int32_t dataWords,
                  std::int32_t libType) noexcept {
  std::int32_t const entryWords = keyWords + (indirect ? 1 : dataWords);
  head[f::kHeadDigits] = indirect ? f::kStorageAddressed : f::kStorageInline;
  head[f::kHeadNodeWords] = f::kNodeWords;
  head[f::kHeadEntryWords] = entryWords;
  head[f::kHeadKeyWords] = keyWords;
  head[f::kHeadDataWords] = dataWords;
  head[f::kHeadMaxEntries] = DeleteTestFlag() ? f::kTestCapacity : f::kNodeRoom / (entryWords + 1);
  head[f::kHeadNodeBase] = libType * f::kTypeFactor + kNodeBaseOffset;
  head[f::kHeadRootAddress] = f::kNullAddress;
}

BTreeHead_i::BTreeHead_i(std::int32_t* record) noexcept
    : storageKind(DigitOf(record[f::kHeadDigits], 1)),
      digit1(DigitOf(record[f::kHeadDigits], 10)),
      digit2(DigitOf(record[f::kHeadDigits], 100)),
      nodeWords(record[f::kHeadNodeWords]),
      entryWords(record[f::kHeadEntryWords]),
      keyWords(record[f::kHeadKeyWords]),
      dataWords(record[f::kHeadDataWords]),
      maxEntries(record[f::kHeadMaxEntries]),
      nodeBase(record[f::kHeadNodeBase]),
      rootAddress(record[f::kHeadRootAddress]),
      record_(record) {
  bool const sound = keyWords >= 0 && entryWords >= keyWords && entryWords < f::kNodeRoom;
  if (sound) entryDataWords = entryWords - keyWords;
}

BTreeHead_i::~BTreeHead_i() { WriteBack(); }

bool BTreeHead_i::IsUsable() const noexcept {
  return nodeWords == f::kNodeWords && keyWords >= 1 && keyWords <= f::kMaxKeyWords &&
         entryWords > keyWords && entryWords < f::kNodeRoom && maxEntries >= kLeastCapacity &&
         maxEntries <= f::kNodeRoom / (entryWords + 1);
}

void BTreeHead_i::SetRoot(std::int32_t address) noexcept {
  rootAddress = address;
  record_[f::kHeadRootAddress] = address;
}

void BTreeHead_i::WriteBack() noexcept {
  record_[f::kHeadDigits] = storageKind + 10 * digit1 + 100 * digit2;
  record_[f::kHeadNodeWords] = nodeWords;
  record_[f::kHeadEntryWords] = entryWords;
  record_[f::kHeadKeyWords] = keyWords;
  record_[f::kHeadDataWords] = dataWords;
  record_[f::kHeadMaxEntries] = maxEntries;
  record_[f::kHeadNodeBase] = nodeBase;
  record_[f::kHeadRootAddress] = rootAddress;
}

}  // namespace zel
