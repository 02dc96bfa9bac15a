#include "commands/usage_hints.h"

#include <CLI/CLI.hpp>
#include <cstring>

namespace zelhost {
namespace {

bool Has(CLI::App const& command, char const* option) {
  return command.get_option_no_throw(option) != nullptr;
}

bool IsLibrary(std::string const& word) {
  constexpr char kEnding[] = ".lb1";
  return word.size() > 4 && word.compare(word.size() - 4, 4, kEnding) == 0;
}

// "zel show LIBRARY BANK ITEM..."
std::string LineOf(CLI::App const& command) {
  std::string line = "zel " + command.get_name();
  for (CLI::Option const* option : command.get_options()) {
    if (!option->get_positional()) continue;
    std::string const name =
        option->get_name(true) + (option->get_items_expected_max() > 1 ? "..." : "");
    line += option->get_required() ? " " + name : " [" + name + "]";
  }
  for (CLI::Option const* option : command.get_options()) {
    bool const isSource = option->check_lname("lib");
    if (option->get_positional() || !(option->get_required() || isSource)) continue;
    line += option->get_snames().empty() ? " --" + option->get_lnames().front()
                                         : " -" + option->get_snames().front();
    line += " " + option->get_type_name();
  }
  return line;
}

}  // namespace

std::string UsageHint(CLI::App const& app, std::string const& name, CLI::ParseError const& error) {
  CLI::App const& command = *app.get_subcommand(name);
  std::string usage = "; usage: " + LineOf(command);
  auto const is = [&](CLI::ExitCodes code) {
    return error.get_exit_code() == static_cast<int>(code);
  };
  if (is(CLI::ExitCodes::RequiredError)) return usage;
  if (!is(CLI::ExitCodes::ExtrasError)) return "";
  for (std::string const& word : app.remaining(true)) {
    if (!word.empty() && word[0] == '-') return "";
    if (Has(command, "--lib") && IsLibrary(word))
      return "; each library has its own -l: -l " + word;
    if (Has(command, "--components") && Has(command, "--correlations")) {
      return "; --components and --correlations name further ones";
    }
    if (Has(command, "--components")) return "; --components names components";
  }
  return usage;
}

std::vector<char*> WithoutHelpWord(int count, char** words) {
  static char help[] = "--help";
  std::vector<char*> line(words, words + count);
  if (count < 2 || std::strcmp(words[1], "help") != 0) return line;
  line.erase(line.begin() + 1);
  if (line.size() > 2) line.resize(2);
  line.push_back(help);
  return line;
}

}  // namespace zelhost
