// Every operation on a file of every command of zel fails, in each of several ways. The outcome is
// the same as without the failure, or an error that is reported. Files are then as they were, or,
// if the change was in place before the operation ("late"), completely as the command makes them,
// and no later command changes that. A change with --in-place may also leave a library between the
// two, which then has the mark of an unclean close.
//
//   fault_matrix [--every N] [--first N] [--runs N] [--only WORD] [--kind WORD] [--zel PROGRAM]
//
// With --every N one in N operations fails, from the N-th of --first on; with --runs N at most N of
// each command and kind of failure, spread over the command; with --only the commands that have the
// word; with --kind the kinds of failure whose name has the word; with --zel a program other than
// the one of this build.
#include <unistd.h>

#include <algorithm>
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

constexpr int kSkipped = 77;  // exit status of a program that cannot do its work here

// The text by which a report itself shows the failure; such a command needs no error line.
constexpr char kDamage[] = "block-unreadable";
constexpr char kUnreadable[] = "cannot be read back";

struct CommandLine {
  char const* words;
  char const* finding;  // null if every failure needs a line
};

// "own" is a library of components, "other" has some of them and one more, "pairs" has pairs and
// groups.
constexpr CommandLine kCommands[] = {
    {"info own.lb1", nullptr},
    {"banks own.lb1", nullptr},
    {"items own.lb1 PERRY", nullptr},
    {"items pairs.lb1 NRTL --fields aij aji --names own.lb1", nullptr},
    {"show own.lb1 PERRY ETHANOL --complete", nullptr},
    {"show pairs.lb1 NRTL ETHANOL WATER --names own.lb1", nullptr},
    {"find own.lb1 --name *", nullptr},
    {"memo own.lb1", nullptr},
    {"memo own.lb1 --bank PERRY", nullptr},
    {"search ETHANOL -l own.lb1 -l other.lb1", nullptr},
    {"why ETHANOL NBP -l own.lb1 -l other.lb1", nullptr},
    {"coverage ETHANOL WATER -l own.lb1 -l pairs.lb1", nullptr},
    {"coverage --model NRTL --matrix -l own.lb1 -l pairs.lb1", nullptr},
    {"eval ETHANOL VaporPressure -l own.lb1 --at 300K 400K", nullptr},
    {"plot VaporPressure ETHANOL WATER -l own.lb1 -o chart.svg", nullptr},
    {"sheet ETHANOL WATER -l own.lb1 -o sheet.html", nullptr},
    {"report -l own.lb1 -o library.html", nullptr},
    {"check own.lb1", kDamage},
    {"check other.lb1 --baseline known.json", kDamage},
    {"check other.lb1 --format sarif", kDamage},
    {"check other.lb1 --baseline known.json --format junit", kDamage},
    {"schema", nullptr},
    {"schema why", nullptr},
    {"show own.lb1 PERRY ETHANOL --json", nullptr},
    {"diff own.lb1 other.lb1", nullptr},
    {"compare own.lb1 other.lb1 --codes --missing", nullptr},
    {"export own.lb1 -o out.xml", kUnreadable},
    {"export own.lb1 -o docs/ --component-files", kUnreadable},
    {"export own.lb1 -o -", kUnreadable},
    {"export pairs.lb1 --bank NRTL --table out.csv", nullptr},
    {"template NRTL", nullptr},
    {"table ETHANOL WATER -l own.lb1 -l other.lb1 --fields TC NBP --sources", nullptr},
    {"pairs NRTL --fields bij -l pairs.lb1 --names own.lb1", nullptr},
    {"plot VaporPressure ETHANOL -l own.lb1 --points points.csv -o chart.svg", nullptr},
    {"import pairs.lb1 --table pairs.csv --bank NRTL", nullptr},
    {"export pairs.lb1 -o pairs.xml --bank NRTL", kUnreadable},
    {"dump own.lb1", nullptr},
    {"dump own.lb1 --tree PERRY", nullptr},
    {"list own.lst --build own.lb1", nullptr},
    {"list there.lst --sort nbp", nullptr},
    {"create new.lb1 --description x", nullptr},
    {"set own.lb1 --description changed", nullptr},
    {"memo own.lb1 --bank PERRY --set changed", nullptr},
    {"memo own.lb1 --file component.xml --all", nullptr},
    {"import own.lb1 component.xml --bank PERRY --replace", nullptr},
    {"import own.lb1 foreign.xml --format chemsep", nullptr},
    {"import fresh.lb1 foreign.xml --format chemsep --create", nullptr},
    {"import own.lb1 there.db --format sqlite", nullptr},
    {"import fresh.lb1 there.db --format sqlite --create", nullptr},
    {"export pairs.lb1 --sqlite out.db", nullptr},
    {"import fresh.lb1 component.xml --bank PERRY --create", nullptr},
    {"copy own.lb1 other.lb1 --replace", nullptr},
    {"copy own.lb1 fresh.lb1 --create", nullptr},
    {"copy pairs.lb1 own.lb1 --bank NRTL", nullptr},
    {"flatten own.lb1 other.lb1 pairs.lb1 -o fresh.lb1 --components ETHANOL WATER", nullptr},
    {"salvage own.lb1 fresh.lb1", nullptr},
    {"merge other.lb1 own.lb1 --list", nullptr},
    {"merge other.lb1 own.lb1 --theirs", nullptr},
    {"renumber own.lb1 WATER 21000001", nullptr},
    {"renumber pairs.lb1 10000326 21000001", nullptr},
    {"delete own.lb1 PERRY WATER", nullptr},
    {"delete own.lb1 PERRY --whole-bank", nullptr},
    {"edit own.lb1 ETHANOL TC 514K --ref 9", nullptr},
    {"edit own.lb1 PURECOMP CYCLOHEX TC 554K --from other.lb1", nullptr},
    {"set own.lb1 --description changed --in-place", nullptr},
    {"memo own.lb1 --bank PERRY --set changed --in-place", nullptr},
    {"import own.lb1 component.xml --bank PERRY --replace --in-place", nullptr},
    {"import pairs.lb1 --table pairs.csv --bank NRTL --in-place", nullptr},
    {"copy pairs.lb1 own.lb1 --bank NRTL --in-place", nullptr},
    {"renumber own.lb1 WATER 21000001 --in-place", nullptr},
    {"delete own.lb1 PERRY WATER --in-place", nullptr},
    {"edit own.lb1 ETHANOL TC 514K --ref 9 --in-place", nullptr},
    {"refs own.lb1 add 11 words --doi 10.1000/182 --replace --in-place", nullptr},
    {"fit own.lb1 points.csv --to VaporPressure --equation 1 --terms 1 --component ETHANOL",
     nullptr},
    {"points measured.xml --to VaporPressure --csv", nullptr},
    {"refs own.lb1", nullptr},
    {"refs pairs.lb1 -o refs.bib", nullptr},
    {"refs own.lb1 add 11 words --doi 10.1000/182 --replace", nullptr},
    {"refs own.lb1 import there.bib --used", nullptr},
    {"refs pairs.lb1 remove 91", nullptr},
    {"parameters pairs.lb1", nullptr},
    {"parameters pairs.lb1 set NRTL:SAMPLE bij words --unit K", nullptr},
    {"log own.lb1", nullptr},
    {"undo own.lb1", nullptr},
    {"path", nullptr},
    {"info elsewhere", nullptr},
};

