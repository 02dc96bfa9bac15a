#include "commands/foreign_files.h"

#include <filesystem>
#include <set>
#include <utility>

#include "commands/shared_options.h"
#include "commands/sqlite_files.h"
#include "commands/table_files.h"
#include "desk/annotate/references.h"
#include "desk/formats/foreign_import.h"
#include "desk/formats/formats.h"
#include "desk/tables/table_import.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "output/progress.h"

namespace zelhost {
namespace {

constexpr std::uint32_t kGreatestCode = 32000;

// The bank that is named, else the only bank of components, else a new one named like the form.
BankName BankFor(Library& library, std::string const& word, std::string const& format) {
  if (!word.empty()) {
    BankName bank = BankForTable(library, word);
    if (bank.type != kPureType) throw Failure(ToText(bank) + ": is not a bank of components");
    return bank;
  }
  if (!library.Banks(kPureType).empty()) return library.ComponentBank("");
  return BankForTable(library, std::string(kPureType) + ":" + UpperCase(format));
}

// The name of the file, as far as a memo can have its letters.
std::string CitationOf(std::string const& path, ForeignFormat const& format) {
  std::string name = std::filesystem::path(path).filename().string();
  for (char& letter : name) {
    bool const isPlain = (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
                         (letter >= '0' && letter <= '9') || letter == '.' || letter == '_' ||
                         letter == ' ';
    if (!isPlain) letter = '-';
  }
  return name + ", " + format.what;
}

void AddCounts(ForeignImport const& done, Report& report) {
  report.Fact("read", done.read);
  report.Fact("new", done.isNew);
  report.Fact("changed", done.changed);
  report.Fact("the same", done.same);
  report.Fact("refused", done.refused);
  report.Fact("taken", done.taken);
  report.Fact("converted", done.converted);
  report.Fact("no place", done.noPlace);
  report.Fact("refused data", done.refusedData);
  report.Fact("code", std::int64_t{done.code});
}

// The data that are shown: programs get all, people those that are refused, or all with --verbose.
Table ShownData(Table const& all, bool isComplete) {
  if (isComplete) return all;
  constexpr std::size_t kResult = 3;
  Table shown(all.Name(), all.Columns());
  for (std::vector<Cell> const& row : all.Rows()) {
    if (CellText(row[kResult]) == ToText(Fate::kRefused)) shown.Add(row);
  }
  return shown;
}

Table ShownComponents(Table const& all, bool isComplete) {
  if (isComplete) return all;
  constexpr std::size_t kResult = 2;
  Table shown(all.Name(), all.Columns());
  for (std::vector<Cell> const& row : all.Rows()) {
    std::string const result = CellText(row[kResult]);
    if (result == "changed" || result == "refused") shown.Add(row);
  }
  return shown;
}

void CheckRange(std::string const& range, bool hasRange) {
  if (range.empty()) return;
  if (!hasRange) throw WrongUsage("--range is for --format nasa");
  if (range == "low" || range == "high") return;
  throw WrongUsage("\"" + range + "\" is neither low nor high: a record has one range");
}

void CheckSqliteWords(ForeignOptionWords const& words, ForeignFiles const& files) {
  if (!words.code.empty()) throw WrongUsage("--code is not for --format sqlite");
  CheckRange(words.range, false);
  if (!files.bank.empty()) throw WrongUsage("--bank is not for --format sqlite");
  if (files.paths.size() != 1) throw WrongUsage("--format needs one FILE");
}

}  // namespace

void AddForeignInput(Command& command, ForeignOptionWords& words) {
  std::string names;
  for (FormatName const& one : AllFormats()) names += (names.empty() ? "" : ", ") + one.name;
  command.Option("--format", words.format, "the form of DOCUMENT: " + names, "FORMAT")
      .Option("--code", words.code, "with --format, the reference code of the data", "CODE")
      .Option("--range", words.range, "with --format nasa, the low or the high range", "RANGE");
}

void CheckForeignWords(ForeignOptionWords const& words, ForeignFiles const& files) {
  if (words.format.empty()) {
    if (!words.code.empty()) throw WrongUsage("--code is for --format");
    if (!words.range.empty()) throw WrongUsage("--range is for --format nasa");
    return;
  }
  if (words.format == kSqliteFormat) return CheckSqliteWords(words, files);
  ForeignFormat const& format = ForeignFormatNamed(words.format);
  CheckRange(words.range, format.hasRange);
  if (files.paths.size() != 1) throw WrongUsage("--format needs one FILE");
  if (!words.code.empty() && CodeOf(words.code) > kGreatestCode) {
    throw WrongUsage(words.code + " is not a reference code of components, which are up to 32000");
  }
}

Report ImportForeignFile(Session& session, LibraryChange change, ForeignOptionWords const& words,
                         ForeignFiles const& files) {
  if (words.format == kSqliteFormat) return ImportSqliteFile(session, std::move(change), files);
  ForeignFormat const& format = ForeignFormatNamed(words.format);
  std::string const& path = files.paths.front();
  ForeignTarget target;
  target.library = &change.Open();
  target.bank = BankFor(change.Open(), files.bank, words.format);
  target.citation = CitationOf(path, format);
  if (!words.code.empty()) target.code = CodeOf(words.code);
  ForeignImport done;
  {
    Waiting const waiting("importing " + path);
    done = ImportForeign(target, format.read(path, {words.range}));
  }
  Report report;
  report.Fact("library", change.Open().Path());
  report.Fact("bank", ToText(target.bank));
  report.Fact("format", words.format);
  AddCounts(done, report);
  bool const isComplete = session.form != Form::kText || files.listAll;
  report.Add(ShownComponents(done.components, isComplete));
  report.Add(std::move(done.tags));
  report.Add(std::move(done.leftOut));
  report.Add(ShownData(done.data, isComplete));
  std::int64_t const refused = done.refused + done.refusedData;
  bool const isRefused = refused != 0 && !files.skipBad;
  if (!isRefused) AddGivenNumbers(session, std::move(done.given), report);
  AddDataWarning(done.findings, files.isStrict && !isRefused, report);
  if (done.same == done.read && !done.isCited && !isRefused && !change.IsDryRun()) return report;
  if (!isRefused) {
    PutInPlaceAfter(report, std::move(change));
    return report;
  }
  Error const error(path, std::to_string(done.refusedData) + " data of " +
                              std::to_string(done.read) +
                              " components are refused, see the report; nothing is changed; "
                              "--skip-bad imports the others");
  report.SetProblem(ProblemOf(error));
  session.Print(report);
  throw error;
}

}  // namespace zelhost
