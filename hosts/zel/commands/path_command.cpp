// path
#include <algorithm>
#include <filesystem>

#include "commands/command.h"
#include "desk/open/change_places.h"
#include "desk/words/failure.h"

namespace zelhost {
namespace {

struct Options {
  std::vector<std::string> words;
};

constexpr char kHere[] = ".";

// The line of the configuration file that has a setting.
std::string LineOf(Configuration const& file, std::string const& name) {
  auto const at = file.lines.find(name);
  return at == file.lines.end() ? "" : "line " + std::to_string(at->second);
}

// The file of the library that a word of the configuration names; nothing if it is not found.
Cell Resolved(LibraryPath const& path, std::string const& source) {
  try {
    std::string const found = path.FindSource(source);
    std::string const library = found.substr(0, found.find(':', found.rfind('/') + 1));
    return Exists(found) ? Text(found) : Exists(library) ? Text(library) : Cell();
  } catch (OpenError const&) {
    return {};
  }
}

void AddSettings(Session& session, Report& report) {
  Configuration const& file = session.defaults.File();
  LibraryPath const& path = session.defaults.Path();
  Table table("settings", {{"setting", ""}, {"value", ""}, {"library", ""}, {"from", ""}});
  for (std::string const& source : file.libraries) {
    table.Add("libraries", source, Resolved(path, source), LineOf(file, "libraries"));
  }
  if (session.hasNames) {
    table.Add("names", Text(session.namesPath), Text(session.namesPath), session.namesOrigin);
  } else if (!file.names.empty()) {
    table.Add("names", file.names, Text(session.namesPath), LineOf(file, "names"));
  }
  if (session.hasUnits) {
    table.Add("units", Text(session.unitWords), Cell(), "--units or ZEL_UNITS");
  } else if (!file.units.empty()) {
    table.Add("units", file.units, Cell(), LineOf(file, "units"));
  }
  for (auto const& set : file.sets) {
    table.Add("unit set " + set.first, set.second, Cell(), LineOf(file, "unit set " + set.first));
  }
  report.Add(std::move(table));
}

void AddFolders(Session& session, Report& report) {
  LibraryPath const& path = session.defaults.Path();
  Table& table = report.Begin("folders", {{"folder", ""}, {"libraries", ""}, {"from", ""}});
  auto const add = [&](std::string const& folder, std::string const& from) {
    Cell count;
    if (Exists(folder)) count = static_cast<std::int64_t>(path.LibrariesIn(folder).size());
    table.Add(folder, count, Text(from));
  };
  add(kHere, "");
  std::string const from =
      IsPathOfEnvironment() ? "ZEL_PATH" : LineOf(session.defaults.File(), "path");
  for (std::string const& folder : path.Folders()) add(folder, from);
}

Report Path(Session& session, Options const& o) {
  LibraryPath const& path = session.defaults.Path();
  Report report;
  if (o.words.empty()) {
    report.Fact("configuration", Text(session.defaults.File().file));
    AddSettings(session, report);
    AddFolders(session, report);
  }
  Table& table = report.Begin("libraries", {{"name", ""}, {"library", ""}, {"hidden by", ""}});
  for (std::string const& word : o.words) {
    std::string const found = path.Find(word);
    if (!Exists(found)) {
      throw OpenError(word, "not found" + LibraryPath::Suggestion(word), zel::openNotFound);
    }
    table.Add(word, found, Cell());
  }
  if (!o.words.empty()) return report;
  for (PathLibrary const& one : path.Libraries()) {
    table.Add(one.word, one.path, one.isHidden ? Text(path.Find(one.word)) : Cell());
  }
  return report;
}

}  // namespace

void AddPathCommand(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command(line, "path", "Show the settings and where libraries are found", "zel path perry")
      .OptionalArgument("NAME", o->words, "only what these names find")
      .Run(Outputs::kJsonAndCsv, [o](Session& session) { return Path(session, *o); });
}

}  // namespace zelhost
