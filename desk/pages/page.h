// Pages of HTML that show components with their constants, correlations and charts. A page is one
// file that needs no network: data, program and the chart library are in it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desk/open/preference_list.h"

namespace zel::desk {

struct PageOptions {
  std::string title;  // empty: made from the content
  std::string maker;  // the program that makes the page, with its version
  // Called before each component, with the number of those that are done and of all.
  std::function<void(std::size_t done, std::size_t total)> progress;
};

struct Page {
  std::string html;
  std::int64_t components = 0;
  std::int64_t curves = 0;
  std::int64_t pairs = 0;
  std::int64_t findings = 0;
  double error = 0.0;  // greatest relative error of a charted value; see SampledCurve
};

// A sheet of components, by number, ID, CAS number or name, side by side: as merged, or with `each`
// a column for each source. Throws Failure as PreferenceList::Search does.
Page MakeSheet(PreferenceList& list, std::vector<std::string> const& components, bool each,
               PageOptions const& options);

// All components of the list, the pairs of its libraries and what the checks of data find.
// `acceptIdentity` makes different substances a warning, as in the list.
Page MakeLibraryPage(PreferenceList& list, bool acceptIdentity, PageOptions const& options);

}  // namespace zel::desk
