// A document as a sequence of events: the starts and ends of its elements, and what is in between.
//
// XmlTokens makes them from the text of a plain document, TreeEvents from the tree of any other.
// White space between elements is left out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zel {

struct XmlAttribute {
  std::string name;
  std::string value;
};

struct XmlEvent {
  enum class Kind : std::uint8_t {
    kStart,
    kEnd,
    kText,
    kCdata,
    kComment,
    kInstruction,
    kDeclaration,
    kDocumentType,
    kDocumentEnd
  };

  Kind kind = Kind::kDocumentEnd;
  bool isEmpty = false;           // an element without content, which has no kEnd
  std::string_view name;          // of an element, an instruction or a document type
  std::string_view text;          // of kText and kCdata
  std::string_view tag;           // the start tag as it is in the text
  void const* element = nullptr;  // or in the tree
  std::int32_t line = 0;          // of the end of a start tag
};

class XmlEvents {
 public:
  XmlEvents() = default;
  XmlEvents(XmlEvents const&) = delete;
  XmlEvents& operator=(XmlEvents const&) = delete;
  virtual ~XmlEvents() = default;

  // The texts of the event are valid until the next call.
  virtual void Next(XmlEvent& event) = 0;
  // Attributes of an element from its start tag, namespace declarations first. Returns how many
  // there are; `attributes` may have more entries, whose memory is used again.
  virtual std::size_t Attributes(std::string_view tag, void const* element,
                                 std::vector<XmlAttribute>& attributes) const = 0;

 protected:
  static XmlAttribute& Place(std::vector<XmlAttribute>& attributes, std::size_t index) {
    if (index == attributes.size()) attributes.emplace_back();
    return attributes[index];
  }
};

}  // namespace zel
