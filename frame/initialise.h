// Ends the process if the unit system cannot be started.
#pragma once

namespace zel {

// Returns for a result of 0 of StartUnitSystem. For any other result writes the reason to the debug
// output and to standard output and ends the process with exit status 1: there is no host to report
// to yet.
void EndUnlessStarted(int unitSystemResult);

}  // namespace zel
