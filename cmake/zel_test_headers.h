// The headers that most tests of zel include, for ZelPrecompile.cmake.
#include <nlohmann/json.hpp>

#include "cmake/test_headers.h"
