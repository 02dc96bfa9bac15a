// The seam between the block store and the system's files.
//
// The store reaches every file through a BlockFile, and opens BlockFiles through a FileSystem that
// is passed in. SystemFileSystem() is the real one; tests supply file systems in memory, ones that
// fail at the n-th operation, and ones that record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace zel::platform {

enum class OpenOutcome { kOk, kNotFound, kDenied, kFailed };

enum class OpenMode {
  kRead,    // existing file, read only; other readers may hold it, no writer may
  kUpdate,  // existing file, read and write; no one else may hold it
  kCreate   // as kUpdate, created when missing, never truncated; accessible to its owner only
};

class BlockFile {
 public:
  BlockFile() = default;
  BlockFile(BlockFile const&) = delete;
  BlockFile& operator=(BlockFile const&) = delete;
  // Closes: cuts a file open for update to its true length and releases the lock.
  virtual ~BlockFile() = default;

  // Bytes transferred (fewer at the end of the file), -1 when the transfer failed.
  virtual std::int64_t ReadAt(std::uint64_t offset, void* to, std::size_t count) = 0;
  // The same, and never through a map, where a part of the disk that cannot be read would end the
  // process.
  virtual std::int64_t ReadUnmapped(std::uint64_t offset, void* to, std::size_t count) {
    return ReadAt(offset, to, count);
  }
  // Bytes transferred, -1 when the transfer failed. Writing past the end extends the file; a gap
  // reads as zeros.
  virtual std::int64_t WriteAt(std::uint64_t offset, void const* from, std::size_t count) = 0;
  // The same; in addition, a program that is killed meanwhile leaves each 512 bytes of the file as
  // they were or as they are to be.
  virtual std::int64_t WriteInSectors(std::uint64_t offset, void const* from, std::size_t count) {
    return WriteAt(offset, from, count);
  }
  // The bytes in place when the whole range is inside the file and the file is mapped; null
  // otherwise. The address of a byte does not change while the file is open, and a later WriteAt is
  // visible through it.
  virtual std::byte const* View(std::uint64_t offset, std::size_t count) const noexcept = 0;
  // True when a WriteAt of this range cannot fail, because it only stores bytes for which there is
  // room. Makes that room if necessary.
  virtual bool WriteCannotFail(std::uint64_t /*offset*/, std::size_t /*count*/) { return false; }
  // True length in bytes.
  virtual std::uint64_t Size() const noexcept = 0;
  // Makes the file shorter; a length that is not less than its own changes nothing. False on
  // failure, and for files that cannot become shorter; the length is then as before.
  virtual bool CutTo(std::uint64_t size) { return size >= Size(); }
  // Cuts the file to its true length and asks the system to write it to disk. False on failure.
  virtual bool Flush() = 0;
  // Keeps the memory of the process that ReadAt and WriteAt take for this file within kMostHeld
  // bytes, or no longer does so. Content, addresses and what View returns stay the same. For work
  // on more data than the process should hold; without it a mapped file counts as memory as far as
  // it was used.
  static constexpr std::size_t kMostHeld = std::size_t{24} << 20;
  virtual void BoundMemory(bool /*on*/) {}
};

struct OpenedFile {
  OpenOutcome outcome = OpenOutcome::kFailed;
  std::unique_ptr<BlockFile> file;  // set when outcome is kOk
  bool isInUse = false;             // denied because of another opener: may succeed later
};

class FileSystem {
 public:
  FileSystem() = default;
  FileSystem(FileSystem const&) = delete;
  FileSystem& operator=(FileSystem const&) = delete;
  virtual ~FileSystem() = default;

  virtual bool Exists(std::string const& path) = 0;
  // The same; without a value if the system cannot find it out.
  virtual std::optional<bool> IsThere(std::string const& path) { return Exists(path); }
  virtual OpenedFile Open(std::string const& path, OpenMode mode) = 0;
  // Removes a file that is not open. False on failure, and where files cannot be removed.
  virtual bool Remove(std::string const& /*path*/) { return false; }

  // --- files next to a library, for the time of its changes ----------------------------------
  // The path itself; for a symbolic link, the path that it leads to.
  virtual std::string Target(std::string const& path) { return path; }
  // Opens a file next to the library whose first file is `library`. It is neither locked nor
  // mapped. A symbolic link at the path is not followed, and where everybody may make files, a file
  // that somebody else made is not opened: both are kNotFound. A new file gets the mode of the
  // library.
  virtual OpenedFile OpenAside(std::string const& path, OpenMode mode,
                               std::string const& /*library*/) {
    return Open(path, mode);
  }
  // Asks the system to write to disk which files there are in the folder of that file. False on
  // failure.
  virtual bool SyncFolder(std::string const& /*path*/) { return true; }
};

// The system's files. Opening takes an advisory lock on the whole file, bound to this open (not to
// the process), without waiting: shared for kRead, exclusive otherwise; a lock that is already
// held, by this process or another, yields kDenied. Files are mapped where the system allows it.
FileSystem& SystemFileSystem();
// The same, except that a flush does not ask the system to write files to disk; for benchmarks,
// whose peers do not sync either.
FileSystem& SystemFileSystemWithoutSync();

}  // namespace zel::platform
