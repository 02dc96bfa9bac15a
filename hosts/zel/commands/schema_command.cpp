// schema
#include <algorithm>
#include <nlohmann/json.hpp>

#include "commands/command.h"
#include "desk/words/failure.h"
#include "desk/words/nearest_word.h"
#include "output/schemas.h"

namespace zelhost {
namespace {

struct Options {
  std::string command;
};

Report Schema(Options const& o) {
  std::vector<PublishedSchema> const schemas = PublishedSchemas();
  Report report;
  if (o.command.empty()) {
    Table& table = report.Begin("schemas", {{"schema", ""}, {"title", ""}});
    for (PublishedSchema const& one : schemas) {
      std::string const title = nlohmann::json::parse(one.text).at("title");
      table.Add("zel/" + one.command, title);
    }
    return report;
  }
  auto const at = std::find_if(schemas.begin(), schemas.end(), [&](PublishedSchema const& one) {
    return one.command == o.command;
  });
  if (at == schemas.end()) {
    std::vector<std::string> commands;
    commands.reserve(schemas.size());
    for (PublishedSchema const& one : schemas) commands.push_back(one.command);
    throw UnknownWord("", "there is no schema of " + o.command + DidYouMean(o.command, commands) +
                              " `zel schema` lists them");
  }
  report.SetDocument(at->text);
  return report;
}

}  // namespace

void AddSchemaCommand(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command(line, "schema", "Print the JSON Schema of a command's --json", "zel schema find")
      .OptionalArgument("COMMAND", o->command, "a command, or error; by default a list")
      .Run(Outputs::kJsonAndCsv, [o](Session&) { return Schema(*o); });
}

}  // namespace zelhost
