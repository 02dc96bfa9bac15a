// Makes the names of the desk usable in zel without a prefix.
#pragma once

namespace zel::desk {}

namespace zelhost {
using namespace zel::desk;
}  // namespace zelhost
