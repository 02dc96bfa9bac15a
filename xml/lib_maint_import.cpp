// Imports of LibMaint.
#include "maint/lib_maint.h"

namespace zel {

bool LibMaint_i::Import(char const*, bool) { return false; }
bool LibMaint_i::ImportComponent(char const*, char const*, bool) { return false; }

}  // namespace zel
