#include <process.h>
#include <windows.h>

#include <array>
#include <cstdio>
#include <cstdlib>

#include "tests/support/environment.h"

namespace zel::test {

char const* const kTemporaryFolderVariable = "TMP";

// Sets the variable of the system, too.
void SetVariable(char const* name, std::string const& value) { ::_putenv_s(name, value.c_str()); }

void UnsetVariable(char const* name) { ::_putenv_s(name, ""); }

int ProcessNumber() { return ::_getpid(); }

namespace {

void Remove(std::wstring const& path) {
  DWORD const attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return;
  ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
    ::DeleteFileW(path.c_str());
    return;
  }
  WIN32_FIND_DATAW found{};
  HANDLE const search = ::FindFirstFileW((path + L"\\*").c_str(), &found);
  for (bool more = search != INVALID_HANDLE_VALUE; more;
       more = ::FindNextFileW(search, &found) != 0) {
    std::wstring const name = found.cFileName;
    if (name != L"." && name != L"..") Remove(path + L"\\" + name);
  }
  if (search != INVALID_HANDLE_VALUE) ::FindClose(search);
  ::RemoveDirectoryW(path.c_str());
}

}  // namespace

// The functions of std::filesystem do not follow long paths here.
void RemoveFolder(std::filesystem::path const& folder) {
  Remove(L"\\\\?\\" + std::filesystem::path(folder).make_preferred().wstring());
}

// The shell takes a pair of quotes away from a command that begins with one.
ProgramResult RunProgram(std::string const& command) {
  ProgramResult result;
  std::FILE* pipe = ::_popen(("\"" + command + " 2>&1\"").c_str(), "rb");
  if (pipe == nullptr) return result;
  std::array<char, 4096> bytes;
  while (std::size_t const n = std::fread(bytes.data(), 1, bytes.size(), pipe)) {
    result.output.append(bytes.data(), n);
  }
  result.status = ::_pclose(pipe);
  return result;
}

std::string Quoted(std::string const& text) { return "\"" + text + "\""; }

}  // namespace zel::test
