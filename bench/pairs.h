// The items that all measured stores hold, and the keys that are looked up.
//
// An item is a pair of components in the form of an NRTL bank: a key of two component numbers, the
// smaller first, and 14 words of data. Word 0 is 0, words 1 to 12 are floats, word 13 is an
// integer.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

namespace zel::bench {

struct Pair {
  std::int32_t a;
  std::int32_t b;
};

inline constexpr std::size_t kDataWords = 14;
inline constexpr std::size_t kFirstFloat = 1;
inline constexpr std::size_t kFloats = 12;
inline constexpr std::size_t kReference = 13;
using Data = std::array<std::int32_t, kDataWords>;

inline constexpr std::uint32_t kSeed = 20'240'229;

struct Item {
  Pair key;
  Data data;
};

struct DataSet {
  std::vector<Item> items;   // in key order
  std::vector<Pair> absent;  // the same number of keys, between those of the items
};

// Every other one of all pairs of enough components is present. Values look like published
// parameters: four to seven significant digits, pressure limits undefined in every other item.
DataSet MakeDataSet(std::size_t count);

// The same order for every call with the same size.
template <typename T>
std::vector<T> Shuffled(std::vector<T> values) {
  std::mt19937 random(kSeed);
  std::shuffle(values.begin(), values.end(), random);
  return values;
}
std::vector<Pair> KeysOf(std::vector<Item> const& items);

// Every store answers a read with the sum over all words of the item, so that none can avoid
// touching them; an absent key yields kAbsent, which is the sum of no item.
inline constexpr std::uint64_t kAbsent = 0;
inline std::uint64_t SumOf(void const* data) noexcept {
  std::array<std::uint64_t, kDataWords / 2> words;
  std::memcpy(words.data(), data, sizeof words);
  std::uint64_t sum = 0;
  for (std::uint64_t word : words) sum += word;
  return sum | 1;
}

// Hash of an item at its place, to check that two stores hold the same in the same order.
std::uint64_t HashOf(std::uint64_t before, Pair key, void const* data) noexcept;
std::uint64_t HashOf(std::vector<Item> const& items) noexcept;

// Floats as a host sees them: doubles that have the decimal digits of the float.
struct Decoded {
  std::array<double, kFloats> values;
  std::int32_t reference;
};
// Through text of 7 digits, the method without a trim: std::to_chars and std::from_chars.
Decoded DecodeThroughText(void const* data) noexcept;
// Exact to the bit.
std::uint64_t SumOf(Decoded const& item) noexcept;

// The floats of an item widened to doubles, the least that a host needs to compute with them.
inline Decoded Widen(void const* data) noexcept {
  Data words;
  std::memcpy(words.data(), data, sizeof words);
  Decoded item;
  for (std::size_t i = 0; i < kFloats; ++i) {
    item.values[i] = static_cast<double>(std::bit_cast<float>(words[kFirstFloat + i]));
  }
  item.reference = words[kReference];
  return item;
}
// The item as floats: the same for widened floats and for those with their decimal digits, which
// are next to each other.
Data DataOf(Decoded const& item) noexcept;
// The columns of a batch of items, and the sum over one row in a batch as floats: the arrays are
// filled whole, and little else is done.
struct ColumnArrays {
  static constexpr std::size_t kRows = 1000;
  std::array<std::array<double, kRows>, kFloats> values;
  std::array<std::int32_t, kRows> reference;

  std::uint64_t Sum(std::size_t rows) const noexcept {
    auto sum = static_cast<std::uint64_t>(reference[rows - 1]);
    for (auto const& column : values) {
      sum += std::bit_cast<std::uint32_t>(static_cast<float>(column[rows - 1]));
    }
    return sum + rows;
  }
};

// Over the doubles as floats, likewise.
inline std::uint64_t SumOfFloats(Decoded const& item) noexcept {
  auto sum = static_cast<std::uint64_t>(item.reference);
  for (double value : item.values) {
    sum += std::bit_cast<std::uint32_t>(static_cast<float>(value));
  }
  return sum;
}

}  // namespace zel::bench
