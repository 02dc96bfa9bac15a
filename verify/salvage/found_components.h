// The components of a library: which record belongs to which bank and number.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "verify/salvage/found_banks.h"

namespace zel {

struct FoundComponent {
  std::int32_t number = 0;
  std::int32_t address = 0;  // 0 for a record that is lost
  bool isScanned = false;
  bool isOutdated = false;
  std::string note;  // what was wrong with the entry or the record
};

struct ComponentBank {
  SalvagedTree* bank = nullptr;
  std::vector<FoundComponent> components;  // in ascending order of numbers
  std::vector<FoundComponent> keyless;
};

// Finds the records of the banks of pure components. An entry and its record both have the number,
// so that a damaged entry is noticed, and a record whose entry is lost still has its key. Records
// that no entry leads to are taken where a bank has a gap, and, where the directory is damaged,
// into banks that it does not describe. They can be those of deleted components.
std::vector<ComponentBank> FindComponents(FoundBanks& banks, ComponentRecords const& records);

}  // namespace zel
