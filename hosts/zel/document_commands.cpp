// import, export, dump, list
#include <zelaccess/CompList_p.h>
#include <zelaccess/LibMaint_p.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "command.h"
#include "failure.h"
#include "item_key.h"
#include "output_file.h"
#include "pure_component.h"
#include "replacement.h"
#include "span_of_numbers.h"

namespace zelhost {
namespace {

namespace fs = std::filesystem;

struct Options {
  std::string path;
  std::vector<std::string> files;
  std::string bank;
  std::string component;
  std::string output;
  std::string sort = "name";
  std::string filter;
  std::string range;
  std::string library;
  ChangeOptions change;
  bool replace = false;
  bool create = false;
  bool verbose = false;
  bool banner = false;
  bool componentFiles = false;
  bool descending = false;
};

LibraryChange ChangeFor(Options const& o) {
  if (!fs::exists(o.path) && o.create) return LibraryChange::New(o.path, zel::libKind11, false, "");
  return {o.path, o.change};
}

Report Import(Options const& o) {
  for (std::string const& file : o.files) {
    if (!fs::is_regular_file(file)) throw Failure(file + ": not found");
  }
  zel::InitZelAccess();
  LibraryChange change = ChangeFor(o);
  auto* const maint = dynamic_cast<zel::LibMaint_p*>(&change.Open().Maint());
  maint->SetLogLevel(o.verbose ? 2 : 1);
  for (std::string const& file : o.files) {
    std::string const absolute = fs::absolute(file).string();
    bool const good = o.bank.empty() ? maint->Import(absolute.c_str(), o.replace)
                                     : maint->ImportComponent(absolute.c_str(),
                                                              UpperCase(o.bank).c_str(), o.replace);
    if (good) continue;
    char const* const last = maint->GetLastErrorText();
    throw Failure(file + ": " + (last != nullptr ? last : "not imported") +
                  (o.change.inPlace ? "; what stood before the error was imported"
                                    : "; the library is as it was"));
  }
  change.PutInPlace();
  Report report;
  report.Fact("imported", static_cast<std::int64_t>(o.files.size()));
  report.Fact("library", o.path);
  return report;
}

// The path of a document, which gets an extension when it has none; a folder stays one.
std::string ExportTarget(std::string const& output) {
  if (output.empty()) return "";
  RefuseLibraryPath(output);
  fs::path target = fs::absolute(output);
  if (fs::is_directory(target)) return (target / "").string();
  if (target.has_filename() && !target.has_extension()) target += ".xml";
  return target.string();
}

Report Export(Options const& o) {
  zel::InitZelAccess();
  Library const library = Library::OpenRead(o.path);
  std::string const target = ExportTarget(o.output);
  zel::LibMaint& maint = library.Maint();
  bool good = false;
  if (!o.component.empty()) {
    BankName const bank = o.bank.empty() ? library.Bank(kPureType)
                                         : library.Bank(kPureType + (":" + UpperCase(o.bank)));
    Component const component = ParseComponent(o.component);
    std::string const name = bank.name;
    if (std::string const* const id = std::get_if<std::string>(&component)) {
      good = maint.ExportComponentById(name.c_str(), id->c_str(), target.c_str(), o.banner);
    } else {
      auto number = std::get_if<long>(&component) != nullptr
                        ? static_cast<std::int32_t>(std::get<long>(component))
                        : maint.FindNumberByCas(std::get<zel::casn>(component));
      good = maint.ExportComponentByNumber(name.c_str(), number, target.c_str(), o.banner);
    }
    if (!good) {
      throw Failure(o.path + ": component " + o.component + " of bank " + ToText(bank) +
                    " is not there, or its document cannot be written");
    }
  } else if (!o.bank.empty()) {
    BankName const bank = library.Bank(o.bank);
    good = maint.ExportBank(bank.type.c_str(), bank.name.c_str(), target.c_str(), o.banner,
                            o.componentFiles);
  } else {
    good = maint.ExportLibrary(target.c_str(), o.banner, o.componentFiles);
  }
  if (!good) throw Failure((target.empty() ? o.path : target) + ": cannot be written");
  Report report;
  report.Fact("exported", o.path);
  report.Fact("to", target.empty() ? fs::absolute(o.path).parent_path().string() : target);
  return report;
}

// The library tells nothing of an index that it could not write.
void MakeRoomFor(fs::path const& index) {
  std::error_code error;
  fs::remove(index, error);
  if (error || fs::exists(index)) throw Failure(index.string() + ": cannot be replaced");
}

void CheckWritten(fs::path const& index, bool mayBeEmpty) {
  std::error_code none;
  auto const size = fs::is_regular_file(index, none) ? fs::file_size(index, none) : 0;
  char last = '\n';
  if (size > 0) {
    std::ifstream file(index, std::ios::binary);
    file.seekg(-1, std::ios::end).get(last);
  }
  bool const whole = fs::is_regular_file(index, none) && (size > 0 || mayBeEmpty) && last == '\n';
  if (!whole) throw Failure(index.string() + ": cannot be written whole");
}

Report Dump(Options const& o) {
  Library const library = Library::OpenRead(o.path);
  if (!o.bank.empty()) {
    BankName const bank = library.Bank(o.bank);
    auto* const maint = dynamic_cast<zel::LibMaint_p*>(&library.Maint());
    maint->DumpBankTree(bank.type.c_str(), bank.name.c_str(), 0, stdout, -1);
    return {};
  }
  std::vector<BankName> const banks = library.Banks();
  fs::path const index = fs::absolute(o.path).replace_extension(".bnk");
  MakeRoomFor(index);
  library.Maint().WriteTextDump(&library.File());
  CheckWritten(index, banks.empty());
  Report report;
  report.Fact("written", index.string());
  for (BankName const& bank : library.Banks(kPureType)) {
    fs::path const file = fs::absolute(o.path).replace_extension("." + bank.name + ".cmp");
    CheckWritten(file, true);
    report.Fact("components of " + bank.name, file.string());
  }
  return report;
}

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
  throw WrongUsage("--sort is name, id, formula, cas, nbp or mw");
}

void BuildList(Options const& o, zel::CompList& list) {
  zel::InitZelAccess();
  Library const library = Library::OpenRead(o.library);
  BankName const bank = o.bank.empty() ? library.Bank(kPureType)
                                       : library.Bank(kPureType + (":" + UpperCase(o.bank)));
  if (!list.GetBuilder()->BuildList(&library.File(), bank.name.c_str(), o.path.c_str())) {
    throw Failure(o.path + ": cannot be written");
  }
}

// A list begins with comments, which say that it is generated.
bool IsList(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  return file.get() == ';';
}

Report List(Options const& o) {
  RefuseLibraryPath(o.path);
  zel::compListSorts const sort = SortNamed(o.sort);
  auto const range = ParseSpan(o.range, "what the list is sorted by");
  zel::Handle<zel::CompList> const list(zel::CompList::NewCompList());
  if (!o.library.empty()) BuildList(o, *list);
  if (!list->ReadList(o.path.c_str())) throw Failure(o.path + ": not found, or cannot be read");
  if (!IsList(o.path)) throw Failure(o.path + ": is no list; --build makes one");
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
    table.Add({Text(id), Text(cas), Text(formula), Number(nbp), Number(mw), Text(name)});
  }
  return report;
}

}  // namespace

