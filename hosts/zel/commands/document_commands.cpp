// import, export, dump
#include <zelaccess/LibMaint_p.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "commands/command.h"
#include "commands/foreign_files.h"
#include "commands/import_log.h"
#include "commands/shared_options.h"
#include "commands/sqlite_files.h"
#include "commands/table_files.h"
#include "commands/written_documents.h"
#include "desk/change/library_change.h"
#include "desk/compare/beyond_documents.h"
#include "desk/files/folder.h"
#include "desk/files/input_file.h"
#include "desk/files/one_document.h"
#include "desk/files/output_file.h"
#include "desk/files/standard_output.h"
#include "desk/files/system.h"
#include "desk/findings/written_data.h"
#include "desk/open/component_name.h"
#include "desk/open/item_key.h"
#include "desk/open/pure_component.h"
#include "desk/open/storable.h"
#include "desk/open/unfinished_change.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "output/progress.h"

namespace zelhost {
namespace {

namespace fs = std::filesystem;

struct Options {
  std::string path;
  std::vector<std::string> files;
  std::string bank;
  std::string component;
  std::string output;
  std::string mode;
  ChangeOptions change;
  bool replace = false;
  bool lenient = false;
  bool strict = false;
  bool create = false;
  bool verbose = false;
  bool banner = false;
  bool componentFiles = false;
  TableOptions table;
  ForeignOptionWords foreign;
  std::string sqlite;
};

LibraryChange ChangeFor(Session& session, Options const& o) {
  return ExistingOrNewLibrary(session, o.path, o.create, o.mode, o.change);
}

// Tables have an option of their own.
void RefuseTable(std::string const& file) {
  std::string const ending = LowerCase(fs::path(file).extension().string());
  if (ending != ".csv" && ending != ".tsv" && ending != ".json") return;
  throw WrongUsage(file + ": a table is read with --table " + file + " --bank BANK");
}

zel::zelImportChecks ChecksOf(Options const& o) {
  if (o.lenient && o.strict) throw WrongUsage("--lenient and --strict exclude each other");
  return o.strict ? zel::importStrict : o.lenient ? zel::importTold : zel::importChecked;
}

// Why an import failed. The text of the last error is empty if the import went on successfully
// after it.
std::string Reason(zel::LibMaint_p const& maint, zel::ZelImportCounts const& counts,
                   Options const& o) {
  char const* const last = maint.GetLastErrorText();
  std::string reason = last != nullptr ? last : "";
  if (reason.empty()) reason = std::to_string(counts.errors) + " errors, listed above";
  if (o.replace && reason.find("already exists in this library") != std::string::npos) {
    reason +=
        "; --replace does not replace banks: import into another library and use zel copy "
        "--replace";
  }
  return reason;
}

bool ImportOne(zel::LibMaint_p& maint, Options const& o, std::string const& file) {
  std::string const path = fs::absolute(file).string();
  if (o.bank.empty()) return maint.Import(path.c_str(), o.replace);
  return maint.ImportComponent(path.c_str(), UpperCase(o.bank).c_str(), o.replace);
}

// Prints the full report of a failed import before the command ends.
[[noreturn]] void EndFailed(Session& session, Report& report, ImportLog& log,
                            std::string const& file, std::string const& why) {
  report.Fact("failed", file);
  log.Finish(report);
  Error const error(file, why);
  report.SetProblem(ProblemOf(error));
  if (session.form != Form::kText) session.Print(report);
  throw error;
}

Report Import(Session& session, Options const& o) {
  if (!o.table.path.empty()) {
    if (!o.files.empty()) throw WrongUsage("documents and --table exclude each other");
    if (!o.foreign.format.empty()) throw WrongUsage("--format and --table exclude each other");
    zel::InitZelAccess();
    TableOptions table = o.table;
    table.isStrict = o.strict;
    return ImportTableFile(session, ChangeFor(session, o), o.bank, table, o.verbose);
  }
  ForeignFiles const foreign{o.files, o.bank, o.table.skipBad, o.strict, o.verbose};
  CheckForeignWords(o.foreign, foreign);
  if (!o.foreign.format.empty()) {
    zel::InitZelAccess();
    return ImportForeignFile(session, ChangeFor(session, o), o.foreign, foreign);
  }
  if (o.files.empty()) throw WrongUsage("DOCUMENT is required, or --table");
  zel::zelImportChecks const checks = ChecksOf(o);
  for (std::string const& file : o.files) {
    if (!fs::exists(file)) throw Failure(file + ": not found");
    if (!fs::is_regular_file(file)) throw Failure(file + ": is not a file");
    RefuseTable(file);
  }
  if (o.bank.size() >= kNameSize) throw Failure("a bank's name has 1 to 8 characters: " + o.bank);
  bool const isNew = o.create && !fs::exists(o.path);
  zel::InitZelAccess();
  bool const isText = session.form == Form::kText;
  ImportLog log(isText, o.verbose);
  LibraryChange change = ChangeFor(session, o);
  auto* const maint = dynamic_cast<zel::LibMaint_p*>(&change.Open().Maint());
  if (std::string const bank = UpperCase(o.bank); !maint->BankExists(kPureType, bank.c_str())) {
    CheckDocument(bank, DocumentPlace::kAttribute, "the bank name " + bank);
  }
  maint->SetLogLevel(1);  // an import goes on after an error, and reports them all
  maint->SetLogSink(&log);
  maint->SetImportChecks(checks);
  ImportedComponents const written(change.Open(), o.replace ? UpperCase(o.bank) : "");
  Report report;
  ImportTotals totals;
  std::string const unchanged = isNew ? "no library was created" : "the library is unchanged";
  FollowedWork work("importing");
  std::optional<FollowedWork::Following> following(std::in_place, work, change.Open().File());
  std::size_t imported = 0;
  for (std::string const& file : o.files) {
    work.BeginPart("importing " + file, 1.0 / static_cast<double>(o.files.size()));
    bool const good = ImportOne(*maint, o, file);
    zel::ZelImportCounts counts;
    maint->GetImportCounts(counts);
    totals.Add(counts);
    if (good && ++imported != 0) continue;
    bool const isHalfDone = o.change.inPlace && imported != 0;
    work.EndIfCancelled(isHalfDone ? "the documents before " + file + " were imported" : unchanged);
    EndFailed(
        session, report, log, file,
        Reason(*maint, counts, o) + "; " +
            (o.change.inPlace && !isNew ? "what came before the error was imported" : unchanged));
  }
  report.Fact("imported", static_cast<std::int64_t>(o.files.size()));
  report.Fact("library", o.path);
  totals.AddTo(report);
  log.Finish(report);
  maint->SetLogSink(nullptr);
  if (!o.change.inPlace) work.EndIfCancelled(unchanged);
  AddDataWarning(written.Errors(), o.strict, report);
  following.reset();  // a dry run closes the library
  PutInPlaceAfter(report, std::move(change));
  return report;
}

// Where documents are written: a folder, and a file name if one was given.
struct ExportTarget {
  fs::path folder;
  std::string name;
};

ExportTarget TargetOf(Options const& o) {
  if (o.output.empty()) return {fs::absolute(o.path).parent_path(), ""};
  RefuseLibraryPath(o.output);
  fs::path target = fs::absolute(o.output);
  if (fs::is_directory(target) || !target.has_filename()) return {target, ""};
  RefuseSpecialFile(target.string());
  if (!target.has_extension()) target += ".xml";
  RefuseSpecialFile(target.string());
  return {target.parent_path(), target.filename().string()};
}

bool ExportComponent(Library const& library, Options const& o, char const* target) {
  zel::LibMaint& maint = library.Maint();
  BankName const bank = library.ComponentBank(o.bank);
  char const* const name = bank.name.c_str();
  PureComponent component;
  zel::Handle<zel::Key> const key = KeyIn(library, *component.Def(), {o.component});
  if (!maint.ReadItem(component.Def(), name, key.get())) {
    throw Failure(o.path + ": bank " + ToText(bank) + " has no component " + o.component +
                  WhyNotFound(library, *component.Def(), {o.component}));
  }
  ComponentWord const word = ParseComponent(o.component);
  if (std::string const* const id = std::get_if<std::string>(&word)) {
    return maint.ExportComponentById(name, id->c_str(), target, o.banner);
  }
  return maint.ExportComponentByNumber(name, component.ReadIdentity().number, target, o.banner);
}

// The banks that the documents must contain completely; none for a single component.
std::vector<BankName> ExportedBanks(Library const& library, Options const& o) {
  if (!o.component.empty()) return {};
  return o.bank.empty() ? library.Banks() : std::vector<BankName>{library.Bank(o.bank)};
}

BeyondDocuments BeyondIn(Library const& library, Options const& o) {
  if (!o.component.empty()) return {};
  if (o.bank.empty()) return FindBeyondDocuments(library, nullptr);
  BankName const bank = library.Bank(o.bank);
  return FindBeyondDocuments(library, &bank);
}

std::string LeftOutText(BeyondDocuments const& beyond) {
  return std::to_string(beyond.correlations) +
         " correlations with equations above 100, which documents cannot represent";
}

void CheckStandardOutput(Session const& session, Options const& o) {
  if (session.form != Form::kText) {
    throw WrongUsage("--json and a document on standard output exclude each other");
  }
  if (o.componentFiles) {
    throw WrongUsage("--component-files and standard output exclude each other");
  }
}

constexpr char kOnlyDocument[] = "document.xml";  // its name until it is printed

// Writes the documents as one to standard output; what a report would show goes to standard error.
void PrintDocument(Session& session, Report const& findings, OutputFolder const& documents,
                   BeyondDocuments const& beyond) {
  std::string const text = OneDocument(documents.PathOf(""), kOnlyDocument) + AsComment(beyond);
  for (Table const& table : findings.Tables()) {
    for (auto const& row : table.Rows()) {
      std::string line = table.Name() + ":";
      for (Cell const& cell : row) line += " " + CellText(cell);
      session.Note(line);
    }
  }
  for (auto const& fact : findings.Facts()) {
    if (fact.name != kControlsLeftOut) continue;
    session.Note("left out: " + CellText(fact.value) +
                 " control characters, which documents cannot hold");
  }
  if (beyond.correlations != 0) session.Note("left out: " + LeftOutText(beyond));
  Write(text);
}

Report Export(Session& session, Options const& given) {
  zel::InitZelAccess();
  if (!given.sqlite.empty()) {
    bool const isAlone = given.output.empty() && given.bank.empty() && given.component.empty() &&
                         given.table.path.empty() && !given.componentFiles && !given.banner;
    if (!isAlone) throw WrongUsage("--sqlite writes the whole library; it has no other options");
    return ExportSqliteFile(session, given.path, given.sqlite);
  }
  if (!given.table.path.empty()) {
    return ExportTableFile(session, given.path, given.bank, given.table);
  }
  Options o = given;
  Library const library = OpenFinished(session, o.path);
  if (!o.component.empty()) o.component = LookupWord(o.component, BanksKnownTo(library));
  bool const isOutput = IsStandardOutput(o.output);
  if (isOutput) CheckStandardOutput(session, o);
  ExportTarget const target =
      isOutput ? ExportTarget{fs::temp_directory_path(), kOnlyDocument} : TargetOf(o);
  OutputFolder documents(target.folder, o.output.empty() ? o.path : o.output);
  std::string const path = documents.PathOf(target.name);
  FollowedWork work("exporting " + o.path);
  FollowedWork::Following const following(work, library.File());
  bool good = false;
  if (!o.component.empty()) {
    good = ExportComponent(library, o, path.c_str());
  } else if (!o.bank.empty()) {
    BankName const bank = library.Bank(o.bank);
    good = library.Maint().ExportBank(bank.type.c_str(), bank.name.c_str(), path.c_str(), o.banner,
                                      o.componentFiles);
  } else {
    good = library.Maint().ExportLibrary(path.c_str(), o.banner, o.componentFiles);
  }
  work.EndIfCancelled("nothing was written");
  if (!good) throw Failure(Inside(target.folder, target.name).string() + ": cannot be written");
  Report findings;
  ReportUnreadable(session, findings, documents.PathOf(""));
  ReportMissing(session, findings, library, ExportedBanks(library, o), documents.PathOf(""),
                target.name, !o.bank.empty());
  BeyondDocuments const beyond = BeyondIn(library, o);
  NoteMark(session, library, "a document");
  if (isOutput) {
    PrintDocument(session, findings, documents, beyond);
    return {};
  }
  Report report;
  report.Fact("exported", o.path);
  report.Fact("documents", documents.MoveInto());
  report.Fact("to", Inside(target.folder, target.name).string());
  if (beyond.correlations != 0) report.Fact("left out", LeftOutText(beyond));
  for (auto const& fact : findings.Facts()) report.Fact(fact.name, fact.value);
  for (Table const& table : findings.Tables()) report.Add(table);
  return report;
}

// The library does not report an index that it could not write: a complete one ends with a line
// end.
void CheckWritten(fs::path const& index, fs::path const& target, bool mayBeEmpty) {
  std::ifstream file = OpenInput(index);
  auto const size = file ? fs::file_size(index) : 0;
  char last = '\n';
  if (size > 0) file.seekg(-1, std::ios::end).get(last);
  if (!file || last != '\n' || (size == 0 && !mayBeEmpty)) {
    throw Failure(target.string() + ": cannot be written completely");
  }
}

// The library writes its indexes next to itself, so it is opened under its name in another folder.
Report DumpIndexes(Session& session, Options const& o) {
  Library const held = OpenFinished(session, o.path);  // no change is put in place meanwhile
  fs::path const path = fs::absolute(o.path);
  OutputFolder indexes(path.parent_path(), o.path);
  std::vector<fs::path> links;
  for (char number = '1'; number <= '9'; ++number) {
    std::string name = path.filename().string();
    if (name.empty()) break;
    name.back() = number;
    if (!fs::exists(Inside(path.parent_path(), name))) continue;
    links.emplace_back(indexes.PathOf(name));
    zel::desk::LinkFile(Inside(path.parent_path(), name), links.back());
  }
  Report report;
  {
    Library const library =
        Library::OpenRead(session, indexes.PathOf(path.filename().string()), o.path);
    library.Maint().WriteTextDump(&library.File());
    auto const checked = [&](std::string const& fact, std::string const& ending, bool mayBeEmpty) {
      fs::path const index = fs::path(path.filename()).replace_extension(ending);
      fs::path const target = Inside(path.parent_path(), index);
      CheckWritten(indexes.PathOf(index.string()), target, mayBeEmpty);
      report.Fact(fact, target.string());
    };
    checked("written", ".bnk", false);
    PureComponent const component;
    for (BankName const& bank : library.Banks(kPureType)) {
      checked("components of " + bank.name, "." + FileNameOf(bank.name + ".cmp"),
              Keys(library, bank, *component.Def()).empty());
    }
  }
  for (fs::path const& link : links) fs::remove(link);
  indexes.MoveInto();
  return report;
}

Report Dump(Session& session, Options const& o) {
  if (o.bank.empty()) return DumpIndexes(session, o);
  if (session.form != Form::kText) throw WrongUsage("--tree prints text only");
  Library const library = OpenFinished(session, o.path);
  BankName const bank = library.Bank(o.bank);
  auto* const maint = dynamic_cast<zel::LibMaint_p*>(&library.Maint());
  library.Walk(bank, [&] {
    maint->DumpBankTree(bank.type.c_str(), bank.name.c_str(), 0, stdout, -1);
    // The dump shows a node that it could not read as an empty one; this walk reports it.
    std::int32_t key[10] = {};
    maint->BeginItemWalk(bank.type.c_str(), bank.name.c_str());
    while (maint->NextItemKey(key)) continue;
  });
  return {};
}

}  // namespace

void AddDocumentCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command reading(line, "import", "Read XML documents into a library, all or nothing",
                  "zel import nist.lb1 nist.xml --create");
  reading.Argument("LIBRARY", o->path, "a library file")
      .Library(o->path, &o->create)
      .OptionalArgument("DOCUMENT", o->files, "documents of a library, bank or component")
      .Option("--bank", o->bank, "the documents or the table are for this bank", "NAME")
      .Flag("--create", o->create, "create the library if it does not exist")
      .Flag("--replace", o->replace, "with --bank, replace components that exist already")
      .Flag("--lenient", o->lenient, "malformed numbers and lost parts are warnings")
      .Flag("--strict", o->strict, "altered texts and implausible values are errors")
      .Flag("--verbose", o->verbose, "align bank types in the log; list all rows");
  AddTableInput(reading, o->table);
  AddForeignInput(reading, o->foreign);
  AddModeOption(reading, o->mode);
  AddChangeOptions(reading, o->change);
  reading.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Import(session, *o); });
  Command writing(line, "export", "Write a library, a bank or a component as XML",
                  "zel export sample.lb1 -o sample.xml");
  writing.Argument("LIBRARY", o->path, "a library file")
      .Library(o->path)
      .Option("-o,--output", o->output, "a document (.xml) or folder, - for standard output",
              "FILE")
      .Option("--bank", o->bank, "only this bank", "BANK")
      .Option("--component", o->component, "only this component", "COMPONENT")
      .Flag("--banner", o->banner, "add a block for a maintenance log")
      .Flag("--component-files", o->componentFiles, "a document for each component");
  AddTableOutput(writing, o->table);
  writing.Option("--sqlite", o->sqlite, "write the whole library as a database", "FILE");
  AddStrict(writing);
  writing.Run(Outputs::kJson, [o](Session& session) { return Export(session, *o); });
  Command dump(line, "dump", "Write tab-separated indexes, or show a bank's tree",
               "zel dump perry.lb1");
  dump.Argument("LIBRARY", o->path, "a library file")
      .Library(o->path)
      .Option("--tree", o->bank, "print the structure of this bank's tree", "BANK");
  AddStrict(dump);
  dump.Run(Outputs::kJson, [o](Session& session) { return Dump(session, *o); });
}

}  // namespace zelhost
