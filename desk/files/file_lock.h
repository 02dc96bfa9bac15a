// Locks on files and folders.
#pragma once

#include <string>

namespace zel::desk {

// A file held under the lock that is used for library files; no other program can then open it.
class FileLock {
 public:
  // Throws Failure if the file cannot be opened for writing, is a link, or is held by another
  // program.
  static FileLock Take(std::string const& path, std::string const& shownAs);
  FileLock(FileLock&& other) noexcept;
  FileLock& operator=(FileLock&& other) noexcept;
  ~FileLock();

 private:
  explicit FileLock(int descriptor) : descriptor_(descriptor) {}
  int descriptor_;
};

// Keeps steps in a folder apart from those of another process: they wait for each other, two
// seconds at most.
class FolderTurn {
 public:
  enum class Patience { kNone, kTwoSeconds };

  explicit FolderTurn(std::string const& folder, Patience patience = Patience::kTwoSeconds);
  FolderTurn(FolderTurn const&) = delete;
  FolderTurn& operator=(FolderTurn const&) = delete;
  ~FolderTurn();

  // True if it is this process's turn.
  explicit operator bool() const { return isHeld_; }

 private:
  int descriptor_;
  bool isHeld_ = false;
};

}  // namespace zel::desk
