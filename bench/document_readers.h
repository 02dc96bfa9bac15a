// Ways to read an interchange document of pairs: the import into a library, and parsers that take
// all its numbers and keep nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace zel::bench {

struct DocumentReader {
  char const* name;
  // Reads the document at `path` of so many items; `folder` is for files that it makes. Returns the
  // number of items, 0 if it could not read them.
  std::uint64_t (*read)(std::string const& path, std::string const& folder, std::size_t items);
};

// The first one is the import.
std::span<DocumentReader const> DocumentReaders();

}  // namespace zel::bench
