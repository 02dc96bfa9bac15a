// Files that a command reads.
#pragma once

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <new>

namespace zel::desk {

// The stream is not good if the file cannot be opened. Throws std::bad_alloc, where a plain stream
// only reports that it is not open.
inline std::ifstream OpenInput(std::filesystem::path const& path) {
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file && errno == ENOMEM) throw std::bad_alloc();
  return file;
}

}  // namespace zel::desk
