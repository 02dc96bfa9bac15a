// The state of one run of zel: what was requested and what has been opened.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "output/report.h"

namespace zelhost {

class Library;

class Session {
 public:
  Session() = default;
  Session(Session const&) = delete;
  Session& operator=(Session const&) = delete;

  // The form of the report.
  Form form = Form::kText;
  // If true, the first item that cannot be read ends the command.
  bool isStrict = false;
  // That of a command that did its work; 1 if it found something wrong.
  int exitStatus = 0;
  // The library for IDs and CAS numbers that the main library does not know: its path, empty for
  // none, and, while a command runs, the library itself. See names_library.h.
  std::string namesPath;
  std::shared_ptr<Library> names;

  // Remembers the name in messages of the library at a path.
  void NoteOpened(std::filesystem::path const& path, std::string const& shown);
  // The name in messages of the library to which `file` belongs, the file that a block error names;
  // `file` itself if no such library was opened.
  std::string ShownPath(std::string const& file) const;

 private:
  struct Opened {
    std::filesystem::path path;
    std::string shown;
  };
  std::vector<Opened> opened_;
};

}  // namespace zelhost
