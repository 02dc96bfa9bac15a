#include "frame/folder_walk.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "frame/limits.h"
#include "frame/platform/system.h"
#include "frame/wildcard.h"

namespace zel {
namespace {

struct Walk {
  std::vector<std::string> folders;  // still to visit, the newest last
  std::string pattern;
  bool recursive = false;
  // The open search: the paths found in the current folder, and how many were returned.
  std::vector<std::string> found;
  std::size_t given = 0;
};

Walk walk;

std::string Joined(std::string const& folder, std::string const& name) {
  bool const separated = folder.empty() || folder.back() == '/';
  return separated ? folder + name : folder + '/' + name;
}

void OpenSearch(std::string const& folder) {
  std::vector<std::string> found;
  for (platform::FolderEntry const& entry : platform::ListFolder(folder)) {
    if (entry.attributes == platform::kFolderAttribute) {
      if (walk.recursive && entry.name.front() != '.') {
        walk.folders.push_back(Joined(folder, entry.name));
      }
    } else if (MatchesFilePattern(entry.name, walk.pattern)) {
      found.push_back(Joined(folder, entry.name));
    }
  }
  walk.found = std::move(found);
  walk.given = 0;
}

}  // namespace

void FindFilesBegin(std::string_view folder, std::string_view pattern, bool recursive) {
  FindFilesEnd();
  walk.folders.emplace_back(folder);
  walk.pattern = pattern.substr(0, kMostPath);
  walk.recursive = recursive;
}

bool FindFilesNext(std::string& path) {
  if (walk.pattern.empty()) return false;
  while (walk.given == walk.found.size()) {
    if (walk.folders.empty()) {
      FindFilesEnd();
      return false;
    }
    std::string const folder = std::move(walk.folders.back());
    walk.folders.pop_back();
    OpenSearch(folder);
  }
  path = walk.found[walk.given++];
  return true;
}

void FindFilesEnd() { walk = Walk(); }

}  // namespace zel
