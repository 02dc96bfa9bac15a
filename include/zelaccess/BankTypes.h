/// \file
/// The typed interfaces of the bank types: all fields of a type in one call. Each family has its
/// own header; this one has the rules for all of them.
///
/// GetData returns an item's values as they are, undefined values included; PutData sets the same
/// list, scalars by value, arrays and texts by pointer. GetDataDefaulted returns 0.0 for every
/// undefined model coefficient (1.0 for `rmw` and `sigma` of PCSAFTPU) and leaves bounds and
/// integers as they are. All of these return kStatusOk, except where a null pointer is a failure.
///
/// Temperatures are in K, pressures in kPa; a missing value is undefined (Types.h). The
/// library computes nothing from coefficients. Each array has the length that its parameter says.
/// Texts are buffers of 21 characters, bank names 9, the name of ORWMAP 13.
///
/// A pair of an asymmetric type that is requested in reverse order is swapped by
/// IZelBankIO::SwapPair before it is returned. That exchanges the ij and ji members; HMIX negates
/// bij, dij, fij and hij, and AZEOTROP computes 1 - x1. None of these tests for undefined values:
/// they are swapped like others, so that an undefined bij of HMIX or x1 of AZEOTROP is returned as
/// 1e35.
///
/// **Threads.** One object belongs to one thread at a time; different objects share nothing.
///
/// **Null pointers.** Every pointer may be null. An output that is null is skipped, and a call
/// whose outputs are all null returns kStatusFailed. A null input array returns kStatusFailed and
/// changes nothing, unless none of its elements would be used; a null text is the empty text.
#ifndef ZELACCESS_BANKTYPES_H
#define ZELACCESS_BANKTYPES_H

#include "zelaccess/ActivityBanks.h"
#include "zelaccess/BankDef.h"
#include "zelaccess/ComponentBanks.h"
#include "zelaccess/GroupBanks.h"
#include "zelaccess/MappingBanks.h"
#include "zelaccess/StateBanks.h"

#endif  // ZELACCESS_BANKTYPES_H
