#include "commands/shared_options.h"

#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <set>

#include "desk/words/failure.h"

namespace zelhost {

void AddReplaceOptions(Command& command, ChangeOptions& options, std::string const& passwordHelp) {
  options.admitsReaders = true;
  command.Secret("--password", options.password, passwordHelp, "TEXT")
      .Option("--keep", options.keep, "versions to keep for undo; 10 by default, 0 for none", "N")
      .Flag("--dry-run", options.dryRun, "report what would be done, and change nothing");
}

void TakePasswordOfEnvironment(ChangeOptions& options) {
  if (char const* const password = std::getenv("ZEL_PASSWORD")) {
    options.password = password;
    options.passwordIsGeneral = true;
  }
}

void AddChangeOptions(Command& command, ChangeOptions& options) {
  TakePasswordOfEnvironment(options);
  AddReplaceOptions(command, options, "of a protected library");
  command.Flag("--in-place", options.inPlace,
               "no copy: faster, but a failure leaves it half changed");
}

void AddModeOption(Command& command, std::string& mode) {
  command.Option("--mode", mode, "of new files, e.g. 0664; else as libraries next to it", "OCTAL");
}

std::optional<zel::desk::FileMode> ModeOf(std::string const& text) {
  if (text.empty()) return {};
  constexpr int kOctal = 8;
  using zel::desk::FileMode;
  constexpr FileMode kOwner = 0600;  // without these its own maker could not change the library
  constexpr FileMode kMost = 0777;
  FileMode mode = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), mode, kOctal);
  if (error != std::errc() || end != text.data() + text.size() || mode > kMost) {
    throw WrongUsage("--mode must be an octal number from 0600 to 0777, not " + text);
  }
  if ((mode & kOwner) != kOwner) {
    throw WrongUsage("--mode " + text + " does not let the owner read and write; 0600 does");
  }
  return mode;
}

void CheckModeFor(std::string const& library, std::string const& mode) {
  if (!ModeOf(mode) || !std::filesystem::exists(library)) return;
  throw WrongUsage("--mode is for a new library; " + library +
                   " exists and keeps its mode; use chmod to change it");
}

void AddSourceOptions(Command& command, SourceOptions& options) {
  command
      .Sources(options.libraries, "LIBRARY[:BANK]; once for each, the preferred one first",
               "SOURCE")
      .Flag("--accept-identity", options.acceptIdentity,
            "merge sources that mean different substances");
}

void AddWarnings(PreferenceList const& list, Report& report) {
  if (list.Accepted().empty()) return;
  std::vector<std::string> words;
  for (IdentityConflict const& conflict : list.Accepted()) words.push_back(conflict.word);
  report.Warning("identity warning", "the sources contradict each other about the identity of " +
                                         CellText(Texts(words)));
  report.Add(IdentityTable(list.Accepted()));
}

void AddCitationConflicts(Session const& session, std::vector<CitationConflict> const& conflicts,
                          Report& report) {
  if (conflicts.empty()) return;
  std::set<std::uint32_t> codes;
  for (CitationConflict const& one : conflicts) codes.insert(one.kept.code);
  std::string const text =
      (codes.size() == 1 ? "1 code is" : std::to_string(codes.size()) + " codes are") +
      " cited in different ways";
  if (session.isStrict) {
    CitationConflict const& first = conflicts.front();
    throw Failure(text + "; code " + std::to_string(first.kept.code) + " of " + first.bank +
                  " as \"" + first.kept.text + "\" and, in " + first.from + ", as \"" +
                  first.other.text + "\"");
  }
  report.Warning("citation warning", text + "; give the data of one source another code");
  report.Add(ConflictTable(conflicts));
}

void AddFindings(std::string const& name, std::vector<Finding> const& findings, Report& report) {
  report.Add(FindingTable(name, findings),
             std::set<std::string>{"library", "place", "bank", "item", "datum", "value", "unit",
                                   "expected from", "expected to", "temperature", "strength",
                                   "fingerprint", "evidence", "text"});
}

void AddDataWarning(std::vector<Finding> const& findings, bool isStrict, Report& report) {
  if (findings.empty()) return;
  std::size_t const others = findings.size() - 1;
  if (isStrict) {
    Finding const& first = findings.front();
    throw Failure(LineOf(first) + (others == 0 ? "" : "; and " + std::to_string(others) + " more"));
  }
  report.Warning("data warning",
                 "what was written is not plausible: " + std::to_string(findings.size()) +
                     (others == 0 ? " finding" : " findings") + ", see below");
  AddFindings("implausible", findings, report);
}

void NoteMark(Session& session, Library const& library, std::string const& where,
              Library const* to) {
  if (!library.File().IsPasswordLocked() || (to != nullptr && to->File().IsPasswordLocked())) {
    return;
  }
  session.Note("warning: " + library.Path() +
               ": its data are marked as protected (password level 2); " + where +
               " does not carry the mark");
}

void PutInPlaceAfter(Report& report, LibraryChange change) {
  if (change.IsDryRun()) return report.Warning("dry run", "nothing was changed");
  auto const held = std::make_shared<LibraryChange>(std::move(change));
  report.SetChange([held] { held->PutInPlace(); });
}

LibraryChange ExistingLibrary(Session& session, std::string const& path,
                              ChangeOptions const& options, std::string const& advice) {
  try {
    return {session, path, options};
  } catch (Error const& failure) {
    if (std::filesystem::exists(path)) throw;
    throw Failure(failure.what() + std::string("; ") + advice);
  }
}

LibraryChange ExistingOrNewLibrary(Session& session, std::string const& path, bool create,
                                   std::string const& mode, ChangeOptions const& options) {
  CheckModeFor(path, mode);
  if (create && !IsThereOrBeingChanged(path)) {
    try {
      return LibraryChange::New(session, path, {zel::libKind11, false, ModeOf(mode)}, options);
    } catch (Error const&) {
      if (!std::filesystem::exists(path)) throw;
      CheckModeFor(path, mode);  // another program has just made it
    }
  }
  return ExistingLibrary(session, path, options, "--create makes it");
}

void AddStrict(Command& command) {
  command.Flag("--strict", command.InSession().isStrict,
               "stop at the first item that cannot be read");
}

}  // namespace zelhost
