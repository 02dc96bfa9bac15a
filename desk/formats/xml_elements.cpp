#include "desk/formats/xml_elements.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

#include "desk/formats/foreign_record.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

constexpr std::size_t kMostNodes = 10'000'000;

// What the handlers of the parser fill. No exception may pass through it, since it is written in C.
struct XmlReading {
  xmlParserCtxt* context = nullptr;
  XmlElement root;
  std::vector<XmlElement*> open;
  std::size_t nodes = 0;
  std::string refused;
  bool memoryLost = false;
};

XmlReading& XmlReadingOf(void* data) {
  return *static_cast<XmlReading*>(static_cast<xmlParserCtxt*>(data)->_private);
}

void Stop(XmlReading& reading, char const* why) noexcept {
  try {
    reading.refused = why;
  } catch (std::bad_alloc const&) {
    reading.memoryLost = true;
  }
  xmlStopParser(reading.context);
}

std::string TextOf(xmlChar const* text) { return reinterpret_cast<char const*>(text); }

void Begin(void* data, xmlChar const* name, xmlChar const* /*prefix*/, xmlChar const* /*space*/,
           int /*spaces*/, xmlChar const** /*names*/, int count, int /*defaults*/,
           xmlChar const** attributes) {
  XmlReading& reading = XmlReadingOf(data);
  reading.nodes += 1 + static_cast<std::size_t>(count);
  if (reading.nodes > kMostNodes) return Stop(reading, "more than 10 million elements");
  try {
    XmlElement* element = &reading.root;
    if (!reading.open.empty()) {
      reading.open.back()->children.emplace_back();
      element = &reading.open.back()->children.back();
    }
    reading.open.push_back(element);
    element->name = TextOf(name);
    element->line = static_cast<std::size_t>(reading.context->input->line);
    constexpr int kWords = 5;  // name, prefix, namespace, begin and end of the value
    for (int i = 0; i < count; ++i) {
      xmlChar const** const words = attributes + static_cast<std::ptrdiff_t>(i) * kWords;
      element->attributes.emplace_back(TextOf(words[0]),
                                       std::string(reinterpret_cast<char const*>(words[3]),
                                                   reinterpret_cast<char const*>(words[4])));
    }
  } catch (std::bad_alloc const&) {
    reading.memoryLost = true;
    xmlStopParser(reading.context);
  }
}

void End(void* data, xmlChar const* /*name*/, xmlChar const* /*prefix*/, xmlChar const* /*space*/) {
  XmlReading& reading = XmlReadingOf(data);
  if (!reading.open.empty()) reading.open.pop_back();
}

void Characters(void* data, xmlChar const* text, int length) {
  XmlReading& reading = XmlReadingOf(data);
  if (reading.open.empty()) return;
  std::string& whole = reading.open.back()->text;
  bool const isBlank = std::all_of(text, text + length, [](xmlChar c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
  });
  if (whole.empty() && isBlank) return;  // between elements
  try {
    whole.append(reinterpret_cast<char const*>(text), static_cast<std::size_t>(length));
  } catch (std::bad_alloc const&) {
    reading.memoryLost = true;
    xmlStopParser(reading.context);
  }
}

void RefuseType(void* data, xmlChar const* /*name*/, xmlChar const* /*id*/,
                xmlChar const* /*system*/) {
  Stop(XmlReadingOf(data), "it has a document type, which is not read");
}

// The parser goes on without memory, and then finds other errors.
template <typename Error>  // its constness depends on the version of the parser
void NoteError(void* data, Error* error) {
  if (error->code == XML_ERR_NO_MEMORY) XmlReadingOf(data).memoryLost = true;
}

std::string ReasonIn(xmlParserCtxt* context) {
  xmlError const* const error = xmlCtxtGetLastError(context);
  std::string reason =
      error == nullptr || error->message == nullptr ? "it is not well formed" : error->message;
  while (!reason.empty() && reason.back() == '\n') reason.pop_back();
  return reason;
}

}  // namespace

std::string XmlElement::Attribute(std::string const& wanted) const {
  for (auto const& [one, value] : attributes) {
    if (one != wanted) continue;
    std::size_t const first = value.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return "";
    return value.substr(first, value.find_last_not_of(" \t\r\n") - first + 1);
  }
  return "";
}

XmlElement const* XmlElement::Child(std::string const& wanted) const {
  for (XmlElement const& child : children) {
    if (child.name == wanted) return &child;
  }
  return nullptr;
}

XmlElement ReadXml(std::string const& path) {
  std::string const text = ForeignText(path);
  if (text.empty()) throw Failure(path + ": is empty");
  struct Free {
    void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
  };
  xmlInitParser();
  std::unique_ptr<xmlParserCtxt, Free> const context(
      xmlCreateMemoryParserCtxt(text.data(), static_cast<int>(text.size())));
  if (context == nullptr || context->sax == nullptr) throw std::bad_alloc();
  XmlReading reading;
  reading.context = context.get();
  context->_private = &reading;
  std::memset(context->sax, 0, sizeof *context->sax);
  context->sax->initialized = XML_SAX2_MAGIC;
  context->sax->startElementNs = Begin;
  context->sax->endElementNs = End;
  context->sax->characters = Characters;
  context->sax->cdataBlock = Characters;
  context->sax->internalSubset = RefuseType;
  context->sax->serror = [](void* data, auto* error) { NoteError(data, error); };
  // The predefined entities are replaced in attributes, too; there are no others.
  xmlCtxtUseOptions(context.get(),
                    XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
  xmlResetLastError();
  int const result = xmlParseDocument(context.get());
  xmlError const* const last = xmlGetLastError();
  bool const lastIsMemory = last != nullptr && last->code == XML_ERR_NO_MEMORY;
  bool const isFull = xmlDictGetUsage(context->dict) > XML_MAX_DICTIONARY_LIMIT;
  if ((reading.memoryLost || lastIsMemory) && !isFull) throw std::bad_alloc();
  std::string const where = path + ", line " +
                            std::to_string(context->input == nullptr ? 1 : context->input->line) +
                            ": ";
  if (!reading.refused.empty()) throw Failure(where + reading.refused);
  if (result != 0 || context->wellFormed == 0) throw Failure(where + ReasonIn(context.get()));
  return std::move(reading.root);
}

}  // namespace zel::desk
