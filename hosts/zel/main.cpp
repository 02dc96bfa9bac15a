// zel: component libraries from the command line, for the people who keep them.
#include <zelaccess/BlockError.h>

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <new>
#include <sstream>
#include <string>
#include <system_error>

#include "command.h"
#include "failure.h"
#include "library.h"
#include "manual.h"

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;
constexpr char kOutOfMemory[] = "out of memory";

int Fail(int status, std::string text) {
  // Bytes of a damaged library do not break the line.
  std::replace_if(
      text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }, '?');
  std::fflush(stdout);
  std::fprintf(stderr, "zel: %s\n", text.c_str());
  return status;
}

// What a block error says, with the library's path as the user gave it.
std::string MessageOf(zel::BlockError const& error) {
  std::string text = zelhost::ShownPath(error.File()) + ": ";
  if (error.Address() != zel::kNoBlockAddress) {
    text += "block " + std::to_string(error.Address()) + " ";
  }
  return text + error.Reason() + ". `zel check --structure` tells what is damaged";
}

// What is printed in the place of a command's work.
struct Text {
  std::string text;
};

// What is wrong with the command line, and whose help tells more.
std::string Complaint(CLI::App const& app, CLI::ParseError const& error, int count, char** words) {
  char const* const first = count > 1 ? words[1] : "";
  if (*first != '-' && *first != '\0') {
    bool const isCommand =
        !app.get_subcommands([&](CLI::App const* command) { return command->get_name() == first; })
             .empty();
    if (!isCommand) return std::string(first) + " is no command; see zel --help";
    return std::string(error.what()) + "; see zel " + first + " --help";
  }
  return std::string(error.what()) + "; see zel --help";
}

int Parsed(CLI::App& app, int count, char** words) {
  try {
    app.parse(count, words);
    return zelhost::ExitStatus();
  } catch (CLI::Success const& wish) {  // --help or --version
    std::ostringstream text;
    app.exit(wish, text, text);
    zelhost::Write(text.str());
    return 0;
  } catch (Text const& wish) {
    zelhost::Write(wish.text);
    return 0;
  } catch (CLI::ParseError const& error) {
    return Fail(kWrongUsage, Complaint(app, error, count, words));
  }
}

// What no handler reaches ends here: before main has begun, in a thread, in a destructor. A change
// that is under way is then cut off like one that was killed.
[[noreturn]] void EndByException() {
  try {
    if (std::exception_ptr const error = std::current_exception()) std::rethrow_exception(error);
  } catch (std::bad_alloc const&) {
    constexpr char kLine[] = "zel: out of memory\n";
    static_cast<void>(::write(STDERR_FILENO, kLine, sizeof(kLine) - 1) > 0);
    ::_exit(kFailed);
  } catch (...) {
    std::abort();
  }
  std::abort();
}

// Before all objects of this program and its parts that are made ahead of main.
[[gnu::constructor(101)]] void CatchTheRest() { std::set_terminate(EndByException); }

// Ends as a program does that writes to a closed pipe, but only now that nothing is left half done.
int EndByClosedPipe() {
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
  return kFailed;
}

bool hasReturned = false;

// The library ends a program in which it cannot start, and says why on standard output.
void TellOfEnd() {
  if (hasReturned) return;
  std::fputs("zel: the library cannot start; its table of units needs some room in TMPDIR\n",
             stderr);
}

int Run(int count, char** words) {
  // A pipe that nobody reads and a file that reached its largest size are errors of the call.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  try {
    CLI::App app("zel: looks into component libraries of thermophysical data and keeps them",
                 "zel");
    app.require_subcommand(1);
    app.set_version_flag("--version", "zel " ZEL_VERSION);
    app.footer(
        "A component is named by its number, its ID or its CAS number, a bank by its\n"
        "name or as TYPE:NAME. zel COMMAND --help tells more, with an example.");
    constexpr std::size_t kWordsColumn = 26;
    app.get_formatter()->column_width(kWordsColumn);
    app.fallthrough();
    app.add_option_function<std::string>(
           "--names", [](std::string const& path) { zelhost::NameNames(path); },
           "a library for IDs that the one at hand does not know")
        ->type_name("LIBRARY")
        ->envname("ZEL_NAMES")
        ->trigger_on_parse();
    zelhost::AddLibraryCommands(app);
    zelhost::AddBankCommands(app);
    zelhost::AddShowCommands(app);
    zelhost::AddCurveCommands(app);
    zelhost::AddSearchCommands(app);
    zelhost::AddDocumentCommands(app);
    zelhost::AddListCommand(app);
    zelhost::AddItemCommands(app);
    zelhost::AddDiffCommand(app);
    zelhost::AddCheckCommand(app);
    // For the build, which installs both.
    app.add_flag_callback("--man", [&] { throw Text{zelhost::ManualPage(app)}; })->group("");
    app.add_flag_callback("--bash-completion", [&] { throw Text{zelhost::BashCompletion(app)}; })
        ->group("");
    return Parsed(app, count, words);
  } catch (zelhost::PipeClosed const&) {
    return EndByClosedPipe();
  } catch (zelhost::WrongUsage const& error) {
    return Fail(kWrongUsage, error.what());
  } catch (std::filesystem::filesystem_error const& error) {
    if (error.code() == std::errc::not_enough_memory) return Fail(kFailed, kOutOfMemory);
    std::string const path = error.path1().string();
    return Fail(kFailed,
                path.empty() ? "a file name is empty" : path + ": " + error.code().message());
  } catch (std::bad_alloc const&) {
    return Fail(kFailed, kOutOfMemory);
  } catch (std::exception const& error) {
    return Fail(kFailed, error.what());
  } catch (unsigned long const address) {
    return Fail(kFailed, MessageOf(zel::BlockError(address)));
  }
}

}  // namespace

int main(int count, char** words) {
  std::atexit(TellOfEnd);
  int const status = Run(count, words);
  hasReturned = true;
  return status;
}
