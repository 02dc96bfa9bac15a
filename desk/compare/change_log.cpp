#include "desk/compare/change_log.h"

#include <optional>
#include <utility>

#include "desk/open/change_places.h"
#include "desk/open/unfinished_change.h"

namespace zel::desk {

namespace {

// Returns nothing for a version that was removed meanwhile, by a change that is just being
// completed.
std::optional<Library> OpenVersion(Session& session, Version const& version) {
  try {
    return Library::OpenRead(session, version.first.string());
  } catch (OpenError const&) {
    if (Exists(version.first.parent_path())) throw;
    return std::nullopt;
  }
}

}  // namespace

std::vector<LoggedChange> ChangesOf(Session& session, std::string const& path, int most) {
  DifferenceOptions options;
  options.first = "before";
  options.second = "after";
  std::vector<LoggedChange> changes;
  // Goes back from the last change: the state before a change is the one that the change before it
  // left.
  Library const held = OpenFinished(session, path);  // no change is put in place meanwhile
  Library after = Library::OpenRead(session, path);
  std::string const whole = WithoutLinks(path);
  std::vector<Version> versions = VersionsOf(whole);
  std::string left;
  if (!versions.empty()) {
    OrFail(path, "cannot be read", [&] { left = DigestOfLibrary(whole); });
  }
  for (; !versions.empty(); versions.pop_back()) {
    if (most != 0 && changes.size() == static_cast<std::size_t>(most)) break;
    Version& version = versions.back();
    std::optional<Library> before = OpenVersion(session, version);
    if (!before) break;
    bool const isMixed = left != version.change.after;
    left = version.change.before;
    changes.push_back({version.number, std::move(version.change), isMixed,
                       DifferencesOf(*before, after, options)});
    after = std::move(*before);
  }
  return changes;
}

}  // namespace zel::desk
