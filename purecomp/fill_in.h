// Fill-in: what the stored constants imply, with a label for how each number came about.
#pragma once

#include "purecomp/component.h"

namespace zel {

// Copies `fixed` to `completed` and derives what is missing there; `fixed` keeps the data as read.
// Labels go into `fixedSources` at the index of each value derived. Holds Pc Vc/(R Zc Tc) against 1
// and sets the consistency warning when all four are there, are off by more than 10 percent and do
// not all come from one source. Never fails; what cannot be derived stays undefined, but for the
// boiling point copies and the parachor, which are computed from whatever is there.
void CompleteComponent(Component& component);

}  // namespace zel
