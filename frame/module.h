// State of the module: one instance in a process.
#pragma once

#include "frame/platform/system.h"
#include "zelaccess/Module.h"

namespace zel {

// As set by SetDeleteTestFlag; false at load.
bool DeleteTestFlag() noexcept;

// Stored when the module is loaded.
platform::ModuleHandle ThisModule() noexcept;

}  // namespace zel
