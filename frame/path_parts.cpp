#include "frame/path_parts.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "frame/platform/system.h"

namespace zel {
namespace {

constexpr std::string_view kSeparators = "/\\";

bool IsSeparator(char c) noexcept { return kSeparators.find(c) != std::string_view::npos; }

bool IsAbsolute(std::string_view path) noexcept { return !path.empty() && IsSeparator(path[0]); }

// Appends the parts of a path, resolving "." and "..".
void AddParts(std::string_view path, std::string_view separators,
              std::vector<std::string_view>& parts) {
  std::size_t at = 0;
  while (at < path.size()) {
    std::size_t const end = std::min(path.find_first_of(separators, at), path.size());
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

std::string AbsolutePath(std::string_view path, std::string_view folder) {
  if (path.empty()) return {};
  std::string working;
  std::vector<std::string_view> parts;
  if (!IsAbsolute(path)) {
    if (!IsAbsolute(folder)) {
      // Comes from the system, where `\` may be part of a name.
      working = platform::WorkingFolder();
      if (working.empty()) return {};
      AddParts(working, "/", parts);
    }
    AddParts(folder, kSeparators, parts);
  }
  AddParts(path, kSeparators, parts);
  std::string full;
  for (std::string_view part : parts) {
    full += '/';
    full += part;
  }
  return full.empty() ? "/" : full;
}

}  // namespace zel
