// Checks of the documents that an export has written, before they are moved into place.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "desk/open/library.h"
#include "output/session.h"

namespace zelhost {

// The name of a file that is named after a bank or a component (zelaccess/Interchange.h).
std::string FileNameOf(std::string const& name);

// The fact of ReportUnreadable with the number of characters that it has removed.
inline constexpr char kControlsLeftOut[] = "control characters left out";

// Reports documents in the folder that cannot be read back, after removing from them the control
// characters that XML cannot hold. Sets the exit status if there are such documents.
void ReportUnreadable(Session& session, Report& report, std::filesystem::path const& folder);
// Reports banks of which not all items are in the documents. `name` is the name of the document of
// a single bank, if `isSingle`, or of the library. Sets the exit status if items are missing.
void ReportMissing(Session& session, Report& report, Library const& library,
                   std::vector<BankName> const& banks, std::filesystem::path const& folder,
                   std::filesystem::path const& name, bool isSingle);

}  // namespace zelhost
