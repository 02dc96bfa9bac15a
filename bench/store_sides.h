// What is done with each store alike, whichever the store and whatever its interface: reads, passes
// over all items, loads and deletes, each as one side of a comparison.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "bench/pairs.h"
#include "bench/ratio.h"

namespace zel::bench {

inline constexpr std::size_t kReadsPerRound = 500'000;
inline constexpr std::size_t kWarmingReads = 250'000;
inline constexpr std::size_t kVisitsPerRound = 1'000'000;
inline constexpr std::size_t kDeletedPart = 10;  // one of this many

using Clock = double (*)() noexcept;

// Reads a round's share of the keys, given by index; each round continues where the last one ended.
// The peer's turn has left its own data in the caches, so some reads are made untimed first.
template <typename Read>
Side ReadsOf(std::size_t keys, Read read) {
  return [keys, read](int round) {
    std::size_t at = static_cast<std::size_t>(round) * kReadsPerRound % keys;
    auto const readSome = [&](std::size_t count) {
      std::uint64_t sum = 0;
      for (std::size_t i = 0; i < count; ++i) {
        sum += read(at);
        if (++at == keys) at = 0;
      }
      return sum;
    };
    std::uint64_t const warming = readSome(kWarmingReads);
    Timing timing = TimeInMemory(kReadsPerRound, [&] { return readSome(kReadsPerRound); });
    timing.check += warming;
    return timing;
  };
}

// Passes over all items; `pass` returns a sum.
template <typename Pass>
Side PassesOf(std::size_t items, Pass pass) {
  std::size_t const times = std::max<std::size_t>(1, kVisitsPerRound / items);
  return [items, times, pass](int) {
    return TimeInMemory(items * times, [&] {
      std::uint64_t sum = 0;
      for (std::size_t i = 0; i < times; ++i) sum += pass();
      return sum;
    });
  };
}

template <typename Store>
std::uint64_t HashOfFile(Store& store) {
  store.OpenForReading();
  std::uint64_t const hash = store.Hash();
  store.Close();
  return hash;
}

// Fresh files for each round; afterwards, untimed, the hash of what they hold.
template <typename Store, typename Load>
Side LoadsOf(std::size_t items, Store& store, Load load, Clock clock) {
  return [items, &store, load, clock](int) {
    store.RemoveFiles();
    Timing timing = Time(
        items,
        [&] {
          load();
          return std::uint64_t{0};
        },
        clock);
    timing.check = HashOfFile(store);
    return timing;
  };
}

// The same for deletes of `keys`, from what `load` makes, untimed.
template <typename Store, typename Load>
Side DeletesOf(std::vector<Pair> const& keys, Store& store, Load load, Clock clock) {
  return [&keys, &store, load, clock](int) {
    store.RemoveFiles();
    load();
    Timing timing = Time(
        keys.size(), [&] { return std::uint64_t{store.Delete(keys)}; }, clock);
    if (timing.check != keys.size()) throw std::runtime_error("a key to delete was not there");
    timing.check = HashOfFile(store);
    return timing;
  };
}

}  // namespace zel::bench
