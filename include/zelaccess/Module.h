// The module as a whole.
#ifndef ZELACCESS_MODULE_H
#define ZELACCESS_MODULE_H

#include "zelaccess/Export.h"

namespace zel {

// While on, every tree head that is made gets a node capacity of 4 entries instead of what a node
// has room for, so that small data make deep trees. For tests of hosts and of this library. Heads
// on file keep their capacity. Off at load.
ZEL_API void SetDeleteTestFlag(bool on);

}  // namespace zel

#endif  // ZELACCESS_MODULE_H