void AddDocumentCommands(CLI::App& app) {
  auto const o = std::make_shared<Options>();
  Command reading(app, "import", "Read XML documents into a library, all or nothing",
                  "zel import sample.lb1 sample.xml --create");
  reading.Argument("LIBRARY", o->path, "a library file")
      .Argument("DOCUMENT", o->files, "documents of a library, bank or component")
      .Option("--bank", o->bank, "the documents are components for this bank", "NAME")
      .Flag("--create", o->create, "make the library when it is not there")
      .Flag("--replace", o->replace, "items that are there are replaced and no error")
      .Flag("--verbose", o->verbose, "tell of progress and warnings");
  AddChangeOptions(reading, o->change);
  reading.Run(Outputs::kText, [o] { return Import(*o); });
  Command(app, "export", "Write a library, a bank or a component as XML",
          "zel export sample.lb1 -o out/sample.xml")
      .Argument("LIBRARY", o->path, "a library file")
      .Option("-o,--output", o->output, "the document (.xml), or a folder; else beside LIBRARY",
              "FILE")
      .Option("--bank", o->bank, "only this bank", "BANK")
      .Option("--component", o->component, "only this component", "COMPONENT")
      .Flag("--banner", o->banner, "add a block for a maintenance log")
      .Flag("--component-files", o->componentFiles, "a document for each component")
      .Run(Outputs::kText, [o] { return Export(*o); });
  Command(app, "dump", "Write tab-separated indexes, or show a bank's tree", "zel dump sample.lb1")
      .Argument("LIBRARY", o->path, "a library file")
      .Option("--tree", o->bank, "print the structure of this bank's tree", "BANK")
      .Run(Outputs::kText, [o] { return Dump(*o); });
  Command(app, "list", "Build a pick list from a library, or query one",
          "zel list picker.lst --sort name --filter \"*butane\"")
      .Argument("LIST", o->path, "a list file")
      .Option("--build", o->library, "make it from this library first", "LIBRARY")
      .Option("--bank", o->bank, "from this bank of pure components", "NAME")
      .Option("--sort", o->sort, "name, id, formula, cas, nbp or mw", "KEY")
      .Option("--filter", o->filter, "of the sorted text: \"*\" any text, \"?\" one letter",
              "PATTERN")
      .Option("--range", o->range, "of the sorted number; an end may be missing", "MIN:MAX")
      .Flag("--descending", o->descending, "the last first")
      .Run(Outputs::kJsonAndCsv, [o] { return List(*o); });
}  // namespace zelhost

}  // namespace zelhost
