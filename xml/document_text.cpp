#include "xml/document_text.h"

#include <algorithm>
#include <cstring>

namespace zel {

namespace {

// Any change of a few bytes yields another number; this is not a protection against forgery.
std::uint64_t DigestOf(char const* bytes, std::size_t size) noexcept {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
  std::uint64_t lanes[4] = {size, 1, 2, 3};
  std::size_t at = 0;
  for (; at + sizeof lanes <= size; at += sizeof lanes) {
    std::uint64_t words[4];
    std::memcpy(words, bytes + at, sizeof words);
    for (int i = 0; i < 4; ++i) {
      lanes[i] = (lanes[i] ^ words[i]) * kFactor;
      lanes[i] ^= lanes[i] >> 29;
    }
  }
  std::uint64_t digest = lanes[0];
  for (int i = 1; i < 4; ++i) digest = (digest ^ (digest >> 32) ^ lanes[i]) * kFactor;
  for (; at < size; ++at) digest = (digest ^ static_cast<unsigned char>(bytes[at])) * kFactor;
  return digest ^ (digest >> 32);
}

}  // namespace

platform::ReadResult DocumentText::Open(std::string const& path, std::size_t piece) {
  path_ = path;
  piece_ = piece;
  platform::ReadResult const opened = file_.Open(path);
  if (opened != platform::ReadResult::kRead) return opened;
  inPieces_ = file_.Size() > piece_;
  if (inPieces_) return opened;
  file_.Close();
  platform::ReadResult const read = platform::ReadTextFile(path, held_);
  view_ = held_;
  return read;
}

void DocumentText::BeginFirst() {
  digests_.clear();
  BeginAgain();
  first_ = true;
  if (!inPieces_) return;
  block_.resize(piece_);
  digests_.reserve(static_cast<std::size_t>(file_.Size() / piece_) + 2);
}

void DocumentText::BeginAgain() {
  first_ = false;
  place_ = 0;
  blockSize_ = 0;
}

std::size_t DocumentText::Read(char* buffer, std::size_t room) noexcept {
  if (!inPieces_) {
    auto const from = static_cast<std::size_t>(place_);
    std::size_t const size = std::min(room, view_.size() - from);
    std::memcpy(buffer, view_.data() + from, size);
    place_ += size;
    return size;
  }
  std::size_t done = 0;
  while (done < room) {
    auto const from = static_cast<std::size_t>(place_ % piece_);
    if (from == 0 ? failed_ || !ReadBlock() : from >= blockSize_) break;
    std::size_t const size = std::min(room - done, blockSize_ - from);
    std::memcpy(buffer + done, block_.data() + from, size);
    place_ += size;
    done += size;
  }
  return done;
}

// False at the end of the file, or after a failure.
bool DocumentText::ReadBlock() noexcept {
  std::optional<std::size_t> const size = file_.Read(place_, block_.data(), piece_);
  blockSize_ = size.value_or(0);
  auto const index = static_cast<std::size_t>(place_ / piece_);
  if (!size || (first_ && index == digests_.capacity())) {  // which has room for the file's size
    failed_ = true;
  } else if (blockSize_ > 0 && first_) {
    digests_.push_back(DigestOf(block_.data(), blockSize_));
  } else if (blockSize_ > 0) {
    failed_ = index >= digests_.size() || digests_[index] != DigestOf(block_.data(), blockSize_);
  } else if (!first_) {
    failed_ = index < digests_.size();
  }
  if (!failed_ && watcher_ != nullptr) failed_ = !watcher_->Read(blockSize_, first_);
  return !failed_ && blockSize_ > 0;
}

void DocumentText::Close() noexcept {
  file_.Close();
  inPieces_ = false;
  std::string().swap(held_);
  view_ = {};
  std::vector<char>().swap(block_);
  std::vector<std::uint64_t>().swap(digests_);
}

}  // namespace zel
