#include "xml/xml_document.h"

#include "frame/ascii.h"
#include "xml/tree_events.h"

namespace zel {

namespace {

using Kind = XmlEvent::Kind;

constexpr std::string_view kWhiteSpace = " \t\r\n";

std::string_view TrimmedFront(std::string_view text) noexcept {
  std::size_t const at = text.find_first_not_of(kWhiteSpace);
  return at == std::string_view::npos ? std::string_view{} : text.substr(at);
}

std::string_view TrimmedBack(std::string_view text) noexcept {
  return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

}  // namespace

// --- nodes ---------------------------------------------------------------------------------------

std::string_view XmlNode::Name() const {
  XmlDocument::Slot const& slot = document_->slots_[depth_];
  if (attribute_ != kNone) return slot.attributes[attribute_].name;
  switch (slot.kind) {
    case Kind::kText: return "#text";
    case Kind::kCdata: return "#cdata-section";
    case Kind::kComment: return "#comment";
    case Kind::kDeclaration: return "xml";
    default: return std::string_view(slot.tag).substr(0, slot.nameSize);
  }
}

bool XmlNode::IsComment() const noexcept {
  return attribute_ == kNone && document_->slots_[depth_].kind == Kind::kComment;
}

bool XmlNode::IsElement() const noexcept {
  return attribute_ == kNone && document_->slots_[depth_].kind == Kind::kStart;
}

std::int32_t XmlNode::Line() const noexcept {
  return IsElement() ? document_->slots_[depth_].line : 0;
}

void XmlNode::Mark() const noexcept { document_->slots_[depth_].isMarked = true; }

XmlNode XmlNode::FirstChild() const {
  if (!IsElement() || document_->depth_ != depth_) return {};
  return document_->ReadChild(depth_);
}

XmlNode XmlNode::FirstAttribute() const {
  if (!IsElement() || document_->WithAttributes(depth_).attributeCount == 0) return {};
  return {document_, depth_, 0};
}

XmlNode XmlNode::Next() const {
  if (attribute_ != kNone) {
    bool const isLast = attribute_ + 1 == document_->slots_[depth_].attributeCount;
    return isLast ? XmlNode() : XmlNode(document_, depth_, attribute_ + 1);
  }
  if (depth_ > document_->depth_) return {};
  document_->PassOver(depth_);
  return document_->ReadChild(depth_ - 1);
}

std::string_view XmlNode::Text() const {
  if (!IsElement()) return {};
  XmlDocument::Slot& slot = document_->slots_[depth_];
  if (!slot.hasText) document_->ReadText(slot);
  return slot.text;
}

std::string_view XmlNode::Value() const {
  if (attribute_ == kNone) return {};
  return document_->slots_[depth_].attributes[attribute_].value;
}

std::optional<std::string> XmlNode::Attribute(std::string_view name) const {
  for (XmlNode at = FirstAttribute(); at; at = at.Next()) {
    if (at.Name() == name) return std::string(at.Value());
  }
  return std::nullopt;
}

// --- document ------------------------------------------------------------------------------------

XmlDocument::XmlDocument() = default;
XmlDocument::~XmlDocument() = default;

bool XmlDocument::Load(std::string_view text) {
  ownText_ = std::make_unique<DocumentText>(text);
  return Load(*ownText_);
}

bool XmlDocument::Load(DocumentText& text) {
  events_.reset();
  tree_.reset();
  problem_ = {};
  rootName_.clear();
  slots_.clear();
  depth_ = 0;
  XmlParsed parsed = CheckXml(text);
  bool const isPlain = parsed.isPlain;
  if (!isPlain && !text.HasFailed()) parsed = ParseXml(text);
  if (!parsed.isGood || text.HasFailed()) {
    problem_ = std::move(parsed.problem);
    return false;
  }
  if (isPlain) {
    rootName_ = std::move(parsed.rootName);
    Begin(std::make_unique<XmlTokens>(text));
  } else {
    tree_ = std::move(parsed.tree);
    auto events = std::make_unique<TreeEvents>(tree_);
    rootName_ = events->RootName();
    Begin(std::move(events));
  }
  return true;
}

void XmlDocument::Begin(std::unique_ptr<XmlEvents> events) {
  events_ = std::move(events);
  slots_.emplace_back();
}

bool XmlDocument::HasRoot(std::string_view name) const { return SameText(rootName_, name); }

XmlNode XmlDocument::FirstNode() {
  if (!events_) return {};
  slots_.front().note.seesChildren = watcher_ != nullptr;
  return ReadChild(0);
}

XmlNode XmlDocument::Root() {
  XmlNode node = FirstNode();
  while (node && !node.IsElement()) node = node.Next();
  return node;
}

// The next child of the node at this depth, of which all before it has been read.
XmlNode XmlDocument::ReadChild(std::size_t depth) {
  if (slots_[depth].isRead) return {};
  events_->Next(event_);
  if (event_.kind == Kind::kEnd || event_.kind == Kind::kDocumentEnd) {
    slots_[depth].isRead = true;
    return {};
  }
  depth_ = depth + 1;
  if (slots_.size() == depth_) slots_.emplace_back();
  Slot& slot = slots_[depth_];
  bool const isElement = event_.kind == Kind::kStart;
  slot.kind = event_.kind;
  slot.isRead = !isElement || event_.isEmpty;
  slot.isWatched = slot.isMarked = slot.hasText = slot.hasAttributes = false;
  slot.note = {};
  slot.tag = isElement ? event_.tag : event_.name;
  slot.nameSize = event_.name.size();
  slot.element = event_.element;
  slot.line = event_.line;
  if (isElement && slots_[depth].note.seesChildren) {
    slot.isWatched = true;
    slot.note = watcher_->Enter({this, depth_});
  }
  return {this, depth_};
}

// Reads to the end of the node at this depth, which is the innermost.
void XmlDocument::ReadRest(std::size_t depth) {
  Slot& slot = slots_[depth];
  if (slot.note.seesChildren) {
    while (ReadChild(depth)) PassOver(depth + 1);
    return;
  }
  for (std::size_t open = 1; !slot.isRead;) {
    events_->Next(event_);
    if (event_.kind == Kind::kStart && !event_.isEmpty) ++open;
    if (event_.kind == Kind::kDocumentEnd) open = 1;
    if (event_.kind == Kind::kEnd || event_.kind == Kind::kDocumentEnd) slot.isRead = --open == 0;
  }
}

// Reads to the end of the node at this depth and leaves it.
void XmlDocument::PassOver(std::size_t depth) {
  for (; depth_ >= depth; --depth_) {
    ReadRest(depth_);
    Slot& slot = slots_[depth_];
    if (slot.isWatched) watcher_->Leave({this, depth_}, slot.note, slot.isMarked);
    slot.isWatched = false;
  }
}

void XmlDocument::Finish() {
  if (!events_) return;
  if (depth_ == 0) FirstNode();
  PassOver(1);
  while (ReadChild(0)) PassOver(1);
  events_.reset();
  tree_.reset();
  slots_.clear();
}

// Pieces of plain text that are only white space do not count.
void XmlDocument::ReadText(Slot& slot) {
  slot.text.clear();
  slot.hasText = true;
  bool any = false;
  bool isPlainFront = false;
  bool isPlainBack = false;
  for (std::size_t open = 1; !slot.isRead;) {
    events_->Next(event_);
    switch (event_.kind) {
      case Kind::kStart: open += event_.isEmpty ? 0 : 1; break;
      case Kind::kText:
      case Kind::kCdata:
        isPlainBack = event_.kind == Kind::kText;
        if (!any) isPlainFront = isPlainBack;
        any = true;
        slot.text.append(event_.text);
        break;
      case Kind::kEnd: slot.isRead = --open == 0; break;
      case Kind::kDocumentEnd: slot.isRead = true; break;
      default: break;
    }
  }
  if (isPlainBack) slot.text.resize(TrimmedBack(slot.text).size());
  if (isPlainFront) slot.text.erase(0, slot.text.size() - TrimmedFront(slot.text).size());
}

XmlDocument::Slot& XmlDocument::WithAttributes(std::size_t depth) {
  Slot& slot = slots_[depth];
  if (!slot.hasAttributes) {
    slot.attributeCount = events_->Attributes(slot.tag, slot.element, slot.attributes);
    slot.hasAttributes = true;
  }
  return slot;
}

}  // namespace zel
