// Limits how much one import reads, whatever its documents contain, so that small documents cannot
// keep it busy for long. The bounds of a single document are those of XmlDocument.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

namespace zel {

class ImportBounds {
 public:
  static constexpr std::int64_t kMostDocuments = 100'000;
  static constexpr std::uint64_t kMostBytes = std::uint64_t{4} << 30;  // of all documents
  // Bytes of documents that the same import has read before.
  static constexpr std::uint64_t kRepeatedBytes = 1'000'000;
  static constexpr std::uint64_t kRepeatedPerByte = 10;  // of the documents read once
  static constexpr std::size_t kMostOpenDocuments = 100;

  // Counts one more document of this size. Returns the bound that it exceeds, or nothing.
  std::string_view Take(std::string const& path, std::uint64_t bytes);
  std::int64_t Documents() const noexcept { return documents_; }

 private:
  std::int64_t documents_ = 0;
  std::uint64_t bytes_ = 0;
  std::uint64_t repeated_ = 0;
  std::set<std::string, std::less<>> paths_;
};

}  // namespace zel
