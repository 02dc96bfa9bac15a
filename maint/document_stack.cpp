#include "maint/document_stack.h"

#include <cstddef>
#include <mutex>
#include <new>
#include <utility>

#include "frame/limits.h"
#include "frame/path_parts.h"

namespace zel {

std::string DocumentStack::Push(std::string_view path) {
  std::string full =
      AbsolutePath(path, documents_.empty() ? std::string() : documents_.back().folder);
  if (full.size() > kMostPath) full.clear();
  PathParts const parts = SplitPath(full);
  documents_.push_back({parts.folder, parts.name + parts.extension});
  return full;
}

void DocumentStack::Pop() {
  if (!documents_.empty()) documents_.pop_back();
}

std::string const& DocumentStack::TopFile() const noexcept {
  static std::string const none;
  return documents_.empty() ? none : documents_.back().file;
}

void DocumentStack::Clear() noexcept { documents_.clear(); }

namespace {

// Exists until the process ends, since a host's global objects may use it.
DocumentStack& OfProcess() {
  static DocumentStack& stack = *new DocumentStack;
  return stack;
}

std::mutex processBusy;
constinit thread_local DocumentStack* ofImport = nullptr;

}  // namespace

DocumentStack& Documents() { return ofImport != nullptr ? *ofImport : OfProcess(); }

std::string TopDocumentFile() {
  if (ofImport != nullptr) return ofImport->TopFile();
  std::lock_guard const lock(processBusy);
  return OfProcess().TopFile();
}

// The import sees only the last of the entries of the process.
DocumentsOfImport::DocumentsOfImport() : before_(ofImport) {
  std::lock_guard const lock(processBusy);
  DocumentStack const& outer = Documents();
  if (!outer.documents_.empty()) {
    own_.documents_.push_back(outer.documents_.back());
    taken_ = 1;
  }
  ofImport = &own_;
}

// A process that imports for a long time keeps only the entries added last.
DocumentsOfImport::~DocumentsOfImport() {
  constexpr std::size_t kMostKept = 64;
  std::lock_guard const lock(processBusy);
  ofImport = before_;
  auto& outer = Documents().documents_;
  try {
    for (std::size_t i = taken_; i < own_.documents_.size(); ++i) {
      outer.push_back(std::move(own_.documents_[i]));
    }
  } catch (std::bad_alloc const&) {  // the next import starts from an earlier entry
  }
  while (before_ == nullptr && outer.size() > kMostKept) outer.pop_front();
}

}  // namespace zel
