// The checks of libraries with each other.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "verify/checked_library.h"

namespace zel {

// Compares every component of several banks with those of earlier banks that have its number, one
// of its IDs or its CAS number.
class IdentityComparison {
 public:
  explicit IdentityComparison(DataFindings& findings) : findings_(findings) {}
  void Library(CheckedLibrary& library);

 private:
  struct Seen {
    std::string source;  // "crc.lb1:CRC"
    ZelIdentity identity;

    Seen(std::string from, ZelIdentity const& own) : source(std::move(from)), identity(own) {}
  };
  void Component(CheckedItem const& item, Seen own);

  DataFindings& findings_;
  std::map<std::string, std::vector<std::size_t>> byLabel_;
  std::vector<Seen> seen_;
};

// Compares every component of a library with the same one of another.
void CompareComponents(CheckedLibrary& one, CheckedLibrary& other);

}  // namespace zel
