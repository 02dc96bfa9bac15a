// What text files need of the system. An open file is a number of the C library, -1 when it could
// not be opened.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "frame/platform/text_file.h"

namespace zel::platform {

// Opens a file to be overwritten. A file that is open as a library, here or elsewhere, is left
// alone: library files have the same lock.
int OpenEmptyTextFile(std::string const& path);
// Bytes written, at least one; -1 when none could be.
std::int64_t WriteTextFile(int file, char const* from, std::size_t count) noexcept;
// False when something that was written before has been lost.
bool CloseTextFile(int file) noexcept;

struct OpenedText {
  ReadResult result = ReadResult::kUnreadable;
  int file = -1;           // set when the result is kRead
  std::uint64_t size = 0;  // in bytes
};
OpenedText OpenTextFile(std::string const& path);
// Bytes from this place on, 0 at the end of the file; -1 when they cannot be read.
std::int64_t ReadTextFileAt(int file, std::uint64_t place, char* to, std::size_t room) noexcept;

}  // namespace zel::platform
