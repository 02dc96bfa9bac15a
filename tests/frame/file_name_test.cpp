#include "frame/file_name.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace zel {
namespace {

// Reads the name back.
std::string NameOfFile(std::string file) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  for (std::size_t at = 0; (at = file.find('%', at)) != std::string::npos; ++at) {
    std::string const digits = file.substr(at + 1, 2);
    if (digits.size() < 2 || digits.find_first_not_of(kDigits) != std::string::npos) continue;
    file.replace(at, 3, 1, static_cast<char>(std::stoi(digits, nullptr, 16)));
  }
  return file;
}

using platform::FileNames;

TEST(FileName, WhatNoSystemForbidsStays) {
  for (char const* name :
       {"", "Bank-NRTL-VLE.xml", "A B", "50%", "%", "%2", "%2g", "%2f", "a.b", ".x", "CONS", "xCON",
        "COM", "COM0", "COM10", "\xc3\xa4", "a'b&c;d=e+f,g"}) {
    for (FileNames const forbids : {FileNames::kPosix, FileNames::kWindows}) {
      EXPECT_EQ(FileNameOf(name, forbids), name);
    }
    EXPECT_EQ(NameOfFile(name), name);
  }
}

TEST(FileName, WhatASystemForbidsIsEscaped) {
  struct {
    char const* name;
    char const* file;
  } const rows[] = {
      {"A/B", "A%2FB"},
      {"<>:\"/\\|?*", "%3C%3E%3A%22%2F%5C%7C%3F%2A"},
      {"a\tb\x01\x1f\x7f", "a%09b%01%1F%7F"},
      {"a ", "a%20"},
      {"a.", "a%2E"},
      {"a  ", "a %20"},
      {".", "%2E"},
      {"..", ".%2E"},
      {"CON", "%43ON"},
      {"nul.xml", "%6Eul.xml"},
      {"Aux .x", "%41ux .x"},
      {"COM1", "%43OM1"},
      {"lpt9.b", "%6Cpt9.b"},
      {"A%2FB", "A%252FB"},
      {"%%41", "%%2541"},
      {"A%2/", "A%2%2F"},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(FileNameOf(row.name, FileNames::kWindows), row.file) << row.name;
    EXPECT_EQ(NameOfFile(row.file), row.name) << row.file;
  }
}

// Programs rely on the names of documents: what the system allows stays.
TEST(FileName, WhatAnotherSystemForbidsStays) {
  for (char const* name : {"<>:\"\\|?*", "a\tb\x01", "a ", "a.", "CON", "nul.xml"}) {
    EXPECT_EQ(FileNameOf(name, FileNames::kPosix), name);
  }
  EXPECT_EQ(FileNameOf("A/B:C", FileNames::kPosix), "A%2FB:C");
  EXPECT_EQ(FileNameOf("A%2FB", FileNames::kPosix), "A%252FB");
  EXPECT_EQ(FileNameOf(".", FileNames::kPosix), "%2E");
  EXPECT_EQ(FileNameOf("..", FileNames::kPosix), "%2E.");
  EXPECT_EQ(FileNameOf("...", FileNames::kPosix), "...");
}

// All names of up to five of these characters.
TEST(FileName, EveryNameIsReadBackAndHasItsOwnFile) {
  constexpr char kLetters[] = "%2F/. a";
  constexpr int kCount = sizeof(kLetters) - 1;
  for (int length = 0, names = 1; length <= 5; ++length, names *= kCount) {
    for (int number = 0; number < names; ++number) {
      std::string name;
      for (int i = 0, rest = number; i < length; ++i, rest /= kCount)
        name += kLetters[rest % kCount];
      for (FileNames const forbids : {FileNames::kPosix, FileNames::kWindows}) {
        std::string const file = FileNameOf(name, forbids);
        ASSERT_EQ(NameOfFile(file), name) << file;
        ASSERT_EQ(file.find('/'), std::string::npos) << file;
      }
    }
  }
}

}  // namespace
}  // namespace zel
