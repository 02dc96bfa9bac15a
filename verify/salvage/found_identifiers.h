// The identifiers of the components that were found, and which component each belongs to.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "verify/salvage/component_records.h"
#include "verify/salvage/found_banks.h"
#include "verify/salvage/found_components.h"
#include "verify/salvage/rescued_library.h"

namespace zel {

// An identifier that several components have belongs to the one that it belonged to before, else to
// the first of them. All components are noted before the first one is written.
class FoundIdentifiers {
 public:
  // The banks have the trees of identifiers as they were.
  explicit FoundIdentifiers(FoundBanks const& before) : before_(before) {}

  void NoteAll(std::vector<ComponentBank> const& banks, ComponentRecords const& records);
  // Removes from a component the IDs that belong to another one, and names them as missing.
  void DropForeign(ComponentWords& words) const;
  // Identifiers that no component has are kept if the library still has their component.
  void Write(RescuedLibrary& to) const;

 private:
  using IdKey = std::array<std::int32_t, format::kIdKeyWords>;

  void Note(ComponentWords const& words);
  void WriteIds(RescuedLibrary& to) const;
  void WriteCasNumbers(RescuedLibrary& to) const;

  FoundBanks const& before_;
  // In the order of the components: ID, number; CAS number, number.
  std::vector<std::pair<IdKey, std::int32_t>> ids_;
  std::vector<std::pair<std::int32_t, std::int32_t>> cas_;
  std::map<IdKey, std::vector<std::int32_t>> owners_;  // of each ID, the true one first
  std::set<std::int32_t> numbers_;
};

}  // namespace zel
