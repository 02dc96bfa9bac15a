#include "store/memo.h"

#include <algorithm>
#include <array>

#include "frame/ascii.h"
#include "store/format.h"

namespace zel {
namespace {

constexpr std::int32_t kMostWords = format::kMemoBytes / format::kWordBytes;

std::int32_t UsableWords(std::int32_t words) noexcept { return std::clamp(words, 0, kMostWords); }

}  // namespace

void ReadMemo(BlockStore& store, std::int32_t address, std::int32_t words, char* memo) {
  *memo = '\0';
  if (address == format::kNullAddress) return;
  std::array<std::int32_t, kMostWords> buffer{};
  store.ReadOrThrow(address, UsableWords(words), buffer.data());
  char* out = memo;
  for (std::size_t i = 0; i < format::kMemoBytes - 1; ++i) {
    auto const word = static_cast<std::uint32_t>(buffer[i / 4]);
    *out++ = static_cast<char>(word >> (8 * (i % 4)) & 0xFF);
    if (out[-1] == '\0') return;
  }
  *out = '\0';
}

void WriteMemo(BlockStore& store, std::int32_t& address, std::int32_t words,
               std::string_view memo) {
  std::array<std::int32_t, kMostWords> buffer{};
  std::size_t const length = std::min<std::size_t>(memo.size(), format::kMemoBytes - 1);
  for (std::size_t i = 0; i < length; ++i) {
    auto const byte = static_cast<std::uint32_t>(static_cast<unsigned char>(memo[i]));
    auto const word = static_cast<std::uint32_t>(buffer[i / 4]) | byte << (8 * (i % 4));
    buffer[i / 4] = static_cast<std::int32_t>(word);
  }
  std::int32_t const count = UsableWords(words);
  std::int32_t written = address;
  if (store.WriteBlock(written, count, buffer.data(), 0) != count * format::kWordBytes) {
    store.Throw(address, BlockFault::kNotWritten);
  }
  address = written;
}

}  // namespace zel
