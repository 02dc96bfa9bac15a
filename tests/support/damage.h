// Damage of many kinds, at random places of the files of a library.
#pragma once

#include <random>
#include <span>

#include "tests/support/stored_items.h"

namespace zel::test {

struct DamageKind {
  char const* name;
  bool isRepeated;  // done several times in one library
  void (*apply)(LibraryBytes& library, std::mt19937_64& random);
};

std::span<DamageKind const> DamageKinds();

}  // namespace zel::test
