// SalvageLibrary on any file system.
#pragma once

#include <string>
#include <string_view>

#include "frame/platform/block_file.h"
#include "zelaccess/Salvage.h"

namespace zel {

// As FindLibraryType and SalvageLibrary; the path is absolute.
openErrors FindTypeOnFiles(platform::FileSystem& system, std::string const& path, libTypes& type);
openErrors SalvageFiles(platform::FileSystem& system, std::string const& path,
                        std::string_view password, LibFile* rescued, ZelSalvageSink* sink,
                        ZelSalvageCounts& counts);

}  // namespace zel
