#include "frame/path_parts.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "frame/ascii.h"
#include "frame/platform/system.h"

namespace zel {
namespace {

constexpr std::string_view kSeparators = "/\\";

bool IsSeparator(char c) noexcept { return kSeparators.find(c) != std::string_view::npos; }

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

struct RootedPath {
  std::string
      root;  // as it is written in a full path: "" or, with drives, "C:" or "//server/share"
  std::string_view rest;
  bool isAbsolute = false;  // has a separator after the root
};

// The length of the part of a path before its next separator.
std::size_t PartLength(std::string_view path) noexcept {
  return std::min(path.find_first_of(kSeparators), path.size());
}

bool BeginsWithSeparators(std::string_view path, std::size_t count) noexcept {
  return path.size() >= count && path.find_first_not_of(kSeparators) >= count;
}

// The server and the share of a path after its two separators.
RootedPath OnShare(std::string_view path) {
  std::size_t const server = PartLength(path);
  std::string_view const rest = path.substr(std::min(server + 1, path.size()));
  std::size_t const share = PartLength(rest);
  std::string root = "//" + std::string(path.substr(0, server)) + "/";
  root += rest.substr(0, share);
  return {std::move(root), rest.substr(share), true};
}

RootedPath RootOf(std::string_view path, PathRoots roots) {
  if (roots == PathRoots::kSlash) return {{}, path, BeginsWithSeparators(path, 1)};
  if (BeginsWithSeparators(path, 2)) {
    std::string_view const rest = path.substr(2);
    if (PartLength(rest) != 1 || rest[0] != '?') return OnShare(rest);
    // The prefix of long paths, which the functions of the system get anyway.
    std::string_view const place = rest.substr(std::min<std::size_t>(2, rest.size()));
    constexpr std::string_view kShares = "UNC";
    if (place.substr(0, PartLength(place)) != kShares) return RootOf(place, roots);
    return OnShare(place.substr(std::min(kShares.size() + 1, place.size())));
  }
  bool const hasDrive =
      path.size() >= 2 && path[1] == ':' && ToUpper(path[0]) >= 'A' && ToUpper(path[0]) <= 'Z';
  std::size_t const length = hasDrive ? 2 : 0;
  std::string_view const rest = path.substr(length);
  return {std::string(path.substr(0, length)), rest, BeginsWithSeparators(rest, 1)};
}

bool IsAbsolute(std::string_view path, PathRoots roots) {
  RootedPath const parts = RootOf(path, roots);
  return parts.isAbsolute && (roots == PathRoots::kSlash || !parts.root.empty());
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

std::string AbsolutePathFrom(std::string_view path, std::string_view folder,
                             std::string_view working, PathRoots roots) {
  if (path.empty()) return {};
  std::string full;  // at first only the root
  std::vector<std::string_view> parts;
  bool hasStart = false;
  // The working folder comes from the system, where `\` may be part of a name.
  std::string_view separators = roots == PathRoots::kSlash ? "/" : kSeparators;
  for (std::string_view const step : {working, folder, path}) {
    RootedPath const next = RootOf(step, roots);
    bool const isElsewhere = !next.root.empty() && !SameText(next.root, full);
    if (isElsewhere) full = next.root;
    if (isElsewhere || next.isAbsolute) {
      hasStart = true;
      parts.clear();
    }
    AddParts(next.rest, separators, parts);
    separators = kSeparators;
  }
  if (!hasStart || (roots == PathRoots::kDrives && full.empty())) return {};
  if (parts.empty()) full += '/';
  for (std::string_view part : parts) {
    full += '/';
    full += part;
  }
  return full;
}

std::string AbsolutePath(std::string_view path, std::string_view folder) {
  if (path.empty()) return {};
  auto const roots = platform::HasDrives() ? PathRoots::kDrives : PathRoots::kSlash;
  bool const isWhole = IsAbsolute(path, roots) || IsAbsolute(folder, roots);
  return AbsolutePathFrom(path, folder, isWhole ? std::string() : platform::WorkingFolder(), roots);
}

}  // namespace zel
