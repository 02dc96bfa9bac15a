#include "desk/change/undo.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "desk/words/failure.h"

namespace zel::desk {
namespace {

Version const* Numbered(std::vector<Version> const& versions, int number) {
  auto const at = std::find_if(versions.begin(), versions.end(),
                               [&](Version const& version) { return version.number == number; });
  return at == versions.end() ? nullptr : &*at;
}

Version const& Chosen(std::string const& path, std::vector<Version> const& versions, int before) {
  if (versions.empty()) {
    throw Failure(path + ": nothing to undo: it has no history");
  }
  if (Version const* const found =
          before == 0 ? VersionToUndo(versions) : Numbered(versions, before)) {
    return *found;
  }
  if (before == 0) {
    throw Failure(path +
                  ": nothing to undo: all changes that are kept are undone already; `zel log " +
                  path + "` lists them");
  }
  throw Failure(path + ": change " + std::to_string(before) + " is not kept; `zel log " + path +
                "` lists those that are");
}

}  // namespace

Version const* VersionToUndo(std::vector<Version> const& versions) {
  int below = versions.empty() ? 0 : versions.back().number + 1;
  for (;;) {
    auto const last = std::find_if(versions.rbegin(), versions.rend(),
                                   [&](Version const& version) { return version.number < below; });
    if (last == versions.rend()) return nullptr;
    if (last->change.undoes == 0) return &*last;
    // An undo leads back to what was before the change that it took back.
    below = std::min(last->number, last->change.undoes);
  }
}

Undo BeginUndo(Session& session, std::string const& path, UndoOptions const& undo,
               ChangeOptions const& options) {
  if (options.inPlace) throw WrongUsage("undo makes a copy; omit --in-place");
  ChangeOptions how = options;
  how.replacesAll = undo.force;
  LibraryChange change(session, path, how);
  std::vector<Version> const versions = VersionsOf(change.WholePath());
  Version const version = Chosen(path, versions, undo.before);
  ChangeRecord const& last = versions.back().change;
  OrFail(path, "cannot be read", [&] {
    if (undo.force || DigestOfLibrary(change.WholePath()) == last.after) return;
    throw Failure(path + ": was changed after the last change in its history, of " +
                  (last.time.empty() ? "an unknown time" : last.time) +
                  ", by another program or with --in-place; --force undoes that, too");
  });
  return {version, std::move(change)};
}

}  // namespace zel::desk
