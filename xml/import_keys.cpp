// Reads the keys of items from documents.
#include <algorithm>
#include <array>

#include "frame/ascii.h"
#include "frame/limits.h"
#include "frame/number_text.h"
#include "store/format.h"
#include "xml/import_items.h"
#include "xml/import_text.h"

namespace zel {

namespace {

enum KeyKind : std::int32_t { kComponents = 0, kNumbers = 1 };

constexpr std::size_t kLeastNumberDigits = 7;

bool IsComponentNumber(std::string_view token) {
  return token.size() >= kLeastNumberDigits && token.size() <= kMostName &&
         std::all_of(token.begin(), token.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Decodes a token of at most kMostName characters: a component number, a CAS number if it has that
// form, and otherwise a character ID.
Key_i::Part PartOf(std::string_view token) {
  Key_i::Part part;
  CopyText(token, part.id, sizeof part.id);
  if (IsComponentNumber(token)) {
    part.kind = keyNumber;
    part.number = ParseInt(token);
    return part;
  }
  part.cas = casn(static_cast<char const*>(part.id));
  part.kind = static_cast<long>(part.cas) != 0 ? keyCas : keyText;
  return part;
}

// Makes `Item "a:b"` from pieces that each end with the separator. Every report on the item shows
// it, so its length is limited.
std::string Label(std::string pieces, char separator) {
  constexpr std::size_t kLongest = 500;
  if (!pieces.empty() && pieces.back() == separator) pieces.pop_back();
  pieces.resize(std::min(pieces.size(), kLongest));
  return "Item \"" + pieces + "\"";
}

}  // namespace

std::int32_t ItemImport::ReadKey(XmlNode node, std::string_view text) {
  switch (info_.keyKind) {
    case kComponents: return ReadComponents(text);
    case kNumbers: return ReadNumbers(node, text);
    default: return ReadWord(node, text);
  }
}

std::int32_t ItemImport::ReadComponents(std::string_view text) {
  std::array<Key_i::Part, Key_i::kPlaces> parts;
  auto const places = static_cast<std::size_t>(std::min(info_.keyWords, Key_i::kPlaces));
  std::string label;
  std::size_t count = 0;
  Tokens tokens(text);
  std::string_view token;
  while (tokens.Next(token)) {
    if (token.size() > kMostName) {
      // Returns whether the import may continue as the count; the key remains that of the previous
      // item.
      std::string message =
          "Ordwin Id or Libary Number is exceeding more than 8 digits for the item ";
      return Report(message.append(token)) == Verdict::kGoOn ? 1 : 0;
    }
    label.append(token).append(":");
    if (count < places) parts[count] = PartOf(token);
    ++count;
  }
  run_.log.SetItemLabel(Label(std::move(label), ':'));
  std::size_t used = std::min(count, places);
  if (count < places && static_cast<std::int32_t>(count) >= info_.minKeyWords) {
    Key_i::Part left;
    left.kind = keyNumber;
    left.number = Key_i::kWildcard;
    if (count == 1 && info_.keyWords == 2) left = parts[0];
    std::fill(parts.begin() + static_cast<std::ptrdiff_t>(used),
              parts.begin() + static_cast<std::ptrdiff_t>(places), left);
    used = count == 0 ? 0 : places;
  }
  key_.SetParts({parts.data(), used});
  return static_cast<std::int32_t>(count);
}

std::int32_t ItemImport::ReadNumbers(XmlNode node, std::string_view text) {
  std::array<std::int32_t, format::kMaxKeyWords> numbers;
  numbers.fill(Key_i::kWildcard);
  auto const places =
      std::min<std::size_t>(static_cast<std::size_t>(info_.keyWords), numbers.size());
  std::string label;
  std::size_t count = 0;
  Tokens tokens(text);
  std::string_view token;
  while (tokens.Next(token)) {
    label.append(token).append("-");
    if (count < places) numbers[count] = run_.texts.Int(node, token);
    ++count;
  }
  run_.log.SetItemLabel(Label(std::move(label), '-'));
  if (count == 1 && info_.keyWords == 2 && info_.minKeyWords <= 1) numbers[1] = numbers[0];
  key_.SetKeyWords(info_.keyWords, numbers.data());
  return static_cast<std::int32_t>(count);
}

// The key is always complete.
std::int32_t ItemImport::ReadWord(XmlNode node, std::string_view text) {
  std::string const word(text);
  constexpr std::size_t kPerWord = 4;
  run_.texts.CheckText(node, text, kPerWord * static_cast<std::size_t>(info_.keyWords) + 1);
  run_.log.SetItemLabel(Label(word, '\0'));
  key_.SetKeyText(info_.keyWords, word.c_str());
  return info_.keyWords;
}

std::string ItemImport::KeyCountProblem(std::int32_t keyCount) const {
  // A phrase has 19 characters: the last one of "10 keys were entered" is not shown.
  constexpr std::size_t kLongestPhrase = 19;
  auto const phrase = [](std::int32_t number, std::string const& one, std::string const& many) {
    return number == 1 ? one : (std::to_string(number) + many).substr(0, kLongestPhrase);
  };
  std::string const entered = phrase(keyCount, "1 key was entered", " keys were entered");
  bool const fixed = info_.minKeyWords == info_.keyWords;
  if (keyCount < info_.minKeyWords) {
    return entered + (fixed ? " but " : " but at least ") +
           phrase(info_.minKeyWords, "1 is required", " are required");
  }
  return entered + (fixed ? " but only " : " but no more than ") +
         phrase(info_.keyWords, "1 is allowed", " are allowed");
}

}  // namespace zel
