// The events of a plain document, read from its text.
//
// Plain means: well formed, in UTF-8, without a document type and without errors in namespaces. The
// parser has found the document to be so (xml_parse.h), so nothing is checked again here.
#pragma once

#include "xml/document_text.h"
#include "xml/xml_events.h"

namespace zel {

// The file was changed or became unreadable after it had been found to be well formed.
struct XmlDocumentChanged {
  std::string path;
};

class XmlTokens final : public XmlEvents {
 public:
  explicit XmlTokens(DocumentText& text);

  // Throws XmlDocumentChanged.
  void Next(XmlEvent& event) override;
  std::size_t Attributes(std::string_view tag, void const* element,
                         std::vector<XmlAttribute>& attributes) const override;

 private:
  bool Fill();
  bool LooksAt(std::string_view words);
  // The bytes of the token at hand up to and including `end`, which is searched for after `front`
  // bytes.
  std::string_view Token(std::size_t front, std::string_view end);
  void Take(std::size_t bytes) noexcept;

  bool TakeText(XmlEvent& event);
  void TakeStart(XmlEvent& event);
  void TakeInstruction(XmlEvent& event);
  void TakeCdata(XmlEvent& event);

  DocumentText& text_;
  std::vector<char> buffer_;
  char const* at_ = nullptr;
  char const* end_ = nullptr;
  bool isComplete_ = false;  // there is nothing after end_
  std::int32_t line_ = 1;
  std::string decoded_;
};

}  // namespace zel
