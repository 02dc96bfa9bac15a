#include "xml/import_iterator.h"

#include <algorithm>

#include "frame/ascii.h"
#include "maint/document_stack.h"

namespace zel {

namespace {

constexpr std::uint8_t kReported = 2;  // a name seen this often has been reported

std::string Joined(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (std::string_view piece : pieces) text.append(piece);
  return text;
}

}  // namespace

ImportIterator_i::ImportIterator_i(ImportRun& run, XmlNode first, bool overAttributes,
                                   std::span<NameRow const> names, std::string_view context,
                                   ImportTags importTags)
    : run_(run),
      overAttributes_(overAttributes),
      names_(names),
      context_(context),
      importTags_(importTags),
      first_(first),
      at_(first),
      outerPaths_(run.openPaths.size()) {}

ImportIterator_i ImportIterator_i::OverChildren(ImportRun& run, XmlNode element,
                                                std::span<NameRow const> names,
                                                std::string_view context, ImportTags importTags) {
  return {run, element.FirstChild(), false, names, context, importTags};
}

ImportIterator_i ImportIterator_i::OverAttributes(ImportRun& run, XmlNode element,
                                                  std::span<NameRow const> names,
                                                  std::string_view context) {
  return {run, element.FirstAttribute(), true, names, context, ImportTags::kUnknown};
}

// Does not change the document stacks: an import that ends within an included document leaves that
// document on them.
ImportIterator_i::~ImportIterator_i() { run_.openPaths.resize(outerPaths_); }

void ImportIterator_i::ResetWalk(std::span<NameRow const> names) {
  names_ = names;
  at_ = first_;
  isTaken_ = false;
  seenCounts_.fill(0);
}

// A node is left only when the next one is asked for: until then the caller uses it.
XmlNode ImportIterator_i::Advance() {
  if (isTaken_ && at_) at_ = at_.Next();
  isTaken_ = true;
  return at_;
}

bool ImportIterator_i::NextNode(XmlNode& node, std::size_t& match) {
  while (!aborted_) {
    XmlNode const current = Advance();
    if (!current) {
      if (EndInclude()) continue;
      if (document_) document_->Finish();  // the walk does not return to it
      return false;
    }
    if (current.IsComment() || !Accept(current, match)) continue;
    node = current;
    return true;
  }
  return false;
}

// True if the walk returns this node.
bool ImportIterator_i::Accept(XmlNode node, std::size_t& match) {
  std::string_view const name = node.Name();
  auto const row = std::find_if(names_.begin(), names_.end(),
                                [&](NameRow const& known) { return SameText(known.name, name); });
  if (row == names_.end()) {
    if (importTags_ == ImportTags::kFollowed && SameText(name, "import")) {
      if (FollowImport(node) == Verdict::kStop) Stop();
      return false;
    }
    return Report(
        overAttributes_
            ? Joined({"Unrecognized attribute \"", name, "\" found within ", context_, " node"})
            : Joined({"Unrecognized node <", name, "> found within ", context_, " node"}));
  }
  if (row->mode == NameMode::kSkip) return false;
  match = static_cast<std::size_t>(row - names_.begin());
  if (row->mode == NameMode::kAny) return true;
  std::uint8_t& seen = seenCounts_[match];
  if (seen == kReported) return false;
  if (++seen < kReported) return true;
  return Report(
      overAttributes_
          ? Joined({"Duplicate \"", name, "\" attribute found within ", context_, " node"})
          : Joined({"Duplicate <", name, "> node found within ", context_, " node"}));
}

bool ImportIterator_i::Stop() {
  aborted_ = true;
  return false;
}

// Always returns false: a reported node is not returned by the walk.
bool ImportIterator_i::Report(std::string_view message) {
  if (run_.log.ReportError(message) == Verdict::kStop) Stop();
  return false;
}

bool ImportIterator_i::EndInclude() {
  if (!includeActive_) return false;
  if (run_.Settle(document_) == Verdict::kStop) Stop();
  Documents().Pop();
  run_.openPaths.pop_back();
  at_ = savedAt_;
  document_ = savedDocument_;
  includeActive_ = false;
  return true;
}

Verdict ImportIterator_i::FollowImport(XmlNode tag) {
  std::optional<std::string> const file = tag.Attribute("file");
  if (!file) {
    run_.log.ReportError("Missing \"file\" attribute on \"import\" tag");
    return Verdict::kStop;
  }
  std::string const path = Documents().Push(*file);
  std::shared_ptr<ReadDocument> document;
  std::string problem;
  ImportRun::Opened const opened = run_.Open(path, document, problem);
  if (opened == ImportRun::Opened::kOpened) {
    DocumentLedger::Arrived(tag);
    EnterInclude(std::move(document));
    return Verdict::kGoOn;
  }
  Documents().Pop();  // so that the report shows the including document
  if (run_.progress.IsCancelled()) return Verdict::kStop;
  Verdict const verdict = run_.log.ReportError(problem);
  return opened == ImportRun::Opened::kEnd ? Verdict::kStop : verdict;
}

// Continues the walk with the nodes of the document.
void ImportIterator_i::EnterInclude(std::shared_ptr<ReadDocument> document) {
  savedAt_ = at_;
  savedDocument_ = document_;
  document_ = std::move(document);
  XmlDocument& included = document_->document;
  at_ = included.HasRoot("group") ? included.Root().FirstChild() : included.FirstNode();
  isTaken_ = false;
  includeActive_ = true;
}

}  // namespace zel
