// Files of the system, mapped into memory.
//
// A file open for reading is mapped at its full length when a view is requested or after more than
// a few reads: for the few reads that opening a library takes, a map costs more than it saves. A
// file open for update is mapped once, with the largest range that a file of tree nodes can have,
// so that addresses do not change. A write goes through the map only where the disk is known to
// have room, since a full disk would raise a signal there: room is allocated in growing steps, and
// the file is cut to its true length at a flush and when it is closed. Without a map, in files with
// large holes, which stay holes, and on file systems that cannot allocate room in advance,
// positioned reads and writes are used.
//
// Where memory is bounded, only parts that are used often go through the map, since mapping a part
// costs more than a few positioned reads and writes. When they are too many, all are given back to
// the system: what was written is in its cache of the file.
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "frame/platform/block_file.h"
#include "frame/platform/posix_aside.h"
#include "frame/platform/posix_descriptor.h"

namespace zel::platform {
namespace {

// 999,999 blocks of 1000 words.
constexpr std::uint64_t kReservedRange = std::uint64_t{4000} * 999'999;
constexpr std::uint64_t kLargestOffset = std::numeric_limits<off_t>::max();
// Where addresses have 32 bits, only the first part of a file is mapped, so that there is room for
// many files; the rest is read and written with plain calls.
constexpr std::uint64_t kMostMapped = sizeof(void*) > 4 ? std::numeric_limits<std::uint64_t>::max()
                                                        : std::uint64_t{64} << 20;
static_assert(sizeof(off_t) == 8, "files can be longer than 2 GB");
constexpr int kPlainReads = 16;
constexpr std::uint64_t kLeastStep = std::uint64_t{64} << 10;
constexpr std::uint64_t kLargestStep = std::uint64_t{16} << 20;

OpenOutcome OutcomeOf(int error) noexcept {
  switch (error) {
    case ENOENT:
    case ENOTDIR: return OpenOutcome::kNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ETXTBSY:
    case EAGAIN:                               // a lock that is already held
    case ENXIO:                                // a socket
    case ENODEV: return OpenOutcome::kDenied;  // a missing device
    default: return OpenOutcome::kFailed;
  }
}

// Which parts of a file are used often enough to be mapped, where memory is bounded.
class OftenUsedParts {
 public:
  // For a file of at most that many bytes.
  explicit OftenUsedParts(std::size_t bytes) : uses_((bytes + kPartBytes - 1) / kPartBytes, 0) {}

  // Counts the use of a range that is not empty. Returns true if all of it was used often.
  bool Use(std::size_t offset, std::size_t count) noexcept {
    bool often = true;
    std::size_t const last = (offset + count - 1) / kPartBytes;
    for (std::size_t part = offset / kPartBytes; part <= last; ++part) {
      if (uses_[part] == kOften) continue;
      often = false;
      if (++uses_[part] == kOften) ++count_;
    }
    return often;
  }
  std::size_t Bytes() const noexcept { return count_ * kPartBytes; }
  void Clear() noexcept {
    std::fill(uses_.begin(), uses_.end(), std::uint8_t{0});
    count_ = 0;
  }

 private:
  // The system maps up to this much around a byte that is read.
  static constexpr std::size_t kPartBytes = std::size_t{64} << 10;
  // An item that is written at a random place uses a part less often.
  static constexpr std::uint8_t kOften = 24;

  std::vector<std::uint8_t> uses_;  // by part
  std::size_t count_ = 0;           // of parts used often
};

class PosixBlockFile final : public BlockFile {
 public:
  PosixBlockFile(Descriptor file, std::uint64_t size, bool hasHoles, bool writable,
                 bool sync) noexcept
      : file_(std::move(file)),
        writable_(writable),
        sync_(sync),
        mapWrites_(writable && !hasHoles),
        size_(size),
        onDisk_(size),
        range_(static_cast<std::size_t>(std::min(writable ? kReservedRange : size, kMostMapped))) {}

  ~PosixBlockFile() override {
    if (std::byte* const map = map_) ::munmap(map, range_);
    CutToSize();
  }

