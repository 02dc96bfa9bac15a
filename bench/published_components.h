// The components of the published data, in memory.
#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "zelaccess/ZelAccess.h"

namespace zel::bench {

using ComponentFace = BankFace<IZelPureComp>;

// Imports the documents of all sources into libraries in `folder` and reads their components.
std::vector<std::unique_ptr<ComponentFace>> PublishedComponents(
    std::filesystem::path const& folder);

}  // namespace zel::bench
