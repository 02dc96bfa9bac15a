// Documents of other programs, as elements. They are data only: a document with a document type is
// refused, so that it cannot have entities of its own.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace zel::desk {

struct XmlElement {
  std::string name;
  std::size_t line = 0;
  std::vector<std::pair<std::string, std::string>> attributes;
  std::vector<XmlElement> children;
  std::string text;  // that is in it and not in its children

  // The value of an attribute without blanks at its ends, empty if the element does not have it.
  std::string Attribute(std::string const& name) const;
  // The first child of this name, null if it has no such child.
  XmlElement const* Child(std::string const& name) const;
};

// The root of a document. Throws Failure with path, line and reason for one that is not well
// formed, has a document type, more than 256 elements within each other or more than 10 million
// elements and attributes.
XmlElement ReadXml(std::string const& path);

}  // namespace zel::desk
