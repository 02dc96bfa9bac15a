#include "maint/document_stack.h"

#include "frame/path_parts.h"

namespace zel {

namespace {
constexpr std::size_t kLongestPath = 259;
}

std::string DocumentStack::Push(std::string_view path) {
  std::string full =
      AbsolutePath(path, documentFolders_.empty() ? std::string() : documentFolders_.back());
  if (full.size() > kLongestPath) full.clear();
  PathParts const parts = SplitPath(full);
  documentFolders_.push_back(parts.folder);
  documentFiles_.push_back(parts.name + parts.extension);
  return full;
}

void DocumentStack::Pop() {
  if (documentFiles_.empty()) return;
  documentFolders_.pop_back();
  documentFiles_.pop_back();
}

std::string const& DocumentStack::TopFile() const noexcept {
  static std::string const none;
  return documentFiles_.empty() ? none : documentFiles_.back();
}

void DocumentStack::Clear() noexcept {
  documentFolders_.clear();
  documentFiles_.clear();
}

// Lives as long as the process, for a host's global objects.
DocumentStack& Documents() noexcept {
  static DocumentStack& stack = *new DocumentStack;
  return stack;
}

}  // namespace zel
