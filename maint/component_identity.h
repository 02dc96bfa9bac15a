// The identity of a component record, in one object.
#pragma once

#include <cstdint>

#include "frame/limits.h"
#include "zelaccess/Casn.h"
#include "zelaccess/PureComp.h"

namespace zel {

struct ComponentIdentity {
  static constexpr int kIds = 12;
  static constexpr int kIdSize = kMostName + 1;

  std::int32_t number = 0;
  std::int32_t casNumber = 0;
  std::int32_t refCode = 0;
  char ids[kIds][kIdSize] = {};
  char name[41] = {};
  char formula[21] = {};
  std::uint8_t keepFormula = 0;

  explicit ComponentIdentity(IZelPureComp* component) {
    component->GetIdentity(&number, &casNumber, &refCode, ids, name, formula, &keepFormula);
  }
  // Empty when the number fails its check digit.
  casn Cas() const noexcept { return casn(casNumber); }
};

}  // namespace zel
