// The records of pure components, which are in blocks of their own.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "purecomp/record_format.h"
#include "verify/salvage/broken_library.h"

namespace zel {

// The words of a component as they will be written; its blocks have no addresses yet.
struct ComponentWords {
  std::array<std::int32_t, record::kMainWords> main{};
  std::array<std::int32_t, record::kStructureWords> structures{};
  std::array<std::int32_t, record::kCorrelationWords> correlations{};
  bool hasStructures = false;
  bool hasCorrelations = false;
  std::vector<std::string> missing;  // what of it cannot be read, as texts
};

class ComponentRecords {
 public:
  // Looks at every block of the first file for the main block of a component.
  explicit ComponentRecords(BrokenLibrary const& library);

  // True for the address of a block that looks like the main block of a component.
  bool IsRecord(std::int32_t address) const noexcept;
  // True if a main block at the address states the number of this component.
  bool IsRecordOf(std::int32_t address, std::int32_t number) const noexcept;
  // The number that a main block states.
  std::int32_t NumberOf(std::int32_t address) const noexcept {
    return library_.Run(address, record::kMainWords)[record::kNumber];
  }
  // All main blocks in the first file, in the order of their numbers.
  std::multimap<std::int32_t, std::int32_t> const& Addresses() const noexcept { return addresses_; }
  // True for a record in a free block: one of a component that was deleted, or written anew
  // elsewhere.
  bool IsOutdated(std::int32_t address) const noexcept { return library_.IsFree(address); }

  // Copies a component. A part that cannot be read is left out and named; values that are not
  // numbers become undefined, and are named. False if the main block cannot be read.
  bool Copy(std::int32_t address, std::int32_t number, ComponentWords& to) const;
  // Leaves out the IDs for which `isKept` returns false, and names them as missing; the others move
  // up.
  static void KeepIds(ComponentWords& to, std::function<bool(std::string_view)> const& isKept);

 private:
  static void DropIds(ComponentWords& to);
  void CopyStructures(ComponentWords& to) const;
  void CopyCorrelations(ComponentWords& to) const;
  bool CopyOldCorrelations(ComponentWords& to) const;

  BrokenLibrary const& library_;
  std::multimap<std::int32_t, std::int32_t> addresses_;
};

}  // namespace zel
