// An XML document, read from its beginning to its end, seen through the few operations that an
// import needs.
//
// It is read twice. Load parses it and keeps nothing, so that a text that is not well formed is
// refused before anything of it is used. Then the caller walks it, and only the elements that
// enclose the place where the walk is are in memory, with the text that was asked for last. A
// document that is not plain (xml_parse.h) is kept as a tree and walked in the same way. Texts are
// UTF-8, whatever the encoding of the file.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "xml/xml_events.h"
#include "xml/xml_parse.h"
#include "xml/xml_tokens.h"

namespace zel {

class XmlDocument;

// The place of a walk in one list of nodes, as light as a pointer. The walk goes forward only: a
// node is valid until Next is called on it or on a node that encloses it.
class XmlNode {
 public:
  XmlNode() noexcept = default;
  explicit operator bool() const noexcept { return document_ != nullptr; }

  // Name with its prefix; "#text", "#cdata-section", "#comment" for nodes without one of their own,
  // the target of a processing instruction, and "xml" for the declaration.
  std::string_view Name() const;
  bool IsComment() const noexcept;
  bool IsElement() const noexcept;
  // The line of the end of an element's start tag; 0 for nodes without one.
  std::int32_t Line() const noexcept;
  // Sets a mark that the watcher of the document sees when the walk leaves the element.
  void Mark() const noexcept;

  // The first child node, except text that is only white space. Null if the content of the element
  // has been read.
  XmlNode FirstChild() const;
  // Attributes, namespace declarations included. They can be walked again.
  XmlNode FirstAttribute() const;
  // The next one of the same list; null at its end.
  XmlNode Next() const;

  // The text of an element and its descendants. White space is dropped at an end that is plain
  // text; CDATA sections are kept as is. Reads the content of the element, which then has no child
  // nodes. Valid as long as the node.
  std::string_view Text() const;
  // The value of an attribute, valid as long as its element.
  std::string_view Value() const;
  // The value of the attribute with exactly this name.
  std::optional<std::string> Attribute(std::string_view name) const;

 private:
  friend class XmlDocument;
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  XmlNode(XmlDocument* document, std::size_t depth, std::size_t attribute = kNone) noexcept
      : document_(document), depth_(depth), attribute_(attribute) {}

  XmlDocument* document_ = nullptr;
  std::size_t depth_ = 0;
  std::size_t attribute_ = kNone;  // index of an attribute
};

// Sees the elements of a document, whether the walk reaches them or passes over them.
class XmlWatcher {
 public:
  struct Note {
    std::uint8_t word = 0;      // the watcher's own
    bool seesChildren = false;  // the watcher sees the child elements, too
  };
  virtual Note Enter(XmlNode element) = 0;
  virtual void Leave(XmlNode element, Note note, bool isMarked) = 0;

 protected:
  ~XmlWatcher() = default;
};

class XmlDocument {
 public:
  XmlDocument();
  XmlDocument(XmlDocument const&) = delete;
  XmlDocument& operator=(XmlDocument const&) = delete;
  ~XmlDocument();

  // False when the text is not a well-formed document or exceeds a bound. The text must outlive the
  // walk. Throws std::bad_alloc, and XmlDocumentChanged, as does each step of a walk.
  bool Load(DocumentText& text);
  bool Load(std::string_view text);
  // Why the last Load returned false.
  XmlProblem const& Problem() const noexcept { return problem_; }
  // Reports the elements of the document to the watcher; to be called before Load.
  void Watch(XmlWatcher& watcher) { watcher_ = &watcher; }

  // True if the root has this name, in upper or lower case.
  bool HasRoot(std::string_view name) const;
  // Begins the walk at the root element.
  XmlNode Root();
  // Begins the walk at the first of all nodes outside and including the root; a declaration comes
  // first.
  XmlNode FirstNode();
  // Passes over what the walk has not reached, for the watcher, and releases the memory.
  void Finish();

 private:
  friend class XmlNode;

  // One of the nodes that enclose each other at the place of the walk.
  struct Slot {
    XmlEvent::Kind kind = XmlEvent::Kind::kStart;
    bool isRead = false;     // up to its end tag
    bool isWatched = false;  // it was reported to the watcher
    bool isMarked = false;
    bool hasText = false;
    bool hasAttributes = false;
    std::int32_t line = 0;
    XmlWatcher::Note note;
    std::string tag;  // the name, and what follows it in a start tag
    std::size_t nameSize = 0;
    void const* element = nullptr;
    std::string text;
    std::size_t attributeCount = 0;
    std::vector<XmlAttribute> attributes;
  };

  void Begin(std::unique_ptr<XmlEvents> events);
  XmlNode ReadChild(std::size_t depth);
  void ReadRest(std::size_t depth);
  void PassOver(std::size_t depth);
  void ReadText(Slot& slot);
  Slot& WithAttributes(std::size_t depth);

  std::unique_ptr<DocumentText> ownText_;
  XmlTree tree_;
  std::unique_ptr<XmlEvents> events_;
  XmlEvent event_;
  std::string rootName_;
  XmlProblem problem_;
  XmlWatcher* watcher_ = nullptr;
  std::deque<Slot> slots_;  // the first is the document itself
  std::size_t depth_ = 0;   // of the innermost slot in use
};

}  // namespace zel
