// The folders in which libraries are looked up if they are named without a folder.
#pragma once

#include <string>
#include <vector>

namespace zel::desk {

// A library that a word finds.
struct PathLibrary {
  std::string word;       // "perry" for perry.lb1
  std::string path;       // the file
  bool isHidden = false;  // the word finds another library, in an earlier folder
};

class LibraryPath {
 public:
  // Only the current folder.
  LibraryPath() = default;
  explicit LibraryPath(std::vector<std::string> folders) : folders_(std::move(folders)) {}

  // The folders after the current one, which is always the first.
  std::vector<std::string> const& Folders() const { return folders_; }

  // The file of the library that a word names. A file whose path is the word itself is always
  // taken. Otherwise a word without a folder names the first file NAME.lb1, or NAME if it ends in
  // .lb1, of the current folder and of those of the path. A library that is being changed counts as
  // existing. A word that names no library is returned as it is if no folders are set; otherwise
  // throws OpenError, which names the folders and the most similar library.
  std::string Find(std::string const& word) const;
  // The same for LIBRARY or LIBRARY:BANK.
  std::string FindSource(std::string const& word) const;

  // "; did you mean perry?" for a path that leads to no library, with the most similar one in its
  // folder; empty if none is similar.
  static std::string Suggestion(std::string const& path);
  // The libraries of a folder, in order of their names; none if the folder does not exist.
  static std::vector<std::string> LibrariesIn(std::string const& folder);
  // The libraries of the current folder and of those of the path.
  std::vector<PathLibrary> Libraries() const;

 private:
  std::string Found(std::string const& word) const;  // empty if not found

  std::vector<std::string> folders_;
};

// The folders of a text such as ZEL_PATH, with ":" between them; an empty one is the current one.
std::vector<std::string> FoldersOf(std::string const& text);

}  // namespace zel::desk
