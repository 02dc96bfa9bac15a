// table, pairs, template
#include <filesystem>
#include <memory>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/files/standard_output.h"
#include "desk/open/members.h"
#include "desk/open/preference_list.h"
#include "desk/open/unfinished_change.h"
#include "desk/tables/component_table.h"
#include "desk/tables/table_heads.h"
#include "desk/tables/text_table.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "output/progress.h"

namespace zelhost {
namespace {

struct Options {
  std::string type;
  std::string kind;
  SourceOptions sources;
  ComponentChoice choice;
  std::vector<std::string> fields;
  std::vector<std::string> libraries;
  bool all = false;
  bool withSources = false;
};

// A hint for users who expect values, because no fields were named.
void NoteNoFields(Session& session, std::vector<std::string> const& fields,
                  std::string const& example) {
  if (!fields.empty() || session.form != Form::kText) return;
  session.Note("no values are shown; " + example);
}

Report Components(Session& session, Options const& o) {
  PreferenceList list(session, o.sources);
  ComponentChoice choice = o.choice;
  if (o.all) choice.pattern = "*";
  Waiting const waiting("reading components");
  Report report;
  std::vector<Column> onlyJson;
  for (std::string const& field : o.fields) {
    zel::ZelCorrelationInfo const* const curve = FindCorrelation(field);
    if (curve != nullptr) Append(onlyJson, RecordColumns(curve->name));
  }
  report.Add(ComponentTable(list, ChosenComponents(list, choice), o.fields, o.withSources),
             onlyJson);
  AddWarnings(list, report);
  NoteNoFields(session, o.fields,
               "--fields names constants and correlations, e.g. --fields TC NBP");
  return report;
}

// Names the places that were searched for pairs without finding any.
std::string WhyNoPairs(std::vector<Library> const& libraries, std::string const& type) {
  std::string banks;
  for (Library const& library : libraries) {
    for (BankName const& bank : library.Banks(type)) {
      banks += (banks.empty() ? "" : ", ") + library.Path() + ":" + bank.name;
    }
  }
  if (banks.empty()) return "no library of the list has a bank of type " + type;
  return "there is no such pair in " + banks;
}

Report Pairs(Session& session, Options const& o) {
  std::vector<Library> libraries;
  for (std::string const& path : o.libraries) {
    std::size_t const colon = path.rfind(':');
    std::error_code none;
    if (colon != std::string::npos && !std::filesystem::exists(path, none)) {
      throw WrongUsage(path + ": pairs takes libraries without a bank: -l " +
                       path.substr(0, colon));
    }
    libraries.push_back(OpenFinished(session, path));
  }
  Waiting const waiting("reading pairs");
  Report report;
  report.Add(PairTable(libraries, o.type, o.fields, o.choice.words));
  report.Fact("found", static_cast<std::int64_t>(report.Tables()[0].Rows().size()));
  if (report.Tables()[0].Empty()) {
    report.Warning("warning", WhyNoPairs(libraries, UpperCase(o.type)));
  }
  Table meanings = PairMeanings(libraries, o.type, o.fields);
  if (!meanings.Empty()) report.AddAside(std::move(meanings));
  std::string const type = UpperCase(o.type);
  NoteNoFields(session, o.fields, "--fields names them, and `zel types " + type + "` lists them");
  return report;
}

// Prints, in text form, the empty table itself for a spreadsheet, and in JSON the heads with their
// meanings.
Report Template(Session& session, Options const& o) {
  std::vector<TableHead> const heads = HeadsOf(o.type, TableKindNamed(o.kind, o.type));
  Report report;
  if (session.form == Form::kJson) {
    Table& table = report.Begin("heads", {{"head", ""}, {"unit", ""}, {"meaning", ""}});
    for (TableHead const& head : heads) {
      table.Add(head.name, Text(session.units.UnitFor(head.unit)), Text(head.meaning));
    }
    return report;
  }
  TextTable table;
  for (TableHead const& head : heads) {
    table.heads.push_back(ToText(TableHead{head.name, session.units.UnitFor(head.unit), ""}));
  }
  Write(ToCsv(table, ','));
  return report;
}

}  // namespace

void AddTableCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command table(line, "table", "Show data of many components side by side",
                "zel table ETHANOL WATER --fields TC PC NBP -l perry.lb1 -l crc.lb1 --csv");
  table.OptionalArgument("COMPONENT", o->choice.words, "by number, ID, CAS number or name");
  AddSourceOptions(table, o->sources);
  table.List("--fields", o->fields, "constants and correlations", "DATUM...")
      .Option("--components-of", o->choice.path, "a file with one component a line", "FILE")
      .Option("--filter", o->choice.pattern, "components whose ID or name matches", "PATTERN")
      .Flag("--all", o->all, "all components of the sources")
      .Flag("--sources", o->withSources, "a column with the source of each datum")
      .Run(Outputs::kJsonAndCsv, [o](Session& session) { return Components(session, *o); });
  Command pairs(line, "pairs", "Show the pairs of a model in several libraries",
                "zel pairs NRTL --fields bij bji alphaij -l sample.lb1 -l perry.lb1");
  pairs.Argument("TYPE", o->type, "a bank type, the model")
      .OptionalArgument("COMPONENT", o->choice.words, "pairs of it, of two of several")
      .Sources(o->libraries, "a library; once for each, the preferred one first", "LIBRARY")
      .List("--fields", o->fields, "show these fields too", "FIELD...");
  AddStrict(pairs);
  pairs.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Pairs(session, *o); });
  Command heads(line, "template", "Print the heads of a table for import --table as CSV",
                "zel template PURECOMP > components.csv");
  heads.Argument("TYPE", o->type, "a bank type")
      .Option("--kind", o->kind, "of components: constants, correlations or groups", "KIND")
      .Run(Outputs::kJson, [o](Session& session) { return Template(session, *o); });
}

}  // namespace zelhost
