// Files of Windows.
//
// A file open for reading is mapped at its full length when a view is requested or after more than
// a few reads. A file open for update is not mapped: the system does not map a file beyond its end,
// and a file that is mapped cannot become shorter. It is read and written at places instead.
#include <windows.h>
#include <winioctl.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

#include "frame/platform/block_file.h"
#include "frame/platform/windows_path.h"

namespace zel::platform {
namespace {

constexpr std::uint64_t kLargestOffset = std::numeric_limits<std::int64_t>::max();
constexpr int kPlainReads = 16;
// A gap larger than this becomes a hole.
constexpr std::uint64_t kLargestGap = std::uint64_t{16} << 20;

OpenOutcome OutcomeOf(DWORD error) noexcept {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DIRECTORY: return OpenOutcome::kNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_NOT_READY: return OpenOutcome::kDenied;
    default: return OpenOutcome::kFailed;
  }
}

class WindowsBlockFile final : public BlockFile {
 public:
  WindowsBlockFile(Handle file, std::uint64_t size, bool writable, bool mapped, bool sync) noexcept
      : file_(std::move(file)),
        writable_(writable),
        sync_(sync),
        mapRefused_(!mapped || size > std::numeric_limits<std::size_t>::max()),
        size_(size) {}

  ~WindowsBlockFile() override {
    if (std::byte* const map = map_) ::UnmapViewOfFile(map);
  }

  std::int64_t ReadAt(std::uint64_t offset, void* to, std::size_t count) override {
    if (offset >= size_) return 0;
    count = static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - offset));
    bool const worthMapping = !isBounded_ && (map_ != nullptr || ++plainReads_ > kPlainReads);
    if (worthMapping && count != 0 && EnsureMap()) {
      std::memcpy(to, map_ + offset, count);
      return static_cast<std::int64_t>(count);
    }
    return ReadUnmapped(offset, to, count);
  }

  std::int64_t ReadUnmapped(std::uint64_t offset, void* to, std::size_t count) override {
    if (offset >= size_) return 0;
    count = static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - offset));
    std::int64_t const got = ReadFileAt(file_.Get(), offset, to, count);
    // The whole range is inside the file: a partial read is a failed read.
    return got == static_cast<std::int64_t>(count) ? got : -1;
  }

  std::int64_t WriteAt(std::uint64_t offset, void const* from, std::size_t count) override {
    if (!writable_ || offset > kLargestOffset || count > kLargestOffset - offset) return -1;
    if (count == 0) return 0;
    // Damaged data can request a write far past the end: the gap takes no room on disk.
    if (offset > size_ && offset - size_ > kLargestGap) {
      DWORD none = 0;
      ::DeviceIoControl(file_.Get(), FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &none, nullptr);
    }
    std::int64_t const done = WriteFileAt(file_.Get(), offset, from, count);
    if (done > 0) size_ = std::max(size_, offset + static_cast<std::uint64_t>(done));
    return done;
  }

  std::byte const* View(std::uint64_t offset, std::size_t count) const noexcept override {
    bool const inside = offset <= size_ && count <= size_ - offset;
    return inside && EnsureMap() ? map_ + offset : nullptr;
  }

  std::uint64_t Size() const noexcept override { return size_; }

  bool CutTo(std::uint64_t size) override {
    if (size >= size_) return true;
    if (!writable_) return false;
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    if (!::SetFileInformationByHandle(file_.Get(), FileEndOfFileInfo, &end, sizeof end)) {
      return false;
    }
    size_ = size;
    return true;
  }

  bool Flush() override { return !writable_ || !sync_ || ::FlushFileBuffers(file_.Get()) != 0; }

  // Reads then go past the map; the system counts what was mapped as its cache.
  void BoundMemory(bool on) override { isBounded_ = on; }

 private:
  // Threads that read together may all make the map; one of them keeps it.
  bool EnsureMap() const noexcept {
    if (map_.load(std::memory_order_acquire) != nullptr) return true;
    if (mapRefused_ || size_ == 0) return false;
    HANDLE const mapping = ::CreateFileMappingW(file_.Get(), nullptr, PAGE_READONLY, 0, 0, nullptr);
    void* const map =
        mapping == nullptr ? nullptr : ::MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
    if (mapping != nullptr) ::CloseHandle(mapping);  // the view keeps it
    if (map == nullptr) {
      mapRefused_ = true;
      return false;
    }
    std::byte* none = nullptr;
    if (!map_.compare_exchange_strong(none, static_cast<std::byte*>(map))) ::UnmapViewOfFile(map);
    return true;
  }

  Handle file_;
  bool writable_;
  bool sync_;
  bool isBounded_ = false;
  mutable std::atomic<bool> mapRefused_;
  std::uint64_t size_;
  std::atomic<int> plainReads_ = 0;
  mutable std::atomic<std::byte*> map_ = nullptr;
};

