// What the documents of an import hold, and what of it was stored in the library.
//
// Each document is entered before it is walked, by its own structure and not by the walk, which
// does not reach all of it: a component without an identity ends its bank, and when an included
// document includes another one, nothing is read after that tag. The walk marks what has arrived in
// the library; what has not is reported when the document is finished.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "xml/xml_document.h"

namespace zel {

class DocumentLedger {
 public:
  enum Kind : std::uint8_t { kBank, kItem, kComponent, kImport, kText, kKinds };

  // Enters the elements, which get pointers to their entries.
  explicit DocumentLedger(XmlDocument const& document);
  DocumentLedger(DocumentLedger const&) = delete;
  DocumentLedger& operator=(DocumentLedger const&) = delete;

  // Marks an element as stored in the library, or an `import` as followed.
  static void Arrived(XmlNode element) noexcept;

  std::int64_t Found(Kind kind) const noexcept { return found_[kind]; }
  std::int64_t Stored(Kind kind) const noexcept;
  // The children of one kind of one element, some of which did not arrive.
  struct Difference {
    std::string text;
    std::int32_t line;  // of the first missing one
  };
  std::vector<Difference> Differences() const;

 private:
  struct Entry {
    Kind kind;
    bool arrived;
    std::int32_t line;
    std::size_t parent;  // in parents_
  };

  void Enter(XmlNode element, std::size_t parent);

  std::deque<Entry> entries_;
  std::vector<XmlNode> parents_;  // the first is null and means the document itself
  std::int64_t found_[kKinds] = {};
};

}  // namespace zel
