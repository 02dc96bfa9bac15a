// Names, IDs and words of components as lists have them: tidied, and by what they are sorted.
//
// Chemical names are ordered by their main words and not by prefixes: n-butane stands under butane,
// alpha-pinene under pinene.
#pragma once

#include <string>
#include <string_view>

namespace zel {

enum class WordCase { kAsItIs = 0, kUpper = 1, kLower = 2 };

// One word of a name: what it adds to the sort key, in which part of it, and its case in the name.
struct WordClass {
  std::string sortText;
  WordCase letters;
  int part;  // 0 main words, 1 places and Greek letters, 2 optical and geometric isomers
};

// `first` is the word's first character as written, `delimiter` what ended the word (0 at the end
// of the name), `lowerWord` the word in lower case.
WordClass ClassifyWord(char first, char delimiter, std::string_view lowerWord);

// Gives known prefixes their case, in place.
void TidyName(char* name);

std::string MakeNameKey(std::string_view name);
// Behind the ID without its leading digits their number and the digits: 1-BUTENE stands as
// "BUTENE 11 -".
std::string MakeIdKey(std::string_view id);

}  // namespace zel
