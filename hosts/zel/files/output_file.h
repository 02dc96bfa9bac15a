// Files that a command writes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace zelhost {

// Writes the whole file, or leaves what was there: the text goes into a file in a fresh folder
// beside it first. A symbolic link in the place is replaced and not followed. Throws Failure with
// the reason, and for what RefuseSpecialFile refuses.
void WriteFile(std::string const& path, std::string const& text);

// A hidden folder beside what is to be written, in which documents are made; it goes with its
// owner.
class OutputFolder {
 public:
  // Throws Failure when nothing can be written in the folder `target`; the message names `shownAs`.
  OutputFolder(std::filesystem::path const& target, std::string const& shownAs);
  OutputFolder(OutputFolder const&) = delete;
  OutputFolder& operator=(OutputFolder const&) = delete;
  ~OutputFolder();

  // Of a file in it; of the folder, with a separator after it, for an empty name.
  std::string PathOf(std::string const& name) const { return folder_ + "/" + name; }
  // Moves all files to the target, in the place of what is there; gives their number. When one
  // cannot be moved, those before it go back, and Failure is thrown; where the file system cannot
  // exchange two files, it names those that are new already.
  std::int64_t MoveInto();

 private:
  std::filesystem::path target_;
  std::string folder_;
};

// The paths that mean standard output, "-" and /dev/stdout.
bool IsStandardOutput(std::string const& path);

// Throws Failure where a folder, a pipe, a device or a link of the system is in the place of an
// output. Nothing is opened, so that no pipe makes a command wait.
void RefuseSpecialFile(std::string const& path);

// Throws Failure for a path that ends as those of a library's files do, .lb1 to .lb9: no document
// takes their place.
void RefuseLibraryPath(std::string const& path);

}  // namespace zelhost
