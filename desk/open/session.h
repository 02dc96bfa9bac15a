// What one piece of work has opened, and what is done about items that cannot be read.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "desk/words/display_units.h"

namespace zel::desk {

class Library;

class Session {
 public:
  Session() = default;
  Session(Session const&) = delete;
  Session& operator=(Session const&) = delete;
  virtual ~Session() = default;

  // The library for IDs and CAS numbers that the main library does not know: its path, empty for
  // none, and, while it is open, the library itself. See names_library.h.
  std::string namesPath;
  // Where its name was given, for messages.
  std::string namesOrigin = "--names or ZEL_NAMES";
  std::shared_ptr<Library> names;
  // The units of numbers that are shown, and of those that are given without a unit.
  DisplayUnits units;

  // How long an open waits for a library that another program uses.
  std::chrono::milliseconds patience{0};
  // The least time that an open waits for a library while a change of it is moved into place, and
  // that a change which admits readers waits for them at its end.
  std::chrono::milliseconds patienceAtMoves{0};
  // What the history of a library says about the changes made here, e.g. a command line.
  std::string command;

  // Remembers the name in messages of the library at a path.
  void NoteOpened(std::filesystem::path const& path, std::string const& shown);
  // The name in messages of the library to which `file` belongs, the file that a block error names;
  // `file` itself if no such library was opened.
  std::string ShownPath(std::string const& file) const;

  // Called once for each item or bank that a walk leaves out because it cannot be read; `line` says
  // where it is and why. Throws DamagedLibrary with the line, unless a host wants to go on.
  virtual void LeaveOut(std::string const& line);
  // True once for each path, for messages that are shown once.
  bool IsNewlyNoted(std::string const& path) { return noted_.insert(path).second; }
  // Called for errors that do not end the work. Does nothing unless a host overrides it.
  virtual void Note(std::string const& /*line*/) {}

 private:
  struct Opened {
    std::filesystem::path path;
    std::string shown;
  };
  std::vector<Opened> opened_;
  std::set<std::string> noted_;
};

}  // namespace zel::desk
