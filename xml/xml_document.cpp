#include "xml/xml_document.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>

#include <functional>
#include <limits>
#include <map>
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

// The pieces of an element's text, joined; which of its ends are plain text.
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
        AddBelow(child);  // as deep as the parser lets elements be
      }
    }
  }
};

// --- parsing -------------------------------------------------------------------------------------

// What is counted of one document while it is parsed.
struct Parse {
  bool refused = false;
  bool memoryLost = false;  // an error behind it takes its place in the parser's own record
  int declaredAttributes = 0;
  double room = 0.0;  // bytes that entities may still add
  std::map<std::string, double, std::less<>> entityBytes;
};

void Refuse(xmlParserCtxt* context) {
  static_cast<Parse*>(context->_private)->refused = true;
  xmlStopParser(context);
}

// Each declared attribute can cost time at each element, so that a small document with many of them
// would keep the parser busy for hours.
void DeclareAttribute(void* data, xmlChar const* element, xmlChar const* name, int type, int usage,
                      xmlChar const* defaultValue, xmlEnumeration* words) {
  constexpr int kMostDeclared = 100;
  auto* const context = static_cast<xmlParserCtxt*>(data);
  if (++static_cast<Parse*>(context->_private)->declaredAttributes > kMostDeclared) {
    xmlFreeEnumeration(words);
    Refuse(context);
    return;
  }
  xmlSAX2AttributeDecl(data, element, name, type, usage, defaultValue, words);
}

// Entities with an identifier outside the document are refused where they are declared.
void DeclareEntity(void* data, xmlChar const* name, int type, xmlChar const* publicId,
                   xmlChar const* systemId, xmlChar* content) {
  if (systemId != nullptr || publicId != nullptr) {
    Refuse(static_cast<xmlParserCtxt*>(data));
    return;
  }
  xmlSAX2EntityDecl(data, name, type, publicId, systemId, content);
}

// What a reference to an entity adds to the document: its text with those of the entities within.
double BytesOf(xmlParserCtxt* context, xmlEntity const& entity, int depth) {
  constexpr int kDeepest = 40;  // the parser's own limit for entities in entities
  constexpr double kTooMany = 1e30;
  if (depth > kDeepest) return kTooMany;
  auto& known = static_cast<Parse*>(context->_private)->entityBytes;
  if (auto const at = known.find(ViewOf(entity.name)); at != known.end()) return at->second;
  std::string_view const text = ViewOf(entity.content);
  auto bytes = static_cast<double>(text.size());
  for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1)) {
    std::size_t const end = text.find(';', at);
    if (end == std::string_view::npos) break;
    std::string const name(text.substr(at + 1, end - at - 1));
    xmlEntity const* inner =
        xmlSAX2GetEntity(context, reinterpret_cast<xmlChar const*>(name.c_str()));
    if (inner != nullptr) bytes += BytesOf(context, *inner, depth + 1);
  }
  known.emplace(ViewOf(entity.name), bytes);
  return bytes;
}

// Called at each reference. The parser's own bound does not see all ways of growing.
xmlEntity* CountEntity(void* data, xmlChar const* name) {
  auto* const context = static_cast<xmlParserCtxt*>(data);
  xmlEntity* const entity = xmlSAX2GetEntity(context, name);
  if (entity == nullptr || entity->etype != XML_INTERNAL_GENERAL_ENTITY) return entity;
  auto* const parse = static_cast<Parse*>(context->_private);
  parse->room -= BytesOf(context, *entity, 0);
  if (parse->room >= 0.0) return entity;
  Refuse(context);
  return nullptr;
}

// Called for what no declaration explains: the others have been put in.
void ReferToEntity(void* data, xmlChar const*) { Refuse(static_cast<xmlParserCtxt*>(data)); }

xmlParserInput* ResolveNothing(void*, xmlChar const*, xmlChar const*) { return nullptr; }
void LoadNoSubset(void*, xmlChar const*, xmlChar const*, xmlChar const*) {}

// The parser's own words, which it else prints on standard error when memory runs out, are not the
// host's.
class ParserSilence {
 public:
  ParserSilence() : handler_(xmlGenericError), data_(xmlGenericErrorContext) {
    xmlSetGenericErrorFunc(nullptr, Ignore);
  }
  ParserSilence(ParserSilence const&) = delete;
  ParserSilence& operator=(ParserSilence const&) = delete;
  ~ParserSilence() { xmlSetGenericErrorFunc(data_, handler_); }

 private:
  static void Ignore(void*, char const*, ...) {}

  xmlGenericErrorFunc handler_;
  void* data_;
};

struct ContextCloser {
  void operator()(xmlParserCtxt* context) const noexcept { xmlFreeParserCtxt(context); }
};

}  // namespace

// --- nodes ---------------------------------------------------------------------------------------

// The node, or the first one behind it that a list shows.
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
    case XML_ATTRIBUTE_NODE:  // an attribute begins as a node does, its namespace stands elsewhere
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

bool XmlDocument::Load(std::string_view text) {
  document_.reset();
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) return false;
  ParserSilence const silence;
  std::unique_ptr<xmlParserCtxt, ContextCloser> const context(xmlNewParserCtxt());
  if (!context) throw std::bad_alloc();
  constexpr double kRoom = 1e6;
  constexpr double kRoomPerByte = 10.0;
  Parse parse;
  parse.room = kRoom + kRoomPerByte * static_cast<double>(text.size());
  context->_private = &parse;
  context->sax->attributeDecl = DeclareAttribute;
  context->sax->entityDecl = DeclareEntity;
  context->sax->getEntity = CountEntity;
  context->sax->reference = ReferToEntity;
  context->sax->resolveEntity = ResolveNothing;
  context->sax->externalSubset = LoadNoSubset;
  context->sax->serror = [](void* data, auto* error) {
    auto* const now = static_cast<Parse*>(static_cast<xmlParserCtxt*>(data)->_private);
    if (error->code == XML_ERR_NO_MEMORY) now->memoryLost = true;
  };
  constexpr int kOptions = XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NOERROR |
                           XML_PARSE_NOWARNING | XML_PARSE_COMPACT;
  // Memory that ran out while the tree was built may be told by the library's last error alone.
  xmlResetLastError();
  document_.reset(xmlCtxtReadMemory(context.get(), text.data(), static_cast<int>(text.size()),
                                    nullptr, nullptr, kOptions));
  xmlError const* last = xmlGetLastError();
  if (parse.memoryLost || (last != nullptr && last->code == XML_ERR_NO_MEMORY)) {
    document_.reset();
    throw std::bad_alloc();
  }
  if (parse.refused) document_.reset();
  return document_ != nullptr;
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
