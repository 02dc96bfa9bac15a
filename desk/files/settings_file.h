// Text files of settings:
//
//   # a comment, on a line of its own
//   name = value
//
//   [section]
//   name = value
#pragma once

#include <string>
#include <vector>

namespace zel::desk {

struct FileSetting {
  std::string section;  // empty in front of the first one
  std::string name;
  std::string value;  // without blanks around it; may be empty
  int line = 0;
};

// The settings of a file in their order, and in front of those of a section an entry without a
// name. Throws Error, which names the line, for a line that is not a comment, a section or a
// setting, and for a setting that occurs twice; also if the file cannot be read.
std::vector<FileSetting> ReadSettings(std::string const& path);
// What an error of a setting begins with: "line 3: ".
std::string AtLine(int line);

}  // namespace zel::desk
