// Names, IDs and words of components in lists: corrects their case and makes their sort keys.
//
// Chemical names are sorted by their main words and not by prefixes: n-butane as butane,
// alpha-pinene as pinene.
#pragma once

#include <string>
#include <string_view>

namespace zel {

enum class WordCase { kAsItIs = 0, kUpper = 1, kLower = 2 };

// One word of a name: what it adds to the sort key, in which part of it, and its case in the name.
struct WordClass {
  std::string sortText;
  WordCase letters;
  int part;  // 0 main words, 1 locants and Greek letters, 2 optical and geometric isomers
};

// `first` is the word's first character as written, `delimiter` what ended the word (0 at the end
// of the name), `lowerWord` the word in lower case.
WordClass ClassifyWord(char first, char delimiter, std::string_view lowerWord);

// Changes the case of known prefixes, in place.
void TidyName(char* name);

std::string MakeNameKey(std::string_view name);
// The ID without its leading digits, followed by their number and the digits themselves: 1-BUTENE
// becomes "BUTENE 11 -".
std::string MakeIdKey(std::string_view id);

}  // namespace zel
