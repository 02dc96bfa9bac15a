#include "desk/files/file_digest.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <vector>

#include "desk/files/data_input.h"

namespace zel::desk {
namespace {

// The file is read in pieces; pieces of zeros are left out.
constexpr std::size_t kPiece = std::size_t{1} << 16;
constexpr std::uint64_t kStart = 0xcbf29ce484222325;
constexpr std::uint64_t kPrime = 0x9e3779b97f4a7c15;

std::uint64_t Mixed(std::uint64_t digest, std::uint64_t word) {
  digest = (digest ^ word) * kPrime;
  return digest ^ (digest >> 32);
}

}  // namespace

std::string DigestOf(std::filesystem::path const& file) {
  DataInput const input(file);
  std::vector<char> piece(kPiece);
  std::int64_t const size = input.Size();
  std::uint64_t digest = kStart;
  constexpr std::int64_t kStep = kPiece;
  for (std::int64_t at = 0; at < size; at += kStep) {
    at = std::max(at, input.NextData(at) / kStep * kStep);
    std::fill(piece.begin(), piece.end(), '\0');
    input.Read(piece, at);
    if (std::all_of(piece.begin(), piece.end(), [](char c) { return c == '\0'; })) continue;
    digest = Mixed(digest, static_cast<std::uint64_t>(at));
    for (std::size_t i = 0; i < piece.size(); i += sizeof(std::uint64_t)) {
      std::uint64_t word = 0;
      std::memcpy(&word, &piece[i], sizeof(word));
      digest = Mixed(digest, word);
    }
  }
  char text[48];
  std::snprintf(text, sizeof(text), "%lld:%016llx", static_cast<long long>(size),
                static_cast<unsigned long long>(digest));
  return text;
}

}  // namespace zel::desk
