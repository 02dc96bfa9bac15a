#include "desk/files/file_digest.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <system_error>
#include <vector>

namespace zel::desk {
namespace {

constexpr std::size_t kPiece = std::size_t{1} << 20;
constexpr std::uint64_t kStart = 0xcbf29ce484222325;
constexpr std::uint64_t kPrime = 0x100000001b3;

class Input {
 public:
  explicit Input(std::filesystem::path const& path)
      : path_(path), descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (descriptor_ < 0) Refuse();
  }
  Input(Input const&) = delete;
  Input& operator=(Input const&) = delete;
  ~Input() { ::close(descriptor_); }

  // Returns 0 at the end of the file.
  std::size_t Read(std::vector<char>& piece) const {
    for (;;) {
      ssize_t const n = ::read(descriptor_, piece.data(), piece.size());
      if (n >= 0) return static_cast<std::size_t>(n);
      if (errno != EINTR) Refuse();
    }
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
  std::uint64_t size = 0;
  std::uint64_t digest = kStart;
  for (std::size_t n = input.Read(piece); n > 0; n = input.Read(piece)) {
    for (std::size_t i = 0; i < n; ++i) {
      digest = (digest ^ static_cast<unsigned char>(piece[i])) * kPrime;
    }
    size += n;
  }
  char text[48];
  std::snprintf(text, sizeof(text), "%llu:%016llx", static_cast<unsigned long long>(size),
                static_cast<unsigned long long>(digest));
  return text;
}

}  // namespace zel::desk
