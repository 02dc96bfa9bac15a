// The steps that all checks of data have in common.
#pragma once

#include <deque>
#include <string>

#include "store/progress_steps.h"
#include "verify/checked_library.h"
#include "verify/data_finding.h"
#include "verify/open_library.h"

namespace zel {

// Null, with a finding, unless the library is open.
inline LibFile_i* OpenOrTell(ZelCheckedLibrary const& library, DataFindings& findings) {
  LibFile_i* const file = OpenLibrary(library.library);
  if (file == nullptr) {
    findings.Damage("header", library.name != nullptr ? library.name : "", "the library",
                    "it is not open");
  }
  return file;
}

inline std::string NameOf(ZelCheckedLibrary const& library) {
  return library.name != nullptr ? library.name : library.library->GetLibName();
}

// Collects the libraries that are open; the others are findings. Returns the progress of the first
// library that has one; null without one.
inline ZelProgress* OpenAll(ZelCheckedLibrary const* libraries, std::int32_t count,
                            DataFindings& findings, std::deque<CheckedLibrary>& opened) {
  ZelProgress* host = nullptr;
  for (std::int32_t i = 0; i < count; ++i) {
    LibFile_i* const file = OpenOrTell(libraries[i], findings);
    if (file == nullptr) continue;
    opened.emplace_back(*file, NameOf(libraries[i]), findings);
    if (host == nullptr) host = file->Progress();
  }
  return host;
}

// Does the work, unless the host cancels it, which is then a finding.
template <typename Work>
void RunCancellable(ProgressSteps& progress, DataFindings& findings, std::string const& library,
                    Work const& work) {
  try {
    if (progress.IsCancelled()) throw WorkCancelled();
    work();
    progress.End();
  } catch (WorkCancelled) {
    findings.Cancelled(library);
  }
}

}  // namespace zel
