// Paths and errors of Windows. Paths in this project are UTF-8; the system's functions for them
// take UTF-16.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <utility>

namespace zel::platform {

std::wstring Utf16Of(std::string_view text);
std::string Utf8Of(std::wstring_view text);

// The path for a function of the system. One that is close to the 260 characters to which most
// functions are limited is made absolute and gets the prefix `\\?\`, with which 32,767 are allowed.
std::wstring SystemPath(std::string const& path);
// Without that prefix.
std::string PathOf(std::wstring_view systemPath);

// An open file or folder, closed with its owner.
class Handle {
 public:
  Handle() noexcept = default;
  explicit Handle(HANDLE handle) noexcept : handle_(handle) {}
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~Handle() {
    if (IsOpen()) ::CloseHandle(handle_);
  }
  bool IsOpen() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const noexcept { return handle_; }
  // Gives up ownership: the destructor no longer closes the file.
  HANDLE Release() noexcept { return std::exchange(handle_, INVALID_HANDLE_VALUE); }

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
};

// What others may do with a file that is open here: everything, as on other systems. Access to
// library files is regulated by locks alone.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Locks an open file like a library, without waiting: shared or exclusive. The lock belongs to the
// handle. It is on two bytes far beyond the end of any file, so that it keeps no one from reading
// and writing; programs that use the file only need to know which ones. A change of the library by
// a tool locks the bytes separately: see desk/files/windows_file_lock.cpp.
bool LockWithoutWaiting(HANDLE file, bool exclusive) noexcept;

// Transfers bytes at a place of the file; returns how many, or -1.
long long ReadFileAt(HANDLE file, unsigned long long offset, void* to, std::size_t count) noexcept;
long long WriteFileAt(HANDLE file, unsigned long long offset, void const* from,
                      std::size_t count) noexcept;

}  // namespace zel::platform
