// The documents that an import is reading, innermost on top: folders, against which a relative path
// in the document is resolved, and file names, which every log line shows.
//
// An import has its own stacks, so that several threads can import at the same time. When it ends,
// its remaining entries are added to the stacks of the process. Those of a top-level document stay
// there, the last few of them: the next import of the process resolves a relative path against
// them.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace zel {

class DocumentStack {
 public:
  // Puts a document on top and returns its full path, resolved against the document that was on top
  // or else the working folder. Empty when the path does not exist or has more than 259 characters.
  std::string Push(std::string_view path);
  void Pop();
  // File name with extension of the document on top; empty without a document.
  std::string const& TopFile() const noexcept;

  void Clear() noexcept;

 private:
  friend class DocumentsOfImport;

  struct Document {
    std::string folder;
    std::string file;
  };
  std::deque<Document> documents_;
};

// The stacks of the import that this thread runs; outside of an import those of the process, which
// are not guarded by this function.
DocumentStack& Documents();

// The file name on top of the same stacks; guarded in both cases.
std::string TopDocumentFile();

// The stacks of one import, from its start to its end.
class DocumentsOfImport {
 public:
  DocumentsOfImport();
  DocumentsOfImport(DocumentsOfImport const&) = delete;
  DocumentsOfImport& operator=(DocumentsOfImport const&) = delete;
  ~DocumentsOfImport();

 private:
  DocumentStack own_;
  std::size_t taken_ = 0;  // entries copied from the process
  DocumentStack* before_;
};

}  // namespace zel