Words Split(std::string const& line) {
  std::istringstream text(line);
  Words words;
  for (std::string word; text >> word;) words.push_back(word);
  return words;
}

enum class Files { kAll, kSeen };

// The files under a folder. Working copies and temporary files of a command are left out.
Contents ContentsOf(fs::path const& folder, Files which = Files::kSeen) {
  Contents contents;
  for (auto const& entry : fs::recursive_directory_iterator(folder)) {
    std::string const name = fs::relative(entry.path(), folder).string();
    bool const isHidden = name.find(".zel-") != std::string::npos || name.find("tmp/") == 0;
    if (which == Files::kSeen && (isHidden || !entry.is_regular_file())) continue;
    std::ostringstream text;
    if (entry.is_regular_file()) text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
    contents[name] = text.str();
  }
  return contents;
}

bool Has(std::string const& text, std::string const& part) {
  return text.find(part) != std::string::npos;
}

struct Kind {
  char const* name;
  Fault fault;
  int share;  // of the runs that --runs allows, one in this many
};

// Writes are the operations that can need room on the disk. "from-on": all counted operations after
// the first that fails fail, too.
constexpr auto kFromOn = true;
Kind const kKinds[] = {
    {"error", {0, EIO, false, "", false, false}, 1},
    {"error-unmapped", {0, EIO, false, "", false, true}, 1},
    {"full-disk", {0, ENOSPC, true, "", false, false}, 1},
    {"error-from-on", {0, EIO, false, "", kFromOn, false}, 3},
    {"full-disk-from-on", {0, ENOSPC, true, "", kFromOn, false}, 3},
    {"quota", {0, EDQUOT, true, "", false, false}, 6},
    {"quota-from-on", {0, EDQUOT, true, "", kFromOn, false}, 6},
    {"interrupted", {0, EINTR, false, "", false, false}, 3},
};

