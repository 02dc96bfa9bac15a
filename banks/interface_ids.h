// Identifiers of interfaces that are not exported.
#pragma once

#include "zelaccess/Banks.h"

namespace zel {

extern ZelIid const IID_IZelBankTest;

}  // namespace zel
