// One component as a `comp` element.
#pragma once

#include <cstddef>

#include "frame/platform/text_file.h"
#include "zelaccess/PureComp.h"

namespace zel {

void PutComponent(platform::TextFile& out, IZelPureComp* component, std::size_t indent);

}  // namespace zel
