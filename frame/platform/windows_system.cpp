// Services of Windows.
#include <shlobj.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "frame/platform/settings_text.h"
#include "frame/platform/system.h"
#include "frame/platform/windows_path.h"

namespace zel::platform {
namespace {

constexpr wchar_t kDebugVariable[] = L"ZELACCESS_DEBUG";

// The text that a function of the system writes: `fill` takes a buffer and its size and returns the
// length, or at least the size when the buffer is too short, or 0.
template <typename Fill>
std::wstring TextOf(Fill const& fill) {
  std::wstring text(MAX_PATH, L'\0');
  constexpr std::size_t kLongest = 1 << 16;
  for (;;) {
    std::size_t const length = fill(text.data(), static_cast<DWORD>(text.size()));
    if (length < text.size()) {
      text.resize(length);
      return text;
    }
    if (text.size() >= kLongest) return {};
    text.resize(2 * text.size());
  }
}

}  // namespace

void WriteDebug(char const* text) {
  if (::GetEnvironmentVariableW(kDebugVariable, nullptr, 0) != 0) std::fputs(text, stderr);
}

ModuleHandle OwnModule() {
  static char const inside = 0;
  return &inside;
}

std::string ModuleFile(ModuleHandle module) {
  constexpr DWORD kHow =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  HMODULE found = nullptr;
  if (!::GetModuleHandleExW(kHow, static_cast<wchar_t const*>(module), &found)) return {};
  return PathOf(
      TextOf([&](wchar_t* text, DWORD size) { return ::GetModuleFileNameW(found, text, size); }));
}

std::string ProgramFile() {
  return PathOf(
      TextOf([](wchar_t* text, DWORD size) { return ::GetModuleFileNameW(nullptr, text, size); }));
}

std::string Environment(char const* name) {
  std::wstring const wide = Utf16Of(name);
  return Utf8Of(TextOf([&](wchar_t* text, DWORD size) {
    return ::GetEnvironmentVariableW(wide.c_str(), text, size);
  }));
}

void SetEnvironment(char const* name, std::string const& value) {
  ::SetEnvironmentVariableW(Utf16Of(name).c_str(), Utf16Of(value).c_str());
}

std::string KnownFolder(Folder folder) {
  KNOWNFOLDERID const* which = nullptr;
  switch (folder) {
    case Folder::kPrograms: which = &FOLDERID_ProgramFiles; break;
    case Folder::kPersonal: which = &FOLDERID_Documents; break;
    case Folder::kCommonDocuments: which = &FOLDERID_PublicDocuments; break;
    case Folder::kAppData: which = &FOLDERID_RoamingAppData; break;
    case Folder::kCommonAppData: which = &FOLDERID_ProgramData; break;
  }
  wchar_t* text = nullptr;
  bool const isKnown =
      which != nullptr && SUCCEEDED(::SHGetKnownFolderPath(*which, 0, nullptr, &text));
  std::string const path = isKnown ? PathOf(text) : std::string();
  ::CoTaskMemFree(text);
  return path;
}

namespace {

std::string SettingsFile() {
  constexpr char kFile[] = "\\zelaccess\\settings.ini";
  std::string const own = KnownFolder(Folder::kAppData);
  std::string const common = KnownFolder(Folder::kCommonAppData);
  std::array<std::string, 3> const files = {Environment("ZELACCESS_SETTINGS"),
                                            own.empty() ? own : own + kFile,
                                            common.empty() ? common : common + kFile};
  for (std::string const& file : files) {
    if (!file.empty() &&
        ::GetFileAttributesW(SystemPath(file).c_str()) != INVALID_FILE_ATTRIBUTES) {
      return file;
    }
  }
  return {};
}

}  // namespace

bool ReadSetting(std::string const& key, std::string const& name, std::string& value) {
  std::ifstream file(std::filesystem::path(SystemPath(SettingsFile())));
  return ReadSettingFrom(file, key, name, value);
}

std::tm LocalTime(std::time_t time) {
  std::tm local{};
  ::localtime_s(&local, &time);
  return local;
}

bool HasDrives() noexcept { return true; }

std::string WorkingFolder() {
  return PathOf(
      TextOf([](wchar_t* text, DWORD size) { return ::GetCurrentDirectoryW(size, text); }));
}

std::string LongPath(std::string const& path) {
  Handle const file(::CreateFileW(SystemPath(path).c_str(), 0, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!file.IsOpen()) return path;
  std::wstring const real = TextOf([&](wchar_t* text, DWORD size) {
    return ::GetFinalPathNameByHandleW(file.Get(), text, size, 0);
  });
  return real.empty() ? path : PathOf(real);
}

int ProcessId() { return static_cast<int>(::GetCurrentProcessId()); }

namespace {

// With a separator at its end.
std::string TemporaryFolder() {
  return PathOf(TextOf([](wchar_t* text, DWORD size) { return ::GetTempPathW(size, text); }));
}

// Six characters, as random as the clock and the process.
std::string RandomPart() {
  constexpr std::string_view kCharacters = "0123456789abcdefghijklmnopqrstuvwxyz";
  constexpr unsigned long long kSpread = 0x9e3779b97f4a7c15;
  static std::atomic<unsigned long long> calls = 0;
  LARGE_INTEGER clock{};
  ::QueryPerformanceCounter(&clock);
  auto bits = static_cast<unsigned long long>(clock.QuadPart) +
              (static_cast<unsigned long long>(::GetCurrentProcessId()) << 32) + ++calls;
  bits = (bits * kSpread) >> 16;
  std::string text(6, '0');
  for (char& c : text) {
    c = kCharacters[bits % kCharacters.size()];
    bits /= kCharacters.size();
  }
  return text;
}

constexpr std::size_t kRandomPart = 6;

}  // namespace

// The folder belongs to the user, and so does what is made in it.
std::string MakeTemporaryFile(std::string const& prefix) {
  constexpr int kTries = 100;
  for (int i = 0; i < kTries; ++i) {
    std::string const path = TemporaryFolder() + prefix + RandomPart();
    Handle const file(::CreateFileW(SystemPath(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file.IsOpen()) return path;
    if (::GetLastError() != ERROR_FILE_EXISTS) return {};
  }
  return {};
}

void RemoveFile(std::string const& path) { ::DeleteFileW(SystemPath(path).c_str()); }

// Files without a name do not exist here.
TemporaryFile::TemporaryFile(std::string const& prefix, std::size_t mostPath, bool /*nameless*/) {
  if (TemporaryFolder().size() + prefix.size() + kRandomPart > mostPath) return;
  path_ = MakeTemporaryFile(prefix);
}

TemporaryFile::~TemporaryFile() {
  if (!path_.empty()) RemoveFile(path_);
}

std::vector<FolderEntry> ListFolder(std::string const& folder) {
  constexpr int kReadOnly = 1;
  constexpr int kLink = 1024;
  std::vector<FolderEntry> entries;
  std::wstring const pattern = SystemPath(folder.empty() ? "." : folder) + L"\\*";
  WIN32_FIND_DATAW found{};
  HANDLE const listing = ::FindFirstFileW(pattern.c_str(), &found);
  if (listing == INVALID_HANDLE_VALUE) return entries;
  do {
    std::string name = Utf8Of(found.cFileName);
    if (name == "." || name == "..") continue;
    int attributes = 0;
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) attributes += kFolderAttribute;
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) attributes += kReadOnly;
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) attributes += kLink;
    entries.push_back({std::move(name), attributes});
  } while (::FindNextFileW(listing, &found));
  ::FindClose(listing);
  std::sort(entries.begin(), entries.end(),
            [](FolderEntry const& a, FolderEntry const& b) { return a.name < b.name; });
  return entries;
}

}  // namespace zel::platform
