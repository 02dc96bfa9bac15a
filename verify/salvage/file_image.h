// The words of one file of a library that may be damaged.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "frame/platform/block_file.h"
#include "store/format.h"

namespace zel {

// A copy in memory: in a mapped file, a part that cannot be read would end the process. Words can
// be read wherever they begin within the file; those after its end are zeros, and so are those of a
// part that cannot be read. Pointers stay valid while the image exists.
class FileImage {
 public:
  // The most words that can be read in one piece.
  static constexpr std::int32_t kMostWords = format::kNodeWords;

  // The part after the last block that an address can name is left out. Zeros take no memory.
  explicit FileImage(std::unique_ptr<platform::BlockFile> file);

  // Whole words in the file.
  std::int64_t Words() const noexcept { return words_; }
  // How many bytes of the file cannot be read.
  std::int64_t UnreadableBytes() const noexcept { return unreadable_; }
  // Null when the piece does not begin within the file, or is longer than kMostWords.
  std::int32_t const* At(std::int64_t word, std::int32_t words) const noexcept {
    bool const isInside = word >= 0 && word < words_ && words >= 0 && words <= kMostWords;
    return isInside ? copy_.get() + word : nullptr;
  }

 private:
  struct Free {
    void operator()(std::int32_t* words) const noexcept { std::free(words); }
  };

  void Copy();
  bool CopyPart(std::int64_t word, std::int32_t* buffer, std::size_t count);

  std::unique_ptr<platform::BlockFile> file_;  // keeps its lock
  std::int64_t words_ = 0;
  std::int64_t unreadable_ = 0;
  std::unique_ptr<std::int32_t, Free> copy_;
};

}  // namespace zel
