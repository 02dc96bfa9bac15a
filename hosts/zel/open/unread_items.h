// Items that a walk cannot read.
#pragma once

#include <zelaccess/Verify.h>

#include <set>
#include <string>
#include <utility>

#include "open/session.h"

namespace zelhost {

// Receives what a walk over a library skips because it cannot be read: writes one line on standard
// error for each, and sets the exit status to 1. With --strict the first one ends the command.
class UnreadItems final : public zel::ZelFindingSink {
 public:
  // `path` is the library's name in messages.
  UnreadItems(Session& session, std::string path) : session_(session), path_(std::move(path)) {}

  // Throws Failure with --strict.
  void Found(zel::zelFindings severity, char const* id, char const* place,
             char const* text) override;

 private:
  Session& session_;
  std::string path_;
  std::set<std::string> told_;  // a bank that is walked twice is reported once
};

}  // namespace zelhost
