/// \file
/// The version of the library: of these headers, and of what a host runs with.
#ifndef ZELACCESS_VERSION_H
#define ZELACCESS_VERSION_H

#include "zelaccess/Export.h"

// The build reads its version from here.
#define ZELACCESS_VERSION_MAJOR 0  ///< Major version of these headers.
#define ZELACCESS_VERSION_MINOR 2  ///< Minor version of these headers.
#define ZELACCESS_VERSION_PATCH 0  ///< Patch level of these headers.
#define ZELACCESS_VERSION "0.2.0"  ///< Version of these headers as a text.

namespace zel {

/// Returns ZELACCESS_VERSION as the library was built with it, which can differ from that of the
/// headers a host was compiled with. For any thread at any time.
/// \return null-terminated text, never null, valid for the life of the process
ZEL_API char const* GetZelAccessVersion();

}  // namespace zel

#endif  // ZELACCESS_VERSION_H
