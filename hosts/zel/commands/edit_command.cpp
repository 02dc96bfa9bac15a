// edit
#include <charconv>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/edit/item_edit.h"
#include "desk/open/members.h"
#include "desk/open/unfinished_change.h"
#include "desk/words/failure.h"

namespace zelhost {
namespace {

struct Options {
  std::string path;
  std::vector<std::string> words;
  std::vector<std::string> unset;
  std::string from;
  std::string code;
  std::string equation;
  CurveEdit curve;
  ChangeOptions change;
};

template <typename Number>
std::optional<Number> WholeOf(std::string const& word, char const* option, Number most) {
  if (word.empty()) return std::nullopt;
  Number number = 0;
  auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size() || number > most) {
    throw WrongUsage(std::string(option) + " is a whole number up to " + std::to_string(most) +
                     ", not " + word);
  }
  return number;
}

Report EditValues(Session& session, Options const& o) {
  constexpr std::uint32_t kLastCode = 32000;
  constexpr int kLastEquation = 1000;
  std::optional<std::uint32_t> const code = WholeOf(o.code, "--ref", kLastCode);
  zel::InitZelAccess();
  std::optional<Library> from;
  std::error_code none;
  if (!o.from.empty() && std::filesystem::equivalent(o.from, o.path, none)) {
    throw Failure(o.from + ": is the library to edit itself");
  }
  if (!o.from.empty()) from.emplace(OpenFinished(session, o.from));
  Library const* const source = from ? &*from : nullptr;
  LibraryChange change(session, o.path, o.change);
  ItemEdit edit = EditOf(change.Open(), source, o.words);
  edit.unset = o.unset;
  edit.code = code;
  edit.curve = o.curve;
  edit.curve.equation = WholeOf(o.equation, "--equation", kLastEquation);
  EditedItem edited = EditItem(change.Open(), edit, source);
  Report report;
  report.Fact("item", edited.item);
  report.Fact("bank", ToText(edited.bank));
  report.JsonFacts(PartColumns(), PartMembers(edited.parts));
  if (!edited.copiedFrom.empty()) report.Fact("copied from", edited.copiedFrom);
  if (!edited.same.empty()) report.Fact("already so", Texts(edited.same));
  std::string warnings;
  for (std::string const& one : edited.warnings) warnings += (warnings.empty() ? "" : "; ") + one;
  if (!warnings.empty()) report.Warning("warning", Text(warnings));
  bool const isChanged = edited.IsChanged();
  report.Fact("changed", static_cast<std::int64_t>(edited.changes.Rows().size()));
  report.Add(std::move(edited.changes));
  AddDataWarning(edited.findings, session.isStrict, report);
  AddCitationConflicts(session, edited.conflicts, report);
  if (isChanged) PutInPlaceAfter(report, std::move(change));
  return report;
}

}  // namespace

void AddEditCommand(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command edit(line, "edit", "Set single values: constants, correlations, fields",
               "zel edit crc.lb1 ETHANOL NBP 78.31C --ref 999");
  edit.Argument("LIBRARY", o->path, "the library to change")
      .Library(o->path)
      .Library(o->from)
      .Argument("WORD", o->words, "[BANK] ITEM, then DATUM=VALUE or DATUM VALUE, ...")
      .List("--unset", o->unset, "remove these data", "DATUM...")
      .Option("--ref", o->code, "the reference code of what is set; else it stays", "CODE")
      .Option("--from", o->from, "copy the item from here first if it is missing", "LIBRARY")
      .Option("--equation", o->equation, "of a correlation", "N")
      .Option("--coefficients", o->curve.coefficients, "of a correlation, up to 15", "C...")
      .Option("--range", o->curve.range, "of a correlation, e.g. 159K:514K", "MIN:MAX")
      .Option("--value-unit", o->curve.unit, "of the values of its equation", "UNIT")
      .Option("--temperature-unit", o->curve.temperatureUnit, "of its coefficients", "K|C|R|F")
      .Option("--logarithm", o->curve.logarithm, "natural, decimal or none", "WORD")
      .Option("--basis", o->curve.basis, "mole or mass", "WORD");
  AddChangeOptions(edit, o->change);
  edit.Flag("--strict", edit.InSession().isStrict,
            "refuse implausible values and citation conflicts");
  edit.Run(Outputs::kJsonAndCsv, [o](Session& session) { return EditValues(session, *o); });
}

}  // namespace zelhost
