// Locks on files and folders.
#pragma once

#include <cstdint>
#include <string>

namespace zel::desk {

// A file that is held with the lock that is used for library files.
class FileLock {
 public:
  // No other program can open the file. Throws LibraryInUse if another program holds it or has just
  // moved it away, and Failure if it cannot be opened for writing or is a link.
  static FileLock Take(std::string const& path, std::string const& shownAs);
  // The same, but other programs can open the file for reading, and may have done so.
  static FileLock Share(std::string const& path, std::string const& shownAs);
  // True if any program holds the file so that Take would fail. Only reads the file. False for a
  // file that does not exist or may not be read.
  static bool IsHeld(std::string const& path);

  // True if another program has the file open; for a shared lock.
  bool HasReaders() const;
  // Turns a shared lock into one of Take. Throws LibraryInUse if another program has the file open;
  // the lock is then still shared.
  void KeepReadersOut(std::string const& shownAs);

  FileLock(FileLock&& other) noexcept;
  FileLock& operator=(FileLock&& other) noexcept;
  ~FileLock();

 private:
  friend class WorkLock;  // which may lock in another way

  explicit FileLock(std::intptr_t file) : file_(file) {}
  static FileLock Open(bool isShared, std::string const& path, std::string const& shownAs);

  std::intptr_t file_;  // handle or descriptor of the system; -1 if not open
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
  std::intptr_t file_;
  bool isHeld_ = false;
};

}  // namespace zel::desk
