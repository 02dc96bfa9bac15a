// The command-line host: the time to start, and to show one component of very many.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "bench/many_components.h"
#include "bench/ratio_cases.h"
#include "frame/platform/block_file.h"
#include "store/lib_file.h"

namespace zel::bench {
namespace {

constexpr int kRuns = 20;

// Runs a program and discards its output; returns its exit status.
std::uint64_t RunProgram(std::vector<std::string> words) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  int const failed =
      posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  if (failed != 0 || waitpid(child, &status, 0) != child || status != 0) {
    throw std::runtime_error("cannot run " + words[0]);
  }
  return 0;
}

Side Running(std::vector<std::string> words) {
  return [words = std::move(words)](int) {
    return Time(kRuns, [&] {
      std::uint64_t sum = 0;
      for (int i = 0; i < kRuns; ++i) sum += RunProgram(words);
      return sum;
    });
  };
}

}  // namespace

void CompareHost(RatioTable& table, std::filesystem::path const& folder) {
  std::string const zel = ZEL_PROGRAM;
  std::string const path = (folder / "many.lb1").string();
  {
    LibFile_i library(platform::SystemFileSystemWithoutSync(), accUpdate, path.c_str(), "many");
    if (library.CreateNew(libKind11) != openOk) throw std::runtime_error("cannot make the library");
    MakeManyComponents(library);
    library.CloseLibFile();
  }
  constexpr double kTenMilliseconds = 1e7;
  table.Compare({"zel --version", "/bin/true", Running({"/bin/true"}), Running({zel, "--version"}),
                 Target::Figure(kTenMilliseconds)});
  table.Compare({"zel show of one component of 100k", "zel --version", Running({zel, "--version"}),
                 Running({zel, "show", path, kManyBank, "C50000"}), Target::Ratio(2.0)});
  for (char const ending : {'1', '2'}) {
    std::filesystem::remove(path.substr(0, path.size() - 1) + ending);
  }
}

}  // namespace zel::bench
