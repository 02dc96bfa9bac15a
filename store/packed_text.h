// Packed-word text: 4 characters a word.
//
// On file a text field has one of two shapes. Coded: each character is its index in a table of 100
// characters, and a word is ((c0 x 100 + c1) x 100 + c2) x 100 + c3. Raw: the word holds the 4
// bytes in file order. A first word of at most 99999999 means coded.
#pragma once

#include <cstdint>
#include <string_view>

namespace zel {

// Packs 4n characters of `text` into n coded words: excess characters are dropped, missing ones are
// padded with blanks, and every character outside the table becomes a blank.
void TextToWords(std::string_view text, std::int32_t* words, int n) noexcept;

// Unpacks n words of either shape into `text` (4n + 1 characters) and removes trailing blanks.
void WordsToText(std::int32_t const* words, int n, char* text) noexcept;

// Packs like TextToWords, but in the raw shape, which keeps characters outside the table.
void TextToRawWords(std::string_view text, std::int32_t* words, int n) noexcept;

}  // namespace zel
