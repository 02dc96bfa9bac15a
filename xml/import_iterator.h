// One walk over the child nodes or the attributes of an element, against a table of the names that
// may stand there.
//
// Comments are passed over. Names that the table does not have, and second ones of what may stand
// there once, are reported and passed over, unless the report's verdict ends the walk. An `import`
// tag puts the nodes of another document in its place: the children of that document's first
// `group` element, or else its own top-level nodes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "xml/import_run.h"
#include "xml/xml_document.h"

namespace zel {

enum class NameMode : std::uint8_t {
  kSkip,  // known, passed over in silence
  kOnce,  // the first is handed out, the second reported, further ones passed over in silence
  kAny    // each is handed out
};

// Names compare without regard to case, and the first row that fits counts.
struct NameRow {
  std::string_view name;
  NameMode mode;
};
inline constexpr std::size_t kMostNames = 21;

enum class ImportTags : bool { kUnknown, kFollowed };

class ImportIterator_i {
 public:
  // `names` has at most kMostNames rows; it and `context`, the words that name the element in
  // messages, outlive the walk.
  static ImportIterator_i OverChildren(ImportRun& run, XmlNode element,
                                       std::span<NameRow const> names, std::string_view context,
                                       ImportTags importTags);
  static ImportIterator_i OverAttributes(ImportRun& run, XmlNode element,
                                         std::span<NameRow const> names, std::string_view context);
  ImportIterator_i(ImportIterator_i const&) = delete;
  ImportIterator_i& operator=(ImportIterator_i const&) = delete;
  ~ImportIterator_i();

  // The next node and the index of its name in the table; false at the end.
  bool NextNode(XmlNode& node, std::size_t& match);
  // True when the walk ended because it must not go on.
  bool Aborted() const noexcept { return aborted_; }
  // Walks the same list again, against names with other modes.
  void ResetWalk(std::span<NameRow const> names);

 private:
  ImportIterator_i(ImportRun& run, XmlNode first, bool overAttributes,
                   std::span<NameRow const> names, std::string_view context, ImportTags importTags);

  bool Accept(XmlNode node, std::size_t& match);
  bool EndInclude();
  bool Stop();
  bool Report(std::string_view message);
  bool FollowImport(XmlNode tag);
  void EnterInclude(std::shared_ptr<ReadDocument> document);

  ImportRun& run_;
  bool overAttributes_;
  std::span<NameRow const> names_;
  std::string_view context_;
  ImportTags importTags_;
  bool aborted_ = false;
  std::array<std::uint8_t, kMostNames> seenCounts_{};
  XmlNode first_;
  XmlNode next_;
  // One place to go back to. An `import` directly among the nodes of an included document takes it
  // over: when the inner document ends the walk goes back to the outer one, and at the end of that
  // the walk is over.
  bool includeActive_ = false;
  XmlNode savedNext_;
  // Documents of the two lists; null for the one that the walk began with.
  std::shared_ptr<ReadDocument> document_;
  std::shared_ptr<ReadDocument> savedDocument_;
  std::size_t outerPaths_;  // documents that were open before this walk
};

}  // namespace zel
