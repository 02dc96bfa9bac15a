// The objects that a search returns to the host.
#pragma once

#include <zelaccess/Desk.h>

#include "border.h"

struct zel_search {
  zel::desk::Libraries libraries;
};

struct zel_component {
  zel::desk::Component component;
};

struct zel_item {
  zel::desk::Item item;
};

namespace zelc {

// The index of a correlation by its name in any case of letters; throws a Refusal.
std::uint32_t CorrelationNamed(char const* name);

}  // namespace zelc
