// What all commands share: how they are put on the command line and how they answer.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "report.h"

namespace CLI {
class App;
}  // namespace CLI

namespace zelhost {

// The options of output that a command takes.
enum class Outputs { kJson, kJsonAndCsv };

// Where the words of an argument or option go: one text, one text that may be absent, several
// texts, or a whole number.
class Target {
 public:
  Target(std::string& text) : to_(&text) {}
  Target(std::optional<std::string>& text) : to_(&text) {}
  Target(std::vector<std::string>& texts) : to_(&texts) {}
  Target(int& number) : to_(&number) {}

 private:
  friend class Command;
  std::variant<std::string*, std::optional<std::string>*, std::vector<std::string>*, int*> to_;
};

// One command while it is described. `run` is called after the whole line was read.
//
//   Command command(app, "info", "Show what a library is", "zel info sample.lb1");
//   command.Argument("LIBRARY", options->path, "a library file");
//   command.Run(Outputs::kJson, [options] { return Info(*options); });
class Command {
 public:
  // The help of the command ends with the example.
  Command(CLI::App& app, std::string const& name, std::string const& purpose,
          std::string const& example);

  // A word, or words, that must be given, in this order.
  Command& Argument(std::string const& name, Target target, std::string const& help);
  Command& OptionalArgument(std::string const& name, Target target, std::string const& help);
  Command& Option(std::string const& names, Target target, std::string const& help,
                  std::string const& typeName);
  // An option that must be given. Takes one word only.
  Command& Required(std::string const& names, Target target, std::string const& help,
                    std::string const& typeName);
  Command& Flag(std::string const& names, bool& target, std::string const& help);

  // What the command does; the report is printed.
  void Run(Outputs outputs, std::function<Report()> work);

 private:
  CLI::App* sub_;
};

// All commands.
void AddLibraryCommands(CLI::App& app);   // create, info, memo, set
void AddBankCommands(CLI::App& app);      // types, banks, items
void AddShowCommands(CLI::App& app);      // show, find
void AddCurveCommands(CLI::App& app);     // eval, plot
void AddSearchCommands(CLI::App& app);    // search, why, coverage
void AddDocumentCommands(CLI::App& app);  // import, export, dump
void AddListCommand(CLI::App& app);       // list
void AddItemCommands(CLI::App& app);      // copy, delete
void AddDiffCommand(CLI::App& app);
void AddCheckCommand(CLI::App& app);

// The form that was asked for.
Form OutputForm();

// Sets the exit status of a command that did its work and found something wrong.
void SetExitStatus(int status);
int ExitStatus();

// Writes to standard output; throws Failure when it cannot, PipeClosed when nobody reads it.
void Write(std::string const& text);

}  // namespace zelhost
