#include "tests/support/stored_items.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <stdexcept>

#include "store/bank_key.h"
#include "tests/support/file_words.h"

namespace zel::test {
namespace {

constexpr std::int32_t kNull = 990'000'000;
using Path = std::vector<std::shared_ptr<std::vector<ByteRange> const>>;

class Reader {
 public:
  explicit Reader(LibraryBytes const& library) : library_(library) {}

  StoredItems Read() {
    std::int32_t const heads = Word({1, 20, 24});
    auto start = std::make_shared<std::vector<ByteRange>>();
    start->push_back({1, 0, 116});  // type to block sizes
    start->push_back(RangeOf(heads, 24));
    std::int32_t const root = WordsOf(heads, 24)[7];
    Tree(root, 20, {start}, [&](ByteRange const& entry, Path const& path) { Bank(entry, path); });
    return std::move(items_);
  }

 private:
  std::int32_t Word(ByteRange const& range) const {
    std::vector<std::byte> const& bytes = library_.file[range.file - 1];
    if (range.from + 4 > bytes.size()) throw std::logic_error("not a sound library");
    return FileWord(&bytes[range.from]);
  }
  static ByteRange RangeOf(std::int32_t address, std::size_t words) {
    int const file = address / 1'000'000 % 10;
    auto const block = static_cast<std::size_t>(address % 1'000'000 - 1);
    std::size_t const from = block * (file == 1 ? 1000 : 4000);
    return {file, from, from + 4 * words};
  }
  std::vector<std::int32_t> WordsIn(ByteRange const& range) const {
    std::vector<std::int32_t> words;
    for (std::size_t at = range.from; at < range.to; at += 4) {
      words.push_back(Word({range.file, at, at + 4}));
    }
    return words;
  }
  std::vector<std::int32_t> WordsOf(std::int32_t address, std::size_t words) const {
    return WordsIn(RangeOf(address, words));
  }

  // Calls `visit` with the range and the path of each entry.
  template <typename Visit>
  void Tree(std::int32_t address, std::size_t entryWords, Path path, Visit const& visit) {
    if (address == kNull) return;
    ByteRange const node = RangeOf(address, 1000);
    std::vector<std::int32_t> const words = WordsIn(node);
    auto own = std::make_shared<std::vector<ByteRange>>();
    auto const count = static_cast<std::size_t>(words[0]);
    auto const range = [&](std::size_t word, std::size_t n) {
      return ByteRange{node.file, node.from + 4 * word, node.from + 4 * (word + n)};
    };
    own->push_back(range(0, 1));
    for (std::size_t i = 0; i <= count; ++i) own->push_back(range(4 + i * (entryWords + 1), 1));
    path.push_back(own);
    for (std::size_t i = 0; i <= count; ++i) {
      if (i > 0) visit(range(5 + (i - 1) * (entryWords + 1), entryWords), path);
      Tree(words[4 + i * (entryWords + 1)], entryWords, path, visit);
    }
  }

  void Bank(ByteRange const& entry, Path path) {
    std::vector<std::int32_t> const words = WordsIn(entry);
    char type[9] = {};
    char name[9] = {};
    UnpackBankKey(words.data(), type, name);
    path.push_back(std::make_shared<std::vector<ByteRange>>(1, entry));
    std::int32_t const* head = &words[12];
    auto const keyWords = static_cast<std::size_t>(head[3]);
    Tree(head[7], static_cast<std::size_t>(head[2]), path,
         [&](ByteRange const& item, Path const& way) {
           std::vector<std::int32_t> const all = WordsIn(item);
           auto const data = all.begin() + static_cast<std::ptrdiff_t>(keyWords);
           StoredItem stored{{data, all.end()}, {item}, way};
           if (head[0] % 10 == 1) Component(all.back(), stored);
           items_[{type, name, {all.begin(), data}}] = std::move(stored);
         });
  }

  void Component(std::int32_t address, StoredItem& stored) {
    stored.bytes.push_back(RangeOf(address, 250));
    std::vector<std::int32_t> main = WordsOf(address, 250);
    stored.values = main;
    for (std::size_t i = 0; i < 20; ++i) stored.values[150 + 3 * i + 2] = 0;
    stored.values[95] = 0;
    stored.values[98] = 0;
    auto const add = [&](std::int32_t at, std::int32_t words) {
      if (words <= 0 || at == kNull || at == 0) return;
      stored.bytes.push_back(RangeOf(at, static_cast<std::size_t>(words)));
      std::vector<std::int32_t> const more = WordsIn(stored.bytes.back());
      stored.values.insert(stored.values.end(), more.begin(), more.end());
    };
    add(main[98], main[99]);
    add(main[95], main[96]);
  }

  LibraryBytes const& library_;
  StoredItems items_;
};

}  // namespace

bool ByteRange::IsSame(LibraryBytes const& a, LibraryBytes const& b) const {
  std::vector<std::byte> const& x = a.file[file - 1];
  std::vector<std::byte> const& y = b.file[file - 1];
  return to <= x.size() && to <= y.size() &&
         std::memcmp(x.data() + from, y.data() + from, to - from) == 0;
}

bool StoredItem::IsIntact(LibraryBytes const& a, LibraryBytes const& b) const {
  return std::all_of(bytes.begin(), bytes.end(),
                     [&](ByteRange const& range) { return range.IsSame(a, b); });
}

bool StoredItem::CanBeWalkedTo(LibraryBytes const& a, LibraryBytes const& b) const {
  return std::all_of(path.begin(), path.end(), [&](auto const& step) {
    return std::all_of(step->begin(), step->end(),
                       [&](ByteRange const& range) { return range.IsSame(a, b); });
  });
}

StoredItems ReadItems(LibraryBytes const& library) { return Reader(library).Read(); }

}  // namespace zel::test
