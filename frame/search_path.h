// The search path of the process, with folders prepended.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel {

// The environment setting "path=..." made of an install folder (when there is one), further folders
// and the old value, each folder followed by ";". While the whole is 4101 characters or longer it
// is cut at its last ";". Throws std::length_error when there is nowhere left to cut.
std::string ComposeSearchPath(std::optional<std::string> const& installFolder,
                              std::vector<std::string> const& folders, std::string_view oldValue);

// Prepends folders to the variable "Path": the value "InstallDir" of the settings key
// "Software\Ordwin\OrdwinHub\" + subKey, when there is one, and then `folders`. `oldValue` receives
// the previous value, allocated by malloc; the caller frees it, also when this throws
// std::length_error, which leaves the environment as it was.
void BuildSearchPath(char*& oldValue, std::string_view subKey,
                     std::vector<std::string> const& folders);

}  // namespace zel