  std::int64_t ReadAt(std::uint64_t offset, void* to, std::size_t count) override {
    if (offset >= size_) return 0;
    count = static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - offset));
    bool const worthMapping = map_ != nullptr || ++plainReads_ > kPlainReads;
    if (worthMapping && count != 0 && offset + count <= range_ && EnsureMap() &&
        InMap(offset, count)) {
      std::memcpy(to, map_ + offset, count);
      return static_cast<std::int64_t>(count);
    }
    return ReadUnmapped(offset, to, count);
  }

  std::int64_t ReadUnmapped(std::uint64_t offset, void* to, std::size_t count) override {
    if (offset >= size_) return 0;
    count = static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - offset));
    std::int64_t const got = Transfer(count, [&](std::size_t done) {
      return ::pread(file_.Get(), static_cast<std::byte*>(to) + done, count - done,
                     static_cast<off_t>(offset + done));
    });
    // The whole range is inside the file: a partial read is a failed read.
    return got == static_cast<std::int64_t>(count) ? got : -1;
  }

  std::int64_t WriteAt(std::uint64_t offset, void const* from, std::size_t count) override {
    if (!writable_ || offset > kLargestOffset || count > kLargestOffset - offset) return -1;
    if (count == 0) return 0;
    std::uint64_t const end = offset + count;
    // Damaged data can request a write far past the end: the gap stays a hole and takes no room.
    if (IsFarPastEnd(offset)) mapWrites_ = false;
    if (mapWrites_ && end <= range_ && EnsureMap()) {
      bool const hasRoom = end <= backed_ || MakeRoom(end);
      if (!hasRoom && mapWrites_) return -1;
      if (hasRoom && InMap(offset, count)) {
        std::memcpy(map_ + offset, from, count);
        size_ = std::max(size_, end);
        return static_cast<std::int64_t>(count);
      }
    }
    return WritePlain(offset, from, count);
  }

  // The system copies what is in one of its pages without an interruption.
  std::int64_t WriteInSectors(std::uint64_t offset, void const* from, std::size_t count) override {
    if (!writable_ || offset > kLargestOffset || count > kLargestOffset - offset) return -1;
    return WritePlain(offset, from, count);
  }

  std::byte const* View(std::uint64_t offset, std::size_t count) const noexcept override {
    bool const inside = offset <= size_ && count <= size_ - offset && offset + count <= range_;
    return inside && EnsureMap() ? map_ + offset : nullptr;
  }

  bool WriteCannotFail(std::uint64_t offset, std::size_t count) override {
    if (!mapWrites_ || often_ || offset > range_ || count > range_ - offset ||
        IsFarPastEnd(offset)) {
      return false;
    }
    return EnsureMap() && (offset + count <= backed_ || MakeRoom(offset + count));
  }

  std::uint64_t Size() const noexcept override { return size_; }

  bool CutTo(std::uint64_t size) override {
    if (size >= size_) return true;
    std::uint64_t const before = std::exchange(size_, size);
    if (CutToSize()) return true;
    size_ = before;
    return false;
  }

  bool Flush() override {
    if (!writable_) return true;
    bool const cut = CutToSize();
    return cut && (!sync_ || Retry([&] { return ::fdatasync(file_.Get()); }) == 0);
  }

  void BoundMemory(bool on) override {
    often_.reset();
    if (!on) return;
    often_.emplace(range_);
    GiveBack();
  }

 private:
  bool IsFarPastEnd(std::uint64_t offset) const noexcept {
    return offset > size_ && offset - size_ > kLargestStep;
  }

  // Whether a range is read and written through the map: always, or where memory is bounded if it
  // is used often. If too much is, everything is given back first.
  bool InMap(std::uint64_t offset, std::size_t count) noexcept {
    if (!often_) return true;
    if (often_->Bytes() >= kMostHeld) GiveBack();
    return often_->Use(static_cast<std::size_t>(offset), count);  // inside the map
  }

  std::int64_t WritePlain(std::uint64_t offset, void const* from, std::size_t count) noexcept {
    std::int64_t const done = Transfer(count, [&](std::size_t at) {
      return WithoutSizeSignal([&] {
        return ::pwrite(file_.Get(), static_cast<std::byte const*>(from) + at, count - at,
                        static_cast<off_t>(offset + at));
      });
    });
    if (done > 0) {
      size_ = std::max(size_, offset + static_cast<std::uint64_t>(done));
      onDisk_ = std::max(onDisk_, size_);
    }
    return done;
  }

  // What a shared map holds is the system's cache of the file: nothing is lost or written.
  void GiveBack() noexcept {
    often_->Clear();
    if (map_ != nullptr)
      ::madvise(map_, static_cast<std::size_t>(std::min<std::uint64_t>(onDisk_, range_)),
                MADV_DONTNEED);
  }

  // Threads that read together may all make the map; one of them keeps it.
  bool EnsureMap() const noexcept {
    if (map_.load(std::memory_order_acquire) != nullptr) return true;
    if (mapRefused_ || range_ == 0) return false;
    int const protection = writable_ ? PROT_READ | PROT_WRITE : PROT_READ;
    void* map = ::mmap(nullptr, range_, protection, MAP_SHARED | MAP_NORESERVE, file_.Get(), 0);
    if (map == MAP_FAILED) {
      mapRefused_ = true;
      return false;
    }
    std::byte* none = nullptr;
    if (!map_.compare_exchange_strong(none, static_cast<std::byte*>(map))) ::munmap(map, range_);
    return true;
  }

  template <typename Step>
  static std::int64_t Transfer(std::size_t count, Step const& step) noexcept {
    std::size_t done = 0;
    while (done < count) {
      auto const n = Retry([&] { return step(done); });
      if (n < 0) return done == 0 ? -1 : static_cast<std::int64_t>(done);
      if (n == 0) break;
      done += static_cast<std::size_t>(n);
    }
    return static_cast<std::int64_t>(done);
  }

  bool CutToSize() noexcept {
    if (onDisk_ <= size_) return true;
    auto const length = static_cast<off_t>(size_);
    if (Retry([&] { return ::ftruncate(file_.Get(), length); }) != 0) return false;
    onDisk_ = size_;
    backed_ = std::min(backed_, size_);
    return true;
  }

  // Allocates room on disk for all bytes up to `end`: a step ahead if the disk has that much,
  // otherwise just enough. Bytes inside the file may need room, too, if they were never written.
  // Turns off writes through the map if the file system cannot do this.
  bool MakeRoom(std::uint64_t end) noexcept {
    std::uint64_t const step = std::clamp(backed_, kLeastStep, kLargestStep);
    std::uint64_t const ahead = std::min<std::uint64_t>(std::max(end, backed_ + step), range_);
    for (std::uint64_t const upTo : {ahead, end}) {
      auto const from = static_cast<off_t>(backed_);
      auto const length = static_cast<off_t>(upTo - backed_);
      bool const made =
          WithoutSizeSignal([&] { return ::fallocate(file_.Get(), 0, from, length); }) == 0;
      if (!made && (errno == EOPNOTSUPP || errno == ENOSYS)) {
        mapWrites_ = false;
        return false;
      }
      // A failed allocation may still have extended the file.
      onDisk_ = std::max(onDisk_, upTo);
      if (made) {
        backed_ = upTo;
        return true;
      }
    }
    CutToSize();  // returns the room that is not needed
    return false;
  }

  Descriptor file_;
  bool writable_;
  bool sync_;
  bool mapWrites_;
  std::uint64_t size_;        // true length
  std::uint64_t onDisk_;      // upper bound of the present length, with the room allocated ahead
  std::uint64_t backed_ = 0;  // bytes before this have room on disk
  std::size_t range_;         // bytes that a map spans
  std::atomic<int> plainReads_ = 0;
  std::optional<OftenUsedParts> often_;  // where memory is bounded
  mutable std::atomic<bool> mapRefused_ = false;
  mutable std::atomic<std::byte*> map_ = nullptr;
};

