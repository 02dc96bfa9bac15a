#include "bench/pairs.h"

#include <bit>
#include <cmath>

#include "bench/text_trim.h"
#include "zelaccess/Types.h"

namespace zel::bench {
namespace {

constexpr std::int32_t kFirstComponent = 10'000'001;

// Least and greatest value of each float and its decimals, in the order of the data block.
struct Range {
  double low;
  double high;
  int decimals;
};
constexpr std::array<Range, kFloats> kRanges = {{
    {273.15, 320.0, 2},    // tMin, K
    {330.0, 480.0, 2},     // tMax, K
    {1.0, 101.325, 3},     // pMin, kPa
    {101.325, 2000.0, 3},  // pMax, kPa
    {-12.0, 12.0, 5},      // aij
    {-2500.0, 2500.0, 3},  // bij, K
    {-0.5, 0.5, 6},        // cij
    {-12.0, 12.0, 5},      // aji
    {-2500.0, 2500.0, 3},  // bji, K
    {-0.5, 0.5, 6},        // cji
    {0.1, 0.5, 4},         // alphaij
    {-0.001, 0.001, 7},    // betaij, 1/K
}};
constexpr std::size_t kPressureMin = 2;
constexpr std::size_t kPressureMax = 3;

std::int32_t FloatWord(double value) noexcept {
  return std::bit_cast<std::int32_t>(static_cast<float>(value));
}

Data MakeData(std::mt19937& random) {
  Data data{};
  bool const noPressures = random() % 2 == 0;
  for (std::size_t i = 0; i < kFloats; ++i) {
    Range const& range = kRanges[i];
    double const unit = std::pow(10.0, range.decimals);
    double const at = static_cast<double>(random()) / static_cast<double>(std::mt19937::max());
    double value = std::round((range.low + (range.high - range.low) * at) * unit) / unit;
    if (noPressures && (i == kPressureMin || i == kPressureMax)) value = gen_GetUndefDouble();
    data[kFirstFloat + i] = FloatWord(value);
  }
  data[kReference] = static_cast<std::int32_t>(1 + random() % 999);
  return data;
}

}  // namespace

DataSet MakeDataSet(std::size_t count) {
  std::mt19937 random(kSeed);
  auto const pairsNeeded = static_cast<double>(2 * count);
  auto const components = static_cast<std::int32_t>(std::ceil(std::sqrt(2 * pairsNeeded))) + 1;
  DataSet set;
  set.items.reserve(count);
  set.absent.reserve(count);
  for (std::int32_t i = 0; i < components; ++i) {
    for (std::int32_t j = i + 1; j < components && set.absent.size() < count; ++j) {
      Pair const key{kFirstComponent + i, kFirstComponent + j};
      if (set.items.size() == set.absent.size()) {
        set.items.push_back({key, MakeData(random)});
      } else {
        set.absent.push_back(key);
      }
    }
  }
  return set;
}

std::vector<Pair> KeysOf(std::vector<Item> const& items) {
  std::vector<Pair> keys;
  keys.reserve(items.size());
  for (Item const& item : items) keys.push_back(item.key);
  return keys;
}

std::uint64_t HashOf(std::uint64_t before, Pair key, void const* data) noexcept {
  constexpr std::uint64_t kFactor = 0x100000001B3;
  std::uint64_t hash = before;
  auto const mix = [&](std::int32_t word) {
    hash = (hash ^ static_cast<std::uint32_t>(word)) * kFactor;
  };
  Data words;
  std::memcpy(words.data(), data, sizeof words);
  mix(key.a);
  mix(key.b);
  for (std::int32_t word : words) mix(word);
  return hash;
}

std::uint64_t HashOf(std::vector<Item> const& items) noexcept {
  std::uint64_t hash = 0;
  for (Item const& item : items) hash = HashOf(hash, item.key, item.data.data());
  return hash;
}

Decoded DecodeThroughText(void const* data) noexcept {
  Data words;
  std::memcpy(words.data(), data, sizeof words);
  Decoded item;
  for (std::size_t i = 0; i < kFloats; ++i) {
    item.values[i] = TrimByChars(std::bit_cast<float>(words[kFirstFloat + i]));
  }
  item.reference = words[kReference];
  return item;
}

std::uint64_t SumOf(Decoded const& item) noexcept {
  auto sum = static_cast<std::uint64_t>(item.reference);
  for (double value : item.values) sum += std::bit_cast<std::uint64_t>(value);
  return sum;
}

Data DataOf(Decoded const& item) noexcept {
  Data data{};
  for (std::size_t i = 0; i < kFloats; ++i) data[kFirstFloat + i] = FloatWord(item.values[i]);
  data[kReference] = item.reference;
  return data;
}

}  // namespace zel::bench
