// Items that a walk cannot read.
#pragma once

#include <zelaccess/Verify.h>

#include <set>
#include <string>
#include <utility>

#include "desk/open/session.h"

namespace zel::desk {

// Receives what a walk over a library skips because it cannot be read, and hands one line for each
// to Session::LeaveOut.
class UnreadItems final : public zel::ZelFindingSink {
 public:
  // `path` is the library's name in messages.
  UnreadItems(Session& session, std::string path) : session_(session), path_(std::move(path)) {}

  // Throws what Session::LeaveOut throws.
  void Found(zel::zelFindings severity, char const* id, char const* place,
             char const* text) override;

 private:
  Session& session_;
  std::string path_;
  std::set<std::string> told_;  // a bank that is walked twice is reported once
};

}  // namespace zel::desk
