#include "verify/salvage/file_image.h"

#include <algorithm>
#include <bit>
#include <new>
#include <utility>
#include <vector>

namespace zel {

namespace f = format;

namespace {

// The last word that an address can name in a file with blocks of the usual size.
constexpr std::int64_t kMostWordsOfFile =
    std::int64_t{f::kMaxBlock} * std::max(f::kBlockWordsOfFile1, f::kBlockWordsOfFile2);

std::int32_t InFileOrder(std::int32_t word) noexcept {
  if constexpr (std::endian::native == std::endian::little) return word;
  auto const bits = static_cast<std::uint32_t>(word);
  return static_cast<std::int32_t>(bits << 24U | (bits & 0xFF00U) << 8U | (bits >> 8U & 0xFF00U) |
                                   bits >> 24U);
}

}  // namespace

// Memory from calloc is zero without being touched, so that the holes of a file cost nothing.
FileImage::FileImage(std::unique_ptr<platform::BlockFile> file) : file_(std::move(file)) {
  words_ = std::min(static_cast<std::int64_t>(file_->Size() / f::kWordBytes), kMostWordsOfFile);
  auto const count = static_cast<std::size_t>(words_ + kMostWords);
  copy_.reset(static_cast<std::int32_t*>(std::calloc(count, f::kWordBytes)));
  if (!copy_) throw std::bad_alloc();
  Copy();
}

void FileImage::Copy() {
  constexpr std::size_t kLong = 65536 / f::kWordBytes;  // words that are read at once
  constexpr std::size_t kShort = 512 / f::kWordBytes;   // and where that fails: a sector
  std::vector<std::int32_t> buffer(kLong);
  for (std::int64_t at = 0; at < words_; at += kLong) {
    std::size_t const count = std::min(static_cast<std::size_t>(words_ - at), kLong);
    if (CopyPart(at, buffer.data(), count)) continue;
    for (std::size_t done = 0; done < count; done += kShort) {
      std::size_t const part = std::min(count - done, kShort);
      if (CopyPart(at + static_cast<std::int64_t>(done), buffer.data(), part)) continue;
      unreadable_ += static_cast<std::int64_t>(part * f::kWordBytes);
    }
  }
}

// False if not all of it can be read.
bool FileImage::CopyPart(std::int64_t word, std::int32_t* buffer, std::size_t count) {
  std::size_t const bytes = count * f::kWordBytes;
  std::uint64_t const from = static_cast<std::uint64_t>(word) * f::kWordBytes;
  if (file_->ReadUnmapped(from, buffer, bytes) != static_cast<std::int64_t>(bytes)) return false;
  for (std::size_t i = 0; i < count; ++i) {
    if (buffer[i] != 0) copy_.get()[word + static_cast<std::int64_t>(i)] = InFileOrder(buffer[i]);
  }
  return true;
}

}  // namespace zel
