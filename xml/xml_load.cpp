// Loading of documents: the parser's options, and what it is not allowed to do.
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <map>
#include <new>
#include <string>

#include "xml/xml_document.h"

namespace zel {

namespace {

std::string_view ViewOf(xmlChar const* text) noexcept {
  return text == nullptr ? std::string_view{} : reinterpret_cast<char const*>(text);
}

// The state and counts of one document while it is parsed.
struct Parse {
  xmlParserCtxt* context = nullptr;
  std::string_view rest;    // not yet passed to the parser
  XmlProblem problem;       // the first
  bool refused = false;     // by a bound
  bool memoryLost = false;  // kept here, since a later error replaces it in the parser's own record
  int declaredAttributes = 0;
  int references = 0;         // since the last start tag
  std::size_t typeBytes = 0;  // of the document type
  double room = 0.0;          // bytes that entities may still add
  std::map<std::string, double, std::less<>> entityBytes;

  // The first problem remains the reason.
  void Note(std::string_view reason, std::int32_t line, bool toldAlways) {
    if (problem.reason.empty()) problem = {std::string(reason), line, toldAlways};
  }
  void Pass(std::string_view bound, bool toldAlways = true) {
    if (!refused) problem = {};  // an error after which the parser continued
    refused = true;
    Note(bound, context->input == nullptr ? 0 : context->input->line, toldAlways);
  }
};

Parse& ParseOf(void* data) {
  return *static_cast<Parse*>(static_cast<xmlParserCtxt*>(data)->_private);
}

// For the parser's callbacks, which may be called with the context of an entity in the document.
void Refuse(void* data, std::string_view bound, bool toldAlways = true) {
  ParseOf(data).Pass(bound, toldAlways);
  xmlStopParser(static_cast<xmlParserCtxt*>(data));
}

// Each declared attribute can cost time at each element: a small document with many of them would
// keep the parser busy for hours.
void DeclareAttribute(void* data, xmlChar const* element, xmlChar const* name, int type, int usage,
                      xmlChar const* defaultValue, xmlEnumeration* words) {
  if (++ParseOf(data).declaredAttributes > XmlDocument::kMostDeclared) {
    xmlFreeEnumeration(words);
    Refuse(data, "more than 100 declared attributes");
    return;
  }
  xmlSAX2AttributeDecl(data, element, name, type, usage, defaultValue, words);
}

// Entities with an identifier outside the document are refused at their declaration. So are
// parameter entities, whose expansion the parser neither limits nor allows to be counted.
void DeclareEntity(void* data, xmlChar const* name, int type, xmlChar const* publicId,
                   xmlChar const* systemId, xmlChar* content) {
  if (systemId != nullptr || publicId != nullptr) {
    Refuse(data, "an entity from outside the document", false);
    return;
  }
  if (type == XML_INTERNAL_PARAMETER_ENTITY) {
    Refuse(data, "a parameter entity");
    return;
  }
  xmlSAX2EntityDecl(data, name, type, publicId, systemId, content);
}

// The bytes that a reference to an entity adds to the document: its text with all entities in it.
double BytesOf(xmlParserCtxt* context, xmlEntity const& entity, int depth) {
  constexpr int kDeepest = 40;  // the parser's own limit for entities in entities
  constexpr double kTooMany = 1e30;
  if (depth > kDeepest) return kTooMany;
  auto& known = ParseOf(context).entityBytes;
  if (auto const at = known.find(ViewOf(entity.name)); at != known.end()) return at->second;
  std::string_view const text = ViewOf(entity.content);
  auto bytes = static_cast<double>(text.size());
  for (std::size_t at = text.find('&'); at != std::string_view::npos;) {
    std::size_t const end = text.find_first_of("&;", at + 1);
    if (end == std::string_view::npos) break;
    if (text[end] == '&') {  // the previous one does not begin a reference
      at = end;
      continue;
    }
    std::string const name(text.substr(at + 1, end - at - 1));
    xmlEntity const* inner =
        xmlSAX2GetEntity(context, reinterpret_cast<xmlChar const*>(name.c_str()));
    if (inner != nullptr) bytes += BytesOf(context, *inner, depth + 1);
    at = text.find('&', end);
  }
  known.emplace(ViewOf(entity.name), bytes);
  return bytes;
}

// Called at each reference. The parser's own bound does not cover all kinds of expansion, and the
// cost of a reference in a text is proportional to the length of the text before it.
xmlEntity* CountEntity(void* data, xmlChar const* name) {
  auto* const context = static_cast<xmlParserCtxt*>(data);
  xmlEntity* const entity = xmlSAX2GetEntity(context, name);
  if (entity == nullptr || entity->etype != XML_INTERNAL_GENERAL_ENTITY) return entity;
  Parse& parse = ParseOf(data);
  parse.room -= BytesOf(context, *entity, 0);
  bool const inText = context->instate == XML_PARSER_CONTENT;
  if (parse.room < 0.0) {
    Refuse(data, "entities add more than 1 MB and ten times the size of the document", false);
  } else if (inText && ++parse.references > XmlDocument::kMostReferences) {
    Refuse(data, "more than 1000 references to entities in one text");
  } else {
    return entity;
  }
  return nullptr;
}

// Called for entities that are not declared; the others have been replaced by their text.
void ReferToEntity(void* data, xmlChar const*) {
  Refuse(data, "an entity that is not declared", false);
}

void StartElement(void* data, xmlChar const* name, xmlChar const* prefix, xmlChar const* uri,
                  int namespaces, xmlChar const** namespaceList, int attributes, int defaulted,
                  xmlChar const** attributeList) {
  auto const* const context = static_cast<xmlParserCtxt const*>(data);
  ParseOf(data).references = 0;
  if (attributes + namespaces > XmlDocument::kMostAttributes) {
    Refuse(data, "more than 1000 attributes on one element");
  } else if (context->nsNr / 2 > XmlDocument::kMostNamespaces) {
    Refuse(data, "more than 1000 namespaces");
  } else {
    xmlSAX2StartElementNs(data, name, prefix, uri, namespaces, namespaceList, attributes, defaulted,
                          attributeList);
  }
}

// Attributes and lists of words are compared with each other while they are read, before any
// callback. So their number is checked whenever the parser reads more of the text, by the size of
// its arrays: they have five members for each attribute and two for each namespace, and are doubled
// when they are full.
bool WithinBounds(Parse& parse, std::size_t piece) {
  constexpr int kRoomOfAttributes = 2 * 5 * (XmlDocument::kMostAttributes + 100);
  constexpr int kRoomOfNamespaces = 2 * 2 * (XmlDocument::kMostNamespaces + 100);
  xmlParserCtxt const& context = *parse.context;
  if (context.maxatts > kRoomOfAttributes || context.nsMax > kRoomOfNamespaces) {
    parse.Pass("more than 1000 attributes on one element");
  }
  if (context.inSubset != 0) parse.typeBytes += piece;
  if (parse.typeBytes > XmlDocument::kLargestDocumentType) {
    parse.Pass("a document type of more than 32 KB");
  }
  return !parse.refused;
}

// Ends the text if a bound was exceeded.
int ReadPiece(void* data, char* buffer, int room) {
  Parse& parse = *static_cast<Parse*>(data);
  std::size_t const size = std::min(parse.rest.size(), static_cast<std::size_t>(room));
  if (!WithinBounds(parse, size)) return 0;
  std::memcpy(buffer, parse.rest.data(), size);
  parse.rest.remove_prefix(size);
  return static_cast<int>(size);
}

void NoteError(void* data, xmlError const* error) {
  Parse& parse = ParseOf(data);
  if (error->code == XML_ERR_NO_MEMORY) parse.memoryLost = true;
  if (error->level != XML_ERR_FATAL || error->message == nullptr) return;
  std::string_view const words(error->message);
  parse.Note(words.substr(0, words.find('\n')), error->line, false);
}

xmlParserInput* ResolveNothing(void*, xmlChar const*, xmlChar const*) { return nullptr; }
void LoadNoSubset(void*, xmlChar const*, xmlChar const*, xmlChar const*) {}

// Suppresses the parser's messages, which it would print on the host's standard error when memory
// runs out.
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

void SetCallbacks(xmlSAXHandler& sax) {
  sax.attributeDecl = DeclareAttribute;
  sax.entityDecl = DeclareEntity;
  sax.getEntity = CountEntity;
  sax.reference = ReferToEntity;
  sax.startElementNs = StartElement;
  sax.resolveEntity = ResolveNothing;
  sax.externalSubset = LoadNoSubset;
  sax.serror = [](void* data, auto* error) { NoteError(data, error); };
}

}  // namespace

bool XmlDocument::Load(std::string_view text) {
  document_.reset();
  problem_ = {};
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    problem_ = {"2 GiB or more", 0, true};
    return false;
  }
  ParserSilence const silence;
  std::unique_ptr<xmlParserCtxt, ContextCloser> const context(xmlNewParserCtxt());
  if (!context) throw std::bad_alloc();
  Parse parse;
  parse.context = context.get();
  parse.rest = text;
  parse.room = kRoom + kRoomPerByte * static_cast<double>(text.size());
  context->_private = &parse;
  SetCallbacks(*context->sax);
  constexpr int kOptions = XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NOERROR |
                           XML_PARSE_NOWARNING | XML_PARSE_COMPACT | XML_PARSE_BIG_LINES;
  // If memory ran out while the tree was built, possibly only the parser library's last error says
  // so.
  xmlResetLastError();
  document_.reset(
      xmlCtxtReadIO(context.get(), ReadPiece, nullptr, &parse, nullptr, nullptr, kOptions));
  xmlError const* last = xmlGetLastError();
  if (parse.memoryLost || (last != nullptr && last->code == XML_ERR_NO_MEMORY)) {
    document_.reset();
    throw std::bad_alloc();
  }
  if (parse.refused) document_.reset();
  if (document_ == nullptr) problem_ = std::move(parse.problem);
  return document_ != nullptr;
}

}  // namespace zel
