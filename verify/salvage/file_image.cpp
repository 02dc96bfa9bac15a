#include "verify/salvage/file_image.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <utility>

namespace zel {

namespace f = format;

namespace {

constexpr bool kNativeIsFileOrder = std::endian::native == std::endian::little;

std::int32_t WordFrom(std::byte const* bytes) noexcept {
  std::uint32_t word = 0;
  for (unsigned i = 0; i < f::kWordBytes; ++i) {
    word |= std::to_integer<std::uint32_t>(bytes[i]) << (8U * i);
  }
  return static_cast<std::int32_t>(word);
}

}  // namespace

FileImage::FileImage(std::unique_ptr<platform::BlockFile> file) : file_(std::move(file)) {
  words_ = static_cast<std::int64_t>(file_->Size() / f::kWordBytes);
  if (!Map()) Copy();
  endFrom_ = std::max<std::int64_t>(0, words_ - kMostWords);
  end_.assign(first_ + endFrom_, first_ + words_);
  end_.resize(end_.size() + kMostWords);
}

bool FileImage::Map() noexcept {
  if (!kNativeIsFileOrder || words_ == 0) return false;
  first_ = reinterpret_cast<std::int32_t const*>(
      file_->View(0, static_cast<std::size_t>(words_) * f::kWordBytes));
  return first_ != nullptr;
}

void FileImage::Copy() {
  constexpr std::size_t kStep = 4096;  // bytes; a piece that cannot be read is left zero
  copy_.resize(static_cast<std::size_t>(words_));
  std::vector<std::byte> bytes(kStep);
  for (std::size_t at = 0; at < copy_.size(); at += kStep / f::kWordBytes) {
    std::size_t const count = std::min(copy_.size() - at, kStep / f::kWordBytes);
    std::int64_t const got = file_->ReadAt(at * f::kWordBytes, bytes.data(), count * f::kWordBytes);
    std::size_t const good = got < 0 ? 0 : static_cast<std::size_t>(got) / f::kWordBytes;
    for (std::size_t i = 0; i < std::min(good, count); ++i) {
      copy_[at + i] = WordFrom(&bytes[i * f::kWordBytes]);
    }
  }
  first_ = copy_.data();
}

std::int32_t const* FileImage::At(std::int64_t word, std::int32_t words) const noexcept {
  if (word < 0 || word >= words_ || words < 0 || words > kMostWords) return nullptr;
  return word + words <= words_ ? first_ + word : end_.data() + (word - endFrom_);
}

}  // namespace zel
