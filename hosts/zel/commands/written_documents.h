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

// Reports what cannot be read back from the documents in the folder: documents that cannot be read,
// after the control characters that XML cannot hold were removed from them, and items of the banks
// that are not in them. `name` is the name of the document of a single bank
// or of the library. The exit status is set if there is any.
void ReportUnreadable(Session& session, Report& report, std::filesystem::path const& folder);
void ReportMissing(Session& session, Report& report, Library const& library,
                   std::vector<BankName> const& banks, std::filesystem::path const& folder,
                   std::filesystem::path const& name, bool isSingle);

}  // namespace zelhost
