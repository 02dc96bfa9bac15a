// Files next to a library: how they are opened where a stranger may have planted something.
#pragma once

#include <optional>
#include <string>

#include "frame/platform/block_file.h"
#include "frame/platform/posix_descriptor.h"

namespace zel::platform {

// See FileSystem for the four. A descriptor of -1 leaves the reason in errno.
std::string TargetOf(std::string const& path);
Descriptor OpenAsideDescriptor(std::string const& path, OpenMode mode, std::string const& library);
// What IsThere returns.
std::optional<bool> LooksThere(std::string const& path) noexcept;
bool SyncFolderOf(std::string const& path) noexcept;

}  // namespace zel::platform
