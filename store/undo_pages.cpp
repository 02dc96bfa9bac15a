#include "store/undo_pages.h"

#include <algorithm>
#include <new>
#include <utility>

namespace zel {

bool UndoPages::Keep(int number, platform::BlockFile& file, std::uint64_t offset,
                     std::size_t count) noexcept {
  File& kept = files_[static_cast<std::size_t>(number)];
  if (!kept.size) kept.size = file.Size();
  std::uint64_t const end = std::min<std::uint64_t>(offset + count, *kept.size);
  try {
    for (std::uint64_t page = offset / kPage; page * kPage < end; ++page) {
      if (kept.pages.count(page) != 0) continue;
      std::uint64_t const from = page * kPage;
      std::vector<std::byte> bytes(static_cast<std::size_t>(std::min(kPage, *kept.size - from)));
      auto const got = file.ReadAt(from, bytes.data(), bytes.size());
      if (got != static_cast<std::int64_t>(bytes.size())) return false;
      kept.pages.emplace(page, std::move(bytes));
    }
  } catch (std::bad_alloc const&) {
    return false;
  }
  return true;
}

bool UndoPages::TakeBack(int number, platform::BlockFile& file) const noexcept {
  File const& kept = Of(number);
  if (!kept.size) return true;
  // A file whose writes are held back needs memory for them.
  auto const isDone = [](auto const& step) {
    try {
      return step();
    } catch (std::bad_alloc const&) {
      return false;
    }
  };
  bool good = isDone([&] { return file.CutTo(*kept.size); });
  for (auto const& entry : kept.pages) {
    std::vector<std::byte> const& bytes = entry.second;
    good = isDone([&] {
             auto const written = file.WriteAt(entry.first * kPage, bytes.data(), bytes.size());
             return written == static_cast<std::int64_t>(bytes.size());
           }) &&
           good;
  }
  return good;
}

}  // namespace zel
