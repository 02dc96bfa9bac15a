// The parser: whether a text is a document that an import accepts, and its tree if it has to be
// kept as one.
//
// Parsing is strict: a text that is not well formed is refused. Nothing outside the document is
// ever read: a document with an entity that names a file or an address, or that it does not
// declare, is refused. Parameter entities are refused. Bounds keep the time proportional to the
// size of the text.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "xml/document_text.h"

namespace zel {

// Why a document was refused.
struct XmlProblem {
  std::string reason;  // the bound that was exceeded, or the parser's message
  std::int32_t line = 0;
  bool toldAlways = false;  // every message includes the reason
};

// The bounds of one document. The parser limits the depth of elements.
struct XmlBounds {
  static constexpr int kMostAttributes = 1000;         // of one element
  static constexpr int kMostNamespaces = 1000;         // in force at one element
  static constexpr int kMostDeclared = 100;            // attributes, in the document type
  static constexpr int kMostReferences = 1000;         // to entities, between two start tags
  static constexpr int kLargestDocumentType = 32'000;  // bytes, rounded up to a piece that is read
  // Bytes that entities may add.
  static constexpr double kRoom = 1e6;
  static constexpr double kRoomPerByte = 10.0;
};

// A document of the parser library, freed with its owner.
struct XmlTreeCloser {
  void operator()(void* document) const noexcept;
};
using XmlTree = std::unique_ptr<void, XmlTreeCloser>;

struct XmlParsed {
  bool isGood = false;
  // The text can be read by XmlTokens. If not, the document needs its tree: it has a document type,
  // whose entities the parser replaces, it is in another encoding, or it has errors in namespaces,
  // which change what names mean.
  bool isPlain = false;
  std::string rootName;  // of a plain document
  XmlTree tree;
  XmlProblem problem;  // of one that is refused
};

// Reads the text to its end and keeps nothing of it. If the result is neither good nor plain, the
// document must be parsed into a tree to find out. Throws std::bad_alloc.
XmlParsed CheckXml(DocumentText& text);
// Parses any document into a tree. Throws std::bad_alloc.
XmlParsed ParseXml(DocumentText& text);

}  // namespace zel
