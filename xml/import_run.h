// What all that takes part in one import shares.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "maint/lib_maint.h"
#include "xml/unit_words.h"

namespace zel {

struct ImportRun {
  explicit ImportRun(LibMaint_i& maint) : owner(maint), log(maint.Log()), unitWords(log) {}

  LibMaint_i& owner;
  MaintLog& log;
  bool replaceExisting = false;  // an existing item is overwritten, not an error
  UnitWords unitWords;
  // Full paths of the documents that are open, outermost first.
  std::vector<std::string> openPaths;
};

}  // namespace zel
