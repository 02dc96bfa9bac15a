// What to type instead of a command line that cannot be read.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace zelhost {

// The rest of a message about words that are missing or not expected: "; usage: zel show LIBRARY
// BANK ITEM...". Empty where the help is the best advice.
std::string UsageHint(CLI::App const& app, std::string const& command,
                      CLI::ParseError const& error);

// The words of the line; "zel help" and "zel help edit" mean "zel --help" and "zel edit --help".
std::vector<char*> WithoutHelpWord(int count, char** words);

}  // namespace zelhost
