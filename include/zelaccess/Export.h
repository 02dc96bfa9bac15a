/// \file
/// ZEL_API marks what the shared library exports; everything else is hidden.
#ifndef ZELACCESS_EXPORT_H
#define ZELACCESS_EXPORT_H

/// \def ZEL_API
/// Marks a class or function that the shared library exports.
#if defined(_WIN32)
#if defined(ZELACCESS_BUILDING)
#define ZEL_API __declspec(dllexport)
#else
#define ZEL_API __declspec(dllimport)
#endif
#else
#define ZEL_API __attribute__((visibility("default")))
#endif

#endif  // ZELACCESS_EXPORT_H
