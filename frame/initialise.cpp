#include "frame/initialise.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>

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

using Message = std::array<char, kInitReasonSize>;

// What a result of the unit system means; empty when it was started.
Message MessageOf(int unitSystemResult) {
  Message message{};
  if (unitSystemResult < 0) {
    std::snprintf(message.data(), message.size(), "Unable to locate embedded uomdata.txt resource");
  } else if (unitSystemResult > 0) {
    std::snprintf(message.data(), message.size(), "Error %d returned from UOM system",
                  unitSystemResult);
  }
  return message;
}

[[noreturn]] void EndWith(std::string const& line) {
  platform::WriteDebug(line.c_str());
  std::fputs(line.c_str(), stdout);
  std::fflush(stdout);
  std::exit(EXIT_FAILURE);
}

// Starts the unit system unless it is started. The lock is held.
int Start() {
  if (initialised) return 0;
  platform::WriteDebug("ZelAccess initializing - InitZelAccess\n");
  int const result = StartUnitSystem(ThisModule());
  initialised = result == 0;
  return result;
}

}  // namespace

void EndUnlessStarted(int unitSystemResult) {
  if (unitSystemResult == 0) return;
  EndWith(std::string(MessageOf(unitSystemResult).data()) + "\n");
}

void InitZelAccess() {
  std::lock_guard const lock(starting);
  int const result = Start();
  initialised = true;  // for exit handlers
  EndUnlessStarted(result);
}

bool TryInitZelAccess(char* reason) {
  std::lock_guard const lock(starting);
  int const result = Start();
  if (reason != nullptr) {
    Message const message = MessageOf(result);
    std::copy(message.begin(), message.end(), reason);
  }
  return result == 0;
}

}  // namespace zel
