// What the files of the desk share on Windows. Included by sources for Windows only.
#pragma once

#include <windows.h>

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>

namespace zel::desk {

// Paths as texts are UTF-8.
inline std::filesystem::path PathFrom(std::string const& text) {
  return std::filesystem::u8path(text);
}

inline HANDLE HandleOf(std::intptr_t file) { return reinterpret_cast<HANDLE>(file); }

// The handle of an open file as the classes of the desk keep it. -1 is INVALID_HANDLE_VALUE.
inline std::intptr_t OpenHandle(std::filesystem::path const& path, DWORD access, DWORD share,
                                DWORD how, DWORD flags) {
  return reinterpret_cast<std::intptr_t>(
      ::CreateFileW(path.c_str(), access, share, nullptr, how, flags, nullptr));
}

inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

inline void Close(std::intptr_t file) {
  if (file != -1) ::CloseHandle(HandleOf(file));
}

// The number in errno for an error of the system.
inline int NumberOf(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH: return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT: return EACCES;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS: return EEXIST;
    case ERROR_DIR_NOT_EMPTY: return ENOTEMPTY;
    case ERROR_DIRECTORY: return ENOTDIR;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL: return ENOSPC;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY: return ENOMEM;
    case ERROR_FILENAME_EXCED_RANGE: return ENAMETOOLONG;
    case ERROR_NOT_SAME_DEVICE: return EXDEV;
    default: return EIO;
  }
}

inline std::error_code LastError() { return {NumberOf(::GetLastError()), std::generic_category()}; }

[[noreturn]] inline void RefuseLast(std::filesystem::path const& path) {
  throw std::filesystem::filesystem_error("", path, LastError());
}

inline OVERLAPPED PlaceAt(std::uint64_t offset) {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return place;
}

}  // namespace zel::desk
