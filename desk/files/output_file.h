// Files that a command writes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace zel::desk {

// Writes the whole file, or leaves the old one: the text is first written to a file in a new folder
// next to it. A symbolic link at the path is replaced and not followed. Throws Failure with the
// reason, and for everything that RefuseSpecialFile refuses.
void WriteFile(std::string const& path, std::string const& text);

// A hidden folder next to the destination, in which documents are made; the destructor removes it.
class OutputFolder {
 public:
  // Throws Failure if nothing can be written in the folder `target`; the message names `shownAs`.
  OutputFolder(std::filesystem::path const& target, std::string const& shownAs);
  OutputFolder(OutputFolder const&) = delete;
  OutputFolder& operator=(OutputFolder const&) = delete;
  ~OutputFolder();

  // The path of a file in it; for an empty name that of the folder, with a separator at the end.
  std::string PathOf(std::string const& name) const { return folder_ + "/" + name; }
  // Moves all files to the target, replacing what is there, and returns their number. If one cannot
  // be moved, the previous ones are moved back, and Failure is thrown; if the file system cannot
  // exchange two files, it names the ones that are already new.
  std::int64_t MoveInto();

 private:
  std::filesystem::path target_;
  std::string folder_;
};

// The paths that mean standard output, "-" and /dev/stdout.
bool IsStandardOutput(std::string const& path);

// Throws Failure if a folder, a pipe, a device or a link of the system is in the place of an
// output. Nothing is opened, so that no pipe makes a command wait.
void RefuseSpecialFile(std::string const& path);

// Throws Failure for a path that ends in .lb1 to .lb9, as the files of a library do: a document
// must not replace such a file.
void RefuseLibraryPath(std::string const& path);

}  // namespace zel::desk
