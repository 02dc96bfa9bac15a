#include "store/packed_text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace zel {
namespace {

constexpr std::uint32_t kBase = 100;
constexpr std::uint32_t kLargestCoded = 99'999'999;
constexpr char kPunctuation[] = "+-*/=().,'\":;!@#$&?<>_%";

constexpr std::array<char, kBase> MakeCharacters() {
  std::array<char, kBase> table{};
  for (char& c : table) c = ' ';
  std::size_t at = 1;
  for (char c = 'A'; c <= 'Z'; ++c) table[at++] = c;
  for (char c = 'a'; c <= 'z'; ++c) table[at++] = c;
  for (char c = '0'; c <= '9'; ++c) table[at++] = c;
  for (char const* p = kPunctuation; *p != '\0'; ++p) table[at++] = *p;
  return table;
}

constexpr std::array<char, kBase> kCharacters = MakeCharacters();

// Index by unsigned character; 0 (the blank) for characters outside the table.
constexpr std::array<std::uint8_t, 256> MakeIndexes() {
  std::array<std::uint8_t, 256> table{};
  for (std::size_t i = 1; i < kBase; ++i) {
    if (kCharacters[i] != ' ') {
      table[static_cast<unsigned char>(kCharacters[i])] = static_cast<std::uint8_t>(i);
    }
  }
  return table;
}

constexpr std::array<std::uint8_t, 256> kIndexes = MakeIndexes();

// Character `at` of the text as stored on file: blanks past its end and for control characters.
unsigned char FileCharacter(std::string_view text, std::size_t at) noexcept {
  if (at >= text.size()) return ' ';
  auto const c = static_cast<unsigned char>(text[at]);
  return c <= ' ' ? static_cast<unsigned char>(' ') : c;
}

std::string_view UpToTerminator(std::string_view text) noexcept {
  return text.substr(0, text.find('\0'));
}

// Both functions write all characters of the words, and return the end of the text, before which
// there may still be blanks.
char* PutCoded(std::int32_t const* words, int n, char* out) noexcept {
  char* end = out;
  for (int i = 0; i < n; ++i, out += 4) {
    auto const word = static_cast<std::uint32_t>(words[i]);
    if (word == 0) {  // blanks
      std::fill_n(out, 4, ' ');
      continue;
    }
    out[0] = kCharacters[word / 1'000'000 % kBase];
    out[1] = kCharacters[word / 10'000 % kBase];
    out[2] = kCharacters[word / 100 % kBase];
    out[3] = kCharacters[word % kBase];
    end = out + 4;
  }
  return end;
}

// A zero byte ends the text.
char* PutRaw(std::int32_t const* words, int n, char* text) noexcept {
  char* out = text;
  for (int i = 0; i < n; ++i) {
    auto const word = static_cast<std::uint32_t>(words[i]);
    for (int c = 0; c < 4; ++c) *out++ = static_cast<char>(word >> (8 * c) & 0xFF);
  }
  return std::find(text, out, '\0');
}

}  // namespace

void TextToWords(std::string_view text, std::int32_t* words, int n) noexcept {
  text = UpToTerminator(text);
  std::size_t at = 0;
  for (int i = 0; i < n; ++i) {
    std::uint32_t word = 0;
    for (int c = 0; c < 4; ++c) word = word * kBase + kIndexes[FileCharacter(text, at++)];
    words[i] = static_cast<std::int32_t>(word);
  }
}

void TextToRawWords(std::string_view text, std::int32_t* words, int n) noexcept {
  text = UpToTerminator(text);
  std::size_t at = 0;
  for (int i = 0; i < n; ++i) {
    std::uint32_t word = 0;
    for (int c = 0; c < 4; ++c) {
      word |= static_cast<std::uint32_t>(FileCharacter(text, at++)) << (8 * c);
    }
    words[i] = static_cast<std::int32_t>(word);
  }
}

void WordsToText(std::int32_t const* words, int n, char* text) noexcept {
  // Unsigned: raw text whose fourth byte is 128 or more yields a negative word and is raw too.
  bool const coded = n > 0 && static_cast<std::uint32_t>(words[0]) <= kLargestCoded;
  char* end = coded ? PutCoded(words, n, text) : PutRaw(words, n, text);
  while (end != text && end[-1] == ' ') --end;
  *end = '\0';
}

}  // namespace zel