struct Options {
  long every = 1;
  long first = 1;
  long runs = 0;  // 0: as many as there are
  std::string only;
  std::string kind;
  std::string zel = ZEL_PROGRAM;
};

class Matrix {
 public:
  explicit Matrix(Options options) : options_(std::move(options)), next_(options_.first) {
    root_ = fs::canonical(fs::temp_directory_path()) / ("zel_faults_" + std::to_string(getpid()));
    fs::remove_all(root_);
    fs::create_directories(Lib() / "docs");
    fs::create_directories(Lib() / "tmp");
    ::setenv("TMPDIR", (Lib() / "tmp").c_str(), 1);
    fs::create_directories(Lib() / "path");
    std::ofstream(Lib() / "config") << "path = path\nunits = plant\n\n"
                                       "[unit-sets]\nplant = bar,K\n";
    ::setenv("ZEL_CONFIG", "config", 1);
    for (char const* name : {"ZEL_PATH", "ZEL_NAMES", "ZEL_UNITS"}) ::unsetenv(name);
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
    long late = 0;  // errors reported after the change was in place
    long wrong = 0;

    void Add(Counts const& other) {
      operations += other.operations;
      runs += other.runs;
      right += other.right;
      errors += other.errors;
      late += other.late;
      wrong += other.wrong;
    }
  };

  static void Print(Counts const& counts, std::string const& name) {
    std::printf("%10ld %8ld %8ld %8ld %8ld %8ld  %s\n", counts.operations, counts.runs,
                counts.right, counts.errors, counts.late, counts.wrong, name.c_str());
    std::fflush(stdout);
  }
  fs::path Lib() const { return root_ / "lib"; }
  bool MakeLibraries();
  FaultedRun Zel(std::string const& line, Fault const& fault) const;
  void PutBack() const;
  void Command(CommandLine const& line, Kind const& kind);
  void Wrong(CommandLine const& line, std::string const& why);
  // The files after another command has named the libraries that the command names.
  Contents Finished(CommandLine const& line) const;
  // The number of versions in the histories of all libraries.
  long Versions() const;
  // True if each file is the old one or the new one, and the text names those that are new.
  bool IsPartNamedIn(Contents const& files, std::string const& text) const;
  // Empty if the files that a failed change in place has left are allowed.
  std::string WrongInPlace(CommandLine const& line, FaultedRun const& run, Contents const& left);
  // Empty if the outcome is allowed.
  std::string WrongWith(CommandLine const& line, FaultedRun const& run);

  Options options_;
  fs::path root_;
  Contents before_;  // with hidden files
  Contents old_;
  FaultedRun good_;
  Contents new_;
  long versions_ = 0;  // after the command without a failure
  Counts now_;
  Counts all_;
  long next_;
};

FaultedRun Matrix::Zel(std::string const& line, Fault const& fault) const {
  Words words = Split(line);
  words.insert(words.begin(), options_.zel);
  return RunFaulted(words, Lib().string(), Lib().string(), fault);
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
      "copy perry.lb1 other.lb1 --bank PERRY --item CYCLOHEX",
      "copy crc.lb1 other.lb1 --bank CRC --item ETHANOL",
      "copy sample.lb1 pairs.lb1 --create --bank NRTL",
      "copy sample.lb1 pairs.lb1 --bank OCTANE",
      "copy perry.lb1 path/elsewhere.lb1 --create --bank PERRY --item ETHANOL",
      "refs perry.lb1 -o there.bib",
      "memo own.lb1 --set words",
      "memo own.lb1 --bank PERRY --set more",
      "export own.lb1 --component ETHANOL --bank PERRY -o component.xml",
      "list there.lst --build own.lb1",
      "export pairs.lb1 --bank NRTL --table pairs.csv",
      "export other.lb1 --sqlite there.db",
      "plot VaporPressure ETHANOL -l own.lb1 -o points.csv",
  };
  for (std::string const& line : lines) {
    FaultedRun const run = Zel(line, {});
    if (!run.isTraced) return false;
    if (run.status == 0) continue;
    std::cout << "zel " << line << "\n" << run.err;
    std::exit(1);
  }
  std::ofstream(Lib() / "foreign.xml")
      << "<compounds><compound><CompoundID value='Inventol'/><CAS value='64-17-5'/>"
         "<CriticalTemperature units='K' value='510'/><HeatOfVaporization units='J/kmol'>"
         "<eqno value='106'/><A value='5E7'/><B value='0.3'/></HeatOfVaporization>"
         "</compound></compounds>";
  fs::copy_file(fs::path(ZEL_DATA) / "../../examples/measured.xml", Lib() / "measured.xml");
  std::ofstream(Lib() / "known.json") << Zel("check other.lb1 --json", {}).out;
  for (char const* name : {"perry", "crc", "sample"}) {
    for (char const* ending : {".lb1", ".lb2"}) fs::remove(Lib() / (std::string(name) + ending));
  }
  fs::remove_all(Lib() / "tmp");
  fs::create_directories(Lib() / "tmp");
  before_ = ContentsOf(Lib(), Files::kAll);
  old_ = ContentsOf(Lib());
  return true;
}

