#include "desk/change/last_close.h"

#include <zelaccess/OpenLibrary.h>

#include "desk/open/change_places.h"
#include "desk/open/library.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

// Counts the damage that a verification finds, and keeps the first of it.
class DamageSink final : public zel::ZelFindingSink {
 public:
  void Found(zel::zelFindings severity, char const*, char const* place, char const* text) override {
    if (severity == zel::findingDamage && ++count_ == 1) first_ = place + std::string(": ") + text;
  }
  std::string Text() const {
    return count_ <= 1 ? first_ : first_ + ", and " + std::to_string(count_ - 1) + " more";
  }

 private:
  int count_ = 0;
  std::string first_;
};

}  // namespace

void CompleteLastFlush(std::string const& path, std::string const& shownAs, bool isLocked) {
  zel::openErrors const error = zel::FinishLastFlush(path.c_str(), isLocked);
  if (error != zel::openOk) ThrowOpenError(error, shownAs);
}

bool HasUnfinishedFlush(Session& session, std::string const& path, std::string const& shownAs) {
  if (!Exists(path + ".journal")) return false;
  Library const library = Library::OpenRead(session, path, shownAs);
  zel::ZelLastClose last;
  return zel::GetLastClose(&library.File(), last) && last.isCompleted;
}

bool WasClosedUncleanly(std::string const& library) {
  return Exists(library + ".open") || Exists(library + ".journal");
}

void VerifyUnclean(Session& session, std::string const& path, std::string const& shownAs,
                   bool hasHistory) {
  Library const library = Library::OpenRead(session, path, shownAs);
  DamageSink damage;
  if (!zel::VerifyLibrary(&library.File(), damage)) {
    std::string const undo =
        hasHistory ? "; `zel undo --force " + shownAs + "` goes back to before the last change"
                   : "";
    throw Failure(shownAs + ": was not closed cleanly and is damaged (" + damage.Text() +
                  "); `zel salvage " + shownAs + " rescued.lb1` takes out what can be read" + undo);
  }
  session.Note(shownAs + ": was not closed cleanly; it was checked and is sound");
}

}  // namespace zel::desk
