// zelaccess._native: the library for the Python package. What users see is in the package's
// sources.
#include <zelaccess/Module.h>
#include <zelaccess/Version.h>

#include "common.h"

PYBIND11_MODULE(_native, module) {
  char reason[zel::kInitReasonSize] = {};
  if (!zel::TryInitZelAccess(reason)) {
    throw pybind11::import_error(
        std::string("zelaccess cannot start: ") + reason +
        "; it writes a temporary file while it starts, so check that $TMPDIR or /tmp is writable");
  }
  module.attr("version") = ZELACCESS_VERSION;
  zelpython::AddErrors(module);
  zelpython::AddCatalogue(module);
  zelpython::AddCurves(module);
  zelpython::AddLibraries(module);
  zelpython::AddBanks(module);
  zelpython::AddChanges(module);
  zelpython::AddReports(module);
}
