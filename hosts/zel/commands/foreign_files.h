// Files in the forms of other programs, which `import --format` reads.
#pragma once

#include <string>
#include <vector>

#include "commands/command.h"
#include "desk/change/library_change.h"

namespace zelhost {

struct ForeignOptionWords {
  std::string format;
  std::string range;
  std::string code;
};

struct ForeignFiles {
  std::vector<std::string> paths;
  std::string bank;
  bool skipBad = false;
  bool isStrict = false;  // implausible values are an error
  bool listAll = false;
};

void AddForeignInput(Command& command, ForeignOptionWords& words);

// Throws WrongUsage for words that do not fit each other, before anything is opened.
void CheckForeignWords(ForeignOptionWords const& words, ForeignFiles const& files);
// Throws Failure, after it has printed the report, if data are refused and `skipBad` is not set.
Report ImportForeignFile(Session& session, LibraryChange change, ForeignOptionWords const& words,
                         ForeignFiles const& files);

}  // namespace zelhost
