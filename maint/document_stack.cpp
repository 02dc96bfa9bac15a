#include "maint/document_stack.h"

#include <mutex>
#include <new>
#include <utility>

#include "frame/limits.h"
#include "frame/path_parts.h"

namespace zel {

namespace {}

std::string DocumentStack::Push(std::string_view path) {
  std::string full =
      AbsolutePath(path, documentFolders_.empty() ? std::string() : documentFolders_.back());
  if (full.size() > kMostPath) full.clear();
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

namespace {

// Exists until the process ends, since a host's global objects may use it.
DocumentStack& OfProcess() {
  static DocumentStack& stack = *new DocumentStack;
  return stack;
}

constinit std::mutex processBusy;
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
  if (!outer.documentFiles_.empty()) {
    own_.documentFolders_.push_back(outer.documentFolders_.back());
    own_.documentFiles_.push_back(outer.documentFiles_.back());
    taken_ = 1;
  }
  ofImport = &own_;
}

DocumentsOfImport::~DocumentsOfImport() {
  std::lock_guard const lock(processBusy);
  ofImport = before_;
  DocumentStack& outer = Documents();
  for (std::size_t i = taken_; i < own_.documentFiles_.size(); ++i) {
    try {
      outer.documentFolders_.push_back(std::move(own_.documentFolders_[i]));
      outer.documentFiles_.push_back(std::move(own_.documentFiles_[i]));
    } catch (std::bad_alloc const&) {  // keeps the two of equal length
      outer.documentFolders_.resize(outer.documentFiles_.size());
      return;
    }
  }
}

}  // namespace zel
