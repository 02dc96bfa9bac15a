#include "verify/salvage/component_records.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>

#include "store/packed_text.h"
#include "zelaccess/Types.h"

namespace zel {

namespace f = format;
namespace r = record;

namespace {

constexpr std::int32_t kMostCoded = 99'999'999;
constexpr std::int32_t kMostOfBlank = 999'999;  // the greatest word whose first letter is a blank
constexpr int kEntries = 20;

bool AreCoded(std::int32_t const* words, int count) noexcept {
  return std::all_of(words, words + count,
                     [](std::int32_t word) { return word >= 0 && word <= kMostCoded; });
}

bool AreZero(std::int32_t const* from, std::int32_t const* to) noexcept {
  return std::all_of(from, to, [](std::int32_t word) { return word == 0; });
}

bool IsNumber(std::int32_t word) noexcept { return std::isfinite(std::bit_cast<float>(word)); }

std::int32_t Undefined() noexcept {
  return std::bit_cast<std::int32_t>(static_cast<float>(gen_GetUndefDouble()));
}

// Whether the entry of the correlation block is what a writer leaves, which is all zeros for a
// correlation that the component does not have.
bool IsGoodCorrelation(std::int32_t const* words, bool isListed) noexcept {
  if (words[r::kEquationAndUnit] == 0) return !isListed;
  auto const stored = static_cast<std::uint32_t>(words[r::kCountAndUnit]) / r::kMillion;
  auto const count = static_cast<int>(std::min<std::uint32_t>(stored, 15));
  return std::all_of(words + r::kTMin, words + r::kCoefficientsAt + count, IsNumber);
}

std::string Listed(int count, char const* one, char const* several) {
  return count == 1 ? std::string("1 ") + one : std::to_string(count) + " " + several;
}

}  // namespace

ComponentRecords::ComponentRecords(BrokenLibrary const& library) : library_(library) {
  for (std::int32_t block = f::kFirstFreeBlockOfFile1; block <= library.Blocks(1); ++block) {
    std::int32_t const address = BlockAddress{library.Type(), 1, block}.Word();
    if (IsRecord(address)) addresses_.emplace(*library.Run(address, 1), address);
  }
}

// A few of these words may be damaged.
bool ComponentRecords::IsRecord(std::int32_t address) const noexcept {
  std::int32_t const* main = library_.Run(address, r::kMainWords);
  if (main == nullptr || main[r::kNumber] <= 0) return false;
  auto const isPlace = [&](std::int32_t word) {
    return word == 0 || word == f::kNullAddress || library_.IsAddress(word);
  };
  // Texts begin with a letter; the block of the group structures has small numbers here.
  auto const isText = [](std::int32_t word) { return word < 0 || word > kMostOfBlank; };
  bool const hasText = isText(main[r::kIds]) || isText(main[r::kName]);
  int const right =
      int{isPlace(main[r::kCorrelationAddress])} +
      int{main[r::kCorrelationLength] == 0 || main[r::kCorrelationLength] == r::kCorrelationWords} +
      int{isPlace(main[r::kStructureAddress])} +
      int{main[r::kStructureLength] == 0 || main[r::kStructureLength] == r::kStructureWords} +
      int{AreZero(main + 5, main + 10)} + int{main[34] == 0} + int{AreCoded(main + r::kIds, 2)} +
      int{AreCoded(main + r::kIds + 2, 22)} + int{AreCoded(main + r::kName, r::kNameWords)} +
      int{main[r::kKeepFormula] == 0 || main[r::kKeepFormula] == 1} +
      int{main[r::kPhase] >= 0 && main[r::kPhase] <= 15} +
      int{AreZero(main + r::kSmiles + r::kSmilesWords, main + r::kMainWords)};
  constexpr int kEnough = 9;  // of 12
  return hasText && right >= kEnough;
}

bool ComponentRecords::IsRecordOf(std::int32_t address, std::int32_t number) const noexcept {
  std::int32_t const* main = library_.Run(address, r::kMainWords);
  return main != nullptr && number != 0 && main[r::kNumber] == number;
}

bool ComponentRecords::Copy(std::int32_t address, std::int32_t number, ComponentWords& to) const {
  to = {};
  std::int32_t const* main = library_.Run(address, r::kMainWords);
  if (main == nullptr) return false;
  std::copy_n(main, to.main.size(), to.main.begin());
  if (to.main[r::kNumber] != number) {
    to.main[r::kNumber] = number;
    to.missing.emplace_back("its record had another number");
  }
  int bad = 0;
  for (int i = 0; i < 50; ++i) {
    std::int32_t& word = to.main[static_cast<std::size_t>(r::kConstants + i)];
    if (IsNumber(word)) continue;
    word = Undefined();
    ++bad;
  }
  if (bad > 0) to.missing.push_back(Listed(bad, "constant", "constants"));
  DropIds(to);
  CopyStructures(to);
  CopyCorrelations(to);
  return true;
}

// Drops damaged IDs: those with letters that no writer stores in a record whose other texts are
// coded.
void ComponentRecords::DropIds(ComponentWords& to) {
  if (!AreCoded(&to.main[r::kName], r::kNameWords)) return;
  KeepIds(to, [](std::string_view id) {
    return std::all_of(id.begin(), id.end(), [](char c) { return c >= ' ' && c <= '~'; });
  });
}

void ComponentRecords::KeepIds(ComponentWords& to,
                               std::function<bool(std::string_view)> const& isKept) {
  int kept = 0;
  int dropped = 0;
  for (int i = 0; i < r::kMostIds; ++i) {
    std::int32_t* const words = &to.main[static_cast<std::size_t>(r::kIds + r::kIdWords * i)];
    char id[f::kWordBytes * r::kIdWords + 1];
    WordsToText(words, r::kIdWords, id);
    if (isKept(id)) {
      std::copy_n(words, r::kIdWords,
                  &to.main[static_cast<std::size_t>(r::kIds + r::kIdWords * kept++)]);
    } else {
      ++dropped;
    }
  }
  for (; kept < r::kMostIds; ++kept) {
    TextToWords("", &to.main[static_cast<std::size_t>(r::kIds + r::kIdWords * kept)], r::kIdWords);
  }
  if (dropped > 0) to.missing.push_back(Listed(dropped, "ID", "IDs"));
}

void ComponentRecords::CopyStructures(ComponentWords& to) const {
  std::int32_t const length = to.main[r::kStructureLength];
  std::int32_t const address = to.main[r::kStructureAddress];
  bool const isThere =
      length >= 1 && length <= r::kLongestStructure && address / f::kTypeFactor == library_.Type();
  if (!isThere) {
    bool const isNone = address == 0 || (length == 0 && address == f::kNullAddress);
    if (!isNone) to.missing.emplace_back("its group structures");
    to.main[r::kStructureAddress] = f::kNullAddress;
    to.main[r::kStructureLength] = 0;
    return;
  }
  std::int32_t const words = std::min(length, r::kStructureWords);
  std::int32_t const* from = library_.Run(address, words);
  bool good = from != nullptr;
  for (int at = 0; good && at + r::kStructureEntry <= words; at += r::kStructureEntry) {
    good = from[at] >= 0 && from[at] <= 10;
  }
  if (good) {
    std::copy_n(from, words, to.structures.begin());
    to.hasStructures = true;
  } else {
    to.missing.emplace_back("its group structures");
    to.main[r::kStructureAddress] = f::kNullAddress;
    to.main[r::kStructureLength] = 0;
  }
}

void ComponentRecords::CopyCorrelations(ComponentWords& to) const {
  std::int32_t const address = to.main[r::kCorrelationAddress];
  std::int32_t const length = to.main[r::kCorrelationLength];
  if (address == f::kNullAddress && length > 0) return;
  if (address == 0 || length <= 0) {
    if (!CopyOldCorrelations(to)) to.missing.emplace_back("some of its correlations");
  } else {
    std::int32_t const words = std::min(length, r::kCorrelationWords);
    std::int32_t const* from = library_.Run(address, words);
    if (from != nullptr) {
      std::copy_n(from, words, to.correlations.begin());
      to.hasCorrelations = true;
    } else {
      to.missing.emplace_back("its correlations");
      to.main[r::kCorrelationAddress] = f::kNullAddress;
      to.main[r::kCorrelationLength] = r::kCorrelationWords;
    }
  }
  int bad = 0;
  for (int i = 0; to.hasCorrelations && i < kEntries; ++i) {
    std::int32_t* words = &to.correlations[static_cast<std::size_t>(r::kCorrelationEntry * i)];
    std::int32_t const* listed =
        &to.main[static_cast<std::size_t>(r::kDirectory + r::kDirectoryEntry * i)];
    bool const isListed = listed[1] >= r::kCoefficientsAt && listed[2] == address && address != 0;
    if (IsGoodCorrelation(words, isListed)) continue;
    std::fill_n(words, r::kCorrelationEntry, 0);
    ++bad;
  }
  if (bad > 0) to.missing.push_back(Listed(bad, "correlation", "correlations"));
}

// In the older layout the entries of several components are in one block; they are copied into a
// block of the present one. False if one of them cannot be read.
bool ComponentRecords::CopyOldCorrelations(ComponentWords& to) const {
  bool good = true;
  for (int i = 0; i < kEntries; ++i) {
    std::int32_t const* entry =
        &to.main[static_cast<std::size_t>(r::kDirectory + r::kDirectoryEntry * i)];
    std::int32_t const offset = entry[0];
    std::int32_t const count = entry[1];
    std::int32_t const address = entry[2];
    if (address <= 0 || address == f::kNullAddress) continue;
    bool const usable = offset >= 0 && count >= r::kCoefficientsAt &&
                        count <= r::kCorrelationEntry && offset <= r::kOldBlockWords - count;
    std::int32_t const* from = usable ? library_.Run(address, r::kOldBlockWords) : nullptr;
    if (from == nullptr) {
      good = false;
      continue;
    }
    std::int32_t* words = &to.correlations[static_cast<std::size_t>(r::kCorrelationEntry * i)];
    std::copy_n(from + offset, count, words);
    auto const unit = static_cast<std::uint32_t>(words[r::kCountAndUnit]) % r::kMillion;
    auto const coefficients = static_cast<std::uint32_t>(count - r::kCoefficientsAt);
    words[r::kCountAndUnit] = static_cast<std::int32_t>(coefficients * r::kMillion + unit);
    to.hasCorrelations = true;
  }
  return good;
}

}  // namespace zel
