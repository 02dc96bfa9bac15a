// What the documents of an import hold, and what of it was stored in the library.
//
// The parts of a document are found by its own structure and not by the import's walk, which does
// not reach all of them: a component without an identity ends its bank, and when an included
// document includes another one, nothing is read after that tag. The walk marks what has arrived in
// the library; what has not is reported when the document is finished. Parts are counted, not kept:
// of those that did not arrive, only the first lines are known.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "xml/xml_document.h"

namespace zel {

class DocumentLedger final : public XmlWatcher {
 public:
  enum Kind : std::uint8_t { kBank, kItem, kComponent, kImport, kLibraryText, kKinds };

  DocumentLedger();
  // Keeps what did not arrive, for Differences; to be called before the document is read. Otherwise
  // parts are only counted.
  void KeepDifferences() noexcept { keeps_ = true; }

  Note Enter(XmlNode element) override;
  void Leave(XmlNode element, Note note, bool isMarked) override;

  // Marks an element as stored in the library, or an `import` as followed.
  static void Arrived(XmlNode element) noexcept { element.Mark(); }

  // Complete when the document is finished.
  std::int64_t Found(Kind kind) const noexcept { return found_[kind]; }
  std::int64_t Stored(Kind kind) const noexcept { return stored_[kind]; }
  // The children of one kind of one element, some of which did not arrive.
  struct Difference {
    std::string text;
    std::int32_t line;  // of the first missing one
  };
  // The differences in the order of the elements. To be called once, at the end.
  std::vector<Difference> Differences();

 private:
  // The children of one kind of one element.
  struct Group {
    std::int64_t found = 0;
    std::int64_t missing = 0;
    std::int32_t firstLine = 0;  // of the missing ones
    std::string lines;           // of the first missing ones

    void Add(bool arrived, std::int32_t line);
  };
  // An element whose children may be parts.
  struct Parent {
    std::int64_t order = 0;  // of its start tag among all parents
    Group groups[kKinds];
  };
  struct Missing {
    std::int64_t order;
    Kind kind;
    Difference difference;
  };

  void Open();
  void Keep(Parent const& parent, std::string const& title);

  std::deque<Parent> parents_;  // the first is the document itself
  std::size_t open_ = 0;        // entries in use
  std::int64_t opened_ = 0;
  bool keeps_ = false;
  std::vector<Missing> missing_;
  std::int64_t found_[kKinds] = {};
  std::int64_t stored_[kKinds] = {};
};

}  // namespace zel
