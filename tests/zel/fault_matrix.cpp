// Every operation on a file of every command of zel fails once. What comes out is what comes out
// without the failure, or an error that is told of. Files are then as they were, or, where the
// change counted before the operation ("late"), whole as the command makes them: at the latest when
// the next command has looked at the library.
//
//   fault_matrix [--every N] [--only WORD]
//
// With --every N one in N operations fails; with --only the commands that have the word.
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/zel/fault_run.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;
using Contents = std::map<std::string, std::string>;

// "own" is a library of components, "other" one with some of them and one more, "pairs" one of
// pairs and groups.
constexpr char const* kCommands[] = {
    "info own.lb1",
    "banks own.lb1",
    "items own.lb1 PERRY",
    "items pairs.lb1 NRTL --fields aij aji --names own.lb1",
    "show own.lb1 PERRY ETHANOL --complete",
    "show pairs.lb1 NRTL ETHANOL WATER --names own.lb1",
    "find own.lb1 --name *",
    "memo own.lb1",
    "memo own.lb1 --bank PERRY",
    "search ETHANOL -l own.lb1 -l other.lb1",
    "why ETHANOL NBP -l own.lb1 -l other.lb1",
    "coverage ETHANOL WATER -l own.lb1 -l pairs.lb1",
    "eval ETHANOL VaporPressure -l own.lb1 --at 300K 400K",
    "plot VaporPressure ETHANOL WATER -l own.lb1 -o chart.svg",
    "check own.lb1",
    "diff own.lb1 other.lb1",
    "export own.lb1 -o out.xml",
    "export own.lb1 -o docs/ --component-files",
    "export pairs.lb1 -o pairs.xml --bank NRTL",
    "dump own.lb1",
    "dump own.lb1 --tree PERRY",
    "list own.lst --build own.lb1",
    "list there.lst --sort nbp",
    "create new.lb1 --description x",
    "set own.lb1 --description changed",
    "memo own.lb1 --bank PERRY --set changed",
    "import own.lb1 component.xml --bank PERRY --replace",
    "import fresh.lb1 component.xml --bank PERRY --create",
    "copy own.lb1 other.lb1 --replace",
    "copy own.lb1 fresh.lb1 --create",
    "copy pairs.lb1 own.lb1 --bank NRTL",
    "delete own.lb1 PERRY WATER",
    "delete own.lb1 PERRY --whole-bank",
};

Words Split(std::string const& line) {
  std::istringstream text(line);
  Words words;
  for (std::string word; text >> word;) words.push_back(word);
  return words;
}

// What anybody sees in a folder; copies that a command works on and files for its time are not.
Contents ContentsOf(fs::path const& folder) {
  Contents contents;
  for (auto const& entry : fs::recursive_directory_iterator(folder)) {
    std::string const name = fs::relative(entry.path(), folder).string();
    if (!entry.is_regular_file() || name.find(".zel-") != std::string::npos ||
        name.find("tmp/") == 0) {
      continue;
    }
    std::ostringstream text;
    text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
    contents[name] = text.str();
  }
  return contents;
}

class Matrix {
 public:
  Matrix(long every, std::string only) : every_(every), only_(std::move(only)) {
    root_ = fs::canonical(fs::temp_directory_path()) / ("zel_faults_" + std::to_string(getpid()));
    fs::remove_all(root_);
    fs::create_directories(Lib() / "docs");
    fs::create_directories(Lib() / "tmp");
    ::setenv("TMPDIR", (Lib() / "tmp").c_str(), 1);
  }
  Matrix(Matrix const&) = delete;
  Matrix& operator=(Matrix const&) = delete;
  ~Matrix() { fs::remove_all(root_); }

  // Exit status of the program.
  int Run();

 private:
  struct Counts {
    long operations = 0;
    long runs = 0;
    long right = 0;
    long errors = 0;
    long late = 0;  // errors told of when the change had counted
    long wrong = 0;
  };

  static void Print(Counts const& counts, std::string const& name) {
    std::printf("%10ld %8ld %8ld %8ld %8ld %8ld  %s\n", counts.operations, counts.runs,
                counts.right, counts.errors, counts.late, counts.wrong, name.c_str());
    std::fflush(stdout);
  }
  fs::path Lib() const { return root_ / "lib"; }
  bool MakeLibraries();
  TracedRun Zel(std::string const& line, Fault const& fault) const;
  void PutBack() const;
  void Command(std::string const& line, Fault kind);
  // The files of libraries are all the old ones or all the new ones; of documents each is by
  // itself.
  bool IsOldOrNew(Contents const& left) const;
  // Empty when the outcome is one that may be.
  std::string WrongWith(TracedRun const& run);

  long every_;
  std::string only_;
  fs::path root_;
  Contents before_;
  TracedRun good_;
  Contents after_;
  Counts now_;
  Counts all_;
  bool isTraced_ = true;
};

TracedRun Matrix::Zel(std::string const& line, Fault const& fault) const {
  Words words = Split(line);
  words.insert(words.begin(), ZEL_PROGRAM);
  return RunTraced(words, Lib().string(), Lib().string(), fault);
}

