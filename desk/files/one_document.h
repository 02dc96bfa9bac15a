// Documents of an export as one document.
#pragma once

#include <filesystem>
#include <string>

namespace zel::desk {

// The text of a document in which each line that imports another document of the same folder is
// replaced by that document, without the comment at its start. Throws Failure if a document cannot
// be read.
std::string OneDocument(std::filesystem::path const& folder, std::string const& name);

}  // namespace zel::desk