class PosixFiles final : public FileSystem {
 public:
  explicit PosixFiles(bool sync) noexcept : sync_(sync) {}

  bool Exists(std::string const& path) override { return IsThere(path).value_or(false); }
  std::optional<bool> IsThere(std::string const& path) override { return LooksThere(path); }

  bool Remove(std::string const& path) override { return ::unlink(path.c_str()) == 0; }

  OpenedFile Open(std::string const& path, OpenMode mode) override {
    bool const writable = mode != OpenMode::kRead;
    Descriptor file(OpenDescriptor(path, mode));
    if (file.Get() < 0) return {OutcomeOf(errno), nullptr};
    bool const locked = LockWithoutWaiting(file.Get(), writable);
    OpenOutcome const lockOutcome = OutcomeOf(errno);
    struct stat info {};  // under the lock, so that no writer changes the length
    if (::fstat(file.Get(), &info) != 0) return {OpenOutcome::kFailed, nullptr};
    if (!S_ISREG(info.st_mode)) return {OpenOutcome::kDenied, nullptr};
    if (!locked) return {lockOutcome, nullptr, lockOutcome == OpenOutcome::kDenied};
    OpenOutcome const place = PlaceOf(path, info);
    if (place != OpenOutcome::kOk) return {place, nullptr, place == OpenOutcome::kDenied};
    auto const size = static_cast<std::uint64_t>(info.st_size);
    return {OpenOutcome::kOk, std::make_unique<PosixBlockFile>(std::move(file), size,
                                                               HasHoles(info), writable, sync_)};
  }

