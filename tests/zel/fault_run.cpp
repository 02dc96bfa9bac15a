#include "tests/zel/fault_run.h"

#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace zel::test {
namespace {

#if defined(__x86_64__)

enum class Names { kDescriptor, kPath, kPathAt };

struct Call {
  long number;
  char const* name;
  Names names;
  int argument;  // position of the descriptor or the path
  bool needsRoom;
};

// Operations on files. A close is not among them: what it reports happened before.
constexpr Call kCalls[] = {
    {SYS_read, "read", Names::kDescriptor, 0, false},
    {SYS_pread64, "pread", Names::kDescriptor, 0, false},
    {SYS_readv, "readv", Names::kDescriptor, 0, false},
    {SYS_write, "write", Names::kDescriptor, 0, true},
    {SYS_pwrite64, "pwrite", Names::kDescriptor, 0, true},
    {SYS_writev, "writev", Names::kDescriptor, 0, true},
    {SYS_sendfile, "sendfile", Names::kDescriptor, 0, true},
    {SYS_copy_file_range, "copy_file_range", Names::kDescriptor, 2, true},
    {SYS_fsync, "fsync", Names::kDescriptor, 0, true},
    {SYS_fdatasync, "fdatasync", Names::kDescriptor, 0, true},
    {SYS_ftruncate, "ftruncate", Names::kDescriptor, 0, true},
    {SYS_fallocate, "fallocate", Names::kDescriptor, 0, true},
    {SYS_mmap, "mmap", Names::kDescriptor, 4, false},
    {SYS_fstat, "fstat", Names::kDescriptor, 0, false},
    {SYS_lseek, "lseek", Names::kDescriptor, 0, false},
    {SYS_fcntl, "fcntl", Names::kDescriptor, 0, false},
    {SYS_flock, "flock", Names::kDescriptor, 0, false},
    {SYS_getdents64, "getdents", Names::kDescriptor, 0, false},
    {SYS_open, "open", Names::kPath, 0, false},
    {SYS_openat, "openat", Names::kPathAt, 1, true},
    {SYS_stat, "stat", Names::kPath, 0, false},
    {SYS_lstat, "lstat", Names::kPath, 0, false},
    {SYS_newfstatat, "fstatat", Names::kPathAt, 1, false},
    {SYS_access, "access", Names::kPath, 0, false},
    {SYS_rename, "rename", Names::kPath, 0, true},
    {SYS_renameat, "renameat", Names::kPathAt, 1, true},
    {SYS_renameat2, "renameat2", Names::kPathAt, 1, true},
    {SYS_unlink, "unlink", Names::kPath, 0, false},
    {SYS_unlinkat, "unlinkat", Names::kPathAt, 1, false},
    {SYS_rmdir, "rmdir", Names::kPath, 0, false},
    {SYS_mkdir, "mkdir", Names::kPath, 0, true},
    {SYS_symlink, "symlink", Names::kPath, 1, true},
    {SYS_link, "link", Names::kPath, 1, true},
    {SYS_chmod, "chmod", Names::kPath, 0, false},
    {SYS_chown, "chown", Names::kPath, 0, false},
};

using Registers = user_regs_struct;

unsigned long long ArgumentOf(Registers const& r, int position) {
  std::array<unsigned long long, 6> const all = {r.rdi, r.rsi, r.rdx, r.r10, r.r8, r.r9};
  return all[static_cast<std::size_t>(position)];
}

// Every call in the table stops for the tracer, all others continue.
bool InstallFilter() {
  std::vector<sock_filter> filter = {
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
  for (Call const& call : kCalls) {
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(call.number), 0, 1));
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRACE));
  }
  filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  sock_fprog const program{static_cast<unsigned short>(filter.size()), filter.data()};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

std::string LinkAt(std::string const& path) {
  std::array<char, PATH_MAX> target{};
  ssize_t const n = ::readlink(path.c_str(), target.data(), target.size());
  return n <= 0 ? std::string() : std::string(target.data(), static_cast<std::size_t>(n));
}

std::string TextIn(pid_t child, unsigned long long address) {
  std::string text;
  while (text.size() < PATH_MAX) {
    errno = 0;
    long const word = ::ptrace(PTRACE_PEEKDATA, child, address + text.size(), nullptr);
    if (errno != 0) break;
    auto const* const bytes = reinterpret_cast<char const*>(&word);
    char const* const end = std::find(bytes, bytes + sizeof word, '\0');
    text.append(bytes, end);
    if (end != bytes + sizeof word) break;
  }
  return text;
}

class Tracer {
 public:
  Tracer(pid_t child, std::string watched, Fault const& fault, FaultedRun& run)
      : child_(child), watched_(std::move(watched)), fault_(fault), run_(run) {}

