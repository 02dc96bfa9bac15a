// The state of one run of zel: what was requested and what has been opened.
#pragma once

#include <string>

#include "desk/open/session.h"
#include "output/report.h"

namespace zelhost {

class Session final : public zel::desk::Session {
 public:
  // The form of the report.
  Form form = Form::kText;
  // If true, the first item that cannot be read ends the command.
  bool isStrict = false;
  // That of a command that did its work; 1 if it found something wrong.
  int exitStatus = 0;

  // Writes the line on standard error and sets the exit status to 1. With --strict it throws
  // Failure.
  void LeaveOut(std::string const& line) override;
  // Writes the line on standard error.
  void Note(std::string const& line) override;
};

}  // namespace zelhost
