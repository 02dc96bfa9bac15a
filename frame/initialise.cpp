#include "frame/initialise.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <mutex>

#include "frame/module.h"
#include "frame/platform/system.h"
#include "frame/units/unit_system.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

// Threads that arrive while another one starts the unit system wait until it is started. Recursive,
// because after a failed start the process exits under the lock, and exit handlers may call again.
std::recursive_mutex starting;
constinit bool initialised = false;

[[noreturn]] void EndWith(char const* message) {
  platform::WriteDebug(message);
  std::fputs(message, stdout);
  std::fflush(stdout);
  std::exit(EXIT_FAILURE);
}

}  // namespace

void EndUnlessStarted(int unitSystemResult) {
  if (unitSystemResult < 0) EndWith("Unable to locate embedded uomdata.txt resource\n");
  if (unitSystemResult == 0) return;
  std::array<char, 100> message{};
  std::snprintf(message.data(), message.size(), "Error %d returned from UOM system\n",
                unitSystemResult);
  EndWith(message.data());
}

void InitZelAccess() {
  std::lock_guard const lock(starting);
  if (initialised) return;
  platform::WriteDebug("ZelAccess initializing - InitZelAccess\n");
  initialised = true;
  EndUnlessStarted(StartUnitSystem(ThisModule()));
}

}  // namespace zel
