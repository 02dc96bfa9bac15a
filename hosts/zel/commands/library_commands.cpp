// create, info, memo, set
#include <filesystem>
#include <iterator>
#include <optional>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/files/input_file.h"
#include "desk/notes/memo.h"
#include "desk/notes/note_lines.h"
#include "desk/open/library.h"
#include "desk/open/storable.h"
#include "desk/open/unfinished_change.h"
#include "desk/words/failure.h"

namespace zelhost {
namespace {

struct Options {
  std::string path;
  std::string bank;
  std::optional<std::string> text;
  std::string file;
  std::optional<std::string> description;
  std::optional<std::string> version;
  std::string newPassword;
  std::string mode;
  int kind = zel::libKind11;
  int level = 1;
  bool force = false;
  bool clear = false;
  bool all = false;
  bool clearPassword = false;
  ChangeOptions change;
};

// Null leaves the text as it is.
char const* TextOrNull(std::optional<std::string> const& text) {
  return text ? text->c_str() : nullptr;
}

void CheckLength(std::optional<std::string> const& text, std::size_t most, char const* what) {
  if (!text || text->size() <= most) return;
  throw Failure(what + (" has " + std::to_string(text->size())) + " characters; at most " +
                std::to_string(most) + " can be stored");
}

void CheckTexts(Options const& o) {
  CheckLetters(o.description.value_or(""), "the description");
  CheckLetters(o.version.value_or(""), "the version");
  CheckLetters(o.newPassword, "the password");
  CheckDocument(o.description.value_or(""), DocumentPlace::kElement, "the description");
  CheckDocument(o.version.value_or(""), DocumentPlace::kElement, "the version");
  constexpr std::size_t kDescription = 100;
  constexpr std::size_t kVersion = 12;
  CheckLength(o.description, kDescription, "the description");
  CheckLength(o.version, kVersion, "the version");
  CheckLength(o.newPassword, kDescription, "the password");
}

Report Create(Session& session, Options const& o) {
  CheckTexts(o);
  if (o.kind < zel::libKind11 || o.kind > zel::libKind13) {
    throw WrongUsage("a library's kind is 11, 12 or 13");
  }
  LibraryChange change = LibraryChange::New(
      session, o.path, {static_cast<zel::libTypes>(o.kind), o.force, ModeOf(o.mode)}, o.change);
  change.Open().File().SetDescriptionAndVersion(TextOrNull(o.description), TextOrNull(o.version));
  Report report;
  report.Fact("created", change.IsDryRun() ? "would create" : "", o.path);
  PutInPlaceAfter(report, std::move(change));
  return report;
}

// In text, notes are only counted; `zel refs`, `zel parameters` and `zel memo` show them.
void AddMemo(std::string const& memo, Form form, Report& report) {
  NoteLines const lines(memo);
  report.Fact("memo", Text(form == Form::kText ? lines.WithoutNotes() : memo));
  if (lines.Count() > 0) report.Fact("notes", static_cast<std::int64_t>(lines.Count()));
}

void AddFiles(Report& report, Library const& library) {
  Table& table = report.Begin(
      "files",
      {{"file", ""}, {"block bytes", ""}, {"blocks", ""}, {"free blocks", ""}, {"free runs", ""}});
  constexpr std::int32_t kFiles = 9;
  for (std::int32_t file = 1; file <= kFiles; ++file) {
    zel::ZelFileRoom room;
    if (!zel::GetFileRoom(&library.File(), file, room)) continue;
    table.Add(".lb" + std::to_string(file), std::int64_t{room.blockBytes}, room.blocks,
              room.freeBlocks, std::int64_t{room.freeRuns});
  }
}

Report Info(Session& session, Options const& o) {
  Library const library = OpenFinished(session, o.path);
  char description[101] = {};
  char version[13] = {};
  library.File().GetDescriptionAndVersion(description, version);
  zel::libTypes type = zel::libKind11;
  zel::accModes mode = zel::accRead;
  library.File().GetLibInfo(type, mode);
  std::int32_t level = 0;
  char password[101] = {};
  library.File().GetPassword(level, password);
  Report report;
  report.Fact("library", o.path);
  report.Fact("description", Text(description));
  report.Fact("version", Text(version));
  report.Fact("kind", std::int64_t{type});
  report.Fact("password level", std::int64_t{level});
  AddMemo(MemoIn(library, std::nullopt), session.form, report);
  AddFiles(report, library);
  Table& table = report.Begin("banks", {{"type", ""}, {"name", ""}, {"format", ""}, {"items", ""}});
  for (BankName const& bank : library.Banks()) {
    std::int64_t count = 0;
    std::int32_t key[10];
    library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
    while (library.Maint().NextItemKey(key)) ++count;
    library.Maint().EndItemWalk();
    std::int32_t const format = library.Maint().GetBankFormat(bank.type.c_str(), bank.name.c_str());
    table.Add(bank.type, bank.name, std::int64_t{format == 0 ? 1 : format}, count);
  }
  return report;
}

// An empty file is accepted; a file that is not text is an error.
std::string FileText(std::string const& path) {
  std::ifstream file = OpenInput(path);
  if (!file || std::filesystem::is_directory(path)) throw Failure(path + ": cannot be read");
  std::string text(std::istreambuf_iterator<char>(file), {});
  if (text.find('\0') != std::string::npos) throw Failure(path + ": is not a text file");
  return text;
}

Report ShowMemo(Session& session, Options const& o) {
  Library const library = OpenFinished(session, o.path);
  std::optional<BankName> bank;
  if (!o.bank.empty()) bank = library.Bank(o.bank);
  Report report;
  report.Fact("memo", Text(MemoIn(library, bank)));
  return report;
}

// Notes of the old memo that the new text does not have are kept, unless all of it is replaced.
Report SetMemo(Session& session, Options const& o) {
  bool const isWhole = o.all || o.clear;
  std::string const text = o.clear ? "" : o.text ? *o.text : FileText(o.file);
  if (text.size() > kLongestMemo) {
    throw Failure("the memo has " + std::to_string(text.size()) + " characters; at most " +
                  std::to_string(kLongestMemo) + " can be stored");
  }
  CheckDocument(text, DocumentPlace::kMemo, "the memo");
  LibraryChange change(session, o.path, o.change);
  Library const& library = change.Open();
  std::optional<BankName> bank;
  if (!o.bank.empty()) bank = library.Bank(o.bank);
  NoteLines lines(MemoIn(library, bank));
  std::size_t const others = lines.ReplaceText(text);
  std::string const memo = isWhole ? text : lines.ToText();
  if (memo.size() > kLongestMemo) {
    throw Failure("the text has " + std::to_string(text.size()) + " characters, and the " +
                  std::to_string(others) + " notes that are kept need " +
                  std::to_string(memo.size() - text.size()) + "; a memo has at most " +
                  std::to_string(kLongestMemo) + ". --all replaces the notes, too");
  }
  SetMemoIn(library, bank, memo);
  Report report;
  report.Fact("memo", Text(session.form == Form::kText ? text : memo));
  if (others > 0) {
    report.Fact(isWhole ? "notes removed" : "notes kept", static_cast<std::int64_t>(others));
  }
  PutInPlaceAfter(report, std::move(change));
  return report;
}

Report Memo(Session& session, Options const& o) {
  int const given = (o.clear ? 1 : 0) + (o.text ? 1 : 0) + (o.file.empty() ? 0 : 1);
  if (given > 1) throw WrongUsage("--set, --file and --clear exclude each other");
  if (given == 0 && o.all) throw WrongUsage("--all is for --set and --file");
  return given == 1 ? SetMemo(session, o) : ShowMemo(session, o);
}

Report Set(Session& session, Options const& o) {
  CheckTexts(o);
  bool const setsPassword = !o.newPassword.empty() || o.clearPassword;
  if (!o.newPassword.empty() && o.clearPassword) {
    throw WrongUsage("--new-password and --clear-password exclude each other");
  }
  if (!o.description && !o.version && !setsPassword) {
    throw WrongUsage("nothing to set; see zel set --help");
  }
  if (o.level != 1 && o.level != 2) throw WrongUsage("a password has level 1 or 2");
  LibraryChange change(session, o.path, o.change);
  zel::LibFile& file = change.Open().File();
  file.SetDescriptionAndVersion(TextOrNull(o.description), TextOrNull(o.version));
  if (setsPassword) file.SetPassword(o.clearPassword ? 0 : o.level, o.newPassword.c_str());
  Report report;
  report.Fact("changed", change.IsDryRun() ? "would change" : "", o.path);
  PutInPlaceAfter(report, std::move(change));
  return report;
}

}  // namespace

void AddLibraryCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command create(line, "create", "Create an empty library",
                 "zel create own.lb1 --description \"Plant data\"");
  create.Argument("LIBRARY", o->path, "the new file; its name ends in .lb1")
      .Option("--description", o->description, "up to 100 characters", "TEXT")
      .Option("--library-version", o->version, "up to 12 characters", "TEXT")
      .Option("--kind", o->kind, "11, 12 or 13", "N")
      .Flag("--force", o->force, "replace an existing library");
  AddReplaceOptions(create, o->change, "of an existing protected library");
  AddModeOption(create, o->mode);
  create.Run(Outputs::kJson, [o](Session& session) { return Create(session, *o); });
  Command(line, "info", "Show a library's header, banks and counts", "zel info sample.lb1")
      .Argument("LIBRARY", o->path, "a library file")
      .Library(o->path)
      .Run(Outputs::kJsonAndCsv, [o](Session& session) { return Info(session, *o); });
  Command memo(line, "memo", "Show or set the memo of a library or a bank",
               "zel memo sample.lb1 --bank NRTL --set \"Checked in May\"");
  memo.Argument("LIBRARY", o->path, "a library file")
      .Library(o->path)
      .Option("--bank", o->bank, "the memo of this bank", "BANK")
      .Option("--set", o->text, "the new text, up to 3999 characters", "TEXT")
      .Option("--file", o->file, "read the new text from a file", "FILE")
      .Flag("--all", o->all, "replace the notes (citations, meanings), too")
      .Flag("--clear", o->clear, "empty the memo, notes included");
  AddChangeOptions(memo, o->change);
  memo.Run(Outputs::kJson, [o](Session& session) { return Memo(session, *o); });
  Command set(line, "set", "Set description, version or password",
              "zel set own.lb1 --description \"Plant data, checked\"");
  set.Argument("LIBRARY", o->path, "a library file")
      .Library(o->path)
      .Option("--description", o->description, "up to 100 characters", "TEXT")
      .Option("--library-version", o->version, "up to 12 characters", "TEXT")
      .Secret("--new-password", o->newPassword, "only asks well-behaved programs to refuse updates",
              "TEXT")
      .Option("--level", o->level, "of the new password: 1 protects, 2 marks data too", "N")
      .Flag("--clear-password", o->clearPassword, "no longer require a password");
  AddChangeOptions(set, o->change);
  set.Run(Outputs::kJson, [o](Session& session) { return Set(session, *o); });
}

}  // namespace zelhost
