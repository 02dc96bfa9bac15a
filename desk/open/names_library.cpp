#include "desk/open/names_library.h"

#include <filesystem>
#include <system_error>

#include "desk/open/unfinished_change.h"
#include "desk/words/failure.h"

namespace zel::desk {

void OpenNames(Session& session) {
  if (session.namesPath.empty()) return;
  try {
    session.names = std::make_shared<Library>(OpenFinished(session, session.namesPath));
  } catch (Error const& failure) {
    throw Failure(failure.what() + (" (named by " + session.namesOrigin + ")"));
  }
  zel::LibFile::SetOrdwinNameIndex(&session.names->File());
}

void TryOpenNames(Session& session) {
  try {
    OpenNames(session);
  } catch (Error const& failure) {
    session.Note(failure.what());
  }
}

bool ReleaseNames(Session& session, std::string const& path) {
  std::error_code none;
  if (!session.names || !std::filesystem::equivalent(session.names->Path(), path, none)) {
    return false;
  }
  session.names.reset();
  return true;
}

}  // namespace zel::desk
