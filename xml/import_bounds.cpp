#include "xml/import_bounds.h"

#include <algorithm>

namespace zel {

std::string_view ImportBounds::Take(std::string const& path, std::uint64_t bytes) {
  constexpr std::uint64_t kLeast = 1000;  // the cost of opening a file, in bytes
  bytes = std::max(bytes, kLeast);
  ++documents_;
  (paths_.insert(path).second ? bytes_ : repeated_) += bytes;
  if (documents_ > kMostDocuments) return "more than 100000 documents in one import";
  if (bytes_ + repeated_ > kMostBytes) return "more than 4 GiB of documents in one import";
  if (repeated_ > kRepeatedBytes + kRepeatedPerByte * bytes_) {
    return "documents imported again and again, more than 1 MB and ten times the size of all";
  }
  return {};
}

}  // namespace zel
