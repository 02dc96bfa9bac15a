#include "frame/module.h"

#include <atomic>

#include "zelaccess/Version.h"

namespace zel {
namespace {

constinit std::atomic<bool> deleteTestFlag = false;
constinit platform::ModuleHandle moduleHandle = nullptr;

// Runs when the module is loaded. Nothing needs to be released at unload: all tables are constant.
[[gnu::constructor]] void OnLoad() {
  platform::WriteDebug("ZelAccess initializing - DllMain\n");
  moduleHandle = platform::OwnModule();
}

}  // namespace

char const* GetZelAccessVersion() { return ZELACCESS_VERSION; }

void SetDeleteTestFlag(bool on) { deleteTestFlag = on; }

bool DeleteTestFlag() noexcept { return deleteTestFlag; }

platform::ModuleHandle ThisModule() noexcept { return moduleHandle; }

}  // namespace zel
