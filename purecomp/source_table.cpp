#include "purecomp/source_table.h"

#include <algorithm>

namespace zel {

SourceTable::Index SourceTable::Find(std::string_view text) const noexcept {
  auto const holds = [&](Slot const& slot) { return slot.data != 0 && slot.text == text; };
  auto const found = std::find_if(slots_.begin(), slots_.end(), holds);
  return found == slots_.end() ? Index{0} : static_cast<Index>(found - slots_.begin() + 1);
}

SourceTable::Index SourceTable::Place(std::string_view text) {
  auto free =
      std::find_if(slots_.begin(), slots_.end(), [](Slot const& slot) { return slot.data == 0; });
  if (free == slots_.end()) free = slots_.insert(slots_.end(), Slot{});
  free->text = text;
  return static_cast<Index>(free - slots_.begin() + 1);
}

void SourceTable::Set(Index& datum, std::string_view text) {
  text = text.substr(0, kLongest);
  Index next = 0;
  if (!text.empty()) {
    next = Find(text);
    if (next == 0) next = Place(text);
    ++slots_[next - std::size_t{1}].data;
  }
  if (datum != 0) --slots_[datum - std::size_t{1}].data;
  datum = next;
}

void SourceTable::Clear() noexcept {
  for (Slot& slot : slots_) slot.data = 0;
}

std::size_t SourceTable::HeapBytes() const noexcept {
  std::size_t bytes = slots_.capacity() * sizeof(Slot);
  std::size_t const inside = std::string().capacity();
  for (Slot const& slot : slots_) {
    if (slot.text.capacity() > inside) bytes += slot.text.capacity() + 1;
  }
  return bytes;
}

}  // namespace zel
