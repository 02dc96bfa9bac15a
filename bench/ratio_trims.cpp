#include <bit>

#include "bench/pairs.h"
#include "bench/ratio_cases.h"
#include "bench/text_trim.h"
#include "frame/trim7.h"

namespace zel::bench {
namespace {

constexpr std::size_t kItems = 1'000;
constexpr std::size_t kTrimsPerRound = 1'200'000;
constexpr double kTrimLimit = 8.0;  // ns

// All floats of the items, including undefined ones if `undefinedToo`.
std::vector<float> FloatsOf(std::vector<Item> const& items, bool undefinedToo) {
  std::vector<float> floats;
  for (Item const& item : items) {
    for (std::size_t i = 0; i < kFloats; ++i) {
      auto const value = std::bit_cast<float>(item.data[kFirstFloat + i]);
      if (undefinedToo || value > -1e35F) floats.push_back(value);
    }
  }
  return floats;
}

template <typename Trim>
Side TrimsOf(std::vector<float> const& floats, Trim trim) {
  return [&floats, trim](int) {
    return TimeInMemory(kTrimsPerRound, [&] {
      std::uint64_t sum = 0;
      std::size_t at = 0;
      for (std::size_t i = 0; i < kTrimsPerRound; ++i) {
        sum += std::bit_cast<std::uint64_t>(trim(floats[at]));
        if (++at == floats.size()) at = 0;
      }
      return sum;
    });
  };
}

}  // namespace

void CompareTrims(RatioTable& table) {
  std::vector<Item> const items = MakeDataSet(kItems).items;
  for (bool const undefinedToo : {false, true}) {
    std::vector<float> const floats = FloatsOf(items, undefinedToo);
    std::string const what = undefinedToo ? "internal: 7-digit trim, one of 12 undefined"
                                          : "internal: 7-digit trim, data-like floats";
    auto const printf = TrimsOf(floats, [](float value) { return TrimByPrintf(value); });
    auto const chars = TrimsOf(floats, [](float value) { return TrimByChars(value); });
    auto const own = TrimsOf(floats, [](float value) { return Trim7(value); });
    Target const limit = Target::Figure(kTrimLimit);
    table.Compare({what, "printf, strtod", printf, own, Target::None()});
    table.Compare({what, "to_chars", chars, own, limit});
  }
}

}  // namespace zel::bench