bool Matrix::MakeLibraries() {
  std::string const data = ZEL_DATA;
  std::string const lines[] = {
      "import perry.lb1 " + data + "/perry.xml --create",
      "import crc.lb1 " + data + "/crc.xml --create",
      "import sample.lb1 " + data + "/sample.xml --create",
      "copy perry.lb1 own.lb1 --create --bank PERRY --item ETHANOL",
      "copy perry.lb1 own.lb1 --bank PERRY --item WATER",
      "copy perry.lb1 own.lb1 --bank PERRY --item BENZENE",
      "copy perry.lb1 other.lb1 --create --bank PERRY --item ETHANOL",
      "copy crc.lb1 other.lb1 --bank CRC --item ETHANOL",
      "copy sample.lb1 pairs.lb1 --create --bank NRTL",
      "copy sample.lb1 pairs.lb1 --bank OCTANE",
      "memo own.lb1 --set words",
      "memo own.lb1 --bank PERRY --set more",
      "export own.lb1 --component ETHANOL --bank PERRY -o component.xml",
      "list there.lst --build own.lb1",
  };
  for (std::string const& line : lines) {
    TracedRun const run = Zel(line, {});
    if (!run.isTraced) return false;
    if (run.status == 0) continue;
    std::cout << "zel " << line << "\n" << run.err;
    std::exit(1);
  }
  for (char const* name : {"perry", "crc", "sample"}) {
    for (char const* ending : {".lb1", ".lb2"}) fs::remove(Lib() / (std::string(name) + ending));
  }
  before_ = ContentsOf(Lib());
  return true;
}

void Matrix::PutBack() const {
  for (auto const& entry : fs::directory_iterator(Lib())) fs::remove_all(entry.path());
  fs::create_directories(Lib() / "docs");
  fs::create_directories(Lib() / "tmp");
  for (auto const& [name, bytes] : before_) std::ofstream(Lib() / name, std::ios::binary) << bytes;
}

bool Matrix::IsOldOrNew(Contents const& left) const {
  Contents oldOnes;
  Contents newOnes;
  Contents libraries;
  auto const isDocument = [](std::string const& name) {
    return fs::path(name).extension() == ".xml";
  };
  auto const take = [&](Contents const& from, Contents& to) {
    for (auto const& file : from) {
      if (!isDocument(file.first)) to.insert(file);
    }
  };
  take(before_, oldOnes);
  take(after_, newOnes);
  take(left, libraries);
  for (auto const& [name, bytes] : left) {
    if (!isDocument(name)) continue;
    auto const before = before_.find(name);
    auto const after = after_.find(name);
    bool const isOld = before != before_.end() && before->second == bytes;
    if (!isOld && (after == after_.end() || after->second != bytes)) return false;
  }
  return libraries == oldOnes || libraries == newOnes;
}

std::string Matrix::WrongWith(TracedRun const& run) {
  if (run.status > 2) return "ended with status " + std::to_string(run.status);
  bool const isChange = after_ != before_;
  Contents const left = ContentsOf(Lib());
  if (run.status == 0) {
    if (run.out != good_.out) return "printed something else, without a word";
    return left == after_ ? "" : "wrote something else, without a word";
  }
  // A document that cannot be read back is a finding of the report.
  if (run.err.empty() && run.out == good_.out) return "failed without a word";
  // What could not be read was told of, and all else was done.
  bool const wentOn = run.err.find("; left out\n") != std::string::npos;
  if (!isChange || wentOn) return "";
  for (char const* name : {"own", "other", "fresh", "new"}) {
    Zel(std::string("info ") + name + ".lb1", {});
  }
  Contents const finished = ContentsOf(Lib());
  if (finished == before_ && left == before_) return "";
  ++now_.late;
  return IsOldOrNew(finished) ? "" : "failed, and left neither the old nor the new";
}

// All operations of one kind of a command.
void Matrix::Command(std::string const& line, Fault kind) {
  PutBack();
  kind.operation = 0;
  good_ = Zel(line, kind);
  after_ = ContentsOf(Lib());
  if (good_.status != 0) {
    std::cout << "zel " << line << "\n" << good_.err;
    ++now_.wrong;
    return;
  }
  now_.operations += good_.operations;
  // Another one of each command, so that few runs see many places.
  static long next = 1;
  for (; next <= good_.operations; next += every_) {
    if (ContentsOf(Lib()) != before_ || fs::exists(Lib() / ".own.lb1.zel-ready")) PutBack();
    kind.operation = next;
    TracedRun const run = Zel(line, kind);
    ++now_.runs;
    std::string const wrong = WrongWith(run);
    if (wrong.empty()) {
      ++(run.status == 0 ? now_.right : now_.errors);
      continue;
    }
    ++now_.wrong;
    std::cout << "zel " << line << ": operation " << next << " of " << good_.operations << ", "
              << run.failed << (kind.refuseMappings ? ", nothing mapped" : "") << ", error "
              << kind.error << ": " << wrong << "\n"
              << run.err;
  }
  next -= good_.operations;
}

int Matrix::Run() {
  if (!MakeLibraries()) {
    std::cout << "this machine allows no tracing\n";
    return 77;
  }
  Fault const kinds[] = {{0, EIO, false, false}, {0, EIO, false, true}, {0, ENOSPC, true, false}};
  std::printf("%10s %8s %8s %8s %8s %8s  command\n", "operations", "runs", "right", "errors",
              "late", "wrong");
  for (std::string const line : kCommands) {
    if (line.find(only_) == std::string::npos) continue;
    now_ = {};
    for (Fault const& kind : kinds) Command(line, kind);
    Print(now_, line);
    all_.operations += now_.operations;
    all_.runs += now_.runs;
    all_.right += now_.right;
    all_.errors += now_.errors;
    all_.late += now_.late;
    all_.wrong += now_.wrong;
  }
  Print(all_, "all");
  return all_.wrong == 0 && all_.errors > 0 && all_.right > 0 ? 0 : 1;
}

}  // namespace
}  // namespace zel::test

int main(int count, char** words) {
  long every = 1;
  std::string only;
  for (int i = 1; i + 1 < count; i += 2) {
    std::string const option = words[i];
    if (option == "--every") every = std::max(1L, std::atol(words[i + 1]));
    if (option == "--only") only = words[i + 1];
  }
  return zel::test::Matrix(every, only).Run();
}