  std::string Target(std::string const& path) override { return TargetOf(path); }

  OpenedFile OpenAside(std::string const& path, OpenMode mode,
                       std::string const& library) override {
    Descriptor file(OpenAsideDescriptor(path, mode, library));
    struct stat info {};
    if (file.Get() < 0 || ::fstat(file.Get(), &info) != 0) return {OutcomeOf(errno), nullptr};
    constexpr bool kIsNeverMapped = true;  // for writing, as a file with holes
    return {OpenOutcome::kOk, std::make_unique<PosixBlockFile>(
                                  std::move(file), static_cast<std::uint64_t>(info.st_size),
                                  kIsNeverMapped, mode != OpenMode::kRead, sync_)};
  }

  bool SyncFolder(std::string const& path) override { return !sync_ || SyncFolderOf(path); }

 private:
  // True if so much of the file was never written that allocating room on disk for all of it would
  // be too much.
  static bool HasHoles(struct stat const& file) noexcept {
    constexpr std::uint64_t kUnit = 512;  // of st_blocks
    auto const size = static_cast<std::uint64_t>(file.st_size);
    std::uint64_t const held = static_cast<std::uint64_t>(file.st_blocks) * kUnit;
    return size > held && size - held > kLargestStep;
  }

  // kDenied when a previous holder of the lock replaced the file between the open and the lock:
  // writes to the replaced file would be lost.
  static OpenOutcome PlaceOf(std::string const& path, struct stat const& opened) noexcept {
    struct stat there {};
    if (Retry([&] { return ::stat(path.c_str(), &there); }) != 0) {
      return OutcomeOf(errno) == OpenOutcome::kFailed ? OpenOutcome::kFailed : OpenOutcome::kDenied;
    }
    bool const isSame = there.st_dev == opened.st_dev && there.st_ino == opened.st_ino;
    return isSame ? OpenOutcome::kOk : OpenOutcome::kDenied;
  }

  static int OpenDescriptor(std::string const& path, OpenMode mode) noexcept {
    // Non-blocking, so that a pipe in place of a library does not block the host.
    constexpr int kAlways = O_CLOEXEC | O_NONBLOCK;
    auto const open = [&](int flags) {
      return Retry([&] { return ::open(path.c_str(), flags | kAlways, S_IRUSR | S_IWUSR); });
    };
    if (mode == OpenMode::kUpdate) return open(O_RDWR);
    if (mode == OpenMode::kCreate) return open(O_RDWR | O_CREAT);
#ifdef O_NOATIME
    // A reader does not change the access time; only the file's owner may request that.
    int const fd = open(O_RDONLY | O_NOATIME);
    if (fd >= 0 || errno != EPERM) return fd;
#endif
    return open(O_RDONLY);
  }

  bool sync_;
};

}  // namespace

FileSystem& SystemFileSystem() {
  static PosixFiles files(true);
  return files;
}

FileSystem& SystemFileSystemWithoutSync() {
  static PosixFiles files(false);
  return files;
}

}  // namespace zel::platform
