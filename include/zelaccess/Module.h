/// \file
/// The module as a whole.
#ifndef ZELACCESS_MODULE_H
#define ZELACCESS_MODULE_H

#include "zelaccess/Export.h"

namespace zel {

/// Starts the library: the unit factors and the unit system. A host calls it once before anything
/// that reads or converts units; nothing in the library calls it.
///
/// Further calls do nothing, and threads that call it at the same time all return when it is done.
/// It has no result: when the unit table cannot be found or loaded, it writes one line to standard
/// output and ends the process with exit status 1. While it runs, it has a file in the folder for
/// temporary files ($TMPDIR, else /tmp); the file has no name where the system supports that.
ZEL_API void InitZelAccess();

/// Size of a buffer for the reason of TryInitZelAccess, in characters, terminator included.
inline constexpr int kInitReasonSize = 100;

/// Starts what InitZelAccess starts, and reports a failure instead of ending the process: for
/// modules of programs that must go on without the library. After a failure nothing is started, and
/// the function may be called again. After success InitZelAccess does nothing.
/// \param reason  buffer of kInitReasonSize characters, receives what went wrong, empty on success;
///                may be null
/// \return true when the units are started, by this call or before
ZEL_API bool TryInitZelAccess(char* reason);

/// Makes small data grow deep trees, for tests of hosts and of this library.
///
/// While the flag is on, every tree head that is made gets a node capacity of 4 entries instead of
/// what a node has room for. Heads on file keep their capacity. There is one flag for all threads;
/// any thread may set it at any time.
/// \param on  whether the flag is on; it is off at load
ZEL_API void SetDeleteTestFlag(bool on);

}  // namespace zel

#endif  // ZELACCESS_MODULE_H
