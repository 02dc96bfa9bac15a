// A slow, literal model of the free list: one list, sorted again after every step.
#pragma once

#include <vector>

namespace zel::test {

class ExtentModel {
 public:
  struct Entry {
    long address;
    long size;
    int file;
  };

  explicit ExtentModel(int libType);

  // Address of the run, or the null address.
  long Take(int file, long blocks);
  void GiveBack(long address, long blocks, int file);
  std::vector<Entry> const& Entries() const { return entries_; }

 private:
  void Order();

  std::vector<Entry> entries_;
};

}  // namespace zel::test
