#include "frame/platform/windows_path.h"

#include <algorithm>
#include <cstddef>

namespace zel::platform {
namespace {

// Folders are limited to 248 characters.
constexpr std::size_t kLongestPlain = 240;
constexpr std::wstring_view kLongPrefix = L"\\\\?\\";
constexpr std::wstring_view kLongSharePrefix = L"\\\\?\\UNC\\";
constexpr std::wstring_view kSharePrefix = L"\\\\";

bool BeginsWith(std::wstring_view text, std::wstring_view with) noexcept {
  return text.substr(0, with.size()) == with;
}

std::wstring Absolute(std::wstring const& path) {
  std::wstring full(::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  DWORD const length =
      ::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  if (length == 0 || length >= full.size()) return path;
  full.resize(length);
  return full;
}

constexpr unsigned long long kLockPlace = 1ULL << 62;
constexpr DWORD kLockBytes = 2;

OVERLAPPED At(unsigned long long offset) noexcept {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return place;
}

constexpr std::size_t kLargestTransfer = std::size_t{1} << 30;

// `step` transfers a piece through ReadFile or WriteFile.
template <typename Step>
long long Transfer(unsigned long long offset, std::size_t count, Step const& step) noexcept {
  std::size_t done = 0;
  while (done < count) {
    OVERLAPPED place = At(offset + done);
    DWORD moved = 0;
    auto const piece = static_cast<DWORD>(std::min(count - done, kLargestTransfer));
    if (!step(done, piece, &moved, &place)) {
      if (::GetLastError() == ERROR_HANDLE_EOF) break;
      return done == 0 ? -1 : static_cast<long long>(done);
    }
    if (moved == 0) break;
    done += moved;
  }
  return static_cast<long long>(done);
}

}  // namespace

std::wstring Utf16Of(std::string_view text) {
  auto const size = static_cast<int>(text.size());
  auto const length = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), length);
  return wide;
}

std::string Utf8Of(std::wstring_view text) {
  auto const size = static_cast<int>(text.size());
  auto const length =
      ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(length), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(), length, nullptr, nullptr);
  return narrow;
}

std::wstring SystemPath(std::string const& path) {
  std::wstring wide = Utf16Of(path);
  std::replace(wide.begin(), wide.end(), L'/', L'\\');
  if (wide.size() < kLongestPlain || BeginsWith(wide, kLongPrefix)) return wide;
  std::wstring const full = Absolute(wide);
  if (BeginsWith(full, kLongPrefix)) return full;
  if (!BeginsWith(full, kSharePrefix)) return std::wstring(kLongPrefix) + full;
  return std::wstring(kLongSharePrefix) + full.substr(kSharePrefix.size());
}

std::string PathOf(std::wstring_view systemPath) {
  if (BeginsWith(systemPath, kLongSharePrefix)) {
    return Utf8Of(std::wstring(kSharePrefix).append(systemPath.substr(kLongSharePrefix.size())));
  }
  if (BeginsWith(systemPath, kLongPrefix)) systemPath.remove_prefix(kLongPrefix.size());
  return Utf8Of(systemPath);
}

bool LockWithoutWaiting(HANDLE file, bool exclusive) noexcept {
  OVERLAPPED place = At(kLockPlace);
  DWORD const flags = LOCKFILE_FAIL_IMMEDIATELY | (exclusive ? LOCKFILE_EXCLUSIVE_LOCK : 0);
  // A reader leaves the second byte to those who change the library while others read it.
  return ::LockFileEx(file, flags, 0, exclusive ? kLockBytes : 1, 0, &place) != 0;
}

long long ReadFileAt(HANDLE file, unsigned long long offset, void* to, std::size_t count) noexcept {
  return Transfer(offset, count,
                  [&](std::size_t done, DWORD piece, DWORD* moved, OVERLAPPED* place) {
                    return ::ReadFile(file, static_cast<char*>(to) + done, piece, moved, place);
                  });
}

long long WriteFileAt(HANDLE file, unsigned long long offset, void const* from,
                      std::size_t count) noexcept {
  return Transfer(
      offset, count, [&](std::size_t done, DWORD piece, DWORD* moved, OVERLAPPED* place) {
        return ::WriteFile(file, static_cast<char const*>(from) + done, piece, moved, place);
      });
}

}  // namespace zel::platform
