/// \file
/// The C interface: component libraries for hosts in C99 and in every language that can call C
/// (docs/c-interface.md).
///
///     char const* libraries[] = {"own.lb1", "perry.lb1"};
///     zel_search* search = NULL;
///     zel_component* ethanol = NULL;
///     zel_constant nbp;
///     if (zel_search_open(libraries, 2, NULL, &search) == ZEL_OK &&
///         zel_search_component(search, "ETHANOL", &ethanol) == ZEL_OK &&
///         zel_component_constant(ethanol, "NBP", "degC", &nbp) == ZEL_OK) {
///       printf("%g\n", nbp.value);
///     } else {
///       char reason[1024];
///       zel_reason(reason, sizeof reason, NULL);
///       puts(reason);
///     }
///     zel_component_free(&ethanol);
///     zel_search_close(&search);
///
/// **Statuses.** Every function returns a status. When it is not ZEL_OK, zel_reason returns the
/// reason as a text. Each thread has its own, until its next failure.
///
/// **Texts** are null-terminated and in UTF-8. A function that copies a text takes a buffer and its
/// size in bytes, and reports the length of the whole text without its terminator. A buffer that is
/// too small receives as many whole characters as fit, with a terminator, and the status is
/// ZEL_TOO_SMALL; a null buffer of size 0 only asks for the length, with ZEL_OK. Bytes of damaged
/// files that are not UTF-8 are copied as U+FFFD.
///
/// **Null pointers.** A null pointer where the function does not allow it is ZEL_NULL_ARGUMENT, and
/// so is a null handle.
///
/// **Handles** are ended by the function that is named where they are made, which sets them to
/// null. A function that makes one sets it to null when it fails.
///
/// **Numbers** that are not there are NaN. Other outputs are unchanged when a function fails,
/// unless it says otherwise. 1 is yes and 0 is no.
///
/// **Threads.** Different objects may be used by different threads at the same time.
///
/// **Link** with the library ZelC alone (`pkg-config --cflags --libs zelc`).
#ifndef ZELACCESS_ZEL_H
#define ZELACCESS_ZEL_H

#include "zelaccess/zel_base.h"
#include "zelaccess/zel_desk.h"
#include "zelaccess/zel_library.h"
#include "zelaccess/zel_search.h"

#endif  // ZELACCESS_ZEL_H
