// All items of a sound library, read literally from the bytes of its files, and where these are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace zel::test {

// The first and the second file.
struct LibraryBytes {  // NOLINT(bugprone-reserved-identifier): the name that copies of arrays have
  std::vector<std::byte> file[2];
};

struct ByteRange {
  int file;  // 1 or 2
  std::size_t from;
  std::size_t to;

  // False if a byte differs, or is not there any more.
  bool IsSame(LibraryBytes const& a, LibraryBytes const& b) const;
};

struct StoredItem {
  // The words of the record; of a component those of its three blocks, without the addresses.
  std::vector<std::int32_t> values;
  // The entry without its links; of a component also its blocks.
  std::vector<ByteRange> bytes;
  // What a walk to the item relies on: header, heads, the bank's entry in the directory, and the
  // counts and links of all nodes on the way.
  std::vector<std::shared_ptr<std::vector<ByteRange> const>> path;

  bool IsIntact(LibraryBytes const& a, LibraryBytes const& b) const;
  bool CanBeWalkedTo(LibraryBytes const& a, LibraryBytes const& b) const;
};

struct ItemName {
  std::string type;
  std::string bank;
  std::vector<std::int32_t> key;

  bool operator<(ItemName const& other) const {
    return std::tie(type, bank, key) < std::tie(other.type, other.bank, other.key);
  }
};

using StoredItems = std::map<ItemName, StoredItem>;

// The library must be sound, with blocks of 250 and 1000 words.
StoredItems ReadItems(LibraryBytes const& library);

}  // namespace zel::test
