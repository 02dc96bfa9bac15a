// Attributes of an element, collected before any of them is used.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "xml/import_iterator.h"

namespace zel {

template <std::size_t N>
using AttributeValues = std::array<std::optional<std::string>, N>;

// Collects the values that a walk returns, indexed by the rows of their names. Returns kStop if the
// walk was aborted.
template <std::size_t N>
Verdict TakeAttributes(ImportIterator_i& walk, AttributeValues<N>& values) {
  XmlNode attribute;
  std::size_t match = 0;
  while (walk.NextNode(attribute, match)) values[match] = attribute.Value();
  return walk.Ending();
}

}  // namespace zel
