// Kills processes that change a library, at random times, opens what is left, and prints how many
// items that were flushed are lost, with plain and with held-back writes. The writer says through a
// pipe when a flush begins and when it is done; its changes follow from a seed, so that the parent
// knows what the library must hold. Fails if a writer with held-back writes loses an item, or
// leaves anything but the last flush or the one under way.
//   kill_writers [--count <kills>] [--folder <folder>]
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

#include "tests/long/long_options.h"
#include "tests/support/item_session.h"
#include "tests/support/memory_file_system.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;
using Random = ItemSession::Random;

constexpr int kChanges = 12;  // between two flushes

struct Counts {
  long kills = 0;
  long inFlush = 0;
  long flushed = 0;
  long lost = 0;
  long between = 0;
  long completed = 0;
};

// A system that does not sync: a kill takes nothing from the system's cache.
std::unique_ptr<LibFile_i> Open(fs::path const& path, accModes mode, zelWriteModes writes) {
  auto library = std::make_unique<LibFile_i>(platform::SystemFileSystemWithoutSync(), mode,
                                             path.c_str(), "kill");
  if (mode == accUpdate) library->Store().SetWriteMode(writes);
  if (library->OpenExisting({true, ""}, nullptr) != openOk) return nullptr;
  return library;
}

[[noreturn]] void Write(fs::path const& path, zelWriteModes writes, ItemSession::State const& state,
                        std::uint64_t seed, int pipe) {
  auto const tell = [&](char what) {
    if (::write(pipe, &what, 1) != 1) ::_exit(1);
  };
  Random random(seed);
  auto library = Open(path, accUpdate, writes);
  if (!library) ::_exit(1);
  ItemSession session(*library, state, random);
  tell('o');
  while (true) {
    session.Change(kChanges);
    tell('b');
    session.Flush();
    tell('d');
  }
}

// What the session holds after that many flushes, in memory.
class Model {
 public:
  Model(ItemSession::State const& state, std::uint64_t seed)
      : random_(seed), library_(files_, accUpdate, "/m.lb1", "m") {
    if (library_.CreateNew(libKind11) != openOk) throw std::runtime_error("no model");
    ItemSession filled(library_, {}, random_);
    filled.MakeBank();
    filled.Fill(state);
    random_.seed(seed);
    session_.emplace(library_, state, random_);
  }
  void Change() { session_->Change(kChanges); }
  void Flush() { session_->Flush(); }
  ItemSession const& Session() const { return *session_; }

 private:
  Random random_;
  MemoryFileSystem files_;
  LibFile_i library_;
  std::optional<ItemSession> session_;
};

class Killer {
 public:
  Killer(fs::path folder, zelWriteModes writes, std::uint64_t seed)
      : folder_(std::move(folder)), writes_(writes), random_(seed) {}

  Counts Run(long kills) {
    constexpr long kKillsOfBase = 50;
    while (counts_.kills < kills) {
      if (counts_.kills % kKillsOfBase == 0) MakeBase();
      OneKill();
    }
    return counts_;
  }

 private:
  fs::path Path(char const* name) const { return folder_ / name; }

  void MakeBase() {
    constexpr int kItems = 300;
    for (auto const& entry : fs::directory_iterator(folder_)) fs::remove(entry.path());
    LibFile_i library(platform::SystemFileSystemWithoutSync(), accUpdate, Path("base.lb1").c_str(),
                      "base");
    if (library.CreateNew(libKind11) != openOk) throw std::runtime_error("no library");
    ItemSession session(library, {}, random_);
    session.MakeBank();
    session.Change(kItems);
    session.Flush();
    state_ = session.Flushed();
  }

  void OneKill() {
    for (auto const& entry : fs::directory_iterator(folder_)) {
      if (entry.path().stem() == "kill" || entry.path().stem() == "kill.lb1") {
        fs::remove(entry.path());
      }
    }
    for (char const* ending : {"1", "2"}) {
      fs::copy_file(Path((std::string("base.lb") + ending).c_str()),
                    Path((std::string("kill.lb") + ending).c_str()));
    }
    std::uint64_t const seed = random_();
    std::string const told = KillWriter(seed);
    Model model(state_, seed);
    bool inFlush = false;
    bool isBegun = false;
    for (char const what : told) {
      isBegun = isBegun || what == 'o';
      if (what == 'b') model.Change();
      if (what == 'd') model.Flush();
      inFlush = what == 'b';
    }
    if (!isBegun) return;
    if (!inFlush) model.Change();
    Count(model.Session(), inFlush);
  }

