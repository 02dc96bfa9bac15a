#include "xml/tree_events.h"

#include <libxml/tree.h>

#include <algorithm>

namespace zel {

namespace {

using Kind = XmlEvent::Kind;

std::string_view ViewOf(xmlChar const* text) noexcept {
  return text == nullptr ? std::string_view{} : reinterpret_cast<char const*>(text);
}

bool IsBlank(std::string_view text) noexcept {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

xmlNode const* NodeOf(void const* node) noexcept { return static_cast<xmlNode const*>(node); }

std::string Qualified(xmlChar const* prefix, xmlChar const* name) {
  std::string joined(ViewOf(prefix));
  if (prefix != nullptr) joined += ':';
  return joined.append(ViewOf(name));
}

std::string NameOf(xmlNode const* element) {
  return Qualified(element->ns == nullptr ? nullptr : element->ns->prefix, element->name);
}

Kind KindOf(xmlNode const* node) noexcept {
  switch (node->type) {
    case XML_ELEMENT_NODE: return Kind::kStart;
    case XML_TEXT_NODE: return Kind::kText;
    case XML_CDATA_SECTION_NODE: return Kind::kCdata;
    case XML_COMMENT_NODE: return Kind::kComment;
    case XML_DTD_NODE: return Kind::kDocumentType;
    default: return Kind::kInstruction;
  }
}

}  // namespace

TreeEvents::TreeEvents(XmlTree const& tree) : document_(tree.get()) {
  auto const* const document = static_cast<xmlDoc const*>(document_);
  constexpr int kNoDeclaration = -1;
  isDeclared_ = document->standalone != kNoDeclaration;
  next_ = document->children;
}

std::string TreeEvents::RootName() const {
  return NameOf(xmlDocGetRootElement(static_cast<xmlDoc const*>(document_)));
}

void TreeEvents::Next(XmlEvent& event) {
  event.name = event.text = event.tag = {};
  if (isDeclared_) {
    isDeclared_ = false;
    event.kind = Kind::kDeclaration;
    return;
  }
  xmlNode const* node = NodeOf(next_);
  while (node != nullptr && node->type == XML_TEXT_NODE && IsBlank(ViewOf(node->content))) {
    node = node->next;
  }
  if (node == nullptr) {
    event.kind = open_.empty() ? Kind::kDocumentEnd : Kind::kEnd;
    if (open_.empty()) return;
    next_ = NodeOf(open_.back())->next;
    open_.pop_back();
    return;
  }
  next_ = node->next;
  event.kind = KindOf(node);
  if (event.kind == Kind::kText || event.kind == Kind::kCdata) event.text = ViewOf(node->content);
  if (event.kind == Kind::kInstruction || event.kind == Kind::kDocumentType) {
    event.name = ViewOf(node->name);
  }
  if (event.kind != Kind::kStart) return;
  name_ = NameOf(node);
  event.name = event.tag = name_;
  event.element = node;
  event.line = static_cast<std::int32_t>(xmlGetLineNo(node));
  event.isEmpty = node->children == nullptr;
  if (event.isEmpty) return;
  open_.push_back(node);
  next_ = node->children;
}

std::size_t TreeEvents::Attributes(std::string_view, void const* element,
                                   std::vector<XmlAttribute>& attributes) const {
  std::size_t count = 0;
  auto const* const xmlns = reinterpret_cast<xmlChar const*>("xmlns");
  for (xmlNs const* space = NodeOf(element)->nsDef; space != nullptr; space = space->next) {
    XmlAttribute& attribute = Place(attributes, count++);
    attribute.name = space->prefix == nullptr ? "xmlns" : Qualified(xmlns, space->prefix);
    attribute.value = ViewOf(space->href);
  }
  for (xmlAttr const* at = NodeOf(element)->properties; at != nullptr; at = at->next) {
    XmlAttribute& attribute = Place(attributes, count++);
    attribute.name = Qualified(at->ns == nullptr ? nullptr : at->ns->prefix, at->name);
    attribute.value.clear();
    for (xmlNode const* piece = at->children; piece != nullptr; piece = piece->next) {
      attribute.value.append(ViewOf(piece->content));
    }
  }
  return count;
}

}  // namespace zel
