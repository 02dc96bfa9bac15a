// Fill-in: derives constants from the stored ones and labels how each number was obtained.
#pragma once

#include "purecomp/component.h"

namespace zel {

// Copies `fixed` to `completed` and derives what is missing there; `fixed` keeps the data as read.
// Labels go into `fixedSources` at the index of each value derived. Compares Pc Vc/(R Zc Tc) with 1
// and sets the consistency warning when all four constants are defined, the quotient is off by more
// than 0.1, and they do not all come from one source. Never fails; constants that cannot be derived
// stay undefined, except the boiling point copies and the parachor, which are computed even from
// undefined values.
void CompleteComponent(Component& component);

}  // namespace zel
