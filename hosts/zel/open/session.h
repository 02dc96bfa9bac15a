// What one run of zel has at hand: what was asked of it and what it has opened.
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
  // The first item that cannot be read ends the command.
  bool isStrict = false;
  // Of a command that did its work; 1 where it found something wrong.
  int exitStatus = 0;
  // The library for IDs and CAS numbers that the library at hand does not know: its path, empty for
  // none, and, while a command runs, the library itself. See names_library.h.
  std::string namesPath;
  std::shared_ptr<Library> names;

  // Remembers what messages call the library at a path.
  void NoteOpened(std::filesystem::path const& path, std::string const& shown);
  // What messages call the library that has `file` among its files, which a block error names; the
  // file itself for one that was not opened.
  std::string ShownPath(std::string const& file) const;

 private:
  struct Opened {
    std::filesystem::path path;
    std::string shown;
  };
  std::vector<Opened> opened_;
};

}  // namespace zelhost