  // Returns what the writer has said until it was killed.
  std::string KillWriter(std::uint64_t seed) {
    int ends[2];
    if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
    pid_t const writer = ::fork();
    if (writer == 0) {
      ::close(ends[0]);
      Write(Path("kill.lb1"), writes_, state_, seed, ends[1]);
    }
    ::close(ends[1]);
    char what = 0;
    std::string told;
    // It is killed some time after it has opened the library.
    if (::read(ends[0], &what, 1) == 1) told += what;
    std::this_thread::sleep_for(std::chrono::microseconds(random_() % 4000));
    ::kill(writer, SIGKILL);
    ::waitpid(writer, nullptr, 0);
    while (::read(ends[0], &what, 1) == 1) told += what;
    ::close(ends[0]);
    return told;
  }

  void Count(ItemSession const& session, bool inFlush) {
    ++counts_.kills;
    if (inFlush) ++counts_.inFlush;
    long flushed = 0;
    for (auto const& [keys, value] : session.Flushed().items) {
      if (session.Touched().count(keys) == 0) ++flushed;
    }
    counts_.flushed += flushed;
    try {
      auto library = Open(Path("kill.lb1"), random_() % 2 == 0 ? accRead : accUpdate, writesPlain);
      if (library) {
        if (library->Store().LastClose()->isCompleted) ++counts_.completed;
        auto const found = ItemSession::Read(*library);
        counts_.lost += ItemSession::Lost(found, session.Flushed(), session.Touched());
        if (!(found == session.Flushed() || found == session.Next())) ++counts_.between;
        return;
      }
    } catch (unsigned long) {
    } catch (std::runtime_error const&) {
    }
    counts_.lost += flushed;
    ++counts_.between;
  }

  fs::path folder_;
  zelWriteModes writes_;
  Random random_;
  ItemSession::State state_;
  Counts counts_;
};

int Run(fs::path const& folder, long count, std::uint64_t seed) {
  bool good = true;
  for (zelWriteModes const writes : {writesPlain, writesHeld}) {
    Counts const c = Killer(folder, writes, seed).Run(count);
    std::printf(
        "%s: %ld kills, %ld of them in a flush\n  flushed items %ld, lost %ld (%.2f %%); "
        "libraries between two flushes %ld; flushes completed by the open %ld\n",
        writes == writesPlain ? "plain writes" : "held-back writes", c.kills, c.inFlush, c.flushed,
        c.lost,
        100.0 * static_cast<double>(c.lost) / static_cast<double>(std::max<long>(c.flushed, 1)),
        c.between, c.completed);
    good = good && (writes == writesPlain || (c.lost == 0 && c.between == 0));
  }
  return good ? 0 : 1;
}

}  // namespace
}  // namespace zel::test

int main(int argc, char** argv) {
  namespace fs = std::filesystem;
  long count = 10'000;
  fs::path folder = fs::temp_directory_path();
  std::uint64_t seed = 1;
  bool const good = zel::test::ReadOptions(
      argc, argv,
      {{"--count", [&](char const* word) { count = std::atol(word); }},
       {"--folder", [&](char const* word) { folder = word; }},
       {"--seed", [&](char const* word) { seed = std::strtoull(word, nullptr, 10); }}});
  if (!good) return 2;
  folder /= "zel_kill_writers_" + std::to_string(::getpid());
  int status = 2;
  try {
    fs::create_directories(folder);
    status = zel::test::Run(folder, count, seed);
  } catch (std::exception const& error) {
    std::fprintf(stderr, "%s\n", error.what());
  } catch (unsigned long address) {
    std::fprintf(stderr, "block %lu\n", address);
  }
  fs::remove_all(folder);
  return status;
}
