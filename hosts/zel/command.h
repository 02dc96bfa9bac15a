// What all commands share: how they are put on the command line and how they answer.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

#include "report.h"

namespace zelhost {

// The options of output that a command takes.
enum class Outputs { kJson, kJsonAndCsv };

// One command while it is described. `run` is called after the whole line was read.
//
//   Command command(app, "info", "Show what a library is", "zel info sample.lb1");
//   command.Argument("LIBRARY", options->path, "a library file");
//   command.Run(Outputs::kJson, [options] { return Info(*options); });
class Command {
 public:
  // The example stands at the end of the command's help.
  Command(CLI::App& app, std::string const& name, std::string const& purpose,
          std::string const& example);

  // A word, or words, that must be given, in this order.
  template <typename T>
  Command& Argument(std::string const& name, T& target, std::string const& help) {
    sub_->add_option(name, target, help)->required();
    return *this;
  }
  template <typename T>
  Command& OptionalArgument(std::string const& name, T& target, std::string const& help) {
    sub_->add_option(name, target, help);
    return *this;
  }
  template <typename T>
  Command& Option(std::string const& names, T& target, std::string const& help,
                  std::string const& typeName) {
    sub_->add_option(names, target, help)->type_name(typeName);
    return *this;
  }
  // An option that must be given.
  template <typename T>
  Command& Required(std::string const& names, T& target, std::string const& help,
                    std::string const& typeName) {
    sub_->add_option(names, target, help)->required()->type_name(typeName)->allow_extra_args(false);
    return *this;
  }
  Command& Flag(std::string const& names, bool& target, std::string const& help) {
    sub_->add_flag(names, target, help);
    return *this;
  }

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
