#include "xml/xml_parse.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <map>
#include <new>
#include <string>

namespace zel {

namespace {

std::string_view ViewOf(xmlChar const* text) noexcept {
  return text == nullptr ? std::string_view{} : reinterpret_cast<char const*>(text);
}

// The state and counts of one document while it is parsed.
struct Parse {
  xmlParserCtxt* context = nullptr;
  DocumentText* text = nullptr;
  XmlProblem problem;       // the first
  bool refused = false;     // by a bound
  bool memoryLost = false;  // kept here, since a later error replaces it in the parser's own record
  int declaredAttributes = 0;
  int references = 0;         // since the last start tag
  std::size_t typeBytes = 0;  // of the document type
  double room = 0.0;          // bytes that entities may still add
  std::map<std::string, double, std::less<>> entityBytes;

  // When the text is only checked.
  bool isPlain = true;
  std::string rootName;
  std::size_t runBytes = 0;  // of the text since the last node of another kind

  // Runs what takes memory. An exception must not pass through the parser, which is written in C.
  template <typename Step>
  void Guard(Step const& step) noexcept {
    try {
      step();
    } catch (std::bad_alloc const&) {
      memoryLost = true;
    }
  }
  // The first problem remains the reason.
  void Note(std::string_view reason, std::int32_t line, bool toldAlways) noexcept {
    if (!problem.reason.empty()) return;
    Guard([&] { problem = {std::string(reason), line, toldAlways}; });
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

// For callbacks of the parser, which may pass the context of an entity in the document.
void Refuse(void* data, std::string_view bound, bool toldAlways = true) {
  ParseOf(data).Pass(bound, toldAlways);
  xmlStopParser(static_cast<xmlParserCtxt*>(data));
}

// Each declared attribute can cost time at each element: a small document with many of them would
// keep the parser busy for hours.
void DeclareAttribute(void* data, xmlChar const* element, xmlChar const* name, int type, int usage,
                      xmlChar const* defaultValue, xmlEnumeration* words) {
  if (++ParseOf(data).declaredAttributes > XmlBounds::kMostDeclared) {
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
  parse.Guard([&] { parse.room -= BytesOf(context, *entity, 0); });
  bool const inText = context->instate == XML_PARSER_CONTENT;
  if (parse.memoryLost) {
    xmlStopParser(context);
  } else if (parse.room < 0.0) {
    Refuse(data, "entities add more than 1 MB and ten times the size of the document", false);
  } else if (inText && ++parse.references > XmlBounds::kMostReferences) {
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

// True if the element is within the bounds.
bool BoundStart(void* data, int attributes, int namespaces) {
  if (attributes + namespaces > XmlBounds::kMostAttributes) {
    Refuse(data, "more than 1000 attributes on one element");
  } else if (static_cast<xmlParserCtxt const*>(data)->nsNr / 2 > XmlBounds::kMostNamespaces) {
    Refuse(data, "more than 1000 namespaces");
  } else {
    return true;
  }
  return false;
}

void StartElement(void* data, xmlChar const* name, xmlChar const* prefix, xmlChar const* uri,
                  int namespaces, xmlChar const** namespaceList, int attributes, int defaulted,
                  xmlChar const** attributeList) {
  ParseOf(data).references = 0;
  if (!BoundStart(data, attributes, namespaces)) return;
  xmlSAX2StartElementNs(data, name, prefix, uri, namespaces, namespaceList, attributes, defaulted,
                        attributeList);
}

// Attributes and lists of words are compared with each other while they are read, before any
// callback. So their number is checked whenever the parser reads more of the text, by the size of
// its arrays: they have five members for each attribute and two for each namespace, and are doubled
// when they are full.
bool WithinBounds(Parse& parse, std::size_t piece) {
  constexpr int kRoomOfAttributes = 2 * 5 * (XmlBounds::kMostAttributes + 100);
  constexpr int kRoomOfNamespaces = 2 * 2 * (XmlBounds::kMostNamespaces + 100);
  xmlParserCtxt const& context = *parse.context;
  if (context.maxatts > kRoomOfAttributes || context.nsMax > kRoomOfNamespaces) {
    parse.Pass("more than 1000 attributes on one element");
  }
  if (context.inSubset != 0) parse.typeBytes += piece;
  if (parse.typeBytes > XmlBounds::kLargestDocumentType) {
    parse.Pass("a document type of more than 32 KB");
  }
  return !parse.refused && !parse.memoryLost;
}

// Ends the text if a bound was exceeded.
int ReadPiece(void* data, char* buffer, int room) {
  Parse& parse = *static_cast<Parse*>(data);
  std::size_t const size = parse.text->Read(buffer, static_cast<std::size_t>(room));
  return WithinBounds(parse, size) ? static_cast<int>(size) : 0;
}

constexpr std::string_view kLongText = "more than 10 MB in one text";

// The bounds of the parser itself, by what it says when one is exceeded. After some of them it says
// that memory ran out, too.
struct ParserBound {
  std::string_view words;
  std::string_view bound;
};
constexpr ParserBound kParserBounds[] = {
    {"AttValue length too long", "more than 10 MB in one tag"},
    {"Huge input lookup", "more than 10 MB in one tag"},
    {"too big found", "more than 10 MB in one comment, section or instruction"},
    {"huge text node", kLongText},
    {"Name too long", "a name of more than 50,000 characters"},
    {"Excessive depth", "more than 256 elements within each other"},
};

// The bound of which an error speaks, or nothing. Warnings and errors in namespaces may show any
// text of the document.
std::string_view BoundOf(xmlParserCtxt const& context, xmlError const& error) noexcept {
  bool const showsText = error.domain != XML_FROM_PARSER || error.level < XML_ERR_ERROR;
  std::string_view const words(error.message == nullptr || showsText ? "" : error.message);
  for (ParserBound const& row : kParserBounds) {
    if (words.find(row.words) != std::string_view::npos) return row.bound;
  }
  bool const isFull = xmlDictGetUsage(context.dict) > XML_MAX_DICTIONARY_LIMIT;
  return error.code == XML_ERR_NO_MEMORY && isFull ? "more than 10 MB of different names" : "";
}

void NoteError(void* data, xmlError const* error) {
  Parse& parse = ParseOf(data);
  if (error->domain == XML_FROM_NAMESPACE && error->level >= XML_ERR_ERROR) parse.isPlain = false;
  if (parse.refused) return;
  if (auto const bound = BoundOf(*parse.context, *error); !bound.empty()) {
    parse.Pass(bound);
  } else if (error->code == XML_ERR_NO_MEMORY) {
    parse.memoryLost = true;
  } else if (error->level == XML_ERR_FATAL && error->message != nullptr) {
    std::string_view const words(error->message);
    parse.Note(words.substr(0, words.find('\n')), error->line, false);
  }
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

// Adds a section to the tree. The parser's own function appends it to the section before it.
void AddSection(void* data, xmlChar const* text, int size) {
  auto* const context = static_cast<xmlParserCtxt*>(data);
  xmlNode* const section = xmlNewCDataBlock(context->myDoc, text, size);
  if (section == nullptr) ParseOf(data).memoryLost = true;
  xmlAddChild(context->node, section);
}

void SetCallbacks(xmlSAXHandler& sax) {
  sax.attributeDecl = DeclareAttribute;
  sax.entityDecl = DeclareEntity;
  sax.getEntity = CountEntity;
  sax.reference = ReferToEntity;
  sax.startElementNs = StartElement;
  sax.cdataBlock = AddSection;
  sax.resolveEntity = ResolveNothing;
  sax.externalSubset = LoadNoSubset;
  sax.serror = [](void* data, auto* error) { NoteError(data, error); };
}

// --- a check without a tree ----------------------------------------------------------------------

void LeavePlain(void* data) {
  ParseOf(data).isPlain = false;
  xmlStopParser(static_cast<xmlParserCtxt*>(data));
}

void CheckDocumentType(void* data, xmlChar const*, xmlChar const*, xmlChar const*) {
  LeavePlain(data);
}

void CheckStart(void* data, xmlChar const* name, xmlChar const* prefix, xmlChar const*,
                int namespaces, xmlChar const**, int attributes, int, xmlChar const**) {
  auto const* const context = static_cast<xmlParserCtxt const*>(data);
  Parse& parse = ParseOf(data);
  if (parse.rootName.empty()) {
    parse.Guard([&] {
      if (prefix != nullptr) parse.rootName.append(ViewOf(prefix)).append(":");
      parse.rootName.append(ViewOf(name));
    });
    bool const isUtf8 =
        context->input->buf->encoder == nullptr && context->charset == XML_CHAR_ENCODING_UTF8;
    parse.isPlain = parse.isPlain && isUtf8;
  }
  if (!parse.isPlain) return LeavePlain(data);
  parse.references = 0;
  parse.runBytes = 0;
  BoundStart(data, attributes, namespaces);
}

// The same bound as in a tree.
void CheckText(void* data, xmlChar const*, int size) {
  Parse& parse = ParseOf(data);
  bool const isFirst = parse.runBytes == 0;
  parse.runBytes += static_cast<std::size_t>(size);
  if (!isFirst && parse.runBytes > XML_MAX_TEXT_LENGTH) Refuse(data, kLongText);
}

void EndRun(void* data) { ParseOf(data).runBytes = 0; }

void SetChecks(xmlSAXHandler& sax) {
  sax.internalSubset = CheckDocumentType;
  sax.startElementNs = CheckStart;
  sax.endElementNs = [](void* data, auto...) { EndRun(data); };
  sax.characters = CheckText;
  sax.ignorableWhitespace = CheckText;
  sax.cdataBlock = [](void* data, auto...) { EndRun(data); };
  sax.comment = [](void* data, auto...) { EndRun(data); };
  sax.processingInstruction = [](void* data, auto...) { EndRun(data); };
}

enum class Purpose : std::uint8_t { kCheck, kTree };

XmlParsed Run(DocumentText& text, Purpose purpose) {
  XmlParsed parsed;
  if (text.Size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    parsed.isPlain = true;
    parsed.problem = {"2 GiB or more", 0, true};
    return parsed;
  }
  ParserSilence const silence;
  std::unique_ptr<xmlParserCtxt, ContextCloser> const context(xmlNewParserCtxt());
  if (!context) throw std::bad_alloc();
  Parse parse;
  parse.context = context.get();
  parse.text = &text;
  parse.room = XmlBounds::kRoom + XmlBounds::kRoomPerByte * static_cast<double>(text.Size());
  context->_private = &parse;
  SetCallbacks(*context->sax);
  if (purpose == Purpose::kCheck) SetChecks(*context->sax);
  text.BeginFirst();
  constexpr int kOptions = XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NOERROR |
                           XML_PARSE_NOWARNING | XML_PARSE_COMPACT | XML_PARSE_BIG_LINES;
  // If memory ran out while the tree was built, possibly only the parser library's last error says
  // so.
  xmlResetLastError();
  parsed.tree.reset(
      xmlCtxtReadIO(context.get(), ReadPiece, nullptr, &parse, nullptr, nullptr, kOptions));
  xmlError const* last = xmlGetLastError();
  bool const lastIsMemory = last != nullptr && last->code == XML_ERR_NO_MEMORY;
  if (parse.memoryLost || (lastIsMemory && !parse.refused)) throw std::bad_alloc();
  parsed.isPlain = purpose == Purpose::kCheck && parse.isPlain;
  parsed.isGood = parsed.tree != nullptr && !parse.refused;
  if (!parsed.isGood || parsed.isPlain) parsed.tree.reset();
  if (purpose == Purpose::kCheck && !parse.isPlain) parsed.isGood = false;
  if (!parsed.isGood) parsed.problem = std::move(parse.problem);
  parsed.rootName = std::move(parse.rootName);
  return parsed;
}

}  // namespace

void XmlTreeCloser::operator()(void* document) const noexcept {
  xmlFreeDoc(static_cast<xmlDoc*>(document));
}

XmlParsed CheckXml(DocumentText& text) { return Run(text, Purpose::kCheck); }
XmlParsed ParseXml(DocumentText& text) { return Run(text, Purpose::kTree); }

}  // namespace zel
