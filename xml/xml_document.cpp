#include "xml/xml_document.h"

#include <libxml/tree.h>

#include <new>
#include <string>

namespace zel {

namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n";

std::string_view ViewOf(xmlChar const* text) noexcept {
  return text == nullptr ? std::string_view{} : reinterpret_cast<char const*>(text);
}

bool IsBlank(std::string_view text) noexcept {
  return text.find_first_not_of(kWhiteSpace) == std::string_view::npos;
}

std::string_view TrimmedFront(std::string_view text) noexcept {
  std::size_t const at = text.find_first_not_of(kWhiteSpace);
  return at == std::string_view::npos ? std::string_view{} : text.substr(at);
}

std::string_view TrimmedBack(std::string_view text) noexcept {
  return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

xmlNode const* NodeOf(void const* node) noexcept { return static_cast<xmlNode const*>(node); }
xmlNs const* NamespaceOf(void const* node) noexcept { return static_cast<xmlNs const*>(node); }

// A name with its prefix, kept by the document.
std::string_view Qualified(xmlDoc* document, xmlChar const* prefix, xmlChar const* name) {
  if (prefix == nullptr) return ViewOf(name);
  if (document->dict == nullptr) document->dict = xmlDictCreate();
  xmlChar const* joined = xmlDictQLookup(document->dict, prefix, name);
  if (joined == nullptr) throw std::bad_alloc();
  return ViewOf(joined);
}

std::string_view NamespaceName(xmlNs const* declared, xmlDoc* document) {
  auto const* xmlns = reinterpret_cast<xmlChar const*>("xmlns");
  return declared->prefix == nullptr ? ViewOf(xmlns) : Qualified(document, xmlns, declared->prefix);
}

// The pieces of an element's text, joined, and whether its first and last piece are plain text.
struct Pieces {
  std::string& text;
  bool any = false;
  bool plainFront = false;
  bool plainBack = false;

  void Add(xmlNode const* piece) {
    std::string_view const content = ViewOf(piece->content);
    bool const plain = piece->type == XML_TEXT_NODE;
    if (plain && IsBlank(content)) return;
    if (!any) plainFront = plain;
    plainBack = plain;
    any = true;
    text.append(content);
  }

  void AddBelow(xmlNode const* parent) {
    for (xmlNode const* child = parent->children; child != nullptr; child = child->next) {
      if (child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE) {
        Add(child);
      } else if (child->type == XML_ELEMENT_NODE) {
        AddBelow(child);  // the parser limits the depth of elements
      }
    }
  }
};

}  // namespace

// --- nodes ---------------------------------------------------------------------------------------

// The node, or the first one after it that is visible in a list.
XmlNode XmlNode::Listed(void const* node) noexcept {
  for (xmlNode const* at = NodeOf(node); at != nullptr; at = at->next) {
    if (at->type != XML_TEXT_NODE || !IsBlank(ViewOf(at->content))) return {Kind::kNode, at};
  }
  return {};
}

std::string_view XmlNode::Name() const {
  if (kind_ == Kind::kDeclaration) return "xml";
  if (kind_ == Kind::kNamespace) {
    return NamespaceName(NamespaceOf(node_), NodeOf(owner_)->doc);
  }
  xmlNode const* node = NodeOf(node_);
  switch (node->type) {
    case XML_TEXT_NODE: return "#text";
    case XML_CDATA_SECTION_NODE: return "#cdata-section";
    case XML_COMMENT_NODE: return "#comment";
    case XML_ELEMENT_NODE:
    case XML_ATTRIBUTE_NODE:  // an attribute begins like a node, but has its namespace elsewhere
    {
      xmlNs const* space =
          node->type == XML_ELEMENT_NODE ? node->ns : reinterpret_cast<xmlAttr const*>(node)->ns;
      return Qualified(node->doc, space == nullptr ? nullptr : space->prefix, node->name);
    }
    default: return ViewOf(node->name);
  }
}

bool XmlNode::IsComment() const noexcept {
  return kind_ == Kind::kNode && NodeOf(node_)->type == XML_COMMENT_NODE;
}

bool XmlNode::IsElement() const noexcept {
  return kind_ == Kind::kNode && NodeOf(node_)->type == XML_ELEMENT_NODE;
}

std::int32_t XmlNode::Line() const noexcept {
  return kind_ == Kind::kNode ? static_cast<std::int32_t>(xmlGetLineNo(NodeOf(node_))) : 0;
}

// The parser leaves one member of each node for its caller to use.
void XmlNode::SetNote(void* note) const noexcept {
  if (IsElement()) const_cast<xmlNode*>(NodeOf(node_))->_private = note;
}

void* XmlNode::Note() const noexcept { return IsElement() ? NodeOf(node_)->_private : nullptr; }

XmlNode XmlNode::FirstChild() const noexcept {
  return IsElement() ? Listed(NodeOf(node_)->children) : XmlNode();
}

XmlNode XmlNode::FirstAttribute() const noexcept {
  if (!IsElement()) return {};
  xmlNode const* element = NodeOf(node_);
  if (element->nsDef != nullptr) return {Kind::kNamespace, element->nsDef, element};
  return {Kind::kNode, element->properties};
}

XmlNode XmlNode::Next() const noexcept {
  switch (kind_) {
    case Kind::kDeclaration: return Listed(static_cast<xmlDoc const*>(node_)->children);
    case Kind::kNamespace: {
      xmlNs const* next = NamespaceOf(node_)->next;
      if (next != nullptr) return {Kind::kNamespace, next, owner_};
      return {Kind::kNode, NodeOf(owner_)->properties};
    }
    default: break;
  }
  return Listed(NodeOf(node_)->next);
}

std::string_view XmlNode::Text(std::string& scratch) const {
  xmlNode const* node = NodeOf(node_);
  if (kind_ != Kind::kNode || node->children == nullptr) return {};
  xmlNode const* only = node->children;
  if (only->next == nullptr && only->type == XML_TEXT_NODE) {
    return TrimmedBack(TrimmedFront(ViewOf(only->content)));
  }
  scratch.clear();
  Pieces pieces{scratch};
  pieces.AddBelow(node);
  std::string_view text = scratch;
  if (pieces.plainFront) text = TrimmedFront(text);
  if (pieces.plainBack) text = TrimmedBack(text);
  return text;
}

std::string_view XmlNode::Value(std::string& scratch) const {
  if (kind_ == Kind::kNamespace) return ViewOf(NamespaceOf(node_)->href);
  if (kind_ != Kind::kNode || NodeOf(node_)->type != XML_ATTRIBUTE_NODE) return {};
  xmlNode const* first = NodeOf(node_)->children;
  if (first == nullptr) return {};
  if (first->next == nullptr) return ViewOf(first->content);
  scratch.clear();
  for (xmlNode const* piece = first; piece != nullptr; piece = piece->next) {
    scratch.append(ViewOf(piece->content));
  }
  return scratch;
}

std::optional<std::string> XmlNode::Attribute(std::string_view name) const {
  std::string scratch;
  for (XmlNode at = FirstAttribute(); at; at = at.Next()) {
    if (at.Name() == name) return std::string(at.Value(scratch));
  }
  return std::nullopt;
}

// --- document ------------------------------------------------------------------------------------

XmlDocument::XmlDocument() noexcept = default;
XmlDocument::~XmlDocument() = default;

void XmlDocument::Closer::operator()(void* document) const noexcept {
  xmlFreeDoc(static_cast<xmlDoc*>(document));
}

XmlNode XmlDocument::Root() const noexcept {
  return {XmlNode::Kind::kNode, xmlDocGetRootElement(static_cast<xmlDoc*>(document_.get()))};
}

XmlNode XmlDocument::FirstNode() const noexcept {
  auto const* document = static_cast<xmlDoc const*>(document_.get());
  if (document == nullptr) return {};
  constexpr int kNoDeclaration = -1;
  if (document->standalone != kNoDeclaration) return {XmlNode::Kind::kDeclaration, document};
  return XmlNode::Listed(document->children);
}

}  // namespace zel
