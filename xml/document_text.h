// The bytes of a document: in memory, or a file that is read several times in pieces.
//
// Each reading after the first is compared with it piece by piece, so that a file that another
// program changes in between is noticed before any of its new content is used.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "frame/platform/text_file.h"

namespace zel {

// Follows the readings of documents.
class ReadingWatcher {
 public:
  // Called for each piece of `bytes` bytes, in the first reading of the text or in a later one.
  // False ends the reading, which has then failed.
  virtual bool Read(std::uint64_t bytes, bool first) noexcept = 0;

 protected:
  ~ReadingWatcher() = default;
};

class DocumentText {
 public:
  DocumentText() = default;
  // A text of the caller, which must outlive this object.
  explicit DocumentText(std::string_view text) : view_(text) {}
  DocumentText(DocumentText const&) = delete;
  DocumentText& operator=(DocumentText const&) = delete;

  static constexpr std::size_t kPiece = 1 << 16;
  // A file of up to one piece is read into memory.
  platform::ReadResult Open(std::string const& path, std::size_t piece = kPiece);
  std::size_t PieceSize() const noexcept { return piece_; }
  std::string const& Path() const noexcept { return path_; }
  std::uint64_t Size() const noexcept { return inPieces_ ? file_.Size() : view_.size(); }
  bool IsInMemory() const noexcept { return !inPieces_; }
  // Follows the pieces of a text that is not in memory; null if nothing does.
  void Watch(ReadingWatcher* watcher) noexcept { watcher_ = watcher; }
  // The whole text, if it is in memory.
  std::string_view View() const noexcept { return view_; }

  // Starts at the beginning. The first reading is the one that later ones are compared with.
  void BeginFirst();
  void BeginAgain();
  // The next bytes: as many as there is room for, and fewer only at the end or if the file cannot
  // be read or has changed.
  std::size_t Read(char* buffer, std::size_t room) noexcept;
  bool HasFailed() const noexcept { return failed_; }
  // Releases the file and the memory.
  void Close() noexcept;

 private:
  bool ReadBlock() noexcept;

  std::string path_;
  std::size_t piece_ = kPiece;
  platform::TextInput file_;
  bool inPieces_ = false;
  bool first_ = true;
  bool failed_ = false;
  ReadingWatcher* watcher_ = nullptr;
  std::string held_;
  std::string_view view_;
  std::uint64_t place_ = 0;  // of the next byte that is handed out
  // The block of the file with that byte.
  std::vector<char> block_;
  std::size_t blockSize_ = 0;
  std::vector<std::uint64_t> digests_;  // of the blocks, from the first reading
};

}  // namespace zel
