/// \file
/// Banks: the typed view of one kind of thermophysical data.
///
/// A bank object holds one item: the fields of one record of its type. LibMaint and LibSearch find
/// records in libraries and read them into a bank. A bank is made by NewBank with reference count
/// 1, has several interfaces that QueryInterface returns, and ends when its count reaches 0.
///
///     IZelBankDef* bank = NewBank("NRTL");
///     void* face = nullptr;
///     if (bank->QueryInterface(IID_IZelNrtl, &face) == kStatusOk) {
///       auto* nrtl = static_cast<IZelNrtl*>(face);
///       ...
///       nrtl->Release();
///     }
///     bank->Release();
///
/// The interfaces of the types are in BankTypes.h, that of pure components in PureComp.h.
///
/// **Threads.** One object belongs to one thread at a time; different objects share nothing.
///
/// **Null pointers.** Every pointer may be null. An output that is null is skipped, and the others
/// are as they would be with it; a call whose outputs are all null returns kStatusFailed. A null
/// input array returns kStatusFailed and changes nothing, unless none of its elements would be
/// used; a null text is the empty text. This holds for the interfaces of all types.
#ifndef ZELACCESS_BANKS_H
#define ZELACCESS_BANKS_H

#include "zelaccess/BankDef.h"
#include "zelaccess/BankTypes.h"

#endif  // ZELACCESS_BANKS_H
