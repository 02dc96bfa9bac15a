// refs, parameters
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/annotate/parameter_table.h"
#include "desk/annotate/reference_files.h"
#include "desk/annotate/references.h"
#include "desk/change/library_change.h"
#include "desk/files/output_file.h"
#include "desk/files/standard_output.h"
#include "desk/open/unfinished_change.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "output/progress.h"

namespace zelhost {
namespace {

struct Options {
  std::string path;
  std::vector<std::string> words;
  std::string bank;
  std::string doi;
  std::string first;
  std::string unit;
  std::string output;
  ReferenceImport import;
  bool skipBad = false;
  ChangeOptions change;
};

// The words after the first one. Throws WrongUsage if there are not as many as the form shows.
std::vector<std::string> RestOf(Options const& o, std::size_t count, std::string const& form) {
  if (o.words.size() == count + 1) return {o.words.begin() + 1, o.words.end()};
  throw WrongUsage("give " + form);
}

std::optional<BankName> BankOf(Library const& library, Options const& o) {
  if (o.bank.empty()) return std::nullopt;
  return library.Bank(o.bank);
}

// Refuses the file if rows were refused, after printing the report about them.
void CheckRefused(Session& session, Report& report, Options const& o, std::int64_t refused,
                  std::int64_t read) {
  if (refused == 0 || o.skipBad) return;
  Error const error(o.words[1], std::to_string(refused) + " of " + std::to_string(read) +
                                    " are refused, see the report; nothing is changed; --skip-bad "
                                    "imports the others");
  report.SetProblem(ProblemOf(error));
  session.Print(report);
  throw error;
}

// Reports an import of notes, and puts the library in place if it changed something.
template <typename Imported>
Report AfterImport(Session& session, Options const& o, LibraryChange change, Imported done) {
  bool isChanged = done.changed > 0;
  Report report;
  report.Fact("library", o.path);
  report.Fact("read", done.read);
  if constexpr (std::is_same_v<Imported, ImportedReferences>) {
    report.Fact("new", done.isNew);
    isChanged = isChanged || done.isNew > 0;
  }
  report.Fact("changed", done.changed);
  report.Fact("the same", done.same);
  report.Fact("not used", done.unused);
  report.Fact("refused", done.refused);
  report.Add(std::move(done.rows));
  CheckRefused(session, report, o, done.refused, done.read);
  if (isChanged || change.IsDryRun()) PutInPlaceAfter(report, std::move(change));
  return report;
}

// Writes the notes of a library to the file of -o.
template <typename Export>
void WriteNotes(Session const& session, Options const& o, char const* what, Report& report,
                Export const& inForm) {
  bool const isOutput = IsStandardOutput(o.output);
  if (isOutput && session.form != Form::kText) {
    throw WrongUsage("--json, --csv and a table on standard output exclude each other");
  }
  RefuseLibraryPath(o.output);
  std::int64_t count = 0;
  WriteFile(o.output, inForm(count));
  if (isOutput) return;  // only the table
  report.Fact("exported", o.path);
  report.Fact(what, count);
  report.Fact("to", o.output);
}

Report ListReferences(Session& session, Options const& o) {
  Library const library = OpenFinished(session, o.path);
  std::optional<BankName> const bank = BankOf(library, o);
  Waiting const waiting("reading " + o.path);
  Report report;
  if (o.output.empty()) {
    report.Add(ReferenceTable(library, bank));
    return report;
  }
  WriteNotes(session, o, "references", report,
             [&](std::int64_t& count) { return ExportReferences(library, bank, o.output, count); });
  return report;
}

Report ImportReferenceFile(Session& session, Options const& o) {
  std::string const path = RestOf(o, 1, "import FILE").front();
  ReferenceImport options = o.import;
  if (!o.first.empty()) options.first = CodeOf(o.first);
  LibraryChange change(session, o.path, o.change);
  options.bank = BankOf(change.Open(), o);
  ImportedReferences done;
  {
    Waiting const waiting("importing " + path);
    done = ImportReferences(change.Open(), path, options);
  }
  return AfterImport(session, o, std::move(change), std::move(done));
}

Report AddReference(Session& session, Options const& o) {
  std::vector<std::string> const words = RestOf(o, 2, "add CODE \"CITATION\"");
  Citation const citation = MakeCitation(CodeOf(words[0]), words[1], o.doi);
  LibraryChange change(session, o.path, o.change);
  std::optional<BankName> const bank = BankOf(change.Open(), o);
  ReferenceState const state = PutReference(change.Open(), bank, citation, o.import.replace);
  Report report;
  report.Fact("code", std::int64_t{citation.code});
  report.Fact("citation", citation.text);
  report.Fact("DOI", Text(citation.doi));
  report.Fact("result", std::string(ToText(state)));
  if (state != ReferenceState::kSame || change.IsDryRun()) {
    PutInPlaceAfter(report, std::move(change));
  }
  return report;
}

Report RemoveReferences(Session& session, Options const& o) {
  if (o.words.size() < 2) throw WrongUsage("give remove CODE...");
  LibraryChange change(session, o.path, o.change);
  std::optional<BankName> const bank = BankOf(change.Open(), o);
  Report report;
  Table& removed = report.Begin("removed", {{"code", ""}, {"DOI", ""}, {"citation", ""}});
  for (std::size_t i = 1; i < o.words.size(); ++i) {
    Citation const citation = RemoveReference(change.Open(), bank, CodeOf(o.words[i]));
    removed.Add(std::int64_t{citation.code}, Text(citation.doi), Text(citation.text));
  }
  PutInPlaceAfter(report, std::move(change));
  return report;
}

Report References(Session& session, Options const& o) {
  zel::InitZelAccess();
  if (o.words.empty()) return ListReferences(session, o);
  if (!o.output.empty()) throw WrongUsage("-o writes what `zel refs LIBRARY` lists");
  std::string const& word = o.words.front();
  if (word == "add") return AddReference(session, o);
  if (word == "remove") return RemoveReferences(session, o);
  if (word == "import") return ImportReferenceFile(session, o);
  throw WrongUsage("\"" + word + "\" is not add, remove or import");
}

Report ListMeanings(Session& session, Options const& o) {
  Library const library = OpenFinished(session, o.path);
  std::optional<BankName> const bank = BankOf(library, o);
  Report report;
  if (o.output.empty()) {
    report.Add(MeaningTable(library, bank));
    return report;
  }
  WriteNotes(session, o, "parameters", report,
             [&](std::int64_t& count) { return ExportMeanings(library, bank, o.output, count); });
  return report;
}

Report ImportMeaningFile(Session& session, Options const& o) {
  std::string const path = RestOf(o, 1, "import FILE").front();
  LibraryChange change(session, o.path, o.change);
  ImportedMeanings done = ImportMeanings(change.Open(), path);
  return AfterImport(session, o, std::move(change), std::move(done));
}

// A type means all its banks.
BankName BankOrType(Library const& library, std::string const& word) {
  std::string const type = UpperCase(word);
  if (BankOrNone(type) && !library.Banks(type).empty()) return {type, ""};
  return library.Bank(word);
}

// Sets a meaning, or removes it with an empty text.
Report ChangeMeaning(Session& session, Options const& o, std::vector<std::string> const& words,
                     std::string const& text) {
  LibraryChange change(session, o.path, o.change);
  BankName const bank = BankOrType(change.Open(), words[0]);
  bool const isChanged = SetMeaning(change.Open(), bank, words[1], o.unit, text);
  Report report;
  report.Fact("bank", bank.name.empty() ? bank.type : ToText(bank));
  report.Fact("field", words[1]);
  report.Fact("unit", Text(o.unit));
  report.Fact("meaning", Text(text));
  report.Fact("changed", isChanged);
  if (isChanged || change.IsDryRun()) PutInPlaceAfter(report, std::move(change));
  return report;
}

Report Parameters(Session& session, Options const& o) {
  zel::InitZelAccess();
  if (o.words.empty()) return ListMeanings(session, o);
  std::string const& word = o.words.front();
  if (!o.bank.empty()) throw WrongUsage("--bank is for the list");
  if (!o.output.empty()) throw WrongUsage("-o writes what `zel parameters LIBRARY` lists");
  if (word == "import") return ImportMeaningFile(session, o);
  if (word == "set") {
    std::vector<std::string> const words = RestOf(o, 3, "set BANK FIELD \"MEANING\"");
    if (words[2].empty()) throw WrongUsage("the meaning is empty; `remove BANK FIELD` removes it");
    return ChangeMeaning(session, o, words, words[2]);
  }
  if (word == "remove") return ChangeMeaning(session, o, RestOf(o, 2, "remove BANK FIELD"), "");
  throw WrongUsage("\"" + word + "\" is not set, remove or import");
}

}  // namespace

void AddNoteCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command refs(line, "refs", "Show and change the citations of reference codes",
               "zel refs crc.lb1 add 999 \"Own measurement, 2026\" --doi 10.1000/182");
  refs.Argument("LIBRARY", o->path, "a library file")
      .Library(o->path)
      .OptionalArgument("WORD", o->words, "add CODE CITATION | remove CODE... | import FILE")
      .Option("--bank", o->bank, "for the data of this bank; else for all", "BANK")
      .Option("--doi", o->doi, "of the citation to add", "DOI")
      .Flag("--replace", o->import.replace, "replace other citations of the codes")
      .Flag("--used", o->import.isUsedOnly, "import only codes that data have")
      .Option("--first", o->first, "first code for entries of BibTeX without one", "CODE")
      .Option("--ignore", o->import.ignored, "leave these columns of a table out", "HEAD...")
      .Flag("--skip-bad", o->skipBad, "import the others if some are refused")
      .Option("-o,--output", o->output, "write them (.bib, .csv, .tsv, .json; - is CSV)", "FILE");
  AddStrict(refs);
  AddChangeOptions(refs, o->change);
  refs.Run(Outputs::kJsonAndCsv, [o](Session& session) { return References(session, *o); });
  Command parameters(line, "parameters", "Show and set how data use a model's parameters",
                     "zel parameters sample.lb1 set NRTL bij \"energy / R\" --unit K");
  parameters.Argument("LIBRARY", o->path, "a library file")
      .Library(o->path)
      .OptionalArgument("WORD", o->words, "set BANK FIELD TEXT | remove BANK FIELD | import FILE")
      .Option("--bank", o->bank, "only this bank", "BANK")
      .Option("--unit", o->unit, "of the values; none for a pure number", "UNIT")
      .Flag("--skip-bad", o->skipBad, "import the other rows if some are refused")
      .Option("-o,--output", o->output, "write them (.csv, .tsv, .json); - for CSV", "FILE");
  AddChangeOptions(parameters, o->change);
  parameters.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Parameters(session, *o); });
}

}  // namespace zelhost