bool IsFolder(std::wstring const& path) noexcept {
  DWORD const attributes = ::GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

class WindowsFiles final : public FileSystem {
 public:
  explicit WindowsFiles(bool sync) noexcept : sync_(sync) {}

  bool Exists(std::string const& path) override {
    return ::GetFileAttributesW(SystemPath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
  }

  bool Remove(std::string const& path) override {
    return ::DeleteFileW(SystemPath(path).c_str()) != 0;
  }

  OpenedFile Open(std::string const& path, OpenMode mode) override {
    std::wstring const place = SystemPath(path);
    Handle file = OpenHandle(place, mode, FILE_ATTRIBUTE_NORMAL);
    if (!file.IsOpen()) {
      DWORD const error = ::GetLastError();
      bool const isInUse = error == ERROR_SHARING_VIOLATION;
      return {IsFolder(place) ? OpenOutcome::kDenied : OutcomeOf(error), nullptr, isInUse};
    }
    bool const writable = mode != OpenMode::kRead;
    // A device or a pipe is not a library.
    if (::GetFileType(file.Get()) != FILE_TYPE_DISK) return {OpenOutcome::kDenied, nullptr};
    if (!LockWithoutWaiting(file.Get(), writable)) {
      bool const isInUse = ::GetLastError() == ERROR_LOCK_VIOLATION;
      return {isInUse ? OpenOutcome::kDenied : OpenOutcome::kFailed, nullptr, isInUse};
    }
    LARGE_INTEGER size{};  // under the lock, so that no writer changes the length
    if (!::GetFileSizeEx(file.Get(), &size)) return {OpenOutcome::kFailed, nullptr};
    if (!IsAt(place, file.Get())) return {OpenOutcome::kDenied, nullptr, true};
    return {OpenOutcome::kOk, std::make_unique<WindowsBlockFile>(
                                  std::move(file), static_cast<std::uint64_t>(size.QuadPart),
                                  writable, !writable, sync_)};
  }

  std::string Target(std::string const& path) override {
    std::wstring const place = SystemPath(path);
    DWORD const attributes = ::GetFileAttributesW(place.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
      return path;
    }
    Handle const file(
        ::CreateFileW(place.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file.IsOpen()) return path;
    std::wstring target(::GetFinalPathNameByHandleW(file.Get(), nullptr, 0, 0), L'\0');
    DWORD const length = ::GetFinalPathNameByHandleW(file.Get(), target.data(),
                                                     static_cast<DWORD>(target.size()), 0);
    if (length == 0 || length >= target.size()) return path;
    target.resize(length);
    return PathOf(target);
  }

  // Who may make and open files is what the folder passes on to them, so a new file needs no rights
  // of its own.
  OpenedFile OpenAside(std::string const& path, OpenMode mode,
                       std::string const& /*library*/) override {
    Handle file = OpenHandle(SystemPath(path), mode, FILE_FLAG_OPEN_REPARSE_POINT);
    if (!file.IsOpen()) return {OutcomeOf(::GetLastError()), nullptr};
    BY_HANDLE_FILE_INFORMATION info{};
    if (!::GetFileInformationByHandle(file.Get(), &info)) return {OpenOutcome::kFailed, nullptr};
    if ((info.dwFileAttributes & (FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_DIRECTORY)) != 0) {
      return {OpenOutcome::kNotFound, nullptr};
    }
    std::uint64_t const size = (std::uint64_t{info.nFileSizeHigh} << 32) | info.nFileSizeLow;
    return {OpenOutcome::kOk, std::make_unique<WindowsBlockFile>(
                                  std::move(file), size, mode != OpenMode::kRead, false, sync_)};
  }

  // Which files there are in a folder is in the journal of the file system: there is no call that
  // would write it earlier.

 private:
  // False when a previous holder of the lock replaced the file between the open and the lock.
  static bool IsAt(std::wstring const& path, HANDLE opened) noexcept {
    Handle const there(
        ::CreateFileW(path.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    BY_HANDLE_FILE_INFORMATION a{};
    BY_HANDLE_FILE_INFORMATION b{};
    return there.IsOpen() && ::GetFileInformationByHandle(opened, &a) &&
           ::GetFileInformationByHandle(there.Get(), &b) &&
           a.dwVolumeSerialNumber == b.dwVolumeSerialNumber &&
           a.nFileIndexHigh == b.nFileIndexHigh && a.nFileIndexLow == b.nFileIndexLow;
  }

  static Handle OpenHandle(std::wstring const& path, OpenMode mode, DWORD flags) noexcept {
    DWORD const access = mode == OpenMode::kRead ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
    DWORD const make = mode == OpenMode::kCreate ? OPEN_ALWAYS : OPEN_EXISTING;
    return Handle(::CreateFileW(path.c_str(), access, kShareAll, nullptr, make, flags, nullptr));
  }

  bool sync_;
};

}  // namespace

FileSystem& SystemFileSystem() {
  static WindowsFiles files(true);
  return files;
}

FileSystem& SystemFileSystemWithoutSync() {
  static WindowsFiles files(false);
  return files;
}

}  // namespace zel::platform