  void Run() {
    ::ptrace(PTRACE_SETOPTIONS, child_, nullptr, PTRACE_O_TRACESECCOMP | PTRACE_O_EXITKILL);
    ::ptrace(PTRACE_CONT, child_, nullptr, nullptr);
    int status = 0;
    while (::waitpid(child_, &status, 0) == child_ && WIFSTOPPED(status)) {
      long signal = WSTOPSIG(status);
      if (status >> 8 == (SIGTRAP | PTRACE_EVENT_SECCOMP << 8)) Decide();
      if (signal == SIGTRAP || signal == SIGSTOP) signal = 0;
      ::ptrace(PTRACE_CONT, child_, nullptr, signal);
    }
    run_.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }

 private:
  bool IsWatched(Call const& call, Registers const& registers) const {
    unsigned long long const argument = ArgumentOf(registers, call.argument);
    std::string const process = "/proc/" + std::to_string(child_);
    std::string path;
    if (call.names == Names::kDescriptor) {
      auto const descriptor = static_cast<int>(argument);
      path = LinkAt(process + "/fd/" + std::to_string(descriptor));
    } else {
      path = TextIn(child_, argument);
      bool const isRelative = path.empty() || path.front() != '/';
      if (isRelative && call.names == Names::kPathAt && static_cast<int>(registers.rdi) >= 0) {
        path = LinkAt(process + "/fd/" + std::to_string(static_cast<int>(registers.rdi)));
      } else if (isRelative) {
        path = LinkAt(process + "/cwd") + "/" + path;
      }
    }
    return path.compare(0, watched_.size(), watched_) == 0;
  }

  void Decide() {
    Registers registers{};
    ::ptrace(PTRACE_GETREGS, child_, nullptr, &registers);
    auto const call = std::find_if(std::begin(kCalls), std::end(kCalls), [&](Call const& one) {
      return one.number == static_cast<long>(registers.orig_rax);
    });
    if (call == std::end(kCalls) || !IsWatched(*call, registers)) return;
    if (call->number == SYS_mmap && fault_.refuseMappings) {
      Refuse(registers, ENODEV);
      return;
    }
    if (fault_.writesOnly && !call->needsRoom) return;
    if (std::string(call->name).compare(0, fault_.calls.size(), fault_.calls) != 0) return;
    long const number = ++run_.operations;
    bool const fails = fault_.andAllAfter ? number >= fault_.operation : number == fault_.operation;
    if (fault_.operation == 0 || !fails) return;
    run_.failed = call->name;
    Refuse(registers, fault_.error);
  }

  void Refuse(Registers& registers, int error) const {
    registers.orig_rax = ~0ULL;  // the call is skipped
    registers.rax = static_cast<unsigned long long>(-static_cast<long long>(error));
    ::ptrace(PTRACE_SETREGS, child_, nullptr, &registers);
  }

  pid_t child_;
  std::string watched_;
  Fault fault_;
  FaultedRun& run_;
};

[[noreturn]] void BeProgram(std::vector<std::string>& words, std::string const& folder,
                            std::string const& out, std::string const& err) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  ::setenv("ASAN_OPTIONS", "detect_leaks=0", 1);  // which cannot be done under a tracer
  int const input = ::open("/dev/null", O_RDONLY);
  int const output = ::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  int const errors = ::open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (::dup2(input, 0) < 0 || ::dup2(output, 1) < 0 || ::dup2(errors, 2) < 0 ||
      ::chdir(folder.c_str()) != 0 || ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
    ::_exit(77);
  }
  ::raise(SIGSTOP);
  if (!InstallFilter()) ::_exit(77);
  ::execv(arguments[0], arguments.data());
  ::_exit(77);
}

std::string TextOf(std::string const& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

#endif

}  // namespace

#if defined(__x86_64__)

FaultedRun RunFaulted(std::vector<std::string> words, std::string const& folder,
                      std::string const& watched, Fault const& fault) {
  FaultedRun run;
  std::string const out = watched + ".out";  // begins like the watched path
  std::string const err = watched.substr(0, watched.rfind('/') + 1) + "err.txt";
  pid_t const child = ::fork();
  if (child == 0) BeProgram(words, folder, out, err);
  int status = 0;
  ::waitpid(child, &status, 0);  // it is stopped at its start
  run.isTraced = WIFSTOPPED(status);
  if (!run.isTraced) return run;
  Tracer(child, watched, fault, run).Run();
  run.isTraced = run.status != 77;
  run.out = TextOf(out);
  run.err = TextOf(err);
  return run;
}

#else  // other processors have other names for registers

FaultedRun RunFaulted(std::vector<std::string>, std::string const&, std::string const&,
                      Fault const&) {
  FaultedRun run;
  run.isTraced = false;
  return run;
}

#endif

}  // namespace zel::test
