// Documents that an export has written, looked through before they take their place.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "open/library.h"
#include "output/report.h"

namespace zelhost {

// Documents are named after banks and, with `componentFiles`, after components. Throws Failure for
// a name that no file can have; `banks` are those that give their names to documents.
void CheckDocumentNames(Library const& library, std::vector<BankName> const& banks);
void CheckComponentNames(Library const& library, std::vector<BankName> const& banks);

// What of the banks the documents in the folder do not give back: documents that cannot be read,
// and items that are not in them. `name` is that of the document of a single bank or of the
// library. The exit status is set when there is any.
void ReportUnreadable(Session& session, Report& report, std::filesystem::path const& folder);
void ReportMissing(Report& report, Library const& library, std::vector<BankName> const& banks,
                   std::filesystem::path const& folder, std::filesystem::path const& name,
                   bool isSingle);

}  // namespace zelhost