// Nothing of an earlier run is left, so that each run of a command makes the same operations.
void Matrix::PutBack() const {
  if (ContentsOf(Lib(), Files::kAll) == before_) return;
  fs::remove_all(Lib());
  for (char const* name : {"docs", "path"}) fs::create_directories(Lib() / name);
  fs::create_directories(Lib() / "tmp");
  for (auto const& [name, bytes] : before_) {
    if (bytes.empty()) {
      fs::create_directories(Lib() / name);
    } else {
      std::ofstream(Lib() / name, std::ios::binary) << bytes;
    }
  }
}

Contents Matrix::Finished(CommandLine const& line) const {
  for (char const* name : {"own.lb1", "other.lb1", "pairs.lb1", "fresh.lb1", "new.lb1"}) {
    if (Has(line.words, name)) Zel(std::string("info ") + name, {});
  }
  return ContentsOf(Lib());
}

long Matrix::Versions() const {
  long count = 0;
  for (auto const& entry : fs::recursive_directory_iterator(Lib())) {
    std::string const path = entry.path().string();
    if (Has(path, ".zel-history/") && entry.path().filename() == "change") ++count;
  }
  return count;
}

bool Matrix::IsPartNamedIn(Contents const& files, std::string const& text) const {
  auto const isOf = [](Contents const& all, auto const& file) {
    auto const at = all.find(file.first);
    return at != all.end() && at->second == file.second;
  };
  bool const allAreThere = std::all_of(old_.begin(), old_.end(), [&](auto const& file) {
    return files.find(file.first) != files.end();
  });
  return allAreThere && std::all_of(files.begin(), files.end(), [&](auto const& file) {
           return isOf(old_, file) || (isOf(new_, file) && Has(text, file.first));
         });
}

std::string Matrix::WrongInPlace(CommandLine const& line, FaultedRun const& run,
                                 Contents const& left) {
  if (left == old_) return "";
  ++now_.late;
  Words const words = Split(line.words);
  std::string const& library = words[words[0] == "copy" ? 2 : 1];
  if (left != new_ && left.count(library + ".open") == 0) {
    // Where the source of a copy has failed, what was copied before stays, in a sound library.
    if (Has(run.err, library + ": block")) return "left a half change without a mark";
    if (Zel("check " + library + " --structure", {}).status != 0)
      return "left damage without a mark";
  }
  for (char const* later : {"info ", "check "}) {
    if (Zel(later + library, {}).status > 1) return std::string("ended a later ") + later;
  }
  // The next change verifies the library: it is made in a sound one, and a damaged one is named.
  FaultedRun const next = Zel("set " + library + " --description later --in-place", {});
  if (next.status == 0) return "";
  return next.status == 1 && !next.err.empty() ? "" : "ended a later change";
}

