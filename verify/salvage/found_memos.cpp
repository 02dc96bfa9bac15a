#include "verify/salvage/found_memos.h"

#include <algorithm>

namespace zel {

namespace f = format;

namespace {

unsigned char ByteOf(std::int32_t const* words, std::size_t i) noexcept {
  return static_cast<unsigned char>(static_cast<std::uint32_t>(words[i / 4]) >> (8 * (i % 4)));
}

bool IsLetter(unsigned char byte) noexcept {
  return byte >= ' ' || byte == '\n' || byte == '\t' || byte == '\r';
}

}  // namespace

std::optional<std::string> MemoAt(BrokenLibrary const& library, std::int32_t address,
                                  std::int32_t words) {
  if (address == f::kNullAddress || address == 0) return "";
  std::int32_t const count =
      words == 0 ? f::kMemoWordsDefault : std::clamp(words, 1, f::kMemoWordsDefault);
  std::int32_t const* from = library.Run(address, count);
  if (from == nullptr) return std::nullopt;
  std::string text;
  for (std::size_t i = 0; i < 4 * static_cast<std::size_t>(count); ++i) {
    unsigned char const byte = ByteOf(from, i);
    if (byte == 0) break;
    if (!IsLetter(byte)) return std::nullopt;
    text += static_cast<char>(byte);
  }
  return text.substr(0, f::kMemoBytes - 1);
}

std::string LooseMemo(BrokenLibrary const& library, std::int32_t address) {
  constexpr std::size_t kLeast = 8;  // bytes; fewer can be anything
  std::int32_t const* words = library.Run(address, f::kMemoWordsDefault);
  std::optional<std::string> const text = MemoAt(library, address, f::kMemoWordsDefault);
  if (!text || text->size() < kLeast) return {};
  auto const plain = std::count_if(text->begin(), text->end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x7F; });
  for (std::size_t i = text->size(); i < f::kMemoBytes; ++i) {
    if (ByteOf(words, i) != 0) return {};
  }
  return 4 * static_cast<std::size_t>(plain) >= 3 * text->size() ? *text : std::string();
}

}  // namespace zel
