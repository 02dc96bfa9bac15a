// Opens with settings. These can verify a library that was not closed cleanly, so they are in a
// layer above the store.
#include "verify/open_library.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "frame/ascii.h"
#include "frame/limits.h"
#include "frame/path_parts.h"
#include "zelaccess/OpenLibrary.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

using Clock = std::chrono::steady_clock;

std::string NameFor(char const* path, ZelOpenOptions const& options) {
  if (options.name != nullptr) return options.name;
  PathParts const parts = SplitPath(TextOrEmpty(path));
  return parts.name + parts.extension;
}

// A library that is not open yet.
std::unique_ptr<LibFile_i> Made(accModes mode, char const* path, ZelOpenOptions const& options) {
  auto library =
      std::make_unique<LibFile_i>(platform::SystemFileSystem(), mode, path, NameFor(path, options));
  bool const isKnown = options.writes == writesMarked || options.writes == writesHeld;
  if (isKnown && mode == accUpdate) library->Store().SetWriteMode(options.writes);
  return library;
}

// Opens, and tries again while another opener holds the library.
template <typename Open>
openErrors OpenWaiting(std::int32_t milliseconds, BlockStore const& store, Open const& open) {
  constexpr std::chrono::milliseconds kBetween{5};
  auto const end = Clock::now() + std::chrono::milliseconds(milliseconds);
  while (true) {
    openErrors const error = open();
    bool const isLast = error != openDenied || !store.WasInUse() || milliseconds <= 0;
    if (isLast || Clock::now() >= end) return error;
    std::this_thread::sleep_for(kBetween);
  }
}

struct NoSink final : ZelFindingSink {
  void Found(zelFindings, char const*, char const*, char const*) override {}
};

openErrors JudgeLastClose(LibFile_i& library, accModes mode, zelUncleanModes unclean) {
  if (unclean != uncleanRefused && unclean != uncleanVerified) return openOk;
  std::optional<ZelLastClose> const last = library.Store().LastClose();
  if (!last) return openFailed;
  if (!last->isMarked && !last->hasForeignJournal) return openOk;
  if (unclean == uncleanRefused) return openUncleanlyClosed;
  NoSink sink;
  if (!VerifyLibrary(&library, sink)) return openDamaged;
  if (mode == accUpdate && !library.Store().ForgetUncleanClose()) return openFailed;
  return openOk;
}

}  // namespace

LibFile* OpenLibrary(char const* path, ZelOpenOptions const& options, openErrors& error) {
  error = openFailed;  // remains when the open throws
  auto library = Made(options.mode, path, options);
  error = OpenWaiting(options.waitMilliseconds, library->Store(), [&] {
    return library->OpenExisting({true, TextOrEmpty(options.password)}, nullptr);
  });
  if (error != openOk) return nullptr;
  error = openFailed;
  try {
    error = JudgeLastClose(*library, options.mode, options.unclean);
  } catch (...) {
    library->Abandon();  // nothing is written to a library that could not be verified
    throw;
  }
  if (error == openOk) return library.release();
  library->Abandon();
  return nullptr;
}

LibFile* NewLibrary(libTypes type, char const* path, ZelOpenOptions const& options,
                    openErrors& error) {
  error = openFailed;
  auto library = Made(accUpdate, path, options);
  error = OpenWaiting(options.waitMilliseconds, library->Store(),
                      [&] { return library->CreateNew(type); });
  return error == openOk ? library.release() : nullptr;
}

bool GetLastClose(LibFile* library, ZelLastClose& state) {
  LibFile_i* const inner = OpenLibrary(library);
  if (inner == nullptr) return false;
  std::optional<ZelLastClose> const last = inner->Store().LastClose();
  if (last) state = *last;
  return last.has_value();
}

openErrors FinishLastFlush(char const* path, bool isLocked) {
  platform::FileSystem& system = platform::SystemFileSystem();
  std::string const first = AbsolutePath(TextOrEmpty(path));
  if (first.empty()) return openOk;
  std::string const library = system.Target(first);
  platform::OpenedFile const journal =
      system.OpenAside(JournalOf(library), platform::OpenMode::kRead, library);
  if (!journal.file) {
    return journal.outcome == platform::OpenOutcome::kNotFound ? openOk : ErrorOf(journal.outcome);
  }
  platform::OpenedFile lock;
  if (!isLocked) {
    lock = system.Open(first, platform::OpenMode::kUpdate);
    if (!lock.file) return ErrorOf(lock.outcome);
  }
  UnfinishedFlush unfinished(system, first);
  platform::OpenOutcome outcome = unfinished.Look();
  if (unfinished.Found() == UnfinishedFlush::State::kThere) outcome = unfinished.Complete();
  return ErrorOf(outcome);
}

bool ForgetUncleanClose(char const* path) {
  platform::FileSystem& system = platform::SystemFileSystem();
  std::string const first = AbsolutePath(TextOrEmpty(path));
  if (first.empty()) return true;
  std::string const library = system.Target(first);
  bool good = true;
  for (std::string const& aside : {MarkOf(library), JournalOf(library)}) {
    if (system.IsThere(aside).value_or(true) && !system.Remove(aside)) good = false;
  }
  return good;
}

}  // namespace zel
