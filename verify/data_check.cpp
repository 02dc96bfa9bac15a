// The checks of data: of one library, and of several with each other.
#include "zelaccess/DataCheck.h"

#include <deque>

#include "verify/bank_checks.h"
#include "verify/bank_components.h"
#include "verify/check_run.h"
#include "verify/component_checks.h"
#include "verify/library_comparison.h"

namespace zel {
namespace {

void CheckComponents(CheckedLibrary& library, CheckedBank const& bank) {
  DataFindings& findings = library.Findings();
  BankComponents components(findings);
  ComponentView const component;
  std::int64_t const total = library.CountItems(bank);
  std::int64_t done = 0;
  findings.Progress(library.Name(), bank, 0, total);
  library.Walk(bank, component.Def(), [&](std::int32_t const* words) {
    CheckedItem item = library.ComponentItem(bank, component.Identity(), words[0]);
    CheckComponent(component, item, findings);
    components.Component(component, std::move(item));
    // The last call is made when the bank is done: an item that cannot be read is not counted.
    if (++done < total) findings.Progress(library.Name(), bank, done, total);
  });
  components.Close();
  if (total > 0) findings.Progress(library.Name(), bank, total, total);
}

}  // namespace

bool CheckLibraryData(ZelCheckedLibrary const& library, ZelDataCheckOptions const& options,
                      ZelDataFindingSink& sink) {
  DataFindings findings(sink, options);
  LibFile_i* const file = OpenOrTell(library, findings);
  if (file == nullptr) return false;
  CheckedLibrary checked(*file, NameOf(library), findings);
  ProgressSteps progress(file->Progress());
  // Most of the time goes to the checks of components, each of which is visited once.
  if (progress.IsWatched()) progress.Expect(static_cast<double>(checked.CountAllItems()));
  checked.SetProgress(progress);
  RunCancellable(progress, findings, checked.Name(), [&] {
    for (auto const& bank : checked.Banks(kPureComponentType)) CheckComponents(checked, bank);
    for (CheckedBank const& bank : checked.Banks()) {
      CheckPairs(checked, bank);
      CheckGroups(checked, bank);
    }
  });
  return findings.IsGood();
}

bool CheckComponentData(IZelPureComp* component, char const* library, char const* bank,
                        ZelDataCheckOptions const& options, ZelDataFindingSink& sink) {
  DataFindings findings(sink, options);
  auto* const known = dynamic_cast<PureComp_i*>(component);
  if (known == nullptr) return true;
  ComponentView const view(*known);
  ZelIdentity const identity = view.Identity();
  CheckComponent(view,
                 ComponentItem(library != nullptr ? library : "",
                               CheckedBank(kPureComponentType, bank != nullptr ? bank : ""),
                               identity, identity.number),
                 findings);
  return findings.IsGood();
}

bool CompareLibraryData(ZelCheckedLibrary const* libraries, std::int32_t count,
                        ZelDataCheckOptions const& options, ZelDataFindingSink& sink) {
  DataFindings findings(sink, options);
  if (count > 0 && libraries == nullptr) {
    OpenOrTell({}, findings);
    return false;
  }
  std::deque<CheckedLibrary> checked;
  ProgressSteps progress(OpenAll(libraries, count, findings, checked));
  double work = 0.0;
  for (std::size_t i = 0; i < checked.size(); ++i) {
    checked[i].SetProgress(progress);
    if (!progress.IsWatched()) continue;
    auto const times = static_cast<double>(i + 1);  // for itself, then with each earlier library
    work += times * static_cast<double>(checked[i].CountAllItems(kPureComponentType));
  }
  progress.Expect(work);
  RunCancellable(progress, findings, checked.empty() ? "" : checked.front().Name(), [&] {
    IdentityComparison identities(findings);
    for (CheckedLibrary& library : checked) identities.Library(library);
    for (std::size_t i = 1; i < checked.size(); ++i) {
      for (std::size_t earlier = 0; earlier < i; ++earlier) {
        CompareComponents(checked[i], checked[earlier]);
      }
    }
  });
  return findings.IsGood();
}

}  // namespace zel
