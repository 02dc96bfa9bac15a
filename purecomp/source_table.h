// The texts that say where the data of a component came from. Most data share a few of them, so
// each text is kept once, and a datum has its index.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zel {

class SourceTable {
 public:
  // 0 is the empty text.
  using Index = std::uint8_t;
  // What fits into the buffers of hosts, without the final 0; longer texts are cut.
  static constexpr std::size_t kLongest = 259;
  // Data that one table can serve.
  static constexpr std::size_t kMostData = 254;

  // Gives a datum a text in place of the one before. May allocate for a text that no other datum
  // has; when that throws, nothing has changed.
  void Set(Index& datum, std::string_view text);
  char const* At(Index datum) const noexcept {
    return datum == 0 ? "" : slots_[datum - std::size_t{1}].text.c_str();
  }
  // Forgets all texts; the caller sets its indices to 0. The memory stays for the next ones.
  void Clear() noexcept;
  // Bytes on the heap.
  std::size_t HeapBytes() const noexcept;

 private:
  // Free with no data; it is then used for another text.
  struct Slot {
    std::string text;
    std::uint8_t data = 0;
  };
  Index Find(std::string_view text) const noexcept;
  Index Place(std::string_view text);

  std::vector<Slot> slots_;
};

}  // namespace zel
