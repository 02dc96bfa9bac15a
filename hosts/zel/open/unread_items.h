// Items that a walk cannot read.
#pragma once

#include <zelaccess/Verify.h>

#include <set>
#include <string>
#include <utility>

#include "open/session.h"

namespace zelhost {

// Told of what a walk over a library passes over since it cannot be read: one line on standard
// error for each, and the exit status becomes 1. Under --strict the first one ends the command.
class UnreadItems final : public zel::ZelFindingSink {
 public:
  // `path` is what messages call the library.
  UnreadItems(Session& session, std::string path) : session_(session), path_(std::move(path)) {}

  // Throws Failure under --strict.
  void Found(zel::zelFindings severity, char const* id, char const* place,
             char const* text) override;

 private:
  Session& session_;
  std::string path_;
  std::set<std::string> told_;  // a bank that is walked twice is told of once
};

}  // namespace zelhost
