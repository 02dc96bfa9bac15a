// Files of the system, mapped into memory.
//
// A file open for reading is mapped as long as it is, when a view is asked for or it is read more
// than a few times: for the few reads of an open, a map costs more than it saves. A file open for
// update gets the largest range that a file of tree nodes can have, once, so that addresses stay; it
// grows in steps that are really allocated, and is cut to its true length at a flush and at the end.
// Without a map, positioned reads and writes serve.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include "frame/platform/block_file.h"

namespace zel::platform {
namespace {

// 999,999 blocks of 1000 words.
constexpr std::uint64_t kReservedRange = std::uint64_t{4000} * 999'999;
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
    case ETXTBSY: return OpenOutcome::kDenied;
    default: return OpenOutcome::kFailed;
  }
}

// Bound to this open, not to the process: a lock of the process kind would not hold against another
// open of the same process, and would fall at any close.
bool LockWithoutWaiting(int fd, bool exclusive) noexcept {
#ifdef F_OFD_SETLK
  struct flock lock {};
  lock.l_type = static_cast<short>(exclusive ? F_WRLCK : F_RDLCK);
  lock.l_whence = SEEK_SET;
  return ::fcntl(fd, F_OFD_SETLK, &lock) == 0;
#else
  return ::flock(fd, (exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0;
#endif
}

template <typename Call>
auto Retry(Call const& call) noexcept {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

class PosixBlockFile final : public BlockFile {
 public:
  PosixBlockFile(int fd, std::uint64_t size, bool writable, bool sync) noexcept
      : fd_(fd),
        writable_(writable),
        sync_(sync),
        size_(size),
        allocated_(size),
        range_(writable ? kReservedRange : size) {}

  ~PosixBlockFile() override {
    if (map_ != nullptr) ::munmap(map_, range_);
    CutToSize();
    ::close(fd_);
  }

  std::int64_t ReadAt(std::uint64_t offset, void* to, std::size_t count) override {
    if (offset >= size_) return 0;
    count = static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - offset));
    bool const worthMapping = map_ != nullptr || ++plainReads_ > kPlainReads;
    if (worthMapping && offset + count <= range_ && EnsureMap()) {
      std::memcpy(to, map_ + offset, count);
      return static_cast<std::int64_t>(count);
    }
    return Transfer(count, [&](std::size_t done) {
      return ::pread(fd_, static_cast<std::byte*>(to) + done, count - done,
                     static_cast<off_t>(offset + done));
    });
  }

  std::int64_t WriteAt(std::uint64_t offset, void const* from, std::size_t count) override {
    if (!writable_) return -1;
    if (count == 0) return 0;
    std::uint64_t const end = offset + count;
    if (end <= range_ && EnsureMap()) {
      if (!Allocate(end)) return -1;
      std::memcpy(map_ + offset, from, count);
      size_ = std::max(size_, end);
      return static_cast<std::int64_t>(count);
    }
    std::int64_t const done = Transfer(count, [&](std::size_t at) {
      return ::pwrite(fd_, static_cast<std::byte const*>(from) + at, count - at,
                      static_cast<off_t>(offset + at));
    });
    if (done > 0) {
      size_ = std::max(size_, offset + static_cast<std::uint64_t>(done));
      allocated_ = std::max(allocated_, size_);
    }
    return done;
  }

  std::byte const* View(std::uint64_t offset, std::size_t count) const noexcept override {
    bool const inside = offset <= size_ && count <= size_ - offset && offset + count <= range_;
    return inside && EnsureMap() ? map_ + offset : nullptr;
  }

  std::uint64_t Size() const noexcept override { return size_; }

  bool Flush() override {
    if (!writable_) return true;
    bool const cut = CutToSize();
    return cut && (!sync_ || Retry([&] { return ::fdatasync(fd_); }) == 0);
  }

 private:
  bool EnsureMap() const noexcept {
    if (map_ != nullptr) return true;
    if (mapRefused_ || range_ == 0) return false;
    int const protection = writable_ ? PROT_READ | PROT_WRITE : PROT_READ;
    void* map = ::mmap(nullptr, range_, protection, MAP_SHARED | MAP_NORESERVE, fd_, 0);
    mapRefused_ = map == MAP_FAILED;
    if (!mapRefused_) map_ = static_cast<std::byte*>(map);
    return !mapRefused_;
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
    if (allocated_ <= size_) return true;
    if (Retry([&] { return ::ftruncate(fd_, static_cast<off_t>(size_)); }) != 0) return false;
    allocated_ = size_;
    return true;
  }

  // Room for bytes up to `end`, really allocated, so that a full disk shows here and not as a signal
  // at a later access.
  bool Allocate(std::uint64_t end) noexcept {
    if (!holesFilled_) {
      if (size_ > 0 && !FillRange(0, size_)) return false;
      holesFilled_ = true;
    }
    if (end <= allocated_) return true;
    std::uint64_t const step = std::clamp(allocated_, kLeastStep, kLargestStep);
    std::uint64_t const wanted = std::min(std::max(end, allocated_ + step), range_);
    if (!FillRange(allocated_, wanted)) {
      bool const justEnough = wanted > end && FillRange(allocated_, end);
      if (!justEnough) {
        [[maybe_unused]] int const cut = ::ftruncate(fd_, static_cast<off_t>(allocated_));
        return false;
      }
      allocated_ = end;
      return true;
    }
    allocated_ = wanted;
    return true;
  }

  bool FillRange(std::uint64_t from, std::uint64_t to) noexcept {
    auto const length = static_cast<off_t>(to - from);
    int const result =
        Retry([&] { return ::fallocate(fd_, 0, static_cast<off_t>(from), length); });
    if (result == 0) return true;
    if (errno != EOPNOTSUPP && errno != ENOSYS) return false;
    return from < allocated_ || WriteZeros(from, to);
  }

  // For file systems that cannot allocate ahead.
  bool WriteZeros(std::uint64_t from, std::uint64_t to) noexcept {
    static constexpr std::array<std::byte, 65536> kZeros{};
    while (from < to) {
      std::size_t const n = static_cast<std::size_t>(std::min<std::uint64_t>(to - from, kZeros.size()));
      auto const done =
          Retry([&] { return ::pwrite(fd_, kZeros.data(), n, static_cast<off_t>(from)); });
      if (done <= 0) return false;
      from += static_cast<std::uint64_t>(done);
    }
    return true;
  }

  int fd_;
  bool writable_;
  bool sync_;
  bool holesFilled_ = false;
  std::uint64_t size_;       // true length
  std::uint64_t allocated_;  // length on disk while the file is open
  std::uint64_t range_;      // bytes that a map spans
  int plainReads_ = 0;
  mutable bool mapRefused_ = false;
  mutable std::byte* map_ = nullptr;
};

class PosixFiles final : public FileSystem {
 public:
  explicit PosixFiles(bool sync) noexcept : sync_(sync) {}

  bool Exists(std::string const& path) override {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0;
  }

  OpenedFile Open(std::string const& path, OpenMode mode) override {
    bool const writable = mode != OpenMode::kRead;
    int const fd = OpenDescriptor(path, mode);
    if (fd < 0) return {OutcomeOf(errno), nullptr};
    struct stat info {};
    if (!LockWithoutWaiting(fd, writable) || ::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
      ::close(fd);
      return {OpenOutcome::kDenied, nullptr};
    }
    auto const size = static_cast<std::uint64_t>(info.st_size);
    return {OpenOutcome::kOk, std::make_unique<PosixBlockFile>(fd, size, writable, sync_)};
  }

 private:
  static int OpenDescriptor(std::string const& path, OpenMode mode) noexcept {
    // Non-blocking, so that a pipe in the place of a library does not hold the host up.
    constexpr int kAlways = O_CLOEXEC | O_NONBLOCK;
    auto const open = [&](int flags) {
      return Retry([&] { return ::open(path.c_str(), flags | kAlways, S_IRUSR | S_IWUSR); });
    };
    if (mode == OpenMode::kUpdate) return open(O_RDWR);
    if (mode == OpenMode::kCreate) return open(O_RDWR | O_CREAT);
#ifdef O_NOATIME
    // A reader leaves no trace; only the file's owner may ask for that.
    int const fd = open(O_RDONLY | O_NOATIME);
    if (fd >= 0 || errno != EPERM) return fd;
#endif
    return open(O_RDONLY);
  }

  bool sync_;
};

}  // namespace

FileSystem& PosixFileSystem() {
  static PosixFiles files(true);
  return files;
}

FileSystem& PosixFileSystemWithoutSync() {
  static PosixFiles files(false);
  return files;
}

}  // namespace zel::platform
