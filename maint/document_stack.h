// The documents that an import is reading, innermost on top: folders, against which a relative path
// in the document is resolved, and file names, which every log line shows.
//
// An import has stacks of its own, so that several threads can import at the same time. When it
// ends, its entries go to those of the process, where those of a top-level document stay: the next
// import of the process resolves a relative path against them.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace zel {

class DocumentStack {
 public:
  // The full path of a document as seen from the one on top, or from the working folder, and that
  // document on top. Empty when there is no such path or it has more than 259 characters.
  std::string Push(std::string_view path);
  void Pop();
  // File name with extension of the document on top; empty when there is none.
  std::string const& TopFile() const noexcept;

  void Clear() noexcept;

 private:
  friend class DocumentsOfImport;

  std::deque<std::string> documentFolders_;
  std::deque<std::string> documentFiles_;
};

// The stacks of the import that this thread runs; outside of one those of the process, which are
// then unguarded.
DocumentStack& Documents();

// The file name on top of them, guarded either way.
std::string TopDocumentFile();

// The stacks of one import, from its begin to its end.
class DocumentsOfImport {
 public:
  DocumentsOfImport();
  DocumentsOfImport(DocumentsOfImport const&) = delete;
  DocumentsOfImport& operator=(DocumentsOfImport const&) = delete;
  ~DocumentsOfImport();

 private:
  DocumentStack own_;
  std::size_t taken_ = 0;  // entries that were the process's
  DocumentStack* before_;
};

}  // namespace zel
