// The command line: the commands, their arguments and options, and their output.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "output/report.h"
#include "output/session.h"

namespace CLI {
class App;
}  // namespace CLI

namespace zelhost {

// The output options that a command accepts.
enum class Outputs { kJson, kJsonAndCsv };

// The place where the value of an argument or option is stored: a text, a text that may be absent,
// several texts, or a whole number.
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

  // Runs the command and returns the exit status. Throws WrongUsage if the command line is invalid,
  // and whatever the command throws.
  int Run(int count, char** words);

 private:
  friend class Command;
  Session& session_;
  std::set<std::string> secrets_;  // names of options
  std::unique_ptr<CLI::App> app_;
};

// Describes one command. The function given to Run is called after the whole line was read.
//
//   Command command(line, "info", "Show what a library is", "zel info sample.lb1");
//   command.Argument("LIBRARY", options->path, "a library file");
//   command.Run(Outputs::kJson, [options](Session& session) { return Info(session, *options); });
class Command {
 public:
  // The help of the command ends with the example.
  Command(CommandLine& line, std::string const& name, std::string const& purpose,
          std::string const& example);

  // One or more words that must be given. Arguments are read in the order of these calls.
  Command& Argument(std::string const& name, Target target, std::string const& help);
  Command& OptionalArgument(std::string const& name, Target target, std::string const& help);
  Command& Option(std::string const& names, Target target, std::string const& help,
                  std::string const& typeName);
  // An option whose word is left out of the history of a library.
  Command& Secret(std::string const& names, Target target, std::string const& help,
                  std::string const& typeName);
  // An option that must be given, with exactly one word.
  Command& Required(std::string const& names, Target target, std::string const& help,
                    std::string const& typeName);
  // An option for several words none of which contains a comma; commas between them are understood.
  Command& List(std::string const& names, std::vector<std::string>& targets,
                std::string const& help, std::string const& typeName);
  Command& Flag(std::string const& names, bool& target, std::string const& help);
  // The sources of a preference list, -l; by default those of the configuration file.
  Command& Sources(std::vector<std::string>& targets, std::string const& help,
                   std::string const& typeName);
  // The words of a target name libraries, LIBRARY or LIBRARY:BANK, which are looked up on the path
  // before the command runs. Not if `mayBeNew` is set then: a new library is made where it is
  // named.
  Command& Library(Target target, bool const* mayBeNew = nullptr);
  // The command mends a library, if `when` is set then or null: a names library that cannot be
  // opened does not end it.
  Command& Mends(bool const* when = nullptr);

  // For flags that set its members.
  Session& InSession() const { return session_; }
  // Sets what the command does; the report is printed.
  void Run(Outputs outputs, std::function<Report(Session&)> work);

 private:
  struct LibraryWords {
    Target target;
    bool const* mayBeNew;
  };

  Session& session_;
  CommandLine& line_;
  CLI::App* sub_;
  std::vector<LibraryWords> libraries_;
  std::vector<std::vector<std::string>*> lists_;
  std::vector<std::string>* sources_ = nullptr;
  bool mends_ = false;
  bool const* mendsWhen_ = nullptr;
};

// All commands.
void AddLibraryCommands(CommandLine& line);  // create, info, memo, set
void AddBankCommands(CommandLine& line);     // types, banks, items
void AddShowCommands(CommandLine& line);     // show, find
void AddCurveCommands(CommandLine& line);    // eval
void AddPlotCommand(CommandLine& line);
void AddPageCommands(CommandLine& line);    // sheet, report
void AddSearchCommands(CommandLine& line);  // search, why
void AddCoverageCommand(CommandLine& line);
void AddDocumentCommands(CommandLine& line);  // import, export, dump
void AddListCommand(CommandLine& line);       // list
void AddItemCommands(CommandLine& line);      // copy, delete
void AddEditCommand(CommandLine& line);
void AddFitCommands(CommandLine& line);      // fit, points
void AddHistoryCommands(CommandLine& line);  // log, undo
void AddDiffCommand(CommandLine& line);
void AddCheckCommand(CommandLine& line);
void AddTableCommands(CommandLine& line);  // template, table, pairs
void AddCompareCommand(CommandLine& line);
void AddCombineCommands(CommandLine& line);  // flatten, merge, renumber
void AddPathCommand(CommandLine& line);
void AddNoteCommands(CommandLine& line);  // refs, parameters
void AddSalvageCommand(CommandLine& line);
void AddSchemaCommand(CommandLine& line);

}  // namespace zelhost
