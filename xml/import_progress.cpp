#include "xml/import_progress.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <vector>

#include "frame/path_parts.h"

namespace zel {

namespace {

constexpr std::size_t kMostDocuments = 100'000;

// The files that the `import` tags of a text name. It is read as plain text, so that tags in
// comments count too, which is good enough for an estimate.
class ImportTagSearch {
 public:
  void Take(std::string_view piece) {
    rest_.append(piece);
    std::size_t at = 0;
    for (;;) {
      std::size_t const tag = rest_.find(kTag, at);
      if (tag == std::string::npos) break;
      std::size_t const end = rest_.find('>', tag);
      if (end == std::string::npos && rest_.size() - tag < kLongestTag) {
        rest_.erase(0, tag);
        return;
      }
      TakeTag(std::string_view(rest_).substr(tag, end == std::string::npos ? end : end - tag));
      at = tag + kTag.size();
    }
    if (rest_.size() > kTag.size()) rest_.erase(0, std::max(at, rest_.size() - kTag.size()));
  }
  std::vector<std::string> const& Files() const { return files_; }

 private:
  static constexpr std::string_view kTag = "<import";
  static constexpr std::size_t kLongestTag = 1000;

  void TakeTag(std::string_view tag) {
    std::size_t const name = tag.find("file");
    std::size_t const open = name == tag.npos ? name : tag.find_first_of("\"'", name);
    std::size_t const close = open == tag.npos ? open : tag.find(tag[open], open + 1);
    if (close != tag.npos) files_.emplace_back(tag.substr(open + 1, close - open - 1));
  }

  std::string rest_;
  std::vector<std::string> files_;
};

// The bytes of a document and of those that it imports.
class DocumentSizes {
 public:
  void Add(std::string const& path, int depth) {
    if (!seen_.insert(path).second || seen_.size() > kMostDocuments) return;
    platform::TextInput file;
    if (file.Open(path) != platform::ReadResult::kRead) return;
    bytes_ += static_cast<double>(file.Size());
    // Documents of components, which import none, are below those of banks.
    constexpr int kDeepest = 2;
    if (depth >= kDeepest) return;
    ImportTagSearch tags;
    std::vector<char> piece(DocumentText::kPiece);
    std::uint64_t place = 0;
    while (auto const size = file.Read(place, piece.data(), piece.size()).value_or(0)) {
      tags.Take({piece.data(), size});
      place += size;
    }
    file.Close();
    std::string const folder = SplitPath(path).folder;
    for (std::string const& name : tags.Files()) Add(AbsolutePath(name, folder), depth + 1);
  }
  double Bytes() const noexcept { return bytes_; }

 private:
  std::set<std::string> seen_;
  double bytes_ = 0.0;
};

}  // namespace

void ImportProgress::Expect(std::string const& path) {
  if (!IsWatched()) return;
  DocumentSizes sizes;
  sizes.Add(path, 0);
  steps_.Expect(sizes.Bytes());
}

// A document that is in memory is too short to be followed.
bool ImportProgress::Open(DocumentText& text) noexcept {
  if (!IsWatched()) return true;
  text.Watch(this);
  return text.IsInMemory() ? steps_.Did(static_cast<double>(text.Size())) : !IsCancelled();
}

bool ImportProgress::Read(std::uint64_t bytes, bool first) noexcept {
  return steps_.Did((first ? kFirstPart : 1.0 - kFirstPart) * static_cast<double>(bytes));
}

}  // namespace zel
