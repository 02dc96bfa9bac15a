#include <zelaccess/DeskReports.h>
#include <zelaccess/Version.h>

#include <utility>

#include "desk/change/library_change.h"
#include "desk/combine/flatten.h"
#include "desk/compare/comparison.h"
#include "desk/compare/contenders.h"
#include "desk/compare/coverage.h"
#include "desk/face/data.h"
#include "desk/face/guarded.h"
#include "desk/findings/library_check.h"
#include "desk/notes/merged_citations.h"
#include "desk/open/library_path.h"
#include "desk/open/members.h"
#include "desk/open/unfinished_change.h"
#include "desk/pages/page.h"
#include "desk/tables/component_table.h"
#include "desk/tables/table_export.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

void Prepare(Session& session, ReportSettings const& settings) {
  zel::InitZelAccess();
  session.patience = PatienceOf(settings.waitSeconds);
  session.units = DisplayUnits(settings.units);
  session.namesPath = LibraryPath(settings.path).Find(settings.names);
  OpenNames(session);
}

// Calls `work` with a session.
template <typename Work>
auto InSession(ReportSettings const& settings, Work const& work) {
  Session session;
  return Guarded(session, [&] {
    Prepare(session, settings);
    return work(session);
  });
}

std::vector<std::string> FoundOnPath(std::vector<std::string> words,
                                     ReportSettings const& settings) {
  LibraryPath const path(settings.path);
  for (std::string& word : words) word = path.FindSource(word);
  return words;
}

// Calls `work` with the preference list.
template <typename Work>
auto WithList(std::vector<std::string> const& libraries, ReportSettings const& settings,
              Work const& work) {
  return InSession(settings, [&](Session& session) {
    PreferenceList list(session,
                        {FoundOnPath(libraries, settings), settings.acceptIdentity, false});
    return work(list);
  });
}

PageOptions Made() {
  PageOptions options;
  options.maker = std::string("ZelAccess ") + ZELACCESS_VERSION;
  return options;
}

// Citation and DOI of a contender's datum.
std::vector<Cell> CitedCells(PreferenceList const& list, std::size_t place, Contender const& one,
                             Citations& citations) {
  Citation const* const found =
      one.hasDatum ? citations.Find(LibraryAt(list, place), BankAt(list, place), one.code)
                   : nullptr;
  return found == nullptr ? RowOf(Cell(), Cell()) : RowOf(Text(found->text), Text(found->doi));
}

Table WhyConstant(PreferenceList const& list, std::string const& component,
                  zel::ZelConstantInfo const& constant) {
  Table table("sources", {{"source", ""},
                          {"value", constant.unit},
                          {"code", ""},
                          {"result", ""},
                          {"citation", ""},
                          {"doi", ""}});
  Citations citations;
  std::vector<Contender> const all = ContendersFor(list, component, constant);
  for (std::size_t i = 0; i < all.size(); ++i) {
    std::vector<Cell> row = RowOf(all[i].source, Number(all[i].value), Code(all[i].code),
                                  ResultOf(all[i], "has no value"));
    Append(row, CitedCells(list, i, all[i], citations));
    table.Add(std::move(row));
  }
  return InDisplayUnits(table, list.Units());
}

Table WhyCurve(PreferenceList const& list, std::string const& component,
               zel::ZelCorrelationInfo const& correlation) {
  std::vector<Column> heads = {{"source", ""}, {"equation", ""}};
  Append(heads, RangeColumns());
  Append(heads, std::vector<Column>{{"code", ""}, {"result", ""}, {"citation", ""}, {"doi", ""}});
  Table table("sources", std::move(heads));
  Citations citations;
  std::vector<Contender> const all = ContendersFor(list, component, correlation);
  for (std::size_t i = 0; i < all.size(); ++i) {
    Contender const& one = all[i];
    std::vector<Cell> row =
        RowOf(one.source, one.hasDatum ? Cell(std::int64_t{one.curve.equation}) : Cell());
    Append(row,
           one.hasDatum ? RangeMembers(one.curve, list.Units()) : RowOf(Cell(), Cell(), Cell()));
    Append(row, RowOf(Code(one.code), ResultOf(one, "has no correlation")));
    Append(row, CitedCells(list, i, one, citations));
    table.Add(std::move(row));
  }
  return table;
}

}  // namespace

Table DataOf(std::vector<std::string> const& libraries, std::vector<std::string> const& components,
             std::vector<std::string> const& fields, bool withSources,
             ReportSettings const& settings) {
  return WithList(libraries, settings, [&](PreferenceList& list) {
    ComponentChoice choice;
    choice.words = components;
    if (components.empty()) choice.pattern = "*";
    return InDisplayUnits(ComponentTable(list, ChosenComponents(list, choice), fields, withSources),
                          list.Units());
  });
}

Table PairsOf(std::vector<std::string> const& libraries, std::string const& type,
              std::vector<std::string> const& fields, std::vector<std::string> const& components,
              ReportSettings const& settings) {
  return InSession(settings, [&](Session& session) {
    std::vector<Library> open;
    open.reserve(libraries.size());
    for (std::string const& path : FoundOnPath(libraries, settings)) {
      open.push_back(OpenFinished(session, path));
    }
    return InDisplayUnits(PairTable(open, type, fields, components), session.units);
  });
}

