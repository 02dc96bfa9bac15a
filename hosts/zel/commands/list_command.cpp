// list
#include <zelaccess/CompList_p.h>
#include <zelaccess/ZelAccess.h>

#include <filesystem>
#include <memory>
#include <sstream>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/files/folder.h"
#include "desk/files/input_file.h"
#include "desk/files/output_file.h"
#include "desk/files/standard_output.h"
#include "desk/open/library.h"
#include "desk/open/unfinished_change.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/number_range.h"
#include "output/progress.h"

namespace zelhost {
namespace {

namespace fs = std::filesystem;

struct Options {
  std::string path;
  std::string bank;
  std::string sort = "name";
  std::string filter;
  std::string range;
  std::string library;
  bool descending = false;
};

struct Sort {
  char const* word;
  zel::compListSorts sort;
};
constexpr Sort kSorts[] = {{"name", zel::sortByName},       {"id", zel::sortById},
                           {"formula", zel::sortByFormula}, {"cas", zel::sortByCas},
                           {"nbp", zel::sortByNbp},         {"mw", zel::sortByMw}};

zel::compListSorts SortNamed(std::string const& word) {
  for (Sort const& row : kSorts) {
    if (word == row.word) return row.sort;
  }
  throw WrongUsage("--sort must be name, id, formula, cas, nbp or mw");
}

// A list begins with comments, which say that it is generated.
bool IsList(std::string const& path) {
  std::ifstream file = OpenInput(path);
  return file.get() == ';';
}

void Read(Options const& o, std::string const& path, zel::CompList& list) {
  if (!list.ReadList(path.c_str())) throw Failure(o.path + ": not found, or cannot be read");
  if (!IsList(path)) throw Failure(o.path + ": is not a list; --build makes one");
}

std::string TextOf(std::string const& path) {
  std::ostringstream text;
  text << OpenInput(path).rdbuf();
  return text.str();
}

void CheckOutput(Session const& session, Options const& o) {
  if (IsStandardOutput(o.path)) {
    if (session.form == Form::kText && o.filter.empty() && o.range.empty()) return;
    throw WrongUsage(
        "--json, --csv, --filter, --range and a list on standard output exclude each "
        "other");
  }
  RefuseLibraryPath(o.path);
  RefuseSpecialFile(o.path);
  if (LowerCase(fs::path(o.path).extension().string()) == ".lst") return;
  throw WrongUsage(o.path + ": a list ends in .lst");
}

// The new list is read before it is moved into place, so that a failure leaves the old one.
void BuildList(Session& session, Options const& o, zel::CompList& list) {
  zel::InitZelAccess();
  Library const library = OpenFinished(session, o.library);
  BankName const bank = library.ComponentBank(o.bank);
  bool const isOutput = IsStandardOutput(o.path);
  fs::path const target =
      isOutput ? Inside(fs::temp_directory_path(), "list.lst") : fs::absolute(o.path);
  OutputFolder folder(target.parent_path(), o.path);
  FollowedWork work("listing " + o.library);
  FollowedWork::Following const following(work, library.File());
  std::string const path = folder.PathOf(target.filename().string());
  if (!list.GetBuilder()->BuildList(&library.File(), bank.name.c_str(), path.c_str())) {
    work.EndIfCancelled("no list was written");
    throw Failure(o.path + ": cannot be written");
  }
  if (isOutput) return Write(TextOf(path));
  Read(o, path, list);
  folder.MoveInto();
}

Report List(Session& session, Options const& o) {
  if (!o.library.empty()) CheckOutput(session, o);
  zel::compListSorts const sort = SortNamed(o.sort);
  bool const byNumber = sort == zel::sortByNbp || sort == zel::sortByMw;
  if (!o.range.empty() && !byNumber) throw WrongUsage("--range needs --sort nbp or mw");
  if (!o.filter.empty() && byNumber) {
    throw WrongUsage("--filter needs --sort name, id, formula or cas");
  }
  if (!o.bank.empty() && o.library.empty()) throw WrongUsage("--bank needs --build");
  auto const range = sort == zel::sortByNbp
                         ? ParseTemperatureSpan(o.range, "a boiling point", session.units)
                         : ParseSpan(o.range, "a molecular weight");
  zel::Handle<zel::CompList> const list(zel::CompList::NewCompList());
  if (o.library.empty() && fs::exists(o.path) && !fs::is_regular_file(o.path)) {
    throw Failure(o.path + ": is not a regular file");
  }
  o.library.empty() ? Read(o, o.path, *list) : BuildList(session, o, *list);
  if (!o.library.empty() && IsStandardOutput(o.path)) return {};  // only the list
  list->SetSort(sort, o.descending ? 1 : 0);
  list->SetFilter(o.filter.c_str());
  double const open = zel::gen_GetUndefDouble();
  if (range) list->SetRange(range->low.value_or(open), range->high.value_or(open));
  Report report;
  Table& table = report.Begin(
      "components",
      {{"id", ""}, {"cas", ""}, {"formula", ""}, {"NBP", "K"}, {"MW", ""}, {"name", ""}});
  char name[41] = {};
  char id[13] = {};
  char formula[21] = {};
  char cas[21] = {};
  double nbp = 0.0;
  double mw = 0.0;
  while (list->GetNext(name, id, formula, cas, nbp, mw)) {
    table.Add(Text(id), Text(cas), Text(formula), Number(nbp), Number(mw), Text(name));
  }
  report.Fact("found", static_cast<std::int64_t>(table.Rows().size()));
  return report;
}

}  // namespace

void AddListCommand(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command list(line, "list", "Build a pick list from a library, or query one",
               "zel list picker.lst --build perry.lb1 --filter \"*butane\"");
  list.Argument("LIST", o->path, "a list file, .lst; - for standard output")
      .Option("--build", o->library, "make it from this library first", "LIBRARY")
      .Library(o->library)
      .Option("--bank", o->bank, "from this bank of pure components", "NAME")
      .Option("--sort", o->sort, "name, id, formula, cas, nbp or mw", "KEY")
      .Option("--filter", o->filter, "of the sorted text: \"*\" any text, \"?\" one letter",
              "PATTERN")
      .Option("--range", o->range, "of the sorted number; an end may be missing", "MIN:MAX")
      .Flag("--descending", o->descending, "in descending order");
  AddStrict(list);
  list.Run(Outputs::kJsonAndCsv, [o](Session& session) { return List(session, *o); });
}

}  // namespace zelhost
