#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "desk/files/data_input.h"

namespace zel::desk {
namespace {

int InputOf(std::intptr_t file) { return static_cast<int>(file); }

}  // namespace

DataInput::DataInput(std::filesystem::path const& path)
    : path_(path), file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (file_ < 0) Refuse();
}

DataInput::~DataInput() { ::close(InputOf(file_)); }

std::int64_t DataInput::NextData(std::int64_t at) const {
  off_t const data = ::lseek(InputOf(file_), at, SEEK_DATA);
  if (data >= 0) return data;
  return errno == ENXIO ? Size() : at;
}

std::int64_t DataInput::Size() const {
  off_t const size = ::lseek(InputOf(file_), 0, SEEK_END);
  if (size < 0) Refuse();
  return size;
}

std::size_t DataInput::Read(std::vector<char>& piece, std::int64_t at) const {
  std::size_t done = 0;
  while (done < piece.size()) {
    ssize_t const n = ::pread(InputOf(file_), piece.data() + done, piece.size() - done,
                              at + static_cast<off_t>(done));
    if (n == 0) break;
    if (n < 0 && errno != EINTR) Refuse();
    if (n > 0) done += static_cast<std::size_t>(n);
  }
  return done;
}

void DataInput::Refuse() const {
  throw std::filesystem::filesystem_error("", path_,
                                          std::error_code(errno, std::generic_category()));
}

}  // namespace zel::desk
