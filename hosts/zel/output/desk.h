// The names of the desk are used in zel as its own.
#pragma once

namespace zel::desk {}

namespace zelhost {
using namespace zel::desk;
}  // namespace zelhost
