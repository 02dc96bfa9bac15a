// The headers that most sources of xml and verify include, for ZelPrecompile.cmake.
#include "cmake/standard_headers.h"
#include "maint/lib_maint.h"
#include "zelaccess/ZelAccess.h"
