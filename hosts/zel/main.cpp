// zel: component libraries from the command line, for the people who keep them.
#include <zelaccess/BlockError.h>

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <new>
#include <string>
#include <system_error>

#include "commands/command.h"
#include "desk/words/failure.h"
#include "output/progress.h"
#include "output/system.h"

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;
constexpr char kOutOfMemory[] = "out of memory";

// Writes one line on standard error and, for a command with --json that has printed nothing yet, an
// object on standard output.
int Fail(zelhost::Session const& session, int status, zelhost::Problem problem) {
  // Bytes of a damaged library must not break the line.
  std::string& text = problem.message;
  std::replace_if(
      text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }, '?');
  if (session.isJson && !session.hasReported) {
    try {
      std::fputs(zelhost::ErrorJson(problem, session.commandName, status).c_str(), stdout);
    } catch (std::bad_alloc const&) {
      // The line on standard error already reports it.
    }
  }
  std::fflush(stdout);
  std::fprintf(stderr, "zel: %s\n", text.c_str());
  return status;
}

int FailWithoutMemory(zelhost::Session const& session) {
  return Fail(session, kFailed, {"OutOfMemory", kOutOfMemory, ""});
}

// The message of a block error, with the library's path as the user gave it.
std::string MessageOf(zelhost::Session const& session, zel::BlockError const& error) {
  std::string text = session.ShownPath(error.File()) + ": ";
  if (error.Address() != zel::kNoBlockAddress) {
    text += "block " + std::to_string(error.Address()) + " ";
  }
  return text + error.Reason() + ". `zel check --structure` reports what is damaged";
}

// Exceptions that no handler catches end here: before main, in a thread, in a destructor. A change
// in progress is then interrupted as if the program had been killed.
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

// Runs before all objects of this program and its parts that are constructed before main.
[[gnu::constructor(101)]] void CatchTheRest() { std::set_terminate(EndByException); }

// Ends like any program that writes to a closed pipe, but only when no work is left half done.
int EndByClosedPipe() {
  zelhost::EndAsByClosedPipe();
  return kFailed;
}

// Ends like any program that Ctrl-C ends, for the shell to see.
int EndByInterrupt(zelhost::Session const& session, std::string const& text) {
  Fail(session, kFailed, {"Cancelled", text, ""});
  zelhost::EndAsByInterrupt();
  return kFailed;
}

bool hasReturned = false;

// The library ends the program if it cannot start, and says why on standard output.
void TellOfEnd() {
  if (hasReturned) return;
  std::fputs("zel: the library cannot start; its table of units needs some space in TMPDIR\n",
             stderr);
}

int Run(int count, char** words) {
  zelhost::PrepareStreams();
  zelhost::Session session;  // outlives what is open when an error is reported
  try {
    zelhost::CommandLine line(session);
    zelhost::AddLibraryCommands(line);
    zelhost::AddBankCommands(line);
    zelhost::AddShowCommands(line);
    zelhost::AddCurveCommands(line);
    zelhost::AddPlotCommand(line);
    zelhost::AddPageCommands(line);
    zelhost::AddSearchCommands(line);
    zelhost::AddCoverageCommand(line);
    zelhost::AddDocumentCommands(line);
    zelhost::AddListCommand(line);
    zelhost::AddItemCommands(line);
    zelhost::AddEditCommand(line);
    zelhost::AddFitCommands(line);
    zelhost::AddHistoryCommands(line);
    zelhost::AddDiffCommand(line);
    zelhost::AddCheckCommand(line);
    zelhost::AddTableCommands(line);
    zelhost::AddCompareCommand(line);
    zelhost::AddCombineCommands(line);
    zelhost::AddPathCommand(line);
    zelhost::AddNoteCommands(line);
    zelhost::AddSalvageCommand(line);
    zelhost::AddSchemaCommand(line);
    char** const texts = zelhost::CommandWords(count, words);
    return line.Run(count, texts);
  } catch (zelhost::PipeClosed const&) {
    return EndByClosedPipe();
  } catch (zelhost::Cancelled const& cancelled) {
    return EndByInterrupt(session, cancelled.what());
  } catch (zelhost::WrongUsage const& error) {
    return Fail(session, kWrongUsage, zelhost::ProblemOf(error));
  } catch (zel::desk::ConflictingIdentity const& error) {
    zelhost::Problem problem = zelhost::ProblemOf(error);
    problem.message += "; --accept-identity merges them anyway";
    return Fail(session, kFailed, problem);
  } catch (std::filesystem::filesystem_error const& error) {
    if (error.code() == std::errc::not_enough_memory) return FailWithoutMemory(session);
    std::string const path = error.path1().string();
    return Fail(
        session, kFailed,
        {"FileSystem", path.empty() ? "a file name is empty" : path + ": " + error.code().message(),
         path});
  } catch (std::bad_alloc const&) {
    return FailWithoutMemory(session);
  } catch (std::exception const& error) {
    return Fail(session, kFailed, zelhost::ProblemOf(error));
  } catch (unsigned long const address) {
    zel::BlockError const error(address);
    return Fail(session, kFailed,
                {"DamagedLibrary", MessageOf(session, error), session.ShownPath(error.File())});
  }
}

}  // namespace

int main(int count, char** words) {
  std::atexit(TellOfEnd);
  int const status = Run(count, words);
  hasReturned = true;
  return status;
}
