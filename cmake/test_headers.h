// The headers that most test programs include, for ZelPrecompile.cmake.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "cmake/standard_headers.h"
#include "zelaccess/ZelAccess.h"
