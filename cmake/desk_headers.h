// The headers that most sources of the desk and of zel include, for ZelPrecompile.cmake.
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

#include "desk/open/library.h"
#include "desk/open/preference_list.h"
#include "desk/open/session.h"
#include "desk/words/failure.h"
#include "desk/words/table.h"
#include "zelaccess/ZelAccess.h"
