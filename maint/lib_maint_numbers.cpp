// Component numbers: finding them by CAS number or character ID, and assigning new ones.
#include <algorithm>

#include "frame/limits.h"
#include "maint/lib_maint.h"

namespace zel {

namespace {

// Searches the library, then the name index, with the same look-up.
template <typename LookUp>
std::int32_t AskBoth(LibFile_i* library, bool& fromNameIndex, LookUp const& lookUp) {
  fromNameIndex = false;
  std::int32_t const* data = nullptr;
  if (library != nullptr && lookUp(*library, data)) return data[0];
  NameIndexUse const use;
  auto* index = dynamic_cast<LibFile_p*>(use.Library());
  if (index == nullptr || !lookUp(*index, data)) return 0;
  fromNameIndex = true;
  return data[0];
}

}  // namespace

std::int32_t LibMaint_i::FindNumberByCas(casn const& number, bool& fromNameIndex) {
  return AskBoth(library_, fromNameIndex, [&](LibFile_p& library, std::int32_t const*& data) {
    return library.FindCasNumbers(number, data);
  });
}

std::int32_t LibMaint_i::FindNumberByCas(casn const& number) {
  bool fromNameIndex = false;
  return FindNumberByCas(number, fromNameIndex);
}

std::int32_t LibMaint_i::FindNumberById(char const* id, bool& fromNameIndex) {
  return AskBoth(library_, fromNameIndex, [&](LibFile_p& library, std::int32_t const*& data) {
    return library.FindIdNumbers(id, data);
  });
}

std::int32_t LibMaint_i::FindNumberById(char const* id) {
  bool fromNameIndex = false;
  return FindNumberById(id, fromNameIndex);
}

std::int32_t LibMaint_i::NextComponentNumber() {
  if (!usedNumbersValid_) CollectUsedNumbers();
  std::int32_t number = kFirstOwnNumber;
  for (std::int32_t used : usedNumbers_) {
    if (used != number) break;
    ++number;
  }
  usedNumbers_.insert(number);
  return number;
}

void LibMaint_i::CollectUsedNumbers() {
  usedNumbers_.clear();
  AddUsedNumbers(library_);
  NameIndexUse const use;
  LibFile* index = use.Library();
  if (index != nullptr && index != library_) AddUsedNumbers(index);
  usedNumbersValid_ = true;
}

void LibMaint_i::AddUsedNumbers(LibFile* library) {
  LibMaint_i walk(library);
  std::int32_t number = 0;
  char id[kMostName + 1];
  walk.BeginIdWalk();
  while (walk.NextId(number, id)) {
    if (number >= kFirstOwnNumber) usedNumbers_.insert(number);
  }
}

}  // namespace zel
