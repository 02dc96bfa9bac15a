// Banks: the typed view of one kind of thermophysical data.
//
// A bank object holds one item: the fields of one record of its type. LibMaint and LibSearch find
// records in libraries and hand them to a bank. A bank is made by NewBank with reference count 1,
// shows several faces asked for by QueryInterface, and ends when its count reaches 0.
//
//   IZelBankDef* bank = NewBank("NRTL");
//   void* face = nullptr;
//   if (bank->QueryInterface(IID_IZelNrtl, &face) == kStatusOk) {
//     auto* nrtl = static_cast<IZelNrtl*>(face);
//     ...
//     nrtl->Release();
//   }
//   bank->Release();
//
// The interfaces of the types stand in BankTypes.h. One object belongs to one thread at a time;
// different objects share nothing.
//
// Null pointers. An output that is null is not wanted, and the others come out as ever; a call
// whose outputs are all null fails. A null array to be taken fails and changes nothing, unless none
// of its elements would be taken; a null text is the empty text. This holds for the interfaces of
// all types.
#ifndef ZELACCESS_BANKS_H
#define ZELACCESS_BANKS_H

#include "zelaccess/BankDef.h"
#include "zelaccess/BankTypes.h"

#endif  // ZELACCESS_BANKS_H
