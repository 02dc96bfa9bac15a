#include "desk/files/file_digest.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <system_error>
#include <vector>

namespace zel::desk {
namespace {

// The file is read in pieces; those that have zeros only are left out.
constexpr std::size_t kPiece = std::size_t{1} << 16;
constexpr std::uint64_t kStart = 0xcbf29ce484222325;
constexpr std::uint64_t kPrime = 0x9e3779b97f4a7c15;

std::uint64_t Mixed(std::uint64_t digest, std::uint64_t word) {
  digest = (digest ^ word) * kPrime;
  return digest ^ (digest >> 32);
}

class Input {
 public:
  explicit Input(std::filesystem::path const& path)
      : path_(path), descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (descriptor_ < 0) Refuse();
  }
  Input(Input const&) = delete;
  Input& operator=(Input const&) = delete;
  ~Input() { ::close(descriptor_); }

  // The place of the next data that is not in a hole, from `at` on; the end of the file if there is
  // none. `at` itself on a file system that does not tell.
  off_t NextData(off_t at) const {
    off_t const data = ::lseek(descriptor_, at, SEEK_DATA);
    if (data >= 0) return data;
    return errno == ENXIO ? Size() : at;
  }
  off_t Size() const {
    off_t const size = ::lseek(descriptor_, 0, SEEK_END);
    if (size < 0) Refuse();
    return size;
  }
  // Fills the piece from the file at `at`; less than that only at its end.
  std::size_t Read(std::vector<char>& piece, off_t at) const {
    std::size_t done = 0;
    while (done < piece.size()) {
      ssize_t const n = ::pread(descriptor_, piece.data() + done, piece.size() - done,
                                at + static_cast<off_t>(done));
      if (n == 0) break;
      if (n < 0 && errno != EINTR) Refuse();
      if (n > 0) done += static_cast<std::size_t>(n);
    }
    return done;
  }

 private:
  [[noreturn]] void Refuse() const {
    throw std::filesystem::filesystem_error("", path_,
                                            std::error_code(errno, std::generic_category()));
  }

  std::filesystem::path path_;
  int descriptor_;
};

}  // namespace

std::string DigestOf(std::filesystem::path const& file) {
  Input const input(file);
  std::vector<char> piece(kPiece);
  off_t const size = input.Size();
  std::uint64_t digest = kStart;
  constexpr off_t kStep = kPiece;
  for (off_t at = 0; at < size; at += kStep) {
    at = std::max(at, input.NextData(at) / kStep * kStep);
    std::fill(piece.begin(), piece.end(), '\0');
    input.Read(piece, at);
    if (std::all_of(piece.begin(), piece.end(), [](char c) { return c == '\0'; })) continue;
    digest = Mixed(digest, static_cast<std::uint64_t>(at));
    for (std::size_t i = 0; i < piece.size(); i += sizeof(std::uint64_t)) {
      std::uint64_t word = 0;
      std::memcpy(&word, &piece[i], sizeof(word));
      digest = Mixed(digest, word);
    }
  }
  char text[48];
  std::snprintf(text, sizeof(text), "%lld:%016llx", static_cast<long long>(size),
                static_cast<unsigned long long>(digest));
  return text;
}

}  // namespace zel::desk
