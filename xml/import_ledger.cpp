#include "xml/import_ledger.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "frame/ascii.h"

namespace zel {

namespace {

struct NameKind {
  std::string_view name;
  DocumentLedger::Kind kind;
};
constexpr NameKind kNames[] = {
    {"item", DocumentLedger::kItem},           {"comp", DocumentLedger::kComponent},
    {"bank", DocumentLedger::kBank},           {"import", DocumentLedger::kImport},
    {"memo", DocumentLedger::kLibraryText},    {"description", DocumentLedger::kLibraryText},
    {"version", DocumentLedger::kLibraryText},
};

DocumentLedger::Kind KindOf(std::string_view name) {
  auto const row = std::find_if(std::begin(kNames), std::end(kNames),
                                [&](NameKind const& r) { return SameText(r.name, name); });
  return row == std::end(kNames) ? DocumentLedger::kKinds : row->kind;
}

constexpr std::string_view kPlurals[DocumentLedger::kKinds] = {"banks", "items", "components",
                                                               "imports", "texts"};

std::string TitleOf(XmlNode parent) {
  std::string title =
      "<" + std::string(parent.Name()) + "> of line " + std::to_string(parent.Line());
  auto const type = parent.Attribute("type");
  auto const name = parent.Attribute("name");
  return type && name ? title + " (" + *type + ":" + *name + ")" : title;
}

}  // namespace

DocumentLedger::DocumentLedger() { Open(); }

// Elements below data are not entered.
XmlWatcher::Note DocumentLedger::Enter(XmlNode element) {
  Kind const kind = KindOf(element.Name());
  if (kind != kKinds) ++found_[kind];
  bool const isParent = kind == kKinds || kind == kBank;
  if (isParent) Open();
  return {kind, isParent};
}

void DocumentLedger::Leave(XmlNode element, Note note, bool isMarked) {
  if (note.seesChildren) {
    Parent const& parent = parents_[--open_];
    bool const isWhole = std::all_of(std::begin(parent.groups), std::end(parent.groups),
                                     [](Group const& group) { return group.missing == 0; });
    if (keeps_ && !isWhole) Keep(parent, TitleOf(element));
  }
  if (note.word == kKinds) return;
  parents_[open_ - 1].groups[note.word].Add(isMarked, element.Line());
  if (isMarked) ++stored_[note.word];
}

void DocumentLedger::Group::Add(bool arrived, std::int32_t line) {
  constexpr std::int64_t kMostLines = 8;
  ++found;
  if (arrived) return;
  if (missing == 0) firstLine = line;
  if (++missing <= kMostLines) lines += (missing == 1 ? "" : ", ") + std::to_string(line);
  if (missing == kMostLines + 1) lines += ", ...";
}

void DocumentLedger::Open() {
  if (open_ == parents_.size()) parents_.emplace_back();
  Parent& parent = parents_[open_++];
  parent.order = opened_++;
  for (Group& group : parent.groups) group = {};
}

void DocumentLedger::Keep(Parent const& parent, std::string const& title) {
  for (std::size_t k = 0; k < kKinds; ++k) {
    Group const& group = parent.groups[k];
    if (group.missing == 0) continue;
    std::string text = title + ": " + std::to_string(group.missing) + " of " +
                       std::to_string(group.found) + " " + std::string(kPlurals[k]) +
                       (k == kImport ? " not followed" : " not stored") + ", on line " +
                       group.lines;
    missing_.push_back({parent.order, static_cast<Kind>(k), {std::move(text), group.firstLine}});
  }
}

std::vector<DocumentLedger::Difference> DocumentLedger::Differences() {
  while (open_ > 0) Keep(parents_[--open_], "document");
  std::sort(missing_.begin(), missing_.end(), [](Missing const& a, Missing const& b) {
    return std::pair(a.order, a.kind) < std::pair(b.order, b.kind);
  });
  std::vector<Difference> differences;
  for (Missing& missing : missing_) differences.push_back(std::move(missing.difference));
  return differences;
}

}  // namespace zel
