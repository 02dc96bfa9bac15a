// The words of one file of a library that may be damaged.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "frame/platform/block_file.h"
#include "store/format.h"

namespace zel {

// Words can be looked at wherever they begin within the file; those after its end are zeros.
// Pointers stay valid while the image exists. A part of the file that cannot be read is zeros.
class FileImage {
 public:
  // The most words that can be looked at in one piece.
  static constexpr std::int32_t kMostWords = format::kNodeWords;

  explicit FileImage(std::unique_ptr<platform::BlockFile> file);

  // Whole words in the file.
  std::int64_t Words() const noexcept { return words_; }
  // Null when the piece does not begin within the file, or is longer than kMostWords.
  std::int32_t const* At(std::int64_t word, std::int32_t words) const noexcept;

 private:
  bool Map() noexcept;
  void Copy();

  std::unique_ptr<platform::BlockFile> file_;
  std::int64_t words_ = 0;
  std::int32_t const* first_ = nullptr;
  std::vector<std::int32_t> copy_;  // the whole file where it cannot be mapped
  std::int64_t endFrom_ = 0;        // the word with which `end_` begins
  std::vector<std::int32_t> end_;   // the last words of the file, and the zeros after them
};

}  // namespace zel
