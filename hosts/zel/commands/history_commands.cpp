// log, undo
#include <memory>
#include <utility>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/change/undo.h"
#include "desk/compare/change_log.h"
#include "desk/open/members.h"
#include "desk/words/failure.h"

namespace zelhost {
namespace {

struct Options {
  std::string path;
  int last = 0;
  UndoOptions undo;
  ChangeOptions change;
};

std::string NoteOn(LoggedChange const& change) {
  std::string note;
  if (change.record.undoes != 0) note = "undoes " + std::to_string(change.record.undoes);
  if (change.isMixed)
    note += (note.empty() ? "" : "; ") + std::string("other programs changed too");
  return note;
}

Report Log(Session& session, Options const& o) {
  if (o.last < 0) throw WrongUsage("--last must be 1 or more");
  Table changes("changes", {{"change", ""}, {"time", ""}, {"command", ""}, {"note", ""}});
  std::vector<Column> heads = {{"change", ""},
                               {"item", ""},
                               {"field", ""},
                               {"before", "", false, true},
                               {"after", "", false, true},
                               {"unit", ""}};
  Append(heads, ItemColumns());
  Table differences("differences", std::move(heads));
  for (LoggedChange const& change : ChangesOf(session, o.path, o.last)) {
    Cell const number = std::int64_t{change.number};
    changes.Add(number, Text(change.record.time), Text(change.record.command),
                Text(NoteOn(change)));
    for (std::size_t i = 0; i < change.differences.Rows().size(); ++i) {
      std::vector<Cell> row = change.differences.Rows()[i];
      row.insert(row.begin(), number);
      bool const isAsIs = change.differences.IsAsIs(i);
      isAsIs ? differences.AddAsIs(std::move(row)) : differences.Add(std::move(row));
    }
  }
  Report report;
  report.Add(std::move(changes));
  report.Add(std::move(differences), ItemColumns());
  return report;
}

// What an undo changes. One that is forced does not need to read the present library.
void AddDifferences(Session& session, Options const& o, Undo& undo, Report& report) {
  DifferenceOptions options;
  options.first = "before";
  options.second = "after";
  Library const old = Library::OpenRead(session, undo.version.first.string());
  bool isListed = undo.change.IsOpen();
  try {
    if (isListed) report.Add(DifferencesOf(undo.change.Open(), old, options), ItemColumns());
  } catch (unsigned long) {
    if (!o.undo.force) throw;
    isListed = false;
  }
  if (!isListed) {
    session.Note(o.path + ": cannot be read as it is, so what the undo changes is not listed");
  }
}

Report UndoLast(Session& session, Options const& o) {
  if (o.undo.before < 0) throw WrongUsage("--before must be the number of a change");
  zel::InitZelAccess();
  Undo undo = BeginUndo(session, o.path, o.undo, o.change);
  Report report;
  report.Fact("library", o.path);
  report.Fact("undone", std::int64_t{undo.version.number});
  report.Fact("command", Text(undo.version.change.command));
  report.Fact("time", Text(undo.version.change.time));
  AddDifferences(session, o, undo, report);
  undo.change.Restore(undo.version);
  PutInPlaceAfter(report, std::move(undo.change));
  return report;
}

}  // namespace

void AddHistoryCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command log(line, "log", "List the changes of a library, the last one first", "zel log own.lb1");
  log.Argument("LIBRARY", o->path, "a library file")
      .Library(o->path)
      .Option("--last", o->last, "only the last N changes", "N");
  AddStrict(log);
  log.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Log(session, *o); });
  Command undo(line, "undo", "Take back the last change; again, the one before it",
               "zel undo own.lb1");
  undo.Argument("LIBRARY", o->path, "the library to change")
      .Library(o->path)
      .Option("--before", o->undo.before, "restore what was before change N, which may be an undo",
              "N")
      .Flag("--force", o->undo.force, "even if another program changed it, or it is damaged");
  AddChangeOptions(undo, o->change);
  AddStrict(undo);
  undo.Mends(&o->undo.force);
  undo.Run(Outputs::kJsonAndCsv, [o](Session& session) { return UndoLast(session, *o); });
}

}  // namespace zelhost
