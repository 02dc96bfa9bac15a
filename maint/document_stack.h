// The documents that an import is reading, innermost on top: folders, against which a relative path
// in the document is resolved, and file names, which every log line shows.
//
// One pair of stacks serves the process, so one import at a time may run. The entries of a
// top-level document stay: the next import of the process resolves a relative path against them.
#pragma once

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
  std::deque<std::string> documentFolders_;
  std::deque<std::string> documentFiles_;
};

DocumentStack& Documents() noexcept;

}  // namespace zel
