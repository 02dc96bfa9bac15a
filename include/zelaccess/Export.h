/// \file
/// ZEL_API marks what the shared library exports; everything else is hidden.
#ifndef ZELACCESS_EXPORT_H
#define ZELACCESS_EXPORT_H

/// \def ZEL_API
/// Marks what the library exports. Hosts of the static one on Windows define ZELACCESS_STATIC.
#if !defined(_WIN32)
#define ZEL_API __attribute__((visibility("default")))
#elif defined(ZELACCESS_STATIC)
#define ZEL_API
#elif defined(ZELACCESS_BUILDING)
#define ZEL_API __declspec(dllexport)
#else
#define ZEL_API __declspec(dllimport)
#endif

#endif  // ZELACCESS_EXPORT_H