Table CoverageOf(std::vector<std::string> const& libraries, std::string const& type,
                 std::vector<std::string> const& components, ReportSettings const& settings) {
  return WithList(libraries, settings, [&](PreferenceList& list) {
    std::vector<std::string> const types = PairTypes({type});
    PairCoverage pairs(list);
    for (std::string const& given :
         components.empty() ? ComponentsInPairs(list, types) : components) {
      std::string const& word = list.Lookup(given);
      PureComponent component;
      list.Search(word, component);
      pairs.Add(word);
    }
    Table table("pairs", {{"one", ""}, {"other", ""}, {"from", ""}});
    for (std::size_t i = 0; i < pairs.Count(); ++i) {
      for (std::size_t k = i + 1; k < pairs.Count(); ++k) {
        table.Add(pairs.WordOf(i), pairs.WordOf(k), Text(pairs.SourceOf(types.front(), i, k)));
      }
    }
    return table;
  });
}

Table WhyOf(std::vector<std::string> const& libraries, std::string const& component,
            std::string const& datum, ReportSettings const& settings) {
  return WithList(libraries, settings, [&](PreferenceList& list) {
    zel::ZelConstantInfo const* const constant = FindConstant(datum);
    zel::ZelCorrelationInfo const* const curve = FindCorrelation(datum);
    if (constant == nullptr && curve == nullptr) {
      throw UnknownWord(
          "", "\"" + datum + "\" is neither a constant nor a correlation" + DidYouMeanDatum(datum));
    }
    PureComponent merged;
    list.Search(component, merged);  // refuses sources that mean different substances
    return constant != nullptr ? WhyConstant(list, component, *constant)
                               : WhyCurve(list, component, *curve);
  });
}

Table CheckOf(std::vector<std::string> const& libraries, std::vector<std::string> const& silent,
              bool structureOnly, ReportSettings const& settings) {
  CheckSettings check;
  check.silent = silent;
  check.structureOnly = structureOnly;
  return FindingsOf(libraries, check, settings);
}

Table FindingsOf(std::vector<std::string> const& libraries, CheckSettings const& check,
                 ReportSettings const& settings) {
  return InSession(settings, [&](Session& session) {
    CheckOptions options;
    options.libraries = FoundOnPath(libraries, settings);
    options.silent = check.silent;
    options.structureOnly = check.structureOnly;
    options.minStrength = check.minStrength;
    options.acceptIdentity = settings.acceptIdentity;
    return FindingTable("findings", CheckLibraries(session, options));
  });
}

ComparedSources CompareSources(std::string const& first, std::string const& second,
                               std::vector<std::string> const& components, double tolerance,
                               ReportSettings const& settings) {
  return InSession(settings, [&](Session& session) {
    LibraryPath const path(settings.path);
    CompareOptions options;
    options.components = components;
    options.tolerance = tolerance;
    options.acceptIdentity = settings.acceptIdentity;
    Comparison found = Compare(session, path.FindSource(first), path.FindSource(second), options);
    return ComparedSources{found.components,
                           InDisplayUnits(found.differingConstants, session.units),
                           InDisplayUnits(found.differingCorrelations, session.units),
                           std::move(found.notCompared), std::move(found.oneSided)};
  });
}

std::string TableTextOf(std::string const& library, std::string const& bank,
                        std::string const& form, std::string const& kind,
                        ReportSettings const& settings) {
  return InSession(settings, [&](Session& session) {
    Library const from = OpenFinished(session, LibraryPath(settings.path).Find(library));
    BankName const which = from.Bank(bank);
    return InFormOf("table." + form,
                    ExportTable(from, which, TableKindNamed(kind, which.type), session.units));
  });
}

Table FlattenTo(std::vector<std::string> const& libraries, std::string const& path,
                std::vector<std::string> const& components, ReportSettings const& settings) {
  return InSession(settings, [&](Session& session) {
    PreferenceList list(session,
                        {FoundOnPath(libraries, settings), settings.acceptIdentity, false});
    if (std::filesystem::exists(path)) throw Error(path, "exists");
    LibraryChange change = LibraryChange::New(session, path, {}, {});
    FlattenOptions options;
    options.components = components;
    Flattened done = Flatten(list, change.Open(), options);
    change.PutInPlace();
    return std::move(done.taken);
  });
}

std::string SheetOf(std::vector<std::string> const& libraries,
                    std::vector<std::string> const& components, bool each,
                    ReportSettings const& settings) {
  return WithList(libraries, settings, [&](PreferenceList& list) {
    return MakeSheet(list, components, each, Made()).html;
  });
}

std::string ReportOf(std::vector<std::string> const& libraries, ReportSettings const& settings) {
  return WithList(libraries, settings, [&](PreferenceList& list) {
    return MakeLibraryPage(list, settings.acceptIdentity, Made()).html;
  });
}

}  // namespace zel::desk
