// The events of a document that is kept as a tree.
#pragma once

#include "xml/xml_events.h"
#include "xml/xml_parse.h"

namespace zel {

class TreeEvents final : public XmlEvents {
 public:
  // The tree must outlive this object.
  explicit TreeEvents(XmlTree const& tree);

  void Next(XmlEvent& event) override;
  std::size_t Attributes(std::string_view tag, void const* element,
                         std::vector<XmlAttribute>& attributes) const override;
  std::string RootName() const;

 private:
  void const* document_;
  // The next node, or null at the end of the children of the innermost open element.
  void const* next_;
  std::vector<void const*> open_;
  bool isDeclared_;  // an XML declaration comes first
  std::string name_;
};

}  // namespace zel
