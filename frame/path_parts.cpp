#include "frame/path_parts.h"

#include <vector>

#include "frame/platform/system.h"

namespace zel {
namespace {

bool IsSeparator(char c) noexcept { return c == '/' || c == '\\'; }

// Appends the parts of a path, taking "." and ".." in.
void AddParts(std::string_view path, std::vector<std::string_view>& parts) {
  std::size_t at = 0;
  while (at < path.size()) {
    std::size_t end = at;
    while (end < path.size() && path[end] != '/') ++end;
    std::string_view const part = path.substr(at, end - at);
    if (part == "..") {
      if (!parts.empty()) parts.pop_back();
    } else if (!part.empty() && part != ".") {
      parts.push_back(part);
    }
    at = end + 1;
  }
}

}  // namespace

PathParts SplitPath(std::string_view path) {
  std::size_t start = path.size();
  while (start > 0 && !IsSeparator(path[start - 1])) --start;
  std::string_view const file = path.substr(start);
  std::size_t const point = file.rfind('.');
  std::size_t const stem = point == std::string_view::npos ? file.size() : point;
  return {std::string(path.substr(0, start)), std::string(file.substr(0, stem)),
          std::string(file.substr(stem))};
}

// On this platform a file name may hold a backslash, so only `/` is a separator here.
std::string AbsolutePath(std::string_view path, std::string_view folder) {
  if (path.empty()) return {};
  std::string const working = path.front() == '/' || (!folder.empty() && folder.front() == '/')
                                  ? std::string()
                                  : platform::WorkingFolder();
  std::vector<std::string_view> parts;
  if (path.front() != '/') {
    if (folder.empty() || folder.front() != '/') AddParts(working, parts);
    AddParts(folder, parts);
  }
  AddParts(path, parts);
  std::string full;
  for (std::string_view part : parts) {
    full += '/';
    full += part;
  }
  return full.empty() ? "/" : full;
}

}  // namespace zel
