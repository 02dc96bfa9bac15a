// The state of one run of zel: what was requested and what has been opened.
#pragma once

#include <string>

#include "desk/open/session.h"
#include "output/defaults.h"
#include "output/report.h"

namespace zelhost {

class Session final : public zel::desk::Session {
 public:
  Session() { patienceAtMoves = std::chrono::seconds(5); }

  // The form of the report.
  Form form = Form::kText;
  // If true, the first item that cannot be read ends the command.
  bool isStrict = false;
  // The command, empty until the line names one; whether it prints JSON, and whether it has printed
  // a report.
  std::string commandName;
  bool isJson = false;
  bool hasReported = false;
  // The exit status of a command that did its work; 1 if it found something wrong.
  int exitStatus = 0;

  // The defaults of options that are not given, and which of the options with defaults were given
  // on the command line or in the environment.
  Defaults defaults;
  bool hasNames = false;
  bool hasUnits = false;
  std::string unitWords;

  // The lines that LeaveOut and Note have written.
  std::vector<std::string> lines;

  // Writes the report in the form of the session on standard output.
  void Print(Report& report);
  // Writes the line on standard error and sets the exit status to 1. With --strict it throws
  // Failure.
  void LeaveOut(std::string const& line) override;
  // Writes the line on standard error.
  void Note(std::string const& line) override;
};

}  // namespace zelhost
