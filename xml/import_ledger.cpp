#include "xml/import_ledger.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "frame/ascii.h"

namespace zel {

namespace {

struct NameKind {
  std::string_view name;
  DocumentLedger::Kind kind;
};
constexpr NameKind kNames[] = {
    {"item", DocumentLedger::kItem},    {"comp", DocumentLedger::kComponent},
    {"bank", DocumentLedger::kBank},    {"import", DocumentLedger::kImport},
    {"memo", DocumentLedger::kText},    {"description", DocumentLedger::kText},
    {"version", DocumentLedger::kText},
};

NameKind const* KindOf(std::string_view name) {
  auto const row = std::find_if(std::begin(kNames), std::end(kNames),
                                [&](NameKind const& r) { return SameText(r.name, name); });
  return row == std::end(kNames) ? nullptr : row;
}

constexpr std::string_view kPlurals[DocumentLedger::kKinds] = {"banks", "items", "components",
                                                               "imports", "texts"};

// The children of one kind of one element.
struct Group {
  std::int64_t found = 0;
  std::int64_t missing = 0;
  std::int32_t firstLine = 0;  // of the missing ones
  std::string lines;           // of the first missing ones

  void Add(bool arrived, std::int32_t line) {
    constexpr std::int64_t kMostLines = 8;
    ++found;
    if (arrived) return;
    if (missing == 0) firstLine = line;
    if (++missing <= kMostLines) lines += (missing == 1 ? "" : ", ") + std::to_string(line);
    if (missing == kMostLines + 1) lines += ", ...";
  }
};

std::string TitleOf(XmlNode parent) {
  if (!parent) return "document";
  std::string title =
      "<" + std::string(parent.Name()) + "> of line " + std::to_string(parent.Line());
  auto const type = parent.Attribute("type");
  auto const name = parent.Attribute("name");
  return type && name ? title + " (" + *type + ":" + *name + ")" : title;
}

}  // namespace

DocumentLedger::DocumentLedger(XmlDocument const& document) : parents_(1) {
  for (XmlNode node = document.FirstNode(); node; node = node.Next()) {
    if (node.IsElement()) Enter(node, 0);
  }
}

// Elements below data are not entered. The parser limits the depth of elements.
void DocumentLedger::Enter(XmlNode element, std::size_t parent) {
  if (NameKind const* const row = KindOf(element.Name())) {
    entries_.push_back({row->kind, false, element.Line(), parent});
    element.SetNote(&entries_.back());
    ++found_[row->kind];
    if (row->kind != kBank) return;
  }
  std::size_t const self = parents_.size();
  parents_.push_back(element);
  for (XmlNode child = element.FirstChild(); child; child = child.Next()) {
    if (child.IsElement()) Enter(child, self);
  }
}

void DocumentLedger::Arrived(XmlNode element) noexcept {
  if (void* const entry = element.Note()) static_cast<Entry*>(entry)->arrived = true;
}

std::int64_t DocumentLedger::Stored(Kind kind) const noexcept {
  return std::count_if(entries_.begin(), entries_.end(),
                       [&](Entry const& entry) { return entry.kind == kind && entry.arrived; });
}

std::vector<DocumentLedger::Difference> DocumentLedger::Differences() const {
  std::map<std::pair<std::size_t, Kind>, Group> groups;
  for (Entry const& entry : entries_) {
    groups[{entry.parent, entry.kind}].Add(entry.arrived, entry.line);
  }
  std::vector<Difference> differences;
  for (auto const& [place, group] : groups) {
    if (group.missing == 0) continue;
    std::string text =
        TitleOf(parents_[place.first]) + ": " + std::to_string(group.missing) + " of " +
        std::to_string(group.found) + " " + std::string(kPlurals[place.second]) +
        (place.second == kImport ? " not followed" : " not stored") + ", on line " + group.lines;
    differences.push_back({std::move(text), group.firstLine});
  }
  return differences;
}

}  // namespace zel
