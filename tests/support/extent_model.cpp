#include "tests/support/extent_model.h"

#include <algorithm>

namespace zel::test {

ExtentModel::ExtentModel(int libType)
    : entries_{{libType * 10000000L + 2000001, 999999, 2},
               {libType * 10000000L + 1000003, 999999, 1}} {}

void ExtentModel::Order() {
  std::stable_sort(entries_.begin(), entries_.end(), [](Entry const& a, Entry const& b) {
    if (a.size != b.size) return a.size > b.size;
    if (a.file != b.file) return a.file > b.file;
    return a.address > b.address;
  });
  while (!entries_.empty() && entries_.back().size == 0) entries_.pop_back();
  if (entries_.size() > 62) entries_.resize(62);
}

long ExtentModel::Take(int file, long blocks) {
  for (std::size_t i = entries_.size(); i-- > 0;) {
    Entry& e = entries_[i];
    if (e.file != file || e.size < blocks) continue;
    long const address = e.address;
    e.address += blocks;
    if (e.size != 999999) e.size -= blocks;
    Order();
    return address;
  }
  return 990000000;
}

void ExtentModel::GiveBack(long address, long blocks, int file) {
  for (Entry& e : entries_) {
    if (address + blocks == e.address) {
      blocks += e.size;
      e = {0, 0, 0};
    }
    if (e.size > 0 && e.address + e.size == address && e.size < 999999) {
      address = e.address;
      blocks += e.size;
      e = {0, 0, 0};
    }
  }
  entries_.push_back({address, std::min(blocks, 999999L), file});
  Order();
}

}  // namespace zel::test
