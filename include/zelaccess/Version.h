// The version of the library: of these headers, and of what a host runs with.
#ifndef ZELACCESS_VERSION_H
#define ZELACCESS_VERSION_H

#include "zelaccess/Export.h"

// The build takes its version from here.
#define ZELACCESS_VERSION_MAJOR 0
#define ZELACCESS_VERSION_MINOR 1
#define ZELACCESS_VERSION_PATCH 0
#define ZELACCESS_VERSION "0.1.0"

namespace zel {

// ZELACCESS_VERSION as the library was built with it, which can be another one than that of the
// headers a host was compiled with. Null-terminated, stays for the life of the process.
ZEL_API char const* GetZelAccessVersion();

}  // namespace zel

#endif  // ZELACCESS_VERSION_H
