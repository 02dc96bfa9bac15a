// sheet, report
#include <filesystem>
#include <memory>
#include <optional>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/files/output_file.h"
#include "desk/pages/page.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "output/progress.h"

namespace zelhost {
namespace {

struct Options {
  SourceOptions sources;
  std::vector<std::string> components;
  std::string output;
  std::string title;
  bool each = false;
};

void CheckOutput(Session const& session, std::string const& output) {
  if (output.empty()) throw WrongUsage("the name of the output is empty");
  if (IsStandardOutput(output)) {
    if (session.form == Form::kText) return;
    throw WrongUsage("--json and a page on standard output exclude each other");
  }
  RefuseLibraryPath(output);
  RefuseSpecialFile(output);
  std::string const ending = LowerCase(std::filesystem::path(output).extension().string());
  if (ending != ".html" && ending != ".htm") {
    throw WrongUsage(output + ": a page is written as .html");
  }
}

Report WritePage(Session& session, Options const& o, bool isSheet) {
  CheckOutput(session, o.output);
  PreferenceList list(session, o.sources);
  PageOptions options;
  options.title = o.title;
  options.maker = "zel " ZEL_VERSION;
  std::optional<Progress> progress;
  options.progress = [&](std::size_t done, std::size_t total) {
    if (done == 0) progress.emplace("reading components", total);
    progress->Step();
  };
  Page const page = isSheet ? MakeSheet(list, o.components, o.each, options)
                            : MakeLibraryPage(list, o.sources.acceptIdentity, options);
  progress.reset();
  WriteFile(o.output, page.html);
  Report report;
  if (IsStandardOutput(o.output)) return report;  // only the page
  report.Fact("written", o.output);
  report.Fact("components", page.components);
  report.Fact("curves", page.curves);
  if (!isSheet) report.Fact("pairs", page.pairs);
  if (!isSheet) report.Fact("findings", page.findings);
  AddWarnings(list, report);
  return report;
}

}  // namespace

void AddPageCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command sheet(line, "sheet", "Write a sheet of components as an HTML page",
                "zel sheet ETHANOL -l perry.lb1 -l crc.lb1 -o ethanol.html");
  sheet.Argument("COMPONENT", o->components, "by number, ID, CAS number or name; one or several");
  AddSourceOptions(sheet, o->sources);
  sheet.Required("-o,--output", o->output, "the page (.html); - is standard output", "FILE")
      .Option("--title", o->title, "default: the components' names", "TEXT")
      .Flag("--each", o->each, "a column for each source instead of the merged one")
      .Run(Outputs::kJson, [o](Session& session) { return WritePage(session, *o, true); });
  Command report(line, "report", "Write all components of libraries as one HTML page",
                 "zel report -l perry.lb1 -l sample.lb1 -o library.html");
  AddSourceOptions(report, o->sources);
  report.Required("-o,--output", o->output, "the page (.html); - is standard output", "FILE")
      .Option("--title", o->title, "default: the sources", "TEXT")
      .Run(Outputs::kJson, [o](Session& session) { return WritePage(session, *o, false); });
}

}  // namespace zelhost
