#include "desk/files/settings_file.h"

#include <zelaccess/DeskErrors.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "desk/files/input_file.h"

namespace zel::desk {
namespace {

constexpr char kBlanks[] = " \t\r";

std::string Trimmed(std::string const& text) {
  std::size_t const first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

std::string TextOf(std::string const& path) {
  if (std::filesystem::is_directory(path)) throw Error(path, "is a folder");
  std::ifstream file = OpenInput(path);
  if (!file) {
    throw Error(path, std::filesystem::exists(path) ? "cannot be read" : "not found");
  }
  std::ostringstream text;
  if (file.peek() != std::ifstream::traits_type::eof()) text << file.rdbuf();
  if (file.bad() || !text) throw Error(path, "cannot be read");
  std::string all = text.str();
  constexpr char kMark[] = "\xef\xbb\xbf";  // some editors write it in front of UTF-8
  if (all.rfind(kMark, 0) == 0) all.erase(0, sizeof(kMark) - 1);
  return all;
}

}  // namespace

std::string AtLine(int line) { return "line " + std::to_string(line) + ": "; }

std::vector<FileSetting> ReadSettings(std::string const& path) {
  std::vector<FileSetting> settings;
  std::istringstream lines(TextOf(path));
  std::string section;
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    std::string const text = Trimmed(line);
    if (text.empty() || text[0] == '#' || text[0] == ';') continue;
    if (text[0] == '[') {
      if (text.back() != ']') throw Error(path, AtLine(number) + "a section ends with ]");
      section = Trimmed(text.substr(1, text.size() - 2));
      settings.push_back({section, "", "", number});
      continue;
    }
    std::size_t const equals = text.find('=');
    if (equals == std::string::npos || equals == 0) {
      throw Error(path, AtLine(number) + "\"" + text + "\" is not a setting, NAME = VALUE");
    }
    FileSetting one{section, Trimmed(text.substr(0, equals)), Trimmed(text.substr(equals + 1)),
                    number};
    auto const earlier =
        std::find_if(settings.begin(), settings.end(), [&](FileSetting const& other) {
          return other.section == one.section && other.name == one.name;
        });
    if (earlier != settings.end()) {
      throw Error(path, AtLine(number) + one.name + " is set in line " +
                            std::to_string(earlier->line) + " too");
    }
    settings.push_back(std::move(one));
  }
  return settings;
}

}  // namespace zel::desk
