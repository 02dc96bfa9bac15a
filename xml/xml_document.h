// An XML document in memory, seen through the few operations that an import needs.
//
// Loading is strict: a text that is not well formed does not load. Nothing outside the document is
// ever read: a document with an entity that names a file or an address, or that it does not
// declare, does not load. Entities of the document itself are replaced by their text; parameter
// entities are refused. Bounds keep the time of a load proportional to the size of the text. Texts
// are UTF-8, whatever the encoding of the file.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zel {

// A node of a document, as light as a pointer; valid as long as its document.
class XmlNode {
 public:
  XmlNode() noexcept = default;
  explicit operator bool() const noexcept { return node_ != nullptr; }

  // Name with its prefix; "#text", "#cdata-section", "#comment" for nodes without one of their own,
  // the target of a processing instruction, and "xml" for the declaration.
  std::string_view Name() const;
  bool IsComment() const noexcept;
  bool IsElement() const noexcept;
  // The line of the end of an element's start tag; 0 for nodes without one.
  std::int32_t Line() const noexcept;
  // A pointer of the caller's own that an element keeps; null at first.
  void SetNote(void* note) const noexcept;
  void* Note() const noexcept;

  // Child nodes in document order, except text that is only white space.
  XmlNode FirstChild() const noexcept;
  // Attributes, namespace declarations included.
  XmlNode FirstAttribute() const noexcept;
  // The next one of the same list; null at its end.
  XmlNode Next() const noexcept;

  // The text of an element and its descendants. White space is dropped at an end that is plain
  // text; CDATA sections are kept as is. Points into the document, or into `scratch` if the text
  // consists of several pieces.
  std::string_view Text(std::string& scratch) const;
  // The value of an attribute, stored in the same way.
  std::string_view Value(std::string& scratch) const;
  // The value of the attribute with exactly this name.
  std::optional<std::string> Attribute(std::string_view name) const;

 private:
  friend class XmlDocument;
  enum class Kind : std::uint8_t { kNode, kNamespace, kDeclaration };

  XmlNode(Kind kind, void const* node, void const* owner = nullptr) noexcept
      : kind_(kind), node_(node), owner_(owner) {}
  static XmlNode Listed(void const* node) noexcept;

  Kind kind_ = Kind::kNode;
  void const* node_ = nullptr;
  void const* owner_ = nullptr;  // element of a namespace declaration
};

// Why a document did not load.
struct XmlProblem {
  std::string reason;  // the bound that was exceeded, or the parser's message
  std::int32_t line = 0;
  bool toldAlways = false;  // every message includes the reason
};

class XmlDocument {
 public:
  // The bounds of one document. The parser limits the depth of elements.
  static constexpr int kMostAttributes = 1000;         // of one element
  static constexpr int kMostNamespaces = 1000;         // in force at one element
  static constexpr int kMostDeclared = 100;            // attributes, in the document type
  static constexpr int kMostReferences = 1000;         // to entities, between two start tags
  static constexpr int kLargestDocumentType = 32'000;  // bytes, rounded up to a piece that is read
  // Bytes that entities may add.
  static constexpr double kRoom = 1e6;
  static constexpr double kRoomPerByte = 10.0;

  XmlDocument() noexcept;
  XmlDocument(XmlDocument const&) = delete;
  XmlDocument& operator=(XmlDocument const&) = delete;
  ~XmlDocument();

  // False when the text is not a well-formed document or exceeds a bound. Throws std::bad_alloc.
  bool Load(std::string_view text);
  // Why the last Load returned false.
  XmlProblem const& Problem() const noexcept { return problem_; }

  // The root element.
  XmlNode Root() const noexcept;
  // The first of all nodes outside and including the root; a declaration comes first.
  XmlNode FirstNode() const noexcept;

 private:
  struct Closer {
    void operator()(void* document) const noexcept;
  };
  std::unique_ptr<void, Closer> document_;
  XmlProblem problem_;
};

}  // namespace zel
