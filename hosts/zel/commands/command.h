// The command line: which commands there are, what they take and how they answer.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "open/session.h"
#include "output/report.h"

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

class CommandLine {
 public:
  explicit CommandLine(Session& session);
  CommandLine(CommandLine const&) = delete;
  CommandLine& operator=(CommandLine const&) = delete;
  ~CommandLine();

  // Does what the words ask for and returns the exit status. Throws WrongUsage when they make no
  // sense, and what the command throws.
  int Run(int count, char** words);

 private:
  friend class Command;
  Session& session_;
  std::unique_ptr<CLI::App> app_;
};

// One command while it is described. `run` is called after the whole line was read.
//
//   Command command(line, "info", "Show what a library is", "zel info sample.lb1");
//   command.Argument("LIBRARY", options->path, "a library file");
//   command.Run(Outputs::kJson, [options](Session& session) { return Info(session, *options); });
class Command {
 public:
  // The help of the command ends with the example.
  Command(CommandLine& line, std::string const& name, std::string const& purpose,
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

  // To which flags can write.
  Session& InSession() const { return session_; }
  // What the command does; the report is printed.
  void Run(Outputs outputs, std::function<Report(Session&)> work);

 private:
  Session& session_;
  CLI::App* sub_;
};

// All commands.
void AddLibraryCommands(CommandLine& line);   // create, info, memo, set
void AddBankCommands(CommandLine& line);      // types, banks, items
void AddShowCommands(CommandLine& line);      // show, find
void AddCurveCommands(CommandLine& line);     // eval, plot
void AddSearchCommands(CommandLine& line);    // search, why, coverage
void AddDocumentCommands(CommandLine& line);  // import, export, dump
void AddListCommand(CommandLine& line);       // list
void AddItemCommands(CommandLine& line);      // copy, delete
void AddDiffCommand(CommandLine& line);
void AddCheckCommand(CommandLine& line);

}  // namespace zelhost
