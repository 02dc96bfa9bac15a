// The judgement of the data of libraries.
#include "zelaccess/DataJudgement.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <map>
#include <set>

#include "banks/catalogue.h"
#include "verify/check_run.h"
#include "verify/checked_library.h"
#include "verify/judge/judged_finding.h"
#include "verify/judge/kin.h"
#include "verify/judge/range_habits.h"
#include "verify/judge/reading.h"
#include "verify/judge/relation_tables.h"
#include "verify/judge/structure_groups.h"

namespace zel {
namespace {

void ReadRecords(CheckedLibrary& library, std::deque<Record>& records) {
  for (CheckedBank const& bank : library.Banks(kPureComponentType)) {
    ComponentView const component;
    library.Walk(bank, component.Def(), [&](std::int32_t const* words) {
      records.emplace_back(component, library.ComponentItem(bank, component.Identity(), words[0]));
    });
  }
}

// Curves are evaluated with constants of their own component or, where it does not have them, with
// those that other libraries have.
void Complete(std::deque<Record>& records, std::vector<Substance> const& substances) {
  std::map<Record const*, Substance const*> of;
  for (Substance const& substance : substances) {
    for (Record const* const record : substance.Records()) of[record] = &substance;
  }
  for (Record& record : records) {
    Substance const& substance = *of.at(&record);
    record.Complete(substance.Median(propertyMW), substance.Median(propertyTC),
                    substance.Median(propertyPC), substance.Median(propertyNBP));
  }
}

// A value of a curve can be wrong because of a constant that it is evaluated with.
void AddConstantsOfCurves(std::vector<Tension>& tensions) {
  for (Tension& tension : tensions) {
    if (tension.isOfRange) continue;
    std::vector<Tension::Part> more;
    for (Tension::Part const& part : tension.parts) {
      if (!part.claim.datum.IsCurve()) continue;
      for (std::uint32_t const index : part.claim.record->ConstantsOf(part.claim.datum.Index())) {
        more.push_back({{part.claim.record, Datum::Constant(index)}, part.stake});
      }
    }
    for (Tension::Part const& part : more) {
      bool const isThere =
          std::any_of(tension.parts.begin(), tension.parts.end(),
                      [&](Tension::Part const& one) { return one.claim == part.claim; });
      if (!isThere) tension.parts.push_back(part);
    }
  }
}

// Whether molecules pair in the vapor, as acids do, or form chains, as those of hydrogen fluoride.
bool PairsInVapor(Substance const& substance) {
  static Composition const hydrogenFluoride = {{"F", 1}, {"H", 1}};
  if (substance.Atoms() == hydrogenFluoride) return true;
  auto const& records = substance.Records();
  return std::any_of(records.begin(), records.end(), [&](Record const* record) {
    auto const groups = GroupsOf(record->Smiles(), substance.Atoms());
    return groups && (*groups)[static_cast<std::size_t>(StructureGroup::kAcid)] > 0.0;
  });
}

// The relations between heats and conductivities of a vapor hold for single molecules: where pairs
// of molecules break up, only gross differences mean anything.
void ForgivePairs(Substance const& substance, std::vector<Tension>& tensions) {
  constexpr double kGross = 10.0;
  static constexpr Datum kOfVapor[] = {Datum::Curve(correlationVaporThermal),
                                       Datum::Curve(correlationLatentHeat),
                                       Datum::Constant(propertyHVAPNBP)};
  if (!PairsInVapor(substance)) return;
  std::erase_if(tensions, [&](Tension const& one) {
    bool const isOfVapor =
        std::find(std::begin(kOfVapor), std::end(kOfVapor), one.about.datum) != std::end(kOfVapor);
    return isOfVapor && !one.isBetweenSources && !one.isOfRange && one.deviation > 1.0 &&
           one.deviation < kGross;
  });
}

// A suspicion that is reported.
struct Reported {
  Suspicion suspicion;
  std::size_t substance;
};

// Substances are judged one after the other, so that only the comparisons with other substances are
// all in memory.
std::vector<Reported> SuspicionsIn(std::vector<Substance> const& substances,
                                   std::set<std::string, std::less<>> const& silent,
                                   double minStrength) {
  std::vector<std::vector<Tension>> tensions(substances.size());
  AddKinComparisons(substances, tensions);
  AddRangeHabits(substances, tensions);
  std::vector<Reported> all;
  for (std::size_t i = 0; i < substances.size(); ++i) {
    std::vector<Tension> those = std::move(tensions[i]);
    AddRelations(substances[i], those);
    AddSourceComparisons(substances[i], those);
    AddConstantsOfCurves(those);
    ForgivePairs(substances[i], those);
    std::erase_if(those, [&](Tension const& one) {
      return silent.count(std::string_view(one.rule->id)) != 0;
    });
    for (Suspicion& one : Diagnose(those, minStrength)) all.push_back({std::move(one), i});
  }
  std::stable_sort(all.begin(), all.end(), [](Reported const& a, Reported const& b) {
    return a.suspicion.strength > b.suspicion.strength;
  });
  return all;
}

void Report(std::vector<Reported> const& all, std::vector<Substance> const& substances,
            std::string const& library, ZelDataFindingSink& sink) {
  for (Reported const& one : all) {
    if (one.suspicion.claim.record->Item().library != library) continue;
    JudgedFinding finding(one.suspicion, substances[one.substance]);
    sink.FoundData(finding.Fill());
  }
}

void Judge(std::deque<CheckedLibrary>& libraries, ZelJudgementOptions const& options,
           ZelDataFindingSink& sink) {
  std::set<std::string, std::less<>> silent;
  for (std::int32_t i = 0; options.silent != nullptr && i < options.silentCount; ++i) {
    if (options.silent[i] != nullptr) silent.insert(options.silent[i]);
  }
  std::deque<Record> records;
  for (CheckedLibrary& library : libraries) ReadRecords(library, records);
  std::vector<Substance> const substances = SubstancesOf(records);
  Complete(records, substances);
  std::vector<Reported> const all = SuspicionsIn(substances, silent, options.minStrength);
  std::set<std::string> reported;
  for (CheckedLibrary const& library : libraries) {
    if (reported.insert(library.Name()).second) Report(all, substances, library.Name(), sink);
  }
}

}  // namespace

ZelDataRule const* GetDataRules(std::int32_t& count) {
  static std::vector<ZelDataRule> const rules = [] {
    std::vector<ZelDataRule> rows;
    for (JudgeRule const* const rule : AllRules()) {
      rows.push_back({rule->id, rule->formula, rule->toleranceText});
    }
    return rows;
  }();
  count = static_cast<std::int32_t>(rules.size());
  return rules.data();
}

bool JudgeLibraryData(ZelCheckedLibrary const* libraries, std::int32_t count,
                      ZelJudgementOptions const& options, ZelDataFindingSink& sink) {
  DataFindings findings(sink, {});
  if (count > 0 && libraries == nullptr) {
    OpenOrTell({}, findings);
    return false;
  }
  std::deque<CheckedLibrary> checked;
  ProgressSteps progress(OpenAll(libraries, count, findings, checked));
  double work = 0.0;
  for (CheckedLibrary& library : checked) {
    library.SetProgress(progress);
    if (progress.IsWatched()) {
      work += static_cast<double>(library.CountAllItems(kPureComponentType));
    }
  }
  progress.Expect(work);
  RunCancellable(progress, findings, checked.empty() ? "" : checked.front().Name(),
                 [&] { Judge(checked, options, sink); });
  return findings.IsGood();
}

}  // namespace zel