std::string Matrix::WrongWith(CommandLine const& line, FaultedRun const& run) {
  if (run.failed.empty()) return "ended before the operation that was to fail";
  if (run.status > 1) return "ended with status " + std::to_string(run.status);
  Contents left = ContentsOf(Lib());
  if (run.status == 0) {
    // A mark that cannot be removed stays, and costs the next opener a verification.
    for (char const* name : {"own.lb1.open", "pairs.lb1.open"}) left.erase(name);
    if (run.out != good_.out) return "printed something else, without a word";
    if (left != new_) return "wrote something else, without a word";
    return Versions() == versions_ || Has(run.err, "is not kept: ")
               ? ""
               : "did not keep what it replaced, without a word";
  }
  bool const isFinding = line.finding != nullptr && Has(run.out, line.finding);
  if (run.err.empty() && !isFinding) return "failed without a word";
  if (Has(line.words, "--in-place")) return WrongInPlace(line, run, left);
  if (new_ == old_) {
    // What could not be moved back either is moved back by the next command.
    bool const isCutOff = Has(run.err, "cannot be moved back");
    return (isCutOff ? Finished(line) : left) == old_ ? "" : "changed something";
  }
  Contents const finished = Finished(line);
  if (finished == old_) return "";
  if (finished != left) return "failed, and a later command went on with it";
  // Of several files, those that are new and cannot be moved back are named.
  if (Has(run.err, "; these are already new: ") && IsPartNamedIn(finished, run.err)) return "";
  // What could not be read was reported, and everything else was done.
  if (Has(run.err, "; left out\n")) return "";
  ++now_.late;
  if (finished != new_) return "failed, and left neither the old nor the new";
  bool const isTold = isFinding || Has(run.err, "standard output cannot be written");
  return isTold ? "" : "failed, and does not say that the change counts";
}

void Matrix::Wrong(CommandLine const& line, std::string const& why) {
  ++now_.wrong;
  std::cout << "zel " << line.words << ": " << why << "\n";
}

// All operations of one kind of a command.
void Matrix::Command(CommandLine const& line, Kind const& kind) {
  Fault fault = kind.fault;
  PutBack();
  long const counted = Zel(line.words, fault).operations;
  PutBack();
  good_ = Zel(line.words, fault);
  new_ = ContentsOf(Lib());
  versions_ = Versions();
  if (good_.status != 0) return Wrong(line, good_.err);
  if (line.finding != nullptr && Has(good_.out, line.finding)) return Wrong(line, good_.out);
  if (good_.operations != counted) {
    return Wrong(line,
                 std::to_string(counted) + " operations, then " + std::to_string(good_.operations));
  }
  now_.operations += good_.operations;
  // Different operations for each command, so that few runs cover many places.
  bool const isSpread = options_.runs > 0;
  long const runs = std::max(1L, options_.runs / kind.share);
  long const step = isSpread ? std::max(1L, (counted + runs - 1) / runs) : options_.every;
  long at = isSpread ? 1 + 37 * next_++ % step : next_;
  for (; at <= counted; at += step) {
    PutBack();
    fault.operation = at;
    FaultedRun const run = Zel(line.words, fault);
    ++now_.runs;
    std::string const wrong = WrongWith(line, run);
    if (wrong.empty()) {
      ++(run.status == 0 ? now_.right : now_.errors);
      continue;
    }
    Wrong(line, "operation " + std::to_string(at) + " of " + std::to_string(counted) + ", " +
                    run.failed + ", " + kind.name + ": " + wrong + "\n" + run.err);
  }
  if (!isSpread) next_ = at - counted;
}

int Matrix::Run() {
  if (!MakeLibraries()) {
    std::cout << "this machine allows no tracing\n";
    return kSkipped;
  }
  std::printf("%10s %8s %8s %8s %8s %8s  command\n", "operations", "runs", "right", "errors",
              "late", "wrong");
  for (CommandLine const& line : kCommands) {
    if (!Has(line.words, options_.only)) continue;
    now_ = {};
    for (Kind const& kind : kKinds) {
      if (Has(kind.name, options_.kind)) Command(line, kind);
    }
    Print(now_, line.words);
    all_.Add(now_);
  }
  Print(all_, "all");
  return all_.wrong == 0 && all_.errors > 0 && all_.right > 0 ? 0 : 1;
}

}  // namespace
}  // namespace zel::test

int main(int count, char** words) {
  if (ZEL_SANITIZED) {
    std::cout << "sanitizers make operations of their own\n";
    return zel::test::kSkipped;
  }
  zel::test::Options options;
  for (int i = 1; i + 1 < count; i += 2) {
    std::string const option = words[i];
    if (option == "--every") options.every = std::max(1L, std::atol(words[i + 1]));
    if (option == "--first") options.first = std::max(1L, std::atol(words[i + 1]));
    if (option == "--runs") options.runs = std::max(1L, std::atol(words[i + 1]));
    if (option == "--only") options.only = words[i + 1];
    if (option == "--kind") options.kind = words[i + 1];
    if (option == "--zel") options.zel = words[i + 1];
  }
  return zel::test::Matrix(options).Run();
}
