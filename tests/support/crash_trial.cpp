#include "tests/support/crash_trial.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

#include "tests/support/crash_file_system.h"
#include "tests/support/item_session.h"
#include "zelaccess/Verify.h"

namespace zel::test {
namespace {

constexpr char kPath[] = "/crash.lb1";
using Random = ItemSession::Random;

struct NoSink final : ZelFindingSink {
  void Found(zelFindings, char const*, char const*, char const*) override {}
};

// A library on disk, and what it holds.
struct Base {
  CrashFileSystem::Image image;
  ItemSession::State state;
};

Base MakeBase(Random& random) {
  constexpr int kItems = 300;
  CrashFileSystem files;
  Base base;
  LibFile_i library(files, accUpdate, kPath, "crash");
  if (library.CreateNew(libKind11) != openOk) throw std::runtime_error("no library");
  {
    ItemSession session(library, {}, random);
    session.MakeBank();
    session.Change(kItems);
    session.Flush();
    base.state = session.Flushed();
  }
  library.CloseLibFile();
  base.image = files.AfterKill();
  return base;
}

class Trial {
 public:
  Trial(zelWriteModes writes, Crash crash, long images, std::uint64_t seed)
      : writes_(writes), crash_(crash), images_(images), random_(seed) {}

  CrashCounts Run() {
    constexpr long kSessionsOfBase = 20;
    while (counts_.images < images_) {
      if (counts_.sessions % kSessionsOfBase == 0) base_ = MakeBase(random_);
      OneSession();
      ++counts_.sessions;
    }
    return counts_;
  }

 private:
  void OneSession() {
    constexpr long kOneIsLong = 12;  // so that its journal begins anew
    constexpr int kMostChanges = 25;
    int const flushes = counts_.sessions % kOneIsLong == 0 ? 60 : static_cast<int>(random_() % 8);
    CrashFileSystem files;
    files.Load(base_.image);
    LibFile_i library(files, accUpdate, kPath, "crash");
    library.Store().SetWriteMode(writes_);
    if (library.OpenExisting({true, ""}, nullptr) != openOk) throw std::runtime_error("not opened");
    ItemSession session(library, base_.state, random_);
    files.atMoment = [&] { AtMoment(files, session); };
    for (int i = 0; i < flushes; ++i) {
      session.Change(static_cast<int>(random_() % kMostChanges) + 1);
      inFlush_ = true;
      session.Flush();
      inFlush_ = false;
    }
    inFlush_ = true;
    library.CloseLibFile();
    inFlush_ = false;
  }

  void AtMoment(CrashFileSystem const& files, ItemSession const& session) {
    constexpr std::uint64_t kOneOf = 20;
    if (counts_.images == images_ || random_() % kOneOf != 0) return;
    ++counts_.images;
    if (inFlush_) ++counts_.inFlush;
    CrashFileSystem::Image const image =
        crash_ == Crash::kKill ? files.AfterKill() : files.AfterPowerCut(random_);
    Count(image, session);
  }

  void Count(CrashFileSystem::Image const& image, ItemSession const& session) {
    long flushed = 0;
    for (auto const& [keys, value] : session.Flushed().items) {
      if (session.Touched().count(keys) == 0) ++flushed;
    }
    counts_.flushed += flushed;
    auto const found = Read(image, random_() % 2 == 0 ? accRead : accUpdate);
    if (!found) ++counts_.unread;
    counts_.lost +=
        found ? ItemSession::Lost(*found, session.Flushed(), session.Touched()) : flushed;
    if (!found || !(*found == session.Flushed() || *found == session.Next())) ++counts_.between;
    if (!secondCut_) return;
    ++counts_.cutAgain;
    CrashFileSystem::Image const second = *std::exchange(secondCut_, std::nullopt);
    auto const foundAgain = Read(second, accRead);
    if (!foundAgain || !found || !(*foundAgain == *found)) ++counts_.between;
  }

  // Reads the library that is left. An updater may be cut off again while it completes a flush:
  // then `secondCut_` is what that leaves.
  std::optional<ItemSession::State> Read(CrashFileSystem::Image const& image, accModes mode) {
    constexpr std::uint64_t kOneOf = 4;
    CrashFileSystem files;
    files.Load(image);
    files.atMoment = [&] {
      if (mode == accRead) throw std::logic_error("a reader changes a file");
      if (random_() % kOneOf != 0) return;
      secondCut_ = crash_ == Crash::kKill ? files.AfterKill() : files.AfterPowerCut(random_);
    };
    try {
      LibFile_i library(files, mode, kPath, "crash");
      if (library.OpenExisting({true, ""}, nullptr) != openOk) return std::nullopt;
      if (library.Store().LastClose()->isCompleted) ++counts_.completed;
      files.atMoment = nullptr;
      NoSink sink;
      if (!VerifyLibrary(&library, sink)) ++counts_.damaged;
      return ItemSession::Read(library);
    } catch (unsigned long) {
      return std::nullopt;
    } catch (std::runtime_error const&) {
      return std::nullopt;
    }
  }

  zelWriteModes writes_;
  Crash crash_;
  long images_;
  Random random_;
  Base base_;
  bool inFlush_ = false;
  std::optional<CrashFileSystem::Image> secondCut_;
  CrashCounts counts_;
};

}  // namespace

CrashCounts CrashSessions(zelWriteModes writes, Crash crash, long images, std::uint64_t seed) {
  return Trial(writes, crash, images, seed).Run();
}

}  // namespace zel::test
