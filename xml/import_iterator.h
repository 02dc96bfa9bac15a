// One walk over the child nodes or the attributes of an element, with a table of the names that are
// allowed there.
//
// Comments are skipped. Names that are not in the table, and repetitions of names that are allowed
// only once, are reported and skipped, unless the report ends the walk. An `import` tag is replaced
// by nodes of another document: the children of that document's first `group` element, or else its
// own top-level nodes.
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
  kSkip,  // known, but skipped without a report
  kOnce,  // the first is returned, the second reported, further ones skipped without a report
  kAny    // each is returned
};

// Names are compared without regard to case; the first matching row is used.
struct NameRow {
  std::string_view name;
  NameMode mode;
};
inline constexpr std::size_t kMostNames = 21;

enum class ImportTags : bool { kUnknown, kFollowed };

class ImportIterator_i {
 public:
  // `names` has at most kMostNames rows. It must outlive the walk, and so must `context`, the words
  // that name the element in messages.
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
  // True if the walk ended because it must not continue.
  bool Aborted() const noexcept { return aborted_; }
  // Whether the import may continue after this walk.
  Verdict Ending() const noexcept { return aborted_ ? Verdict::kStop : Verdict::kGoOn; }
  // Walks the same list again, with other modes for the names.
  void ResetWalk(std::span<NameRow const> names);

 private:
  ImportIterator_i(ImportRun& run, XmlNode first, bool overAttributes,
                   std::span<NameRow const> names, std::string_view context, ImportTags importTags);

  bool Accept(XmlNode node, std::size_t& match);
  bool EndInclude();
  bool Stop();
  bool Report(std::string_view message);
  Verdict FollowImport(XmlNode tag);
  void EnterInclude(std::shared_ptr<ReadDocument> document);

  ImportRun& run_;
  bool overAttributes_;
  std::span<NameRow const> names_;
  std::string_view context_;
  ImportTags importTags_;
  bool aborted_ = false;
  std::array<std::uint8_t, kMostNames> seenCounts_{};
  XmlNode Advance();

  XmlNode first_;
  XmlNode at_;
  bool isTaken_ = false;  // the walk continues after at_
  // The one place to return to. An `import` directly among the nodes of an included document uses
  // it again: at the end of the inner document the walk returns to the outer one, and at the end of
  // that the walk is over.
  bool includeActive_ = false;
  XmlNode savedAt_;  // the tag
  // Documents of the two lists; null for the one with which the walk began.
  std::shared_ptr<ReadDocument> document_;
  std::shared_ptr<ReadDocument> savedDocument_;
  std::size_t outerPaths_;  // documents that were open before this walk
};

}  // namespace zel
